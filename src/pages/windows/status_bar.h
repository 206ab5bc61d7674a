// The line at the window's foot: the page, how it comes onto a sheet, the zoom, and how reading and finding stand.
#pragma once

#include "pages/windows/system.h"

namespace quillon {

HWND statusBarCreate(HWND parent);
void statusBarArrange();  // to the window's width and screen
void statusBarUpdate();
int statusBarHeight();

}  // namespace quillon
