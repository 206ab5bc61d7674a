// The net position section of the Trades report in its versions, compared with approved pages.
#include "trades/trades_net_position.h"

#include <gtest/gtest.h>

#include "support/approved.h"
#include "trades/trade_records.h"

namespace quillon::test {

static std::string section132(TradesReport report, const std::vector<Trade>& trades) {
  return printed<TradeRec132>(report, trades, printNetPosition132);
}

static std::string section144(TradesReport report, const std::vector<Trade>& trades) {
  return printed<TradeRec144>(report, trades, printNetPosition144);
}

static std::string sectionKesto(TradesReport report, const std::vector<Trade>& trades) {
  return printed<KestoTradeRec>(report, trades, printKestoNetPosition);
}

// The row of a scrip, cut into its cells.
static std::vector<std::string> cellsOf(const std::string& text, const std::string& scripId) {
  std::vector<std::string> cells;
  std::size_t at = text.find(scripId + "|");
  if (at == std::string::npos) return cells;
  const std::size_t end = text.find("\r\n", at);
  while (at < end) {
    const std::size_t bar = text.find('|', at);
    std::string cell = text.substr(at, bar - at);
    cells.push_back(cell.substr(std::min(cell.find_first_not_of(' '), cell.size())));
    at = bar + 1;
  }
  return cells;
}

static Trade trade(const char* scripId, char side, int qty, int rate, char tradeType = 'L') {
  return {.scripId = scripId, .rate = rate, .qty = qty, .side = side, .tradeType = tradeType};
}

// Sides as a normal file has them; Kesto rates are a hundred times as many units.
static const std::vector<Trade> severalScrips = {
    trade("AXLE", 'B', 100, 12345), trade("AXLE", 'B', 50, 12400),     trade("AXLE", 'S', 40, 12500),
    trade("BOLT", 'B', 10, 10005),  trade("CAM", 'S', 75, 9999),       trade("DOWEL", 'B', 30, 5000),
    trade("DOWEL", 'S', 30, 5150),  trade("ELBOW", 'B', 3, 1000),      trade("ELBOW", 'S', 4, 333, 'O'),
    trade("FLANGE", 'X', 5, 100),   trade("FLANGE", 'B', 5, 100, 'D'), trade("GASKET", 'B', 2147483647, 2147483647),
};

static std::vector<Trade> asKesto(std::vector<Trade> trades) {
  for (Trade& row : trades) {
    row.side = row.side == 'B' ? 'T' : 'M';
    if (row.rate < 1000000) row.rate *= 100;
  }
  return trades;
}

TEST(TradesNetPosition, severalScrips) {
  TradesReport report = newReport('N');
  report.page = 4;
  expectApproved("trades/netpos_several_scrips.txt", section132(report, severalScrips));
}

TEST(TradesNetPosition, sameSectionFor144ByteRecords) {
  TradesReport report = newReport('V');
  report.page = 4;
  EXPECT_EQ(section144(report, severalScrips), section132(report, severalScrips));
}

TEST(TradesNetPosition, oddLotOptionWordsHeadingAndAddsNote) {
  TradesReport report = newReport('N');
  report.oddLotOption = true;
  report.page = 2;
  expectApproved("trades/netpos_odd_lot.txt", section132(report, {trade("AXLE", 'B', 7, 12345, 'O')}));
}

TEST(TradesNetPosition, noteAppearsAfterOddLotRunAndNeverAfterMarketLotRun) {
  for (const bool oddLot : {false, true}) {
    TradesReport report = newReport('N');
    report.oddLotOption = oddLot;
    const std::string note = "                                             ( For Information Only )\r\n";
    EXPECT_EQ(section132(report, {trade("AXLE", 'B', 7, 12345, 'O')}).ends_with(note), oddLot);
    EXPECT_EQ(sectionKesto(report, {trade("AXLE", 'T', 7, 12345, 'O')}).ends_with(note), oddLot);
  }
}

TEST(TradesNetPosition, lendingFileHasSixColumns) {
  TradesReport report = newReport('V');
  report.isLendingFile = true;
  report.page = 3;
  expectApproved("trades/netpos_lending.txt", section144(report, {trade("AXLE", 'B', 100, 12345), trade("AXLE", 'S', 60, 12300),
                                                                  trade("BOLT", 'S', 5, 200)}));
}

// Of AB 2 bought at 1.05 and 345 sold at 0.07, of QRS 345 sold at 0.07.
static Trade ofScrip(Trade trade, const char* scripId) {
  trade.scripId = scripId;
  return trade;
}
static const std::vector<Trade> narrowScrips = {narrowBuy, ofScrip(narrowSell, "AB"), narrowSell};

TEST(TradesNetPosition, valuesNarrowerThanTheirCellsAreAligned) {
  TradesReport report = narrowReport('V');
  report.page = 3;
  expectApproved("trades/netpos_narrow_values.txt", section144(report, narrowScrips));
  report.oddLotOption = true;
  expectApproved("trades/netpos_odd_lot_narrow_values.txt", section144(report, narrowScrips));
  report.oddLotOption = false;
  report.isLendingFile = true;
  expectApproved("trades/netpos_lending_narrow_values.txt", section144(report, narrowScrips));
}

TEST(TradesNetPosition, onlyBuysShowNoSellRateAndBreakEvenOfNetValueOverQuantity) {
  const std::vector<std::string> cells =
      cellsOf(section132(newReport('N'), {trade("AXLE", 'B', 10, 10000), trade("AXLE", 'B', 30, 10400)}), "AXLE");
  // 10 at 100.00 and 30 at 104.00 are 4120.00, over 40: 103.00
  EXPECT_EQ(cells, (std::vector<std::string>{"AXLE", "40", "103.00", "0", "0.00", "40", "4120.00", "103.00"}));
}

TEST(TradesNetPosition, onlySellsShowNoBuyRate) {
  const std::vector<std::string> cells = cellsOf(section132(newReport('N'), {trade("AXLE", 'S', 10, 10000)}), "AXLE");
  EXPECT_EQ(cells, (std::vector<std::string>{"AXLE", "0", "0.00", "10", "100.00", "-10", "-1000.00", "100.00"}));
}

TEST(TradesNetPosition, equalQuantitiesHaveBreakEvenPriceOfZero) {
  const std::vector<std::string> cells =
      cellsOf(section132(newReport('N'), {trade("AXLE", 'B', 10, 10000), trade("AXLE", 'S', 10, 10500)}), "AXLE");
  EXPECT_EQ(cells, (std::vector<std::string>{"AXLE", "10", "100.00", "10", "105.00", "0", "-50.00", "0.00"}));
}

TEST(TradesNetPosition, averageIsRoundedByItsFirstTwoDecimals) {
  // 3 at 100.00 and 5 at 100.04 are 800.20, over 8: 100.025, taken up
  const std::vector<std::string> up =
      cellsOf(section132(newReport('N'), {trade("AXLE", 'B', 3, 10000), trade("AXLE", 'B', 5, 10004)}), "AXLE");
  EXPECT_EQ(up[2], "100.03");
  // 2 at 100.00 and 1 at 100.01 are 300.01, over 3: 100.00333, taken down
  const std::vector<std::string> down =
      cellsOf(section132(newReport('N'), {trade("AXLE", 'B', 2, 10000), trade("AXLE", 'B', 1, 10001)}), "AXLE");
  EXPECT_EQ(down[2], "100.00");
}

TEST(TradesNetPosition, allTradeTypesCount) {
  const std::vector<std::string> cells =
      cellsOf(section132(newReport('N'),
                         {trade("AXLE", 'B', 1, 100, 'O'), trade("AXLE", 'B', 2, 100, 'D'), trade("AXLE", 'B', 4, 100, 'X')}),
              "AXLE");
  EXPECT_EQ(cells[1], "7");
}

TEST(TradesNetPosition, anyOtherSideIsSold) {
  const std::vector<std::string> cells = cellsOf(section132(newReport('N'), {trade("AXLE", 'X', 3, 100)}), "AXLE");
  EXPECT_EQ(cells[3], "3");
}

TEST(TradesNetPosition, scripsThatDifferInCaseAreTwoGroups) {
  const std::string text = section132(newReport('N'), {trade("AXLE", 'B', 1, 100), trade("axle", 'B', 2, 100)});
  EXPECT_EQ(cellsOf(text, "AXLE")[1], "1");
  EXPECT_EQ(cellsOf(text, "axle")[1], "2");
}

TEST(TradesNetPosition, tradesWithoutScripAtTheEndCloseNoGroup) {
  // No symbol at all equals the zero record behind the last one.
  const std::string text = section132(newReport('N'), {trade("", 'B', 1, 100)});
  EXPECT_NE(text.find("            Total Net Value =           0.00\r\n"), std::string::npos);
  EXPECT_EQ(text.find("1.00"), std::string::npos);
}

TEST(TradesNetPosition, sectionBeginsWithFormFeedAndShowsPageAsItStands) {
  TradesReport report = newReport('N');
  report.page = 7;
  const std::string text = section132(report, {trade("AXLE", 'B', 1, 100)});
  EXPECT_TRUE(text.starts_with("\f     "));
  EXPECT_NE(text.find("Page: 7\r\n"), std::string::npos);
  EXPECT_EQ(text.find('\f', 1), std::string::npos);
}

TEST(TradesNetPosition, quantitiesWrapAt32Bits) {
  const std::vector<std::string> cells =
      cellsOf(section132(newReport('N'), {trade("AXLE", 'B', 2147483647, 100), trade("AXLE", 'B', 1, 100)}), "AXLE");
  EXPECT_EQ(cells[1], "-2147483648");
}

// ---- Kesto ----------------------------------------------------------------------------------------------------------------

TEST(KestoNetPosition, severalScrips) {
  TradesReport report = newReport('B');
  report.page = 4;
  expectApproved("trades/netpos_kesto_several_scrips.txt", sectionKesto(report, asKesto(severalScrips)));
}

TEST(KestoNetPosition, oddLotOptionAddsNoteAndLeavesHeading) {
  TradesReport report = newReport('B');
  report.oddLotOption = true;
  report.isLendingFile = true;
  expectApproved("trades/netpos_kesto_odd_lot.txt", sectionKesto(report, {trade("AXLE", 'S', 7, 123456, 'O')}));
}

TEST(KestoNetPosition, valuesNarrowerThanTheirCellsAreAligned) {
  const std::vector<Trade> trades = {asKestoTrade(narrowBuy, 'T'), asKestoTrade(ofScrip(narrowSell, "AB"), 'M'),
                                     asKestoTrade(narrowSell, 'V'), asKestoTrade(ofScrip(narrowBuy, "QRS"), 'S')};
  TradesReport report = narrowReport('B');
  expectApproved("trades/netpos_kesto_narrow_values.txt", sectionKesto(report, trades));
  report.oddLotOption = true;
  report.isLendingFile = true;
  expectApproved("trades/netpos_kesto_odd_lot_narrow_values.txt", sectionKesto(report, trades));
}

TEST(KestoNetPosition, pageIsAlways1) {
  TradesReport report = newReport('B');
  report.page = 7;
  EXPECT_NE(sectionKesto(report, {trade("AXLE", 'T', 1, 100)}).find("Page: 1\r\n"), std::string::npos);
}

TEST(KestoNetPosition, breakEvenPriceHasNoSign) {
  // Lent 20 at 100.00 are 2000.00, borrowed 10 at 300.00 are 3000.00: net value -1000.00 on a net quantity of 10.
  const std::vector<std::string> cells =
      cellsOf(sectionKesto(newReport('B'), {trade("AXLE", 'T', 20, 1000000), trade("AXLE", 'V', 10, 3000000)}), "AXLE");
  EXPECT_EQ(cells, (std::vector<std::string>{"AXLE", "20", "100.00", "10", "300.00", "10", "-1000.00", "100.00"}));
}

TEST(KestoNetPosition, breakEvenPriceIsCutNotRounded) {
  // 3 at 10.0080 are 30.0240; over 3, in hundredths, 1000.8, cut to 1000.
  const std::vector<std::string> cells = cellsOf(sectionKesto(newReport('B'), {trade("AXLE", 'S', 3, 100080)}), "AXLE");
  EXPECT_EQ(cells[2], "10.01");  // the average is only formatted
  EXPECT_EQ(cells[7], "10.00");
}

TEST(KestoNetPosition, equalQuantitiesHaveBreakEvenPriceOfZero) {
  const std::vector<std::string> cells =
      cellsOf(sectionKesto(newReport('B'), {trade("AXLE", 'T', 10, 1000000), trade("AXLE", 'M', 10, 1050000)}), "AXLE");
  EXPECT_EQ(cells, (std::vector<std::string>{"AXLE", "10", "100.00", "10", "105.00", "0", "-50.00", "0.00"}));
}

}  // namespace quillon::test
