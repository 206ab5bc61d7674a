// The picture of a box, told by what stands on the screen: a box keeps no other trace of it that another process may read.
#pragma once

#include "system.h"

namespace driving {

// "information", "exclamation", "error" or "question"; null where nothing like it is drawn (yet).
const char* iconOnScreen(HWND picture);

// Whether the program's icon, from its file, stands in the title bar of this window.
bool hasIconInTitle(HWND window, const wchar_t* program, const wchar_t* icon);

}  // namespace driving
