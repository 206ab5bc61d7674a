#include "auction/index_sort.h"

#include <bit>
#include <cassert>
#include <cstring>
#include <limits>
#include <memory>
#include <numeric>
#include <utility>

#include "desktop/memory.h"

namespace quillon {
namespace {

// The lowest and the highest rank of a stretch of the records.
struct Extent {
  std::uint64_t low, high;
};
struct FreeExtents {
  void operator()(Extent* extents) const { memoryFree(extents); }
};
constexpr Extent nothing = {std::numeric_limits<std::uint64_t>::max(), 0};

// A tree over the ranks as they stand now: node 1 is all of them, node n's halves are 2n and 2n + 1, and the leaves, which
// begin at `leaves`, are single records. Places behind the last record hold nothing.
struct Sorting {
  Extent* nodes;
  std::size_t leaves;
  std::uint32_t* order;
};

std::uint64_t rankAt(const Sorting& sorting, std::size_t place) { return sorting.nodes[sorting.leaves + place].low; }

Extent joined(const Extent& a, const Extent& b) { return {a.low < b.low ? a.low : b.low, a.high > b.high ? a.high : b.high}; }

void refresh(const Sorting& sorting, std::size_t place) {
  for (std::size_t node = (sorting.leaves + place) / 2; node > 0; node /= 2) {
    const Extent extent = joined(sorting.nodes[2 * node], sorting.nodes[2 * node + 1]);
    Extent& known = sorting.nodes[node];
    if (known.low == extent.low && known.high == extent.high) return;
    known = extent;
  }
}

void exchange(const Sorting& sorting, std::size_t a, std::size_t b) {
  if (a == b) return;
  std::swap(sorting.order[a], sorting.order[b]);
  std::swap(sorting.nodes[sorting.leaves + a], sorting.nodes[sorting.leaves + b]);
  refresh(sorting, a);
  refresh(sorting, b);
}

// The first place from `from` on, before `limit`, whose rank is above `pivot`; `limit` where there is none.
std::size_t firstAbove(const Sorting& sorting, std::size_t from, std::size_t limit, std::uint64_t pivot) {
  std::size_t node = sorting.leaves + from;
  while (sorting.nodes[node].high <= pivot) {
    while (node % 2 == 1) {
      if (node == 1) return limit;
      node /= 2;
    }
    ++node;
  }
  while (node < sorting.leaves) {
    node *= 2;
    if (sorting.nodes[node].high <= pivot) ++node;
  }
  const std::size_t place = node - sorting.leaves;
  return place < limit ? place : limit;
}

// The last place up to `from`, behind `limit`, whose rank is below `pivot`; `limit` where there is none.
std::size_t lastBelow(const Sorting& sorting, std::size_t from, std::size_t limit, std::uint64_t pivot) {
  std::size_t node = sorting.leaves + from;
  while (sorting.nodes[node].low >= pivot) {
    while (node % 2 == 0) node /= 2;
    if (node == 1) return limit;
    --node;
  }
  while (node < sorting.leaves) {
    node = 2 * node + 1;
    if (sorting.nodes[node].low >= pivot) --node;
  }
  const std::size_t place = node - sorting.leaves;
  return place > limit ? place : limit;
}

// Brings the last record of the range to where it belongs, what is above it behind it, and gives its place.
std::size_t split(const Sorting& sorting, std::size_t lo, std::size_t hi) {
  const std::uint64_t pivot = rankAt(sorting, hi);
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
      if (rankAt(sorting, lo) > rankAt(sorting, hi)) exchange(sorting, lo, hi);
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

// Numbers the records by their keys, equal ones alike, with the group ahead of the number. `order` is that of the keys.
void fillRanks(const Sorting& sorting, const Records& records, const IndexGroups& groups, std::span<const RecordKey> keys) {
  const char* const bytes = static_cast<const char*>(records.bytes);
  std::uint64_t rank = 0;
  const char* previous = nullptr;
  for (std::size_t i = 0; i < records.count; ++i) {
    const std::size_t position = sorting.order[i];
    const char* const record = bytes + position * records.size;
    if (previous && !equalOn(keys, previous, record)) ++rank;
    previous = record;
    const unsigned char place = groups.letters ? groups.place(groups.letters[position]) : 0;
    const std::uint64_t grouped = (std::uint64_t{place} << 32) | rank;
    sorting.nodes[sorting.leaves + position] = {grouped, grouped};
  }
  for (std::size_t i = records.count; i < sorting.leaves; ++i) sorting.nodes[sorting.leaves + i] = nothing;
  for (std::size_t node = sorting.leaves - 1; node > 0; --node) {
    sorting.nodes[node] = joined(sorting.nodes[2 * node], sorting.nodes[2 * node + 1]);
  }
}

}  // namespace

RecordOrder indexOrder(const Records& records, const IndexGroups& groups, std::span<const RecordKey> keys) {
  RecordOrder order = orderOfRecords(records, keys);
  if (!order || records.count < 2) return order;
  const std::size_t leaves = std::bit_ceil(records.count);
  const std::unique_ptr<Extent[], FreeExtents> nodes(static_cast<Extent*>(memoryTakeForOrder(2 * leaves * sizeof(Extent))));
  if (!nodes) return {};
  const Sorting sorting = {nodes.get(), leaves, order.memory.get()};
  fillRanks(sorting, records, groups, keys);
  std::iota(sorting.order, sorting.order + records.count, 0u);
  sortRange(sorting, 0, records.count - 1);
  return order;
}

}  // namespace quillon
