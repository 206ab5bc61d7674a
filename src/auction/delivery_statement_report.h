// The delivery statement of an auction: a table of three parts, whom the member receives from, what, and whom the member
// delivers to. One row an order; orders of one side leave the other part empty.
#pragma once

#include <cstddef>
#include <cstdint>

#include "auction/auction_file.h"
#include "auction/auction_page.h"
#include "text/output.h"
#include "text/record_order.h"

namespace quillon {

// By scrip name, scrip code, counter-party's number or counter-party's name, then by the order's id.
[[nodiscard]] RecordOrder deliveryOrder(const DelyRec* records, std::size_t count, AuctionSort sort);

struct Deliveries {
  const DelyRec* records;
  std::size_t count;
  const std::uint32_t* order;  // positions
};

// Prints all pages, each of which holds one row fewer than its lines; with one line a page the first page is empty and the
// second holds everything. No form feed follows the last.
void printDeliveryStatement(Output& out, const AuctionStatement& statement, const Deliveries& deliveries);

}  // namespace quillon
