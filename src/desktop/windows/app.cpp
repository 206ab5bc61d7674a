// The program as a whole: the mark of a running copy, the main window with its toolbar, the message loop and the end.
#include "desktop/app.h"

#include <string>

#include "desktop/windows/common.h"
#include "desktop/windows/toolbar.h"

// After <windows.h>, which common.h brings.
// clang-format off
#include <commctrl.h>
// clang-format on

namespace quillon {

static constexpr COLORREF background = RGB(0, 128, 128);

static struct {
  AppHandler handler;
  HANDLE mutex;
  std::wstring tooltip;
  bool goneDown;  // the frame has been told that the main window is going
  bool ended;     // appEnd was called
  int status;
} state;

// ---- The mark of a running copy ----------------------------------------------------------------------------------------

bool appMutexExists(const char* name) {
  const HANDLE mutex = OpenMutexW(MUTEX_ALL_ACCESS, FALSE, wideFromAnsi(name).c_str());
  if (!mutex) return GetLastError() == ERROR_ACCESS_DENIED;  // it is there, held by a copy with more rights
  CloseHandle(mutex);
  return true;
}

void appMutexCreate(const char* name) { state.mutex = CreateMutexW(nullptr, TRUE, wideFromAnsi(name).c_str()); }

void appMutexRelease() {
  if (!state.mutex) return;
  ReleaseMutex(state.mutex);
  CloseHandle(state.mutex);
  state.mutex = nullptr;
}

// ---- The main window ---------------------------------------------------------------------------------------------------

static LRESULT onNotify(HWND window, NMHDR* notification) {
  if (notification->code == TTN_GETDISPINFOW) {
    const char* text = state.handler.tooltip(static_cast<int>(notification->idFrom));
    state.tooltip = wideFromAnsi(text ? text : "");
    reinterpret_cast<NMTTDISPINFOW*>(notification)->lpszText = state.tooltip.data();
  } else {
    windowsSetMainWindow(window);
    state.handler.notified();
  }
  return 0;
}

// The frame closes its forms in an order of its own, so it is told before Windows begins to destroy what the window owns.
static void goDown() {
  if (state.goneDown) return;
  state.goneDown = true;
  state.handler.destroyed();
}

static void onCommand(int id) {
  const Work work(false);
  state.handler.command(id);
}

static void onDpiChanged(HWND window, UINT dpi, const RECT& place) {
  SetWindowPos(window, nullptr, place.left, place.top, place.right - place.left, place.bottom - place.top,
               SWP_NOZORDER | SWP_NOACTIVATE);
  toolbarRebuild(dpi);
}

static LRESULT CALLBACK windowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_CREATE:
      windowsSetMainWindow(window);
      state.handler.created();
      return 0;
    case WM_NOTIFY:
      return onNotify(window, reinterpret_cast<NMHDR*>(lParam));
    case WM_COMMAND:
      onCommand(LOWORD(wParam));
      return DefWindowProcW(window, message, wParam, lParam);
    case WM_DPICHANGED:  // the window has come to another screen
      onDpiChanged(window, HIWORD(wParam), *reinterpret_cast<const RECT*>(lParam));
      return 0;
    case WM_SYSCOLORCHANGE:
      toolbarRebuild(GetDpiForWindow(window));
      return 0;
    case WM_QUERYENDSESSION:
      return !windowsAtWork();  // a report that is not finished is worth the wait
    case WM_CLOSE:
      if (windowsAtWork()) return 0;
      goDown();
      DestroyWindow(window);
      return 0;
    case WM_DESTROY:
      goDown();
      return 0;
    default:
      return DefWindowProcW(window, message, wParam, lParam);
  }
}

bool appRegisterClass(const AppWindow& window) {
  const std::wstring name = wideFromAnsi(window.windowClass);
  WNDCLASSW windowClass = {};
  windowClass.lpfnWndProc = windowProcedure;
  windowClass.hInstance = windowsInstance();
  windowClass.hIcon = LoadIconW(windowsInstance(), wideFromAnsi(window.icon).c_str());
  windowClass.hCursor = LoadCursorW(nullptr, IDC_ARROW);
  windowClass.hbrBackground = CreateSolidBrush(background);
  windowClass.lpszClassName = name.c_str();
  return RegisterClassW(&windowClass) != 0;
}

bool appCreateWindow(const AppWindow& window, const AppHandler& handler) {
  state.handler = handler;
  const HWND made = CreateWindowExW(0, wideFromAnsi(window.windowClass).c_str(), wideFromAnsi(window.title).c_str(),
                                    WS_OVERLAPPEDWINDOW | WS_VISIBLE, CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT,
                                    CW_USEDEFAULT, nullptr, nullptr, windowsInstance(), nullptr);
  return made != nullptr;
}

// ---- The loop and the end ----------------------------------------------------------------------------------------------

// Enter presses the button that has the focus, however it came there. The dialog manager looks at how the button is drawn,
// and a click need not change that.
static bool isPressOfFocusedButton(HWND form, const MSG& message) {
  if (message.message != WM_KEYDOWN || message.wParam != VK_RETURN) return false;
  if (!IsChild(form, message.hwnd) || !windowsIsPushButton(message.hwnd)) return false;
  SendMessageW(form, WM_COMMAND, static_cast<WPARAM>(MAKELONG(GetDlgCtrlID(message.hwnd), BN_CLICKED)),
               reinterpret_cast<LPARAM>(message.hwnd));
  return true;
}

static bool takenByForm(MSG& message) {
  for (const FormHandle form : state.handler.openForms()) {
    if (form && (isPressOfFocusedButton(windowsOf(form), message) || IsDialogMessageW(windowsOf(form), &message))) return true;
  }
  return false;
}

int appRun(const AppWindow& window) {
  ShowWindow(windowsMainWindow(), SW_SHOWMAXIMIZED);
  UpdateWindow(windowsMainWindow());
  const HACCEL accelerators = LoadAcceleratorsW(windowsInstance(), wideFromAnsi(window.accelerators).c_str());
  MSG message = {};
  while (GetMessageW(&message, nullptr, 0, 0) > 0) {
    if (!TranslateAcceleratorW(windowsMainWindow(), accelerators, &message) && !takenByForm(message)) {
      TranslateMessage(&message);
      DispatchMessageW(&message);
    }
    if (state.ended) return state.status;
  }
  return static_cast<int>(message.wParam);
}

void appQuit(int status) { PostQuitMessage(status); }

void appEnd(int status) {
  state.ended = true;
  state.status = status;
}

void appBeep(int times) {
  for (int i = 0; i < times; ++i) MessageBeep(MB_OK);
}

void appWriteStdout(std::string_view text) {
  const HANDLE output = GetStdHandle(STD_OUTPUT_HANDLE);
  DWORD put = 0;
  if (output && output != INVALID_HANDLE_VALUE) WriteFile(output, text.data(), static_cast<DWORD>(text.size()), &put, nullptr);
}

}  // namespace quillon
