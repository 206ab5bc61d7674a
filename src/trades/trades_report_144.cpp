// The list of trades of 144-byte records: four lines of paper a trade, in one of four forms, but one row to the page.
//
//            with client type at the row's end   with client type on the third line
//   short    form a                              form b
//   wide     form c                              form d
//
// Wide rows show scrip group and settlement number. Broker and trader are blank in all four on purpose.
#include <cstring>

#include "text/in_order.h"
#include "text/print.h"
#include "trades/trades_page.h"
#include "trades/trades_report.h"

namespace quillon {

namespace {

enum class RowForm { a, b, c, d };

}  // namespace

static bool isRegularType(char tradeType) { return tradeType != 0 && std::strchr("LHMTQPBKGC", tradeType) != nullptr; }

static RowForm rowFormOf(const TradesReport& report, char tradeType) {
  const bool old = !isRegularType(tradeType) || rowOldForm(report);
  if (report.shortColumns) return old ? RowForm::a : RowForm::b;
  return old ? RowForm::c : RowForm::d;
}

static TextField<8> orderTime(const TradeRec144& trade) { return timeOfStamp(trade.orderTimeStamp); }

static auto settlement(const TradeRec144& trade) { return formatCell<"%d/%ld">(trade.settlementYear, trade.settlementNo); }

// clang-format off

// As many underscores as the cell is wide, and a bar behind them, which comes out one wider than the cell: the rule closes
// where the rows close.
static constexpr char wholeRule107[] =
    "______________________________________________________"
    "_____________________________________________________|";
static_assert(sizeof wholeRule107 == 107 + 1 + 1);
static constexpr const char* wholeRule106 = wholeRule107 + 1;

// ---- Form a ---------------------------------------------------------------------------------------------------------------

static void printBuyA(Output& out, const TradeRec144& trade) {
  print<"%1c%4lc%1c%2lc%1c%9ld%1c%10.2f%1c%11s%1c%6ld%1c%7s%1c%9s%1c%10s%1c%11s%1c%11I64d%1c%1c%6ld%1c%9s%1c%-6s%1c\n">(
      out, '|', ' ', ' ', ' ', '|', trade.qty, '|', trade.rate / 100.0, '|', trade.scripId, '|', trade.scripCode, '|', "",
      '|', "", '|', "", '|', trade.clientId, '|', trade.trnId, trade.tradeType, '|', trade.trdId, '|', trade.time, '|',
      shownClientType(trade.cliTyp), '|');
}

static void printSellA(Output& out, const TradeRec144& trade) {
  print<"%1c%7s%1c%9s%1c%10s%1c">(out, '|', "", '|', "", '|', "", '|');
  print<"%11s%1c%6ld%1c%4lc%1c%2lc%1c%9ld%1c%10.2f%1c%11s%1c%11I64d%1c%1c%6ld%1c%9s%1c%-6s%1c\n">(
      out, trade.scripId, '|', trade.scripCode, '|', ' ', ' ', ' ', '|', trade.qty, '|', trade.rate / 100.0, '|',
      trade.clientId, '|', trade.trnId, trade.tradeType, '|', trade.trdId, '|', trade.time, '|',
      shownClientType(trade.cliTyp), '|');
}

static void printRestA(Output& out, const TradeRec144& trade) {
  print<"%1c%7s%1c%9s%1c%10s%1c%11s%1c%6s%1c%7s%1c%9s%1c%10s%1c%11s%1c%12s%1c%6s%1c%9s%1c%-6s%1c\n">(
      out, '|', ruleOf(7), '|', ruleOf(9), '|', ruleOf(10), '|', ruleOf(11), '|', ruleOf(6), '|', ruleOf(7), '|', ruleOf(9),
      '|', ruleOf(10), '|', ruleOf(11), '|', ruleOf(12), '|', ruleOf(6), '|', ruleOf(9), '|', ruleOf(6), '|');
  print<"%1c%17s%1c%107s%1c\n">(out, '|', orderTime(trade), '|', "", '|');
  print<"%1c%17s%1c%107s\n">(out, '|', ruleOf(17), '|', wholeRule107);
}

// ---- Form b ---------------------------------------------------------------------------------------------------------------

static void printBuyB(Output& out, const TradeRec144& trade) {
  print<"%1c%4lc%1c%2lc%1c%9ld%1c%10.2f%1c%11s%1c%6ld%1c%7s%1c%9s%1c%10s%1c%11s%1c%17I64d%1c%1c%6ld%1c%9s%1c\n">(
      out, '|', ' ', ' ', ' ', '|', trade.qty, '|', trade.rate / 100.0, '|', trade.scripId, '|', trade.scripCode, '|', "",
      '|', "", '|', "", '|', trade.clientId, '|', trade.trnId, trade.tradeType, '|', trade.trdId, '|', trade.time, '|');
}

static void printSellB(Output& out, const TradeRec144& trade) {
  print<"%1c%7s%1c%9s%1c%10s%1c">(out, '|', "", '|', "", '|', "", '|');
  print<"%11s%1c%6ld%1c%4lc%1c%2lc%1c%9ld%1c%10.2f%1c%11s%1c%17I64d%1c%1c%6ld%1c%9s%1c\n">(
      out, trade.scripId, '|', trade.scripCode, '|', ' ', ' ', ' ', '|', trade.qty, '|', trade.rate / 100.0, '|',
      trade.clientId, '|', trade.trnId, trade.tradeType, '|', trade.trdId, '|', trade.time, '|');
}

static void printRestB(Output& out, const TradeRec144& trade) {
  print<"%1c%7s%1c%9s%1c%10s%1c%11s%1c%6s%1c%7s%1c%9s%1c%10s%1c%11s%1c%18s%1c%6s%1c%9s%1c\n">(
      out, '|', ruleOf(7), '|', ruleOf(9), '|', ruleOf(10), '|', ruleOf(11), '|', ruleOf(6), '|', ruleOf(7), '|', ruleOf(9),
      '|', ruleOf(10), '|', ruleOf(11), '|', ruleOf(18), '|', ruleOf(6), '|', ruleOf(9), '|');
  print<"%1c%17s%1c%22s%1c%83s%1c\n">(out, '|', orderTime(trade), '|', shownClientType(trade.cliTyp), '|', "", '|');
  print<"%1c%17s%1c%22s%1c%83s%1c\n">(out, '|', ruleOf(17), '|', ruleOf(22), '|', ruleOf(83), '|');
}

// ---- Form c ---------------------------------------------------------------------------------------------------------------

static void printBuyC(Output& out, const TradeRec144& trade) {
  print<"%1c%3lc%1c%2lc%1c%9ld%1c%10.2f%1c%11s%1c%6ld%1c%6s%1c%9s%1c%10s%1c%11s%1c%11I64d%1c%1c%6ld%1c%8s%1c%-6s%1c\n">(
      out, '|', ' ', ' ', ' ', '|', trade.qty, '|', trade.rate / 100.0, '|', trade.scripId, '|', trade.scripCode, '|', "",
      '|', "", '|', "", '|', trade.clientId, '|', trade.trnId, trade.tradeType, '|', trade.trdId, '|', trade.time, '|',
      shownClientType(trade.cliTyp), '|');
}

static void printSellC(Output& out, const TradeRec144& trade) {
  print<"%1c%6s%1c%9s%1c%10s%1c">(out, '|', "", '|', "", '|', "", '|');
  print<"%11s%1c%6ld%1c%3lc%1c%2lc%1c%9ld%1c%10.2f%1c%11s%1c%11I64d%1c%1c%6ld%1c%8s%1c%-6s%1c\n">(
      out, trade.scripId, '|', trade.scripCode, '|', ' ', ' ', ' ', '|', trade.qty, '|', trade.rate / 100.0, '|',
      trade.clientId, '|', trade.trnId, trade.tradeType, '|', trade.trdId, '|', trade.time, '|',
      shownClientType(trade.cliTyp), '|');
}

static void printRestC(Output& out, const TradeRec144& trade) {
  print<"%1c%6s%1c%9s%1c%10s%1c%11s%1c%6s%1c%6s%1c%9s%1c%10s%1c%11s%1c%12s%1c%6s%1c%8s%1c%-6s%1c\n">(
      out, '|', ruleOf(6), '|', ruleOf(9), '|', ruleOf(10), '|', ruleOf(11), '|', ruleOf(6), '|', ruleOf(6), '|', ruleOf(9),
      '|', ruleOf(10), '|', ruleOf(11), '|', ruleOf(12), '|', ruleOf(6), '|', ruleOf(8), '|', ruleOf(6), '|');
  print<"%1c%6s%1c%20s%1c%18s%1c%75s%1c\n">(out, '|', trade.scGr, '|', settlement(trade), '|', orderTime(trade), '|', "", '|');
  print<"%1c%6s%1c%20s%1c%18s%1c%75s%1c\n">(out, '|', ruleOf(6), '|', ruleOf(20), '|', ruleOf(18), '|', ruleOf(75), '|');
}

// ---- Form d ---------------------------------------------------------------------------------------------------------------

static void printBuyD(Output& out, const TradeRec144& trade) {
  print<"%1c%3lc%1c%2lc%1c%9ld%1c%10.2f%1c%11s%1c%6ld%1c%6s%1c%9s%1c%10s%1c%11s%1c%18I64d%1c%1c%6ld%1c%8s%1c%\n">(
      out, '|', ' ', ' ', ' ', '|', trade.qty, '|', trade.rate / 100.0, '|', trade.scripId, '|', trade.scripCode, '|', "",
      '|', "", '|', "", '|', trade.clientId, '|', trade.trnId, trade.tradeType, '|', trade.trdId, '|', trade.time, '|');
}

static void printSellD(Output& out, const TradeRec144& trade) {
  print<"%1c%6s%1c%9s%1c%10s%1c">(out, '|', "", '|', "", '|', "", '|');
  print<"%11s%1c%6ld%1c%3lc%1c%2lc%1c%9ld%1c%10.2f%1c%11s%1c%18I64d%1c%1c%6ld%1c%8s%1c\n">(
      out, trade.scripId, '|', trade.scripCode, '|', ' ', ' ', ' ', '|', trade.qty, '|', trade.rate / 100.0, '|',
      trade.clientId, '|', trade.trnId, trade.tradeType, '|', trade.trdId, '|', trade.time, '|');
}

static void printRestD(Output& out, const TradeRec144& trade) {
  print<"%1c%6s%1c%9s%1c%10s%1c%11s%1c%6s%1c%6s%1c%9s%1c%10s%1c%11s%1c%19s%1c%6s%1c%8s%1c\n">(
      out, '|', ruleOf(6), '|', ruleOf(9), '|', ruleOf(10), '|', ruleOf(11), '|', ruleOf(6), '|', ruleOf(6), '|', ruleOf(9),
      '|', ruleOf(10), '|', ruleOf(11), '|', ruleOf(19), '|', ruleOf(6), '|', ruleOf(8), '|');
  print<"%1c%6s%1c%20s%1c%18s%1c%16s%1c%58s%1c\n">(
      out, '|', trade.scGr, '|', settlement(trade), '|', orderTime(trade), '|', shownClientType(trade.cliTyp), '|', "", '|');
  print<"%1c%6s%1c%20s%1c%18s%1c%16s%1c%58s%1c\n">(
      out, '|', ruleOf(6), '|', ruleOf(20), '|', ruleOf(18), '|', ruleOf(16), '|', ruleOf(58), '|');
}

// ---- Rules of the page ----------------------------------------------------------------------------------------------------

static void printWideRule(Output& out) {
  print<"%1c%6s%1c%20s%1c%18s%1c%75s%1c\n">(out, '|', ruleOf(6), '|', ruleOf(20), '|', ruleOf(18), '|', ruleOf(75), '|');
}

static void printPageEndRule(Output& out, const TradesReport& report) {
  if (!report.shortColumns) {
    printWideRule(out);
  } else if (headerOldForm(report)) {
    print<"%1c%17s%1c%107s\n">(out, '|', ruleOf(17), '|', wholeRule107);
  } else {
    print<"%1c%17s%1c%106s\n">(out, '|', ruleOf(17), '|', wholeRule106);
  }
}

static void printClosingRule(Output& out, const TradesReport& report) {
  if (!report.shortColumns) {
    printWideRule(out);
  } else {
    print<"%1c%17s%1c%99s\n">(out, '|', ruleOf(17), '|', wholeRule107);
  }
}

// clang-format on

static void printRow(Output& out, const TradesReport& report, const TradeRec144& trade) {
  const bool buy = trade.side == 'B';
  if (!buy && trade.side != 'S') return;
  switch (rowFormOf(report, trade.tradeType)) {
    case RowForm::a:
      buy ? printBuyA(out, trade) : printSellA(out, trade);
      printRestA(out, trade);
      break;
    case RowForm::b:
      buy ? printBuyB(out, trade) : printSellB(out, trade);
      printRestB(out, trade);
      break;
    case RowForm::c:
      buy ? printBuyC(out, trade) : printSellC(out, trade);
      printRestC(out, trade);
      break;
    case RowForm::d:
      buy ? printBuyD(out, trade) : printSellD(out, trade);
      printRestD(out, trade);
      break;
  }
}

void printTrades144(Output& out, TradesReport& report, const TradeRec144* records, TradeOrder order) {
  printTradesPageHeader(out, report);
  unsigned onPage = 0;
  for (const TradeRec144& trade : inOrder(records, order)) {
    if (onPage == report.linesPerPage) {
      printPageEndRule(out, report);
      print<"%c">(out, pageEnd);
      printTradesPageHeader(out, report);
      onPage = 0;
    }
    printRow(out, report, trade);
    // A trade of another side prints nothing and takes its place on the page all the same.
    ++onPage;
  }
  printClosingRule(out, report);
}

}  // namespace quillon
