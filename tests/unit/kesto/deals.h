// Deals for tests of the Kesto lists: one plain description, from which a record of either file is made.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <numeric>
#include <string>
#include <string_view>
#include <vector>

#include "brokerquery/broker_file.h"
#include "kesto/kesto_list.h"
#include "text/output.h"
#include "trades/trade_file.h"

namespace quillon::test {

struct Deal {
  int traderNo = 0;  // broker query alone
  int scripCode = 0;
  std::string_view scripId = "";
  int days = 0;
  int trdId = 0;
  int rate = 0;  // ten-thousandths
  int qty = 0;
  int broker = 0;  // the other side in a broker query
  int trader = 0;
  std::string_view time = "";
  std::string_view clientId = "";
  char side = 'L';
  char tradeType = 'L';  // trades alone, as is the transaction number
  int trnId = 0;
  std::string_view settFyear = "";
};

// The text to the full width of the field, without a NUL where it has no room for one.
template <std::size_t N>
void fillField(TextField<N>& field, std::string_view text) {
  std::memset(field.bytes, 0, N);
  std::memcpy(field.bytes, text.data(), std::min(text.size(), N));
}

inline void fill(KestoTradeRec& record, const Deal& deal) {
  record.scripCode = deal.scripCode;
  fillField(record.scripId, deal.scripId);
  record.days = static_cast<std::int8_t>(deal.days);
  record.trdId = deal.trdId;
  record.rate = deal.rate;
  record.qty = deal.qty;
  record.brokerId = deal.broker;
  record.traderId = deal.trader;
  fillField(record.time, deal.time);
  fillField(record.clientId, deal.clientId);
  record.side = deal.side;
  record.tradeType = deal.tradeType;
  record.trnId = deal.trnId;
  fillField(record.settFyear, deal.settFyear);
}

inline void fill(KestoBrokerRec& record, const Deal& deal) {
  record.traderNo = deal.traderNo;
  record.scripCode = deal.scripCode;
  fillField(record.scripId, deal.scripId);
  record.days = static_cast<std::int8_t>(deal.days);
  record.trdId = deal.trdId;
  record.rate = deal.rate;
  record.qty = deal.qty;
  record.counterBroker = deal.broker;
  record.counterTrader = deal.trader;
  fillField(record.tradeTime, deal.time);
  fillField(record.clientId, deal.clientId);
  record.legCode = deal.side;
  fillField(record.settFyear, deal.settFyear);
}

// A block as a run has it: the records and the zero record behind them.
template <typename Record>
std::vector<Record> blockOf(const std::vector<Deal>& deals) {
  std::vector<Record> records(deals.size() + 1);
  std::memset(static_cast<void*>(records.data()), 0, records.size() * sizeof(Record));
  for (std::size_t i = 0; i < deals.size(); ++i) fill(records[i], deals[i]);
  return records;
}

inline std::vector<std::uint32_t> fileOrder(std::size_t count) {
  std::vector<std::uint32_t> order(count);
  std::iota(order.begin(), order.end(), 0u);
  return order;
}

template <typename Record>
std::vector<std::uint32_t> orderOf(const std::vector<Record>& block, const KestoSortKeys& keys) {
  std::vector<std::uint32_t> order(block.size());
  EXPECT_TRUE(recordOrder({block.data(), sizeof(Record), block.size() - 1}, {keys.first, keys.second}, order.data()));
  order.resize(block.size() - 1);
  return order;
}

// Both sides and terms, one of neither side, odd lots among them.
inline const std::vector<Deal> ordinaryDeals = {
    {11, 590023, "NILGRITEA", 15, 10021, 471049, 250, 907, 21, "10:16:02", "R2315", 'M', 'L', 40002, "2009101/09-10"},
    {12, 500010, "AXLEINDIA", 7, 10022, 1234500, 100, 418, 12, "10:15:30", "C0001", 'T', 'L', 40001, "2009102/09-10"},
    {11, 500010, "AXLEINDIA", 30, 10023, 1250001, 1500, 418, 12, "10:15:30", "C0002", 'S', 'O', 10040003, "2009103/09-10"},
    {13, 532187, "SURYABANK", 7, 10024, 98765, 40, 355, 4, "11:02:59", "OWN", 'V', 'T', 40004, "2009102/09-10"},
    {13, 532187, "SURYABANK", 7, 10025, 98765, 40, 355, 4, "11:03:00", "OWN", 'X', 'T', 40005, "2009102/09-10"},
    {12, 500010, "AXLEINDIA", 7, 10026, 1234600, 100, 907, 21, "11:04:41", "C0003", 'M', 'O', 10040006, "2009102/09-10"},
    {14, 500010, "AXLEINDIA", 7, 10027, 1239900, 60, 77, 3, "12:30:00", "C0001", 'S', 'K', 40007, "2009102/09-10"},
};
// Every value wider than its cell, where the record has room for that; both signs.
inline const std::vector<Deal> wideDeals = {
    {123, 2147483647, "TWELVECHARS!", -128, -2147483647, 2147483647, 1234567890, 123456, 1234, "10:15:307", "CLIENT12CHRS", 'S',
     'L', -2147483647, "SETTLEMENT OF THE YEAR 2009-2010"},
    {123, 2147483647, "TWELVECHARS!", -128, -2147483647, 2147483647, 1234567890, 123456, 1234, "10:15:307", "CLIENT12CHRS", 'V',
     'L', -2147483647, "SETTLEMENT OF THE YEAR 2009-2010"},
    {-1, -2147483647, "TWELVECHARS!", 127, 2147483647, -2147483647, -1234567890, -12345, -12, "10:15:307", "CLIENT12CHRS", 'T',
     'O', -2147483640, "SETTLEMENT OF THE YEAR 2009-2010"},
    {-1, -2147483647, "TWELVECHARS!", 127, 2147483647, -2147483647, -1234567890, -12345, -12, "10:15:307", "CLIENT12CHRS", 'M',
     'O', -2147483640, "SETTLEMENT OF THE YEAR 2009-2010"},
};
// Every value narrower than its cell, or missing.
inline const std::vector<Deal> narrowDeals = {
    {1, 7, "A", 1, 5, 1, 3, 4, 2, "9:05:03", "C1", 'S', 'L', 8, "1/09"},
    {2, 42, "BC", 0, 61, -205, 45, 35, 9, "9:5", "C", 'M', 'O', 10000123, ""},
    {3, 7, "A", 1, 6, 10000, -2, 5, 1, "", "", 'T', 'O', 5, "2"},
    {4, 8, "A", 2, 7, 30000, 9, 6, 3, "9:05:03", "D", 'V', 'M', 77, "4/10"},
};
// Quantities that wrap around, and amounts beyond their cells.
inline const std::vector<Deal> hugeDeals = {
    {1, 1, "TWELVECHARS!", -128, 1, 2147483647, 2147483647, 1, 1, "", "", 'S', 'L', 1, ""},
    {1, 1, "TWELVECHARS!", -128, 1, 2147483647, 2147483647, 1, 1, "", "", 'T', 'L', 1, ""},
    {1, 1, "TWELVECHARS!", -128, 1, -2147483647, 2147483647, 1, 1, "", "", 'V', 'L', 1, ""},
    {1, 1, "TWELVECHARS!", -128, 1, -2147483647, 2147483647, 1, 1, "", "", 'M', 'L', 1, ""},
    {1, 1, "TWELVECHARS!", -128, 1, -2147483647, 2147483647, 1, 1, "", "", 'M', 'L', 1, ""},
    {1, 1, "E", 127, 1, 2147483647, 2147483647, 1, 1, "", "", 'S', 'L', 1, ""},
    {1, 1, "E", 127, 1, 2147483647, 2147483647, 1, 1, "", "", 'S', 'L', 1, ""},
    {1, 1, "E", 127, 1, 2147483647, 3, 1, 1, "", "", 'S', 'L', 1, ""},
};

// A list of the (R) or (W) market dated 25 May 2009.
inline KestoList kestoList(char fileKind, unsigned linesPerPage = 50) {
  KestoList list = {};
  list.header.fileKind = fileKind;
  list.header.memberId = 418;
  list.header.traderId = 12;
  list.header.day = 25;
  list.header.month = 5;
  list.header.century = 20;
  list.header.year = 9;
  list.linesPerPage = linesPerPage;
  list.page = 1;
  return list;
}

// The list of the deals in file order.
template <typename Record, typename Print>
std::string listed(KestoList& list, const std::vector<Deal>& deals, Print print) {
  const std::vector<Record> block = blockOf<Record>(deals);
  const std::vector<std::uint32_t> order = fileOrder(deals.size());
  std::string text;
  Output* out = outputToMemory(&text);
  print(*out, list, block.data(), KestoOrder(order));
  EXPECT_TRUE(outputClose(out));
  return text;
}

}  // namespace quillon::test
