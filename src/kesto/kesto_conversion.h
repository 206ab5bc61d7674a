// A Kesto file as '|' delimited text for other programs: one line a record in file order, without a heading. Numbers stand as
// the file has them, a rate in ten-thousandths.
#pragma once

#include <cstddef>

#include "brokerquery/broker_file.h"
#include "text/output.h"
#include "trades/trade_file.h"

namespace quillon {

void convertKestoTrades(Output& out, const KestoTradeRec* records, std::size_t count);
void convertKestoBrokerQuery(Output& out, const KestoBrokerRec* records, std::size_t count);

}  // namespace quillon
