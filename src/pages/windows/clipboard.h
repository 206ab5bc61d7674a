// A text for other programs to paste.
#pragma once

#include <string>

#include "pages/windows/system.h"

namespace quillon {

// `text` is Windows-1252. False when the clipboard cannot be had: another program may hold it.
bool clipboardTake(HWND owner, const std::string& text);

}  // namespace quillon
