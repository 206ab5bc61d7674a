// The trace window.
//
// Lines stand in a ring of 200 slots, of which one stays free: head is where the next line goes, tail the oldest line, and the
// two never meet but in an empty ring. The window shows the lines up to a slot, as many as it has room for.
#include "frame/trace_window.h"

#include <algorithm>
#include <array>
#include <string>

#include "desktop/boxes.h"
#include "desktop/trace.h"

namespace quillon {

static constexpr int slots = 200;
static constexpr std::size_t longestLine = 200;
static constexpr std::size_t longestOwnerTitle = 97;
static constexpr int clearEntry = 1;
static constexpr int scrollEntry = 2;
static constexpr char scrollOffText[] = "&Scroll off";
static constexpr char scrollOnText[] = "&Scroll on";
static const std::string blankRow(240, ' ');

static struct {
  TraceHandle view;
  std::array<std::string, slots> lines;
  int head;
  int tail;
  int lastShown;
  bool scrolling;
  int lineHeight;
} state;

static int wrapped(int slot) { return (slot + slots) % slots; }

static int linesHeld() { return wrapped(state.head - state.tail); }

static bool holdsLine(int slot) { return slot >= 0 && slot < slots && wrapped(slot - state.tail) < linesHeld(); }

static void clearRing() {
  state.head = 0;
  state.tail = 0;
  state.lastShown = 0;
}

// Draws every row that fits: blank first, since the text may be shorter than what stands there.
static void redraw(int slot) {
  if (!state.scrolling) return;
  state.lastShown = slot;
  if (state.lineHeight <= 0) return;
  const int rows = traceClientHeight(state.view) / state.lineHeight;
  const int available = linesHeld() == 0 ? 0 : wrapped(slot - state.tail) + 1;
  const int shown = std::min(rows, available);
  const int first = available < 2 ? state.tail : wrapped(slot - shown + 1);
  if (rows > 0) traceSetScrollPosition(state.view, wrapped(first - state.tail));
  for (int row = 0; row < rows; ++row) {
    traceDrawRow(state.view, row, blankRow);
    if (row < shown) traceDrawRow(state.view, row, state.lines[static_cast<std::size_t>(wrapped(first + row))]);
  }
}

static void setScrolling(bool on) {
  state.scrolling = on;
  traceSetMenuEntry(state.view, scrollEntry, on ? scrollOffText : scrollOnText);
}

static void onCreated(TraceHandle view) {
  state.view = view;
  boxShow(nullptr, nullptr, "3", BoxIcon::none);
  traceSetScrollRange(view, 0, slots - 1);
  traceSetScrollPosition(view, 10);
  traceAddMenuEntry(view, clearEntry, "&Clear");
  traceAddMenuEntry(view, scrollEntry, state.scrolling ? scrollOffText : scrollOnText);
}

static void onCommand(int entry) {
  if (entry == clearEntry) {
    clearRing();
    redraw(state.lastShown);
  }
  if (entry == scrollEntry) setScrolling(!state.scrolling);
}

// The arrows stop at slot 1 and at slot 199, wherever the ring begins, and at a slot without a line.
static void onArrow(int slot) {
  if (slot >= 1 && slot < slots && holdsLine(slot)) redraw(slot);
}

// Behind the newest line there is none to show, and the newest stands for it.
static void onThumb(int position) {
  const int slot = wrapped(state.tail + position % slots);
  redraw(holdsLine(slot) || linesHeld() == 0 ? slot : wrapped(state.head - 1));
}

static void onEvent(const TraceEvent& event) {
  switch (event.kind) {
    case TraceEventKind::created:
      return onCreated(event.view);
    case TraceEventKind::command:
      return onCommand(event.number);
    case TraceEventKind::click:
      return setScrolling(true);
    case TraceEventKind::doubleClick:
      return setScrolling(false);
    case TraceEventKind::lineUp:
      return onArrow(state.lastShown - 1);
    case TraceEventKind::lineDown:
      return onArrow(state.lastShown + 1);
    case TraceEventKind::thumb:
      return onThumb(event.number);
    case TraceEventKind::paint:
      return redraw(state.lastShown);
    case TraceEventKind::close:
      return boxShow(nullptr, nullptr, "CAN NOT BE DESTROY ALONE", BoxIcon::none);
    case TraceEventKind::destroy:
      state.view = nullptr;
      return;
  }
}

bool traceWindowOpen(FormHandle owner) {
  if (state.view) return true;
  state.scrolling = true;
  state.lineHeight = 0;
  clearRing();
  state.view = traceCreate(owner, {.windowClass = "dclass",
                                   .title = "#" + traceOwnerTitle(owner).substr(0, longestOwnerTitle),
                                   .left = 100,
                                   .top = 100,
                                   .width = 400,
                                   .height = 100,
                                   .handler = onEvent});
  if (!state.view) return false;
  clearRing();
  state.lineHeight = traceLineHeight(state.view);
  return true;
}

void traceWindowWriteLine(std::string_view line) {
  if (!state.view) return;
  const int slot = state.head;
  state.lines[static_cast<std::size_t>(slot)] = line.substr(0, longestLine);
  state.lastShown = slot;
  state.head = wrapped(state.head + 1);
  if (state.head == state.tail) state.tail = wrapped(state.tail + 1);
  redraw(slot);
}

}  // namespace quillon
