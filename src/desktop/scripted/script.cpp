#include "desktop/scripted/script.h"

#include <algorithm>
#include <cstdio>
#include <optional>
#include <utility>

#ifdef _WIN32
#include <fcntl.h>
#include <io.h>
#endif

#include "desktop/scripted/app.h"
#include "desktop/scripted/boxes.h"
#include "desktop/scripted/clock.h"
#include "desktop/scripted/faults.h"
#include "desktop/scripted/files.h"
#include "desktop/scripted/forms.h"
#include "desktop/scripted/json.h"
#include "desktop/scripted/memory.h"
#include "desktop/scripted/open_dialog.h"
#include "desktop/scripted/trace.h"
#include "desktop/scripted/transcript.h"
#include "text/encoding.h"

namespace quillon {

static constexpr int statusNoCommand = 2;

namespace {

// The rest of the line as it stands, after one blank; nothing where the line ends with the command's word.
using Argument = std::optional<std::string_view>;

struct Command {
  const char* word;
  // It arranges what the desktop will do, and needs no window: at the head of a script it is carried out before the program
  // starts, so that even the start can be made to fail.
  bool arranges;
  // False, with nothing done, where the argument is none that the command takes.
  bool (*carryOut)(Argument argument);
};

}  // namespace

static struct {
  std::FILE* file;          // where the commands come from: a file,
  std::string_view memory;  // or the rest of a text
  std::size_t lineNumber;
  std::string line;
  bool pending;     // `line` was read and is not carried out yet
  ScriptUser user;  // instead of commands
  std::string error;
  std::string transcript;  // of a run inside a test
} state;

// ---- Lines -------------------------------------------------------------------------------------------------------------

static bool readFileLine(std::string& line) {
  int c;
  bool any = false;
  while ((c = std::getc(state.file)) != EOF) {
    any = true;
    if (c == '\n') break;
    line += static_cast<char>(c);
  }
  return any;
}

static bool readMemoryLine(std::string& line) {
  if (state.memory.empty()) return false;
  const std::size_t end = state.memory.find('\n');
  line = state.memory.substr(0, end);
  state.memory.remove_prefix(end == std::string_view::npos ? state.memory.size() : end + 1);
  return true;
}

// The next line that is a command's; false at the end of the script, or where it cannot be read, which `error` then tells.
static bool readLine() {
  for (;;) {
    state.line.clear();
    if (!(state.file ? readFileLine(state.line) : readMemoryLine(state.line))) {
      if (state.file && std::ferror(state.file)) state.error = "cannot read the commands";
      return false;
    }
    ++state.lineNumber;
    if (state.line.ends_with('\r')) state.line.pop_back();
    if (state.lineNumber == 1 && state.line.starts_with("\xEF\xBB\xBF")) state.line.erase(0, 3);
    if (state.line.find_first_not_of(" \t") != std::string::npos && !state.line.starts_with('#')) return true;
  }
}

static void splitAtBlank(std::string_view text, std::string_view& first, Argument& rest) {
  const std::size_t blank = text.find(' ');
  first = text.substr(0, blank);
  rest = blank == std::string_view::npos ? Argument() : Argument(text.substr(blank + 1));
}

// Before the effects of the command, and only where it is one.
static void writeCommand() { transcriptWrite("{\"command\":" + jsonOfUtf8(state.line) + "}"); }

static void writeRefusal(const std::string& reason) {
  if (!reason.empty()) transcriptWrite("{\"refused\":" + jsonOfUtf8(reason) + "}");
}

// ---- Arguments ---------------------------------------------------------------------------------------------------------

// A whole number in digits, no larger than any control's id or any count that matters; larger ones are cut there.
static std::optional<int> numberOf(std::string_view text) {
  static constexpr int largest = 100'000'000;
  if (text.empty()) return std::nullopt;
  int number = 0;
  for (char c : text) {
    if (c < '0' || c > '9') return std::nullopt;
    number = std::min(number * 10 + (c - '0'), largest);
  }
  return number;
}

// ---- Commands ----------------------------------------------------------------------------------------------------------

static bool carryOutClock(Argument argument) {
  if (!argument || !clockStop(*argument)) return false;
  writeCommand();
  return true;
}

static bool carryOutPrinter(Argument argument) {
  if (!argument || argument->empty()) return false;
  writeCommand();
  filesSetPrinter(*argument == "off" ? std::string() : std::string(*argument));
  return true;
}

static bool carryOutChoose(Argument argument) {
  writeCommand();
  const bool cancel = !argument || argument->empty();
  openDialogQueueAnswer(cancel ? std::nullopt : std::optional<std::string>(*argument));
  return true;
}

static bool carryOutAnswer(Argument argument) {
  if (argument != "yes" && argument != "no") return false;
  writeCommand();
  boxQueueAnswer(argument == "yes" ? BoxChoice::yes : BoxChoice::no);
  return true;
}

static bool carryOutFail(Argument argument) {
  if (!argument) {
    writeCommand();
    faultsClear();
    return true;
  }
  std::string_view kindName;
  Argument when;
  splitAtBlank(*argument, kindName, when);
  const std::optional<Fault> kind = faultNamed(kindName);
  const bool always = when == "always";
  const std::optional<int> number = when && !always ? numberOf(*when) : 1;
  if (!kind || !number || *number < 1) return false;
  writeCommand();
  faultsArm(*kind, static_cast<std::size_t>(*number), always);
  return true;
}

static bool carryOutTool(Argument argument) {
  if (!argument || argument->empty()) return false;
  writeCommand();
  writeRefusal(appPressTool(*argument));
  return true;
}

static bool carryOutKey(Argument argument) {
  if (!argument || argument->empty()) return false;
  writeCommand();
  writeRefusal(appPressKey(*argument));
  return true;
}

static bool carryOutForm(Argument argument) {
  if (!argument || argument->empty()) return false;
  writeCommand();
  writeRefusal(formsTurnTo(*argument));
  return true;
}

static bool carryOutPress(Argument argument) {
  const std::optional<int> control = argument ? numberOf(*argument) : std::nullopt;
  if (!control) return false;
  writeCommand();
  writeRefusal(formsPress(*control));
  return true;
}

// A control and a text; the text is empty where there is none.
static bool carryOutWithText(Argument argument, std::string (*action)(int control, std::string_view text)) {
  if (!argument) return false;
  std::string_view id;
  Argument text;
  splitAtBlank(*argument, id, text);
  const std::optional<int> control = numberOf(id);
  if (!control) return false;
  writeCommand();
  writeRefusal(action(*control, bytesFromUtf8(text.value_or(""))));
  return true;
}

static bool carryOutType(Argument argument) { return carryOutWithText(argument, formsType); }

static bool carryOutPick(Argument argument) { return carryOutWithText(argument, formsPick); }

static bool carryOutEnter(Argument argument) {
  if (argument) return false;
  writeCommand();
  writeRefusal(formsEnter());
  return true;
}

static bool carryOutClose(Argument argument) {
  if (argument) return false;
  writeCommand();
  writeRefusal(formsClose());
  return true;
}

static bool carryOutShow(Argument argument) {
  if (argument) return false;
  writeCommand();
  writeRefusal(formsShowWhole());
  return true;
}

static bool carryOutQuit(Argument argument) {
  if (argument) return false;
  writeCommand();
  appCloseWindow();
  return true;
}

static constexpr Command commands[] = {
    {"clock", true, carryOutClock},   {"printer", true, carryOutPrinter}, {"choose", true, carryOutChoose},
    {"answer", true, carryOutAnswer}, {"fail", true, carryOutFail},       {"tool", false, carryOutTool},
    {"key", false, carryOutKey},      {"form", false, carryOutForm},      {"press", false, carryOutPress},
    {"type", false, carryOutType},    {"pick", false, carryOutPick},      {"enter", false, carryOutEnter},
    {"close", false, carryOutClose},  {"show", false, carryOutShow},      {"quit", false, carryOutQuit},
};

static const Command* commandNamed(std::string_view word) {
  for (const Command& command : commands) {
    if (word == command.word) return &command;
  }
  return nullptr;
}

// Carries out `line`; false, with the reason kept, where it is no command.
static bool carryOutLine() {
  std::string_view word;
  Argument argument;
  splitAtBlank(state.line, word, argument);
  const Command* command = commandNamed(word);
  if (command && command->carryOut(argument)) {
    formsWriteChanges();
    return true;
  }
  state.error = "line " + std::to_string(state.lineNumber) + " is no command: " + utf8FromEither(state.line);
  return false;
}

bool scriptCommand() {
  if (state.user) {
    std::exchange(state.user, nullptr)();
    if (!appIsOver()) appCloseWindow();
    return true;
  }
  if (!std::exchange(state.pending, false) && !readLine()) {
    if (!state.error.empty()) return false;
    appCloseWindow();
    return true;
  }
  return carryOutLine();
}

// ---- Runs --------------------------------------------------------------------------------------------------------------

// Up to the first command that needs the window, which stays pending.
static void carryOutArrangements() {
  while (state.error.empty() && readLine()) {
    std::string_view word;
    Argument argument;
    splitAtBlank(state.line, word, argument);
    const Command* command = commandNamed(word);
    if (command && !command->arranges) {
      state.pending = true;
      return;
    }
    (void)carryOutLine();
  }
}

static void resetDesktop() {
  transcriptMute(true);
  traceReset();
  formsReset();
  boxesReset();
  openDialogReset();
  clockReset();
  memoryReset();
  filesReset();
  faultsClear();
  appReset();
}

static ScriptResult run(ScriptProgram program, const ScriptOptions& options, TranscriptSink sink) {
  resetDesktop();
  faultsReset();
  transcriptOpen(sink);
  appSetOtherCopy(options.otherCopyRuns);

  ScriptResult result = {};
  carryOutArrangements();
  if (state.error.empty()) result.status = program();
  if (state.error.empty()) {
    transcriptMute(false);
    transcriptWrite("{\"exit\":" + std::to_string(result.status) + "}");
  } else {
    result.status = statusNoCommand;
    result.error = state.error;
  }
  result.blocksHeld = memoryBlocksHeld();
  result.streamsOpen = filesOpen();
  resetDesktop();
  return result;
}

ScriptResult scriptRun(std::string_view commandLines, ScriptProgram program, const ScriptOptions& options) {
  state = {};
  state.memory = commandLines;
  ScriptResult result = run(program, options, [](std::string_view line) { state.transcript += line; });
  result.transcript = std::move(state.transcript);
  state = {};
  return result;
}

ScriptResult scriptRunBy(ScriptUser user, ScriptProgram program) {
  state = {};
  state.user = user;
  ScriptResult result = run(program, {}, nullptr);
  state = {};
  return result;
}

static void writeToStandardOutput(std::string_view line) {
  std::fwrite(line.data(), 1, line.size(), stdout);
  std::fflush(stdout);  // whoever works the program from outside reads along
}

int scriptMain(int argc, char** argv, ScriptProgram program) {
  if (argc > 2) {
    std::fputs("usage: quillon-script [FILE]\n", stderr);
    return statusNoCommand;
  }
#ifdef _WIN32
  _setmode(_fileno(stdout), _O_BINARY);
  _setmode(_fileno(stdin), _O_BINARY);
#endif
  state = {};
  state.file = argc == 2 ? std::fopen(argv[1], "rb") : stdin;
  if (!state.file) {
    std::fprintf(stderr, "quillon-script: cannot read %s\n", argv[1]);
    return statusNoCommand;
  }
  const ScriptResult result = run(program, {}, writeToStandardOutput);
  if (!result.error.empty()) std::fprintf(stderr, "quillon-script: %s\n", result.error.c_str());
  if (state.file != stdin) std::fclose(state.file);
  return result.status;
}

}  // namespace quillon
