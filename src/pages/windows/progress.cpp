#include "pages/windows/progress.h"

#include "pages/print_ids.h"

namespace quillon {

static constexpr ULONGLONG moment = 400;  // milliseconds
static constexpr ULONGLONG betweenMoves = 50;
static constexpr int barSteps = 1000;

static INT_PTR CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_INITDIALOG) {
    SetWindowLongPtrW(window, DWLP_USER, lParam);
    SendDlgItemMessageW(window, IDC_PROGRESS_BAR, PBM_SETRANGE32, 0, barSteps);
    return TRUE;
  }
  if (message == WM_COMMAND && LOWORD(wParam) == IDCANCEL) {
    const auto progress = reinterpret_cast<ProgressWindow*>(GetWindowLongPtrW(window, DWLP_USER));
    if (progress) progress->cancelled = true;
    EnableWindow(GetDlgItem(window, IDCANCEL), FALSE);
    return TRUE;
  }
  return FALSE;
}

void progressOpen(ProgressWindow& progress, HWND owner, const wchar_t* what) {
  INITCOMMONCONTROLSEX controls = {.dwSize = sizeof controls, .dwICC = ICC_PROGRESS_CLASS};
  InitCommonControlsEx(&controls);
  progress = {};
  progress.owner = owner;
  progress.started = GetTickCount64();
  const HINSTANCE instance = GetModuleHandleW(nullptr);
  progress.window =
      CreateDialogParamW(instance, MAKEINTRESOURCEW(IDD_PROGRESS), owner, procedure, reinterpret_cast<LPARAM>(&progress));
  SetDlgItemTextW(progress.window, IDC_PROGRESS_TEXT, what);
  if (owner) EnableWindow(owner, FALSE);
}

// Keys still go to the part that had the focus when its window was closed to input, until another window comes up.
static bool isForClosedWindow(const MSG& message) {
  const bool typed = message.message >= WM_KEYFIRST && message.message <= WM_KEYLAST;
  return typed && message.hwnd && !IsWindowEnabled(GetAncestor(message.hwnd, GA_ROOT));
}

// Also where the program is told to end: who shows windows is told again when the work has come back.
static void handleMessages(ProgressWindow& progress) {
  MSG message;
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
    if (message.message == WM_QUIT) {
      progress.cancelled = true;
      PostQuitMessage(static_cast<int>(message.wParam));
      return;
    }
    if (progress.window && IsDialogMessageW(progress.window, &message)) continue;
    if (isForClosedWindow(message)) continue;
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
}

static bool goesOn(void* who, std::uint64_t done, std::uint64_t all) {
  ProgressWindow& progress = *static_cast<ProgressWindow*>(who);
  const ULONGLONG now = GetTickCount64();
  if (now - progress.started >= moment && now - progress.shown >= betweenMoves) {
    const std::uint64_t at = all == 0 ? 0 : done * barSteps / all;
    SendDlgItemMessageW(progress.window, IDC_PROGRESS_BAR, PBM_SETPOS, static_cast<WPARAM>(at), 0);
    if (progress.shown == 0) ShowWindow(progress.window, SW_SHOW);
    progress.shown = now;
  }
  handleMessages(progress);
  return !progress.cancelled;
}

Progress progressOf(ProgressWindow& progress) { return {goesOn, &progress}; }

void progressClose(ProgressWindow& progress) {
  // The owner first: were it still without input when the window goes, another program's window would come to the front.
  if (progress.owner) EnableWindow(progress.owner, TRUE);
  if (progress.window) DestroyWindow(progress.window);
  progress.window = nullptr;
}

}  // namespace quillon
