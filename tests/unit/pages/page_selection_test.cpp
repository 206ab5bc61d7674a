// Selecting on a page, and what is copied.
#include "pages/page_selection.h"

#include <gtest/gtest.h>

namespace quillon {
namespace {

const PageText page = {"Scrip  Code", "", "ACC     500410", "last"};

TEST(PageSelection, withinALine) {
  EXPECT_EQ(selectedText({{0, 0}, {0, 5}}, page), "Scrip");
  EXPECT_EQ(selectedText({{2, 8}, {2, 14}}, page), "500410");
}

TEST(PageSelection, overTheEndsOfLines) {
  EXPECT_EQ(selectedText({{0, 7}, {2, 3}}, page), "Code\r\n\r\nACC");
  EXPECT_EQ(selectedText({{1, 0}, {2, 0}}, page), "\r\n");
}

TEST(PageSelection, backwardsIsTheSame) {
  EXPECT_EQ(selectedText({{2, 3}, {0, 7}}, page), selectedText({{0, 7}, {2, 3}}, page));
  EXPECT_EQ(selectedText({{0, 5}, {0, 0}}, page), "Scrip");
}

TEST(PageSelection, nothing) {
  EXPECT_TRUE(selectionIsEmpty({{1, 0}, {1, 0}}));
  EXPECT_FALSE(selectionIsEmpty({{1, 0}, {2, 0}}));
  EXPECT_EQ(selectedText({{0, 3}, {0, 3}}, page), "");
  EXPECT_EQ(selectedText({{0, 0}, {5, 5}}, {}), "");
}

TEST(PageSelection, placesBehindALineOrThePageAreLeftOut) {
  EXPECT_EQ(selectedText({{0, 7}, {0, 99}}, page), "Code");
  EXPECT_EQ(selectedText({{0, 99}, {2, 3}}, page), "\r\n\r\nACC");
  EXPECT_EQ(selectedText({{3, 0}, {9, 9}}, page), "last");
  EXPECT_EQ(selectedText({{8, 0}, {9, 9}}, page), "");
}

TEST(PageSelection, columnsOfALineTellWhetherItsEndIsSelectedToo) {
  const PageSelection selection = {{0, 7}, {2, 3}};
  const SelectedColumns first = selectedColumns(selection, page, 0);
  EXPECT_EQ(first.first, 7u);
  EXPECT_EQ(first.behind, 11u);
  EXPECT_TRUE(first.lineEnd);
  const SelectedColumns last = selectedColumns(selection, page, 2);
  EXPECT_EQ(last.first, 0u);
  EXPECT_EQ(last.behind, 3u);
  EXPECT_FALSE(last.lineEnd);
  EXPECT_EQ(selectedColumns(selection, page, 3).behind, 0u);
}

TEST(PageSelection, allOfThePage) {
  EXPECT_EQ(selectedText(wholePageSelected(page), page), "Scrip  Code\r\n\r\nACC     500410\r\nlast");
  EXPECT_EQ(pageTextOf(page), selectedText(wholePageSelected(page), page));
  EXPECT_TRUE(selectionIsEmpty(wholePageSelected({})));
  EXPECT_EQ(pageTextOf({}), "");
}

TEST(PageSelection, aWordReachesToTheBlanks) {
  EXPECT_EQ(selectedText(wordSelected(page, {0, 0}), page), "Scrip");
  EXPECT_EQ(selectedText(wordSelected(page, {0, 4}), page), "Scrip");
  EXPECT_EQ(selectedText(wordSelected(page, {0, 10}), page), "Code");
  EXPECT_EQ(selectedText(wordSelected(page, {2, 11}), page), "500410");
}

TEST(PageSelection, onABlankAllBlanksAroundIt) { EXPECT_EQ(wordSelected(page, {2, 5}), (PageSelection{{2, 3}, {2, 8}})); }

TEST(PageSelection, whereThereIsNoCharacterThereIsNoWord) {
  EXPECT_TRUE(selectionIsEmpty(wordSelected(page, {0, 11})));
  EXPECT_TRUE(selectionIsEmpty(wordSelected(page, {1, 0})));
  EXPECT_TRUE(selectionIsEmpty(wordSelected(page, {9, 0})));
}

}  // namespace
}  // namespace quillon
