// The bytes of a broker query file: layouts, count, reading and the keys of the sorts.
#include "brokerquery/broker_file.h"

#include <gtest/gtest.h>

#include <cstring>
#include <filesystem>
#include <fstream>

#include "brokerquery/records.h"
#include "desktop/scripted/faults.h"

namespace quillon::test {
namespace {

// A file of this test alone, gone with it.
struct TestFile {
  std::filesystem::path path;
  explicit TestFile(const std::string& bytes) {
    const testing::TestInfo* info = testing::UnitTest::GetInstance()->current_test_info();
    path = std::filesystem::temp_directory_path() / (std::string("brokerquery_") + info->name() + ".BIN");
    std::ofstream(path, std::ios::binary) << bytes;
  }
  ~TestFile() { std::filesystem::remove(path); }
};

struct Faults {
  Faults() { faultsReset(); }
  ~Faults() { faultsReset(); }
};

TEST(BrokerLayoutChoice, followsTheFirstLetterAndTheRecordSize) {
  EXPECT_EQ(chooseBrokerLayout('N', true), BrokerLayout::rec132);
  EXPECT_EQ(chooseBrokerLayout('V', false), BrokerLayout::rec160);
  EXPECT_EQ(chooseBrokerLayout('B', true), BrokerLayout::kesto);
  EXPECT_EQ(chooseBrokerLayout('B', false), BrokerLayout::kesto);
}

// Deliberate: the name of a lending file decides, not its letter.
TEST(BrokerLayoutChoice, lendingFileOfLetterNHas160ByteRecords) {
  EXPECT_EQ(chooseBrokerLayout('N', false), BrokerLayout::rec160);
}

TEST(BrokerLayoutChoice, everyOtherLetterIsRefused) {
  for (int letter = 0; letter < 256; ++letter) {
    const char kind = static_cast<char>(letter);
    const bool known = kind == 'N' || kind == 'V' || kind == 'B';
    EXPECT_EQ(chooseBrokerLayout(kind, true).has_value(), known) << letter;
    EXPECT_EQ(chooseBrokerLayout(kind, false).has_value(), known) << letter;
  }
}

TEST(BrokerLegs, tellSideTermAndConvertedLetter) {
  struct Case {
    char legCode;
    KestoSide side;
    char term, convertedSide;
  };
  for (const Case& c : {Case{'S', KestoSide::lend, 'F', 'B'}, Case{'T', KestoSide::lend, 'M', 'B'},
                        Case{'V', KestoSide::borrow, 'F', 'S'}, Case{'M', KestoSide::borrow, 'M', 'S'}}) {
    const KestoLeg* leg = findKestoLeg(c.legCode);
    ASSERT_TRUE(leg) << c.legCode;
    EXPECT_EQ(leg->side, c.side) << c.legCode;
    EXPECT_EQ(leg->term, c.term) << c.legCode;
    EXPECT_EQ(leg->convertedSide, c.convertedSide) << c.legCode;
  }
  EXPECT_FALSE(findKestoLeg('B'));
  EXPECT_FALSE(findKestoLeg('\0'));
}

TEST(BrokerRecordCount, isTheWholeRecordsBehindTheHeader) {
  struct Case {
    std::size_t size;
    std::size_t count132, count160, countKesto;
  };
  const Case cases[] = {
      {0, 0, 0, 0},
      {23, 0, 0, 0},
      {24, 0, 0, 0},
      {24 + 131, 0, 0, 0},
      {24 + 132, 1, 0, 0},
      {24 + 132 + 5, 1, 0, 0},
      {24 + 142, 1, 0, 1},
      {24 + 160, 1, 1, 1},
      {24 + 2 * 160 + 159, 3, 2, 3},
      {24 + 132 * 160, 160, 132, 148},
  };
  for (const Case& c : cases) {
    const TestFile file(std::string(c.size, 'x'));
    Input* input = inputOpen(file.path.string(), InputKind::binary);
    ASSERT_TRUE(input);
    std::size_t count = 99;
    EXPECT_TRUE(countBrokerRecords(*input, BrokerLayout::rec132, count));
    EXPECT_EQ(count, c.count132) << c.size;
    EXPECT_TRUE(countBrokerRecords(*input, BrokerLayout::rec160, count));
    EXPECT_EQ(count, c.count160) << c.size;
    EXPECT_TRUE(countBrokerRecords(*input, BrokerLayout::kesto, count));
    EXPECT_EQ(count, c.countKesto) << c.size;
    inputClose(input);
  }
}

TEST(BrokerRecordCount, failsWhereTheSizeCannotBeHad) {
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
    EXPECT_FALSE(countBrokerRecords(*input, BrokerLayout::rec132, count)) << static_cast<int>(c.fault) << " " << c.number;
    inputClose(input);
  }
}

int failures;
bool carryOn() {
  ++failures;
  return true;
}
bool giveUp() {
  ++failures;
  return false;
}

// A header and four records whose first number is 1, 2, 3, 4.
std::string fourRecords() {
  std::string bytes(sizeof(TradeHeader), 'h');
  for (std::int32_t i = 1; i <= 4; ++i) {
    BrokerRec132 record = {};
    record.leadingNumber = i;
    bytes.append(reinterpret_cast<const char*>(&record), sizeof record);
  }
  return bytes;
}

std::vector<std::int32_t> readNumbers(const TestFile& file, std::size_t failing, bool (*readFailed)(), bool& whole) {
  Input* input = inputOpen(file.path.string(), InputKind::binary);
  EXPECT_TRUE(input);
  std::vector<BrokerRec132> records(5);
  failures = 0;
  if (failing) faultsArm(Fault::read, failing, false);
  whole = readBrokerRecords(*input, BrokerLayout::rec132, records.data(), 4, readFailed);
  inputClose(input);
  std::vector<std::int32_t> numbers;
  for (const BrokerRec132& record : records) numbers.push_back(record.leadingNumber);
  return numbers;
}

TEST(BrokerRecordsRead, fillTheBlockAndLeaveTheLastRecordZero) {
  const Faults faults;
  const TestFile file(fourRecords());
  bool whole = false;
  EXPECT_EQ(readNumbers(file, 0, carryOn, whole), (std::vector<std::int32_t>{1, 2, 3, 4, 0}));
  EXPECT_TRUE(whole);
  EXPECT_EQ(failures, 0);
}

// Read 1 is the header.
TEST(BrokerRecordsRead, recordThatComesBackShortStaysZeroAndTheNextFollows) {
  const Faults faults;
  const TestFile file(fourRecords());
  const std::vector<std::vector<std::int32_t>> expected = {
      {1, 2, 3, 4, 0}, {0, 2, 3, 4, 0}, {1, 0, 3, 4, 0}, {1, 2, 0, 4, 0}, {1, 2, 3, 0, 0}};
  for (std::size_t failing = 1; failing <= expected.size(); ++failing) {
    bool whole = false;
    EXPECT_EQ(readNumbers(file, failing, carryOn, whole), expected[failing - 1]) << failing;
    EXPECT_TRUE(whole);
    EXPECT_EQ(failures, 1) << failing;
  }
}

TEST(BrokerRecordsRead, endAtAShortRecordWhereTheCallerGivesUp) {
  const Faults faults;
  const TestFile file(fourRecords());
  bool whole = true;
  EXPECT_EQ(readNumbers(file, 3, giveUp, whole), (std::vector<std::int32_t>{1, 0, 0, 0, 0}));
  EXPECT_FALSE(whole);
  EXPECT_EQ(failures, 1);
}

TEST(BrokerRecordsRead, everyRecordBehindTheEndOfTheFileIsTold) {
  const TestFile file(fourRecords().substr(0, 24 + 132 * 2 + 10));
  bool whole = false;
  EXPECT_EQ(readNumbers(file, 0, carryOn, whole), (std::vector<std::int32_t>{1, 2, 0, 0, 0}));
  EXPECT_TRUE(whole);
  EXPECT_EQ(failures, 2);
}

struct SortCase {
  BrokerSort sort;
  const char* name;
  std::vector<std::uint32_t> order;
};

// Positions 0 and 4 are equal in every key; others differ in one of them.
const std::vector<SortCase> sortCases = {
    {BrokerSort::time, "time", {2, 5, 0, 4, 6, 1, 3}},       {BrokerSort::scripCode, "scripCode", {5, 0, 4, 6, 2, 1, 3}},
    {BrokerSort::scripId, "scripId", {6, 1, 5, 0, 4, 2, 3}}, {BrokerSort::clientId, "clientId", {5, 1, 6, 0, 4, 2, 3}},
    {BrokerSort::trader, "trader", {5, 6, 0, 4, 2, 1, 3}},
};

// traderNo, scripCode, scripId, time, clientId
struct Keys {
  std::int32_t traderNo, scripCode;
  const char* scripId;
  const char* tradeTime;
  const char* clientId;
};
constexpr Keys keys[] = {
    {5, 500, "MAST", "10:00:00", "C2"},  {9, 900, "Lath", "11:00:00", "C1"}, {5, 500, "NAVE", "09:59:59", "C3"},
    {70, 1000, "mast", "9:00:00", "c1"}, {5, 500, "MAST", "10:00:00", "C2"}, {-1, -7, "MAST", "10:00:00", "A9"},
    {5, 500, "AXLE", "10:00:00", "C2"},
};

template <typename Record>
void expectSorts() {
  std::vector<Record> records(std::size(keys) + 1);
  for (std::size_t i = 0; i < std::size(keys); ++i) {
    records[i].traderNo = keys[i].traderNo;
    records[i].scripCode = keys[i].scripCode;
    fieldSet(records[i].scripId, keys[i].scripId);
    fieldSet(records[i].tradeTime, keys[i].tradeTime);
    fieldSet(records[i].clientId, keys[i].clientId);
  }
  for (const SortCase& c : sortCases) {
    const BrokerSortKeys sortKeys = brokerSortKeys(inFileOrder(records).layout, c.sort);
    EXPECT_EQ(orderOf(records, sortKeys.first, sortKeys.second), c.order) << c.name;
  }
}

TEST(BrokerSorts, ascendBySignedNumbersAndBytesWithASecondKeyAndKeepTheFilesOrder) {
  expectSorts<BrokerRec132>();
  expectSorts<BrokerRec160>();
  expectSorts<KestoBrokerRec>();
}

}  // namespace
}  // namespace quillon::test
