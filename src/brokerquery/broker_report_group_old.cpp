// 160-byte records with scrip group and settlement number, in the arrangement from before the cut-over, which every lending
// file takes: four lines a record, its client's institution at the end of the first; group, settlement number and the order's
// time in the third.
#include "brokerquery/broker_report_blocks.h"
#include "text/print.h"

namespace quillon {

// clang-format off

static void printCellRule(Output& out) {
  print<"%1c%4s%1c%6s%1c%9s%1c%10s%1c%11s%1c%6s%1c">(out, bar, rule(4), bar, rule(6), bar, rule(9), bar, rule(10), bar,
      rule(11), bar, rule(6), bar);
  print<"%6s%1c%9s%1c%10s%1c%11s%1c%12s%1c%6s%1c%8s%1c%6s%1c\n">(out, rule(6), bar, rule(9), bar, rule(10), bar, rule(11), bar,
      rule(12), bar, rule(6), bar, rule(8), bar, rule(6), bar);
}

static void printHeading(Output& out, const BrokerPage& page) {
  // No lending file comes to another arrangement, so the words of lending stand in this one alone.
  const char* const left = page.isLendingFile ? "Borrow from" : "Bought from";
  const char* const right = page.isLendingFile ? "Lend to" : "Sold to";
  printBrokerPageTop(out, page);
  print<"%128s\n">(out, rule(127));
  print<"%1c%4s%1c%20s%8c%19c%16s%12c%11s%1c%12s%1c%6s%1c%8s%1c%6s%1c\n">(out, bar, "Tr", bar, left, bar, bar,
      right, bar, "ClientId", bar, "TrnId", bar, "TrdId", bar, "Time", bar, "InstId", bar);
  print<"%1c%4s%1c%27s%1c%18s%1c%27s%1c%12c%13c%7c%9c%7c\n">(out, bar, "dr", bar, rule(27), bar, rule(18), bar, rule(27), bar,
      bar, bar, bar, bar, bar);
  print<"%1c%5c%6s%1c%6s%4c%6s%5c%11s%1c%6s%1c">(out, bar, bar, "Br/Trd", bar, "Qty", bar, "Rate", bar, "ScripId", bar,
      "ScrpCd", bar);
  print<"%6s%1c%6s%4c%6s%5c%12c%13c%7c%9c%7c\n">(out, "Br/Trd", bar, "Qty", bar, "Rate", bar, bar, bar, bar, bar, bar);
  printCellRule(out);
  print<"%1c%4s%1c%16s%1c%15s%1c%89s%1c\n">(out, bar, "Sc", bar, "  SettlementNo  ", bar, " OrderTimeStamp", bar, " ", bar);
  print<"%1c%4s%1c%16s%1c%15s%1c%89s%1c\n">(out, bar, "Gr", bar, " ", bar, "  ", bar, " ", bar);
  print<"%1c%4s%1c%16s%1c%15s%1c%88s%1c\n">(out, bar, rule(4), bar, rule(16), bar, rule(15), bar, rule(89), bar);
}

static void printBuy(Output& out, const BrokerRec160& record) {
  print<"%1c%4ld%1c%3lc%1c%2lc%1c%9ld%1c%10.2f%1c%11s%1c%6ld%1c%7c%10c%11c%11s%1c%11I64d%1c%1c%6ld%1c%8s%1c%-6s%1c\n">(out,
      bar, record.traderNo, bar, blank, blank, blank, bar, record.qty, bar, record.rate / 100.0, bar, record.scripId, bar,
      record.scripCode, bar, bar, bar, bar, record.clientId, bar, record.trnId, record.tradeType, bar, record.trdId, bar,
      record.tradeTime, bar, record.instId, bar);
}

static void printSell(Output& out, const BrokerRec160& record) {
  print<"%1c%4ld%1c%6s%1c%9s%1c%10s%1c">(out, bar, record.traderNo, bar, "", bar, "", bar, "", bar);
  print<"%11s%1c%6ld%1c%3lc%1c%2lc%1c%9ld%1c%10.2f%1c%11s%1c%11I64d%1c%1c%6ld%1c%8s%1c%-6s%1c\n">(out,
      record.scripId, bar, record.scripCode, bar, blank, blank, blank, bar, record.qty, bar, record.rate / 100.0, bar,
      record.clientId, bar, record.trnId, record.tradeType, bar, record.trdId, bar, record.tradeTime, bar, record.instId, bar);
}

static void printSecondLine(Output& out, const BrokerRec160& record) {
  const auto settlement = formatCell<"%d/%ld">(record.settlementPart1, record.settlementPart2);
  print<"%1c%4s%1c%16s%1c%15s%1c\n">(out, bar, record.scripGroup, bar, settlement, bar, timeOfStamp(record.orderTimeStamp), bar);
  print<"%1c%4s%1c%16s%1c%15s%1c%89s\n">(out, bar, rule(4), bar, rule(16), bar, rule(15), bar, rule(89));
}

static void printRecord(Output& out, const void* bytes) {
  const BrokerRec160& record = *static_cast<const BrokerRec160*>(bytes);
  if (record.side != 'B' && record.side != 'S') return;
  if (record.side == 'B') {
    printBuy(out, record);
  } else {
    printSell(out, record);
  }
  printCellRule(out);
  printSecondLine(out, record);
}

// At a page break the first cell's rule is 2 wide in its 4 columns.
static void printBreakRule(Output& out) {
  print<"%1c%4s%1c%16s%1c%15s%1c%89s%1c\n">(out, bar, rule(2), bar, rule(16), bar, rule(15), bar, rule(89), bar);
}

static void printEndRule(Output& out) {
  print<"%1c%4s%1c%16s%1c%15s%1c%89s%1c\n">(out, bar, rule(4), bar, rule(16), bar, rule(15), bar, rule(89), bar);
}

// clang-format on

const BrokerBlocks groupOldBlocks = {printHeading, printRecord, printBreakRule, printEndRule};

}  // namespace quillon
