// Runs the program on the scripted desktop: commands in, JSON lines out. docs/scripted-desktop.md tells the language.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace quillon {

using ScriptProgram = int (*)();  // gives the program's exit code

// quillon-script [FILE]: commands from the file or from standard input, the transcript to standard output. Gives the exit
// code: the program's own, or 2 where a command is no command or the file cannot be read.
int scriptMain(int argc, char** argv, ScriptProgram program);

struct ScriptOptions {
  bool otherCopyRuns = false;  // another copy of the program holds the single-instance mark
};

struct ScriptResult {
  std::string transcript;
  int status;
  std::string error;        // of a command that is no command; empty otherwise
  std::size_t blocksHeld;   // memory blocks that the program had not freed when it ended
  std::size_t streamsOpen;  // files that it had not closed
};

// The same inside a test: a fresh desktop, the commands one a line, everything taken down afterwards. The counts of faults
// (faults.h) stay readable until the next run.
ScriptResult scriptRun(std::string_view commands, ScriptProgram program, const ScriptOptions& options = {});

// The same for a user that is a function: it is called once, when the program waits for its user, and works the desktop by the
// calls of app.h, forms.h and the others here. The window is closed when it returns. There is no transcript.
using ScriptUser = void (*)();
ScriptResult scriptRunBy(ScriptUser user, ScriptProgram program);

// Carries out the next command, or closes the window where there is none; false where it is no command. Called by appRun.
bool scriptCommand();

}  // namespace quillon
