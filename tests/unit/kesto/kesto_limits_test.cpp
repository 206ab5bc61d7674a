// Trader limits in the lending product's form: the two layouts, how lines are counted and read, the pages.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "desktop/scripted/faults.h"
#include "kesto/kesto_limits_file.h"
#include "kesto/kesto_limits_report.h"
#include "market/market_input.h"
#include "support/approved.h"

namespace quillon {
namespace {

using test::TextFile;

// Flags: none, unrestricted, bits 15 and 29, bits 6, 7 and 30, all bits but the highest.
const std::string traderLines = R"(Binary Limits|123|01/01/2009|7|
1|RAMESH|0|100|200|
22|SUDHA MENON|536870911|50000|60000|
3|OMAR|536903680|7|0|
4|IRIS|1073742016|0|9|
15|LEELA|2147483647|-5|-60|
)";

const std::string wideTraderLines = R"(Binary Limits|2147483647|THE FIRST OF JANUARY 2009|7|
123456|A NAME TOO LONG|536838143|2147483647|-2147483648|
-7|TWELVE CHARS|1|12345678901|1234567890|
)";

const std::string scripLines = R"(Scripwise Limits|123|01/01/2009|7|
AXLEIND|500101|1000|2000|
B|1|0|-5|
CORALTEX|22|333|4|
)";

const std::string wideScripLines = R"(Scripwise Limits|-2147483648|THE FIRST OF JANUARY 2009|2147483647|
CORALTEXTILES|2147483647|-2147483648|2147483647|
DELTAFABRIC|-2147483648|1234567890|12345678901|
)";

struct Loaded {
  KestoLimits file;
  LimitsLayout layout = LimitsLayout::none;
  KestoLimitsLoad load = KestoLimitsLoad::noHeader;

  explicit Loaded(const std::string& lines) {
    const TextFile text(lines);
    load = loadKestoLimits(text.open(), file, layout);
  }
  Loaded(const Loaded&) = delete;
  Loaded& operator=(const Loaded&) = delete;
  ~Loaded() { freeKestoLimits(file); }
};

std::string traderReport(const std::string& lines, const KestoLimitsOptions& options) {
  const Loaded loaded(lines);
  EXPECT_EQ(loaded.load, KestoLimitsLoad::traderwise);
  std::string text;
  Output* out = outputToMemory(&text);
  writeKestoLimitsTraderwise(*out, loaded.file, options);
  EXPECT_TRUE(outputClose(out));
  return text;
}

std::string scripReport(const std::string& lines, const KestoLimitsOptions& options) {
  const Loaded loaded(lines);
  EXPECT_EQ(loaded.load, KestoLimitsLoad::scripwise);
  std::string text;
  Output* out = outputToMemory(&text);
  writeKestoLimitsScripwise(*out, loaded.file, options);
  EXPECT_TRUE(outputClose(out));
  return text;
}

std::size_t pagesOf(const std::string& report) {
  return static_cast<std::size_t>(std::count(report.begin(), report.end(), '\f'));
}

std::string repeated(std::string head, const std::string& line, std::size_t times) {
  for (std::size_t i = 0; i < times; ++i) head += line;
  return head;
}

const std::string traderHead = "Binary Limits|123|01/01/2009|7|\n";
const std::string scripHead = "Scripwise Limits|123|01/01/2009|7|\n";

// ---- Pages ------------------------------------------------------------------------------------------------------------

TEST(KestoLimits, traderwisePages) {
  test::expectApproved("kesto/limits_traderwise.txt", traderReport(traderLines, {2, false}));
  test::expectApproved("kesto/limits_traderwise_lending.txt", traderReport(traderLines, {2, true}));
  test::expectApproved("kesto/limits_traderwise_wide_values.txt", traderReport(wideTraderLines, {1, false}));
}

TEST(KestoLimits, scripwisePages) {
  test::expectApproved("kesto/limits_scripwise.txt", scripReport(scripLines, {2, false}));
  test::expectApproved("kesto/limits_scripwise_lending.txt", scripReport(scripLines, {2, true}));
  test::expectApproved("kesto/limits_scripwise_wide_values.txt", scripReport(wideScripLines, {1, true}));
}

TEST(KestoLimits, traderwisePagesHoldNoMoreThanTwentyRows) {
  const std::string line = "1|RAMESH|0|100|200|\n";
  EXPECT_EQ(pagesOf(traderReport(repeated(traderHead, line, 20), {50, false})), 1u);
  EXPECT_EQ(pagesOf(traderReport(repeated(traderHead, line, 21), {50, false})), 2u);
  EXPECT_EQ(pagesOf(traderReport(repeated(traderHead, line, 21), {21, false})), 2u);
  EXPECT_EQ(pagesOf(traderReport(repeated(traderHead, line, 20), {20, false})), 1u);
  EXPECT_EQ(pagesOf(traderReport(repeated(traderHead, line, 20), {19, false})), 2u);
  EXPECT_EQ(pagesOf(traderReport(repeated(traderHead, line, 20), {10, false})), 2u);
  EXPECT_EQ(pagesOf(traderReport(repeated(traderHead, line, 21), {10, false})), 3u);
  EXPECT_EQ(pagesOf(traderReport(repeated(traderHead, line, 6), {2, false})), 3u) << "every page holds as many as the first";
}

TEST(KestoLimits, scripwisePagesHoldNoMoreThanFiftyRows) {
  const std::string line = "AXLEIND|500101|1000|2000|\n";
  EXPECT_EQ(pagesOf(scripReport(repeated(scripHead, line, 50), {51, false})), 1u);
  EXPECT_EQ(pagesOf(scripReport(repeated(scripHead, line, 51), {51, false})), 2u);
  EXPECT_EQ(pagesOf(scripReport(repeated(scripHead, line, 51), {49, false})), 2u);
  EXPECT_EQ(pagesOf(scripReport(repeated(scripHead, line, 6), {2, false})), 3u) << "every page holds as many as the first";
}

TEST(KestoLimits, recordsStandInTheOrderOfTheFile) {
  const std::string traders = traderReport(traderHead + "9|LAST|0|1|1|\n1|FIRST|0|1|1|\n", {50, false});
  EXPECT_LT(traders.find("LAST"), traders.find("FIRST"));
  const std::string scrips = scripReport(scripHead + "ZZZ|9|1|1|\nAAA|1|1|1|\n", {50, false});
  EXPECT_LT(scrips.find("ZZZ"), scrips.find("AAA"));
}

// ---- The file ---------------------------------------------------------------------------------------------------------

TEST(KestoLimits, theTitleChoosesTheLayout) {
  EXPECT_EQ(Loaded(traderLines).layout, LimitsLayout::kestoTraderwise);
  EXPECT_EQ(Loaded(scripLines).layout, LimitsLayout::kestoScripwise);
}

TEST(KestoLimits, aTitleOfNeitherLayoutIsNoFailureAndHasNoRecords) {
  for (const char* const title : {"TraderWise Limits", "binary limits", "Binary Limits ", "Other"}) {
    const Loaded loaded(std::string(title) + "|123|01/01/2009|7|\n1|RAMESH|0|1|1|\n");
    EXPECT_EQ(loaded.load, KestoLimitsLoad::otherTitle) << title;
    EXPECT_EQ(loaded.layout, LimitsLayout::none);
  }
  EXPECT_EQ(Loaded("\n1|RAMESH|0|1|1|\n").load, KestoLimitsLoad::otherTitle);
}

TEST(KestoLimits, aFileWithoutALineHasNoHeader) { EXPECT_EQ(Loaded("").load, KestoLimitsLoad::noHeader); }

TEST(KestoLimits, aTitleWithoutRowsHasZeroRecords) {
  const Loaded scrips(scripHead);
  EXPECT_EQ(scrips.load, KestoLimitsLoad::zeroRecords);
  EXPECT_EQ(scrips.layout, LimitsLayout::kestoScripwise);
  EXPECT_EQ(Loaded("Binary Limits|123").load, KestoLimitsLoad::zeroRecords);
}

TEST(KestoLimits, linesAreCountedInPiecesOf99Characters) {
  for (const std::size_t size : {98u, 99u, 118u}) {  // without the line end
    std::string line = "1|RAMESH|0|100|200|";
    line.resize(size, 'x');
    const Loaded loaded(traderHead + line + "\n2|SUDHA|0|1|1|\n");
    ASSERT_EQ(loaded.file.count, size < 99 ? 2u : 3u) << size;
    EXPECT_EQ(loaded.file.traders[1].traderNo, 2);
    if (size >= 99) {
      EXPECT_EQ(loaded.file.traders[2].traderNo, 0);
    }
  }
}

TEST(KestoLimits, traderLinesAreReadInPiecesOf119CharactersAndScripLinesOf199) {
  std::string trader = "1|RAMESH|0|100|200|";
  trader.resize(119, 'x');
  const Loaded traders(traderHead + trader + "77|TAIL|0|1|1|\n");
  ASSERT_EQ(traders.file.count, 2u);
  EXPECT_EQ(traders.file.traders[1].traderNo, 77);
  std::string scrip = "AXLEIND|500101|1000|2000|";
  scrip.resize(199, 'x');
  const Loaded scrips(scripHead + scrip + "TAIL|77|1|1|\n");
  ASSERT_EQ(scrips.file.count, 3u);
  EXPECT_EQ(scrips.file.scrips[1].scripCode, 77);
  EXPECT_EQ(scrips.file.scrips[2].scripCode, 0);
}

TEST(KestoLimits, aLongFirstLineTakesNoRecordsPlace) {
  const std::string date(180, 'd');
  const Loaded loaded("Binary Limits|123|" + date + "|7|\n1|RAMESH|0|1|1|\n2|SUDHA|0|1|1|\n");
  ASSERT_EQ(loaded.file.count, 2u);
  EXPECT_EQ(loaded.file.header.date.view(), date);
  EXPECT_EQ(loaded.file.traders[0].traderNo, 1);
  EXPECT_EQ(loaded.file.traders[1].traderNo, 2);
}

TEST(KestoLimits, failuresOfTheLoadTellTheLayout) {
  const auto loadWith = [](Fault fault, int nth, const std::string& lines, LimitsLayout layout) {
    faultsArm(fault, nth, false);
    const Loaded loaded(lines);
    faultsReset();
    EXPECT_EQ(loaded.layout, layout);
    return loaded.load;
  };
  const std::string traders = traderHead + "1|RAMESH|0|1|1|\n";
  const std::string scrips = scripHead + "AXLEIND|500101|1000|2000|\n";
  EXPECT_EQ(loadWith(Fault::read, 1, traders, LimitsLayout::none), KestoLimitsLoad::noHeader);
  EXPECT_EQ(loadWith(Fault::memory, 1, traders, LimitsLayout::kestoTraderwise), KestoLimitsLoad::noMemory);
  EXPECT_EQ(loadWith(Fault::memory, 1, scrips, LimitsLayout::kestoScripwise), KestoLimitsLoad::noMemory);
  EXPECT_EQ(loadWith(Fault::seek, 1, traders, LimitsLayout::kestoTraderwise), KestoLimitsLoad::notRewound);
  EXPECT_EQ(loadWith(Fault::seek, 1, scrips, LimitsLayout::kestoScripwise), KestoLimitsLoad::notRewound);
  for (const int nth : {2, 3, 4, 5}) {  // both reads of the count, then line 1 and its record
    EXPECT_EQ(loadWith(Fault::read, nth, traders, LimitsLayout::kestoTraderwise), KestoLimitsLoad::notRead) << nth;
    EXPECT_EQ(loadWith(Fault::read, nth, scrips, LimitsLayout::kestoScripwise), KestoLimitsLoad::notRead) << nth;
  }
}

}  // namespace
}  // namespace quillon
