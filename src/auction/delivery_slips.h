// Delivery slips: what the member has to deliver after an auction, one slip an order, two side by side on the slip stock. They
// hold no form feed: the stock and the printer's own paging decide where a page ends.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "auction/auction_file.h"
#include "desktop/clock.h"
#include "text/output.h"

namespace quillon {

// What a delivery file's name tells the slips. The short name is of the form DELYddmm.nnn; of a shorter one there is what there
// is.
struct SlipName {
  std::string noticeNo;  // its last three characters
  std::string date;      // "dd-mm-yyyy", of the year that the clock has
};
SlipName slipNameOf(std::string_view fileName, const LocalTime& now);

// Packs what the member delivers to the start of the records, in the file's order, and zeroes those behind.
void keepDeliveries(DelyRec* records, std::size_t count);

// Prints the records two at a time to the last position, empty ones as blank space, each pair in 18 lines. Gives the number of
// slips among them.
std::size_t printDeliverySlips(Output& out, const AuctionHeader& header, const SlipName& name, const DelyRec* records,
                               std::size_t count);

}  // namespace quillon
