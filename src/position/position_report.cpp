// Three layouts, for the exchange's own market, for Kesto and for the lending market, each with four reports. What a reader of
// the printed page may take for a slip (a heading narrower than its columns, a blank behind the last bar, rules of uneven
// length) belongs to the layout: other programs read these pages.
#include "position/position_report.h"

#include <string>

#include "text/print.h"

namespace quillon {

namespace {

enum class Market { normal, kesto, lending };

struct Layout {
  const char* topRule;
  const char* columns;
  const char* underRule;
  const char* closingRule;
  void (*row)(Output&, const NetPosRow&);
};

}  // namespace

// ---- Rows -------------------------------------------------------------------------------------------------------------

// clang-format off

// An average in hundredths as its whole part, a point and its last two digits.
static auto averageText(std::int64_t average) {
  return formatCell<"%11I64d.%02ld">(average / 100, static_cast<std::int32_t>(average % 100));
}

// In the rows of one client an average sell rate stands unpadded; its cell aligns it all the same.
static std::string averageSellTextOfClient(std::int64_t average) {
  if (average <= 0) return std::string(averageText(average).view());
  return formatText<"%I64d.%02ld">(average / 100, static_cast<std::int32_t>(average % 100));
}

static void clientWiseRow(Output& out, const NetPosRow& row) {
  print<"|%12s|%17.2f|%17.2f|%17.2f|\n">(out, row.name, row.buyValue, row.sellValue, row.buyValue - row.sellValue);
}

static void clientScripRow(Output& out, const NetPosRow& row) {
  print<"|%12s|%12ld|%14s|%12ld|%14s|%12ld|%16.2f|%14.2f| \n">(out,
      row.name, row.buyQty, averageText(positionAverageBuy(row)),
      row.sellQty, averageSellTextOfClient(positionAverageSell(row)),
      positionNetQty(row), positionNetValue(row), positionBreakEven(row));
}

static void scripClientRow(Output& out, const NetPosRow& row) {
  print<"|%12s|%12ld|%14s|%12ld|%14s|%12ld|%16.2f|%14.2f|\n">(out,
      row.name, row.buyQty, averageText(positionAverageBuy(row)),
      row.sellQty, averageText(positionAverageSell(row)),
      positionNetQty(row), positionNetValue(row), positionBreakEven(row));
}

static void scripWiseRow(Output& out, const NetPosRow& row) {
  print<"|%12s|%12ld|%14s|%12ld|%14s|%12ld|%16.2f|%14.2f| \n">(out,
      row.name, row.buyQty, averageText(positionAverageBuy(row)),
      row.sellQty, averageText(positionAverageSell(row)),
      positionNetQty(row), positionNetValue(row), positionBreakEven(row));
}

static void lendingClientScripRow(Output& out, const NetPosRow& row) {
  print<"|%12s|%12ld|%14s|%12ld|%14s|%16.2f| \n">(out,
      row.name, row.buyQty, averageText(positionAverageBuy(row)),
      row.sellQty, averageSellTextOfClient(positionAverageSell(row)), positionNetValue(row));
}

static void lendingScripClientRow(Output& out, const NetPosRow& row) {
  print<"|%12s|%12ld|%16s|%12ld|%15s|%16.2f|\n">(out,
      row.name, row.buyQty, averageText(positionAverageBuy(row)),
      row.sellQty, averageText(positionAverageSell(row)), positionNetValue(row));
}

static void lendingScripWiseRow(Output& out, const NetPosRow& row) {
  print<"|%12s|%12ld|%14s|%12ld|%14s|%16.2f|\n">(out,
      row.name, row.buyQty, averageText(positionAverageBuy(row)),
      row.sellQty, averageText(positionAverageSell(row)), positionNetValue(row));
}

// ---- Headings, rules and rows of each market --------------------------------------------------------------------------

static constexpr char grossUnderRule[] = "|____________|_________________|_________________|_________________|\n";
static constexpr char wideTopRule[]    = " _________________________________________________________________________________________________________________\n";
static constexpr char wideUnderRule[]  = "|____________|____________|______________|____________|______________|____________|________________|______________|\n";
static constexpr char kestoTopRule[]   = " _______________________________________________________________________________________________________\n";
static constexpr char kestoUnderRule[] = "|____________|____________|____________|____________|____________|____________|____________|____________|\n";
static constexpr char lendUnderRule[]  = "|____________|____________|______________|____________|______________|________________|\n";
static constexpr char lendUnderRule33[] = "|____________|____________|________________|____________|_______________|________________|\n";

static constexpr Layout normalClientWise = {
    " __________________________________________________________________\n",
    "|Client Id   |   Gross Buy     |   Gross Sell    |  Net  Value     |\n",
    grossUnderRule, grossUnderRule, clientWiseRow};
static constexpr Layout normalClientScrip = {
    wideTopRule,
    "|Scrip Name  |   Buy Qty  | Buy Avg Rate | Sell Qty   | Sell AvgRate |   Net Qty  |   Net Value    |      BEP     |\n",
    wideUnderRule, wideUnderRule, clientScripRow};
static constexpr Layout normalScripClient = {
    wideTopRule,
    "|Client Name |   Buy Qty  | Buy Avg Rate | Sell Qty   | Sell AvgRate |   Net Qty  |   Net Value    |      BEP     |\n",
    wideUnderRule, wideUnderRule, scripClientRow};
static constexpr Layout normalScripWise = {
    wideTopRule,
    "|Scrip Name  |   Buy Qty  | Buy Avg Rate | Sell Qty   | Sell AvgRate |   Net Qty  |    Net Value   |     BEP      |\n",
    wideUnderRule, wideUnderRule, scripWiseRow};

// The cells of a Kesto heading are narrower than the rows, which keep the widths of the exchange's own market.
static constexpr Layout kestoClientWise = {
    " ____________________________________________________________\n",
    "|Client Id   | Gross Lend    |Gross Borrow   |Net  Value     |\n",
    "|____________|_______________|_______________|_______________|\n",
    grossUnderRule, clientWiseRow};
static constexpr Layout kestoClientScrip = {
    kestoTopRule,
    "|Scrip Name  |  Lend Qty  |LendAvgRate | Borrow Qty |BorrAvgRate |   Net Qty  | Net Value  |    BEP     |\n",
    kestoUnderRule, wideUnderRule, clientScripRow};
static constexpr Layout kestoScripClient = {
    kestoTopRule,
    "|Client Name |  Lend Qty  |LendAvgRate | Borrow Qty |BorrAvgRate |   Net Qty  | Net Value  |     BEP    |\n",
    kestoUnderRule, wideUnderRule, scripClientRow};
static constexpr Layout kestoScripWise = {
    kestoTopRule,
    "|Scrip Name  |  Lend Qty  |LendAvgRate | Borrow Qty |BorrAvgRate |   Net Qty  | Net Value  |    BEP     |\n",
    kestoUnderRule, wideUnderRule, scripWiseRow};

static constexpr Layout lendingClientWise = {
    " __________________________________________________________________\n",
    "|Client Id   |L.Fee Payable    |L.Fee Receivable |  Net  Value     |\n",
    grossUnderRule, grossUnderRule, clientWiseRow};
static constexpr Layout lendingClientScrip = {
    " ______________________________________________________________________________________\n",
    "|Scrip Name  |Borrow  Qty |Borrow AvgRate| Lend Qty   | Lend AvgRate |   Net Value    |\n",
    lendUnderRule, lendUnderRule, lendingClientScripRow};
static constexpr Layout lendingScripClient = {
    " ________________________________________________________________________________________\n",
    "|Client Name |Borrow Qty  |Borrow Avg Rate | Lend Qty   | Lend Avg Rate |   Net Value    |\n",
    lendUnderRule33, lendUnderRule33, lendingScripClientRow};
static constexpr Layout lendingScripWise = {
    " _____________________________________________________________________________________\n",
    "|Scrip Name  |Borrow Qty  |Borrow AvgRate| Lend Qty   | Lend AvgRate |    Net Value   |\n",
    lendUnderRule, lendUnderRule, lendingScripWiseRow};

// clang-format on

static const Layout& choose(Market market, const Layout& normal, const Layout& kesto, const Layout& lending) {
  switch (market) {
    case Market::normal:
      return normal;
    case Market::kesto:
      return kesto;
    case Market::lending:
      return lending;
  }
  return normal;
}

static const Layout& layoutOf(Market market, PositionReport report) {
  switch (report) {
    case PositionReport::clientWise:
      return choose(market, normalClientWise, kestoClientWise, lendingClientWise);
    case PositionReport::clientScrip:
      return choose(market, normalClientScrip, kestoClientScrip, lendingClientScrip);
    case PositionReport::scripClient:
      return choose(market, normalScripClient, kestoScripClient, lendingScripClient);
    case PositionReport::scripWise:
      break;
  }
  return choose(market, normalScripWise, kestoScripWise, lendingScripWise);
}

static bool isKestoFile(const PositionPages& pages) { return pages.header.fileKind != 'N' && pages.header.fileKind != 'V'; }

static Market marketOf(const PositionPages& pages) {
  if (isKestoFile(pages)) return Market::kesto;
  return pages.words.hasLendingLayout && pages.isLendingFile ? Market::lending : Market::normal;
}

// ---- The page heading -------------------------------------------------------------------------------------------------

// clang-format off

static void writePageTitle(Output& out, const PositionPages& pages, int page) {
  const bool lending = pages.words.hasLendingLayout && pages.isLendingFile;
  print<" %20s%s%35s%2d\n\n">(out, "", lending ? "KOR SHARE HOLDING LTD." : "TARVEN STOCK EXCHANGE LTD.", "Page:", page);
}

static void writeMemberLine(Output& out, const TradeHeader& header) {
  print<"Member :%ld%100sDATE:%02d-%02d-%02d%02d \nTrader :%4ld%100sTime:%02d:%02d:%02d\n\n">(out,
      header.memberId, "", header.day, header.month, header.century, header.year,
      header.traderId, "", header.hour, header.minute, header.second);
}

static void writeIdentityLines(Output& out, const PositionPages& pages) {
  const TradeHeader& header = pages.header;
  switch (pages.report) {
    case PositionReport::clientWise:
      print<"%s%ld\n">(out, "Broker Id :", header.memberId);
      print<"\nClientwise Position for Trader : %ld   as on %d-%d-%02d%02d\n">(out,
          header.traderId, header.day, header.month, header.century, header.year);
      return;
    case PositionReport::clientScrip:
      print<"%79s%s\n">(out, isKestoFile(pages) ? netPositionTool.words.clientScripTitle : pages.words.clientScripTitle,
          pages.selected);
      writeMemberLine(out, header);
      return;
    case PositionReport::scripClient:
      print<"%79s%s\n\n">(out, isKestoFile(pages) ? netPositionTool.words.scripClientTitle : pages.words.scripClientTitle,
          pages.selected);
      writeMemberLine(out, header);
      return;
    case PositionReport::scripWise:
      print<"%s%ld\n">(out, "Broker Id :", header.memberId);
      print<"\nScripwise Position for Trader : %ld   as on %d-%d-%02d%02d\n">(out,
          header.traderId, header.day, header.month, header.century, header.year);
      return;
  }
}

// clang-format on

static void writeHeading(Output& out, const PositionPages& pages, const Layout& layout, int page) {
  writePageTitle(out, pages, page);
  writeIdentityLines(out, pages);
  outputText(out, layout.topRule);
  outputText(out, layout.columns);
  outputText(out, layout.underRule);
}

// ---- The report -------------------------------------------------------------------------------------------------------

static const char* endTextOf(const PositionPages& pages) {
  switch (pages.report) {
    case PositionReport::clientWise:
      return pages.words.endClientWise;
    case PositionReport::clientScrip:
      return pages.words.endClientScrip;
    case PositionReport::scripClient:
      return pages.words.endScripClient;
    case PositionReport::scripWise:
      break;
  }
  return pages.words.endScripWise;
}

void writePositionReport(Output& out, const PositionPages& pages, std::span<const NetPosRow> rows) {
  constexpr char pageEnd = 12;
  const Layout& layout = layoutOf(marketOf(pages), pages.report);

  int page = 1;
  writeHeading(out, pages, layout, page);
  for (std::size_t i = 0; i < rows.size(); ++i) {
    if (i > 0 && i % pages.linesPerPage == 0) {
      outputText(out, layout.closingRule);
      print<"%c">(out, pageEnd);
      ++page;
      writeHeading(out, pages, layout, page);
    }
    layout.row(out, rows[i]);
  }
  outputText(out, layout.closingRule);
  outputText(out, endTextOf(pages));
  print<"%c">(out, pageEnd);
}

}  // namespace quillon
