// The touchlines report of the lending product: one line a scrip and number of days.
#pragma once

#include <cstdint>
#include <span>

#include "kesto/kesto_touchlines_file.h"
#include "text/output.h"

namespace quillon {

struct KestoTouchlinesOptions {
  unsigned linesPerPage;  // rows on a page, from 1
  bool lending;           // the file belongs to the lending market
};

// Writes the whole report, page numbers from 1, to the form feed behind its last rule. `order` holds positions of file.rows; a
// row is printed for each.
void writeKestoDayTouchlines(Output& out, const KestoDayTouchlines& file, std::span<const std::uint32_t> order,
                             const KestoTouchlinesOptions& options);

}  // namespace quillon
