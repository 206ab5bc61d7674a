// The Trades report: every trade of one trade file in a ruled table. A buy fills the left half of a row and a sell the right
// half; the scrip stands between them. 132-byte and 144-byte records have a layout each, under the same page header.
#pragma once

#include <cstdint>
#include <span>

#include "text/output.h"
#include "trades/trade_file.h"

namespace quillon {

struct TradesReport {
  TradeHeader header;
  bool isLendingFile;
  bool oddLotOption;      // the form's "Oddlot File", which words the heading
  bool shortColumns;      // without scrip group and settlement number; always so for 132-byte records
  bool preCutover;        // the file is dated before 22 May 2009
  unsigned linesPerPage;  // records a page, not lines of paper; at least 1
  int page;               // number of the next page; the list leaves it one above its last
};

// Positions of records in the order in which they are printed.
using TradeOrder = std::span<const std::uint32_t>;

// True when the page header has the narrow TrnId column and a client-type column of its own.
bool headerOldForm(const TradesReport& report);
// The same for detail rows of the regular trade types, which take no account of the odd-lot option.
bool rowOldForm(const TradesReport& report);

// The heading, the column names and their rules; raises the page number.
void printTradesPageHeader(Output& out, TradesReport& report);

// The whole list, from the first page header to the closing rule. Nothing follows the closing rule.
void printTrades132(Output& out, TradesReport& report, const TradeRec132* records, TradeOrder order);
// The same; in a lending-market file lends already stand as 'S' (rewriteLends).
void printTrades144(Output& out, TradesReport& report, const TradeRec144* records, TradeOrder order);

}  // namespace quillon
