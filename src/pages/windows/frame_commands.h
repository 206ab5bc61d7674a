// The commands of the menu and of the keys, carried out. frameCommand (frame.h) is defined here.
#pragma once

#include "pages/windows/system.h"

namespace quillon {

// What is of use now, and what is on, before a menu is shown.
void frameMarkMenu(HMENU menu);

}  // namespace quillon
