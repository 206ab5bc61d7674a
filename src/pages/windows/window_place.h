// Where the window stood when it was last closed.
#pragma once

#include "pages/windows/system.h"

namespace quillon {

// Puts a window that is not shown yet to its remembered place, where a screen shows that, and shows it.
void windowPlaceRestore(HWND window, int show);
void windowPlaceKeep(HWND window);

}  // namespace quillon
