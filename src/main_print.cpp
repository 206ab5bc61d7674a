// quillon-print: a form's report, or a day's folder of them, in one line and without a screen.

#include <cstdio>
#include <string>
#include <vector>

#ifdef _WIN32
#include <fcntl.h>
#include <io.h>

#include <filesystem>
#else
#include <fcntl.h>
#include <unistd.h>

#include <csignal>
#endif

#include "unattended/print_all.h"
#include "unattended/print_call.h"
#include "unattended/print_run.h"

static int carryOut(const std::vector<std::string>& arguments) {
  const quillon::PrintCall call = quillon::printCall(arguments);
  switch (call.action) {
    case quillon::PrintAction::report:
      return quillon::printRun(call);
    case quillon::PrintAction::all:
      return quillon::printAll(call);
    case quillon::PrintAction::formHelp:
      return quillon::printFormHelp(call);
    case quillon::PrintAction::help:
      std::fputs(quillon::printHelp().c_str(), stdout);
      return quillon::printDone;
    case quillon::PrintAction::version:
      std::puts("quillon-print " QUILLON_VERSION);
      return quillon::printDone;
    case quillon::PrintAction::wrongCall:
      break;
  }
  std::fprintf(stderr, "quillon-print: %s\nquillon-print --help tells how it is called.\n", call.problem.c_str());
  return quillon::printWrongCall;
}

#ifdef _WIN32
int wmain(int argc, wchar_t** argv) {
  _setmode(_fileno(stdout), _O_BINARY);
  _setmode(_fileno(stderr), _O_BINARY);
  std::vector<std::string> arguments;
  for (int i = 1; i < argc; ++i) {
    const std::u8string text = std::filesystem::path(argv[i]).u8string();
    arguments.emplace_back(text.begin(), text.end());
  }
  return carryOut(arguments);
}
#else
// A scheduler may start a program with its streams closed. The first file that is opened would then be standard error, and the
// messages would go into the report.
static void holdStandardStreams() {
  int opened = 0;
  while (opened >= 0 && opened <= 2) opened = open("/dev/null", O_RDWR);
  if (opened > 2) (void)close(opened);
}

int main(int argc, char** argv) {
  holdStandardStreams();
  // Nobody may read what is told any more; the reports are made all the same.
  (void)std::signal(SIGPIPE, SIG_IGN);
  return carryOut(std::vector<std::string>(argv + (argc > 0 ? 1 : 0), argv + argc));
}
#endif
