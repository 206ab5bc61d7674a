// What all lists of the Trades form have in common on a page: exchange, broker and trader, the file's date, ruled cells.
#pragma once

#include <cstddef>
#include <cstring>
#include <string_view>

#include "text/output.h"
#include "text/print.h"
#include "trades/trade_file.h"

namespace quillon {

inline constexpr char pageEnd = 12;  // what ends a page on the printer

inline constexpr std::string_view underscores =
    "_________________________________________________________________"
    "__________________________________________________________________";
static_assert(underscores.size() == 131);
// `width` underscores, at most 131.
constexpr std::string_view ruleOf(std::size_t width) { return underscores.substr(0, width); }

// The heading of the clearing house for a lending-market file, otherwise of the exchange.
const char* exchangeName(bool isLendingFile);

// The file's date as "dd/mm/ccyy".
inline auto fileDate(const TradeHeader& header) {
  return formatCell<"%02d/%02d/%02d%02d">(header.day, header.month, header.century, header.year);
}

// The lines "Broker Id. :" and "Trader Id. :".
void printIdentity(Output& out, const TradeHeader& header);

// What a client type is printed as: "CLIENT_SD" is too wide for its column and becomes "CL_SD".
inline TextField<10> shownClientType(const TextField<10>& cliTyp) {
  constexpr TextField<10> tooWide = {"CLIENT_SD"};
  return std::memcmp(cliTyp.bytes, tooWide.bytes, sizeof tooWide) == 0 ? TextField<10>{"CL_SD"} : cliTyp;
}

}  // namespace quillon
