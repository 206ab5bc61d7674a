#include "auction/index_sort.h"

#include <algorithm>
#include <bit>
#include <cassert>
#include <cstring>
#include <limits>
#include <memory>
#include <numeric>
#include <utility>

#include "desktop/memory.h"
#include "text/in_order.h"

namespace quillon {
namespace {

constexpr std::size_t blockSize = 16;  // ranks that share a line of the processor's cache: looked at one by one

// The lowest and the highest rank of a stretch of the records.
struct Extent {
  std::uint32_t low, high;
};
struct FreeRanks {
  void operator()(std::uint32_t* ranks) const { memoryFree(ranks); }
};
constexpr std::uint32_t highest = std::numeric_limits<std::uint32_t>::max();
constexpr Extent nothing = {highest, 0};

// The ranks as they stand now, in blocks, and a tree over the blocks: node 1 is all of them, node n's halves are 2n and 2n + 1,
// and the leaves, which begin at `leaves`, are single blocks. Places behind the last record have the highest rank, and no range
// reaches them; leaves behind the last block hold nothing.
struct Sorting {
  std::uint32_t* ranks;
  Extent* nodes;
  std::size_t leaves;
  std::uint32_t* order;
};

Extent joined(const Extent& a, const Extent& b) { return {std::min(a.low, b.low), std::max(a.high, b.high)}; }

Extent extentOfBlock(const Sorting& sorting, std::size_t block) {
  Extent extent = nothing;
  const std::uint32_t* const ranks = sorting.ranks + block * blockSize;
  for (std::size_t i = 0; i < blockSize; ++i) extent = joined(extent, {ranks[i], ranks[i]});
  return extent;
}

// After one rank of the block has become another.
void refresh(const Sorting& sorting, std::size_t block, std::uint32_t before, std::uint32_t now) {
  const Extent& own = sorting.nodes[sorting.leaves + block];
  if (own.low < before && before < own.high && own.low <= now && now <= own.high) return;
  Extent extent = extentOfBlock(sorting, block);
  for (std::size_t node = sorting.leaves + block;;) {
    Extent& known = sorting.nodes[node];
    if (known.low == extent.low && known.high == extent.high) return;
    known = extent;
    node /= 2;
    if (node == 0) return;
    extent = joined(sorting.nodes[2 * node], sorting.nodes[2 * node + 1]);
  }
}

void exchange(const Sorting& sorting, std::size_t a, std::size_t b) {
  if (a == b) return;
  std::swap(sorting.order[a], sorting.order[b]);
  std::swap(sorting.ranks[a], sorting.ranks[b]);
  if (a / blockSize == b / blockSize) return;
  refresh(sorting, a / blockSize, sorting.ranks[b], sorting.ranks[a]);
  refresh(sorting, b / blockSize, sorting.ranks[a], sorting.ranks[b]);
}

// The first place from `from` on, before `limit`, whose rank is above `pivot`; `limit` where there is none.
std::size_t firstAbove(const Sorting& sorting, std::size_t from, std::size_t limit, std::uint32_t pivot) {
  std::size_t place = from;
  do {
    if (place >= limit || sorting.ranks[place] > pivot) return std::min(place, limit);
  } while (++place % blockSize != 0);
  std::size_t node = sorting.leaves + from / blockSize;
  do {
    for (; node % 2 == 1; node /= 2) {
      if (node == 1) return limit;
    }
    ++node;
  } while (sorting.nodes[node].high <= pivot);
  while (node < sorting.leaves) {
    node *= 2;
    if (sorting.nodes[node].high <= pivot) ++node;
  }
  place = (node - sorting.leaves) * blockSize;
  while (sorting.ranks[place] <= pivot) ++place;
  return std::min(place, limit);
}

// The last place up to `from`, behind `limit`, whose rank is below `pivot`; `limit` where there is none.
std::size_t lastBelow(const Sorting& sorting, std::size_t from, std::size_t limit, std::uint32_t pivot) {
  std::size_t place = from;
  do {
    if (place <= limit || sorting.ranks[place] < pivot) return std::max(place, limit);
  } while (place-- % blockSize != 0);
  std::size_t node = sorting.leaves + from / blockSize;
  do {
    while (node % 2 == 0) node /= 2;
    if (node == 1) return limit;
    --node;
  } while (sorting.nodes[node].low >= pivot);
  while (node < sorting.leaves) {
    node = 2 * node + 1;
    if (sorting.nodes[node].low >= pivot) --node;
  }
  place = (node - sorting.leaves) * blockSize + blockSize - 1;
  while (sorting.ranks[place] >= pivot) --place;
  return std::max(place, limit);
}

// Brings the last record of the range to where it belongs, what is above it behind it, and gives its place.
std::size_t split(const Sorting& sorting, std::size_t lo, std::size_t hi) {
  const std::uint32_t pivot = sorting.ranks[hi];
  std::size_t i = lo, j = hi;
  do {
    i = firstAbove(sorting, i, j, pivot);
    j = lastBelow(sorting, j, i, pivot);
    if (i < j) exchange(sorting, i, j);
  } while (i < j);
  exchange(sorting, i, hi);
  return i;
}

// Calls itself for the smaller part alone, so that it is never deeper than the count has bits.
void sortRange(const Sorting& sorting, std::size_t lo, std::size_t hi) {
  while (lo < hi) {
    if (hi == lo + 1) {
      if (sorting.ranks[lo] > sorting.ranks[hi]) exchange(sorting, lo, hi);
      return;
    }
    const std::size_t i = split(sorting, lo, hi);
    if (i - lo < hi - i) {
      if (i > lo) sortRange(sorting, lo, i - 1);
      lo = i + 1;
    } else {
      sortRange(sorting, i + 1, hi);
      hi = i - 1;
    }
  }
}

// ---- Ranks ------------------------------------------------------------------------------------------------------------

bool equalOn(std::span<const RecordKey> keys, const char* a, const char* b) {
  for (const RecordKey& key : keys) {
    const bool isText = key.kind == KeyKind::text;
    assert(isText || key.kind == KeyKind::number);
    const int difference = isText ? std::strncmp(a + key.offset, b + key.offset, key.width)
                                  : std::memcmp(a + key.offset, b + key.offset, sizeof(std::int32_t));
    if (difference != 0) return false;
  }
  return true;
}

// Numbers the records from 0 by their groups and then by their keys, equal ones alike. `order` is that of the keys.
void fillRanks(const Sorting& sorting, const Records& records, const IndexGroups& groups, std::span<const RecordKey> keys) {
  const auto place = [&groups](std::size_t position) -> unsigned char {
    return groups.letters ? groups.place(groups.letters[position]) : 0;
  };
  // Within each place of a group first.
  std::uint32_t distinct[256] = {};
  const char* previous[256] = {};
  const std::span<const std::uint32_t> byKeys(sorting.order, records.count);
  for (std::size_t i = 0; i < records.count; ++i) {
    fetchAhead(records.bytes, records.size, byKeys, i);
    const std::size_t position = byKeys[i];
    const char* const record = static_cast<const char*>(records.bytes) + position * records.size;
    const unsigned char at = place(position);
    if (!previous[at] || !equalOn(keys, previous[at], record)) ++distinct[at];
    previous[at] = record;
    sorting.ranks[position] = distinct[at] - 1;
  }
  std::uint32_t before = 0;
  for (std::uint32_t& count : distinct) before += std::exchange(count, before);
  for (std::size_t i = 0; i < records.count; ++i) sorting.ranks[i] += distinct[place(i)];
}

void buildTree(const Sorting& sorting, std::size_t blocks) {
  for (std::size_t i = 0; i < sorting.leaves; ++i) {
    sorting.nodes[sorting.leaves + i] = i < blocks ? extentOfBlock(sorting, i) : nothing;
  }
  for (std::size_t node = sorting.leaves - 1; node > 0; --node) {
    sorting.nodes[node] = joined(sorting.nodes[2 * node], sorting.nodes[2 * node + 1]);
  }
}

}  // namespace

RecordOrder indexOrder(const Records& records, const IndexGroups& groups, std::span<const RecordKey> keys) {
  RecordOrder order = orderOfRecords(records, keys);
  if (!order || records.count < 2) return order;
  const std::size_t blocks = (records.count + blockSize - 1) / blockSize;
  const std::size_t leaves = std::bit_ceil(blocks);
  const std::size_t size = blocks * blockSize * sizeof(std::uint32_t) + 2 * leaves * sizeof(Extent);
  const std::unique_ptr<std::uint32_t[], FreeRanks> ranks(static_cast<std::uint32_t*>(memoryTakeForOrder(size)));
  if (!ranks) return {};
  auto* const nodes = reinterpret_cast<Extent*>(ranks.get() + blocks * blockSize);
  const Sorting sorting = {ranks.get(), nodes, leaves, order.memory.get()};
  fillRanks(sorting, records, groups, keys);
  std::fill(ranks.get() + records.count, ranks.get() + blocks * blockSize, highest);
  buildTree(sorting, blocks);
  std::iota(sorting.order, sorting.order + records.count, 0u);
  sortRange(sorting, 0, records.count - 1);
  return order;
}

}  // namespace quillon
