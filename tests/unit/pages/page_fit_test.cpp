// How pages come onto a sheet. The numbers are worked out by hand: on A4 with margins of 10 mm, 785.2 points lie across and
// 538.6 down a sheet in landscape.
#include "pages/page_fit.h"

#include <gtest/gtest.h>

#include <limits>

namespace quillon {
namespace {

PageFit fitted(std::size_t columns, std::size_t lines, const FitWishes& wishes = {}) {
  PageFit fit;
  EXPECT_TRUE(pageFit(columns, lines, wishes, fit));
  return fit;
}

std::string told(std::size_t columns, std::size_t lines, const FitWishes& wishes = {}) {
  return pageFitText(fitted(columns, lines, wishes));
}

TEST(PageFit, aWideReportLiesAcross) {
  EXPECT_EQ(told(147, 60), "147 columns, landscape, 8.9 pt");  // 785.2 / (147 * 0.6) = 8.902
  EXPECT_EQ(told(190, 60), "190 columns, landscape, 6.8 pt");  // 6.888, cut and not rounded up
}

TEST(PageFit, aNarrowReportStandsUprightWithTenCharactersAnInch) { EXPECT_EQ(told(66, 60), "66 columns, portrait, 12.0 pt"); }

TEST(PageFit, aLongPageOfMiddlingWidthStandsUpright) {
  EXPECT_EQ(told(90, 66), "90 columns, portrait, 9.9 pt");  // 538.6 / 54 = 9.97 upright; across 538.6 / 66 = 8.1
}

TEST(PageFit, theLengthOfThePageLimitsToo) {
  EXPECT_EQ(told(132, 66), "132 columns, landscape, 8.1 pt");  // 538.6 / 66 = 8.16, 785.2 / 79.2 = 9.91
  EXPECT_EQ(told(10, 200), "10 columns, portrait, 3.9 pt");    // 785.2 / 200
}

TEST(PageFit, ofTwoAlikeTheUprightSheetIsTaken) { EXPECT_FALSE(fitted(20, 10).landscape); }

TEST(PageFit, everythingFitsBetweenTheMargins) {
  for (std::size_t columns : {1u, 60u, 132u, 147u, 190u, 512u}) {
    for (std::size_t lines : {1u, 20u, 60u, 66u, 90u, 200u}) {
      const PageFit fit = fitted(columns, lines);
      EXPECT_EQ(fit.columnsFit, columns);
      EXPECT_EQ(fit.linesFit, lines);
      EXPECT_LE(fit.left + columns * 0.6 * fit.fontSize, fit.width - usualMargin + 0.001);
      EXPECT_LE(fit.top + lines * fit.lineHeight, fit.height - usualMargin + 0.001);
      EXPECT_GE(fit.lineHeight, fit.fontSize);
      EXPECT_LE(fit.lineHeight, fit.fontSize * 1.2 + 0.001);
    }
  }
}

TEST(PageFit, linesStandFartherApartWhereThereIsRoom) {
  EXPECT_DOUBLE_EQ(fitted(147, 20).lineHeight, 8.9 * 1.2);
  EXPECT_NEAR(fitted(132, 66).lineHeight, 538.59 / 66, 0.01);
}

TEST(PageFit, theUserChoosesTheOrientation) {
  FitWishes wishes;
  wishes.orientation = Orientation::portrait;
  EXPECT_EQ(told(147, 60, wishes), "147 columns, portrait, 6.1 pt");  // 538.6 / 88.2
  wishes.orientation = Orientation::landscape;
  EXPECT_EQ(told(60, 20, wishes), "60 columns, landscape, 12.0 pt");
}

TEST(PageFit, aFontThatTheUserChoseTellsWhatDoesNotFit) {
  FitWishes wishes;
  wishes.fontSize = 12;
  EXPECT_EQ(told(147, 40, wishes), "147 columns, landscape, 12.0 pt: 109 columns fit");  // 785.2 / 7.2
  wishes.orientation = Orientation::portrait;
  EXPECT_EQ(told(147, 40, wishes), "147 columns, portrait, 12.0 pt: 74 columns fit");
  EXPECT_EQ(told(147, 70, wishes), "147 columns, portrait, 12.0 pt: 74 columns fit and 65 of 70 lines");
  EXPECT_EQ(told(70, 70, wishes), "70 columns, portrait, 12.0 pt: 65 of 70 lines fit");
}

TEST(PageFit, oneOfSeveralColumns) {
  FitWishes wishes;
  wishes.sheet = {100, 100};
  wishes.margins = {20, 20, 20, 20};
  wishes.fontSize = 60;
  EXPECT_EQ(told(3, 1, wishes), "3 columns, portrait, 60.0 pt: 1 column fits");
  wishes.fontSize = 50;
  EXPECT_EQ(told(3, 1, wishes), "3 columns, portrait, 50.0 pt: 2 columns fit");
}

TEST(PageFit, whatIsNoSizeCountsAsNone) {
  FitWishes wishes;
  wishes.fontSize = -3;
  EXPECT_EQ(told(66, 60, wishes), "66 columns, portrait, 12.0 pt");
  wishes.fontSize = std::numeric_limits<double>::quiet_NaN();
  EXPECT_EQ(told(66, 60, wishes), "66 columns, portrait, 12.0 pt");
  wishes.fontSize = 0.3;
  EXPECT_EQ(told(66, 60, wishes), "66 columns, portrait, 1.0 pt");
  PageFit fit;
  wishes.fontSize = std::numeric_limits<double>::infinity();
  EXPECT_FALSE(pageFit(66, 60, wishes, fit));
  wishes.fontSize = 0;
  wishes.margins.left = std::numeric_limits<double>::quiet_NaN();
  EXPECT_FALSE(pageFit(66, 60, wishes, fit));
}

TEST(PageFit, theLargestReportThatThereIs) {
  const PageFit fit = fitted(4096, 200);  // lines of tabs
  EXPECT_EQ(fit.fontSize, 1);
  EXPECT_TRUE(fit.landscape);
  EXPECT_EQ(pageFitText(fit), "4096 columns, landscape, 1.0 pt: 1308 columns fit");  // 785.2 / 0.6
}

TEST(PageFit, theWholeSheetWithoutMargins) {
  FitWishes wishes;
  wishes.margins = {0, 0, 0, 0};
  EXPECT_EQ(told(132, 66, wishes), "132 columns, landscape, 9.0 pt");  // 595.28 / 66 = 9.02
  EXPECT_EQ(fitted(132, 66, wishes).left, 0);
}

TEST(PageFit, marginsAreThoseOfTheSheetAsItLies) {
  FitWishes wishes;
  wishes.margins = {72, 36, 18, 9};
  wishes.orientation = Orientation::landscape;
  const PageFit fit = fitted(190, 20, wishes);
  EXPECT_EQ(fit.left, 72);
  EXPECT_EQ(fit.top, 36);
  EXPECT_DOUBLE_EQ(fit.width, 841.89);
  EXPECT_DOUBLE_EQ(fit.height, 595.28);
  EXPECT_DOUBLE_EQ(fit.fontSize, 6.5);                     // (841.89 - 90) / 114 = 6.59
  EXPECT_DOUBLE_EQ(fitted(20, 60, wishes).fontSize, 9.1);  // (595.28 - 45) / 60 = 9.17
}

TEST(PageFit, aSmallFontThatTheUserChoseTurnsTheSheetOnlyWhereItMust) {
  FitWishes wishes;
  wishes.fontSize = 6;
  EXPECT_FALSE(fitted(147, 40, wishes).landscape);  // 529.2 points
  EXPECT_TRUE(fitted(160, 40, wishes).landscape);   // 576 points
}

TEST(PageFit, oneColumn) { EXPECT_EQ(told(1, 1), "1 column, portrait, 12.0 pt"); }

TEST(PageFit, anEmptyReportCountsAsOneCharacter) { EXPECT_EQ(told(0, 0), "1 column, portrait, 12.0 pt"); }

TEST(PageFit, lettersAreNeverSmallerThanOnePoint) {
  FitWishes wishes;
  wishes.sheet = {100, 100};
  wishes.margins = {10, 10, 10, 10};
  const PageFit fit = fitted(512, 10, wishes);
  EXPECT_EQ(fit.fontSize, 1);
  EXPECT_EQ(fit.columnsFit, 133u);  // 80 / 0.6
}

TEST(PageFit, marginsThatLeaveNoRoomAreRefused) {
  FitWishes wishes;
  wishes.margins = {300, 10, 296, 10};
  wishes.orientation = Orientation::portrait;
  PageFit fit;
  EXPECT_FALSE(pageFit(80, 60, wishes, fit));
  wishes.orientation = Orientation::automatic;  // across there is room
  EXPECT_TRUE(pageFit(80, 60, wishes, fit));
  EXPECT_TRUE(fit.landscape);
  wishes.margins = {500, 500, 500, 500};
  EXPECT_FALSE(pageFit(80, 60, wishes, fit));
}

TEST(PageFit, sheetsByName) {
  Sheet sheet = sheetA4;
  EXPECT_TRUE(sheetByName("a3", sheet));
  EXPECT_EQ(sheet.width, sheetA3.width);
  EXPECT_TRUE(sheetByName("LETTER", sheet));
  EXPECT_EQ(sheet.height, 792);
  EXPECT_TRUE(sheetByName("Legal", sheet));
  EXPECT_TRUE(sheetByName("A4", sheet));
  EXPECT_FALSE(sheetByName("A", sheet));
  EXPECT_FALSE(sheetByName("", sheet));
  EXPECT_EQ(sheet.width, sheetA4.width);
}

}  // namespace
}  // namespace quillon
