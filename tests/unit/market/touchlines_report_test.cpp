// The Touchlines pages, both kinds, with and without the lending form of the heading.
#include "market/touchlines_report.h"

#include <gtest/gtest.h>

#include <numeric>
#include <string>
#include <vector>

#include "support/approved.h"

namespace quillon {
namespace {

TouchlineHeader header(const char* date, const char* second, const char* third) {
  TouchlineHeader made = {};
  fieldSet(made.date, date);
  fieldSet(made.second, second);
  fieldSet(made.third, third);
  return made;
}

NormalTouchline normal(const char* scripId, std::int32_t scripCode, std::int32_t rate1, std::int32_t rate2, std::int32_t open,
                       std::int32_t high, std::int32_t low, std::int32_t lastTraded, std::int32_t volume) {
  NormalTouchline made = {{}, scripCode, rate1, rate2, open, high, low, lastTraded, volume};
  fieldSet(made.scripId, scripId);
  return made;
}

KestoTouchline kesto(const char* scripId, std::int32_t scripCode, std::int32_t lendRate, std::int32_t lendQty,
                     std::int32_t lendYield, std::int32_t borrowRate, std::int32_t borrowQty, std::int32_t borrowYield,
                     std::int32_t standardRate, std::int32_t weightedAverage, std::int32_t tradedVolume) {
  KestoTouchline made = {{},        scripCode,   lendRate,     lendQty,         lendYield,    borrowRate,
                         borrowQty, borrowYield, standardRate, weightedAverage, tradedVolume, {}};
  fieldSet(made.scripId, scripId);
  fieldSet(made.trailer, "NOT PRINTED");
  return made;
}

std::vector<std::uint32_t> inFileOrder(std::size_t count) {
  std::vector<std::uint32_t> order(count);
  std::iota(order.begin(), order.end(), 0u);
  return order;
}

std::string normalReport(const std::vector<NormalTouchline>& records, const std::vector<std::uint32_t>& order,
                         const TouchlinesOptions& options,
                         const TouchlineHeader& line1 = header("As on : 01/01/2009", "10:30:00", "NORMAL")) {
  std::string text;
  Output* out = outputToMemory(&text);
  writeNormalTouchlines(*out, line1, records.data(), order, options);
  EXPECT_TRUE(outputClose(out));
  return text;
}

std::string kestoReport(const std::vector<KestoTouchline>& records, const TouchlinesOptions& options,
                        const TouchlineHeader& line1 = header("01/01/09", "10:30:00", "KESTO")) {
  std::string text;
  Output* out = outputToMemory(&text);
  writeKestoTouchlines(*out, line1, records.data(), inFileOrder(records.size()), options);
  EXPECT_TRUE(outputClose(out));
  return text;
}

// The last row but one is the zero record that an overlong line leaves behind.
const std::vector<NormalTouchline> normalRows = {
    normal("AXLEIND", 500101, 12345, 12350, 12000, 12400, 11950, 12345, 98765),
    normal("BRASSCO", 500102, 0, -5, 1, 99, 100, 0, 0),
    normal("CORALTEXTIL", 532999, 214748364, 1234567890, 100, 105, 95, 2147483647, 2147483647),
    normal("", 0, 0, 0, 0, 0, 0, 0, 0),
    normal("DELTAFAB", -7, 250, 255, 1000, 100000, 99995, 99999, -4),
};

const std::vector<KestoTouchline> kestoRows = {
    kesto("AXLEIND", 500101, 500, 500, 625, 510, 700, 600, 505, 503, 1500),
    kesto("BRASSCO", 500102, -5, -500, 0, 0, 0, 0, 1, -1, -20),
    kesto("CORALTEXTIL", 532999, 99999999, 100000, 12, 7, 123456789, -1, 0, 2147483647, 2147483647),
};

std::size_t pagesOf(const std::string& report) {
  return static_cast<std::size_t>(std::count(report.begin(), report.end(), '\f'));
}

TEST(TouchlinesReport, normalPagesWithBlankCellsAndWideValues) {
  test::expectApproved("market/touchlines_normal.txt", normalReport(normalRows, inFileOrder(5), {2, false}));
}

TEST(TouchlinesReport, normalLendingHeadingHasLRateAndNoThirdToken) {
  test::expectApproved("market/touchlines_normal_lending.txt", normalReport(normalRows, inFileOrder(3), {2, true}));
}

TEST(TouchlinesReport, normalFullPageStartsNoEmptyOne) {
  test::expectApproved("market/touchlines_normal_full_page.txt", normalReport(normalRows, inFileOrder(2), {2, false}));
}

TEST(TouchlinesReport, kestoPagesWithBlankCellsAndWideValues) {
  test::expectApproved("market/touchlines_kesto.txt", kestoReport(kestoRows, {2, false}));
}

TEST(TouchlinesReport, kestoLendingHeadingKeepsAllThreeTokens) {
  test::expectApproved("market/touchlines_kesto_lending.txt", kestoReport(kestoRows, {2, true}));
}

TEST(TouchlinesReport, valuesNarrowerThanTheirCellsAreAligned) {
  const TouchlineHeader line1 = header("d1", "t2", "k3");
  const std::vector<NormalTouchline> normalRecords = {
      normal("AB", 7, 101, 202, 303, 404, 5, 606, 8),
      normal("Q", 21, 0, -3, 11, 12, 13, 14, 0),
      normal("XYZ", 345, 9, 8, 7, 6, 5, 4, 123),
  };
  const std::vector<KestoTouchline> kestoRecords = {
      kesto("AB", 7, 101, 2, 33, 104, 5, 66, 107, 8, 9),
      kesto("Q", 21, -1, -2, 0, 0, -5, 0, 0, 77, -9),
      kesto("XYZ", 345, 11, 12, 13, 14, 15, 16, 17, 18, 19),
  };
  for (const bool lending : {false, true}) {
    const std::string ending = lending ? "_lending_narrow_values.txt" : "_narrow_values.txt";
    test::expectApproved("market/touchlines_normal" + ending, normalReport(normalRecords, inFileOrder(3), {2, lending}, line1));
    test::expectApproved("market/touchlines_kesto" + ending, kestoReport(kestoRecords, {2, lending}, line1));
  }
}

TEST(TouchlinesReport, rowsStandInTheOrderGiven) {
  const std::string report = normalReport(normalRows, {1, 0}, {50, false});
  EXPECT_LT(report.find("|    BRASSCO|"), report.find("|    AXLEIND|"));
  EXPECT_EQ(report.find("CORALTEXTIL"), std::string::npos);
}

TEST(TouchlinesReport, fiftyRecordsAreOnePageAndFiftyOneAreTwo) {
  const std::vector<NormalTouchline> many(51, normalRows[0]);
  EXPECT_EQ(pagesOf(normalReport(many, inFileOrder(50), {50, false})), 1u);
  EXPECT_EQ(pagesOf(normalReport(many, inFileOrder(51), {50, false})), 2u);
  EXPECT_EQ(pagesOf(kestoReport(std::vector<KestoTouchline>(50, kestoRows[0]), {50, false})), 1u);
  EXPECT_EQ(pagesOf(kestoReport(std::vector<KestoTouchline>(51, kestoRows[0]), {50, false})), 2u);
}

TEST(TouchlinesReport, normalRateOfZeroOrBelowIsBlankAndKestoOnlyZero) {
  const std::string normalText = normalReport({normal("A", 1, -1, 0, 1, 1, 1, 1, 1)}, {0}, {50, false});
  EXPECT_NE(normalText.find("|          A|          1|          |          |      0.01|"), std::string::npos);
  const std::string kestoText = kestoReport({kesto("A", 1, -1, 0, -1, 0, 0, 0, 0, 0, 0)}, {50, false});
  EXPECT_NE(kestoText.find("|          A|          1|   -0.01|        |   -0.01|        |"), std::string::npos);
}

TEST(TouchlinesReport, lendQuantityPrintsUndividedWithTwoDecimals) {
  const std::string text = kestoReport({kesto("A", 1, 100, 500, 1, 100, 500, 1, 1, 1, 1)}, {50, false});
  EXPECT_NE(text.find("|    1.00|  500.00|    0.01|    1.00|     500|    0.01|"), std::string::npos);
}

}  // namespace
}  // namespace quillon
