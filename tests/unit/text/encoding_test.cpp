#include "text/encoding.h"

#include <gtest/gtest.h>

namespace quillon {

TEST(Encoding, bytesAbove127AreWindows1252) {
  EXPECT_EQ(utf8FromBytes("\x80"), "\u20AC");  // the euro sign
  EXPECT_EQ(utf8FromBytes("\x93quoted\x94"), "\u201Cquoted\u201D");
  EXPECT_EQ(utf8FromBytes("caf\xE9"), "caf\u00E9");
  EXPECT_EQ(utf8FromBytes("\xFF"), "\u00FF");
  EXPECT_EQ(utf8FromBytes("\x81"), "\xC2\x81");  // one of the five that Windows-1252 leaves open
}

TEST(Encoding, everyByteComesBackFromUtf8) {
  std::string all;
  for (int byte = 1; byte < 256; ++byte) all += static_cast<char>(byte);
  const std::string text = utf8FromBytes(all);
  EXPECT_TRUE(isUtf8(text));
  EXPECT_EQ(bytesFromUtf8(text), all);
}

TEST(Encoding, characterThatWindows1252LacksBecomesQuestionMark) {
  EXPECT_EQ(bytesFromUtf8("a\u0915b"), "a?b");
  EXPECT_EQ(bytesFromUtf8("\xF0\x9F\x98\x80"), "?");  // beyond 16 bits
}

TEST(Encoding, textThatIsNoUtf8IsTakenAsWindows1252) {
  EXPECT_EQ(bytesFromUtf8("caf\xE9"), "caf\xE9");
  EXPECT_EQ(utf8FromEither("caf\xE9"), "caf\u00E9");
  EXPECT_EQ(utf8FromEither("caf\u00E9"), "caf\u00E9");
}

TEST(Encoding, onlyWellFormedUtf8Counts) {
  static constexpr std::string_view good[] = {
      "", "a", "\xC2\x80", "\xDF\xBF", "\xE0\xA0\x80", "\xEF\xBF\xBF", "\xF0\x90\x80\x80", "\xF4\x8F\xBF\xBF"};
  static constexpr std::string_view bad[] = {
      "\x80",              // a continuation alone
      "\xC2",              // cut short
      "\xC0\xAF",          // longer than needed
      "\xE0\x9F\xBF",      // longer than needed
      "\xED\xA0\x80",      // half of a surrogate pair
      "\xF0\x8F\xBF\xBF",  // longer than needed
      "\xF4\x90\x80\x80",  // beyond the last character
      "\xF5\x80\x80\x80",
      "\xE2\x82",
      "\xE2\x28\xA1",
      "\xFF",
  };
  for (std::string_view text : good) EXPECT_TRUE(isUtf8(text)) << utf8FromBytes(text);
  for (std::string_view text : bad) EXPECT_FALSE(isUtf8(text)) << utf8FromBytes(text);
}

TEST(Encoding, sixteenBitsACharacter) {
  EXPECT_EQ(utf16FromUtf8("a\u20AC"), u"a\u20AC");
  EXPECT_EQ(utf16FromUtf8("\xF0\x9F\x98\x80"), u"\U0001F600");  // two of them beyond 16 bits
  EXPECT_EQ(utf16FromUtf8("caf\xE9"), u"caf\u00E9");              // no UTF-8: Windows-1252
  EXPECT_EQ(utf16FromUtf8(""), u"");
}

}  // namespace quillon
