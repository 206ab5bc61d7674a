// Totals of the position tools: which records count, into which row, and what a row says.
#include "position/position_engine.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <map>
#include <random>
#include <tuple>

#include "desktop/scripted/faults.h"
#include "desktop/scripted/files.h"
#include "desktop/scripted/memory.h"
#include "position_records.h"

namespace quillon::test {
namespace {

using Names = std::vector<std::string>;

// ---- Rows as texts, so that a failing case prints itself --------------------------------------------------------------

std::string rowText(const NetPosRow& row) {
  char text[200];
  std::snprintf(text, sizeof text, "%s %.2f/%d %.2f/%d", std::string(row.name.view()).c_str(), row.buyValue, row.buyQty,
                row.sellValue, row.sellQty);
  return text;
}

Names rowTexts(const Totalled& result) {
  Names texts;
  for (std::size_t i = 0; i < result.totals.rowCount; ++i) texts.push_back(rowText(result.totals.rows[i]));
  return texts;
}

// ---- Sides, prices, sums ----------------------------------------------------------------------------------------------

TEST(PositionSides, eachMarketKnowsItsOwn) {
  struct Case {
    bool kesto;
    char side;
    std::int32_t buyQty, sellQty;
  };
  const Case cases[] = {
      {false, 'B', 5, 0}, {false, 'S', 0, 5}, {false, 'T', 0, 0}, {false, 'M', 0, 0}, {false, 'V', 0, 0}, {false, 'L', 0, 0},
      {true, 'S', 5, 0},  {true, 'T', 5, 0},  {true, 'M', 0, 5},  {true, 'V', 0, 5},  {true, 'B', 0, 0},  {true, 'L', 0, 0},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(std::string(c.kesto ? "Kesto " : "normal ") + c.side);
    NetPosRow row = {};
    TextField<12> name;
    fieldSet(name, "C1");
    positionAdd(row, name, 12345, 5, c.side, c.kesto);
    EXPECT_EQ(row.buyQty, c.buyQty);
    EXPECT_EQ(row.sellQty, c.sellQty);
    const double value = c.kesto ? 5 * 1.2345 : 5 * 123.45;
    EXPECT_DOUBLE_EQ(row.buyValue, c.buyQty ? value : 0);
    EXPECT_DOUBLE_EQ(row.sellValue, c.sellQty ? value : 0);
    EXPECT_EQ(row.name.view(), "C1") << "the row takes the name of whatever came last, also where the side adds nothing";
  }
}

TEST(PositionSums, quantitiesWrapAt32Bits) {
  const LoadedDeals deals('N',
                          {{"C1", "AXLE", 'B', 2147483647, 100}, {"C1", "AXLE", 'B', 2, 100}, {"C1", "AXLE", 'S', 5, 100}});
  const Totalled result(deals.file, PositionReport::clientWise);
  ASSERT_EQ(result.totals.rowCount, 1u);
  EXPECT_EQ(result.totals.rows[0].buyQty, -2147483647);
  EXPECT_EQ(result.totals.rows[0].buyValue, 2147483649.0) << "the value does not wrap";
  EXPECT_EQ(positionNetQty(result.totals.rows[0]), 2147483644);
  EXPECT_EQ(positionAverageBuy(result.totals.rows[0]), 0) << "no average of a quantity that is not above 0";
}

// ---- What a row says --------------------------------------------------------------------------------------------------

NetPosRow rowOf(double buyValue, std::int32_t buyQty, double sellValue, std::int32_t sellQty) {
  NetPosRow row = {};
  row.buyValue = buyValue;
  row.buyQty = buyQty;
  row.sellValue = sellValue;
  row.sellQty = sellQty;
  return row;
}

TEST(PositionRow, onlySellsHaveNoAverageBuy) {
  const NetPosRow row = rowOf(0, 0, 500, 4);
  EXPECT_EQ(positionAverageBuy(row), 0);
  EXPECT_EQ(positionAverageSell(row), 12500);
  EXPECT_EQ(positionNetQty(row), -4);
  EXPECT_EQ(positionNetValue(row), -500.0);
  EXPECT_EQ(positionBreakEven(row), 125.0);
}

TEST(PositionRow, onlyBuysHaveNoAverageSell) {
  const NetPosRow row = rowOf(500, 4, 0, 0);
  EXPECT_EQ(positionAverageBuy(row), 12500);
  EXPECT_EQ(positionAverageSell(row), 0);
}

TEST(PositionRow, averagesAreRoundedToHundredthsAwayFromZero) {
  EXPECT_EQ(positionAverageBuy(rowOf(12.345, 1, 0, 0)), 1235);
  EXPECT_EQ(positionAverageBuy(rowOf(-12.345, 1, 0, 0)), -1235);
  EXPECT_EQ(positionAverageSell(rowOf(0, 0, 12.3449, 1)), 1234);
  EXPECT_EQ(positionAverageBuy(rowOf(500, -4, 0, 0)), 0) << "a quantity below 0 has no average";
}

TEST(PositionRow, netQuantityOfZeroHasNoBreakEvenWhateverTheNetValue) {
  const NetPosRow row = rowOf(500, 4, 100, 4);
  EXPECT_EQ(positionNetValue(row), 400.0);
  EXPECT_EQ(positionBreakEven(row), 0.0);
}

TEST(PositionRow, breakEvenKeepsItsSignAndIsNotRounded) {
  EXPECT_DOUBLE_EQ(positionBreakEven(rowOf(100, 5, 110, 2)), -10.0 / 3);
}

TEST(PositionRow, extremesOfTheQuantitiesWrapAndDoNotTrap) {
  EXPECT_EQ(positionNetQty(rowOf(0, INT32_MIN, 0, 1)), INT32_MAX);
  EXPECT_EQ(positionAverageBuy(rowOf(1e300, 1, 0, 0)), INT64_MAX) << "beyond 64 bits: the end of their range";
}

// ---- The lists --------------------------------------------------------------------------------------------------------

TEST(PositionLists, eachTextOnceCaseBlindAsFirstSpelledAndSorted) {
  const LoadedDeals deals('N', {{"delta", "Zinc", 'B', 1, 100},
                                {"BETA", "AXLE", 'B', 1, 100},
                                {"Delta", "ZINC", 'B', 1, 100},
                                {"alpha", "axle", 'B', 1, 100},
                                {"DELTA", "BOLT", 'B', 1, 100}});
  const PositionLists lists = positionListsOf(deals.file);
  EXPECT_EQ(lists.clients, (Names{"alpha", "BETA", "delta"}));
  EXPECT_EQ(lists.scrips, (Names{"AXLE", "BOLT", "Zinc"}));
}

TEST(PositionLists, onlyTheLettersAToZAreFolded) {
  const LoadedDeals deals('N', {{"\xe4"
                                 "b",
                                 "X", 'B', 1, 1},
                                {"\xc4"
                                 "b",
                                 "X", 'B', 1, 1},
                                {"a[b", "X", 'B', 1, 1},
                                {"a{b", "X", 'B', 1, 1}});
  EXPECT_EQ(positionListsOf(deals.file).clients.size(), 4u);
}

TEST(PositionLists, excludedTypesAreNotOfferedNotEvenTheFirstRecord) {
  const LoadedDeals deals(
      'V',
      {{"C1", "A", 'B', 1, 1, 'O'}, {"C2", "B", 'B', 1, 1, 'D'}, {"C3", "C", 'B', 1, 1, 'X'}, {"C4", "D", 'B', 1, 1, 'L'}});
  const PositionLists lists = positionListsOf(deals.file);
  EXPECT_EQ(lists.clients, (Names{"C4"}));
  EXPECT_EQ(lists.scrips, (Names{"D"}));
}

TEST(PositionLists, tensOfThousandsOfClientsStayDistinct) {
  std::vector<std::string> names;
  for (int i = 0; i < 30000; ++i) names.push_back("C" + std::to_string(i));
  std::vector<Deal> records;
  for (int round = 0; round < 2; ++round) {
    for (const std::string& name : names) records.push_back({name, "AXLE", 'B', 1, 100});
  }
  const LoadedDeals deals('N', records);
  const PositionLists lists = positionListsOf(deals.file);
  EXPECT_EQ(lists.clients.size(), 30000u);
  EXPECT_EQ(lists.clients.front(), "C0");
  EXPECT_EQ(lists.clients.back(), "C9999");
  EXPECT_EQ(lists.scrips.size(), 1u);
}

// ---- Rows -------------------------------------------------------------------------------------------------------------

TEST(PositionTotal, clientWiseHasARowForEachClientSortedWithoutCase) {
  const LoadedDeals deals(
      'N',
      {{"b1", "AXLE", 'B', 10, 100}, {"C1", "AXLE", 'S', 3, 200}, {"A1", "BOLT", 'B', 1, 300}, {"b1", "BOLT", 'S', 4, 150}});
  EXPECT_EQ(rowTexts(Totalled(deals.file, PositionReport::clientWise)),
            (Names{"A1 3.00/1 0.00/0", "b1 10.00/10 6.00/4", "C1 0.00/0 6.00/3"}));
}

TEST(PositionTotal, scripWiseSortsAndGroupsWithCase) {
  const LoadedDeals deals(
      'V',
      {{"C1", "axle", 'B', 1, 100}, {"C1", "BOLT", 'B', 2, 100}, {"C1", "AXLE", 'B', 3, 100}, {"C1", "axle", 'S', 4, 100}});
  EXPECT_EQ(rowTexts(Totalled(deals.file, PositionReport::scripWise)),
            (Names{"AXLE 3.00/3 0.00/0", "BOLT 2.00/2 0.00/0", "axle 1.00/1 4.00/4"}));
}

TEST(PositionTotal, clientScripTakesTheChosenClientWithCase) {
  const LoadedDeals deals('N', {{"C1", "BOLT", 'B', 1, 100},
                                {"c1", "BOLT", 'B', 50, 100},
                                {"C1", "AXLE", 'S', 2, 100},
                                {"C1", "BOLT", 'B', 3, 100},
                                {"C1", "COIL", 'B', 9, 100, 'X'},
                                {"C2", "BOLT", 'B', 70, 100}});
  const Totalled result(deals.file, PositionReport::clientScrip, "C1");
  EXPECT_EQ(rowTexts(result), (Names{"AXLE 0.00/0 2.00/2", "BOLT 4.00/4 0.00/0"}));
  EXPECT_EQ(result.totals.details[0].scrip.view(), "BOLT") << "the details stand in file order";
  EXPECT_EQ(result.totals.details[0].client.view(), "C1");
  EXPECT_EQ(result.totals.details[0].scripCode, 500010);
}

TEST(PositionTotal, scripClientTakesTheChosenScripWithCase) {
  const LoadedDeals deals('B', {{"b", "AXLE", 'T', 1, 10000},
                                {"A", "axle", 'T', 50, 10000},
                                {"A", "AXLE", 'M', 2, 10000},
                                {"b", "AXLE", 'V', 3, 10000},
                                {"C", "BOLT", 'T', 9, 10000}});
  EXPECT_EQ(rowTexts(Totalled(deals.file, PositionReport::scripClient, "", "AXLE")),
            (Names{"A 0.00/0 2.00/2", "b 1.00/1 3.00/3"}));
}

TEST(PositionTotal, clientWhoseLastRecordIsExcludedRunsIntoTheNextClientsRow) {
  for (char excluded : {'O', 'D', 'X'}) {
    SCOPED_TRACE(excluded);
    const LoadedDeals deals('N', {{"A", "AXLE", 'B', 1, 100},
                                  {"A", "AXLE", 'B', 100, 100, excluded},
                                  {"B", "AXLE", 'B', 2, 100},
                                  {"C", "AXLE", 'S', 4, 100}});
    EXPECT_EQ(rowTexts(Totalled(deals.file, PositionReport::clientWise)), (Names{"B 3.00/3 0.00/0", "C 0.00/0 4.00/4"}));
  }
}

TEST(PositionTotal, excludedRecordInsideAGroupIsPassedOver) {
  const LoadedDeals deals(
      'N',
      {{"A", "AXLE", 'B', 1, 100}, {"A", "AXLE", 'B', 100, 100, 'X'}, {"A", "AXLE", 'B', 2, 100}, {"B", "AXLE", 'B', 4, 100}});
  EXPECT_EQ(rowTexts(Totalled(deals.file, PositionReport::clientWise)), (Names{"A 3.00/3 0.00/0", "B 4.00/4 0.00/0"}));
}

TEST(PositionTotal, mergeHappensScripWiseAsWell) {
  const LoadedDeals deals('N', {{"A", "AXLE", 'B', 1, 100}, {"A", "AXLE", 'B', 1, 100, 'X'}, {"A", "BOLT", 'B', 2, 100}});
  EXPECT_EQ(rowTexts(Totalled(deals.file, PositionReport::scripWise)), (Names{"BOLT 3.00/3 0.00/0"}));
}

TEST(PositionTotal, lastClientKeepsItsRowWhenItsLastRecordIsExcluded) {
  const LoadedDeals deals('N', {{"A", "AXLE", 'B', 1, 100}, {"B", "AXLE", 'B', 2, 100}, {"B", "AXLE", 'B', 7, 100, 'X'}});
  EXPECT_EQ(rowTexts(Totalled(deals.file, PositionReport::clientWise)), (Names{"A 1.00/1 0.00/0", "B 2.00/2 0.00/0"}));
}

TEST(PositionTotal, lastClientWithoutARecordThatCountsHasNoRow) {
  const LoadedDeals deals('N', {{"A", "AXLE", 'B', 1, 100}, {"B", "AXLE", 'B', 7, 100, 'X'}});
  EXPECT_EQ(rowTexts(Totalled(deals.file, PositionReport::clientWise)), (Names{"A 1.00/1 0.00/0"}));
}

TEST(PositionTotal, onlyOddLotsGiveNoRows) {
  const LoadedDeals deals('N', {{"A", "AXLE", 'B', 1, 100, 'O'}, {"B", "AXLE", 'B', 7, 100, 'O'}});
  for (PositionReport report :
       {PositionReport::clientWise, PositionReport::scripWise, PositionReport::clientScrip, PositionReport::scripClient}) {
    const Totalled result(deals.file, report);
    EXPECT_EQ(result.failed, PositionBlock::none);
    EXPECT_EQ(result.totals.rowCount, 0u);
    EXPECT_TRUE(result.lists.clients.empty());
    EXPECT_TRUE(result.lists.scrips.empty());
  }
}

TEST(PositionTotal, recordsWithoutANameAreAGroupToo) {
  const LoadedDeals deals('N', {{"", "", 'B', 1, 100}, {"", "", 'B', 2, 100}});
  EXPECT_EQ(rowTexts(Totalled(deals.file, PositionReport::clientWise)), (Names{" 3.00/3 0.00/0"}));
  EXPECT_EQ(rowTexts(Totalled(deals.file, PositionReport::clientScrip, "")), (Names{" 3.00/3 0.00/0"}));
}

TEST(PositionTotal, idsThatDifferOnlyInCaseShareAListEntryAndStaySeparateRows) {
  const LoadedDeals deals(
      'N',
      {{"Ab", "AXLE", 'B', 1, 100}, {"AB", "AXLE", 'B', 2, 100}, {"ab", "AXLE", 'B', 4, 100}, {"aC", "AXLE", 'B', 8, 100}});
  const Totalled result(deals.file, PositionReport::clientWise);
  EXPECT_EQ(result.lists.clients, (Names{"Ab", "aC"}));
  EXPECT_EQ(rowTexts(result), (Names{"Ab 1.00/1 0.00/0", "AB 2.00/2 0.00/0", "ab 4.00/4 0.00/0", "aC 8.00/8 0.00/0"}));
}

TEST(PositionTotal, spellingsThatTakeTurnsAreARowEachTurn) {
  std::vector<Deal> records;
  for (int i = 0; i < 100; ++i) records.push_back({i % 2 ? "AB" : "Ab", "AXLE", 'B', 1, 100});
  const LoadedDeals deals('N', records);
  const Totalled result(deals.file, PositionReport::clientWise);
  EXPECT_EQ(result.lists.clients.size(), 1u);
  EXPECT_EQ(result.totals.rowCount, 100u) << "many more rows than one for each list entry and one more; none is lost";
  const Totalled ofScrip(deals.file, PositionReport::scripClient, "", "AXLE");
  EXPECT_EQ(ofScrip.totals.rowCount, 100u);
}

TEST(PositionTotal, twelveCharactersWithoutATerminatorAreOneName) {
  LoadedDeals deals('N', {{"x", "AXLE", 'B', 1, 100}, {"x", "AXLE", 'B', 2, 100}});
  TradeRec132* records = static_cast<TradeRec132*>(deals.file.block);
  std::memcpy(records[0].clientId.bytes, "ABCDEFGHIJKL", 12);
  std::memcpy(records[1].clientId.bytes, "ABCDEFGHIJKM", 12);
  EXPECT_EQ(rowTexts(Totalled(deals.file, PositionReport::clientWise)),
            (Names{"ABCDEFGHIJKL 1.00/1 0.00/0", "ABCDEFGHIJKM 2.00/2 0.00/0"}));
  EXPECT_EQ(rowTexts(Totalled(deals.file, PositionReport::clientScrip, "ABCDEFGHIJKM")), (Names{"AXLE 2.00/2 0.00/0"}));
}

TEST(PositionTotal, bytesBehindTheEndOfANameDoNotCount) {
  LoadedDeals deals('N', {{"AB", "AXLE", 'B', 1, 100}, {"AB", "AXLE", 'B', 2, 100}});
  static_cast<TradeRec132*>(deals.file.block)[1].clientId.bytes[5] = 'z';
  EXPECT_EQ(rowTexts(Totalled(deals.file, PositionReport::clientWise)), (Names{"AB 3.00/3 0.00/0"}));
}

// ---- Blocks -----------------------------------------------------------------------------------------------------------

TEST(PositionBlocks, eachIsToldByItsNameAndGivenBack) {
  struct Case {
    PositionReport report;
    std::size_t number;  // which block is refused
    PositionBlock failed;
  };
  const Case cases[] = {
      {PositionReport::clientWise, 1, PositionBlock::clientNetPos},
      {PositionReport::clientWise, 2, PositionBlock::none},
      {PositionReport::scripWise, 1, PositionBlock::scripNetPos},
      {PositionReport::scripWise, 2, PositionBlock::none},
      {PositionReport::clientScrip, 1, PositionBlock::scripByClient},
      {PositionReport::clientScrip, 2, PositionBlock::csNetPos},
      {PositionReport::clientScrip, 3, PositionBlock::none},
      {PositionReport::scripClient, 1, PositionBlock::clientsInScrip},
      {PositionReport::scripClient, 2, PositionBlock::scNetPos},
      {PositionReport::scripClient, 3, PositionBlock::none},
  };
  const LoadedDeals deals('N', {{"A", "AXLE", 'B', 1, 100}, {"B", "AXLE", 'B', 7, 100}});
  for (const Case& c : cases) {
    SCOPED_TRACE(testing::Message() << "report " << static_cast<int>(c.report) << ", block " << c.number);
    faultsReset();
    faultsArm(Fault::memory, c.number, false);
    {
      const Totalled result(deals.file, c.report, "A", "AXLE");
      EXPECT_EQ(result.failed, c.failed);
      EXPECT_EQ(result.totals.rowCount > 0, c.failed == PositionBlock::none);
    }
    EXPECT_EQ(memoryBlocksHeld(), 0u);
  }
  faultsReset();
}

// ---- Random files against an independent sum --------------------------------------------------------------------------

struct Sum {
  __extension__ __int128 buy = 0, sell = 0;  // quantity times rate, exactly
  std::uint32_t buyQty = 0, sellQty = 0;
};

void addTo(Sum& sum, const Deal& deal, bool kesto) {
  const std::string_view buys = kesto ? "ST" : "B", sells = kesto ? "MV" : "S";
  if (buys.find(deal.side) != std::string_view::npos) {
    sum.buy += static_cast<std::int64_t>(deal.qty) * deal.rate;
    sum.buyQty += static_cast<std::uint32_t>(deal.qty);
  }
  if (sells.find(deal.side) != std::string_view::npos) {
    sum.sell += static_cast<std::int64_t>(deal.qty) * deal.rate;
    sum.sellQty += static_cast<std::uint32_t>(deal.qty);
  }
}

void expectSum(const NetPosRow& row, const Sum& sum, bool kesto) {
  const double unit = kesto ? 10000.0 : 100.0;
  const double buy = static_cast<double>(sum.buy) / unit, sell = static_cast<double>(sum.sell) / unit;
  EXPECT_NEAR(row.buyValue, buy, 1e-9 * (std::abs(buy) + 1e9));
  EXPECT_NEAR(row.sellValue, sell, 1e-9 * (std::abs(sell) + 1e9));
  EXPECT_EQ(static_cast<std::uint32_t>(row.buyQty), sum.buyQty);
  EXPECT_EQ(static_cast<std::uint32_t>(row.sellQty), sum.sellQty);
}

std::vector<Deal> randomDeals(std::mt19937& random, bool withExcluded) {
  static constexpr std::string_view clients[] = {"A", "B1", "C22", "DELTA", "E", "LONGCLIENT1"};
  static constexpr std::string_view scrips[] = {"AXLE", "BOLT", "COIL", "DRUM"};
  static constexpr char sides[] = {'B', 'S', 'T', 'M', 'V', 'L'};
  static constexpr char types[] = {'L', 'H', 'M', 'G', 'O', 'D', 'X'};
  const auto pick = [&random](std::size_t size) { return std::uniform_int_distribution<std::size_t>(0, size - 1)(random); };
  std::vector<Deal> deals(1 + pick(200));
  for (Deal& deal : deals) {
    deal.client = clients[pick(std::size(clients))];
    deal.scrip = scrips[pick(std::size(scrips))];
    deal.side = sides[pick(std::size(sides))];
    deal.qty = static_cast<std::int32_t>(pick(20) == 0 ? random() : pick(100000));
    deal.rate = static_cast<std::int32_t>(pick(20) == 0 ? random() : pick(10000000));
    deal.type = types[pick(withExcluded ? std::size(types) : 4)];
  }
  return deals;
}

// Rows by name; names are all in one case here, so that each has one row.
std::map<std::string, NetPosRow> rowsByName(const Totalled& result) {
  std::map<std::string, NetPosRow> rows;
  for (std::size_t i = 0; i < result.totals.rowCount; ++i)
    rows.emplace(result.totals.rows[i].name.view(), result.totals.rows[i]);
  EXPECT_EQ(rows.size(), result.totals.rowCount) << "a name with two rows";
  return rows;
}

TEST(PositionRandomFiles, eachRowIsTheSumOfItsRecords) {
  std::mt19937 random(20090522);
  for (int round = 0; round < 60; ++round) {
    const char kind = "NVB"[round % 3];
    const bool kesto = kind == 'B';
    // Without excluded types for the reports by client and by scrip, where they would move sums to the next row.
    const std::vector<Deal> records = randomDeals(random, false), mixed = randomDeals(random, true);
    SCOPED_TRACE(testing::Message() << "round " << round << " letter " << kind);
    std::map<std::string, Sum> byClient, byScrip, scripsOfA, clientsOfBolt;
    for (const Deal& deal : records) {
      addTo(byClient[std::string(deal.client)], deal, kesto);
      addTo(byScrip[std::string(deal.scrip)], deal, kesto);
    }
    for (const Deal& deal : mixed) {
      if (deal.type == 'O' || deal.type == 'D' || deal.type == 'X') continue;
      if (deal.client == "A") addTo(scripsOfA[std::string(deal.scrip)], deal, kesto);
      if (deal.scrip == "BOLT") addTo(clientsOfBolt[std::string(deal.client)], deal, kesto);
    }
    const LoadedDeals file(kind, records), mixedFile(kind, mixed);
    const std::tuple<const PositionFile*, PositionReport, const std::map<std::string, Sum>*> reports[] = {
        {&file.file, PositionReport::clientWise, &byClient},
        {&file.file, PositionReport::scripWise, &byScrip},
        {&mixedFile.file, PositionReport::clientScrip, &scripsOfA},
        {&mixedFile.file, PositionReport::scripClient, &clientsOfBolt},
    };
    for (const auto& [loaded, report, sums] : reports) {
      SCOPED_TRACE(static_cast<int>(report));
      const std::map<std::string, NetPosRow> rows = rowsByName(Totalled(*loaded, report, "A", "BOLT"));
      ASSERT_EQ(rows.size(), sums->size());
      for (const auto& [name, sum] : *sums) {
        ASSERT_TRUE(rows.contains(name)) << name;
        expectSum(rows.at(name), sum, kesto);
      }
    }
  }
}

TEST(PositionRandomFiles, noRecordThatCountsIsLostHoweverTheExcludedOnesFall) {
  std::mt19937 random(7);
  for (int round = 0; round < 100; ++round) {
    const char kind = "NVB"[round % 3];
    const bool kesto = kind == 'B';
    const std::vector<Deal> records = randomDeals(random, true);
    SCOPED_TRACE(testing::Message() << "round " << round << " letter " << kind);
    Sum whole;
    for (const Deal& deal : records) {
      if (deal.type != 'O' && deal.type != 'D' && deal.type != 'X') addTo(whole, deal, kesto);
    }
    const LoadedDeals file(kind, records);
    for (PositionReport report : {PositionReport::clientWise, PositionReport::scripWise}) {
      const Totalled result(file.file, report);
      NetPosRow sum = {};
      std::uint32_t buyQty = 0, sellQty = 0;
      for (std::size_t i = 0; i < result.totals.rowCount; ++i) {
        sum.buyValue += result.totals.rows[i].buyValue;
        sum.sellValue += result.totals.rows[i].sellValue;
        buyQty += static_cast<std::uint32_t>(result.totals.rows[i].buyQty);
        sellQty += static_cast<std::uint32_t>(result.totals.rows[i].sellQty);
      }
      sum.buyQty = static_cast<std::int32_t>(buyQty);
      sum.sellQty = static_cast<std::int32_t>(sellQty);
      expectSum(sum, whole, kesto);
    }
  }
}

// ---- Reading ----------------------------------------------------------------------------------------------------------

struct ReadFile {
  PositionFile file = {};
  std::vector<char> block;
  bool whole = false;

  ReadFile(char fileKind, const std::string& records, bool always144, bool isLendingFile, std::size_t failRead = 0) {
    const std::string path = (std::filesystem::path(testing::TempDir()) / "position_read.bin").string();
    std::ofstream(path, std::ios::binary) << bytesOf(dealHeader(fileKind)) << records;
    file.header = dealHeader(fileKind);
    positionSetLayout(file, always144);
    file.count = records.size() / tradeRecordSize(positionLayoutInFile(file));
    block.resize(positionBlockSize(file));
    file.block = block.data();
    Input* input = inputOpen(path, InputKind::binary);
    faultsReset();
    if (failRead > 0) faultsArm(Fault::read, failRead, false);
    whole = input && positionReadRecords(*input, file, isLendingFile);
    faultsReset();
    inputClose(input);
    std::filesystem::remove(path);
  }
};

TEST(PositionRead, layoutGoesByTheLetterAloneAndSlbReads144Always) {
  struct Case {
    char letter;
    bool always144;
    TradeLayout layout;
    bool recordSize132;
  };
  const Case cases[] = {
      {'N', false, TradeLayout::rec132, true}, {'V', false, TradeLayout::rec144, false},
      {'B', false, TradeLayout::kesto, true},  {'N', true, TradeLayout::rec144, false},
      {'V', true, TradeLayout::rec144, false}, {'B', true, TradeLayout::rec144, false},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.letter);
    PositionFile file = {};
    file.header = dealHeader(c.letter);
    file.count = 3;
    positionSetLayout(file, c.always144);
    EXPECT_EQ(positionLayoutInFile(file), c.layout);
    EXPECT_EQ(file.recordSize132, c.recordSize132);
    EXPECT_EQ(positionBlockSize(file), 4u * (c.recordSize132 ? 132 : 144)) << "one record more than the file has";
  }
}

TEST(PositionRead, kestoRecordIsCopiedFieldByField) {
  KestoTradeRec record = {};
  record.scripCode = 1;
  fieldSet(record.scripId, "SCRIP");
  record.days = 9;
  record.trdId = 2;
  record.rate = 3;
  record.qty = 4;
  record.brokerId = 5;
  record.traderId = 6;
  fieldSet(record.time, "TIME");
  fieldSet(record.date, "DATE");
  fieldSet(record.clientId, "CLIENT");
  record.side = 'M';
  record.tradeType = 'H';
  record.trnId = -7;
  fieldSet(record.settFyear, "SETT");
  const TradeRec132 copy = positionFromKesto(record);
  EXPECT_EQ(copy.scripCode, 1);
  EXPECT_EQ(copy.scripId.view(), "SCRIP");
  EXPECT_EQ(copy.trdId, 2);
  EXPECT_EQ(copy.rate, 3) << "ten-thousandths still";
  EXPECT_EQ(copy.qty, 4);
  EXPECT_EQ(copy.brokerId, 5);
  EXPECT_EQ(copy.traderId, 6);
  EXPECT_EQ(copy.time.view(), "TIME");
  EXPECT_EQ(copy.date.view(), "DATE");
  EXPECT_EQ(copy.clientId.view(), "CLIENT");
  EXPECT_EQ(copy.side, 'M');
  EXPECT_EQ(copy.tradeType, 'H');
  EXPECT_EQ(copy.trnId, -7) << "widened with its sign";
  EXPECT_EQ(copy.cliTyp.view(), "");
}

TEST(PositionRead, kestoFilesOfAnyLengthComeWholeAndInOrder) {
  for (int count : {1, 255, 256, 257, 513, 1000}) {
    SCOPED_TRACE(count);
    std::vector<Deal> deals;
    for (int i = 0; i < count; ++i) deals.push_back({"C1", "AXLE", 'T', i + 1, 10000});
    const ReadFile read('B', dealBytes<KestoTradeRec>(deals), false, false);
    ASSERT_TRUE(read.whole);
    ASSERT_EQ(read.file.count, static_cast<std::size_t>(count));
    const auto* records = static_cast<const TradeRec132*>(read.file.block);
    for (int i = 0; i < count; ++i) ASSERT_EQ(records[i].qty, i + 1);
    EXPECT_EQ(records[count].clientId.view(), "") << "the record behind the last stays zero";
  }
}

TEST(PositionRead, eachRecordCountsAsOneReadAndAShortOneEndsTheLoad) {
  std::vector<Deal> deals;
  for (int i = 0; i < 300; ++i) deals.push_back({"C1", "AXLE", 'T', 1, 10000});
  const std::string kesto = dealBytes<KestoTradeRec>(deals), normal = dealBytes<TradeRec132>(deals);
  for (std::size_t number : {1u, 2u, 257u, 258u, 301u}) {
    SCOPED_TRACE(number);
    EXPECT_FALSE(ReadFile('B', kesto, false, false, number).whole);
    EXPECT_FALSE(ReadFile('N', normal, false, false, number).whole);
  }
  EXPECT_TRUE(ReadFile('B', kesto, false, false, 302).whole) << "the header and 300 records are 301 reads";
  EXPECT_TRUE(ReadFile('N', normal, false, false, 302).whole);
}

TEST(PositionRead, lendsOfALendingFileBecomeSells) {
  const std::vector<Deal> deals = {{"C1", "AXLE", 'L', 1, 100}, {"C1", "AXLE", 'B', 1, 100}};
  struct Case {
    char letter;
    bool always144, isLendingFile;
    char side;
  };
  const Case cases[] = {{'V', true, true, 'S'},
                        {'N', true, true, 'S'},
                        {'V', false, true, 'S'},
                        {'V', true, false, 'L'},
                        {'N', false, true, 'L'}};
  for (const Case& c : cases) {
    SCOPED_TRACE(c.letter);
    const bool wide = c.always144 || c.letter == 'V';
    const ReadFile read(c.letter, wide ? dealBytes<TradeRec144>(deals) : dealBytes<TradeRec132>(deals), c.always144,
                        c.isLendingFile);
    ASSERT_TRUE(read.whole);
    const char side =
        wide ? static_cast<const TradeRec144*>(read.file.block)->side : static_cast<const TradeRec132*>(read.file.block)->side;
    EXPECT_EQ(side, c.side);
  }
}

TEST(PositionRead, normalFileInTheSlbToolHasItsFieldsDisplacedAndNothingWarns) {
  std::vector<Deal> deals(24, Deal{"C1", "AXLE", 'B', 1, 100});
  const ReadFile read('N', dealBytes<TradeRec132>(deals), true, false);
  ASSERT_TRUE(read.whole);
  EXPECT_EQ(read.file.count, 22u) << "24 records of 132 bytes are 22 of 144";
  EXPECT_EQ(static_cast<const TradeRec144*>(read.file.block)->scripId.view(), "AXLE")
      << "what stands ahead of the longer fields is right";
  EXPECT_NE(static_cast<const TradeRec144*>(read.file.block)->clientId.view(), "C1");
}

}  // namespace
}  // namespace quillon::test
