// The bytes of an order log: which records a header announces, the kinds in one file, and the message that runs on.
#include "logs/order_log_file.h"

#include <gtest/gtest.h>

#include <cstring>
#include <memory>

#include "logs/order_log_records.h"

namespace quillon::test {
namespace {

TradeHeader dated(std::int16_t day, std::int16_t month, std::int16_t year) { return logHeader(1, 2, day, month, year); }

TEST(OrderLogKind, orderLogIsNAndO) {
  for (int letter = 0; letter < 256; ++letter) {
    TradeHeader header = dated(1, 1, 2010);
    header.fileKind = static_cast<char>(letter);
    EXPECT_EQ(isOrderLog(header), letter == 'N') << letter;
    header.fileKind = 'N';
    header.kind = static_cast<char>(letter);
    EXPECT_EQ(isOrderLog(header), letter == 'O') << letter;
  }
}

TEST(OrderLogKind, secondLetterLIsConsolidatedWhateverTheFirstAndTheDate) {
  for (int letter = 0; letter < 256; ++letter) {
    TradeHeader header = dated(21, 11, 2003);
    header.fileKind = static_cast<char>(letter);
    header.kind = 'L';
    EXPECT_TRUE(isConsolidatedOrderLog(header)) << letter;
    EXPECT_EQ(orderLogLayout(header, false), OrderLogLayout::consolidated) << letter;
    EXPECT_EQ(orderLogLayout(header, true), OrderLogLayout::consolidated) << letter;
    header.kind = static_cast<char>(letter);
    EXPECT_EQ(isConsolidatedOrderLog(header), letter == 'L') << letter;
  }
}

struct DateCase {
  std::int16_t day, month, year;
  bool before;
};

TEST(OrderLogDate, recordsAreShortBefore22November2003) {
  for (const DateCase& c : {DateCase{21, 11, 2003, true}, DateCase{22, 11, 2003, false}, DateCase{23, 11, 2003, false},
                            DateCase{31, 10, 2003, true}, DateCase{1, 12, 2003, false}, DateCase{31, 12, 2002, true},
                            DateCase{1, 1, 2004, false}, DateCase{31, 12, 1999, true}}) {
    const TradeHeader header = dated(c.day, c.month, c.year);
    EXPECT_EQ(orderRec112(header, false), c.before) << c.day << "/" << c.month << "/" << c.year;
    EXPECT_EQ(orderLogLayout(header, false), c.before ? OrderLogLayout::rec112 : OrderLogLayout::rec136);
    EXPECT_FALSE(orderRec112(header, true)) << "a lending file has long records at any date";
    EXPECT_EQ(orderLogLayout(header, true), OrderLogLayout::rec136);
  }
}

TEST(OrderLogDate, typesAreRectifiedFrom26May2007) {
  for (const DateCase& c :
       {DateCase{25, 5, 2007, true}, DateCase{26, 5, 2007, false}, DateCase{27, 5, 2007, false}, DateCase{30, 4, 2007, true},
        DateCase{1, 6, 2007, false}, DateCase{31, 12, 2006, true}, DateCase{1, 1, 2008, false}}) {
    const TradeHeader header = dated(c.day, c.month, c.year);
    EXPECT_EQ(instRectMissing(header, false), c.before) << c.day << "/" << c.month << "/" << c.year;
    EXPECT_FALSE(instRectMissing(header, true)) << "a lending file knows them at any date";
  }
}

// ---- Kinds ------------------------------------------------------------------------------------------------------------

TEST(OrderLogKinds, recordsOfTheOtherTwoChoicesAreExcludedAndUnknownOnesAreNot) {
  std::vector<OrderRow> rows(10);
  const std::string kinds = "NYINYNnX?N";
  for (std::size_t i = 0; i < rows.size(); ++i) rows[i].recordKind = kinds[i];
  const std::vector<OrderRec136> records = block<OrderRec136>(rows);
  EXPECT_EQ(countExcludedOrders(records.data(), rows.size(), OrderLogChoice::orders), 3u);
  EXPECT_EQ(countExcludedOrders(records.data(), rows.size(), OrderLogChoice::clientRectification), 5u);
  EXPECT_EQ(countExcludedOrders(records.data(), rows.size(), OrderLogChoice::typeRectification), 6u);
  EXPECT_EQ(countExcludedOrders(records.data(), 0, OrderLogChoice::orders), 0u);
}

template <typename Record, typename Row>
void expectSides(std::vector<Row> rows, OrderLogLayout layout, std::size_t sideOffset) {
  std::vector<Record> records = block<Record>(rows);
  const std::string before(reinterpret_cast<const char*>(records.data()), records.size() * sizeof(Record));
  rewriteOrderLends(layout, records.data(), rows.size());
  const std::string after(reinterpret_cast<const char*>(records.data()), records.size() * sizeof(Record));
  for (std::size_t i = 0; i < before.size(); ++i) {
    const bool lend = i % sizeof(Record) == sideOffset && before[i] == 'L';
    EXPECT_EQ(after[i], lend ? 'S' : before[i]) << i;
  }
}

TEST(OrderLogSides, lendBecomesSellInMemoryAndNothingElseDoes) {
  std::vector<OrderRow> rows(4, OrderRow{.orderType = 'L', .side = 'B', .clientId = "LLLL", .message = "LLLL"});
  rows[1].side = 'L';
  rows[2].side = 'S';
  rows[3].side = 'l';
  expectSides<OrderRec112>(rows, OrderLogLayout::rec112, 37);
  expectSides<OrderRec136>(rows, OrderLogLayout::rec136, 37);
  std::vector<ConsolidatedRow> consolidated(4, ConsolidatedRow{.clientId = "LLLL", .orderType = 'L', .side = 'B'});
  consolidated[1].side = 'L';
  consolidated[2].side = 'S';
  consolidated[3].side = 'l';
  expectSides<ConsolidatedOrderRec>(consolidated, OrderLogLayout::consolidated, 71);
}

TEST(OrderLogSides, lendingFileShowsEverySellAsLend) {
  for (int letter = 0; letter < 256; ++letter) {
    const char side = static_cast<char>(letter);
    EXPECT_EQ(shownOrderSide(side, true), side == 'S' ? 'L' : side);
    EXPECT_EQ(shownOrderSide(side, false), side);
  }
}

// ---- Messages ---------------------------------------------------------------------------------------------------------

// The view's own text, taken while it is good.
std::string messageOf(const OrderLogRecords& records, std::size_t place) {
  std::string room;
  return std::string(orderMessage(records, place, room));
}

template <typename Record, typename Row>
std::string messageOf(const std::vector<Row>& rows, std::size_t place = 0) {
  const std::vector<Record> records = block<Record>(rows);
  return messageOf(inFileOrder(records), place);
}

const std::string fortyCharacters(forty);

TEST(OrderLogMessage, endsAtItsNulOrItsFirstLineFeed) {
  EXPECT_EQ((messageOf<OrderRec136>(std::vector<OrderRow>{{.message = ""}})), "");
  EXPECT_EQ((messageOf<OrderRec136>(std::vector<OrderRow>{{.message = "Order accepted"}})), "Order accepted");
  EXPECT_EQ((messageOf<OrderRec136>(std::vector<OrderRow>{{.message = "Order\naccepted\n"}})), "Order");
  EXPECT_EQ((messageOf<OrderRec136>(std::vector<OrderRow>{{.message = "\nOrder"}})), "");
  EXPECT_EQ((messageOf<OrderRec136>(std::vector<OrderRow>{{.message = "Order\raccepted"}})), "Order\raccepted");
  const std::string_view nulFirst("Order\0accepted\n", 15);
  EXPECT_EQ((messageOf<OrderRec136>(std::vector<OrderRow>{{.message = nulFirst}})), "Order");
}

TEST(OrderLogMessage, fullLongRecordRunsOnIntoItsOwnFields) {
  std::vector<OrderRow> rows(2, OrderRow{.scripCode = letters, .message = forty, .recordKind = 'N'});
  EXPECT_EQ(messageOf<OrderRec136>(rows), fortyCharacters) << "a trade id of 0 ends it";
  rows[0].tradeId = letters;
  EXPECT_EQ(messageOf<OrderRec136>(rows), fortyCharacters + "ABCD") << "an empty new client ends it";
  rows[0].newClientId = "NEW-CLIENT-1";
  EXPECT_EQ(messageOf<OrderRec136>(rows), fortyCharacters + "ABCDNEW-CLIENT-1N") << "the bytes behind the kind end it";
  rows[0].newClientId = "NEW\nCLIENT-1";
  EXPECT_EQ(messageOf<OrderRec136>(rows), fortyCharacters + "ABCDNEW") << "so does a line feed there";
}

TEST(OrderLogMessage, fullLongRecordWithoutAZeroBehindItRunsOnIntoTheNextOne) {
  std::vector<OrderRec136> records = block<OrderRec136>(std::vector<OrderRow>(2, OrderRow{.scripCode = letters}));
  std::memset(&records[0].order.message, 'm', sizeof(OrderRec136) - 72);
  EXPECT_EQ(messageOf(inFileOrder(records), 0), std::string(64, 'm') + "ABCD");
}

TEST(OrderLogMessage, fullShortRecordRunsOnIntoTheNextOne) {
  std::vector<OrderRow> rows(2, OrderRow{.scripCode = letters, .qty = letters, .revQty = 0x0a44, .message = forty});
  EXPECT_EQ(messageOf<OrderRec112>(rows), fortyCharacters + "ABCDABCDD") << "a line feed of the next record ends it";
  EXPECT_EQ(messageOf<OrderRec112>(rows, 1), fortyCharacters) << "the zero record ends the last one";
}

TEST(OrderLogMessage, fullConsolidatedRecordRunsOnIntoTheNextOne) {
  const std::vector<ConsolidatedRow> rows(2, ConsolidatedRow{.message = forty});
  std::vector<ConsolidatedOrderRec> records = block<ConsolidatedOrderRec>(rows);
  EXPECT_EQ(messageOf(inFileOrder(records), 0), fortyCharacters);
  std::memcpy(records[1].unread, "next", 4);
  EXPECT_EQ(messageOf(inFileOrder(records), 0), fortyCharacters + "next");
  EXPECT_EQ(messageOf(inFileOrder(records), 1), fortyCharacters);
}

// The record behind it is the one that is printed next.
TEST(OrderLogMessage, runsOnInTheOrderOfPrint) {
  std::vector<OrderRow> rows(3, OrderRow{.message = forty});
  rows[0].scripCode = 'a';
  rows[1].scripCode = 'b';
  rows[2].scripCode = 'c';
  const std::vector<OrderRec112> records = block<OrderRec112>(rows);
  const std::uint32_t order[] = {2, 0, 1};
  const OrderLogRecords sorted = {OrderLogLayout::rec112, records.data(), rows.size(), order};
  EXPECT_EQ(messageOf(sorted, 0), fortyCharacters + "a");
  EXPECT_EQ(messageOf(sorted, 1), fortyCharacters + "b");
  EXPECT_EQ(messageOf(sorted, 2), fortyCharacters);
}

// The block is exactly as long as a run's, so that the sanitizer sees a read behind it.
TEST(OrderLogMessage, neverRunsBeyondTheBlockNorBeyondTheLongest) {
  for (const OrderLogLayout layout : {OrderLogLayout::rec112, OrderLogLayout::rec136, OrderLogLayout::consolidated}) {
    const std::size_t size = orderLogRecordSize(layout);
    const std::size_t messageSize = layout == OrderLogLayout::rec136 ? 64 : 40;
    for (const std::size_t count : {1u, 2u, 3u, 50u}) {
      const auto bytes = std::make_unique<char[]>((count + 1) * size);
      std::memset(bytes.get(), 'x', count * size);
      const OrderLogRecords records = {layout, bytes.get(), count, nullptr};
      for (std::size_t place = 0; place < count; ++place) {
        const std::size_t whole = messageSize + (count - place - 1) * size;
        EXPECT_EQ(messageOf(records, place), std::string(std::min<std::size_t>(whole, 512), 'x')) << count << " " << place;
      }
    }
  }
}

// ---- Order ------------------------------------------------------------------------------------------------------------

template <typename Record, typename Row>
std::vector<std::uint32_t> sorted(const std::vector<Row>& rows, OrderLogSort sort) {
  const std::vector<Record> records = block<Record>(rows);
  const OrderLogRecords view = inFileOrder(records);
  const RecordOrder order = orderOfRecords({view.bytes, sizeof(Record), view.count}, orderLogSortKeys(view.layout, sort));
  EXPECT_TRUE(order);
  return {order.positions().begin(), order.positions().end()};
}

using Positions = std::vector<std::uint32_t>;

// Each neighbour differs in one key alone, so that each is seen to count: scrip code, scrip, client; then hour, minute and
// second; then the order id, whose sign and upper half count; the last two are equal.
const std::vector<OrderRow> unsortedOrders = {
    {.scripCode = 7, .orderId = 5, .hour = 10, .minute = 5, .second = 9, .clientId = "C1", .scripId = "AXLE"},
    {.scripCode = -7, .orderId = 5, .hour = 23, .minute = 5, .second = 9, .clientId = "C0", .scripId = "AXL"},
    {.scripCode = 7, .orderId = 4, .hour = 10, .minute = 5, .second = 9, .clientId = "C1", .scripId = "AXLE"},
    {.scripCode = 7, .orderId = -5, .hour = 10, .minute = 5, .second = 9, .clientId = "C1", .scripId = "AXLE"},
    {.scripCode = 7, .orderId = 0x100000001, .hour = 10, .minute = 5, .second = 8, .clientId = "C1", .scripId = "AXLE"},
    {.scripCode = 7, .orderId = 0x0f0000000, .hour = 10, .minute = 5, .second = 8, .clientId = "C1", .scripId = "AXLE"},
    {.scripCode = 7, .orderId = 9, .hour = 9, .minute = 59, .second = 59, .clientId = "C1", .scripId = "AXLE"},
    {.scripCode = 7, .orderId = 9, .hour = 10, .minute = 4, .second = 59, .clientId = "C1", .scripId = "AXLE"},
    {.scripCode = 8, .orderId = 1, .hour = 0, .minute = 0, .second = 0, .clientId = "c", .scripId = "axle"},
    {.scripCode = 8, .orderId = 1, .hour = 0, .minute = 0, .second = 0, .clientId = "c", .scripId = "axle"},
};

TEST(OrderLogOrder, ordersStandByTheChosenKeyThenTimeThenOrderId) {
  const Positions expected = {1, 6, 7, 5, 4, 3, 2, 0, 8, 9};
  for (const OrderLogSort sort : {OrderLogSort::scripCode, OrderLogSort::scripId, OrderLogSort::clientId}) {
    EXPECT_EQ(sorted<OrderRec136>(unsortedOrders, sort), expected) << static_cast<int>(sort);
    EXPECT_EQ(sorted<OrderRec112>(unsortedOrders, sort), expected) << static_cast<int>(sort);
  }
}

TEST(OrderLogOrder, timeLeavesAnOrderLogInFileOrder) {
  const Positions expected = {0, 1, 2, 3, 4, 5, 6, 7, 8, 9};
  EXPECT_EQ(sorted<OrderRec136>(unsortedOrders, OrderLogSort::time), expected);
  EXPECT_EQ(sorted<OrderRec112>(unsortedOrders, OrderLogSort::time), expected);
}

// A sort looks at no other field: the three first keys are in different orders here.
TEST(OrderLogOrder, eachSortHasItsOwnKey) {
  const std::vector<OrderRow> rows = {{.scripCode = 1, .clientId = "B", .scripId = "C"},
                                      {.scripCode = 2, .clientId = "C", .scripId = "A"},
                                      {.scripCode = 3, .clientId = "A", .scripId = "B"}};
  EXPECT_EQ(sorted<OrderRec136>(rows, OrderLogSort::scripCode), (Positions{0, 1, 2}));
  EXPECT_EQ(sorted<OrderRec136>(rows, OrderLogSort::scripId), (Positions{1, 2, 0}));
  EXPECT_EQ(sorted<OrderRec136>(rows, OrderLogSort::clientId), (Positions{2, 0, 1}));
  const std::vector<ConsolidatedRow> consolidated = {{.scripCode = 1, .scripId = "C", .clientId = "B", .logTime = "12"},
                                                     {.scripCode = 2, .scripId = "A", .clientId = "C", .logTime = "13"},
                                                     {.scripCode = 3, .scripId = "B", .clientId = "A", .logTime = "11"}};
  EXPECT_EQ(sorted<ConsolidatedOrderRec>(consolidated, OrderLogSort::scripCode), (Positions{0, 1, 2}));
  EXPECT_EQ(sorted<ConsolidatedOrderRec>(consolidated, OrderLogSort::scripId), (Positions{1, 2, 0}));
  EXPECT_EQ(sorted<ConsolidatedOrderRec>(consolidated, OrderLogSort::clientId), (Positions{2, 0, 1}));
  EXPECT_EQ(sorted<ConsolidatedOrderRec>(consolidated, OrderLogSort::time), (Positions{2, 0, 1}));
}

TEST(OrderLogOrder, consolidatedTimesCompareAsText) {
  std::vector<ConsolidatedRow> rows = {{.orderId = 1, .logTime = "9:15:00"},
                                       {.orderId = 2, .logTime = "10:15:00"},
                                       {.orderId = 3, .logTime = "09:15:00"},
                                       {.orderId = -3, .logTime = "09:15:00"},
                                       {.orderId = -3, .logTime = "09:15:00"}};
  for (const OrderLogSort sort : {OrderLogSort::time, OrderLogSort::scripCode, OrderLogSort::scripId, OrderLogSort::clientId}) {
    EXPECT_EQ(sorted<ConsolidatedOrderRec>(rows, sort), (Positions{3, 4, 2, 1, 0})) << static_cast<int>(sort);
  }
}

}  // namespace
}  // namespace quillon::test
