// Trades for tests: one plain description, from which a record of any of the three layouts is made.
#pragma once

#include <cstring>
#include <numeric>
#include <string>
#include <vector>

#include "text/output.h"
#include "trades/trade_file.h"
#include "trades/trades_report.h"

namespace quillon::test {

struct Trade {
  int scripCode = 500010;
  const char* scripId = "AXLE";
  int trdId = 1001;
  int rate = 12345;  // in the units of the layout
  int qty = 100;
  int brokerId = 12;
  int traderId = 3;
  const char* time = "10:15:30";
  const char* clientId = "C0001";
  char side = 'B';
  char tradeType = 'L';
  long long trnId = 4000001;
  const char* cliTyp = "CLIENT";
  // 144-byte records alone
  const char* orderTimeStamp = "25/05/2009 10:14:59";
  const char* scGr = "A";
  int settlementYear = 2009;
  int settlementNo = 37;
};

template <typename Record>
void fillCommon(Record& record, const Trade& trade) {
  record.scripCode = trade.scripCode;
  fieldSet(record.scripId, trade.scripId);
  record.trdId = trade.trdId;
  record.rate = trade.rate;
  record.qty = trade.qty;
  record.brokerId = trade.brokerId;
  record.traderId = trade.traderId;
  fieldSet(record.time, trade.time);
  fieldSet(record.clientId, trade.clientId);
  record.side = trade.side;
  record.tradeType = trade.tradeType;
}

inline void fill(TradeRec132& record, const Trade& trade) {
  fillCommon(record, trade);
  record.trnId = trade.trnId;
  fieldSet(record.cliTyp, trade.cliTyp);
}

inline void fill(TradeRec144& record, const Trade& trade) {
  fillCommon(record, trade);
  record.trnId = trade.trnId;
  fieldSet(record.cliTyp, trade.cliTyp);
  fieldSet(record.orderTimeStamp, trade.orderTimeStamp);
  fieldSet(record.scGr, trade.scGr);
  record.settlementYear = static_cast<std::int16_t>(trade.settlementYear);
  record.settlementNo = trade.settlementNo;
}

inline void fill(KestoTradeRec& record, const Trade& trade) {
  fillCommon(record, trade);
  record.trnId = static_cast<std::int32_t>(trade.trnId);
}

// The records of the trades, and the zero record behind them.
template <typename Record>
std::vector<Record> recordsOf(const std::vector<Trade>& trades) {
  std::vector<Record> records(trades.size() + 1);
  std::memset(static_cast<void*>(records.data()), 0, records.size() * sizeof(Record));
  for (std::size_t i = 0; i < trades.size(); ++i) fill(records[i], trades[i]);
  return records;
}

// Positions 0 to count - 1.
inline std::vector<std::uint32_t> fileOrder(std::size_t count) {
  std::vector<std::uint32_t> order(count);
  std::iota(order.begin(), order.end(), 0u);
  return order;
}

// A report of a market-lot file dated 25 May 2009, 50 records a page.
inline TradesReport newReport(char fileKind) {
  TradesReport report = {};
  report.header = {.fileKind = fileKind,
                   .kind = 'T',
                   .memberId = 418,
                   .traderId = 12,
                   .day = 25,
                   .month = 5,
                   .century = 20,
                   .year = 9,
                   .hour = 15,
                   .minute = 47,
                   .second = 20};
  report.shortColumns = true;
  report.linesPerPage = 50;
  report.page = 1;
  return report;
}

// The same dated 21 May 2009, a day before the cut-over.
inline TradesReport oldReport(char fileKind) {
  TradesReport report = newReport(fileKind);
  report.header.day = 21;
  report.preCutover = true;
  return report;
}

// Numbers and texts narrower than their cells, wherever a cell can be wider than its value: a cell that changed its width or
// its alignment shows on a page of these.
inline const Trade narrowBuy = {.scripCode = 7,
                                .scripId = "AB",
                                .trdId = 3,
                                .rate = 105,
                                .qty = 2,
                                .brokerId = 4,
                                .traderId = 5,
                                .time = "9:05:03",
                                .clientId = "C",
                                .trnId = 6,
                                .cliTyp = "FI",
                                .orderTimeStamp = "03/04/2009 9:04:01",
                                .scGr = "A",
                                .settlementYear = 9,
                                .settlementNo = 8};
inline const Trade narrowSell = {.scripCode = 21,
                                 .scripId = "QRS",
                                 .trdId = 12,
                                 .rate = 7,
                                 .qty = 345,
                                 .brokerId = 31,
                                 .traderId = 2,
                                 .time = "9:06:17",
                                 .clientId = "R2",
                                 .side = 'S',
                                 .tradeType = 'T',
                                 .trnId = 198,
                                 .cliTyp = "OWN",
                                 .orderTimeStamp = "03/04/2009 9:05:59",
                                 .scGr = "B1",
                                 .settlementYear = 12,
                                 .settlementNo = 345};

inline Trade oddLot(Trade trade) {
  trade.tradeType = 'O';
  return trade;
}

// A trade of a Kesto file, the rate in its ten-thousandths.
inline Trade asKestoTrade(Trade trade, char side) {
  trade.side = side;
  trade.rate *= 100;
  return trade;
}

// Two records a page, and every number of the header of one digit.
inline TradesReport narrowReport(char fileKind) {
  TradesReport report = newReport(fileKind);
  report.header = {.fileKind = fileKind,
                   .kind = 'T',
                   .memberId = 5,
                   .traderId = 7,
                   .day = 3,
                   .month = 4,
                   .century = 9,
                   .year = 5,
                   .hour = 9,
                   .minute = 5,
                   .second = 3};
  report.linesPerPage = 2;
  return report;
}

template <typename Record, typename Print>
std::string printed(TradesReport& report, const std::vector<Trade>& trades, Print print) {
  const std::vector<Record> records = recordsOf<Record>(trades);
  const std::vector<std::uint32_t> order = fileOrder(trades.size());
  std::string text;
  Output* out = outputToMemory(&text);
  print(*out, report, records.data(), TradeOrder(order));
  if (!outputClose(out)) text = "the output failed";
  return text;
}

}  // namespace quillon::test
