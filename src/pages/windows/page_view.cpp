#include "pages/windows/page_view.h"

#include <algorithm>
#include <cstdlib>

#include "pages/ids.h"
#include "pages/windows/frame.h"
#include "pages/windows/page_paint.h"
#include "pages/windows/viewer.h"

namespace quillon {

static constexpr wchar_t pageViewClass[] = L"QuillonPage";
static constexpr UINT_PTR dragTimer = 1;
static constexpr UINT dragStep = 50;  // milliseconds between two scrolls while the pointer is held outside

static struct {
  HWND window;
  Zoom zoom;
  PageGeometry geometry;
  SIZE client;
  int scrollX;
  int scrollY;
  bool dragging;
  int wheel;  // what of a turn of the wheel has not been used yet
  int wheelAcross;
  unsigned drawn;  // the report's changes that were drawn
  bool wordTaken;  // by a double click, at wordTime: a third click takes the line
  LONG wordTime;
  POINT wordPoint;
} state;

// ---- Place -------------------------------------------------------------------------------------------------------------

static int lastScroll(int all, int seen) { return std::max(0, all - seen); }

static void setBar(int bar, int all, int seen, int position, UINT more) {
  SCROLLINFO info = {};
  info.cbSize = sizeof info;
  info.fMask = SIF_RANGE | SIF_PAGE | SIF_POS | more;
  info.nMax = std::max(all - 1, 0);
  info.nPage = static_cast<UINT>(std::max(seen, 0));
  info.nPos = position;
  SetScrollInfo(state.window, bar, &info, TRUE);
}

// The vertical bar always stands there: were it to come and go, so would the width that a sheet is fitted to.
static void setBars() {
  setBar(SB_VERT, state.geometry.height, state.client.cy, state.scrollY, SIF_DISABLENOSCROLL);
  setBar(SB_HORZ, state.geometry.width, state.client.cx, state.scrollX, 0);
}

static void clampScroll() {
  state.scrollX = std::clamp(state.scrollX, 0, lastScroll(state.geometry.width, state.client.cx));
  state.scrollY = std::clamp(state.scrollY, 0, lastScroll(state.geometry.height, state.client.cy));
}

static void redraw() { InvalidateRect(state.window, nullptr, FALSE); }

// What stands at the upper edge stays there as far as it can.
static void arrange() {
  RECT client = {};
  GetClientRect(state.window, &client);
  state.client = {client.right, client.bottom};
  const PageGeometry old = state.geometry;
  const int dpi = static_cast<int>(GetDpiForWindow(state.window));
  state.geometry = pageGeometry(viewer().fit, state.zoom, client.right, client.bottom, dpi);
  if (old.scale > 0) {
    state.scrollY = static_cast<int>(state.scrollY * state.geometry.scale / old.scale);
    state.scrollX = static_cast<int>(state.scrollX * state.geometry.scale / old.scale);
  }
  clampScroll();
  setBars();
  redraw();
}

static bool scrollTo(int x, int y) {
  const int oldX = state.scrollX;
  const int oldY = state.scrollY;
  state.scrollX = x;
  state.scrollY = y;
  clampScroll();
  if (state.scrollX == oldX && state.scrollY == oldY) return false;
  setBars();
  redraw();
  return true;
}

static int lineStep() { return frameScaled(40); }
static int screenStep() { return std::max<int>(state.client.cy - lineStep(), lineStep()); }

// A screen further, and behind the page's end the next page.
static void screenDown() {
  if (!scrollTo(state.scrollX, state.scrollY + screenStep())) frameCommand(ID_PAGE_NEXT);
}

static void screenUp() {
  if (scrollTo(state.scrollX, state.scrollY - screenStep()) || viewer().page == 0) return;
  frameCommand(ID_PAGE_PREVIOUS);
  pageViewScrollTo(PageEdge::bottom);
}

void pageViewScrollTo(PageEdge edge) { scrollTo(state.scrollX, edge == PageEdge::top ? 0 : state.geometry.height); }

void pageViewShowMatch() {
  const PageMark* mark = viewerMatchOnPage();
  if (!mark) return;
  const PageGeometry& geometry = state.geometry;
  const int left = pageColumnLeft(geometry, mark->column);
  const int right = pageColumnLeft(geometry, mark->column + mark->columns);
  const int top = pageLineTop(geometry, mark->line);
  const int bottom = pageLineTop(geometry, mark->line + 1);
  const int border = lineStep();
  int x = state.scrollX;
  int y = state.scrollY;
  if (right + border > x + state.client.cx) x = right + border - state.client.cx;
  if (left - border < x) x = left - border;
  if (bottom + border > y + state.client.cy || top - border < y) y = top - state.client.cy / 3;
  scrollTo(x, y);
}

void pageViewUpdate() {
  if (state.drawn == viewer().changes) return;
  state.drawn = viewer().changes;
  arrange();
}

Zoom pageViewZoom() { return state.zoom; }

void pageViewSetZoom(const Zoom& zoom) {
  state.zoom = zoom;
  arrange();
}

int pageViewPercent() { return state.geometry.percent; }

// ---- Drawing -----------------------------------------------------------------------------------------------------------

static void onPaint() {
  PAINTSTRUCT paint = {};
  const HDC device = BeginPaint(state.window, &paint);
  const RECT client = {0, 0, state.client.cx, state.client.cy};
  const HDC memory = CreateCompatibleDC(device);
  const HBITMAP bitmap = CreateCompatibleBitmap(device, std::max<int>(client.right, 1), std::max<int>(client.bottom, 1));
  if (memory && bitmap) {
    const HGDIOBJ before = SelectObject(memory, bitmap);
    pagePaint(memory, client, viewer(), state.geometry, state.scrollX, state.scrollY, frameFont());
    BitBlt(device, 0, 0, client.right, client.bottom, memory, 0, 0, SRCCOPY);
    SelectObject(memory, before);
  }
  if (bitmap) DeleteObject(bitmap);
  if (memory) DeleteDC(memory);
  EndPaint(state.window, &paint);
}

// ---- Pointer -----------------------------------------------------------------------------------------------------------

static PageSpot spotOf(POINT point) {
  return pageSpotAt(state.geometry, viewer().lines, point.x + state.scrollX, point.y + state.scrollY);
}

static void select(const PageSelection& selection) {
  viewerSelect(selection);
  frameShow();
}

static void selectLine(std::size_t line) {
  const PageText& lines = viewer().lines;
  if (line >= lines.size()) return;
  const PageSpot end = line + 1 < lines.size() ? PageSpot{line + 1, 0} : PageSpot{line, lines[line].size()};
  select({{line, 0}, end});
}

// With Shift the selection goes from where it began to here. The third click takes the line.
static void onDown(POINT point, bool extend) {
  SetFocus(state.window);
  const PageSpot spot = spotOf(point);
  const bool samePlace = std::abs(point.x - state.wordPoint.x) <= GetSystemMetrics(SM_CXDOUBLECLK) &&
                         std::abs(point.y - state.wordPoint.y) <= GetSystemMetrics(SM_CYDOUBLECLK);
  const bool third =
      state.wordTaken && samePlace && GetMessageTime() - state.wordTime <= static_cast<LONG>(GetDoubleClickTime());
  state.wordTaken = false;
  if (third) return selectLine(spot.line);
  select({extend ? viewer().selection.anchor : spot, spot});
  state.dragging = true;
  SetCapture(state.window);
  SetTimer(state.window, dragTimer, dragStep, nullptr);
}

static void onDoubleClick(POINT point) {
  const PageSpot at = pageCharacterAt(state.geometry, viewer().lines, point.x + state.scrollX, point.y + state.scrollY);
  select(wordSelected(viewer().lines, at));
  state.wordTaken = true;
  state.wordTime = GetMessageTime();
  state.wordPoint = point;
}

static void dragTo(POINT point) {
  if (state.dragging) select({viewer().selection.anchor, spotOf(point)});
}

static void endDrag() {
  if (!state.dragging) return;
  state.dragging = false;
  KillTimer(state.window, dragTimer);
  if (GetCapture() == state.window) ReleaseCapture();
}

// Held outside the window, the pointer takes the page along.
static void onDragTimer() {
  POINT point = {};
  GetCursorPos(&point);
  ScreenToClient(state.window, &point);
  int x = state.scrollX;
  int y = state.scrollY;
  if (point.x < 0) x -= lineStep();
  if (point.x >= state.client.cx) x += lineStep();
  if (point.y < 0) y -= lineStep();
  if (point.y >= state.client.cy) y += lineStep();
  if (scrollTo(x, y)) dragTo(point);
}

static int wholeTurns(int& wheel, int delta) {
  wheel += delta;
  const int turns = wheel / WHEEL_DELTA;
  wheel -= turns * WHEEL_DELTA;
  return turns;
}

static void onZoomWheel(int delta) {
  for (int turns = wholeTurns(state.wheel, delta); turns != 0; turns += turns > 0 ? -1 : 1) {
    frameCommand(turns > 0 ? ID_ZOOM_IN : ID_ZOOM_OUT);
  }
}

// A fine wheel sends small parts of a turn: they scroll at once, but a page is turned by a whole turn at its end.
static void onWheel(int delta) {
  UINT lines = 3;
  SystemParametersInfoW(SPI_GETWHEELSCROLLLINES, 0, &lines, 0);
  const int step = lines == WHEEL_PAGESCROLL ? screenStep() : static_cast<int>(std::min(lines, 20u)) * frameScaled(20);
  if (scrollTo(state.scrollX, state.scrollY - MulDiv(step, delta, WHEEL_DELTA))) {
    state.wheel = 0;
    return;
  }
  const int turns = wholeTurns(state.wheel, delta);
  if (turns < 0) frameCommand(ID_PAGE_NEXT);
  if (turns <= 0 || viewer().page == 0) return;
  frameCommand(ID_PAGE_PREVIOUS);
  pageViewScrollTo(PageEdge::bottom);
}

static void onWheelAcross(int delta) { scrollTo(state.scrollX + MulDiv(lineStep() * 2, delta, WHEEL_DELTA), state.scrollY); }

static void onContextMenu(POINT point) {
  if (point.x == -1 && point.y == -1) {  // by key
    point = {frameScaled(20), frameScaled(20)};
    ClientToScreen(state.window, &point);
  }
  const HMENU menu = CreatePopupMenu();
  const UINT copying = selectionIsEmpty(viewer().selection) ? MF_GRAYED : MF_ENABLED;
  AppendMenuW(menu, MF_STRING | copying, ID_EDIT_COPY, L"&Copy\tCtrl+C");
  AppendMenuW(menu, MF_STRING, ID_EDIT_SELECT_ALL, L"Select &All\tCtrl+A");
  TrackPopupMenu(menu, TPM_RIGHTBUTTON, point.x, point.y, 0, frameWindow(), nullptr);
  DestroyMenu(menu);
}

// ---- Keys and bars -----------------------------------------------------------------------------------------------------

static void onKey(WPARAM key) {
  switch (key) {
    case VK_DOWN:
      scrollTo(state.scrollX, state.scrollY + lineStep());
      return;
    case VK_UP:
      scrollTo(state.scrollX, state.scrollY - lineStep());
      return;
    case VK_RIGHT:
      scrollTo(state.scrollX + lineStep(), state.scrollY);
      return;
    case VK_LEFT:
      scrollTo(state.scrollX - lineStep(), state.scrollY);
      return;
    case VK_NEXT:
    case VK_SPACE:
      return screenDown();
    case VK_PRIOR:
      return screenUp();
    case VK_HOME:
      return pageViewScrollTo(PageEdge::top);
    case VK_END:
      return pageViewScrollTo(PageEdge::bottom);
    default:
      return;
  }
}

static int barPosition(int bar, WORD code, int position, int seen) {
  SCROLLINFO info = {};
  info.cbSize = sizeof info;
  info.fMask = SIF_ALL;
  GetScrollInfo(state.window, bar, &info);
  switch (code) {
    case SB_LINEUP:
      return position - lineStep();
    case SB_LINEDOWN:
      return position + lineStep();
    case SB_PAGEUP:
      return position - std::max(seen - lineStep(), lineStep());
    case SB_PAGEDOWN:
      return position + std::max(seen - lineStep(), lineStep());
    case SB_THUMBTRACK:
    case SB_THUMBPOSITION:
      return info.nTrackPos;
    case SB_TOP:
      return 0;
    case SB_BOTTOM:
      return info.nMax;
    default:
      return position;
  }
}

static bool onPointer(UINT message, WPARAM wParam, LPARAM lParam) {
  const POINT point = {GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
  const int delta = GET_WHEEL_DELTA_WPARAM(wParam);
  switch (message) {
    case WM_LBUTTONDOWN:
      onDown(point, (wParam & MK_SHIFT) != 0);
      return true;
    case WM_LBUTTONDBLCLK:
      onDoubleClick(point);
      return true;
    case WM_MOUSEMOVE:
      dragTo(point);
      return true;
    case WM_LBUTTONUP:
    case WM_CAPTURECHANGED:
      endDrag();
      return true;
    case WM_MOUSEWHEEL:
      if (wParam & MK_CONTROL)
        onZoomWheel(delta);
      else if (wParam & MK_SHIFT)
        onWheelAcross(-delta);
      else
        onWheel(delta);
      return true;
    case WM_MOUSEHWHEEL:
      onWheelAcross(delta);
      return true;
    case WM_CONTEXTMENU:
      onContextMenu(point);
      return true;
    default:
      return false;
  }
}

static LRESULT CALLBACK pageViewProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (onPointer(message, wParam, lParam)) return 0;
  switch (message) {
    case WM_SIZE:
      arrange();
      return 0;
    case WM_PAINT:
      onPaint();
      return 0;
    case WM_ERASEBKGND:
      return TRUE;  // all is drawn at once
    case WM_KEYDOWN:
      onKey(wParam);
      return 0;
    case WM_TIMER:
      onDragTimer();
      return 0;
    case WM_VSCROLL:
      scrollTo(state.scrollX, barPosition(SB_VERT, LOWORD(wParam), state.scrollY, state.client.cy));
      return 0;
    case WM_HSCROLL:
      scrollTo(barPosition(SB_HORZ, LOWORD(wParam), state.scrollX, state.client.cx), state.scrollY);
      return 0;
    default:
      return DefWindowProcW(window, message, wParam, lParam);
  }
}

HWND pageViewCreate(HWND parent, const Zoom& zoom) {
  WNDCLASSW windowClass = {};
  windowClass.style = CS_DBLCLKS;
  windowClass.lpfnWndProc = pageViewProcedure;
  windowClass.hInstance = GetModuleHandleW(nullptr);
  windowClass.hCursor = LoadCursorW(nullptr, IDC_IBEAM);
  windowClass.lpszClassName = pageViewClass;
  RegisterClassW(&windowClass);
  state.zoom = zoom;
  // Its geometry is known when it has its size.
  state.geometry = pageGeometry(viewer().fit, zoom, 1, 1, USER_DEFAULT_SCREEN_DPI);
  state.window =
      CreateWindowExW(0, pageViewClass, L"Page", WS_CHILD | WS_VISIBLE | WS_TABSTOP | WS_VSCROLL | WS_HSCROLL, 0, 0, 0, 0,
                      parent, reinterpret_cast<HMENU>(static_cast<INT_PTR>(ID_PAGE_VIEW)), windowClass.hInstance, nullptr);
  return state.window;
}

}  // namespace quillon
