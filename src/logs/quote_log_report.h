// The list of a quote log: two rows a quote, its bid part and its offer part, over a rule.
#pragma once

#include <cstdint>
#include <span>

#include "logs/quote_log_file.h"
#include "text/output.h"
#include "trades/trade_file.h"

namespace quillon {

struct QuoteLogOptions {
  bool isLendingFile;      // of the lending market
  unsigned quotesPerPage;  // from 1
};

// Writes the whole list, page numbers from 1. `order` holds positions in `records`; a quote is printed for each.
void printQuoteLog(Output& out, const TradeHeader& header, const QuoteRec* records, std::span<const std::uint32_t> order,
                   const QuoteLogOptions& options);

}  // namespace quillon
