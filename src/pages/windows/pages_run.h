// What quillon-pages does: its command line carried out, or its window shown until it is closed.
#pragma once

#include "pages/windows/system.h"

namespace quillon {

// Gives the program's status (PagesStatus).
int pagesRun(HINSTANCE instance, int show);

}  // namespace quillon
