// The program as a whole: the mark of a running copy, the main window with its toolbar, the message loop and the end.
#include "desktop/app.h"

#include <string>
#include <vector>

#include "desktop/windows/common.h"

// After <windows.h>, which common.h brings.
// clang-format off
#include <commctrl.h>
// clang-format on

namespace quillon {

static constexpr int toolbarId = 178;
static constexpr int pictureSize = 25;
static constexpr int toolbarWidth = 800;
static constexpr int toolbarHeight = 40;
static constexpr COLORREF background = RGB(0, 128, 128);

static struct {
  AppHandler handler;
  HANDLE mutex;
  HWND toolbar;
  std::vector<HBITMAP> pictures;
  std::wstring tooltip;
  bool goneDown;  // the frame has been told that the main window is going
  bool ended;     // appEnd was called
  int status;
} state;

// ---- The mark of a running copy ----------------------------------------------------------------------------------------

bool appMutexExists(const char* name) {
  const HANDLE mutex = OpenMutexW(MUTEX_ALL_ACCESS, FALSE, wideFromAnsi(name).c_str());
  if (!mutex) return false;
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

static LRESULT CALLBACK windowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_CREATE:
      windowsSetMainWindow(window);
      state.handler.created();
      return 0;
    case WM_NOTIFY:
      return onNotify(window, reinterpret_cast<NMHDR*>(lParam));
    case WM_COMMAND:
      state.handler.command(LOWORD(wParam));
      return DefWindowProcW(window, message, wParam, lParam);
    case WM_CLOSE:
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

// ---- The toolbar -------------------------------------------------------------------------------------------------------

// The themes of Windows let the main window's colour through; the pictures are drawn for the button face.
static LRESULT CALLBACK toolbarProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR id, DWORD_PTR) {
  if (message == WM_ERASEBKGND) {
    RECT area = {};
    GetClientRect(window, &area);
    FillRect(reinterpret_cast<HDC>(wParam), &area, GetSysColorBrush(COLOR_BTNFACE));
    return TRUE;
  }
  if (message == WM_NCDESTROY) RemoveWindowSubclass(window, toolbarProcedure, id);
  return DefSubclassProc(window, message, wParam, lParam);
}

void appBuildToolbar(std::span<const ToolButton> buttons) {
  INITCOMMONCONTROLSEX controls = {.dwSize = sizeof controls, .dwICC = ICC_BAR_CLASSES};
  InitCommonControlsEx(&controls);
  constexpr DWORD style = WS_CHILD | WS_BORDER | TBSTYLE_TOOLTIPS | TBSTYLE_WRAPABLE | CCS_TOP | CCS_NORESIZE;
  state.toolbar = CreateWindowExW(0, TOOLBARCLASSNAMEW, nullptr, style, 0, 0, toolbarWidth, toolbarHeight, windowsMainWindow(),
                                  reinterpret_cast<HMENU>(static_cast<INT_PTR>(toolbarId)), windowsInstance(), nullptr);
  SetWindowSubclass(state.toolbar, toolbarProcedure, toolbarId, 0);
  SendMessageW(state.toolbar, TB_BUTTONSTRUCTSIZE, sizeof(TBBUTTON), 0);
  SendMessageW(state.toolbar, TB_SETBUTTONSIZE, 0, MAKELPARAM(pictureSize, pictureSize));
  SendMessageW(state.toolbar, TB_SETBITMAPSIZE, 0, MAKELPARAM(pictureSize, pictureSize));

  std::vector<TBBUTTON> all;
  for (const ToolButton& button : buttons) {
    // The grey of the pictures becomes the button face of the user's desktop.
    const HANDLE picture = LoadImageW(windowsInstance(), MAKEINTRESOURCEW(button.bitmap), IMAGE_BITMAP, 0, 0,
                                      LR_CREATEDIBSECTION | LR_LOADMAP3DCOLORS);
    TBADDBITMAP add = {.hInst = nullptr, .nID = reinterpret_cast<UINT_PTR>(picture)};
    SendMessageW(state.toolbar, TB_ADDBITMAP, 1, reinterpret_cast<LPARAM>(&add));
    state.pictures.push_back(static_cast<HBITMAP>(picture));

    TBBUTTON made = {};
    made.iBitmap = static_cast<int>(all.size());
    made.idCommand = button.tool;
    made.fsState = TBSTATE_ENABLED;
    made.fsStyle = TBSTYLE_CHECK;
    made.iString = -1;
    all.push_back(made);
  }
  SendMessageW(state.toolbar, TB_ADDBUTTONSW, all.size(), reinterpret_cast<LPARAM>(all.data()));
  ShowWindow(state.toolbar, SW_SHOW);
}

void appSetToolChecked(int tool, bool checked) {
  SendMessageW(state.toolbar, TB_CHECKBUTTON, static_cast<WPARAM>(tool), MAKELPARAM(checked, 0));
}

void appDestroyToolbar() {
  if (state.toolbar) DestroyWindow(state.toolbar);
  state.toolbar = nullptr;
  for (HBITMAP picture : state.pictures) DeleteObject(picture);
  state.pictures.clear();
}

// ---- The loop and the end ----------------------------------------------------------------------------------------------

static bool takenByForm(MSG& message) {
  for (const FormHandle form : state.handler.openForms()) {
    if (form && IsDialogMessageW(windowsOf(form), &message)) return true;
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
