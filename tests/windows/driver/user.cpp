#include "user.h"

#include <algorithm>
#include <optional>

#include "dialogs.h"
#include "texts.h"

namespace driving {

static DWORD WINAPI runAction(void* action) {
  (*static_cast<Action*>(action))();
  return 0;
}

void carryOut(Action action) {
  const HANDLE thread = CreateThread(nullptr, 0, runAction, &action, 0, nullptr);
  ULONGLONG end = GetTickCount64() + commandDeadline;
  while (WaitForSingleObject(thread, pollStep) != WAIT_OBJECT_0) {
    if (const HWND dialog = dialogThatAsks()) {
      answerDialog(dialog);
      end = GetTickCount64() + commandDeadline;
    }
    if (GetTickCount64() > end) stuck("a command to be carried out");
  }
  CloseHandle(thread);
  if (programIsOver()) driver.over = true;
}

void send(HWND window, UINT message, WPARAM wParam, LPARAM lParam) { SendMessageW(window, message, wParam, lParam); }

void clickAt(HWND window, int x, int y) {
  send(window, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(x, y));
  send(window, WM_LBUTTONUP, 0, MAKELPARAM(x, y));
}

static void clickMiddle(HWND window) {
  RECT area = {};
  GetClientRect(window, &area);
  clickAt(window, area.right / 2, area.bottom / 2);
}

POINT middleOf(const Tool& tool) {
  RECT area = {};
  const RemoteMemory memory(sizeof area);
  const LRESULT index = ask(driver.toolbar, TB_COMMANDTOINDEX, static_cast<WPARAM>(tool.id));
  ask(driver.toolbar, TB_GETITEMRECT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(memory.address));
  memory.read(&area, sizeof area);
  return {(area.left + area.right) / 2, (area.top + area.bottom) / 2};
}

void pressTool(const std::wstring& form) {
  const Tool* tool = toolNamed(form);
  if (!tool) return refuse(L"there is no tool " + form);
  const POINT middle = middleOf(*tool);
  carryOut([middle] { clickAt(driver.toolbar, middle.x, middle.y); });
}

static void sendKey(WORD code, bool up) {
  INPUT input = {};
  input.type = INPUT_KEYBOARD;
  input.ki.wVk = code;
  input.ki.wScan = static_cast<WORD>(MapVirtualKeyW(code, MAPVK_VK_TO_VSC));
  input.ki.dwFlags = up ? KEYEVENTF_KEYUP : 0;
  SendInput(1, &input, sizeof input);
}

// A key goes through the message loop and comes back to nobody: it is done when its tool's button has turned, or, where the
// button stays, when a box has said so.
void pressKey(const std::string& name) {
  for (const Key& key : keys) {
    if (name != key.name) continue;
    const Tool* tool = toolOf(key.tool);
    const bool before = isChecked(*tool);
    if (key.modifier) sendKey(key.modifier, false);
    sendKey(key.code, false);
    sendKey(key.code, true);
    if (key.modifier) sendKey(key.modifier, true);
    bool answered = false;
    waitFor("a key to reach the program", commandDeadline, [&] {
      if (const HWND dialog = dialogThatAsks()) {
        answerBox(dialog);
        answered = true;
      }
      return answered || isChecked(*tool) != before;
    });
    ask(driver.mainWindow, WM_NULL);
    return;
  }
  refuse(widen(name) + L" is no key of the program");
}

const Tool* current() {
  if (!driver.order.empty()) return driver.order.back();
  refuse(L"no form is open");
  return nullptr;
}

void turnTo(const std::wstring& form) {
  const Tool* tool = toolNamed(form);
  if (!tool || !driver.open.count(tool)) return refuse(form + L" is not open");
  const HWND window = driver.open[tool];
  std::erase(driver.order, tool);
  driver.order.push_back(tool);
  carryOut([window] {
    send(window, WM_MOUSEACTIVATE, reinterpret_cast<WPARAM>(window), MAKELPARAM(HTCLIENT, WM_LBUTTONDOWN));
    SetForegroundWindow(window);
    send(window, WM_NULL, 0, 0);
  });
}

// Where a user can reach it; null, and refused, where not.
static HWND reach(int id, std::optional<Kind> kind = {}, const wchar_t* otherwise = nullptr) {
  const Tool* tool = current();
  if (!tool) return nullptr;
  const std::wstring number = std::to_wstring(id);
  const HWND control = GetDlgItem(driver.open[tool], id);
  if (!control) return refuse(number + L" is not on the form"), nullptr;
  if (!hasStyle(control, WS_VISIBLE)) return refuse(number + L" is hidden"), nullptr;
  if (hasStyle(control, WS_DISABLED)) return refuse(number + L" is disabled"), nullptr;
  if (kind && kindOf(control) != *kind) return refuse(number + otherwise), nullptr;
  return control;
}

void press(int id) {
  const HWND control = reach(id);
  if (!control) return;
  const Kind kind = kindOf(control);
  if (kind != Kind::button && kind != Kind::radio && kind != Kind::check) {
    return refuse(std::to_wstring(id) + L" cannot be pressed");
  }
  carryOut([control] { clickMiddle(control); });
}

// Where the edit takes some characters only, they are for the edit itself to refuse.
static void typeOver(HWND edit, const std::wstring& text) {
  carryOut([edit, &text] {
    clickMiddle(edit);
    send(edit, EM_SETSEL, 0, -1);
    send(edit, WM_CLEAR, 0, 0);
    for (const wchar_t c : text) send(edit, WM_CHAR, c, 1);
  });
}

void type(int id, const std::wstring& text) {
  const HWND control = reach(id, Kind::edit, L" is no edit");
  if (!control) return;
  if (hasStyle(control, ES_READONLY)) return refuse(std::to_wstring(id) + L" is read-only");
  if (hasStyle(control, ES_NUMBER)) return typeOver(control, text);
  carryOut([control, &text] {
    clickMiddle(control);
    send(control, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text.c_str()));
  });
}

void pick(int id, const std::wstring& text) {
  const HWND list = reach(id, Kind::list, L" is no list");
  if (!list) return;
  const LRESULT count = ask(list, CB_GETCOUNT);
  LRESULT index = 0;
  while (index < count && itemOf(list, index) != text) ++index;
  if (index == count) return refuse(std::to_wstring(id) + L" has no item " + text);
  carryOut([list, index, id] {
    const HWND form = GetParent(list);
    send(form, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(list), TRUE);
    send(list, CB_SETCURSEL, static_cast<WPARAM>(index), 0);
    send(form, WM_COMMAND, MAKEWPARAM(id, CBN_SELCHANGE), reinterpret_cast<LPARAM>(list));
  });
}

// A greyed entry shows only in that nothing happens: another process cannot read the menu.
void closeForm() {
  const Tool* tool = current();
  if (!tool) return;
  const HWND window = driver.open[tool];
  carryOut([window] { send(window, WM_SYSCOMMAND, SC_CLOSE, 0); });
  if (IsWindow(window)) refuse(L"Close is disabled");
}

HWND focusWindow() {
  GUITHREADINFO info = {};
  info.cbSize = sizeof info;
  return GetGUIThreadInfo(driver.thread, &info) ? info.hwndFocus : nullptr;
}

// The toolbar gives a mark: it has a property without effect here, which is set by a message behind the others.
void settle() {
  const bool before = ask(driver.toolbar, TB_GETANCHORHIGHLIGHT) != 0;
  PostMessageW(driver.toolbar, TB_SETANCHORHIGHLIGHT, !before, 0);
  waitFor("a key to be handled", commandDeadline, [before] {
    if (const HWND dialog = dialogThatAsks()) answerDialog(dialog);
    return programIsOver() || (ask(driver.toolbar, TB_GETANCHORHIGHLIGHT) != 0) != before;
  });
  // The mark may have been handled while a dialog was open. The program answers now when it has come back, or asks again.
  ask(driver.mainWindow, WM_NULL);
  while (const HWND dialog = dialogThatAsks()) {
    answerDialog(dialog);
    ask(driver.mainWindow, WM_NULL);
  }
}

void pressEnter() {
  if (!current()) return;
  const HWND focus = focusWindow();
  PostMessageW(focus ? focus : driver.open[current()], WM_KEYDOWN, VK_RETURN, 1);
  settle();
}

void quit() {
  carryOut([] { send(driver.mainWindow, WM_SYSCOMMAND, SC_CLOSE, 0); });
  waitFor("the program to end", commandDeadline, programIsOver);
  driver.over = true;
}

}  // namespace driving
