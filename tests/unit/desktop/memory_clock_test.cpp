#include <gtest/gtest.h>

#include <cstdint>
#include <ctime>
#include <limits>

#include "desktop/scripted/clock.h"
#include "desktop/scripted/faults.h"
#include "desktop/scripted/memory.h"

namespace quillon {

TEST(Memory, blockIsZeroFilledAndCountedUntilFreed) {
  memoryReset();
  auto* block = static_cast<unsigned char*>(memoryTake(1000));
  ASSERT_NE(block, nullptr);
  for (int i = 0; i < 1000; ++i) ASSERT_EQ(block[i], 0) << i;
  EXPECT_EQ(memoryBlocksHeld(), 1u);
  memoryFree(block);
  EXPECT_EQ(memoryBlocksHeld(), 0u);
}

TEST(Memory, nullAndForeignBlocksAreLeftAlone) {
  memoryReset();
  int own = 0;
  memoryFree(nullptr);
  memoryFree(&own);
  EXPECT_EQ(memoryBlocksHeld(), 0u);
}

TEST(Memory, sizeThatNoMachineHasIsNotGranted) {
  EXPECT_EQ(memoryTake(std::numeric_limits<std::size_t>::max()), nullptr);
  EXPECT_EQ(memoryTake(std::size_t{1} << 60), nullptr);
}

TEST(Memory, blockOfNoBytesIsStillABlock) {
  void* block = memoryTake(0);
  EXPECT_NE(block, nullptr);
  memoryFree(block);
}

TEST(Memory, faultRefusesTheBlock) {
  memoryReset();
  faultsArm(Fault::memory, 2, false);
  void* first = memoryTake(8);
  EXPECT_NE(first, nullptr);
  EXPECT_EQ(memoryTake(8), nullptr);
  EXPECT_EQ(memoryBlocksHeld(), 1u);
  memoryReset();
  faultsReset();
}

TEST(Memory, blocksAndOrdersAreRefusedApart) {
  memoryReset();
  faultsArm(Fault::order, 1, true);
  EXPECT_EQ(memoryTakeForOrder(8), nullptr);
  void* block = memoryTake(8);
  EXPECT_NE(block, nullptr);
  faultsReset();
  faultsArm(Fault::memory, 1, true);
  void* order = memoryTakeForOrder(8);
  EXPECT_NE(order, nullptr);
  EXPECT_EQ(memoryTake(8), nullptr);
  EXPECT_EQ(memoryTakeForOrder(std::numeric_limits<std::size_t>::max()), nullptr);
  EXPECT_EQ(memoryBlocksHeld(), 2u);
  memoryFree(block);
  memoryFree(order);
  EXPECT_EQ(memoryBlocksHeld(), 0u);
  faultsReset();
}

TEST(Clock, standsAtTheMomentGiven) {
  ASSERT_TRUE(clockStop("2009-05-22 10:11:12"));
  const LocalTime time = clockNow();
  EXPECT_EQ(time.year, 2009);
  EXPECT_EQ(time.month, 5);
  EXPECT_EQ(time.day, 22);
  EXPECT_EQ(time.hour, 10);
  EXPECT_EQ(time.minute, 11);
  EXPECT_EQ(time.second, 12);
  clockReset();
}

TEST(Clock, runsAfterAReset) {
  clockStop("1999-01-01 00:00:00");
  clockReset();
  std::time_t before = std::time(nullptr);
  const LocalTime time = clockNow();
  std::tm fields = {};
  fields.tm_year = time.year - 1900;
  fields.tm_mon = time.month - 1;
  fields.tm_mday = time.day;
  fields.tm_hour = time.hour;
  fields.tm_min = time.minute;
  fields.tm_sec = time.second;
  fields.tm_isdst = -1;
  EXPECT_NEAR(std::difftime(std::mktime(&fields), before), 0, 2);
}

TEST(Clock, momentThatIsNoneIsRefused) {
  clockReset();
  static constexpr const char* moments[] = {
      "",
      "2009-05-22",
      "2009-05-22T10:11:12",
      "2009-05-22 10:11:1",
      "2009-05-22 10:11:123",
      "2009-13-01 10:11:12",
      "2009-00-01 10:11:12",
      "2009-04-31 10:11:12",
      "2009-02-29 10:11:12",
      "1900-02-29 10:11:12",
      "2009-05-00 10:11:12",
      "2009-05-22 24:00:00",
      "2009-05-22 10:60:00",
      "2009-05-22 10:00:60",
      "0000-05-22 10:00:00",
      "2009-05-2x 10:00:00",
      "2009-+5-22 10:00:00",
      "2009-05-22 10:-1:00",
  };
  for (const char* moment : moments) EXPECT_FALSE(clockStop(moment)) << moment;
}

TEST(Clock, leapDaysAreDays) {
  EXPECT_TRUE(clockStop("2008-02-29 00:00:00"));
  EXPECT_TRUE(clockStop("2000-02-29 23:59:59"));
  clockReset();
}

}  // namespace quillon
