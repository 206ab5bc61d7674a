// The arrangement of Kesto records: one line a record, lenders to the left and borrowers to the right, rates with two
// decimals. The Kesto form prints the same records more fully.
#include "brokerquery/broker_report_blocks.h"
#include "text/print.h"

namespace quillon {

// clang-format off

static void printCellRule(Output& out) {
  print<"%1c%2s%1c%7s%1c%7s%1c%8s%1c%10s%1c%11s%1c%6s%1c">(out, bar, rule(2), bar, rule(7), bar, rule(7), bar, rule(8), bar,
      rule(10), bar, rule(11), bar, rule(6), bar);
  print<"%7s%1c%7s%1c%8s%1c%11s%1c%7s%1c%8s%1c\n">(out, rule(7), bar, rule(7), bar, rule(8), bar, rule(11), bar, rule(7), bar,
      rule(8), bar);
}

static void printPageTop(Output& out, const BrokerPage& page) {
  const std::string date = brokerDateText(page.header);
  print<"%79s%39s%2d\n">(out, brokerExchangeLine(page.isLendingFile), "Page:", page.number);
  print<"%10s%7ld%100s%10s\n">(out, "Broker Id. :", page.header.memberId, "Date :", date);
  print<"%79s%15s\n">(out, "List of trades executed on", date);
  print<"%112s\n">(out, rule(111));
}

static void printHeading(Output& out, const BrokerPage& page) {
  printPageTop(out, page);
  print<"%1c%2s%1c%22s%14c%19c%26s%11c%5s%3c%4s%5c\n">(out, bar, "Tr", bar, "Lend To", bar, bar, "Borrowed From", bar, "TrdId",
      bar, "Time", bar);
  print<"%1c%2s%1c%33s%1c%15s%1c%34s%1c%8c%9c\n">(out, bar, "dr", bar, rule(35), bar, rule(18), bar, rule(36), bar, bar, bar);
  print<"%1c%3c%5s%3c%3s%5c%4s%5c%8s%3c%7s%5c%5s%2c">(out, bar, bar, "Brk /", bar, "Qty", bar, "Rate", bar, "ClientId", bar,
      "ScripId", bar, "Scrip", bar);
  print<"%5s%3c%3s%5c%4s%5c%8s%4c%8c%9c\n">(out, "Brk /", bar, "Qty", bar, "Rate", bar, "ClientId", bar, bar, bar);
  print<"%1c%2s%1c%5s%3c%8c%9c%11c%12c%4s%3c%5s%3c%8c%9c%12c%8c%9c\n">(out, bar, " ", bar, "TrdId", bar, bar, bar, bar, bar,
      "Code", bar, "TrdId", bar, bar, bar, bar, bar, bar);
  printCellRule(out);
}

static void printLend(Output& out, const KestoBrokerRec& record) {
  print<"%1c%2ld%1c%5ld%1c%1ld%1c%7ld%1c%8.2f%1c%10s%1c%11s%1c%6ld%1c">(out, bar, record.traderNo, bar, record.counterBroker, '/',
      record.counterTrader, bar, record.qty, bar, record.rate / 10000.0, bar, record.clientId, bar, record.scripId, bar,
      record.scripCode, bar);
  print<"%7s%1c%7s%1c%8s%1c%11s%1c%7ld%1c%8s%1c\n">(out, "", bar, "", bar, "", bar, "", bar, record.trdId, bar, record.tradeTime,
      bar);
}

static void printBorrow(Output& out, const KestoBrokerRec& record) {
  print<"%1c%2ld%1c%7s%1c%7s%1c%8s%1c%10s%1c%11s%1c%6ld%1c">(out, bar, record.traderNo, bar, "", bar, "", bar, "", bar, "", bar,
      record.scripId, bar, record.scripCode, bar);
  print<"%5ld%1c%1ld%1c%7ld%1c%8.2f%1c%11s%1c%7ld%1c%8s%1c\n">(out, record.counterBroker, '/', record.counterTrader, bar,
      record.qty, bar, record.rate / 10000.0, bar, record.clientId, bar, record.trdId, bar, record.tradeTime, bar);
}

static void printRecord(Output& out, const void* bytes) {
  const KestoBrokerRec& record = *static_cast<const KestoBrokerRec*>(bytes);
  const KestoLeg* leg = findKestoLeg(record.legCode);
  if (!leg) return;
  if (leg->side == KestoSide::lend) {
    printLend(out, record);
  } else {
    printBorrow(out, record);
  }
}

// clang-format on

const BrokerBlocks kestoBlocks = {printHeading, printRecord, printCellRule, printCellRule};

}  // namespace quillon
