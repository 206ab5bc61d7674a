#include "pages/windows/frame_commands.h"

#include "pages/ids.h"
#include "pages/windows/clipboard.h"
#include "pages/windows/find_bar.h"
#include "pages/windows/frame.h"
#include "pages/windows/page_view.h"
#include "pages/windows/report_list.h"
#include "pages/windows/viewer.h"
#include "pages/windows/window_dialogs.h"

namespace quillon {

// ---- Pages -------------------------------------------------------------------------------------------------------------

static void turnTo(std::size_t page) {
  const std::size_t before = viewer().page;
  viewerTurnTo(page);
  if (viewer().page != before) pageViewScrollTo(PageEdge::top);
  frameShow();
}

static void turnToLast() {
  viewerTurnToLast();
  pageViewScrollTo(PageEdge::top);
  frameShow();
}

static void goToPage() {
  const std::size_t count = pageCount(viewer().report.index);
  if (count == 0) return;
  const std::size_t page = askForPage(frameWindow(), viewer().page + 1, count);
  if (page > 0) turnTo(page - 1);
}

static void onPageCommand(int command) {
  const std::size_t page = viewer().page;
  switch (command) {
    case ID_PAGE_FIRST:
      return turnTo(0);
    case ID_PAGE_PREVIOUS:
      return turnTo(page > 0 ? page - 1 : 0);
    case ID_PAGE_NEXT:
      if (page + 1 < pageCount(viewer().report.index)) turnTo(page + 1);
      return;
    case ID_PAGE_LAST:
      return turnToLast();
    case ID_PAGE_GO_TO:
      return goToPage();
  }
}

// ---- Zoom --------------------------------------------------------------------------------------------------------------

static void onZoomCommand(int command) {
  const int percent = pageViewPercent();
  switch (command) {
    case ID_ZOOM_IN:
      pageViewSetZoom({ZoomKind::percent, zoomedIn(percent)});
      break;
    case ID_ZOOM_OUT:
      pageViewSetZoom({ZoomKind::percent, zoomedOut(percent)});
      break;
    case ID_ZOOM_WIDTH:
      pageViewSetZoom({ZoomKind::width});
      break;
    case ID_ZOOM_PAGE:
      pageViewSetZoom({ZoomKind::page});
      break;
    case ID_ZOOM_ACTUAL:
      pageViewSetZoom({ZoomKind::percent, 100});
      break;
  }
  frameShow();
}

// ---- Selecting and finding ---------------------------------------------------------------------------------------------

// The edit that has the focus, where one has it: text is selected and copied there as in any edit.
static HWND editWithFocus() {
  const HWND focus = GetFocus();
  const int id = focus ? GetDlgCtrlID(focus) : 0;
  return id == ID_FIND_TEXT || id == ID_TEXT_VIEW ? focus : nullptr;
}

static void copy() {
  if (const HWND edit = editWithFocus()) {
    SendMessageW(edit, WM_COPY, 0, 0);
    return;
  }
  const std::string text = selectedText(viewer().selection, viewer().lines);
  if (!text.empty()) clipboardTake(frameWindow(), text);
}

static void selectAll() {
  if (const HWND edit = editWithFocus()) {
    SendMessageW(edit, EM_SETSEL, 0, -1);
    return;
  }
  viewerSelect(wholePageSelected(viewer().lines));
  frameShow();
}

static void find(bool forward) {
  if (!findBarSeek()) return findBarOpen();
  viewerFind(forward);
  frameShow();
}

// What was begun last ends first: a search, the find bar, a selection.
static void escape() {
  if (viewer().find == FindState::searching) {
    viewerFindStop();
  } else if (findBarIsOpen()) {
    findBarClose();
  } else {
    viewerSelect({});
  }
  frameShow();
}

static void onEditCommand(int command) {
  switch (command) {
    case ID_EDIT_COPY:
      return copy();
    case ID_EDIT_SELECT_ALL:
      return selectAll();
    case ID_EDIT_FIND:
      return findBarOpen();
    case ID_EDIT_FIND_NEXT:
      return find(true);
    case ID_EDIT_FIND_PREVIOUS:
      return find(false);
  }
}

// ---- Files -------------------------------------------------------------------------------------------------------------

static void openChosen(const std::wstring& path) {
  if (!path.empty()) frameOpen(path);
}

static void onFileCommand(int command) {
  switch (command) {
    case ID_FILE_OPEN:
      return openChosen(askForReport(frameWindow(), reportListFolder()));
    case ID_FILE_OPEN_FOLDER:
      return openChosen(askForFolder(frameWindow(), reportListFolder()));
    case ID_FILE_SAVE_AS_PDF:
      return frameSaveAsPdf();
    case ID_FILE_PRINT:
      return framePrint();
    case ID_FILE_EXIT:
      PostMessageW(frameWindow(), WM_CLOSE, 0, 0);
      return;
  }
}

// ---- All of them -------------------------------------------------------------------------------------------------------

void frameCommand(int command) {
  if (command >= ID_FILE_OPEN && command <= ID_FILE_EXIT) return onFileCommand(command);
  if (command >= ID_EDIT_COPY && command <= ID_EDIT_FIND_PREVIOUS) return onEditCommand(command);
  if (command >= ID_PAGE_FIRST && command <= ID_PAGE_GO_TO) return onPageCommand(command);
  if (command >= ID_ZOOM_IN && command <= ID_ZOOM_ACTUAL) return onZoomCommand(command);
  switch (command) {
    case ID_VIEW_TEXT:
      return frameShowText(!frameShowsText());
    case ID_VIEW_LIST:
      return frameShowList(!frameShowsList());
    case ID_VIEW_REFRESH:
      return frameRefresh();
    case ID_VIEW_NEXT_PANE:
      return frameTurnFocus();
    case ID_ESCAPE:
      return escape();
    case ID_HELP_ABOUT:
      return showAbout(frameWindow());
  }
}

static void enable(HMENU menu, int command, bool of) {
  EnableMenuItem(menu, static_cast<UINT>(command), MF_BYCOMMAND | (of ? MF_ENABLED : MF_GRAYED));
}

static void check(HMENU menu, int command, bool on) {
  CheckMenuItem(menu, static_cast<UINT>(command), MF_BYCOMMAND | (on ? MF_CHECKED : MF_UNCHECKED));
}

void frameMarkMenu(HMENU menu) {
  const std::size_t page = viewer().page;
  const std::size_t count = pageCount(viewer().report.index);
  for (const int command : {ID_FILE_PRINT, ID_FILE_SAVE_AS_PDF, ID_EDIT_SELECT_ALL, ID_PAGE_GO_TO, ID_PAGE_LAST}) {
    enable(menu, command, count > 0);
  }
  enable(menu, ID_EDIT_COPY, editWithFocus() || !selectionIsEmpty(viewer().selection));
  enable(menu, ID_PAGE_FIRST, page > 0);
  enable(menu, ID_PAGE_PREVIOUS, page > 0);
  enable(menu, ID_PAGE_NEXT, page + 1 < count);
  for (const int command : {ID_ZOOM_IN, ID_ZOOM_OUT, ID_ZOOM_WIDTH, ID_ZOOM_PAGE, ID_ZOOM_ACTUAL}) {
    enable(menu, command, !frameShowsText());
  }
  const Zoom zoom = pageViewZoom();
  check(menu, ID_ZOOM_WIDTH, zoom.kind == ZoomKind::width);
  check(menu, ID_ZOOM_PAGE, zoom.kind == ZoomKind::page);
  check(menu, ID_ZOOM_ACTUAL, zoom.kind == ZoomKind::percent && zoom.percent == 100);
  check(menu, ID_VIEW_TEXT, frameShowsText());
  check(menu, ID_VIEW_LIST, frameShowsList());
}

}  // namespace quillon
