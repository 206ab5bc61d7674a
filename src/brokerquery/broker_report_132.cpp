// The arrangement of 132-byte records: one line a record.
//
// The rate of a buy is 8 columns wide and that of a sell 10, while the titles above leave 10 for both: from the buy's rate
// on, the records stand two columns to the left of their titles. That belongs to the layout.
#include "brokerquery/broker_report_blocks.h"
#include "text/print.h"

namespace quillon {

// clang-format off

// The widths are those of the records, not those of the titles above.
static void printCellRule(Output& out) {
  print<"%1c%2s%1c%7s%1c%9s%1c%8s%1c%11s%1c%6s%1c">(out, bar, rule(2), bar, rule(7), bar, rule(9), bar, rule(8), bar,
      rule(11), bar, rule(6), bar);
  print<"%7s%1c%9s%1c%10s%1c%11s%1c%12s%1c%6s%1c%9s%1c%6s%1c\n">(out, rule(7), bar, rule(9), bar, rule(10), bar, rule(11), bar,
      rule(12), bar, rule(6), bar, rule(9), bar, rule(6), bar);
}

static void printHeading(Output& out, const BrokerPage& page) {
  printBrokerPageTop(out, page);
  const std::string topRule = std::string(" ").append(rule(127));
  print<"%127s\n">(out, topRule);
  print<"%1c%2s%1c%21s%8c%19c%19s%10c%11s%1c%12s%1c%6s%1c%9s%1c%6s%1c\n">(out, bar, "Tr", bar, "Bought from", bar, bar,
      "Sold to  ", bar, "ClientId", bar, "TrnId", bar, "TrdId", bar, "Time", bar, "InstId", bar);
  print<"%1c%2s%1c%28s%1c%18s%1c%28s%1c%12c%13c%7c%10c%7c\n">(out, bar, "dr", bar, rule(28), bar, rule(18), bar, rule(27), bar,
      bar, bar, bar, bar, bar);
  print<"%1c%3c%7s%1c%6s%4c%6s%5c%11s%1c%6s%1c">(out, bar, bar, "Br/TrId", bar, "Qty", bar, "Rate", bar, "ScripId", bar,
      "ScrpCd", bar);
  print<"%7s%1c%6s%4c%8s%3c%12c%13c%7c%10c%7c\n">(out, "Br/TrId", bar, "Qty", bar, "Rate", bar, bar, bar, bar, bar, bar);
  printCellRule(out);
  // These records hold no time of their order: the row is left over from the larger ones, and stays.
  print<"%1c%15s%1c%112s%1c\n">(out, bar, " OrderTimeStamp", bar, " ", bar);
  print<"%1c%15s%1c%112s%1c\n">(out, bar, rule(15), bar, rule(111), bar);
}

static void printBuy(Output& out, const BrokerRec132& record) {
  print<"%1c%2ld%1c%4lc%1c%2lc%1c%9ld%1c%8.2f%1c%11s%1c%6ld%1c%8c%10c%11c%11s%1c%11I64d%1c%1c%6ld%1c%9s%1c%-6s%1c\n">(out,
      bar, record.traderNo, bar, blank, blank, blank, bar, record.qty, bar, record.rate / 100.0, bar, record.scripId, bar,
      record.scripCode, bar, bar, bar, bar, record.clientId, bar, record.trnId, record.tradeType, bar, record.trdId, bar,
      record.tradeTime, bar, record.instId, bar);
}

static void printSell(Output& out, const BrokerRec132& record) {
  print<"%1c%2ld%1c%7s%1c%9s%1c%8s%1c">(out, bar, record.traderNo, bar, "", bar, "", bar, "", bar);
  print<"%11s%1c%6ld%1c%4lc%1c%2lc%1c%9ld%1c%10.2f%1c%11s%1c%11I64d%1c%1c%6ld%1c%9s%1c%-6s%1c\n">(out,
      record.scripId, bar, record.scripCode, bar, blank, blank, blank, bar, record.qty, bar, record.rate / 100.0, bar,
      record.clientId, bar, record.trnId, record.tradeType, bar, record.trdId, bar, record.tradeTime, bar, record.instId, bar);
}

static void printRecord(Output& out, const void* bytes) {
  const BrokerRec132& record = *static_cast<const BrokerRec132*>(bytes);
  if (record.side == 'B') printBuy(out, record);
  if (record.side == 'S') printSell(out, record);
}

// At a page break the quantity cells are 7 wide, two short of their columns.
static void printBreakRule(Output& out) {
  print<"%1c%2s%1c%7s%1c%7s%1c%8s%1c%11s%1c%6s%1c">(out, bar, rule(2), bar, rule(7), bar, rule(7), bar, rule(8), bar,
      rule(11), bar, rule(6), bar);
  print<"%7s%1c%7s%1c%10s%1c%11s%1c%12s%1c%6s%1c%9s%1c%6s%1c\n">(out, rule(7), bar, rule(7), bar, rule(10), bar, rule(11), bar,
      rule(12), bar, rule(6), bar, rule(9), bar, rule(6), bar);
}

static void printEndRule(Output& out) {
  print<"%1c%2s%1c%7s%1c%9s%1c%8s%1c%11s%1c%6s%1c">(out, bar, rule(2), bar, rule(7), bar, rule(9), bar, rule(8), bar,
      rule(11), bar, rule(6), bar);
  print<"%5s%1c%9s%1c%10s%1c%11s%1c%12s%1c%6s%1c%9s%1c%6s%1c\n">(out, rule(7), bar, rule(9), bar, rule(10), bar, rule(11), bar,
      rule(12), bar, rule(6), bar, rule(9), bar, rule(6), bar);
}

// clang-format on

const BrokerBlocks rec132Blocks = {printHeading, printRecord, printBreakRule, printEndRule};

}  // namespace quillon
