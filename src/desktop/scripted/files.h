// Files and the printer of the scripted desktop.
#pragma once

#include <cstddef>
#include <string>

#include "desktop/files.h"

namespace quillon {

// The file that takes what is written to the printer; empty: the printer cannot be opened, as at the start.
void filesSetPrinter(const std::string& path);

std::size_t filesOpen();  // streams that nobody has closed yet
// Closes them, and turns the printer off. A stream that the program still knows may be closed later without harm.
void filesReset();

}  // namespace quillon
