// Walks records in the order in which they are printed: for (const TradeRec132& trade : inOrder(records, order)).
//
// A day's records fill more memory than the processor's caches hold, and a sorted report jumps about in them: a record that is
// only asked for when its row is printed takes longer to come than the row takes to form. So the walk asks for records a
// few rows ahead.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace quillon {

// Asks for the record that a walk over `order`, now at entry `at`, wants a few steps later; `recordSize` bytes of it.
inline void fetchAhead(const void* records, std::size_t recordSize, std::span<const std::uint32_t> order, std::size_t at) {
  constexpr std::size_t ahead = 8;
  constexpr std::size_t cacheLine = 64;
  if (order.size() - at <= ahead) return;
  const char* record = static_cast<const char*>(records) + std::size_t{order[at + ahead]} * recordSize;
  for (std::size_t byte = 0; byte < recordSize; byte += cacheLine) __builtin_prefetch(record + byte);
  __builtin_prefetch(record + recordSize - 1);
}

template <class Record>
struct InOrder {
  const Record* records;
  std::span<const std::uint32_t> order;

  struct Iterator {
    const InOrder* walk;
    std::size_t at;

    const Record& operator*() const {
      fetchAhead(walk->records, sizeof(Record), walk->order, at);
      return walk->records[walk->order[at]];
    }
    bool operator!=(const Iterator& other) const { return at != other.at; }
    Iterator& operator++() { return ++at, *this; }
  };

  Iterator begin() const { return {this, 0}; }
  Iterator end() const { return {this, order.size()}; }
};

// The records stay whose they are. Every position of `order` is that of a record.
template <class Record>
InOrder<Record> inOrder(const Record* records, std::span<const std::uint32_t> order) {
  return {records, order};
}

}  // namespace quillon
