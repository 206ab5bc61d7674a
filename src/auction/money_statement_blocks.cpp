#include "auction/money_statement_blocks.h"

#include "text/print.h"

namespace quillon {

// clang-format off

// ---- Headings ---------------------------------------------------------------------------------------------------------

void printMoneyHeading(Output& out, const AuctionStatement& statement, int page) {
  const AuctionHeader& header = statement.header;
  const AuctionMarket& market = statement.market;
  if (isSpecialNotice(header)) {
    print<"\n%26s  %11s%10s %15s%15s%d\n">(out, auctionExchange(market), "Run Date : ", statement.today, "", "Page : ", page);
  } else {
    print<"\n%26s  %11s%10s  %13s%2d%15s%d\n">(out, auctionExchange(market), "Run Date : ", statement.today,
        market.isLendingFile ? "SLB Sett. No. : " : "VORT Sett. No. : ", header.settlementNo, "Page : ", page);
  }
  // A lending file that is none of an auction names neither notice nor member.
  if (market.isLendingFile && !market.isLendingAuctionFile) return;
  if (market.isLendingFile) {
    print<"\n%40s%12s%5s%14s%d\n">(out, "MONEY  STATEMENT for SLB Buyin Auction Notice No. ", header.auctionNoticeNo, "",
        "SLB Buyin Auction No. : ", header.auctionNo);
  } else {
    print<"\n%40s%12s%5s%14s%d\n">(out, "MONEY  STATEMENT for VORT Auction Notice No. ", header.auctionNoticeNo, "",
        "VORT Auction No. : ", header.auctionNo);
  }
  print<"\n%7s%40s%9s%8ld\n">(out, "Name : ", header.memberName, "Cl. No. ", header.clearingNo);
}

// Each row of the titles begins on a new line; the last one ends its own.
static void printReceivedHead(Output& out, bool special) {
  const auto emptyRow = [&] {
    print<"\n|         " "|              " "|    " "|         " "|         " "|         " "|              " "|              "
          "|          " "|    ">(out);
    print<"%s">(out, special ? "|          |" : "|");
  };
  print<"\n %s">(out, underscoreRule(special ? 116 : 105));
  emptyRow();
  print<"\n|ScripCode" "|   ScripName  " "|Bank" "|   Qty   " "|Std. Rate" "| CloseOut" "|    Debit     " "|    Credit    "
        "|  Comment " "|Type">(out);
  print<"%s">(out, special ? "|  BDC No. |" : "|");
  print<"\n|         " "|              " "|Code" "|         " "|  (Rs.)  " "|  (Rs.)  " "|     (Rs.)    " "|     (Rs.)    "
        "|          " "|    ">(out);
  print<"%s">(out, special ? "|          |" : "|");
  print<"\n|=========" "|==============" "|====" "|=========" "|=========" "|=========" "|==============" "|=============="
        "|==========" "|====">(out);
  print<"%s">(out, special ? "|==========|" : "|");
  emptyRow();
  print<"\n">(out);
}

static void printAuctionedHead(Output& out) {
  const auto emptyRow = [&] {
    print<"\n|         " "|              " "|    " "|         " "|        " "|        " "|           " "|           "
          "|         |">(out);
  };
  print<"\n %s">(out, underscoreRule(91));
  emptyRow();
  print<"\n|ScripCode" "|  ScripName   " "|Bank" "|   Qty   " "|Auc Rate" "|Std Rate" "|   Debit   " "|   Credit  "
        "|Auc Comm |">(out);
  print<"\n|         " "|              " "|Code" "|         " "|  (Rs.) " "|  (Rs.) " "|    (Rs.)  " "|    (Rs.)  "
        "|  (Rs.)  |">(out);
  print<"\n|=========" "|==============" "|====" "|=========" "|========" "|========" "|===========" "|==========="
        "|=========|">(out);
  emptyRow();
  print<"\n">(out);
}

// Its rows begin with their own newline, so that the last row of the titles has none.
static void printEntitlementHead(Output& out) {
  const auto emptyRow = [&] { print<"\n|          " "|          " "|               " "|               |">(out); };
  print<"\n %s">(out, underscoreRule(53));
  emptyRow();
  print<"\n|  Bdc No. " "|   Type   " "|    Debit      " "|    Credit     |">(out);
  print<"\n|          " "|          " "|     (Rs.)     " "|     (Rs.)     |">(out);
  print<"\n|==========" "|==========" "|===============" "|===============|">(out);
  emptyRow();
}

void printMoneySectionHead(Output& out, const AuctionStatement& statement, char group) {
  const bool lending = statement.market.isLendingFile;
  const bool special = isSpecialNotice(statement.header);
  if (isReceivedGroup(group)) {
    print<"\n%16s%48s">(out, " ", lending ? "SECURITIES TO BE RECEIVED  (Against your Borrowing)"
                                          : "SECURITIES TO BE RECEIVED  (Against your Purchase)");
    printReceivedHead(out, special);
  } else if (group == 'D') {
    print<"\n%17s%48s">(out, " ", lending ? "SECURITIES TO BE AUCTIONED  (Against your Lending)"
                                          : "SECURITIES TO BE AUCTIONED  (Against your Sales)");
    printAuctionedHead(out);
  } else if (group == 'Z') {
    if (special) print<"\n%17s%13s">(out, " ", "ENTITLEMENTS ");
    printEntitlementHead(out);
  }
}

// ---- Rows -------------------------------------------------------------------------------------------------------------

static void printReceivedLead(Output& out, const MonyRec& record) {
  print<"|%9ld|%14s|%4ld|%9ld|%6ld.%02ld|%6ld.%02ld|">(out, record.scripCode, record.scripName, record.bankCode,
      record.quantity, record.stdRate / 100, record.stdRate % 100, record.closeOutRate / 100, record.closeOutRate % 100);
}

static void printDebitRow(Output& out, const MonyRec& record) {
  printReceivedLead(out, record);
  if (record.bdcNo == 0) {
    print<"%11ld.%02hd|%12s|%10s|%4s|%10s|\n">(out, record.debitRupees, record.debitPaise, " ", " ", " ", " ");
  } else {
    print<"%11ld.%02hd|%12s|%10s|%4s|%7ld%1c%2ld|\n">(out, record.debitRupees, record.debitPaise, " ", " ", " ",
        record.bdcNo / 100, '-', record.bdcNo % 100);
  }
}

// Without a BDC number it has no last cell, and its blank is two narrower.
static void printCcRow(Output& out, const MonyRec& record) {
  printReceivedLead(out, record);
  if (record.bdcNo == 0) {
    print<"%12s|%11ld.%02hd|%10s|%4s|\n">(out, " ", record.creditRupees, record.creditPaise, " ", "CC");
  } else {
    print<"%14s|%11ld.%02hd|%10s|%4s|%7ld%1c%2ld|\n">(out, " ", record.creditRupees, record.creditPaise, " ", "CC",
        record.bdcNo / 100, '-', record.bdcNo % 100);
  }
}

static void printClosedOutRow(Output& out, const MonyRec& record) {
  printReceivedLead(out, record);
  if (record.bdcNo == 0) {
    print<"%14s|%11ld.%02hd|%10s|%4s|%10s|\n">(out, " ", record.creditRupees, record.creditPaise, " ClosedOut", " ", " ");
  } else {
    print<"%14s|%11ld.%02hd|%10s|%4s|%7ld%1c%2ld|\n">(out, " ", record.creditRupees, record.creditPaise, " ClosedOut", " ",
        record.bdcNo / 100, '-', record.bdcNo % 100);
  }
}

static void printAuctionedRow(Output& out, const MonyRec& record) {
  print<"|%9ld|%14s|%4ld|%9ld|">(out, record.scripCode, record.scripName, record.bankCode, record.quantity);
  print<"%5ld.%02ld|%5ld.%02ld|">(out, record.auctionRate / 100, record.auctionRate % 100, record.stdRate / 100,
      record.stdRate % 100);
  if (isAuctionedCredit(record)) {
    print<"%9s|%8ld.%02hd|">(out, " ", record.creditRupees, record.creditPaise);
  } else {
    print<"%8ld.%02hd|%11s|">(out, record.debitRupees, record.debitPaise, " ");
  }
  print<"%6ld.%02ld|\n">(out, record.auctionCommission / 100, record.auctionCommission % 100);
}

static void printEntitlementRow(Output& out, const MonyRec& record) {
  print<"\n|%7ld%1c%2ld">(out, record.bdcNo / 100, '-', record.bdcNo % 100);
  print<"|%10s">(out, entitlementWord(record.entryType));
  print<"|%12ld.%02hd|%12ld.%02hd|">(out, record.debitRupees, record.debitPaise, record.creditRupees, record.creditPaise);
}

void printMoneyRow(Output& out, const MonyRec& record, char group) {
  switch (group) {
    case 'A':
      return printCcRow(out, record);
    case 'B':
      return printDebitRow(out, record);
    case 'C':
      return printClosedOutRow(out, record);
    case 'D':
      return printAuctionedRow(out, record);
    case 'Z':
      return printEntitlementRow(out, record);
    default:
      return;
  }
}

// ---- Totals -----------------------------------------------------------------------------------------------------------

void printReceivedPageTotal(Output& out, const MoneyPageSums& page, bool specialNotice) {
  print<"|---------|--------------|----">(out);
  if (specialNotice) {
    print<"|---------|-------------------|--------------|--------------|--------------------------|\n">(out);
  } else {
    print<"|---------|-------------------|--------------|--------------|---------------|\n">(out);
  }
  print<"%10s%20s|%9ld|%6s %2s %6s %2s|%14.2f|%14.2f|\n">(out, "Page Total", " ", page.qty, " ", " ", " ", " ",
      page.debit / 100.0, page.credit / 100.0);
  print<"%30s|_________|%19s|______________|______________|">(out, " ", " ");
}

void printReceivedSummary(Output& out, const MoneySectionSums& section, bool isLendingFile) {
  if (isLendingFile) {
    print<"\n\n%30s  Borrower  %19s   Borrower        Borrower      \n">(out, " ", " ");
    print<"%30s   Qty   %25s Debt.(Rs)       Crdt.(Rs)   \n">(out, " ", " ");
  } else {
    print<"\n\n%30s  Buyer  %19s   Buyer          Buyer      \n">(out, " ", " ");
    print<"%30s   Qty   %19s Debt.(Rs)       Crdt.(Rs)   \n">(out, " ", " ");
  }
  print<"%31s_______%21s_____________________________ \n">(out, " ", " ");
  print<"%30s|%9ld|%19s|%14.2f|%14.2f|\n">(out, " ", section.qty, " ", section.debit / 100.0, section.credit / 100.0);
  print<"%30s|_________|%19s|______________|______________|\n">(out, " ", " ");
}

static void printAuctionedRule(Output& out) { print<"%30s|_________|%17s|___________|___________|_________|\n">(out, " ", " "); }

void printAuctionedPageTotal(Output& out, const MoneyPageSums& page) {
  print<" -----------------------------|---------|-----------------|-----------|-----------|---------|\n">(out);
  print<"%10s %19s|%9ld|%5s %2s %5s %2s|">(out, "Page Total", " ", page.qty, " ", " ", " ", " ");
  print<"%11.2f|%11.2f|">(out, page.debit / 100.0, page.credit / 100.0);
  print<"%9.2f|\n">(out, page.commission / 100.0);
  printAuctionedRule(out);
}

void printAuctionedSummary(Output& out, const MoneySectionSums& section, bool isLendingFile) {
  if (isLendingFile) {
    print<"\n\n%30s Lender                    Lender      Lender      Lender   ">(out, " ");
  } else {
    print<"\n\n%30s Seller                    Seller      Seller      Seller   ">(out, " ");
  }
  print<"\n%30s   Qty                     Debt(Rs)    Crdt(Rs)    Commi(Rs)">(out, " ");
  print<"\n%30s -------                   ----------- ----------- --------- \n">(out, " ");
  print<"%30s|%9ld|%17s|%11.2f|%11.2f|%9.2f|\n">(out, " ", section.qty, " ", section.debit / 100.0, section.credit / 100.0,
      section.commission / 100.0);
  printAuctionedRule(out);
}

void printEntitlementPageTotal(Output& out, const MoneyPageSums& page) {
  print<"\n|----------|----------" "|---------------|---------------|\n">(out);
  print<"%10s%12s|%15.2f|%15.2f|\n">(out, "Page Total", " ", page.entitlementDebit / 100.0, page.entitlementCredit / 100.0);
  print<"%22s|_______________|_______________|\n">(out, " ");
}

// clang-format on

}  // namespace quillon
