#include "auction/money_statement_report.h"

#include "auction/index_sort.h"
#include "auction/money_statement_blocks.h"
#include "text/in_order.h"
#include "text/print.h"

namespace quillon {

// ---- Order ------------------------------------------------------------------------------------------------------------

RecordOrder moneyOrder(const MonyRec* records, const char* groups, std::size_t count, AuctionSort sort) {
  constexpr RecordKey scripName = {KeyKind::text, offsetof(MonyRec, scripName), sizeof(MonyRec::scripName)};
  constexpr RecordKey scripCode = {KeyKind::number, offsetof(MonyRec, scripCode), sizeof(MonyRec::scripCode)};
  // B and C stand side by side in the order of their scrips.
  const auto section = [](char group) { return static_cast<unsigned char>(group == 'C' ? 'B' : group); };
  return indexOrder({records, sizeof *records, count}, {groups, section},
                    {sort == AuctionSort::scripCode ? scripCode : scripName});
}

// ---- Sums -------------------------------------------------------------------------------------------------------------

static double paise(std::int32_t rupees, std::int16_t paisePart) { return rupees * 100.0 + paisePart; }

static double debitOf(const MonyRec& record) { return paise(record.debitRupees, record.debitPaise); }

static double creditOf(const MonyRec& record) { return paise(record.creditRupees, record.creditPaise); }

static void addToPage(MoneyPageSums& page, const MonyRec& record, char group) {
  page.qty = wrappingSum(page.qty, record.quantity);
  switch (group) {
    case 'B':
      page.debit += debitOf(record);
      break;
    case 'D':
      if (isAuctionedCredit(record)) {
        page.credit += creditOf(record);
      } else {
        page.debit += debitOf(record);
      }
      page.commission += record.auctionCommission;
      break;
    case 'Z':
      page.qty = 0;
      page.entitlementDebit += debitOf(record);
      page.entitlementCredit += creditOf(record);
      break;
    default:  // A, C and O
      page.credit += creditOf(record);
      break;
  }
}

static void addToSection(MoneySectionSums& section, const MoneyPageSums& page) {
  section.qty = wrappingSum(section.qty, page.qty);
  section.debit += page.debit;
  section.credit += page.credit;
  section.commission += page.commission;
}

// What is left of debit and credit; a debit of nothing where they are equal.
static MoneyNet netOf(double debit, double credit) {
  if (credit > debit) return {credit - debit, 'C'};
  return {debit - credit, 'D'};
}

// ---- Sections ---------------------------------------------------------------------------------------------------------

namespace {

struct Walk {
  Output& out;
  const AuctionStatement& statement;
  MoneyTotals& totals;
  MoneyPageSums page = {};
  MoneySectionSums section = {};
};

constexpr char noGroup = '\0';  // behind the last record

}  // namespace

static void closeReceived(Walk& walk, char nextGroup) {
  printReceivedPageTotal(walk.out, walk.page, isSpecialNotice(walk.statement.header));
  addToSection(walk.section, walk.page);
  if (!isReceivedGroup(nextGroup)) {
    printReceivedSummary(walk.out, walk.section, walk.statement.market.isLendingFile);
    walk.totals.buyerNet = netOf(walk.section.debit, walk.section.credit);
    walk.section = {};
  }
  walk.totals.totalDebit += walk.page.debit;
  walk.totals.totalCredit += walk.page.credit;
}

static void closeAuctioned(Walk& walk, char nextGroup) {
  printAuctionedPageTotal(walk.out, walk.page);
  addToSection(walk.section, walk.page);
  if (nextGroup != 'D') {
    printAuctionedSummary(walk.out, walk.section, walk.statement.market.isLendingFile);
    walk.totals.sellerNet = netOf(walk.section.debit + walk.section.commission, walk.section.credit);
    walk.section = {};
  }
  walk.totals.totalDebit += walk.page.debit;
  walk.totals.totalCredit += walk.page.credit;
  walk.totals.totalCommission += walk.page.commission;
}

static void closeOffers(Walk& walk) {
  walk.totals.totalCredit += walk.page.credit;
  walk.totals.offererCredit += walk.page.credit;
}

static void closeEntitlements(Walk& walk) {
  printEntitlementPageTotal(walk.out, walk.page);
  walk.totals.entitlementDebit += walk.page.entitlementDebit;
  walk.totals.entitlementCredit += walk.page.entitlementCredit;
  walk.totals.totalDebit += walk.page.entitlementDebit;
  walk.totals.totalCredit += walk.page.entitlementCredit;
}

// `group` is that of the last record on the page.
static void closePage(Walk& walk, char group, char nextGroup) {
  if (isReceivedGroup(group)) {
    closeReceived(walk, nextGroup);
  } else if (group == 'D') {
    closeAuctioned(walk, nextGroup);
  } else if (group == 'O') {
    closeOffers(walk);
  } else if (group == 'Z') {
    closeEntitlements(walk);
  }
}

static void openPage(Walk& walk, char group, int pageIndex) {
  printMoneyHeading(walk.out, walk.statement, pageIndex + 1);
  printMoneySectionHead(walk.out, walk.statement, group);
}

// The place of the next record of a group, from `place` on; the count where there is none.
static std::size_t nextListed(const MoneyRecords& records, std::size_t place) {
  while (place < records.count && !isMoneyGroup(records.groups[records.order[place]])) ++place;
  return place;
}

int printMoneySections(Output& out, const AuctionStatement& statement, const MoneyRecords& records, MoneyTotals& totals) {
  Walk walk = {out, statement, totals};
  std::size_t place = nextListed(records, 0);
  char section = place < records.count ? records.groups[records.order[place]] : noGroup;
  char previous = section;
  unsigned rows = 0;
  int pageIndex = 0;
  // The first page has its heading even where offers come first, which are listed in no section.
  openPage(walk, section, pageIndex);
  for (; place < records.count; place = nextListed(records, place + 1)) {
    fetchAhead(records.records, sizeof *records.records, {records.order, records.count}, place);
    const std::size_t position = records.order[place];
    const char group = records.groups[position];
    const bool beginsSection = group != section && (group == 'D' || group == 'O' || group == 'Z');
    if (rows >= statement.linesPerPage || beginsSection) {
      closePage(walk, previous, group);
      if (group != 'O') {
        print<"%c">(out, pageEnd);
        ++pageIndex;
      }
      rows = 0;
      walk.page = {};
      section = group;
      if (group != 'O') openPage(walk, section, pageIndex);
    }
    printMoneyRow(out, records.records[position], group);
    addToPage(walk.page, records.records[position], group);
    if (group != 'O') ++rows;
    previous = group;
  }
  closePage(walk, previous, noGroup);

  // Offers have no page of their own here: what follows them stands on the page of the section before.
  if (previous != 'O') ++pageIndex;
  if (pageIndex != 0) print<"%c">(out, pageEnd);
  print<"\n">(out);
  return pageIndex + 1;
}

int printMoneyOffers(Output& out, const AuctionStatement& statement, const Offers& offers, int page) {
  if (offers.count == 0) return page;
  const int lastPage = printOfferStatus(out, statement, OfferHeading::moneyStatement, offers, page);
  print<"%c">(out, pageEnd);
  return lastPage + 1;
}

// ---- Net position -----------------------------------------------------------------------------------------------------

// clang-format off

static void printNetPositionTitle(Output& out) {
  print<"\n\n\n\n\n\n\n\n%50sNET  POSITION">(out, " ");
  print<"\n%50s=============\n\n\n\n">(out, " ");
  print<"%58s%11s      %11s\n">(out, " ", "Debit", "Credit");
  print<"%58s%11s      %11s\n">(out, " ", "(Rs.)", "(Rs.)");
}

// A lending file that is none of an auction has no label here: the amount stands alone.
static void printBuyerLine(Output& out, const AuctionMarket& market, const MoneyNet& net) {
  if (!market.isLendingFile) {
    print<"\n\n%36sAs Buyer     :        ">(out, " ");
  } else if (market.isLendingAuctionFile) {
    print<"\n\n%26sAs Buy-In Borrower     :        ">(out, " ");
  }
  // Two blanks more between the columns of a debit than of a credit.
  if (net.side == 'C') {
    print<"%11s      %11.2f">(out, " ", net.amount / 100.0);
  } else {
    print<"%11.2f        %11s">(out, net.amount / 100.0, " ");
  }
}

static void printSellerLine(Output& out, const AuctionMarket& market, const MoneyNet& net) {
  if (!market.isLendingFile) {
    print<"\n\n%36sAs Seller    :        ">(out, " ");
  } else if (market.isLendingAuctionFile) {
    print<"\n\n%29sAs Buy-In Lender    :        ">(out, " ");
  }
  if (net.side == 'C') {
    print<"%11s      %11.2f">(out, " ", net.amount / 100.0);
  } else {
    print<"%11.2f      %11s">(out, net.amount / 100.0, " ");
  }
}

static void printOffererLine(Output& out, double credit) {
  print<"\n\n%36sAs Offerer   :        ">(out, " ");
  print<"%11s      %11.2f">(out, " ", credit / 100.0);
}

static void printEntitlementsLine(Output& out, double debit, double credit) {
  print<"\n\n%36sEntitlements :        ">(out, " ");
  print<"%11.2f">(out, debit / 100.0);
  print<"      %11.2f">(out, credit / 100.0);
}

// Entitlements are in the sums whether or not their line was shown.
static void printColumnSums(Output& out, const MoneyTotals& totals) {
  double debit = 0, credit = 0;
  for (const MoneyNet& net : {totals.buyerNet, totals.sellerNet}) (net.side == 'D' ? debit : credit) += net.amount;
  debit += totals.entitlementDebit;
  credit += totals.entitlementCredit;
  credit += totals.offererCredit;
  print<"%58s------------------------------\n">(out, " ");
  print<"%58s%11.2f      %11.2f">(out, " ", debit / 100.0, credit / 100.0);
  print<"\n\n\n\n">(out);
}

static void printBottomLine(Output& out, const MoneyTotals& totals) {
  if (totals.totalDebit + totals.totalCommission > totals.totalCredit) {
    print<"\n\n%37s =================================== \n">(out, " ");
    print<"%37s|  NET TO PAY  =  Rs. %13.2f |\n">(out, " ",
        (totals.totalDebit + totals.totalCommission - totals.totalCredit) / 100.0);
    print<"%37s =================================== \n\n">(out, " ");
  } else {
    print<"\n\n%35s ======================================= \n">(out, " ");
    print<"%35s|  NET TO RECEIVE  =  Rs. %13.2f |\n">(out, " ",
        (totals.totalCredit - totals.totalDebit - totals.totalCommission) / 100.0);
    print<"%35s ======================================= \n\n">(out, " ");
  }
}

// clang-format on

void printMoneyNetPosition(Output& out, const AuctionStatement& statement, const MoneyTotals& totals, int page) {
  print<"\n">(out);
  printMoneyHeading(out, statement, page);
  printNetPositionTitle(out);
  printBuyerLine(out, statement.market, totals.buyerNet);
  printSellerLine(out, statement.market, totals.sellerNet);
  printOffererLine(out, totals.offererCredit);
  if (isSpecialNotice(statement.header)) printEntitlementsLine(out, totals.entitlementDebit, totals.entitlementCredit);
  print<"\n">(out);
  printColumnSums(out, totals);
  printBottomLine(out, totals);
}

}  // namespace quillon
