// The window of quillon-pages: the reports of a folder beside the pages of one of them.
#pragma once

#include <string>

#include "pages/windows/system.h"

namespace quillon {

// Shows a report, a folder with its newest report, or, with an empty path, the folder that was last looked at, until the
// window is closed. Gives the program's status.
int pagesWindowRun(HINSTANCE instance, int show, const std::wstring& path, std::size_t flowLines);

}  // namespace quillon
