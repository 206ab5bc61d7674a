#include "auction/bda_details_report.h"

#include "text/print.h"

namespace quillon {

// clang-format off

static void printHeading(Output& out, const AuctionStatement& statement, int page) {
  printListingExchangeLine(out, statement, page);
  print<"\n%7s%40s%9s%8ld\n">(out, "Name : ", statement.header.memberName, "Cl. No. ", statement.header.clearingNo);
  print<"\n%16s%11s\n">(out, " ", "BDA DETAILS");
  print<"%s">(out, hyphenRule(94));
  print<"\n|Scrip Code" "|  Bdc No  " "|Tot Auc Qty" "|Qty Auctioned" "|Qty Cl Out" "|Cl Out Rate" "| Auc Rate "
        "|Cl Out Val|\n">(out);
  print<"|----------" "|----------" "|-----------" "|-------------" "|----------" "|-----------" "|----------"
        "|----------|">(out);
}

// It begins with its own newline, as the titles' last rule has none.
static void printRow(Output& out, const ClbdRec& record) {
  print<"\n|%10ld|%10ld|%11ld|%13ld|%10ld|%8ld.%02ld|%7ld.%02ld|%7ld.%02ld|">(out, record.scripCode, record.bdcNo,
      record.totalAuctionQty, record.qtyAuctioned, record.qtyClosedOut, record.closeOutRate / 100, record.closeOutRate % 100,
      record.auctionRate / 100, record.auctionRate % 100, record.closeOutValue / 100, record.closeOutValue % 100);
}

static void closePage(Output& out) { print<"\n%s\n">(out, hyphenRule(94)); }

// clang-format on

void printBdaDetails(Output& out, const AuctionStatement& statement, const ClbdRec* records, std::size_t count) {
  int page = 1;
  unsigned rows = 0;
  printHeading(out, statement, page);
  for (std::size_t i = 0; i < count; ++i) {
    if (rows == statement.linesPerPage) {
      closePage(out);
      print<"%c">(out, pageEnd);
      rows = 0;
      ++page;
      printHeading(out, statement, page);
    }
    printRow(out, records[i]);
    ++rows;
  }
  closePage(out);
}

}  // namespace quillon
