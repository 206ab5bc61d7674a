// The net position behind the list of trades.
#include "brokerquery/broker_net_position.h"

#include <gtest/gtest.h>

#include <limits>

#include "brokerquery/records.h"
#include "support/approved.h"

namespace quillon::test {
namespace {

constexpr std::int32_t least = std::numeric_limits<std::int32_t>::min(), most = std::numeric_limits<std::int32_t>::max();

Trade trade(std::string_view scripId, std::int32_t rate, std::int32_t qty, char side) {
  return {1, 1, scripId, rate, qty, "", "", 1, 'L', side, 1, ""};
}

KestoTrade kestoTrade(std::string_view scripId, std::int32_t rate, std::int32_t qty, char legCode) {
  return {1, 1, scripId, rate, qty, 1, 1, "", "", legCode, 1};
}

// Two sides, buys only, sells only, equal quantities, a letter that is none of both, a loss and a profit.
const std::vector<Trade> trades = {
    trade("AXLE", 12345, 100, 'B'),  trade("BOLT", 25000, 70, 'S'),   trade("AXLE", 12400, 40, 'S'),
    trade("CRANK", 1000, 50, 'B'),   trade("CRANK", 1100, 50, 'S'),   trade("DERRICK", 333, 3, 'B'),
    trade("ELBOW", 200, 10, 'B'),    trade("ELBOW", 100, 4, 'X'),     trade("FLANGE", 15000, 10, 'B'),
    trade("FLANGE", 20000, 15, 'S'), trade("GIRDER", 10000, 10, 'B'), trade("GIRDER", 20000, 8, 'S'),
};

const std::vector<KestoTrade> kestoTrades = {
    kestoTrade("AXLE", 1234567, 100, 'S'), kestoTrade("AXLE", 1240000, 40, 'M'),   kestoTrade("BOLT", 2500000, 70, 'V'),
    kestoTrade("CRANK", 100000, 50, 'T'),  kestoTrade("CRANK", 110000, 50, 'X'),   kestoTrade("DERRICK", 33333, 3, 'S'),
    kestoTrade("DERRICK", 16666, 1, 'M'),  kestoTrade("FLANGE", 1000000, 10, 'S'), kestoTrade("FLANGE", 2000000, 8, 'M'),
};

template <typename Record>
std::string netPosition(const std::vector<Record>& records, bool isLendingFile = false,
                        const TradeHeader& fileHeader = header(25, 5, 2009)) {
  BrokerRecords sorted = inFileOrder(records);
  const RecordKey scripId = brokerSortKeys(sorted.layout, BrokerSort::scripId).first;
  const std::vector<std::uint32_t> order = orderOf(records, scripId, {KeyKind::none, 0, 0});
  sorted.order = order.data();
  return reportOf([&](Output& out) { printBrokerNetPosition(out, sorted, fileHeader, isLendingFile); });
}

TEST(BrokerNetPositionReport, normalFile) {
  expectApproved("brokerquery/net_normal.txt", netPosition(block<BrokerRec132>(trades)));
}
TEST(BrokerNetPositionReport, bothNormalLayoutsGiveTheSame) {
  EXPECT_EQ(netPosition(block<BrokerRec160>(trades)), netPosition(block<BrokerRec132>(trades)));
}
TEST(BrokerNetPositionReport, lendingFileHasSixColumns) {
  expectApproved("brokerquery/net_lending.txt", netPosition(block<BrokerRec160>(trades), true));
}
TEST(BrokerNetPositionReport, kestoFileHasLendAndBorrow) {
  expectApproved("brokerquery/net_kesto.txt", netPosition(block<KestoBrokerRec>(kestoTrades)));
}
TEST(BrokerNetPositionReport, kestoFileOfTheLendingMarketKeepsItsEightColumns) {
  const std::string report = netPosition(block<KestoBrokerRec>(kestoTrades), true);
  std::string expected = netPosition(block<KestoBrokerRec>(kestoTrades));
  const std::string exchange = "TARVEN STOCK EXCHANGE LTD.";
  expected.replace(expected.find(exchange), exchange.size(), "    KOR SHARE HOLDING LTD.");
  EXPECT_EQ(report, expected);
}
TEST(BrokerNetPositionReport, noRecordsGiveHeaderClosingRuleTotalAndFormFeed) {
  expectApproved("brokerquery/net_normal_empty.txt", netPosition(block<BrokerRec132>(std::vector<Trade>())));
  expectApproved("brokerquery/net_lending_empty.txt", netPosition(block<BrokerRec160>(std::vector<Trade>()), true));
  expectApproved("brokerquery/net_kesto_empty.txt", netPosition(block<KestoBrokerRec>(std::vector<KestoTrade>())));
}

// Of AB 2 bought at 1.05 and 345 sold at 0.07, of QRS 345 sold.
TEST(BrokerNetPositionReport, valuesNarrowerThanTheirCellsAreAligned) {
  const std::vector<Trade> narrow = {narrowBuy, ofScrip(narrowSell, "AB"), narrowSell};
  expectApproved("brokerquery/net_normal_narrow_values.txt", netPosition(block<BrokerRec132>(narrow), false, narrowHeader()));
  expectApproved("brokerquery/net_lending_narrow_values.txt", netPosition(block<BrokerRec160>(narrow), true, narrowHeader()));
  expectApproved("brokerquery/net_kesto_narrow_values.txt",
                 netPosition(block<KestoBrokerRec>(narrowKestoTrades), false, narrowHeader()));
}

TEST(BrokerNetPositionReport, hundredsOfScripsStayOnOnePage) {
  std::vector<Trade> many;
  std::vector<std::string> names;
  for (int i = 0; i < 300; ++i) names.push_back("S" + std::to_string(1000 + i));
  for (const std::string& name : names) many.push_back(trade(name, 100, 1, 'B'));
  const std::string report = netPosition(block<BrokerRec132>(many));
  EXPECT_EQ(std::count(report.begin(), report.end(), '\f'), 1);
  EXPECT_EQ(report.back(), '\f');
  EXPECT_EQ(linesOf(report).size(), 3u + 3u + 300u + 1u + 1u + 1u);  // top, heading, rows, rule, total, form feed
  EXPECT_NE(report.find("Total Net Value =         300.00"), std::string::npos);
}

// The zero record behind the block is equal to them: their group is never closed.
TEST(BrokerNetPositionReport, recordsWithoutAScripAtTheEndGetNoRowAndDoNotCount) {
  const std::string report =
      netPosition(block<BrokerRec132>(std::vector<Trade>{trade("", 500, 10, 'B'), trade("", 500, 10, 'B')}));
  EXPECT_EQ(report, netPosition(block<BrokerRec132>(std::vector<Trade>())));
}

TEST(BrokerNetPositionReport, recordsWithoutAScripBeforeOthersAreAGroup) {
  const std::string report =
      netPosition(block<BrokerRec132>(std::vector<Trade>{trade("", 500, 10, 'B'), trade("AXLE", 100, 1, 'B')}));
  EXPECT_NE(report.find("|               |             10|           5.00|"), std::string::npos);
  EXPECT_NE(report.find("Total Net Value =          51.00"), std::string::npos);
}

TEST(BrokerNetPosition, buysOnlyHaveNoAverageSellAndTheirQuantityAsNet) {
  const BrokerNetPosition net = brokerNetPosition({30, 0, 60.0, 0.0});
  EXPECT_EQ(net.avgBuy, 2.0);
  EXPECT_EQ(net.avgSell, 0.0);
  EXPECT_EQ(net.netQty, 30);
  EXPECT_EQ(net.netValue, 60.0);
  EXPECT_EQ(net.breakEven, 2.0);
}

TEST(BrokerNetPosition, equalQuantitiesBreakEvenAtZeroWhateverTheValue) {
  EXPECT_EQ(brokerNetPosition({50, 50, 700.0, 100.0}).breakEven, 0.0);
  EXPECT_EQ(kestoBrokerNetPosition({50, 50, 700.0, 100.0}).breakEven, 0.0);
  EXPECT_EQ(brokerNetPosition({50, 50, 700.0, 100.0}).netValue, 600.0);
}

TEST(BrokerNetPosition, profitOfANetBuyIsNegativeHereAndNeverInAKestoFile) {
  // 10 bought for 100, 8 sold for 160: 2 left, and 60 to lose on them.
  EXPECT_EQ(brokerNetPosition({10, 8, 100.0, 160.0}).breakEven, -30.0);
  EXPECT_EQ(kestoBrokerNetPosition({10, 8, 100.0, 160.0}).breakEven, 30.0);
}

TEST(BrokerNetPosition, netSaleIsPositiveAtAProfitAndNegativeAtALoss) {
  // 10 bought, 15 sold: 5 to be bought back. Taken in 500 more than was paid: at 100 each nothing is left of it.
  EXPECT_EQ(brokerNetPosition({10, 15, 1500.0, 2000.0}).breakEven, 100.0);
  EXPECT_EQ(brokerNetPosition({10, 15, 2000.0, 1500.0}).breakEven, -100.0);
  EXPECT_EQ(kestoBrokerNetPosition({10, 15, 2000.0, 1500.0}).breakEven, 100.0);
}

TEST(BrokerNetPosition, kestoPriceIsCutWhereTheNormalOneIsRounded) {
  // 8.3333 a unit.
  EXPECT_EQ(kestoBrokerNetPosition({3, 0, 25.0, 0.0}).breakEven, 8.33);
  // 6.6667 a unit: the row's format makes 6.67 of the normal one.
  EXPECT_EQ(kestoBrokerNetPosition({3, 0, 20.0, 0.0}).breakEven, 6.66);
  EXPECT_NEAR(brokerNetPosition({3, 0, 20.0, 0.0}).breakEven, 6.66667, 0.00001);
  // Toward zero, then made positive.
  EXPECT_EQ(kestoBrokerNetPosition({0, 3, 0.0, -20.0}).breakEven, 6.66);
}

TEST(BrokerNetPosition, kestoPriceBeyondAnyWholeNumberIsStillOne) {
  EXPECT_EQ(kestoBrokerNetPosition({1, 0, 1e300, 0.0}).breakEven, 1e300 * 100.0 / 1 / 100.0);
  EXPECT_EQ(kestoBrokerNetPosition({0, 1, 0.0, 1e30}).breakEven, 1e30 * 100.0 / 100.0);
}

TEST(BrokerNetPosition, quantitiesWrapAround) {
  EXPECT_EQ(brokerNetPosition({most, -1, 1.0, 1.0}).netQty, least);
  EXPECT_EQ(brokerNetPosition({least, 1, 1.0, 1.0}).netQty, most);
  const std::string report = netPosition(block<BrokerRec132>(
      std::vector<Trade>{trade("AXLE", 100, most, 'B'), trade("AXLE", 100, 2, 'B'), trade("AXLE", 100, least, 'S')}));
  // 2147483647 + 2 and the least number's distance from it.
  EXPECT_NE(report.find("|           AXLE|    -2147483647|"), std::string::npos);
  EXPECT_NE(report.find("|    -2147483648|"), std::string::npos);
}

}  // namespace
}  // namespace quillon::test
