// 160-byte records without scrip group and settlement number, in the arrangement from the cut-over on: four lines a record,
// a wider transaction number in the first, the order's time and the client's institution in the third.
#include "brokerquery/broker_report_blocks.h"
#include "text/print.h"

namespace quillon {

// clang-format off

static void printHeading(Output& out, const BrokerPage& page) {
  printBrokerPageTop(out, page);
  print<"%128s\n">(out, rule(127));
  print<"%1c%4s%1c%20s%8c%19c%16s%12c%11s%1c%18s%1c%6s%1c%8s%1c\n">(out, bar, "Tr", bar, "Bought from", bar, bar,
      "Sold to", bar, "ClientId", bar, "TrnId", bar, "TrdId", bar, "Time", bar);
  print<"%1c%4s%1c%27s%1c%18s%1c%27s%1c%12c%19c%7c%9c\n">(out, bar, "dr", bar, rule(27), bar, rule(18), bar, rule(27), bar,
      bar, bar, bar, bar);
  print<"%1c%5c%6s%1c%6s%4c%6s%5c%11s%1c%6s%1c">(out, bar, bar, "Br/Trd", bar, "Qty", bar, "Rate", bar, "ScripId", bar,
      "ScrpCd", bar);
  print<"%6s%1c%6s%4c%6s%5c%12c%19c%7c%9c\n">(out, "Br/Trd", bar, "Qty", bar, "Rate", bar, bar, bar, bar, bar);
  print<"%1c%4s%1c%6s%1c%9s%1c%10s%1c%11s%1c%6s%1c">(out, bar, rule(4), bar, rule(6), bar, rule(9), bar, rule(10), bar,
      rule(11), bar, rule(6), bar);
  print<"%6s%1c%9s%1c%10s%1c%11s%1c%18s%1c%6s%1c%8s%1c\n">(out, rule(6), bar, rule(9), bar, rule(10), bar, rule(11), bar,
      rule(18), bar, rule(6), bar, rule(8), bar);
  // The unknown conversion at the end gives its line feed.
  print<"%1c%15s%1c%6s%1c%103s%1c%\n">(out, bar, " OrderTimeStamp", bar, "InstId", bar, " ", bar);
  print<"%1c%15s%1c%6s%1c%103s%1c%\n">(out, bar, rule(15), bar, rule(6), bar, rule(103), bar);
}

static void printBuy(Output& out, const BrokerRec160& record) {
  print<"%1c%4ld%1c%3lc%1c%2lc%1c%9ld%1c%10.2f%1c%11s%1c%6ld%1c%7c%10c%11c%11s%1c%17I64d%1c%1c%6ld%1c%8s%1c\n">(out,
      bar, record.traderNo, bar, blank, blank, blank, bar, record.qty, bar, record.rate / 100.0, bar, record.scripId, bar,
      record.scripCode, bar, bar, bar, bar, record.clientId, bar, record.trnId, record.tradeType, bar, record.trdId, bar,
      record.tradeTime, bar);
}

static void printSell(Output& out, const BrokerRec160& record) {
  print<"%1c%4ld%1c%6s%1c%9s%1c%10s%1c">(out, bar, record.traderNo, bar, "", bar, "", bar, "", bar);
  print<"%11s%1c%6ld%1c%3lc%1c%2lc%1c%9ld%1c%10.2f%1c%11s%1c%17I64d%1c%1c%6ld%1c%8s%1c\n">(out,
      record.scripId, bar, record.scripCode, bar, blank, blank, blank, bar, record.qty, bar, record.rate / 100.0, bar,
      record.clientId, bar, record.trnId, record.tradeType, bar, record.trdId, bar, record.tradeTime, bar);
}

// The texts of the client's and the transaction's cell are one column wider than these, which brings them to the widths of
// their columns; the trader's is one narrower.
static void printCellRule(Output& out) {
  print<"%1c%4s%1c%6s%1c%9s%1c%10s%1c%11s%1c%6s%1c%6s%1c%9s%1c%10s%1c%10s%1c%17s%1c%6s%1c%8s%1c\n">(out,
      bar, rule(3), bar, rule(6), bar, rule(9), bar, rule(10), bar, rule(11), bar, rule(6), bar, rule(6), bar, rule(9), bar,
      rule(10), bar, rule(11), bar, rule(18), bar, rule(6), bar, rule(8), bar);
}

static void printSecondLine(Output& out, const BrokerRec160& record) {
  print<"%1c%15s%1c%-6s%1c%103s%1c\n">(out, bar, timeOfStamp(record.orderTimeStamp), bar, record.instId, bar, " ", bar);
}

static void printRecord(Output& out, const void* bytes) {
  const BrokerRec160& record = *static_cast<const BrokerRec160*>(bytes);
  if (record.side == 'B') {
    printBuy(out, record);
    printCellRule(out);
    printSecondLine(out, record);
    print<"%1c%15s%1c%6s%1c%103s%1c%\n">(out, bar, rule(15), bar, rule(6), bar, rule(103), bar);
  }
  if (record.side == 'S') {
    printSell(out, record);
    printCellRule(out);
    printSecondLine(out, record);
    print<"%1c%15s%1c%-6s%1c%103s%1c\n">(out, bar, rule(15), bar, rule(6), bar, rule(103), bar);
  }
}

static void printBreakRule(Output& out) {
  print<"%1c%15s%1c%110s\n">(out, bar, rule(15), bar, rule(110));
}

static void printEndRule(Output& out) {
  print<"%1c%15s%1c%110s%1c\n">(out, bar, rule(15), bar, rule(110), bar);
}

// clang-format on

const BrokerBlocks shortNewBlocks = {printHeading, printRecord, printBreakRule, printEndRule};

}  // namespace quillon
