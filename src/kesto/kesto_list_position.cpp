#include "kesto/kesto_list_position.h"

#include <cmath>

#include "text/in_order.h"
#include "text/print.h"
#include "trades/trades_page.h"

namespace quillon {

static std::int32_t addWrapping(std::int32_t a, std::int32_t b) {
  return static_cast<std::int32_t>(static_cast<std::uint32_t>(a) + static_cast<std::uint32_t>(b));
}

static std::int32_t subtractWrapping(std::int32_t a, std::int32_t b) {
  return static_cast<std::int32_t>(static_cast<std::uint32_t>(a) - static_cast<std::uint32_t>(b));
}

KestoNetPosition kestoNetPosition(const KestoGroup& group) {
  KestoNetPosition net = {};
  if (group.lendQty != 0) net.avgLend = group.lendValue / group.lendQty;
  if (group.borrowQty != 0) net.avgBorrow = group.borrowValue / group.borrowQty;
  net.netValue = group.lendValue - group.borrowValue;
  net.netQty = subtractWrapping(group.lendQty, group.borrowQty);
  // Cut as a double: a whole number of any size stays one.
  if (net.netQty != 0) net.breakEven = std::fabs(std::trunc(net.netValue * 10000.0 / net.netQty)) / 10000.0;
  return net;
}

static char sideOf(const KestoTradeRec& trade) { return trade.side; }
static char sideOf(const KestoBrokerRec& record) { return record.legCode; }

template <typename Record>
static void addRecord(KestoGroup& group, const Record& record) {
  const char side = sideOf(record);
  const double value = record.rate / 10000.0 * record.qty;
  if (side == 'T' || side == 'S') {
    group.lendQty = addWrapping(group.lendQty, record.qty);
    group.lendValue += value;
  } else {
    group.borrowQty = addWrapping(group.borrowQty, record.qty);
    group.borrowValue += value;
  }
}

using PrintRow = void (*)(Output& out, const TextField<12>& scripId, std::int32_t days, const KestoGroup& group);

// Prints the rows; gives the sum of the lend values less that of the borrow values.
template <typename Record>
static double printRows(Output& out, const Record* records, KestoOrder order, PrintRow printRow) {
  const std::size_t zeroRecord = order.size();
  KestoGroup group = {};
  double lendValues = 0, borrowValues = 0;
  for (std::size_t i = 0; i < order.size(); ++i) {
    fetchAhead(records, sizeof(Record), order, i);
    const Record& record = records[order[i]];
    const Record& next = records[i + 1 < order.size() ? order[i + 1] : zeroRecord];
    addRecord(group, record);
    if (record.days == next.days && record.scripId.view() == next.scripId.view()) continue;
    printRow(out, record.scripId, record.days, group);
    lendValues += group.lendValue;
    borrowValues += group.borrowValue;
    group = {};
  }
  return lendValues - borrowValues;
}

static const char* positionTitle(const TradeHeader& header) {
  // A broker query's says TRADES too.
  return header.fileKind == 'C' ? "NETPOSITION FOR KESTO (R) TRADES EXECUTED ON:"
                                : "NETPOSITION FOR KESTO (W) TRADES EXECUTED ON:";
}

// clang-format off

// ---- Behind the trades ----------------------------------------------------------------------------------------------------

static void printTradesCellRule(Output& out) {
  print<"%1c%15s%1c%3s%1c%15s%1c%15s%1c%15s%1c%15s%1c%15s%1c%15s%1c%15s%1c\n">(
      out, '|', ruleOf(15), '|', ruleOf(3), '|', ruleOf(15), '|', ruleOf(15), '|', ruleOf(15), '|', ruleOf(15), '|', ruleOf(15),
      '|', ruleOf(15), '|', ruleOf(15), '|');
}

static void printTradesHeading(Output& out, const KestoList& list) {
  print<"%c">(out, pageEnd);
  print<"%79s%39s%2d\n">(out, exchangeName(list.isLendingFile), "Page:", list.page);
  printIdentity(out, list.header);
  print<"%79s%10s\n">(out, positionTitle(list.header), fileDate(list.header));
  print<"%132s\n">(out, ruleOf(131));
  print<"%1c%10s%6c%3s%1c%12s%4c%12s%4c%12s%3c%12s%3c%12s%4c%12s%4c%12s%4c\n">(
      out, '|', "ScripId", '|', "Day", '|', "TotLendQty", '|', "AvLendRate", '|', " TotBorrowQty", '|', " AvBorrowRate", '|',
      "NetQty", '|', "Net Value", '|', "B E Price", '|');
  printTradesCellRule(out);
}

static void printTradesRow(Output& out, const TextField<12>& scripId, std::int32_t days, const KestoGroup& group) {
  const KestoNetPosition net = kestoNetPosition(group);
  print<"%1c%15s%1c%3ld%1c%15ld%1c%15.4lf%1c%15ld%1c%15.4lf%1c%15ld%1c%15.4lf%1c%15.4lf%1c\n">(
      out, '|', scripId, '|', days, '|', group.lendQty, '|', net.avgLend, '|', group.borrowQty, '|', net.avgBorrow, '|',
      net.netQty, '|', net.netValue, '|', net.breakEven, '|');
}

void printKestoTradesPosition(Output& out, const KestoList& list, const KestoTradeRec* records, KestoOrder order) {
  printTradesHeading(out, list);
  const double totalNetValue = printRows(out, records, order, printTradesRow);
  printTradesCellRule(out);
  print<"%69s%15.4lf\n">(out, "Total Net Value =", totalNetValue);
}

// ---- Behind the broker query ----------------------------------------------------------------------------------------------

static void printBrokerCellRule(Output& out) {
  print<"%1c%11s%1c%3s%1c%13s%1c%15s%1c%13s%1c%15s%1c%13s%1c%15s%1c%15s%1c\n">(
      out, '|', ruleOf(11), '|', ruleOf(3), '|', ruleOf(13), '|', ruleOf(15), '|', ruleOf(13), '|', ruleOf(15), '|', ruleOf(13),
      '|', ruleOf(15), '|', ruleOf(15), '|');
}

static void printBrokerHeading(Output& out, const KestoList& list) {
  print<"%79s%41s%2d\n">(out, exchangeName(list.isLendingFile), "Page:", list.page);
  print<"%10s%7ld%94s%10s\n">(out, "Broker Id. :", list.header.memberId, "Date :", fileDate(list.header));
  print<"%83s%15s\n">(out, positionTitle(list.header), fileDate(list.header));
  print<"%122s\n">(out, ruleOf(121));
  print<"%1c%7s%5c%3s%1c%11s%3c%12s%4c%12s%2c%12s%4c%12s%2c%12s%4c%12s%4c\n">(
      out, '|', "ScripId", '|', "Day", '|', "TotLendQty", '|', "AvLendRate", '|', "TotBorrowQty", '|', "AvBorrowRate", '|',
      "NetQty", '|', "Net Value", '|', "B E Price", '|');
  printBrokerCellRule(out);
}

static void printBrokerRow(Output& out, const TextField<12>& scripId, std::int32_t days, const KestoGroup& group) {
  const KestoNetPosition net = kestoNetPosition(group);
  print<"%1c%11s%1c%3ld%1c%13ld%1c%15.4lf%1c%13ld%1c%15.4lf%1c%13ld%1c%15.4lf%1c%15.4lf%1c\n">(
      out, '|', scripId, '|', days, '|', group.lendQty, '|', net.avgLend, '|', group.borrowQty, '|', net.avgBorrow, '|',
      net.netQty, '|', net.netValue, '|', net.breakEven, '|');
}

void printKestoBrokerPosition(Output& out, const KestoList& list, const KestoBrokerRec* records, KestoOrder order) {
  printBrokerHeading(out, list);
  const double totalNetValue = printRows(out, records, order, printBrokerRow);
  printBrokerCellRule(out);
  print<"%61s%15.4lf\n">(out, "Total Net Value =", totalNetValue);
  print<"%c">(out, pageEnd);
}

// clang-format on

}  // namespace quillon
