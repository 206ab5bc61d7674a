// The (R) breakup: a line's 76 numbers and their widths, the order, the pages.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "desktop/scripted/faults.h"
#include "kesto/kesto_breakup_file.h"
#include "kesto/kesto_breakup_report.h"
#include "market/market_input.h"
#include "support/approved.h"

namespace quillon {
namespace {

using test::TextFile;

// Numbers as they stand in a file: every cell another value; a short line; lines with tabs and blanks between their groups.
const std::string ordinaryLines =
    "500103|1|901|902|1|11|12|13|14|2|15|16|17|18|\t\t 7|903|904|3|21|22|23|24|1|25|26|27|28|"
    "14|905|906|2|31|32|33|34|3|35|36|37|38|30|907|908|1|41|42|43|44|2|45|46|47|48|"
    "60|909|910|3|51|52|53|54|1|55|56|57|58|\t\t\t61|62|63|64|65|66|67|911|68|69|\n"
    "500101|3|0|0|2|1000|2000|3000|4000|3|5000|6000|7000|8000|\n"
    "500102|1|0|0|1|1|2|3|4|2|5|6|7|8|0|0|0|0|0|0|0|0|0|0|0|0|0|0|0|0|0|0|0|0|0|0|0|0|0|0|0|0|0|0|0|0|0|0|0|0|0|0|0|0|"
    "0|0|0|0|0|0|0|0|0|0|0|0|110|220|330|440|550|660|770|880|990|1100|\n";

// Wider than their cells; 16-bit numbers beyond their width; days beyond 127; types beyond the three.
const std::string wideLines =
    "2147483647|200|1|1|65537|-123456|70000|2147483647|-2147483648|131074|12345678|-1|1234567|7654321|"
    "65663|1|1|4|-99999|65535|1000000|2000000|-1|-100000|65536|3000000|4000000|"
    "128|1|1|0|12345678901|32768|-12345678901|-1|65539|-1|-32768|-1|-1|"
    "127|1|1|1|-1|-1|-1|-1|2|-1|-1|-1|-1|-1|1|1|3|-1|-1|-1|-1|3|-1|-1|-1|-1|"
    "70000|123456789|-12345678|2147483647|-2147483648|-1|99999999|1|1234567890|-123456789|\n"
    "1|1|\n";

struct Loaded {
  FiveDayBreakups file;
  KestoBreakupLoad load = KestoBreakupLoad::notRead;

  explicit Loaded(const std::string& lines) {
    const TextFile text(lines);
    load = loadFiveDayBreakups(text.open(), file);
  }
  Loaded(const Loaded&) = delete;
  Loaded& operator=(const Loaded&) = delete;
  ~Loaded() { freeFiveDayBreakups(file); }
};

std::string reportOf(const std::string& lines, const KestoBreakupOptions& options) {
  const Loaded loaded(lines);
  EXPECT_EQ(loaded.load, KestoBreakupLoad::loaded);
  const RecordOrder order = orderFiveDayBreakups(loaded.file);
  EXPECT_TRUE(order);
  std::string text;
  Output* out = outputToMemory(&text);
  writeFiveDayBreakups(*out, loaded.file, order.positions(), options);
  EXPECT_TRUE(outputClose(out));
  return text;
}

std::size_t pagesOf(const std::string& report) {
  return static_cast<std::size_t>(std::count(report.begin(), report.end(), '\f'));
}

// A line of `count` numbers that are their own places, from 1.
std::string countingLine(int count) {
  std::string line;
  for (int i = 1; i <= count; ++i) line += std::to_string(i) + "|";
  return line;
}

// ---- Pages ------------------------------------------------------------------------------------------------------------

TEST(FiveDayBreakup, ordinaryPages) {
  test::expectApproved("kesto/breakup_ordinary.txt", reportOf(ordinaryLines, {2, false, "05/09/2009", "123"}));
}

TEST(FiveDayBreakup, lendingPagesWithoutABrokerNumber) {
  test::expectApproved("kesto/breakup_lending.txt", reportOf(ordinaryLines, {2, true, "05/09/2009", " "}));
}

TEST(FiveDayBreakup, wideValues) {
  test::expectApproved("kesto/breakup_wide_values.txt", reportOf(wideLines, {1, false, "05/09/2009", "123456789"}));
}

TEST(FiveDayBreakup, pagesHoldRecordsAndOneLineIsOnePage) {
  EXPECT_EQ(pagesOf(reportOf("1|\n", {3, false, "05/09/2009", "1"})), 1u);
  EXPECT_EQ(pagesOf(reportOf("1|\n2|\n3|\n", {3, false, "05/09/2009", "1"})), 1u);
  EXPECT_EQ(pagesOf(reportOf("1|\n2|\n3|\n4|\n", {3, false, "05/09/2009", "1"})), 2u);
  EXPECT_EQ(pagesOf(reportOf("1|\n2|\n3|\n4|\n5|\n6|\n", {2, false, "05/09/2009", "1"})), 3u)
      << "every page holds as many as the first";
}

TEST(FiveDayBreakup, clientTypesHaveTheirLabels) {
  struct Case {
    const char* type;
    const char* cell;
  };
  const Case cases[] = {{"1", "|      |"}, {"2", "|     O|"},  {"3", "|     C|"},     {"0", "|      |"},
                        {"4", "|      |"}, {"-1", "|      |"}, {"65538", "|     O|"}, {"-65533", "|     C|"}};
  for (const Case& c : cases) {
    const std::string text = reportOf("9|5|0|0|" + std::string(c.type) + "|77|\n", {3, false, "05/09/2009", "1"});
    EXPECT_NE(text.find("|       |  5" + std::string(c.cell) + "    77|"), std::string::npos) << c.type;
  }
}

// ---- Numbers ----------------------------------------------------------------------------------------------------------

TEST(FiveDayBreakup, aLineHas76NumbersInTheirOrder) {
  const Loaded loaded(countingLine(80) + "\n");
  ASSERT_EQ(loaded.file.count, 1u);
  const FiveDayBreakup& record = loaded.file.records[0];
  EXPECT_EQ(record.scripCode, 1);
  for (std::size_t i = 0; i < kestoBreakupDays; ++i) {
    const KestoBreakupDay& day = record.days[i];
    const auto before = static_cast<std::int32_t>(1 + 13 * i);
    const std::vector<std::int32_t> read = {day.day,           day.unread[0],   day.unread[1], day.clientType1, day.lendMarket1,
                                            day.borrowMarket1, day.borrowFirm1, day.lendFirm1, day.clientType2, day.lendMarket2,
                                            day.borrowMarket2, day.borrowFirm2, day.lendFirm2};
    for (std::size_t j = 0; j < read.size(); ++j) EXPECT_EQ(read[j], before + static_cast<std::int32_t>(j) + 1);
  }
  EXPECT_EQ(record.totalGP, 67);
  EXPECT_EQ(record.totalLM, 68);
  EXPECT_EQ(record.totalGS, 69);
  EXPECT_EQ(record.totalBM, 70);
  EXPECT_EQ(record.totalBF, 71);
  EXPECT_EQ(record.totalLF, 72);
  EXPECT_EQ(record.netPosition, 73);
  EXPECT_EQ(record.unread, 74);
  EXPECT_EQ(record.grossLend, 75);
  EXPECT_EQ(record.grossBorrow, 76);
}

TEST(FiveDayBreakup, seventeenNumbersKeepTheirLower16BitsAlone) {
  std::string line;
  for (int i = 0; i < 76; ++i) line += "-65535|";
  const Loaded loaded(line + "\n");
  const FiveDayBreakup& record = loaded.file.records[0];
  EXPECT_EQ(record.scripCode, -65535);
  for (const KestoBreakupDay& day : record.days) {
    const std::vector<std::int32_t> read = {day.day,           day.unread[0],   day.unread[1], day.clientType1, day.lendMarket1,
                                            day.borrowMarket1, day.borrowFirm1, day.lendFirm1, day.clientType2, day.lendMarket2,
                                            day.borrowMarket2, day.borrowFirm2, day.lendFirm2};
    for (std::size_t j = 0; j < read.size(); ++j) EXPECT_EQ(read[j], j == 0 || j == 5 || j == 10 ? 1 : -65535) << j;
  }
  EXPECT_EQ(record.totalGP, 1);
  EXPECT_EQ(record.totalLF, 1);
  const std::vector<std::int32_t> others = {record.totalLM,     record.totalGS, record.totalBM,   record.totalBF,
                                            record.netPosition, record.unread,  record.grossLend, record.grossBorrow};
  for (const std::int32_t other : others) EXPECT_EQ(other, -65535);
}

TEST(FiveDayBreakup, aBorrowMarketOf70000PrintsAs4464) {
  const std::string text = reportOf("9|5|0|0|2|77|70000|\n", {3, false, "05/09/2009", "1"});
  EXPECT_NE(text.find("|       |  5|     O|    77|  4464|     0|     0|"), std::string::npos);
}

TEST(FiveDayBreakup, daysAbove127PrintNegative) {
  for (const auto& [day, cell] : {std::pair("127", "|127|"), {"128", "|-128|"}, {"255", "| -1|"}, {"256", "|  0|"}}) {
    const std::string text = reportOf("9|" + std::string(day) + "|0|0|2|77|\n", {3, false, "05/09/2009", "1"});
    EXPECT_NE(text.find("|       " + std::string(cell) + "     O|    77|"), std::string::npos) << day;
  }
}

TEST(FiveDayBreakup, aLineWithFewerNumbersLeavesTheRestZero) {
  const Loaded loaded(countingLine(70) + "71\n" + "5|x|6|\n" + "7|8 |9|\n" + "\n" + "10|| 11|\n");
  ASSERT_EQ(loaded.load, KestoBreakupLoad::loaded);
  ASSERT_EQ(loaded.file.count, 5u);
  const FiveDayBreakup* const records = loaded.file.records;
  EXPECT_EQ(records[0].totalBF, 71);  // a number at the end needs no '|'
  EXPECT_EQ(records[0].totalLF, 0);
  EXPECT_EQ(records[1].scripCode, 5);
  EXPECT_EQ(records[1].days[0].day, 0);
  EXPECT_EQ(records[1].days[0].unread[0], 0);
  EXPECT_EQ(records[2].days[0].day, 8);
  EXPECT_EQ(records[2].days[0].unread[0], 0);
  EXPECT_EQ(records[3].scripCode, 0);
  EXPECT_EQ(records[4].scripCode, 10);
  EXPECT_EQ(records[4].days[0].day, 0);
}

TEST(FiveDayBreakup, aShortLinePrintsZeros) {
  const std::string text = reportOf("9|\n", {3, false, "05/09/2009", "1"});
  EXPECT_NE(text.find("|      9|   |      |      |      |      |      |      0|      0|      0|      0|      0|      0|      0|"
                      "        0|        0|\r\n|       |  0|      |     0|     0|     0|     0|       |"),
            std::string::npos);
}

TEST(FiveDayBreakup, aLineOfMoreThan999CharactersIsTwoRecords) {
  std::string line = "1|2|";
  line.resize(999, ' ');
  const Loaded loaded(line + "3|4|\n");
  ASSERT_EQ(loaded.file.count, 2u);
  EXPECT_EQ(loaded.file.records[1].scripCode, 3);
  EXPECT_EQ(Loaded(line.substr(0, 998) + "\n").file.count, 1u);
}

// ---- Order and failures -----------------------------------------------------------------------------------------------

TEST(FiveDayBreakup, recordsStandByScripCodeAndThoseOfOneScripInTheFilesOrder) {
  const Loaded loaded("2|30|\n-1|40|\n2|10|\n1|50|\n2|20|\n");
  const RecordOrder order = orderFiveDayBreakups(loaded.file);
  ASSERT_TRUE(order);
  std::vector<std::int32_t> days;
  for (const std::uint32_t position : order.positions()) days.push_back(loaded.file.records[position].days[0].day);
  EXPECT_EQ(days, (std::vector<std::int32_t>{40, 50, 30, 10, 20}));
}

TEST(FiveDayBreakup, anOrderWithoutMemoryTestsAsFalse) {
  const Loaded loaded("1|\n2|\n");
  faultsArm(Fault::order, 1, false);
  EXPECT_FALSE(orderFiveDayBreakups(loaded.file));
  faultsReset();
}

TEST(FiveDayBreakup, failuresOfTheLoad) {
  EXPECT_EQ(Loaded("").load, KestoBreakupLoad::zeroRecords);
  const std::string lines = "1|\n2|\n";
  faultsArm(Fault::memory, 1, false);
  EXPECT_EQ(Loaded(lines).load, KestoBreakupLoad::noMemory);
  faultsArm(Fault::seek, 1, false);
  EXPECT_EQ(Loaded(lines).load, KestoBreakupLoad::notRewound);
  for (const int nth : {1, 2, 3, 4, 5}) {  // three reads of the count, then both records
    faultsArm(Fault::read, nth, false);
    EXPECT_EQ(Loaded(lines).load, KestoBreakupLoad::notRead) << nth;
  }
  faultsReset();
}

}  // namespace
}  // namespace quillon
