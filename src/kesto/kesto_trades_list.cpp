#include "kesto/kesto_trades_list.h"

#include "brokerquery/broker_file.h"
#include "text/in_order.h"
#include "text/print.h"
#include "trades/trades_page.h"

namespace quillon {

// Odd-lot trades are numbered from here on.
static constexpr std::uint32_t oddLotOffset = 10000000;

static std::int32_t shownTrnId(const KestoTradeRec& trade) {
  if (trade.tradeType != 'O') return trade.trnId;
  return static_cast<std::int32_t>(static_cast<std::uint32_t>(trade.trnId) - oddLotOffset);
}

// clang-format off

static void printLeftCells(Output& out) {
  print<"%1c%7s%1c%7s%1c%8s%1c%11s%1c%10s%1c%11s%1c%6s%1c%4s%1c">(
      out, '|', ruleOf(7), '|', ruleOf(7), '|', ruleOf(8), '|', ruleOf(11), '|', ruleOf(10), '|', ruleOf(11), '|', ruleOf(6),
      '|', ruleOf(4), '|');
}

static void printColumnHeads(Output& out) {
  print<"%1c%16s%9c%10s%2c%10s%1c%11s%1c%6s%1c%4s%1c%18s%9c%5s%1c%3s%1c%8s%1c%12s%1c\n">(
      out, '|', "Lend To", '|', "ClientId", '|', "TrnId", '|', "ScripId", '|', "ScrpCd", '|', "Days", '|', "Borrowed From", '|',
      "TrdId", '|', "F/M", '|', "Time", '|', "Sett/Fyear", '|');
  print<"%1c%24s%1c%11s%1c%10s%1c%11s%1c%6s%1c%4s%1c%26s%1c%6c%4c%9c%13c\n">(
      out, '|', ruleOf(24), '|', " ", '|', " ", '|', " ", '|', " ", '|', " ", '|', ruleOf(26), '|', '|', '|', '|', '|');
  print<"%1c%7s%1c%4s%4c%6s%3c%10s%2c%10s%1c%11s%1c%6s%1c%4s%1c">(
      out, '|', "Br/TrId", '|', "Qty", '|', "Rate", '|', " ", '|', " ", '|', " ", '|', " ", '|', " ", '|');
  print<"%7s%1c%4s%4c%8s%3c%6c%4c%9c%13c\n">(out, "Br/TrId", '|', "Qty", '|', "Rate", '|', '|', '|', '|', '|');
  printLeftCells(out);
  print<"%7s%1c%7s%1c%10s%1c%5s%1c%3s%1c%8s%1c%12s%1c\n">(
      out, ruleOf(7), '|', ruleOf(7), '|', ruleOf(10), '|', ruleOf(5), '|', ruleOf(3), '|', ruleOf(8), '|', ruleOf(12), '|');
}

static void printPageHeader(Output& out, KestoList& list) {
  print<"%79s%39s%2d\n">(out, exchangeName(list.isLendingFile), "Page:", list.page);
  print<"%79s%10s\n">(
      out,
      list.header.fileKind == 'C' ? "REPORT OF KESTO (R) TRADES EXECUTED ON:" : "REPORT OF KESTO (W) TRADES EXECUTED ON:",
      fileDate(list.header));
  printIdentity(out, list.header);
  print<"%131s\n">(out, ruleOf(131));
  printColumnHeads(out);
  ++list.page;
}

// The last rule is one wider than its cell where another page follows.
static void printPageEndRule(Output& out) {
  printLeftCells(out);
  print<"%7s%1c%7s%1c%10s%1c%5s%1c%3s%1c%8s%1c%12s%1c\n">(
      out, ruleOf(7), '|', ruleOf(7), '|', ruleOf(10), '|', ruleOf(5), '|', ruleOf(3), '|', ruleOf(8), '|', ruleOf(13), '|');
}

static void printClosingRule(Output& out) {
  printLeftCells(out);
  print<"%5s%1c%7s%1c%10s%1c%5s%1c%3s%1c%8s%1c%12s%1c\n">(
      out, ruleOf(7), '|', ruleOf(7), '|', ruleOf(10), '|', ruleOf(5), '|', ruleOf(3), '|', ruleOf(8), '|', ruleOf(12), '|');
}

static void printLend(Output& out, const KestoTradeRec& trade, char term) {
  print<"%1c%4ld%1c%2ld%1c%7ld%1c%8.4f%1c%11s%1c%9ld%1c%1c%11s%1c%6ld%1c%4ld%1c%7s%1c%7s%1c%10s%1c%5ld%1c%3c%1c%8s%1c%12s%1c\n">(
      out, '|', trade.brokerId, '/', trade.traderId, '|', trade.qty, '|', trade.rate / 10000.0, '|', trade.clientId, '|',
      shownTrnId(trade), trade.tradeType, '|', trade.scripId, '|', trade.scripCode, '|', trade.days, '|', "", '|', "", '|', "",
      '|', trade.trdId, '|', term, '|', trade.time, '|', trade.settFyear, '|');
}

static void printBorrow(Output& out, const KestoTradeRec& trade, char term) {
  print<"%1c%7s%1c%7s%1c%8s%1c%11s%1c%9ld%1c%1c">(
      out, '|', "", '|', "", '|', "", '|', trade.clientId, '|', shownTrnId(trade), trade.tradeType, '|');
  print<"%11s%1c%6ld%1c%4ld%1c%4ld%1c%2ld%1c%7ld%1c%10.4f%1c%5ld%1c%3c%1c%8s%1c%12s%1c\n">(
      out, trade.scripId, '|', trade.scripCode, '|', trade.days, '|', trade.brokerId, '/', trade.traderId, '|', trade.qty, '|',
      trade.rate / 10000.0, '|', trade.trdId, '|', term, '|', trade.time, '|', trade.settFyear, '|');
}

// clang-format on

static void printTrade(Output& out, const KestoTradeRec& trade) {
  const KestoLeg* leg = findKestoLeg(trade.side);
  if (!leg) return;
  if (leg->side == KestoSide::lend) {
    printLend(out, trade, leg->term);
  } else {
    printBorrow(out, trade, leg->term);
  }
}

void printKestoTradesList(Output& out, KestoList& list, const KestoTradeRec* records, KestoOrder order) {
  printPageHeader(out, list);
  unsigned onPage = 0;
  for (const KestoTradeRec& trade : inOrder(records, order)) {
    if (onPage == list.linesPerPage) {
      printPageEndRule(out);
      print<"%c">(out, pageEnd);
      printPageHeader(out, list);
      onPage = 0;
    }
    printTrade(out, trade);
    ++onPage;
  }
  printClosingRule(out);
}

}  // namespace quillon
