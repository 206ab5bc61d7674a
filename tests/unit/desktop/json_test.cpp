#include "desktop/scripted/json.h"

#include <gtest/gtest.h>

namespace quillon {

TEST(Json, controlCharactersQuotesAndBackslashesAreEscaped) {
  EXPECT_EQ(jsonOfBytes("a\"b\\c"), R"("a\"b\\c")");
  EXPECT_EQ(jsonOfBytes("one\ntwo\r\tthree"), R"("one\ntwo\r\tthree")");
  EXPECT_EQ(jsonOfBytes(std::string_view("\0\x01\x1F\x7F", 4)), R"("\u0000\u0001\u001f\u007f")");
  EXPECT_EQ(jsonOfBytes("\x81"), R"("\u0081")");
  EXPECT_EQ(jsonOfBytes("\xA0"), "\"\u00A0\"");
  EXPECT_EQ(jsonOfUtf8("\xC2"), "\"\u00C2\"");
}

TEST(Json, textEndsAtItsFirstNul) {
  EXPECT_EQ(upToNul(std::string_view("ab\0cd", 5)), "ab");
  EXPECT_EQ(upToNul("ab"), "ab");
}

}  // namespace quillon
