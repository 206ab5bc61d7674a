// The list of trades of a Kesto file: the lend side in the left half of a row, the borrow side in the right half.
#pragma once

#include "text/output.h"
#include "trades/trade_file.h"
#include "trades/trades_report.h"

namespace quillon {

// The whole list, from the first page header to the closing rule. Nothing follows the closing rule. Of the report's options
// the header, the lending flag, the lines per page and the page number are used.
void printKestoTrades(Output& out, TradesReport& report, const KestoTradeRec* records, TradeOrder order);

}  // namespace quillon
