#include "auction/offer_status_report.h"

#include "auction/index_sort.h"
#include "text/in_order.h"
#include "text/print.h"

namespace quillon {
namespace {

// Quantities and credit (paise) of a page or of the whole statement.
struct OfferSums {
  std::int32_t qtyOffered;
  std::int32_t qtyAccepted;
  double creditValue;
};

}  // namespace

RecordOrder offerOrder(const OffsRec* records, std::size_t count, AuctionSort sort) {
  constexpr RecordKey scripName = {KeyKind::text, offsetof(OffsRec, scripName), sizeof(OffsRec::scripName)};
  constexpr RecordKey scripCode = {KeyKind::number, offsetof(OffsRec, scripCode), sizeof(OffsRec::scripCode)};
  constexpr RecordKey offerRate = {KeyKind::number, offsetof(OffsRec, offerRate), sizeof(OffsRec::offerRate)};
  return indexOrder({records, sizeof *records, count}, noGroups,
                    {sort == AuctionSort::scripCode ? scripCode : scripName, offerRate});
}

// clang-format off

// ---- Heading ----------------------------------------------------------------------------------------------------------

static void printNameLine(Output& out, const AuctionStatement& statement) {
  print<"\n%7s%40s%11s%8ld\n">(out, "Name : ", statement.header.memberName, " Cl. No. : ", statement.header.clearingNo);
}

// A lending file that is none of an auction has no notice line.
static void printOwnTitle(Output& out, const AuctionStatement& statement) {
  const AuctionMarket& market = statement.market;
  if (!market.isLendingFile) {
    print<"%45s%12s\n ">(out, "Offer Status Report for VORT Auction Notice No. : ", statement.header.auctionNoticeNo);
  } else if (market.isLendingAuctionFile) {
    print<"%45s%12s\n ">(out, "Offer Status Report for Buyin Auction Notice No. : ", statement.header.auctionNoticeNo);
  }
  printNameLine(out, statement);
}

static void printMoneyTitle(Output& out, const AuctionStatement& statement) {
  const AuctionMarket& market = statement.market;
  if (!market.isLendingFile) {
    print<"%40s%12s%14s\n">(out, "MONEY  STATEMENT for VORT Auction Notice No. ", statement.header.auctionNoticeNo, " ");
  } else if (market.isLendingAuctionFile) {
    print<"%40s%12s%14s\n">(out, "MONEY  STATEMENT for SLB Buyin Auction Notice No. ", statement.header.auctionNoticeNo, " ");
  }
  printNameLine(out, statement);
  print<"\n%30s%48s">(out, " ", "STATUS  OF  OFFERS");
}

// The rule under the column titles, which also closes a page. The delivery type's column is not there on lending files.
static void printColumnRule(Output& out, bool isLendingFile) {
  print<"|%6s|%14s|%10s|%17s|%14s|%13s|%10s|%12s|%12s|%12s|">(out, underscoreRule(6), underscoreRule(14), underscoreRule(10),
      underscoreRule(17), underscoreRule(14), underscoreRule(13), underscoreRule(10), underscoreRule(12), underscoreRule(12), underscoreRule(12));
  if (!isLendingFile) print<"%3s|">(out, underscoreRule(3));
  print<"\n">(out);
}

static void printColumnTitles(Output& out, bool isLendingFile) {
  print<"|%21s|%43s|%13s|%10s|%12s|%12s|%12s|">(out, "      Security       ",
      "           For Information Only            ", "", "", "", "", "");
  if (!isLendingFile) print<"%3s|">(out, "");
  print<"\n">(out);
  print<"|%21s|%43s|%13s|%10s|%12s|%12s|%12s|">(out, underscoreRule(21), underscoreRule(43), "Quantity", "  Rate  ", "Quantity",
      "Credit", "  ClientId  ");
  if (!isLendingFile) print<"%3s|">(out, "Del");
  print<"\n">(out);
  print<"|%6s|%14s|%10s|%17s|%14s|%13s|%10s|%12s|%12s|%12s|">(out, "Code", "Name", "Std Rate", "Highest Off. Rate",
      "Closed Out", "Offered", "(Rs)", "Accepted", "(Rs)", "");
  if (!isLendingFile) print<"%3s|">(out, "Typ");
  print<"\n">(out);
  print<"|%6s|%14s|%10s|%17s|%14s|%13s|%10s|%12s|%12s|%12s|">(out, "", "", "(Rs)", " Accepted (Rs)", "Rate (Rs)", "", "", "",
      "", "");
  if (!isLendingFile) print<"%3s|">(out, "");
  print<"\n">(out);
  printColumnRule(out, isLendingFile);
}

static void printHeading(Output& out, const AuctionStatement& statement, OfferHeading heading, int page) {
  const bool lending = statement.market.isLendingFile;
  print<"%27s%20s%12s%-14s%13s%7d%25s%7s%3d\n\n">(out,
      lending ? "KOR SHARE HOLDING LTD. " : "TARVEN STOCK EXCHANGE LTD. ", " ", " Run Date : ", statement.today,
      lending ? " SLB Sett. No. : " : " VORT Sett. No. : ", statement.header.settlementNo, " ", " Page: ", page);
  if (heading == OfferHeading::offerStatus) {
    printOwnTitle(out, statement);
  } else {
    printMoneyTitle(out, statement);
  }
  print<" \n">(out);
  print<"%s\n">(out, underscoreRule(lending ? 130 : 134));
  printColumnTitles(out, lending);
}

// ---- Rows -------------------------------------------------------------------------------------------------------------

static void printLead(Output& out, const OffsRec& offer, bool shown) {
  if (shown) {
    print<"%1c%6ld%1c%14s%1c">(out, bar, offer.scripCode, bar, offer.scripName, bar);
  } else {
    print<"%1c%6s%1c%14s%1c">(out, bar, " ", bar, " ", bar);
  }
}

static void printFullTail(Output& out, const OffsRec& offer, bool isLendingFile) {
  if (isLendingFile) {
    print<"%10.2f%1c%17.2f%1c%14.2f%1c%13ld%1c%10.2f%1c%12ld%1c%12.2f%1c%12s%1c\n">(out, offer.stdRate / 100.0, bar,
        offer.highestOfferRateAccepted / 100.0, bar, offer.closedOutRate / 100.0, bar, offer.qtyOffered, bar,
        offer.offerRate / 100.0, bar, offer.qtyAccepted, bar, offer.creditValue / 100.0, bar, offer.clientId, bar);
  } else {
    print<"%10.2f%1c%17.2f%1c%14.2f%1c%13ld%1c%10.2f%1c%12ld%1c%12.2f%1c%12s%1c%3s%1c\n">(out, offer.stdRate / 100.0, bar,
        offer.highestOfferRateAccepted / 100.0, bar, offer.closedOutRate / 100.0, bar, offer.qtyOffered, bar,
        offer.offerRate / 100.0, bar, offer.qtyAccepted, bar, offer.creditValue / 100.0, bar, offer.clientId, bar,
        offer.deliveryType, bar);
  }
}

static void printShortTail(Output& out, const OffsRec& offer, bool isLendingFile) {
  if (isLendingFile) {
    print<"%10s%1c%17s%1c%14s%1c%13ld%1c%10.2f%1c%12ld%1c%12.2f%1c%12s%1c\n">(out, " ", bar, " ", bar, " ", bar,
        offer.qtyOffered, bar, offer.offerRate / 100.0, bar, offer.qtyAccepted, bar, offer.creditValue / 100.0, bar,
        offer.clientId, bar);
  } else {
    print<"%10s%1c%17s%1c%14s%1c%13ld%1c%10.2f%1c%12ld%1c%12.2f%1c%12s%1c%3s%1c\n">(out, " ", bar, " ", bar, " ", bar,
        offer.qtyOffered, bar, offer.offerRate / 100.0, bar, offer.qtyAccepted, bar, offer.creditValue / 100.0, bar,
        offer.clientId, bar, offer.deliveryType, bar);
  }
}

// ---- Totals -----------------------------------------------------------------------------------------------------------

static void closePage(Output& out, const OfferSums& page, bool isLendingFile) {
  printColumnRule(out, isLendingFile);
  print<"%-67s%13ld%12s%12ld%1c%12.2f\n">(out, "PAGE TOTAL :", page.qtyOffered, " ", page.qtyAccepted, bar,
      page.creditValue / 100.0);
}

static void printGrandTotal(Output& out, const OfferSums& total) {
  print<"%67s%13s%12s%25s\n">(out, " ", hyphenRule(13), " ", hyphenRule(25));
  print<"%-67s%13ld%12s%12ld%1c%12.2f\n">(out, "GRAND TOTAL AS OFFERER :", total.qtyOffered, " ", total.qtyAccepted, bar,
      total.creditValue / 100.0);
  print<"%109s%4s\n">(out, " ", "(Rs)");
}

// clang-format on

static void addOffer(OfferSums& sums, const OffsRec& offer) {
  sums.qtyOffered = wrappingSum(sums.qtyOffered, offer.qtyOffered);
  sums.qtyAccepted = wrappingSum(sums.qtyAccepted, offer.qtyAccepted);
  sums.creditValue += offer.creditValue;
}

int printOfferStatus(Output& out, const AuctionStatement& statement, OfferHeading heading, const Offers& offers,
                     int firstPage) {
  const bool lending = statement.market.isLendingFile;
  int page = firstPage;
  OfferSums pageSums = {}, totalSums = {};
  unsigned rowOnPage = 1;
  // Carried across pages: the rates stand under the first row of a scrip alone, though its code begins every page.
  std::int32_t previousScripCode = 0;
  printHeading(out, statement, heading, page);
  for (std::size_t i = 0; i < offers.count; ++i) {
    if (offers.order) fetchAhead(offers.records, sizeof *offers.records, {offers.order, offers.count}, i);
    const OffsRec& offer = offers.records[offers.order ? offers.order[i] : i];
    if (rowOnPage == statement.linesPerPage + 1) {
      closePage(out, pageSums, lending);
      print<"%c">(out, pageEnd);
      ++page;
      pageSums = {};
      rowOnPage = 1;
      printHeading(out, statement, heading, page);
    }
    const bool sameScrip = offer.scripCode == previousScripCode;
    printLead(out, offer, !sameScrip || rowOnPage == 1);
    if (sameScrip) {
      printShortTail(out, offer, lending);
    } else {
      printFullTail(out, offer, lending);
    }
    addOffer(pageSums, offer);
    addOffer(totalSums, offer);
    previousScripCode = offer.scripCode;
    ++rowOnPage;
  }
  closePage(out, pageSums, lending);
  printGrandTotal(out, totalSums);
  return page;
}

}  // namespace quillon
