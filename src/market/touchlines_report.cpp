#include "market/touchlines_report.h"

#include "text/in_order.h"
#include "text/print.h"

namespace quillon {

static constexpr char formFeed = 12;

namespace {

struct Page {
  int number;
  unsigned rows;
};

}  // namespace

// ---- Normal -----------------------------------------------------------------------------------------------------------

// clang-format off

static void normalTopRule(Output& out) {
  print<"|~~~~~~~~~~~">(out);
  print<"|~~~~~~~~~~~">(out);
  for (int i = 0; i < 6; ++i) print<"|~~~~~~~~~~">(out);
  print<"|~~~~~~~~~~~~">(out);
  print<"|\n">(out);
}

static void normalHeading(Output& out, const TouchlineHeader& header, const TouchlinesOptions& options, int page) {
  const char* const title = options.lending ? "       KOR SHARE HOLDING LTD.   <NORMAL TOUCHLINES>"
                                            : "       TARVEN STOCK EXCHANGE LTD.   <NORMAL TOUCHLINES>";
  print<"%40s%20s%2d\n">(out, title, "PgNum", page);
  if (options.lending) {
    print<"\n        %s            %s \n\n">(out, header.date, header.second);
  } else {
    print<"\n        %s            %s            %s\n\n">(out, header.date, header.second, header.third);
  }

  print<"\n">(out);
  normalTopRule(out);

  print<"| ScripId   ">(out);
  print<"| ScripCode ">(out);
  print<"|  B_Rate  ">(out);
  if (options.lending) {
    print<"|  L_Rate  ">(out);
  } else {
    print<"|  O_Rate  ">(out);
  }
  print<"|  Open    ">(out);
  print<"|  High    ">(out);
  print<"|  Low     ">(out);
  print<"|  Lt_Trd  ">(out);
  print<"| Trd Volume ">(out);
  print<"|\n">(out);

  print<"|           ">(out);
  print<"|           ">(out);
  for (int i = 0; i < 6; ++i) print<"|          ">(out);
  print<"|            ">(out);
  print<"|\n">(out);

  normalTopRule(out);
}

// Without the line's end, which differs between a page break and the end of the report.
static void normalClosingRule(Output& out) {
  print<"|___________">(out);
  print<"|___________">(out);
  for (int i = 0; i < 6; ++i) print<"|__________">(out);
  print<"|____________">(out);
}

// Nothing was quoted or traded at a rate of zero or below, so the cell stays blank.
static void normalRate(Output& out, std::int32_t paise) {
  if (paise < 1) {
    print<"|          ">(out);
  } else {
    print<"|%10.2f">(out, paise / 100.0);
  }
}

static void normalRow(Output& out, const NormalTouchline& record) {
  print<"|%11s">(out, record.scripId);
  print<"|%11ld">(out, record.scripCode);
  normalRate(out, record.rate1);
  normalRate(out, record.rate2);
  normalRate(out, record.open);
  normalRate(out, record.high);
  normalRate(out, record.low);
  normalRate(out, record.lastTraded);
  if (record.volume < 1) {
    print<"|            ">(out);
  } else {
    print<"|%12ld">(out, record.volume);
  }
  print<"|\n">(out);
}

// clang-format on

void writeNormalTouchlines(Output& out, const TouchlineHeader& header, const NormalTouchline* records,
                           std::span<const std::uint32_t> order, const TouchlinesOptions& options) {
  Page page = {1, 0};
  normalHeading(out, header, options, page.number);
  for (const auto& record : inOrder(records, order)) {
    if (page.rows == options.linesPerPage) {
      normalClosingRule(out);
      print<"|\n\n\n">(out);
      print<"%c">(out, formFeed);
      page = {page.number + 1, 0};
      normalHeading(out, header, options, page.number);
    }
    normalRow(out, record);
    ++page.rows;
  }
  normalClosingRule(out);
  print<"|\n">(out);
  print<"%c">(out, formFeed);
}

// ---- Kesto ------------------------------------------------------------------------------------------------------------

// clang-format off

static void kestoTopRule(Output& out) {
  print<"|~~~~~~~~~~~">(out);
  print<"|~~~~~~~~~~~">(out);
  for (int i = 0; i < 8; ++i) print<"|~~~~~~~~">(out);
  print<"|~~~~~~~~~~">(out);
  print<"|\n">(out);
}

static void kestoHeading(Output& out, const TouchlineHeader& header, const TouchlinesOptions& options, int page) {
  const char* const title = options.lending ? "                  KOR SHARE HOLDING LTD. <KESTO TOUCHLINES>"
                                            : "                  TARVEN STOCK EXCHANGE LTD. <KESTO TOUCHLINES>";
  print<"%40s%20s%2d\n">(out, title, "PgNum", page);
  print<"\n         %s             %s             %s\n\n">(out, header.date, header.second, header.third);

  print<"\n">(out);
  kestoTopRule(out);

  print<"| ScripId   ">(out);
  print<"| ScripCode ">(out);
  print<"| L_Rate ">(out);
  print<"| L_Qty  ">(out);
  print<"| LendYld">(out);
  print<"| B_Rate ">(out);
  print<"| B_Qty  ">(out);
  print<"| BorrYld">(out);
  print<"|Std_Rate">(out);
  print<"|WeighAvg">(out);
  print<"|Trd Volume">(out);
  print<"|\n">(out);

  print<"|           ">(out);
  print<"|           ">(out);
  for (int i = 0; i < 8; ++i) print<"|        ">(out);
  print<"|          ">(out);
  print<"|\n">(out);

  kestoTopRule(out);
}

static void kestoClosingRule(Output& out) {
  print<"|___________">(out);
  print<"|___________">(out);
  for (int i = 0; i < 8; ++i) print<"|________">(out);
  print<"|__________">(out);
}

// Here a cell is blank at zero alone; negative values print.
static void kestoHundredths(Output& out, std::int32_t value) {
  if (value == 0) {
    print<"|        ">(out);
  } else {
    print<"|%8.2f">(out, value / 100.0);
  }
}

static void kestoRow(Output& out, const KestoTouchline& record) {
  print<"|%11s">(out, record.scripId);
  print<"|%11ld">(out, record.scripCode);
  kestoHundredths(out, record.lendRate);
  // The lend quantity stands with two decimals, undivided, where the borrow quantity has none: 500 is 500.00 here.
  if (record.lendQty == 0) {
    print<"|        ">(out);
  } else {
    print<"|%8.2f">(out, static_cast<double>(record.lendQty));
  }
  kestoHundredths(out, record.lendYield);
  kestoHundredths(out, record.borrowRate);
  if (record.borrowQty == 0) {
    print<"|        ">(out);
  } else {
    print<"|%8ld">(out, record.borrowQty);
  }
  kestoHundredths(out, record.borrowYield);
  kestoHundredths(out, record.standardRate);
  kestoHundredths(out, record.weightedAverage);
  if (record.tradedVolume == 0) {
    print<"|          ">(out);
  } else {
    print<"|%10ld">(out, record.tradedVolume);
  }
  print<"|\n">(out);
}

// clang-format on

void writeKestoTouchlines(Output& out, const TouchlineHeader& header, const KestoTouchline* records,
                          std::span<const std::uint32_t> order, const TouchlinesOptions& options) {
  Page page = {1, 0};
  kestoHeading(out, header, options, page.number);
  for (const auto& record : inOrder(records, order)) {
    if (page.rows == options.linesPerPage) {
      kestoClosingRule(out);
      print<"|\n\n\n">(out);
      print<"%c">(out, formFeed);
      page = {page.number + 1, 0};
      kestoHeading(out, header, options, page.number);
    }
    kestoRow(out, record);
    ++page.rows;
  }
  kestoClosingRule(out);
  print<"|\n">(out);
  print<"%c">(out, formFeed);
}

}  // namespace quillon
