#include "text/letters.h"

#include <gtest/gtest.h>

namespace quillon {

TEST(UpperCase, lettersAToZAloneAreTurned) {
  for (int byte = -128; byte < 128; ++byte) {
    const char c = static_cast<char>(byte);
    const bool small = byte >= 'a' && byte <= 'z';
    EXPECT_EQ(upperCase(c), small ? static_cast<char>(byte - 32) : c) << byte;
  }
}

TEST(UpperCase, namesOutsideAsciiStayWholeInBothEncodings) {
  EXPECT_EQ(upperCased("tr-caf\xE9.b01"), "TR-CAF\xE9.B01");
  EXPECT_EQ(upperCased("tr-caf\u00E9\u0101.b01"), "TR-CAF\u00E9\u0101.B01");
}

TEST(UpperCase, textKeepsItsLengthAndItsNuls) { EXPECT_EQ(upperCased(std::string_view("a\0b", 3)), std::string("A\0B", 3)); }

}  // namespace quillon
