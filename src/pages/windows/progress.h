// Long work on a report: whom it asks, page by page, whether it is to go on; and the small window by which a user ends it.
#pragma once

#include "pages/windows/system.h"

namespace quillon {

// Whom long work asks. Without a function it goes on to its end.
struct Progress {
  bool (*goesOn)(void* who, std::uint64_t done, std::uint64_t all) = nullptr;
  void* who = nullptr;
};

inline bool progressGoesOn(const Progress& progress, std::uint64_t done, std::uint64_t all) {
  return !progress.goesOn || progress.goesOn(progress.who, done, all);
}

// A window with a bar and Cancel. It shows only when the work takes longer than a moment; `owner` takes no input meanwhile.
// It must stay where it is in memory until it is closed.
struct ProgressWindow {
  HWND owner = nullptr;
  HWND window = nullptr;
  bool cancelled = false;
  ULONGLONG started = 0;
  ULONGLONG shown = 0;  // when the bar was last moved
};
void progressOpen(ProgressWindow& progress, HWND owner, const wchar_t* what);  // such as "Printing TRADES.TXT"
// What the work is given. Each question handles the messages that wait.
Progress progressOf(ProgressWindow& progress);
void progressClose(ProgressWindow& progress);

}  // namespace quillon
