// The list of orders. The short records of the old logs and the fronts of the long ones are printed alike.
#include "logs/log_codes.h"
#include "logs/log_page.h"
#include "logs/order_log_blocks.h"

namespace quillon {

// clang-format off

// ---- Wide -------------------------------------------------------------------------------------------------------------

static void printWideHeading(Output& out, const OrderLogPage& page) {
  printWideOrderLogTitle(out, page);
  printBrokerId(out, page);
  printTraderId(out, page);
  print<"%82s%10s\n">(out, "LIST OF ORDERS ENTERED ON:", page.date);
  print<"%135s\n">(out, logRule(135));
  print<"%1c%2s%1c%11s%1c%9s%1c%9s%1c%10s%1c%10s%1c%8s%1c%12s%1c%11s%1c%7s%1c%7s%1c%1s%1c%23s%1c\n">(out, '|', "Tx", '|',
      "Scrip Id", '|', "Qty", '|', "RevQty", '|', "Limit Rate", '|', "Trig Rate", '|', "Time", '|', "OrderId", '|',
      "ClientId", '|', "Inst Id", '|', " Retain", '|', "C", '|', "Message", '|');
  print<"%1c%2s%1c%11s%1c%9s%1c%9s%1c%10s%1c%10s%1c%8s%1c%12s%1c%11s%1c%7s%1c%7s%1c%1s%1c%23s%1c\n">(out, '|', logRule(2),
      '|', logRule(11), '|', logRule(9), '|', logRule(9), '|', logRule(10), '|', logRule(10), '|', logRule(8), '|',
      logRule(12), '|', logRule(11), '|', logRule(7), '|', logRule(7), '|', logRule(1), '|', logRule(23), '|');
}

// A message that is longer than its column goes on in the rule.
static void printWideRecord(Output& out, const void* bytes, const OrderLogRow& row) {
  const OrderRec112& order = *static_cast<const OrderRec112*>(bytes);
  const RateText limitRate = limitRateText(order.limitRate, order.thirdRate, order.actionCode);
  const SplitMessage message = splitMessage(row.message, 23);
  print<"|%2c|%11s|%9ld|%9ld|%10s|%10s|%02d:%02d:%02d|%11I64d%c|%11s|%7s|%7s|%1c|%-23s|\n">(out, row.side, order.scripId,
      order.qty, order.revQty, limitRate, trigRateText(order.trigRate), order.hour, order.minute, order.second,
      order.orderId, order.orderType, order.clientId, clientTypeName(order.clientType), row.retention, row.letter,
      message.head);
  print<"%1c%2s%1c%11s%1c%9s%1c%9s%1c%10s%1c%10s%1c%8s%1c%12s%1c%11s%1c%7s%1c%7s%1c%1s%1c%-23s%1c\n">(out, '|', logRule(2),
      '|', logRule(11), '|', logRule(9), '|', logRule(9), '|', logRule(10), '|', logRule(10), '|', logRule(8), '|',
      logRule(12), '|', logRule(11), '|', logRule(7), '|', logRule(7), '|', logRule(1), '|', message.rest, '|');
}

static void printWideBreakRule(Output& out) {
  print<"%1c%2s%1c%11s%1c%9s%1c%9s%1c%10s%1c%10s%1c%8s%1c%12s%1c%11s%1c%7s%1c%7s%1c%1s%1c%23s%1c\n\n\n">(out, '|',
      logRule(2), '|', logRule(11), '|', logRule(9), '|', logRule(9), '|', logRule(10), '|', logRule(10), '|', logRule(8),
      '|', logRule(12), '|', logRule(11), '|', logRule(7), '|', logRule(7), '|', logRule(1), '|', logRule(23), '|');
}

static void printWideClosingRule(Output& out) {
  print<"%1c%2s%1c%11s%1c%9s%1c%9s%1c%10s%1c%10s%1c%8s%1c%12s%1c%11s%1c%7s%1c%7s%1c%1s%1c%23s%1c\n">(out, '|', logRule(2),
      '|', logRule(11), '|', logRule(9), '|', logRule(9), '|', logRule(10), '|', logRule(10), '|', logRule(8), '|',
      logRule(12), '|', logRule(11), '|', logRule(7), '|', logRule(7), '|', logRule(1), '|', logRule(23), '|');
}

// ---- Narrow -----------------------------------------------------------------------------------------------------------

static void printNarrowRule(Output& out) {
  print<"%1c%2s%1c%11s%1c%9s%1c%9s%1c%10s%1c%10s%1c%8s%1c%19s%1c%11s%1c%7s%1c%7s%1c%1s%1c\n">(out, '|', logRule(2), '|',
      logRule(11), '|', logRule(9), '|', logRule(9), '|', logRule(10), '|', logRule(10), '|', logRule(8), '|', logRule(19),
      '|', logRule(11), '|', logRule(7), '|', logRule(7), '|', logRule(1), '|');
}

static void printMessageRule(Output& out) {
  print<"%1c%45s%1c%69s%1c\n">(out, '|', logRule(45), '|', logRule(69), '|');
}

static void printNarrowHeading(Output& out, const OrderLogPage& page) {
  print<"%85s%20s%2d\n">(out, logExchangeLine(page.isLendingFile), "Page:", page.number);
  printBrokerId(out, page);
  printTraderId(out, page);
  print<"%82s%10s\n">(out, "LIST OF ORDERS ENTERED ON:", page.date);
  print<"%117s\n">(out, logRule(116));
  print<"%1c%2s%1c%11s%1c%9s%1c%9s%1c%10s%1c%10s%1c%8s%1c%19s%1c%11s%1c%7s%1c%7s%1c%1s%1c\n">(out, '|', "Tx", '|',
      "Scrip Id", '|', "Qty", '|', "RevQty", '|', "Limit Rate", '|', "Trig Rate", '|', "Time", '|', "OrderId", '|',
      "ClientId", '|', "CliTyp", '|', " Retain", '|', "C", '|');
  printNarrowRule(out);
  print<"|%-45s|%69s%1c\n">(out, "               Message", " ", '|');
  printMessageRule(out);
}

static void printNarrowRecord(Output& out, const void* bytes, const OrderLogRow& row) {
  const OrderRec112& order = *static_cast<const OrderRec112*>(bytes);
  const RateText limitRate = limitRateText(order.limitRate, order.thirdRate, order.actionCode);
  print<"|%2c|%11s|%9ld|%9ld|%10s|%10s|%02d:%02d:%02d|%18I64d%c|%11s|%7s|%7s|%1c|\n">(out, row.side, order.scripId,
      order.qty, order.revQty, limitRate, trigRateText(order.trigRate), order.hour, order.minute, order.second,
      order.orderId, order.orderType, order.clientId, clientTypeName(order.clientType), row.retention, row.letter);
  printNarrowRule(out);
  print<"|%-45s|%69s%1c\n">(out, row.message, " ", '|');
  printMessageRule(out);
}

static void printNarrowBreakRule(Output& out) {
  print<"%1c%2s%1c%11s%1c%9s%1c%9s%1c%10s%1c%10s%1c%8s%1c%19s%1c%11s%1c%7s%1c%7s%1c%1s%1c\n\n\n">(out, '|', logRule(2), '|',
      logRule(11), '|', logRule(9), '|', logRule(9), '|', logRule(10), '|', logRule(10), '|', logRule(8), '|', logRule(19),
      '|', logRule(11), '|', logRule(7), '|', logRule(7), '|', logRule(1), '|');
}

// clang-format on

const OrderLogBlocks wideOrderBlocks = {printWideHeading, printWideRecord, printWideBreakRule, printWideClosingRule};
const OrderLogBlocks narrowOrderBlocks = {printNarrowHeading, printNarrowRecord, printNarrowBreakRule, printNarrowRule};

}  // namespace quillon
