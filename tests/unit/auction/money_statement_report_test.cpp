// The money statement: order, sections, sums and the net position.
#include "auction/money_statement_report.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "auction/statement_cases.h"
#include "support/approved.h"

namespace quillon::test {
namespace {

std::vector<char> groupsOf(const std::vector<MonyRec>& records) {
  std::vector<char> groups;
  for (const MonyRec& record : records) groups.push_back(moneyGroup(record.entryType));
  return groups;
}

std::string caseStatement(const MoneyCase& c, MoneyTotals* totals = nullptr) {
  const AuctionStatement statement = {c.header, c.market, "05/06/2009", c.linesPerPage};
  const std::vector<MonyRec> records = moneyRecords(c.entries);
  const std::vector<char> groups = groupsOf(records);
  const RecordOrder order = moneyOrder(records.data(), groups.data(), records.size(), c.sort);
  EXPECT_TRUE(order);
  const std::vector<OffsRec> offers = offerRecords(c.offers);
  std::string text;
  Output* out = outputToMemory(&text);
  MoneyTotals sums;
  int page = printMoneySections(*out, statement, {records.data(), groups.data(), order.memory.get(), records.size()}, sums);
  page = printMoneyOffers(*out, statement, {offers.data(), offers.size(), nullptr}, page);
  printMoneyNetPosition(*out, statement, sums, page);
  EXPECT_TRUE(outputClose(out));
  if (totals) *totals = sums;
  return text;
}

std::string moneyStatement(const std::vector<Entry>& entries, unsigned linesPerPage = 40, MoneyTotals* totals = nullptr,
                           const std::vector<Offer>& offers = {}) {
  return caseStatement({"", auctionHeader("A123"), exchangeMarket, linesPerPage, AuctionSort::scripName, entries, offers},
                       totals);
}

std::size_t countOf(const std::string& text, const std::string& piece) {
  std::size_t count = 0;
  for (std::size_t at = text.find(piece); at != std::string::npos; at = text.find(piece, at + piece.size())) ++count;
  return count;
}

bool holds(const std::string& text, const std::string& piece) { return text.find(piece) != std::string::npos; }

// Every section, notice class and market, both bottom lines, values narrower and wider than their cells.
TEST(MoneyStatement, pagesStandAsApproved) {
  for (const MoneyCase& c : moneyCases()) expectApproved(std::string("auction/") + c.name + ".txt", caseStatement(c));
}

// ---- Order ------------------------------------------------------------------------------------------------------------

std::vector<std::uint32_t> orderOf(const std::vector<Entry>& entries, AuctionSort sort) {
  const std::vector<MonyRec> records = moneyRecords(entries);
  const std::vector<char> groups = groupsOf(records);
  const RecordOrder order = moneyOrder(records.data(), groups.data(), records.size(), sort);
  EXPECT_TRUE(order);
  return {order.positions().begin(), order.positions().end()};
}

const std::vector<Entry> mixedEntries = {
    {"DI", 1, "A"}, {"O", 2, "A"}, {"D", 3, "A"}, {"C", -4, "Z"}, {"B", 5, "M"}, {"C", 6, "B"}, {"CC", 7, "Z"}, {"CC", 8, "A"},
};

TEST(MoneyOrder, isAThenBAndCMixedThenDOAndZByScripName) {
  EXPECT_EQ(orderOf(mixedEntries, AuctionSort::scripName), (std::vector<std::uint32_t>{7, 6, 5, 4, 3, 2, 1, 0}));
}

TEST(MoneyOrder, scripCodesCompareAsSignedNumbers) {
  EXPECT_EQ(orderOf(mixedEntries, AuctionSort::scripCode), (std::vector<std::uint32_t>{6, 7, 3, 4, 5, 2, 1, 0}));
}

TEST(MoneyOrder, sortsOfTheDeliveryStatementAreTakenAsScripName) {
  EXPECT_EQ(orderOf(mixedEntries, AuctionSort::memberId), orderOf(mixedEntries, AuctionSort::scripName));
  EXPECT_EQ(orderOf(mixedEntries, AuctionSort::oppMemberId), orderOf(mixedEntries, AuctionSort::scripName));
}

// ---- Sums -------------------------------------------------------------------------------------------------------------

TEST(MoneySums, rupeesAndPaiseAreAddedPerGroup) {
  MoneyTotals totals;
  const std::string text = moneyStatement(
      {
          {.type = "CC", .debitRupees = 1000, .creditRupees = 10, .creditPaise = 1},
          {.type = "B", .debitRupees = 20, .debitPaise = 2, .creditRupees = 1000},
          {.type = "C", .debitRupees = 1000, .creditRupees = 30, .creditPaise = 3},
          {.type = "D", .debitRupees = 40, .debitPaise = 4, .creditRupees = 1000, .auctionCommission = 11},
          {.type = "D", .debitRupees = 0, .debitPaise = 0, .creditRupees = 50, .creditPaise = 5, .auctionCommission = 12},
          {.type = "O", .debitRupees = 1000, .creditRupees = 60, .creditPaise = 6, .auctionCommission = 1000},
          {.type = "DI", .debitRupees = 70, .debitPaise = 7, .creditRupees = 80, .creditPaise = 8, .auctionCommission = 1000},
      },
      40, &totals);
  EXPECT_EQ(totals.totalDebit, 2002.0 + 4004.0 + 7007.0);
  EXPECT_EQ(totals.totalCredit, 1001.0 + 3003.0 + 5005.0 + 6006.0 + 8008.0);
  EXPECT_EQ(totals.totalCommission, 23.0);
  EXPECT_EQ(totals.buyerNet.amount, 1001.0 + 3003.0 - 2002.0);
  EXPECT_EQ(totals.buyerNet.side, 'C');
  EXPECT_EQ(totals.sellerNet.amount, 5005.0 - 4004.0 - 23.0);
  EXPECT_EQ(totals.sellerNet.side, 'C');
  EXPECT_EQ(totals.offererCredit, 6006.0);
  EXPECT_EQ(totals.entitlementDebit, 7007.0);
  EXPECT_EQ(totals.entitlementCredit, 8008.0);
  EXPECT_TRUE(holds(text, "|  NET TO RECEIVE  =  Rs.         99.87 |"));  // 23023 - 13013 - 23 paise
}

TEST(MoneySums, ofASectionGoOnOverItsPagesAndStartAnewWithTheNext) {
  MoneyTotals totals;
  const std::string text = moneyStatement(
      {
          {.type = "B", .scripName = "A", .quantity = 1, .debitRupees = 1},
          {.type = "B", .scripName = "B", .quantity = 2, .debitRupees = 2},
          {.type = "B", .scripName = "C", .quantity = 3, .debitRupees = 4},
          {.type = "D", .scripName = "A", .quantity = 4, .debitRupees = 8},
          {.type = "D", .scripName = "B", .quantity = 5, .debitRupees = 16},
      },
      1, &totals);
  EXPECT_EQ(totals.buyerNet.amount, 700.0);
  EXPECT_EQ(totals.sellerNet.amount, 2400.0);
  EXPECT_TRUE(holds(text, "|        6|                   |          7.00|          0.00|"));
  EXPECT_TRUE(holds(text, "|        9|                 |      24.00|       0.00|     0.00|"));
  EXPECT_EQ(countOf(text, "Crdt.(Rs)"), 1u);
  EXPECT_EQ(countOf(text, "Commi(Rs)"), 1u);
}

TEST(MoneySums, statementOfReceivedSecuritiesAloneHasASellerOfNothingUnderDebit) {
  MoneyTotals totals;
  const std::string text = moneyStatement({{"CC"}, {"B", 1, "A", 0, 0, 0, 0, 0, 5}, {"C"}}, 40, &totals);
  EXPECT_EQ(totals.sellerNet.amount, 0.0);
  EXPECT_EQ(totals.sellerNet.side, 'D');
  EXPECT_TRUE(holds(text, "As Seller    :               0.00                 \r\n"));
}

TEST(MoneySums, debitEqualToTheCreditIsADebitOfNothingAndNothingToReceive) {
  const std::string text = moneyStatement({
      {.type = "B", .debitRupees = 12, .debitPaise = 34},
      {.type = "C", .creditRupees = 12, .creditPaise = 34},
      {.type = "D", .debitRupees = 1, .auctionCommission = 50},
      {.type = "D", .creditRupees = 1, .creditPaise = 50},
  });
  EXPECT_TRUE(holds(text, "As Buyer     :               0.00                   \r\n"));
  EXPECT_TRUE(holds(text, "As Seller    :               0.00                 \r\n"));
  EXPECT_TRUE(holds(text, "|  NET TO RECEIVE  =  Rs.          0.00 |"));
}

// The commission alone turns the balance.
TEST(MoneySums, commissionIsPaid) {
  const std::string text = moneyStatement({{.type = "D", .creditRupees = 1, .auctionCommission = 101}});
  EXPECT_TRUE(holds(text, "|  NET TO PAY  =  Rs.          0.01 |"));
}

TEST(MoneySums, auctionedSecurityIsACreditOnlyWhereItsDebitIsNothing) {
  struct Case {
    std::int32_t rupees;
    std::int16_t paise;
    bool credit;
  };
  for (const Case& c :
       {Case{0, 0, true}, Case{0, 1, false}, Case{1, 0, false}, Case{-1, 0, true}, Case{0, -1, true}, Case{-1, 1, false}}) {
    MoneyTotals totals;
    moneyStatement({{.type = "D", .debitRupees = c.rupees, .debitPaise = c.paise, .creditRupees = 7}}, 40, &totals);
    EXPECT_EQ(totals.totalCredit, c.credit ? 700.0 : 0.0) << c.rupees << " " << c.paise;
    EXPECT_EQ(totals.totalDebit, c.credit ? 0.0 : c.rupees * 100.0 + c.paise) << c.rupees << " " << c.paise;
  }
}

TEST(MoneySums, quantitiesWrapAt32Bits) {
  const std::string text = moneyStatement({{.type = "B", .quantity = 2147483647}, {.type = "B", .quantity = 2}});
  EXPECT_TRUE(holds(text, "Page Total                    |-2147483647|"));
}

// ---- Pages ------------------------------------------------------------------------------------------------------------

std::vector<Entry> rowsOf(const char* type, std::size_t count) { return std::vector<Entry>(count, Entry{type, 1, "SCRIP"}); }

TEST(MoneyPages, rowThatFillsTheLastPageStartsNoOther) {
  EXPECT_EQ(countOf(moneyStatement(rowsOf("B", 2), 2), "SECURITIES TO BE RECEIVED"), 1u);
  EXPECT_EQ(countOf(moneyStatement(rowsOf("B", 3), 2), "SECURITIES TO BE RECEIVED"), 2u);
  EXPECT_EQ(countOf(moneyStatement(rowsOf("B", 4), 2), "SECURITIES TO BE RECEIVED"), 2u);
}

// The page is full and the group is new: one close serves both.
TEST(MoneyPages, fullPageAndNewGroupCloseOnce) {
  std::vector<Entry> entries = rowsOf("B", 2);
  entries.push_back({"D", 1, "SCRIP"});
  const std::string text = moneyStatement(entries, 2);
  EXPECT_EQ(countOf(text, "Page Total"), 2u);
  EXPECT_EQ(countOf(text, "\f"), 2u);
  EXPECT_EQ(countOf(text, "Crdt.(Rs)"), 1u);
}

TEST(MoneyPages, groupsOfTheReceivedSectionShareAPage) {
  const std::string text = moneyStatement({{"CC"}, {"B"}, {"C"}});
  EXPECT_EQ(countOf(text, "Page Total"), 1u);
  EXPECT_EQ(countOf(text, "SECURITIES TO BE RECEIVED"), 1u);
}

// Offers behind an auctioned section have no page: the status of offers bears the number of the section's last page, and where
// that is page 1 no form feed stands between them.
TEST(MoneyPages, offersBehindASectionDoNotRaiseThePage) {
  const std::string text = moneyStatement({{"D"}, {"O"}}, 40, nullptr, {{1, "SCRIP"}});
  EXPECT_EQ(countOf(text, "Page : 1\r\n"), 1u);
  EXPECT_EQ(countOf(text, " Page:   1\r\n"), 1u);
  EXPECT_LT(text.find("STATUS  OF  OFFERS"), text.find('\f'));
  EXPECT_EQ(countOf(text, "\f"), 1u);
  EXPECT_EQ(countOf(text, "Page : 2\r\n"), 1u);

  const std::string later = moneyStatement({{"B"}, {"D"}, {"O"}}, 40, nullptr, {{1, "SCRIP"}});
  EXPECT_EQ(countOf(later, "Page : 2\r\n"), 1u);
  EXPECT_EQ(countOf(later, " Page:   2\r\n"), 1u);
}

TEST(MoneyPages, offersFillNoPage) {
  std::vector<Entry> entries = rowsOf("D", 1);
  for (const Entry& entry : rowsOf("O", 9)) entries.push_back(entry);
  MoneyTotals totals;
  const std::string text = moneyStatement(entries, 1, &totals);
  EXPECT_EQ(countOf(text, "Page Total"), 1u);
  EXPECT_EQ(countOf(text, "Page : "), 2u);
}

TEST(MoneyPages, entriesOfNoGroupPrintNothingAndDoNotCount) {
  const std::vector<Entry> known = {{"CC", 1, "A", 0, 5}, {"B", 2, "B", 0, 6}, {"D", 3, "C", 0, 7}, {"DI", 4, "D", 0, 8}};
  std::vector<Entry> mixed = known;
  for (const char* type : {"", "1", "A", "AB", "E", "N", "P", "X", "Z", "ZZ", "b"}) {
    mixed.push_back({type, 9, "M", 9, 999, 1, 1, 1, 999, 1, 999, 1, 999, 999});
  }
  EXPECT_EQ(moneyStatement(mixed, 1), moneyStatement(known, 1));
}

// A member who only offered: the first page shows who and which notice, and the offers follow on it.
TEST(MoneyPages, memberWhoOnlyOfferedHasAPageWithoutASection) {
  MoneyTotals totals;
  const std::string text = moneyStatement(offersOnly(), 40, &totals, {{1, "SCRIP"}});
  EXPECT_EQ(totals.offererCredit, 8535030.0);
  EXPECT_EQ(totals.totalCredit, 8535030.0);
  EXPECT_FALSE(holds(text, "SECURITIES TO BE"));
  EXPECT_LT(text.find("Page : 1\r\n"), text.find("STATUS  OF  OFFERS"));
  EXPECT_LT(text.find("STATUS  OF  OFFERS"), text.find('\f'));
}

TEST(MoneyPages, entitlementsBehindOffersBeginAPage) {
  const std::string text = moneyStatement(offersThenEntitlements());
  EXPECT_LT(text.find("Page : 1\r\n"), text.find('\f'));
  EXPECT_LT(text.find('\f'), text.find("Page : 2\r\n"));
  EXPECT_TRUE(holds(text, "Dividend"));
}

TEST(MoneyPages, noOffersPrintNoStatus) {
  const std::string text = moneyStatement(std::vector<Entry>{{"B"}});
  EXPECT_FALSE(holds(text, "STATUS  OF  OFFERS"));
  EXPECT_EQ(countOf(text, "Page : 2\r\n"), 1u);
  EXPECT_FALSE(text.ends_with('\f'));
}

TEST(MoneyPages, pagesAreNumberedThroughOffersToTheNetPosition) {
  const std::vector<Offer> offers(5, Offer{1, "SCRIP"});
  const std::string text = moneyStatement(rowsOf("B", 3), 2, nullptr, offers);
  for (const char* number :
       {"Page : 1\r\n", "Page : 2\r\n", " Page:   3\r\n", " Page:   4\r\n", " Page:   5\r\n", "Page : 6\r\n"}) {
    EXPECT_EQ(countOf(text, number), 1u) << number;
  }
  EXPECT_EQ(countOf(text, "\f"), 5u);
}

// The offers stand in the order of their file here, so a scrip's rates come again at each change of scrip.
TEST(MoneyPages, offersStandInFileOrder) {
  const std::string text =
      moneyStatement({{"B"}}, 40, nullptr, {{2, "BETA"}, {1, "ALPHA"}, {2, "BETA"}, {1, "ALPHA"}, {1, "ALPHA"}});
  EXPECT_EQ(countOf(text, "|     2|          BETA|      0.00|"), 2u);
  EXPECT_EQ(countOf(text, "|     1|         ALPHA|      0.00|"), 2u);
  EXPECT_EQ(countOf(text, "|      |              |          |"), 1u);
}

}  // namespace
}  // namespace quillon::test
