// The money statement: what the member owes and gets for one auction.
//
// Sections of securities received, securities to be auctioned and entitlements come first, each on pages of its own; then the
// status of the member's offers; then one page with the net position, which ends in the boxed sum to pay or to receive.
#pragma once

#include <cstddef>
#include <cstdint>

#include "auction/auction_file.h"
#include "auction/auction_page.h"
#include "auction/offer_status_report.h"
#include "text/output.h"
#include "text/record_order.h"

namespace quillon {

struct MoneyRecords {
  const MonyRec* records;
  const char* groups;          // of moneyGroup, one beside each record
  const std::uint32_t* order;  // positions, of moneyOrder
  std::size_t count;
};

// The order of the statement: A, then B and C mixed, then D, O and Z, each by scrip name or scrip code. A sort that the
// statement does not have is taken as scrip name. `groups` is the one of each record.
[[nodiscard]] RecordOrder moneyOrder(const MonyRec* records, const char* groups, std::size_t count, AuctionSort sort);

// An amount in paise, to be paid ('D', as it is at the start) or received ('C').
struct MoneyNet {
  double amount = 0;
  char side = 'D';
};

// The sums of the whole statement, in paise.
struct MoneyTotals {
  double totalDebit = 0, totalCredit = 0, totalCommission = 0;
  MoneyNet buyerNet, sellerNet;
  double offererCredit = 0;
  double entitlementDebit = 0, entitlementCredit = 0;
};

// Prints all sections, sums them into `totals`, and ends their last page. Gives the number of the page that follows. Records
// of no group are passed over as if they were not in the file.
int printMoneySections(Output& out, const AuctionStatement& statement, const MoneyRecords& records, MoneyTotals& totals);

// Prints the status of offers from this page on and ends its last page; nothing where there are none. Gives the number of the
// page that follows.
int printMoneyOffers(Output& out, const AuctionStatement& statement, const Offers& offers, int page);

// Prints the net position page, with which the statement ends. No form feed follows it.
void printMoneyNetPosition(Output& out, const AuctionStatement& statement, const MoneyTotals& totals, int page);

}  // namespace quillon
