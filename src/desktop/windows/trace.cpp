// The trace window: a plain window of its own class, owned by the window that it traces.
#include "desktop/trace.h"

#include "desktop/windows/common.h"

namespace quillon {

struct TraceView {
  HWND window;
  HMENU menu;
  void (*handler)(const TraceEvent&);
};

static TraceView view;  // there is one at most

static void send(TraceEventKind kind, int number = 0) { view.handler({&view, kind, number}); }

static void onScroll(WPARAM wParam) {
  switch (LOWORD(wParam)) {
    case SB_LINEUP:
      return send(TraceEventKind::lineUp);
    case SB_LINEDOWN:
      return send(TraceEventKind::lineDown);
    case SB_THUMBPOSITION:
    case SB_THUMBTRACK:
      return send(TraceEventKind::thumb, HIWORD(wParam));
  }
}

static LRESULT CALLBACK traceProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_CREATE:
      view.window = window;
      view.menu = CreateMenu();
      send(TraceEventKind::created);
      SetMenu(window, view.menu);  // the window destroys it
      return 0;
    case WM_COMMAND:
      send(TraceEventKind::command, LOWORD(wParam));
      return 0;
    case WM_LBUTTONDOWN:
      send(TraceEventKind::click);
      return 0;
    case WM_LBUTTONDBLCLK:
      send(TraceEventKind::doubleClick);
      return 0;
    case WM_VSCROLL:
      onScroll(wParam);
      return 0;
    case WM_PAINT:
      ValidateRect(window, nullptr);
      send(TraceEventKind::paint);
      return 0;
    case WM_CLOSE:
      send(TraceEventKind::close);
      return 0;
    case WM_DESTROY:
      send(TraceEventKind::destroy);
      view = {};
      return 0;
    default:
      return DefWindowProcW(window, message, wParam, lParam);
  }
}

std::string traceOwnerTitle(FormHandle owner) {
  const HWND window = windowsOwnerOf(owner);
  std::wstring title(static_cast<std::size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
  title.resize(static_cast<std::size_t>(GetWindowTextW(window, title.data(), static_cast<int>(title.size()))));
  return ansiFromWide(title);
}

TraceHandle traceCreate(FormHandle owner, const TraceTemplate& made) {
  if (view.window) return nullptr;
  const HWND ownerWindow = windowsOwnerOf(owner);
  const auto number = static_cast<int>(reinterpret_cast<LONG_PTR>(ownerWindow));
  const std::wstring name = wideFromAnsi(made.windowClass) + L"_" + std::to_wstring(number);

  WNDCLASSW windowClass = {};
  windowClass.style = CS_DBLCLKS | CS_HREDRAW | CS_VREDRAW;
  windowClass.lpfnWndProc = traceProcedure;
  windowClass.hInstance = windowsInstance();
  windowClass.hIcon = LoadIconW(nullptr, IDI_APPLICATION);
  windowClass.hCursor = LoadCursorW(nullptr, IDC_ARROW);
  windowClass.hbrBackground = static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH));
  windowClass.lpszClassName = name.c_str();
  if (!RegisterClassW(&windowClass) && GetLastError() != ERROR_CLASS_ALREADY_EXISTS) return nullptr;

  view.handler = made.handler;
  const HWND window =
      CreateWindowExW(0, name.c_str(), wideFromAnsi(made.title).c_str(), WS_OVERLAPPEDWINDOW | WS_VSCROLL, made.left, made.top,
                      made.width, made.height, ownerWindow, nullptr, windowsInstance(), nullptr);
  if (!window) return nullptr;
  ShowWindow(window, SW_SHOWMINIMIZED);
  return &view;
}

int traceLineHeight(TraceHandle handle) {
  const HDC device = GetDC(handle->window);
  TEXTMETRICW metrics = {};
  GetTextMetricsW(device, &metrics);
  ReleaseDC(handle->window, device);
  return metrics.tmHeight + metrics.tmExternalLeading;
}

int traceClientHeight(TraceHandle handle) {
  RECT room = {};
  GetClientRect(handle->window, &room);
  return room.bottom;
}

void traceSetScrollRange(TraceHandle handle, int first, int last) {
  SetScrollRange(handle->window, SB_VERT, first, last, FALSE);
}

void traceSetScrollPosition(TraceHandle handle, int position) { SetScrollPos(handle->window, SB_VERT, position, TRUE); }

void traceAddMenuEntry(TraceHandle handle, int id, const char* text) {
  AppendMenuW(handle->menu, MF_STRING, static_cast<UINT_PTR>(id), wideFromAnsi(text).c_str());
}

void traceSetMenuEntry(TraceHandle handle, int id, const char* text) {
  ModifyMenuW(handle->menu, static_cast<UINT>(id), MF_BYCOMMAND | MF_STRING, static_cast<UINT_PTR>(id),
              wideFromAnsi(text).c_str());
  DrawMenuBar(handle->window);
}

void traceDrawRow(TraceHandle handle, int row, std::string_view text) {
  const std::wstring wide = wideFromAnsi(text);
  const HDC device = GetDC(handle->window);
  TextOutW(device, 0, row * traceLineHeight(handle), wide.c_str(), static_cast<int>(wide.size()));
  ReleaseDC(handle->window, device);
}

}  // namespace quillon
