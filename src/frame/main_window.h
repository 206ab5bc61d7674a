// The main window: start-up, the toolbar, and shut-down.
#pragma once

#include <span>

#include "frame/tools.h"

namespace quillon {

// Runs the program from its start to its end and gives its exit code. A second copy ends here with 0, without a window and
// without a word: the window class is registered only by the copy that made the mutex.
int frameRun(std::span<const FormEntry> forms);

}  // namespace quillon
