#include "pages/windows/text_view.h"

#include <string>

#include "pages/ids.h"
#include "pages/windows/frame.h"
#include "pages/windows/page_font.h"
#include "pages/windows/viewer.h"

namespace quillon {

static constexpr UINT ansiCodePage = 1252;
static constexpr int fontPoints = 10;

static struct {
  HWND window;
  std::string text;  // of the page, as it stands in the edit
  std::size_t page;  // that the text is of
  unsigned version;  // of its report
  bool filled;
} state;

static std::wstring wideOf(const std::string& text) {
  std::wstring wide(text.size(), L' ');  // a character a byte
  const int size = static_cast<int>(text.size());
  if (size > 0) MultiByteToWideChar(ansiCodePage, 0, text.data(), size, wide.data(), size);
  return wide;
}

// Where one reads in a page to which lines are added, one reads on.
static void fillAgain() {
  DWORD first = 0;
  DWORD behind = 0;
  SendMessageW(state.window, EM_GETSEL, reinterpret_cast<WPARAM>(&first), reinterpret_cast<LPARAM>(&behind));
  const LRESULT top = SendMessageW(state.window, EM_GETFIRSTVISIBLELINE, 0, 0);
  SetWindowTextW(state.window, wideOf(state.text).c_str());
  SendMessageW(state.window, EM_SETSEL, first, static_cast<LPARAM>(behind));
  SendMessageW(state.window, EM_LINESCROLL, 0, top - SendMessageW(state.window, EM_GETFIRSTVISIBLELINE, 0, 0));
}

void textViewUpdate() {
  std::string text = pageTextOf(viewer().lines);
  const bool samePage = state.filled && state.page == viewer().page && state.version == viewer().report.version;
  state.page = viewer().page;
  state.version = viewer().report.version;
  if (state.filled && text == state.text) return;
  const bool longer = samePage && text.starts_with(state.text);
  state.filled = true;
  state.text = std::move(text);
  if (longer) return fillAgain();
  SetWindowTextW(state.window, wideOf(state.text).c_str());
}

void textViewShowMatch() {
  const PageMark* mark = viewerMatchOnPage();
  if (!mark) return;
  std::size_t at = mark->column;
  for (std::size_t line = 0; line < mark->line; ++line) at += viewer().lines[line].size() + 2;  // CR LF
  SendMessageW(state.window, EM_SETSEL, at, static_cast<LPARAM>(at + mark->columns));
  SendMessageW(state.window, EM_SCROLLCARET, 0, 0);
}

void textViewNewFont() {
  const HFONT font = pageFontForText(fontPoints, static_cast<int>(GetDpiForWindow(state.window)));
  SendMessageW(state.window, WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE);
}

static LRESULT lineOfCaret() {
  DWORD caret = 0;
  SendMessageW(state.window, EM_GETSEL, 0, reinterpret_cast<LPARAM>(&caret));
  return SendMessageW(state.window, EM_LINEFROMCHAR, caret, 0);
}

static void caretToEnd() {
  const LRESULT size = GetWindowTextLengthW(state.window);
  SendMessageW(state.window, EM_SETSEL, static_cast<WPARAM>(size), size);
  SendMessageW(state.window, EM_SCROLLCARET, 0, 0);
}

// At the page's end Page Down turns the page, at its beginning Page Up.
static bool turnsPage(WPARAM key) {
  if (GetKeyState(VK_SHIFT) < 0) return false;
  if (key == VK_NEXT && lineOfCaret() + 1 == SendMessageW(state.window, EM_GETLINECOUNT, 0, 0)) {
    frameCommand(ID_PAGE_NEXT);
    return true;
  }
  if (key != VK_PRIOR || lineOfCaret() != 0 || viewer().page == 0) return false;
  frameCommand(ID_PAGE_PREVIOUS);
  caretToEnd();
  return true;
}

static LRESULT CALLBACK textViewProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR id, DWORD_PTR) {
  if (message == WM_KEYDOWN && turnsPage(wParam)) return 0;
  if (message == WM_MOUSEWHEEL && (wParam & MK_CONTROL)) return 0;
  if (message == WM_NCDESTROY) RemoveWindowSubclass(window, textViewProcedure, id);
  return DefSubclassProc(window, message, wParam, lParam);
}

HWND textViewCreate(HWND parent) {
  constexpr DWORD style = WS_CHILD | WS_TABSTOP | WS_VSCROLL | WS_HSCROLL | ES_MULTILINE | ES_READONLY | ES_AUTOHSCROLL |
                          ES_AUTOVSCROLL | ES_NOHIDESEL;
  state.window =
      CreateWindowExW(WS_EX_CLIENTEDGE, WC_EDITW, L"", style, 0, 0, 0, 0, parent,
                      reinterpret_cast<HMENU>(static_cast<INT_PTR>(ID_TEXT_VIEW)), GetModuleHandleW(nullptr), nullptr);
  SendMessageW(state.window, EM_SETLIMITTEXT, 0, 0);  // as much as fits
  SetWindowSubclass(state.window, textViewProcedure, ID_TEXT_VIEW, 0);
  textViewNewFont();
  return state.window;
}

}  // namespace quillon
