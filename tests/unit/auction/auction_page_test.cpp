// What all auction statements have in common on a page.
#include "auction/auction_page.h"

#include <gtest/gtest.h>

#include <string>

namespace quillon::test {
namespace {

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
