// The pages of both position tools: rows of totals in, a paginated report out.
#pragma once

#include <span>
#include <string_view>

#include "position/position_engine.h"
#include "position/position_tool.h"
#include "text/output.h"

namespace quillon {

struct PositionPages {
  PositionReport report;
  TradeHeader header;         // of the file; its letter tells a Kesto file
  std::string_view selected;  // the client of clientScrip, the scrip of scripClient
  bool isLendingFile;
  unsigned linesPerPage;  // rows on a page, at least 1
  const PositionWords& words;
};

// Writes the report from its first heading to the form feed behind its end. No rows give a page without rows.
void writePositionReport(Output& out, const PositionPages& pages, std::span<const NetPosRow> rows);

}  // namespace quillon
