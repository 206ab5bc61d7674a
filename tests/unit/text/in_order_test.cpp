// The walk over records in the order of their positions, which looks ahead and must not look past the end.
#include "text/in_order.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <random>
#include <vector>

namespace quillon {
namespace {

#pragma pack(push, 1)
struct Wide {
  std::uint32_t number;
  char rest[128];
};
#pragma pack(pop)

std::vector<std::uint32_t> walked(const Wide* records, const std::vector<std::uint32_t>& order) {
  std::vector<std::uint32_t> numbers;
  for (const Wide& record : inOrder(records, order)) numbers.push_back(record.number);
  return numbers;
}

TEST(InOrder, everyRecordComesOnceInTheOrderOfItsPosition) {
  // Around the number of records that it looks ahead, and well above it.
  for (const std::uint32_t count : {0u, 1u, 2u, 7u, 8u, 9u, 10u, 500u}) {
    // Blocks of their exact size, so that the sanitizer sees a step beyond.
    const auto records = std::make_unique<Wide[]>(count);
    std::vector<std::uint32_t> order(count);
    std::vector<std::uint32_t> expected(count);
    for (std::uint32_t i = 0; i < count; ++i) {
      records[i].number = 1000 + i;
      order[i] = i;
    }
    std::shuffle(order.begin(), order.end(), std::mt19937(count));
    std::transform(order.begin(), order.end(), expected.begin(), [](std::uint32_t position) { return 1000 + position; });
    EXPECT_EQ(walked(records.get(), order), expected) << count << " records";
  }
}

TEST(InOrder, aPositionMayComeTwiceOrNotAtAll) {
  const Wide records[] = {{10, {}}, {11, {}}, {12, {}}};
  EXPECT_EQ(walked(records, {2, 2, 0}), (std::vector<std::uint32_t>{12, 12, 10}));
}

}  // namespace
}  // namespace quillon
