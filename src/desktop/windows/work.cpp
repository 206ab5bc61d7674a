// What holds while the program is at work on the user's word.
#include "desktop/windows/common.h"

namespace quillon {

static struct {
  int works;  // one inside another, as when a form sets an edit's text
  int waits;  // of these, the ones that may take long
  HCURSOR before;
} state;

static void showPointer(const wchar_t* shape) { SetCursor(LoadCursorW(nullptr, shape)); }

Work::Work(bool mayTakeLong) : waits(mayTakeLong) {
  ++state.works;
  if (!waits || state.waits++ > 0) return;
  state.before = SetCursor(LoadCursorW(nullptr, IDC_WAIT));
  ShutdownBlockReasonCreate(windowsMainWindow(), L"A report is not finished yet.");
}

Work::~Work() {
  --state.works;
  if (!waits || --state.waits > 0) return;
  ShutdownBlockReasonDestroy(windowsMainWindow());
  SetCursor(state.before);
}

bool windowsAtWork() { return state.works > 0; }

void windowsPauseWork(bool paused) {
  if (state.waits > 0) showPointer(paused ? IDC_ARROW : IDC_WAIT);
}

}  // namespace quillon
