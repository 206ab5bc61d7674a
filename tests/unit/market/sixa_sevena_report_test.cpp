// The 6A7A pages: the ordinary and the lending layout, of updatable and non-updatable files.
#include "market/sixa_sevena_report.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "support/approved.h"

namespace quillon {
namespace {

const std::vector<Record6A7A> ordinaryEntries = {
    {500101,
     1234,
     'N',
     1000001,
     'B',
     'C',
     123456789,
     1234567,
     {"01/01/2009"},
     {"CLIENT000001"},
     'Y',
     10001,
     {"CONTRACT/2009/0000000001X"},
     {"FIRST COMMENT 123456"},
     1},
    {500102, 2345, 'D', 1000002, 'S', 'N', 1000, 5, {"31/12/2008"}, {"OWN"}, 'N', 20002, {"C/2"}, {"NO BLOCK DEAL"}, 0},
    {532999,
     3456,
     'N',
     1000003,
     'L',
     'C',
     250,
     100,
     {"01/01/2009"},
     {"CLIENT000003"},
     'R',
     30003,
     {"CONTRACT/3"},
     {"STAYS AS L"},
     2},
};

const std::vector<Record6A7A> lendingEntries = {
    {500101,
     1234,
     'N',
     1000001,
     'B',
     ' ',
     123456789,
     1234567,
     {"01/01/2009"},
     {"CLIENT000001"},
     'Y',
     10001,
     {"MEMO/2009/0000000000001XY"},
     {"FIRST COMMENT 123456"},
     1},
    {500102, 2345, 'D', 1000002, 'S', 'N', 1000, 5, {"31/12/2008"}, {"OWN"}, 'N', 20002, {"M/2"}, {"STORED AS S"}, 0},
    {532999,
     3456,
     'N',
     1000003,
     'L',
     'C',
     250,
     100,
     {"01/01/2009"},
     {"CLIENT000003"},
     'R',
     30003,
     {"MEMO/3"},
     {"ANOTHER LETTER"},
     0},
};

const std::vector<Record6A7A> wideEntries = {
    {12345678,
     12345,
     'N',
     12345678,
     'B',
     'C',
     1234567890,
     9223372036854775807,
     {"01/01/2009"},
     {"CLIENT000001"},
     'Y',
     123456,
     {"CONTRACT/2009/0000000001X"},
     {"COMMENTS OF 21 LETTER"},
     1},
    {-2147483647 - 1,
     -99999,
     'D',
     -2147483647 - 1,
     'S',
     'N',
     -2147483647 - 1,
     -9223372036854775807 - 1,
     {"31/12/2008"},
     {"CLIENT000002"},
     'N',
     -2147483647 - 1,
     {"CONTRACT/2009/0000000002X"},
     {"COMMENTS OF 21 LETTER"},
     0},
};

const std::vector<Record6A7A> narrowEntries = {
    {7, 1, 'N', 2, 'B', '1', 3, 0, {"1/2/9"}, {"A"}, 'Y', 4, {"C"}, {"D"}, 1},
    {-42, -12, 'D', -34, 'S', '9', -56, 7, {"9/12/2009"}, {"BC"}, 'N', -78, {"EF"}, {"GH"}, 0},
    {123, 321, ' ', 213, 'B', 'C', 99, 99, {""}, {""}, 'Y', 456, {""}, {""}, 1},
    {5, 0, 'N', 0, 'S', 'C', 0, -1234, {"1/1/9"}, {"X"}, 'N', 0, {"Y"}, {"Z"}, 0},
    {0, 0, 'N', 0, 'S', 'C', 1, 123456, {"1/1/9"}, {"X"}, 'N', 0, {"Y"}, {"Z"}, 0},
};

Header6A7A header(const char* date, const char* time) {
  Header6A7A made = {};
  fieldSet(made.date, date);
  fieldSet(made.time, time);
  return made;
}

const Header6A7A ordinaryHeader = header("25/05/2009", "10:30:00");
const Header6A7A wideHeader = header("25/05/2009 MONDAY", "10:30:00 IN THE MORNING");
const Header6A7A narrowHeader = header("1/1/2009", "9:05");

std::string report(const std::vector<Record6A7A>& records, const Options6A7A& options,
                   const Header6A7A& head = ordinaryHeader) {
  std::string text;
  Output* out = outputToMemory(&text);
  write6A7A(*out, head, records, options);
  EXPECT_TRUE(outputClose(out));
  return text;
}

// The one row of a report of one record.
std::string rowOf(const Record6A7A& record, bool lending) {
  const std::string text = test::withoutCarriageReturns(report({record}, {40, true, lending, "123"}));
  const std::size_t rule = text.find("|------");
  const std::size_t begin = text.find('\n', rule) + 1;
  return text.substr(begin, text.find('\n', begin) - begin);
}

std::string valueCell(std::int64_t paise) {
  Record6A7A record = ordinaryEntries[0];
  record.value = paise;
  const std::string row = rowOf(record, false);
  return row.substr(41, row.find('|', 41) - 41);
}

TEST(Report6A7A, updatablePages) {
  test::expectApproved("market/sixa_sevena_updatable.txt", report(ordinaryEntries, {2, true, false, "123"}));
}

TEST(Report6A7A, nonUpdatablePages) {
  test::expectApproved("market/sixa_sevena_non_updatable.txt", report(ordinaryEntries, {2, false, false, "123"}));
}

TEST(Report6A7A, lendingUpdatablePages) {
  test::expectApproved("market/sixa_sevena_lending_updatable.txt", report(lendingEntries, {2, true, true, "123"}));
}

TEST(Report6A7A, lendingNonUpdatablePagesWithoutABrokerId) {
  test::expectApproved("market/sixa_sevena_lending_non_updatable.txt", report(lendingEntries, {2, false, true, ""}));
}

TEST(Report6A7A, valuesWiderThanTheirCellsPushTheRestToTheRight) {
  test::expectApproved("market/sixa_sevena_wide_values.txt", report(wideEntries, {1, true, false, "123456789"}, wideHeader));
  test::expectApproved("market/sixa_sevena_lending_wide_values.txt",
                       report(wideEntries, {1, false, true, "123456789"}, wideHeader));
}

TEST(Report6A7A, narrowValues) {
  test::expectApproved("market/sixa_sevena_narrow_values.txt", report(narrowEntries, {3, false, false, "7"}, narrowHeader));
  test::expectApproved("market/sixa_sevena_lending_narrow_values.txt",
                       report(narrowEntries, {3, true, true, "7"}, narrowHeader));
}

TEST(Report6A7A, aHeaderAloneIsAHeadingAndItsClosingRule) {
  test::expectApproved("market/sixa_sevena_heading_alone.txt", report({}, {40, true, false, "123"}));
  test::expectApproved("market/sixa_sevena_lending_heading_alone.txt", report({}, {40, false, true, "123"}));
}

TEST(Report6A7A, barsStandUnderBars) {
  for (const bool lend : {false, true}) {
    const std::vector<std::string> lines =
        test::linesOf(test::withoutCarriageReturns(report({ordinaryEntries[0]}, {40, true, lend, "1"})));
    ASSERT_EQ(lines.size(), 12u);
    const auto bars = [](const std::string& line) {
      std::vector<std::size_t> at;
      for (std::size_t i = 0; i < line.size(); ++i) {
        if (line[i] == '|') at.push_back(i);
      }
      return at;
    };
    // The two heading lines, their rule, the row and the closing rule; the line of underscores ends left of the last bar.
    EXPECT_EQ(bars(lines[6]).size(), lend ? 14u : 16u);
    for (const std::size_t line : {7u, 8u, 9u, 10u}) EXPECT_EQ(bars(lines[line]), bars(lines[6])) << line;
    EXPECT_EQ(lines[5].size(), lines[6].size() - 1);
  }
}

TEST(Report6A7A, fortyRecordsAreOnePageAndFortyOneAreTwo) {
  const auto pages = [](std::size_t count) {
    const std::string text = report(std::vector<Record6A7A>(count, ordinaryEntries[0]), {40, true, false, "123"});
    return std::count(text.begin(), text.end(), '\f');
  };
  EXPECT_EQ(pages(40), 1);
  EXPECT_EQ(pages(41), 2);
}

TEST(Report6A7A, aValueIsItsRupeesAndTwoDigitsOfPaise) {
  EXPECT_EQ(valueCell(1234567), "           12345.67");
  EXPECT_EQ(valueCell(5), "               0.05");
  EXPECT_EQ(valueCell(0), "               0.00");
  EXPECT_EQ(valueCell(100), "               1.00");
  EXPECT_EQ(valueCell(-1234), "             -12.-34");
  EXPECT_EQ(valueCell(-5), "               0.-05");
  EXPECT_EQ(valueCell(999999999999999999), "9999999999999999.99");
}

TEST(Report6A7A, bothLettersOfTheOtherSideAreLOnLendingFiles) {
  Record6A7A record = lendingEntries[0];
  const auto letterOf = [&record](char letter, bool lend) {
    record.buySell = letter;
    return rowOf(record, lend).substr(24, 2);
  };
  EXPECT_EQ(letterOf('S', true), "L ");
  EXPECT_EQ(letterOf('L', true), "L ");
  EXPECT_EQ(letterOf('B', true), "B ");
  EXPECT_EQ(letterOf('S', false), "S ");
  EXPECT_EQ(letterOf('L', false), "L ");
  EXPECT_EQ(letterOf('B', false), "B ");
  EXPECT_EQ(letterOf('x', false), "x ");
}

TEST(Report6A7A, onlyABlockDealOf1IsMarked) {
  Record6A7A record = ordinaryEntries[0];
  const auto cellOf = [&record](std::int16_t blockDeal) {
    record.blockDeal = blockDeal;
    const std::string row = rowOf(record, false);
    return row.substr(row.size() - 6);
  };
  EXPECT_EQ(cellOf(1), "  Y  |");
  EXPECT_EQ(cellOf(0), "  N  |");
  EXPECT_EQ(cellOf(2), "  N  |");
  EXPECT_EQ(cellOf(-1), "  N  |");
}

}  // namespace
}  // namespace quillon
