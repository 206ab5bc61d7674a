#include "auction/rejected_entitlements_report.h"

#include "text/print.h"

namespace quillon {

// Why an entitlement was not closed out.
static constexpr int marketRateBelowCost = 1, rateNotKnown = 2, scripDelisted = 3, reasonFour = 4;

static bool isKnownReason(int reason) { return reason >= marketRateBelowCost && reason <= reasonFour; }

// clang-format off

// ---- Headings ---------------------------------------------------------------------------------------------------------

static void printReason(Output& out, int reason, bool isLendingFile) {
  if (reason == marketRateBelowCost) {
    print<"\n%58s\n">(out, "ENTITLEMENTS EXCEPTION (Market Rate < Cost of Procurement)");
    print<"\n On the date of rectification the market value of entitlement is lower than the">(out);
    print<"\n cost of procurment of entitlement, hence the  entitlement have not been closed">(out);
    print<"\n out as the Buyer has option to buy the rights entitlements from the market.\n">(out);
  } else if (reason == rateNotKnown) {
    print<"\n%51s\n">(out, "ENTITLEMENTS EXCEPTION (Entitlement Rate not known)");
  } else if (reason == scripDelisted) {
    print<"\n%41s\n">(out, "ENTITLEMENTS EXCEPTION (De-listed Scrips)");
    if (isLendingFile) {
      print<"\n The below mentioned scrips are delisted/suspended by the KOR Share Holding Ltd. ,">(out);
    } else {
      print<"\n The below mentioned scrips are delisted/suspended by the Tarven Stock Exchange Ltd. ,">(out);
    }
    print<"\n hence are closed out as per Exchange procedure.\n">(out);
  } else {
    print<"\n%32s\n">(out, "ENTITLEMENTS EXCEPTION (Reason 4)");
  }
}

// The first reason's table alone has rates.
static void printTableRule(Output& out, int reason) {
  print<"%s">(out, reason == marketRateBelowCost ? hyphenRule(131) : hyphenRule(115));
}

static void printColumnTitles(Output& out, int reason) {
  if (reason == marketRateBelowCost) {
    print<"\n|B/S" "|ScripCode  " "|ScripName   " "|OppMemberId" "|          OppMemberName                 " "|  Bdc No   "
          "| Entl Type " "|ClosingRate" "|Entl. Rate |\n">(out);
    print<"|---" "|-----------" "|------------" "|-----------" "|----------------------------------------" "|-----------"
          "|-----------" "|-----------" "|-----------|">(out);
  } else {
    print<"\n|BuySellFlag" "|ScripCode  " "|ScripName   " "|OppMemberId" "|          OppMemberName                 "
          "|  Bdc No   " "| Entl Type |\n">(out);
    print<"|-----------" "|-----------" "|------------" "|-----------" "|----------------------------------------"
          "|-----------" "|-----------|">(out);
  }
}

static void printHeading(Output& out, const AuctionStatement& statement, int reason, int page) {
  printListingExchangeLine(out, statement, page);
  print<"\n%7s%-40s%9s%8ld\n">(out, "Name : ", statement.header.memberName, "Cl. No. ", statement.header.clearingNo);
  if (!isKnownReason(reason)) return;
  printReason(out, reason, statement.market.isLendingFile);
  printTableRule(out, reason);
  printColumnTitles(out, reason);
}

// ---- Rows -------------------------------------------------------------------------------------------------------------

// Each begins with its own newline, as the titles' last rule has none.
static void printRow(Output& out, const EntlRec& record) {
  if (!isKnownReason(record.reason)) return;
  if (record.reason == marketRateBelowCost) {
    print<"\n|%1c%1c%1c|%11ld|%12s|%11ld|%40s|%11ld|%6s%5s|%8ld.%02ld|%8ld.%02ld|">(out, ' ', record.buySellFlag, ' ',
        record.scripCode, record.scripName, record.oppMemberId, record.oppMemberName, record.bdcNo, record.entitlementType,
        " ", record.closingRate / 100, record.closingRate % 100, record.entitlementRate / 100, record.entitlementRate % 100);
  } else {
    print<"\n|%5s%1c%5s|%11ld|%12s|%11ld|%40s|%11ld|%6s%5s|">(out, " ", record.buySellFlag, " ", record.scripCode,
        record.scripName, record.oppMemberId, record.oppMemberName, record.bdcNo, record.entitlementType, " ");
  }
}

// Closes the table of a reason; there is none for a reason that is not known.
static void closeTable(Output& out, int reason) {
  if (!isKnownReason(reason)) return;
  print<"\n">(out);
  printTableRule(out, reason);
  print<"\n">(out);
}

// clang-format on

void printRejectedEntitlements(Output& out, const AuctionStatement& statement, const EntlRec* records, std::size_t count) {
  if (count == 0) return;
  int page = 1;
  unsigned rows = 0;
  int previous = records[0].reason;
  const auto beginPage = [&](int reason) {
    closeTable(out, previous);
    print<"%c">(out, pageEnd);
    ++page;
    printHeading(out, statement, reason, page);
  };
  printHeading(out, statement, previous, page);
  for (std::size_t i = 0; i < count; ++i) {
    const int reason = records[i].reason;
    // Both may be true of one record: then a page with a heading alone stands between the two reasons.
    if (rows == statement.linesPerPage) {
      beginPage(reason);
      rows = 0;
    }
    // The rows go on being counted, so that the first page of a reason may be a short one.
    if (reason != previous) beginPage(reason);
    printRow(out, records[i]);
    ++rows;
    previous = reason;
  }
  closeTable(out, previous);
}

}  // namespace quillon
