// The offer status statement: the member's offers in an auction, one row an offer, with the scrip's rates once per scrip.
//
// Two print it: the auction form on request, sorted, and the money statement between its sections and its net position, in the
// file's order and under a heading of its own.
#pragma once

#include <cstddef>
#include <cstdint>

#include "auction/auction_file.h"
#include "auction/auction_page.h"
#include "text/output.h"
#include "text/record_order.h"

namespace quillon {

enum class OfferHeading { offerStatus, moneyStatement };

// By scrip name or scrip code, then by the offer's rate. A sort that the statement does not have is taken as scrip name.
[[nodiscard]] RecordOrder offerOrder(const OffsRec* records, std::size_t count, AuctionSort sort);

struct Offers {
  const OffsRec* records;
  std::size_t count;
  const std::uint32_t* order;  // positions; null: as they stand in the file
};

// Prints all pages, the first of which is numbered `firstPage`, and gives the number of the last. No form feed follows it.
int printOfferStatus(Output& out, const AuctionStatement& statement, OfferHeading heading, const Offers& offers, int firstPage);

}  // namespace quillon
