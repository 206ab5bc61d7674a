// The Touchlines report: one row a scrip, in two layouts of columns, each with a lending form of its heading.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "market/touchline_file.h"
#include "text/output.h"

namespace quillon {

struct TouchlinesOptions {
  unsigned linesPerPage;  // rows on a page, from 1
  bool lending;           // the file belongs to the lending market
};

// Writes the whole report, page numbers from 1. `order` holds positions in `records`; a row is printed for each.
void writeNormalTouchlines(Output& out, const TouchlineHeader& header, const NormalTouchline* records,
                           std::span<const std::uint32_t> order, const TouchlinesOptions& options);
void writeKestoTouchlines(Output& out, const TouchlineHeader& header, const KestoTouchline* records,
                          std::span<const std::uint32_t> order, const TouchlinesOptions& options);

}  // namespace quillon
