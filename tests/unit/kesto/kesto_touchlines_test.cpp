// The touchlines of the lending product: the file's lines and tokens, the three orders, the pages.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "desktop/scripted/faults.h"
#include "kesto/kesto_touchlines_file.h"
#include "kesto/kesto_touchlines_report.h"
#include "market/market_input.h"
#include "support/approved.h"

namespace quillon {
namespace {

using test::TextFile;

// Every cell filled, a day of one digit and of three, a market of another status.
const std::string ordinaryLines = R"(01/01/2009|10:30:00|KESTO MARKET|
AXLEIND|500101|52500|1500|61250|53000|1700|62375|52750|52625|120000|OP|7|
BRASSCO|500102|-12345|-250|-1|-10000|-7|-99999|-5000|-4999|-60|OP|126|
CORALTEX|500103|10000|25|20000|30000|35|40000|50000|60000|45|BC|30|
)";

// Nothing but zeros; only one side, with a market that hides its yields; values of one digit.
const std::string narrowLines = R"(1/1/09|9:05|K|
A|1|0|0|0|0|0|0|0|0|0|OP|1|
B|22|1|2|3|0|0|4|5|6|7|BC|2|
C|333|0|0|9|8|7|6|49|1|1|BC|0|
D|4|0|0|9|0|0|9|50|0|0|OP|-1|
)";

const std::string wideLines = R"(THE FIRST TOKEN OF A HEADER|THE SECOND TOKEN|THE THIRD|THE FOURTH IS NOT PRINTED|
CORALTEXTILES|2147483647|2147483647|123456789|99999999|-9999999|1|-1|0|0|1|OP|1|
EVENWIDER|-2147483648|99999999|100000000|-1|999999999|-123456789|1|0|0|-1|BC|3|
EVENWIDERTOO|99|-10000000|1|1|-2147483648|1|-99999999|2147483647|-2147483648|1|OPEN|200|
D|100|1|1|1|1|1|1|-2147483648|2147483647|12345678901|OP|127|
E|101|1|1|1|1|1|1|-99999999|99999999|-2147483648|OP|-128|
)";

std::string reportOf(const std::string& lines, const KestoTouchlinesOptions& options,
                     KestoTouchlinesSort sort = KestoTouchlinesSort::scripCode) {
  const TextFile file(lines);
  KestoDayTouchlines loaded;
  EXPECT_EQ(loadKestoDayTouchlines(file.open(), loaded), KestoTouchlinesLoad::loaded);
  const RecordOrder order = orderKestoDayTouchlines(loaded, sort);
  EXPECT_TRUE(order);
  std::string text;
  Output* out = outputToMemory(&text);
  writeKestoDayTouchlines(*out, loaded, order.positions(), options);
  EXPECT_TRUE(outputClose(out));
  freeKestoDayTouchlines(loaded);
  return text;
}

KestoTouchlinesLoad loadOf(const std::string& lines) {
  const TextFile file(lines);
  KestoDayTouchlines loaded;
  const KestoTouchlinesLoad load = loadKestoDayTouchlines(file.open(), loaded);
  freeKestoDayTouchlines(loaded);
  return load;
}

// The rows of a file as they were read, without the zero one behind them.
std::vector<KestoDayTouchline> rowsOf(const std::string& lines) {
  const TextFile file(lines);
  KestoDayTouchlines loaded;
  EXPECT_EQ(loadKestoDayTouchlines(file.open(), loaded), KestoTouchlinesLoad::loaded);
  const std::vector<KestoDayTouchline> rows(loaded.rows, loaded.rows + loaded.count);
  EXPECT_EQ(loaded.rows[loaded.count].scripId.view(), "");
  freeKestoDayTouchlines(loaded);
  return rows;
}

std::vector<std::string> idsOf(const std::vector<KestoDayTouchline>& rows) {
  std::vector<std::string> ids;
  for (const KestoDayTouchline& row : rows) ids.emplace_back(row.scripId.view());
  return ids;
}

std::vector<std::string> idsInOrder(const std::string& lines, KestoTouchlinesSort sort) {
  const TextFile file(lines);
  KestoDayTouchlines loaded;
  EXPECT_EQ(loadKestoDayTouchlines(file.open(), loaded), KestoTouchlinesLoad::loaded);
  const RecordOrder order = orderKestoDayTouchlines(loaded, sort);
  EXPECT_TRUE(order);
  std::vector<std::string> ids;
  for (const std::uint32_t position : order.positions()) ids.emplace_back(loaded.rows[position].scripId.view());
  freeKestoDayTouchlines(loaded);
  return ids;
}

std::size_t pagesOf(const std::string& report) {
  return static_cast<std::size_t>(std::count(report.begin(), report.end(), '\f'));
}

std::string row(const std::string& id, std::size_t size) {
  std::string line = id + "|1|2|3|4|5|6|7|8|9|10|OP|11|";
  line.resize(size, 'x');
  return line + "\n";
}

// ---- Pages ------------------------------------------------------------------------------------------------------------

TEST(KestoTouchlines, ordinaryPages) {
  test::expectApproved("kesto/touchlines_ordinary.txt", reportOf(ordinaryLines, {2, false}));
}

TEST(KestoTouchlines, lendingPages) {
  test::expectApproved("kesto/touchlines_lending.txt", reportOf(ordinaryLines, {2, true}));
}

TEST(KestoTouchlines, narrowValues) {
  test::expectApproved("kesto/touchlines_narrow_values.txt", reportOf(narrowLines, {3, false}));
}

TEST(KestoTouchlines, wideValues) { test::expectApproved("kesto/touchlines_wide_values.txt", reportOf(wideLines, {2, true})); }

TEST(KestoTouchlines, aFileOfLineOneAndOneScripPrintsOneRow) {
  const std::string text = reportOf("d|t|k|\nAXLEIND|500101|0|0|0|0|0|0|0|0|0|OP|7|\n", {50, false});
  EXPECT_NE(
      text.find("|    AXLEIND|     500101|    7|        |        |        |        |        |        |         |         |"
                "          |\r\n|___________|"),
      std::string::npos);
}

TEST(KestoTouchlines, aMarketOfStatusBCShowsAnAsteriskForAQuantityAndNoYieldWithoutOne) {
  const std::string text = reportOf(
      "d|t|k|\nA|1|10000|5|20000|30000|0|40000|0|0|0|BC|7|\nB|2|10000|5|20000|30000|0|40000|0|0|0|"
      "BCD|7|\nC|3|1|5|20000|1|0|40000|0|0|0|bc|7|\n",
      {50, false});
  EXPECT_NE(text.find("|    7|  1.0000|       5|       *|  3.0000|        |        |"), std::string::npos);
  EXPECT_NE(text.find("|    7|  1.0000|       5|  2.0000|  3.0000|        |  4.0000|"), std::string::npos);
  EXPECT_NE(text.find("|    7|  0.0001|       5|  2.0000|  0.0001|        |  4.0000|"), std::string::npos);
}

TEST(KestoTouchlines, aRateOfZeroPrintsAsBlanks) {
  EXPECT_EQ(reportOf("d|t|k|\nA|1|0|0|0|0|0|0|0|0|0|OP|7|\n", {50, false}).find("0.00"), std::string::npos);
}

TEST(KestoTouchlines, fullPageIsFollowedByHeadingOnlyWhereARowFollows) {
  std::string fifty = "d|t|k|\n";
  for (int i = 0; i < 50; ++i) fifty += "A|1|2|3|4|5|6|7|8|9|10|OP|11|\n";
  EXPECT_EQ(pagesOf(reportOf(fifty, {50, false})), 1u);
  EXPECT_EQ(pagesOf(reportOf(fifty + "B|2|\n", {50, false})), 2u);
  EXPECT_EQ(pagesOf(reportOf(fifty, {10, false})), 5u) << "every page holds as many as the first";
}

// ---- Order ------------------------------------------------------------------------------------------------------------

const std::string unsorted =
    "d|t|k|\nB|3|0|0|0|0|0|0|0|0|0|OP|9|\na|-1|0|0|0|0|0|0|0|0|0|OP|-2|\nA|20|0|0|0|0|0|0|0|0|0|OP|9|\n";

TEST(KestoTouchlines, threeOrdersAndTheFilesWhereKeysAreEqual) {
  EXPECT_EQ(idsInOrder(unsorted, KestoTouchlinesSort::scripCode), (std::vector<std::string>{"a", "B", "A"}));
  EXPECT_EQ(idsInOrder(unsorted, KestoTouchlinesSort::scripId), (std::vector<std::string>{"A", "B", "a"}));
  EXPECT_EQ(idsInOrder(unsorted, KestoTouchlinesSort::days), (std::vector<std::string>{"a", "B", "A"}));
}

// ---- Lines and tokens -------------------------------------------------------------------------------------------------

TEST(KestoTouchlines, aRowHasThirteenTokensAndWhatFollowsIsIgnored) {
  const std::vector<KestoDayTouchline> rows = rowsOf("d|t|k|\nAXLEIND|500101|-1|2|3|4|5|6|7|8|9|BC|14|MORE|\n");
  ASSERT_EQ(rows.size(), 1u);
  EXPECT_EQ(rows[0].scripId.view(), "AXLEIND");
  EXPECT_EQ(rows[0].scripCode, 500101);
  EXPECT_EQ(rows[0].lendRate, -1);
  EXPECT_EQ(rows[0].lendQty, 2);
  EXPECT_EQ(rows[0].lendYield, 3);
  EXPECT_EQ(rows[0].borrowRate, 4);
  EXPECT_EQ(rows[0].borrowQty, 5);
  EXPECT_EQ(rows[0].borrowYield, 6);
  EXPECT_EQ(rows[0].stdRate, 7);
  EXPECT_EQ(rows[0].weighAv, 8);
  EXPECT_EQ(rows[0].tradeVolume, 9);
  EXPECT_EQ(rows[0].marketStatus.view(), "BC");
  EXPECT_EQ(rows[0].days, 14);
}

TEST(KestoTouchlines, anEmptyFieldMovesTheFollowingOnesForward) {
  const std::vector<KestoDayTouchline> rows = rowsOf("d|t|k|\nA|1||3|4|5|6|7|8|9|10|OP|11|\n|B|2|\r\n");
  ASSERT_EQ(rows.size(), 2u);
  EXPECT_EQ(rows[0].lendRate, 3);
  EXPECT_EQ(rows[0].tradeVolume, 0);  // the status stands there now, which is no number
  EXPECT_EQ(rows[0].marketStatus.view(), "11");
  EXPECT_EQ(rows[0].days, 0);
  EXPECT_EQ(rows[1].scripId.view(), "B");
  EXPECT_EQ(rows[1].scripCode, 2);
}

TEST(KestoTouchlines, theLineEndIsPartOfNoTokenAndABlankLineIsARowOfZeros) {
  const std::vector<KestoDayTouchline> rows = rowsOf("d|t|k\r\n\r\nLAST");
  EXPECT_EQ(idsOf(rows), (std::vector<std::string>{"", "LAST"}));
  EXPECT_EQ(rows[0].scripCode, 0);
}

TEST(KestoTouchlines, theHeadersTokensPrintAsTheyStandWithoutTheLineEnd) {
  const std::string text = reportOf("one|two\nA|1|\n", {50, false});
  EXPECT_NE(text.find("\r\n         one             two             \r\n|---"), std::string::npos);
}

TEST(KestoTouchlines, aFileOfLineOneAloneOrOfNothingHasZeroScrips) {
  EXPECT_EQ(loadOf("d|t|k|\n"), KestoTouchlinesLoad::zeroScrips);
  EXPECT_EQ(loadOf(""), KestoTouchlinesLoad::zeroScrips);
  EXPECT_EQ(loadOf(std::string(100, 'h') + "\n"), KestoTouchlinesLoad::zeroScrips);  // counted as one line, however it is read
}

// A header that counts twice is as good as a row behind it, and the pieces of 89 characters behind its first one are rows.
TEST(KestoTouchlines, linesAreCountedInPiecesOf129Characters) {
  const auto loadOf = [](std::size_t headerSize) {  // without the line end
    KestoDayTouchlines file;
    const TextFile text(std::string(headerSize, 'h') + "\n");
    const KestoTouchlinesLoad load = loadKestoDayTouchlines(text.open(), file);
    freeKestoDayTouchlines(file);
    return load;
  };
  EXPECT_EQ(loadOf(128), KestoTouchlinesLoad::zeroScrips);
  EXPECT_EQ(loadOf(129), KestoTouchlinesLoad::loaded);
}

TEST(KestoTouchlines, aLineLongerThan89CharactersIsTwoRowsAndTakesNoOthers) {
  std::string line = row("LONG", 89);
  line.insert(89, "TAIL|77|8|");
  EXPECT_EQ(idsOf(rowsOf("d|t|k|\n" + line + row("NEXT", 40))), (std::vector<std::string>{"LONG", "TAIL", "NEXT"}));
  EXPECT_EQ(rowsOf("d|t|k|\n" + line)[1].lendRate, 8);
  EXPECT_EQ(rowsOf("d|t|k|\n" + row("SHORT", 88)).size(), 1u);
}

TEST(KestoTouchlines, aLineCountedTwiceHasAsManyRowsAsPieces) {
  const std::string d = "d|t|k|\n";
  EXPECT_EQ(rowsOf(d + row("A", 177)).size(), 2u);
  EXPECT_EQ(rowsOf(d + row("A", 178)).size(), 3u);
  EXPECT_EQ(rowsOf(d + row("A", 258)).size(), 3u);
  EXPECT_EQ(idsOf(rowsOf(d + row("A", 178) + row("B", 60))).back(), "B");
  EXPECT_EQ(rowsOf(d + std::string(130, 'x')).size(), 2u);  // without a line end
}

TEST(KestoTouchlines, theRestOfAnOverlongHeaderIsARow) {
  const std::vector<std::string> ids = idsOf(rowsOf(std::string(89, 'h') + "REST|1|\nFIRST|2|\n"));
  EXPECT_EQ(ids, (std::vector<std::string>{"REST", "FIRST"}));
}

TEST(KestoTouchlines, textsAreCutToTheirFieldsAndDaysToTheirByte) {
  const std::vector<KestoDayTouchline> rows = rowsOf("d|t|k|\nABCDEFGHIJKLMNOP|1|2|3|4|5|6|7|8|9|10|CLOSED|200|\n");
  EXPECT_EQ(rows[0].scripId.view(), "ABCDEFGHIJK");
  EXPECT_EQ(rows[0].marketStatus.view(), "CLO");
  EXPECT_EQ(rows[0].days, -56);
}

// ---- Failures ---------------------------------------------------------------------------------------------------------

TEST(KestoTouchlines, anOrderWithoutMemoryTestsAsFalse) {
  const TextFile file("d|t|k|\nA|1|\n");
  KestoDayTouchlines loaded;
  ASSERT_EQ(loadKestoDayTouchlines(file.open(), loaded), KestoTouchlinesLoad::loaded);
  faultsArm(Fault::order, 1, false);
  EXPECT_FALSE(orderKestoDayTouchlines(loaded, KestoTouchlinesSort::days));
  faultsReset();
  freeKestoDayTouchlines(loaded);
}

TEST(KestoTouchlines, failuresOfTheLoad) {
  const std::string lines = "d|t|k|\nA|1|\nB|2|\n";
  faultsArm(Fault::memory, 1, false);
  EXPECT_EQ(loadOf(lines), KestoTouchlinesLoad::noMemory);
  faultsArm(Fault::seek, 1, false);
  EXPECT_EQ(loadOf(lines), KestoTouchlinesLoad::notRewound);
  for (const int nth : {1, 3, 4}) {  // the count's first and last, the end of the file told by none
    faultsArm(Fault::read, nth, false);
    EXPECT_EQ(loadOf(lines), KestoTouchlinesLoad::notRead) << nth;
  }
  for (const int nth : {5, 6, 7}) {  // the header and both rows
    faultsArm(Fault::read, nth, false);
    EXPECT_EQ(loadOf(lines), KestoTouchlinesLoad::notRead) << nth;
  }
  faultsReset();
  EXPECT_EQ(loadOf(lines), KestoTouchlinesLoad::loaded);
}

}  // namespace
}  // namespace quillon
