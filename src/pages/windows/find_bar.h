// The bar below the page in which what is sought is typed.
#pragma once

#include "pages/windows/system.h"

namespace quillon {

HWND findBarCreate(HWND parent);
// Shows it, with what was sought last, and gives it the focus.
void findBarOpen();
// Puts it away, and the marks with it.
void findBarClose();
bool findBarIsOpen();
// What is typed there is sought, also where it was put away. False where nothing is typed.
bool findBarSeek();
bool findBarHasEditFocus();  // the keys of copying and selecting are the edit's then
int findBarHeight();
void findBarNewFont();

}  // namespace quillon
