#include "kesto/kesto_breakup_report.h"

#include "text/in_order.h"
#include "text/print.h"

namespace quillon {

static constexpr char formFeed = 12;

static const char* clientTypeLabel(std::int32_t clientType) {
  switch (static_cast<std::uint16_t>(clientType)) {
    case 1:
      return " ";
    case 2:
      return "O";
    case 3:
      return "C";
    default:
      return "";  // no other type has a label
  }
}

// clang-format off

static void rule(Output& out) {
  print<"|_______|___|______|______|______|______|______|_______|_______|_______|_______|_______|_______|_______|_________|_________|\n">(out);
}

static void heading(Output& out, const KestoBreakupOptions& options, int page) {
  const char* const exchange = options.lending ? "KOR SHARE HOLDING LTD." : "TARVEN STOCK EXCHANGE LTD.";
  print<" %s%35s%11s%49s%2d\n\n">(out, exchange, "Run-Date : ", options.runDate, "Page:", page);
  print<"KESTO (R) BreakUp  Details  Report">(out);
  print<" %35s%7s\n\n">(out, "Cl. No.  :", options.brokerNo);
  print<" __________________________________________________________________________________________________________________________\n">(out);
  print<"| Scrip |Day|Client|  Clientwise Breakup       |       | Total |       | Total | Total | Total |  Net  |  Gross  |  Gross  |\n">(out);
  print<"| Code  |   |Type  | L.M. | B.M. | L.F. | B.F. |  GP   |  L.M. |  GS   |  B.M. | B.F.  | L.F.  | Postn.|  Lend   |  Borrow |\n">(out);
  rule(out);
}

static void totalsLine(Output& out, const FiveDayBreakup& record) {
  print<"|%7ld|%3s|%6s|%6s|%6s|%6s|%6s|%7ld|%7ld|%7ld|%7ld|%7ld|%7ld|%7ld|%9ld|%9ld|\n">(out, record.scripCode,
      "", "", "", "", "", "", record.totalGP, record.totalLM, record.totalGS, record.totalBM, record.totalBF,
      record.totalLF, record.netPosition, record.grossLend, record.grossBorrow);
}

// The file has the firm's borrowing before its lending; the columns stand the other way round.
static void clientLine(Output& out, std::int8_t day, std::int32_t clientType, std::int32_t lendMarket, std::int32_t borrowMarket,
                       std::int32_t lendFirm, std::int32_t borrowFirm) {
  print<"|%7s|%3ld|%6s|%6ld|%6ld|%6ld|%6ld|%7s|%7s|%7s|%7s|%7s|%7s|%7s|%9s|%9s|\n">(out, "", day,
      clientTypeLabel(clientType), lendMarket, borrowMarket, lendFirm, borrowFirm,
      "", "", "", "", "", "", "", "", "");
}

// clang-format on

static void recordLines(Output& out, const FiveDayBreakup& record) {
  totalsLine(out, record);
  for (const KestoBreakupDay& d : record.days) {
    const auto day = static_cast<std::int8_t>(d.day);
    clientLine(out, day, d.clientType1, d.lendMarket1, d.borrowMarket1, d.lendFirm1, d.borrowFirm1);
    clientLine(out, day, d.clientType2, d.lendMarket2, d.borrowMarket2, d.lendFirm2, d.borrowFirm2);
  }
  rule(out);
}

void writeFiveDayBreakups(Output& out, const FiveDayBreakups& file, std::span<const std::uint32_t> order,
                          const KestoBreakupOptions& options) {
  int page = 1;
  unsigned records = 0;
  heading(out, options, page);
  for (const FiveDayBreakup& record : inOrder(file.records, order)) {
    if (records == options.linesPerPage) {
      // Every record has its own rule, so a full page needs none.
      print<"%c">(out, formFeed);
      print<"\n\n\n">(out);
      heading(out, options, ++page);
      records = 0;
    }
    recordLines(out, record);
    ++records;
  }
  print<"\n\n%83s">(out, "***** End  Of KESTO (R) BreakUp  Details  Report *****");
  print<"%c">(out, formFeed);
}

}  // namespace quillon
