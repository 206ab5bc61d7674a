#include "program.h"

#include <algorithm>
#include <cstdio>
#include <iterator>

#include "dialogs.h"
#include "texts.h"

namespace driving {

Driver driver;

[[noreturn]] void stuck(const char* waitingFor) {
  std::fprintf(stderr, "driver: waited in vain for %s\n", waitingFor);
  TerminateProcess(driver.process, statusStuck);
  unmarkFolders();
  ExitProcess(statusStuck);
}

bool programIsOver() { return WaitForSingleObject(driver.process, 0) == WAIT_OBJECT_0; }

[[noreturn]] void giveUp(int status, const std::string& line, const char* reason) {
  std::fprintf(stderr, "driver: %s: %s\n", reason, line.c_str());
  if (driver.process) TerminateProcess(driver.process, static_cast<UINT>(status));
  unmarkFolders();
  ExitProcess(static_cast<UINT>(status));
}

// ---- Windows of the program --------------------------------------------------------------------------------------------

LRESULT ask(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  DWORD_PTR answer = 0;
  if (!SendMessageTimeoutW(window, message, wParam, lParam, SMTO_NORMAL, commandDeadline, &answer)) return 0;
  return static_cast<LRESULT>(answer);
}

std::wstring textOf(HWND window) {
  constexpr std::size_t most = 512;  // of texts as they come; each question costs a way to the program and back
  std::wstring text(most, L'\0');
  text.resize(static_cast<std::size_t>(ask(window, WM_GETTEXT, most, reinterpret_cast<LPARAM>(text.data()))));
  if (text.size() + 1 < most) return text;
  text.resize(static_cast<std::size_t>(ask(window, WM_GETTEXTLENGTH)) + 1);
  text.resize(static_cast<std::size_t>(ask(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()))));
  return text;
}

std::wstring classOf(HWND window) {
  wchar_t name[64] = {};
  GetClassNameW(window, name, static_cast<int>(std::size(name)));
  return name;
}

bool hasStyle(HWND window, LONG_PTR style) { return (GetWindowLongPtrW(window, GWL_STYLE) & style) == style; }

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

// Control ids are 16 bits in a window's own terms: -1 is a label or a frame that nobody asks for.
int idOf(HWND control) {
  const int id = GetDlgCtrlID(control) & 0xFFFF;
  return id == 0xFFFF ? 0 : id;
}

static bool isKnownForm(HWND window) {
  return std::any_of(driver.open.begin(), driver.open.end(), [window](const auto& open) { return open.second == window; });
}

// A form on its way out has lost its controls already, and is known by its window alone.
HWND dialogThatAsks() {
  for (HWND window : topWindows()) {
    if (classOf(window) != L"#32770" || isKnownForm(window) || formOf(window) || !IsWindowEnabled(window)) continue;
    return window;
  }
  return nullptr;
}

// ---- From its start to its end -----------------------------------------------------------------------------------------

void keepMutex() {
  ACL nobody = {};
  InitializeAcl(&nobody, sizeof nobody, ACL_REVISION);
  SECURITY_DESCRIPTOR descriptor = {};
  InitializeSecurityDescriptor(&descriptor, SECURITY_DESCRIPTOR_REVISION);
  SetSecurityDescriptorDacl(&descriptor, TRUE, &nobody, FALSE);
  SECURITY_ATTRIBUTES attributes = {.nLength = sizeof attributes, .lpSecurityDescriptor = &descriptor, .bInheritHandle = FALSE};
  if (!CreateMutexW(&attributes, TRUE, L"QuillonMutex")) giveUp(statusCannot, "QuillonMutex", "cannot be made");
}

void findToolbar() { driver.toolbar = FindWindowExW(driver.mainWindow, nullptr, TOOLBARCLASSNAMEW, nullptr); }

static HANDLE outputFile(const wchar_t* name) {
  if (!name) return nullptr;
  SECURITY_ATTRIBUTES inherited = {.nLength = sizeof inherited, .lpSecurityDescriptor = nullptr, .bInheritHandle = TRUE};
  const HANDLE file =
      CreateFileW(name, GENERIC_WRITE, FILE_SHARE_READ, &inherited, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (file == INVALID_HANDLE_VALUE) giveUp(statusCannot, narrow(name), "cannot be made");
  return file;
}

bool startProgram(const wchar_t* program, const wchar_t* output) {
  learnForms(program);
  std::wstring commandLine = L'"' + std::wstring(program) + L'"';
  STARTUPINFOW startup = {};
  startup.cb = sizeof startup;
  startup.dwFlags = STARTF_USESTDHANDLES;
  startup.hStdOutput = outputFile(output);
  PROCESS_INFORMATION made = {};
  if (!CreateProcessW(nullptr, commandLine.data(), nullptr, nullptr, output != nullptr, 0, nullptr, nullptr, &startup, &made)) {
    giveUp(statusStuck, narrow(program), "cannot be started");
  }
  CloseHandle(made.hThread);
  if (output) CloseHandle(startup.hStdOutput);
  driver.program = program;
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
  findToolbar();
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

}  // namespace driving
