// Works the window of quillon-pages.exe from outside, as a user does: reads a command a line and answers each with one line.
//
//     start PROGRAM [ARGUMENT]   starts it and waits for its window
//     title, status PART         what the title and a part of the status bar say
//     text                       of the text view
//     selection                  of the text view: its first character and the one behind it
//     list                       the list's rows, each name;size, separated by |
//     selected                   the row that is selected, -1 where none is
//     visible ID, focus          whether a part shows; the id of what has the focus
//     command ID                 of the menu
//     key NAME                   F3, ctrl+End, shift+F3 ... with the keyboard
//     type ID TEXT               into an edit of the find bar, or of the dialog that is open
//     press ID                   a button of the find bar, or of the dialog that is open
//     click X Y, drag X Y X Y, word X Y     on the page, with the mouse
//     wheel N [ctrl]             N turns away from the user
//     drop PATH                  a file let go over the window
//     rewrite N PATH             writes a file anew N times, as quillon.exe does; how often Windows refused that
//     clipboard                  its text; nothing where it has none
//     copy TEXT                  puts a text there
//     dpi N                      the window has come to a screen of so many dots an inch
//     size WIDTH HEIGHT          of the window; place: left, top, width, height
//     area ID                    a part's place on the screen: left, top, width, height
//     dialog                     the title of the dialog that is open; words: what it says
//     answers                    how long the window takes to answer, in milliseconds
//     close                      closes it; the program's status
//
// Line ends in an answer stand as \n, the carriage return as \r, a backslash as two. An answer "?..." is a complaint.
#include <windows.h>

// After <windows.h>, which they need.
#include <commctrl.h>
#include <shellapi.h>
#include <shlobj.h>

#include <cstdio>
#include <iostream>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "pages/ids.h"

namespace {

constexpr DWORD patience = 30'000;
constexpr DWORD pollStep = 10;

struct {
  HANDLE process = nullptr;
  DWORD id = 0;
  HWND window = nullptr;
} program;

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
  return text;
}

std::string escaped(const std::wstring& wide) {
  std::string line;
  for (const char c : narrow(wide)) {
    if (c == '\n')
      line += "\\n";
    else if (c == '\r')
      line += "\\r";
    else if (c == '\\')
      line += "\\\\";
    else
      line += c;
  }
  return line;
}

// ---- The program's windows ---------------------------------------------------------------------------------------------

struct RemoteMemory {
  explicit RemoteMemory(std::size_t size)
      : address(VirtualAllocEx(program.process, nullptr, size, MEM_RESERVE | MEM_COMMIT, PAGE_READWRITE)) {}
  ~RemoteMemory() { VirtualFreeEx(program.process, address, 0, MEM_RELEASE); }
  void read(void* into, std::size_t size, std::size_t from = 0) const {
    ReadProcessMemory(program.process, static_cast<char*>(address) + from, into, size, nullptr);
  }
  void write(const void* from, std::size_t size, std::size_t to = 0) const {
    WriteProcessMemory(program.process, static_cast<char*>(address) + to, from, size, nullptr);
  }
  void* address;
};

std::wstring classOf(HWND window) {
  wchar_t name[64] = {};
  GetClassNameW(window, name, 64);
  return name;
}

std::wstring textOf(HWND window) {
  std::wstring text(static_cast<std::size_t>(SendMessageW(window, WM_GETTEXTLENGTH, 0, 0)) + 1, L'\0');
  text.resize(static_cast<std::size_t>(SendMessageW(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()))));
  return text;
}

struct Wanted {
  const wchar_t* windowClass;
  HWND found;
};

HWND topWindow(const wchar_t* windowClass) {
  Wanted wanted = {windowClass, nullptr};
  EnumWindows(
      [](HWND window, LPARAM parameter) -> BOOL {
        auto* sought = reinterpret_cast<Wanted*>(parameter);
        DWORD process = 0;
        GetWindowThreadProcessId(window, &process);
        if (process != program.id || !IsWindowVisible(window) || classOf(window) != sought->windowClass) return TRUE;
        sought->found = window;
        return FALSE;
      },
      reinterpret_cast<LPARAM>(&wanted));
  return wanted.found;
}

HWND dialogWindow() { return topWindow(L"#32770"); }

HWND part(int id) {
  if (const HWND found = GetDlgItem(program.window, id)) return found;
  return GetDlgItem(GetDlgItem(program.window, ID_FIND_BAR), id);
}

// Of the dialog where one is open, at any depth: the file dialogs of Windows hold theirs in others.
HWND control(int id) {
  const HWND dialog = dialogWindow();
  if (!dialog) return part(id);
  if (const HWND direct = GetDlgItem(dialog, id)) return direct;
  struct {
    int id;
    HWND found;
  } sought = {id, nullptr};
  EnumChildWindows(
      dialog,
      [](HWND window, LPARAM parameter) -> BOOL {
        auto* wanted = reinterpret_cast<decltype(sought)*>(parameter);
        if (GetDlgCtrlID(window) == wanted->id) wanted->found = window;
        return wanted->found == nullptr;
      },
      reinterpret_cast<LPARAM>(&sought));
  return sought.found;
}

template <class Condition>
bool waitFor(Condition condition) {
  const ULONGLONG end = GetTickCount64() + patience;
  while (!condition()) {
    if (GetTickCount64() > end) return false;
    Sleep(pollStep);
  }
  return true;
}

bool isOver() { return WaitForSingleObject(program.process, 0) == WAIT_OBJECT_0; }

// ---- What is seen ------------------------------------------------------------------------------------------------------

std::string statusPart(int index) {
  const HWND bar = part(ID_STATUS_BAR);
  const std::size_t size = LOWORD(SendMessageW(bar, SB_GETTEXTLENGTHW, static_cast<WPARAM>(index), 0));
  std::wstring text(size + 1, L'\0');
  const RemoteMemory memory(text.size() * sizeof(wchar_t));
  SendMessageW(bar, SB_GETTEXTW, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(memory.address));
  memory.read(text.data(), text.size() * sizeof(wchar_t));
  text.resize(size);
  return escaped(text);
}

std::wstring cell(HWND list, int row, int column) {
  constexpr int most = 300;
  const RemoteMemory memory(sizeof(LVITEMW) + most * sizeof(wchar_t));
  LVITEMW item = {};
  item.iSubItem = column;
  item.cchTextMax = most;
  item.pszText = reinterpret_cast<wchar_t*>(static_cast<char*>(memory.address) + sizeof item);
  memory.write(&item, sizeof item);
  const LRESULT size = SendMessageW(list, LVM_GETITEMTEXTW, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(memory.address));
  std::wstring text(static_cast<std::size_t>(size), L'\0');
  memory.read(text.data(), text.size() * sizeof(wchar_t), sizeof item);
  return text;
}

std::string rows() {
  const HWND list = part(ID_REPORT_LIST);
  const int count = static_cast<int>(SendMessageW(list, LVM_GETITEMCOUNT, 0, 0));
  std::wstring all;
  for (int row = 0; row < count; ++row) all += (row ? L"|" : L"") + cell(list, row, 0) + L";" + cell(list, row, 2);
  return escaped(all);
}

std::string clipboardText() {
  if (!waitFor([] { return OpenClipboard(nullptr) != 0; })) return "?the clipboard cannot be opened";
  std::wstring text;
  if (const HANDLE data = GetClipboardData(CF_UNICODETEXT)) {
    if (const auto* wide = static_cast<const wchar_t*>(GlobalLock(data))) text = wide;
    GlobalUnlock(data);
  }
  CloseClipboard();
  return escaped(text);
}

std::string areaOf(HWND window) {
  RECT area = {};
  GetWindowRect(window, &area);
  std::ostringstream words;
  words << area.left << ' ' << area.top << ' ' << area.right - area.left << ' ' << area.bottom - area.top;
  return words.str();
}

std::string wordsOfDialog() {
  std::wstring words;
  for (HWND child = GetWindow(dialogWindow(), GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
    if (classOf(child) == L"Static") words += textOf(child) + L" ";
  }
  return escaped(words);
}

// ---- What is done ------------------------------------------------------------------------------------------------------

std::string start(const std::string& arguments) {
  std::wstring line = widen(arguments);
  STARTUPINFOW startup = {};
  startup.cb = sizeof startup;
  PROCESS_INFORMATION made = {};
  if (!CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup, &made)) return "?no start";
  CloseHandle(made.hThread);
  program.process = made.hProcess;
  program.id = made.dwProcessId;
  program.window = nullptr;
  const bool there = waitFor([] { return (program.window = topWindow(L"QuillonPages")) != nullptr || isOver(); });
  if (!there || isOver()) return "?no window";
  SendMessageW(program.window, WM_NULL, 0, 0);
  SetForegroundWindow(program.window);
  return "ok";
}

void pressKey(WORD code, bool up) {
  INPUT input = {};
  input.type = INPUT_KEYBOARD;
  input.ki.wVk = code;
  input.ki.wScan = static_cast<WORD>(MapVirtualKeyW(code, MAPVK_VK_TO_VSC));
  input.ki.dwFlags = up ? KEYEVENTF_KEYUP : 0;
  SendInput(1, &input, sizeof input);
}

std::string pressKeys(std::string name) {
  static const std::map<std::string, WORD> names = {
      {"PageUp", VK_PRIOR},   {"PageDown", VK_NEXT}, {"Home", VK_HOME},  {"End", VK_END}, {"Up", VK_UP},
      {"Down", VK_DOWN},      {"Enter", VK_RETURN},  {"Esc", VK_ESCAPE}, {"Tab", VK_TAB}, {"Plus", VK_ADD},
      {"Minus", VK_SUBTRACT}, {"F3", VK_F3},         {"F5", VK_F5},      {"F6", VK_F6},   {"Space", VK_SPACE},
      {"Left", VK_LEFT},      {"Right", VK_RIGHT}};
  std::vector<WORD> held;
  for (const auto& [prefix, code] : {std::pair<std::string, WORD>{"ctrl+", VK_CONTROL}, {"shift+", VK_SHIFT}}) {
    if (name.rfind(prefix, 0) != 0) continue;
    held.push_back(code);
    name.erase(0, prefix.size());
  }
  const auto known = names.find(name);
  if (known == names.end() && name.size() != 1) return "?no such key";
  const WORD code = known != names.end() ? known->second : static_cast<WORD>(name[0]);
  for (const WORD key : held) pressKey(key, false);
  pressKey(code, false);
  pressKey(code, true);
  for (const WORD key : held) pressKey(key, true);
  return "ok";
}

void mouse(UINT message, WPARAM buttons, int x, int y) { PostMessageW(part(ID_PAGE_VIEW), message, buttons, MAKELPARAM(x, y)); }

std::string onPage(const std::string& verb, std::istringstream& rest) {
  int x = 0;
  int y = 0;
  rest >> x >> y;
  mouse(verb == "word" ? WM_LBUTTONDBLCLK : WM_LBUTTONDOWN, MK_LBUTTON, x, y);
  if (verb == "drag") {
    rest >> x >> y;
    mouse(WM_MOUSEMOVE, MK_LBUTTON, x, y);
  }
  mouse(WM_LBUTTONUP, 0, x, y);
  return "ok";
}

std::string wheel(std::istringstream& rest) {
  int turns = 0;
  std::string held;
  rest >> turns >> held;
  const WPARAM keys = held == "ctrl" ? MK_CONTROL : 0;
  const auto delta = static_cast<WORD>(static_cast<short>(turns > 0 ? WHEEL_DELTA : -WHEEL_DELTA));
  for (int i = 0; i < std::abs(turns); ++i) mouse(WM_MOUSEWHEEL, MAKEWPARAM(keys, delta), 0, 0);
  return "ok";
}

// The memory is the program's own, as a drop's is; it gives it back itself.
std::string drop(const std::wstring& path) {
  std::vector<char> block(sizeof(DROPFILES) + (path.size() + 2) * sizeof(wchar_t));
  DROPFILES head = {};
  head.pFiles = sizeof head;
  head.fWide = TRUE;
  memcpy(block.data(), &head, sizeof head);
  memcpy(block.data() + sizeof head, path.data(), path.size() * sizeof(wchar_t));
  void* memory = VirtualAllocEx(program.process, nullptr, block.size(), MEM_RESERVE | MEM_COMMIT, PAGE_READWRITE);
  WriteProcessMemory(program.process, memory, block.data(), block.size(), nullptr);
  PostMessageW(program.window, WM_DROPFILES, reinterpret_cast<WPARAM>(memory), 0);
  return "ok";
}

std::string type(int id, const std::wstring& text) {
  HWND edit = control(id);
  if (!edit) return "?no such edit";
  if (const HWND inner = FindWindowExW(edit, nullptr, L"Edit", nullptr)) edit = inner;  // of a combo box
  SendMessageW(edit, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text.c_str()));
  return "ok";
}

std::string press(int id) {
  const HWND button = control(id);
  if (!button) return "?no such button";
  PostMessageW(button, BM_CLICK, 0, 0);
  return "ok";
}

std::string changeScreen(int dpi) {
  RECT area = {};
  GetWindowRect(program.window, &area);
  const RemoteMemory memory(sizeof area);
  memory.write(&area, sizeof area);
  SendMessageW(program.window, WM_DPICHANGED, MAKEWPARAM(dpi, dpi), reinterpret_cast<LPARAM>(memory.address));
  return "ok";
}

std::string copyText(const std::wstring& text) {
  if (!waitFor([] { return OpenClipboard(nullptr) != 0; })) return "?the clipboard cannot be opened";
  EmptyClipboard();
  const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, (text.size() + 1) * sizeof(wchar_t));
  memcpy(GlobalLock(memory), text.c_str(), (text.size() + 1) * sizeof(wchar_t));
  GlobalUnlock(memory);
  SetClipboardData(CF_UNICODETEXT, memory);
  CloseClipboard();
  return "ok";
}

// With nobody else allowed to write, and the old bytes gone first.
std::string rewrite(int times, const std::wstring& path) {
  int refused = 0;
  for (int i = 0; i < times; ++i) {
    const HANDLE file =
        CreateFileW(path.c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE) {
      ++refused;
      continue;
    }
    const std::string text = "written " + std::to_string(i + 1) + "\r\n\f";
    DWORD put = 0;
    WriteFile(file, text.data(), static_cast<DWORD>(text.size()), &put, nullptr);
    CloseHandle(file);
    Sleep(20);
  }
  return std::to_string(refused);
}

std::string answers() {
  const ULONGLONG begun = GetTickCount64();
  DWORD_PTR answer = 0;
  if (!SendMessageTimeoutW(program.window, WM_NULL, 0, 0, SMTO_NORMAL, patience, &answer)) return "?none";
  return std::to_string(GetTickCount64() - begun);
}

std::string closeProgram() {
  PostMessageW(program.window, WM_CLOSE, 0, 0);
  if (!waitFor(isOver)) {
    TerminateProcess(program.process, 99);
    return "?it stays";
  }
  DWORD status = 0;
  GetExitCodeProcess(program.process, &status);
  CloseHandle(program.process);
  return std::to_string(status);
}

std::string focus() {
  GUITHREADINFO info = {};
  info.cbSize = sizeof info;
  GetGUIThreadInfo(GetWindowThreadProcessId(program.window, nullptr), &info);
  return std::to_string(info.hwndFocus ? GetDlgCtrlID(info.hwndFocus) : 0);
}

std::string resize(std::istringstream& rest) {
  int width = 0;
  int height = 0;
  rest >> width >> height;
  SetWindowPos(program.window, nullptr, 20, 20, width, height, SWP_NOZORDER);
  return "ok";
}

std::string seen(const std::string& verb, int id) {
  if (verb == "title") return escaped(textOf(program.window));
  if (verb == "status") return statusPart(id);
  if (verb == "text") return escaped(textOf(part(ID_TEXT_VIEW)));
  if (verb == "selection") {
    const LRESULT places = SendMessageW(part(ID_TEXT_VIEW), EM_GETSEL, 0, 0);
    return std::to_string(LOWORD(places)) + " " + std::to_string(HIWORD(places));
  }
  if (verb == "list") return rows();
  if (verb == "selected")
    return std::to_string(SendMessageW(part(ID_REPORT_LIST), LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_SELECTED));
  if (verb == "visible") return IsWindowVisible(part(id)) ? "yes" : "no";
  if (verb == "focus") return focus();
  if (verb == "clipboard") return clipboardText();
  if (verb == "area") return areaOf(part(id));
  if (verb == "place") return areaOf(program.window);
  if (verb == "answers") return answers();
  if (verb == "dialog") return dialogWindow() ? escaped(textOf(dialogWindow())) : "";
  if (verb == "words") return wordsOfDialog();
  return "?no such command";
}

std::string carryOut(const std::string& line) {
  std::istringstream words(line);
  std::string verb;
  words >> verb;
  const std::size_t blank = line.find(' ');
  const std::string rest = blank == std::string::npos ? "" : line.substr(blank + 1);
  std::istringstream numbers(rest);
  if (verb == "start") return start(rest);
  if (program.process && isOver()) return "?the program has ended";
  if (verb == "key") return pressKeys(rest);
  if (verb == "click" || verb == "drag" || verb == "word") return onPage(verb, numbers);
  if (verb == "wheel") return wheel(numbers);
  if (verb == "drop") return drop(widen(rest));
  if (verb == "copy") return copyText(widen(rest));
  if (verb == "size") return resize(numbers);
  if (verb == "close") return closeProgram();
  int id = 0;
  numbers >> id;
  if (verb == "command") return PostMessageW(program.window, WM_COMMAND, static_cast<WPARAM>(id), 0) ? "ok" : "?not posted";
  if (verb == "press") return press(id);
  if (verb == "rewrite") return rewrite(id, widen(rest.substr(rest.find(' ') + 1)));
  if (verb == "dpi") return changeScreen(id);
  if (verb == "type") {
    const std::size_t second = rest.find(' ');
    return type(id, second == std::string::npos ? L"" : widen(rest.substr(second + 1)));
  }
  return seen(verb, id);
}

}  // namespace

int main() {
  std::string line;
  while (std::getline(std::cin, line)) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    std::cout << carryOut(line) << std::endl;
  }
  return 0;
}
