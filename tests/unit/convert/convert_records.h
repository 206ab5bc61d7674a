// Files for tests of the conversion, written as rows. Orders, quotes and consolidated orders have their rows with their
// reports.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <cstdio>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

#include "brokerquery/broker_file.h"
#include "convert/convert_lines.h"
#include "frame/client_types.h"
#include "logs/order_log_records.h"
#include "logs/quote_log_records.h"

namespace quillon::test {

// A trade as any of the eight records has it; each takes what it knows.
struct ConvertTradeRow {
  std::int32_t leadingNumber = 0, traderNo = 0, scripCode = 0;
  std::string_view scripId = "";
  std::int32_t trdId = 0, rate = 0, qty = 0, broker = 0, trader = 0;
  std::string_view time = "", date = "", stamp = "", clientId = "";
  char side = 'B', type = 'L';
  std::int64_t trnId = 0;
  std::string_view instId = "", tailText = "", group = "";
  std::int16_t settlementPart1 = 0;
  std::int32_t settlementPart2 = 0, numberAtEnd = 0;
  std::int64_t lastNumber = 0;
};

template <typename Record>
void fillTrade(const ConvertTradeRow& row, Record& trade) {
  trade.scripCode = row.scripCode;
  put(trade.scripId, row.scripId);
  trade.trdId = row.trdId;
  trade.rate = row.rate;
  trade.qty = row.qty;
  trade.brokerId = row.broker;
  trade.traderId = row.trader;
  put(trade.time, row.time);
  put(trade.date, row.date);
  put(trade.clientId, row.clientId);
  trade.side = row.side;
  trade.tradeType = row.type;
}

inline void fill(const ConvertTradeRow& row, TradeRec132& trade) {
  fillTrade(row, trade);
  trade.trnId = row.trnId;
  put(trade.cliTyp, row.instId);
  put(trade.clientText, row.tailText);
}

inline void fill(const ConvertTradeRow& row, TradeRec144& trade) {
  fillTrade(row, trade);
  trade.trnId = row.trnId;
  put(trade.orderTimeStamp, row.stamp);
  put(trade.cliTyp, row.instId);
  put(trade.clientText, row.tailText);
  put(trade.scGr, row.group);
  trade.settlementYear = row.settlementPart1;
  trade.settlementNo = row.settlementPart2;
}

inline void fill(const ConvertTradeRow& row, KestoTradeRec& trade) {
  fillTrade(row, trade);
  trade.days = 99;
  trade.trnId = static_cast<std::int32_t>(row.trnId);
  put(trade.settFyear, "no column of these lines");
}

template <typename Record>
void fillQuery(const ConvertTradeRow& row, Record& record) {
  record.leadingNumber = row.leadingNumber;
  record.traderNo = row.traderNo;
  record.scripCode = row.scripCode;
  put(record.scripId, row.scripId);
  record.rate = row.rate;
  record.qty = row.qty;
  record.counterBroker = row.broker;
  record.counterTrader = row.trader;
  put(record.tradeTime, row.time);
  put(record.tradeDate, row.date);
  put(record.clientId, row.clientId);
}

template <typename Record>
void fillBroker(const ConvertTradeRow& row, Record& record) {
  fillQuery(row, record);
  record.trnId = row.trnId;
  record.tradeType = row.type;
  record.side = row.side;
  record.trdId = row.trdId;
  put(record.instId, row.instId);
  put(record.tailText, row.tailText);
}

inline void fill(const ConvertTradeRow& row, BrokerRec132& record) { fillBroker(row, record); }

inline void fill(const ConvertTradeRow& row, BrokerRec160& record) {
  fillBroker(row, record);
  put(record.orderTimeStamp, row.stamp);
  put(record.scripGroup, row.group);
  record.settlementPart1 = row.settlementPart1;
  record.settlementPart2 = row.settlementPart2;
}

inline void fill(const ConvertTradeRow& row, KestoBrokerRec& record) {
  fillQuery(row, record);
  record.legCode = row.side;
  record.trdId = row.trdId;
  record.days = 99;
  put(record.settFyear, "no column of these lines");
}

template <typename Record>
void fillAdmin(const ConvertTradeRow& row, Record& record) {
  fillQuery(row, record);
  record.number = row.trdId;
  record.side = row.side;
  record.orderType = row.type;
  record.orderTimeStamp = row.trnId;
  put(record.instId, row.instId);
  put(record.tailText, row.tailText);
}

inline void fill(const ConvertTradeRow& row, AdminRec144& record) {
  fillAdmin(row, record);
  record.numberAtEnd = row.numberAtEnd;
}

inline void fill(const ConvertTradeRow& row, AdminRec168& record) {
  fillAdmin(row, record);
  put(record.orderDateTime, row.stamp);
  record.settlementPart1 = row.settlementPart1;
  record.settlementPart2 = row.settlementPart2;
  put(record.scripGroup, row.group);
}

inline void fill(const ConvertTradeRow& row, AdminRec176& record) {
  fill(row, record.front);
  record.lastNumber = row.lastNumber;
}

struct DeletionRow {
  std::int32_t scripCode = 0, qty = 0, revQty = 0, limitRate = 0, trigRate = 0;
  std::int64_t orderId = 0;
  std::int16_t retention = 0, clientType = 0;
  char orderType = 'L', side = 'B';
  std::uint8_t hour = 0, minute = 0, second = 0;
  std::string_view clientId = "", scripId = "", message = "";
  std::int32_t firstNumber = 0;
  std::int64_t lastNumber = 0;
};

inline void fill(const DeletionRow& row, AdminDeletionRec& record) {
  record.scripCode = row.scripCode;
  record.qty = row.qty;
  record.revQty = row.revQty;
  record.limitRate = row.limitRate;
  record.trigRate = row.trigRate;
  record.orderId = row.orderId;
  record.retention = row.retention;
  record.clientType = row.clientType;
  record.orderType = row.orderType;
  record.side = row.side;
  record.hour = row.hour;
  record.minute = row.minute;
  record.second = row.second;
  put(record.clientId, row.clientId);
  put(record.scripId, row.scripId);
  put(record.message, row.message);
  record.firstNumber = row.firstNumber;
  record.lastNumber = row.lastNumber;
}

struct RectificationRow {
  std::int32_t first = 0, second = 0;
  char letter = ' ';
  std::int32_t third = 0, fourth = 0, fifth = 0;
  std::int64_t number64 = 0;
  std::string_view firstText = "", secondText = "";
  std::int16_t firstType = 0, secondType = 0;
  std::string_view message = "";
  std::uint8_t hour = 0, minute = 0, sec = 0;
  std::string_view behindTime = "";
};

inline void fill(const RectificationRow& row, TradeRectificationRec& record) {
  record.firstNumber = row.first;
  record.secondNumber = row.second;
  record.letter = row.letter;
  record.thirdNumber = row.third;
  record.fourthNumber = row.fourth;
  record.fifthNumber = row.fifth;
  record.number64 = row.number64;
  put(record.firstText, row.firstText);
  put(record.secondText, row.secondText);
  record.firstClientType = row.firstType;
  record.secondClientType = row.secondType;
  put(record.message, row.message);
  record.hour = row.hour;
  record.minute = row.minute;
  record.second = row.sec;
  put(record.behindTime, row.behindTime);
}

// ---- Files and their lines ----------------------------------------------------------------------------------------------

// Every number of its date has its own value.
inline TradeHeader convertHeader(char fileKind, char kind) {
  TradeHeader header = logHeader(418, 12, 25, 5, 2010, kind);
  header.fileKind = fileKind;
  header.hour = 15;
  header.minute = 47;
  header.second = 20;
  return header;
}

template <typename Record, typename Row>
std::vector<Record> recordsOf(const std::vector<Row>& rows) {
  std::vector<Record> records = block<Record>(rows);
  records.pop_back();
  return records;
}

template <typename Record>
void makeConvertFile(const char* name, const TradeHeader& header, const std::vector<Record>& records) {
  std::FILE* file = std::fopen(name, "wb");
  ASSERT_NE(file, nullptr);
  EXPECT_EQ(std::fwrite(&header, sizeof header, 1, file), 1u);
  EXPECT_EQ(std::fwrite(records.data(), sizeof(Record), records.size(), file), records.size());
  EXPECT_EQ(std::fclose(file), 0);
}

inline int formatsAsked = 0;
inline void countAskedFormat() { ++formatsAsked; }

struct Converted {
  ConvertEnd end;
  std::string text;
};

inline Converted convertFile(const char* name, const TradeHeader& header, const ConvertRules& rules, std::int64_t recordCount) {
  registerClientTypes();
  Converted converted = {ConvertEnd::done, ""};
  formatsAsked = 0;
  Input* in = inputOpen(name, InputKind::binary);
  EXPECT_NE(in, nullptr);
  if (!in) return converted;
  Output* out = outputToMemory(&converted.text);
  converted.end = writeLines(*in, *out, header, convertKindOf(header), rules, recordCount, countAskedFormat);
  EXPECT_TRUE(outputClose(out));
  inputClose(in);
  return converted;
}

// The lines of a file of these records, all of them.
template <typename Record>
std::string linesOfRecords(const TradeHeader& header, const ConvertRules& rules, const std::vector<Record>& records) {
  makeConvertFile("CONVERT.IN", header, records);
  const Converted converted = convertFile("CONVERT.IN", header, rules, static_cast<std::int64_t>(records.size()));
  EXPECT_EQ(converted.end, ConvertEnd::done);
  return converted.text;
}

// ---- Rows -------------------------------------------------------------------------------------------------------------

// Leading number, trader, scrip code, scrip, trade id, rate, quantity, the other side's broker and trader, time, date, the
// order's date and time, client, side, type, transaction, institution, text behind it, group, settlement, number at the end,
// last number. Sides of every market: each writer turns its own.
inline const std::vector<ConvertTradeRow> ordinaryConvertTrades = {
    {1,        7,           500010,       "AXLE",
     1001,     12345,       100,          712,
     33,       "10:15:30",  "25/05/2010", "25/05/2010 10:14:59",
     "C0001",  'B',         'L',          20100525000001,
     "CLIENT", "CLIENT_SD", "A",          2010,
     37,       41,          9000000001},
    {2,          12,  532540, "BOLTSTEEL",    1002,  250075, 25,   100,  4,  "11:02:09", "25/05/2010", "25/05/2010 11:01:58",
     "HOUSE-77", 'S', 'O',    20100525000002, "OWN", "",     "B1", 2010, 38, 42,         9000000002},
    {3,       12,  500011, "CRANK",        1003,  199,       1,   418,  12, "12:30:00", "25/05/2010", "24/05/2010 15:29:59",
     "C0002", 'L', 'T',    20100525000003, "NRI", "NRI_REP", "T", 2010, 39, 43,         9000000003},
    {4,       7,   500012, "DERRICK",      1004, 100, 700000, 53,   1,  "13:45:17", "25/05/2010", "25/05/2010 13:45:17",
     "C0003", 'T', 'K',    20100525000004, "MF", "",  "A",    2010, 40, 44,         9000000004},
    {5,       9,   500013, "ENGINE",       1005,  99, 50,  54,   2,  "14:00:01", "25/05/2010", "25/05/2010 13:59:59",
     "C0004", 'M', 'H',    20100525000005, "FII", "", "A", 2010, 41, 45,         9000000005},
    {6,       9,   500014, "FORGE",        1006,  -250, 60,  55,   3,  "15:29:59", "25/05/2010", "25/05/2010 15:29:58",
     "C0005", 'V', 'M',    20100525000006, "INS", "",   "Z", 2010, 42, 46,         9000000006},
    {7,
     9,
     500015,
     "GIRDER",
     1007,
     5050,
     75,
     56,
     4,
     "15:30:00",
     "25/05/2010",
     "25/05/2010 15:29:59",
     "C0006",
     'X',
     'P',
     20100525000007,
     "CLIENT",
     "A '%' and '%%s'",
     "Z",
     2010,
     43,
     47,
     9000000007},
};

// Texts to the last byte of their fields; numbers to the ends of theirs.
inline const std::vector<ConvertTradeRow> wideConvertTrades = {
    {most,
     most,
     most,
     "SCRIP-TWELVE",
     most,
     most,
     most,
     most,
     most,
     "TIME OF FIFTEEN",
     "DATE OF FIFTEEN",
     "STAMP OF TWENTY CHAR",
     "CLIENT-TWELV",
     'S',
     'M',
     mostId,
     "INST OF ELEVEN",
     "TAIL TEXT OF THIRTY-FIVE CHARACTERS!",
     "GROUP OF TWENTY CHAR",
     32767,
     most,
     most,
     mostId},
    {least,
     least,
     least,
     "SCRIP-TWELVE",
     least,
     least,
     least,
     least,
     least,
     "TIME OF FIFTEEN",
     "DATE OF FIFTEEN",
     "STAMP OF TWENTY CHAR",
     "CLIENT-TWELV",
     'M',
     'V',
     leastId,
     "INST OF ELEVEN",
     "TAIL TEXT OF THIRTY-FIVE CHARACTERS!",
     "GROUP OF TWENTY CHAR",
     -32767,
     least,
     least,
     leastId},
};

// Values of a few characters, or of none.
inline const std::vector<ConvertTradeRow> narrowConvertTrades = {
    {1,   2,   3, "A", 4,   105, 6,  7,  8,  "09:05:03", "03/04/2009", "03/04/2009 09:04:01", "C",
     'S', 'L', 9, "D", "E", "F", 10, 11, 12, 13},
    {14,   15,  16,  "GH", 17,   -99,  -19,  20, 21, "9:5", "3/4/09", "3/4/09 9:04:01",
     "IJ", 'V', 'O', -22,  "KL", "MN", "OP", 23, 24, 25,    26},
    {0, 0, 0, "", 0, 0, 0, 0, 0, "", "", "", "", 'M', 'T', 0, "", "", "", 0, 0, 0, 0},
};

// Scrip code, quantity, revealed, limit rate, trigger rate, order id, retention, client type, type, side, time, client, scrip,
// message; first and last number. One rate is that of an order that has none, one trigger rate is zero: both stand as they are.
inline const std::vector<DeletionRow> ordinaryDeletions = {
    {500010, 100, 40, 12345, 12300, 90525000001, 0, 30, 'L', 'B', 10, 15, 30, "C0001", "AXLE", "Order deleted", 12, 9000000001},
    {532540, 25, 10, 250075, 0, 90525000002, 4, 87, 'T', 'S', 11, 2, 9, "HOUSE-77", "BOLTSTEEL", "Deleted\nat the close", 7,
     9000000002},
    {500011, 1, 0, 0, 0, 90525000003, 5, 20, 'O', 'L', 15, 29, 59, "C0002", "CRANK", "A code without a text", 418, -1},
};
inline const std::vector<DeletionRow> wideDeletions = {
    {most, most, most, most, most, mostId, 4, 40, 'K', 'B', 255, 255, 255, "CLIENT-TWELV", "SCRIP-TWELVE", forty, most, mostId},
    {least, least, least, least, least, leastId, 1, 30, 'K', 'S', 100, 100, 100, "CLIENT-TWELV", "SCRIP-TWELVE", forty, least,
     leastId},
};
inline const std::vector<DeletionRow> narrowDeletions = {
    {1, 2, 3, 4, 5, 6, 0, 10, 'L', 'B', 9, 5, 3, "A", "B", "C", 7, 8},
    {12, -34, 56, -78, 90, -98, 3, 70, 'T', 'S', 0, 0, 0, "DE", "FG", "HI", -76, 54},
    {0, 0, 0, 0, 0, 0, 0, 10, 'L', 'B', 0, 0, 9, "", "", "", 0, 0},
};

// First and second number, letter, third to fifth number, the 64-bit one, two texts, two client types, message, time, the text
// behind it.
inline const std::vector<RectificationRow> ordinaryRectifications = {
    {1001, 500010, 'B', 100, 12345, 33, 90525000001, "C0001", "C0002", 30, 20, "Client changed", 10, 15, 30, "AM"},
    {1002, 532540, 'S', 25, 250075, 34, 90525000002, "HOUSE-77", "HOUSE-78", 87, 61, "Refused\nby the member", 15, 29, 59,
     "PM"},
    {1003, 500011, 'L', 1, 199, 35, 90525000003, "C0003", "", 99, 75, "", 9, 5, 3, ""},
};
inline const std::vector<RectificationRow> wideRectifications = {
    {most, most, 'B', most, most, most, mostId, "FIRST-TWELVE", "SECOND-TWELV", 40, 30, forty, 255, 255, 255, "FIVE!"},
    {least, least, 'S', least, least, least, leastId, "FIRST-TWELVE", "SECOND-TWELV", 30, 40, forty, 100, 100, 100, "FIVE!"},
};
inline const std::vector<RectificationRow> narrowRectifications = {
    {1, 2, 'B', 3, 4, 5, 6, "A", "B", 10, 70, "C", 9, 5, 3, "D"},
    {-7, 89, 'S', -10, 11, -12, -134, "EF", "GH", 70, 10, "IJ", 0, 0, 0, "KL"},
    {0, 0, ' ', 0, 0, 0, 0, "", "", 60, 60, "", 0, 0, 9, ""},
};

// Orders of the short records have a date of their own.
inline std::vector<OrderRec112> oldOrders(const std::vector<OrderRow>& rows, std::uint8_t day, std::uint8_t month,
                                          std::uint8_t year) {
  std::vector<OrderRec112> records = recordsOf<OrderRec112>(rows);
  for (OrderRec112& record : records) {
    record.recDay = day;
    record.recMonth = month;
    record.recYear = year;
  }
  return records;
}

inline std::vector<ConsolidatedOrderRec> datedOrders(const std::vector<ConsolidatedRow>& rows, std::string_view date) {
  std::vector<ConsolidatedOrderRec> records = recordsOf<ConsolidatedOrderRec>(rows);
  for (ConsolidatedOrderRec& record : records) put(record.logDate, date);
  return records;
}

}  // namespace quillon::test
