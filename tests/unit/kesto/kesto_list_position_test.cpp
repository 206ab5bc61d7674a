// The net position behind the Kesto lists.
#include "kesto/kesto_list_position.h"

#include <gtest/gtest.h>

#include "kesto/deals.h"
#include "kesto/kesto_broker_list.h"
#include "kesto/kesto_trades_list.h"
#include "support/approved.h"

namespace quillon::test {

template <typename Record, typename Print>
static std::string positionOf(const KestoList& list, const std::vector<Deal>& deals, const KestoSortKeys& keys, Print print) {
  const std::vector<Record> block = blockOf<Record>(deals);
  const std::vector<std::uint32_t> order = orderOf(block, keys);
  std::string text;
  Output* out = outputToMemory(&text);
  print(*out, list, block.data(), KestoOrder(order));
  EXPECT_TRUE(outputClose(out));
  return text;
}

static std::string tradesPosition(const KestoList& list, const std::vector<Deal>& deals) {
  return positionOf<KestoTradeRec>(list, deals, kestoTradeSortKeys(KestoSort::days), printKestoTradesPosition);
}

static std::string brokerPosition(const KestoList& list, const std::vector<Deal>& deals) {
  return positionOf<KestoBrokerRec>(list, deals, kestoBrokerSortKeys(KestoSort::days), printKestoBrokerPosition);
}

static KestoList atPage(char fileKind, int page) {
  KestoList list = kestoList(fileKind);
  list.page = page;
  return list;
}

static KestoList narrowList() {
  KestoList list = atPage('C', 3);
  list.header.memberId = 7;
  list.header.traderId = 3;
  list.header.day = 5;
  list.header.month = 3;
  return list;
}

static KestoList wideList() {
  KestoList list = atPage('B', 123);
  list.isLendingFile = true;
  list.header.memberId = 2147483647;
  list.header.traderId = -2147483647;
  list.header.day = 31;
  list.header.month = 12;
  list.header.century = 2009;
  list.header.year = 2009;
  return list;
}

// The cells of every row, without their blanks.
static std::vector<std::vector<std::string>> rowsOf(const std::string& text) {
  std::vector<std::vector<std::string>> rows;
  std::vector<std::string> lines = linesOf(text);
  bool inRows = false;
  for (const std::string& line : lines) {
    if (line.starts_with("|__")) {
      inRows = !inRows;
    } else if (inRows) {
      std::vector<std::string>& row = rows.emplace_back();
      for (std::size_t at = 1, bar; (bar = line.find('|', at)) != std::string::npos; at = bar + 1) {
        const std::string cell = line.substr(at, bar - at);
        row.push_back(cell.substr(std::min(cell.find_first_not_of(' '), cell.size())));
      }
    }
  }
  return rows;
}

using Rows = std::vector<std::vector<std::string>>;

static Deal deal(std::string_view scripId, int days, char side, int qty, int rate) {
  return {.scripId = scripId, .days = days, .rate = rate, .qty = qty, .side = side};
}

// Both sections have the same rows.
static void expectRows(const std::vector<Deal>& deals, const Rows& rows) {
  EXPECT_EQ(rowsOf(tradesPosition(atPage('C', 2), deals)), rows);
  EXPECT_EQ(rowsOf(brokerPosition(atPage('C', 2), deals)), rows);
}

TEST(KestoListPosition, severalScripsAndDays) {
  expectApproved("kesto/trades_position_ordinary.txt", tradesPosition(atPage('C', 4), ordinaryDeals));
  expectApproved("kesto/broker_position_ordinary.txt", brokerPosition(atPage('C', 4), ordinaryDeals));
}

TEST(KestoListPosition, wideValuesPushRowOut) {
  expectApproved("kesto/trades_position_wide_values.txt", tradesPosition(wideList(), hugeDeals));
  expectApproved("kesto/broker_position_wide_values.txt", brokerPosition(wideList(), hugeDeals));
}

TEST(KestoListPosition, narrowValuesStandRight) {
  expectApproved("kesto/trades_position_narrow_values.txt", tradesPosition(narrowList(), narrowDeals));
  expectApproved("kesto/broker_position_narrow_values.txt", brokerPosition(narrowList(), narrowDeals));
}

TEST(KestoListPosition, withoutRecordsItIsHeadingRuleAndTotal) {
  expectApproved("kesto/trades_position_empty.txt", tradesPosition(atPage('B', 2), {}));
  expectApproved("kesto/broker_position_empty.txt", brokerPosition(atPage('B', 2), {}));
}

TEST(KestoListPosition, listByTimeIsFollowedByDaysAndScripOrder) {
  const std::vector<Deal> byTime = {deal("CAM", 7, 'T', 1, 10000), deal("BOLT", 30, 'T', 2, 10000),
                                    deal("AXLE", 30, 'T', 3, 10000), deal("BOLT", 7, 'T', 4, 10000),
                                    deal("CAM", 7, 'T', 5, 10000)};
  expectRows(byTime, {{"BOLT", "7", "4", "1.0000", "0", "0.0000", "4", "4.0000", "1.0000"},
                      {"CAM", "7", "6", "1.0000", "0", "0.0000", "6", "6.0000", "1.0000"},
                      {"AXLE", "30", "3", "1.0000", "0", "0.0000", "3", "3.0000", "1.0000"},
                      {"BOLT", "30", "2", "1.0000", "0", "0.0000", "2", "2.0000", "1.0000"}});
}

TEST(KestoListPosition, oneScripOfTwoDaysHasTwoRows) {
  expectRows({deal("AXLE", 7, 'S', 10, 10000), deal("AXLE", 8, 'S', 20, 10000)},
             {{"AXLE", "7", "10", "1.0000", "0", "0.0000", "10", "10.0000", "1.0000"},
              {"AXLE", "8", "20", "1.0000", "0", "0.0000", "20", "20.0000", "1.0000"}});
}

TEST(KestoListPosition, equalLendAndBorrowHaveNetQtyAndBreakEvenOfZero) {
  expectRows({deal("AXLE", 7, 'S', 10, 20000), deal("AXLE", 7, 'V', 10, 15000)},
             {{"AXLE", "7", "10", "2.0000", "10", "1.5000", "0", "5.0000", "0.0000"}});
}

TEST(KestoListPosition, breakEvenIsCutToFourDecimalsAndNeverNegative) {
  // 1 at 2.0000 lent, 2 at 1.5000 and 2 at 1.0001 borrowed: -3.0002 over -3, 1.00006..., cut.
  expectRows({deal("AXLE", 7, 'T', 1, 20000), deal("AXLE", 7, 'M', 2, 15000), deal("AXLE", 7, 'M', 2, 10001)},
             {{"AXLE", "7", "1", "2.0000", "4", "1.2500", "-3", "-3.0002", "1.0000"}});
  // 5 at 1.0000 lent, 4 at 2.0000 borrowed: -3.0000 over 1.
  expectRows({deal("AXLE", 7, 'T', 5, 10000), deal("AXLE", 7, 'M', 4, 20000)},
             {{"AXLE", "7", "5", "1.0000", "4", "2.0000", "1", "-3.0000", "3.0000"}});
}

TEST(KestoListPosition, everyOtherSideIsBorrowed) {
  for (const char side : std::string("MVXst \0", 7)) {
    expectRows({deal("AXLE", 7, side, 10, 10000)}, {{"AXLE", "7", "0", "0.0000", "10", "1.0000", "-10", "-10.0000", "1.0000"}});
  }
}

TEST(KestoListPosition, scripsThatDifferInCaseAreTwoRows) {
  expectRows({deal("axle", 7, 'T', 1, 10000), deal("AXLE", 7, 'T', 2, 10000)},
             {{"AXLE", "7", "2", "1.0000", "0", "0.0000", "2", "2.0000", "1.0000"},
              {"axle", "7", "1", "1.0000", "0", "0.0000", "1", "1.0000", "1.0000"}});
}

TEST(KestoListPosition, dealsOfNoDaysAndNoScripAtTheEndMakeNoRow) {
  expectRows({deal("", 0, 'T', 5, 10000)}, {});
  // With days or with a scrip they do.
  expectRows({deal("", 1, 'T', 5, 10000)}, {{"", "1", "5", "1.0000", "0", "0.0000", "5", "5.0000", "1.0000"}});
  expectRows({deal("A", 0, 'T', 5, 10000)}, {{"A", "0", "5", "1.0000", "0", "0.0000", "5", "5.0000", "1.0000"}});
  // Nor does an equal one before it; the next scrip then has them.
  expectRows({deal("", -1, 'T', 5, 10000), deal("", 0, 'T', 7, 10000)},
             {{"", "-1", "5", "1.0000", "0", "0.0000", "5", "5.0000", "1.0000"}});
}

TEST(KestoListPosition, pageNumberIsTheOneThatTheListLeft) {
  KestoList list = kestoList('C', 3);
  listed<KestoTradeRec>(list, ordinaryDeals, printKestoTradesList);
  EXPECT_NE(tradesPosition(list, ordinaryDeals).find("Page: 4\r\n"), std::string::npos);
  EXPECT_EQ(list.page, 4);
  KestoList query = kestoList('C', 3);
  listed<KestoBrokerRec>(query, ordinaryDeals, printKestoBrokerList);
  EXPECT_NE(brokerPosition(query, ordinaryDeals).find("Page: 4\r\n"), std::string::npos);
}

TEST(KestoListPosition, ofTradesBeginsWithFormFeedAndOfBrokerQueryEndsWithOne) {
  const std::string trades = tradesPosition(atPage('C', 2), ordinaryDeals),
                    query = brokerPosition(atPage('C', 2), ordinaryDeals);
  EXPECT_EQ(trades.find_last_of('\f'), 0u);
  EXPECT_EQ(query.find('\f'), query.size() - 1);
}

TEST(KestoListPosition, anyLetterButCIsOfW) {
  for (const char letter : {'B', 'X', 'c'}) {
    EXPECT_NE(tradesPosition(atPage(letter, 2), {}).find("NETPOSITION FOR KESTO (W) TRADES EXECUTED ON:"), std::string::npos);
    EXPECT_NE(brokerPosition(atPage(letter, 2), {}).find("NETPOSITION FOR KESTO (W) TRADES EXECUTED ON:"), std::string::npos);
  }
}

}  // namespace quillon::test
