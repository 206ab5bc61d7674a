// What the pages of the logs are put together from.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace quillon {

inline constexpr std::size_t longestLogRule = 160;
inline constexpr auto logRuleCharacters = [] {
  std::array<char, longestLogRule> characters = {};
  characters.fill('_');
  return characters;
}();
// `width` underscores, at most longestLogRule.
constexpr std::string_view logRule(std::size_t width) { return {logRuleCharacters.data(), width}; }

constexpr const char* logExchangeLine(bool isLendingFile) {
  return isLendingFile ? "KOR SHARE HOLDING LTD." : "TARVEN STOCK EXCHANGE LTD.";
}

// A message in two pieces: what its cell in the first row has room for, and the rest, which goes on in the row below.
struct SplitMessage {
  std::string_view head;
  std::string_view rest;
};
constexpr SplitMessage splitMessage(std::string_view message, std::size_t room) {
  return {message.substr(0, room), message.size() > room ? message.substr(room) : std::string_view()};
}

// The text up to its first line feed, which ends a message wherever it stands.
constexpr std::string_view firstLine(std::string_view text) { return text.substr(0, text.find('\n')); }

}  // namespace quillon
