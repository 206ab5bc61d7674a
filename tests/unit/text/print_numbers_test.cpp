// Numbers against the C library's printf: every edge of the quick roads, and random values through all widths and flags.
#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <random>
#include <vector>

#include "formed.h"

namespace quillon {

static std::vector<std::int64_t> edgeNumbers() {
  std::vector<std::int64_t> numbers = {0, std::numeric_limits<std::int64_t>::min(), std::numeric_limits<std::int64_t>::max(),
                                       std::numeric_limits<std::int32_t>::min(), std::numeric_limits<std::int32_t>::max()};
  for (std::int64_t power = 1; power > 0 && power <= 1000000000000000000; power *= 10) {
    for (std::int64_t by = -2; by <= 2; ++by) {
      numbers.push_back(power + by);
      numbers.push_back(-power + by);
      numbers.push_back(5 * power + by);
    }
    if (power == 1000000000000000000) break;
  }
  std::mt19937_64 random(2);
  for (int i = 0; i < 4000; ++i) {
    numbers.push_back(static_cast<std::int64_t>(random()) >> (random() % 64));
  }
  return numbers;
}

TEST(PrintNumbers, agreeWithTheLibrary) {
  for (const std::int64_t wide : edgeNumbers()) {
    const long long v = wide;
    const int n = static_cast<int>(wide);
#define BOTH(flags)                                                                      \
  EXPECT_EQ((formatText<"%" flags "I64d|">(wide)), byLibrary("%" flags "lld|", v)) << v; \
  EXPECT_EQ((formatText<"%" flags "ld|">(n)), byLibrary("%" flags "d|", n)) << n;        \
  EXPECT_EQ((formatText<"%" flags "hd|">(n)), byLibrary("%" flags "hd|", n)) << n
    BOTH("");
    BOTH("1");
    BOTH("2");
    BOTH("3");
    BOTH("4");
    BOTH("5");
    BOTH("6");
    BOTH("7");
    BOTH("8");
    BOTH("9");
    BOTH("10");
    BOTH("12");
    BOTH("15");
    BOTH("16");
    BOTH("17");
    BOTH("18");
    BOTH("20");
    BOTH("79");
    BOTH("-3");
    BOTH("-8");
    BOTH("-9");
    BOTH("-15");
    BOTH("02");
    BOTH("03");
    BOTH("08");
    BOTH("020");
    BOTH("+");
    BOTH("+9");
    BOTH(" ");
    BOTH("-+9");
    BOTH("+09");
    BOTH(" 09");
    BOTH(".0");
    BOTH(".2");
    BOTH("0.2");
    BOTH("2.2");
    BOTH("9.4");
    BOTH("-9.4");
    BOTH(".40");
    BOTH("09.4");
#undef BOTH
  }
}

// Halves, powers of ten and of two with their neighbours, what the roads change at, and values that are no numbers.
static std::vector<double> edgeDoubles() {
  std::vector<double> values = {0.0,
                                -0.0,
                                std::numeric_limits<double>::infinity(),
                                -std::numeric_limits<double>::infinity(),
                                std::numeric_limits<double>::quiet_NaN(),
                                -std::numeric_limits<double>::quiet_NaN(),
                                std::numeric_limits<double>::max(),
                                std::numeric_limits<double>::lowest(),
                                std::numeric_limits<double>::min(),
                                std::numeric_limits<double>::denorm_min(),
                                1e308};
  const auto withNeighbours = [&](double value) {
    for (const double v : {value, std::nextafter(value, 1e300), std::nextafter(value, -1e300)}) {
      values.push_back(v);
      values.push_back(-v);
    }
  };
  for (int e = -10; e <= 22; ++e) {
    withNeighbours(std::pow(10.0, e));
    withNeighbours(5 * std::pow(10.0, e));
  }
  for (int e = -70; e <= 70; ++e) withNeighbours(std::ldexp(1.0, e));
  for (int i = 0; i < 4000; ++i) {
    withNeighbours(i / 8.0);
    withNeighbours(i / 1000.0);
    withNeighbours((i + 0.5) / 10000.0);
    withNeighbours(i * 1234567.0 + 0.125);
    withNeighbours(i / 32768.0);
  }
  for (int i = -40; i <= 40; ++i) withNeighbours(9007199254740992.0 + i);
  return values;
}

template <class Value>
static void expectDoubles(Value value, std::uint64_t count) {
  for (std::uint64_t i = 0; i < count; ++i) {
    const double v = value(i);
#define BOTH(flags)                                                      \
  do {                                                                   \
    const std::string ours = formatText<"%" flags "f|">(v);              \
    ASSERT_EQ(ours, byLibrary("%" flags "f|", v)) << std::hexfloat << v; \
  } while (false)
    BOTH("12.2");
    BOTH("17.2");
    BOTH("8.4");
    BOTH("15.4");
    BOTH("4.2");
    BOTH("9.0");
    BOTH("10.1");
    BOTH("10.3");
    BOTH("");
    BOTH(".2");
    BOTH("-12.2");
    BOTH("012.2");
    BOTH("+.4");
    BOTH("014");
    BOTH("-+12.1");
    BOTH(" .0");
    BOTH("30.20");
#undef BOTH
  }
}

TEST(PrintDoubles, agreeWithTheLibraryAtEveryEdge) {
  const std::vector<double> values = edgeDoubles();
  expectDoubles([&](std::uint64_t i) { return values[i]; }, values.size());
}

TEST(PrintDoubles, agreeWithTheLibraryOnRandomBits) {
  std::mt19937_64 random(3);
  expectDoubles([&](std::uint64_t) { return std::bit_cast<double>(random()); }, 10000);
}

TEST(PrintDoubles, agreeWithTheLibraryOnRandomAmounts) {
  std::mt19937_64 random(4);
  expectDoubles(
      [&](std::uint64_t) {
        const auto whole = static_cast<double>(static_cast<std::int64_t>(random()) >> (11 + random() % 52));
        constexpr double units[] = {1.0, 8.0, 100.0, 1000.0, 10000.0, 3.0, 1024.0};
        return whole / units[random() % 7];
      },
      20000);
}

TEST(PrintDoubles, quickRoadAgreesWithTheGeneralRoad) {
  std::mt19937_64 random(5);
  char quick[600];
  char general[600];
  for (int i = 0; i < 1000000; ++i) {
    const auto exponent = 1023 - 80 + random() % 140;
    const double value = std::bit_cast<double>((random() & 0x800fffffffffffff) | (exponent << 52));
    constexpr Conversion two{.kind = ConversionKind::real, .width = 12, .precision = 2};
    constexpr Conversion four{.kind = ConversionKind::real, .width = 15, .precision = 4};
    const std::string_view byTwo(quick, static_cast<std::size_t>(detail::putReal<two>(quick, value) - quick));
    ASSERT_EQ(byTwo,
              std::string_view(general, static_cast<std::size_t>(detail::putRealGeneral(general, value, two) - general)));
    const std::string_view byFour(quick, static_cast<std::size_t>(detail::putReal<four>(quick, value) - quick));
    ASSERT_EQ(byFour,
              std::string_view(general, static_cast<std::size_t>(detail::putRealGeneral(general, value, four) - general)));
  }
}

TEST(PrintDoubles, writtenOut) {
  EXPECT_EQ(printed<"%10.2f|">(1234.5), "   1234.50|");
  EXPECT_EQ(printed<"%10.2f|">(0.125), "      0.12|");  // a half goes to the even digit
  EXPECT_EQ(printed<"%10.2f|">(0.375), "      0.38|");
  EXPECT_EQ(printed<"%10.2f|">(1.005), "      1.00|");  // just below the half in binary
  EXPECT_EQ(printed<"%8.4f|">(-0.00001), " -0.0000|");
  EXPECT_EQ(printed<"%15.2lf|">(-123456789.125), "  -123456789.12|");
  EXPECT_EQ(printed<"%.2f">(1e22), "10000000000000000000000.00");
}

}  // namespace quillon
