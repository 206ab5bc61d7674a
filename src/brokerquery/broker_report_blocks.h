// The blocks of the broker query pages, which broker_report.cpp puts together: one function a block.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

#include "brokerquery/broker_report.h"
#include "text/output.h"

namespace quillon {

inline constexpr char bar = '|';
inline constexpr char blank = ' ';
inline constexpr char formFeed = 12;

inline constexpr std::size_t longestRule = 130;
inline constexpr auto ruleCharacters = [] {
  std::array<char, longestRule> characters = {};
  characters.fill('_');
  return characters;
}();
// `width` underscores, at most longestRule.
constexpr std::string_view rule(std::size_t width) { return {ruleCharacters.data(), width}; }

// Day, month and year of the file, such as "22/05/2009".
std::string brokerDateText(const TradeHeader& header);
const char* brokerExchangeLine(bool isLendingFile);

// The three lines above the heading rows of every page but the Kesto one.
void printBrokerPageTop(Output& out, const BrokerPage& page);

// One arrangement of the page. `heading` begins a page and leaves its number alone. `record` takes a record of the
// arrangement's layout and may print nothing for it.
struct BrokerBlocks {
  void (*heading)(Output& out, const BrokerPage& page);
  void (*record)(Output& out, const void* record);
  void (*breakRule)(Output& out);  // closes a page that another one follows
  void (*endRule)(Output& out);    // closes the last page
};
extern const BrokerBlocks rec132Blocks;
extern const BrokerBlocks shortOldBlocks;
extern const BrokerBlocks shortNewBlocks;
extern const BrokerBlocks groupOldBlocks;
extern const BrokerBlocks groupNewBlocks;
extern const BrokerBlocks kestoBlocks;

// A type whose sells have widths of their own in two arrangements.
bool isListedTradeType(char tradeType);

}  // namespace quillon
