// A plain window with rows of text, a scroll bar and a menu of its own: what the developers' trace window
// (frame/trace_window.h) asks of a desktop. There is at most one.
#pragma once

#include <string>
#include <string_view>

#include "desktop/forms.h"

namespace quillon {

struct TraceView;
using TraceHandle = TraceView*;  // null: none is open

enum class TraceEventKind {
  created,      // it was made and is not shown yet
  command,      // a menu entry was chosen
  click,        // the left mouse button
  doubleClick,  // the same, twice
  lineUp,       // the scroll bar's ends
  lineDown,
  thumb,    // the scroll bar's thumb was moved
  paint,    // what it shows is to be drawn again
  close,    // the user asked to close it; nothing is closed unless the handler does
  destroy,  // it goes with its owner
};

struct TraceEvent {
  TraceHandle view;
  TraceEventKind kind;
  int number;  // of command: the entry's id; of thumb: the position; 0 otherwise
};

struct TraceTemplate {
  const char* windowClass;  // the owner's handle is joined to it, so that each owner has a class of its own
  std::string title;        // Windows-1252
  int left, top, width, height;
  void (*handler)(const TraceEvent&);
};

// The owner's title in Windows-1252; a null owner is the main window.
std::string traceOwnerTitle(FormHandle owner);
// Registers the class, makes the window with a vertical scroll bar and shows it minimised. Null where that cannot be done.
TraceHandle traceCreate(FormHandle owner, const TraceTemplate& made);

int traceLineHeight(TraceHandle view);    // the font's height with what stands between two lines, in pixels
int traceClientHeight(TraceHandle view);  // of the room for rows, in pixels; 0 while it is minimised
void traceSetScrollRange(TraceHandle view, int first, int last);
void traceSetScrollPosition(TraceHandle view, int position);
void traceAddMenuEntry(TraceHandle view, int id, const char* text);
void traceSetMenuEntry(TraceHandle view, int id, const char* text);
// Draws the text, Windows-1252, from the left edge of the row (from 0), over what stands there.
void traceDrawRow(TraceHandle view, int row, std::string_view text);

}  // namespace quillon
