// The net position section of the Trades report: a summary scrip by scrip that follows the list in the same output, without
// page breaks. Normal and Kesto files have a version each, which round differently.
#pragma once

#include "text/output.h"
#include "trades/trade_file.h"
#include "trades/trades_report.h"

namespace quillon {

// `order` has the records of one scrip next to each other. The records are followed by one zero record. A group closes when
// the next record's scrip is another one, so that trades without a scrip symbol at the very end are left out. Quantities
// are sums of 32 bits. The page number is shown as it stands.
void printNetPosition132(Output& out, const TradesReport& report, const TradeRec132* records, TradeOrder order);
void printNetPosition144(Output& out, const TradesReport& report, const TradeRec144* records, TradeOrder order);
// The same for Kesto files, always as page 1.
void printKestoNetPosition(Output& out, const TradesReport& report, const KestoTradeRec* records, TradeOrder order);

}  // namespace quillon
