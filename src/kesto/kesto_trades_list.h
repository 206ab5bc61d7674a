// The list of trades of a Kesto file as the Kesto form prints it: lends in the left half of a row, borrows in the right half,
// with days, settlement and four decimals. The Trades form lists the same records in a form of its own.
#pragma once

#include "kesto/kesto_list.h"
#include "text/output.h"
#include "trades/trade_file.h"

namespace quillon {

// The whole list, from the first page header to the closing rule, list.linesPerPage records on each page. Nothing follows the
// closing rule. A trade whose side is none of the four prints nothing and takes its place on the page.
void printKestoTradesList(Output& out, KestoList& list, const KestoTradeRec* records, KestoOrder order);

}  // namespace quillon
