// The lists of 132-byte and 144-byte records, whole pages compared with approved ones.
#include "trades/trades_report.h"

#include <gtest/gtest.h>

#include "support/approved.h"
#include "trades/trade_records.h"

namespace quillon::test {

static void approve132(const char* name, TradesReport report, const std::vector<Trade>& trades) {
  expectApproved(name, printed<TradeRec132>(report, trades, printTrades132));
}

static void approve144(const char* name, TradesReport report, const std::vector<Trade>& trades) {
  expectApproved(name, printed<TradeRec144>(report, trades, printTrades144));
}

static std::size_t countOf(const std::string& text, const std::string& piece) {
  std::size_t count = 0;
  for (std::size_t at = text.find(piece); at != std::string::npos; at = text.find(piece, at + piece.size())) ++count;
  return count;
}

static const Trade buy = {};
static const Trade sell = {.scripCode = 590023,
                           .scripId = "NILGRITEA",
                           .trdId = 1002,
                           .rate = 4710,
                           .qty = 25,
                           .brokerId = 907,
                           .traderId = 21,
                           .time = "10:16:02",
                           .clientId = "R2315",
                           .side = 'S',
                           .trnId = 4000002,
                           .cliTyp = "CLIENT_SD",
                           .scGr = "B1"};
static const Trade oddLotBuy = {.trdId = 1003, .qty = 7, .tradeType = 'O', .cliTyp = "OWN"};
static const Trade neither = {.trdId = 1004, .side = 'X'};

// Every number and text of the row wider than its column, or as wide as it can be.
static const Trade wide = {.scripCode = 2147483647,
                           .scripId = "ELEVENCHARS",
                           .trdId = -2147483647,
                           .rate = 2147483647,
                           .qty = 1234567890,
                           .brokerId = 123456,
                           .traderId = 1234,
                           .time = "10:15:30.123456",
                           .clientId = "ABCDEFGHIJK",
                           .trnId = 9223372036854775807,
                           .cliTyp = "LONGCLIENT",
                           .orderTimeStamp = "25/05/2009 23:59:59",
                           .scGr = "GRPX",
                           .settlementYear = -32768,
                           .settlementNo = -2147483647};

static Trade soldAs(Trade trade) {
  trade.side = 'S';
  return trade;
}

// ---- 132-byte records -----------------------------------------------------------------------------------------------------

TEST(TradesReport132, emptyListIsHeaderAndClosingRule) { approve132("trades/list132_empty.txt", newReport('N'), {}); }

TEST(TradesReport132, buyStandsLeftAndSellRight) { approve132("trades/list132_buy_sell.txt", newReport('N'), {buy, sell}); }

TEST(TradesReport132, beforeCutoverHeaderHasClientTypeColumn) {
  approve132("trades/list132_before_cutover.txt", oldReport('N'), {buy, sell});
}

TEST(TradesReport132, oddLotOptionWordsHeadingAndTakesOldHeader) {
  TradesReport report = newReport('N');
  report.oddLotOption = true;
  approve132("trades/list132_odd_lot.txt", report, {oddLotBuy, soldAs(oddLotBuy)});
}

TEST(TradesReport132, valuesWiderThanTheirColumnsPushRowOut) {
  approve132("trades/list132_wide_values.txt", newReport('N'), {wide, soldAs(wide), {.rate = -5, .qty = -1, .trnId = -1}});
}

TEST(TradesReport132, valuesNarrowerThanTheirCellsAreAligned) {
  const std::vector<Trade> trades = {narrowBuy, narrowSell, narrowBuy};
  approve132("trades/list132_narrow_values.txt", narrowReport('N'), trades);
  TradesReport old = narrowReport('N');
  old.preCutover = true;
  approve132("trades/list132_before_cutover_narrow_values.txt", old, trades);
  TradesReport odd = narrowReport('N');
  odd.oddLotOption = true;
  approve132("trades/list132_odd_lot_narrow_values.txt", odd, {oddLot(narrowBuy), oddLot(narrowSell), oddLot(narrowBuy)});
}

TEST(TradesReport132, pageJustFullHasNoSecondHeader) {
  TradesReport report = newReport('N');
  report.linesPerPage = 3;
  approve132("trades/list132_page_just_full.txt", report, {buy, sell, buy});
}

TEST(TradesReport132, fullPageIsFollowedByRuleFormFeedAndHeader) {
  TradesReport report = oldReport('N');
  report.linesPerPage = 2;
  approve132("trades/list132_one_row_over.txt", report, {buy, sell, buy, sell, buy});
}

TEST(TradesReport132, otherSidePrintsNothingAndTakesItsPlace) {
  TradesReport report = newReport('N');
  report.linesPerPage = 2;
  approve132("trades/list132_other_side.txt", report, {buy, neither, sell});
}

TEST(TradesReport132, record51OpensPage2At50LinesAPage) {
  for (const std::size_t count : {50u, 51u}) {
    TradesReport report = newReport('N');
    const std::string text = printed<TradeRec132>(report, std::vector<Trade>(count, buy), printTrades132);
    const std::size_t pages = count == 50 ? 1 : 2;
    EXPECT_EQ(countOf(text, "\f"), pages - 1);
    EXPECT_EQ(countOf(text, "Page:"), pages);
    EXPECT_EQ(report.page, static_cast<int>(pages) + 1);
    EXPECT_EQ(countOf(text, "AXLE"), count);
    // The page-end rule stands directly before character 12, and the first line of the header behind it.
    EXPECT_EQ(countOf(text, "_|\r\n\f     "), pages - 1);
  }
}

TEST(TradesReport132, clientSdIsShortenedAndOtherTypesStand) {
  TradesReport report = newReport('N');
  const std::string text = printed<TradeRec132>(
      report, {{.cliTyp = "CLIENT_SD"}, {.cliTyp = "CLIENT_S"}, {.cliTyp = "client_sd"}, {.cliTyp = ""}}, printTrades132);
  EXPECT_EQ(countOf(text, "|CL_SD |"), 1u);
  EXPECT_EQ(countOf(text, "|CLIENT_S|"), 1u);
  EXPECT_EQ(countOf(text, "|client_sd|"), 1u);
  EXPECT_EQ(countOf(text, "|      |\r\n"), 1u);  // an empty type is a blank cell
}

// ---- 144-byte records -----------------------------------------------------------------------------------------------------

TEST(TradesReport144, emptyListIsHeaderAndClosingRule) { approve144("trades/list144_empty.txt", newReport('V'), {}); }

TEST(TradesReport144, formABeforeCutoverShort) { approve144("trades/list144_form_a.txt", oldReport('V'), {buy, sell}); }

TEST(TradesReport144, formBAfterCutoverShort) { approve144("trades/list144_form_b.txt", newReport('V'), {buy, sell}); }

TEST(TradesReport144, formCBeforeCutoverWide) {
  TradesReport report = oldReport('V');
  report.shortColumns = false;
  approve144("trades/list144_form_c.txt", report, {buy, sell});
}

TEST(TradesReport144, formDAfterCutoverWide) {
  TradesReport report = newReport('V');
  report.shortColumns = false;
  approve144("trades/list144_form_d.txt", report, {buy, sell});
}

TEST(TradesReport144, oddLotRecordInMarketLotFilePrintsFormAUnderHeaderWithoutInstIdColumn) {
  approve144("trades/list144_odd_lot_record_short.txt", newReport('V'), {buy, oddLotBuy, soldAs(oddLotBuy)});
}

TEST(TradesReport144, oddLotRecordInMarketLotFilePrintsFormCWhenWide) {
  TradesReport report = newReport('V');
  report.shortColumns = false;
  approve144("trades/list144_odd_lot_record_wide.txt", report, {oddLotBuy, soldAs(oddLotBuy), sell});
}

TEST(TradesReport144, oddLotOptionTakesOldHeaderButLeavesRegularRowsNew) {
  TradesReport report = newReport('V');
  report.oddLotOption = true;
  report.linesPerPage = 1;
  approve144("trades/list144_odd_lot_option.txt", report, {oddLotBuy, sell});
}

TEST(TradesReport144, lendingFileHasItsOwnHeadings) {
  TradesReport report = newReport('V');
  report.isLendingFile = true;
  report.shortColumns = false;
  report.linesPerPage = 1;
  approve144("trades/list144_lending.txt", report, {buy, sell});
}

TEST(TradesReport144, pageBreakShortOld) {
  TradesReport report = oldReport('V');
  report.linesPerPage = 1;
  approve144("trades/list144_page_break_short_old.txt", report, {buy, sell});
}

TEST(TradesReport144, pageBreakShortNew) {
  TradesReport report = newReport('V');
  report.linesPerPage = 1;
  approve144("trades/list144_page_break_short_new.txt", report, {sell, buy});
}

TEST(TradesReport144, pageBreakWideNew) {
  TradesReport report = newReport('V');
  report.shortColumns = false;
  report.linesPerPage = 1;
  approve144("trades/list144_page_break_wide_new.txt", report, {sell, buy});
}

TEST(TradesReport144, otherSidePrintsNothingAndTakesItsPlace) {
  TradesReport report = newReport('V');
  report.linesPerPage = 2;
  approve144("trades/list144_other_side.txt", report, {neither, buy, sell});
}

TEST(TradesReport144, valuesWiderThanTheirColumnsPushRowOut) {
  TradesReport report = newReport('V');
  report.shortColumns = false;
  approve144("trades/list144_wide_values.txt", report, {wide, soldAs(wide)});
}

TEST(TradesReport144, valuesNarrowerThanTheirCellsAreAligned) {
  struct Case {
    const char* approved;
    bool shortColumns;
    bool preCutover;
    bool isLendingFile;
  };
  static constexpr Case cases[] = {
      {"trades/list144_form_a_narrow_values.txt", true, true, false},
      {"trades/list144_form_b_narrow_values.txt", true, false, false},
      {"trades/list144_form_c_narrow_values.txt", false, true, false},
      {"trades/list144_form_d_narrow_values.txt", false, false, false},
      {"trades/list144_lending_narrow_values.txt", false, false, true},
  };
  for (const Case& c : cases) {
    TradesReport report = narrowReport('V');
    report.shortColumns = c.shortColumns;
    report.preCutover = c.preCutover;
    report.isLendingFile = c.isLendingFile;
    approve144(c.approved, report, {narrowBuy, narrowSell, narrowBuy});
  }
}

TEST(TradesReport144, oddLotValuesNarrowerThanTheirCellsAreAligned) {
  TradesReport report = narrowReport('V');
  report.oddLotOption = true;
  approve144("trades/list144_odd_lot_short_narrow_values.txt", report, {oddLot(narrowBuy), oddLot(narrowSell), narrowBuy});
  report.shortColumns = false;
  approve144("trades/list144_odd_lot_wide_narrow_values.txt", report, {oddLot(narrowBuy), oddLot(narrowSell), narrowSell});
}

TEST(TradesReport144, pageOf50RecordsHolds200LinesOfRows) {
  TradesReport report = newReport('V');
  const std::string text = printed<TradeRec144>(report, std::vector<Trade>(51, buy), printTrades144);
  EXPECT_EQ(countOf(text, "\f"), 1u);
  const std::string firstPage = text.substr(0, text.find('\f'));
  // Eleven lines of header, 200 of rows, one of rule.
  EXPECT_EQ(countOf(firstPage, "\r\n"), 11u + 200u + 1u);
}

struct RowFormCase {
  char tradeType;
  bool newRow;  // form b or d rather than a or c, in a file after the cut-over
};

TEST(TradesReport144, regularTypesPrintNewRowsAfterCutoverAndOthersOldOnes) {
  static constexpr RowFormCase rows[] = {
      {'L', true}, {'H', true}, {'M', true},  {'T', true},  {'Q', true},  {'P', true},  {'B', true},  {'K', true},
      {'G', true}, {'C', true}, {'O', false}, {'D', false}, {'X', false}, {'l', false}, {' ', false}, {'\0', false},
  };
  for (const bool shortColumns : {true, false}) {
    for (const RowFormCase& row : rows) {
      Trade trade = buy;
      trade.tradeType = row.tradeType;
      TradesReport report = newReport('V');
      report.shortColumns = shortColumns;
      const std::string text = printed<TradeRec144>(report, {trade}, printTrades144);
      // In the old rows the client type ends the row's first line.
      EXPECT_EQ(countOf(text, "10:15:30|CLIENT|\r\n"), row.newRow ? 0u : 1u) << row.tradeType << shortColumns;

      TradesReport before = oldReport('V');
      before.shortColumns = shortColumns;
      const std::string textBefore = printed<TradeRec144>(before, {trade}, printTrades144);
      EXPECT_EQ(countOf(textBefore, "10:15:30|CLIENT|\r\n"), 1u) << row.tradeType << shortColumns;
    }
  }
}

TEST(TradesReport144, orderTimeIsTakenFromCharacters11To18) {
  TradesReport report = newReport('V');
  const std::string text = printed<TradeRec144>(report, {{.orderTimeStamp = "0123456789ABCDEFGHI"}}, printTrades144);
  EXPECT_EQ(countOf(text, "|         BCDEFGHI|"), 1u);
  const std::string cut = printed<TradeRec144>(report, {{.orderTimeStamp = "25/05/2009 10:14"}}, printTrades144);
  EXPECT_EQ(countOf(cut, "|            10:14|"), 1u);
}

TEST(TradesReport144, brokerAndTraderAreNeverPrinted) {
  TradesReport report = newReport('V');
  const std::string text = printed<TradeRec144>(
      report, {{.brokerId = 8642, .traderId = 97}, {.brokerId = 8642, .traderId = 97, .side = 'S'}}, printTrades144);
  EXPECT_EQ(countOf(text, "8642"), 0u);
  EXPECT_EQ(countOf(text, "/97"), 0u);
}

// ---- Conditions -----------------------------------------------------------------------------------------------------------

TEST(TradesReport, headerIsOldBeforeCutoverForOddLotAndForLending) {
  TradesReport report = newReport('V');
  EXPECT_FALSE(headerOldForm(report));
  report.oddLotOption = true;
  EXPECT_TRUE(headerOldForm(report));
  EXPECT_FALSE(rowOldForm(report));
  report.oddLotOption = false;
  report.preCutover = true;
  EXPECT_TRUE(headerOldForm(report));
  EXPECT_TRUE(rowOldForm(report));
  report.preCutover = false;
  report.isLendingFile = true;
  EXPECT_TRUE(headerOldForm(report));
  EXPECT_TRUE(rowOldForm(report));
}

TEST(TradesReport, rowsComeInTheOrderGiven) {
  const std::vector<TradeRec132> records = recordsOf<TradeRec132>({{.trdId = 1}, {.trdId = 2}, {.trdId = 3}});
  const std::vector<std::uint32_t> order = {2, 0, 1};
  TradesReport report = newReport('N');
  std::string text;
  Output* out = outputToMemory(&text);
  printTrades132(*out, report, records.data(), order);
  ASSERT_TRUE(outputClose(out));
  const std::size_t third = text.find("L|     3|"), first = text.find("L|     1|"), second = text.find("L|     2|");
  ASSERT_NE(third, std::string::npos);
  EXPECT_LT(third, first);
  EXPECT_LT(first, second);
  EXPECT_NE(second, std::string::npos);
}

}  // namespace quillon::test
