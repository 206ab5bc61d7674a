// What all auction statements have in common on a page: member and notice, the market's words, today's date, ruled cells.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "auction/auction_file.h"
#include "text/output.h"

namespace quillon {

// What every page of a run shows, and how long it gets.
struct AuctionStatement {
  AuctionHeader header;
  AuctionMarket market;
  std::string today;      // "dd/mm/yyyy"
  unsigned linesPerPage;  // rows, at least 1
};

// The sorts of the form. The last two are the delivery statement's alone.
enum class AuctionSort { scripName, scripCode, memberId, oppMemberId };

// The clearing house for a lending file, otherwise the exchange. Some statements have a blank behind it.
const char* auctionExchange(const AuctionMarket& market);

// The first line of a page of the listings that have no settlement number; the line after it begins with its own newline.
void printListingExchangeLine(Output& out, const AuctionStatement& statement, int page);

inline constexpr char bar = '|';
inline constexpr char pageEnd = 12;  // what ends a page on the printer

namespace detail {
inline constexpr std::size_t longestRule = 140;
template <char Character>
inline constexpr auto ruleCharacters = [] {
  std::array<char, longestRule> characters = {};
  characters.fill(Character);
  return characters;
}();
}  // namespace detail

// `width` underscores or hyphens, at most detail::longestRule.
constexpr std::string_view underscoreRule(std::size_t width) { return {detail::ruleCharacters<'_'>.data(), width}; }
constexpr std::string_view hyphenRule(std::size_t width) { return {detail::ruleCharacters<'-'>.data(), width}; }

// Quantities of hostile files wrap at 32 bits, as the stored ones do.
constexpr std::int32_t wrappingSum(std::int32_t a, std::int32_t b) {
  return static_cast<std::int32_t>(static_cast<std::uint32_t>(a) + static_cast<std::uint32_t>(b));
}

}  // namespace quillon
