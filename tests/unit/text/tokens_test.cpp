// Tokens against strtok, numbers against strtol.
#include "text/tokens.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <random>
#include <string>
#include <vector>

namespace quillon {

static std::vector<std::string> allTokens(std::string_view line, std::string_view delimiters) {
  std::vector<std::string> tokens;
  Tokens rest{line};
  for (;;) {
    const std::string_view token = tokenNext(rest, delimiters);
    if (token.empty()) break;
    tokens.emplace_back(token);
  }
  EXPECT_TRUE(tokenNext(rest, delimiters).empty());  // and none comes later
  return tokens;
}

TEST(Tokens, areThoseOfStrtokOnRandomLines) {
  std::mt19937 random(14);
  for (int round = 0; round < 200000; ++round) {
    std::string line(random() % 30, ' ');
    for (char& c : line) c = "ab|\n ,\0x"[random() % (round % 2 ? 8 : 6)];
    const char* const delimiters = round % 3 == 0 ? "|" : round % 3 == 1 ? "|\n" : ", |";
    std::vector<std::string> expected;
    std::string copy = line;
    for (char* token = std::strtok(copy.data(), delimiters); token; token = std::strtok(nullptr, delimiters)) {
      expected.emplace_back(token);
    }
    const std::string before = line;
    ASSERT_EQ(allTokens(line, delimiters), expected) << line;
    ASSERT_EQ(line, before);
  }
}

TEST(Tokens, runOfDelimitersIsOneSoThatLaterTokensMoveUp) {
  EXPECT_EQ(allTokens("|a||b|||c|", "|"), (std::vector<std::string>{"a", "b", "c"}));
}

TEST(Tokens, lineOfDelimitersAloneHasNone) {
  EXPECT_TRUE(allTokens("||||", "|").empty());
  EXPECT_TRUE(allTokens("", "|").empty());
}

TEST(Tokens, boundedLineIsNotReadPastItsEnd) {
  const std::vector<char> exact = {'a', '|', 'b'};
  EXPECT_EQ(allTokens({exact.data(), 3}, "|"), (std::vector<std::string>{"a", "b"}));
}

TEST(TextToNumber, isThatOfTheLibraryOnRandomTexts) {
  std::mt19937 random(15);
  for (int round = 0; round < 200000; ++round) {
    std::string text(random() % 24, ' ');
    for (char& c : text) c = "0123456789012345678901234567 \t+-x.\n"[random() % (round % 2 ? 10 : 35)];
    const long number = std::strtol(text.c_str(), nullptr, 10);
    const long within = number > INT32_MAX ? INT32_MAX : number < INT32_MIN ? INT32_MIN : number;
    ASSERT_EQ(textToNumber(text), within) << text;
  }
}

TEST(TextToNumber, stopsAtTheFirstCharacterThatIsNoDigit) {
  EXPECT_EQ(textToNumber("12a3"), 12);
  EXPECT_EQ(textToNumber(" -5.9"), -5);
  EXPECT_EQ(textToNumber("x1"), 0);
  EXPECT_EQ(textToNumber(""), 0);
  EXPECT_EQ(textToNumber("-"), 0);
  EXPECT_EQ(textToNumber("- 5"), 0);
  EXPECT_EQ(textToNumber(std::string_view("123", 2)), 12);
}

TEST(TextToNumber, beyond32BitsGivesTheNearestWithin) {
  EXPECT_EQ(textToNumber("2147483647"), INT32_MAX);
  EXPECT_EQ(textToNumber("2147483648"), INT32_MAX);
  EXPECT_EQ(textToNumber("-2147483648"), INT32_MIN);
  EXPECT_EQ(textToNumber("-99999999999999999999999999"), INT32_MIN);
}

}  // namespace quillon
