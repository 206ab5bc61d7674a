#include "unattended/process.h"

#include "unattended/print_output.h"

#ifdef _WIN32
#include <process.h>
#include <stdlib.h>
#else
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#endif

namespace quillon {

#ifdef _WIN32

// As Windows programs take their command lines apart: an argument in quotes, backslashes doubled before a quote.
static std::wstring inQuotes(const std::wstring& argument) {
  std::wstring quoted = L"\"";
  std::size_t backslashes = 0;
  for (const wchar_t c : argument) {
    if (c == L'"') quoted.append(backslashes + 1, L'\\');
    backslashes = c == L'\\' ? backslashes + 1 : 0;
    quoted += c;
  }
  return quoted.append(backslashes, L'\\') + L"\"";
}

ProcessHandle processStart(const std::vector<std::string>& arguments) {
  const wchar_t* const program = _wpgmptr;
  if (!program) return noProcess;
  std::vector<std::wstring> words = {inQuotes(program)};
  for (const std::string& argument : arguments) words.push_back(inQuotes(systemPath(argument).wstring()));
  std::vector<const wchar_t*> pointers;
  for (const std::wstring& word : words) pointers.push_back(word.c_str());
  pointers.push_back(nullptr);
  return _wspawnv(_P_NOWAIT, program, pointers.data());
}

int processWait(ProcessHandle process) {
  int status = -1;
  return _cwait(&status, process, 0) < 0 ? -1 : status;
}

#else

static constexpr char thisProgram[] = "/proc/self/exe";

ProcessHandle processStart(const std::vector<std::string>& arguments) {
  std::vector<std::string> words = {"quillon-print"};
  words.insert(words.end(), arguments.begin(), arguments.end());
  std::vector<char*> pointers;
  pointers.reserve(words.size() + 1);
  for (std::string& word : words) pointers.push_back(word.data());
  pointers.push_back(nullptr);
  pid_t process = 0;
  return posix_spawn(&process, thisProgram, nullptr, nullptr, pointers.data(), environ) == 0 ? process : noProcess;
}

int processWait(ProcessHandle process) {
  int status = 0;
  while (waitpid(static_cast<pid_t>(process), &status, 0) < 0) {
    if (errno != EINTR) return -1;
  }
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

#endif

}  // namespace quillon
