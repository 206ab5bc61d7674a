// The pages of the four layouts of the Trader Limits report.
#include "market/trader_limits_report.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/approved.h"

namespace quillon {
namespace {

using Tokens = std::vector<std::string_view>;

TraderLimitsHeader header() {
  TraderLimitsHeader made = {};
  made.brokerId = 123;
  made.traderId = 7;
  fieldSet(made.date, "01/01/2009");
  return made;
}

TraderLimitsHeader narrowHeader() {
  TraderLimitsHeader made = {};
  made.brokerId = 5;
  made.traderId = 7;
  fieldSet(made.date, "3/4/09");
  return made;
}

struct Layout {
  void (*begin)(LimitsReport&);
  void (*row)(LimitsReport&, std::span<const std::string_view>);
  void (*end)(LimitsReport&);
};
constexpr Layout traderwise = {traderwiseBegin, traderwiseRow, traderwiseEnd};
constexpr Layout scripwise = {scripwiseBegin, scripwiseRow, scripwiseEnd};

std::string normalReport(const Layout& layout, const std::vector<Tokens>& rows, const LimitsOptions& options,
                         const TraderLimitsHeader& line1 = header()) {
  std::string text;
  Output* out = outputToMemory(&text);
  LimitsReport report = {*out, line1, options, 0, 0};
  layout.begin(report);
  for (const Tokens& row : rows) layout.row(report, row);
  layout.end(report);
  EXPECT_TRUE(outputClose(out));
  return text;
}

// clang-format off

// Every cell, values wider than their columns with a token too many, short lines, and a line of nothing but delimiters.
const std::vector<Tokens> ordinaryRows = {
    {"1", "RAMESH", "y", "n", "Y", "N", "yes", "no", "a", "b", "c", "d", "e", "f", "g", "h", "i", "j", "k",
     "100", "200", "3000", "400", "500", "60", "70"},
    {"12", "A LONG ALIAS", "N", "N", "N", "N", "N", "N", "N", "N", "N", "N", "N", "N", "N", "N", "N", "N", "N",
     "1234567", "-1", "1234567890", "1234567890", "0", "-5", "999999999", "beyond"},
    {"123"},
    {},
    {"1234", "S", "1", "2"},
};
const std::vector<Tokens> lendingRows = {
    {"1", "RAMESH", "y", "n", "Y", "N", "yes", "q", "a", "b", "c", "d", "e",
     "100", "200", "3000", "400", "500", "60", "70"},
    {"12", "A LONG ALIAS", "N", "N", "N", "N", "N", "N", "N", "N", "N", "N", "N",
     "1234567890", "1234567", "-1", "1234567890", "0", "-5", "999999999", "beyond"},
    {"123"},
};
const std::vector<Tokens> scripRows = {
    {"1", "7", "500101", "1000", "2000"},
    {"1", "7", "500102", "-1", "2147483647", "9"},
    {"1", "7", "500103"},
    {"1"},
    {},
};

// Every value narrower than its cell.
const std::vector<Tokens> narrowOrdinaryRows = {
    {"1", "AB", "y", "n", "o", "a", "b", "c", "d", "e", "f", "g", "h", "i", "j", "k", "l", "m", "p",
     "21", "32", "43", "54", "65", "76", "87"},
    {"22", "Q", "N", "Y", "N", "Y", "N", "Y", "N", "Y", "N", "Y", "N", "Y", "N", "Y", "N", "Y", "N",
     "1", "2", "3", "4", "5", "6", "7"},
    {"3", "XYZ", "q", "r", "s", "t", "u", "v", "w", "x", "y", "z", "a", "b", "c", "d", "e", "f", "g",
     "9", "8", "7", "6", "5", "4", "3"},
};
const std::vector<Tokens> narrowLendingRows = {
    {"1", "AB", "y", "n", "o", "a", "b", "c", "d", "e", "f", "g", "h",
     "21", "32", "43", "54", "65", "76", "87"},
    {"22", "Q", "N", "Y", "N", "Y", "N", "Y", "N", "Y", "N", "Y", "N",
     "1", "2", "3", "4", "5", "6", "7"},
    {"3", "XYZ", "q", "r", "s", "t", "u", "v", "w", "x", "y", "z", "a",
     "9", "8", "7", "6", "5", "4", "3"},
};
const std::vector<Tokens> narrowScripRows = {
    {"1", "7", "21", "32", "43"},
    {"1", "8", "345", "5", "6"},
    {"1", "9", "12", "3", "123"},
};

// clang-format on

KestoTraderLimit trader(std::int32_t number, const char* name, std::uint32_t flags, std::int32_t lend, std::int32_t borrow) {
  KestoTraderLimit made = {number, {}, flags, lend, borrow};
  fieldSet(made.traderName, name);
  return made;
}

KestoScripLimit scrip(const char* id, std::int32_t code, std::int32_t lend, std::int32_t borrow) {
  KestoScripLimit made = {{}, code, lend, borrow};
  fieldSet(made.scripId, id);
  return made;
}

const std::vector<KestoTraderLimit> kestoTraders = {
    trader(1, "RAMESH", 0, 100, 200),     trader(22, "A LONGER NAME", 0x1FFFFFFF, 2147483647, -1),
    trader(3, "SUDHA", 0x1FFF7FFF, 5, 6), trader(4, "OMAR", 0x600080C0, 7, 8),
    trader(5, "IRIS", 0x40, 0, 0),
};
const std::vector<KestoScripLimit> kestoScrips = {
    scrip("AXLEIND", 500101, 1000, 2000),
    scrip("CORALTEXTIL", 532999, -1, 2147483647),
    scrip("DELTAFAB", 2147483647, 0, 0),
};

std::string kestoTraderReport(const std::vector<KestoTraderLimit>& records, const LimitsOptions& options,
                              const TraderLimitsHeader& line1 = header()) {
  std::string text;
  Output* out = outputToMemory(&text);
  writeKestoTraderLimits(*out, line1, records, options);
  EXPECT_TRUE(outputClose(out));
  return text;
}

std::string kestoScripReport(const std::vector<KestoScripLimit>& records, const LimitsOptions& options,
                             const TraderLimitsHeader& line1 = header()) {
  std::string text;
  Output* out = outputToMemory(&text);
  writeKestoScripLimits(*out, line1, records, options);
  EXPECT_TRUE(outputClose(out));
  return text;
}

std::size_t pagesOf(const std::string& report) {
  return static_cast<std::size_t>(std::count(report.begin(), report.end(), '\f'));
}

TEST(TraderLimitsReport, traderwisePages) {
  test::expectApproved("market/limits_traderwise.txt", normalReport(traderwise, ordinaryRows, {2, false}));
}

TEST(TraderLimitsReport, lendingTraderwisePageEndsInARuleThreeTooNarrow) {
  test::expectApproved("market/limits_traderwise_lending.txt", normalReport(traderwise, lendingRows, {2, true}));
}

TEST(TraderLimitsReport, noDetailLineYieldsAHeadAndARule) {
  test::expectApproved("market/limits_traderwise_empty.txt", normalReport(traderwise, {}, {2, false}));
}

TEST(TraderLimitsReport, scripwisePages) {
  test::expectApproved("market/limits_scripwise.txt", normalReport(scripwise, scripRows, {2, false}));
}

TEST(TraderLimitsReport, lendingScripwisePagesNameBorrowAndLend) {
  test::expectApproved("market/limits_scripwise_lending.txt", normalReport(scripwise, scripRows, {2, true}));
}

TEST(TraderLimitsReport, kestoTraderwisePages) {
  test::expectApproved("market/limits_kesto_traderwise.txt", kestoTraderReport(kestoTraders, {2, false}));
  test::expectApproved("market/limits_kesto_traderwise_lending.txt", kestoTraderReport(kestoTraders, {2, true}));
}

TEST(TraderLimitsReport, kestoScripwisePages) {
  test::expectApproved("market/limits_kesto_scripwise.txt", kestoScripReport(kestoScrips, {2, false}));
  test::expectApproved("market/limits_kesto_scripwise_lending.txt", kestoScripReport(kestoScrips, {2, true}));
}

TEST(TraderLimitsReport, valuesNarrowerThanTheirCellsAreAligned) {
  const TraderLimitsHeader line1 = narrowHeader();
  const std::vector<KestoTraderLimit> traders = {trader(1, "AB", 0x600080C0, 21, 32), trader(2, "Q", 0, 3, 4),
                                                 trader(3, "XYZ", 0x1FFFFFFF, 123, 45)};
  const std::vector<KestoScripLimit> scrips = {scrip("AB", 7, 21, 32), scrip("Q", 21, 3, 4), scrip("XYZ", 345, 123, 45)};
  for (const bool lending : {false, true}) {
    const std::string ending = lending ? "_lending_narrow_values.txt" : "_narrow_values.txt";
    const LimitsOptions options = {2, lending};
    test::expectApproved("market/limits_traderwise" + ending,
                         normalReport(traderwise, lending ? narrowLendingRows : narrowOrdinaryRows, options, line1));
    test::expectApproved("market/limits_scripwise" + ending, normalReport(scripwise, narrowScripRows, options, line1));
    test::expectApproved("market/limits_kesto_traderwise" + ending, kestoTraderReport(traders, options, line1));
    test::expectApproved("market/limits_kesto_scripwise" + ending, kestoScripReport(scrips, options, line1));
  }
}

TEST(TraderLimitsReport, aLineOfDelimitersIsARowWithNoCells) {
  const std::string text = normalReport(traderwise, {{}}, {50, false});
  EXPECT_NE(text.find("_________|\r\n\r\n|___|"), std::string::npos);
}

TEST(TraderLimitsReport, traderwisePagesTakeTheFormsLinesPerPageUpToFifty) {
  const std::vector<Tokens> rows(51, Tokens{"1", "RAMESH"});
  EXPECT_EQ(pagesOf(normalReport(traderwise, std::vector<Tokens>(rows.begin(), rows.begin() + 50), {50, false})), 0u);
  EXPECT_EQ(pagesOf(normalReport(traderwise, rows, {50, false})), 1u);
  // The Kesto report ends in a form feed of its own.
  EXPECT_EQ(pagesOf(kestoTraderReport(std::vector<KestoTraderLimit>(50, kestoTraders[0]), {50, false})), 1u);
  EXPECT_EQ(pagesOf(kestoTraderReport(std::vector<KestoTraderLimit>(51, kestoTraders[0]), {50, false})), 2u);
}

TEST(TraderLimitsReport, rightsComeFromTheControlFlags) {
  struct Case {
    std::uint32_t flags;
    const char* letters;  // No Rgts, UTrd, Trd Sec, N Deal, X Deal, Llim, BLim
  };
  const Case cases[] = {
      {0x00000000, "YNNNNNN"}, {0x1FFFFFFF, "NYYYYNN"},  // unrestricted
      {0x1FFF7FFF, "NYNYYNN"},                           // likewise, but no trading of securities
      {0x00008000, "NNYNNNN"}, {0x00000040, "NNNYNNN"}, {0x00000080, "NNNNYNN"}, {0x20000000, "NNNNNYN"},
      {0x40000000, "NNNNNNY"}, {0x7FFFFFFF, "NNYYYYY"},  // bits 29 and 30 beside all the others: restricted
      {0xFFFFFFFF, "NNYYYYY"}, {0x00000001, "NNNNNNN"},
  };
  for (const Case& c : cases) {
    const TraderRights rights = traderRights(c.flags);
    const std::string letters = {rights.noRights,  rights.unrestricted, rights.tradeSecurities, rights.normalDeal,
                                 rights.crossDeal, rights.lendLimit,    rights.borrowLimit};
    EXPECT_EQ(letters, c.letters) << std::hex << c.flags;
  }
}

}  // namespace
}  // namespace quillon
