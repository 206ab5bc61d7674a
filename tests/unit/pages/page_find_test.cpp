// Finding text in a report.
#include "pages/page_find.h"

#include <gtest/gtest.h>

#include <random>
#include <vector>

#include "text/encoding.h"

namespace quillon {
namespace {

std::uint64_t next(std::string_view text, std::string_view sought, std::uint64_t from = 0, bool matchCase = false) {
  return pageFindNext(pageFinder(sought, matchCase), text, from, text.size());
}
std::uint64_t previous(std::string_view text, std::string_view sought, std::uint64_t to, bool matchCase = false) {
  return pageFindPrevious(pageFinder(sought, matchCase), text, 0, to);
}

TEST(PageFind, theFirstMatchFromAPlace) {
  EXPECT_EQ(next("abcabc", "bc"), 1u);
  EXPECT_EQ(next("abcabc", "bc", 1), 1u);
  EXPECT_EQ(next("abcabc", "bc", 2), 4u);
  EXPECT_EQ(next("abcabc", "bc", 5), notFound);
}

TEST(PageFind, theLastMatchBeforeAPlace) {
  EXPECT_EQ(previous("abcabc", "bc", 6), 4u);
  EXPECT_EQ(previous("abcabc", "bc", 4), 1u);
  EXPECT_EQ(previous("abcabc", "bc", 1), notFound);
}

TEST(PageFind, matchesThatOverlapAreAllFound) {
  EXPECT_EQ(next("aaaa", "aa", 1), 1u);
  EXPECT_EQ(previous("aaaa", "aa", 2), 1u);
}

TEST(PageFind, lettersAreFoundInEitherCaseUnlessTheCaseMatters) {
  EXPECT_EQ(next("Scrip Code", "sCRIP"), 0u);
  EXPECT_EQ(next("Scrip Code", "scrip", 0, true), notFound);
  EXPECT_EQ(next("Scrip Code", "Code", 0, true), 6u);
}

TEST(PageFind, lettersWithMarksAreFoundInEitherCase) {
  EXPECT_EQ(next("MOD\xC8LE \x8A", "mod\xC3\xA8le \xC5\xA1"), 0u);  // e with grave, s with caron
  EXPECT_EQ(next("3 \xD7 4", "3 \xC3\xB7 4"), notFound);            // times is not the capital of divided by
  EXPECT_EQ(next("\xDF", "\xC3\xBF"), notFound);                    // sharp s is not the capital of y with dots
  EXPECT_EQ(next("\x9F", "\xC3\xBF"), 0u);
}

TEST(PageFind, everyLetterIsFoundInEitherCaseAndNothingElseIs) {
  // The capitals of Windows-1252 and their small letters, as their names say.
  std::string capitals;
  std::string small;
  for (int c = 'A'; c <= 'Z'; ++c) capitals += static_cast<char>(c), small += static_cast<char>(c - 'A' + 'a');
  for (int c = 0xC0; c <= 0xDE; ++c) {
    if (c != 0xD7) capitals += static_cast<char>(c), small += static_cast<char>(c + 0x20);
  }
  capitals += "\x8A\x8C\x8E\x9F";
  small += "\x9A\x9C\x9E\xFF";
  for (int a = 1; a < 256; ++a) {
    const std::string one(1, static_cast<char>(a));
    const PageFinder finder = pageFinder(utf8FromBytes(one), false);
    const PageFinder exact = pageFinder(utf8FromBytes(one), true);
    for (int b = 1; b < 256; ++b) {
      const std::string other(1, static_cast<char>(b));
      const std::size_t capital = capitals.find(one);
      const std::size_t letter = small.find(one);
      const bool alike = a == b || (capital != std::string::npos && small.substr(capital, 1) == other) ||
                         (letter != std::string::npos && capitals.substr(letter, 1) == other);
      ASSERT_EQ(pageFindNext(finder, other, 0, 1) == 0, alike) << a << ' ' << b;
      ASSERT_EQ(pageFindNext(exact, other, 0, 1) == 0, a == b) << a << ' ' << b;
    }
  }
}

TEST(PageFind, bytesThatAreNoUtf8AreTakenAsTheyAre) { EXPECT_EQ(next("caf\xE9", "\xE9"), 3u); }

TEST(PageFind, whatNoReportCanHoldIsNotFound) {
  EXPECT_EQ(next("a?b",
                 "a\xE2\x98\x83"
                 "b"),
            notFound);  // a snowman is no question mark
  EXPECT_EQ(next("a?b", "a?b"), 0u);
  EXPECT_EQ(next("abc", ""), notFound);
  EXPECT_EQ(previous("abc", "", 3), notFound);
}

TEST(PageFind, aMatchMayEndBehindThePiece) {
  const PageFinder finder = pageFinder("cd", false);
  EXPECT_EQ(pageFindNext(finder, "abcdef", 0, 3), 2u);
  EXPECT_EQ(pageFindNext(finder, "abcdef", 0, 2), notFound);
  EXPECT_EQ(pageFindPrevious(finder, "abcdef", 2, 6), 2u);
  EXPECT_EQ(pageFindPrevious(finder, "abcdef", 3, 6), notFound);
}

TEST(PageFind, nothingIsReadBehindTheBytes) {
  EXPECT_EQ(next("ab", "abc"), notFound);
  EXPECT_EQ(next("", "a"), notFound);
  EXPECT_EQ(next("xxab", "abc"), notFound);
  EXPECT_EQ(previous("xxab", "abc", 4), notFound);
}

TEST(PageFind, piecesTogetherFindWhatOneSearchFinds) {
  const std::string text = "abababa aba";
  const PageFinder finder = pageFinder("aba", false);
  for (std::size_t piece = 1; piece <= text.size(); ++piece) {
    std::vector<std::uint64_t> ahead;
    std::vector<std::uint64_t> back;
    for (std::uint64_t from = 0; from < text.size(); from += piece) {
      std::uint64_t at = from;
      while ((at = pageFindNext(finder, text, at, from + piece)) != notFound) ahead.push_back(at++);
      std::uint64_t behind = from + piece;
      const std::size_t begin = back.size();
      while ((behind = pageFindPrevious(finder, text, from, behind)) != notFound)
        back.insert(back.begin() + static_cast<std::ptrdiff_t>(begin), behind);
    }
    EXPECT_EQ(ahead, (std::vector<std::uint64_t>{0, 2, 4, 8})) << piece;
    EXPECT_EQ(back, ahead) << piece;
  }
}

TEST(PageFind, agreesWithAPlainSearch) {
  std::mt19937 random(7);
  for (int run = 0; run < 2000; ++run) {
    std::string text;
    std::string sought;
    for (std::size_t i = random() % 60; i > 0; --i) text += static_cast<char>('a' + random() % 3);
    for (std::size_t i = 1 + random() % 4; i > 0; --i) sought += static_cast<char>('a' + random() % 3);
    const std::size_t from = random() % 61;
    const std::size_t plain = text.find(sought, from);
    EXPECT_EQ(next(text, sought, from, run % 2), plain == std::string::npos ? notFound : plain);
    const std::size_t before = from == 0 ? std::string::npos : text.rfind(sought, from - 1);
    EXPECT_EQ(previous(text, sought, from, run % 2), before == std::string::npos ? notFound : before);
  }
}

}  // namespace
}  // namespace quillon
