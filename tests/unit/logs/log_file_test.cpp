// Counting and reading the records of a log.
#include "logs/log_file.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "desktop/scripted/faults.h"

namespace quillon::test {
namespace {

// A file of this test alone, gone with it.
struct TestFile {
  std::filesystem::path path;
  explicit TestFile(const std::string& bytes) {
    const testing::TestInfo* info = testing::UnitTest::GetInstance()->current_test_info();
    path = std::filesystem::temp_directory_path() / (std::string("logs_") + info->name() + ".log");
    std::ofstream(path, std::ios::binary) << bytes;
  }
  ~TestFile() { std::filesystem::remove(path); }
};

struct Faults {
  Faults() { faultsReset(); }
  ~Faults() { faultsReset(); }
};

TEST(LogRecordCount, isTheWholeRecordsBehindTheHeader) {
  struct Case {
    std::size_t size, count112, count126, count136, count142;
  };
  const Case cases[] = {
      {0, 0, 0, 0, 0},        {23, 0, 0, 0, 0},       {24, 0, 0, 0, 0},         {24 + 111, 0, 0, 0, 0}, {24 + 112, 1, 0, 0, 0},
      {24 + 125, 1, 0, 0, 0}, {24 + 126, 1, 1, 0, 0}, {24 + 135, 1, 1, 0, 0},   {24 + 136, 1, 1, 1, 0}, {24 + 142, 1, 1, 1, 1},
      {24 + 283, 2, 2, 2, 1}, {24 + 284, 2, 2, 2, 2}, {24 + 1136, 10, 9, 8, 8},
  };
  for (const Case& c : cases) {
    const TestFile file(std::string(c.size, 'x'));
    Input* input = inputOpen(file.path.string(), InputKind::binary);
    ASSERT_TRUE(input);
    const std::size_t sizes[] = {112, 126, 136, 142}, counts[] = {c.count112, c.count126, c.count136, c.count142};
    for (int i = 0; i < 4; ++i) {
      std::size_t count = 99;
      EXPECT_TRUE(countLogRecords(*input, sizes[i], count));
      EXPECT_EQ(count, counts[i]) << c.size << " bytes, records of " << sizes[i];
    }
    inputClose(input);
  }
}

TEST(LogRecordCount, leavesTheInputAtItsStart) {
  const TestFile file("header and more");
  Input* input = inputOpen(file.path.string(), InputKind::binary);
  ASSERT_TRUE(input);
  std::size_t count = 0;
  EXPECT_TRUE(countLogRecords(*input, 112, count));
  char bytes[6];
  EXPECT_TRUE(inputRead(*input, bytes, sizeof bytes));
  EXPECT_EQ(std::string(bytes, sizeof bytes), "header");
  inputClose(input);
}

TEST(LogRecordCount, failsWhereTheSizeCannotBeHad) {
  const Faults faults;
  const TestFile file(std::string(300, 'x'));
  struct Case {
    Fault fault;
    std::size_t number;
  };
  for (const Case& c : {Case{Fault::seek, 1}, Case{Fault::tell, 1}, Case{Fault::seek, 2}}) {
    Input* input = inputOpen(file.path.string(), InputKind::binary);
    ASSERT_TRUE(input);
    std::size_t count = 0;
    faultsArm(c.fault, c.number, false);
    EXPECT_FALSE(countLogRecords(*input, 112, count)) << static_cast<int>(c.fault) << " " << c.number;
    inputClose(input);
  }
}

int failures;
void countFailure() { ++failures; }

// A file of a header and the records "aa", "bb", "cc", the read of this number failing; 0: none.
struct Reading {
  TradeHeader header;
  std::string records;
  int failures;
};
Reading readWith(std::size_t failingRead) {
  const Faults faults;
  const TestFile file(std::string(24, 'h') + "aabbcc");
  Input* input = inputOpen(file.path.string(), InputKind::binary);
  EXPECT_TRUE(input);
  failures = 0;
  if (failingRead > 0) faultsArm(Fault::read, failingRead, false);
  Reading reading = {{}, std::string(8, '\0'), 0};
  reading.header.fileKind = 'N';
  readLogRecords(*input, reading.header, 2, reading.records.data(), 3, countFailure);
  reading.failures = failures;
  inputClose(input);
  return reading;
}

TEST(LogRecords, areReadWithTheirHeader) {
  const Reading reading = readWith(0);
  EXPECT_EQ(reading.header.fileKind, 'h');
  EXPECT_EQ(reading.records, std::string("aabbcc\0\0", 8));
  EXPECT_EQ(reading.failures, 0);
}

TEST(LogRecords, failedReadLeavesItsRecordZeroAndTheRestIsRead) {
  const std::string expected[] = {std::string("aabbcc\0\0", 8), std::string("\0\0bbcc\0\0", 8), std::string("aa\0\0cc\0\0", 8),
                                  std::string("aabb\0\0\0\0", 8)};
  for (std::size_t failing = 1; failing <= 4; ++failing) {
    const Reading reading = readWith(failing);
    EXPECT_EQ(reading.header.fileKind, failing == 1 ? 'N' : 'h') << "a header that cannot be read again stays";
    EXPECT_EQ(reading.records, expected[failing - 1]) << failing;
    EXPECT_EQ(reading.failures, 1) << failing;
  }
}

TEST(LogRecords, everyRecordThatIsMissingIsTold) {
  const TestFile file(std::string(24, 'h') + "aa");
  Input* input = inputOpen(file.path.string(), InputKind::binary);
  ASSERT_TRUE(input);
  failures = 0;
  TradeHeader header = {};
  std::string records(8, '\0');
  readLogRecords(*input, header, 2, records.data(), 3, countFailure);
  EXPECT_EQ(failures, 2);
  EXPECT_EQ(records, std::string("aa\0\0\0\0\0\0", 8));
  inputClose(input);
}

}  // namespace
}  // namespace quillon::test
