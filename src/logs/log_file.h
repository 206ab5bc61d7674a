// What the logs of fixed-size records behind a 24-byte header have in common: how many there are, and reading them.
#pragma once

#include <cstddef>

#include "text/input.h"
#include "trades/trade_file.h"

namespace quillon {

// How many whole records follow the header; a tail shorter than one is left alone. Leaves the input at its start. False when
// the size cannot be had.
[[nodiscard]] bool countLogRecords(Input& input, std::size_t recordSize, std::size_t& count);

// Reads the header and `count` records into the zero-filled `block`, from the start of the file. Each of them that comes back
// short is told by `readFailed`; a header then stays as it was, a record all zero, and the load goes on with what follows it.
void readLogRecords(Input& input, TradeHeader& header, std::size_t recordSize, void* block, std::size_t count,
                    void (*readFailed)());

}  // namespace quillon
