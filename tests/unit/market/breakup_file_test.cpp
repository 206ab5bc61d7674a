// Reading breakup data files: every field of both kinds, white space between the groups, lines that are short or too long.
#include "market/breakup_file.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "desktop/scripted/faults.h"
#include "market/market_input.h"

namespace quillon {
namespace {

using test::TextFile;

// What a run takes out of a file: it is counted, rewound and read into a block of the count and one more.
struct NormalFile {
  BreakupCount count = {};
  std::vector<NormalBreakup> records;  // without the zero one at the end
};

NormalFile readNormal(const std::string& bytes) {
  const TextFile file(bytes);
  NormalFile read;
  Input& input = file.open();
  read.count = countBreakups(input);
  read.records.resize(read.count.records + 1);
  EXPECT_TRUE(inputRewind(input));
  EXPECT_TRUE(readNormalBreakups(input, read.records.data(), read.count.records));
  EXPECT_EQ(read.records.back().scripCode, 0);
  read.records.pop_back();
  return read;
}

struct KestoFile {
  BreakupCount count = {};
  std::vector<KestoBreakup> records;
};

KestoFile readKesto(const std::string& bytes) {
  const TextFile file(bytes);
  KestoFile read;
  Input& input = file.open();
  read.count = countBreakups(input);
  read.records.resize(read.count.records + 1);
  EXPECT_TRUE(inputRewind(input));
  EXPECT_TRUE(readKestoBreakups(input, read.records.data(), read.count.records));
  EXPECT_EQ(read.records.back().scripCode, 0);
  read.records.pop_back();
  return read;
}

template <class Record>
std::vector<std::int32_t> codesOf(const std::vector<Record>& records) {
  std::vector<std::int32_t> codes;
  for (const Record& record : records) codes.push_back(record.scripCode);
  return codes;
}

std::vector<std::int32_t> figuresOf(const NormalBreakup& r) {
  std::vector<std::int32_t> figures = {r.scripCode};
  for (const NormalClientBlock& c : r.clients) {
    figures.insert(figures.end(), {c.clientType, c.pd, c.sd, c.pc, c.sc, c.vb, c.sb});
  }
  figures.insert(figures.end(), {r.totalPD, r.totalSD, r.totalPC, r.totalSC, r.totalVB, r.totalSB, r.netPosition,
                                 r.grossPurchase, r.grossSell, r.grossBP, r.grossBS});
  return figures;
}

std::vector<std::int32_t> figuresOf(const KestoBreakup& r) {
  std::vector<std::int32_t> figures = {r.scripCode};
  for (const KestoClientBlock& c : r.clients) figures.insert(figures.end(), {c.clientType, c.f1, c.f2, c.f3, c.f4});
  figures.insert(figures.end(), {r.totalGP, r.totalLM, r.totalGS, r.totalBM, r.totalLF, r.totalBF, r.netPosition, r.spare,
                                 r.grossLend, r.grossBorrow});
  return figures;
}

// The numbers first, first + 1, ... as fields.
std::string fields(int first, int count) {
  std::string text;
  for (int i = 0; i < count; ++i) text += std::to_string(first + i) + "|";
  return text;
}

std::vector<std::int32_t> upTo(std::int32_t last, std::size_t size) {
  std::vector<std::int32_t> numbers(size);
  for (std::int32_t i = 1; i <= last; ++i) numbers[static_cast<std::size_t>(i - 1)] = i;
  return numbers;
}

TEST(BreakupFile, anEmptyFileHasNoRecord) { EXPECT_EQ(readNormal("").count.records, 0u); }

TEST(BreakupFile, thereIsNoHeaderLine) { EXPECT_EQ(readNormal("1|\n2|\n").count.records, 2u); }

TEST(BreakupFile, aNormalRecordHasFortyFields) {
  const std::string tabs = "\t\t     ";
  const NormalFile file = readNormal(fields(1, 8) + tabs + fields(9, 7) + tabs + fields(16, 7) + tabs + fields(23, 7) + "\t\t" +
                                     fields(30, 10) + "40\n");
  ASSERT_EQ(file.records.size(), 1u);
  EXPECT_EQ(figuresOf(file.records[0]), upTo(40, 40));
}

TEST(BreakupFile, aKestoRecordHasTwentyOneFields) {
  const std::string tabs = "\t\t\t\t\t\t     ";
  const KestoFile file = readKesto(fields(1, 6) + tabs + fields(7, 5) + tabs + fields(12, 10) + "\n");
  ASSERT_EQ(file.records.size(), 1u);
  EXPECT_EQ(figuresOf(file.records[0]), upTo(21, 21));
}

TEST(BreakupFile, anyWhiteSpaceOrNoneMayStandBetweenTheGroups) {
  for (const std::string blanks : {"", " ", "\t", "  \t  \t  "}) {
    SCOPED_TRACE(blanks.size());
    EXPECT_EQ(figuresOf(readNormal(fields(1, 8) + blanks + fields(9, 7) + blanks + fields(16, 7) + blanks + fields(23, 7) +
                                   blanks + fields(30, 11) + "\n")
                            .records[0]),
              upTo(40, 40));
    EXPECT_EQ(figuresOf(readKesto(fields(1, 6) + blanks + fields(7, 5) + blanks + fields(12, 10) + "\n").records[0]),
              upTo(21, 21));
  }
}

TEST(BreakupFile, numbersHaveTheirSignAndStopAtTheLimitsOfTheirWidth) {
  const NormalFile file = readNormal("-7|-2|-2147483648|2147483647|-9999999999|9999999999|+5|\n1|70000|\n");
  EXPECT_EQ(file.records[0].scripCode, -7);
  EXPECT_EQ(file.records[0].clients[0].clientType, -2);
  EXPECT_EQ(file.records[0].clients[0].pd, -2147483647 - 1);
  EXPECT_EQ(file.records[0].clients[0].sd, 2147483647);
  EXPECT_EQ(file.records[0].clients[0].pc, -2147483647 - 1);
  EXPECT_EQ(file.records[0].clients[0].sc, 2147483647);
  EXPECT_EQ(file.records[0].clients[0].vb, 5);
  EXPECT_EQ(file.records[1].clients[0].clientType, 32767);
}

TEST(BreakupFile, aLineWithFewerFieldsLeavesTheRestZero) {
  for (int given = 0; given <= 40; ++given) {
    SCOPED_TRACE(given);
    EXPECT_EQ(figuresOf(readNormal(fields(1, given) + "\n").records[0]), upTo(given, 40));
  }
  for (int given = 0; given <= 21; ++given) {
    SCOPED_TRACE(given);
    EXPECT_EQ(figuresOf(readKesto(fields(1, given) + "\n").records[0]), upTo(given, 21));
  }
}

TEST(BreakupFile, theScanStopsAtTheFirstFieldThatFails) {
  EXPECT_EQ(figuresOf(readNormal("1|2|3||5|6|\n").records[0]), upTo(3, 40));
  EXPECT_EQ(figuresOf(readNormal("1|2|3|x|5|6|\n").records[0]), upTo(3, 40));
  EXPECT_EQ(figuresOf(readKesto("1|2|3 |4|5|\n").records[0]), upTo(3, 21));
}

TEST(BreakupFile, aBlankLineIsARecordOfZeros) {
  EXPECT_EQ(codesOf(readNormal("1|\r\n\r\n3|\r\n").records), (std::vector<std::int32_t>{1, 0, 3}));
  EXPECT_EQ(codesOf(readKesto("1|\n\n3|").records), (std::vector<std::int32_t>{1, 0, 3}));
}

TEST(BreakupFile, aLineOf199CharactersIsOneRecordAndALongerOneIsTwo) {
  const auto line = [](std::size_t size) {
    std::string text = "7|1|22|";
    text.resize(size, ' ');
    return text;
  };
  EXPECT_EQ(codesOf(readNormal(line(198) + "\n8|\n").records), (std::vector<std::int32_t>{7, 8}));
  // The line end is a character of the line: it becomes a piece of its own.
  EXPECT_EQ(codesOf(readNormal(line(199) + "\n8|\n").records), (std::vector<std::int32_t>{7, 0, 8}));
  EXPECT_EQ(codesOf(readKesto(line(199) + "66|\n8|\n").records), (std::vector<std::int32_t>{7, 66, 8}));
  EXPECT_EQ(codesOf(readKesto(line(199)).records), (std::vector<std::int32_t>{7}));
}

TEST(BreakupFile, aFileThatGrewSinceItWasCountedFillsNoMoreThanTheBlock) {
  const TextFile file("1|\n2|\n3|\n");
  std::vector<NormalBreakup> normal(3);
  EXPECT_TRUE(readNormalBreakups(file.open(), normal.data(), 2));
  EXPECT_EQ(codesOf(normal), (std::vector<std::int32_t>{1, 2, 0}));
  std::vector<KestoBreakup> kesto(3);
  EXPECT_TRUE(readKestoBreakups(file.open(), kesto.data(), 2));
  EXPECT_EQ(codesOf(kesto), (std::vector<std::int32_t>{1, 2, 0}));
}

TEST(BreakupFile, aFileThatShrankSinceItWasCountedLeavesRecordsZero) {
  const TextFile file("1|\n");
  std::vector<NormalBreakup> normal(3);
  EXPECT_TRUE(readNormalBreakups(file.open(), normal.data(), 3));
  EXPECT_EQ(codesOf(normal), (std::vector<std::int32_t>{1, 0, 0}));
}

TEST(BreakupFile, aReadThatFailsLeavesItsRecordZeroAndTheRestIsRead) {
  const TextFile file("1|\n2|\n3|\n");
  std::vector<NormalBreakup> normal(3);
  faultsArm(Fault::read, 2, false);
  EXPECT_FALSE(readNormalBreakups(file.open(), normal.data(), 3));
  EXPECT_EQ(codesOf(normal), (std::vector<std::int32_t>{1, 0, 3}));
  std::vector<KestoBreakup> kesto(4);
  faultsArm(Fault::read, 4, false);  // the read that would find the end
  EXPECT_FALSE(readKestoBreakups(file.open(), kesto.data(), 4));
  EXPECT_EQ(codesOf(kesto), (std::vector<std::int32_t>{1, 2, 3, 0}));
  faultsReset();
}

TEST(BreakupFile, aBlankLineThatCannotBeReadIsNotTheEnd) {
  const TextFile file("1|\n\n3|\n");
  std::vector<NormalBreakup> normal(3);
  faultsArm(Fault::read, 2, false);
  EXPECT_FALSE(readNormalBreakups(file.open(), normal.data(), 3));
  EXPECT_EQ(codesOf(normal), (std::vector<std::int32_t>{1, 0, 3}));
  faultsReset();
}

TEST(BreakupFile, aReadThatFailsEndsTheCount) {
  const TextFile file("1|\n2|\n3|\n");
  faultsArm(Fault::read, 3, false);
  const BreakupCount count = countBreakups(file.open());
  EXPECT_EQ(count.records, 2u);
  EXPECT_TRUE(count.failed);
  faultsReset();
  EXPECT_FALSE(countBreakups(file.open()).failed);
}

}  // namespace
}  // namespace quillon
