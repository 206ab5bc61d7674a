// The list of trades of 132-byte records: one line a trade.
#include "text/in_order.h"
#include "text/print.h"
#include "trades/trades_page.h"
#include "trades/trades_report.h"

namespace quillon {

// clang-format off

static void printLeftRule(Output& out) {
  print<"%1c%7s%1c%9s%1c%8s%1c%11s%1c%6s%1c">(
      out, '|', ruleOf(7), '|', ruleOf(9), '|', ruleOf(8), '|', ruleOf(11), '|', ruleOf(6), '|');
}

static void printPageEndRule(Output& out) {
  printLeftRule(out);
  print<"%7s%1c%9s%1c%10s%1c%11s%1c%12s%1c%6s%1c%9s%1c%6s%1c\n">(
      out, ruleOf(7), '|', ruleOf(9), '|', ruleOf(10), '|', ruleOf(11), '|', ruleOf(12), '|', ruleOf(6), '|', ruleOf(9), '|',
      ruleOf(6), '|');
}

static void printClosingRule(Output& out) {
  printLeftRule(out);
  print<"%5s%1c%9s%1c%10s%1c%11s%1c%12s%1c%6s%1c%9s%1c%6s%1c\n">(
      out, ruleOf(7), '|', ruleOf(9), '|', ruleOf(10), '|', ruleOf(11), '|', ruleOf(12), '|', ruleOf(6), '|', ruleOf(9), '|',
      ruleOf(6), '|');
}

static void printBuy(Output& out, const TradeRec132& trade) {
  print<"%1c%4ld%1c%2ld%1c%9ld%1c%8.2f%1c%11s%1c%6ld%1c%7s%1c%9s%1c%10s%1c%11s%1c%11I64d%1c%1c%6ld%1c%9s%1c%-6s%1c\n">(
      out, '|', trade.brokerId, '/', trade.traderId, '|', trade.qty, '|', trade.rate / 100.0, '|', trade.scripId, '|',
      trade.scripCode, '|', "", '|', "", '|', "", '|', trade.clientId, '|', trade.trnId, trade.tradeType, '|', trade.trdId, '|',
      trade.time, '|', shownClientType(trade.cliTyp), '|');
}

// The left part's rate cell is 8 wide, as a buy's rate; a sell's own rate is 10 wide.
static void printSell(Output& out, const TradeRec132& trade) {
  print<"%1c%7s%1c%9s%1c%8s%1c">(out, '|', "", '|', "", '|', "", '|');
  print<"%11s%1c%6ld%1c%4ld%1c%2ld%1c%9ld%1c%10.2f%1c%11s%1c%11I64d%1c%1c%6ld%1c%9s%1c%-6s%1c\n">(
      out, trade.scripId, '|', trade.scripCode, '|', trade.brokerId, '/', trade.traderId, '|', trade.qty, '|',
      trade.rate / 100.0, '|', trade.clientId, '|', trade.trnId, trade.tradeType, '|', trade.trdId, '|', trade.time, '|',
      shownClientType(trade.cliTyp), '|');
}

// clang-format on

void printTrades132(Output& out, TradesReport& report, const TradeRec132* records, TradeOrder order) {
  printTradesPageHeader(out, report);
  unsigned onPage = 0;
  for (const TradeRec132& trade : inOrder(records, order)) {
    if (onPage == report.linesPerPage) {
      printPageEndRule(out);
      print<"%c">(out, pageEnd);
      printTradesPageHeader(out, report);
      onPage = 0;
    }
    if (trade.side == 'B') printBuy(out, trade);
    if (trade.side == 'S') printSell(out, trade);
    // A trade of another side prints nothing and takes its place on the page all the same.
    ++onPage;
  }
  printClosingRule(out);
}

}  // namespace quillon
