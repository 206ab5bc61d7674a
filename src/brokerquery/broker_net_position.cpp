#include "brokerquery/broker_net_position.h"

#include <cmath>

#include "brokerquery/broker_report_blocks.h"
#include "text/print.h"

namespace quillon {

static std::int32_t addWrapping(std::int32_t a, std::int32_t b) {
  return static_cast<std::int32_t>(static_cast<std::uint32_t>(a) + static_cast<std::uint32_t>(b));
}

static std::int32_t subtractWrapping(std::int32_t a, std::int32_t b) {
  return static_cast<std::int32_t>(static_cast<std::uint32_t>(a) - static_cast<std::uint32_t>(b));
}

static BrokerNetPosition withoutBreakEven(const BrokerScripSums& sums) {
  BrokerNetPosition net = {};
  if (sums.buyQty != 0) net.avgBuy = sums.buyValue / sums.buyQty;
  if (sums.sellQty != 0) net.avgSell = sums.sellValue / sums.sellQty;
  net.netQty = subtractWrapping(sums.buyQty, sums.sellQty);
  net.netValue = sums.buyValue - sums.sellValue;
  return net;
}

BrokerNetPosition brokerNetPosition(const BrokerScripSums& sums) {
  BrokerNetPosition net = withoutBreakEven(sums);
  if (net.netQty != 0) net.breakEven = net.netValue * 100.0 / net.netQty / 100.0;
  return net;
}

BrokerNetPosition kestoBrokerNetPosition(const BrokerScripSums& sums) {
  BrokerNetPosition net = withoutBreakEven(sums);
  // Cut as a double: a whole number of any size stays one.
  if (net.netQty != 0) net.breakEven = std::fabs(std::trunc(net.netValue * 100.0 / net.netQty)) / 100.0;
  return net;
}

static bool isBuySide(const BrokerRec132& record) { return record.side == 'B'; }
static bool isBuySide(const BrokerRec160& record) { return record.side == 'B'; }
static bool isBuySide(const KestoBrokerRec& record) {
  const KestoLeg* leg = findKestoLeg(record.legCode);
  return leg && leg->side == KestoSide::lend;
}

static double rupees(const BrokerRec132& record) { return record.rate / 100.0; }
static double rupees(const BrokerRec160& record) { return record.rate / 100.0; }
static double rupees(const KestoBrokerRec& record) { return record.rate / 10000.0; }

template <typename Record>
static void addRecord(BrokerScripSums& sums, const Record& record) {
  const double value = rupees(record) * record.qty;
  if (isBuySide(record)) {
    sums.buyQty = addWrapping(sums.buyQty, record.qty);
    sums.buyValue += value;
  } else {
    sums.sellQty = addWrapping(sums.sellQty, record.qty);
    sums.sellValue += value;
  }
}

// clang-format off

// The page number is 1 whatever page the list ended on.
static void printPageTop(Output& out, const TradeHeader& header, bool isLendingFile) {
  const std::string date = brokerDateText(header);
  print<"%79s%39s%2d\n">(out, brokerExchangeLine(isLendingFile), "Page:", 1);
  print<"%10s%7ld%100s%10s\n">(out, "Broker Id. :", header.memberId, "Date :", date);
  print<"%79s%15s\n">(out, "NetPosition of trades executed on", date);
}

static void printEightCellRule(Output& out) {
  print<"%1c%15s%1c%15s%1c%15s%1c%15s%1c%15s%1c%15s%1c%15s%1c%15s%1c\n">(out, bar, rule(15), bar, rule(15), bar, rule(15), bar,
      rule(15), bar, rule(15), bar, rule(15), bar, rule(15), bar, rule(15), bar);
}

static void printSixCellRule(Output& out) {
  print<"%1c%15s%1c%15s%1c%15s%1c%15s%1c%15s%1c%15s%1c\n">(out, bar, rule(15), bar, rule(15), bar, rule(15), bar, rule(15), bar,
      rule(15), bar, rule(15), bar);
}

static void printNormalHeading(Output& out) {
  print<"%129s\n">(out, rule(129));
  print<"%1c%10s%6c%12s%4c%12s%4c%12s%4c%12s%4c%12s%4c%12s%4c%12s%4c\n">(out, bar, "ScripId", bar, "TotBuyQty", bar, "AvBuyRate",
      bar, "TotSellQty", bar, "AvSellRate", bar, "NetQty", bar, "Net Value", bar, "B E Price", bar);
  printEightCellRule(out);
}

static void printLendingHeading(Output& out) {
  print<"%97s\n">(out, rule(97));
  print<"%1c%10s%6c%12s%4c%12s%4c%12s%4c%12s%4c%12s%4c\n">(out, bar, "ScripId", bar, "TotBQty", bar, "AvBorrowRate", bar,
      "TotLendQty", bar, "AvLendRate", bar, "Net Value", bar);
  printSixCellRule(out);
}

static void printKestoHeading(Output& out) {
  const std::string topRule = std::string(" ").append(rule(127));
  print<"%127s\n">(out, topRule);
  print<"%1c%10s%6c%14s%2c%15s%1c%14s%2c%15s%1c%12s%4c%12s%4c%12s%4c\n">(out, bar, "ScripId", bar, "TotalLendQty", bar,
      "AverageLendRate", bar, "TotalBorrowQty", bar, "AverageBorrRate", bar, "NetQty", bar, "Net Value", bar, "B E Price", bar);
  printEightCellRule(out);
}

using ScripId = TextField<12>;

static void printEightCellRow(Output& out, const ScripId& scripId, const BrokerScripSums& sums, const BrokerNetPosition& net) {
  print<"%1c%15s%1c%15ld%1c%15.2lf%1c%15ld%1c%15.2lf%1c%15ld%1c%15.2lf%1c%15.2lf%1c\n">(out, bar, scripId, bar, sums.buyQty, bar,
      net.avgBuy, bar, sums.sellQty, bar, net.avgSell, bar, net.netQty, bar, net.netValue, bar, net.breakEven, bar);
}

static void printNormalRow(Output& out, const ScripId& scripId, const BrokerScripSums& sums) {
  printEightCellRow(out, scripId, sums, brokerNetPosition(sums));
}

static void printKestoRow(Output& out, const ScripId& scripId, const BrokerScripSums& sums) {
  printEightCellRow(out, scripId, sums, kestoBrokerNetPosition(sums));
}

static void printLendingRow(Output& out, const ScripId& scripId, const BrokerScripSums& sums) {
  const BrokerNetPosition net = brokerNetPosition(sums);
  print<"%1c%15s%1c%15ld%1c%15.2lf%1c%15ld%1c%15.2lf%1c%15.2lf%1c\n">(out, bar, scripId, bar, sums.buyQty, bar, net.avgBuy, bar,
      sums.sellQty, bar, net.avgSell, bar, net.netValue, bar);
}

static void printTotal(Output& out, double totalNetValue) {
  print<"%69s%15.2lf\n">(out, "Total Net Value =", totalNetValue);
  print<"%c">(out, formFeed);
}

// clang-format on

namespace {

struct NetPositionBlocks {
  void (*heading)(Output& out);
  void (*row)(Output& out, const ScripId& scripId, const BrokerScripSums& sums);
  void (*closingRule)(Output& out);
};

}  // namespace

static constexpr NetPositionBlocks normalBlocks = {printNormalHeading, printNormalRow, printEightCellRule};
static constexpr NetPositionBlocks lendingBlocks = {printLendingHeading, printLendingRow, printSixCellRule};
static constexpr NetPositionBlocks kestoNetBlocks = {printKestoHeading, printKestoRow, printEightCellRule};

template <typename Record>
static void printRows(Output& out, const BrokerRecords& records, const NetPositionBlocks& blocks) {
  const Record* const zeroRecord = static_cast<const Record*>(records.bytes) + records.count;
  BrokerScripSums sums = {};
  double totalBuyValue = 0, totalSellValue = 0;
  for (std::size_t i = 0; i < records.count; ++i) {
    const Record& record = *static_cast<const Record*>(brokerRecordAt(records, i));
    const bool isLast = i + 1 == records.count;
    const Record& next = isLast ? *zeroRecord : *static_cast<const Record*>(brokerRecordAt(records, i + 1));
    addRecord(sums, record);
    // Records without a scrip at the very end are equal to the zero record, and their row is never closed.
    if (record.scripId.view() == next.scripId.view()) continue;
    blocks.row(out, record.scripId, sums);
    totalBuyValue += sums.buyValue;
    totalSellValue += sums.sellValue;
    sums = {};
  }
  blocks.closingRule(out);
  printTotal(out, totalBuyValue - totalSellValue);
}

void printBrokerNetPosition(Output& out, const BrokerRecords& records, const TradeHeader& header, bool isLendingFile) {
  const bool isKesto = records.layout == BrokerLayout::kesto;
  const NetPositionBlocks& blocks = isKesto ? kestoNetBlocks : isLendingFile ? lendingBlocks : normalBlocks;
  printPageTop(out, header, isLendingFile);
  blocks.heading(out);
  switch (records.layout) {
    case BrokerLayout::rec132:
      printRows<BrokerRec132>(out, records, blocks);
      break;
    case BrokerLayout::rec160:
      printRows<BrokerRec160>(out, records, blocks);
      break;
    case BrokerLayout::kesto:
      printRows<KestoBrokerRec>(out, records, blocks);
      break;
  }
}

}  // namespace quillon
