// What the logs of fixed-size records behind a 24-byte header have in common: how many there are, and reading them.
#pragma once

#include <cstddef>

#include "text/input.h"

namespace quillon {

// How many whole records follow the header; a tail shorter than one is left alone. Leaves the input at its start. False when
// the size cannot be had.
[[nodiscard]] bool countLogRecords(Input& input, std::size_t recordSize, std::size_t& count);

// Passes over the header and reads `count` records into the zero-filled `block`, from the start of the file. Each header or
// record that comes back short is told by `readFailed`: true carries on with what follows it, the record staying all zero;
// false ends the load. False when it was ended so.
[[nodiscard]] bool readLogRecords(Input& input, std::size_t recordSize, void* block, std::size_t count, bool (*readFailed)());

}  // namespace quillon
