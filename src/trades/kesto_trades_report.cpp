#include "trades/kesto_trades_report.h"

#include <cstring>

#include "text/in_order.h"
#include "text/print.h"
#include "trades/trades_page.h"

namespace quillon {

// clang-format off

static void printPageHeader(Output& out, TradesReport& report) {
  print<"%79s%39s%2d\n">(out, exchangeName(report.isLendingFile), "Page:", report.page);
  printIdentity(out, report.header);
  print<"%79s%10s\n">(out, "LIST OF TRADES EXECUTED ON:", fileDate(report.header));
  print<"%129s\n">(out, ruleOf(128));
  print<"%1c%26s%20c%19c%31s%17c%5s%1c%9s%1c\n">(
      out, '|', "Lend To", '|', '|', "Borrowed From", '|', "TrdId", '|', "Time", '|');
  // The third rule is four wider than its cell.
  print<"%1c%45s%1c%18s%1c%43s%1c%6c%10c\n">(out, '|', ruleOf(45), '|', ruleOf(18), '|', ruleOf(47), '|', '|', '|');
  print<"%1c%7s%1c%6s%4c%6s%3c%10s%2c%5s%2c%11s%1c%6s%1c">(
      out, '|', "Br/TrId", '|', "Qty", '|', "Rate", '|', "ClientId", '|', "TrnId", '|', "ScripId", '|', "ScrpCd", '|');
  print<"%7s%1c%6s%4c%8s%3c%11s%1c%6s%1c%6c%10c\n">(
      out, "Br/TrId", '|', "Qty", '|', "Rate", '|', "ClientId", '|', "TrnId", '|', '|', '|');
  print<"%1c%7s%1c%9s%1c%8s%1c%11s%1c%6s%1c%11s%1c">(
      out, '|', ruleOf(7), '|', ruleOf(9), '|', ruleOf(8), '|', ruleOf(11), '|', ruleOf(6), '|', ruleOf(11), '|');
  print<"%6s%1c%9s%1c%7s%1c%10s%1c%11s%1c%6s%1c%5s%1c%9s%1c\n">(
      out, ruleOf(6), '|', ruleOf(9), '|', ruleOf(7), '|', ruleOf(10), '|', ruleOf(11), '|', ruleOf(6), '|', ruleOf(5), '|',
      ruleOf(9), '|');
  ++report.page;
}

static void printLeftRule(Output& out) {
  print<"%1c%7s%1c%9s%1c%8s%1c%11s%1c%6s%1c%11s%1c%6s%1c">(
      out, '|', ruleOf(7), '|', ruleOf(9), '|', ruleOf(8), '|', ruleOf(11), '|', ruleOf(6), '|', ruleOf(11), '|', ruleOf(6),
      '|');
}

static void printPageEndRule(Output& out) {
  printLeftRule(out);
  print<"%7s%1c%9s%1c%10s%1c%11s%1c%6s%1c%5s%1c%9s%1c\n">(
      out, ruleOf(7), '|', ruleOf(9), '|', ruleOf(10), '|', ruleOf(11), '|', ruleOf(6), '|', ruleOf(5), '|', ruleOf(9), '|');
}

static void printClosingRule(Output& out) {
  printLeftRule(out);
  print<"%5s%1c%9s%1c%10s%1c%11s%1c%6s%1c%5s%1c%9s%1c\n">(
      out, ruleOf(7), '|', ruleOf(9), '|', ruleOf(10), '|', ruleOf(11), '|', ruleOf(6), '|', ruleOf(5), '|', ruleOf(9), '|');
}

static void printLend(Output& out, const KestoTradeRec& trade) {
  print<"%1c%4ld%1c%2ld%1c%9ld%1c%8.2f%1c%11s%1c%5ld%1c%1c%11s%1c%6ld%1c%7s%1c%7s%1c%10s%1c%11s%1c%6s%1c%5ld%1c%9s%1c\n">(
      out, '|', trade.brokerId, '/', trade.traderId, '|', trade.qty, '|', trade.rate / 10000.0, '|', trade.clientId, '|',
      trade.trnId, trade.tradeType, '|', trade.scripId, '|', trade.scripCode, '|', "", '|', "", '|', "", '|', "", '|', "", '|',
      trade.trdId, '|', trade.time, '|');
}

static bool isRegularType(char tradeType) { return tradeType != 0 && std::strchr("LHMTQBK", tradeType) != nullptr; }

static void printBorrow(Output& out, const KestoTradeRec& trade) {
  // Other trade types stand one character to the left; this belongs to the layout.
  if (isRegularType(trade.tradeType)) {
    print<"%1c%7s%1c%9s%1c%8s%1c%11s%1c%6s%1c">(out, '|', "", '|', "", '|', "", '|', "", '|', "", '|');
  } else {
    print<"%1c%7s%1c%9s%1c%8s%1c%11s%1c%5s%1c">(out, '|', "", '|', "", '|', "", '|', "", '|', "", '|');
  }
  print<"%11s%1c%6ld%1c%4ld%1c%2ld%1c%9ld%1c%10.2f%1c%11s%1c%5ld%1c%1c%5ld%1c%9s%1c\n">(
      out, trade.scripId, '|', trade.scripCode, '|', trade.brokerId, '/', trade.traderId, '|', trade.qty, '|',
      trade.rate / 10000.0, '|', trade.clientId, '|', trade.trnId, trade.tradeType, '|', trade.trdId, '|', trade.time, '|');
}

// clang-format on

void printKestoTrades(Output& out, TradesReport& report, const KestoTradeRec* records, TradeOrder order) {
  printPageHeader(out, report);
  unsigned onPage = 0;
  for (const KestoTradeRec& trade : inOrder(records, order)) {
    if (onPage == report.linesPerPage) {
      printPageEndRule(out);
      print<"%c">(out, pageEnd);
      printPageHeader(out, report);
      onPage = 0;
    }
    if (trade.side == 'T' || trade.side == 'S') printLend(out, trade);
    if (trade.side == 'M' || trade.side == 'V') printBorrow(out, trade);
    // A trade of another side prints nothing and takes its place on the page all the same.
    ++onPage;
  }
  printClosingRule(out);
}

}  // namespace quillon
