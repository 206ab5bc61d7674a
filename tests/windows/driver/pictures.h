// The picture of a box, told by what stands on the screen: a box keeps no other trace of it that another process may read.
#pragma once

#include "system.h"

namespace driving {

// "information", "exclamation", "error" or "question"; null where nothing like it is drawn (yet).
const char* iconOnScreen(HWND picture);

}  // namespace driving
