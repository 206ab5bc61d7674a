// The window: what stands where in it, what comes to it from Windows, and the time between two messages.
#include "pages/windows/frame.h"

#include <objbase.h>
#include <shellapi.h>

#include <algorithm>
#include <vector>

#include "pages/ids.h"
#include "pages/windows/find_bar.h"
#include "pages/windows/frame_commands.h"
#include "pages/windows/page_view.h"
#include "pages/windows/pages_window.h"
#include "pages/windows/paths.h"
#include "pages/windows/print_dialog.h"
#include "pages/windows/report_list.h"
#include "pages/windows/settings.h"
#include "pages/windows/status_bar.h"
#include "pages/windows/text_view.h"
#include "pages/windows/viewer.h"
#include "pages/windows/window_place.h"

namespace quillon {

static constexpr wchar_t frameClass[] = L"QuillonPages";
static constexpr wchar_t frameTitle[] = L"Quillon Pages";
static constexpr UINT_PTR lookTimer = 1;
static constexpr UINT lookEvery = 1000;  // milliseconds between two looks at what is written
static constexpr std::size_t lookBudget = std::size_t{4} << 20;
static constexpr int splitterWidth = 5;
static constexpr int narrowestList = 80;
static constexpr int usualListWidth = 340;

static struct {
  HWND window;
  HWND list;
  HWND page;
  HWND text;
  HWND find;
  HWND status;
  HWND focus;  // what had it when another program came to the front
  HFONT font;
  std::size_t flowLines;
  int listWidth;  // at 96 dots an inch
  bool listShown;
  bool textShown;
  bool splitting;  // the pointer moves the edge between list and page
  bool printing;   // the report is somebody else's for now
  ULONGLONG nextLook;
  std::uint64_t match;  // that was last scrolled to
  std::wstring title;
} state;

HWND frameWindow() { return state.window; }

int frameScaled(int size) { return MulDiv(size, static_cast<int>(GetDpiForWindow(state.window)), USER_DEFAULT_SCREEN_DPI); }

HFONT frameFont() { return state.font; }

// ---- What stands where -------------------------------------------------------------------------------------------------

static HWND pagePane() { return state.textShown ? state.text : state.page; }

static void makeFont() {
  if (state.font) DeleteObject(state.font);
  NONCLIENTMETRICSW metrics = {};
  metrics.cbSize = sizeof metrics;
  SystemParametersInfoForDpi(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0, GetDpiForWindow(state.window));
  state.font = CreateFontIndirectW(&metrics.lfMessageFont);
}

void frameArrange() {
  if (!state.status) return;
  RECT client = {};
  GetClientRect(state.window, &client);
  statusBarArrange();
  const int bottom = std::max<int>(client.bottom - statusBarHeight(), 0);
  int left = 0;
  if (state.listShown) {
    const int most = std::max<int>(client.right - frameScaled(narrowestList), frameScaled(narrowestList));
    const int width = std::clamp(frameScaled(state.listWidth), frameScaled(narrowestList), most);
    MoveWindow(state.list, 0, 0, width, bottom, TRUE);
    reportListArrange();
    left = width + frameScaled(splitterWidth);
  }
  const int width = std::max<int>(client.right - left, 0);
  const int foot = findBarIsOpen() ? std::min(findBarHeight(), bottom) : 0;
  MoveWindow(state.find, left, bottom - foot, width, foot, TRUE);
  MoveWindow(pagePane(), left, 0, width, bottom - foot, TRUE);
}

bool frameShowsText() { return state.textShown; }
bool frameShowsList() { return state.listShown; }

void frameShowText(bool text) {
  const bool focused = GetFocus() == pagePane();
  state.textShown = text;
  ShowWindow(text ? state.page : state.text, SW_HIDE);
  frameArrange();
  ShowWindow(pagePane(), SW_SHOW);
  if (focused) SetFocus(pagePane());
  frameShow();
}

void frameShowList(bool list) {
  if (!list && GetFocus() == state.list) frameGiveFocusToPage();
  state.listShown = list;
  ShowWindow(state.list, list ? SW_SHOW : SW_HIDE);
  frameArrange();
  InvalidateRect(state.window, nullptr, TRUE);
}

void frameGiveFocusToPage() { SetFocus(pagePane()); }

void frameTurnFocus() {
  std::vector<HWND> panes;
  if (state.listShown) panes.push_back(state.list);
  panes.push_back(pagePane());
  if (findBarIsOpen()) panes.push_back(state.find);
  const HWND focus = GetFocus();
  std::size_t at = panes.size() - 1;
  for (std::size_t i = 0; i < panes.size(); ++i) {
    if (focus == panes[i] || IsChild(panes[i], focus)) at = i;
  }
  const HWND next = panes[(at + 1) % panes.size()];
  if (next == state.find) return findBarOpen();
  SetFocus(next);
}

// ---- What is shown -----------------------------------------------------------------------------------------------------

static void showTitle() {
  std::wstring title = viewer().open ? pathName(viewer().report.path) + L" - " + frameTitle : frameTitle;
  if (title == state.title) return;
  state.title = std::move(title);
  SetWindowTextW(state.window, state.title.c_str());
}

// A match that has come onto the page comes into sight, once.
static void showMatch() {
  if (viewer().find == FindState::searching) state.match = notFound;
  if (viewer().find == FindState::searching || viewer().match == state.match || !viewerMatchOnPage()) return;
  state.match = viewer().match;
  pageViewShowMatch();
  if (state.textShown) textViewShowMatch();
}

void frameShow() {
  pageViewUpdate();
  if (state.textShown) textViewUpdate();
  showMatch();
  statusBarUpdate();
  showTitle();
}

void frameOpenListed(const std::wstring& path) {
  viewerOpen(path, state.flowLines);
  pageViewScrollTo(PageEdge::top);
  frameShow();
}

static void openFolder(const std::wstring& folder) {
  reportListShow(folder);
  settingsKeep(L"Folder", folder);
}

void frameOpen(const std::wstring& given) {
  std::wstring path = pathWhole(given);
  const bool folder = pathIsFolder(path);
  const std::wstring in = folder ? path : pathFolder(path);
  if (folder || in != reportListFolder()) openFolder(in);
  if (folder) path = reportListNewest();
  if (path.empty()) {
    viewerClose();
    return frameShow();
  }
  frameOpenListed(path);
  reportListMark(path);
}

void frameRefresh() {
  if (state.printing) return;
  viewerStep(lookBudget);
  reportListRefresh(true);
  frameShow();
}

// A report that grows on a slow machine takes its time to be read: it is looked at less often, so that the window stays alive.
static void look() {
  const ULONGLONG begun = GetTickCount64();
  if (state.printing) return;
  if (begun >= state.nextLook) {
    viewerStep(lookBudget);
    state.nextLook = begun + 5 * (GetTickCount64() - begun);
  }
  reportListRefresh(false);
  frameShow();
}

// While a dialog of printing is open, nothing here reads on: the pages that go to the printer are those that were counted.
void framePrint() {
  if (!viewer().open || state.printing) return;
  state.printing = true;
  printDialog(state.window, viewerReport(), viewer().page);
  state.printing = false;
  viewerFitAgain();
  frameRefresh();
}

void frameSaveAsPdf() {
  if (!viewer().open || state.printing) return;
  state.printing = true;
  saveAsPdf(state.window, viewerReport());
  state.printing = false;
  frameRefresh();
}

// ---- The edge between list and page ------------------------------------------------------------------------------------

static bool isOnSplitter(int x) {
  if (!state.listShown) return false;
  RECT list = {};
  GetClientRect(state.list, &list);
  MapWindowPoints(state.list, state.window, reinterpret_cast<POINT*>(&list), 2);
  return x >= list.right - 1 && x <= list.right + frameScaled(splitterWidth) + 1;
}

static bool onSplitter(UINT message, LPARAM lParam) {
  const int x = GET_X_LPARAM(lParam);
  switch (message) {
    case WM_LBUTTONDOWN:
      state.splitting = isOnSplitter(x);
      if (state.splitting) SetCapture(state.window);
      return true;
    case WM_MOUSEMOVE:
      if (!state.splitting) return false;
      state.listWidth =
          std::max(narrowestList, MulDiv(x, USER_DEFAULT_SCREEN_DPI, static_cast<int>(GetDpiForWindow(state.window))));
      frameArrange();
      return true;
    case WM_LBUTTONUP:
      if (state.splitting) ReleaseCapture();
      return true;
    case WM_CAPTURECHANGED:
      state.splitting = false;
      return true;
    default:
      return false;
  }
}

static bool setPointer() {
  POINT point = {};
  GetCursorPos(&point);
  ScreenToClient(state.window, &point);
  RECT client = {};
  GetClientRect(state.window, &client);
  if (!PtInRect(&client, point) || !isOnSplitter(point.x)) return false;
  SetCursor(LoadCursorW(nullptr, IDC_SIZEWE));
  return true;
}

// ---- What comes from Windows -------------------------------------------------------------------------------------------

static void onDrop(HDROP drop) {
  const UINT size = DragQueryFileW(drop, 0, nullptr, 0);
  std::wstring path(size + 1, L'\0');
  path.resize(DragQueryFileW(drop, 0, path.data(), size + 1));
  DragFinish(drop);
  if (state.printing || path.empty()) return;
  SetForegroundWindow(state.window);
  frameOpen(path);
}

static void renewFonts() {
  makeFont();
  reportListNewFont();
  findBarNewFont();
  textViewNewFont();
  frameArrange();
}

static void onDpiChanged(const RECT& place) {
  SetWindowPos(state.window, nullptr, place.left, place.top, place.right - place.left, place.bottom - place.top,
               SWP_NOZORDER | SWP_NOACTIVATE);
  renewFonts();
  frameShow();
}

static void keepSettings() {
  windowPlaceKeep(state.window);
  settingsKeep(L"Zoom", wideFromUtf8(zoomText(pageViewZoom())));
  settingsKeep(L"TextView", state.textShown ? 1 : 0);
  settingsKeep(L"List", state.listShown ? 1 : 0);
  settingsKeep(L"ListWidth", state.listWidth);
}

static void onCreate(HWND window) {
  state.window = window;
  state.match = notFound;
  state.listWidth = std::clamp(settingsNumber(L"ListWidth", usualListWidth), narrowestList, 2000);
  state.listShown = settingsNumber(L"List", 1) != 0;
  state.textShown = settingsNumber(L"TextView", 0) != 0;
  makeFont();
  viewerBegin();
  state.list = reportListCreate(window);
  state.page = pageViewCreate(window, zoomFromText(utf8FromWide(settingsText(L"Zoom", L""))));
  state.text = textViewCreate(window);
  state.find = findBarCreate(window);
  state.status = statusBarCreate(window);
  ShowWindow(state.list, state.listShown ? SW_SHOW : SW_HIDE);
  ShowWindow(state.page, state.textShown ? SW_HIDE : SW_SHOW);
  ShowWindow(state.text, state.textShown ? SW_SHOW : SW_HIDE);
  DragAcceptFiles(window, TRUE);
  SetTimer(window, lookTimer, lookEvery, nullptr);
}

static void onActivate(bool active) {
  if (!active) {
    const HWND focus = GetFocus();
    if (focus && IsChild(state.window, focus)) state.focus = focus;
  }
}

static void onFocus() {
  const bool usable = state.focus && IsWindow(state.focus) && IsWindowVisible(state.focus);
  SetFocus(usable ? state.focus : pagePane());
}

static LRESULT onNotify(NMHDR* notification) {
  LRESULT answer = 0;
  reportListNotified(notification, answer);
  return answer;
}

static void onMinMax(MINMAXINFO& info) { info.ptMinTrackSize = {frameScaled(320), frameScaled(240)}; }

// The messages that are about the window itself.
static bool onWindowMessage(HWND window, UINT message, LPARAM lParam) {
  switch (message) {
    case WM_CREATE:
      onCreate(window);
      return true;
    case WM_SIZE:
      frameArrange();
      frameShow();
      return true;
    case WM_SETFOCUS:
      onFocus();
      return true;
    case WM_DPICHANGED:
      onDpiChanged(*reinterpret_cast<const RECT*>(lParam));
      return true;
    case WM_GETMINMAXINFO:
      if (!state.window) return false;
      onMinMax(*reinterpret_cast<MINMAXINFO*>(lParam));
      return true;
    case WM_SETTINGCHANGE:
    case WM_SYSCOLORCHANGE:
      renewFonts();
      InvalidateRect(window, nullptr, TRUE);
      return true;
    case WM_CLOSE:
      if (!state.printing) DestroyWindow(window);
      return true;
    case WM_DESTROY:
      keepSettings();
      KillTimer(window, lookTimer);
      PostQuitMessage(0);
      return true;
    default:
      return onSplitter(message, lParam);
  }
}

static LRESULT CALLBACK frameProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (onWindowMessage(window, message, lParam)) return 0;
  switch (message) {
    case WM_COMMAND:
      if (lParam == 0) frameCommand(LOWORD(wParam));  // of the menu or a key
      return 0;
    case WM_INITMENUPOPUP:
      frameMarkMenu(reinterpret_cast<HMENU>(wParam));
      return 0;
    case WM_NOTIFY:
      return onNotify(reinterpret_cast<NMHDR*>(lParam));
    case WM_TIMER:
      look();
      return 0;
    case WM_DROPFILES:
      onDrop(reinterpret_cast<HDROP>(wParam));
      return 0;
    case WM_SETCURSOR:
      return setPointer() || DefWindowProcW(window, message, wParam, lParam);
    case WM_ACTIVATE:
      onActivate(LOWORD(wParam) != WA_INACTIVE);
      return DefWindowProcW(window, message, wParam, lParam);
    case WM_QUERYENDSESSION:
      return !state.printing;
    case WM_ENDSESSION:
      if (wParam) keepSettings();
      return 0;
    case WM_CTLCOLORSTATIC:  // the text view is an edit that is only read: as white as any page
      SetTextColor(reinterpret_cast<HDC>(wParam), GetSysColor(COLOR_WINDOWTEXT));
      SetBkColor(reinterpret_cast<HDC>(wParam), GetSysColor(COLOR_WINDOW));
      return reinterpret_cast<LRESULT>(GetSysColorBrush(COLOR_WINDOW));
    default:
      return DefWindowProcW(window, message, wParam, lParam);
  }
}

// ---- From its start to its end -----------------------------------------------------------------------------------------

static bool makeFrame(HINSTANCE instance) {
  INITCOMMONCONTROLSEX controls = {};
  controls.dwSize = sizeof controls;
  controls.dwICC = ICC_LISTVIEW_CLASSES | ICC_BAR_CLASSES | ICC_STANDARD_CLASSES;
  InitCommonControlsEx(&controls);
  WNDCLASSEXW windowClass = {};
  windowClass.cbSize = sizeof windowClass;
  windowClass.lpfnWndProc = frameProcedure;
  windowClass.hInstance = instance;
  windowClass.hIcon = LoadIconW(instance, L"QUILLON");
  windowClass.hIconSm = static_cast<HICON>(
      LoadImageW(instance, L"QUILLON", IMAGE_ICON, GetSystemMetrics(SM_CXSMICON), GetSystemMetrics(SM_CYSMICON), 0));
  windowClass.hCursor = LoadCursorW(nullptr, IDC_ARROW);
  windowClass.hbrBackground = GetSysColorBrush(COLOR_BTNFACE);
  windowClass.lpszMenuName = MAKEINTRESOURCEW(ID_MENU);
  windowClass.lpszClassName = frameClass;
  if (!RegisterClassExW(&windowClass)) return false;
  return CreateWindowExW(0, frameClass, frameTitle, WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, CW_USEDEFAULT, CW_USEDEFAULT,
                         CW_USEDEFAULT, CW_USEDEFAULT, nullptr, nullptr, instance, nullptr) != nullptr;
}

// Where the find bar has the focus, Tab, Enter and the underlined letters go about in it; elsewhere Tab goes from part to part.
static bool takenByParts(MSG& message) {
  if (IsChild(state.find, message.hwnd)) return IsDialogMessageW(state.find, &message) != 0;
  if (message.message != WM_KEYDOWN || message.wParam != VK_TAB || GetKeyState(VK_CONTROL) < 0) return false;
  if (!IsChild(state.window, message.hwnd)) return false;
  frameTurnFocus();
  return true;
}

// While nothing comes, the report is read on, or searched, piece by piece.
static int runLoop(HACCEL keys) {
  MSG message = {};
  for (;;) {
    if (!PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
      if (viewerHasWork()) {
        viewerWork();
        frameShow();
      } else {
        WaitMessage();
      }
      continue;
    }
    if (message.message == WM_QUIT) return static_cast<int>(message.wParam);
    if (TranslateAcceleratorW(state.window, keys, &message) || takenByParts(message)) continue;
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
}

static std::wstring usualFolder() {
  const std::wstring kept = settingsText(L"Folder", L"");
  return !kept.empty() && pathIsFolder(kept) ? kept : L".";
}

int pagesWindowRun(HINSTANCE instance, int show, const std::wstring& path, std::size_t flowLines) {
  const bool com = SUCCEEDED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED | COINIT_DISABLE_OLE1DDE));
  state.flowLines = flowLines;
  int status = 1;
  if (makeFrame(instance)) {
    frameOpen(path.empty() ? usualFolder() : path);
    windowPlaceRestore(state.window, show);
    status = runLoop(LoadAcceleratorsW(instance, MAKEINTRESOURCEW(ID_KEYS)));
  }
  if (com) CoUninitialize();
  return status;
}

}  // namespace quillon
