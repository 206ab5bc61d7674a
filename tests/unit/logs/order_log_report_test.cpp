// The four lists of an order log, each in the wide arrangement of early and lending files and the narrow one of late files.
#include "logs/order_log_report.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "frame/client_types.h"
#include "logs/order_log_records.h"
#include "support/approved.h"

namespace quillon::test {
namespace {

const TradeHeader late = logHeader(123, 45, 25, 5, 2010);
const TradeHeader early = logHeader(123, 45, 21, 5, 2009);
const TradeHeader bigIds = logHeader(1234567890, -2147483647 - 1, 31, 12, 2010);
// Both halves of the year have one digit as well.
const TradeHeader smallIds = logHeader(7, 3, 5, 3, 304);

// The file's side letters are rewritten as a run does it, so that every page shows them turned back.
template <typename Record>
std::string listed(std::vector<Record> records, const TradeHeader& header, const OrderLogOptions& options) {
  registerClientTypes();
  OrderLogRecords view = inFileOrder(records);
  if (options.isLendingFile) rewriteOrderLends(view.layout, records.data(), view.count);
  return reportOf([&](Output& out) { printOrderLog(out, header, view, options); });
}

template <typename Record, typename Row>
void expectPages(const std::string& name, OrderLogList list, const std::vector<Row>& ordinary, const std::vector<Row>& wide,
                 const std::vector<Row>& narrow) {
  for (const bool preCutover : {false, true}) {
    const std::string base = "logs/" + name + (preCutover ? "_early" : "_late");
    expectApproved(base + ".txt", listed(block<Record>(ordinary), preCutover ? early : late, {list, preCutover, false, 3}));
    expectApproved(base + "_wide_values.txt", listed(block<Record>(wide), bigIds, {list, preCutover, false, 1}));
    expectApproved(base + "_narrow_values.txt", listed(block<Record>(narrow), smallIds, {list, preCutover, false, 50}));
  }
  expectApproved("logs/" + name + "_lending.txt", listed(block<Record>(ordinary), late, {list, false, true, 3}));
  expectApproved("logs/" + name + "_lending_narrow_values.txt",
                 listed(block<Record>(narrow), smallIds, {list, false, true, 50}));
}

TEST(OrderLogPages, orders) {
  expectPages<OrderRec136>("orders", OrderLogList::orders, ordinaryOrders, wideOrders, narrowOrders);
}
TEST(OrderLogPages, clientRectification) {
  expectPages<OrderRec136>("clients", OrderLogList::clientRectification, ordinaryOrders, wideOrders, narrowOrders);
}
TEST(OrderLogPages, typeRectification) {
  expectPages<OrderRec136>("types", OrderLogList::typeRectification, ordinaryOrders, wideOrders, narrowOrders);
}
TEST(OrderLogPages, consolidated) {
  expectPages<ConsolidatedOrderRec>("consolidated", OrderLogList::consolidated, ordinaryConsolidated, wideConsolidated,
                                    narrowConsolidated);
}

// They know no kinds: every record is an order.
TEST(OrderLogPages, shortRecordsAreAllListedAndAlwaysWide) {
  const TradeHeader oldest = logHeader(123, 45, 21, 11, 2003);
  expectApproved("logs/orders_rec112.txt",
                 listed(block<OrderRec112>(ordinaryOrders), oldest, {OrderLogList::orders, false, false, 3}));
  expectApproved("logs/orders_rec112_wide_values.txt",
                 listed(block<OrderRec112>(wideOrders), bigIds, {OrderLogList::orders, false, false, 1}));
}

// ---- Pages ------------------------------------------------------------------------------------------------------------

std::size_t countOf(std::string_view text, std::string_view part) {
  std::size_t count = 0;
  for (std::size_t at = text.find(part); at != std::string_view::npos; at = text.find(part, at + part.size())) ++count;
  return count;
}

// The report's line of this number from the end, 1 being the last.
std::string lineFromEnd(const std::string& report, std::size_t number) {
  std::vector<std::string> lines = linesOf(withoutCarriageReturns(report));
  if (lines.back().empty()) lines.pop_back();
  return number <= lines.size() ? lines[lines.size() - number] : "";
}

constexpr char wideClosingRule[] =
    "|__|___________|_________|_________|__________|__________|________|____________|___________|_______|_______|_|"
    "_______________________|\n";
constexpr char wideRecordRule[] =
    "|__|___________|_________|_________|__________|__________|________|____________|___________|_______|_______|_|"
    "                       |\n";
constexpr char narrowRule[] =
    "|__|___________|_________|_________|__________|__________|________|___________________|___________|_______|_______|_|\n";
constexpr char narrowMessageRule[] =
    "|_____________________________________________|_____________________________________________________________________|\n";

std::string ordersOf(const std::vector<OrderRow>& rows, unsigned recordsPerPage, bool preCutover = true) {
  return listed(block<OrderRec136>(rows), preCutover ? early : late, {OrderLogList::orders, preCutover, false, recordsPerPage});
}

TEST(OrderLogReport, listFollowsLayoutAndChoice) {
  for (const OrderLogLayout layout : {OrderLogLayout::rec112, OrderLogLayout::rec136}) {
    EXPECT_EQ(orderLogList(layout, OrderLogChoice::orders), OrderLogList::orders);
    EXPECT_EQ(orderLogList(layout, OrderLogChoice::clientRectification), OrderLogList::clientRectification);
    EXPECT_EQ(orderLogList(layout, OrderLogChoice::typeRectification), OrderLogList::typeRectification);
  }
  for (const OrderLogChoice choice :
       {OrderLogChoice::orders, OrderLogChoice::clientRectification, OrderLogChoice::typeRectification}) {
    EXPECT_EQ(orderLogList(OrderLogLayout::consolidated, choice), OrderLogList::consolidated);
  }
}

TEST(OrderLogReport, oneLinePerPageGivesFourRecordsAPageEachWithItsRule) {
  const std::string report = withoutCarriageReturns(ordersOf(std::vector<OrderRow>(4), 1));
  EXPECT_EQ(countOf(report, "\f"), 3u);
  EXPECT_EQ(countOf(report, std::string(wideRecordRule) + wideClosingRule + "\n\n\f"), 3u);
  EXPECT_EQ(countOf(report, "Page: 4"), 1u);
}

TEST(OrderLogReport, fullLastPageHasNeitherClosingRuleNorFormFeed) {
  EXPECT_EQ(lineFromEnd(ordersOf(std::vector<OrderRow>(3), 3), 1), wideRecordRule);
  EXPECT_EQ(lineFromEnd(ordersOf(std::vector<OrderRow>(3), 3, false), 1), narrowMessageRule);
  EXPECT_EQ(countOf(ordersOf(std::vector<OrderRow>(3), 3), "\f"), 0u);
}

TEST(OrderLogReport, lastPageWithRoomLeftIsClosedByARule) {
  EXPECT_EQ(lineFromEnd(ordersOf(std::vector<OrderRow>(2), 3), 1), wideClosingRule);
  EXPECT_EQ(lineFromEnd(ordersOf(std::vector<OrderRow>(2), 3, false), 1), narrowRule);
  EXPECT_EQ(lineFromEnd(ordersOf(std::vector<OrderRow>(2), 3, false), 2), narrowMessageRule);
}

TEST(OrderLogReport, pageBreaksAheadOfASkippedRecordAndItsHeadingStandsAlone) {
  std::vector<OrderRow> rows(3);
  rows[2].recordKind = 'Y';
  const std::string report = withoutCarriageReturns(ordersOf(rows, 2));
  const std::string emptyPage = withoutCarriageReturns(ordersOf({}, 2));
  ASSERT_EQ(countOf(report, "\f"), 1u);
  std::string lastPage = report.substr(report.find('\f') + 1);
  EXPECT_EQ(countOf(lastPage, "Page: 2\n"), 1u);
  lastPage.replace(lastPage.find("Page: 2"), 7, "Page: 1");
  EXPECT_EQ(lastPage, emptyPage);
}

TEST(OrderLogReport, skippedRecordsTakeNoPlaceOnThePage) {
  std::vector<OrderRow> rows(6, OrderRow{.recordKind = 'I'});
  rows[1].recordKind = 'N';
  rows[4].recordKind = 'N';
  EXPECT_EQ(countOf(ordersOf(rows, 2), "\f"), 1u) << "the break stands ahead of the last record, which is skipped";
  rows.pop_back();
  EXPECT_EQ(countOf(ordersOf(rows, 2), "\f"), 0u);
  EXPECT_EQ(ordersOf(rows, 2), ordersOf(std::vector<OrderRow>(2), 2));
}

// No choice excludes them and no list shows them.
TEST(OrderLogReport, recordsOfUnknownKindsGiveAnEmptyReport) {
  const std::vector<OrderRow> rows(3, OrderRow{.recordKind = '?'});
  for (const OrderLogList list : {OrderLogList::orders, OrderLogList::clientRectification, OrderLogList::typeRectification}) {
    EXPECT_EQ(listed(block<OrderRec136>(rows), late, {list, false, false, 1}),
              listed(block<OrderRec136>(std::vector<OrderRow>{}), late, {list, false, false, 1}));
  }
}

TEST(OrderLogReport, pageNumbersGoOnBeyondTheirCell) {
  const std::string report = withoutCarriageReturns(ordersOf(std::vector<OrderRow>(101), 1));
  EXPECT_EQ(countOf(report, "Page:10\n"), 1u);
  EXPECT_EQ(countOf(report, "Page:101\n"), 1u);
}

// ---- Cells ------------------------------------------------------------------------------------------------------------

// The cells of the wide row of the first record, bars as separators.
std::vector<std::string> cellsOf(const std::string& report, std::size_t line) {
  std::vector<std::string> cells;
  const std::string text = linesOf(withoutCarriageReturns(report)).at(line);
  for (std::size_t at = 1; at < text.size();) {
    const std::size_t end = text.find('|', at);
    if (end == std::string::npos) break;
    cells.push_back(text.substr(at, end - at));
    at = end + 1;
  }
  return cells;
}
constexpr std::size_t firstRow = 7, limitRateCell = 4, trigRateCell = 5, retentionCell = 10, letterCell = 11, messageCell = 12;

std::vector<std::string> cellsOf(const OrderRow& row) { return cellsOf(ordersOf({row}, 50), firstRow); }

TEST(OrderLogReport, actionsWithoutALimitRateShowADash) {
  for (std::int16_t action = 0; action <= 19; ++action) {
    const bool none = action >= 9 && action <= 14;
    EXPECT_EQ(cellsOf(OrderRow{.limitRate = 4321, .actionCode = action})[limitRateCell], none ? "         -" : "      4321")
        << action;
    EXPECT_EQ(cellsOf(OrderRow{.limitRate = 0, .actionCode = action})[limitRateCell], none ? "         -" : "         0")
        << action;
  }
}

TEST(OrderLogReport, thirdRateAboveZeroTakesThePlaceOfTheLimitRateOrItsDash) {
  for (const std::int16_t action : {1, 9, 14}) {
    EXPECT_EQ(cellsOf(OrderRow{.limitRate = 4321, .thirdRate = 1, .actionCode = action})[limitRateCell], "         1")
        << action;
  }
  EXPECT_EQ(cellsOf(OrderRow{.limitRate = 4321, .thirdRate = -1, .actionCode = 1})[limitRateCell], "      4321");
  EXPECT_EQ(cellsOf(OrderRow{.limitRate = 4321, .thirdRate = -1, .actionCode = 9})[limitRateCell], "         -");
}

TEST(OrderLogReport, zeroTriggerRateIsADash) {
  EXPECT_EQ(cellsOf(OrderRow{.trigRate = 0})[trigRateCell], "         -");
  EXPECT_EQ(cellsOf(OrderRow{.trigRate = 1})[trigRateCell], "         1");
  EXPECT_EQ(cellsOf(OrderRow{.trigRate = -1})[trigRateCell], "        -1");
}

TEST(OrderLogReport, consolidatedRatesAreShownTheSameWay) {
  const auto cells = [](const ConsolidatedRow& row) {
    return cellsOf(listed(block<ConsolidatedOrderRec>(std::vector<ConsolidatedRow>{row}), early,
                          {OrderLogList::consolidated, true, false, 50}),
                   firstRow - 1);
  };
  EXPECT_EQ(cells({.limitRate = 4321, .actionCode = 10})[limitRateCell + 1], "         -");
  EXPECT_EQ(cells({.limitRate = 4321, .thirdRate = 5, .actionCode = 10})[limitRateCell + 1], "         5");
  EXPECT_EQ(cells({.limitRate = 4321, .thirdRate = -5, .actionCode = 2})[limitRateCell + 1], "      4321");
  EXPECT_EQ(cells({.trigRate = 0})[trigRateCell + 1], "         -");
  EXPECT_EQ(cells({.trigRate = 9})[trigRateCell + 1], "         9");
}

TEST(OrderLogReport, rectifiedRateIsANumberWhateverTheActionAndTheThirdRate) {
  const std::vector<OrderRow> rows = {{.limitRate = 0, .thirdRate = 7, .actionCode = 10, .recordKind = 'Y'},
                                      {.limitRate = 55, .thirdRate = 7, .actionCode = 10, .recordKind = 'I'}};
  EXPECT_EQ(cellsOf(listed(block<OrderRec136>(rows), early, {OrderLogList::clientRectification, true, false, 50}), firstRow)[3],
            "        0");
  EXPECT_EQ(cellsOf(listed(block<OrderRec136>(rows), early, {OrderLogList::typeRectification, true, false, 50}), firstRow)[3],
            "       55");
}

TEST(OrderLogReport, messageOf23CharactersLeavesTheRuleEmptyAndOneOf24PutsOneThere) {
  const std::string report = ordersOf({{.message = "Twenty-three letters, a"}, {.message = "Twenty-four characters !"}}, 50);
  EXPECT_EQ(cellsOf(report, firstRow)[messageCell], "Twenty-three letters, a");
  EXPECT_EQ(cellsOf(report, firstRow + 1)[messageCell], "                       ");
  EXPECT_EQ(cellsOf(report, firstRow + 2)[messageCell], "Twenty-four characters ");
  EXPECT_EQ(cellsOf(report, firstRow + 3)[messageCell], "!                      ");
}

// A code that no table knows repeats the row above; the first row shows nothing.
TEST(OrderLogReport, unknownCodesKeepTheTextOfTheRecordPrintedBefore) {
  const std::string report = ordersOf({{.retention = 5, .actionCode = 19},
                                       {.retention = 3, .actionCode = 3},
                                       {.retention = 0, .actionCode = 1, .recordKind = 'Y'},
                                       {.retention = -1, .actionCode = 0},
                                       {.retention = 1, .actionCode = 99},
                                       {.retention = 99, .actionCode = 2}},
                                      50);
  const char* const retentions[] = {"       ", "    EOD", "    EOD", " EOSESS", " EOSESS"};
  const char* const shownLetters[] = {" ", "D", "D", "D", "U"};
  for (std::size_t i = 0; i < 5; ++i) {
    EXPECT_EQ(cellsOf(report, firstRow + 2 * i)[retentionCell], retentions[i]) << i;
    EXPECT_EQ(cellsOf(report, firstRow + 2 * i)[letterCell], shownLetters[i]) << i;
  }
}

TEST(OrderLogReport, unknownRectificationsKeepTheLetterOfTheRecordPrintedBefore) {
  struct Case {
    OrderLogList list;
    char kind;
    std::int16_t accepted, rejected;
  };
  for (const Case& c :
       {Case{OrderLogList::clientRectification, 'Y', 19, 20}, Case{OrderLogList::typeRectification, 'I', 21, 22}}) {
    std::vector<OrderRow> rows(5, OrderRow{.actionCode = 1, .recordKind = c.kind});
    rows[1].actionCode = c.rejected;
    rows[3].actionCode = c.accepted;
    rows[4].actionCode = static_cast<std::int16_t>(c.kind == 'Y' ? 21 : 19);  // of the other list
    const std::string report = listed(block<OrderRec136>(rows), early, {c.list, true, false, 50});
    const char* const shownLetters[] = {" ", "R", "R", "A", "A"};
    for (std::size_t i = 0; i < 5; ++i) EXPECT_EQ(cellsOf(report, firstRow + 2 * i)[10], shownLetters[i]) << c.kind << i;
  }
}

// ---- Lending ----------------------------------------------------------------------------------------------------------

TEST(OrderLogReport, lendsAreShownAsLAndTheBlockStaysAsItWas) {
  registerClientTypes();
  std::vector<OrderRec136> records = block<OrderRec136>(std::vector<OrderRow>{{.side = 'L'}, {.side = 'S'}, {.side = 'B'}});
  const OrderLogRecords view = inFileOrder(records);
  rewriteOrderLends(view.layout, records.data(), view.count);
  const std::vector<OrderRec136> before = records;
  const std::string report = reportOf([&](Output& out) {
    printOrderLog(out, late, view, {OrderLogList::orders, false, true, 50});
  });
  const char* const sides[] = {" L", " L", " B"};
  for (std::size_t i = 0; i < 3; ++i) EXPECT_EQ(cellsOf(report, firstRow + 2 * i)[0], sides[i]) << i;
  EXPECT_EQ(std::memcmp(before.data(), records.data(), records.size() * sizeof(OrderRec136)), 0);
  EXPECT_EQ(records[0].order.side, 'S');
}

TEST(OrderLogReport, printsInTheGivenOrder) {
  registerClientTypes();
  const std::vector<OrderRec136> records =
      block<OrderRec136>(std::vector<OrderRow>{{.qty = 1}, {.qty = 2}, {.qty = 3, .message = forty}, {.qty = 4}});
  const std::uint32_t order[] = {3, 1, 0, 2};
  const OrderLogRecords view = {OrderLogLayout::rec136, records.data(), 4, order};
  const std::string report = reportOf([&](Output& out) {
    printOrderLog(out, early, view, {OrderLogList::orders, true, false, 50});
  });
  const char* const quantities[] = {"        4", "        2", "        1", "        3"};
  for (std::size_t i = 0; i < 4; ++i) EXPECT_EQ(cellsOf(report, firstRow + 2 * i)[2], quantities[i]) << i;
}

}  // namespace
}  // namespace quillon::test
