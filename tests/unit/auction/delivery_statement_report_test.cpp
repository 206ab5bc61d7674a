// The delivery statement: its kinds of row, its pages and its sums.
#include "auction/delivery_statement_report.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "auction/delivery_cases.h"
#include "support/approved.h"

namespace quillon::test {
namespace {

std::vector<std::uint32_t> sortedDeliveries(const std::vector<DelyRec>& records, AuctionSort sort) {
  const RecordOrder order = deliveryOrder(records.data(), records.size(), sort);
  EXPECT_TRUE(order);
  return {order.positions().begin(), order.positions().end()};
}

std::string deliveryStatement(const DeliveryCase& c) {
  const std::vector<DelyRec> records = deliveryRecords(c.deliveries);
  const std::vector<std::uint32_t> order = sortedDeliveries(records, c.sort);
  std::string text;
  Output* out = outputToMemory(&text);
  printDeliveryStatement(*out, {c.header, c.market, "05/06/2009", c.linesPerPage},
                         {records.data(), records.size(), order.data()});
  EXPECT_TRUE(outputClose(out));
  return text;
}

std::string deliveryStatement(const std::vector<Delivery>& deliveries, unsigned linesPerPage, const char* notice = "A123",
                              AuctionMarket market = exchangeMarket) {
  return withoutCarriageReturns(
      deliveryStatement({"", auctionHeader(notice), market, linesPerPage, AuctionSort::scripName, deliveries}));
}

// What stands between the rule under the titles and the next one, page by page.
std::vector<std::vector<std::string>> rowsByPage(const std::string& text) {
  std::vector<std::vector<std::string>> pages;
  bool listing = false;
  for (const std::string& line : linesOf(text)) {
    if (line.starts_with("|______|")) {
      listing = !listing;
      if (listing) pages.emplace_back();
    } else if (listing) {
      pages.back().push_back(line.substr(0, line.size() - 1));
    }
  }
  return pages;
}

std::vector<std::size_t> pageSizes(const std::string& text) {
  std::vector<std::size_t> sizes;
  for (const std::vector<std::string>& rows : rowsByPage(text)) sizes.push_back(rows.size());
  return sizes;
}

std::vector<std::string> linesThatBegin(const std::string& text, const char* start) {
  std::vector<std::string> lines;
  for (const std::string& line : linesOf(text)) {
    if (line.starts_with(start)) lines.push_back(line);
  }
  return lines;
}

std::size_t count(const std::string& text, const char* wanted) {
  std::size_t found = 0;
  for (std::size_t at = text.find(wanted); at != std::string::npos; at = text.find(wanted, at + 1)) ++found;
  return found;
}

Delivery received(std::int32_t brokerNo, std::int32_t bankCode, std::int32_t quantity) {
  return {.side = 'O', .brokerNo = brokerNo, .orderId = 1, .bankCode = bankCode, .quantity = quantity};
}

TEST(DeliveryStatement, pagesStandAsApproved) {
  for (const DeliveryCase& c : deliveryCases()) expectApproved(std::string("auction/") + c.name + ".txt", deliveryStatement(c));
}

TEST(DeliveryStatement, sortsByEachKeyThenByOrderId) {
  const std::vector<DelyRec> records = deliveryRecords({
      {.brokerNo = 5, .brokerName = "C", .orderId = 9, .scripCode = 7, .scripName = "A"},
      {.brokerNo = -3, .brokerName = "C", .orderId = 4, .scripCode = 7, .scripName = "B"},
      {.brokerNo = 5, .brokerName = "A", .orderId = -4, .scripCode = -7, .scripName = "B"},
      {.brokerNo = 700, .brokerName = "B", .orderId = 2, .scripCode = 7, .scripName = "A"},
  });
  EXPECT_EQ(sortedDeliveries(records, AuctionSort::scripName), (std::vector<std::uint32_t>{3, 0, 2, 1}));
  EXPECT_EQ(sortedDeliveries(records, AuctionSort::scripCode), (std::vector<std::uint32_t>{2, 3, 1, 0}));
  EXPECT_EQ(sortedDeliveries(records, AuctionSort::memberId), (std::vector<std::uint32_t>{1, 2, 0, 3}));
  EXPECT_EQ(sortedDeliveries(records, AuctionSort::oppMemberId), (std::vector<std::uint32_t>{2, 3, 1, 0}));
}

// The whole name of the counter-party sorts, though only its first eleven characters are shown.
TEST(DeliveryStatement, memberNamesAreToldApartBehindWhatIsShown) {
  const std::vector<DelyRec> records =
      deliveryRecords({{.brokerName = "SUNRISE BROKING", .orderId = 1}, {.brokerName = "SUNRISE BROKERAGE", .orderId = 2}});
  EXPECT_EQ(sortedDeliveries(records, AuctionSort::oppMemberId), (std::vector<std::uint32_t>{1, 0}));
}

TEST(DeliveryStatement, pageHoldsOneRowFewerThanItsLines) {
  const std::vector<Delivery> seven(7, received(207, 1, 1));
  EXPECT_EQ(pageSizes(deliveryStatement(seven, 4)), (std::vector<std::size_t>{3, 3, 1}));
  EXPECT_EQ(pageSizes(deliveryStatement(seven, 8)), (std::vector<std::size_t>{7}));
  EXPECT_EQ(pageSizes(deliveryStatement(seven, 7)), (std::vector<std::size_t>{6, 1}));
  EXPECT_EQ(pageSizes(deliveryStatement(seven, 2)), (std::vector<std::size_t>{1, 1, 1, 1, 1, 1, 1}));
}

// The page is full before its first row, and never again.
TEST(DeliveryStatement, oneLineAPageLeavesTheFirstPageEmpty) {
  const std::string text = deliveryStatement(std::vector<Delivery>(7, received(207, 1, 1)), 1);
  EXPECT_EQ(pageSizes(text), (std::vector<std::size_t>{0, 7}));
  EXPECT_EQ(linesThatBegin(text, "PAGE TOTAL")[0],
            "PAGE TOTAL  :                               0" + std::string(78, ' ') + "0\n");
}

TEST(DeliveryStatement, noFormFeedFollowsTheLastPage) {
  const std::string text = deliveryStatement(std::vector<Delivery>(4, received(207, 1, 1)), 3);
  EXPECT_EQ(count(text, "\f"), 1u);
  EXPECT_TRUE(text.ends_with("X : Closed Out\n"));
}

// The first footnote is not there where only the last record is still to come; the end of the statement has it always.
TEST(DeliveryStatement, firstFootnoteIsLeftOutBeforeTheLastRecord) {
  EXPECT_EQ(count(deliveryStatement(std::vector<Delivery>(3, received(207, 1, 1)), 3), "* For Information only"), 1u);
  EXPECT_EQ(count(deliveryStatement(std::vector<Delivery>(4, received(207, 1, 1)), 3), "* For Information only"), 2u);
}

TEST(DeliveryStatement, deliveryToOneselfCountsOnBothSides) {
  const std::string text = deliveryStatement({received(418, 12, 40)}, 40);
  const std::string row = rowsByPage(text)[0][0];
  EXPECT_EQ(row.substr(0, 46), "|     1| 0| 418|              |  12|       40|");
  EXPECT_EQ(row.substr(row.size() - 42), " 418|           |  12|       40|     1| 0|");
  EXPECT_EQ(linesThatBegin(text, "GRAND TOTAL")[0],
            "GRAND TOTAL :                              40" + std::string(79, ' ') + "40\n");
}

// Closed-out rows add to the left alone, so that the two totals need not agree.
TEST(DeliveryStatement, markersCountOnTheLeftAlone) {
  const std::string text = deliveryStatement({received(-2, 0, 3), received(-3, 0, 5), {.side = 'B', .quantity = 4}}, 40);
  EXPECT_EQ(linesThatBegin(text, "PAGE TOTAL")[0],
            "PAGE TOTAL  :                               8" + std::string(78, ' ') + "4\n");
  EXPECT_EQ(linesThatBegin(text, "GRAND TOTAL")[0],
            "GRAND TOTAL :                               8" + std::string(80, ' ') + "4\n");
}

TEST(DeliveryStatement, markersAreWordedByTheirBankCode) {
  const std::vector<std::string> rows =
      rowsByPage(deliveryStatement({received(-2, 0, 1), received(-2, 9, 1), received(-3, 0, 1), received(-3, -9, 1)}, 40))[0];
  ASSERT_EQ(rows.size(), 4u);
  EXPECT_EQ(rows[0].substr(15, 16), "|Closed Out    |");
  EXPECT_EQ(rows[1].substr(15, 16), "|Clearing House|");
  EXPECT_EQ(rows[2].substr(15, 23), "|Compulsory Closed Out|");
  EXPECT_EQ(rows[3].substr(15, 16), "|Clearing House|");
}

TEST(DeliveryStatement, compulsoryRowHasASecondLineOnSpecialNoticesAlone) {
  for (std::int32_t bankCode : {0, 7}) {
    const std::vector<Delivery> one = {received(-3, bankCode, 5)};
    EXPECT_EQ(pageSizes(deliveryStatement(one, 40, "A123")), (std::vector<std::size_t>{1}));
    EXPECT_EQ(pageSizes(deliveryStatement(one, 40, "X123")), (std::vector<std::size_t>{2}));
    EXPECT_EQ(pageSizes(deliveryStatement(one, 40, "Y123")), (std::vector<std::size_t>{2}));
  }
  EXPECT_EQ(pageSizes(deliveryStatement({received(-2, 0, 5)}, 40, "X123")), (std::vector<std::size_t>{1}));
}

TEST(DeliveryStatement, twoLinesOfACompulsoryRowCountAsOne) {
  EXPECT_EQ(pageSizes(deliveryStatement(std::vector<Delivery>(3, received(-3, 0, 5)), 3, "X123")),
            (std::vector<std::size_t>{4, 2}));
}

// A marker's number means nothing on the delivering side.
TEST(DeliveryStatement, markersAreOrdinaryNumbersWhereTheMemberDelivers) {
  for (std::int32_t brokerNo : {-2, -3}) {
    const std::string text = deliveryStatement({{.side = 'B', .brokerNo = brokerNo, .quantity = 6}}, 40, "X123");
    ASSERT_EQ(pageSizes(text), (std::vector<std::size_t>{1}));
    EXPECT_EQ(rowsByPage(text)[0][0].substr(0, 46), "|      |  |    |              |    |         |");
    EXPECT_EQ(linesThatBegin(text, "PAGE TOTAL")[0],
              "PAGE TOTAL  :                               0" + std::string(78, ' ') + "6\n");
  }
}

// A member whose own number is a marker's is a member all the same.
TEST(DeliveryStatement, ownNumberGoesAheadOfTheMarkers) {
  const std::string text = withoutCarriageReturns(
      deliveryStatement({"", auctionHeader("X1", "A", -3), exchangeMarket, 40, AuctionSort::scripName, {received(-3, 0, 5)}}));
  ASSERT_EQ(pageSizes(text), (std::vector<std::size_t>{1}));
  EXPECT_EQ(rowsByPage(text)[0][0].substr(0, 46), "|     1| 0|  -3|              |   0|        5|");
}

TEST(DeliveryStatement, otherSidesPrintAndCountNothing) {
  std::vector<Delivery> deliveries(3, received(207, 1, 10));
  deliveries.insert(deliveries.begin() + 1, {.side = 'b', .orderId = 1, .quantity = 99});
  deliveries.push_back({.side = '\0', .orderId = 1, .quantity = 99});
  const std::string text = deliveryStatement(deliveries, 4);
  EXPECT_EQ(linesThatBegin(text, "GRAND TOTAL")[0],
            "GRAND TOTAL :                              30" + std::string(80, ' ') + "0\n");
  // The page is full, so that a record that prints nothing still begins another.
  EXPECT_EQ(pageSizes(text), (std::vector<std::size_t>{3, 0}));
}

TEST(DeliveryStatement, lendingFileHasNoDeliveryTypes) {
  const std::vector<Delivery> deliveries = {
      {.side = 'O', .brokerNo = -3, .orderId = 1, .deliveryType = "Q", .clientId = "R1042", .bdcNo = 305}};
  for (AuctionMarket market : {lendingAuction, lendingOnly}) {
    const std::string text = deliveryStatement(deliveries, 40, "X123", market);
    EXPECT_EQ(count(text, "**"), 0u);
    EXPECT_EQ(count(text, "Q"), 0u + count(text, "Qty"));
    EXPECT_TRUE(text.ends_with("\n  concerned Bank\n"));
  }
}

TEST(DeliveryStatement, quantitiesWrapAt32Bits) {
  const std::string text = deliveryStatement(std::vector<Delivery>(2, received(418, 1, 2147483647)), 40);
  EXPECT_EQ(linesThatBegin(text, "PAGE TOTAL")[0],
            "PAGE TOTAL  :                              -2" + std::string(77, ' ') + "-2\n");
  EXPECT_EQ(linesThatBegin(text, "GRAND TOTAL")[0],
            "GRAND TOTAL :                              -2" + std::string(79, ' ') + "-2\n");
}

TEST(DeliveryStatement, sumsOfAllPagesWrapAt32Bits) {
  const std::string text = deliveryStatement(std::vector<Delivery>(2, received(418, 1, 2147483647)), 2);
  EXPECT_EQ(linesThatBegin(text, "GRAND TOTAL")[0],
            "GRAND TOTAL :                              -2" + std::string(79, ' ') + "-2\n");
}

}  // namespace
}  // namespace quillon::test
