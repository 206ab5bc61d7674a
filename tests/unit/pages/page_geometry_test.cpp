// Where sheet and characters stand on the screen.
#include "pages/page_geometry.h"

#include <gtest/gtest.h>

namespace quillon {
namespace {

PageFit fitOf(std::size_t columns, std::size_t lines) {
  PageFit fit = {};
  EXPECT_TRUE(pageFit(columns, lines, {}, fit));
  return fit;
}

TEST(PageGeometry, actualSizeIsThatOfThePaper) {
  // A4 is 8.27 by 11.69 inches.
  const PageGeometry geometry = pageGeometry(fitOf(80, 66), {ZoomKind::percent, 100}, 2000, 2000, 96);
  EXPECT_EQ(geometry.sheetWidth, 793);
  EXPECT_EQ(geometry.sheetHeight, 1122);
  EXPECT_EQ(geometry.percent, 100);
  const PageGeometry fine = pageGeometry(fitOf(80, 66), {ZoomKind::percent, 100}, 2000, 2000, 192);
  EXPECT_EQ(fine.sheetWidth, 1587);
  EXPECT_EQ(fine.percent, 100);
}

TEST(PageGeometry, aSheetAsWideAsTheWindowLeavesAGapOnEachSide) {
  const PageGeometry geometry = pageGeometry(fitOf(80, 66), {ZoomKind::width}, 800, 500, 96);
  EXPECT_EQ(geometry.sheetWidth, 776);
  EXPECT_EQ(geometry.sheetLeft, 12);
  EXPECT_EQ(geometry.width, 800);  // nothing to scroll across
  EXPECT_GT(geometry.height, 500);
  EXPECT_EQ(geometry.height, geometry.sheetHeight + 24);
}

TEST(PageGeometry, aWholePageNeedsNoScrolling) {
  for (const int width : {300, 700, 1500}) {
    const PageGeometry geometry = pageGeometry(fitOf(147, 60), {ZoomKind::page}, width, 600, 96);
    EXPECT_EQ(geometry.width, width);
    EXPECT_EQ(geometry.height, 600);
  }
}

TEST(PageGeometry, aSmallSheetStandsInTheMiddle) {
  const PageGeometry geometry = pageGeometry(fitOf(80, 66), {ZoomKind::percent, 50}, 1000, 900, 96);
  EXPECT_EQ(geometry.sheetLeft, (1000 - geometry.sheetWidth) / 2);
  EXPECT_EQ(geometry.width, 1000);
}

TEST(PageGeometry, aWindowWithoutRoomStillHasASheet) {
  const PageGeometry geometry = pageGeometry(fitOf(80, 66), {ZoomKind::width}, 0, 0, 96);
  EXPECT_EQ(geometry.percent, smallestZoom);
  EXPECT_GT(geometry.sheetWidth, 0);
}

TEST(PageGeometry, columnsAreEvenlySpacedAndEndWithinTheMargins) {
  const PageFit fit = fitOf(147, 60);
  const PageGeometry geometry = pageGeometry(fit, {ZoomKind::width}, 1100, 700, 96);
  const int left = pageColumnLeft(geometry, 0);
  EXPECT_NEAR(left, geometry.sheetLeft + usualMargin * geometry.scale, 1);
  for (std::size_t column = 0; column <= 147; ++column) {
    EXPECT_NEAR(pageColumnLeft(geometry, column), geometry.textLeft + static_cast<double>(column) * geometry.columnWidth,
                0.5001);
  }
  EXPECT_LE(pageColumnLeft(geometry, 147), geometry.sheetLeft + geometry.sheetWidth - usualMargin * geometry.scale + 1.5);
  EXPECT_LE(pageLineTop(geometry, 60), geometry.sheetTop + geometry.sheetHeight - usualMargin * geometry.scale + 1.5);
}

const PageText lines = {"0123456789", "", "0123"};

class PageGeometrySpots : public testing::Test {
 protected:
  PageGeometry geometry = pageGeometry(fitOf(80, 66), {ZoomKind::percent, 200}, 800, 600, 96);
  int x(double column) const { return static_cast<int>(geometry.textLeft + column * geometry.columnWidth); }
  int y(double line) const { return static_cast<int>(geometry.textTop + line * geometry.lineHeight); }
};

TEST_F(PageGeometrySpots, aPointIsNearestToOnePlaceBetweenCharacters) {
  EXPECT_EQ(pageSpotAt(geometry, lines, x(3.2), y(0.5)), (PageSpot{0, 3}));
  EXPECT_EQ(pageSpotAt(geometry, lines, x(3.8), y(0.5)), (PageSpot{0, 4}));
  EXPECT_EQ(pageSpotAt(geometry, lines, x(2.2), y(2.5)), (PageSpot{2, 2}));
}

TEST_F(PageGeometrySpots, theCharacterBelowAPoint) {
  EXPECT_EQ(pageCharacterAt(geometry, lines, x(3.2), y(0.5)), (PageSpot{0, 3}));
  EXPECT_EQ(pageCharacterAt(geometry, lines, x(3.8), y(0.5)), (PageSpot{0, 3}));
}

TEST_F(PageGeometrySpots, besideTheTextTheNearestPlaceCounts) {
  EXPECT_EQ(pageSpotAt(geometry, lines, -5000, y(0.5)), (PageSpot{0, 0}));
  EXPECT_EQ(pageSpotAt(geometry, lines, 50000, y(0.5)), (PageSpot{0, 10}));
  EXPECT_EQ(pageSpotAt(geometry, lines, x(7), y(1.5)), (PageSpot{1, 0}));
  EXPECT_EQ(pageSpotAt(geometry, lines, x(2), -5000), (PageSpot{0, 2}));
  EXPECT_EQ(pageSpotAt(geometry, lines, x(2), 50000), (PageSpot{2, 2}));
  EXPECT_EQ(pageSpotAt(geometry, {}, x(2), y(2)), (PageSpot{0, 0}));
}

TEST(PageZoom, stepsGoUpAndDownAndEnd) {
  EXPECT_EQ(zoomedIn(100), 110);
  EXPECT_EQ(zoomedIn(93), 100);
  EXPECT_EQ(zoomedOut(100), 90);
  EXPECT_EQ(zoomedOut(93), 90);
  EXPECT_EQ(zoomedIn(largestZoom), largestZoom);
  EXPECT_EQ(zoomedOut(smallestZoom), smallestZoom);
}

TEST(PageZoom, isRememberedAsText) {
  for (const Zoom& zoom : {Zoom{ZoomKind::width}, Zoom{ZoomKind::page}, Zoom{ZoomKind::percent, 150}}) {
    const Zoom again = zoomFromText(zoomText(zoom));
    EXPECT_EQ(again.kind, zoom.kind);
    EXPECT_EQ(again.percent, zoom.percent);
  }
}

TEST(PageZoom, whatIsNoZoomGivesTheUsualOne) {
  for (const char* text : {"", "9", "501", "150%", "-20", "x", "99999999999"}) {
    EXPECT_EQ(zoomFromText(text).kind, ZoomKind::width) << text;
  }
}

}  // namespace
}  // namespace quillon
