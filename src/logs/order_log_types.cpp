// The list of client types that were rectified: of a trade, from an old type to a new one.
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
  print<"%82s%10s\n">(out, "LIST OF INSTITUTION RECTIFICATION RECORDS AS ON: ", page.date);
  print<"%133s\n">(out, logRule(135));
  print<"%1c%2s%1c%11s%1c%9s%1c%9s%1c%8s%1c%12s%1c%8s%1c%10s%1c%10s%1c%12s%1c%1s%1c%31s%1c\n">(out, '|', "Tx", '|',
      "Scrip Id", '|', "Qty", '|', "Rate", '|', "Time", '|', "OrderId", '|', "TradeId", '|', "Old InstId", '|',
      "New InstId", '|', "  ClientId  ", '|', "C", '|', "Message", '|');
  print<"%1c%2s%1c%11s%1c%9s%1c%9s%1c%8s%1c%12s%1c%8s%1c%10s%1c%10s%1c%12s%1c%1s%1c%31s%1c\n">(out, '|', logRule(2), '|',
      logRule(11), '|', logRule(9), '|', logRule(9), '|', logRule(8), '|', logRule(12), '|', logRule(8), '|', logRule(10),
      '|', logRule(10), '|', logRule(12), '|', logRule(1), '|', logRule(31), '|');
}

// A message that is longer than its column goes on in the rule.
static void printWideRecord(Output& out, const void* bytes, const OrderLogRow& row) {
  const OrderRec136& record = *static_cast<const OrderRec136*>(bytes);
  const OrderRec112& order = record.order;
  const SplitMessage message = splitMessage(row.message, 31);
  print<"|%2c|%11s|%9ld|%9s|%02d:%02d:%02d|%11I64d%c|%8ld|%10s|%10s|%12s|%1c|%-31s|\n">(out, row.side, order.scripId,
      order.qty, rateText(order.limitRate), order.hour, order.minute, order.second, order.orderId, order.orderType,
      record.tradeId, clientTypeName(order.clientType), clientTypeName(record.newClientType), order.clientId, row.letter,
      message.head);
  print<"%1c%2s%1c%11s%1c%9s%1c%9s%1c%8s%1c%12s%1c%8s%1c%10s%1c%10s%1c%12s%1c%1s%1c%-31s%1c\n">(out, '|', logRule(2), '|',
      logRule(11), '|', logRule(9), '|', logRule(9), '|', logRule(8), '|', logRule(12), '|', logRule(8), '|', logRule(10),
      '|', logRule(10), '|', logRule(12), '|', logRule(1), '|', message.rest, '|');
}

static void printWideBreakRule(Output& out) {
  print<"%1c%2s%1c%11s%1c%9s%1c%9s%1c%8s%1c%12s%1c%8s%1c%10s%1c%10s%1c%12s%1c%1s%1c%31s%1c\n\n\n">(out, '|', logRule(2),
      '|', logRule(11), '|', logRule(9), '|', logRule(9), '|', logRule(8), '|', logRule(12), '|', logRule(8), '|',
      logRule(10), '|', logRule(10), '|', logRule(12), '|', logRule(1), '|', logRule(31), '|');
}

static void printWideClosingRule(Output& out) {
  print<"%1c%2s%1c%11s%1c%9s%1c%9s%1c%8s%1c%12s%1c%8s%1c%10s%1c%10s%1c%12s%1c%1s%1c%31s%1c\n">(out, '|', logRule(2), '|',
      logRule(11), '|', logRule(9), '|', logRule(9), '|', logRule(8), '|', logRule(12), '|', logRule(8), '|', logRule(10),
      '|', logRule(10), '|', logRule(12), '|', logRule(1), '|', logRule(31), '|');
}

// ---- Narrow -----------------------------------------------------------------------------------------------------------

static void printNarrowRule(Output& out) {
  print<"%1c%2s%1c%11s%1c%9s%1c%9s%1c%8s%1c%19s%1c%8s%1c%10s%1c%10s%1c%12s%1c%1s%1c\n">(out, '|', logRule(2), '|',
      logRule(11), '|', logRule(9), '|', logRule(9), '|', logRule(8), '|', logRule(19), '|', logRule(8), '|', logRule(10),
      '|', logRule(10), '|', logRule(12), '|', logRule(1), '|');
}

static void printMessageRule(Output& out) {
  print<"%1c%43s%1c%65s%1c\n">(out, '|', logRule(43), '|', logRule(65), '|');
}

static void printNarrowHeading(Output& out, const OrderLogPage& page) {
  print<"%85s%20s%2d\n">(out, logExchangeLine(page.isLendingFile), "Page:", page.number);
  printBrokerId(out, page);
  printTraderId(out, page);
  print<"%82s%10s\n">(out, "LIST OF INSTITUTION RECTIFICATION RECORDS AS ON: ", page.date);
  print<"%108s\n">(out, logRule(110));
  print<"%1c%2s%1c%11s%1c%9s%1c%9s%1c%8s%1c%19s%1c%8s%1c%10s%1c%10s%1c%12s%1c%1s%1c\n">(out, '|', "Tx", '|', "Scrip Id",
      '|', "Qty", '|', "Rate", '|', "Time", '|', "OrderId", '|', "TradeId", '|', "Old CliTyp", '|', "New CliTyp", '|',
      "  ClientId  ", '|', "C", '|');
  printNarrowRule(out);
  print<"|%-43s|%65s%1c\n">(out, "          Message", " ", '|');
  printMessageRule(out);
}

static void printNarrowRecord(Output& out, const void* bytes, const OrderLogRow& row) {
  const OrderRec136& record = *static_cast<const OrderRec136*>(bytes);
  const OrderRec112& order = record.order;
  print<"|%2c|%11s|%9ld|%9s|%02d:%02d:%02d|%17I64d%c|%8ld|%10s|%10s|%12s|%1c|\n">(out, row.side, order.scripId, order.qty,
      rateText(order.limitRate), order.hour, order.minute, order.second, order.orderId, order.orderType, record.tradeId,
      clientTypeName(order.clientType), clientTypeName(record.newClientType), order.clientId, row.letter);
  printNarrowRule(out);
  print<"|%-43s|%65s%1c\n">(out, row.message, " ", '|');
  printMessageRule(out);
}

static void printNarrowBreakRule(Output& out) {
  print<"%1c%2s%1c%11s%1c%9s%1c%9s%1c%8s%1c%19s%1c%8s%1c%10s%1c%10s%1c%12s%1c%1s%1c\n\n\n">(out, '|', logRule(2), '|',
      logRule(11), '|', logRule(9), '|', logRule(9), '|', logRule(8), '|', logRule(19), '|', logRule(8), '|', logRule(10),
      '|', logRule(10), '|', logRule(12), '|', logRule(1), '|');
}

// clang-format on

const OrderLogBlocks wideTypeBlocks = {printWideHeading, printWideRecord, printWideBreakRule, printWideClosingRule};
const OrderLogBlocks narrowTypeBlocks = {printNarrowHeading, printNarrowRecord, printNarrowBreakRule, printNarrowRule};

}  // namespace quillon
