// Broker query records for tests, written as rows.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "brokerquery/broker_report.h"
#include "text/output.h"

namespace quillon::test {

struct Trade {
  std::int32_t traderNo;
  std::int32_t scripCode;
  std::string_view scripId;
  std::int32_t rate;
  std::int32_t qty;
  std::string_view tradeTime;
  std::string_view clientId;
  std::int64_t trnId;
  char tradeType;
  char side;
  std::int32_t trdId;
  std::string_view instId;
  std::string_view orderTimeStamp = "";
  std::string_view scripGroup = "";
  std::int16_t settlementPart1 = 0;
  std::int32_t settlementPart2 = 0;
};

struct KestoTrade {
  std::int32_t traderNo;
  std::int32_t scripCode;
  std::string_view scripId;
  std::int32_t rate;
  std::int32_t qty;
  std::int32_t counterBroker;
  std::int32_t counterTrader;
  std::string_view tradeTime;
  std::string_view clientId;
  char legCode;
  std::int32_t trdId;
};

// Numbers and texts narrower than their cells, wherever a cell can be wider than its value: a cell that changed its width or
// its alignment shows on a page of these.
inline constexpr Trade narrowBuy = {3, 7, "AB", 105, 2, "9:05:03", "C", 6, 'L', 'B', 8, "FI", "03/04/2009 9:04:01", "A", 9, 8};
inline constexpr Trade narrowSell = {1,    21, "QRS", 7, 345, "9:06:17", "R2", 198, 'T', 'S', 12, "OWN", "03/04/2009 9:05:59",
                                     "B1", 12, 345};
inline constexpr KestoTrade narrowLend = {3, 7, "AB", 10500, 2, 4, 5, "9:05:03", "C", 'S', 8};
inline constexpr KestoTrade narrowBorrow = {1, 21, "QRS", 700, 345, 31, 2, "9:06:17", "R2", 'M', 12};

template <typename Row>
Row ofScrip(Row trade, std::string_view scripId) {
  trade.scripId = scripId;
  return trade;
}

inline KestoTrade ofLeg(KestoTrade trade, char legCode) {
  trade.legCode = legCode;
  return trade;
}

// Two lenders and two borrowers of two scrips.
inline const std::vector<KestoTrade> narrowKestoTrades = {narrowLend, narrowBorrow, ofLeg(ofScrip(narrowLend, "QRS"), 'T'),
                                                          ofLeg(ofScrip(narrowBorrow, "AB"), 'V')};

inline void fill(const Trade& trade, BrokerRec132& record) {
  record.traderNo = trade.traderNo;
  record.scripCode = trade.scripCode;
  fieldSet(record.scripId, trade.scripId);
  record.rate = trade.rate;
  record.qty = trade.qty;
  fieldSet(record.tradeTime, trade.tradeTime);
  fieldSet(record.clientId, trade.clientId);
  record.trnId = trade.trnId;
  record.tradeType = trade.tradeType;
  record.side = trade.side;
  record.trdId = trade.trdId;
  fieldSet(record.instId, trade.instId);
}

inline void fill(const Trade& trade, BrokerRec160& record) {
  record.traderNo = trade.traderNo;
  record.scripCode = trade.scripCode;
  fieldSet(record.scripId, trade.scripId);
  record.rate = trade.rate;
  record.qty = trade.qty;
  fieldSet(record.tradeTime, trade.tradeTime);
  fieldSet(record.orderTimeStamp, trade.orderTimeStamp);
  fieldSet(record.clientId, trade.clientId);
  record.trnId = trade.trnId;
  record.tradeType = trade.tradeType;
  record.side = trade.side;
  record.trdId = trade.trdId;
  fieldSet(record.instId, trade.instId);
  fieldSet(record.scripGroup, trade.scripGroup);
  record.settlementPart1 = trade.settlementPart1;
  record.settlementPart2 = trade.settlementPart2;
}

inline void fill(const KestoTrade& trade, KestoBrokerRec& record) {
  record.traderNo = trade.traderNo;
  record.scripCode = trade.scripCode;
  fieldSet(record.scripId, trade.scripId);
  record.rate = trade.rate;
  record.qty = trade.qty;
  record.counterBroker = trade.counterBroker;
  record.counterTrader = trade.counterTrader;
  fieldSet(record.tradeTime, trade.tradeTime);
  fieldSet(record.clientId, trade.clientId);
  record.legCode = trade.legCode;
  record.trdId = trade.trdId;
}

// A block as a run has it: the records and a zero record behind them.
template <typename Record, typename Row>
std::vector<Record> block(const std::vector<Row>& rows) {
  std::vector<Record> records(rows.size() + 1);
  for (std::size_t i = 0; i < rows.size(); ++i) fill(rows[i], records[i]);
  return records;
}

inline BrokerRecords inFileOrder(const std::vector<BrokerRec132>& block) {
  return {BrokerLayout::rec132, block.data(), block.size() - 1, nullptr};
}
inline BrokerRecords inFileOrder(const std::vector<BrokerRec160>& block) {
  return {BrokerLayout::rec160, block.data(), block.size() - 1, nullptr};
}
inline BrokerRecords inFileOrder(const std::vector<KestoBrokerRec>& block) {
  return {BrokerLayout::kesto, block.data(), block.size() - 1, nullptr};
}

// The positions in the order of a sort.
template <typename Record>
std::vector<std::uint32_t> orderOf(const std::vector<Record>& block, const RecordKey& first, const RecordKey& second) {
  std::vector<std::uint32_t> order(block.size());
  EXPECT_TRUE(recordOrder({block.data(), sizeof(Record), block.size() - 1}, {first, second}, order.data()));
  order.resize(block.size() - 1);
  return order;
}

inline TradeHeader header(std::int16_t day, std::int16_t month, std::int16_t year) {
  TradeHeader header = {};
  header.memberId = 123;
  header.day = day;
  header.month = month;
  header.century = static_cast<std::int16_t>(year / 100);
  header.year = static_cast<std::int16_t>(year % 100);
  return header;
}

// Every number of one digit.
inline TradeHeader narrowHeader() {
  TradeHeader header = {};
  header.memberId = 5;
  header.day = 3;
  header.month = 4;
  header.century = 9;
  header.year = 5;
  return header;
}

// What `write` puts into a report.
template <typename Write>
std::string reportOf(Write write) {
  std::string text;
  Output* out = outputToMemory(&text);
  write(*out);
  EXPECT_TRUE(outputClose(out));
  return text;
}

}  // namespace quillon::test
