// Works quillon.exe from outside, as a user at the screen does, and writes what that user sees.
//
//   quillon-driver.exe [--leave] QUILLON.EXE [SCRIPT]      in the folder in which the program is to run
//
// With --leave the program stays open at the end of the commands; otherwise its main window is closed then.
//
// It takes the same commands as quillon-script and writes the same JSON lines, as far as they can be seen from outside (what
// cannot is listed in run_wine.py, which compares the two). Windows are found by class and process, controls by id; the
// program itself knows nothing of this.
//
// Beyond those it knows six commands for what only Windows has: "frame" tells of the main window and its toolbar, "hover FORM"
// of the tooltip of a tool, "tab" and "escape" press these keys on the form, "mnemonic P" presses Alt+P there, "keys TEXT"
// types a text one character after the other where the caret stands ('<' is the backspace key).
//
// A command is carried out on a thread of its own, by messages that come back only when the program has handled them: so its
// end is known, and no time has to be guessed. Until then this thread watches for boxes and dialogs and answers them.
//
// What it cannot do itself it asks of whoever started it: "?printer NAME" on standard output, then a line on standard input.

#define WIN32_LEAN_AND_MEAN
#ifndef NOMINMAX
#define NOMINMAX
#endif
// <windows.h> before the headers that lean on it.
// clang-format off
#include <windows.h>
#include <commctrl.h>
#include <commdlg.h>
#include <dlgs.h>
// clang-format on

#include <algorithm>
#include <array>
#include <cstdio>
#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "resource.h"

namespace {

constexpr int statusNoCommand = 2;
constexpr int statusCannot = 3;  // a command that nobody can carry out from outside
constexpr int statusStuck = 4;   // the program, or the screen, did not do what was waited for
constexpr DWORD startDeadline = 60'000;
constexpr DWORD commandDeadline = 60'000;
constexpr DWORD pollStep = 5;

struct Tool {
  int id;
  const wchar_t* form;
  int anyControl;  // by which the form's window is told from every other dialog; 0: the form is not made yet
};

// In the order of the buttons.
// clang-format off
constexpr Tool tools[] = {
    {20006, L"PRNTRPT", IDC_TRADES_LOAD},
    {20007, L"PRNTNP", IDC_NETPOS_LOAD},
    {7020, L"PRNTNPRET", IDC_SLB_LOAD},
    {20008, L"AUCRPT", 0},
    {20009, L"PRNTTLINE", IDC_TLINE_LOAD},
    {20010, L"PRNTTRDLM", IDC_TRDLIM_LOAD},
    {20011, L"PRNTSIXASEVENA", 0},
    {20012, L"PRNTBRKUP", 0},
    {20013, L"PRNTBRKREP", IDC_BRKQRY_LOAD},
    {20014, L"CONVERT", 0},
    {40033, L"DELV", 0},
    {20015, L"PRNTVQLS", 0},
    {20016, L"PRNTNETPOS", 0},
    {4049, L"PRNTORDLOG", 0},
    {20018, L"PRNTQUOTELOG", 0},
    {40037, L"PRNTADMINLOG", 0},
};
// clang-format on

struct Key {
  const char* name;
  WORD code;
  WORD modifier;  // 0: none
  int tool;
};

// clang-format off
constexpr Key keys[] = {
    {"F1", VK_F1, 0, 20006},   {"F2", VK_F2, 0, 20007},   {"Ctrl+F2", VK_F2, VK_CONTROL, 7020},
    {"F3", VK_F3, 0, 20008},   {"F4", VK_F4, 0, 20009},   {"F5", VK_F5, 0, 20010},
    {"F6", VK_F6, 0, 20011},   {"F7", VK_F7, 0, 20012},   {"F8", VK_F8, 0, 20013},
    {"F9", VK_F9, 0, 20014},   {"F10", VK_F10, 0, 20015}, {"F11", VK_F11, 0, 20016},
    {"Shift+F12", VK_F12, VK_SHIFT, 20018},               {"Ctrl+F1", VK_F1, VK_CONTROL, 40037},
};
// clang-format on

enum class Kind { other, button, radio, check, edit, list };

struct ControlView {
  HWND window;
  Kind kind;
  std::wstring text;
  bool enabled;
  bool visible;
  bool checked;
  std::vector<std::wstring> items;
  std::optional<std::wstring> selected;
};

struct FormView {
  HWND window;
  std::wstring title;
  int focus;                                          // 0: none that has an id
  std::vector<std::pair<int, ControlView>> controls;  // in tab order
};

struct Driver {
  HANDLE process;
  DWORD processId;
  DWORD thread;
  HWND mainWindow;
  HWND toolbar;
  std::deque<std::optional<std::wstring>> files;  // answers to open-file dialogs
  std::deque<bool> answers;                       // to boxes with a choice
  std::vector<const Tool*> order;                 // open forms, the one turned to last
  std::map<const Tool*, FormView> shown;          // as the transcript has them
  std::map<const Tool*, HWND> open;
  std::set<const Tool*> checked;
  bool over;
};

Driver driver;

// ---- Texts -------------------------------------------------------------------------------------------------------------

std::wstring widen(std::string_view text) {
  const int size = static_cast<int>(text.size());
  std::wstring wide(static_cast<std::size_t>(MultiByteToWideChar(CP_UTF8, 0, text.data(), size, nullptr, 0)), L'\0');
  MultiByteToWideChar(CP_UTF8, 0, text.data(), size, wide.data(), static_cast<int>(wide.size()));
  return wide;
}

std::string narrow(std::wstring_view wide) {
  const int size = static_cast<int>(wide.size());
  const int bytes = WideCharToMultiByte(CP_UTF8, 0, wide.data(), size, nullptr, 0, nullptr, nullptr);
  std::string text(static_cast<std::size_t>(bytes), '\0');
  WideCharToMultiByte(CP_UTF8, 0, wide.data(), size, text.data(), bytes, nullptr, nullptr);
  return text;
}

std::string json(std::wstring_view wide) {
  std::string out = "\"";
  for (const char c : narrow(wide)) {
    if (c == '"' || c == '\\') {
      out += '\\';
      out += c;
    } else if (static_cast<unsigned char>(c) < ' ') {
      char escape[8];
      std::snprintf(escape, sizeof escape, "\\u%04x", static_cast<unsigned>(c));
      out += escape;
    } else {
      out += c;
    }
  }
  return out + '"';
}

std::string truth(bool value) { return value ? "true" : "false"; }

void write(const std::string& line) {
  std::fputs(line.c_str(), stdout);
  std::fputc('\n', stdout);
  std::fflush(stdout);
}

void refuse(const std::wstring& reason) { write("{\"refused\":" + json(reason) + "}"); }

[[noreturn]] void stuck(const char* waitingFor) {
  std::fprintf(stderr, "driver: waited in vain for %s\n", waitingFor);
  TerminateProcess(driver.process, statusStuck);
  ExitProcess(statusStuck);
}

bool programIsOver() { return WaitForSingleObject(driver.process, 0) == WAIT_OBJECT_0; }

template <class Condition>
void waitFor(const char* what, DWORD deadline, Condition condition) {
  const ULONGLONG end = GetTickCount64() + deadline;
  while (!condition()) {
    if (GetTickCount64() > end) stuck(what);
    WaitForSingleObject(driver.process, pollStep);
  }
}

// ---- Windows of the program --------------------------------------------------------------------------------------------

// Answered only when the program has come back to its message handling.
LRESULT ask(HWND window, UINT message, WPARAM wParam = 0, LPARAM lParam = 0) {
  DWORD_PTR answer = 0;
  if (!SendMessageTimeoutW(window, message, wParam, lParam, SMTO_NORMAL, commandDeadline, &answer)) return 0;
  return static_cast<LRESULT>(answer);
}

std::wstring textOf(HWND window) {
  std::wstring text(static_cast<std::size_t>(ask(window, WM_GETTEXTLENGTH)) + 1, L'\0');
  text.resize(static_cast<std::size_t>(ask(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()))));
  return text;
}

std::wstring classOf(HWND window) {
  wchar_t name[64] = {};
  GetClassNameW(window, name, static_cast<int>(std::size(name)));
  return name;
}

bool hasStyle(HWND window, LONG_PTR style) { return (GetWindowLongPtrW(window, GWL_STYLE) & style) == style; }

// The visible top-level windows of the program, the topmost first.
std::vector<HWND> topWindows() {
  std::vector<HWND> found;
  const auto add = [](HWND window, LPARAM list) -> BOOL {
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    if (process == driver.processId && IsWindowVisible(window)) reinterpret_cast<std::vector<HWND>*>(list)->push_back(window);
    return TRUE;
  };
  EnumWindows(add, reinterpret_cast<LPARAM>(&found));
  return found;
}

std::vector<HWND> childrenOf(HWND window) {
  std::vector<HWND> found;
  for (HWND child = GetWindow(window, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) found.push_back(child);
  return found;
}

const Tool* formOf(HWND window) {
  if (classOf(window) != L"#32770") return nullptr;
  for (const Tool& tool : tools) {
    if (tool.anyControl && GetDlgItem(window, tool.anyControl)) return &tool;
  }
  return nullptr;
}

bool isFileDialog(HWND window) { return GetDlgItem(window, cmb1) && GetDlgItem(window, IDOK); }

bool isKnownForm(HWND window) {
  return std::any_of(driver.open.begin(), driver.open.end(), [window](const auto& open) { return open.second == window; });
}

// A dialog of the program that is none of its forms: something that waits for an answer. A form on its way out has lost its
// controls already, and is known by its window alone.
HWND dialogThatAsks() {
  for (HWND window : topWindows()) {
    if (classOf(window) != L"#32770" || isKnownForm(window) || formOf(window) || !IsWindowEnabled(window)) continue;
    return window;
  }
  return nullptr;
}

// ---- Looking at forms --------------------------------------------------------------------------------------------------

Kind kindOf(HWND control) {
  const std::wstring name = classOf(control);
  if (name == L"Edit") return Kind::edit;
  if (name == L"ComboBox") return Kind::list;
  if (name != L"Button") return Kind::other;
  switch (GetWindowLongPtrW(control, GWL_STYLE) & BS_TYPEMASK) {
    case BS_PUSHBUTTON:
    case BS_DEFPUSHBUTTON:
      return Kind::button;
    case BS_RADIOBUTTON:
    case BS_AUTORADIOBUTTON:
      return Kind::radio;
    case BS_CHECKBOX:
    case BS_AUTOCHECKBOX:
      return Kind::check;
    default:
      return Kind::other;
  }
}

std::wstring itemOf(HWND list, LRESULT index) {
  const LRESULT length = ask(list, CB_GETLBTEXTLEN, static_cast<WPARAM>(index));
  if (length < 0) return {};
  std::wstring text(static_cast<std::size_t>(length) + 1, L'\0');
  ask(list, CB_GETLBTEXT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(text.data()));
  text.resize(static_cast<std::size_t>(length));
  return text;
}

ControlView lookAtControl(HWND window) {
  ControlView view = {};
  view.window = window;
  view.kind = kindOf(window);
  view.enabled = !hasStyle(window, WS_DISABLED);
  view.visible = hasStyle(window, WS_VISIBLE);
  if (view.kind == Kind::radio || view.kind == Kind::check) view.checked = ask(window, BM_GETCHECK) == BST_CHECKED;
  if (view.kind == Kind::list) {
    const LRESULT count = ask(window, CB_GETCOUNT);
    for (LRESULT i = 0; i < count; ++i) view.items.push_back(itemOf(window, i));
    const LRESULT selected = ask(window, CB_GETCURSEL);
    if (selected >= 0) view.selected = view.items[static_cast<std::size_t>(selected)];
  } else {
    view.text = textOf(window);
  }
  return view;
}

// Control ids are 16 bits in a window's own terms: -1 is a label or a frame that nobody asks for.
int idOf(HWND control) {
  const int id = GetDlgCtrlID(control) & 0xFFFF;
  return id == 0xFFFF ? 0 : id;
}

// The focus of a form can be seen only while it is the active one.
int focusOf(HWND form, int last) {
  GUITHREADINFO info = {};
  info.cbSize = sizeof info;
  if (!GetGUIThreadInfo(driver.thread, &info) || info.hwndActive != form) return last;
  if (!info.hwndFocus || info.hwndFocus == form) return 0;
  if (hasStyle(info.hwndFocus, WS_DISABLED) || !hasStyle(info.hwndFocus, WS_VISIBLE)) return 0;  // a focus of no use
  return idOf(info.hwndFocus);
}

FormView lookAt(HWND window, int lastFocus) {
  FormView view = {};
  view.window = window;
  view.title = textOf(window);
  view.focus = focusOf(window, lastFocus);
  for (HWND child : childrenOf(window)) {
    if (const int id = idOf(child)) view.controls.emplace_back(id, lookAtControl(child));
  }
  return view;
}

// One more "key":value.
void add(std::string& pieces, const std::string& key, const std::string& value) {
  if (!pieces.empty()) pieces += ',';
  pieces += '"' + key + "\":" + value;
}

std::string listOf(const std::vector<std::wstring>& items) {
  std::string out;
  for (const std::wstring& item : items) out += (out.empty() ? "" : ",") + json(item);
  return '[' + out + ']';
}

std::string differences(const ControlView& now, const ControlView* before) {
  std::string pieces;
  if (now.kind != Kind::list && (!before || now.text != before->text)) add(pieces, "text", json(now.text));
  if (!before || now.enabled != before->enabled) add(pieces, "enabled", truth(now.enabled));
  if (!before || now.visible != before->visible) add(pieces, "visible", truth(now.visible));
  const bool checkable = now.kind == Kind::radio || now.kind == Kind::check;
  if (checkable && (!before || now.checked != before->checked)) add(pieces, "checked", truth(now.checked));
  if (now.kind == Kind::list) {
    if (!before || now.items != before->items) add(pieces, "items", listOf(now.items));
    if (!before || now.selected != before->selected) add(pieces, "selected", now.selected ? json(*now.selected) : "null");
  }
  return pieces;
}

const ControlView* find(const FormView* view, int id) {
  if (!view) return nullptr;
  for (const auto& [key, control] : view->controls) {
    if (key == id) return &control;
  }
  return nullptr;
}

void writeForm(const Tool* tool, HWND window, bool whole) {
  const auto known = driver.shown.find(tool);
  const FormView* before = known == driver.shown.end() || whole ? nullptr : &known->second;
  const FormView now = lookAt(window, known == driver.shown.end() ? 0 : known->second.focus);
  std::string pieces;
  if (!before || now.title != before->title) add(pieces, "title", json(now.title));
  if (!before || now.focus != before->focus) add(pieces, "focus", now.focus ? std::to_string(now.focus) : "null");
  std::string controls;
  for (const auto& [id, control] : now.controls) {
    const std::string different = differences(control, find(before, id));
    if (!different.empty()) add(controls, std::to_string(id), '{' + different + '}');
  }
  if (!before || !controls.empty()) add(pieces, "controls", '{' + controls + '}');
  if (!pieces.empty()) write("{\"changed\":{\"form\":" + json(tool->form) + ',' + pieces + "}}");
  driver.shown[tool] = now;
}

// Opened and closed forms, and the buttons of the toolbar.
void writeOpenAndClosed() {
  std::map<const Tool*, HWND> open;
  for (HWND window : topWindows()) {
    if (const Tool* tool = formOf(window)) open[tool] = window;
  }
  for (const Tool& tool : tools) {
    const bool wasOpen = driver.open.count(&tool) > 0;
    if (!wasOpen && open.count(&tool)) {
      write("{\"opened\":" + json(tool.form) + "}");
      driver.order.push_back(&tool);
    }
    if (wasOpen && !open.count(&tool)) {
      write("{\"closed\":" + json(tool.form) + "}");
      std::erase(driver.order, &tool);
      driver.shown.erase(&tool);
    }
  }
  driver.open = open;
}

bool isChecked(const Tool& tool) { return ask(driver.toolbar, TB_ISBUTTONCHECKED, static_cast<WPARAM>(tool.id)) != 0; }

void writeTools() {
  for (const Tool& tool : tools) {
    const bool checked = isChecked(tool);
    if (checked == (driver.checked.count(&tool) > 0)) continue;
    write("{\"tools\":{" + json(tool.form) + ":" + truth(checked) + "}}");
    if (checked)
      driver.checked.insert(&tool);
    else
      driver.checked.erase(&tool);
  }
}

void writeChanges() {
  writeOpenAndClosed();
  for (const Tool& tool : tools) {
    const auto open = driver.open.find(&tool);
    if (open != driver.open.end()) writeForm(&tool, open->second, false);
  }
}

// ---- Boxes -------------------------------------------------------------------------------------------------------------

// A square picture as it stands on the screen, or as it would stand on the ground colour.
using Pixels = std::vector<COLORREF>;

// What `draw` puts onto a square of this size.
template <class Draw>
Pixels pixelsOf(int size, Draw draw) {
  BITMAPINFO info = {};
  info.bmiHeader.biSize = sizeof info.bmiHeader;
  info.bmiHeader.biWidth = size;
  info.bmiHeader.biHeight = -size;
  info.bmiHeader.biPlanes = 1;
  info.bmiHeader.biBitCount = 32;
  const HDC screen = GetDC(nullptr);
  const HDC memory = CreateCompatibleDC(screen);
  void* bits = nullptr;
  const HBITMAP bitmap = CreateDIBSection(memory, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
  const HGDIOBJ before = SelectObject(memory, bitmap);
  draw(memory, screen);
  GdiFlush();
  Pixels pixels(static_cast<COLORREF*>(bits), static_cast<COLORREF*>(bits) + size * size);
  for (COLORREF& pixel : pixels) pixel &= 0x00FFFFFF;
  SelectObject(memory, before);
  DeleteObject(bitmap);
  DeleteDC(memory);
  ReleaseDC(nullptr, screen);
  return pixels;
}

Pixels pixelsOnScreen(int x, int y, int size) {
  return pixelsOf(size, [=](HDC memory, HDC screen) { BitBlt(memory, 0, 0, size, size, screen, x, y, SRCCOPY); });
}

Pixels pixelsOfIcon(const wchar_t* icon, int size, COLORREF ground) {
  return pixelsOf(size, [=](HDC memory, HDC) {
    const RECT area = {0, 0, size, size};
    const HBRUSH brush = CreateSolidBrush(RGB((ground >> 16) & 0xFF, (ground >> 8) & 0xFF, ground & 0xFF));
    FillRect(memory, &area, brush);
    DeleteObject(brush);
    DrawIconEx(memory, 0, 0, LoadIconW(nullptr, icon), size, size, 0, nullptr, DI_NORMAL);
  });
}

std::size_t distance(const Pixels& one, const Pixels& other) {
  std::size_t different = 0;
  for (std::size_t i = 0; i < one.size(); ++i) different += one[i] != other[i];
  return different;
}

// Told by its picture on the screen: a box keeps no other trace of it that another process may read.
const char* iconOnScreen(HWND picture) {
  const std::pair<const wchar_t*, const char*> icons[] = {
      {IDI_INFORMATION, "information"}, {IDI_EXCLAMATION, "exclamation"}, {IDI_ERROR, "error"}, {IDI_QUESTION, "question"}};
  RECT area = {};
  GetWindowRect(picture, &area);
  const int size = std::min<int>(area.right - area.left, area.bottom - area.top);
  const Pixels seen = pixelsOnScreen(area.left, area.top, size);
  for (const auto& [icon, name] : icons) {
    if (distance(seen, pixelsOfIcon(icon, size, seen[0])) * 20 < seen.size()) return name;
  }
  return nullptr;
}

const char* iconOf(HWND box) {
  for (HWND child : childrenOf(box)) {
    if (classOf(child) != L"Static" || (GetWindowLongPtrW(child, GWL_STYLE) & SS_TYPEMASK) != SS_ICON) continue;
    if (!IsWindowVisible(child)) continue;
    const char* name = nullptr;
    waitFor("the icon of a box to be drawn", commandDeadline, [&] { return (name = iconOnScreen(child)) != nullptr; });
    return name;
  }
  return "none";
}

std::wstring wordsOf(HWND box) {
  for (HWND child : childrenOf(box)) {
    if (classOf(child) == L"Static" && (GetWindowLongPtrW(child, GWL_STYLE) & SS_TYPEMASK) != SS_ICON) return textOf(child);
  }
  return {};
}

void pressAndWait(HWND dialog, int button) {
  PostMessageW(GetDlgItem(dialog, button), BM_CLICK, 0, 0);
  waitFor("a box to go", commandDeadline, [&] { return !IsWindow(dialog) || !IsWindowVisible(dialog); });
}

const char* nameOfButton(int id) {
  switch (id) {
    case IDOK:
      return "ok";
    case IDYES:
      return "yes";
    case IDNO:
      return "no";
    default:
      return "unknown";
  }
}

// A run blocks the whole program until its box is answered: nothing but the box may take input.
void expectBlocked(HWND dialog) {
  for (HWND window : topWindows()) {
    const bool ours = window == driver.mainWindow || formOf(window);
    if (ours && window != dialog && IsWindowEnabled(window)) {
      std::fprintf(stderr, "driver: \"%s\" takes input while \"%s\" is open\n", narrow(textOf(window)).c_str(),
                   narrow(textOf(dialog)).c_str());
    }
  }
}

void answerBox(HWND box) {
  expectBlocked(box);
  std::vector<int> buttons;
  int standard = 0;
  for (HWND child : childrenOf(box)) {
    if (kindOf(child) != Kind::button || !IsWindowVisible(child)) continue;
    buttons.push_back(idOf(child));
    if ((GetWindowLongPtrW(child, GWL_STYLE) & BS_TYPEMASK) == BS_DEFPUSHBUTTON) standard = idOf(child);
  }
  std::sort(buttons.begin(), buttons.end());
  const bool choice = buttons == std::vector<int>{IDYES, IDNO};
  if (!choice && buttons != std::vector<int>{IDOK}) stuck("a box with buttons that the program uses");

  int answer = standard;
  if (choice && !driver.answers.empty()) {
    answer = driver.answers.front() ? IDYES : IDNO;
    driver.answers.pop_front();
  }
  writeChanges();
  std::string pieces;
  add(pieces, "title", json(textOf(box)));
  add(pieces, "text", json(wordsOf(box)));
  add(pieces, "icon", std::string("\"") + iconOf(box) + '"');
  add(pieces, "buttons", choice ? "\"yesno\"" : "\"ok\"");
  add(pieces, "default", std::string("\"") + nameOfButton(standard) + '"');
  add(pieces, "answer", std::string("\"") + nameOfButton(answer) + '"');
  write("{\"box\":{" + pieces + "}}");
  pressAndWait(box, answer);
}

// ---- The open-file dialog ----------------------------------------------------------------------------------------------

// Memory of the program's own, for messages whose answer is written through a pointer.
struct RemoteMemory {
  explicit RemoteMemory(std::size_t size)
      : address(VirtualAllocEx(driver.process, nullptr, size, MEM_RESERVE | MEM_COMMIT, PAGE_READWRITE)) {}
  ~RemoteMemory() { VirtualFreeEx(driver.process, address, 0, MEM_RELEASE); }
  RemoteMemory(const RemoteMemory&) = delete;
  RemoteMemory& operator=(const RemoteMemory&) = delete;
  void read(void* into, std::size_t size) const { ReadProcessMemory(driver.process, address, into, size, nullptr); }
  void* address;
};

std::wstring currentFolder() {
  wchar_t folder[MAX_PATH] = {};
  GetCurrentDirectoryW(MAX_PATH, folder);
  return folder;
}

// As seen from the current folder, which the program shares.
std::wstring folderOf(HWND dialog) {
  std::array<wchar_t, MAX_PATH> path = {};
  const RemoteMemory memory(sizeof path);
  ask(dialog, CDM_GETFOLDERPATH, path.size(), reinterpret_cast<LPARAM>(memory.address));
  memory.read(path.data(), sizeof path);
  const std::wstring folder = path.data();
  const std::wstring current = currentFolder();
  if (folder == current) return L".";
  if (folder.starts_with(current + L'\\')) return folder.substr(current.size() + 1);
  return folder;
}

std::wstring withoutFolder(const std::wstring& path) { return path.substr(path.find_last_of(L"/\\") + 1); }

// Typed as a user types it who knows where the file is. False where the dialog refuses it and stays.
bool enterFile(HWND dialog, const std::wstring& file) {
  std::wstring path = file;
  std::replace(path.begin(), path.end(), L'/', L'\\');
  const bool whole = path.size() > 1 && (path[1] == L':' || path[0] == L'\\');
  if (!whole) path = currentFolder() + L'\\' + path;
  HWND name = GetDlgItem(dialog, edt1);
  if (!name) name = GetDlgItem(dialog, cmb13);
  ask(name, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(path.c_str()));
  PostMessageW(GetDlgItem(dialog, IDOK), BM_CLICK, 0, 0);
  HWND complaint = nullptr;
  waitFor("the open-file dialog to take a file", commandDeadline, [&] {
    if (!IsWindow(dialog)) return true;
    for (HWND window : topWindows()) {
      if (window != dialog && GetWindow(window, GW_OWNER) == dialog && classOf(window) == L"#32770") complaint = window;
    }
    return complaint != nullptr;
  });
  if (!complaint) return true;
  pressAndWait(complaint, GetDlgItem(complaint, IDOK) ? IDOK : IDCANCEL);
  return false;
}

void answerFiles(HWND dialog) {
  expectBlocked(dialog);
  std::optional<std::wstring> answer;
  if (!driver.files.empty()) {
    answer = driver.files.front();
    driver.files.pop_front();
  }
  writeChanges();
  std::string pieces;
  add(pieces, "title", json(textOf(dialog)));
  add(pieces, "folder", json(folderOf(dialog)));
  const HWND list = GetDlgItem(dialog, cmb1);
  std::string masks;
  for (LRESULT i = 0; i < ask(list, CB_GETCOUNT); ++i) masks += (masks.empty() ? "[" : ",[") + json(itemOf(list, i)) + "]";
  add(pieces, "masks", '[' + masks + ']');
  add(pieces, "selected", std::to_string(ask(list, CB_GETCURSEL) + 1));
  const bool taken = answer && enterFile(dialog, *answer);
  if (!taken) pressAndWait(dialog, IDCANCEL);
  add(pieces, "answer", taken ? json(withoutFolder(*answer)) : "null");
  write("{\"files\":{" + pieces + "}}");
}

void answerDialog(HWND dialog) {
  if (isFileDialog(dialog))
    answerFiles(dialog);
  else
    answerBox(dialog);
}

// ---- Carrying out ------------------------------------------------------------------------------------------------------

using Action = std::function<void()>;

DWORD WINAPI runAction(void* action) {
  (*static_cast<Action*>(action))();
  return 0;
}

// Until the action has come back, and with it everything that the program did on its word.
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

void clickMiddle(HWND window) {
  RECT area = {};
  GetClientRect(window, &area);
  clickAt(window, area.right / 2, area.bottom / 2);
}

const Tool* toolNamed(const std::wstring& form) {
  for (const Tool& tool : tools) {
    if (tool.form == form) return &tool;
  }
  return nullptr;
}

// The middle of a tool's button, on the toolbar.
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

HWND shownTooltip() {
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

void sendKey(WORD code, bool up) {
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
    const Tool* tool = nullptr;
    for (const Tool& candidate : tools) {
      if (candidate.id == key.tool) tool = &candidate;
    }
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

// The form that the commands go to; null, and refused, where none is open.
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
HWND reach(int id, std::optional<Kind> kind = {}, const wchar_t* otherwise = nullptr) {
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

void type(int id, const std::wstring& text) {
  const HWND control = reach(id, Kind::edit, L" is no edit");
  if (!control) return;
  if (hasStyle(control, ES_READONLY)) return refuse(std::to_wstring(id) + L" is read-only");
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

void tellOfFrame() {
  std::string pieces;
  RECT bar = {};
  GetWindowRect(driver.toolbar, &bar);
  const LRESULT buttonSize = ask(driver.toolbar, TB_GETBUTTONSIZE);
  add(pieces, "title", json(textOf(driver.mainWindow)));
  add(pieces, "maximised", truth(IsZoomed(driver.mainWindow)));
  add(pieces, "menu", truth(GetMenu(driver.mainWindow) != nullptr));
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

void quit() {
  carryOut([] { send(driver.mainWindow, WM_SYSCOMMAND, SC_CLOSE, 0); });
  waitFor("the program to end", commandDeadline, programIsOver);
  driver.over = true;
}

void askRunner(const std::string& wish) {
  write("?" + wish);
  for (int c = std::getchar(); c != '\n'; c = std::getchar()) {
    if (c == EOF) stuck("an answer to a wish");
  }
}

// ---- Scripts -----------------------------------------------------------------------------------------------------------

std::optional<int> numberOf(const std::string& text) {
  if (text.empty() || text.size() > 9 || text.find_first_not_of("0123456789") != std::string::npos) return std::nullopt;
  return std::stoi(text);
}

std::pair<std::string, std::string> splitAtBlank(const std::string& text) {
  const std::size_t blank = text.find(' ');
  if (blank == std::string::npos) return {text, {}};
  return {text.substr(0, blank), text.substr(blank + 1)};
}

[[noreturn]] void giveUp(int status, const std::string& line, const char* reason) {
  std::fprintf(stderr, "driver: %s: %s\n", reason, line.c_str());
  if (driver.process) TerminateProcess(driver.process, static_cast<UINT>(status));
  ExitProcess(static_cast<UINT>(status));
}

void arrange(const std::string& line) {
  const auto [word, argument] = splitAtBlank(line);
  if (word == "choose")
    driver.files.push_back(argument.empty() ? std::nullopt : std::optional(widen(argument)));
  else if (word == "answer" && (argument == "yes" || argument == "no"))
    driver.answers.push_back(argument == "yes");
  else if (word == "printer" && !argument.empty())
    askRunner(line);
  else if (word == "clock")
    return;  // the machine's clock is not the driver's to set
  else if (word == "fail")
    giveUp(statusCannot, line, "a fault cannot be brought about from outside");
  else
    giveUp(statusNoCommand, line, "is no command");
}

void carryOutLine(const std::string& line) {
  const auto [word, argument] = splitAtBlank(line);
  const auto [first, text] = splitAtBlank(argument);
  write("{\"command\":" + json(widen(line)) + "}");
  if (word == "tool")
    pressTool(widen(argument));
  else if (word == "key")
    pressKey(argument);
  else if (word == "form")
    turnTo(widen(argument));
  else if (word == "press" && numberOf(argument))
    press(*numberOf(argument));
  else if (word == "type" && numberOf(first))
    type(*numberOf(first), widen(text));
  else if (word == "pick" && numberOf(first))
    pick(*numberOf(first), widen(text));
  else if (word == "close")
    closeForm();
  else if (word == "quit")
    quit();
  else if (word == "frame")
    tellOfFrame();
  else if (word == "hover")
    hover(widen(argument));
  else if (word == "tab")
    pressTab();
  else if (word == "escape")
    pressEscape();
  else if (word == "mnemonic" && argument.size() == 1)
    pressMnemonic(static_cast<wchar_t>(argument[0]));
  else if (word == "keys")
    typeKeys(widen(argument));
  else if (word == "show") {
    if (const Tool* tool = current()) writeForm(tool, driver.open[tool], true);
  } else
    arrange(line);

  if (driver.over) return;
  writeOpenAndClosed();
  writeTools();
  writeChanges();
}

bool readLine(std::FILE* file, std::string& line) {
  line.clear();
  int c = std::getc(file);
  if (c == EOF) return false;
  for (; c != EOF && c != '\n'; c = std::getc(file)) line += static_cast<char>(c);
  if (line.ends_with('\r')) line.pop_back();
  return true;
}

// False where the program ends without a window, as a second copy does.
bool startProgram(const wchar_t* program) {
  std::wstring commandLine = L'"' + std::wstring(program) + L'"';
  STARTUPINFOW startup = {};
  startup.cb = sizeof startup;
  PROCESS_INFORMATION made = {};
  if (!CreateProcessW(nullptr, commandLine.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup, &made)) {
    giveUp(statusStuck, narrow(program), "cannot be started");
  }
  CloseHandle(made.hThread);
  driver.process = made.hProcess;
  driver.processId = made.dwProcessId;
  driver.thread = made.dwThreadId;
  waitFor("the main window", startDeadline, [] {
    if (const HWND box = dialogThatAsks()) answerBox(box);
    for (HWND window : topWindows()) {
      if (classOf(window) == L"PrntWndClass") driver.mainWindow = window;
    }
    return driver.mainWindow || programIsOver();
  });
  if (!driver.mainWindow) return false;
  driver.toolbar = FindWindowExW(driver.mainWindow, nullptr, TOOLBARCLASSNAMEW, nullptr);
  ask(driver.mainWindow, WM_NULL);
  return true;
}

void writeExit() {
  for (const Tool& tool : tools) {
    if (driver.open.count(&tool)) write("{\"closed\":" + json(tool.form) + "}");
  }
  DWORD status = 0;
  GetExitCodeProcess(driver.process, &status);
  write("{\"exit\":" + std::to_string(status) + "}");
}

}  // namespace

int wmain(int count, wchar_t** arguments) {
  int next = 1;
  const bool leave = next < count && std::wstring_view(arguments[next]) == L"--leave";
  if (leave) ++next;
  if (next >= count) giveUp(statusNoCommand, "quillon-driver", "which program?");
  const wchar_t* program = arguments[next++];
  std::FILE* script = next < count ? _wfopen(arguments[next], L"rb") : stdin;
  if (!script) giveUp(statusNoCommand, narrow(arguments[next]), "cannot be read");
  if (startProgram(program)) {
    std::string line;
    while (!driver.over && readLine(script, line)) {
      if (line.find_first_not_of(" \t") == std::string::npos || line.starts_with('#')) continue;
      carryOutLine(line);
    }
    if (!driver.over && leave) return 0;
    if (!driver.over) quit();
  }
  writeExit();
  return 0;
}
