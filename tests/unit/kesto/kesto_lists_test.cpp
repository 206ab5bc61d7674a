// The two lists of the Kesto form, whole pages compared with approved ones, and the orders that they are printed in.
#include <gtest/gtest.h>

#include "kesto/deals.h"
#include "kesto/kesto_broker_list.h"
#include "kesto/kesto_trades_list.h"
#include "support/approved.h"

namespace quillon::test {

static std::string tradesList(KestoList list, const std::vector<Deal>& deals) {
  return listed<KestoTradeRec>(list, deals, printKestoTradesList);
}

static std::string brokerList(KestoList list, const std::vector<Deal>& deals) {
  return listed<KestoBrokerRec>(list, deals, printKestoBrokerList);
}

static KestoList wideList() {
  KestoList list = kestoList('B', 3);
  list.header.memberId = 2147483647;
  list.header.traderId = -2147483647;
  list.header.day = 31;
  list.header.month = 12;
  list.header.century = 2009;
  list.header.year = 2009;
  return list;
}

static KestoList narrowList() {
  KestoList list = kestoList('C', 2);
  list.header.memberId = 7;
  list.header.traderId = 3;
  list.header.day = 5;
  list.header.month = 3;
  return list;
}

static KestoList lendingList() {
  KestoList list = kestoList('B');
  list.isLendingFile = true;
  return list;
}

static const std::vector<Deal> firstTwoDeals(ordinaryDeals.begin(), ordinaryDeals.begin() + 2);

static Deal withSide(Deal deal, char side) {
  deal.side = side;
  return deal;
}

static Deal withType(Deal deal, char tradeType) {
  deal.tradeType = tradeType;
  return deal;
}

// ---- Trades ---------------------------------------------------------------------------------------------------------------

TEST(KestoTradesList, bothSidesOnPagesOfThreeRecords) {
  expectApproved("kesto/trades_ordinary.txt", tradesList(kestoList('C', 3), ordinaryDeals));
}

TEST(KestoTradesList, lendingFileBearsClearingHouse) {
  expectApproved("kesto/trades_lending.txt", tradesList(lendingList(), firstTwoDeals));
}

TEST(KestoTradesList, wideValuesPushRowOut) {
  expectApproved("kesto/trades_wide_values.txt", tradesList(wideList(), wideDeals));
}

TEST(KestoTradesList, narrowValuesStandRight) {
  expectApproved("kesto/trades_narrow_values.txt", tradesList(narrowList(), narrowDeals));
}

TEST(KestoTradesList, withoutTradesItIsHeadingAndClosingRule) {
  expectApproved("kesto/trades_empty.txt", tradesList(kestoList('B'), {}));
}

TEST(KestoTradesList, leavesPrinterWithoutFinalFormFeed) {
  EXPECT_EQ(tradesList(kestoList('C', 2), firstTwoDeals).find('\f'), std::string::npos);
}

TEST(KestoTradesList, oddLotTrnIdIsLess10000000) {
  const std::string text = tradesList(kestoList('C'), {withType(ordinaryDeals[2], 'O'), withType(ordinaryDeals[2], 'L')});
  EXPECT_NE(text.find("|    40003O|"), std::string::npos);
  EXPECT_NE(text.find("| 10040003L|"), std::string::npos);
}

TEST(KestoTradesList, pageNumberIsLeftOneAboveTheLast) {
  KestoList list = kestoList('C', 3);
  listed<KestoTradeRec>(list, ordinaryDeals, printKestoTradesList);
  EXPECT_EQ(list.page, 4);
}

TEST(KestoTradesList, letterWordsTitleAndNothingElse) {
  std::string ofR = tradesList(kestoList('C'), ordinaryDeals);
  const std::string ofW = tradesList(kestoList('B'), ordinaryDeals);
  ofR.replace(ofR.find("(R)"), 3, "(W)");
  EXPECT_EQ(ofR, ofW);
}

TEST(KestoTradesList, otherSidesPrintNothing) {
  for (const char side : std::string("XBLstvm \0", 9)) {
    EXPECT_EQ(tradesList(kestoList('C'), {withSide(ordinaryDeals[0], side)}), tradesList(kestoList('C'), {})) << side;
  }
}

// ---- Broker query ---------------------------------------------------------------------------------------------------------

TEST(KestoBrokerList, bothSidesOnPagesOfThreeRecords) {
  expectApproved("kesto/broker_ordinary.txt", brokerList(kestoList('C', 3), ordinaryDeals));
}

TEST(KestoBrokerList, lendingFileBearsClearingHouse) {
  expectApproved("kesto/broker_lending.txt", brokerList(lendingList(), firstTwoDeals));
}

TEST(KestoBrokerList, wideValuesPushRowOut) {
  expectApproved("kesto/broker_wide_values.txt", brokerList(wideList(), wideDeals));
}

TEST(KestoBrokerList, narrowValuesStandRight) {
  expectApproved("kesto/broker_narrow_values.txt", brokerList(narrowList(), narrowDeals));
}

TEST(KestoBrokerList, withoutRecordsItIsHeadingClosingRuleAndFormFeed) {
  expectApproved("kesto/broker_empty.txt", brokerList(kestoList('B'), {}));
}

TEST(KestoBrokerList, pageNumberIsLeftOneAboveTheLast) {
  KestoList list = kestoList('C', 3);
  listed<KestoBrokerRec>(list, ordinaryDeals, printKestoBrokerList);
  EXPECT_EQ(list.page, 4);
}

TEST(KestoBrokerList, letterWordsTitleAndNothingElse) {
  std::string ofR = brokerList(kestoList('C'), ordinaryDeals);
  const std::string ofW = brokerList(kestoList('B'), ordinaryDeals);
  ofR.replace(ofR.find("(R)"), 3, "(W)");
  EXPECT_EQ(ofR, ofW);
}

TEST(KestoBrokerList, otherLegCodesPrintNothing) {
  for (const char side : std::string("XBLstvm \0", 9)) {
    EXPECT_EQ(brokerList(kestoList('C'), {withSide(ordinaryDeals[0], side)}), brokerList(kestoList('C'), {})) << side;
  }
}

// ---- Orders ---------------------------------------------------------------------------------------------------------------

static Deal deal(int traderNo, int scripCode, std::string_view scripId, int days, std::string_view time,
                 std::string_view clientId) {
  return {.traderNo = traderNo, .scripCode = scripCode, .scripId = scripId, .days = days, .time = time, .clientId = clientId};
}

// Each key on its own gives another order of these; the last two are equal in all keys.
static const std::vector<Deal> unsorted = {
    deal(12, 300, "BOLT", 30, "10:00:02", "C2"), deal(-3, 100, "axle", -1, "10:00:01", "C3"),
    deal(12, -20, "AXLE", 7, "10:00:03", "C1"),  deal(5, 300, "CAM", 7, "10:00:02", "C1"),
    deal(5, 100, "BOLT", 30, "09:59:59", "C1"),  deal(12, 200, "BOLT", 7, "10:00:01", "\xc4gir"),
    deal(5, 200, "DOWEL", 0, "10:00:02", "C2"),  deal(5, 200, "DOWEL", 0, "10:00:02", "C2"),
};

using Order = std::vector<std::uint32_t>;

static void expectOrder(KestoSort sort, const Order& trades, const Order& brokerQuery) {
  EXPECT_EQ(orderOf(blockOf<KestoTradeRec>(unsorted), kestoTradeSortKeys(sort)), trades);
  EXPECT_EQ(orderOf(blockOf<KestoBrokerRec>(unsorted), kestoBrokerSortKeys(sort)), brokerQuery);
}

static void expectOrder(KestoSort sort, const Order& both) { expectOrder(sort, both, both); }

TEST(KestoOrders, timeThenClient) { expectOrder(KestoSort::time, {4, 1, 5, 3, 0, 6, 7, 2}); }
TEST(KestoOrders, scripCodeThenClient) { expectOrder(KestoSort::scripCode, {2, 4, 1, 6, 7, 5, 3, 0}); }
TEST(KestoOrders, scripIdBytewiseThenClient) { expectOrder(KestoSort::scripId, {2, 4, 0, 5, 3, 6, 7, 1}); }
TEST(KestoOrders, clientThenScripId) { expectOrder(KestoSort::clientId, {2, 4, 3, 0, 6, 7, 1, 5}); }
TEST(KestoOrders, daysSignedThenScripId) { expectOrder(KestoSort::days, {1, 6, 7, 2, 5, 3, 0, 4}); }

TEST(KestoOrders, traderThenScripIdAndTradesStayAsTheyAre) {
  expectOrder(KestoSort::trader, {0, 1, 2, 3, 4, 5, 6, 7}, {1, 4, 3, 6, 7, 2, 0, 5});
}

TEST(KestoOrders, fileOrderIsLeftAlone) { expectOrder(KestoSort::fileOrder, {0, 1, 2, 3, 4, 5, 6, 7}); }

}  // namespace quillon::test
