// Which records follow a header, how many there are, and how they come into the block.
#include "trades/trade_file.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "trades/trade_records.h"

namespace quillon::test {

static TradeHeader headerWith(char fileKind, char kind = 'T') {
  TradeHeader header = {};
  header.fileKind = fileKind;
  header.kind = kind;
  return header;
}

struct LayoutCase {
  char fileKind;
  bool isLendingFile;
  TradeLayout layout;
};

TEST(TradeFile, layoutByLetterAndLendingFlag) {
  static constexpr LayoutCase rows[] = {
      {'N', false, TradeLayout::rec132}, {'V', false, TradeLayout::rec144}, {'B', false, TradeLayout::kesto},
      {'X', false, TradeLayout::rec132}, {'V', true, TradeLayout::rec144},  {'B', true, TradeLayout::kesto},
  };
  for (const LayoutCase& row : rows) {
    EXPECT_EQ(tradeLayoutOf(headerWith(row.fileKind), row.isLendingFile), row.layout) << row.fileKind << row.isLendingFile;
    if (row.isLendingFile) continue;
    EXPECT_EQ(tradeLayoutOf(headerWith(row.fileKind)), row.layout) << row.fileKind;
  }
}

TEST(TradeFile, lendingFileWithLetterNIsReadAs144ByteRecords) {
  EXPECT_EQ(tradeLayoutOf(headerWith('N'), true), TradeLayout::rec144);
}

TEST(TradeFile, onlyLettersNVBWithKindTAreTradeFiles) {
  for (const char letter : {'N', 'V', 'B'}) EXPECT_TRUE(isTradeFile(headerWith(letter)));
  for (const char letter : {'X', 'C', 'n', '\0'}) EXPECT_FALSE(isTradeFile(headerWith(letter))) << letter;
  for (const char kind : {'B', 't', '\0'}) EXPECT_FALSE(isTradeFile(headerWith('N', kind))) << kind;
  EXPECT_TRUE(isTradeFileLetter('B'));
  EXPECT_FALSE(isTradeFileLetter('T'));
}

struct CountCase {
  std::int64_t fileSize;
  TradeLayout layout;
  std::size_t count;
};

TEST(TradeFile, countIsWholeRecordsBehindHeader) {
  static constexpr CountCase rows[] = {
      {24, TradeLayout::rec132, 0},
      {24 + 131, TradeLayout::rec132, 0},
      {24 + 132, TradeLayout::rec132, 1},
      {24 + 132 + 5, TradeLayout::rec132, 1},
      {24 + 144, TradeLayout::rec132, 1},
      {24 + 143, TradeLayout::rec144, 0},
      {24 + 2 * 144, TradeLayout::rec144, 2},
      {24 + 141, TradeLayout::kesto, 0},
      {24 + 142, TradeLayout::kesto, 1},
      {0, TradeLayout::rec132, 0},
      {23, TradeLayout::kesto, 0},
  };
  for (const CountCase& row : rows) EXPECT_EQ(tradeCountOf(row.fileSize, row.layout), row.count) << row.fileSize;
}

TEST(TradeFile, firstRecordAloneTellsAnOddLotFile) {
  const Trade odd = {.tradeType = 'O'}, regular = {};
  EXPECT_TRUE(isOddLotFile(TradeLayout::rec132, recordsOf<TradeRec132>({odd, regular}).data()));
  EXPECT_TRUE(isOddLotFile(TradeLayout::rec144, recordsOf<TradeRec144>({odd, regular}).data()));
}

TEST(TradeFile, oddLotTradeInTheMiddleDoesNotMakeAnOddLotFile) {
  const Trade odd = {.tradeType = 'O'}, regular = {};
  EXPECT_FALSE(isOddLotFile(TradeLayout::rec132, recordsOf<TradeRec132>({regular, odd, odd}).data()));
  EXPECT_FALSE(isOddLotFile(TradeLayout::rec144, recordsOf<TradeRec144>({regular, odd, odd}).data()));
}

TEST(TradeFile, kestoFilesKnowNoOddLots) {
  EXPECT_FALSE(isOddLotFile(TradeLayout::kesto, recordsOf<KestoTradeRec>({{.tradeType = 'O'}}).data()));
}

TEST(TradeFile, lendsBecomeSellsAndOtherSidesStand) {
  std::vector<TradeRec144> records =
      recordsOf<TradeRec144>({{.side = 'L'}, {.side = 'B'}, {.side = 'S'}, {.side = 'l'}, {.side = 'L'}});
  rewriteLends(records.data(), 4);
  std::string sides;
  for (int i = 0; i < 5; ++i) sides += records[static_cast<std::size_t>(i)].side;
  EXPECT_EQ(sides, "SBSlL");  // the fifth was not asked for
}

// ---- From a file ----------------------------------------------------------------------------------------------------------

static int failures;
static bool carryOn() {
  ++failures;
  return true;
}
static bool stop() {
  ++failures;
  return false;
}

struct OpenedFile {
  std::filesystem::path path;
  Input* input;
};

// A file of a header, these records and some bytes more, opened.
static OpenedFile openTrades(const std::vector<Trade>& trades, std::size_t extra, std::size_t cut = 0) {
  const TradeHeader header = headerWith('N');
  const std::vector<TradeRec132> records = recordsOf<TradeRec132>(trades);
  std::string bytes(reinterpret_cast<const char*>(&header), sizeof header);
  bytes.append(reinterpret_cast<const char*>(records.data()), trades.size() * sizeof(TradeRec132));
  bytes.append(extra, '?');
  bytes.resize(bytes.size() - cut);
  OpenedFile file = {std::filesystem::temp_directory_path() / ("trade_file_test." + std::to_string(::getpid())), nullptr};
  std::ofstream(file.path, std::ios::binary) << bytes;
  file.input = inputOpen(file.path.string(), InputKind::binary);
  failures = 0;
  return file;
}

static void closeTrades(const OpenedFile& file) {
  inputClose(file.input);
  std::filesystem::remove(file.path);
}

TEST(TradeFile, countLeavesFileAtItsStart) {
  const OpenedFile file = openTrades({{}, {}, {}}, 5);
  ASSERT_NE(file.input, nullptr);
  std::size_t count = 99;
  EXPECT_EQ(countTrades(*file.input, TradeLayout::rec132, count), TradeCount::counted);
  EXPECT_EQ(count, 3u);
  EXPECT_EQ(inputTell(*file.input), 0);
  closeTrades(file);
}

TEST(TradeFile, fileWithoutBytesIsToldApart) {
  const OpenedFile file = openTrades({}, 0, sizeof(TradeHeader));
  ASSERT_NE(file.input, nullptr);
  std::size_t count = 99;
  EXPECT_EQ(countTrades(*file.input, TradeLayout::rec132, count), TradeCount::emptyFile);
  closeTrades(file);
}

TEST(TradeFile, recordsComeIntoTheBlockInFileOrder) {
  const OpenedFile file = openTrades({{.trdId = 1}, {.trdId = 2}, {.trdId = 3}}, 5);
  ASSERT_NE(file.input, nullptr);
  std::vector<TradeRec132> block = recordsOf<TradeRec132>({});
  block.resize(4);
  EXPECT_TRUE(readTrades(*file.input, TradeLayout::rec132, block.data(), 3, carryOn));
  EXPECT_EQ(failures, 0);
  for (int i = 0; i < 3; ++i) EXPECT_EQ(static_cast<int>(block[static_cast<std::size_t>(i)].trdId), i + 1);
  EXPECT_EQ(static_cast<int>(block[3].trdId), 0);
  closeTrades(file);
}

TEST(TradeFile, recordThatComesBackShortStaysZeroAndIsTold) {
  const OpenedFile file = openTrades({{.trdId = 1}, {.trdId = 2}}, 0, 1);
  ASSERT_NE(file.input, nullptr);
  std::vector<TradeRec132> block = recordsOf<TradeRec132>({});
  block.resize(3);
  EXPECT_TRUE(readTrades(*file.input, TradeLayout::rec132, block.data(), 2, carryOn));
  EXPECT_EQ(failures, 1);
  EXPECT_EQ(static_cast<int>(block[0].trdId), 1);
  const TradeRec132 zero = {};
  EXPECT_EQ(std::memcmp(&block[1], &zero, sizeof zero), 0);
  closeTrades(file);
}

TEST(TradeFile, loadEndsWhereTheFailureSaysSo) {
  const OpenedFile file = openTrades({{.trdId = 1}, {.trdId = 2}}, 0, 133);
  ASSERT_NE(file.input, nullptr);
  std::vector<TradeRec132> block = recordsOf<TradeRec132>({});
  block.resize(3);
  EXPECT_FALSE(readTrades(*file.input, TradeLayout::rec132, block.data(), 2, stop));
  EXPECT_EQ(failures, 1);
  closeTrades(file);
}

TEST(TimeOfStamp, isTheEightCharactersFrom11WhateverStandsBeforeThem) {
  TextField<20> stamp = {};
  EXPECT_EQ(timeOfStamp(stamp).view(), "");
  fieldSet(stamp, "25/05/2009");
  EXPECT_EQ(timeOfStamp(stamp).view(), "");
  fieldSet(stamp, "25/05/2009 10:15");
  EXPECT_EQ(timeOfStamp(stamp).view(), "10:15");
  fieldSet(stamp, "25/05/2009 10:15:01");
  EXPECT_EQ(timeOfStamp(stamp).view(), "10:15:01");
  stamp.bytes[0] = '\0';
  EXPECT_EQ(timeOfStamp(stamp).view(), "10:15:01") << "an end before it does not count";
  for (char& byte : stamp.bytes) byte = 'x';
  EXPECT_EQ(timeOfStamp(stamp).view(), "xxxxxxxx");
}

}  // namespace quillon::test
