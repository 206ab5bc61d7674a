// Against std::stable_sort with a comparison written the plain way.
#include "text/record_order.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <numeric>
#include <random>
#include <string>
#include <vector>

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
  }
  return 0;
}

std::vector<std::uint32_t> plainOrder(const Records& records, const RecordKey& first, const RecordKey& second) {
  std::vector<std::uint32_t> order(records.count);
  std::iota(order.begin(), order.end(), 0u);
  const auto* bytes = static_cast<const char*>(records.bytes);
  std::stable_sort(order.begin(), order.end(), [&](std::uint32_t a, std::uint32_t b) {
    const char* left = bytes + a * records.size;
    const char* right = bytes + b * records.size;
    const int byFirst = compareKey(left, right, first);
    return (byFirst != 0 ? byFirst : compareKey(left, right, second)) < 0;
  });
  return order;
}

void expectPlainOrder(const Records& records, const RecordKey& first, const RecordKey& second) {
  std::vector<std::uint32_t> order(records.count, 77);
  ASSERT_TRUE(recordOrder(records, first, second, order.data()));
  ASSERT_EQ(order, plainOrder(records, first, second))
      << records.count << " records of " << records.size << ", keys " << static_cast<int>(first.kind) << " at " << first.offset
      << " wide " << first.width << ", " << static_cast<int>(second.kind) << " at " << second.offset << " wide "
      << second.width;
}

}  // namespace

TEST(RecordOrder, isThatOfAPlainStableSortOnRandomRecords) {
  std::mt19937 random(9);
  const std::string letters[] = {"A", "AB", std::string("\0A", 2), std::string("\0aAbB", 5), "aZ_[z@", "\x7f\x80\xff\x01"};
  for (int round = 0; round < 600; ++round) {
    const std::size_t size = 4 + random() % 60;
    const std::size_t counts[] = {0, 1, 2, 3, 20, 30, 200, 700, 3000};
    const std::size_t count = counts[random() % 9];
    const std::string& alphabet = letters[random() % 6];
    const bool allBytes = random() % 4 == 0;
    std::string bytes(count * size, '\0');
    for (char& c : bytes) c = allBytes ? static_cast<char>(random()) : alphabet[random() % alphabet.size()];
    RecordKey keys[2];
    for (RecordKey& key : keys) {
      key.kind = static_cast<KeyKind>(random() % 5);
      key.offset = random() % (size - 3);
      key.width = 1 + random() % (size - key.offset);
    }
    // The exact size, so that a look behind the last record is caught.
    const std::vector<char> exact(bytes.begin(), bytes.end());
    expectPlainOrder({exact.data(), size, count}, keys[0], keys[1]);
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
        expectPlainOrder({bytes.data(), size, count}, {kind, 0, width}, {KeyKind::number, 44, 0});
        expectPlainOrder({bytes.data(), size, count}, {kind, 0, width}, {KeyKind::text, 41, 7});
      }
    }
  }
}

TEST(RecordOrder, negativeNumbersComeFirst) {
  const std::int32_t numbers[] = {5, -1, 0, INT32_MIN, INT32_MAX, -1};
  std::uint32_t order[6];
  ASSERT_TRUE(recordOrder({numbers, 4, 6}, {KeyKind::number, 0, 0}, {KeyKind::none, 0, 0}, order));
  EXPECT_EQ(std::vector<std::uint32_t>(order, order + 6), (std::vector<std::uint32_t>{3, 1, 5, 2, 0, 4}));
}

TEST(RecordOrder, equalRecordsKeepTheOrderOfTheFile) {
  const std::string records = "B1A2B3A4B5A6";
  std::uint32_t order[6];
  ASSERT_TRUE(recordOrder({records.data(), 2, 6}, {KeyKind::text, 0, 1}, {KeyKind::none, 0, 0}, order));
  EXPECT_EQ(std::vector<std::uint32_t>(order, order + 6), (std::vector<std::uint32_t>{1, 3, 5, 0, 2, 4}));
}

TEST(RecordOrder, secondKeyDecidesAmongEqualFirstKeys) {
  const std::string records = "B2A2B1A1";
  std::uint32_t order[4];
  ASSERT_TRUE(recordOrder({records.data(), 2, 4}, {KeyKind::text, 0, 1}, {KeyKind::text, 1, 1}, order));
  EXPECT_EQ(std::vector<std::uint32_t>(order, order + 4), (std::vector<std::uint32_t>{3, 1, 2, 0}));
}

TEST(RecordOrder, caseIsTheSameWhereItIsFoldedAndUnderscoreComesBeforeLetters) {
  const std::string records = "bB_Aa";
  std::uint32_t order[5];
  ASSERT_TRUE(recordOrder({records.data(), 1, 5}, {KeyKind::foldedText, 0, 1}, {KeyKind::none, 0, 0}, order));
  EXPECT_EQ(std::vector<std::uint32_t>(order, order + 5), (std::vector<std::uint32_t>{2, 3, 4, 0, 1}));
}

TEST(RecordOrder, bytesBehindTheNulAreNotPartOfTheText) {
  const std::string records("ab\0zab\0aab\0m", 12);
  std::uint32_t order[3];
  ASSERT_TRUE(recordOrder({records.data(), 4, 3}, {KeyKind::text, 0, 4}, {KeyKind::none, 0, 0}, order));
  EXPECT_EQ(std::vector<std::uint32_t>(order, order + 3), (std::vector<std::uint32_t>{0, 1, 2}));
}

TEST(RecordOrder, noRecordsLeaveTheOrderAlone) {
  std::uint32_t order[1] = {42};
  EXPECT_TRUE(recordOrder({nullptr, 132, 0}, {KeyKind::text, 0, 12}, {KeyKind::number, 12, 0}, order));
  EXPECT_EQ(order[0], 42u);
}

TEST(RecordOrder, fail_memoryGivesTheOrderOfTheFile) {
  const std::string records = "dcba";
  std::uint32_t order[4] = {};
  EXPECT_FALSE(detail::recordOrderWith({records.data(), 1, 4}, {KeyKind::text, 0, 1}, {KeyKind::none, 0, 0}, order,
                                       [](std::size_t) -> void* { return nullptr; }));
  EXPECT_EQ(std::vector<std::uint32_t>(order, order + 4), (std::vector<std::uint32_t>{0, 1, 2, 3}));
}

TEST(RecordOrder, takesTwentyBytesARecord) {
  static std::size_t taken = 0;
  const std::vector<char> records(1000 * 132, 'x');
  std::vector<std::uint32_t> order(1000);
  EXPECT_TRUE(detail::recordOrderWith({records.data(), 132, 1000}, {KeyKind::text, 0, 12}, {KeyKind::none, 0, 0}, order.data(),
                                      [](std::size_t size) {
                                        taken += size;
                                        return std::malloc(size);
                                      }));
  EXPECT_EQ(taken, 20000u);
}

}  // namespace quillon
