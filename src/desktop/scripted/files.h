// Files and the printer of the scripted desktop.
#pragma once

#include <cstddef>
#include <filesystem>
#include <string>

#include "desktop/files.h"

namespace quillon {

// The file that takes what is written to the printer; empty: the printer cannot be opened, as at the start.
void filesSetPrinter(const std::string& path);

// Whatever the program writes, to the printer or under any name, goes to this file, made anew at each opening; empty: it goes
// where the program says, as at the start. Of names that take no report and of faults there is no difference.
void filesSetOutput(const std::filesystem::path& path);
bool filesOutputMade();  // an output was opened since filesSetOutput

std::size_t filesOpen();  // streams that nobody has closed yet
// Closes them, and turns the printer off. A stream that the program still knows may be closed later without harm.
void filesReset();

}  // namespace quillon
