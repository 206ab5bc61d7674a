// The program that is worked: its process, its windows, and what has been seen of it.
#pragma once

#include <deque>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "system.h"
#include "tools.h"
#include "views.h"

namespace driving {

inline constexpr int statusNoCommand = 2;
inline constexpr int statusCannot = 3;  // a command that nobody can carry out from outside
inline constexpr int statusStuck = 4;   // the program, or the screen, did not do what was waited for
inline constexpr DWORD startDeadline = 60'000;
inline constexpr DWORD commandDeadline = 60'000;
inline constexpr DWORD pollStep = 5;

struct Driver {
  std::wstring program;
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
  bool interrupts;  // at the next dialog the windows get a close message
  bool over;
};
extern Driver driver;

// Makes the mark of a running copy, for the length of this driver, so that nobody may open it.
void keepMutex();
// With the file `output`, made anew, as its standard output; null: it has none. False where the program ends without a window, as
// a second copy does.
bool startProgram(const wchar_t* program, const wchar_t* output);
void findToolbar();
bool programIsOver();
void writeExit();

[[noreturn]] void giveUp(int status, const std::string& line, const char* reason);
[[noreturn]] void stuck(const char* waitingFor);

template <class Condition>
void waitFor(const char* what, DWORD deadline, Condition condition) {
  const ULONGLONG end = GetTickCount64() + deadline;
  while (!condition()) {
    if (GetTickCount64() > end) stuck(what);
    WaitForSingleObject(driver.process, pollStep);
  }
}

// Memory of the program's own, for messages whose answer is written through a pointer.
struct RemoteMemory {
  explicit RemoteMemory(std::size_t size)
      : address(VirtualAllocEx(driver.process, nullptr, size, MEM_RESERVE | MEM_COMMIT, PAGE_READWRITE)) {}
  ~RemoteMemory() { VirtualFreeEx(driver.process, address, 0, MEM_RELEASE); }
  RemoteMemory(const RemoteMemory&) = delete;
  RemoteMemory& operator=(const RemoteMemory&) = delete;
  void read(void* into, std::size_t size) const { ReadProcessMemory(driver.process, address, into, size, nullptr); }
  void write(const void* from, std::size_t size) const { WriteProcessMemory(driver.process, address, from, size, nullptr); }
  void* address;
};

// Answered only when the program has come back to its message handling.
LRESULT ask(HWND window, UINT message, WPARAM wParam = 0, LPARAM lParam = 0);

std::wstring textOf(HWND window);
std::wstring classOf(HWND window);
bool hasStyle(HWND window, LONG_PTR style);
int idOf(HWND control);          // 0: a label or a frame that nobody asks for
std::vector<HWND> topWindows();  // the visible ones of the program, the topmost first
std::vector<HWND> childrenOf(HWND window);

// A dialog of the program that is none of its forms: something that waits for an answer.
HWND dialogThatAsks();

}  // namespace driving
