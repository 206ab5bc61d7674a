// The net position that follows the list of trades: one row a scrip, then one total. It has one page, however long.
#pragma once

#include <cstdint>

#include "brokerquery/broker_report.h"

namespace quillon {

// The sums of one scrip. Quantities wrap around at 32 bits, as the workstation's own do.
struct BrokerScripSums {
  std::int32_t buyQty;  // a Kesto file's lend side
  std::int32_t sellQty;
  double buyValue;  // rupees
  double sellValue;
};

struct BrokerNetPosition {
  double avgBuy;   // 0 where nothing was bought
  double avgSell;  // 0 where nothing was sold
  std::int32_t netQty;
  double netValue;
  double breakEven;  // 0 where netQty is 0
};

// The break-even price keeps its sign, and its decimals are left to the row's format.
BrokerNetPosition brokerNetPosition(const BrokerScripSums& sums);
// A Kesto file's break-even price is cut to two decimals and never negative.
BrokerNetPosition kestoBrokerNetPosition(const BrokerScripSums& sums);

// Prints header, rows and total. Records of one scrip stand side by side in the order given; the zero record behind the last
// one in the block closes the last scrip.
void printBrokerNetPosition(Output& out, const BrokerRecords& records, const TradeHeader& header, bool isLendingFile);

}  // namespace quillon
