// The names that Convert proposes, by the letters of a file's header.
#include "convert/converted_name.h"

#include <gtest/gtest.h>

namespace quillon::test {
namespace {

std::string nameOf(const char* letters, const char* fileTitle) {
  TradeHeader header = {};
  header.fileKind = letters[0];
  header.kind = letters[1];
  return convertedName(header, fileTitle);
}

TEST(ConvertedName, tradesGetAZeroAsTheThirdCharacterFromTheEnd) {
  EXPECT_EQ(nameOf("NT", "TR230404.B01"), "TR230404.001");
  EXPECT_EQ(nameOf("BT", "CT230404.B12"), "CT230404.012");
  EXPECT_EQ(nameOf("VT", "X.SORD"), "X.S0RD");
}

TEST(ConvertedName, brokerQueriesEndInDat) {
  EXPECT_EQ(nameOf("NB", "BR230404.BIN"), "BR230404.DAT");
  EXPECT_EQ(nameOf("VB", "BR230404.SBIN"), "BR230404.SDAT");
}

TEST(ConvertedName, logsGetAGAndTheirEndingBecomesPartOfTheName) {
  EXPECT_EQ(nameOf("NO", "OR230404.ORD"), "OG230404ORD.DAT");
  EXPECT_EQ(nameOf("VO", "OR230404.ORD"), "OG230404ORD.DAT") << "refused later, and named all the same";
  EXPECT_EQ(nameOf("NQ", "QO230404.B01"), "QG230404B01.DAT");
}

TEST(ConvertedName, logOfAFourLetterEndingKeepsItsDotAndLosesTheFirstLetter) {
  EXPECT_EQ(nameOf("NO", "OR230404.SORD"), "OG230404.ORD.DAT");
}

TEST(ConvertedName, consolidatedLogKeepsSixCharactersBehindTheFirstTwo) {
  EXPECT_EQ(nameOf("NL", "BO230404.BIN"), "COL230404.DAT");
  EXPECT_EQ(nameOf("NL", "SBO230404.BIN"), "COLO23040.DAT");
}

TEST(ConvertedName, firstLetterSDecidesAheadOfTheSecond) {
  EXPECT_EQ(nameOf("SS", "TrdRect.dat"), "TGdRectdat.DAT");
  EXPECT_EQ(nameOf("ST", "TR230404.B01"), "TG230404B01.DAT");
  EXPECT_EQ(nameOf("SB", "BR230404.BIN"), "BG230404BIN.DAT");
  EXPECT_EQ(nameOf("SL", "BO230404.BIN"), "BG230404BIN.DAT");
}

TEST(ConvertedName, anyOtherFileAndAHeaderThatIsNotThereAreNamedAsTrades) {
  EXPECT_EQ(nameOf("NA", "AD230404.adm"), "AD230404.0dm");
  EXPECT_EQ(nameOf("NJ", "Adel2304.adl"), "Adel2304.0dl");
  EXPECT_EQ(nameOf("XX", "OTHER.XYZ"), "OTHER.0YZ");
  EXPECT_EQ(nameOf("\0", "BR230404.BIN"), "BR230404.0IN");
}

TEST(ConvertedName, shortNamesAreLeftWithoutTheChangesThatDoNotFit) {
  EXPECT_EQ(nameOf("NT", ""), "");
  EXPECT_EQ(nameOf("NT", "AB"), "AB");
  EXPECT_EQ(nameOf("NT", "ABC"), "0BC");
  EXPECT_EQ(nameOf("NB", "AB"), "AB");
  EXPECT_EQ(nameOf("NB", "ABC"), "DAT");
  EXPECT_EQ(nameOf("NO", ""), ".DAT");
  EXPECT_EQ(nameOf("NO", "A"), "A.DAT");
  EXPECT_EQ(nameOf("NO", "AB"), "AG.DAT");
  EXPECT_EQ(nameOf("NO", "ABC"), "AGC.DAT");
  EXPECT_EQ(nameOf("NO", "ABCD"), "GCD.DAT");
  EXPECT_EQ(nameOf("NO", "ABCDE"), "ACDE.DAT") << "the G itself is the fourth from the end";
  EXPECT_EQ(nameOf("NL", ""), "COL.DAT");
  EXPECT_EQ(nameOf("NL", "AB"), "COL.DAT");
  EXPECT_EQ(nameOf("NL", "ABCD"), "COLCD.DAT");
}

}  // namespace
}  // namespace quillon::test
