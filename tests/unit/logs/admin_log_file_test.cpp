// The bytes of an admin log: counts against what the file holds, reading, order and texts.
#include "logs/admin_log_file.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <limits>

#include "desktop/scripted/faults.h"
#include "logs/admin_records.h"

namespace quillon::test {
namespace {

constexpr std::int32_t most = std::numeric_limits<std::int32_t>::max(), least = std::numeric_limits<std::int32_t>::min();

struct AdminFileTest : testing::Test {
  Input* input = nullptr;
  static constexpr char name[] = "Ad050409.adl";

  void SetUp() override { faultsReset(); }
  void TearDown() override {
    faultsReset();
    inputCloseAll();
    std::filesystem::remove(name);
  }
  Input& open(const std::string& bytes) {
    std::ofstream(name, std::ios::binary) << bytes;
    input = inputOpen(name, InputKind::binary);
    EXPECT_TRUE(input);
    return *input;
  }
};

AdminHeader headerOf(std::int32_t traders, std::int32_t scrips, std::int32_t groups, std::int32_t activities) {
  AdminHeader header = {};
  header.traderLimitCount = traders;
  header.scripLimitCount = scrips;
  header.groupLimitCount = groups;
  header.activityCount = activities;
  return header;
}

std::string bytesOf(const AdminHeader& header) { return {reinterpret_cast<const char*>(&header), sizeof header}; }

TEST(AdminCounts, standInTheOrderOfTheSections) {
  const AdminHeader header = headerOf(1, 20, 300, 4000);
  EXPECT_EQ(adminCount(header, AdminSection::traderLimits), 1);
  EXPECT_EQ(adminCount(header, AdminSection::scripLimits), 20);
  EXPECT_EQ(adminCount(header, AdminSection::groupLimits), 300);
  EXPECT_EQ(adminCount(header, AdminSection::activities), 4000);
  EXPECT_EQ(adminTotal(header), 4321);
}

TEST(AdminCounts, totalIsNotCutTo32Bits) {
  EXPECT_EQ(adminTotal(headerOf(most, most, most, most)), 4 * std::int64_t{most});
  EXPECT_EQ(adminTotal(headerOf(least, least, least, least)), 4 * std::int64_t{least});
  EXPECT_EQ(adminTotal(headerOf(most, 1, least, 0)), 0);
}

TEST(AdminRecordsHeld, areNeverMoreThanTheFileHas) {
  struct Case {
    AdminHeader header;
    std::int64_t fileSize;
    std::size_t held[4];
  };
  const Case cases[] = {
      {headerOf(2, 3, 1, 2), 36 + 244 + 264 + 84 + 200, {2, 3, 1, 2}},
      {headerOf(2, 3, 1, 2), 36 + 244 + 264 + 84 + 5000, {2, 3, 1, 2}},
      {headerOf(2, 3, 1, 2), 36 + 244 + 264 + 84 + 199, {2, 3, 1, 1}},
      {headerOf(2, 3, 1, 2), 36 + 244 + 264 + 84, {2, 3, 1, 0}},
      {headerOf(2, 3, 1, 2), 36 + 244 + 264 + 83, {2, 3, 0, 0}},
      {headerOf(2, 3, 1, 2), 36 + 244 + 87, {2, 0, 0, 0}},
      {headerOf(2, 3, 1, 2), 36 + 243, {1, 0, 0, 0}},
      {headerOf(2, 3, 1, 2), 36, {0, 0, 0, 0}},
      {headerOf(2, 3, 1, 2), 0, {0, 0, 0, 0}},
      {headerOf(0, 0, 0, 0), 5000, {0, 0, 0, 0}},
      {headerOf(0, 3, 0, 2), 36 + 264 + 200, {0, 3, 0, 2}},
      {headerOf(most, most, most, most), 36 + 122 * 5, {5, 0, 0, 0}},
      {headerOf(least, 2, 1, 1), 5000, {0, 0, 0, 0}},
      {headerOf(2, -1, 1, 1), 5000, {2, 0, 0, 0}},
      {headerOf(2, 1, 1, -1), 5000, {2, 1, 1, 0}},
  };
  for (const Case& c : cases) {
    for (std::size_t i = 0; i < adminSectionCount; ++i) {
      EXPECT_EQ(adminRecordsHeld(c.header, adminSections[i], c.fileSize), c.held[i])
          << "case " << &c - cases << " section " << i;
    }
  }
}

TEST_F(AdminFileTest, isMeasuredWithItsHeaderAndLeftAtItsStart) {
  Input& file = open(bytesOf(headerOf(7, 0, 0, 0)) + "tail");
  std::int64_t size = 0;
  ASSERT_TRUE(measureAdminLog(file, size));
  EXPECT_EQ(size, 40);
  AdminHeader header;
  ASSERT_TRUE(inputRead(file, &header, sizeof header));
  EXPECT_EQ(header.traderLimitCount, 7);
}

TEST_F(AdminFileTest, fail_sizeCannotBeHad) {
  struct Case {
    Fault fault;
    std::size_t number;
  };
  for (const Case& c : {Case{Fault::seek, 1}, Case{Fault::tell, 1}, Case{Fault::seek, 2}}) {
    faultsReset();
    Input& file = open(bytesOf(headerOf(1, 0, 0, 0)));
    faultsArm(c.fault, c.number, false);
    std::int64_t size = 0;
    EXPECT_FALSE(measureAdminLog(file, size)) << static_cast<int>(c.fault) << " " << c.number;
  }
}

// Two records of trader limits, three of scrip limits, none of groups, four activities, numbered through.
struct Numbered {
  AdminHeader header = headerOf(2, 3, 0, 4);
  std::string bytes = bytesOf(header);

  Numbered() {
    const auto add = [this](auto record, std::int32_t number) {
      std::memcpy(&record, &number, sizeof number);
      bytes.append(reinterpret_cast<const char*>(&record), sizeof record);
    };
    for (const std::int32_t number : {11, 12}) add(TraderLimitRec{}, number);
    for (const std::int32_t number : {21, 22, 23}) add(ScripLimitRec{}, number);
    for (const std::int32_t number : {41, 42, 43, 44}) add(ActivityRec{}, number);
  }
};

// The numbers of the records that came into the block, and of the zero record behind them.
std::vector<std::int32_t> numbersRead(Input& file, const AdminHeader& header, AdminSection section, std::size_t count) {
  const std::size_t size = adminRecordSize(section);
  std::string block((count + 1) * size, '\0');
  const std::size_t read = readAdminSection(file, header, section, block.data(), count);
  EXPECT_LE(read, count);
  std::vector<std::int32_t> numbers(read + 1);
  for (std::size_t i = 0; i <= read; ++i) std::memcpy(&numbers[i], block.data() + i * size, sizeof numbers[i]);
  return numbers;
}

TEST_F(AdminFileTest, sectionsAreReadWhereTheyStandInAnyOrder) {
  const Numbered log;
  Input& file = open(log.bytes);
  const auto numbers = [&](AdminSection section, std::size_t count) { return numbersRead(file, log.header, section, count); };
  EXPECT_EQ(numbers(AdminSection::activities, 4), (std::vector<std::int32_t>{41, 42, 43, 44, 0}));
  EXPECT_EQ(numbers(AdminSection::traderLimits, 2), (std::vector<std::int32_t>{11, 12, 0}));
  EXPECT_EQ(numbers(AdminSection::groupLimits, 0), (std::vector<std::int32_t>{0}));
  EXPECT_EQ(numbers(AdminSection::scripLimits, 3), (std::vector<std::int32_t>{21, 22, 23, 0}));
}

TEST_F(AdminFileTest, fail_recordThatCannotBeReadIsLeftOut) {
  const Numbered log;
  const std::vector<std::vector<std::int32_t>> expected = {
      {42, 43, 44, 0}, {41, 43, 44, 0}, {41, 42, 44, 0}, {41, 42, 43, 0}, {41, 42, 43, 44, 0}};
  for (std::size_t failing = 1; failing <= expected.size(); ++failing) {
    faultsReset();
    Input& file = open(log.bytes);
    faultsArm(Fault::read, failing, false);
    EXPECT_EQ(numbersRead(file, log.header, AdminSection::activities, 4), expected[failing - 1]) << failing;
  }
}

TEST_F(AdminFileTest, fail_fileThatEndsEarlierThanItDidGivesWhatIsThere) {
  const Numbered log;
  Input& file = open(log.bytes.substr(0, log.bytes.size() - 150));
  EXPECT_EQ(numbersRead(file, log.header, AdminSection::activities, 4), (std::vector<std::int32_t>{41, 42, 0}));
}

TEST_F(AdminFileTest, fail_sectionThatCannotBeReachedGivesNoRecords) {
  const Numbered log;
  Input& file = open(log.bytes);
  faultsArm(Fault::seek, 1, false);
  EXPECT_EQ(numbersRead(file, log.header, AdminSection::scripLimits, 3), (std::vector<std::int32_t>{0}));
  EXPECT_EQ(numbersRead(file, headerOf(most, 1, 1, 1), AdminSection::activities, 1), (std::vector<std::int32_t>{0}));
  EXPECT_EQ(numbersRead(file, headerOf(-1, 1, 1, 1), AdminSection::scripLimits, 1), (std::vector<std::int32_t>{0}));
}

// trader, hour, minute, second
struct Moment {
  std::int32_t trader;
  TimeOfDay time;
};
constexpr Moment moments[] = {
    {5, {10, 0, 0}}, {5, {9, 59, 59}}, {70, {8, 0, 0}}, {-1, {15, 0, 0}},   {5, {10, 0, 0}},
    {5, {10, 0, 1}}, {5, {0, 200, 0}}, {5, {2, 0, 0}},  {least, {0, 0, 0}}, {most, {0, 0, 0}},
};
// Minute 200 of hour 0 reads as 020000 000 without the zeros: 20000, the same number as 02:00:00; so the file's order decides.
const std::vector<std::uint32_t> byTrader = {8, 3, 6, 7, 1, 0, 4, 5, 2, 9};

std::vector<std::uint32_t> orderOf(AdminSection section, const void* records, std::size_t count, AdminSort sort) {
  const RecordOrder order = adminOrder(section, records, count, sort);
  EXPECT_TRUE(order);
  return {order.positions().begin(), order.positions().end()};
}

template <class Record>
void expectOrders(AdminSection section) {
  std::vector<Record> records(std::size(moments));
  for (std::size_t i = 0; i < records.size(); ++i) {
    std::memcpy(&records[i], &moments[i].trader, sizeof moments[i].trader);
    setTime(records[i], moments[i].time);
  }
  EXPECT_EQ(orderOf(section, records.data(), records.size(), AdminSort::trader), byTrader);
  EXPECT_EQ(orderOf(section, records.data(), records.size(), AdminSort::time),
            (std::vector<std::uint32_t>{0, 1, 2, 3, 4, 5, 6, 7, 8, 9}));
}

TEST(AdminOrder, ofTradersIsBySignedNumberThenTimeAndByTimeTheFilesOwn) {
  expectOrders<TraderLimitRec>(AdminSection::traderLimits);
  expectOrders<ScripLimitRec>(AdminSection::scripLimits);
  expectOrders<GroupLimitRec>(AdminSection::groupLimits);
  expectOrders<ActivityRec>(AdminSection::activities);
}

TEST(AdminOrder, readsTheTimesDigitsAsOneNumber) {
  const TimeOfDay times[] = {{0, 0, 1},     {0, 0, 59},    {0, 1, 0},     {0, 59, 59},    {1, 0, 0},
                             {9, 59, 59},   {10, 0, 0},    {23, 59, 59},  {23, 59, 100},  {23, 59, 255},
                             {23, 255, 99}, {255, 0, 100}, {254, 255, 0}, {254, 255, 255}};
  // 2359100, 2359255, 2325599, 25500100, 25425500, 254255255: a third digit moves those before it to the left.
  std::vector<ActivityRec> records(std::size(times));
  for (std::size_t i = 0; i < records.size(); ++i) setTime(records[i], times[i]);
  const std::vector<std::uint32_t> order = orderOf(AdminSection::activities, records.data(), records.size(), AdminSort::trader);
  EXPECT_EQ(order, (std::vector<std::uint32_t>{0, 1, 2, 3, 4, 5, 6, 7, 10, 8, 9, 12, 11, 13}));
}

TEST(AdminOrder, ofALargeLogKeepsEqualRecordsInTheFilesOrder) {
  std::vector<ActivityRec> records(5000);
  for (std::size_t i = 0; i < records.size(); ++i) records[i].traderId = static_cast<std::int32_t>(i * 7919 % 13);
  const std::vector<std::uint32_t> order = orderOf(AdminSection::activities, records.data(), records.size(), AdminSort::trader);
  for (std::size_t i = 1; i < order.size(); ++i) {
    const std::int32_t before = records[order[i - 1]].traderId, here = records[order[i]].traderId;
    ASSERT_LE(before, here);
    if (before == here) {
      ASSERT_LT(order[i - 1], order[i]);
    }
  }
}

TEST(AdminOrder, fail_withoutMemoryThereIsNone) {
  const ActivityRec records[2] = {};
  faultsReset();
  faultsArm(Fault::order, 1, false);
  EXPECT_FALSE(adminOrder(AdminSection::activities, records, 1, AdminSort::time));
  faultsReset();
}

TEST(AdminOpLetter, isToldForFifteenCodesAndIsANulForEveryOther) {
  std::string letters;
  for (int code = -32768; code <= 32767; ++code) {
    const char letter = adminOpLetter(static_cast<std::int16_t>(code));
    if (letter) letters += std::to_string(code) + letter + " ";
  }
  EXPECT_EQ(letters, "1U 2U 9A 10U 11D 12U 13U 14U 15U 16W 17W 18W 19W 20W 21W ");
}

TEST(AdminMessage, endsAtItsFirstCrLfOrNulOrWithItsField) {
  TextField<48> field;
  const auto message = [&field](std::string_view text) {
    setText(field, text);
    return adminMessage(field);
  };
  using std::string_view_literals::operator""sv;
  EXPECT_EQ(message(""), "");
  EXPECT_EQ(message("ACCEPTED"), "ACCEPTED");
  EXPECT_EQ(message("ACCEPTED\rlost"), "ACCEPTED");
  EXPECT_EQ(message("ACCEPTED\nlost\r"), "ACCEPTED");
  EXPECT_EQ(message("\rlost"), "");
  EXPECT_EQ(message("ACCEPTED\0\rlost"sv), "ACCEPTED");
  EXPECT_EQ(message(std::string(48, 'x')), std::string(48, 'x'));
  EXPECT_EQ(message(std::string(47, 'x') + "\r"), std::string(47, 'x'));
}

}  // namespace
}  // namespace quillon::test
