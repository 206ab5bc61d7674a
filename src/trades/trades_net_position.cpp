#include "trades/trades_net_position.h"

#include <cmath>

#include "frame/rounding.h"
#include "text/in_order.h"
#include "text/print.h"
#include "trades/trades_page.h"

namespace quillon {

namespace {

// Quantity and value of one side. Quantities of hostile files wrap at 32 bits, as the stored ones do.
struct SideTotal {
  std::uint32_t qty;
  double value;
};

struct Group {
  SideTotal first;   // bought; in a Kesto file lent
  SideTotal second;  // sold; in a Kesto file borrowed
};

}  // namespace

static std::int32_t signedQty(std::uint32_t qty) { return static_cast<std::int32_t>(qty); }

static void addTrade(SideTotal& total, double rate, std::int32_t qty) {
  total.qty += static_cast<std::uint32_t>(qty);
  total.value += rate * qty;
}

static double averageOf(const SideTotal& total) { return total.qty != 0 ? total.value / signedQty(total.qty) : 0.0; }

// The average rate as a cell of 15, such as "         123.45".
static auto roundedAverage(const SideTotal& total) {
  const std::int64_t hundredths = roundHalfAway(averageOf(total) * 100.0);
  return formatCell<"%12I64d.%02ld">(hundredths / 100, static_cast<std::int32_t>(hundredths % 100));
}

// Walks the records in their order and closes a group wherever the next record's scrip is another one; the zero record is
// next to the last. `isFirst` tells the side of a trade, `perRate` the units of its rate.
template <typename Record, typename IsFirst, typename Close>
static void walkGroups(const Record* records, TradeOrder order, double perRate, IsFirst isFirst, Close close) {
  const std::size_t zeroRecord = order.size();
  Group group = {};
  for (std::size_t i = 0; i < order.size(); ++i) {
    fetchAhead(records, sizeof(Record), order, i);
    const Record& trade = records[order[i]];
    const Record& next = records[i + 1 < order.size() ? order[i + 1] : zeroRecord];
    addTrade(isFirst(trade.side) ? group.first : group.second, trade.rate / perRate, trade.qty);
    if (trade.scripId.view() == next.scripId.view()) continue;
    close(trade, group);
    group = {};
  }
}

// clang-format off

static void printEightCellRule(Output& out) {
  print<"%1c%15s%1c%15s%1c%15s%1c%15s%1c%15s%1c%15s%1c%15s%1c%15s%1c\n">(
      out, '|', ruleOf(15), '|', ruleOf(15), '|', ruleOf(15), '|', ruleOf(15), '|', ruleOf(15), '|', ruleOf(15), '|',
      ruleOf(15), '|', ruleOf(15), '|');
}

static void printSixCellRule(Output& out) {
  print<"%1c%15s%1c%15s%1c%15s%1c%15s%1c%15s%1c%15s%1c\n">(
      out, '|', ruleOf(15), '|', ruleOf(15), '|', ruleOf(15), '|', ruleOf(15), '|', ruleOf(15), '|', ruleOf(15), '|');
}

static void printSectionStart(Output& out, const TradesReport& report, int page) {
  print<"%c">(out, pageEnd);
  print<"%79s%39s%2d\n">(out, exchangeName(report.isLendingFile), "Page:", page);
  printIdentity(out, report.header);
}

static void printTotal(Output& out, const TradesReport& report, double netValue) {
  print<"%69s%15.2lf\n">(out, "Total Net Value =", netValue);
  if (report.oddLotOption) print<"%69s\n">(out, "( For Information Only )");
}

// ---- Normal files ---------------------------------------------------------------------------------------------------------

static void printNormalHeader(Output& out, const TradesReport& report) {
  printSectionStart(out, report, report.page);
  print<"%79s%10s\n">(
      out, report.oddLotOption ? "NETPOSITION FOR ODDLOT TRADES EXECUTED ON:" : "NETPOSITION FOR TRADES EXECUTED ON:",
      fileDate(report.header));
  if (report.isLendingFile) {
    print<"%97s\n">(out, ruleOf(97));
    print<"%1c%10s%6c%12s%4c%12s%4c%12s%4c%12s%4c%12s%4c\n">(
        out, '|', "ScripId", '|', "TotBorrowQty", '|', "AvBorrowRate", '|', "TotLendQty", '|', "AvLendRate", '|',
        "Net Value", '|');
    printSixCellRule(out);
  } else {
    print<"%129s\n">(out, ruleOf(129));
    print<"%1c%10s%6c%12s%4c%12s%4c%12s%4c%12s%4c%12s%4c%12s%4c%12s%4c\n">(
        out, '|', "ScripId", '|', "TotBuyQty", '|', "AvBuyRate", '|', "TotSellQty", '|', "AvSellRate", '|', "NetQty", '|',
        "Net Value", '|', "B E Price", '|');
    printEightCellRule(out);
  }
}

static void printNormalGroup(Output& out, const TradesReport& report, const TextField<12>& scripId, const Group& group) {
  const auto averageBuy = roundedAverage(group.first), averageSell = roundedAverage(group.second);
  const std::int32_t buyQty = signedQty(group.first.qty), sellQty = signedQty(group.second.qty);
  const std::int32_t netQty = signedQty(group.first.qty - group.second.qty);
  const double netValue = group.first.value - group.second.value;
  const double breakEven = netQty != 0 ? netValue * 100.0 / netQty : 0.0;
  if (report.isLendingFile) {
    print<"%1c%15s%1c%15ld%1c%s%1c%15ld%1c%s%1c%15.2lf%1c\n">(
        out, '|', scripId, '|', buyQty, '|', averageBuy, '|', sellQty, '|', averageSell, '|', netValue, '|');
  } else {
    print<"%1c%15s%1c%15ld%1c%s%1c%15ld%1c%s%1c%15ld%1c%15.2lf%1c%15.2lf%1c\n">(
        out, '|', scripId, '|', buyQty, '|', averageBuy, '|', sellQty, '|', averageSell, '|', netQty, '|', netValue, '|',
        breakEven / 100.0, '|');
  }
}

// ---- Kesto files ----------------------------------------------------------------------------------------------------------

static void printKestoHeader(Output& out, const TradesReport& report) {
  printSectionStart(out, report, 1);
  print<"%79s%10s\n">(out, "NETPOSITION FOR KESTO TRADES EXECUTED ON:", fileDate(report.header));
  // One wider than its cell: a blank, then the rule.
  print<"%127s\n">(
      out,
      " _______________________________________________________________"
      "________________________________________________________________");
  print<"%1c%10s%6c%12s%4c%15s%1c%14s%2c%15s%1c%12s%4c%12s%4c%12s%4c\n">(
      out, '|', "ScripId", '|', "TotalLendQty", '|', "AverageLendRate", '|', "TotalBorrowQty", '|', "AverageBorrRate", '|',
      "NetQty", '|', "Net Value", '|', "B E Price", '|');
  printEightCellRule(out);
}

// Cut toward zero and without its sign: a Kesto break-even price is never shown as negative.
static double kestoBreakEven(double netValue, std::int32_t netQty) {
  return netQty != 0 ? std::fabs(std::trunc(netValue * 100.0 / netQty)) / 100.0 : 0.0;
}

static void printKestoGroup(Output& out, const TextField<12>& scripId, const Group& group) {
  const std::int32_t netQty = signedQty(group.first.qty - group.second.qty);
  const double netValue = group.first.value - group.second.value;
  print<"%1c%15s%1c%15ld%1c%15.2lf%1c%15ld%1c%15.2lf%1c%15ld%1c%15.2lf%1c%15.2lf%1c\n">(
      out, '|', scripId, '|', signedQty(group.first.qty), '|', averageOf(group.first), '|', signedQty(group.second.qty), '|',
      averageOf(group.second), '|', netQty, '|', netValue, '|', kestoBreakEven(netValue, netQty), '|');
}

// clang-format on

template <typename Record>
static void printNormal(Output& out, const TradesReport& report, const Record* records, TradeOrder order) {
  printNormalHeader(out, report);
  double buyValue = 0, sellValue = 0;
  const auto isBuy = [](char side) { return side == 'B'; };
  walkGroups(records, order, 100.0, isBuy, [&](const Record& trade, const Group& group) {
    printNormalGroup(out, report, trade.scripId, group);
    buyValue += group.first.value;
    sellValue += group.second.value;
  });
  report.isLendingFile ? printSixCellRule(out) : printEightCellRule(out);
  printTotal(out, report, buyValue - sellValue);
}

void printNetPosition132(Output& out, const TradesReport& report, const TradeRec132* records, TradeOrder order) {
  printNormal(out, report, records, order);
}

void printNetPosition144(Output& out, const TradesReport& report, const TradeRec144* records, TradeOrder order) {
  printNormal(out, report, records, order);
}

void printKestoNetPosition(Output& out, const TradesReport& report, const KestoTradeRec* records, TradeOrder order) {
  printKestoHeader(out, report);
  double lendValue = 0, borrowValue = 0;
  const auto isLend = [](char side) { return side == 'T' || side == 'S'; };
  walkGroups(records, order, 10000.0, isLend, [&](const KestoTradeRec& trade, const Group& group) {
    printKestoGroup(out, trade.scripId, group);
    lendValue += group.first.value;
    borrowValue += group.second.value;
  });
  printEightCellRule(out);
  printTotal(out, report, lendValue - borrowValue);
}

}  // namespace quillon
