// Text to pages and lines: every edge of what a page and a line is, and a plain second reading of the same rules over many
// texts.
#include "pages/page_index.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

namespace quillon {
namespace {

using Pages = std::vector<std::vector<std::string>>;

Pages pagesOf(const PageIndex& index, std::string_view bytes) {
  Pages pages;
  for (std::size_t page = 0; page < pageCount(index); ++page) {
    pages.emplace_back();
    for (const PageLine& line : pageLines(index, bytes, page)) pages.back().emplace_back(bytes.substr(line.offset, line.size));
  }
  return pages;
}

PageIndex read(std::string_view bytes, std::size_t flowLines = usualFlowLines) {
  PageIndex index = pageIndexStart(flowLines);
  pageIndexFinish(index, bytes);
  return index;
}

Pages pagesOf(std::string_view bytes) { return pagesOf(read(bytes), bytes); }

std::string numbered(std::size_t first, std::size_t count) {
  std::string text;
  for (std::size_t i = 0; i < count; ++i) text += "line " + std::to_string(first + i) + "\r\n";
  return text;
}

// ---- What a page is ---------------------------------------------------------------------------------------------------

TEST(PageIndex, aFormFeedEndsAPage) { EXPECT_EQ(pagesOf("a\r\nb\r\n\fc\r\n"), (Pages{{"a", "b"}, {"c"}})); }

TEST(PageIndex, aFormFeedWithinALineEndsItAndThePage) { EXPECT_EQ(pagesOf("**\fnext\r\n"), (Pages{{"**"}, {"next"}})); }

TEST(PageIndex, theFormFeedAtTheEndMakesNoPage) { EXPECT_EQ(pagesOf("a\r\n\f"), (Pages{{"a"}})); }

TEST(PageIndex, blanksAndLineEndsBehindTheLastFormFeedMakeNoPage) {
  EXPECT_EQ(pagesOf("a\r\n\f \r\n\t\r\n\x1a"), (Pages{{"a"}}));
}

TEST(PageIndex, twoFormFeedsMakeAnEmptyPage) { EXPECT_EQ(pagesOf("a\n\f\fb\n"), (Pages{{"a"}, {}, {"b"}})); }

TEST(PageIndex, aFormFeedAloneIsOneEmptyPage) { EXPECT_EQ(pagesOf("\f"), (Pages{{}})); }

TEST(PageIndex, anEmptyLineRightBehindAFormFeedCounts) { EXPECT_EQ(pagesOf("a\n\f\nb\n"), (Pages{{"a"}, {"", "b"}})); }

TEST(PageIndex, nothingAndNothingThatShowsHaveNoPage) {
  EXPECT_EQ(pageCount(read("")), 0u);
  EXPECT_EQ(pageCount(read("\r\n \r\n")), 0u);
  EXPECT_EQ(pageWidest(read(" \r\n")), 0u);
  EXPECT_EQ(pageLongest(read(" \r\n")), 0u);
}

TEST(PageIndex, aReportWithoutFormFeedsRunsOverPagesOf66Lines) {
  const std::string text = numbered(1, 90);
  const Pages pages = pagesOf(text);
  ASSERT_EQ(pages.size(), 2u);
  EXPECT_EQ(pages[0].size(), 66u);
  EXPECT_EQ(pages[1].front(), "line 67");
  EXPECT_EQ(pages[1].size(), 24u);
  EXPECT_EQ(pageLongest(read(text)), 66u);
}

TEST(PageIndex, sixtySixLinesWithoutFormFeedAreOnePage) {
  EXPECT_EQ(pagesOf(numbered(1, 66)).size(), 1u);
  EXPECT_EQ(pagesOf(numbered(1, 67)).size(), 2u);
}

TEST(PageIndex, theUserChoosesTheLinesOfAPageWithoutFormFeeds) {
  const std::string text = numbered(1, 90);
  EXPECT_EQ(pageCount(read(text, 18)), 5u);
  EXPECT_EQ(pageLongest(read(text, 18)), 18u);
  EXPECT_EQ(pageCount(read(text, 90)), 1u);
  EXPECT_EQ(pageCount(read(text, 0)), 90u);                // one at least
  EXPECT_EQ(pageCount(read(numbered(1, 201), 1000)), 2u);  // longestPage at most
}

TEST(PageIndex, aLongPageBetweenFormFeedsStaysOnePageUpTo200Lines) {
  EXPECT_EQ(pagesOf("a\n\f" + numbered(1, 200) + "\fb\n").size(), 3u);
  EXPECT_EQ(pageLongest(read("a\n\f" + numbered(1, 200) + "\fb\n")), 200u);
  EXPECT_EQ(pagesOf(numbered(1, 200) + "\fb\n").size(), 2u);  // the first one as well
}

TEST(PageIndex, aLongerStretchFlowsOverPagesUntilItsFormFeed) {
  const std::string text = "a\n\f" + numbered(1, 201) + "\fb\n";
  const Pages pages = pagesOf(text);
  ASSERT_EQ(pages.size(), 6u);
  EXPECT_EQ(pages[1].size(), 66u);
  EXPECT_EQ(pages[4].size(), 3u);
  EXPECT_EQ(pages[5], (std::vector<std::string>{"b"}));
  EXPECT_EQ(pageLongest(read(text)), 66u);
}

TEST(PageIndex, blankPagesAtTheEndOfAFlowAreLeftOut) {
  EXPECT_EQ(pageCount(read(numbered(1, 10) + std::string(300, '\n'))), 1u);
  EXPECT_EQ(pageCount(read(numbered(1, 10) + std::string(300, '\n') + "end\n")), 5u);
}

TEST(PageIndex, blankPagesBehindAFlowAreNoLength) {
  EXPECT_EQ(pageLongest(read(numbered(1, 10) + std::string(300, '\n'))), 10u);
  EXPECT_EQ(pageLongest(read(numbered(1, 10) + std::string(300, '\n') + "end\n")), 66u);
  EXPECT_EQ(pageLongest(read(numbered(1, 10) + std::string(80, '\n'))), 10u);  // shorter than longestPage
  EXPECT_EQ(pageLongest(read(numbered(1, 10) + std::string(300, '\n') + "\fb\nc\n")), 10u);
  EXPECT_EQ(pageLongest(read(numbered(1, 66) + std::string(300, '\n'))), 66u);
  EXPECT_EQ(pageLongest(read(std::string(280, '\n') + "end\n")), 66u);
  EXPECT_EQ(pageLongest(read(std::string(66, '\n') + "end\n")), 66u);
  EXPECT_EQ(pageLongest(read(std::string(65, '\n') + "end\n")), 66u);
  EXPECT_EQ(pageLongest(read(std::string(64, '\n') + "end\n")), 65u);
}

TEST(PageIndex, aFlowBeginsAnewBehindAFormFeed) {
  const std::string text = numbered(1, 250) + "\f" + numbered(1, 67) + "\f" + numbered(1, 201);
  const Pages pages = pagesOf(text);
  ASSERT_EQ(pages.size(), 9u);  // 66 + 66 + 66 + 52, 67, 66 + 66 + 66 + 3
  EXPECT_EQ(pages[3].size(), 52u);
  EXPECT_EQ(pages[4].size(), 67u);
  EXPECT_EQ(pages[5].front(), "line 1");
  EXPECT_EQ(pages[8].size(), 3u);
  EXPECT_EQ(pageLongest(read(text)), 67u);
}

TEST(PageIndex, formFeedsAloneAreEmptyPages) {
  EXPECT_EQ(pagesOf("\f\f\f"), (Pages{{}, {}, {}}));
  EXPECT_EQ(pagesOf("\fa"), (Pages{{}, {"a"}}));
  EXPECT_EQ(pagesOf("\f\r\n\f"), (Pages{{}, {""}}));
  EXPECT_EQ(pageWidest(read("\f\f\f")), 0u);
  EXPECT_EQ(pageLongest(read("\f\f\f")), 0u);
}

// ---- What a line is ---------------------------------------------------------------------------------------------------

TEST(PageIndex, lineEndsOfEveryKind) {
  EXPECT_EQ(pagesOf("a\r\nb\nc\r\r\nd\re\r\r\r\nf"), (Pages{{"a", "b", "c", "d", "e", "f"}}));
  EXPECT_EQ(pagesOf("a\n\nb\r\n\r\nc"), (Pages{{"a", "", "b", "", "c"}}));
  EXPECT_EQ(pagesOf("a\n\r\nb"), (Pages{{"a", "", "b"}}));
}

TEST(PageIndex, aCarriageReturnBeforeAFormFeedIsNoLine) { EXPECT_EQ(pagesOf("a\n\r\fb\r\fc"), (Pages{{"a"}, {"b"}, {"c"}})); }

TEST(PageIndex, theLastLineNeedsNoEnd) { EXPECT_EQ(pagesOf("a\nb"), (Pages{{"a", "b"}})); }

TEST(PageIndex, aLineOfMoreThan512BytesGoesOnInTheNext) {
  const std::string longText(512, 'x');
  EXPECT_EQ(pagesOf(longText + "\r\nb\n"), (Pages{{longText, "b"}}));
  EXPECT_EQ(pagesOf(longText + "y\r\nb\n"), (Pages{{longText, "y", "b"}}));
  EXPECT_EQ(pagesOf(longText + longText + "\nb\n"), (Pages{{longText, longText, "b"}}));
  EXPECT_EQ(pagesOf(longText + "\fb"), (Pages{{longText}, {"b"}}));
  EXPECT_EQ(pagesOf(longText), (Pages{{longText}}));
  EXPECT_EQ(pageWidest(read(longText + "y")), 512u);
}

TEST(PageIndex, returnsWithoutEndAreEmptyLinesOfBoundedSize) {
  const std::string returns(512, '\r');
  EXPECT_EQ(pagesOf("a" + returns + "\nb"), (Pages{{"a", "b"}}));
  EXPECT_EQ(pagesOf("a" + returns + "\r\nb"), (Pages{{"a", "", "b"}}));
  EXPECT_EQ(pagesOf("a" + returns + "\fb"), (Pages{{"a"}, {"b"}}));
  EXPECT_EQ(pagesOf("a" + returns + "\r\fb"), (Pages{{"a"}, {"b"}}));
  const std::string many(1000000, '\r');  // a page of such a file is looked at without going over all of it
  const std::string text = many + "x";
  const PageIndex index = read(text);
  EXPECT_EQ(pageCount(index), 30u);  // 1955 lines
  EXPECT_EQ(pageLines(index, text, 1).front().offset, 66u * 512);
}

TEST(PageIndex, zerosAreBlanksWithinALine) {
  const std::string text("a\0b\r\n\0\0\n\0\f\0c", 12);
  EXPECT_EQ(pagesOf(text),
            (Pages{{std::string("a\0b", 3), std::string(2, '\0'), std::string(1, '\0')}, {std::string("\0c", 2)}}));
  EXPECT_EQ(pageWidest(read(text)), 3u);
  EXPECT_EQ(pageLongest(read(text)), 1u);
}

TEST(PageIndex, binaryBytesHaveBoundedPages) {
  const std::string zeros(1000000, '\0');
  EXPECT_EQ(pageCount(read(zeros)), 0u);  // nothing of it shows
  const std::string ones(1000000, '1');
  const PageIndex index = read(ones);
  EXPECT_EQ(pageCount(index), 30u);  // 1954 lines
  EXPECT_EQ(pageLines(index, ones, 29).back().size, 1000000u % 512);
}

// ---- Width and length -------------------------------------------------------------------------------------------------

TEST(PageIndex, blanksAtTheEndOfALineAreNoWidth) {
  EXPECT_EQ(pageWidest(read("abc   \r\n  ab \t\r\n")), 4u);
  EXPECT_EQ(pageWidest(read("abc\xA0\xA0\r\n")), 3u);
}

TEST(PageIndex, tabsReachTheNextEighthColumn) {
  EXPECT_EQ(pageWidest(read("\tx\n")), 9u);
  EXPECT_EQ(pageWidest(read("1234567\tx\n")), 9u);
  EXPECT_EQ(pageWidest(read("12345678\tx\n")), 17u);
}

TEST(PageIndex, emptyLinesAtThePagesEndAreNoLength) {
  EXPECT_EQ(pageLongest(read("a\n\nb\n \n\n\fc\n")), 3u);
  EXPECT_EQ(pageLongest(read("a\n\fa\nb\nc\nd")), 4u);
}

TEST(PageIndex, theWidestLineMayBeTheLastOneWithoutAnEnd) { EXPECT_EQ(pageWidest(read("ab\nabcdef")), 6u); }

// ---- Lines as they show -----------------------------------------------------------------------------------------------

std::string shown(std::string_view text) { return pageLineShown(text, {0, text.size()}); }

TEST(PageIndex, controlCharactersShowAsBlanksAndKeepTheirColumn) {
  EXPECT_EQ(shown(std::string_view("a\0b\x1b\x7f\x81\x8d\x8f\x90\x9d"
                                   "c",
                                   11)),
            "a b       c");
  EXPECT_EQ(shown("1\t2"), "1       2");
  EXPECT_EQ(shown("\x80\x9f\xe9\xff"), "\x80\x9f\xe9\xff");  // the euro and letters with marks stay
}

TEST(PageIndex, columnsAndBytesAreFoundFromEachOther) {
  const std::string text = "ab\tc";
  const PageLine line = {0, text.size()};
  EXPECT_EQ(pageColumnOfByte(text, line, 0), 0u);
  EXPECT_EQ(pageColumnOfByte(text, line, 2), 2u);
  EXPECT_EQ(pageColumnOfByte(text, line, 3), 8u);
  EXPECT_EQ(pageColumnOfByte(text, line, 99), 9u);
  EXPECT_EQ(pageByteOfColumn(text, line, 1), 1u);
  EXPECT_EQ(pageByteOfColumn(text, line, 2), 2u);
  EXPECT_EQ(pageByteOfColumn(text, line, 7), 2u);
  EXPECT_EQ(pageByteOfColumn(text, line, 8), 3u);
  EXPECT_EQ(pageByteOfColumn(text, line, 9), 4u);
}

TEST(PageIndex, aByteHasItsPageLineAndColumn) {
  const std::string text = "a\r\n\tbc\r\n\fd\r\n\f\n";
  const PageIndex index = read(text);
  PagePlace place;
  ASSERT_TRUE(pagePlaceOf(index, text, 4, place));
  EXPECT_EQ(place.page, 0u);
  EXPECT_EQ(place.line, 1u);
  EXPECT_EQ(place.column, 8u);
  ASSERT_TRUE(pagePlaceOf(index, text, 7, place));  // the line feed of the same line
  EXPECT_EQ(place.line, 1u);
  EXPECT_EQ(place.column, 10u);
  ASSERT_TRUE(pagePlaceOf(index, text, 9, place));
  EXPECT_EQ(place.page, 1u);
  EXPECT_EQ(place.line, 0u);
  EXPECT_FALSE(pagePlaceOf(index, text, text.size(), place));
  EXPECT_EQ(pageFirstLine(index, 1), 2u);
  EXPECT_EQ(pageFirstLine(index, 2), 4u);  // behind the report
}

TEST(PageIndex, aByteOfAnEmptyPageHasNoPlace) {
  const std::string text = "\f\fa";
  PagePlace place;
  EXPECT_FALSE(pagePlaceOf(read(text), text, 0, place));
  EXPECT_FALSE(pagePlaceOf(read(""), "", 0, place));
}

TEST(PageIndex, aByteOfTheBlankLinesAtTheEndHasNoPlace) {
  PagePlace place;
  const std::string flow = "a\n" + std::string(300, '\n');
  const PageIndex index = read(flow);
  ASSERT_TRUE(pagePlaceOf(index, flow, 66, place));  // the last line of the first page
  EXPECT_EQ(place.page, 0u);
  EXPECT_EQ(place.line, 65u);
  EXPECT_FALSE(pagePlaceOf(index, flow, 67, place));
  EXPECT_FALSE(pagePlaceOf(index, flow, 300, place));
  EXPECT_FALSE(pagePlaceOf(read("a\n\f \n"), "a\n\f \n", 3, place));
  EXPECT_TRUE(pagePlaceOf(read("a\n\f \n"), "a\n\f \n", 2, place));  // the form feed belongs to the line before it
}

TEST(PageIndex, aByteOfALineThatGoesOnIsInItsOwnPart) {
  const std::string text = std::string(1030, 'x') + "\r\ny";
  const PageIndex index = read(text);
  PagePlace place;
  const std::pair<std::uint64_t, std::size_t> lines[] = {{511, 0}, {512, 1}, {1023, 1}, {1024, 2}, {1031, 2}, {1032, 3}};
  for (const auto& [offset, line] : lines) {
    ASSERT_TRUE(pagePlaceOf(index, text, offset, place)) << offset;
    EXPECT_EQ(place.line, line) << offset;
  }
  ASSERT_TRUE(pagePlaceOf(index, text, 513, place));
  EXPECT_EQ(place.column, 1u);
  ASSERT_TRUE(pagePlaceOf(index, text, 1031, place));  // the line feed stands behind the six that are left
  EXPECT_EQ(place.column, 6u);
}

TEST(PageIndex, thereIsNoLineOnAPageThatIsNot) { EXPECT_TRUE(pageLines(read("a"), "a", 1).empty()); }

// ---- Piece by piece ---------------------------------------------------------------------------------------------------

TEST(PageIndex, theFirstPageIsThereAfterTheFirstPiece) {
  std::string text;
  for (int page = 0; page < 1000; ++page) text += numbered(1, 60) + "\f";
  PageIndex index = pageIndexStart();
  EXPECT_FALSE(pageIndexStep(index, text, 4096));
  EXPECT_GE(pageCount(index), 5u);
  EXPECT_EQ(pageLines(index, text, 0).size(), 60u);
  pageIndexFinish(index, text);
  EXPECT_EQ(pageCount(index), 1000u);
}

TEST(PageIndex, aReportThatGrowsGivesWhatItGivesAtOnce) {
  const std::string text = "a\r\r\nb\r\n\r\n\f\f" + numbered(1, 70) + "\f" + numbered(1, 250) + "\rx\fy\tz";
  PageIndex index = pageIndexStart();
  for (std::size_t size = 0; size <= text.size(); ++size) {
    const std::string_view grown = std::string_view(text).substr(0, size);
    while (!pageIndexStep(index, grown, 1 + size % 7)) {
    }
    const PageIndex atOnce = read(grown);
    ASSERT_EQ(pagesOf(index, grown), pagesOf(atOnce, grown)) << size;
    ASSERT_EQ(pageWidest(index), pageWidest(atOnce)) << size;
    ASSERT_EQ(pageLongest(index), pageLongest(atOnce)) << size;
    ASSERT_EQ(pageLinesInReport(index), pageLinesInReport(atOnce)) << size;
  }
}

// What a user sees while the pieces come: pages that are whole stay as they are.
TEST(PageIndex, piecesMayEndAnywhere) {
  const std::string text =
      "a\r\nb\r\r\n\f" + std::string(512, 'w') + "\r\n" + std::string(513, 'v') + "\n\f\f\rc\n" + numbered(1, 201) + "\fend";
  const Pages whole = pagesOf(text);
  for (std::size_t budget = 1; budget < 40; ++budget) {
    PageIndex index = pageIndexStart();
    std::uint64_t scanned = 0;
    while (!pageIndexStep(index, text, budget)) {
      ASSERT_GE(index.read.scanned, scanned + budget);
      ASSERT_LE(index.read.scanned, scanned + budget + 514);  // to the end of a line
      scanned = index.read.scanned;
    }
    ASSERT_EQ(pagesOf(index, text), whole) << budget;
  }
}

TEST(PageIndex, aStepOfNothingReadsNothing) {
  PageIndex index = pageIndexStart();
  EXPECT_FALSE(pageIndexStep(index, "a\n", 0));
  EXPECT_EQ(pageCount(index), 0u);
  EXPECT_TRUE(pageIndexStep(index, "a\n", 2));
  EXPECT_TRUE(pageIndexStep(index, "a\n", 0));
  EXPECT_EQ(pageCount(index), 1u);
  PageIndex empty = pageIndexStart();
  EXPECT_TRUE(pageIndexStep(empty, "", 0));
}

TEST(PageIndex, theOpenPageIsSeenAsItIsRead) {
  const std::string text = numbered(1, 20) + "\f" + numbered(1, 300);
  PageIndex index = pageIndexStart();
  EXPECT_FALSE(pageIndexStep(index, text, 16));
  EXPECT_EQ(pageCount(index), 1u);
  EXPECT_EQ(pageLongest(index), 2u);
  EXPECT_EQ(pageLines(index, text, 0).size(), 2u);
  EXPECT_EQ(pageLinesInReport(index), 2u);
  EXPECT_EQ(pageFirstLine(index, 1), 2u);
}

TEST(PageIndex, aFirstFormFeedPutsTheFirstPageTogetherAgain) {
  std::string text = numbered(1, 100);
  PageIndex index = pageIndexStart();
  pageIndexFinish(index, text);
  EXPECT_EQ(pageCount(index), 2u);
  text += "\fx\n";
  pageIndexFinish(index, text);
  EXPECT_EQ(pageCount(index), 2u);
  EXPECT_EQ(pageLines(index, text, 0).size(), 100u);
}

TEST(PageIndex, aReportThatBecameShorterIsReadAnew) {
  PageIndex index = read("a\n\fb\n\fc\n", 20);
  pageIndexFinish(index, "x\n");
  EXPECT_EQ(pagesOf(index, "x\n"), (Pages{{"x"}}));
  EXPECT_EQ(index.flowLines, 20u);
}

TEST(PageIndex, aStepWithNothingNewIsDoneAtOnce) {
  PageIndex index = read("a\nb");
  EXPECT_TRUE(pageIndexStep(index, "a\nb", 100));
  EXPECT_EQ(pagesOf(index, "a\nb"), (Pages{{"a", "b"}}));
}

TEST(PageIndex, morePagesThanItHoldsAreTold) {
  const std::string text(mostPages + 10, '\f');
  const PageIndex index = read(text);
  EXPECT_TRUE(pageIndexIsFull(index));
  EXPECT_EQ(pageCount(index), mostPages);
  EXPECT_FALSE(pageIndexIsFull(read("\f\f")));
  PagePlace place;
  EXPECT_TRUE(pageLines(index, text, mostPages - 1).empty());
  EXPECT_FALSE(pagePlaceOf(index, text, mostPages + 5, place));
  const std::string lines = std::string(mostPages - 1, '\f') + numbered(1, 205);  // full at the third page of a flow
  const PageIndex flow = read(lines);
  EXPECT_TRUE(pageIndexIsFull(flow));
  EXPECT_EQ(pageCount(flow), mostPages);
  EXPECT_FALSE(pageIndexIsFull(read(std::string(mostPages - 1, '\f') + numbered(1, 200))));
}

// ---- A second reading -------------------------------------------------------------------------------------------------

// The same rules read off in the plainest way, the whole text at hand.
std::vector<std::string> plainLines(const std::string& stretch, bool endedByFormFeed) {
  std::vector<std::string> lines;
  std::string text = stretch;
  if (endedByFormFeed) {
    while (!text.empty() && text.back() == '\r') text.pop_back();
  }
  std::string line;
  bool begun = false;
  for (std::size_t at = 0; at < text.size();) {
    if (text[at] != '\r' && text[at] != '\n') {
      line += text[at++];
      begun = true;
      continue;
    }
    while (at < text.size() && text[at] == '\r') ++at;
    const bool hasFeed = at < text.size() && text[at] == '\n';
    if (hasFeed) ++at;
    if (!hasFeed && at == text.size() && !begun) break;  // returns alone at the very end
    for (; line.size() > longestLine; line.erase(0, longestLine)) lines.push_back(line.substr(0, longestLine));
    lines.push_back(line);
    line.clear();
    begun = false;
  }
  for (; line.size() > longestLine; line.erase(0, longestLine)) lines.push_back(line.substr(0, longestLine));
  if (begun) lines.push_back(line);
  return lines;
}

Pages plainPages(const std::string& text) {
  Pages pages;
  std::size_t at = 0;
  const bool anyFormFeed = text.find('\f') != std::string::npos;
  while (true) {
    const std::size_t feed = text.find('\f', at);
    const bool last = feed == std::string::npos;
    std::vector<std::string> lines = plainLines(text.substr(at, last ? feed : feed - at), !last);
    const bool flows = lines.size() > longestPage || !anyFormFeed;
    if (last) {
      while (!lines.empty() && lines.back().find_first_not_of(" \t\x01") == std::string::npos) {
        // Blank lines behind the last one that shows belong to its page, and make none of their own.
        const std::size_t inPage = flows ? (lines.size() - 1) % usualFlowLines : lines.size() - 1;
        const auto blank = [](const std::string& l) { return l.find_first_not_of(" \t\x01") == std::string::npos; };
        if (!std::all_of(lines.end() - static_cast<std::ptrdiff_t>(inPage) - 1, lines.end(), blank)) break;
        lines.resize(lines.size() - inPage - 1);
      }
      if (lines.empty()) return pages;
    }
    const std::size_t each = flows ? usualFlowLines : lines.size() + 1;
    if (lines.empty()) pages.emplace_back();
    for (std::size_t first = 0; first < lines.size(); first += each) {
      pages.emplace_back(lines.begin() + static_cast<std::ptrdiff_t>(first),
                         lines.begin() + static_cast<std::ptrdiff_t>(std::min(first + each, lines.size())));
    }
    if (last) return pages;
    at = feed + 1;
  }
}

TEST(PageIndex, agreesWithAPlainReadingOfTheRules) {
  std::mt19937 random(20090522);
  const std::string pieces[] = {
      "\r",       "\n",    "\r\n", "\f", "a", "bc", " ", "\t", "\x01", std::string(511, 'w'), std::string(70, '\n'),
      "\n\n\n\n", "x\r\n", "yy\n"};
  for (int run = 0; run < 1500; ++run) {
    // Some pieces are rare in most texts, so that long stretches without form feeds come up too.
    std::vector<std::size_t> bag;
    for (std::size_t i = 0; i < std::size(pieces); ++i) bag.insert(bag.end(), random() % 5, i);
    if (bag.empty()) continue;
    std::string text;
    for (std::size_t i = random() % 60; i > 0; --i) text += pieces[bag[random() % bag.size()]];
    PageIndex index = pageIndexStart();
    while (!pageIndexStep(index, text, 1 + random() % 50)) {
    }
    ASSERT_EQ(pagesOf(index, text), plainPages(text)) << testing::PrintToString(text);
  }
}

}  // namespace
}  // namespace quillon
