// The index sort against the same steps written down as they are told, compared record for record: what decides is the order
// of equal records, which no other sort gives.
#include "auction/index_sort.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <cstring>
#include <functional>
#include <numeric>
#include <random>
#include <string>
#include <vector>

#include "auction_records.h"

namespace quillon::test {
namespace {

using Compare = std::function<int(std::size_t, std::size_t)>;  // of the records at two places
using Swap = std::function<void(std::size_t, std::size_t)>;

// The five steps, word for word. Signed positions, as i - 1 may fall below the first.
void plainSort(long lo, long hi, const Compare& compare, const Swap& swap) {
  const auto at = [](long place) { return static_cast<std::size_t>(place); };
  // 1
  if (!(lo < hi)) return;
  // 2
  if (hi == lo + 1) {
    if (compare(at(lo), at(hi)) > 0) swap(at(lo), at(hi));
    return;
  }
  // 3
  long i, j;
  do {
    i = lo;
    j = hi;
    while (i < j && compare(at(i), at(hi)) <= 0) ++i;
    while (j > i && compare(at(j), at(hi)) >= 0) --j;
    if (i < j) swap(at(i), at(j));
  } while (i < j);
  // 4
  swap(at(i), at(hi));
  // 5
  if (i - lo < hi - i) {
    plainSort(lo, i - 1, compare, swap);
    plainSort(i + 1, hi, compare, swap);
  } else {
    plainSort(i + 1, hi, compare, swap);
    plainSort(lo, i - 1, compare, swap);
  }
}

constexpr RecordKey wholeNumber = {KeyKind::number, 0, 4};

std::vector<std::uint32_t> plainOrder(const std::vector<std::int32_t>& keys) {
  std::vector<std::uint32_t> order(keys.size());
  std::iota(order.begin(), order.end(), 0u);
  const Compare compare = [&](std::size_t a, std::size_t b) {
    return keys[order[a]] < keys[order[b]] ? -1 : keys[order[a]] > keys[order[b]];
  };
  plainSort(0, static_cast<long>(keys.size()) - 1, compare,
            [&](std::size_t a, std::size_t b) { std::swap(order[a], order[b]); });
  return order;
}

std::vector<std::uint32_t> orderOf(const Records& records, const IndexGroups& groups, std::initializer_list<RecordKey> keys) {
  const RecordOrder order = indexOrder(records, groups, keys);
  EXPECT_TRUE(order);
  return {order.positions().begin(), order.positions().end()};
}

std::vector<std::uint32_t> sortedOrder(const std::vector<std::int32_t>& keys) {
  return orderOf({keys.data(), sizeof(std::int32_t), keys.size()}, noGroups, {wholeNumber});
}

std::vector<std::int32_t> keysBy(std::size_t count, const std::function<std::int32_t(std::size_t)>& keyAt) {
  std::vector<std::int32_t> keys(count);
  for (std::size_t i = 0; i < count; ++i) keys[i] = keyAt(i);
  return keys;
}

void expectToldOrder(const std::vector<std::int32_t>& keys, const std::string& what) {
  ASSERT_EQ(sortedOrder(keys), plainOrder(keys)) << what;
}

// Worked out on paper: of 2 2 1 (places 0 1 2) the pivot is 1. i stops at place 0, j comes down to it; 0 and 2 are exchanged,
// giving 1 2 2 as the records 2 1 0, and the two behind stay as they are.
TEST(IndexSort, equalRecordsMayChangePlaces) { EXPECT_EQ(sortedOrder({2, 2, 1}), (std::vector<std::uint32_t>{2, 1, 0})); }

TEST(IndexSort, noneAndOneAndTwo) {
  EXPECT_TRUE(sortedOrder({}).empty());
  EXPECT_EQ(sortedOrder({5}), (std::vector<std::uint32_t>{0}));
  EXPECT_EQ(sortedOrder({5, 5}), (std::vector<std::uint32_t>{0, 1}));
  EXPECT_EQ(sortedOrder({6, 5}), (std::vector<std::uint32_t>{1, 0}));
  EXPECT_EQ(sortedOrder({-1, 1}), (std::vector<std::uint32_t>{0, 1}));
}

TEST(IndexSort, everySmallFileStandsAsTold) {
  // All files of up to seven records with keys of 0, 1 and 2.
  for (std::size_t count = 0; count <= 7; ++count) {
    std::size_t files = 1;
    for (std::size_t i = 0; i < count; ++i) files *= 3;
    for (std::size_t file = 0; file < files; ++file) {
      std::size_t rest = file;
      expectToldOrder(keysBy(count,
                             [&rest](std::size_t) {
                               const std::int32_t key = static_cast<std::int32_t>(rest % 3);
                               rest /= 3;
                               return key;
                             }),
                      "file " + std::to_string(file) + " of " + std::to_string(count));
    }
  }
}

TEST(IndexSort, randomKeysStandAsTold) {
  std::mt19937 random(20090522);
  for (int round = 0; round < 400; ++round) {
    const std::size_t count = random() % 300;
    const std::uint32_t values = 1 + random() % (round % 2 ? 8 : 1000);
    expectToldOrder(keysBy(count, [&](std::size_t) { return static_cast<std::int32_t>(random() % values) - 4; }),
                    "round " + std::to_string(round));
  }
}

TEST(IndexSort, ordersThatMakeAQuickSortSlowStandAsTold) {
  constexpr std::size_t count = 700;
  constexpr std::int32_t last = count;
  const auto number = [](std::size_t i) { return static_cast<std::int32_t>(i); };
  expectToldOrder(keysBy(count, [&](std::size_t) { return 7; }), "all equal");
  expectToldOrder(keysBy(count, number), "sorted");
  expectToldOrder(keysBy(count, [&](std::size_t i) { return last - number(i); }), "reversed");
  expectToldOrder(keysBy(count, [&](std::size_t i) { return number(i % 2); }), "two values, by turns");
  expectToldOrder(keysBy(count, [&](std::size_t i) { return i < count / 2 ? 2 : 1; }), "two values, the higher first");
  expectToldOrder(keysBy(count, [&](std::size_t i) { return i < count / 2 ? 1 : 2; }), "two values, the lower first");
  expectToldOrder(keysBy(count, [&](std::size_t i) { return number(i / 50); }), "long runs, ascending");
  expectToldOrder(keysBy(count, [&](std::size_t i) { return -number(i / 50); }), "long runs, descending");
  expectToldOrder(keysBy(count, [&](std::size_t i) { return number(i % 50); }), "the same run again and again");
  expectToldOrder(keysBy(count, [&](std::size_t i) { return std::min(number(i), last - number(i)); }), "up and down");
  expectToldOrder(keysBy(count, [&](std::size_t i) { return i + 1 == count ? 0 : number(i); }), "sorted, the least last");
  expectToldOrder(keysBy(count, [&](std::size_t i) { return i == 0 ? last : number(i); }), "sorted, the greatest first");
}

TEST(IndexSort, numbersAreSigned) {
  EXPECT_EQ(sortedOrder({0, -2147483647 - 1, 2147483647, -1}), (std::vector<std::uint32_t>{1, 3, 0, 2}));
}

// 100,000 records that stand in order already are the worst case of the told steps: five thousand million comparisons one by
// one. The same holds for the other orders here. Each must be done in well under the few seconds that a user waits.
TEST(IndexSort, aHundredThousandRecordsInAnyOrderAreQuickAndNotDeep) {
  constexpr std::size_t count = 100000;
  const auto number = [](std::size_t i) { return static_cast<std::int32_t>(i); };
  const std::vector<std::int32_t> files[] = {
      keysBy(count, number),
      keysBy(count, [&](std::size_t i) { return -number(i); }),
      keysBy(count, [&](std::size_t) { return 7; }),
      keysBy(count, [&](std::size_t i) { return number(i % 2); }),
      keysBy(count, [&](std::size_t i) { return number(i / 1000); }),
      keysBy(count, [&](std::size_t i) { return number(std::min(i, count - i)); }),
  };
  for (const std::vector<std::int32_t>& keys : files) {
    const auto start = std::chrono::steady_clock::now();
    const std::vector<std::uint32_t> order = sortedOrder(keys);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(5));
    std::vector<bool> seen(count);
    for (std::size_t i = 0; i < count; ++i) {
      ASSERT_FALSE(seen[order[i]]);
      seen[order[i]] = true;
      ASSERT_LE(keys[order[i == 0 ? 0 : i - 1]], keys[order[i]]);
    }
  }
}

// ---- Keys of records --------------------------------------------------------------------------------------------------

struct Offer {
  const char* scripName;
  std::int32_t offerRate;
};

std::vector<std::uint32_t> offerOrder(const std::vector<Offer>& offers) {
  std::vector<OffsRec> records(offers.size());
  for (std::size_t i = 0; i < offers.size(); ++i) {
    fieldSet(records[i].scripName, offers[i].scripName);
    records[i].offerRate = offers[i].offerRate;
  }
  return orderOf({records.data(), sizeof(OffsRec), records.size()}, noGroups,
                 {{KeyKind::text, offsetof(OffsRec, scripName), sizeof(OffsRec::scripName)},
                  {KeyKind::number, offsetof(OffsRec, offerRate), 4}});
}

TEST(IndexSort, secondKeyDecidesWhereTheFirstIsEqual) {
  EXPECT_EQ(offerOrder({{"B", 20}, {"A", 30}, {"B", -5}, {"A", 10}}), (std::vector<std::uint32_t>{3, 1, 2, 0}));
}

TEST(IndexSort, textsCompareAsBytesAndAShorterOneComesFirst) {
  EXPECT_EQ(offerOrder({{"a", 0}, {"AB", 0}, {"\xc4", 0}, {"A", 0}, {"", 0}}), (std::vector<std::uint32_t>{4, 3, 1, 0, 2}));
}

// What stands behind the end of a text has no say.
TEST(IndexSort, bytesBehindTheNulAreNoKey) {
  std::vector<OffsRec> records(2);
  std::memcpy(records[0].scripName.bytes, "A\0Z", 3);
  std::memcpy(records[1].scripName.bytes, "A\0A", 3);
  EXPECT_EQ(orderOf({records.data(), sizeof(OffsRec), 2}, noGroups,
                    {{KeyKind::text, offsetof(OffsRec, scripName), sizeof(OffsRec::scripName)}}),
            (std::vector<std::uint32_t>{0, 1}));
}

// A sort asks for memory three times: its result, the sort of the keys, and its ranks.
TEST(IndexSort, fail_noMemory) {
  const Faults faults;
  const std::vector<std::int32_t> keys = {3, 1, 2};
  for (std::size_t ask = 1; ask <= 3; ++ask) {
    faultsArm(Fault::order, ask, false);
    const RecordOrder order = indexOrder({keys.data(), 4, keys.size()}, noGroups, {wholeNumber});
    EXPECT_FALSE(order) << ask;
    EXPECT_TRUE(order.positions().empty()) << ask;
  }
  EXPECT_EQ(sortedOrder(keys), (std::vector<std::uint32_t>{1, 2, 0}));
}

unsigned char letterItself(char letter) { return static_cast<unsigned char>(letter); }

TEST(IndexSort, groupsComeBeforeTheKeys) {
  const std::vector<std::int32_t> keys = {1, 2, 3, 4, 5};
  const char groups[] = {'\xc4', 'D', 'A', 'D', 'B'};
  EXPECT_EQ(orderOf({keys.data(), 4, keys.size()}, {groups, letterItself}, {wholeNumber}),
            (std::vector<std::uint32_t>{2, 4, 1, 3, 0}));
}

TEST(IndexSort, groupsOfOnePlaceAreSortedAsOne) {
  const std::vector<std::int32_t> keys = {4, 3, 2, 1, 5};
  const char groups[] = {'C', 'B', 'C', 'B', 'A'};
  const auto place = [](char letter) { return static_cast<unsigned char>(letter == 'C' ? 'B' : letter); };
  EXPECT_EQ(orderOf({keys.data(), 4, keys.size()}, {groups, place}, {wholeNumber}),
            (std::vector<std::uint32_t>{4, 3, 2, 1, 0}));
}

TEST(IndexSort, groupsAndKeysTogetherStandAsTold) {
  std::mt19937 random(7);
  for (int round = 0; round < 100; ++round) {
    const std::vector<std::int32_t> keys = keysBy(random() % 200, [&](std::size_t) { return static_cast<int>(random() % 9); });
    std::vector<char> groups(keys.size());
    for (char& group : groups) group = static_cast<char>('A' + random() % 3);
    const std::vector<std::int32_t> both = keysBy(keys.size(), [&](std::size_t i) { return groups[i] * 100 + keys[i]; });
    ASSERT_EQ(orderOf({keys.data(), 4, keys.size()}, {groups.data(), letterItself}, {wholeNumber}), plainOrder(both)) << round;
  }
}

}  // namespace
}  // namespace quillon::test
