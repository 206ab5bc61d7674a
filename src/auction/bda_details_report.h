// BDA details: what was closed out of an auction, one row a record, in the file's order and without totals.
#pragma once

#include <cstddef>

#include "auction/auction_file.h"
#include "auction/auction_page.h"
#include "text/output.h"

namespace quillon {

// Prints all pages. No form feed follows the last.
void printBdaDetails(Output& out, const AuctionStatement& statement, const ClbdRec* records, std::size_t count);

}  // namespace quillon
