// The Breakup report: several lines a scrip, its figures by client type below one another and its totals beside the first line.
// Normal and Kesto files have a layout each.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "market/breakup_file.h"
#include "text/output.h"

namespace quillon {

struct BreakupOptions {
  unsigned linesPerPage;      // scrips on a page, from 1, whatever number of lines they take
  bool lending;               // the file belongs to the lending market
  std::string_view runDate;   // dd/mm/yyyy
  std::string_view brokerNo;  // as the user typed it
};

// Writes the whole report, page numbers from 1. `order` holds positions in `records`; each is printed.
void writeNormalBreakups(Output& out, const NormalBreakup* records, std::span<const std::uint32_t> order,
                         const BreakupOptions& options);
void writeKestoBreakups(Output& out, const KestoBreakup* records, std::span<const std::uint32_t> order,
                        const BreakupOptions& options);

}  // namespace quillon
