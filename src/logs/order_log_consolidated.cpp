// The list of a consolidated log: the orders of all traders of the member, so that the trader stands in the rows and not in
// the heading.
#include "logs/log_codes.h"
#include "logs/log_page.h"
#include "logs/order_log_blocks.h"

namespace quillon {

// clang-format off

// ---- Wide -------------------------------------------------------------------------------------------------------------

static void printWideHeading(Output& out, const OrderLogPage& page) {
  printWideOrderLogTitle(out, page);
  printBrokerId(out, page);
  print<"%82s%10s\n">(out, "LIST OF CONSOLIDATED ORDER RECORDS AS ON: ", page.date);
  print<"%135s\n">(out, logRule(135));
  print<"%1c%3s%1c%2s%1c%11s%1c%9s%1c%9s%1c%10s%1c%10s%1c%8s%1c%12s%1c%11s%1c%6s%1c%6s%1c%1s%1c%23s%1c\n">(out, '|', "Trd",
      '|', "Tx", '|', "Scrip Id", '|', "Qty", '|', "RevQty", '|', "Limit Rate", '|', "Trig Rate", '|', "Time", '|',
      "OrderId", '|', "ClientId", '|', "InstId", '|', "Retain", '|', "C", '|', "Message", '|');
  print<"%1c%3s%1c%2s%1c%11s%1c%9s%1c%9s%1c%10s%1c%10s%1c%8s%1c%12s%1c%11s%1c%6s%1c%6s%1c%1s%1c%23s%1c\n">(out, '|', "_Id",
      '|', logRule(2), '|', logRule(11), '|', logRule(9), '|', logRule(9), '|', logRule(10), '|', logRule(10), '|',
      logRule(8), '|', logRule(12), '|', logRule(11), '|', logRule(6), '|', logRule(6), '|', logRule(1), '|', logRule(23),
      '|');
}

// A message that is longer than its column goes on in the rule.
static void printWideRecord(Output& out, const void* bytes, const OrderLogRow& row) {
  const ConsolidatedOrderRec& order = *static_cast<const ConsolidatedOrderRec*>(bytes);
  const RateText limitRate = limitRateText(order.limitRate, order.thirdRate, order.actionCode);
  const SplitMessage message = splitMessage(row.message, 23);
  print<"|%3ld|%2c|%11s|%9ld|%9ld|%10s|%10s|%8s|%11I64d%1c|%11s|%6s|%6s|%1c|%-23s|\n">(out, order.traderId, row.side,
      order.scripId, order.qty, order.revQty, limitRate, trigRateText(order.trigRate), order.logTime, order.orderId,
      order.orderType, order.clientId, clientTypeName(order.clientType), row.retention, row.letter, message.head);
  print<"%1c%3s%1c%2s%1c%11s%1c%9s%1c%9s%1c%10s%1c%10s%1c%8s%1c%12s%1c%11s%1c%6s%1c%6s%1c%1s%1c%-23s%1c\n">(out, '|',
      logRule(3), '|', logRule(2), '|', logRule(11), '|', logRule(9), '|', logRule(9), '|', logRule(10), '|', logRule(10),
      '|', logRule(8), '|', logRule(12), '|', logRule(11), '|', logRule(6), '|', logRule(6), '|', logRule(1), '|',
      message.rest, '|');
}

static void printWideBreakRule(Output& out) {
  print<"%1c%3s%1c%2s%1c%11s%1c%9s%1c%9s%1c%10s%1c%10s%1c%8s%1c%12s%1c%11s%1c%6s%1c%6s%1c%1s%1c%23s%1c\n\n\n">(out, '|',
      logRule(3), '|', logRule(2), '|', logRule(11), '|', logRule(9), '|', logRule(9), '|', logRule(10), '|', logRule(10),
      '|', logRule(8), '|', logRule(12), '|', logRule(11), '|', logRule(6), '|', logRule(6), '|', logRule(1), '|',
      logRule(23), '|');
}

static void printWideClosingRule(Output& out) {
  print<"%1c%3s%1c%2s%1c%11s%1c%9s%1c%9s%1c%10s%1c%10s%1c%8s%1c%12s%1c%11s%1c%6s%1c%6s%1c%1s%1c%23s%1c\n">(out, '|',
      logRule(3), '|', logRule(2), '|', logRule(11), '|', logRule(9), '|', logRule(9), '|', logRule(10), '|', logRule(10),
      '|', logRule(8), '|', logRule(12), '|', logRule(11), '|', logRule(6), '|', logRule(6), '|', logRule(1), '|',
      logRule(23), '|');
}

// ---- Narrow -----------------------------------------------------------------------------------------------------------

static void printNarrowRule(Output& out) {
  print<"%1c%3s%1c%2s%1c%11s%1c%9s%1c%9s%1c%10s%1c%10s%1c%8s%1c%18s%1c%11s%1c%6s%1c%6s%1c%1s%1c\n">(out, '|', logRule(3),
      '|', logRule(2), '|', logRule(11), '|', logRule(9), '|', logRule(9), '|', logRule(10), '|', logRule(10), '|',
      logRule(8), '|', logRule(18), '|', logRule(11), '|', logRule(6), '|', logRule(6), '|', logRule(1), '|');
}

static void printMessageRule(Output& out) {
  print<"%1c%45s%1c%70s%1c\n">(out, '|', logRule(45), '|', logRule(70), '|');
}

static void printNarrowHeading(Output& out, const OrderLogPage& page) {
  print<"%85s%22s%2d\n">(out, logExchangeLine(page.isLendingFile), "Page:", page.number);
  printBrokerId(out, page);
  print<"%82s%10s\n">(out, "LIST OF CONSOLIDATED ORDER RECORDS AS ON: ", page.date);
  print<"%117s\n">(out, logRule(117));
  print<"%1c%3s%1c%2s%1c%11s%1c%9s%1c%9s%1c%10s%1c%10s%1c%8s%1c%18s%1c%11s%1c%6s%1c%6s%1c%1s%1c\n">(out, '|', "Trd", '|',
      "Tx", '|', "Scrip Id", '|', "Qty", '|', "RevQty", '|', "Limit Rate", '|', "Trig Rate", '|', "Time", '|', "OrderId",
      '|', "ClientId", '|', "InstId", '|', "Retain", '|', "C", '|');
  print<"%1c%3s%1c%2s%1c%11s%1c%9s%1c%9s%1c%10s%1c%10s%1c%8s%1c%18s%1c%11s%1c%6s%1c%6s%1c%1s%1c\n">(out, '|', "_Id", '|',
      logRule(2), '|', logRule(11), '|', logRule(9), '|', logRule(9), '|', logRule(10), '|', logRule(10), '|', logRule(8),
      '|', logRule(18), '|', logRule(11), '|', logRule(6), '|', logRule(6), '|', logRule(1), '|');
  print<"|%-45s|%70s%1c\n">(out, "          Message", " ", '|');
  printMessageRule(out);
}

static void printNarrowRecord(Output& out, const void* bytes, const OrderLogRow& row) {
  const ConsolidatedOrderRec& order = *static_cast<const ConsolidatedOrderRec*>(bytes);
  const RateText limitRate = limitRateText(order.limitRate, order.thirdRate, order.actionCode);
  print<"|%3ld|%2c|%11s|%9ld|%9ld|%10s|%10s|%8s|%17I64d%1c|%11s|%6s|%6s|%1c|\n">(out, order.traderId, row.side,
      order.scripId, order.qty, order.revQty, limitRate, trigRateText(order.trigRate), order.logTime, order.orderId,
      order.orderType, order.clientId, clientTypeName(order.clientType), row.retention, row.letter);
  printNarrowRule(out);
  print<"|%-45s|%70s%1c\n">(out, row.message, " ", '|');
  printMessageRule(out);
}

static void printNarrowBreakRule(Output& out) {
  print<"%1c%3s%1c%2s%1c%11s%1c%9s%1c%9s%1c%10s%1c%10s%1c%8s%1c%18s%1c%11s%1c%6s%1c%6s%1c%1s%1c\n\n\n">(out, '|',
      logRule(3), '|', logRule(2), '|', logRule(11), '|', logRule(9), '|', logRule(9), '|', logRule(10), '|', logRule(10),
      '|', logRule(8), '|', logRule(18), '|', logRule(11), '|', logRule(6), '|', logRule(6), '|', logRule(1), '|');
}

// clang-format on

const OrderLogBlocks wideConsolidatedBlocks = {printWideHeading, printWideRecord, printWideBreakRule, printWideClosingRule};
const OrderLogBlocks narrowConsolidatedBlocks = {printNarrowHeading, printNarrowRecord, printNarrowBreakRule, printNarrowRule};

}  // namespace quillon
