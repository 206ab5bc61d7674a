// The offer status statement: which lead and tail a row has, its pages and its sums.
#include "auction/offer_status_report.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "auction/statement_cases.h"
#include "support/approved.h"

namespace quillon::test {
namespace {

std::vector<std::uint32_t> sortedOffers(const std::vector<OffsRec>& records, AuctionSort sort) {
  const RecordOrder order = offerOrder(records.data(), records.size(), sort);
  EXPECT_TRUE(order);
  return {order.positions().begin(), order.positions().end()};
}

std::string offerStatus(const OfferCase& c, int firstPage = 1, int* lastPage = nullptr) {
  const std::vector<OffsRec> records = offerRecords(c.offers);
  const std::vector<std::uint32_t> order = sortedOffers(records, c.sort);
  std::string text;
  Output* out = outputToMemory(&text);
  const AuctionStatement statement = {c.header, c.market, "05/06/2009", c.linesPerPage};
  const int last =
      printOfferStatus(*out, statement, OfferHeading::offerStatus, {records.data(), records.size(), order.data()}, firstPage);
  EXPECT_TRUE(outputClose(out));
  if (lastPage) *lastPage = last;
  return text;
}

std::string offerStatus(const std::vector<Offer>& offers, unsigned linesPerPage, int firstPage = 1, int* lastPage = nullptr) {
  return offerStatus({"", auctionHeader("A123"), exchangeMarket, linesPerPage, AuctionSort::scripCode, offers}, firstPage,
                     lastPage);
}

std::vector<std::string> rowsOf(const std::string& text) {
  std::vector<std::string> rows;
  for (const std::string& line : linesOf(withoutCarriageReturns(text))) {
    if (line.size() > 100 && line[0] == '|' && line.find("  C|") != std::string::npos) rows.push_back(line.substr(0, 67));
  }
  return rows;
}

TEST(OfferStatus, pagesStandAsApproved) {
  for (const OfferCase& c : offerCases()) expectApproved(std::string("auction/") + c.name + ".txt", offerStatus(c));
}

TEST(OfferStatus, sortsByNameOrCodeThenByRate) {
  const std::vector<OffsRec> records = offerRecords({
      {.scripCode = 2, .scripName = "A", .offerRate = 7},
      {.scripCode = -1, .scripName = "C", .offerRate = 5},
      {.scripCode = 2, .scripName = "A", .offerRate = -3},
      {.scripCode = 1, .scripName = "B", .offerRate = 1},
  });
  EXPECT_EQ(sortedOffers(records, AuctionSort::scripName), (std::vector<std::uint32_t>{2, 0, 3, 1}));
  EXPECT_EQ(sortedOffers(records, AuctionSort::scripCode), (std::vector<std::uint32_t>{1, 3, 2, 0}));
  EXPECT_EQ(sortedOffers(records, AuctionSort::memberId), sortedOffers(records, AuctionSort::scripName));
}

// The rates stand under the first row of a scrip, and its code again at the top of the next page.
TEST(OfferStatus, ratesStandOnceAScripAndTheCodeOnceAPage) {
  const Offer row = {.scripCode = 5, .scripName = "S", .stdRate = 100, .deliveryType = "C"};
  const std::vector<std::string> rows = rowsOf(offerStatus(std::vector<Offer>(3, row), 2));
  ASSERT_EQ(rows.size(), 3u);
  EXPECT_EQ(rows[0], "|     5|             S|      1.00|             0.00|          0.00|");
  EXPECT_EQ(rows[1], "|      |              |          |                 |              |");
  EXPECT_EQ(rows[2], "|     5|             S|          |                 |              |");
}

// No scrip has the code 0, with which the rows before the first one count.
TEST(OfferStatus, firstOfferWithoutACodeHasNoRates) {
  const std::vector<std::string> rows =
      rowsOf(offerStatus({{.scripCode = 0, .scripName = "S", .stdRate = 100, .deliveryType = "C"},
                          {.scripCode = 1, .scripName = "S", .stdRate = 100, .deliveryType = "C"}},
                         40));
  ASSERT_EQ(rows.size(), 2u);
  EXPECT_EQ(rows[0], "|     0|             S|          |                 |              |");
  EXPECT_EQ(rows[1], "|     1|             S|      1.00|             0.00|          0.00|");
}

TEST(OfferStatus, lastPageIsToldAndNoFormFeedFollowsIt) {
  const std::vector<Offer> offers(4, Offer{.scripCode = 1});
  int last = 0;
  EXPECT_FALSE(offerStatus(offers, 4, 7, &last).ends_with('\f'));
  EXPECT_EQ(last, 7);
  offerStatus(offers, 3, 7, &last);
  EXPECT_EQ(last, 8);
  offerStatus(offers, 1, 1, &last);
  EXPECT_EQ(last, 4);
}

TEST(OfferStatus, pageOfExactlyItsRowsIsNotFollowedByAnother) {
  const std::string text = offerStatus(std::vector<Offer>(2, Offer{.scripCode = 1}), 2);
  EXPECT_EQ(text.find('\f'), std::string::npos);
}

// The credit of a page has no unit; the grand total's has.
TEST(OfferStatus, onlyTheGrandTotalCarriesRupees) {
  const std::string text =
      withoutCarriageReturns(offerStatus({{.scripCode = 1, .qtyOffered = 3, .qtyAccepted = 2, .creditValue = 150}}, 40));
  const std::vector<std::string> lines = linesOf(text);
  ASSERT_GE(lines.size(), 5u);
  const std::size_t end = lines.size() - 1;  // behind the last line feed
  EXPECT_EQ(lines[end], "");
  EXPECT_EQ(lines[end - 1], std::string(109, ' ') + "(Rs)\n");
}

TEST(OfferStatus, quantitiesWrapAt32Bits) {
  const std::vector<Offer> offers(2, Offer{.scripCode = 1, .qtyOffered = 2147483647, .qtyAccepted = -2147483647});
  const std::string text = offerStatus(offers, 40);
  EXPECT_NE(text.find("           -2                       2|"), std::string::npos);
}

}  // namespace
}  // namespace quillon::test
