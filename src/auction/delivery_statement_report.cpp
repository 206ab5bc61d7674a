#include "auction/delivery_statement_report.h"

#include <string_view>

#include "auction/index_sort.h"
#include "text/in_order.h"
#include "text/print.h"

namespace quillon {
namespace {

// Quantities of a page or of the whole statement, under the left and the right part of the table.
struct DeliverySums {
  std::int32_t receiveQty;
  std::int32_t deliverQty;
};

// What stands in the place of a counter-party's number where there is no counter-party.
constexpr std::int32_t closedOutMarker = -2;
constexpr std::int32_t compulsoryMarker = -3;

}  // namespace

RecordOrder deliveryOrder(const DelyRec* records, std::size_t count, AuctionSort sort) {
  constexpr RecordKey scripName = {KeyKind::text, offsetof(DelyRec, scripName), sizeof(DelyRec::scripName)};
  constexpr RecordKey scripCode = {KeyKind::number, offsetof(DelyRec, scripCode), sizeof(DelyRec::scripCode)};
  constexpr RecordKey brokerNo = {KeyKind::number, offsetof(DelyRec, brokerNo), sizeof(DelyRec::brokerNo)};
  constexpr RecordKey brokerName = {KeyKind::text, offsetof(DelyRec, brokerName), sizeof(DelyRec::brokerName)};
  constexpr RecordKey orderId = {KeyKind::number, offsetof(DelyRec, orderId), sizeof(DelyRec::orderId)};
  RecordKey first = scripName;
  if (sort == AuctionSort::scripCode) first = scripCode;
  if (sort == AuctionSort::memberId) first = brokerNo;
  if (sort == AuctionSort::oppMemberId) first = brokerName;
  return indexOrder({records, sizeof *records, count}, noGroups, {first, orderId});
}

// clang-format off

// ---- Heading ----------------------------------------------------------------------------------------------------------

// A lending file that is none of an auction has no notice line.
static void printNoticeLine(Output& out, const AuctionStatement& statement) {
  const AuctionMarket& market = statement.market;
  if (!market.isLendingFile) {
    print<"\n%60s%12s\n ">(out, "Details of Receive/Delivery Orders for VORT Auction Notice No. : ",
        statement.header.auctionNoticeNo);
  } else if (market.isLendingAuctionFile) {
    print<"\n%60s%12s\n ">(out, "Details of Receive/Delivery Orders for SLB Buyin Auction Notice No. : ",
        statement.header.auctionNoticeNo);
  }
}

// The line over the table, one column to the right, and the titles of its three parts. The delivery type's column is not there
// on lending files.
static void printPartTitles(Output& out, bool isLendingFile) {
  if (isLendingFile) {
    print<"%133s\n">(out, underscoreRule(132));
    print<"%1c%43s%1c%44s%1c%41s%1c\n">(out, bar, "                 RECEIVE   FROM             ", bar,
        "               SECURITY DETAILS             ", bar, "                 DELIVER TO              ", bar);
    print<"|%44s|%44s|%41s|\n">(out, underscoreRule(44), underscoreRule(44), underscoreRule(41));
  } else {
    print<"%137s\n">(out, underscoreRule(136));
    print<"%1c%43s%1c%48s%1c%41s%1c\n">(out, bar, "                 RECEIVE   FROM             ", bar,
        "               SECURITY DETAILS             ", bar, "                 DELIVER TO              ", bar);
    print<"|%44s|%48s|%41s|\n">(out, underscoreRule(44), underscoreRule(48), underscoreRule(41));
  }
}

// The rule under the column titles, which also closes a page.
static void printColumnRule(Output& out, bool isLendingFile) {
  print<"|%6s|%2s|%4s|%14s|%4s|%9s|">(out, underscoreRule(6), underscoreRule(2), underscoreRule(4), underscoreRule(14),
      underscoreRule(4), underscoreRule(9));
  if (!isLendingFile) print<"%3s|">(out, underscoreRule(3));
  print<"%11s|%7s|%13s|%10s|">(out, underscoreRule(11), underscoreRule(7), underscoreRule(13), underscoreRule(10));
  print<"%4s|%11s|%4s|%9s|%6s|%2s|\n">(out, underscoreRule(4), underscoreRule(11), underscoreRule(4), underscoreRule(9),
      underscoreRule(6), underscoreRule(2));
}

// Words that are shorter than their column stand at its right.
static void printColumnTitles(Output& out, bool isLendingFile) {
  print<"|%6s|%2s|%4s|%14s|%4s|%9s|">(out, "Delv. ", "Sb", "Brkr", "Broker", "*Own", "   Qty   ");
  if (!isLendingFile) print<"%3s|">(out, "Dlv");
  print<"%11s|%7s|%13s|%10s|">(out, " ClientId  ", " Code  ", "    Name     ", "   Std.   ");
  print<"%4s|%11s|%4s|%9s|%6s|%2s|\n">(out, "Brkr", "Broker", "Bank", "   Qty   ", "Delv. ", "Sb");

  print<"|%6s|%2s|%4s|%14s|%4s|%9s|">(out, "OrdId", "Id", " No.", "Bank", "Bank", "");
  if (!isLendingFile) print<"%3s|">(out, "Typ");
  print<"%11s|%7s|%13s|%10s|">(out, "", "", "", " Rate(Rs) ");
  print<"%4s|%11s|%4s|%9s|%6s|%2s|\n">(out, " No.", "Name", "Code", "", "OrdId", "Id");

  print<"|%6s|%2s|%4s|%14s|%4s|%9s|">(out, "", "", "", "", "", "");
  if (!isLendingFile) print<"%3s|">(out, "**");
  print<"%11s|%7s|%13s|%10s|">(out, "", "", "", "");
  print<"%4s|%11s|%4s|%9s|%6s|%2s|\n">(out, "", "", "", "", "", "");
}

static void printHeading(Output& out, const AuctionStatement& statement, int page) {
  const bool lending = statement.market.isLendingFile;
  print<"%18s\n">(out, "DELIVERY STATEMENT");
  print<"%27s%45s%12s%-14s%13s%-7d%7s%3d\n">(out, lending ? "KOR SHARE HOLDING LTD. " : "TARVEN STOCK EXCHANGE LTD. ", " ",
      " Run Date : ", statement.today, lending ? " SLB Sett. No. : " : " VORT Sett. No. : ", statement.header.settlementNo,
      " Page: ", page);
  printNoticeLine(out, statement);
  print<"\n%7s%40s%11s%8ld\n">(out, "Name : ", statement.header.memberName, " Cl. No. : ", statement.header.clearingNo);
  printPartTitles(out, lending);
  printColumnTitles(out, lending);
  printColumnRule(out, lending);
}

// ---- The parts of a row -----------------------------------------------------------------------------------------------

static std::string_view name11(const DelyRec& record) { return record.brokerName.view().substr(0, 11); }

static void printLeft(Output& out, const DelyRec& record) {
  print<"%1c%6ld%1c%2d%1c%4ld%1c%14s%1c%4ld%1c%9ld%1c">(out, bar, record.orderId, bar, record.subBrokerId, bar,
      record.brokerNo, bar, name11(record), bar, record.bankCode, bar, record.quantity, bar);
}

// A wording that is wider than its cell pushes the rest of the row to the right.
static void printMarkerLeft(Output& out, const DelyRec& record, const char* wording) {
  print<"%1c%6ld%1c%2d%c%4s%1c%-14s%1c%4s%1c%9ld%1c">(out, bar, record.orderId, bar, record.subBrokerId, bar, " ", bar,
      wording, bar, " ", bar, record.quantity, bar);
}

static void printEmptyLeft(Output& out) {
  print<"%1c%6s%1c%2s%c%4s%1c%14s%1c%4s%1c%9s%1c">(out, bar, " ", bar, " ", bar, " ", bar, " ", bar, " ", bar, " ", bar);
}

static void printMiddle(Output& out, const DelyRec& record, std::string_view clientId, bool isLendingFile) {
  if (isLendingFile) {
    print<"%11s%c%7ld%1c%13s%1c%10.2f%1c">(out, clientId, bar, record.scripCode, bar, record.scripName, bar,
        record.stdRate / 100.0, bar);
  } else {
    print<"%3s%c%11s%c%7ld%1c%13s%1c%10.2f%1c">(out, record.deliveryType, bar, clientId, bar, record.scripCode, bar,
        record.scripName, bar, record.stdRate / 100.0, bar);
  }
}

static void printRight(Output& out, const DelyRec& record) {
  print<"%4ld%1c%11s%1c%4ld%1c%9ld%1c%6ld%1c%2d%1c\n">(out, record.brokerNo, bar, name11(record), bar, record.bankCode, bar,
      record.quantity, bar, record.orderId, bar, record.subBrokerId, bar);
}

static void printEmptyRight(Output& out) {
  print<"%4s%1c%11s%1c%4s%1c%9s%1c%6s%1c%2s%1c\n">(out, " ", bar, " ", bar, " ", bar, " ", bar, " ", bar, " ", bar);
}

// Its quantity cell is two narrower.
static void printCompulsoryRight(Output& out) {
  print<"%4s%1c%11s%1c%4s%1c%7s%1c%6s%1c%2s%1c\n">(out, " ", bar, " ", bar, " ", bar, " ", bar, " ", bar, " ", bar);
}

// The second line of a compulsory row: what the first had no room for.
static void printCompulsorySecondLine(Output& out, const DelyRec& record, bool isLendingFile) {
  print<"%1c%6s%1c%2s%c%4s%1c%-7ld%1c%-16ld%1c%4s%1c%7s%1c">(out, bar, " ", bar, " ", bar, " ", bar, record.bdcNo / 100, '-',
      record.bdcNo % 100, bar, " ", bar, " ", bar);
  if (isLendingFile) {
    print<"%11s%c%7s%1c%13s%1c%10s%1c">(out, record.clientId, bar, " ", bar, " ", bar, " ", bar);
  } else {
    print<"%3s%c%11s%c%7s%1c%13s%1c%10s%1c">(out, record.deliveryType, bar, record.clientId, bar, " ", bar, " ", bar, " ", bar);
  }
  printEmptyRight(out);
}

// ---- Totals and footnotes ---------------------------------------------------------------------------------------------

static void closePage(Output& out, const DeliverySums& page, bool isLendingFile) {
  printColumnRule(out, isLendingFile);
  print<"%-36s%9ld%70s%9ld\n">(out, "PAGE TOTAL  : ", page.receiveQty, " ", page.deliverQty);
}

static void printGrandTotal(Output& out, const DeliverySums& total) {
  print<"%36s%9s%72s%9s\n">(out, " ", underscoreRule(9), " ", underscoreRule(9));
  print<"%-36s%9ld%72s%9ld\n">(out, "GRAND TOTAL :", total.receiveQty, " ", total.deliverQty);
}

// What the asterisks of the column titles point to.
static void printFirstFootnote(Output& out) { print<"\n\n* For Information only">(out); }

static void printFootnotes(Output& out, bool isLendingFile) {
  print<"\n  This is your own Bank Code.Shares of this Bank Code will be delivered by the">(out);
  print<"\n  Offeror to the Clearing House which in turn will deliver the same to the">(out);
  print<"\n  concerned Bank\n">(out);
  if (!isLendingFile) print<"\n** Delv Type C : CDS, N : NSDL, P : Physical, X : Closed Out\n">(out);
}

// clang-format on

// ---- Rows -------------------------------------------------------------------------------------------------------------

static void printCompulsoryRow(Output& out, const AuctionStatement& statement, const DelyRec& record) {
  const bool lending = statement.market.isLendingFile;
  printMarkerLeft(out, record, record.bankCode != 0 ? "Clearing House" : "Compulsory Closed Out");
  printMiddle(out, record, " ClientId", lending);
  printCompulsoryRight(out);
  if (isSpecialNotice(statement.header)) printCompulsorySecondLine(out, record, lending);
}

static void printReceivedRow(Output& out, const AuctionStatement& statement, const DelyRec& record, DeliverySums& sums) {
  const bool lending = statement.market.isLendingFile;
  sums.receiveQty = wrappingSum(sums.receiveQty, record.quantity);
  // What the member has to deliver to itself stands in both parts.
  if (record.brokerNo == statement.header.clearingNo) {
    printLeft(out, record);
    printMiddle(out, record, record.clientId.view(), lending);
    printRight(out, record);
    sums.deliverQty = wrappingSum(sums.deliverQty, record.quantity);
    return;
  }
  if (record.brokerNo == compulsoryMarker) return printCompulsoryRow(out, statement, record);
  if (record.brokerNo == closedOutMarker) {
    printMarkerLeft(out, record, record.bankCode != 0 ? "Clearing House" : "Closed Out");
  } else {
    printLeft(out, record);
  }
  printMiddle(out, record, record.clientId.view(), lending);
  printEmptyRight(out);
}

static void printDeliveredRow(Output& out, const AuctionStatement& statement, const DelyRec& record, DeliverySums& sums) {
  printEmptyLeft(out);
  printMiddle(out, record, record.clientId.view(), statement.market.isLendingFile);
  printRight(out, record);
  sums.deliverQty = wrappingSum(sums.deliverQty, record.quantity);
}

static void addPage(DeliverySums& total, const DeliverySums& page) {
  total.receiveQty = wrappingSum(total.receiveQty, page.receiveQty);
  total.deliverQty = wrappingSum(total.deliverQty, page.deliverQty);
}

void printDeliveryStatement(Output& out, const AuctionStatement& statement, const Deliveries& deliveries) {
  const bool lending = statement.market.isLendingFile;
  DeliverySums page = {}, total = {};
  int pageNumber = 1;
  unsigned row = 1;  // on its page
  printHeading(out, statement, pageNumber);
  for (std::size_t i = 0; i < deliveries.count; ++i) {
    fetchAhead(deliveries.records, sizeof *deliveries.records, {deliveries.order, deliveries.count}, i);
    const DelyRec& record = deliveries.records[deliveries.order[i]];
    if (row == statement.linesPerPage) {
      closePage(out, page, lending);
      ++pageNumber;
      row = 1;
      addPage(total, page);
      page = {};
      if (i + 1 < deliveries.count) printFirstFootnote(out);
      printFootnotes(out, lending);
      print<"%c">(out, pageEnd);
      printHeading(out, statement, pageNumber);
    }
    if (record.side == 'O') {
      printReceivedRow(out, statement, record, page);
      ++row;
    } else if (record.side == 'B') {
      printDeliveredRow(out, statement, record, page);
      ++row;
    }
  }
  closePage(out, page, lending);
  addPage(total, page);
  printGrandTotal(out, total);
  printFirstFootnote(out);
  printFootnotes(out, lending);
}

}  // namespace quillon
