// What all auction statements have in common on a page.
#include "auction/auction_page.h"

#include <gtest/gtest.h>

#include <string>

namespace quillon::test {
namespace {

TEST(AuctionPage, dateIsDayMonthAndYear) {
  EXPECT_EQ(auctionDateText({.year = 2009, .month = 5, .day = 6, .hour = 10, .minute = 11, .second = 12}), "06/05/2009");
  EXPECT_EQ(auctionDateText({.year = 2010, .month = 12, .day = 31, .hour = 23, .minute = 59, .second = 59}), "31/12/2010");
}

TEST(AuctionPage, clearingHouseStandsForTheExchangeOnEveryLendingFile) {
  EXPECT_STREQ(auctionExchange({false, false}), "TARVEN STOCK EXCHANGE LTD.");
  EXPECT_STREQ(auctionExchange({true, false}), "KOR SHARE HOLDING LTD.");
  EXPECT_STREQ(auctionExchange({true, true}), "KOR SHARE HOLDING LTD.");
}

TEST(AuctionPage, rulesAreAsLongAsAsked) {
  EXPECT_EQ(underscoreRule(134), std::string(134, '_'));
  EXPECT_EQ(hyphenRule(25), std::string(25, '-'));
}

}  // namespace
}  // namespace quillon::test
