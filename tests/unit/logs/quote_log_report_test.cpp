// The list of a quote log: a bid row and an offer row for each quote.
#include "logs/quote_log_report.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>

#include "frame/client_types.h"
#include "logs/quote_log_records.h"
#include "support/approved.h"

namespace quillon::test {
namespace {

const TradeHeader ordinary = logHeader(123, 45, 25, 5, 2010, 'Q');
const TradeHeader bigIds = logHeader(1234567890, -2147483647 - 1, 31, 12, 2010, 'Q');
// Both halves of the year have one digit as well.
const TradeHeader smallIds = logHeader(7, 3, 5, 3, 304, 'Q');

std::string listed(const std::vector<QuoteRow>& rows, const TradeHeader& header, const QuoteLogOptions& options) {
  registerClientTypes();
  const std::vector<QuoteRec> records = block<QuoteRec>(rows);
  std::vector<std::uint32_t> order(rows.size());
  std::iota(order.begin(), order.end(), 0u);
  return reportOf([&](Output& out) { printQuoteLog(out, header, records.data(), order, options); });
}

TEST(QuoteLogPages, ordinaryQuotes) { expectApproved("logs/quotes.txt", listed(ordinaryQuotes, ordinary, {false, 2})); }
TEST(QuoteLogPages, lendingFileNamesTheClearingHouse) {
  expectApproved("logs/quotes_lending.txt", listed(ordinaryQuotes, ordinary, {true, 2}));
}
TEST(QuoteLogPages, wideValuesArePrintedWhole) {
  expectApproved("logs/quotes_wide_values.txt", listed(wideQuotes, bigIds, {false, 1}));
}
TEST(QuoteLogPages, narrowValuesStandOnTheirSideOfTheCell) {
  expectApproved("logs/quotes_narrow_values.txt", listed(narrowQuotes, smallIds, {false, 25}));
}

constexpr char closingRule[] =
    "|________|___________|___|_________|_________|________|___________|__________|________|__________________|_|"
    "________________________|\n";

std::vector<std::string> pageLines(const std::vector<QuoteRow>& rows, unsigned quotesPerPage) {
  std::vector<std::string> lines = linesOf(withoutCarriageReturns(listed(rows, ordinary, {false, quotesPerPage})));
  if (lines.back().empty()) lines.pop_back();
  return lines;
}
constexpr std::size_t headingLines = 9;

TEST(QuoteLogReport, lastQuoteThatFillsThePageGetsNoExtraRule) {
  const std::vector<std::string> full = pageLines(std::vector<QuoteRow>(2), 2);
  EXPECT_EQ(full.size(), headingLines + 2 * 3);
  EXPECT_EQ(full.back(), closingRule);
  const std::vector<std::string> withRoom = pageLines(std::vector<QuoteRow>(2), 3);
  EXPECT_EQ(withRoom.size(), headingLines + 2 * 3 + 1);
  EXPECT_EQ(withRoom.back(), closingRule);
}

TEST(QuoteLogReport, reportEndsWithoutAFormFeed) {
  for (const unsigned perPage : {1u, 2u, 3u, 25u}) {
    const std::string report = listed(std::vector<QuoteRow>(4), ordinary, {false, perPage});
    EXPECT_EQ(static_cast<unsigned>(std::count(report.begin(), report.end(), '\f')), (4 - 1) / perPage) << perPage;
  }
}

TEST(QuoteLogReport, noQuotesGiveAHeadingAlone) { EXPECT_EQ(pageLines({}, 2).size(), headingLines); }

// The letter stands behind the tenth bar of the bid row.
char letterOf(const std::string& row) {
  std::size_t at = 0;
  for (int bars = 0; bars < 11; ++bars) at = row.find('|', at) + 1;
  return row.at(at);
}

TEST(QuoteLogReport, unknownActionKeepsTheLetterOfTheQuoteBefore) {
  const std::vector<QuoteRow> rows = {{.actionCode = 7}, {.actionCode = 3}, {.actionCode = 0},
                                      {.actionCode = 4}, {.actionCode = 9}, {.actionCode = 5}};
  const std::vector<std::string> lines = pageLines(rows, 25);
  const std::string shown = " DDAAU";
  for (std::size_t i = 0; i < rows.size(); ++i) EXPECT_EQ(letterOf(lines.at(headingLines + 3 * i)), shown[i]) << i;
}

TEST(QuoteLogReport, rateOfZeroIsADashOnItsOwnSideAlone) {
  const std::vector<std::string> lines = pageLines({{.bidRate = 250, .offerRate = 0}, {.bidRate = 0, .offerRate = -1}}, 25);
  EXPECT_NE(lines.at(headingLines).find("|     250|"), std::string::npos);
  EXPECT_NE(lines.at(headingLines + 1).find("|       -|"), std::string::npos);
  EXPECT_NE(lines.at(headingLines + 3).find("|       -|"), std::string::npos);
  EXPECT_NE(lines.at(headingLines + 4).find("|      -1|"), std::string::npos);
}

// The record ends with its message: the next quote's bytes are no part of it.
TEST(QuoteLogReport, fullMessageEndsWithItsField) {
  const std::vector<std::string> lines = pageLines({{.message = forty}, {.scripCode = letters}}, 25);
  EXPECT_NE(lines.at(headingLines).find("|Forty characters, to the|\n"), std::string::npos);
  EXPECT_NE(lines.at(headingLines + 1).find("| end of its cell        |\n"), std::string::npos);
}

TEST(QuoteLogReport, messageOf24CharactersLeavesTheOfferRowEmpty) {
  const std::vector<std::string> lines =
      pageLines({{.message = "Twenty-four characters !"}, {.message = "Twenty-four characters !?"}, {.message = "a\nb"}}, 25);
  EXPECT_NE(lines.at(headingLines).find("|Twenty-four characters !|\n"), std::string::npos);
  EXPECT_NE(lines.at(headingLines + 1).find("|                        |\n"), std::string::npos);
  EXPECT_NE(lines.at(headingLines + 3).find("|Twenty-four characters !|\n"), std::string::npos);
  EXPECT_NE(lines.at(headingLines + 4).find("|?                       |\n"), std::string::npos);
  EXPECT_NE(lines.at(headingLines + 6).find("|a                       |\n"), std::string::npos);
  EXPECT_NE(lines.at(headingLines + 7).find("|                        |\n"), std::string::npos);
}

TEST(QuoteLogReport, printsInTheGivenOrder) {
  registerClientTypes();
  const std::vector<QuoteRec> records = block<QuoteRec>(std::vector<QuoteRow>{{.scripCode = 1}, {.scripCode = 2}});
  const std::uint32_t order[] = {1, 0};
  const std::string report = reportOf([&](Output& out) { printQuoteLog(out, ordinary, records.data(), order, {false, 25}); });
  EXPECT_LT(report.find("|       2|"), report.find("|       1|"));
}

TEST(QuoteLogFile, isNAndQ) {
  for (int letter = 0; letter < 256; ++letter) {
    TradeHeader header = ordinary;
    EXPECT_TRUE(isQuoteLog(header));
    header.fileKind = static_cast<char>(letter);
    EXPECT_EQ(isQuoteLog(header), letter == 'N') << letter;
    header.fileKind = 'N';
    header.kind = static_cast<char>(letter);
    EXPECT_EQ(isQuoteLog(header), letter == 'Q') << letter;
  }
}

std::vector<std::uint32_t> sorted(const std::vector<QuoteRow>& rows, QuoteSort sort) {
  const std::vector<QuoteRec> records = block<QuoteRec>(rows);
  const RecordOrder order = orderOfRecords({records.data(), sizeof(QuoteRec), rows.size()}, quoteLogSortKeys(sort));
  EXPECT_TRUE(order);
  return {order.positions().begin(), order.positions().end()};
}
using Positions = std::vector<std::uint32_t>;

TEST(QuoteLogOrder, eachSortHasItsOwnKeyAndTimeHasNone) {
  const std::vector<QuoteRow> rows = {{.scripCode = -1, .hour = 12, .bidClientId = "B", .offerClientId = "A", .scripId = "C"},
                                      {.scripCode = 2, .hour = 11, .bidClientId = "C", .offerClientId = "C", .scripId = "A"},
                                      {.scripCode = 3, .hour = 10, .bidClientId = "A", .offerClientId = "B", .scripId = "B"}};
  EXPECT_EQ(sorted(rows, QuoteSort::time), (Positions{0, 1, 2}));
  EXPECT_EQ(sorted(rows, QuoteSort::scripCode), (Positions{0, 1, 2}));
  EXPECT_EQ(sorted(rows, QuoteSort::scripId), (Positions{1, 2, 0}));
  EXPECT_EQ(sorted(rows, QuoteSort::bidClientId), (Positions{2, 0, 1}));
  EXPECT_EQ(sorted(rows, QuoteSort::offerClientId), (Positions{0, 2, 1}));
}

TEST(QuoteLogOrder, tiesGoOnToTheTimeAndTheQuoteId) {
  const std::vector<QuoteRow> rows = {{.quoteId = 5, .hour = 10, .minute = 5, .second = 9},
                                      {.quoteId = -5, .hour = 10, .minute = 5, .second = 9},
                                      {.quoteId = 0x100000001, .hour = 10, .minute = 5, .second = 8},
                                      {.quoteId = 0x0f0000000, .hour = 10, .minute = 5, .second = 8},
                                      {.quoteId = 9, .hour = 9, .minute = 59, .second = 59},
                                      {.quoteId = 5, .hour = 10, .minute = 5, .second = 9}};
  for (const QuoteSort sort : {QuoteSort::scripCode, QuoteSort::scripId, QuoteSort::bidClientId, QuoteSort::offerClientId}) {
    EXPECT_EQ(sorted(rows, sort), (Positions{4, 3, 2, 1, 0, 5})) << static_cast<int>(sort);
  }
}

}  // namespace
}  // namespace quillon::test
