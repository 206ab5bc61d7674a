// Works quillon.exe from outside, as a user at the screen does, and writes what that user sees.
//
//   quillon-driver.exe [--leave] [--keep-mutex] [--stdout FILE] QUILLON.EXE [SCRIPT]
//   quillon-driver.exe --hold
//
// in the folder in which the program is to run.
//
// With --leave the program stays open at the end of the commands; otherwise its main window is closed then. With --keep-mutex
// the mark of a running copy is there before the program starts, and nobody may open it, as when a copy with more rights runs.
// With --stdout the program has the file as its standard output; otherwise it has none, as when a user starts it.
//
// With --hold no program is worked: the desktop is held up for those that follow, from the line that is written until standard
// input ends.
//
// It takes the same commands as quillon-script and writes the same JSON lines, as far as they can be seen from outside (what
// cannot is listed in run_wine.py, which compares the two). Windows are found by class and process, controls by id; the
// program itself knows nothing of this.
//
// Beyond those it knows a few commands for what only Windows has: "frame" tells of the main window and its toolbar, "dpi
// 144" moves it to a screen of so many dots an inch, "hover
// FORM" of the tooltip of a tool, "tab" and "escape" press these keys on the form, "mnemonic P" presses Alt+P there, "keys
// TEXT" types a text one character after the other where the caret stands ('<' is the backspace key), "paste TEXT" pastes it
// there. "interrupt" stands before a command: at the first box or dialog that comes, every window of the program gets a close
// message, and the program is asked whether the session may end.
//
// A command is carried out on a thread of its own, by messages that come back only when the program has handled them: so its
// end is known, and no time has to be guessed. Until then this thread watches for boxes and dialogs and answers them.
//
// Its jobs: program.h (the process and its windows), tools.h (which window is which form), views.h (what stands on the forms),
// dialogs.h (boxes and open-file dialogs), pictures.h (icons on the screen), user.h (what a user does), and here the script.
//
// What it cannot do itself it asks of whoever started it: "?printer NAME" on standard output, then a line on standard input.

#include <cstdio>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "dialogs.h"
#include "program.h"
#include "texts.h"
#include "user.h"
#include "views.h"

namespace driving {

static void askRunner(const std::string& wish) {
  write("?" + wish);
  for (int c = std::getchar(); c != '\n'; c = std::getchar()) {
    if (c == EOF) stuck("an answer to a wish");
  }
}

// ---- Scripts -----------------------------------------------------------------------------------------------------------

static std::optional<int> numberOf(const std::string& text) {
  if (text.empty() || text.size() > 9 || text.find_first_not_of("0123456789") != std::string::npos) return std::nullopt;
  return std::stoi(text);
}

static std::pair<std::string, std::string> splitAtBlank(const std::string& text) {
  const std::size_t blank = text.find(' ');
  if (blank == std::string::npos) return {text, {}};
  return {text.substr(0, blank), text.substr(blank + 1)};
}

static void arrange(const std::string& line) {
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
  else if (word == "interrupt")
    driver.interrupts = true;
  else
    giveUp(statusNoCommand, line, "is no command");
}

static void carryOutLine(const std::string& line) {
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
  else if (word == "enter")
    pressEnter();
  else if (word == "close")
    closeForm();
  else if (word == "quit")
    quit();
  else if (word == "frame")
    tellOfFrame();
  else if (word == "dpi" && numberOf(argument))
    moveToScreen(*numberOf(argument));
  else if (word == "session")
    askForSessionEnd();
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
  else if (word == "paste")
    paste(widen(argument));
  else if (word == "show") {
    if (const Tool* tool = current()) writeForm(tool, driver.open[tool], true);
  } else
    arrange(line);

  if (driver.over) return;
  writeOpenAndClosed();
  writeTools();
  writeChanges();
}

static bool readLine(std::FILE* file, std::string& line) {
  line.clear();
  int c = std::getc(file);
  if (c == EOF) return false;
  for (; c != EOF && c != '\n'; c = std::getc(file)) line += static_cast<char>(c);
  if (line.ends_with('\r')) line.pop_back();
  return true;
}

// A desktop stays up as long as a program that has windows, or may have, is there.
static void holdDesktop() {
  GetDesktopWindow();
  write("{\"held\":true}");
  while (std::getchar() != EOF) {
  }
}

}  // namespace driving

using namespace driving;

int wmain(int count, wchar_t** arguments) {
  int next = 1;
  const auto isNext = [&](std::wstring_view option) {
    const bool found = next < count && arguments[next] == option;
    if (found) ++next;
    return found;
  };
  if (isNext(L"--hold")) {
    holdDesktop();
    return 0;
  }
  const bool leave = isNext(L"--leave");
  if (isNext(L"--keep-mutex")) keepMutex();
  const wchar_t* const output = isNext(L"--stdout") && next < count ? arguments[next++] : nullptr;
  if (next >= count) giveUp(statusNoCommand, "quillon-driver", "which program?");
  const wchar_t* program = arguments[next++];
  std::FILE* script = next < count ? _wfopen(arguments[next], L"rb") : stdin;
  if (!script) giveUp(statusNoCommand, narrow(arguments[next]), "cannot be read");
  markFolders();
  if (startProgram(program, output)) {
    std::string line;
    while (!driver.over && readLine(script, line)) {
      if (line.find_first_not_of(" \t") == std::string::npos || line.starts_with('#')) continue;
      carryOutLine(line);
    }
    if (!driver.over && !leave) quit();
  }
  unmarkFolders();
  if (!programIsOver()) return 0;  // it was to stay
  writeExit();
  return 0;
}
