// The (R) breakup report of the lending product's form: twelve lines a record, two for each of its five days.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "kesto/kesto_breakup_file.h"
#include "text/output.h"

namespace quillon {

struct KestoBreakupOptions {
  unsigned linesPerPage;  // records on a page, from 1
  bool lending;           // the file belongs to the lending market
  std::string_view runDate;
  std::string_view brokerNo;  // as the user typed it
};

// Writes the whole report, page numbers from 1, to the form feed behind its end. `order` holds positions of file.records.
void writeFiveDayBreakups(Output& out, const FiveDayBreakups& file, std::span<const std::uint32_t> order,
                          const KestoBreakupOptions& options);

}  // namespace quillon
