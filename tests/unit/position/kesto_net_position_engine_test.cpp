// Totals of the Kesto net position: which records count, into which row, in which precision, and what a row says.
#include "position/kesto_net_position_engine.h"

#include <gtest/gtest.h>

#include <cstdio>

#include "desktop/scripted/faults.h"
#include "kesto_deals.h"

namespace quillon::test {
namespace {

using Names = std::vector<std::string>;

std::string rowText(const KestoNetPosRow& row) {
  char text[200];
  std::snprintf(text, sizeof text, "%s %d lent %d %.4f borrowed %d %.4f", std::string(row.name.view()).c_str(), row.day,
                row.lendQty, row.lendValue, row.borrowQty, row.borrowValue);
  return text;
}

Names rowTexts(const std::string& lines, PositionReport report, std::string_view client = {}, std::string_view scrip = {}) {
  const LoadedKesto loaded(lines);
  EXPECT_TRUE(loaded.whole);
  const KestoTotalled result(loaded.file, report, client, scrip);
  EXPECT_EQ(result.failed, PositionBlock::none);
  Names texts;
  for (std::size_t i = 0; i < result.totals.rowCount; ++i) texts.push_back(rowText(result.totals.rows[i]));
  return texts;
}

// ---- The file ---------------------------------------------------------------------------------------------------------

TEST(KestoPositionFile, bothKestoLettersAreTakenWhateverTheSecondSays) {
  for (const char letter : {'B', 'C'}) EXPECT_TRUE(isKestoPositionFile(dealHeader(letter)));
  for (const char letter : {'N', 'V', 'A', 'D', 'b', 'c', '\0'}) EXPECT_FALSE(isKestoPositionFile(dealHeader(letter)));
  TradeHeader brokerQuery = dealHeader('C');
  brokerQuery.kind = 'B';
  EXPECT_TRUE(isKestoPositionFile(brokerQuery));
}

TEST(KestoPositionFile, pairsOfScripCodeAndDaysCountOnceAndExcludedRecordsWithTheOthers) {
  EXPECT_EQ(LoadedKesto("C1 A 1 7 S 1 1 L\n").file.scripDayCount, 1u);
  EXPECT_EQ(LoadedKesto("C1 A 1 7 S 1 1 L\nC2 B 1 7 S 1 1 L\n").file.scripDayCount, 1u);  // the code counts, not the id
  EXPECT_EQ(LoadedKesto("C1 A 1 7 S 1 1 L\nC1 A 1 8 S 1 1 L\nC1 A 2 7 S 1 1 O\nC1 A 1 7 S 1 1 X\n").file.scripDayCount, 3u);
  EXPECT_EQ(LoadedKesto("C1 - 0 0 S 1 1 L\nC1 A -1 -1 S 1 1 L\nC1 A -1 0 S 1 1 L\n").file.scripDayCount, 3u);
}

TEST(KestoPositionFile, manyPairsAreCountedAsTheyAre) {
  std::string lines;
  for (int i = 0; i < 3000; ++i) {
    lines += "C1 A " + std::to_string(500000 + i / 3) + " " + std::to_string(i % 3) + " S 1 1 L\n";
    lines += "C1 A " + std::to_string(500000 + i / 6) + " " + std::to_string(i % 3) + " S 1 1 L\n";
  }
  EXPECT_EQ(LoadedKesto(lines).file.scripDayCount, 3000u);
}

TEST(KestoPositionFile, aHeaderOrRecordThatComesBackShortEndsTheRead) {
  for (const int nth : {1, 2, 3}) {
    faultsArm(Fault::read, nth, false);
    EXPECT_FALSE(LoadedKesto("C1 A 1 7 S 1 1 L\nC2 B 1 7 S 1 1 L\n").whole) << nth;
  }
  faultsReset();
}

TEST(KestoPositionFile, listsHoldWhatTakesPartOnceWithoutRegardToCase) {
  const LoadedKesto loaded(
      "ZED BOLT 1 7 S 1 1 L\nODD ODD 1 7 S 1 1 O\nabc AXLE 1 7 S 1 1 L\nABC axle 1 7 M 1 1 L\nD D 1 7 S 1 1 D\n"
      "X X 1 7 S 1 1 X\n_A C 1 7 Q 1 1 N\n");
  const PositionLists lists = kestoPositionListsOf(loaded.file, {});
  EXPECT_EQ(lists.clients, (Names{"_A", "abc", "ZED"}));
  EXPECT_EQ(lists.scrips, (Names{"AXLE", "BOLT", "C"}));
}

TEST(KestoPositionFile, onlyAFirstRecordThatTakesPartEmptiesTheListsBefore) {
  const PositionLists shown = {{"b1", "C1"}, {"BOLT"}};
  const PositionLists emptied = kestoPositionListsOf(LoadedKesto("C2 AXLE 1 7 S 1 1 L\n").file, shown);
  EXPECT_EQ(emptied.clients, Names{"C2"});
  EXPECT_EQ(emptied.scrips, Names{"AXLE"});
  const PositionLists kept = kestoPositionListsOf(LoadedKesto("C9 ODD 1 7 S 1 1 O\nB1 AXLE 1 7 S 1 1 L\n").file, shown);
  EXPECT_EQ(kept.clients, (Names{"b1", "C1"}));
  EXPECT_EQ(kept.scrips, (Names{"AXLE", "BOLT"}));
}

// ---- Sides and values -------------------------------------------------------------------------------------------------

TEST(KestoPositionSides, twoLettersLendTwoBorrowAndOthersOnlyNameTheRow) {
  EXPECT_EQ(rowTexts("C1 A 1 7 S 1 10000 L\nC1 A 1 7 T 2 10000 L\nC1 A 1 7 M 10 10000 L\nC1 A 1 7 V 20 10000 L\n"
                     "C2 A 1 7 B 5 10000 L\nC3 A 1 7 L 5 10000 L\n",
                     PositionReport::clientWise),
            (Names{"C1 0 lent 3 3.0000 borrowed 30 30.0000", "C2 0 lent 0 0.0000 borrowed 0 0.0000",
                   "C3 0 lent 0 0.0000 borrowed 0 0.0000"}));
}

TEST(KestoPositionValues, theRateOfAllScripsAloneIsHeldInFull) {
  EXPECT_EQ(kestoPositionValue(1000000, 52501, KestoRate::full), 1000000 * 5.2501);
  EXPECT_EQ(kestoPositionValue(1000000, 52501, KestoRate::single), 1000000 * static_cast<double>(5.2501F));
  EXPECT_NE(kestoPositionValue(1000000, 52501, KestoRate::full), kestoPositionValue(1000000, 52501, KestoRate::single));
  // 5.2501 in single precision is 5.250100135803222..., so that the last digits differ from report to report.
  const std::string deals = "C1 AXLE 500101 7 S 1000000 52501 L\nC1 AXLE 500101 7 M 1000000 52501 L\n";
  EXPECT_EQ(rowTexts(deals, PositionReport::scripWise),
            Names{"AXLE 7 lent 1000000 5250100.0000 borrowed 1000000 5250100.0000"});
  const std::string rounded = " lent 1000000 5250100.1358 borrowed 1000000 5250100.1358";
  EXPECT_EQ(rowTexts(deals, PositionReport::clientWise), Names{"C1 0" + rounded});
  EXPECT_EQ(rowTexts(deals, PositionReport::clientScrip, "C1"), Names{"AXLE 7" + rounded});
  EXPECT_EQ(rowTexts(deals, PositionReport::scripClient, {}, "AXLE"), Names{"C1 0" + rounded});
}

TEST(KestoPositionValues, aProductIsNotRoundedToSinglePrecision) {
  // 5.25 is exact in either precision; 16777217 units of it are not a number of single precision.
  EXPECT_EQ(kestoPositionValue(16777217, 52500, KestoRate::single), 88080389.25);
}

TEST(KestoPositionValues, quantitiesWrapAt32BitsAndValuesDoNot) {
  EXPECT_EQ(rowTexts("C1 A 1 7 S 2147483647 10000 L\nC1 A 1 7 S 2 10000 L\nC1 A 1 7 M -2147483648 10000 L\n"
                     "C1 A 1 7 M -1 10000 L\n",
                     PositionReport::clientWise),
            Names{"C1 0 lent -2147483647 2147483649.0000 borrowed 2147483647 -2147483649.0000"});
}

// ---- Groups -----------------------------------------------------------------------------------------------------------

const std::string deals =
    "C1 BOLT 2 30 S 1 10000 L\nC2 AXLE 1 7 M 2 10000 L\nC1 AXLE 1 14 S 4 10000 L\nC1 AXLE 1 7 S 8 10000 L\n"
    "C1 BOLT 2 30 M 16 10000 L\nC2 AXLE 1 -1 M 32 10000 L\nC3 BOLT 2 7 S 64 10000 O\n";

TEST(KestoPositionGroups, aClientOfSeveralScripsAndDaysIsOneRowAndAsManyOfItsScripsAndDays) {
  EXPECT_EQ(rowTexts(deals, PositionReport::clientWise),
            (Names{"C1 0 lent 13 13.0000 borrowed 16 16.0000", "C2 0 lent 0 0.0000 borrowed 34 34.0000"}));
  EXPECT_EQ(rowTexts(deals, PositionReport::clientScrip, "C1"),
            (Names{"AXLE 7 lent 8 8.0000 borrowed 0 0.0000", "AXLE 14 lent 4 4.0000 borrowed 0 0.0000",
                   "BOLT 30 lent 1 1.0000 borrowed 16 16.0000"}));
}

TEST(KestoPositionGroups, scripsStandByIdThenDays) {
  EXPECT_EQ(rowTexts(deals, PositionReport::scripWise),
            (Names{"AXLE -1 lent 0 0.0000 borrowed 32 32.0000", "AXLE 7 lent 8 8.0000 borrowed 2 2.0000",
                   "AXLE 14 lent 4 4.0000 borrowed 0 0.0000", "BOLT 30 lent 1 1.0000 borrowed 16 16.0000"}));
}

TEST(KestoPositionGroups, noDayDividesTheClientsOfAScrip) {
  EXPECT_EQ(rowTexts(deals, PositionReport::scripClient, {}, "AXLE"),
            (Names{"C1 0 lent 12 12.0000 borrowed 0 0.0000", "C2 0 lent 0 0.0000 borrowed 34 34.0000"}));
}

TEST(KestoPositionGroups, aClientThatEndsInAnExcludedRecordSharesItsRowWithTheNext) {
  EXPECT_EQ(rowTexts("C1 A 1 7 S 1 10000 L\nC1 A 1 7 S 9 10000 D\nC2 A 1 7 M 2 10000 L\nC3 A 1 7 S 4 10000 X\n"
                     "C4 A 1 7 S 8 10000 L\nC4 A 1 7 S 9 10000 O\n",
                     PositionReport::clientWise),
            (Names{"C2 0 lent 1 1.0000 borrowed 2 2.0000", "C4 0 lent 8 8.0000 borrowed 0 0.0000"}));
}

TEST(KestoPositionGroups, aScripAndDayThatEndInAnExcludedRecordShareTheirRowWithTheNext) {
  EXPECT_EQ(rowTexts("C1 A 1 7 S 1 10000 L\nC1 A 1 7 S 9 10000 O\nC1 A 1 8 M 2 10000 L\nC1 B 1 8 S 4 10000 L\n",
                     PositionReport::scripWise),
            (Names{"A 8 lent 1 1.0000 borrowed 2 2.0000", "B 8 lent 4 4.0000 borrowed 0 0.0000"}));
}

TEST(KestoPositionGroups, excludedRecordsAreNotAmongThoseOfOneClientOrScrip) {
  const std::string lines =
      "C1 A 1 7 S 1 10000 L\nC1 A 1 7 S 9 10000 O\nC1 B 1 7 S 2 10000 L\nC1 B 1 7 S 9 10000 D\n"
      "C2 A 1 7 S 4 10000 X\n";
  EXPECT_EQ(rowTexts(lines, PositionReport::clientScrip, "C1"),
            (Names{"A 7 lent 1 1.0000 borrowed 0 0.0000", "B 7 lent 2 2.0000 borrowed 0 0.0000"}));
  EXPECT_EQ(rowTexts(lines, PositionReport::scripClient, {}, "A"), Names{"C1 0 lent 1 1.0000 borrowed 0 0.0000"});
}

TEST(KestoPositionGroups, clientsSortWithoutRegardToCaseAndGroupWithIt) {
  const std::string lines = "b A 1 7 S 1 10000 L\nB A 1 7 S 2 10000 L\na A 1 7 S 4 10000 L\nB A 1 7 S 8 10000 L\n";
  const Names rows = {"a 0 lent 4 4.0000 borrowed 0 0.0000", "b 0 lent 1 1.0000 borrowed 0 0.0000",
                      "B 0 lent 10 10.0000 borrowed 0 0.0000"};
  EXPECT_EQ(rowTexts(lines, PositionReport::clientWise), rows);
  EXPECT_EQ(rowTexts(lines, PositionReport::scripClient, {}, "A"), rows);
}

TEST(KestoPositionGroups, scripsSortWithRegardToCase) {
  const std::string lines = "C1 b 1 7 S 1 10000 L\nC1 B 1 7 S 2 10000 L\nC1 a 1 7 S 4 10000 L\n";
  const Names rows = {"B 7 lent 2 2.0000 borrowed 0 0.0000", "a 7 lent 4 4.0000 borrowed 0 0.0000",
                      "b 7 lent 1 1.0000 borrowed 0 0.0000"};
  EXPECT_EQ(rowTexts(lines, PositionReport::scripWise), rows);
  EXPECT_EQ(rowTexts(lines, PositionReport::clientScrip, "C1"), rows);
}

TEST(KestoPositionGroups, aChosenNameMatchesWithRegardToCase) {
  const std::string lines = "C1 A 1 7 S 1 10000 L\n";
  EXPECT_TRUE(rowTexts(lines, PositionReport::clientScrip, "c1").empty());
  EXPECT_TRUE(rowTexts(lines, PositionReport::clientScrip, "C").empty());
  EXPECT_TRUE(rowTexts(lines, PositionReport::scripClient, {}, "a").empty());
}

TEST(KestoPositionGroups, moreScripsThanScripCodesAndMoreSpellingsThanEntriesFindTheirRows) {
  std::string scrips, clients;
  for (int i = 0; i < 40; ++i) scrips += "C1 S" + std::to_string(i) + " 1 7 S 1 10000 L\n";
  EXPECT_EQ(rowTexts(scrips, PositionReport::scripWise).size(), 40u);
  EXPECT_EQ(rowTexts(scrips, PositionReport::clientScrip, "C1").size(), 40u);
  for (int i = 0; i < 40; ++i) clients += i % 2 ? "C A 1 7 S 1 10000 L\n" : "c A 1 7 S 1 10000 L\n";
  EXPECT_EQ(rowTexts(clients, PositionReport::clientWise).size(), 40u);
  EXPECT_EQ(rowTexts(clients, PositionReport::scripClient, {}, "A").size(), 40u);
}

TEST(KestoPositionGroups, aFileOfExcludedRecordsHasNoRows) {
  const std::string lines = "C1 A 1 7 S 1 10000 O\nC2 A 1 7 S 9 10000 D\nC3 A 1 7 S 9 10000 X\n";
  EXPECT_TRUE(rowTexts(lines, PositionReport::clientWise).empty());
  EXPECT_TRUE(rowTexts(lines, PositionReport::scripWise).empty());
  EXPECT_TRUE(rowTexts(lines, PositionReport::clientScrip).empty());
  EXPECT_TRUE(rowTexts(lines, PositionReport::scripClient).empty());
}

TEST(KestoPositionGroups, aGroupWithoutANameOrADayIsStillARow) {
  EXPECT_EQ(rowTexts("- - 1 0 S 1 10000 L\n- - 1 0 S 2 10000 L\n", PositionReport::clientWise).size(), 1u);
  EXPECT_EQ(rowTexts("- - 1 0 S 1 10000 L\n- - 1 0 S 2 10000 L\n", PositionReport::scripWise).size(), 1u);
}

// ---- What a row says --------------------------------------------------------------------------------------------------

TEST(KestoPositionRow, averagesNetAndBreakEven) {
  KestoNetPosRow row = {{}, 7, 4, 10, 10.0, 40.0};
  EXPECT_EQ(kestoAverageLend(row), 2.5);
  EXPECT_EQ(kestoAverageBorrow(row), 4.0);
  EXPECT_EQ(kestoNetQty(row), -6);
  EXPECT_EQ(kestoNetValue(row), -30.0);
  EXPECT_EQ(kestoBreakEven(row), 5.0);
  row = {{}, 7, 10, 4, 10.0, 40.0};
  EXPECT_EQ(kestoBreakEven(row), -5.0);  // it keeps its sign
}

TEST(KestoPositionRow, noQuantityAboveZeroHasNoAverageAndNoNetQuantityNoBreakEven) {
  const KestoNetPosRow row = {{}, 7, -4, 0, -10.0, 40.0};
  EXPECT_EQ(kestoAverageLend(row), 0.0);
  EXPECT_EQ(kestoAverageBorrow(row), 0.0);
  const KestoNetPosRow even = {{}, 7, 4, 4, 10.0, 40.0};
  EXPECT_EQ(kestoBreakEven(even), 0.0);
}

TEST(KestoPositionRow, netQuantityWraps) {
  const KestoNetPosRow row = {{}, 7, -2147483647, 2, 0, 0};
  EXPECT_EQ(kestoNetQty(row), 2147483647);
}

// ---- Blocks that are not to be had ------------------------------------------------------------------------------------

TEST(KestoPositionBlocks, eachReportTellsTheBlockThatFailed) {
  const LoadedKesto loaded(deals);
  const auto failedAt = [&loaded](int nth, PositionReport report, Fault fault = Fault::memory) {
    faultsArm(fault, nth, false);
    const KestoTotalled result(loaded.file, report, "C1", "AXLE");
    faultsReset();
    return result.failed;
  };
  EXPECT_EQ(failedAt(1, PositionReport::clientWise), PositionBlock::clientNetPos);
  EXPECT_EQ(failedAt(1, PositionReport::scripWise), PositionBlock::scripNetPos);
  EXPECT_EQ(failedAt(1, PositionReport::clientScrip), PositionBlock::scripByClient);
  EXPECT_EQ(failedAt(2, PositionReport::clientScrip), PositionBlock::csNetPos);
  EXPECT_EQ(failedAt(1, PositionReport::scripClient), PositionBlock::clientsInScrip);
  EXPECT_EQ(failedAt(2, PositionReport::scripClient), PositionBlock::scNetPos);
  // More scrips than scrip codes take another block.
  const LoadedKesto scrips("C1 A 1 7 S 1 1 L\nC1 B 1 7 S 1 1 L\nC1 C 1 7 S 1 1 L\n");
  faultsArm(Fault::memory, 2, false);
  const KestoTotalled more(scrips.file, PositionReport::scripWise);
  faultsReset();
  EXPECT_EQ(more.failed, PositionBlock::scripNetPos);
  // The rows cannot be filled without an order.
  EXPECT_EQ(failedAt(1, PositionReport::clientWise, Fault::order), PositionBlock::clientNetPos);
  EXPECT_EQ(failedAt(1, PositionReport::scripWise, Fault::order), PositionBlock::scripNetPos);
  EXPECT_EQ(failedAt(1, PositionReport::clientScrip, Fault::order), PositionBlock::csNetPos);
  EXPECT_EQ(failedAt(1, PositionReport::scripClient, Fault::order), PositionBlock::scNetPos);
}

}  // namespace
}  // namespace quillon::test
