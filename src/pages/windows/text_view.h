// The page that shows as plain text in an edit field that is only read: for screen readers and for who selects by keys.
#pragma once

#include "pages/windows/system.h"

namespace quillon {

HWND textViewCreate(HWND parent);

// The report in front or its page may have changed. A page whose text is as before is left alone, with its caret.
void textViewUpdate();
void textViewShowMatch();  // selects the current match
void textViewNewFont();    // for the screen that the window is on

}  // namespace quillon
