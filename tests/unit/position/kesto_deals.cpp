#include "kesto_deals.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

namespace quillon::test {

LoadedKesto::LoadedKesto(const std::string& lines, TradeHeader header) {
  const ::testing::TestInfo* info = ::testing::UnitTest::GetInstance()->current_test_info();
  static int made = 0;
  const std::filesystem::path path =
      std::filesystem::temp_directory_path() /
      (std::string("quillon_") + info->test_suite_name() + "_" + info->name() + "_" + std::to_string(++made) + ".B01");
  const std::vector<KestoTradeRec> records = kestoDeals(lines);
  std::ofstream(path, std::ios::binary) << kestoFileBytes(header, records);
  Input* const input = inputOpen(path.string(), InputKind::binary);
  EXPECT_NE(input, nullptr);
  block.resize(records.size() + 1);
  file = {.header = header, .count = records.size(), .block = block.data(), .scripDayCount = 0};
  whole = kestoPositionReadRecords(*input, file);
  inputClose(input);
  std::filesystem::remove(path);
}

}  // namespace quillon::test
