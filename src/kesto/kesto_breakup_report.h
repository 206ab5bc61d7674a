// The (R) breakup report of the lending product's form: twelve lines a record, two for each of its five days.
#pragma once

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

// Writes the whole report in file.order, page numbers from 1, to the form feed behind its end.
void writeKestoBreakups(Output& out, const KestoBreakups& file, const KestoBreakupOptions& options);

}  // namespace quillon
