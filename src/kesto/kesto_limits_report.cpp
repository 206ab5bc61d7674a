#include "kesto/kesto_limits_report.h"

#include <algorithm>
#include <span>

#include "market/trader_limits_report.h"
#include "text/print.h"

namespace quillon {

static constexpr char formFeed = 12;
// A trader takes two lines, its rule among them.
static constexpr unsigned mostTraderRows = 20;
static constexpr unsigned mostScripRows = 50;

static const char* titleOf(bool lending) {
  return lending ? "KOR SHARE HOLDING LTD.  <KESTO TRADER LIMITS>" : "TARVEN STOCK EXCHANGE LTD.  <KESTO TRADER LIMITS>";
}

static void pageEnd(Output& out) {
  print<"%c">(out, formFeed);
  print<"\n\n\n">(out);
}

// ---- Trader-wise ------------------------------------------------------------------------------------------------------

// clang-format off

static void traderRule(Output& out) {
  print<"|____|___________|____|____|____|____|____|____|__________|____|__________|\n">(out);
}

static void traderHeading(Output& out, const TraderLimitsHeader& header, bool lending, int page) {
  print<" %7s%s%10s%2d\n\n">(out, "", titleOf(lending), "Page:", page);
  print<" %s%ld\n">(out, "Broker Id :", header.brokerId);
  print<"%2s Traderwise KESTO Binary Control Detail Report as on date:  %s\n">(out, "", header.date);
  print<" _________________________________________________________________________\n">(out);
  print<"|Trd.|Trader Name| No |UTrd|Trd | N  | X  |Llim|GrossLend |BLim|GrossBorr |\n">(out);
  print<"|No. |           |Rgts|    |Sec |Deal|Deal|    | Limit    |    | Limit    |\n">(out);
  traderRule(out);
}

static void traderRow(Output& out, const KestoTraderLimit& record) {
  const TraderRights rights = traderRights(record.controlFlags);
  print<"|%2ld  |%-11s| %c  | %c  | %c  | %c  | %c  | %c  |%10d|">(out, record.traderNo, record.traderName,
      rights.noRights, rights.unrestricted, rights.tradeSecurities, rights.normalDeal, rights.crossDeal,
      rights.lendLimit, record.grossLendLimit);
  print<" %c  |%10d|\n">(out, rights.borrowLimit, record.grossBorrowLimit);
  traderRule(out);
}

// clang-format on

void writeKestoLimitsTraderwise(Output& out, const KestoLimits& file, const KestoLimitsOptions& options) {
  const unsigned linesPerPage = std::min(options.linesPerPage, mostTraderRows);
  int page = 1;
  unsigned rows = 0;
  traderHeading(out, file.header, options.lending, page);
  for (const KestoTraderLimit& record : std::span(file.traders, file.count)) {
    if (rows == linesPerPage) {
      // Every row has its own rule, so a full page needs none.
      pageEnd(out);
      traderHeading(out, file.header, options.lending, ++page);
      rows = 0;
    }
    traderRow(out, record);
    ++rows;
  }
  print<"\n\n%65s">(out, "***** End  Of   Traderwise Binary Report *****");
  print<"%c">(out, formFeed);
}

// ---- Scrip-wise -------------------------------------------------------------------------------------------------------

// clang-format off

static void scripRule(Output& out) {
  print<"|__________|_______________|__________|__________|\n">(out);
}

static void scripHeading(Output& out, const TraderLimitsHeader& header, bool lending, int page) {
  print<" %8s%s%10s%2d\n\n">(out, "", titleOf(lending), "Page:", page);
  print<"%s%ld\n">(out, "Broker Id :", header.brokerId);
  print<"%9s KESTO Scripwise limits for Trader : %ld   as on %s\n">(out, "", header.traderId, header.date);
  print<" ________________________________________________\n">(out);
  print<"|Scrip Code|  Scrip_Id     |Lend Limit|Borr limit|\n">(out);
  scripRule(out);
}

static void scripRow(Output& out, const KestoScripLimit& record) {
  print<"|%10Fld|%-15Fs|%10Fld|%10Fld|\n">(out, record.scripCode, record.scripId, record.lendLimit, record.borrowLimit);
}

// clang-format on

void writeKestoLimitsScripwise(Output& out, const KestoLimits& file, const KestoLimitsOptions& options) {
  const unsigned linesPerPage = std::min(options.linesPerPage, mostScripRows);
  int page = 1;
  unsigned rows = 0;
  scripHeading(out, file.header, options.lending, page);
  for (const KestoScripLimit& record : std::span(file.scrips, file.count)) {
    if (rows == linesPerPage) {
      scripRule(out);
      pageEnd(out);
      scripHeading(out, file.header, options.lending, ++page);
      rows = 0;
    }
    scripRow(out, record);
    ++rows;
  }
  scripRule(out);
  print<"\n\n%20s">(out, "***** End  Of KESTO Trader Scrip Report *****");
  print<"%c">(out, formFeed);
}

}  // namespace quillon
