// Scans against the C library's sscanf with the same format (its own prefixes), on random lines.
#include "text/scan.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstring>
#include <random>
#include <string>

namespace quillon {

namespace {

// The library's 64-bit number brought into 32 bits, as its 32-bit conversion does where numbers are 32 bits wide.
std::int32_t within32(long number) {
  if (number > INT32_MAX) return INT32_MAX;
  return number < INT32_MIN ? INT32_MIN : static_cast<std::int32_t>(number);
}

std::string randomLine(std::mt19937& random) {
  static const char* const parts[] = {
      "AMBARTEX", "|",           "|",           "|",          "500325", "-7",  "+3", " ",   "\t", "x",
      "0",        "99999999999", "-2147483649", "2147483648", "|12|",   "|3|", "\n", "abc", "-",  "9223372036854775808"};
  std::string line;
  for (std::size_t count = random() % 14; count > 0; --count) line += parts[random() % std::size(parts)];
  return line;
}

std::string textOf(const TextField<64>& field) { return std::string(field.view()); }

}  // namespace

TEST(Scan, touchlineAgreesWithTheLibrary) {
  std::mt19937 random(11);
  int whole = 0;
  for (int round = 0; round < 200000; ++round) {
    std::string line = randomLine(random);
    if (round % 4 == 0) line = "AMBARTEX|" + line;
    TextField<64> text{{'?'}};
    std::int32_t a = -77;
    std::int32_t b = -77;
    std::int32_t c = -77;
    const int stored = scan<"%[^|]|%Fld|%Fld|%ld|">(line, text, a, b, c);
    char libraryText[512] = "?";
    long la = -77;
    long lb = -77;
    long lc = -77;
    const int byLibrary = std::sscanf(line.c_str(), "%[^|]|%ld|%ld|%ld|", libraryText, &la, &lb, &lc);
    ASSERT_EQ(stored, byLibrary < 0 ? 0 : byLibrary) << line;
    ASSERT_EQ(textOf(text), std::string(libraryText).substr(0, 63)) << line;
    ASSERT_EQ(a, within32(la)) << line;
    ASSERT_EQ(b, within32(lb)) << line;
    ASSERT_EQ(c, within32(lc)) << line;
    whole += stored == 4;
  }
  EXPECT_GT(whole, 100);
}

TEST(Scan, limitsAndCharactersAgreeWithTheLibrary) {
  std::mt19937 random(12);
  for (int round = 0; round < 200000; ++round) {
    const std::string line = randomLine(random);
    std::int32_t number = -77;
    char letter = '?';
    TextField<64> text{{'?'}};
    std::int64_t wide = -77;
    const int stored = scan<"%ld|%c %F[^|]|%I64d">(line, number, letter, text, wide);
    long libraryNumber = -77;
    char libraryLetter = '?';
    char libraryText[512] = "?";
    long long libraryWide = -77;
    const int byLibrary =
        std::sscanf(line.c_str(), "%ld|%c %[^|]|%lld", &libraryNumber, &libraryLetter, libraryText, &libraryWide);
    ASSERT_EQ(stored, byLibrary < 0 ? 0 : byLibrary) << line;
    ASSERT_EQ(number, within32(libraryNumber)) << line;
    ASSERT_EQ(letter, libraryLetter) << line;
    ASSERT_EQ(textOf(text), std::string(libraryText).substr(0, 63)) << line;
    ASSERT_EQ(wide, libraryWide) << line;
  }
}

TEST(Scan, setsAgreeWithTheLibrary) {
  std::mt19937 random(13);
  for (int round = 0; round < 100000; ++round) {
    std::string line(random() % 12, ' ');
    for (char& c : line) c = "ab-]^|xz "[random() % 9];
    TextField<64> one{};
    TextField<64> two{};
    TextField<64> three{};
    char libraryOne[64] = "";
    char libraryTwo[64] = "";
    char libraryThree[64] = "";
    const int stored = scan<"%[]a-b]%[^]a]%[-|^]">(line, one, two, three);
    const int byLibrary = std::sscanf(line.c_str(), "%[]a-b]%[^]a]%[-|^]", libraryOne, libraryTwo, libraryThree);
    ASSERT_EQ(stored, byLibrary < 0 ? 0 : byLibrary) << line;
    ASSERT_EQ(textOf(one) + "," + textOf(two) + "," + textOf(three),
              std::string(libraryOne) + "," + libraryTwo + "," + libraryThree)
        << line;
  }
}

TEST(Scan, wholeTouchline) {
  TextField<12> scripId;
  std::int32_t n[8];
  const int stored = scan<"%[^|]|%Fld|%Fld|%Fld|%Fld|%Fld|%Fld|%Fld|%Fld|">(
      "AMBARTEX|500325|123450|123400|120000|125000|119000|123400|1234567|\n", scripId, n[0], n[1], n[2], n[3], n[4], n[5], n[6],
      n[7]);
  EXPECT_EQ(stored, 9);
  EXPECT_EQ(scripId.view(), "AMBARTEX");
  const std::int32_t expected[] = {500325, 123450, 123400, 120000, 125000, 119000, 123400, 1234567};
  EXPECT_TRUE(std::equal(n, n + 8, expected));
}

TEST(Scan, firstFieldThatFailsLeavesTheRest) {
  TextField<12> text{{'o', 'l', 'd'}};
  std::int32_t a = 1;
  std::int32_t b = 2;
  EXPECT_EQ((scan<"%[^|]|%ld|%ld|">("ABC|x|5|", text, a, b)), 1);
  EXPECT_EQ(text.view(), "ABC");
  EXPECT_EQ(a, 1);
  EXPECT_EQ(b, 2);
}

TEST(Scan, emptyTextFails) {
  TextField<12> text{{'o', 'l', 'd'}};
  std::int32_t a = 1;
  EXPECT_EQ((scan<"%[^|]|%ld|">("|5|", text, a)), 0);
  EXPECT_EQ(text.view(), "old");
  EXPECT_EQ((scan<"%[^|]|%ld|">("", text, a)), 0);
}

TEST(Scan, blanksGoBeforeNumbersAndNotBeforeTextAndCharacters) {
  TextField<12> text;
  std::int32_t a = 0;
  char c = '?';
  EXPECT_EQ((scan<"%ld|%c|%[^|]|">(" \t\n 7| | A B |", a, c, text)), 3);
  EXPECT_EQ(a, 7);
  EXPECT_EQ(c, ' ');
  EXPECT_EQ(text.view(), " A B ");
}

TEST(Scan, textLongerThanItsFieldIsCutAndTheScanGoesOn) {
  struct {
    TextField<4> text;
    char behind[4] = {'k', 'e', 'e', 'p'};
  } record;
  std::int32_t a = 0;
  EXPECT_EQ((scan<"%[^|]|%ld">("ABCDEFGH|5", record.text, a)), 2);
  EXPECT_EQ(record.text.view(), "ABC");
  EXPECT_EQ(std::string(record.behind, 4), "keep");
  EXPECT_EQ(a, 5);
}

TEST(Scan, numberBeyondItsWidthGivesTheNearestWithin) {
  std::int32_t a = 0;
  std::int32_t b = 0;
  std::int16_t c = 0;
  std::int64_t d = 0;
  EXPECT_EQ((scan<"%ld|%ld|%hd|%I64d">("2147483648|-99999999999999999999999|-40000|99999999999999999999", a, b, c, d)), 4);
  EXPECT_EQ(a, INT32_MAX);
  EXPECT_EQ(b, INT32_MIN);
  EXPECT_EQ(c, INT16_MIN);
  EXPECT_EQ(d, INT64_MAX);
}

TEST(Scan, lineEndsAtItsBoundAndAtANul) {
  std::int32_t a = 0;
  TextField<8> text;
  EXPECT_EQ((scan<"%ld">(std::string_view("12345", 2), a)), 1);
  EXPECT_EQ(a, 12);
  EXPECT_EQ((scan<"%[^|]|%ld">(std::string_view("ab\0cd|5", 7), text, a)), 1);
  EXPECT_EQ(text.view(), "ab");
}

}  // namespace quillon
