// The trader limits reports of the lending product's form, in two layouts. They differ from the Kesto layouts of the Trader
// Limits form (market/trader_limits_report.h) in the column of trader numbers, in words and in blanks. Neither sorts.
#pragma once

#include "kesto/kesto_limits_file.h"
#include "text/output.h"

namespace quillon {

struct KestoLimitsOptions {
  unsigned linesPerPage;  // rows on a page, from 1; trader-wise pages take 20 at most, scrip-wise ones 50
  bool lending;           // the file belongs to the lending market
};

// Each writes a whole report from a file of its layout, page numbers from 1, to the form feed behind its end.
void writeKestoLimitsTraderwise(Output& out, const KestoLimits& file, const KestoLimitsOptions& options);
void writeKestoLimitsScripwise(Output& out, const KestoLimits& file, const KestoLimitsOptions& options);

}  // namespace quillon
