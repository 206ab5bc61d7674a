// A search through a whole report, in pieces; matches on a page; their count.
#include "pages/page_search.h"

#include <gtest/gtest.h>

namespace quillon {
namespace {

PageSearchState run(PageSearch& search, std::string_view bytes, std::uint64_t budget) {
  for (int step = 0; step < 10'000; ++step) {
    const PageSearchState state = pageSearchStep(search, bytes, budget);
    if (state != PageSearchState::searching) return state;
  }
  ADD_FAILURE() << "the search has no end";
  return PageSearchState::searching;
}

struct Result {
  PageSearchState state;
  std::uint64_t match;
  bool wrapped;
  bool operator==(const Result&) const = default;
};

Result search(std::string_view bytes, std::string_view text, bool forward, std::uint64_t from, std::uint64_t budget) {
  PageSearch searching = pageSearchStart(pageFinder(text, false), forward, from);
  const PageSearchState state = run(searching, bytes, budget);
  return {state, searching.match, searching.wrapped};
}

// "abc" at 2, 10 and 17.
constexpr std::string_view report = "..abc.....abc....abc";

class PageSearchPieces : public testing::TestWithParam<std::uint64_t> {};
INSTANTIATE_TEST_SUITE_P(budgets, PageSearchPieces, testing::Values(1, 2, 3, 7, 1000, notFound));

TEST_P(PageSearchPieces, forwards) {
  const auto found = [&](std::uint64_t from) { return search(report, "abc", true, from, GetParam()); };
  EXPECT_EQ(found(0), (Result{PageSearchState::found, 2, false}));
  EXPECT_EQ(found(2), (Result{PageSearchState::found, 2, false}));
  EXPECT_EQ(found(3), (Result{PageSearchState::found, 10, false}));
  EXPECT_EQ(found(17), (Result{PageSearchState::found, 17, false}));
  EXPECT_EQ(found(18), (Result{PageSearchState::found, 2, true}));
  EXPECT_EQ(found(500), (Result{PageSearchState::found, 2, true}));
}

TEST_P(PageSearchPieces, backwards) {
  const auto found = [&](std::uint64_t from) { return search(report, "abc", false, from, GetParam()); };
  EXPECT_EQ(found(report.size()), (Result{PageSearchState::found, 17, false}));
  EXPECT_EQ(found(17), (Result{PageSearchState::found, 10, false}));
  EXPECT_EQ(found(10), (Result{PageSearchState::found, 2, false}));
  EXPECT_EQ(found(2), (Result{PageSearchState::found, 17, true}));
  EXPECT_EQ(found(0), (Result{PageSearchState::found, 17, true}));
  EXPECT_EQ(found(500), (Result{PageSearchState::found, 17, false}));
}

TEST_P(PageSearchPieces, theOnlyMatchIsFoundAgain) {
  EXPECT_EQ(search("...abc", "abc", true, 6, GetParam()), (Result{PageSearchState::found, 3, true}));
  EXPECT_EQ(search("...abc", "abc", false, 3, GetParam()), (Result{PageSearchState::found, 3, true}));
}

TEST_P(PageSearchPieces, nowhere) {
  for (const std::uint64_t from : {0, 5, 20, 500}) {
    EXPECT_EQ(search(report, "xyz", true, from, GetParam()).state, PageSearchState::nowhere);
    EXPECT_EQ(search(report, "xyz", false, from, GetParam()).state, PageSearchState::nowhere);
    EXPECT_EQ(search("", "xyz", true, from, GetParam()).state, PageSearchState::nowhere);
    EXPECT_EQ(search("", "xyz", false, from, GetParam()).state, PageSearchState::nowhere);
  }
}

TEST(PageSearch, nothingIsSoughtAndNothingIsFound) {
  EXPECT_EQ(search(report, "", true, 0, 10).state, PageSearchState::nowhere);
}

TEST(PageSearch, aReportThatBecomesShorterMeanwhileEndsTheSearch) {
  for (const bool forward : {true, false}) {
    PageSearch searching = pageSearchStart(pageFinder("abc", false), forward, 15);
    EXPECT_EQ(pageSearchStep(searching, "................abd.abd.abd", 2), PageSearchState::searching);
    EXPECT_EQ(run(searching, "..ab", 2), PageSearchState::nowhere);
  }
}

TEST(PageSearch, marksStandWhereTheTextShows) {
  const std::string_view bytes = "ab\tAB ab\n\n--abab\n";
  const std::vector<PageLine> lines = {{0, 8}, {9, 0}, {10, 6}};
  const std::vector<PageMark> wanted = {{0, 0, 2, 0}, {0, 8, 2, 3}, {0, 11, 2, 6}, {2, 2, 2, 12}, {2, 4, 2, 14}};
  EXPECT_EQ(pageMarks(pageFinder("ab", false), bytes, lines), wanted);
}

TEST(PageSearch, aMarkOverATabIsAsWideAsItShows) {
  const std::vector<PageMark> wanted = {{0, 1, 8, 1}};
  EXPECT_EQ(pageMarks(pageFinder("b\tc", false), "ab\tcd", {{0, 5}}), wanted);
}

TEST(PageSearch, marksDoNotOverlap) {
  const std::vector<PageMark> wanted = {{0, 0, 2, 0}, {0, 2, 2, 2}};
  EXPECT_EQ(pageMarks(pageFinder("--", false), "-----", {{0, 5}}), wanted);
}

TEST(PageSearch, nothingSoughtMarksNothing) { EXPECT_TRUE(pageMarks(pageFinder("", false), "abc", {{0, 3}}).empty()); }

TEST(PageSearch, matchesAreCounted) {
  const PageFinder finder = pageFinder("ABC", false);
  for (const auto& [match, number] : std::vector<std::pair<std::uint64_t, std::uint64_t>>{{2, 1}, {10, 2}, {17, 3}}) {
    const PageMatchCount count = pageMatchCount(finder, report, match);
    EXPECT_EQ(count.number, number);
    EXPECT_EQ(count.all, 3u);
  }
  EXPECT_EQ(pageMatchCount(pageFinder("", false), report, 0).all, 0u);
  EXPECT_EQ(pageMatchCount(pageFinder("zz", false), report, 0).all, 0u);
}

}  // namespace
}  // namespace quillon
