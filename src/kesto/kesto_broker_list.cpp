#include "kesto/kesto_broker_list.h"

#include "text/in_order.h"
#include "text/print.h"
#include "trades/trades_page.h"

namespace quillon {

// clang-format off

static void printCellRule(Output& out) {
  print<"%1c%2s%1c%7s%1c%7s%1c%8s%1c%11s%1c%5s%1c%11s%1c%6s%1c">(
      out, '|', ruleOf(2), '|', ruleOf(7), '|', ruleOf(7), '|', ruleOf(8), '|', ruleOf(11), '|', ruleOf(5), '|', ruleOf(11),
      '|', ruleOf(6), '|');
  print<"%7s%1c%7s%1c%8s%1c%7s%1c%3s%1c%8s%1c%14s%1c\n">(
      out, ruleOf(7), '|', ruleOf(7), '|', ruleOf(8), '|', ruleOf(7), '|', ruleOf(3), '|', ruleOf(8), '|', ruleOf(14), '|');
}

static void printColumnHeads(Output& out) {
  print<"%1c%2s%1c%15s%10c%8s%4c%5s%1c%7s%5c%5s%2c%19s%6c%5s%3c%3s%1c%4s%5c%14s%1c\n">(
      out, '|', "Tr", '|', "Lend To", '|', "ClientId", '|', " Day ", '|', "ScripId", '|', "Scrip", '|', "Borrowed From", '|',
      "TrdId", '|', "F/M", '|', "Time", '|', "Sett/Fyear", '|');
  // The second rule is two wider than its cell.
  print<"%1c%2s%1c%24s%1c%12c%6c%12c%4s%3c%22s%1c%8c%4c%9c%15c\n">(
      out, '|', "dr", '|', ruleOf(24), '|', '|', '|', '|', "Code", '|', ruleOf(24), '|', '|', '|', '|', '|');
  print<"%1c%3c%5s%3c%3s%5c%4s%5c%12c%6c%12c%7c">(
      out, '|', '|', "Brk /", '|', "Qty", '|', "Rate", '|', '|', '|', '|', '|');
  print<"%5s%3c%3s%5c%4s%5c%8c%4c%9c%15c\n">(out, "Brk /", '|', "Qty", '|', "Rate", '|', '|', '|', '|', '|');
  print<"%1c%2s%1c%5s%3c%8c%9c%12c%6c%12c%7c%5s%3c%8c%9c%8c%4c%9c%15c\n">(
      out, '|', " ", '|', "TrdId", '|', '|', '|', '|', '|', '|', '|', "TrdId", '|', '|', '|', '|', '|', '|', '|');
  printCellRule(out);
}

static void printPageHeader(Output& out, KestoList& list) {
  print<"%73s%48s%2d\n">(out, exchangeName(list.isLendingFile), "Page:", list.page);
  print<"%10s%6d%94s%12s\n">(out, "BROKER ID :", list.header.memberId, "Date :", fileDate(list.header));
  print<"%82s%15s\n">(
      out,
      list.header.fileKind == 'C' ? "LIST OF KESTO (R) BROKER QUERY EXECUTED ON : "
                                  : "LIST OF KESTO (W) BROKER QUERY EXECUTED ON : ",
      fileDate(list.header));
  // Wider than its cell: a blank, then the rule.
  print<"%123s\n">(
      out,
      " _______________________________________________________________"
      "_______________________________________________________________");
  printColumnHeads(out);
  ++list.page;
}

static void printLend(Output& out, const KestoBrokerRec& record, char term) {
  print<"%1c%2ld%1c%5ld%1c%1ld%1c%7ld%1c%8.4f%1c%11s%1c%5ld%1c%11s%1c%6ld%1c">(
      out, '|', record.traderNo, '|', record.counterBroker, '/', record.counterTrader, '|', record.qty, '|',
      record.rate / 10000.0, '|', record.clientId, '|', record.days, '|', record.scripId, '|', record.scripCode, '|');
  print<"%7s%1c%7s%1c%8s%1c%7ld%1c%3c%1c%8s%1c%14s%1c\n">(
      out, "", '|', "", '|', "", '|', record.trdId, '|', term, '|', record.tradeTime, '|', record.settFyear, '|');
}

static void printBorrow(Output& out, const KestoBrokerRec& record, char term) {
  print<"%1c%2ld%1c%7s%1c%7s%1c%8s%1c%11s%1c%5ld%1c%11s%1c%6ld%1c">(
      out, '|', record.traderNo, '|', "", '|', "", '|', "", '|', record.clientId, '|', record.days, '|', record.scripId, '|',
      record.scripCode, '|');
  print<"%5ld%1c%1ld%1c%7ld%1c%8.4f%1c%7ld%1c%3c%1c%8s%1c%14s%1c\n">(
      out, record.counterBroker, '/', record.counterTrader, '|', record.qty, '|', record.rate / 10000.0, '|', record.trdId, '|',
      term, '|', record.tradeTime, '|', record.settFyear, '|');
}

// clang-format on

static void printRecord(Output& out, const KestoBrokerRec& record) {
  const KestoLeg* leg = findKestoLeg(record.legCode);
  if (!leg) return;
  if (leg->side == KestoSide::lend) {
    printLend(out, record, leg->term);
  } else {
    printBorrow(out, record, leg->term);
  }
}

void printKestoBrokerList(Output& out, KestoList& list, const KestoBrokerRec* records, KestoOrder order) {
  printPageHeader(out, list);
  unsigned onPage = 0;
  for (const KestoBrokerRec& record : inOrder(records, order)) {
    if (onPage == list.linesPerPage) {
      printCellRule(out);
      print<"%c">(out, pageEnd);
      printPageHeader(out, list);
      onPage = 0;
    }
    printRecord(out, record);
    ++onPage;
  }
  printCellRule(out);
  print<"%c">(out, pageEnd);
}

}  // namespace quillon
