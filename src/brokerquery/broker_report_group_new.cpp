// 160-byte records with scrip group and settlement number, in the arrangement from the cut-over on: four lines a record, a
// wider transaction number in the first; group, settlement number, the order's time and the client's institution in the
// third.
#include "brokerquery/broker_report_blocks.h"
#include "text/print.h"

namespace quillon {

// clang-format off

static void printCellRule(Output& out) {
  print<"%1c%4s%1c%6s%1c%9s%1c%10s%1c%11s%1c%6s%1c">(out, bar, rule(4), bar, rule(6), bar, rule(9), bar, rule(10), bar,
      rule(11), bar, rule(6), bar);
  print<"%6s%1c%9s%1c%10s%1c%11s%1c%18s%1c%6s%1c%8s%1c\n">(out, rule(6), bar, rule(9), bar, rule(10), bar, rule(11), bar,
      rule(18), bar, rule(6), bar, rule(8), bar);
}

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
  printCellRule(out);
  print<"%1c%4s%1c%16s%1c%15s%1c%6s%1c%81s%1c\n">(out, bar, "Sc", bar, "  SettlementNo  ", bar, " OrderTimeStamp", bar, "InstId",
      bar, " ", bar);
  print<"%1c%4s%1c%16s%1c%15s%1c%6s%1c%81s%1c\n">(out, bar, "Gr", bar, " ", bar, " ", bar, " ", bar, " ", bar);
  print<"%1c%4s%1c%16s%1c%15s%1c%6s%1c%80s%1c\n">(out, bar, rule(4), bar, rule(16), bar, rule(15), bar, rule(6), bar, rule(81),
      bar);
}

static void printBuy(Output& out, const BrokerRec160& record) {
  print<"%1c%4ld%1c%3lc%1c%2lc%1c%9ld%1c%10.2f%1c%11s%1c%6ld%1c%7c%10c%11c%11s%1c%17I64d%1c%1c%6ld%1c%8s%1c\n">(out,
      bar, record.traderNo, bar, blank, blank, blank, bar, record.qty, bar, record.rate / 100.0, bar, record.scripId, bar,
      record.scripCode, bar, bar, bar, bar, record.clientId, bar, record.trnId, record.tradeType, bar, record.trdId, bar,
      record.tradeTime, bar);
}

static void printSellLeft(Output& out, const BrokerRec160& record) {
  print<"%1c%4ld%1c%6s%1c%9s%1c%10s%1c">(out, bar, record.traderNo, bar, "", bar, "", bar, "", bar);
}

static void printSell(Output& out, const BrokerRec160& record) {
  printSellLeft(out, record);
  print<"%11s%1c%6ld%1c%3lc%1c%2lc%1c%9ld%1c%10.2f%1c%11s%1c%17I64d%1c%1c%6ld%1c%8s%1c\n">(out,
      record.scripId, bar, record.scripCode, bar, blank, blank, blank, bar, record.qty, bar, record.rate / 100.0, bar,
      record.clientId, bar, record.trnId, record.tradeType, bar, record.trdId, bar, record.tradeTime, bar);
}

// A sell of a listed type keeps the old width of the transaction number: its line ends six columns short of the others.
static void printListedSell(Output& out, const BrokerRec160& record) {
  printSellLeft(out, record);
  print<"%11s%1c%6ld%1c%3lc%1c%2lc%1c%9ld%1c%10.2f%1c%11s%1c%11I64d%1c%1c%6ld%1c%8s%1c\n">(out,
      record.scripId, bar, record.scripCode, bar, blank, blank, blank, bar, record.qty, bar, record.rate / 100.0, bar,
      record.clientId, bar, record.trnId, record.tradeType, bar, record.trdId, bar, record.tradeTime, bar);
}

static void printSecondLine(Output& out, const BrokerRec160& record) {
  const auto settlement = formatCell<"%d/%ld">(record.settlementPart1, record.settlementPart2);
  print<"%1c%4s%1c%16s%1c%15s%1c%-6s%1c\n">(out, bar, record.scripGroup, bar, settlement, bar, timeOfStamp(record.orderTimeStamp), bar,
      record.instId, bar);
}

static void printRecord(Output& out, const void* bytes) {
  const BrokerRec160& record = *static_cast<const BrokerRec160*>(bytes);
  if (record.side == 'B') {
    printBuy(out, record);
    printCellRule(out);
    printSecondLine(out, record);
    print<"%1c%4s%1c%16s%1c%15s%1c%-6s%1c%80s\n">(out, bar, rule(4), bar, rule(16), bar, rule(15), bar, rule(6), bar, rule(82));
  }
  if (record.side == 'S') {
    if (isListedTradeType(record.tradeType)) {
      printListedSell(out, record);
    } else {
      printSell(out, record);
    }
    printCellRule(out);
    printSecondLine(out, record);
    print<"%1c%4s%1c%16s%1c%15s%1c%-6s%1c%82s\n">(out, bar, rule(4), bar, rule(16), bar, rule(15), bar, rule(6), bar, rule(82));
  }
}

// At a page break the first cell's rule is 2 wide in its 4 columns.
static void printBreakRule(Output& out) {
  print<"%1c%4s%1c%16s%1c%15s%1c%89s%1c\n">(out, bar, rule(2), bar, rule(16), bar, rule(15), bar, rule(89), bar);
}

static void printEndRule(Output& out) {
  print<"%1c%4s%1c%16s%1c%15s%1c%89s%1c\n">(out, bar, rule(4), bar, rule(16), bar, rule(15), bar, rule(89), bar);
}

// clang-format on

const BrokerBlocks groupNewBlocks = {printHeading, printRecord, printBreakRule, printEndRule};

}  // namespace quillon
