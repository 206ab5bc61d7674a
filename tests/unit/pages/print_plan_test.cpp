// What the print dialog says of its entries, and what it then prints.
#include "pages/print_plan.h"

#include <gtest/gtest.h>

namespace quillon {
namespace {

// A report of so many pages of 60 lines with 147 columns.
PageIndex reportOf(std::size_t pages) {
  std::string bytes;
  for (std::size_t page = 0; page < pages; ++page) {
    for (int line = 0; line < 60; ++line) bytes += std::string(147, 'x') + "\r\n";
    bytes += '\f';
  }
  PageIndex index = pageIndexStart();
  pageIndexFinish(index, bytes);
  return index;
}

PrintPlan planned(const PrintEntries& entries, std::size_t pages = 12, std::size_t thisPage = 0) {
  return printPlan(entries, {}, reportOf(pages), thisPage);
}

std::string refused(const PrintEntries& entries, std::size_t pages = 12) {
  const PrintPlan plan = planned(entries, pages);
  EXPECT_FALSE(plan.possible) << plan.status;
  return plan.status;
}

TEST(PrintPlan, tellsTheFitAndTheSheets) {
  const PrintPlan plan = planned({});
  EXPECT_TRUE(plan.possible);
  EXPECT_EQ(plan.status, "147 columns, landscape, 8.9 pt; 12 sheets");
  EXPECT_EQ(plan.first, 0u);
  EXPECT_EQ(plan.last, 11u);
  EXPECT_EQ(planned({}, 1).status, "147 columns, landscape, 8.9 pt; 1 sheet");
}

TEST(PrintPlan, takesTheUsersOrientationFontAndMargins) {
  PrintEntries entries;
  entries.orientation = Orientation::portrait;
  entries.fontSize = "5,5";
  entries.left = "20";
  entries.top = "0";
  const PrintPlan plan = planned(entries);
  EXPECT_EQ(plan.status, "147 columns, portrait, 5.5 pt; 12 sheets");
  EXPECT_DOUBLE_EQ(plan.fit.left, 20 * pointsPerMillimetre);
  EXPECT_EQ(plan.fit.top, 0);
}

TEST(PrintPlan, aPrinterThatDoesNotTurnTheSheet) {
  PrinterSheet upright;
  upright.turns = false;
  EXPECT_EQ(printPlan({}, upright, reportOf(12), 0).status, "147 columns, portrait, 6.1 pt; 12 sheets");
  PrintEntries entries;
  entries.orientation = Orientation::landscape;
  const PrintPlan plan = printPlan(entries, upright, reportOf(12), 0);
  EXPECT_FALSE(plan.possible);
  EXPECT_EQ(plan.status, "This printer cannot print landscape.");
}

TEST(PrintPlan, tellsWhatDoesNotFit) {
  PrintEntries entries;
  entries.fontSize = "12";
  entries.orientation = Orientation::portrait;
  entries.pages = PagesChosen::thisPage;
  EXPECT_EQ(planned(entries).status, "147 columns, portrait, 12.0 pt: 74 columns fit; 1 sheet");
}

TEST(PrintPlan, countsTheSheetsOfAllCopies) {
  PrintEntries entries;
  entries.copies = "3";
  entries.pages = PagesChosen::fromTo;
  entries.from = "2";
  entries.to = "5";
  const PrintPlan plan = planned(entries);
  EXPECT_EQ(plan.status, "147 columns, landscape, 8.9 pt; 12 sheets");
  EXPECT_EQ(plan.first, 1u);
  EXPECT_EQ(plan.last, 4u);
  EXPECT_EQ(plan.copies, 3u);
}

TEST(PrintPlan, thePageInFrontOfTheUser) {
  PrintEntries entries;
  entries.pages = PagesChosen::thisPage;
  EXPECT_EQ(planned(entries, 12, 7).first, 7u);
  EXPECT_EQ(planned(entries, 12, 7).last, 7u);
  EXPECT_EQ(planned(entries, 3, 7).last, 2u) << "a report that has become shorter meanwhile";
}

TEST(PrintPlan, anOpenRangeGoesToTheLastPage) {
  PrintEntries entries;
  entries.pages = PagesChosen::fromTo;
  entries.from = "11";
  EXPECT_EQ(planned(entries).last, 11u);
  entries.to = "99";
  EXPECT_EQ(planned(entries).last, 11u);
}

TEST(PrintPlan, refusesPagesThatAreNotThere) {
  PrintEntries entries;
  entries.pages = PagesChosen::fromTo;
  for (const char* from : {"", "0", "13", "x", "-1", "1.5", "99999999999999999999"}) {
    entries.from = from;
    EXPECT_EQ(refused(entries), "There is no such page: the report has pages 1 to 12.") << from;
  }
  EXPECT_EQ(refused(entries, 1), "There is no such page: the report has one page.");
  entries.from = "3";
  entries.to = "x";
  EXPECT_EQ(refused(entries), "There is no such page: the report has pages 1 to 12.");
  entries.to = "2";
  EXPECT_EQ(refused(entries), "The first page comes behind the last one.");
}

TEST(PrintPlan, refusesMarginsThatAreNoLengthEachByItsName) {
  PrintEntries entries;
  entries.bottom = "501";
  EXPECT_EQ(refused(entries), "The bottom margin is to be a number of millimetres from 0 to 500.");
  entries.right = "-1";
  EXPECT_EQ(refused(entries), "The right margin is to be a number of millimetres from 0 to 500.");
  entries.top = "";
  EXPECT_EQ(refused(entries), "The top margin is to be a number of millimetres from 0 to 500.");
  entries.left = "ten";
  EXPECT_EQ(refused(entries), "The left margin is to be a number of millimetres from 0 to 500.");
}

TEST(PrintPlan, refusesMarginsThatLeaveNoRoom) {
  PrintEntries entries;
  entries.left = "200";
  entries.right = "200";
  EXPECT_EQ(refused(entries), "The margins leave no room on the sheet.");
}

TEST(PrintPlan, refusesFontsAndCopiesThatAreNone) {
  PrintEntries entries;
  entries.copies = "0";
  EXPECT_EQ(refused(entries), "Copies are to be a number from 1 to 999.");
  entries.copies = "1000";
  EXPECT_EQ(refused(entries), "Copies are to be a number from 1 to 999.");
  for (const char* size : {"0.9", "72.1", "large"}) {
    entries.fontSize = size;
    EXPECT_EQ(refused(entries), "The font size is to be a number of points from 1 to 72.") << size;
  }
}

TEST(PrintPlan, anEmptyReportHasNothingToPrint) {
  const PrintPlan plan = printPlan({}, {}, reportOf(0), 0);
  EXPECT_FALSE(plan.possible);
  EXPECT_EQ(plan.status, "The report has no page to print.");
}

TEST(PrintPlan, aReportWithMorePagesThanAreKnownIsNotPrintedAsIfItWereWhole) {
  PageIndex index = reportOf(12);
  index.read.full = true;
  PrintEntries entries;
  EXPECT_EQ(printPlan(entries, {}, index, 0).status, "The report has more pages than the 12 that can be printed.");
  entries.pages = PagesChosen::fromTo;
  entries.from = "3";
  EXPECT_FALSE(printPlan(entries, {}, index, 0).possible);
  entries.to = "11";
  EXPECT_TRUE(printPlan(entries, {}, index, 0).possible);
}

TEST(PrintPlan, marginsAreAtLeastWhatThePrinterLeavesBare) {
  PrinterSheet sheet;
  sheet.barePortrait = {12, 12, 12, 48};
  sheet.bareLandscape = {48, 12, 12, 12};
  const PageIndex index = reportOf(2);
  PrintPlan plan = printPlan({}, sheet, index, 0);
  EXPECT_EQ(plan.fit.left, 48);  // the usual 10 mm are 28.3 points
  EXPECT_DOUBLE_EQ(plan.fit.top, usualMargin);
  // 841.89 - 48 - 28.35 = 765.5 points for 147 * 0.6
  EXPECT_EQ(plan.status, "147 columns, landscape, 8.6 pt, margins as wide as the printer needs; 2 sheets");
  PrintEntries entries;
  entries.left = "20";
  plan = printPlan(entries, sheet, index, 0);
  EXPECT_DOUBLE_EQ(plan.fit.left, 20 * pointsPerMillimetre);
  EXPECT_FALSE(plan.fit.widened);
}

TEST(PrintPlan, bytesAreTold) {
  EXPECT_EQ(bytesText(0), "0 bytes");
  EXPECT_EQ(bytesText(1), "1 byte");
  EXPECT_EQ(bytesText(999), "999 bytes");
  EXPECT_EQ(bytesText(48213), "48,213 bytes");
  EXPECT_EQ(bytesText(524288000), "524,288,000 bytes");
}

}  // namespace
}  // namespace quillon
