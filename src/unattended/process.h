// Another run of this program beside this one: what a form keeps is kept for a whole process, so that every file has one of its
// own.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace quillon {

using ProcessHandle = std::intptr_t;
inline constexpr ProcessHandle noProcess = -1;

// Starts this program with these arguments (UTF-8 on Windows). noProcess where it cannot be started.
ProcessHandle processStart(const std::vector<std::string>& arguments);
// Waits until it ends. Its status; -1 where it came to another end.
int processWait(ProcessHandle process);

}  // namespace quillon
