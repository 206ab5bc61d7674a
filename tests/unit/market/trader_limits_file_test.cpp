// Reading trader limits files: the first line and its title, lines as tokens, Kesto records.
#include "market/trader_limits_file.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "desktop/scripted/faults.h"
#include "frame/file_name.h"
#include "market/market_input.h"

namespace quillon {
namespace {

using test::TextFile;

std::vector<std::string> tokensOf(const LimitLine& line) { return {line.view().begin(), line.view().end()}; }

TEST(TraderLimitsFile, theFirstLineNamesTitleBrokerDateAndTrader) {
  const TextFile file("TraderWise Limits|123|01/01/2009|7|\r\n");
  TraderLimitsHeader header;
  ASSERT_TRUE(readTraderLimitsHeader(file.open(), header));
  EXPECT_EQ(header.title.view(), "TraderWise Limits");
  EXPECT_EQ(header.brokerId, 123);
  EXPECT_EQ(header.date.view(), "01/01/2009");
  EXPECT_EQ(header.traderId, 7);
}

TEST(TraderLimitsFile, fieldsThatTheFirstLineLacksAreZero) {
  const TextFile file("Binary Limits|x|01/01/2009|7|\n");
  TraderLimitsHeader header;
  ASSERT_TRUE(readTraderLimitsHeader(file.open(), header));
  EXPECT_EQ(header.brokerId, 0);
  EXPECT_EQ(header.date.view(), "");
  EXPECT_EQ(header.traderId, 0);
}

TEST(TraderLimitsFile, theLineEndIsPartOfNoField) {
  const TextFile first("Binary Limits|123|01/01/2009\r\n");
  TraderLimitsHeader header;
  ASSERT_TRUE(readTraderLimitsHeader(first.open(), header));
  EXPECT_EQ(header.date.view(), "01/01/2009");
  const TextFile traders("Binary Limits|123|01/01/2009|7|\n1|ANAND\n");
  std::vector<KestoTraderLimit> trader(1);
  EXPECT_TRUE(readKestoTraderLimits(traders.open(), trader.data(), 1));
  EXPECT_EQ(trader[0].traderName.view(), "ANAND");
  const TextFile scrips("Scripwise Limits|123|01/01/2009|7|\n\nALFA\n");
  std::vector<KestoScripLimit> scrip(2);
  EXPECT_TRUE(readKestoScripLimits(scrips.open(), scrip.data(), 2));
  EXPECT_EQ(scrip[0].scripId.view(), "");
  EXPECT_EQ(scrip[1].scripId.view(), "ALFA");
}

TEST(TraderLimitsFile, controlFlagsAreTheSame32BitsWithASignAndWithout) {
  struct Case {
    const char* flags;
    std::uint32_t bits;
  };
  const Case cases[] = {
      {"0", 0},
      {"536838143", 0x1FFF7FFF},
      {"2147483647", 0x7FFFFFFF},
      {"2147483648", 0x80000000},
      {"-2147483648", 0x80000000},
      {"3758096384", 0xE0000000},
      {"-536870912", 0xE0000000},
      {"4294967295", 0xFFFFFFFF},
  };
  for (const Case& c : cases) {
    const TextFile file("Binary Limits|1|d|2|\n1|A|" + std::string(c.flags) + "|3|4|\n");
    std::vector<KestoTraderLimit> records(1);
    EXPECT_TRUE(readKestoTraderLimits(file.open(), records.data(), 1));
    EXPECT_EQ(records[0].controlFlags, c.bits) << c.flags;
    EXPECT_EQ(records[0].grossBorrowLimit, 4);
  }
}

TEST(TraderLimitsFile, fail_emptyFileHasNoFirstLine) {
  const TextFile file("");
  TraderLimitsHeader header;
  EXPECT_FALSE(readTraderLimitsHeader(file.open(), header));
}

TEST(TraderLimitsFile, kindAndTitleDecideTheLayout) {
  struct Case {
    const char* title;
    LimitsLayout normal;
    LimitsLayout kesto;
  };
  const Case cases[] = {
      {"TraderWise Limits", LimitsLayout::normalTraderwise, LimitsLayout::none},
      {"Scripwise Limits", LimitsLayout::normalScripwise, LimitsLayout::kestoScripwise},
      {"Binary Limits", LimitsLayout::none, LimitsLayout::kestoTraderwise},
      {"Traderwise Limits", LimitsLayout::none, LimitsLayout::none},
      {"Scripwise Limits ", LimitsLayout::none, LimitsLayout::none},
      {"", LimitsLayout::none, LimitsLayout::none},
  };
  for (const Case& c : cases) {
    TraderLimitsHeader header = {};
    fieldSet(header.title, c.title);
    EXPECT_EQ(limitsLayout(header, false), c.normal) << c.title;
    EXPECT_EQ(limitsLayout(header, true), c.kesto) << c.title;
  }
}

TEST(TraderLimitsFile, aRunOfDelimitersCountsAsOneAndTheLineEndIsNoToken) {
  const TextFile file("1||RAMESH|Y|\n|||\nlast|X");
  Input& input = file.open();
  LimitLine line;
  ASSERT_EQ(readLimitLine(input, traderwiseLineLimit, line), LimitLineResult::line);
  EXPECT_EQ(tokensOf(line), (std::vector<std::string>{"1", "RAMESH", "Y"}));
  ASSERT_EQ(readLimitLine(input, traderwiseLineLimit, line), LimitLineResult::line);
  EXPECT_EQ(tokensOf(line), (std::vector<std::string>{}));
  ASSERT_EQ(readLimitLine(input, traderwiseLineLimit, line), LimitLineResult::line);
  EXPECT_EQ(tokensOf(line), (std::vector<std::string>{"last", "X"}));
  EXPECT_EQ(readLimitLine(input, traderwiseLineLimit, line), LimitLineResult::end);
}

TEST(TraderLimitsFile, tokensBeyondTheTwentySixthAreLeftOut) {
  std::string text;
  for (int i = 1; i <= 40; ++i) text += std::to_string(i) + "|";
  const TextFile file(text + "\n");
  LimitLine line;
  ASSERT_EQ(readLimitLine(file.open(), traderwiseLineLimit, line), LimitLineResult::line);
  ASSERT_EQ(line.count, 26u);
  EXPECT_EQ(line.tokens[25], "26");
}

TEST(TraderLimitsFile, aBlankLineEndsTheFile) {
  using namespace std::string_literals;
  for (const std::string& blank : {"\n"s, "\r\n"s, "\0rest\n"s}) {
    const TextFile file("1|A|\n" + blank + "2|B|\n");
    Input& input = file.open();
    LimitLine line;
    EXPECT_EQ(readLimitLine(input, traderwiseLineLimit, line), LimitLineResult::line);
    EXPECT_EQ(readLimitLine(input, traderwiseLineLimit, line), LimitLineResult::end);
  }
}

TEST(TraderLimitsFile, aLineLongerThanTheBufferComesInPieces) {
  const TextFile file(std::string(299, 'a') + "2|B|\n");
  Input& input = file.open();
  LimitLine line;
  ASSERT_EQ(readLimitLine(input, traderwiseLineLimit, line), LimitLineResult::line);
  EXPECT_EQ(line.tokens[0].size(), 299u);
  ASSERT_EQ(readLimitLine(input, traderwiseLineLimit, line), LimitLineResult::line);
  EXPECT_EQ(tokensOf(line), (std::vector<std::string>{"2", "B"}));

  const TextFile scrips(std::string(79, 'a') + "2|B|\n");
  Input& second = scrips.open();
  ASSERT_EQ(readLimitLine(second, scripwiseLineLimit, line), LimitLineResult::line);
  EXPECT_EQ(line.tokens[0].size(), 79u);
}

TEST(TraderLimitsFile, aReadThatFailsIsToldAndTheNextLineFollows) {
  const TextFile file("1|A|\n2|B|\n3|C|\n");
  Input& input = file.open();
  LimitLine line;
  faultsArm(Fault::read, 2, false);
  EXPECT_EQ(readLimitLine(input, traderwiseLineLimit, line), LimitLineResult::line);
  EXPECT_EQ(readLimitLine(input, traderwiseLineLimit, line), LimitLineResult::lost);
  EXPECT_EQ(line.count, 0u);
  EXPECT_EQ(readLimitLine(input, traderwiseLineLimit, line), LimitLineResult::line);
  EXPECT_EQ(line.tokens[0], "3");
  faultsReset();
}

TEST(TraderLimitsFile, kestoTradersAreScanned) {
  const TextFile file("Binary Limits|123|01/01/2009|7|\n12|A NAME OF MORE THAN 15|536870911|100|-200|\n4||5|6|7|\n");
  EXPECT_EQ(countKestoLimits(file.open()).pieces, 3u);
  std::vector<KestoTraderLimit> records(3);
  EXPECT_TRUE(readKestoTraderLimits(file.open(), records.data(), 2));
  EXPECT_EQ(records[0].traderNo, 12);
  EXPECT_EQ(records[0].traderName.view(), "A NAME OF MORE ");
  EXPECT_EQ(records[0].controlFlags, 0x1FFFFFFFu);
  EXPECT_EQ(records[0].grossLendLimit, 100);
  EXPECT_EQ(records[0].grossBorrowLimit, -200);
  EXPECT_EQ(records[1].traderNo, 4);  // an empty name fails the scan there
  EXPECT_EQ(records[1].controlFlags, 0u);
  EXPECT_EQ(records[2].traderNo, 0);
}

TEST(TraderLimitsFile, kestoScripsAreScanned) {
  const TextFile file("Scripwise Limits|123|01/01/2009|7|\nCORALTEXTILES|532999|1000|-2|\nB|x|\n");
  std::vector<KestoScripLimit> records(3);
  EXPECT_TRUE(readKestoScripLimits(file.open(), records.data(), 2));
  EXPECT_EQ(records[0].scripId.view(), "CORALTEXTIL");
  EXPECT_EQ(records[0].scripCode, 532999);
  EXPECT_EQ(records[0].lendLimit, 1000);
  EXPECT_EQ(records[0].borrowLimit, -2);
  EXPECT_EQ(records[1].scripId.view(), "B");
  EXPECT_EQ(records[1].scripCode, 0);
}

TEST(TraderLimitsFile, aKestoLineOf89CharactersCountsTwiceAndLeavesARecordZero) {
  const std::string longLine = "1|" + std::string(86, 'n') + "|";  // with its line feed 90
  const TextFile file("Binary Limits|1|d|2|\n" + longLine + "\n2|B|3|4|5|\n");
  const LimitsCount count = countKestoLimits(file.open());
  EXPECT_EQ(count.pieces, 4u);
  std::vector<KestoTraderLimit> records(4);
  EXPECT_TRUE(readKestoTraderLimits(file.open(), records.data(), 3));
  EXPECT_EQ(records[1].traderNo, 2);
  EXPECT_EQ(records[2].traderNo, 0);
}

TEST(TraderLimitsFile, aFileThatGrewOrShrankSinceItWasCountedStaysInTheBlock) {
  const TextFile file("Binary Limits|1|d|2|\n1|A|3|4|5|\n2|B|3|4|5|\n3|C|3|4|5|\n");
  std::vector<KestoTraderLimit> grown(2);
  EXPECT_TRUE(readKestoTraderLimits(file.open(), grown.data(), 1));
  EXPECT_EQ(grown[0].traderNo, 1);
  EXPECT_EQ(grown[1].traderNo, 0);
  std::vector<KestoTraderLimit> shrunk(6);
  EXPECT_TRUE(readKestoTraderLimits(file.open(), shrunk.data(), 5));
  EXPECT_EQ(shrunk[2].traderNo, 3);
  EXPECT_EQ(shrunk[3].traderNo, 0);
}

TEST(TraderLimitsFile, aKestoReadThatFailsLeavesItsRecordZero) {
  const TextFile file("Binary Limits|1|d|2|\n1|A|3|4|5|\n2|B|3|4|5|\n");
  std::vector<KestoTraderLimit> records(3);
  faultsArm(Fault::read, 2, false);
  EXPECT_FALSE(readKestoTraderLimits(file.open(), records.data(), 2));
  EXPECT_EQ(records[0].traderNo, 0);
  EXPECT_EQ(records[1].traderNo, 2);
  std::vector<KestoScripLimit> scrips(3);
  faultsArm(Fault::read, 3, false);
  EXPECT_FALSE(readKestoScripLimits(file.open(), scrips.data(), 2));
  EXPECT_EQ(scrips[0].scripId.view(), "1");
  EXPECT_EQ(scrips[1].scripId.view(), "");
  faultsArm(Fault::read, 2, false);
  const LimitsCount count = countKestoLimits(file.open());
  EXPECT_EQ(count.pieces, 1u);
  EXPECT_TRUE(count.failed);
  faultsReset();
}

TEST(FileName, aPieceMayStandAnywhereInThePathInAnyCase) {
  EXPECT_TRUE(fileNameHolds("export/TL010109.SAV", {".SSAV", ".SAV"}));
  EXPECT_TRUE(fileNameHolds("export/tl010109.ssav", {".SSAV", ".SAV"}));
  EXPECT_TRUE(fileNameHolds("old.savings/TL010109.TXT", {".SSAV", ".SAV"}));
  EXPECT_FALSE(fileNameHolds("export/SAV", {".SSAV", ".SAV"}));
  EXPECT_FALSE(fileNameHolds("", {".SAV"}));
}

}  // namespace
}  // namespace quillon
