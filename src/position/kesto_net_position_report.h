// The pages of the Kesto net position: rows of totals in, a paginated report out.
#pragma once

#include <span>
#include <string_view>

#include "position/kesto_net_position_engine.h"
#include "text/output.h"

namespace quillon {

struct KestoPositionPages {
  PositionReport report;
  TradeHeader header;         // of the file
  std::string_view selected;  // the client of clientScrip, the scrip of scripClient
  bool isLendingFile;
  unsigned linesPerPage;  // rows on a page, at least 1
};

// Writes the report from its first heading to the form feed behind its end. No rows give a page without rows.
void writeKestoPosition(Output& out, const KestoPositionPages& pages, std::span<const KestoNetPosRow> rows);

}  // namespace quillon
