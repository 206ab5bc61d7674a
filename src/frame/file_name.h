// Which files a form takes, where the name alone tells.
#pragma once

#include <initializer_list>
#include <string_view>

namespace quillon {

// True when any of `pieces`, given in upper case, stands anywhere in the path, whatever the case of the path's own letters.
// The path itself is left as it is, so that it still leads to the file where names differ by case.
bool fileNameHolds(std::string_view path, std::initializer_list<std::string_view> pieces);

}  // namespace quillon
