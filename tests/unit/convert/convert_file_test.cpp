// Which files are converted, and how many records they are counted to have.
#include "convert/convert_file.h"

#include <gtest/gtest.h>

#include <map>
#include <string>

namespace quillon::test {
namespace {

TradeHeader lettersOf(char fileKind, char kind) {
  TradeHeader header = {};
  header.fileKind = fileKind;
  header.kind = kind;
  return header;
}

// The kind of every one of the 65536 pairs, but for the deletion logs, which are one under any first letter.
TEST(ConvertFile, everyPairOfLettersIsOneKindOrNone) {
  const std::map<std::string, ConvertKind> pairs = {{"NT", ConvertKind::trade},
                                                    {"VT", ConvertKind::trade},
                                                    {"NB", ConvertKind::brokerQuery},
                                                    {"VB", ConvertKind::brokerQuery},
                                                    {"BB", ConvertKind::kestoBrokerQuery},
                                                    {"BT", ConvertKind::kestoTrade},
                                                    {"NA", ConvertKind::adminTrade},
                                                    {"VA", ConvertKind::adminTrade},
                                                    {"NO", ConvertKind::orderLog},
                                                    {"NQ", ConvertKind::quoteLog},
                                                    {"NL", ConvertKind::consolidatedLog},
                                                    {"SS", ConvertKind::tradeRectification}};
  for (int first = 0; first < 256; ++first) {
    for (int second = 0; second < 256; ++second) {
      const char letters[] = {static_cast<char>(first), static_cast<char>(second)};
      const auto found = pairs.find(std::string(letters, 2));
      ConvertKind expected = found == pairs.end() ? ConvertKind::none : found->second;
      if (letters[1] == 'J') expected = ConvertKind::adminDeletion;
      EXPECT_EQ(convertKindOf(lettersOf(letters[0], letters[1])), expected) << first << " " << second;
    }
  }
}

TEST(ConvertFile, orderLogUnderVIsRefused) { EXPECT_EQ(convertKindOf(lettersOf('V', 'O')), ConvertKind::none); }

TEST(ConvertFile, kindsAreNamedForTheUser) {
  EXPECT_STREQ(fileTypeText(ConvertKind::trade), "Normal Trade File");
  EXPECT_STREQ(fileTypeText(ConvertKind::brokerQuery), "Normal Broker Query File");
  EXPECT_STREQ(fileTypeText(ConvertKind::kestoBrokerQuery), "Kesto Broker Query File");
  EXPECT_STREQ(fileTypeText(ConvertKind::kestoTrade), "Kesto Trade File");
  EXPECT_STREQ(fileTypeText(ConvertKind::adminTrade), "Admin Trade File");
  EXPECT_STREQ(fileTypeText(ConvertKind::orderLog), "Order Log File");
  EXPECT_STREQ(fileTypeText(ConvertKind::quoteLog), "Quote Log File");
  EXPECT_STREQ(fileTypeText(ConvertKind::consolidatedLog), "Consolidated Order Log File");
  EXPECT_STREQ(fileTypeText(ConvertKind::adminDeletion), "Admin Deletion Log File ");  // with its blank
  EXPECT_STREQ(fileTypeText(ConvertKind::tradeRectification), "Trade Rectification File");
  EXPECT_STREQ(fileTypeText(ConvertKind::none), "");
}

TEST(ConvertFile, recordSizeFollowsTheRules) {
  EXPECT_EQ(convertRecordSize(ConvertKind::trade, {.tradeRec132 = true}), 132u);
  EXPECT_EQ(convertRecordSize(ConvertKind::trade, {.tradeShortLine = true, .brokerRec132 = true}), 144u);
  EXPECT_EQ(convertRecordSize(ConvertKind::brokerQuery, {.brokerRec132 = true}), 132u);
  EXPECT_EQ(convertRecordSize(ConvertKind::brokerQuery, {.tradeRec132 = true, .brokerShortLine = true}), 160u);
  EXPECT_EQ(convertRecordSize(ConvertKind::kestoBrokerQuery, {}), 142u);
  EXPECT_EQ(convertRecordSize(ConvertKind::kestoTrade, {}), 142u);
  EXPECT_EQ(convertRecordSize(ConvertKind::adminTrade, {.adminRec144 = true}), 144u);
  EXPECT_EQ(convertRecordSize(ConvertKind::adminTrade, {.adminRec144 = true, .adminRec168 = true}), 144u);
  EXPECT_EQ(convertRecordSize(ConvertKind::adminTrade, {.adminRec168 = true}), 168u);
  EXPECT_EQ(convertRecordSize(ConvertKind::adminTrade, {}), 176u);
  EXPECT_EQ(convertRecordSize(ConvertKind::orderLog, {.orderRec112 = true}), 112u);
  EXPECT_EQ(convertRecordSize(ConvertKind::orderLog, {}), 136u);
  EXPECT_EQ(convertRecordSize(ConvertKind::quoteLog, {}), 126u);
  EXPECT_EQ(convertRecordSize(ConvertKind::consolidatedLog, {.orderRec112 = true}), 142u);
  EXPECT_EQ(convertRecordSize(ConvertKind::adminDeletion, {}), 142u);
  EXPECT_EQ(convertRecordSize(ConvertKind::tradeRectification, {}), 156u);
  EXPECT_EQ(convertRecordSize(ConvertKind::none, {}), 0u);
}

// A file of 168-byte records is counted as if they had 176: 22 of them are 21 to the count.
TEST(ConvertFile, longerAdminFilesAreAlwaysCountedBy176) {
  const ConvertRules rules = {.adminRec168 = true};
  EXPECT_EQ(convertCountSize(ConvertKind::adminTrade, rules), 176u);
  EXPECT_EQ(convertCountOf(24 + 22 * 168, ConvertKind::adminTrade, rules), 21);
  EXPECT_EQ(convertCountOf(24 + 22 * 176, ConvertKind::adminTrade, {}), 22);
  EXPECT_EQ(convertCountOf(24 + 22 * 144, ConvertKind::adminTrade, {.adminRec144 = true, .adminRec168 = true}), 22);
  for (const ConvertKind kind : {ConvertKind::trade, ConvertKind::orderLog, ConvertKind::quoteLog})
    EXPECT_EQ(convertCountSize(kind, rules), convertRecordSize(kind, rules));
}

TEST(ConvertFile, partRecordAtTheEndIsDropped) {
  EXPECT_EQ(convertCountOf(24 + 3 * 126, ConvertKind::quoteLog, {}), 3);
  EXPECT_EQ(convertCountOf(24 + 3 * 126 + 125, ConvertKind::quoteLog, {}), 3);
  EXPECT_EQ(convertCountOf(24 + 3 * 126 - 1, ConvertKind::quoteLog, {}), 2);
  EXPECT_EQ(convertCountOf(24 + std::int64_t{156} * 100'000'000, ConvertKind::tradeRectification, {}), 100'000'000);
}

TEST(ConvertFile, headerAloneOrLessHasNoRecords) {
  for (const std::int64_t size : {0, 1, 23, 24}) EXPECT_EQ(convertCountOf(size, ConvertKind::trade, {}), 0) << size;
  EXPECT_EQ(convertCountOf(1000, ConvertKind::none, {}), 0);
}

}  // namespace
}  // namespace quillon::test
