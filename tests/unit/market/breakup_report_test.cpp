// The Breakup pages, both kinds, with and without the lending market's name.
#include "market/breakup_report.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>
#include <string>
#include <vector>

#include "support/approved.h"

namespace quillon {
namespace {

const std::vector<NormalBreakup> normalOrdinary = {
    {500101,
     {{1, 10000, 20000, 30000, 40000, 50000, 60000},
      {2, 11000, 21000, 31000, 41000, 51000, 61000},
      {3, 12000, 22000, 32000, 42000, 52000, 62000},
      {4, 13000, 23000, 33000, 43000, 53000, 63000}},
     1046000,
     1086000,
     1126000,
     1166000,
     206000,
     1246000,
     -40000,
     100001,
     140002,
     180003,
     220004},
    {500102,
     {{4, 10101, -2020, 30303, -4040, 50505, -6060},
      {3, 11111, -2121, 31313, -4141, 51515, -6161},
      {2, 12121, -2222, 32323, -4242, 52525, -6262},
      {1, 13131, -2323, 33333, -4343, 53535, -6363}},
     1464646,
     -868686,
     1272727,
     -167676,
     208080,
     -248484,
     -12345,
     101010,
     -20202,
     303030,
     -40404},
    {532999,
     {{1, 0, 0, 0, 0, 0, 0}, {2, 98765, 87654, 76543, 65432, 54321, 43210}, {3, 0, 0, 0, 0, 0, 0}, {4, 0, 0, 0, 0, 0, 0}},
     9876543,
     8765432,
     7654321,
     6543210,
     543210,
     4321098,
     765432,
     654321,
     543219,
     432198,
     321987},
};

const std::vector<NormalBreakup> normalWide = {
    {12345678,
     {{1, 123456, 234567, 345678, 456789, 567890, 678901},
      {2, -123456, -234567, -345678, -456789, -567890, -678901},
      {3, 2147483647, -2147483647 - 1, 1000001, 2000002, 3000003, 4000004},
      {4, 100001, 200002, 300003, 400004, 500005, 600006}},
     12345678,
     23456789,
     34567890,
     45678901,
     5678901,
     67890123,
     7890123,
     8901234,
     9012345,
     -1234567,
     -2345678},
    {-2147483647 - 1,
     {{1, -2147483647 - 1, 2147483647, -2147483647 - 1, 2147483647, -2147483647 - 1, 2147483647},
      {2, 100000, 100000, 100000, 100000, 100000, 100000},
      {3, 100000, 100000, 100000, 100000, 100000, 100000},
      {4, 100000, 100000, 100000, 100000, 100000, 100000}},
     -2147483647 - 1,
     2147483647,
     -2147483647 - 1,
     2147483647,
     -2147483647 - 1,
     2147483647,
     -2147483647 - 1,
     2147483647,
     -2147483647 - 1,
     2147483647,
     -2147483647 - 1},
};

const std::vector<NormalBreakup> normalNarrow = {
    {7,
     {{1, 1, 22, 333, 4, 55, 666}, {2, -1, -22, -333, -4, -55, -666}, {3, 9, 8, 7, 6, 5, 4}, {4, 101, 202, 303, 404, 505, 606}},
     1,
     22,
     333,
     4,
     55,
     666,
     -7,
     88,
     999,
     10,
     111},
    {42,
     {{0, 5, -6, 7, -8, 9, -10}, {5, 1, 2, 3, 4, 5, 6}, {-1, 6, 5, 4, 3, 2, 1}, {300, 10, 20, 30, 40, 50, 60}},
     -1,
     -22,
     -333,
     -4,
     -55,
     -666,
     7,
     -88,
     -999,
     -10,
     -111},
    {0,
     {{0, 0, 0, 0, 0, 0, 0}, {0, 0, 0, 0, 0, 0, 0}, {0, 0, 0, 0, 0, 0, 0}, {0, 0, 0, 0, 0, 0, 0}},
     0,
     0,
     0,
     0,
     0,
     0,
     0,
     0,
     0,
     0,
     0},
};

const std::vector<KestoBreakup> kestoOrdinary = {
    {500101,
     {{1, 10001, 20002, 30003, 40004}, {2, 11001, 21002, 31003, 41004}},
     1000001,
     2000002,
     3000003,
     4000004,
     5000005,
     6000006,
     -700007,
     99999,
     80000008,
     90000009},
    {500102,
     {{3, 12001, 22002, 32003, 42004}, {2, 13001, 23002, 33003, 43004}},
     -100001,
     -200002,
     -300003,
     -400004,
     -500005,
     -600006,
     7000007,
     88888,
     -8000008,
     -9000009},
    {532999, {{0, 0, 0, 0, 0}, {3, 98765, 87654, 76543, 65432}}, 0, 98765, 0, 87654, 65432, 76543, 11111, 0, 164197, 164197},
};

const std::vector<KestoBreakup> kestoWide = {
    {12345678,
     {{1, 1234567, 2345678, 3456789, 4567890}, {2, -1234567, -2345678, -3456789, -4567890}},
     12345678,
     23456789,
     34567890,
     45678901,
     56789012,
     67890123,
     -7890123,
     1,
     1234567890,
     -123456789},
    {-2147483647 - 1,
     {{3, 2147483647, -2147483647 - 1, 2147483647, -2147483647 - 1}, {2, 1111111, 2222222, 3333333, 4444444}},
     2147483647,
     -2147483647 - 1,
     2147483647,
     -2147483647 - 1,
     2147483647,
     -2147483647 - 1,
     2147483647,
     -2147483647 - 1,
     2147483647,
     -2147483647 - 1},
};

const std::vector<KestoBreakup> kestoNarrow = {
    {7, {{1, 1, 22, 333, 4}, {2, -5, -66, -777, -8}}, 1, 22, 333, 4, 55, 666, -7, 8, 99, 111},
    {42, {{3, 101, 202, 303, 404}, {9, 5, 6, 7, 8}}, -1, -22, -333, -4, -55, -666, 7, -8, -99, -111},
    {0, {{0, 0, 0, 0, 0}, {0, 0, 0, 0, 0}}, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0},
};

std::vector<std::uint32_t> inFileOrder(std::size_t count) {
  std::vector<std::uint32_t> order(count);
  std::iota(order.begin(), order.end(), 0u);
  return order;
}

std::string normalReport(const std::vector<NormalBreakup>& records, const BreakupOptions& options) {
  std::string text;
  Output* out = outputToMemory(&text);
  writeNormalBreakups(*out, records.data(), inFileOrder(records.size()), options);
  EXPECT_TRUE(outputClose(out));
  return text;
}

std::string kestoReport(const std::vector<KestoBreakup>& records, const BreakupOptions& options) {
  std::string text;
  Output* out = outputToMemory(&text);
  writeKestoBreakups(*out, records.data(), inFileOrder(records.size()), options);
  EXPECT_TRUE(outputClose(out));
  return text;
}

std::ptrdiff_t pagesOf(const std::string& report) { return std::count(report.begin(), report.end(), '\f'); }

TEST(BreakupReport, normalPages) {
  test::expectApproved("market/breakup_normal_ordinary.txt", normalReport(normalOrdinary, {2, false, "25/05/2009", "123"}));
}

TEST(BreakupReport, normalValuesWiderThanTheirCellsPushTheRestToTheRight) {
  test::expectApproved("market/breakup_normal_wide_values.txt",
                       normalReport(normalWide, {1, false, "25/05/2009", "123456789"}));
}

TEST(BreakupReport, normalNarrowValuesAndTypesWithoutALabel) {
  test::expectApproved("market/breakup_normal_narrow_values.txt", normalReport(normalNarrow, {2, false, "01/02/2009", "7"}));
}

TEST(BreakupReport, normalLendingPagesWithoutABrokerNumber) {
  test::expectApproved("market/breakup_normal_lending.txt", normalReport(normalOrdinary, {2, true, "25/05/2009", ""}));
}

TEST(BreakupReport, kestoPages) {
  test::expectApproved("market/breakup_kesto_ordinary.txt", kestoReport(kestoOrdinary, {2, false, "25/05/2009", "123"}));
}

TEST(BreakupReport, kestoValuesWiderThanTheirCellsPushTheRestToTheRight) {
  test::expectApproved("market/breakup_kesto_wide_values.txt", kestoReport(kestoWide, {1, false, "25/05/2009", "123456789"}));
}

TEST(BreakupReport, kestoNarrowValuesAndTypesWithoutALabel) {
  test::expectApproved("market/breakup_kesto_narrow_values.txt", kestoReport(kestoNarrow, {2, false, "01/02/2009", "7"}));
}

TEST(BreakupReport, kestoLendingPagesWithoutABrokerNumber) {
  test::expectApproved("market/breakup_kesto_lending.txt", kestoReport(kestoOrdinary, {2, true, "25/05/2009", ""}));
}

TEST(BreakupReport, sixRecordsAreOnePageAndSevenAreTwo) {
  const BreakupOptions six = {6, false, "25/05/2009", "123"};
  EXPECT_EQ(pagesOf(normalReport(std::vector<NormalBreakup>(6, normalOrdinary[0]), six)), 1);
  EXPECT_EQ(pagesOf(normalReport(std::vector<NormalBreakup>(7, normalOrdinary[0]), six)), 2);
  EXPECT_EQ(pagesOf(kestoReport(std::vector<KestoBreakup>(6, kestoOrdinary[0]), six)), 1);
  EXPECT_EQ(pagesOf(kestoReport(std::vector<KestoBreakup>(7, kestoOrdinary[0]), six)), 2);
}

TEST(BreakupReport, anEmptyBrokerNumberLeavesItsCellBlank) {
  const std::string text = normalReport(normalOrdinary, {6, false, "25/05/2009", ""});
  EXPECT_NE(text.find("Cl. No.  :       \r\n"), std::string::npos);
}

TEST(BreakupReport, recordsStandInTheOrderGiven) {
  std::string text;
  Output* out = outputToMemory(&text);
  const std::vector<std::uint32_t> order = {2, 0};
  writeNormalBreakups(*out, normalOrdinary.data(), order, {6, false, "25/05/2009", "123"});
  writeKestoBreakups(*out, kestoOrdinary.data(), order, {6, false, "25/05/2009", "123"});
  EXPECT_TRUE(outputClose(out));
  EXPECT_LT(text.find("|532999|"), text.find("|500101|"));
  EXPECT_LT(text.find("| 532999|"), text.find("| 500101|"));
  EXPECT_EQ(text.find("500102"), std::string::npos);
}

TEST(BreakupReport, theThirdAndFourthKestoFigureChangePlaces) {
  const std::string text =
      kestoReport({{1, {{2, 1, 2, 3, 4}, {}}, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0}}, {6, false, "25/05/2009", ""});
  EXPECT_NE(text.find("|       |     O|     1|     2|     4|     3|"), std::string::npos);
}

TEST(BreakupReport, theSpareKestoFigureIsNotPrinted) {
  const BreakupOptions options = {6, false, "25/05/2009", ""};
  EXPECT_EQ(kestoReport({{1, {}, 0, 0, 0, 0, 0, 0, 0, 7654321, 0, 0}}, options),
            kestoReport({{1, {}, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0}}, options));
}

}  // namespace
}  // namespace quillon
