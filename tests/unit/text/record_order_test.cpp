// Against std::stable_sort with a comparison written the plain way.
#include "text/record_order.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <numeric>
#include <random>
#include <string>
#include <vector>

#include "desktop/scripted/faults.h"
#include "desktop/scripted/memory.h"

namespace quillon {

namespace {

int compareText(const char* left, const char* right, std::size_t width, bool folded) {
  for (std::size_t i = 0; i < width; ++i) {
    int a = static_cast<unsigned char>(left[i]);
    int b = static_cast<unsigned char>(right[i]);
    if (folded && a >= 'A' && a <= 'Z') a += 'a' - 'A';
    if (folded && b >= 'A' && b <= 'Z') b += 'a' - 'A';
    if (a != b) return a - b;
    if (a == 0) return 0;
  }
  return 0;
}

long timeRead(const char* bytes) {
  const auto part = [bytes](int i) { return static_cast<int>(static_cast<unsigned char>(bytes[i])); };
  char digits[16];
  std::snprintf(digits, sizeof digits, "%02d%02d%02d", part(0), part(1), part(2));
  return std::atol(digits);
}

int compareKey(const char* left, const char* right, const RecordKey& key) {
  left += key.offset;
  right += key.offset;
  switch (key.kind) {
    case KeyKind::none:
      return 0;
    case KeyKind::text:
      return compareText(left, right, key.width, false);
    case KeyKind::foldedText:
      return compareText(left, right, key.width, true);
    case KeyKind::number: {
      std::int32_t a;
      std::int32_t b;
      std::memcpy(&a, left, 4);
      std::memcpy(&b, right, 4);
      return (a > b) - (a < b);
    }
    case KeyKind::number8:
      return static_cast<signed char>(*left) - static_cast<signed char>(*right);
    case KeyKind::number64: {
      std::int64_t a;
      std::int64_t b;
      std::memcpy(&a, left, 8);
      std::memcpy(&b, right, 8);
      return (a > b) - (a < b);
    }
    case KeyKind::time: {
      const long a = timeRead(left);
      const long b = timeRead(right);
      return (a > b) - (a < b);
    }
  }
  return 0;
}

std::vector<std::uint32_t> plainOrder(const Records& records, std::span<const RecordKey> keys) {
  std::vector<std::uint32_t> order(records.count);
  std::iota(order.begin(), order.end(), 0u);
  const auto* bytes = static_cast<const char*>(records.bytes);
  std::stable_sort(order.begin(), order.end(), [&](std::uint32_t a, std::uint32_t b) {
    for (const RecordKey& key : keys) {
      const int difference = compareKey(bytes + a * records.size, bytes + b * records.size, key);
      if (difference != 0) return difference < 0;
    }
    return false;
  });
  return order;
}

void expectPlainOrder(const Records& records, const std::vector<RecordKey>& keys) {
  std::vector<std::uint32_t> order(records.count, 77);
  ASSERT_TRUE(recordOrder(records, keys, order.data()));
  std::string told;
  for (const RecordKey& key : keys) {
    told += " kind " + std::to_string(static_cast<int>(key.kind)) + " at " + std::to_string(key.offset) + " wide " +
            std::to_string(key.width);
  }
  ASSERT_EQ(order, plainOrder(records, keys)) << records.count << " records of " << records.size << ", keys" << told;
}

}  // namespace

TEST(RecordOrder, isThatOfAPlainStableSortOnRandomRecords) {
  std::mt19937 random(9);
  const std::string letters[] = {"A", "AB", std::string("\0A", 2), std::string("\0aAbB", 5), "aZ_[z@", "\x7f\x80\xff\x01"};
  for (int round = 0; round < 1500; ++round) {
    const std::size_t size = 8 + random() % 60;
    const std::size_t counts[] = {0, 1, 2, 3, 20, 30, 200, 700, 3000};
    const std::size_t count = counts[random() % 9];
    const std::string& alphabet = letters[random() % 6];
    const bool allBytes = random() % 4 == 0;
    std::string bytes(count * size, '\0');
    for (char& c : bytes) c = allBytes ? static_cast<char>(random()) : alphabet[random() % alphabet.size()];
    std::vector<RecordKey> keys(random() % 4);
    for (RecordKey& key : keys) {
      key.kind = static_cast<KeyKind>(random() % 7);
      key.offset = random() % (size - 7);
      key.width = 1 + random() % (size - key.offset);
    }
    // The exact size, so that a look behind the last record is caught.
    const std::vector<char> exact(bytes.begin(), bytes.end());
    expectPlainOrder({exact.data(), size, count}, keys);
    if (HasFatalFailure()) return;
  }
}

TEST(RecordOrder, textsThatShareALongBeginningAreTold) {
  std::mt19937 random(10);
  constexpr std::size_t size = 48;
  for (const std::size_t count : {100, 2000}) {
    std::vector<char> bytes(count * size, 'x');
    for (std::size_t i = 0; i < count; ++i) {
      bytes[i * size + 20 + random() % 20] = static_cast<char>(random() % 3 ? 'w' : '\0');
      bytes[i * size + 44] = static_cast<char>(random());
    }
    for (const KeyKind kind : {KeyKind::text, KeyKind::foldedText}) {
      for (std::size_t width = 17; width <= 44; ++width) {
        expectPlainOrder({bytes.data(), size, count}, {{kind, 0, width}, {KeyKind::number, 44, 0}});
        expectPlainOrder({bytes.data(), size, count}, {{kind, 0, width}, {KeyKind::text, 41, 7}});
      }
    }
  }
}

TEST(RecordOrder, negativeNumbersComeFirst) {
  const std::int32_t numbers[] = {5, -1, 0, INT32_MIN, INT32_MAX, -1};
  std::uint32_t order[6];
  ASSERT_TRUE(recordOrder({numbers, 4, 6}, {{KeyKind::number, 0, 0}}, order));
  EXPECT_EQ(std::vector<std::uint32_t>(order, order + 6), (std::vector<std::uint32_t>{3, 1, 5, 2, 0, 4}));
}

TEST(RecordOrder, equalRecordsKeepTheOrderOfTheFile) {
  const std::string records = "B1A2B3A4B5A6";
  std::uint32_t order[6];
  ASSERT_TRUE(recordOrder({records.data(), 2, 6}, {{KeyKind::text, 0, 1}}, order));
  EXPECT_EQ(std::vector<std::uint32_t>(order, order + 6), (std::vector<std::uint32_t>{1, 3, 5, 0, 2, 4}));
}

TEST(RecordOrder, secondKeyDecidesAmongEqualFirstKeys) {
  const std::string records = "B2A2B1A1";
  std::uint32_t order[4];
  ASSERT_TRUE(recordOrder({records.data(), 2, 4}, {{KeyKind::text, 0, 1}, {KeyKind::text, 1, 1}}, order));
  EXPECT_EQ(std::vector<std::uint32_t>(order, order + 4), (std::vector<std::uint32_t>{3, 1, 2, 0}));
}

TEST(RecordOrder, caseIsTheSameWhereItIsFoldedAndUnderscoreComesBeforeLetters) {
  const std::string records = "bB_Aa";
  std::uint32_t order[5];
  ASSERT_TRUE(recordOrder({records.data(), 1, 5}, {{KeyKind::foldedText, 0, 1}}, order));
  EXPECT_EQ(std::vector<std::uint32_t>(order, order + 5), (std::vector<std::uint32_t>{2, 3, 4, 0, 1}));
}

TEST(RecordOrder, bytesBehindTheNulAreNotPartOfTheText) {
  const std::string records("ab\0zab\0aab\0m", 12);
  std::uint32_t order[3];
  ASSERT_TRUE(recordOrder({records.data(), 4, 3}, {{KeyKind::text, 0, 4}}, order));
  EXPECT_EQ(std::vector<std::uint32_t>(order, order + 3), (std::vector<std::uint32_t>{0, 1, 2}));
}

TEST(RecordOrder, noRecordsLeaveTheOrderAlone) {
  std::uint32_t order[1] = {42};
  EXPECT_TRUE(recordOrder({nullptr, 132, 0}, {{KeyKind::text, 0, 12}, {KeyKind::number, 12, 0}}, order));
  EXPECT_EQ(order[0], 42u);
}

TEST(RecordOrder, thirdKeyDecidesBehindEveryKindOfTheFirstTwo) {
  std::mt19937 random(11);
  constexpr KeyKind kinds[] = {KeyKind::text,    KeyKind::foldedText, KeyKind::number,
                               KeyKind::number8, KeyKind::number64,   KeyKind::time};
  constexpr std::size_t size = 40;
  for (const std::size_t count : {80, 400}) {
    std::vector<char> bytes(count * size, '\0');
    for (char& c : bytes) c = static_cast<char>(random() % 3 == 0 ? random() % 2 : 0);
    for (const KeyKind first : kinds) {
      for (const KeyKind second : kinds) {
        for (const KeyKind third : kinds) {
          for (const std::size_t width : {4, 12}) {
            expectPlainOrder({bytes.data(), size, count}, {{first, 0, width}, {second, 12, width}, {third, 24, width}});
            if (testing::Test::HasFatalFailure()) return;
          }
        }
      }
    }
  }
}

TEST(RecordOrder, negative64BitNumbersComeFirstAndTheHighWordDecides) {
  const std::int64_t numbers[] = {5, -1, INT64_MAX, INT64_MIN, std::int64_t{1} << 32, 0xFFFFFFFF};
  std::uint32_t order[6];
  ASSERT_TRUE(recordOrder({numbers, 8, 6}, {{KeyKind::number64, 0, 0}}, order));
  EXPECT_EQ(std::vector<std::uint32_t>(order, order + 6), (std::vector<std::uint32_t>{3, 1, 0, 5, 4, 2}));
}

TEST(RecordOrder, timeIsTheNumberThatItsPartsReadAsWithTwoDigitsEach) {
  // 91503, 90503, 235959, 500, 110005 twice: a part of 100 stands with three digits.
  const unsigned char times[] = {9, 15, 3, 9, 5, 3, 23, 59, 59, 0, 5, 0, 1, 100, 5, 11, 0, 5};
  std::uint32_t order[6];
  ASSERT_TRUE(recordOrder({times, 3, 6}, {{KeyKind::time, 0, 0}}, order));
  EXPECT_EQ(std::vector<std::uint32_t>(order, order + 6), (std::vector<std::uint32_t>{3, 1, 0, 4, 5, 2}));
}

TEST(RecordOrder, withoutKeysIsTheOrderOfTheFile) {
  const std::string records = "cab";
  std::uint32_t order[3];
  ASSERT_TRUE(recordOrder({records.data(), 1, 3}, {}, order));
  EXPECT_EQ(std::vector<std::uint32_t>(order, order + 3), (std::vector<std::uint32_t>{0, 1, 2}));
}

namespace {

// The memory of orders, which the desktop counts and can refuse.
struct OrderMemory : testing::Test {
  void SetUp() override { faultsReset(); }
  void TearDown() override {
    faultsReset();
    EXPECT_EQ(memoryBlocksHeld(), 0u);
  }

  const std::string letters = "dcba";
  const Records records = {letters.data(), 1, 4};
};

}  // namespace

TEST_F(OrderMemory, fail_orderGivesTheOrderOfTheFile) {
  faultsArm(Fault::order, 1, false);
  std::uint32_t order[4] = {};
  EXPECT_FALSE(recordOrder(records, {{KeyKind::text, 0, 1}}, order));
  EXPECT_EQ(std::vector<std::uint32_t>(order, order + 4), (std::vector<std::uint32_t>{0, 1, 2, 3}));
}

TEST_F(OrderMemory, orderOfRecordsHoldsItsPositionsAsLongAsItLives) {
  {
    const RecordOrder order = orderOfRecords(records, {{KeyKind::text, 0, 1}});
    ASSERT_TRUE(order);
    EXPECT_EQ(std::vector<std::uint32_t>(order.positions().begin(), order.positions().end()),
              (std::vector<std::uint32_t>{3, 2, 1, 0}));
    EXPECT_EQ(memoryBlocksHeld(), 1u);
  }
  EXPECT_EQ(memoryBlocksHeld(), 0u);
}

TEST_F(OrderMemory, orderOfNoRecordsIsAnOrder) {
  const RecordOrder order = orderOfRecords({nullptr, 1, 0}, {{KeyKind::text, 0, 1}});
  EXPECT_TRUE(order);
  EXPECT_EQ(order.positions().size(), 0u);
}

TEST_F(OrderMemory, fail_orderOfRecordsIsNoneWhereItOrItsSortGetsNoMemory) {
  for (const std::size_t number : {1, 2}) {
    faultsArm(Fault::order, number, false);
    const RecordOrder order = orderOfRecords(records, {{KeyKind::text, 0, 1}});
    EXPECT_FALSE(order) << number;
    EXPECT_EQ(order.positions().size(), 0u);
    EXPECT_EQ(memoryBlocksHeld(), 0u);
  }
  EXPECT_EQ(faultUses(Fault::order), 3u);
}

}  // namespace quillon
