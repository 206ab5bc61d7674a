// Words of a program that has no console of its own: to where its caller sent them, or to the caller's console.
#pragma once

#include <string_view>

#include "pages/windows/system.h"

namespace quillon {

// `which` is STD_OUTPUT_HANDLE or STD_ERROR_HANDLE. Lines end with LF; a file or a pipe gets UTF-8 with CR LF. False when there
// is nowhere to write to, or it cannot be written.
[[nodiscard]] bool consoleTell(DWORD which, std::wstring_view text);

// Whether anybody could see a window: a service and a task without a user have no desktop to show one on.
bool somebodyIsThere();

}  // namespace quillon
