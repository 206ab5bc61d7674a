// What the two lists of the Kesto form, of trades and of a broker query, have in common with the net positions behind them:
// the run's page state, the orders that the form offers, and the side and term of a deal.
#pragma once

#include <cstdint>
#include <span>

#include "text/record_order.h"
#include "trades/trade_file.h"

namespace quillon {

struct KestoList {
  TradeHeader header;  // its first letter, 'C' for (R) and 'B' for (W), words the titles and nothing else
  bool isLendingFile;
  unsigned linesPerPage;  // records a page; at least 1
  int page;               // number of the next page; a list leaves it one above its last
};

// Positions of records in the order in which they are printed.
using KestoOrder = std::span<const std::uint32_t>;

enum class KestoSort {
  fileOrder,  // no order was asked for
  time,
  scripCode,
  scripId,
  clientId,
  days,
  trader,  // of the broker query alone: trades stay in file order
};

struct KestoSortKeys {
  RecordKey first, second;
};
// Where the keys of a sort stand in a KestoTradeRec and in a KestoBrokerRec.
KestoSortKeys kestoTradeSortKeys(KestoSort sort);
KestoSortKeys kestoBrokerSortKeys(KestoSort sort);

}  // namespace quillon
