// Upper case, the same on every desktop and in every language of Windows: of the letters a to z alone, so that it is right for
// UTF-8 and for Windows-1252 alike.
#pragma once

#include <string>
#include <string_view>

namespace quillon {

constexpr char upperCase(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }

inline std::string upperCased(std::string_view text) {
  std::string upper(text);
  for (char& c : upper) c = upperCase(c);
  return upper;
}

}  // namespace quillon
