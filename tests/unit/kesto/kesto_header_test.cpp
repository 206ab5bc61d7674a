// Which files the Kesto form takes for trades and broker queries, and what it says about them.
#include "kesto/kesto_header.h"

#include <gtest/gtest.h>

namespace quillon::test {

static TradeHeader headerOf(char fileKind, char content) {
  TradeHeader header = {};
  header.fileKind = fileKind;
  header.kind = content;
  return header;
}

TEST(KestoHeader, bothMarketsHoldTradesOrBrokerQuery) {
  for (const char market : {'C', 'B'}) {
    EXPECT_EQ(kestoContentOf(headerOf(market, 'T')), KestoContent::trades);
    EXPECT_EQ(kestoContentOf(headerOf(market, 'B')), KestoContent::brokerQuery);
    for (const char content : {'O', 't', 'b', '\0', 'C'}) {
      EXPECT_EQ(kestoContentOf(headerOf(market, content)), KestoContent::other) << content;
    }
  }
}

TEST(KestoHeader, otherMarketsAreRefusedWhateverTheyHold) {
  for (const char market : {'N', 'V', 'c', 'b', '\0'}) {
    for (const char content : {'T', 'B'}) {
      EXPECT_EQ(kestoContentOf(headerOf(market, content)), KestoContent::other) << market << content;
    }
  }
}

TEST(KestoHeader, textNamesFileMemberTraderTimeDateAndCount) {
  TradeHeader header = headerOf('C', 'T');
  header.memberId = 418;
  header.traderId = 12;
  header.day = 5;
  header.month = 3;
  header.century = 20;
  header.year = 9;
  header.hour = 9;
  header.minute = 5;
  header.second = 3;
  EXPECT_EQ(kestoHeaderText(header, KestoContent::trades, 1234),
            "File Type: KESTO TRADES FILE\n\nMemberId : 418\n\nTraderId : 12\n\nTime      :   09 : 05 : 03\n\n"
            "Date      :  2009/03/05\n\nRecords in the File=1234\n\n\nIs it Correct?\n");
  EXPECT_TRUE(kestoHeaderText(header, KestoContent::brokerQuery, 0)
                  .starts_with("File Type: KESTO BROKER QUERY FILE\n\nMemberId : 418\n\n"));
}

TEST(KestoHeader, numbersOfAHostileHeaderStandInFull) {
  TradeHeader header = headerOf('B', 'T');
  header.memberId = -2147483647 - 1;
  header.traderId = 2147483647;
  header.day = -32768;
  header.month = 32767;
  header.century = -1;
  header.year = 2009;
  header.hour = -1;
  header.minute = 100;
  header.second = 7;
  EXPECT_EQ(kestoHeaderText(header, KestoContent::trades, 0),
            "File Type: KESTO TRADES FILE\n\nMemberId : -2147483648\n\nTraderId : 2147483647\n\n"
            "Time      :   -1 : 100 : 07\n\nDate      :  -12009/32767/-32768\n\nRecords in the File=0\n\n\nIs it Correct?\n");
}

TEST(KestoHeader, everyPartOfDateAndTimeHasTwoDigits) {
  TradeHeader header = headerOf('C', 'T');
  header.day = 5;
  header.month = 4;
  header.century = 3;
  header.year = 2;
  EXPECT_NE(kestoHeaderText(header, KestoContent::trades, 0).find("Time      :   00 : 00 : 00\n\nDate      :  0302/04/05\n"),
            std::string::npos);
}

TEST(KestoHeader, convertedNameOfTradesHasAZeroThirdFromItsEnd) {
  EXPECT_EQ(kestoConvertedName("CT010109.B01", false), "CT010109.001");
  EXPECT_EQ(kestoConvertedName("CT010109.ord", false), "CT010109.0rd");
  EXPECT_EQ(kestoConvertedName("B01", false), "001");
}

TEST(KestoHeader, convertedNameOfBrokerQueryEndsInDat) {
  EXPECT_EQ(kestoConvertedName("CB010109.BIN", true), "CB010109.DAT");
  EXPECT_EQ(kestoConvertedName("X.B", true), "DAT");
}

TEST(KestoHeader, namesOfFewerThanThreeCharactersStay) {
  for (const bool brokerQuery : {false, true}) {
    EXPECT_EQ(kestoConvertedName("AB", brokerQuery), "AB");
    EXPECT_EQ(kestoConvertedName("", brokerQuery), "");
  }
}

}  // namespace quillon::test
