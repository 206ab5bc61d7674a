// The two listings, BDA details and rejected entitlements: their pages, and what a change of reason does to them.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "auction/bda_details_report.h"
#include "auction/delivery_cases.h"
#include "auction/rejected_entitlements_report.h"
#include "support/approved.h"

namespace quillon::test {
namespace {

std::string bdaDetails(const CloseOutCase& c) {
  const std::vector<ClbdRec> records = closeOutRecords(c.closeOuts);
  std::string text;
  Output* out = outputToMemory(&text);
  printBdaDetails(*out, {c.header, c.market, "05/06/2009", c.linesPerPage}, records.data(), records.size());
  EXPECT_TRUE(outputClose(out));
  return text;
}

std::string rejectedEntitlements(const EntitlementCase& c) {
  const std::vector<EntlRec> records = entitlementRecords(c.entitlements);
  std::string text;
  Output* out = outputToMemory(&text);
  printRejectedEntitlements(*out, {c.header, c.market, "05/06/2009", c.linesPerPage}, records.data(), records.size());
  EXPECT_TRUE(outputClose(out));
  return text;
}

std::string pageOf(const std::string& text, std::size_t page) {
  std::size_t begin = 0;
  for (; page > 1; --page) begin = text.find('\f', begin) + 1;
  return text.substr(begin, text.find('\f', begin) - begin);
}

std::size_t rowsOn(const std::string& page) {
  std::size_t rows = 0;
  for (const std::string& line : linesOf(page)) {
    if (line.starts_with("|") && line.find_first_of("0123456789") != std::string::npos) ++rows;
  }
  return rows;
}

// The rows of each page in turn.
std::vector<std::size_t> pageSizes(const std::string& text) {
  std::vector<std::size_t> sizes;
  std::size_t begin = 0;
  for (;;) {
    const std::size_t end = text.find('\f', begin);
    sizes.push_back(rowsOn(text.substr(begin, end - begin)));
    if (end == std::string::npos) return sizes;
    begin = end + 1;
  }
}

std::string entitlementsOf(const std::vector<std::int16_t>& reasons, unsigned linesPerPage) {
  std::vector<Entitlement> entitlements;
  for (std::int16_t reason : reasons) entitlements.push_back({.reason = reason, .scripCode = 1});
  return withoutCarriageReturns(rejectedEntitlements({"", auctionHeader("A123"), exchangeMarket, linesPerPage, entitlements}));
}

TEST(BdaDetails, pagesStandAsApproved) {
  for (const CloseOutCase& c : closeOutCases()) expectApproved(std::string("auction/") + c.name + ".txt", bdaDetails(c));
}

TEST(BdaDetails, fullPageIsFollowedByAnotherOnlyWhereMoreIsToCome) {
  const auto sizes = [](std::size_t count, unsigned lines) {
    return pageSizes(bdaDetails({"", auctionHeader("A1"), exchangeMarket, lines, std::vector<CloseOut>(count)}));
  };
  EXPECT_EQ(sizes(3, 3), (std::vector<std::size_t>{3}));
  EXPECT_EQ(sizes(4, 3), (std::vector<std::size_t>{3, 1}));
  EXPECT_EQ(sizes(3, 1), (std::vector<std::size_t>{1, 1, 1}));
}

// Integer division leaves the sign on the rupees and on the paise.
TEST(BdaDetails, negativeRateHasItsMinusTwice) {
  const std::string text =
      bdaDetails({"", auctionHeader("A1"), exchangeMarket, 40, {{.closeOutRate = -150, .auctionRate = -5}}});
  EXPECT_NE(text.find("|      -1.-50|      0.-5|      0.00|"), std::string::npos);
}

TEST(RejectedEntitlements, pagesStandAsApproved) {
  for (const EntitlementCase& c : entitlementCases()) {
    expectApproved(std::string("auction/") + c.name + ".txt", rejectedEntitlements(c));
  }
}

TEST(RejectedEntitlements, everyChangeOfReasonBeginsAPage) {
  EXPECT_EQ(pageSizes(entitlementsOf({1, 2, 1, 1, 4, 3}, 40)), (std::vector<std::size_t>{1, 1, 2, 1, 1}));
}

// The reason changes where the page is full: a page of the new reason with no row stands between, closed as the old one.
TEST(RejectedEntitlements, changeOnAFullPageLeavesAPageWithoutRows) {
  const std::string text = entitlementsOf({1, 1, 2, 2}, 2);
  EXPECT_EQ(pageSizes(text), (std::vector<std::size_t>{2, 0, 2}));
  const std::string between = pageOf(text, 2);
  EXPECT_NE(between.find("Page : 2\n"), std::string::npos);
  EXPECT_NE(between.find("(Entitlement Rate not known)\n" + std::string(115, '-') + "\n"), std::string::npos);
  EXPECT_TRUE(between.ends_with("\n" + std::string(131, '-') + "\n"));
  EXPECT_NE(pageOf(text, 3).find("Page : 3\n"), std::string::npos);
}

// The rows before a change count for the page after it.
TEST(RejectedEntitlements, firstPageOfAReasonMayBreakEarly) {
  EXPECT_EQ(pageSizes(entitlementsOf({1, 1, 2, 2, 2, 2, 2}, 3)), (std::vector<std::size_t>{2, 1, 3, 1}));
}

TEST(RejectedEntitlements, unknownReasonHasAHeadingAloneAndCountsAsARow) {
  const std::string text = entitlementsOf({2, 5, 5, 2}, 3);
  EXPECT_EQ(pageSizes(text), (std::vector<std::size_t>{1, 0, 0, 1}));
  EXPECT_TRUE(pageOf(text, 2).ends_with("Cl. No.      418\n"));
  EXPECT_EQ(pageOf(text, 3).find("ENTITLEMENTS"), pageOf(text, 3).find("ENTITLEMENTS EXCEPTION (Entitlement Rate not known)"));
}

TEST(RejectedEntitlements, onlyReasonsOneToFourAreListed) {
  for (std::int16_t reason : {std::int16_t{-1}, std::int16_t{0}, std::int16_t{5}, std::int16_t{32767}}) {
    EXPECT_EQ(entitlementsOf({reason}, 40).find("ENTITLEMENTS"), std::string::npos) << reason;
  }
  for (std::int16_t reason : {std::int16_t{1}, std::int16_t{2}, std::int16_t{3}, std::int16_t{4}}) {
    EXPECT_EQ(pageSizes(entitlementsOf({reason}, 40)), (std::vector<std::size_t>{1})) << reason;
  }
}

TEST(RejectedEntitlements, noFormFeedFollowsTheLastPage) {
  EXPECT_TRUE(entitlementsOf({1, 2}, 1).ends_with("-\n"));
  EXPECT_TRUE(entitlementsOf({1, 9}, 1).ends_with("418\n"));
}

TEST(RejectedEntitlements, negativeRateHasItsMinusTwice) {
  const std::string text = rejectedEntitlements(
      {"", auctionHeader("A1"), exchangeMarket, 40, {{.reason = 1, .closingRate = -150, .entitlementRate = -5}}});
  EXPECT_NE(text.find("|      -1.-50|       0.-5|"), std::string::npos);
}

// The flag stands as it is, even where it is none.
TEST(RejectedEntitlements, flagIsShownAsItStands) {
  const std::string text =
      rejectedEntitlements({"", auctionHeader("A1"), exchangeMarket, 40, {{.reason = 2, .buySellFlag = '\0'}}});
  EXPECT_NE(text.find(std::string("\n|     \0     |", 14)), std::string::npos);
}

}  // namespace
}  // namespace quillon::test
