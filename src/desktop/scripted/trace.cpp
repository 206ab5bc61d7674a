#include "desktop/scripted/trace.h"

#include <algorithm>
#include <memory>

#include "desktop/scripted/app.h"
#include "desktop/scripted/faults.h"
#include "desktop/scripted/forms.h"
#include "text/encoding.h"

namespace quillon {

static constexpr int lineHeight = 10;

static std::unique_ptr<TraceView> open;

std::string traceOwnerTitle(FormHandle owner) { return bytesFromUtf8(owner ? formsTitle(owner) : appTitle()); }

TraceHandle traceCreate(FormHandle, const TraceTemplate& made) {
  if (open || faultFires(Fault::windowClass)) return nullptr;
  open = std::make_unique<TraceView>();
  open->made = made;
  traceSend(TraceEventKind::created);
  open->minimised = true;
  return open.get();
}

int traceLineHeight(TraceHandle) { return lineHeight; }

int traceClientHeight(TraceHandle view) { return view->minimised ? 0 : view->clientHeight; }

void traceSetScrollRange(TraceHandle view, int first, int last) {
  view->scrollFirst = first;
  view->scrollLast = last;
}

void traceSetScrollPosition(TraceHandle view, int position) { view->scrollPosition = position; }

void traceAddMenuEntry(TraceHandle view, int id, const char* text) { view->menu[id] = text; }

void traceSetMenuEntry(TraceHandle view, int id, const char* text) {
  const auto entry = view->menu.find(id);
  if (entry != view->menu.end()) entry->second = text;
}

void traceDrawRow(TraceHandle view, int row, std::string_view text) {
  const auto position = static_cast<std::size_t>(row);
  if (view->rows.size() <= position) view->rows.resize(position + 1);
  std::string& shown = view->rows[position];
  shown.replace(0, std::min(shown.size(), text.size()), text);
  shown.erase(shown.find_last_not_of(' ') + 1);
  ++view->drawn;
}

TraceView* traceView() { return open.get(); }

void traceSend(TraceEventKind kind, int number) {
  if (open) open->made.handler({open.get(), kind, number});
}

void traceDestroy() {
  traceSend(TraceEventKind::destroy);
  open.reset();
}

void traceReset() { traceDestroy(); }

}  // namespace quillon
