// The order in which records are printed, without moving them: a stable sort of positions by one or two keys.
#pragma once

#include <cstddef>
#include <cstdint>

namespace quillon {

enum class KeyKind {
  none,        // no key: all are equal
  text,        // up to the first NUL or the field's width, byte by byte as unsigned characters
  foldedText,  // the same without regard to the case of the letters A to Z
  number,      // signed 32-bit little-endian
  number8,     // signed 8-bit
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

// Takes 20 bytes a record while it sorts. Folding is to small letters: '_' stands before every letter.
//
// Fills `order` (room for records.count entries) with the positions 0 to count - 1 in ascending order of `first`, then
// `second`; records that are equal on both keep their order in the file. False when no memory is to be had for it; `order`
// then holds the file's order.
[[nodiscard]] bool recordOrder(const Records& records, const RecordKey& first, const RecordKey& second, std::uint32_t* order);

namespace detail {
// The same with the memory from elsewhere (freed by std::free), so that the want of it can be shown.
[[nodiscard]] bool recordOrderWith(const Records& records, const RecordKey& first, const RecordKey& second,
                                   std::uint32_t* order, void* (*allocate)(std::size_t));
}  // namespace detail

}  // namespace quillon
