// Works a dialog of another program from outside, as a user does: reads a command a line and answers each with one line.
//
//     wait TITLE         until a dialog of that title is there; the commands below go to it
//     gone               until it is gone again
//     text ID            what a control shows
//     words              what a message box says
//     items ID           a list's items, separated by |
//     enabled ID, checked ID
//     type ID TEXT       into an edit, or the edit of a list
//     pick ID ITEM       of a list
//     press ID           a button of any kind
//     access LETTER      Alt and a letter: gives the id of the control that has the focus then
//     place              of the dialog on the screen: left, top, right, bottom
//
// An answer "?..." is a complaint.
#include <windows.h>

#include <cstdio>
#include <iostream>
#include <string>
#include <vector>

namespace {

constexpr DWORD patience = 30'000;
constexpr DWORD pollStep = 20;

HWND dialog = nullptr;

std::wstring widen(const std::string& text) {
  std::wstring wide(text.size(), L'\0');
  wide.resize(static_cast<std::size_t>(
      MultiByteToWideChar(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), wide.data(), static_cast<int>(wide.size()))));
  return wide;
}

std::string narrow(const std::wstring& wide) {
  std::string text(wide.size() * 3, '\0');
  text.resize(static_cast<std::size_t>(WideCharToMultiByte(CP_UTF8, 0, wide.data(), static_cast<int>(wide.size()), text.data(),
                                                           static_cast<int>(text.size()), nullptr, nullptr)));
  for (char& c : text) {
    if (c == '\n' || c == '\r') c = ' ';
  }
  return text;
}

std::wstring textOf(HWND window) {
  std::wstring text(static_cast<std::size_t>(SendMessageW(window, WM_GETTEXTLENGTH, 0, 0)) + 1, L'\0');
  text.resize(static_cast<std::size_t>(SendMessageW(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()))));
  return text;
}

std::wstring classOf(HWND window) {
  wchar_t name[64] = {};
  GetClassNameW(window, name, 64);
  return name;
}

template <class Condition>
bool waitFor(Condition condition) {
  for (const DWORD start = GetTickCount(); GetTickCount() - start < patience; Sleep(pollStep)) {
    if (condition()) return true;
  }
  return false;
}

HWND dialogOf(const std::wstring& title) {
  for (HWND window = nullptr; (window = FindWindowExW(nullptr, window, L"#32770", title.c_str()));) {
    if (IsWindowVisible(window) && IsWindowEnabled(window)) return window;
  }
  return nullptr;
}

void notify(HWND control, int event) {
  SendMessageW(GetParent(control), WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(control), event), reinterpret_cast<LPARAM>(control));
}

std::wstring itemOf(HWND list, WPARAM item) {
  std::wstring text(static_cast<std::size_t>(SendMessageW(list, CB_GETLBTEXTLEN, item, 0)) + 1, L'\0');
  SendMessageW(list, CB_GETLBTEXT, item, reinterpret_cast<LPARAM>(text.data()));
  text.pop_back();
  return text;
}

std::vector<std::wstring> itemsOf(HWND list) {
  std::vector<std::wstring> items;
  const LRESULT count = SendMessageW(list, CB_GETCOUNT, 0, 0);
  for (LRESULT i = 0; i < count; ++i) items.push_back(itemOf(list, static_cast<WPARAM>(i)));
  return items;
}

std::string pick(HWND list, const std::wstring& item) {
  const std::vector<std::wstring> items = itemsOf(list);
  for (std::size_t i = 0; i < items.size(); ++i) {
    if (items[i] != item) continue;
    SendMessageW(list, CB_SETCURSEL, i, 0);
    notify(list, CBN_SELCHANGE);
    return "ok";
  }
  return "?no such item";
}

// As from the keyboard: into the edit, which tells its owner.
std::string type(HWND control, const std::wstring& text) {
  const HWND edit = FindWindowExW(control, nullptr, L"Edit", nullptr);
  const HWND into = edit ? edit : control;
  SendMessageW(into, EM_SETSEL, 0, -1);
  SendMessageW(into, WM_CLEAR, 0, 0);
  for (const wchar_t c : text) SendMessageW(into, WM_CHAR, c, 0);
  return "ok";
}

std::string wordsOfBox() {
  std::string words;
  for (HWND child = nullptr; (child = FindWindowExW(dialog, child, L"Static", nullptr));) words += narrow(textOf(child));
  return words;
}

std::string access(wchar_t letter) {
  const DWORD thread = GetWindowThreadProcessId(dialog, nullptr);
  const auto focus = [thread] {
    GUITHREADINFO info = {};
    info.cbSize = sizeof info;
    GetGUIThreadInfo(thread, &info);
    return info.hwndFocus;
  };
  const HWND before = focus();
  if (!before) return "?no focus";
  PostMessageW(before, WM_SYSCHAR, static_cast<WPARAM>(letter), 1 << 29);
  SendMessageW(dialog, WM_NULL, 0, 0);
  // On a busy machine the label that the letter stands on may be seen with the focus, on its way to what it names.
  HWND after = before;
  for (int i = 0; i < 50 && (after == before || GetDlgCtrlID(after) == -1); ++i, Sleep(pollStep)) after = focus();
  const HWND parent = after ? GetParent(after) : nullptr;
  return std::to_string(GetDlgCtrlID(parent && classOf(parent) == L"ComboBox" ? parent : after));
}

std::string onDialog(const std::string& verb, HWND control, const std::wstring& rest) {
  if (verb == "gone") return waitFor([] { return !IsWindow(dialog) || !IsWindowVisible(dialog); }) ? "ok" : "?it stays";
  if (verb == "words") return wordsOfBox();
  if (verb == "access") return access(rest[0]);
  if (verb == "place") {
    RECT area = {};
    GetWindowRect(dialog, &area);
    return std::to_string(area.left) + " " + std::to_string(area.top) + " " + std::to_string(area.right) + " " +
           std::to_string(area.bottom);
  }
  if (!control) return "?no such control";
  if (verb == "text") return narrow(textOf(control));
  if (verb == "enabled") return IsWindowEnabled(control) ? "yes" : "no";
  if (verb == "checked") return SendMessageW(control, BM_GETCHECK, 0, 0) == BST_CHECKED ? "yes" : "no";
  if (verb == "type") return IsWindowEnabled(control) ? type(control, rest) : "?disabled";
  if (verb == "pick") return IsWindowEnabled(control) ? pick(control, rest) : "?disabled";
  if (verb == "items") {
    std::string all;
    for (const std::wstring& item : itemsOf(control)) all += (all.empty() ? "" : "|") + narrow(item);
    return all;
  }
  if (verb != "press") return "?no such command";
  if (!IsWindowEnabled(control)) return "?disabled";
  PostMessageW(control, BM_CLICK, 0, 0);
  Sleep(pollStep);
  if (IsWindow(dialog)) SendMessageTimeoutW(dialog, WM_NULL, 0, 0, SMTO_ABORTIFHUNG, patience, nullptr);
  return "ok";
}

std::string answer(const std::string& line) {
  const std::size_t space = line.find(' ');
  const std::string verb = line.substr(0, space);
  const std::string rest = space == std::string::npos ? "" : line.substr(space + 1);
  if (verb == "wait") {
    const std::wstring title = widen(rest);
    if (!waitFor([&] { return (dialog = dialogOf(title)) != nullptr; })) return "?no such dialog";
    SetForegroundWindow(dialog);
    return "ok";
  }
  if (!dialog) return "?no dialog";
  if (verb == "access") return onDialog(verb, nullptr, widen(rest));
  const std::size_t second = rest.find(' ');
  const HWND control = rest.empty() ? nullptr : GetDlgItem(dialog, std::atoi(rest.c_str()));
  return onDialog(verb, control, second == std::string::npos ? L"" : widen(rest.substr(second + 1)));
}

}  // namespace

int main() {
  for (std::string line; std::getline(std::cin, line);) {
    while (!line.empty() && line.back() == '\r') line.pop_back();
    std::printf("%s\n", answer(line).c_str());
    std::fflush(stdout);
  }
  return 0;
}
