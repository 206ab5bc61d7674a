// The list of a Kesto file, whole pages compared with approved ones.
#include "trades/kesto_trades_report.h"

#include <gtest/gtest.h>

#include "support/approved.h"
#include "trades/trade_records.h"

namespace quillon::test {

static void approveKesto(const char* name, TradesReport report, const std::vector<Trade>& trades) {
  expectApproved(name, printed<KestoTradeRec>(report, trades, printKestoTrades));
}

static const Trade lend = {.rate = 1234500, .side = 'T', .trnId = 40001};
static const Trade borrow = {.scripCode = 590023,
                             .scripId = "NILGRITEA",
                             .trdId = 1002,
                             .rate = 471049,
                             .qty = 25,
                             .brokerId = 907,
                             .traderId = 21,
                             .time = "10:16:02",
                             .clientId = "R2315",
                             .side = 'M',
                             .trnId = 40002};

static Trade withSide(Trade trade, char side) {
  trade.side = side;
  return trade;
}

static Trade withType(Trade trade, char tradeType) {
  trade.tradeType = tradeType;
  return trade;
}

TEST(KestoTradesReport, emptyListIsHeaderAndClosingRule) { approveKesto("trades/kesto_empty.txt", newReport('B'), {}); }

TEST(KestoTradesReport, lendSidesStandLeftAndBorrowSidesRight) {
  approveKesto("trades/kesto_sides.txt", newReport('B'), {lend, withSide(lend, 'S'), borrow, withSide(borrow, 'V')});
}

TEST(KestoTradesReport, fullPageIsFollowedByRuleFormFeedAndHeader) {
  TradesReport report = newReport('B');
  report.linesPerPage = 2;
  approveKesto("trades/kesto_page_break.txt", report, {lend, borrow, lend, borrow, lend});
  TradesReport full = newReport('B');
  full.linesPerPage = 2;
  EXPECT_EQ(printed<KestoTradeRec>(full, {lend, borrow}, printKestoTrades).find('\f'), std::string::npos);
}

TEST(KestoTradesReport, otherTradeTypesOfBorrowersStandOneCharacterToTheLeft) {
  approveKesto(
      "trades/kesto_narrow_prefix.txt", newReport('B'),
      {withType(borrow, 'L'), withType(borrow, 'O'), withType(borrow, 'P'), withType(borrow, 'G'), withType(lend, 'O')});
}

TEST(KestoTradesReport, narrowPrefixByTradeType) {
  const std::string regularTypes = "LHMTQBK", types = regularTypes + "PGCODXl " + '\0';
  for (const char type : types) {
    TradesReport report = newReport('B');
    const std::string text = printed<KestoTradeRec>(report, {withType(borrow, type)}, printKestoTrades);
    const bool regular = regularTypes.find(type) != std::string::npos;
    EXPECT_EQ(text.substr(text.find("  NILGRITEA") - 10, 10), regular ? "  |      |" : "   |     |") << type;
  }
}

TEST(KestoTradesReport, sideXPrintsNothingAndTakesItsPlace) {
  TradesReport report = newReport('B');
  report.linesPerPage = 2;
  approveKesto("trades/kesto_side_x.txt", report, {lend, withSide(lend, 'X'), borrow});
}

TEST(KestoTradesReport, rateOf1234500PrintsAs123point45) {
  TradesReport report = newReport('B');
  const std::string text = printed<KestoTradeRec>(report, {lend}, printKestoTrades);
  EXPECT_NE(text.find("|  123.45|"), std::string::npos);
}

TEST(KestoTradesReport, lendingMarketFileBearsClearingHouse) {
  TradesReport report = newReport('B');
  report.isLendingFile = true;
  approveKesto("trades/kesto_lending.txt", report, {lend});
}

TEST(KestoTradesReport, valuesWiderThanTheirColumnsPushRowOut) {
  const Trade wide = {.scripCode = 2147483647,
                      .scripId = "ELEVENCHARS",
                      .trdId = -2147483647,
                      .rate = 2147483647,
                      .qty = 1234567890,
                      .brokerId = 123456,
                      .traderId = 1234,
                      .time = "10:15:30.123456",
                      .clientId = "ABCDEFGHIJK",
                      .side = 'S',
                      .trnId = -2147483647};
  approveKesto("trades/kesto_wide_values.txt", newReport('B'), {wide, withSide(wide, 'V')});
}

TEST(KestoTradesReport, valuesNarrowerThanTheirCellsAreAligned) {
  const std::vector<Trade> trades = {asKestoTrade(narrowBuy, 'T'), asKestoTrade(narrowSell, 'M'),
                                     asKestoTrade(oddLot(narrowSell), 'V'), asKestoTrade(narrowBuy, 'S')};
  TradesReport report = narrowReport('B');
  approveKesto("trades/kesto_narrow_values.txt", report, trades);
  report.isLendingFile = true;
  approveKesto("trades/kesto_lending_narrow_values.txt", report, trades);
}

}  // namespace quillon::test
