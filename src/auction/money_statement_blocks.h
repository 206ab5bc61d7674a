// The blocks of the money statement's pages, which money_statement_report.cpp puts together: one function a block.
#pragma once

#include <cstdint>

#include "auction/auction_file.h"
#include "auction/auction_page.h"
#include "auction/money_statement_report.h"
#include "text/output.h"

namespace quillon {

// The sums of a page and of a section, in paise.
struct MoneyPageSums {
  std::int32_t qty = 0;
  double debit = 0, credit = 0, commission = 0;
  double entitlementDebit = 0, entitlementCredit = 0;
};
struct MoneySectionSums {
  std::int32_t qty = 0;
  double debit = 0, credit = 0, commission = 0;
};

// A, B and C together.
constexpr bool isReceivedGroup(char group) { return group == 'A' || group == 'B' || group == 'C'; }

// A security to be auctioned is a debit, unless its debit is nothing.
constexpr bool isAuctionedCredit(const MonyRec& record) { return record.debitRupees < 1 && record.debitPaise < 1; }

// The lines with exchange, date, settlement, notice and member.
void printMoneyHeading(Output& out, const AuctionStatement& statement, int page);
// Section title and column titles; nothing for a group that is listed in no table.
void printMoneySectionHead(Output& out, const AuctionStatement& statement, char group);

// Nothing for a group that is listed in no table.
void printMoneyRow(Output& out, const MonyRec& record, char group);

// The rule and the page total under a table.
void printReceivedPageTotal(Output& out, const MoneyPageSums& page, bool specialNotice);
void printAuctionedPageTotal(Output& out, const MoneyPageSums& page);
void printEntitlementPageTotal(Output& out, const MoneyPageSums& page);
// The summary under the last page of a section.
void printReceivedSummary(Output& out, const MoneySectionSums& section, bool isLendingFile);
void printAuctionedSummary(Output& out, const MoneySectionSums& section, bool isLendingFile);

}  // namespace quillon
