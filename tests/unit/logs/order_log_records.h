// Order log records for tests, written as rows.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

#include "logs/order_log_report.h"
#include "text/output.h"

namespace quillon::test {

struct OrderRow {
  std::int32_t scripCode = 0, qty = 0, revQty = 0, limitRate = 0, trigRate = 0, thirdRate = 0;
  std::int64_t orderId = 0;
  std::int16_t retention = 0, clientType = 0;
  char orderType = 'L', side = 'B';
  std::uint8_t hour = 0, minute = 0, second = 0;
  std::int16_t actionCode = 0;
  std::string_view clientId = "", scripId = "", message = "";
  char recordKind = 'N';
  std::int32_t tradeId = 0;
  std::string_view newClientId = "";
  std::int16_t newClientType = 0;
};

struct ConsolidatedRow {
  std::int32_t traderId = 0, scripCode = 0;
  std::string_view scripId = "";
  std::int32_t qty = 0, revQty = 0, limitRate = 0, trigRate = 0, thirdRate = 0;
  std::int64_t orderId = 0;
  std::int16_t retention = 0, clientType = 0, actionCode = 0;
  std::string_view clientId = "";
  char orderType = 'L', side = 'B';
  std::string_view logTime = "", message = "";
};

// Fills the field to its last byte where the text is that long.
template <std::size_t N>
void put(TextField<N>& field, std::string_view text) {
  std::memset(field.bytes, 0, N);
  text = text.substr(0, N);
  if (!text.empty()) std::memcpy(field.bytes, text.data(), text.size());
}

inline void fill(const OrderRow& row, OrderRec112& order) {
  order.scripCode = row.scripCode;
  order.qty = row.qty;
  order.revQty = row.revQty;
  order.limitRate = row.limitRate;
  order.trigRate = row.trigRate;
  order.thirdRate = row.thirdRate;
  order.orderId = row.orderId;
  order.retention = row.retention;
  order.clientType = row.clientType;
  order.orderType = row.orderType;
  order.side = row.side;
  order.hour = row.hour;
  order.minute = row.minute;
  order.second = row.second;
  order.actionCode = row.actionCode;
  put(order.clientId, row.clientId);
  put(order.scripId, row.scripId);
  put(order.message, row.message);
}

inline void fill(const OrderRow& row, OrderRec136& record) {
  fill(row, record.order);
  record.tradeId = row.tradeId;
  put(record.newClientId, row.newClientId);
  record.recordKind = row.recordKind;
  record.newClientType = row.newClientType;
}

inline void fill(const ConsolidatedRow& row, ConsolidatedOrderRec& record) {
  record.traderId = row.traderId;
  record.scripCode = row.scripCode;
  put(record.scripId, row.scripId);
  record.qty = row.qty;
  record.revQty = row.revQty;
  record.limitRate = row.limitRate;
  record.trigRate = row.trigRate;
  record.thirdRate = row.thirdRate;
  record.orderId = row.orderId;
  record.retention = row.retention;
  record.clientType = row.clientType;
  record.actionCode = row.actionCode;
  put(record.clientId, row.clientId);
  record.orderType = row.orderType;
  record.side = row.side;
  put(record.logTime, row.logTime);
  put(record.message, row.message);
}

// A block as a run has it: the records and a zero record behind them.
template <typename Record, typename Row>
std::vector<Record> block(const std::vector<Row>& rows) {
  std::vector<Record> records(rows.size() + 1);
  for (std::size_t i = 0; i < rows.size(); ++i) fill(rows[i], records[i]);
  return records;
}

inline OrderLogRecords inFileOrder(const std::vector<OrderRec112>& block) {
  return {OrderLogLayout::rec112, block.data(), block.size() - 1, nullptr};
}
inline OrderLogRecords inFileOrder(const std::vector<OrderRec136>& block) {
  return {OrderLogLayout::rec136, block.data(), block.size() - 1, nullptr};
}
inline OrderLogRecords inFileOrder(const std::vector<ConsolidatedOrderRec>& block) {
  return {OrderLogLayout::consolidated, block.data(), block.size() - 1, nullptr};
}

inline TradeHeader logHeader(std::int32_t memberId, std::int32_t traderId, std::int16_t day, std::int16_t month,
                             std::int16_t year, char kind = 'O') {
  TradeHeader header = {};
  header.fileKind = 'N';
  header.kind = kind;
  header.memberId = memberId;
  header.traderId = traderId;
  header.day = day;
  header.month = month;
  header.century = static_cast<std::int16_t>(year / 100);
  header.year = static_cast<std::int16_t>(year % 100);
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

// ---- Rows -------------------------------------------------------------------------------------------------------------

// Records of all kinds in turn. Scrip code, quantity, revealed quantity, limit rate, trigger rate, third rate, order id,
// retention, client type, type letter, side, time, action, client, scrip, message; kind, trade, new client, new client type.
inline const std::vector<OrderRow> ordinaryOrders = {
    {500010, 100, 40, 12345, 0, 0, 90525000001, 0, 30, 'L', 'B', 10, 15, 30, 1, "C0001", "AXLE", "Order accepted"},
    {500010, 100, 0,  12345, 0,       0,      90525000001,      1,   30,   'L',     'B',
     10,     16,  30, 19,    "C0001", "AXLE", "Client changed", 'Y', 1001, "C0044", 0},
    {532540, 25,   0,  250075, 0, 0,  90525000002, 2,           80,
     'T',    'S',  11, 2,      9, 22, "HOUSE-77",  "BOLTSTEEL", "Type 87 is not among a trader's types",
     'I',    1002, "", 87},
    {532540, 25, 10, 250075, 249900, 0, 90525000002, 1, 80, 'T', 'S', 11, 2, 9, 2, "HOUSE-77", "BOLTSTEEL",
     "Quantity was updated, 9"},
    {500011, 1,    0,          99, 0, 0,  90525000003, 3,       20,
     'L',    'S',  11,         30, 0, 20, "C0002",     "CRANK", "Client HOUSE-78 is not known here",
     'Y',    1003, "HOUSE-78", 0},
    {500011, 1,    0,  99, 0, 0, 90525000003, 4, 20, 'L', 'B', 11, 31, 0, 21, "C0002", "CRANK", "Type changed\nby the trader",
     'I',    1003, "", 10},
    {500011, 1, 0, 99, 0, 0, 90525000003, 2, 20, 'L', 'S', 11, 30, 0, 9, "C0002", "CRANK", "Market order accepted, 1"},
    {500012, 700,  70,      5, 0, 0,  90525000004, 0,         70,
     'O',    'B',  12,      0, 0, 19, "C0003",     "DERRICK", "Thirty-one characters, no more.",
     'Y',    1004, "C0045", 0},
    {500012, 700,  70, 5, 0, 0,  90525000004, 0,         70,
     'O',    'B',  12, 1, 0, 21, "C0003",     "DERRICK", "Thirty-two characters and 1 more",
     'I',    1004, "", 60},
    {500010, 40, 4, 12400, 12500, 12600, 90525000005, 3, 85, 'O', 'S', 12, 45, 17, 11, "C0001", "AXLE",
     "Deleted by the trader\nat the close"},
    {500012, 700000, 70000, 5, 0, 7, 90525000006, 4, 10, 'L', 'B', 15, 29, 59, 3, "C0003", "DERRICK",
     "Thirty-nine characters in this message."},
    {500013, 12, 0, 700, 0, 0, 90525000007, 0, 50, 'L', 'L', 15, 30, 0, 20, "C0004", "ENGINE", "", 'Y', 1005, "C0046", 0},
    {500013, 12, 0, 700, 0, 0, 90525000007, 0, 50, 'L', 'L', 15, 30, 1, 22, "C0004", "ENGINE", "", 'I', 1005, "", 75},
};

inline constexpr std::int32_t most = 2147483647, least = -2147483647 - 1;
inline constexpr std::int64_t mostId = 9223372036854775807, leastId = -9223372036854775807 - 1;
inline constexpr std::int32_t letters = 0x44434241;  // the bytes "ABCD"
inline constexpr std::string_view forty = "Forty characters, to the end of its cell";

// Values that are wider than their cells; texts to the last byte of their fields. A message that fills its field runs on into
// the trade id, which is four letters here, and the new client; in the short records into the next one's scrip code, which is
// letters too.
inline const std::vector<OrderRow> wideOrders = {
    {most, most, 1234567890, most, most, 0, mostId, 4, 30, 'L', 'B', 255, 255, 255, 1, "CLIENT-TWELV", "SCRIP-TWELVE", forty},
    {letters, least,          least,          least, least, 0,       leastId,        2, 40, 'K', 'S', 100, 100, 100,
     2,       "CLIENT-TWELV", "SCRIP-TWELVE", forty, 'N',   letters, "NEW-CLIENT-1", 0},
    {letters, least, 0,       most,           0, 0, mostId, 0, 30, 'L', 'B', 255, 255, 255, 19, "CLIENT-TWELV", "SCRIP-TWELVE",
     forty,   'Y',   letters, "NEW-CLIENT-1", 0},
    {letters, least, 0,     least,        0, 0, leastId, 0, 40, 'K', 'S', 100, 100, 100, 20, "CLIENT-TWELV", "SCRIP-TWELVE",
     forty,   'Y',   least, "NEW-CLIENT", 0},
    {letters,        least,          0,     most, 0,       0,  mostId, 0, 30, 'L', 'B', 255, 255, 255, 21,
     "CLIENT-TWELV", "SCRIP-TWELVE", forty, 'I',  letters, "", 40},
    {letters,        least,          0,     least, 0,     0,  leastId, 0, 40, 'K', 'S', 100, 100, 100, 22,
     "CLIENT-TWELV", "SCRIP-TWELVE", forty, 'I',   least, "", 30},
};

// Values far narrower than their cells.
inline const std::vector<OrderRow> narrowOrders = {
    {1, 2, 3, 4, 5, 0, 6, 0, 10, 'L', 'B', 9, 5, 3, 1, "A", "B", "C"},
    {7, 89, 10, 11, 12, 0, 134, 3, 70, 'T', 'S', 0, 0, 0, 5, "DE", "FG", "HI"},
    {1, 2, 3, 4, 5, 0, 6, 0, 10, 'L', 'B', 9, 5, 3, 19, "A", "B", "C", 'Y', 7, "D", 0},
    {7, 89, 10, -11, 12, 0, 134, 3, 70, 'T', 'S', 0, 0, 0, 20, "DE", "FG", "HI", 'Y', 89, "JK", 0},
    {1, 2, 3, 4, 5, 0, 6, 0, 10, 'L', 'B', 9, 5, 3, 21, "A", "B", "C", 'I', 7, "", 70},
    {7, -8, 10, -11, 12, 0, 134, 3, 70, 'T', 'S', 0, 0, 0, 22, "DE", "FG", "HI", 'I', 89, "", 10},
    {8, -9, -10, -11, -12, 0, -13, 3, 10, 'T', 'S', 0, 0, 9, 3, "K", "L", "M"},
};

inline const std::vector<ConsolidatedRow> ordinaryConsolidated = {
    {3, 500010, "AXLE", 100, 40, 12345, 0, 0, 90525000001, 0, 30, 1, "C0001", 'L', 'B', "10:15:30", "Order accepted"},
    {12, 532540, "BOLTSTEEL", 25, 10, 250075, 249900, 0, 90525000002, 1, 80, 2, "HOUSE-77", 'T', 'S', "11:02:09",
     "Quantity was updated, 9"},
    {7, 500011, "CRANK", 1, 0, 99, 0, 0, 90525000003, 2, 20, 9, "C0002", 'L', 'S', "11:30:00", "Market order accepted, 1"},
    {12, 500010, "AXLE", 40, 4, 12400, 12500, 12600, 90525000005, 3, 85, 11, "C0001", 'O', 'S', "12:45:17",
     "Deleted by the trader\nat the close"},
    {345, 500012, "DERRICK", 700000, 70000, 5, 0, 7, 90525000006, 4, 10, 3, "C0003", 'L', 'L', "15:29:59",
     "Thirty-nine characters in this message."},
};

// A message that fills its field runs on into the next record, whose first four bytes are zero here.
inline const std::vector<ConsolidatedRow> wideConsolidated = {
    {most, letters, "SCRIP-TWELVE", most, 1234567890, most, most, 0, mostId, 4, 30, 1, "CLIENT-TWELV", 'L', 'B',
     "FIFTEEN-LETTERS", forty},
    {least, 0, "SCRIP-TWELVE", least, least, least, least, 0, leastId, 2, 40, 2, "CLIENT-TWELV", 'K', 'S', "FIFTEEN-LETTERS",
     forty},
};

inline const std::vector<ConsolidatedRow> narrowConsolidated = {
    {1, 2, "B", 3, 4, 5, 6, 0, 7, 0, 10, 1, "A", 'L', 'B', "9:5:3", "C"},
    {89, 7, "FG", 89, 10, 11, 12, 0, 134, 3, 70, 5, "DE", 'T', 'S', "0", "HI"},
    {-1, 7, "L", -9, -10, -11, -12, 0, -13, 3, 10, 3, "K", 'T', 'S', "", "M"},
};

}  // namespace quillon::test
