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

template <class Record>
struct InOrder {
  const Record* records;
  std::span<const std::uint32_t> order;

  struct Iterator {
    const Record* records;
    const std::uint32_t* next;
    const std::uint32_t* end;

    const Record& operator*() const { return records[*next]; }
    bool operator!=(const Iterator& other) const { return next != other.next; }
    Iterator& operator++() {
      constexpr std::ptrdiff_t ahead = 8;
      constexpr std::size_t cacheLine = 64;
      ++next;
      if (end - next > ahead) {
        const auto* record = reinterpret_cast<const char*>(records + next[ahead]);
        for (std::size_t at = 0; at < sizeof(Record); at += cacheLine) __builtin_prefetch(record + at);
        __builtin_prefetch(record + sizeof(Record) - 1);
      }
      return *this;
    }
  };

  Iterator begin() const { return {records, order.data(), order.data() + order.size()}; }
  Iterator end() const { return {records, order.data() + order.size(), order.data() + order.size()}; }
};

// The records stay whose they are. Every position of `order` is that of a record.
template <class Record>
InOrder<Record> inOrder(const Record* records, std::span<const std::uint32_t> order) {
  return {records, order};
}

}  // namespace quillon
