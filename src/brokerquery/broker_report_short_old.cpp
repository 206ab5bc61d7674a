// 160-byte records without scrip group and settlement number, in the arrangement from before the cut-over: four lines a
// record, its client's institution at the end of the first, the order's time in the third.
#include "brokerquery/broker_report_blocks.h"
#include "text/print.h"

namespace quillon {

// clang-format off

static void printHeading(Output& out, const BrokerPage& page) {
  printBrokerPageTop(out, page);
  print<"%129s\n">(out, rule(130));
  print<"%1c%4s%1c%21s%8c%19c%19s%10c%11s%1c%12s%1c%6s%1c%9s%1c%6s%1c\n">(out, bar, "Tr", bar, "Bought from", bar, bar,
      "Sold to  ", bar, "ClientId", bar, "TrnId", bar, "TrdId", bar, "Time", bar, "InstId", bar);
  print<"%1c%4s%1c%28s%1c%18s%1c%28s%1c%12c%13c%7c%10c%7c\n">(out, bar, "dr", bar, rule(28), bar, rule(18), bar, rule(27), bar,
      bar, bar, bar, bar, bar);
  print<"%1c%5c%7s%1c%6s%4c%6s%5c%11s%1c%6s%1c">(out, bar, bar, "Br/TrId", bar, "Qty", bar, "Rate", bar, "ScripId", bar,
      "ScrpCd", bar);
  print<"%7s%1c%6s%4c%8s%3c%12c%13c%7c%10c%7c\n">(out, "Br/TrId", bar, "Qty", bar, "Rate", bar, bar, bar, bar, bar, bar);
  print<"%1c%4s%1c%7s%1c%9s%1c%10s%1c%11s%1c%6s%1c">(out, bar, rule(4), bar, rule(7), bar, rule(9), bar, rule(10), bar,
      rule(11), bar, rule(6), bar);
  print<"%7s%1c%9s%1c%10s%1c%11s%1c%12s%1c%6s%1c%9s%1c%6s%1c\n">(out, rule(7), bar, rule(9), bar, rule(10), bar, rule(11), bar,
      rule(12), bar, rule(6), bar, rule(9), bar, rule(6), bar);
  print<"%1c%15s%1c%114s%1c\n">(out, bar, " OrderTimeStamp", bar, " ", bar);
  print<"%1c%15s%1c%114s%1c\n">(out, bar, rule(15), bar, rule(113), bar);
}

static void printBuy(Output& out, const BrokerRec160& record) {
  print<"%1c%4ld%1c%4lc%1c%2lc%1c%9ld%1c%10.2f%1c%11s%1c%6ld%1c%8c%10c%11c%11s%1c%11I64d%1c%1c%6ld%1c%9s%1c%-6s%1c\n">(out,
      bar, record.traderNo, bar, blank, blank, blank, bar, record.qty, bar, record.rate / 100.0, bar, record.scripId, bar,
      record.scripCode, bar, bar, bar, bar, record.clientId, bar, record.trnId, record.tradeType, bar, record.trdId, bar,
      record.tradeTime, bar, record.instId, bar);
}

static void printSell(Output& out, const BrokerRec160& record) {
  print<"%1c%4ld%1c%7s%1c%9s%1c%10s%1c">(out, bar, record.traderNo, bar, "", bar, "", bar, "", bar);
  print<"%11s%1c%6ld%1c%4lc%1c%2lc%1c%9ld%1c%10.2f%1c%11s%1c%11I64d%1c%1c%6ld%1c%9s%1c%-6s%1c\n">(out,
      record.scripId, bar, record.scripCode, bar, blank, blank, blank, bar, record.qty, bar, record.rate / 100.0, bar,
      record.clientId, bar, record.trnId, record.tradeType, bar, record.trdId, bar, record.tradeTime, bar, record.instId, bar);
}

// `traderCell` is the first cell's rule, one column short under a sell of a listed type.
static void printCellRule(Output& out, std::string_view traderCell) {
  print<"%1c%4s%1c%7s%1c%9s%1c%10s%1c%11s%1c%6s%1c">(out, bar, traderCell, bar, rule(7), bar, rule(9), bar, rule(10), bar,
      rule(11), bar, rule(6), bar);
  print<"%7s%1c%9s%1c%10s%1c%11s%1c%12s%1c%6s%1c%9s%1c%6s%1c\n">(out, rule(7), bar, rule(9), bar, rule(10), bar, rule(11), bar,
      rule(12), bar, rule(6), bar, rule(9), bar, rule(6), bar);
}

static void printSecondLine(Output& out, const BrokerRec160& record) {
  print<"%1c%15s%1c\n">(out, bar, timeOfStamp(record.orderTimeStamp), bar);
  print<"%1c%15s%1c%114s\n">(out, bar, rule(15), bar, rule(114));
}

static void printRecord(Output& out, const void* bytes) {
  const BrokerRec160& record = *static_cast<const BrokerRec160*>(bytes);
  if (record.side == 'B') {
    printBuy(out, record);
    printCellRule(out, rule(4));
    printSecondLine(out, record);
  }
  if (record.side == 'S') {
    printSell(out, record);
    printCellRule(out, isListedTradeType(record.tradeType) ? rule(3) : rule(4));
    printSecondLine(out, record);
  }
}

static void printBreakRule(Output& out) {
  print<"%1c%15s%1c%116s\n">(out, bar, rule(15), bar, rule(116));
}

static void printEndRule(Output& out) {
  print<"%1c%15s%1c%114s%1c\n">(out, bar, rule(15), bar, rule(114), bar);
}

// clang-format on

const BrokerBlocks shortOldBlocks = {printHeading, printRecord, printBreakRule, printEndRule};

}  // namespace quillon
