// What a column does beside showing its field: sides that are turned, codes without a text, messages that are cut, files that
// end too early.
#include "convert/convert_lines.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "convert/convert_records.h"
#include "desktop/scripted/faults.h"

namespace quillon::test {
namespace {

// The columns of each line, without the line's end. Every line ends in a '|'.
using Columns = std::vector<std::string>;
std::vector<Columns> columnsOf(const std::string& text, const std::string& end) {
  std::vector<Columns> lines;
  std::size_t at = 0;
  while (at < text.size()) {
    const std::size_t stop = text.find(end, at);
    if (stop == std::string::npos) {
      ADD_FAILURE() << "a line without its end: " << text.substr(at);
      break;
    }
    Columns columns;
    for (std::size_t bar = at; bar < stop;) {
      const std::size_t next = text.find('|', bar);
      if (next >= stop) {
        ADD_FAILURE() << "no '|' behind the last column: " << text.substr(at, stop - at);
        break;
      }
      columns.push_back(text.substr(bar, next - bar));
      bar = next + 1;
    }
    lines.push_back(columns);
    at = stop + end.size();
  }
  return lines;
}
const std::string twoBytes = "\r\n";      // of the logs
const std::string threeBytes = "\r\r\n";  // of the others

template <typename Record, typename Row>
std::vector<Columns> lines(char fileKind, char kind, const ConvertRules& rules, const std::vector<Row>& rows,
                           const std::string& end) {
  return columnsOf(linesOfRecords(convertHeader(fileKind, kind), rules, recordsOf<Record>(rows)), end);
}

// The texts of one column, counted from 1 as in the layouts.
std::vector<std::string> column(const std::vector<Columns>& lines, std::size_t number) {
  std::vector<std::string> texts;
  for (const Columns& columns : lines) texts.push_back(number <= columns.size() ? columns[number - 1] : "no column");
  return texts;
}
using Texts = std::vector<std::string>;

std::vector<ConvertTradeRow> tradesOfSides(std::string_view sides) {
  std::vector<ConvertTradeRow> rows;
  for (const char side : sides) rows.push_back({.side = side});
  return rows;
}
std::vector<OrderRow> ordersOfSides(std::string_view sides, char recordKind) {
  std::vector<OrderRow> rows;
  for (const char side : sides) rows.push_back({.side = side, .recordKind = recordKind});
  return rows;
}

// ---- Number of columns ------------------------------------------------------------------------------------------------

TEST(ConvertLines, tradesUnderVHave16ColumnsShortAnd18Long) {
  const std::vector<ConvertTradeRow> one(1);
  EXPECT_EQ(lines<TradeRec144>('V', 'T', {.tradeShortLine = true}, one, threeBytes).at(0).size(), 16u);
  EXPECT_EQ(lines<TradeRec144>('V', 'T', {.tradeShortLine = false}, one, threeBytes).at(0).size(), 18u);
}

TEST(ConvertLines, everyKindHasItsNumberOfColumnsAndItsLineEnd) {
  const std::vector<ConvertTradeRow> one(1);
  const ConvertRules normal = {.adminFormat = AdminFormat::normal}, br = {.adminFormat = AdminFormat::br};
  ConvertRules normal144 = normal, br144 = br, normal168 = normal, br168 = br;
  normal144.adminRec144 = br144.adminRec144 = normal168.adminRec168 = br168.adminRec168 = true;
  const auto count = [](const std::vector<Columns>& found) { return found.size() == 1 ? found[0].size() : 0; };
  EXPECT_EQ(count(lines<TradeRec132>('N', 'T', {.tradeRec132 = true}, one, threeBytes)), 15u);
  EXPECT_EQ(count(lines<BrokerRec132>('N', 'B', {.brokerRec132 = true}, one, threeBytes)), 17u);
  EXPECT_EQ(count(lines<BrokerRec160>('V', 'B', {.brokerShortLine = true}, one, threeBytes)), 18u);
  EXPECT_EQ(count(lines<BrokerRec160>('V', 'B', {}, one, threeBytes)), 20u);
  EXPECT_EQ(count(lines<KestoTradeRec>('B', 'T', {}, one, threeBytes)), 13u);
  EXPECT_EQ(count(lines<KestoBrokerRec>('B', 'B', {}, one, threeBytes)), 13u);
  EXPECT_EQ(count(lines<AdminRec144>('N', 'A', normal144, one, threeBytes)), 16u);
  EXPECT_EQ(count(lines<AdminRec144>('N', 'A', br144, one, threeBytes)), 17u);
  EXPECT_EQ(count(lines<AdminRec168>('V', 'A', normal168, one, threeBytes)), 18u);
  EXPECT_EQ(count(lines<AdminRec168>('V', 'A', br168, one, threeBytes)), 20u);
  EXPECT_EQ(count(lines<AdminRec176>('V', 'A', normal, one, threeBytes)), 19u);
  EXPECT_EQ(count(lines<AdminRec176>('V', 'A', br, one, threeBytes)), 21u);
  EXPECT_EQ(count(lines<AdminDeletionRec>('X', 'J', {}, std::vector<DeletionRow>(1), threeBytes)), 16u);
  EXPECT_EQ(count(lines<TradeRectificationRec>('S', 'S', {}, std::vector<RectificationRow>(1), twoBytes)), 13u);
  EXPECT_EQ(count(lines<OrderRec112>('N', 'O', {.orderRec112 = true}, std::vector<OrderRow>(1), twoBytes)), 17u);
  EXPECT_EQ(count(lines<OrderRec136>('N', 'O', {}, std::vector<OrderRow>(1), twoBytes)), 17u);
  EXPECT_EQ(count(lines<QuoteRec>('N', 'Q', {}, std::vector<QuoteRow>(1), twoBytes)), 17u);
  EXPECT_EQ(count(lines<ConsolidatedOrderRec>('N', 'L', {}, std::vector<ConsolidatedRow>(1), twoBytes)), 18u);
}

// A CR that belongs to the format stands before the line end of a text file.
TEST(ConvertLines, lineEndHasThreeBytesOrTwo) {
  const std::string trade = linesOfRecords(convertHeader('N', 'T'), {.tradeRec132 = true}, std::vector<TradeRec132>(1));
  EXPECT_EQ(trade.substr(trade.size() - 4), "|\r\r\n");
  const std::string quote = linesOfRecords(convertHeader('N', 'Q'), {}, std::vector<QuoteRec>(1));
  EXPECT_EQ(quote.substr(quote.size() - 3), "|\r\n");
  EXPECT_EQ(quote[quote.size() - 4], '|') << "the message is empty: no other CR before the end";
}

// ---- Rates ------------------------------------------------------------------------------------------------------------

TEST(ConvertLines, rateStandsAsStoredAndIsDividedInKestoLinesAlone) {
  const std::vector<ConvertTradeRow> rows = {{.rate = 12345}, {.rate = -199}, {.rate = 99}, {.rate = -99}};
  const Texts stored = {"12345", "-199", "99", "-99"}, divided = {"123", "-1", "0", "0"};
  EXPECT_EQ(column(lines<TradeRec132>('N', 'T', {.tradeRec132 = true}, rows, threeBytes), 4), stored);
  EXPECT_EQ(column(lines<TradeRec144>('V', 'T', {}, rows, threeBytes), 4), stored);
  EXPECT_EQ(column(lines<BrokerRec160>('V', 'B', {}, rows, threeBytes), 5), stored);
  EXPECT_EQ(column(lines<AdminRec176>('V', 'A', {.adminFormat = AdminFormat::normal}, rows, threeBytes), 4), stored);
  EXPECT_EQ(column(lines<KestoTradeRec>('B', 'T', {}, rows, threeBytes), 4), divided);
  EXPECT_EQ(column(lines<KestoBrokerRec>('B', 'B', {}, rows, threeBytes), 5), divided);
}

TEST(ConvertLines, orderOfAction9To14HasNoLimitRate) {
  std::vector<OrderRow> rows;
  std::vector<ConsolidatedRow> consolidated;
  Texts expected;
  for (std::int16_t action = 8; action <= 15; ++action) {
    rows.push_back({.limitRate = 12345, .actionCode = action});
    consolidated.push_back({.limitRate = 12345, .actionCode = action});
    expected.push_back(action == 8 || action == 15 ? "12345" : "-");
  }
  EXPECT_EQ(column(lines<OrderRec136>('N', 'O', {}, rows, twoBytes), 6), expected);
  EXPECT_EQ(column(lines<OrderRec112>('N', 'O', {.orderRec112 = true}, rows, twoBytes), 6), expected);
  EXPECT_EQ(column(lines<ConsolidatedOrderRec>('N', 'L', {}, consolidated, twoBytes), 6), expected);
}

// A limit rate of 0 is a number; the two behind it are not.
TEST(ConvertLines, onlyTriggerAndThirdRateOfZeroAreADash) {
  const std::vector<OrderRow> rows = {{.limitRate = 0, .trigRate = 0, .thirdRate = -1}, {.trigRate = -5, .thirdRate = 0}};
  const std::vector<Columns> found = lines<OrderRec136>('N', 'O', {}, rows, twoBytes);
  EXPECT_EQ(column(found, 6), (Texts{"0", "0"}));
  EXPECT_EQ(column(found, 7), (Texts{"-", "-5"}));
  EXPECT_EQ(column(found, 8), (Texts{"-1", "-"}));
  const std::vector<ConsolidatedRow> same = {{.limitRate = 0, .trigRate = 0, .thirdRate = -1},
                                             {.trigRate = -5, .thirdRate = 0}};
  const std::vector<Columns> consolidated = lines<ConsolidatedOrderRec>('N', 'L', {}, same, twoBytes);
  EXPECT_EQ(column(consolidated, 6), (Texts{"0", "0"}));
  EXPECT_EQ(column(consolidated, 7), (Texts{"-", "-5"}));
  EXPECT_EQ(column(consolidated, 8), (Texts{"-1", "-"}));
}

TEST(ConvertLines, ratesOfRectificationsAndDeletionsAreAlwaysNumbers) {
  const std::vector<OrderRow> clients = {{.limitRate = 0, .actionCode = 9, .recordKind = 'Y'}};
  const std::vector<OrderRow> types = {{.limitRate = 77, .actionCode = 14, .recordKind = 'I'}};
  EXPECT_EQ(column(lines<OrderRec136>('N', 'O', {.logChoice = OrderLogChoice::clientRectification}, clients, twoBytes), 5),
            (Texts{"0"}));
  EXPECT_EQ(column(lines<OrderRec136>('N', 'O', {.logChoice = OrderLogChoice::typeRectification}, types, twoBytes), 5),
            (Texts{"77"}));
  const std::vector<Columns> deletion =
      lines<AdminDeletionRec>('N', 'J', {}, std::vector<DeletionRow>{{.limitRate = 0, .trigRate = 0}}, threeBytes);
  EXPECT_EQ(deletion.at(0).at(7) + "," + deletion.at(0).at(8), "0,0");
}

TEST(ConvertLines, quoteRateOfZeroIsADashOnItsOwnSideAlone) {
  const std::vector<QuoteRow> rows = {{.bidRate = 250, .offerRate = 0}, {.bidRate = 0, .offerRate = -1}};
  const std::vector<Columns> found = lines<QuoteRec>('N', 'Q', {}, rows, twoBytes);
  EXPECT_EQ(column(found, 5), (Texts{"250", "-"}));
  EXPECT_EQ(column(found, 10), (Texts{"-", "-1"}));
}

// ---- Sides ------------------------------------------------------------------------------------------------------------

const Texts ordinarySides = {"B", "S", "L", "T"}, lendingSides = {"B", "L", "L", "T"}, lendingShortSides = {"B", "S", "S", "T"};
constexpr ConvertRules lendingRules = {.isLendingFile = true};

TEST(ConvertLines, lendingOrderLogShowsBothLettersOfASellAsL) {
  for (const auto& [kind, choice] :
       {std::pair{'N', OrderLogChoice::orders}, std::pair{'Y', OrderLogChoice::clientRectification},
        std::pair{'I', OrderLogChoice::typeRectification}}) {
    const std::vector<OrderRow> rows = ordersOfSides("BSLT", kind);
    EXPECT_EQ(column(lines<OrderRec136>('N', 'O', {.isLendingFile = true, .logChoice = choice}, rows, twoBytes), 1),
              lendingSides);
    EXPECT_EQ(column(lines<OrderRec136>('N', 'O', {.logChoice = choice}, rows, twoBytes), 1), ordinarySides);
  }
}

TEST(ConvertLines, lendingTradesTurnTheirSideInEveryFormButTheShortLines) {
  const std::vector<ConvertTradeRow> rows = tradesOfSides("BSLT");
  const auto trades = [&](ConvertRules rules) { return column(lines<TradeRec144>('V', 'T', rules, rows, threeBytes), 11); };
  EXPECT_EQ(trades(lendingRules), lendingSides);
  EXPECT_EQ(trades({.isLendingFile = true, .tradeShortLine = true}), lendingShortSides);
  EXPECT_EQ(trades({}), ordinarySides);
  EXPECT_EQ(trades({.tradeShortLine = true}), ordinarySides);
  EXPECT_EQ(column(lines<TradeRec132>('N', 'T', {.isLendingFile = true, .tradeRec132 = true}, rows, threeBytes), 11),
            lendingSides);
  const auto queries = [&](ConvertRules rules) { return column(lines<BrokerRec160>('V', 'B', rules, rows, threeBytes), 14); };
  EXPECT_EQ(queries(lendingRules), lendingSides);
  EXPECT_EQ(queries({.isLendingFile = true, .brokerShortLine = true}), lendingShortSides);
  EXPECT_EQ(queries({}), ordinarySides);
  EXPECT_EQ(column(lines<BrokerRec132>('N', 'B', {.isLendingFile = true, .brokerRec132 = true}, rows, threeBytes), 14),
            lendingSides);
}

TEST(ConvertLines, lendingAdminFilesTurnTheirSideInBothFormats) {
  const std::vector<ConvertTradeRow> rows = tradesOfSides("BSLT");
  ConvertRules rules = lendingRules;
  rules.adminFormat = AdminFormat::normal;
  EXPECT_EQ(column(lines<AdminRec176>('V', 'A', rules, rows, threeBytes), 11), lendingSides);
  rules.adminFormat = AdminFormat::br;
  EXPECT_EQ(column(lines<AdminRec176>('V', 'A', rules, rows, threeBytes), 14), lendingSides);
  rules.adminRec168 = true;
  EXPECT_EQ(column(lines<AdminRec168>('V', 'A', rules, rows, threeBytes), 14), lendingSides);
  rules.adminRec144 = true;
  EXPECT_EQ(column(lines<AdminRec144>('N', 'A', rules, rows, threeBytes), 14), lendingSides);
  rules.isLendingFile = false;
  EXPECT_EQ(column(lines<AdminRec144>('N', 'A', rules, rows, threeBytes), 14), ordinarySides);
}

TEST(ConvertLines, kestoSidesBecomeBuysAndSells) {
  const std::vector<ConvertTradeRow> rows = tradesOfSides("STMVLSBX");
  const Texts expected = {"B", "B", "S", "S", "S", "B", "B", "B"};
  EXPECT_EQ(column(lines<KestoTradeRec>('B', 'T', {}, rows, threeBytes), 11), expected);
  EXPECT_EQ(column(lines<KestoBrokerRec>('B', 'B', {}, rows, threeBytes), 12), expected);
  // A lending file's name has no say in it.
  EXPECT_EQ(column(lines<KestoTradeRec>('B', 'T', lendingRules, rows, threeBytes), 11), expected);
  EXPECT_EQ(column(lines<KestoBrokerRec>('B', 'B', lendingRules, rows, threeBytes), 12), expected);
}

TEST(ConvertLines, kestoSideOfNoMeaningKeepsTheLetterBeforeAndBeginsEmpty) {
  EXPECT_EQ(column(lines<KestoTradeRec>('B', 'T', {}, tradesOfSides("XBVXS"), threeBytes), 11), (Texts{"", "", "S", "S", "B"}));
  EXPECT_EQ(column(lines<KestoBrokerRec>('B', 'B', {}, tradesOfSides("XBVXS"), threeBytes), 12),
            (Texts{"", "", "S", "S", "B"}));
}

// ---- Codes ------------------------------------------------------------------------------------------------------------

TEST(ConvertLines, retentionWithoutATextKeepsTheOneBeforeAndBeginsEmpty) {
  std::vector<OrderRow> rows;
  std::vector<ConsolidatedRow> consolidated;
  for (const std::int16_t code : {-1, 5, 0, 1, 2, 3, 4, 5, 32767}) {
    rows.push_back({.retention = code});
    consolidated.push_back({.retention = code});
  }
  const Texts expected = {"", "", "IOC", "EOSESS", "EOTODY", "EOD", "EOSTLM", "EOSTLM", "EOSTLM"};
  EXPECT_EQ(column(lines<OrderRec136>('N', 'O', {}, rows, twoBytes), 15), expected);
  EXPECT_EQ(column(lines<OrderRec112>('N', 'O', {.orderRec112 = true}, rows, twoBytes), 15), expected);
  EXPECT_EQ(column(lines<ConsolidatedOrderRec>('N', 'L', {}, consolidated, twoBytes), 15), expected);
}

TEST(ConvertLines, deletionWithoutARetentionTextHasAnEmptyColumn) {
  const std::vector<DeletionRow> rows = {{.retention = 2}, {.retention = 5}, {.retention = -1}, {.retention = 4}};
  EXPECT_EQ(column(lines<AdminDeletionRec>('N', 'J', {}, rows, threeBytes), 11), (Texts{"EOTODY", "", "", "EOSTLM"}));
}

TEST(ConvertLines, actionCodesHaveTheirLettersAndOthersKeepTheOneBefore) {
  std::vector<OrderRow> rows;
  std::vector<ConsolidatedRow> consolidated;
  for (std::int16_t code = 0; code <= 19; ++code) {
    rows.push_back({.actionCode = code});
    consolidated.push_back({.actionCode = code});
  }
  const Texts expected = {"", "A", "U", "D", "A", "U", "D", "A", "A", "A", "U", "D", "A", "U", "D", "A", "D", "A", "D", "D"};
  EXPECT_EQ(column(lines<OrderRec136>('N', 'O', {}, rows, twoBytes), 16), expected);
  EXPECT_EQ(column(lines<OrderRec112>('N', 'O', {.orderRec112 = true}, rows, twoBytes), 16), expected);
  EXPECT_EQ(column(lines<ConsolidatedOrderRec>('N', 'L', {}, consolidated, twoBytes), 16), expected);
}

TEST(ConvertLines, quotesServeActions1To6Alone) {
  std::vector<QuoteRow> rows;
  for (std::int16_t code = 0; code <= 9; ++code) rows.push_back({.actionCode = code});
  EXPECT_EQ(column(lines<QuoteRec>('N', 'Q', {}, rows, twoBytes), 16),
            (Texts{"", "A", "U", "D", "A", "U", "D", "D", "D", "D"}));
}

TEST(ConvertLines, rectificationsHaveActionsOfTheirOwn) {
  std::vector<OrderRow> clients, types;
  for (const std::int16_t code : {1, 21, 19, 20, 22, 3, 19}) clients.push_back({.actionCode = code, .recordKind = 'Y'});
  for (const std::int16_t code : {1, 19, 21, 22, 20, 3, 21}) types.push_back({.actionCode = code, .recordKind = 'I'});
  const Texts expected = {"", "", "A", "R", "R", "R", "A"};
  EXPECT_EQ(column(lines<OrderRec136>('N', 'O', {.logChoice = OrderLogChoice::clientRectification}, clients, twoBytes), 14),
            expected);
  EXPECT_EQ(column(lines<OrderRec136>('N', 'O', {.logChoice = OrderLogChoice::typeRectification}, types, twoBytes), 14),
            expected);
}

// What stays is what the last line showed, not what a record that gave none holds.
TEST(ConvertLines, recordThatGivesNoLineLeavesNothingBehind) {
  const std::vector<OrderRow> rows = {{.retention = 3, .actionCode = 1},
                                      {.retention = 0, .actionCode = 2, .recordKind = 'Y'},
                                      {.retention = 9, .actionCode = 99}};
  const std::vector<Columns> found = lines<OrderRec136>('N', 'O', {}, rows, twoBytes);
  EXPECT_EQ(column(found, 15), (Texts{"EOD", "EOD"}));
  EXPECT_EQ(column(found, 16), (Texts{"A", "A"}));
}

TEST(ConvertLines, clientTypeOfNoTableIsAClient) {
  const std::vector<OrderRow> orders = {{.clientType = 61}, {.clientType = 0}, {.clientType = -5}};
  EXPECT_EQ(column(lines<OrderRec136>('N', 'O', {}, orders, twoBytes), 14), (Texts{"DFI", "CLIENT", "CLIENT"}));
}

// ---- Order log --------------------------------------------------------------------------------------------------------

TEST(ConvertLines, choiceTakesTheRecordsOfItsKindAlone) {
  std::vector<OrderRow> rows;
  for (const char kind : std::string_view("NYIXNIY"))
    rows.push_back({.scripCode = static_cast<int>(rows.size()), .recordKind = kind});
  const auto codes = [&](OrderLogChoice choice) {
    return column(lines<OrderRec136>('N', 'O', {.logChoice = choice}, rows, twoBytes), 2);
  };
  EXPECT_EQ(codes(OrderLogChoice::orders), (Texts{"0", "4"}));
  EXPECT_EQ(codes(OrderLogChoice::clientRectification), (Texts{"1", "6"}));
  EXPECT_EQ(codes(OrderLogChoice::typeRectification), (Texts{"2", "5"}));
}

TEST(ConvertLines, everyOldRecordGivesALineWithItsOwnDate) {
  std::vector<OrderRec112> records = oldOrders(std::vector<OrderRow>(2), 22, 9, 3);
  records[1].recYear = 12;
  const std::string text = linesOfRecords(convertHeader('N', 'O'), {.orderRec112 = true}, records);
  EXPECT_EQ(column(columnsOf(text, twoBytes), 10), (Texts{"22/09/0303", "22/09/1212"}));
}

TEST(ConvertLines, dateOfALaterRecordIsThatOfTheFile) {
  std::vector<OrderRec136> records(1);
  records[0].recordKind = 'N';
  records[0].order.recDay = 1;
  const std::string text = linesOfRecords(logHeader(1, 2, 7, 6, 2010), {}, records);
  EXPECT_EQ(column(columnsOf(text, twoBytes), 10), (Texts{"07/06/2010"}));
}

// Hours are unsigned bytes; dates are not.
TEST(ConvertLines, timeAndDateOfStrangeNumbers) {
  TradeHeader header = logHeader(1, 2, -7, 600, 2010, 'Q');
  const std::vector<QuoteRow> rows = {{.hour = 200, .minute = 255, .second = 9}};
  const std::vector<Columns> found = columnsOf(linesOfRecords(header, {}, recordsOf<QuoteRec>(rows)), twoBytes);
  EXPECT_EQ(column(found, 13), (Texts{"200:255:09"}));
  EXPECT_EQ(column(found, 14), (Texts{"-7/600/2010"}));
}

// ---- Messages and other texts -----------------------------------------------------------------------------------------

TEST(ConvertLines, messageIsCutAtItsFirstLineFeedEverywhereButInTradeRectifications) {
  const std::string_view text = "One\nTwo\nThree";
  const auto last = [](const std::vector<Columns>& found) { return found.at(0).back(); };
  EXPECT_EQ(last(lines<OrderRec136>('N', 'O', {}, std::vector<OrderRow>{{.message = text}}, twoBytes)), "One");
  EXPECT_EQ(last(lines<OrderRec112>('N', 'O', {.orderRec112 = true}, std::vector<OrderRow>{{.message = text}}, twoBytes)),
            "One");
  EXPECT_EQ(last(lines<QuoteRec>('N', 'Q', {}, std::vector<QuoteRow>{{.message = text}}, twoBytes)), "One");
  EXPECT_EQ(last(lines<AdminDeletionRec>('N', 'J', {}, std::vector<DeletionRow>{{.message = text}}, threeBytes)), "One");
  for (const auto& [kind, choice] :
       {std::pair{'Y', OrderLogChoice::clientRectification}, std::pair{'I', OrderLogChoice::typeRectification}}) {
    const std::vector<OrderRow> rows = {{.message = text, .recordKind = kind}};
    EXPECT_EQ(last(lines<OrderRec136>('N', 'O', {.logChoice = choice}, rows, twoBytes)), "One");
  }
  const std::vector<ConsolidatedRow> rows = {{.message = text}};
  EXPECT_EQ(lines<ConsolidatedOrderRec>('N', 'L', {}, rows, twoBytes).at(0).at(16), std::string(37, ' ') + "One");

  const std::vector<RectificationRow> whole = {{.message = text}};
  const std::string line = linesOfRecords(convertHeader('S', 'S'), {}, recordsOf<TradeRectificationRec>(whole));
  EXPECT_NE(line.find("|One\r\nTwo\r\nThree|\r\n"), std::string::npos) << line;
}

// It has no end of its own there. In the other records it is the last field, or another's bytes are no part of it.
TEST(ConvertLines, fullMessageOfAnOrderRunsOnIntoTheFieldsBehindIt) {
  const std::string run = std::string(forty) + "ABCDNEW";
  const std::vector<OrderRow> later = {{.message = forty, .tradeId = letters, .newClientId = "NEW"}, {}};
  EXPECT_EQ(column(lines<OrderRec136>('N', 'O', {}, later, twoBytes), 17), (Texts{run, ""}));
  const std::vector<OrderRow> old = {{.message = forty}, {.scripCode = letters}};
  EXPECT_EQ(column(lines<OrderRec112>('N', 'O', {.orderRec112 = true}, old, twoBytes), 17), (Texts{std::string(forty), ""}));
  const std::vector<DeletionRow> deletions = {{.message = forty, .firstNumber = letters}};
  EXPECT_EQ(column(lines<AdminDeletionRec>('N', 'J', {}, deletions, threeBytes), 16), (Texts{std::string(forty)}));
}

// Behind the last field there is nothing more of the record, and the next one is not its own.
TEST(ConvertLines, messageWithoutAnyEndStopsWithItsRecord) {
  std::vector<OrderRec136> records(2);
  for (OrderRec136& record : records) {
    put(record.order.message, forty);
    std::memset(&record.tradeId, 'x', sizeof record - offsetof(OrderRec136, tradeId));
    record.recordKind = 'N';
  }
  const std::string text = linesOfRecords(convertHeader('N', 'O'), {}, records);
  const std::string expected = std::string(forty) + std::string(16, 'x') + "N" + std::string(7, 'x');
  EXPECT_EQ(column(columnsOf(text, twoBytes), 17), (Texts{expected, expected}));
}

TEST(ConvertLines, percentSignsStandAsTheyAre) {
  const std::vector<ConvertTradeRow> rows = {{.scripId = "5%d %%n %s"}};
  EXPECT_EQ(column(lines<TradeRec132>('N', 'T', {.tradeRec132 = true}, rows, threeBytes), 2), (Texts{"5%d %%n %s"}));
  const std::vector<QuoteRow> quotes = {{.message = "100% %%"}};
  EXPECT_EQ(column(lines<QuoteRec>('N', 'Q', {}, quotes, twoBytes), 17), (Texts{"100% %%"}));
}

TEST(ConvertLines, adminTextsAreClosedAt53And70) {
  std::vector<AdminRec176> records(1);
  std::memset(records[0].front.tradeTime.bytes, 't', sizeof records[0].front.tradeTime.bytes);
  std::memset(records[0].front.tradeDate.bytes, 'd', sizeof records[0].front.tradeDate.bytes);
  const std::string text = linesOfRecords(convertHeader('V', 'A'), {.adminFormat = AdminFormat::br}, records);
  const std::vector<Columns> found = columnsOf(text, threeBytes);
  EXPECT_EQ(column(found, 9), (Texts{"ttttttttt"}));
  EXPECT_EQ(column(found, 10), (Texts{"ddddddddddd"}));
}

// The time of day stands there whatever precedes it, a NUL in it ends it.
TEST(ConvertLines, orderTimeIsCharacters11To18OfTheStamp) {
  std::vector<TradeRec144> records(3);
  put(records[0].orderTimeStamp, "0123456789 12:34:56.7");
  put(records[1].orderTimeStamp, "");
  std::memcpy(records[1].orderTimeStamp.bytes + 11, "07:08:09", 8);
  put(records[2].orderTimeStamp, "0123456789 12:3");
  const std::string text = linesOfRecords(convertHeader('V', 'T'), {.tradeShortLine = true}, records);
  EXPECT_EQ(column(columnsOf(text, threeBytes), 16), (Texts{"12:34:56", "07:08:09", "12:3"}));
}

// No date of a file alters the number, on either side of the cut-over.
TEST(ConvertLines, numberOfATradeIsTheSameWhateverItsTypeAndDate) {
  const std::vector<ConvertTradeRow> rows = {{.type = 'O', .trnId = 20090521000001}, {.type = 'L', .trnId = 20090521000001}};
  TradeHeader header = convertHeader('N', 'T');
  for (const std::int16_t day : {21, 22}) {
    header.day = day;
    header.year = 9;
    const std::string text = linesOfRecords(header, {.tradeRec132 = true}, recordsOf<TradeRec132>(rows));
    EXPECT_EQ(column(columnsOf(text, threeBytes), 13), (Texts{"20090521000001", "20090521000001"}));
  }
}

// ---- Admin formats ----------------------------------------------------------------------------------------------------

TEST(ConvertLines, adminFileWithoutAFormatAsksOnceAndEndsWhereItsRecordsHave144Bytes) {
  const TradeHeader header = convertHeader('N', 'A');
  makeConvertFile("FORMAT.IN", header, std::vector<AdminRec144>(3));
  // A date before the longest records says nothing of these.
  for (const bool adminRec168 : {false, true}) {
    for (const int count : {1, 3}) {
      const Converted converted = convertFile("FORMAT.IN", header, {.adminRec144 = true, .adminRec168 = adminRec168}, count);
      EXPECT_EQ(converted.end, ConvertEnd::formatMissing);
      EXPECT_EQ(formatsAsked, 1);
      EXPECT_EQ(converted.text, "");
    }
  }
}

TEST(ConvertLines, longerAdminFilesWithoutAFormatAskForEachRecord) {
  const TradeHeader header = convertHeader('V', 'A');
  makeConvertFile("FORMAT.IN", header, std::vector<AdminRec176>(3));
  for (const bool adminRec168 : {false, true}) {
    const Converted converted = convertFile("FORMAT.IN", header, {.adminRec168 = adminRec168}, 3);
    EXPECT_EQ(converted.end, ConvertEnd::done);
    EXPECT_EQ(formatsAsked, 3);
    EXPECT_EQ(converted.text, "");
  }
}

TEST(ConvertLines, noFormatIsAskedForWhereOneIsChosenOrNoRecordIs) {
  const TradeHeader header = convertHeader('V', 'A');
  makeConvertFile("FORMAT.IN", header, std::vector<AdminRec176>(3));
  EXPECT_EQ(convertFile("FORMAT.IN", header, {.adminFormat = AdminFormat::normal}, 3).end, ConvertEnd::done);
  EXPECT_EQ(formatsAsked, 0);
  EXPECT_EQ(convertFile("FORMAT.IN", header, {.adminRec144 = true}, 0).end, ConvertEnd::done);
  EXPECT_EQ(formatsAsked, 0);
}

// ---- The walk through a file ------------------------------------------------------------------------------------------

// More records than are fetched at a time: none is lost or written twice.
TEST(ConvertLines, longFileComesOutInItsOrder) {
  std::vector<TradeRec132> trades(5000);
  std::string expected;
  for (std::size_t i = 0; i < trades.size(); ++i) {
    trades[i].scripCode = static_cast<std::int32_t>(i);
    trades[i].side = 'B';
    trades[i].tradeType = 'L';
    expected += std::to_string(i) + "||0|0|0|0|0||||B|L|0|||\r\r\n";
  }
  EXPECT_EQ(linesOfRecords(convertHeader('N', 'T'), {.tradeRec132 = true}, trades), expected);
}

TEST(ConvertLines, onlyTheCountedRecordsAreWritten) {
  const TradeHeader header = convertHeader('N', 'Q');
  makeConvertFile("COUNTED.IN", header, std::vector<QuoteRec>(5));
  for (const int count : {0, 1, 4, 5}) {
    const Converted converted = convertFile("COUNTED.IN", header, {}, count);
    EXPECT_EQ(converted.end, ConvertEnd::done);
    EXPECT_EQ(std::count(converted.text.begin(), converted.text.end(), '\n'), count);
  }
}

TEST(ConvertLines, fileThatEndsTooEarlyIsToldAndItsLinesStand) {
  const TradeHeader header = convertHeader('N', 'Q');
  makeConvertFile("SHORT.IN", header, std::vector<QuoteRec>(5));
  const Converted converted = convertFile("SHORT.IN", header, {}, 6);
  EXPECT_EQ(converted.end, ConvertEnd::readFailed);
  EXPECT_EQ(std::count(converted.text.begin(), converted.text.end(), '\n'), 5);
}

// Reads are the header and one for each record.
TEST(ConvertLines, recordThatTheDeviceDoesNotGiveEndsTheLines) {
  const TradeHeader header = convertHeader('N', 'Q');
  makeConvertFile("DEVICE.IN", header, std::vector<QuoteRec>(5));
  for (std::size_t fault = 1; fault <= 6; ++fault) {
    faultsArm(Fault::read, fault, false);
    const Converted converted = convertFile("DEVICE.IN", header, {}, 5);
    faultsClear();
    EXPECT_EQ(converted.end, ConvertEnd::readFailed) << fault;
    EXPECT_EQ(std::count(converted.text.begin(), converted.text.end(), '\n'), fault == 1 ? 0 : static_cast<int>(fault) - 2);
  }
  faultsArm(Fault::seek, 1, false);
  EXPECT_EQ(convertFile("DEVICE.IN", header, {}, 5).end, ConvertEnd::readFailed);
  faultsClear();
}

TEST(ConvertLines, fileWithoutAWholeHeaderIsTold) {
  std::FILE* file = std::fopen("HEADLESS.IN", "wb");
  ASSERT_NE(file, nullptr);
  std::fputs("NQ", file);
  ASSERT_EQ(std::fclose(file), 0);
  EXPECT_EQ(convertFile("HEADLESS.IN", convertHeader('N', 'Q'), {}, 0).end, ConvertEnd::readFailed);
}

// A deletion log under a Kesto file's letter goes the way of Kesto files; under any other it is a deletion log.
TEST(ConvertLines, kestoLetterWinsOverADeletionLog) {
  const std::vector<KestoBrokerRec> records = recordsOf<KestoBrokerRec>(ordinaryConvertTrades);
  EXPECT_EQ(linesOfRecords(convertHeader('B', 'J'), {}, records), linesOfRecords(convertHeader('B', 'B'), {}, records));
  const std::vector<AdminDeletionRec> deletions = recordsOf<AdminDeletionRec>(ordinaryDeletions);
  EXPECT_EQ(linesOfRecords(convertHeader('J', 'J'), {}, deletions), linesOfRecords(convertHeader('N', 'J'), {}, deletions));
}

// All but the Kesto files are sought from their start; those go on from where they stand.
TEST(ConvertLines, kestoFileAloneGoesOnFromWhereItStands) {
  registerClientTypes();
  const TradeHeader header = convertHeader('N', 'Q');
  makeConvertFile("PLACE.IN", header, std::vector<QuoteRec>(2));
  Input* in = inputOpen("PLACE.IN", InputKind::binary);
  ASSERT_NE(in, nullptr);
  char passed[40];
  ASSERT_TRUE(inputRead(*in, passed, sizeof passed));
  std::string text;
  Output* out = outputToMemory(&text);
  EXPECT_EQ(writeLines(*in, *out, header, ConvertKind::quoteLog, {}, 2, countAskedFormat), ConvertEnd::done);
  ASSERT_TRUE(inputSeekStart(*in));
  ASSERT_TRUE(inputRead(*in, passed, sizeof passed));
  // 24 + 2 * 126 - 40 - 24 bytes are left: one record of a Kesto file, and no second one.
  EXPECT_EQ(writeLines(*in, *out, convertHeader('B', 'T'), ConvertKind::kestoTrade, {}, 1, countAskedFormat), ConvertEnd::done);
  EXPECT_EQ(inputTell(*in), 40 + 24 + 142);
  EXPECT_TRUE(outputClose(out));
  inputClose(in);
}

TEST(ConvertLines, noKindGivesNoLines) {
  const TradeHeader header = convertHeader('N', 'X');
  makeConvertFile("NONE.IN", header, std::vector<QuoteRec>(2));
  const Converted converted = convertFile("NONE.IN", header, {}, 2);
  EXPECT_EQ(converted.end, ConvertEnd::done);
  EXPECT_EQ(converted.text, "");
}

// ---- Counting a kind --------------------------------------------------------------------------------------------------

TEST(ConvertLines, recordsOfAKindAreCountedFromTheStart) {
  std::vector<OrderRow> rows;
  for (const char kind : std::string_view("NYINXN")) rows.push_back({.recordKind = kind});
  makeConvertFile("KINDS.IN", convertHeader('N', 'O'), recordsOf<OrderRec136>(rows));
  Input* in = inputOpen("KINDS.IN", InputKind::binary);
  ASSERT_NE(in, nullptr);
  const std::pair<char, std::int64_t> expected[] = {{'N', 3}, {'Y', 1}, {'I', 1}, {'Z', 0}};
  for (const auto& [kind, matches] : expected) {
    std::int64_t count = -1;
    EXPECT_TRUE(countRecordsOfKind(*in, 6, kind, count));
    EXPECT_EQ(count, matches) << kind;
    EXPECT_EQ(inputTell(*in), 0);
  }
  std::int64_t count = -1;
  EXPECT_TRUE(countRecordsOfKind(*in, 1, 'Y', count));
  EXPECT_EQ(count, 0) << "the second record is beyond the count";
  EXPECT_FALSE(countRecordsOfKind(*in, 7, 'N', count)) << "the file has six";
  inputClose(in);
}

}  // namespace
}  // namespace quillon::test
