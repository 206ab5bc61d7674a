#include "position/kesto_net_position_report.h"

#include "text/print.h"

namespace quillon {

static constexpr char formFeed = 12;

namespace {

struct Layout {
  void (*identity)(Output&, const KestoPositionPages&);  // the lines between the page's first one and the table
  const char* topRule;
  const char* columns;
  const char* rule;  // under the columns, and closing the table
  void (*row)(Output&, const KestoNetPosRow&);
  const char* end;
};

}  // namespace

// clang-format off

// ---- Lines of the heading ---------------------------------------------------------------------------------------------

static void pageLine(Output& out, bool isLendingFile, int page) {
  print<" %20s%s%35s%2d\n\n">(out, "", isLendingFile ? "KOR SHARE HOLDING LTD." : "TARVEN STOCK EXCHANGE LTD.", "Page:", page);
}

static void clientIdentity(Output& out, const KestoPositionPages& pages) {
  const TradeHeader& h = pages.header;
  print<"%s%ld\n">(out, "Broker Id : ", h.memberId);
  print<"\nClientwise Position for Trader : %ld   as on %d-%d-%02d%02d\n">(out, h.traderId, h.day, h.month, h.century, h.year);
}

static void scripIdentity(Output& out, const KestoPositionPages& pages) {
  const TradeHeader& h = pages.header;
  print<"%s%ld\n">(out, "Broker Id :", h.memberId);
  print<"\nScripwise Position for Trader : %ld   as on %d-%d-%02d%02d\n">(out, h.traderId, h.day, h.month, h.century, h.year);
}

static void clientScripIdentity(Output& out, const KestoPositionPages& pages) {
  const TradeHeader& h = pages.header;
  print<"%79s%s\n">(out, "ScripWise Net Position of Client : ", pages.selected);
  print<"Member :%ld%92sDATE:%02d-%02d-%02d%02d \nTrader :%4ld%96sTime:%02d:%02d:%02d\n\n">(out,
      h.memberId, "", h.day, h.month, h.century, h.year, h.traderId, "", h.hour, h.minute, h.second);
}

static void scripClientIdentity(Output& out, const KestoPositionPages& pages) {
  const TradeHeader& h = pages.header;
  print<"%79s%s\n\n">(out, "ClientWise Net Position of Scrip : ", pages.selected);
  print<"Member :%ld%80sDATE:%02d-%02d-%02d%02d \nTrader :%4ld%80sTime:%02d:%02d:%02d\n\n">(out,
      h.memberId, "", h.day, h.month, h.century, h.year, h.traderId, "", h.hour, h.minute, h.second);
}

// ---- Rows -------------------------------------------------------------------------------------------------------------

static void clientRow(Output& out, const KestoNetPosRow& row) {
  print<"|%12s|%15.4f|%15.4f|%15.4f|\n">(out, row.name, row.lendValue, row.borrowValue, kestoNetValue(row));
}

static void scripRow(Output& out, const KestoNetPosRow& row) {
  print<"|%12s|%3ld|%12ld|%15.4f|%12ld|%15.4f|%12ld|%15.4f|%15.4f| \n">(out,
      row.name, row.day, row.lendQty, kestoAverageLend(row), row.borrowQty, kestoAverageBorrow(row),
      kestoNetQty(row), kestoNetValue(row), kestoBreakEven(row));
}

static void scripClientRow(Output& out, const KestoNetPosRow& row) {
  print<"|%12s|%12ld|%15.4f|%12ld|%15.4f|%12ld|%15.4f|%15.4f|\n">(out,
      row.name, row.lendQty, kestoAverageLend(row), row.borrowQty, kestoAverageBorrow(row),
      kestoNetQty(row), kestoNetValue(row), kestoBreakEven(row));
}

// ---- The four tables --------------------------------------------------------------------------------------------------

static constexpr char scripTopRule[] = " _______________________________________________________________________________________________________________________\n";
static constexpr char scripRule[]    = "|____________|___|____________|_______________|____________|_______________|____________|_______________|_______________|\n";

static constexpr Layout clientLayout = {
    clientIdentity,
    " ____________________________________________________________\n",
    "|Client Id   |   Gross Lend  |  Gross Borrow | Net  Value    |\n",
    "|____________|_______________|_______________|_______________|\n",
    clientRow,
    "****End of Clientwise Netposition Report****\n"};
static constexpr Layout scripLayout = {
    scripIdentity,
    scripTopRule,
    "|Scrip Name  |Day|  Lend Qty  | Lend Avg Rate | Borrow Qty | Borrow AvgRate|   Net Qty  |  Net Value    |     BEP       |\n",
    scripRule,
    scripRow,
    "***End of Scripwise Netposition Report**\n"};
static constexpr Layout clientScripLayout = {
    clientScripIdentity,
    scripTopRule,
    "|Scrip Name  |Day| Lend Qty   | Lend Avg Rate | Borrow Qty | Borrow AvgRate|   Net Qty  |  Net Value    |     BEP       |\n",
    scripRule,
    scripRow,
    "***End of ClientwiseScripwise Netposition Report**\n"};
static constexpr Layout scripClientLayout = {
    scripClientIdentity,
    " ___________________________________________________________________________________________________________________\n",
    "|Client Name |  Lend Qty  | Lend Avg Rate | Borrow Qty | Borrow AvgRate|   Net Qty  |  Net Value    |      BEP      |\n",
    "|____________|____________|_______________|____________|_______________|____________|_______________|_______________|\n",
    scripClientRow,
    "***End of ScripwiseClientwise Netposition Report**\n"};

// clang-format on

static const Layout& layoutOf(PositionReport report) {
  switch (report) {
    case PositionReport::clientWise:
      return clientLayout;
    case PositionReport::clientScrip:
      return clientScripLayout;
    case PositionReport::scripClient:
      return scripClientLayout;
    case PositionReport::scripWise:
      break;
  }
  return scripLayout;
}

// ---- Pages ------------------------------------------------------------------------------------------------------------

static void heading(Output& out, const KestoPositionPages& pages, const Layout& layout, int page) {
  pageLine(out, pages.isLendingFile, page);
  layout.identity(out, pages);
  outputText(out, layout.topRule);
  outputText(out, layout.columns);
  outputText(out, layout.rule);
}

void writeKestoPosition(Output& out, const KestoPositionPages& pages, std::span<const KestoNetPosRow> rows) {
  const Layout& layout = layoutOf(pages.report);
  int page = 1;
  unsigned rowsOnPage = 0;
  heading(out, pages, layout, page);
  for (const KestoNetPosRow& row : rows) {
    if (rowsOnPage == pages.linesPerPage) {
      ++page;
      outputText(out, layout.rule);
      print<"%c">(out, formFeed);
      heading(out, pages, layout, page);
      rowsOnPage = 0;
    }
    layout.row(out, row);
    ++rowsOnPage;
  }
  outputText(out, layout.rule);
  outputText(out, layout.end);
  print<"%c">(out, formFeed);
}

}  // namespace quillon
