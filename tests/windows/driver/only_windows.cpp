// What only Windows has: the pointer, single keys, and what the frame looks like.
#include <cstring>

#include "dialogs.h"
#include "pictures.h"
#include "texts.h"
#include "user.h"

namespace driving {

static HWND shownTooltip() {
  for (HWND window : topWindows()) {
    if (classOf(window) == TOOLTIPS_CLASSW) return window;
  }
  return nullptr;
}

// Away from the toolbar first, so that the pointer enters the button anew.
void hover(const std::wstring& form) {
  const Tool* tool = toolNamed(form);
  if (!tool) return refuse(L"there is no tool " + form);
  POINT middle = middleOf(*tool);
  RECT bar = {};
  GetWindowRect(driver.toolbar, &bar);
  SetCursorPos(bar.left + 300, bar.bottom + 300);
  waitFor("the tooltip before to go", commandDeadline, [] { return !shownTooltip(); });
  ClientToScreen(driver.toolbar, &middle);
  SetCursorPos(middle.x, middle.y);
  // On a busy machine a move may be missed, or a tooltip may go again before it is seen: the pointer leaves and enters anew.
  constexpr ULONGLONG stay = 3'000;
  ULONGLONG next = GetTickCount64() + stay;
  bool inside = true;
  waitFor("a tooltip", commandDeadline, [&] {
    if (shownTooltip()) return true;
    if (GetTickCount64() >= next) {
      inside = !inside;
      inside ? SetCursorPos(middle.x, middle.y) : SetCursorPos(bar.left + 300, bar.bottom + 300);
      next = GetTickCount64() + stay;
    }
    return false;
  });
  write("{\"tooltip\":" + json(textOf(shownTooltip())) + "}");
}

// The key goes through the message loop as any other; it is done when the focus has moved.
void pressTab() {
  const HWND before = focusWindow();
  PostMessageW(before, WM_KEYDOWN, VK_TAB, 1);
  waitFor("the focus to move", commandDeadline, [before] { return focusWindow() != before; });
  write("{\"focus\":" + std::to_string(idOf(focusWindow())) + "}");
}

// Escape alone does nothing that could be waited for; the Tab behind it comes later, and moves the focus.
void pressEscape() {
  PostMessageW(focusWindow(), WM_KEYDOWN, VK_ESCAPE, 1);
  pressTab();
}

// Done when what it brings about has been answered: the buttons with access keys all bring a box or a dialog.
void pressMnemonic(wchar_t letter) {
  static constexpr LPARAM altIsDown = 1 << 29;
  PostMessageW(focusWindow(), WM_SYSCHAR, letter, altIsDown);
  HWND dialog = nullptr;
  waitFor("a box after an access key", commandDeadline, [&dialog] { return (dialog = dialogThatAsks()) != nullptr; });
  while (dialog) {
    answerDialog(dialog);
    ask(driver.mainWindow, WM_NULL);
    dialog = dialogThatAsks();
  }
}

void typeKeys(const std::wstring& text) {
  const HWND window = focusWindow();
  carryOut([window, &text] {
    for (const wchar_t c : text) send(window, WM_CHAR, c == L'<' ? VK_BACK : c, 1);
  });
}

void paste(const std::wstring& text) {
  const std::size_t bytes = (text.size() + 1) * sizeof(wchar_t);
  const HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE, bytes);
  std::memcpy(GlobalLock(block), text.c_str(), bytes);
  GlobalUnlock(block);
  waitFor("the clipboard", commandDeadline, [] { return OpenClipboard(nullptr) != 0; });
  EmptyClipboard();
  SetClipboardData(CF_UNICODETEXT, block);
  CloseClipboard();
  const HWND window = focusWindow();
  carryOut([window] { send(window, WM_PASTE, 0, 0); });
}

void moveToScreen(int dpi) {
  RECT area = {};
  GetWindowRect(driver.mainWindow, &area);
  const RemoteMemory place(sizeof area);
  WriteProcessMemory(driver.process, place.address, &area, sizeof area, nullptr);
  ask(driver.mainWindow, WM_DPICHANGED, static_cast<WPARAM>(MAKELONG(dpi, dpi)), reinterpret_cast<LPARAM>(place.address));
  findToolbar();
}

void askForSessionEnd() { write("{\"session\":" + truth(ask(driver.mainWindow, WM_QUERYENDSESSION) != 0) + "}"); }

// The toolbar puts a margin of its own around them, the same at each size.
static int pictureSize() {
  const LRESULT button = ask(driver.toolbar, TB_GETBUTTONSIZE);
  const LRESULT margin = ask(driver.toolbar, TB_GETPADDING);
  return static_cast<int>(LOWORD(button)) - static_cast<int>(LOWORD(margin));
}

void tellOfFrame() {
  std::string pieces;
  RECT bar = {};
  GetWindowRect(driver.toolbar, &bar);
  const LRESULT buttonSize = ask(driver.toolbar, TB_GETBUTTONSIZE);
  add(pieces, "class", json(classOf(driver.mainWindow)));
  add(pieces, "title", json(textOf(driver.mainWindow)));
  add(pieces, "icon", truth(hasIconInTitle(driver.mainWindow, driver.program.c_str(), L"QUILLON")));
  add(pieces, "maximised", truth(IsZoomed(driver.mainWindow)));
  add(pieces, "menu", truth(GetMenu(driver.mainWindow) != nullptr));
  add(pieces, "picture", std::to_string(pictureSize()));
  add(pieces, "toolbar", std::to_string(GetDlgCtrlID(driver.toolbar)));
  add(pieces, "size", '[' + std::to_string(bar.right - bar.left) + ',' + std::to_string(bar.bottom - bar.top) + ']');
  add(pieces, "button", '[' + std::to_string(LOWORD(buttonSize)) + ',' + std::to_string(HIWORD(buttonSize)) + ']');
  std::string ids;
  const LRESULT count = ask(driver.toolbar, TB_BUTTONCOUNT);
  const RemoteMemory memory(sizeof(TBBUTTON));
  for (LRESULT i = 0; i < count; ++i) {
    TBBUTTON button = {};
    ask(driver.toolbar, TB_GETBUTTON, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(memory.address));
    memory.read(&button, sizeof button);
    const bool asTold = button.iBitmap == i && (button.fsState & TBSTATE_ENABLED) && (button.fsStyle & TBSTYLE_CHECK);
    ids += (ids.empty() ? "" : ",") + (asTold ? std::to_string(button.idCommand) : std::string("null"));
  }
  add(pieces, "buttons", '[' + ids + ']');
  write("{\"frame\":{" + pieces + "}}");
}

}  // namespace driving
