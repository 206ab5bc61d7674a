// The order in which records are printed, without moving them: a stable sort of positions by up to three keys.
#pragma once

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <memory>
#include <span>

namespace quillon {

enum class KeyKind {
  none,        // no key: all are equal
  text,        // up to the first NUL or the field's width, byte by byte as unsigned characters
  foldedText,  // the same without regard to the case of the letters A to Z
  number,      // signed 32-bit little-endian
  number8,     // signed 8-bit
  number64,    // signed 64-bit little-endian
  time,        // hour, minute and second as three unsigned bytes: the number that "%02d%02d%02d" of them reads as
};

struct RecordKey {
  KeyKind kind;
  std::size_t offset;  // from the start of the record
  std::size_t width;   // of a text field, in bytes
};

struct Records {
  const void* bytes;
  std::size_t size;   // of one record
  std::size_t count;  // not counting the zero record at the end
};

inline constexpr std::size_t recordKeysMost = 3;

// Fills `order` (room for records.count entries) with the positions 0 to count - 1 in ascending order of the first key, then of
// the second, then of the third; records that are equal on all keep their order in the file. False when no memory is to be had
// for it; `order` then holds the file's order.
//
// Takes 20 bytes a record while it sorts. Folding is to small letters: '_' stands before every letter.
[[nodiscard]] bool recordOrder(const Records& records, std::span<const RecordKey> keys, std::uint32_t* order);
[[nodiscard]] inline bool recordOrder(const Records& records, std::initializer_list<RecordKey> keys, std::uint32_t* order) {
  return recordOrder(records, std::span<const RecordKey>(keys.begin(), keys.size()), order);
}

// The order of a run's records, with memory of its own: 4 bytes a record for as long as it lives. Where there was no memory for
// it, or for the sort, it tests as false and holds no position.
struct RecordOrder {
  struct Free {
    void operator()(std::uint32_t* positions) const;
  };
  std::unique_ptr<std::uint32_t[], Free> memory;
  std::size_t count = 0;

  explicit operator bool() const { return memory != nullptr; }
  std::span<const std::uint32_t> positions() const { return {memory.get(), count}; }
};
[[nodiscard]] RecordOrder orderOfRecords(const Records& records, std::span<const RecordKey> keys);
[[nodiscard]] inline RecordOrder orderOfRecords(const Records& records, std::initializer_list<RecordKey> keys) {
  return orderOfRecords(records, std::span<const RecordKey>(keys.begin(), keys.size()));
}

}  // namespace quillon
