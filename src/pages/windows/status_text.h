// What a failure is called in front of the user, in a box or on standard error.
#pragma once

#include <string>

#include "pages/pages_command.h"

namespace quillon {

// Whole sentences. `report`, `printer` and `file` are what the work had to do with; those of no concern may be empty.
std::wstring statusText(PagesStatus status, const std::wstring& report, const std::wstring& printer, const std::wstring& file);

}  // namespace quillon
