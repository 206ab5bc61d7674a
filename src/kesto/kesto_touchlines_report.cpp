#include "kesto/kesto_touchlines_report.h"

#include "text/in_order.h"
#include "text/print.h"

namespace quillon {

static constexpr char formFeed = 12;

// clang-format off

static void dashRule(Output& out) {
  print<"|-----------">(out);
  print<"|-----------">(out);
  print<"|-----">(out);
  for (int i = 0; i < 6; ++i) print<"|--------">(out);
  print<"|---------">(out);
  print<"|---------">(out);
  print<"|----------">(out);
  print<"|\n">(out);
}

static void closingRule(Output& out) {
  print<"|___________">(out);
  print<"|___________">(out);
  print<"|_____">(out);
  for (int i = 0; i < 6; ++i) print<"|________">(out);
  print<"|_________">(out);
  print<"|_________">(out);
  print<"|__________">(out);
  print<"|\n">(out);
}

static void columnHeads(Output& out) {
  print<"| ScripId   ">(out);
  print<"| ScripCode ">(out);
  print<"| Day ">(out);
  print<"| L_Rate ">(out);
  print<"| L_Qty  ">(out);
  print<"|  Lend  ">(out);
  print<"| B_Rate ">(out);
  print<"| B_Qty  ">(out);
  print<"| Borrow ">(out);
  print<"| StdRate ">(out);
  print<"| WeighAv ">(out);
  print<"|Trd Volume">(out);
  print<"|\n">(out);

  print<"|           ">(out);
  print<"|           ">(out);
  print<"|     ">(out);
  print<"|        ">(out);
  print<"|        ">(out);
  print<"| Yield  ">(out);
  print<"|        ">(out);
  print<"|        ">(out);
  print<"|  Yield ">(out);
  print<"|         ">(out);
  print<"|         ">(out);
  print<"|          ">(out);
  print<"|\n">(out);
}

static void heading(Output& out, const TouchlineHeader& header, bool lending, int page) {
  const char* const title = lending ? "                  KOR SHARE HOLDING LTD. <KESTO TOUCHLINES>"
                                    : "                  TARVEN STOCK EXCHANGE LTD. <KESTO TOUCHLINES>";
  print<"%51s%19s%2d\n">(out, title, "Page", page);
  print<"\n         %s             %s             %s\n">(out, header.date, header.second, header.third);
  dashRule(out);
  columnHeads(out);
  dashRule(out);
}

static void rateCell(Output& out, std::int32_t tenThousandths) {
  if (tenThousandths != 0) {
    print<"|%8.4f">(out, tenThousandths / 10000.0);
  } else {
    print<"|        ">(out);
  }
}

static void qtyCell(Output& out, std::int32_t qty) {
  if (qty != 0) {
    print<"|%8ld">(out, qty);
  } else {
    print<"|        ">(out);
  }
}

// In a market of status "BC" an asterisk tells that the side has a quote, and the yield itself is not shown.
static void yieldCell(Output& out, bool hidden, std::int32_t tenThousandths, std::int32_t qty) {
  if (!hidden) return rateCell(out, tenThousandths);
  if (qty != 0) {
    print<"|%8s">(out, "*");
  } else {
    print<"|        ">(out);
  }
}

static void rowLine(Output& out, const KestoDayTouchline& row) {
  const bool yieldsHidden = row.marketStatus.view() == "BC";
  print<"|%11s">(out, row.scripId);
  print<"|%11ld">(out, row.scripCode);
  print<"|%5ld">(out, row.days);
  rateCell(out, row.lendRate);
  qtyCell(out, row.lendQty);
  yieldCell(out, yieldsHidden, row.lendYield, row.lendQty);
  rateCell(out, row.borrowRate);
  qtyCell(out, row.borrowQty);
  yieldCell(out, yieldsHidden, row.borrowYield, row.borrowQty);
  // Two decimals, where all the others have four.
  if (row.stdRate != 0) {
    print<"|%9.2f">(out, row.stdRate / 10000.0);
  } else {
    print<"|         ">(out);
  }
  if (row.weighAv != 0) {
    print<"|%9.4f">(out, row.weighAv / 10000.0);
  } else {
    print<"|         ">(out);
  }
  if (row.tradeVolume != 0) {
    print<"|%10ld">(out, row.tradeVolume);
  } else {
    print<"|          ">(out);
  }
  print<"|\n">(out);
}

// clang-format on

void writeKestoDayTouchlines(Output& out, const KestoDayTouchlines& file, std::span<const std::uint32_t> order,
                             const KestoTouchlinesOptions& options) {
  int page = 1;
  unsigned rows = 0;
  heading(out, file.header, options.lending, page);
  for (const KestoDayTouchline& row : inOrder(file.rows, order)) {
    if (rows == options.linesPerPage) {
      closingRule(out);
      print<"%c">(out, formFeed);
      heading(out, file.header, options.lending, ++page);
      rows = 0;
    }
    rowLine(out, row);
    ++rows;
  }
  closingRule(out);
  print<"%c">(out, formFeed);
}

}  // namespace quillon
