// What the pages of the logs are put together from.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace quillon {

inline constexpr char bar = '|';
inline constexpr char blank[] = " ";
inline constexpr char formFeed = 12;

inline constexpr std::size_t longestRule = 160;
inline constexpr auto ruleCharacters = [] {
  std::array<char, longestRule> characters = {};
  characters.fill('_');
  return characters;
}();
// `width` underscores, at most longestRule.
constexpr std::string_view rule(std::size_t width) { return {ruleCharacters.data(), width}; }

constexpr const char* exchangeLine(bool isLendingFile) {
  return isLendingFile ? "KOR SHARE HOLDING LTD." : "TARVEN STOCK EXCHANGE LTD.";
}

// A text in two pieces: what its cell in the first row has room for, and the rest, which goes on in the row below.
struct SplitText {
  std::string_view head;
  std::string_view rest;
};
constexpr SplitText splitText(std::string_view text, std::size_t room) {
  return {text.substr(0, room), text.size() > room ? text.substr(room) : std::string_view()};
}

}  // namespace quillon
