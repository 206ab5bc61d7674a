// The pages of an admin log, section by section.
#include "logs/admin_log_report.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <numeric>

#include "logs/admin_records.h"
#include "support/approved.h"

namespace quillon::test {
namespace {

constexpr std::int32_t most = std::numeric_limits<std::int32_t>::max(), least = std::numeric_limits<std::int32_t>::min();
constexpr std::string_view letters48 = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuv";

const std::vector<TraderLimits> traders = {
    {7, "ANIL", "YNYNABCDEFGHIJKLM", {9, 5, 3}, 9, 25, 30, -5, 1500, 2500, 100, 7, "LIMIT ACCEPTED"},
    {12,
     "BRANCH-WEST",
     "NYNYNYNYNYNYNYNYN",
     {10, 15, 0},
     1,
     100,
     200,
     300,
     40000,
     50000,
     60000,
     90,
     "Limit set by the administrator of this member"},
    {345,
     "SIXLET",
     "01234567890abcdef",
     {15, 29, 59},
     11,
     99999,
     99999,
     99999,
     999999999,
     999999999,
     999999999,
     99999,
     "SIXTEEN-LETTERS.CR\rlost"},
};
const std::vector<TraderLimits> wideTraders = {
    {123456789,
     "TWELVE-LETTR",
     "abcdefghijklmnopq",
     {255, 254, 253},
     21,
     most,
     least,
     most,
     least,
     most,
     least,
     most,
     letters48},
    {least,
     "SEVEN-7",
     "ABCDEFGHIJKLMNOPQ",
     {100, 100, 0},
     16,
     least,
     most,
     -100000,
     most,
     least,
     -1234567890,
     -100000,
     "ABCDEFGHIJKLMNOPQRSTUVWXYZ1234567890\nlost"},
};
const std::vector<TraderLimits> narrowTraders = {
    {1, "A", "ABCDEFGHIJKLMNOPQ", {9, 5, 3}, 10, 1, 2, 3, 4, 5, 6, 8, "X"},
    {-1, "BC", "qrstuvwxyz0123456", {0, 0, 0}, 2, -12, -23, -34, -456, -567, -678, -89, "SEVENTEEN-LETTERS"},
    {23, "DEFGHIJ", "RSTUVWXYZ!?+-*/=_", {23, 9, 8}, 12, 123, 456, 789, 12, 23, 34, 567, "THIRTY-THREE-LETTERS-IN-THIS-ONE."},
};

const std::vector<ScripLimits> scrips = {
    {7, 500010, 100000, 200000, "AXLE", {9, 5, 3}, 10, "LIMIT ACCEPTED"},
    {12, 532540, 0, -1, "BOLTSTEEL", {10, 15, 0}, 11, "Trader has no rights in this scrip\r\n"},
    {345, 500011, 999999999, 999999999, "CRANKSHAFT1", {15, 29, 59}, 9, "Limit set by the administrator of this member"},
};
const std::vector<ScripLimits> wideScrips = {
    {most, most, most, most, "TWELVE-LETTR", {255, 254, 253}, 21, letters48},
    {least, least, least, least, "ELEVENCHARS", {100, 100, 0}, 17, "\nlost"},
};
const std::vector<ScripLimits> narrowScrips = {
    {1, 2, 3, 4, "A", {9, 5, 3}, 18, "X"},
    {-1, -12, -123, -45, "BCD", {0, 0, 0}, 2, ""},
    {23, 456, 78, 901, "EF", {23, 9, 8}, 20, "OK"},
};

const std::vector<GroupLimits> groups = {
    {7, 25, 30, {9, 5, 3}, "A", 13, "LIMIT ACCEPTED"},
    {12, 0, -7, {10, 15, 0}, "B1", 14, "No such group\n"},
    {345, 99999999, 999999999, {15, 29, 59}, "ZZ", 19, "Limit set by the administrator of this member"},
};
const std::vector<GroupLimits> wideGroups = {
    {most, 1e15, -1e15, {255, 254, 253}, "XYZ", 15, letters48},
    {least, 12345678901.0, -123456789.0, {100, 100, 0}, "T", 2, "\rlost"},
};
// Halves go to the even neighbour; what is rounded to nothing keeps its sign.
const std::vector<GroupLimits> narrowGroups = {
    {1, 2.5, 3.5, {9, 5, 3}, "A", 1, "X"},
    {-1, -0.4, -123.6, {0, 0, 0}, "B", 2, ""},
    {23, 0.5, 99.49, {23, 9, 8}, "CD", 9, "OK"},
};

const std::vector<Activity> activities = {
    {7, "PASSWORD CHANGE", "OLDPWD1", "NEWPWD1", {9, 5, 3}, "PASSWORD CHANGED"},
    {12, "LOGON", "", "", {10, 15, 0}, "Logged on\r\n"},
    {345, "FORCED LOGOFF OF ALL", "TEN-LETTRS", "TEN-LETTER", {15, 29, 59}, "Done by the administrator of this member"},
};
const std::vector<Activity> wideActivities = {
    {most, "TWENTY-LETTERS-IN-IT", "ELEVENCHARS", "ELEVENCHARZ", {255, 254, 253}, letters48},
    {least, "NINETEEN-LETTERS-19", "A", "B", {100, 100, 0}, "\r\n"},
};
const std::vector<Activity> narrowActivities = {
    {1, "A", "B", "C", {9, 5, 3}, "X"},
    {-1, "", "DE", "", {0, 0, 0}, ""},
    {-23, "FGH", "", "IJ", {23, 9, 8}, "OK"},
};

AdminPage pageOf(bool isLendingFile, unsigned recordsPerPage) {
  AdminPage page = {{}, isLendingFile, recordsPerPage, 0};
  page.header.memberId = 123;
  page.header.day = 5;
  page.header.month = 4;
  page.header.century = 20;
  page.header.yearOfCentury = 9;
  return page;
}

AdminPage widePage(bool isLendingFile) {
  AdminPage page = pageOf(isLendingFile, 1);
  page.header.memberId = most;
  page.header.day = -32768;
  page.header.month = 32767;
  page.header.century = -1;
  page.header.yearOfCentury = 100;
  return page;
}

AdminPage narrowPage(bool isLendingFile) {
  AdminPage page = pageOf(isLendingFile, 25);
  page.header.memberId = -4;
  page.header.day = 1;
  page.header.month = 2;
  page.header.century = 3;
  page.header.yearOfCentury = 4;
  return page;
}

// A section's records as the report takes them.
struct Section {
  AdminSection section;
  std::string bytes;
  std::vector<std::uint32_t> order;
};

template <class Row>
Section sectionFrom(AdminSection section, const std::vector<Row>& rows) {
  Section made = {section, sectionOf(rows), std::vector<std::uint32_t>(rows.size())};
  std::iota(made.order.begin(), made.order.end(), 0u);
  return made;
}
Section sectionOfRows(const std::vector<TraderLimits>& rows) { return sectionFrom(AdminSection::traderLimits, rows); }
Section sectionOfRows(const std::vector<ScripLimits>& rows) { return sectionFrom(AdminSection::scripLimits, rows); }
Section sectionOfRows(const std::vector<GroupLimits>& rows) { return sectionFrom(AdminSection::groupLimits, rows); }
Section sectionOfRows(const std::vector<Activity>& rows) { return sectionFrom(AdminSection::activities, rows); }

std::string reportOf(const std::vector<Section>& sections, AdminPage& page) {
  std::string text;
  Output* out = outputToMemory(&text);
  for (const Section& section : sections) printAdminSection(*out, section.section, section.bytes.data(), section.order, page);
  EXPECT_TRUE(outputClose(out));
  return text;
}

template <class Row>
std::string reportOf(const std::vector<Row>& rows, AdminPage page) {
  return reportOf({sectionOfRows(rows)}, page);
}

// All pages of a section in one layout. `name` is that of its approved files.
template <class Row>
void expectPages(const std::string& name, bool isLendingFile, const std::vector<Row>& ordinary, const std::vector<Row>& wide,
                 const std::vector<Row>& narrow) {
  expectApproved("logs/" + name + ".txt", reportOf(ordinary, pageOf(isLendingFile, 2)));
  expectApproved("logs/" + name + "_full_page.txt", reportOf(ordinary, pageOf(isLendingFile, 3)));
  expectApproved("logs/" + name + "_empty.txt", reportOf(std::vector<Row>(), pageOf(isLendingFile, 25)));
  expectApproved("logs/" + name + "_wide_values.txt", reportOf(wide, widePage(isLendingFile)));
  expectApproved("logs/" + name + "_narrow_values.txt", reportOf(narrow, narrowPage(isLendingFile)));
}

TEST(AdminReport, traderLimitsOfANormalFile) { expectPages("admin_traders", false, traders, wideTraders, narrowTraders); }
TEST(AdminReport, traderLimitsOfALendingFileHaveSixFlagsFewer) {
  expectPages("admin_traders_lending", true, traders, wideTraders, narrowTraders);
}
TEST(AdminReport, scripLimitsOfANormalFile) { expectPages("admin_scrips", false, scrips, wideScrips, narrowScrips); }
TEST(AdminReport, scripLimitsOfALendingFileBorrowAndLend) {
  expectPages("admin_scrips_lending", true, scrips, wideScrips, narrowScrips);
}
TEST(AdminReport, groupLimitsInWholeLakhs) { expectPages("admin_groups", false, groups, wideGroups, narrowGroups); }
TEST(AdminReport, activitiesOfANormalFile) {
  expectPages("admin_activities", false, activities, wideActivities, narrowActivities);
}
TEST(AdminReport, activitiesOfALendingFileUnderItsExchangeLine) {
  expectPages("admin_activities_lending", true, activities, wideActivities, narrowActivities);
}

TEST(AdminReport, pagesAreNumberedStraightThroughAllReportsOfARun) {
  AdminPage page = pageOf(false, 2);
  const std::string report =
      reportOf({sectionOfRows(traders), sectionOfRows(scrips), sectionOfRows(groups), sectionOfRows(activities)}, page);
  expectApproved("logs/admin_whole_run.txt", report);
  EXPECT_EQ(page.number, 8);
}
TEST(AdminReport, pagesOfALendingRunAreNumberedStraightThroughItsThreeReports) {
  AdminPage page = pageOf(true, 2);
  const std::string report = reportOf({sectionOfRows(traders), sectionOfRows(scrips), sectionOfRows(activities)}, page);
  expectApproved("logs/admin_whole_run_lending.txt", report);
  EXPECT_EQ(page.number, 6);
}

TEST(AdminReport, threeFigurePageNumberWidensItsCell) {
  const std::string report = reportOf(std::vector<ScripLimits>(100, scrips[0]), pageOf(false, 1));
  EXPECT_NE(report.find("     Page: 9\r\n"), std::string::npos);
  EXPECT_NE(report.find("     Page:10\r\n"), std::string::npos);
  EXPECT_NE(report.find("     Page:100\r\n"), std::string::npos);
}

TEST(AdminReport, recordsComeInTheGivenOrder) {
  Section section = sectionOfRows(activities);
  section.order = {2, 0, 1};
  AdminPage page = pageOf(false, 25);
  const std::string report = reportOf({section}, page);
  EXPECT_LT(report.find("FORCED"), report.find("PASSWORD"));
  EXPECT_LT(report.find("PASSWORD"), report.find("LOGON"));
}

// The cells of one line between its bars.
std::vector<std::string> cellsOf(const std::string& line) {
  std::vector<std::string> cells;
  for (std::size_t at = line.find('|'); at != std::string::npos;) {
    const std::size_t end = line.find('|', at + 1);
    if (end == std::string::npos) break;
    cells.push_back(line.substr(at + 1, end - at - 1));
    at = end;
  }
  return cells;
}

std::vector<std::string> traderLines(const TraderLimits& trader, bool isLendingFile) {
  const std::vector<std::string> lines =
      linesOf(withoutCarriageReturns(reportOf(std::vector{trader}, pageOf(isLendingFile, 25))));
  constexpr std::size_t headingLines = 13;
  return {lines.begin() + headingLines, lines.begin() + headingLines + 3};
}

TEST(AdminReport, messageWithACrAtPosition20FillsSixteenAndFourCharacters) {
  for (const bool isLendingFile : {false, true}) {
    TraderLimits trader = traders[0];
    trader.message = "0123456789abcdefghij\rklmnopqrstuvwxyzABCDEFGHIJ";
    const std::vector<std::string> lines = traderLines(trader, isLendingFile);
    EXPECT_EQ(cellsOf(lines[0]).back(), "0123456789abcdef");
    EXPECT_EQ(cellsOf(lines[1]).back(), "            ghij");
    EXPECT_EQ(cellsOf(lines[2]).back(), "                ");
  }
}

TEST(AdminReport, aliasOfSevenOrMoreCharactersContinuesInTheSecondLine) {
  struct Case {
    std::string_view alias;
    std::string first, second;
  };
  for (const Case& c : {Case{"", "      ", "      "}, Case{"ABCDEF", "ABCDEF", "      "}, Case{"ABCDEFG", "ABCDEF", "     G"},
                        Case{"ABCDEFGHIJKL", "ABCDEF", "GHIJKL"}}) {
    for (const bool isLendingFile : {false, true}) {
      TraderLimits trader = traders[0];
      trader.alias = c.alias;
      const std::vector<std::string> lines = traderLines(trader, isLendingFile);
      EXPECT_EQ(cellsOf(lines[0])[1], c.first) << c.alias;
      EXPECT_EQ(cellsOf(lines[1])[1], c.second) << c.alias;
    }
  }
}

TEST(AdminReport, opCode3WritesANulByteInItsColumn) {
  using std::string_literals::operator""s;
  TraderLimits trader = traders[0];
  trader.opCode = 3;
  EXPECT_NE(reportOf(std::vector{trader}, pageOf(false, 25)).find("|    7L|09:05|\0|  LIMIT ACCEPTED|\r\n"s),
            std::string::npos);
  EXPECT_NE(reportOf(std::vector{trader}, pageOf(true, 25)).find("|    7L|09:05|\0|  LIMIT ACCEPTED|\r\n"s), std::string::npos);
  ScripLimits scrip = scrips[0];
  scrip.opCode = 3;
  EXPECT_NE(reportOf(std::vector{scrip}, pageOf(false, 25)).find("|09:05|       \0|      "s), std::string::npos);
  GroupLimits group = groups[0];
  group.opCode = 3;
  EXPECT_NE(reportOf(std::vector{group}, pageOf(false, 25)).find("|09:05|       \0|      "s), std::string::npos);
}

// Flags are printed whatever they are.
TEST(AdminReport, flagThatIsNoneIsANulByte) {
  using std::string_literals::operator""s;
  using std::string_view_literals::operator""sv;
  TraderLimits trader = traders[0];
  trader.flags = "Y\0YYYYYYYYYYYYYYY"sv;
  EXPECT_NE(reportOf(std::vector{trader}, pageOf(false, 25)).find("|  ANIL|Y|Y|Y|\0|Y|"s), std::string::npos);
}

TEST(AdminReport, lastPageOfTraderLimitsIsRuledUnlessItIsFullOrEmpty) {
  const auto lastRule = [](std::size_t count, unsigned recordsPerPage) {
    const std::vector<std::string> lines =
        linesOf(withoutCarriageReturns(reportOf(std::vector<TraderLimits>(count, traders[0]), pageOf(false, recordsPerPage))));
    return cellsOf(lines[lines.size() - 2]).back();
  };
  constexpr char rule[] = "________________", empty[] = "                ";
  EXPECT_EQ(lastRule(1, 2), rule);
  EXPECT_EQ(lastRule(2, 2), empty);
  EXPECT_EQ(lastRule(3, 2), rule);
  EXPECT_EQ(lastRule(4, 2), empty);
  EXPECT_EQ(lastRule(1, 1), empty);
  EXPECT_EQ(lastRule(49, 50), rule);
  EXPECT_EQ(lastRule(50, 50), empty);
}

TEST(AdminReport, limitThatIsNoNumberIsPrintedAsTheLibraryDoes) {
  GroupLimits group = groups[0];
  group.buyLimit = std::numeric_limits<double>::infinity();
  group.sellLimit = -std::numeric_limits<double>::infinity();
  EXPECT_NE(reportOf(std::vector{group}, pageOf(false, 25)).find("|      infL|     -infL|"), std::string::npos);
}

}  // namespace
}  // namespace quillon::test
