// Worked out by hand: x times 100 is cut toward zero, its last two digits are compared with 50, and x, or x and one more
// away from zero, is cut to its whole part.
#include "frame/rounding.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace quillon {

struct RoundingCase {
  double x;
  std::int64_t expected;
};

static void expectRounded(const RoundingCase& row) { EXPECT_EQ(roundHalfAway(row.x), row.expected) << "x = " << row.x; }

TEST(RoundHalfAway, averageOf12point345Gives12point35) { EXPECT_EQ(roundHalfAway(12.345 * 100.0), 1235); }

TEST(RoundHalfAway, averageOfMinus12point345GivesMinus12point35) { EXPECT_EQ(roundHalfAway(-12.345 * 100.0), -1235); }

TEST(RoundHalfAway, tableWorkedOutByHand) {
  static constexpr RoundingCase rows[] = {
      // x          expected     t = x times 100, cut; its last two digits
      {0.0, 0},            // 0
      {0.25, 0},           // 25: below 50
      {0.5, 1},            // 50: up, 1.5 cut
      {0.75, 1},           // 75: up, 1.75 cut
      {1.0, 1},            // 100: 00
      {1.25, 1},           // 125: 25
      {1.5, 2},            // 150: 50, 2.5 cut
      {2.5, 3},            // 250: 50; not to the even neighbour
      {99.5, 100},         // 9950: 50
      {1234.25, 1234},     // 123425: 25
      {1234.5, 1235},      // 123450: 50
      {1234.75, 1235},     // 123475: 75
      {100000.5, 100001},  // 10000050: 50
  };
  for (const RoundingCase& row : rows) expectRounded(row);
}

TEST(RoundHalfAway, negativeValuesMirrorPositiveOnes) {
  static constexpr RoundingCase rows[] = {
      {-0.25, 0}, {-0.5, -1},    {-0.75, -1},       {-1.0, -1},       {-1.25, -1},       {-1.5, -2},
      {-2.5, -3}, {-99.5, -100}, {-1234.25, -1234}, {-1234.5, -1235}, {-1234.75, -1235},
  };
  for (const RoundingCase& row : rows) expectRounded(row);
}

TEST(RoundHalfAway, onlyFirstTwoDecimalsDecide) {
  expectRounded({7.4999, 7});  // t is 749, whose last two digits are 49
  expectRounded({-7.4999, -7});
  expectRounded({-0.004, 0});  // t is cut to 0
  expectRounded({7.509, 8});
}

TEST(RoundHalfAway, valuesBeyond64BitsGiveEndOfRange) {
  expectRounded({1e300, std::numeric_limits<std::int64_t>::max()});
  expectRounded({-1e300, std::numeric_limits<std::int64_t>::min()});
  expectRounded({std::numeric_limits<double>::infinity(), std::numeric_limits<std::int64_t>::max()});
  expectRounded({-std::numeric_limits<double>::infinity(), std::numeric_limits<std::int64_t>::min()});
  expectRounded({std::nan(""), 0});
}

TEST(RoundHalfAway, largeWholeNumbersStayAsTheyAre) {
  expectRounded({1e17, 100000000000000000});
  expectRounded({-1e17, -100000000000000000});
}

}  // namespace quillon
