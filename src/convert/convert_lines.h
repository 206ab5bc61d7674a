// The records of a file as text for other programs: one line a record in file order, every column followed by a '|', no heading
// and no trailer. Rates stand as the file has them, in hundredths, save those of Kesto files.
#pragma once

#include <cstdint>

#include "convert/convert_file.h"
#include "text/input.h"
#include "text/output.h"
#include "trades/trade_file.h"

namespace quillon {

enum class ConvertEnd {
  done,
  formatMissing,  // an admin file of 144-byte records, and no format chosen: nothing is written
  readFailed,     // the file gives fewer records than it was counted to have; the lines of those before stand
};

// Writes the lines of `recordCount` records, as the kind and the rules have them. All but the Kesto files are read from their
// start; a Kesto file goes on from where it stands, which must be its start. A file whose first letter is a Kesto file's is
// written as one whatever its kind.
//
// Records are read as they are written, so that the memory taken does not grow with the file. A column whose code has no text
// repeats the one of the line before, and is empty in the first line. `askFormat` tells the user that no format is chosen for
// an admin file: once, and the end, where its records have 144 bytes; once for each record otherwise. A failed write is
// remembered by `out`.
[[nodiscard]] ConvertEnd writeLines(Input& in, Output& out, const TradeHeader& header, ConvertKind kind,
                                    const ConvertRules& rules, std::int64_t recordCount, void (*askFormat)());

// Of the first `recordCount` records of an order log with 136-byte records, how many are of this kind ('N', 'Y' or 'I', see
// OrderRec136). Reads from the start of the file and leaves it there. False when that fails.
[[nodiscard]] bool countRecordsOfKind(Input& in, std::int64_t recordCount, char recordKind, std::int64_t& matchCount);

}  // namespace quillon
