// The list of trades, page by page, in its six arrangements.
#include "brokerquery/broker_report.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "brokerquery/broker_report_blocks.h"
#include "brokerquery/records.h"
#include "support/approved.h"

namespace quillon::test {
namespace {

// A buy and a sell of listed types, a record of no side, a sell and a buy of another type.
const std::vector<Trade> fiveTrades = {
    {3, 500010, "AXLE", 12345, 100, "10:15:30", "C0001", 90525000001, 'L', 'B', 1001, "CLIENT", "25/05/2009 10:15:01", "A",
     2009, 37},
    {12, 532540, "BOLTSTEEL", 250075, 25, "11:02:09", "HOUSE-77", 90525000002, 'T', 'S', 1002, "FII", "25/05/2009 11:01:58",
     "B1", 2009, 38},
    {7, 500011, "CRANK", 99, 1, "11:30:00", "C0002", 90525000003, 'L', 'X', 1003, "OWN", "25/05/2009 11:29:00", "A", 2009, 37},
    {12, 500010, "AXLE", 12400, 40, "12:45:17", "C0001", 90525000004, 'O', 'S', 1004, "CLIENT", "25/05/2009 12:45:16", "A",
     2009, 37},
    {3, 500012, "DERRICK", 5, 700000, "15:29:59", "C0003", 90525000005, 'O', 'B', 1005, "MF", "25/05/2009 15:00:00", "T", 2009,
     39},
};

const std::vector<Trade> wideTrades = {
    {123456, 1234567890, "ELEVENCHARS", 2147483647, 1234567890, "10:15:30", "CLIENT-ELEV", 9223372036854775807, 'L', 'B',
     1234567890, "INST-TEN10", "25/05/2009 10:15:01", "NINETEEN-CHARACTERS", -32768, -2147483647 - 1},
    {-99999, -2147483647 - 1, "ELEVENCHARS", -2147483647 - 1, -2147483647 - 1, "10:15:30", "CLIENT-ELEV",
     -9223372036854775807 - 1, 'K', 'S', -2147483647 - 1, "INST-TEN10", "25/05/2009 10:15:01", "NINETEEN-CHARACTERS", 32767,
     2147483647},
};

const std::vector<KestoTrade> fiveKestoTrades = {
    {3, 500010, "AXLE", 1234567, 100, 12, 3, "10:15:30", "C0001", 'S', 1001},
    {12, 532540, "BOLTSTEEL", 2500, 25, 88, 1, "11:02:09", "HOUSE-77", 'M', 1002},
    {7, 500011, "CRANK", 9999, 1, 5, 5, "11:30:00", "C0002", 'B', 1003},
    {4, 500010, "AXLE", 1000000, 40, 345, 21, "12:45:17", "C0003", 'T', 1004},
    {5, 500012, "DERRICK", 50000, 700, 7, 12, "15:29:59", "C0004", 'V', 1005},
};

const std::vector<KestoTrade> wideKestoTrades = {
    {123456, 1234567890, "ELEVENCHARS", 2147483647, 1234567890, 123456, 2147483647, "10:15:30", "CLIENT-ELEV", 'S', 1234567890},
    {-99999, -2147483647 - 1, "ELEVENCHARS", -2147483647 - 1, -2147483647 - 1, -99999, -2147483647 - 1, "10:15:30",
     "CLIENT-ELEV", 'V', -2147483647 - 1},
};

template <typename Record>
std::string listed(const std::vector<Record>& records, BrokerArrangement arrangement, unsigned linesPerPage,
                   TradeHeader fileHeader = header(25, 5, 2009), bool isLendingFile = false) {
  return reportOf([&](Output& out) {
    BrokerPage page = {fileHeader, isLendingFile, 1};
    printBrokerReport(out, inFileOrder(records), arrangement, linesPerPage, page);
  });
}

std::string listed(const std::vector<Trade>& trades, BrokerArrangement arrangement, unsigned linesPerPage,
                   TradeHeader fileHeader = header(25, 5, 2009), bool isLendingFile = false) {
  if (arrangement == BrokerArrangement::rec132) {
    return listed(block<BrokerRec132>(trades), arrangement, linesPerPage, fileHeader, isLendingFile);
  }
  return listed(block<BrokerRec160>(trades), arrangement, linesPerPage, fileHeader, isLendingFile);
}

std::size_t pagesOf(const std::string& report) {
  return static_cast<std::size_t>(std::count(report.begin(), report.end(), '\f'));
}

TEST(BrokerArrangementChoice, followsLayoutColumnsCutoverAndMarket) {
  struct Case {
    BrokerLayout layout;
    BrokerOptions options;  // shortColumns, preCutover, isLendingFile
    BrokerArrangement arrangement;
  };
  const Case cases[] = {
      {BrokerLayout::rec132, {true, true, false}, BrokerArrangement::rec132},
      {BrokerLayout::rec132, {true, false, false}, BrokerArrangement::rec132},
      {BrokerLayout::rec160, {true, true, false}, BrokerArrangement::shortOld},
      {BrokerLayout::rec160, {true, false, true}, BrokerArrangement::shortOld},
      {BrokerLayout::rec160, {true, false, false}, BrokerArrangement::shortNew},
      {BrokerLayout::rec160, {false, true, false}, BrokerArrangement::groupOld},
      {BrokerLayout::rec160, {false, false, true}, BrokerArrangement::groupOld},
      {BrokerLayout::rec160, {false, true, true}, BrokerArrangement::groupOld},
      {BrokerLayout::rec160, {false, false, false}, BrokerArrangement::groupNew},
      {BrokerLayout::kesto, {true, false, false}, BrokerArrangement::kesto},
      {BrokerLayout::kesto, {false, true, true}, BrokerArrangement::kesto},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(chooseBrokerArrangement(c.layout, c.options), c.arrangement)
        << "layout " << static_cast<int>(c.layout) << " short " << c.options.shortColumns << " old " << c.options.preCutover
        << " lending " << c.options.isLendingFile;
  }
}

TEST(BrokerReport, rec132BreaksItsPageAfterThreeRecordsOneOfThemWithoutALine) {
  expectApproved("brokerquery/rec132.txt", listed(fiveTrades, BrokerArrangement::rec132, 3, header(21, 5, 2009)));
}
TEST(BrokerReport, shortOldHasAShortTraderRuleUnderASellOfAListedType) {
  expectApproved("brokerquery/short_old.txt", listed(fiveTrades, BrokerArrangement::shortOld, 3, header(21, 5, 2009)));
}
TEST(BrokerReport, shortNewPutsTheInstitutionIntoTheThirdLine) {
  expectApproved("brokerquery/short_new.txt", listed(fiveTrades, BrokerArrangement::shortNew, 3));
}
TEST(BrokerReport, groupOldShowsScripGroupAndSettlementNumber) {
  expectApproved("brokerquery/group_old.txt", listed(fiveTrades, BrokerArrangement::groupOld, 3, header(21, 5, 2009)));
}
TEST(BrokerReport, groupOldOfALendingFileNamesTheClearingHouseBorrowAndLend) {
  expectApproved("brokerquery/group_old_lending.txt",
                 listed(fiveTrades, BrokerArrangement::groupOld, 3, header(25, 5, 2009), true));
}
TEST(BrokerReport, groupNewEndsASellOfAListedTypeSixColumnsShort) {
  expectApproved("brokerquery/group_new.txt", listed(fiveTrades, BrokerArrangement::groupNew, 3));
}
TEST(BrokerReport, kestoHasLendersLeftAndBorrowersRight) {
  expectApproved("brokerquery/kesto.txt", listed(block<KestoBrokerRec>(fiveKestoTrades), BrokerArrangement::kesto, 3));
}

struct Named {
  BrokerArrangement arrangement;
  const char* name;
};
constexpr Named normalArrangements[] = {
    {BrokerArrangement::rec132, "rec132"},      {BrokerArrangement::shortOld, "short_old"},
    {BrokerArrangement::shortNew, "short_new"}, {BrokerArrangement::groupOld, "group_old"},
    {BrokerArrangement::groupNew, "group_new"},
};

TEST(BrokerReport, valuesWiderThanTheirColumnsArePrintedWhole) {
  for (const Named& named : normalArrangements) {
    expectApproved(std::string("brokerquery/") + named.name + "_wide_values.txt", listed(wideTrades, named.arrangement, 50));
  }
  expectApproved("brokerquery/kesto_wide_values.txt",
                 listed(block<KestoBrokerRec>(wideKestoTrades), BrokerArrangement::kesto, 50));
}

TEST(BrokerReport, valuesNarrowerThanTheirCellsAreAligned) {
  // A sell of a listed type, and one of another type on the second page.
  Trade other = ofScrip(narrowSell, "XY");
  other.tradeType = 'O';
  other.trnId = 45;
  other.trdId = 9;
  const std::vector<Trade> trades = {narrowBuy, narrowSell, other};
  for (const Named& named : normalArrangements) {
    expectApproved(std::string("brokerquery/") + named.name + "_narrow_values.txt",
                   listed(trades, named.arrangement, 2, narrowHeader()));
  }
  expectApproved("brokerquery/group_old_lending_narrow_values.txt",
                 listed(trades, BrokerArrangement::groupOld, 2, narrowHeader(), true));
  const std::vector<KestoBrokerRec> kesto = block<KestoBrokerRec>(narrowKestoTrades);
  expectApproved("brokerquery/kesto_narrow_values.txt", listed(kesto, BrokerArrangement::kesto, 2, narrowHeader()));
  expectApproved("brokerquery/kesto_lending_narrow_values.txt",
                 listed(kesto, BrokerArrangement::kesto, 2, narrowHeader(), true));
}

TEST(BrokerReport, noRecordsGiveHeaderClosingRuleAndFormFeed) {
  for (const Named& named : normalArrangements) {
    expectApproved(std::string("brokerquery/") + named.name + "_empty.txt",
                   listed(std::vector<Trade>(), named.arrangement, 50));
  }
  expectApproved("brokerquery/kesto_empty.txt",
                 listed(block<KestoBrokerRec>(std::vector<KestoTrade>()), BrokerArrangement::kesto, 50));
}

TEST(BrokerReport, fullPageIsNotFollowedByAnother) {
  expectApproved("brokerquery/rec132_full_page.txt",
                 listed(std::vector<Trade>(fiveTrades.begin(), fiveTrades.begin() + 2), BrokerArrangement::rec132, 2));
}

TEST(BrokerReport, fiftyOneRecordsPutTheLastAloneOnASecondPage) {
  const std::vector<Trade> fifty(50, fiveTrades[0]), fiftyOne(51, fiveTrades[0]);
  EXPECT_EQ(pagesOf(listed(fifty, BrokerArrangement::rec132, 50)), 1u);
  const std::string report = listed(fiftyOne, BrokerArrangement::rec132, 50);
  EXPECT_EQ(pagesOf(report), 2u);
  const std::string secondPage = report.substr(report.find('\f') + 1);
  EXPECT_NE(secondPage.find("Page: 2"), std::string::npos);
  const std::size_t row = secondPage.find("AXLE");
  ASSERT_NE(row, std::string::npos);
  EXPECT_EQ(secondPage.find("AXLE", row + 1), std::string::npos);
}

TEST(BrokerReport, oneRecordAPageNumbersEachPage) {
  const std::string report = listed(fiveTrades, BrokerArrangement::groupNew, 1);
  EXPECT_EQ(pagesOf(report), 5u);
  for (int page = 1; page <= 5; ++page)
    EXPECT_NE(report.find("Page: " + std::to_string(page) + "\r\n"), std::string::npos) << page;
}

TEST(BrokerReport, recordsOfNoSideBringThePageBreakNearerWithoutALine) {
  std::vector<Trade> trades(3, fiveTrades[0]);
  trades[0].side = 'X';
  trades[1].side = 'b';
  const std::string report = listed(trades, BrokerArrangement::shortNew, 2);
  EXPECT_EQ(pagesOf(report), 2u);
  EXPECT_EQ(report.find("AXLE"), report.rfind("AXLE"));
  EXPECT_GT(report.find("AXLE"), report.find('\f'));
}

TEST(BrokerReport, pageNumberGoesOnCountingForTheCaller) {
  const std::vector<BrokerRec132> records = block<BrokerRec132>(fiveTrades);
  BrokerPage page = {header(25, 5, 2009), false, 1};
  reportOf([&](Output& out) { printBrokerReport(out, inFileOrder(records), BrokerArrangement::rec132, 3, page); });
  EXPECT_EQ(page.number, 3);
}

TEST(BrokerReport, recordsComeInTheGivenOrder) {
  const std::vector<BrokerRec132> records = block<BrokerRec132>(fiveTrades);
  const std::uint32_t order[] = {4, 3, 2, 1, 0};
  BrokerRecords backwards = inFileOrder(records);
  backwards.order = order;
  const std::string report = reportOf([&](Output& out) {
    BrokerPage page = {header(25, 5, 2009), false, 1};
    printBrokerReport(out, backwards, BrokerArrangement::rec132, 50, page);
  });
  EXPECT_LT(report.find("DERRICK"), report.find("12:45:17"));
  EXPECT_LT(report.find("12:45:17"), report.find("BOLTSTEEL"));
  EXPECT_LT(report.find("BOLTSTEEL"), report.find("10:15:30"));
}

// Every bar of the heading rows above the second-line heading stands under a bar of the row above it. In the 132-byte
// arrangement the cell rule is left out: it follows the records, whose first rate is two columns narrower.
TEST(BrokerReport, barsOfTheHeadingStandUnderBars) {
  for (const Named& named : normalArrangements) {
    const std::vector<std::string> lines = linesOf(withoutCarriageReturns(listed(std::vector<Trade>(), named.arrangement, 50)));
    const std::string& titles = lines[4];
    const std::size_t last = named.arrangement == BrokerArrangement::rec132 ? 6 : 7;
    for (std::size_t i = 5; i <= last; ++i) {
      ASSERT_EQ(lines[i].size(), titles.size()) << named.name << " line " << i + 1;
      for (std::size_t column = 0; column < titles.size(); ++column) {
        if (titles[column] != '|') continue;
        EXPECT_EQ(lines[i][column], '|') << named.name << " line " << i + 1 << " column " << column + 1;
      }
    }
  }
}

TEST(BrokerReport, barsOfARecordStandUnderTheCellRuleOfTheHeading) {
  for (const Named& named : normalArrangements) {
    for (const char side : {'B', 'S'}) {
      std::vector<Trade> one(1, fiveTrades[3]);
      one[0].side = side;
      const std::vector<std::string> lines = linesOf(withoutCarriageReturns(listed(one, named.arrangement, 50)));
      const std::size_t row =
          named.arrangement == BrokerArrangement::groupOld || named.arrangement == BrokerArrangement::groupNew ? 11 : 10;
      const std::string cellRule = lines[7], record = lines[row];
      ASSERT_NE(record.find("AXLE"), std::string::npos) << named.name;
      ASSERT_EQ(cellRule.size(), record.size()) << named.name << side;
      for (std::size_t column = 0; column < cellRule.size(); ++column) {
        if (cellRule[column] != '|') continue;
        EXPECT_EQ(record[column], '|') << named.name << side << " column " << column + 1;
      }
    }
  }
}

TEST(ListedTradeTypes, areTheTenLetters) {
  std::string listedTypes;
  for (int letter = 0; letter < 256; ++letter) {
    if (isListedTradeType(static_cast<char>(letter))) listedTypes += static_cast<char>(letter);
  }
  EXPECT_EQ(listedTypes, "BCGHKLMPQT");
}

// Sells of listed types differ in two arrangements and nowhere else; buys differ nowhere.
TEST(ListedTradeTypes, changeNothingButTwoCellsOfASell) {
  const auto reportOfType = [](BrokerArrangement arrangement, char side, char type) {
    std::vector<Trade> one(1, fiveTrades[0]);
    one[0].side = side;
    one[0].tradeType = type;
    std::string report = listed(one, arrangement, 50);
    // The letter itself stands behind the transaction number.
    const std::size_t letter = report.find("90525000001") + 11;
    EXPECT_EQ(report[letter], type);
    report[letter] = '?';
    return report;
  };
  for (const Named& named : normalArrangements) {
    const bool differs = named.arrangement == BrokerArrangement::shortOld || named.arrangement == BrokerArrangement::groupNew;
    for (const char type : std::string("LHMTQPBKGC")) {
      EXPECT_EQ(reportOfType(named.arrangement, 'B', type), reportOfType(named.arrangement, 'B', 'O')) << named.name << type;
      EXPECT_EQ(reportOfType(named.arrangement, 'S', type) != reportOfType(named.arrangement, 'S', 'O'), differs)
          << named.name << type;
    }
    EXPECT_EQ(reportOfType(named.arrangement, 'S', 'D'), reportOfType(named.arrangement, 'S', 'O')) << named.name;
  }
}

}  // namespace
}  // namespace quillon::test
