// The page header of the Trades report, in four forms: with or without the scrip group and settlement columns, and with the
// client type in a column of its own (old) or under the TrnId column (new).
#include "text/print.h"
#include "trades/trades_page.h"
#include "trades/trades_report.h"

namespace quillon {

bool headerOldForm(const TradesReport& report) { return report.preCutover || report.oddLotOption || report.isLendingFile; }

bool rowOldForm(const TradesReport& report) { return report.preCutover || report.isLendingFile; }

// clang-format off

static void printHeading(Output& out, const TradesReport& report) {
  print<"%72s%45s%2d\n">(out, exchangeName(report.isLendingFile), "Page:", report.page);
  printIdentity(out, report.header);
  print<"%72s%10s\n">(out, report.oddLotOption ? "LIST OF ODD LOT TRADES EXECUTED ON:" : "LIST OF TRADES EXECUTED ON:",
                      fileDate(report.header));
}

static void printShortOld(Output& out) {
  print<"%127s\n">(out, ruleOf(127));
  print<"%1c%21s%8c%19c%19s%10c%11s%1c%12s%1c%6s%1c%9s%1c%6s%1c\n">(
      out, '|', "Bought from", '|', '|', "Sold to  ", '|', "ClientId", '|', "TrnId", '|', "TrdId", '|', "Time", '|', "InstId",
      '|');
  print<"%1c%28s%1c%18s%1c%28s%1c%12c%13c%7c%10c%7c\n">(
      out, '|', ruleOf(28), '|', ruleOf(18), '|', ruleOf(28), '|', '|', '|', '|', '|', '|');
  print<"%1c%7s%1c%6s%4c%8s%3c%11s%1c%6s%1c">(out, '|', "Br/TrId", '|', "Qty", '|', "Rate", '|', "ScripId", '|', "ScrpCd", '|');
  print<"%7s%1c%6s%4c%8s%3c%12c%13c%7c%10c%7c\n">(out, "Br/TrId", '|', "Qty", '|', "Rate", '|', '|', '|', '|', '|', '|');
  print<"%1c%7s%1c%9s%1c%10s%1c%11s%1c%6s%1c">(
      out, '|', ruleOf(7), '|', ruleOf(9), '|', ruleOf(10), '|', ruleOf(11), '|', ruleOf(6), '|');
  print<"%7s%1c%9s%1c%10s%1c%11s%1c%12s%1c%6s%1c%9s%1c%6s%1c\n">(
      out, ruleOf(7), '|', ruleOf(9), '|', ruleOf(10), '|', ruleOf(11), '|', ruleOf(12), '|', ruleOf(6), '|', ruleOf(9), '|',
      ruleOf(6), '|');
  print<"%1c%17s%1c\n">(out, '|', "  OrderTimeStamp ", '|');
  print<"%1c%17s%1c%107s\n">(out, '|', ruleOf(17), '|', ruleOf(107));
}

static void printShortNew(Output& out) {
  print<"%126s\n">(out, ruleOf(126));
  print<"%1c%21s%8c%19c%19s%10c%11s%1c%18s%1c%6s%1c%9s%1c\n">(
      out, '|', "Bought from", '|', '|', "Sold to  ", '|', "ClientId", '|', "TrnId", '|', "TrdId", '|', "Time", '|');
  print<"%1c%28s%1c%18s%1c%28s%1c%12c%19c%7c%10c\n">(
      out, '|', ruleOf(28), '|', ruleOf(18), '|', ruleOf(28), '|', '|', '|', '|', '|');
  print<"%1c%7s%1c%6s%4c%8s%3c%11s%1c%6s%1c">(out, '|', "Br/TrId", '|', "Qty", '|', "Rate", '|', "ScripId", '|', "ScrpCd", '|');
  print<"%7s%1c%6s%4c%8s%3c%12c%19c%7c%10c\n">(out, "Br/TrId", '|', "Qty", '|', "Rate", '|', '|', '|', '|', '|');
  print<"%1c%7s%1c%9s%1c%10s%1c%11s%1c%6s%1c">(
      out, '|', ruleOf(7), '|', ruleOf(9), '|', ruleOf(10), '|', ruleOf(11), '|', ruleOf(6), '|');
  print<"%7s%1c%9s%1c%10s%1c%11s%1c%18s%1c%6s%1c%9s%1c\n">(
      out, ruleOf(7), '|', ruleOf(9), '|', ruleOf(10), '|', ruleOf(11), '|', ruleOf(18), '|', ruleOf(6), '|', ruleOf(9), '|');
  print<"%1c%17s%1c%22s%1c\n">(out, '|', "  OrderTimeStamp ", '|', "InstId", '|');
  print<"%1c%17s%1c%22s%1c%84s\n">(out, '|', ruleOf(17), '|', ruleOf(22), '|', ruleOf(84));
}

static const char* boughtFrom(const TradesReport& report) { return report.isLendingFile ? "Borrowed from" : "Bought from"; }
static const char* soldTo(const TradesReport& report) { return report.isLendingFile ? "Lent to" : "Sold to"; }

static void printWideOld(Output& out, const TradesReport& report) {
  print<"%124s\n">(out, ruleOf(124));
  print<"%1c%20s%8c%19c%16s%12c%11s%1c%12s%1c%6s%1c%8s%1c%6s%1c%\n">(
      out, '|', boughtFrom(report), '|', '|', soldTo(report), '|', "ClientId", '|', "TrnId", '|', "TrdId", '|', "Time", '|',
      "CliTyp", '|');
  print<"%1c%27s%1c%18s%1c%27s%1c%12c%13c%7c%9c%7c%\n">(
      out, '|', ruleOf(27), '|', ruleOf(18), '|', ruleOf(27), '|', '|', '|', '|', '|', '|');
  print<"%1c%6s%1c%6s%4c%8s%3c%11s%1c%6s%1c">(out, '|', "Br/Trd", '|', "Qty", '|', "Rate", '|', "ScripId", '|', "ScrpCd", '|');
  print<"%6s%1c%6s%4c%8s%3c%12c%13c%7c%9c%7c\n">(out, "Br/Trd", '|', "Qty", '|', "Rate", '|', '|', '|', '|', '|', '|');
  print<"%1c%6s%1c%9s%1c%10s%1c%11s%1c%6s%1c">(
      out, '|', ruleOf(6), '|', ruleOf(9), '|', ruleOf(10), '|', ruleOf(11), '|', ruleOf(6), '|');
  print<"%6s%1c%9s%1c%10s%1c%11s%1c%12s%1c%6s%1c%8s%1c%6s%1c\n">(
      out, ruleOf(6), '|', ruleOf(9), '|', ruleOf(10), '|', ruleOf(11), '|', ruleOf(12), '|', ruleOf(6), '|', ruleOf(8), '|',
      ruleOf(6), '|');
  print<"%1c%6s%1c%20s%1c%18s%1c\n">(out, '|', " ScGr ", '|', "  Settlement No   ", '|', "  OrderTimeStamp  ", '|');
  print<"%1c%6s%1c%20s%1c%18s%1c%75s\n">(out, '|', ruleOf(6), '|', ruleOf(20), '|', ruleOf(18), '|', ruleOf(75));
}

// No lending-market file comes here: it takes the old form.
static void printWideNew(Output& out) {
  print<"%124s\n">(out, ruleOf(124));
  print<"%1c%20s%8c%19c%16s%12c%11s%1c%19s%1c%6s%1c%8s%1c%\n">(
      out, '|', "Bought from", '|', '|', "Sold to", '|', "ClientId", '|', "TrnId", '|', "TrdId", '|', "Time", '|');
  print<"%1c%27s%1c%18s%1c%27s%1c%12c%20c%7c%9c%\n">(
      out, '|', ruleOf(27), '|', ruleOf(18), '|', ruleOf(27), '|', '|', '|', '|', '|');
  print<"%1c%6s%1c%6s%4c%8s%3c%11s%1c%6s%1c">(out, '|', "Br/Trd", '|', "Qty", '|', "Rate", '|', "ScripId", '|', "ScrpCd", '|');
  print<"%6s%1c%6s%4c%8s%3c%12c%20c%7c%9c\n">(out, "Br/Trd", '|', "Qty", '|', "Rate", '|', '|', '|', '|', '|');
  print<"%1c%6s%1c%9s%1c%10s%1c%11s%1c%6s%1c">(
      out, '|', ruleOf(6), '|', ruleOf(9), '|', ruleOf(10), '|', ruleOf(11), '|', ruleOf(6), '|');
  print<"%6s%1c%9s%1c%10s%1c%11s%1c%19s%1c%6s%1c%8s%1c\n">(
      out, ruleOf(6), '|', ruleOf(9), '|', ruleOf(10), '|', ruleOf(11), '|', ruleOf(19), '|', ruleOf(6), '|', ruleOf(8), '|');
  print<"%1c%6s%1c%20s%1c%18s%1c%16s%1c\n">(
      out, '|', " ScGr ", '|', "  Settlement No   ", '|', "  OrderTimeStamp  ", '|', "CliTyp", '|');
  print<"%1c%6s%1c%20s%1c%18s%1c%16s%1c%59s\n">(
      out, '|', ruleOf(6), '|', ruleOf(20), '|', ruleOf(18), '|', ruleOf(16), '|', ruleOf(59));
}

// clang-format on

void printTradesPageHeader(Output& out, TradesReport& report) {
  printHeading(out, report);
  const bool old = headerOldForm(report);
  if (report.shortColumns) {
    old ? printShortOld(out) : printShortNew(out);
  } else {
    old ? printWideOld(out, report) : printWideNew(out);
  }
  ++report.page;
}

}  // namespace quillon
