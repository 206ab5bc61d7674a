// The Trader Limits report in its four layouts. None of them sorts.
//
// The Normal layouts are written line by line: begin, one row for each detail line, end. The Kesto layouts are written from
// their records in one call.
#pragma once

#include <cstddef>
#include <span>
#include <string_view>

#include "market/trader_limits_file.h"
#include "text/output.h"

namespace quillon {

struct LimitsOptions {
  unsigned linesPerPage;  // rows on a page, from 1
  bool lending;           // the file belongs to the lending market
};

// A Normal report while it is being written.
struct LimitsReport {
  Output& out;
  const TraderLimitsHeader& header;
  LimitsOptions options;
  int page;       // begin sets these two
  unsigned rows;  // on the page
};

// A row's cells stop where its tokens stop: a line with no token is a line feed alone.
void traderwiseBegin(LimitsReport& report);
void traderwiseRow(LimitsReport& report, std::span<const std::string_view> tokens);
void traderwiseEnd(LimitsReport& report);

void scripwiseBegin(LimitsReport& report);
void scripwiseRow(LimitsReport& report, std::span<const std::string_view> tokens);
void scripwiseEnd(LimitsReport& report);

// What a Kesto trader may do, each as the letter that is printed.
struct TraderRights {
  char noRights;
  char unrestricted;
  char tradeSecurities;
  char normalDeal;
  char crossDeal;
  char lendLimit;
  char borrowLimit;
};
TraderRights traderRights(std::uint32_t controlFlags);

void writeKestoTraderLimits(Output& out, const TraderLimitsHeader& header, std::span<const KestoTraderLimit> records,
                            const LimitsOptions& options);
void writeKestoScripLimits(Output& out, const TraderLimitsHeader& header, std::span<const KestoScripLimit> records,
                           const LimitsOptions& options);

}  // namespace quillon
