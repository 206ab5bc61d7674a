// Rejected entitlements: those that were not closed out, in the file's order and without totals. Each reason has its own
// heading and its own table; the workstation writes the file grouped by reason, and a new page begins at every change.
#pragma once

#include <cstddef>

#include "auction/auction_file.h"
#include "auction/auction_page.h"
#include "text/output.h"

namespace quillon {

// Prints all pages. No form feed follows the last. Records of a reason that is none of 1 to 4 are not listed, and yet they
// count as rows of their page.
void printRejectedEntitlements(Output& out, const AuctionStatement& statement, const EntlRec* records, std::size_t count);

}  // namespace quillon
