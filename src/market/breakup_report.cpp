#include "market/breakup_report.h"

#include "text/in_order.h"
#include "text/print.h"

namespace quillon {

static constexpr char formFeed = 12;

namespace {

struct Page {
  int number;
  unsigned counter;  // the number of the scrip that comes next on this page
};

}  // namespace

static const char* exchange(const BreakupOptions& options) {
  return options.lending ? "KOR SHARE HOLDING LTD." : "TARVEN STOCK EXCHANGE LTD.";
}

// ---- Normal -----------------------------------------------------------------------------------------------------------

// A type that is none of the four has no label.
static const char* normalLabel(std::int16_t clientType) {
  switch (clientType) {
    case 1:
      return "FI";
    case 2:
      return "OWN";
    case 3:
      return "C";
    case 4:
      return "WH";
    default:
      return "";
  }
}

// clang-format off

static void normalRule(Output& out) {
  print<"|______|___|_____|_____|_____|_____|_____|_____|_______|_______|_______|_______|______|_______|______|______|______|______|______|\n">(out);
}

static void normalHeading(Output& out, const BreakupOptions& options, int page) {
  print<" %s%35s%11s%49s%2d\n\n">(out, exchange(options), "Run-Date : ", options.runDate, "Page:", page);
  print<" BreakUp  Details  Report">(out);
  print<" %35s%7s\n\n">(out, "Cl. No.  :", options.brokerNo);
  print<"__________________________________________________________________________________________________________________________________\n">(out);
  print<"|Scrip |           Client  Information         | Total | Total | Total | Total | Total| Total |  Net | Gross| Gross| Gross| Gross|\n">(out);
  print<"|      |_______________________________________|       |       |       |       |      |       | Posi-|      |      |      |      |\n">(out);
  print<"| Code |No.| P.D.| S.D.| P.C.| S.C.| V.B.| S.B.|  P.D. |  S.D. |  P.C. |  S.C. |  V.B.|  S.B. | tion | Purch| Sell |  B.P.|  B.S.|\n">(out);
  normalRule(out);
}

static void normalFirstLine(Output& out, const NormalBreakup& r) {
  const NormalClientBlock& c = r.clients[0];
  print<"|%6ld|%3s|%5ld|%5ld|%5ld|%5ld|%5ld|%5ld|%7ld|%7ld|%7ld|%7ld|%6ld|%7ld|%6ld|%6ld|%6ld|%6ld|%6ld|\n">(out,
      r.scripCode, normalLabel(c.clientType), c.pd, c.sd, c.pc, c.sc, c.vb, c.sb,
      r.totalPD, r.totalSD, r.totalPC, r.totalSC, r.totalVB, r.totalSB,
      r.netPosition, r.grossPurchase, r.grossSell, r.grossBP, r.grossBS);
}

static void normalClientLine(Output& out, const NormalClientBlock& c) {
  print<"|%6s|%3s|%5ld|%5ld|%5ld|%5ld|%5ld|%5ld|%7s|%7s|%7s|%7s|%6s|%7s|%6s|%6s|%6s|%6s|%6s|\n">(out,
      " ", normalLabel(c.clientType), c.pd, c.sd, c.pc, c.sc, c.vb, c.sb,
      " ", " ", " ", " ", " ", " ", " ", " ", " ", " ", " ");
}

// clang-format on

static void normalRecord(Output& out, const NormalBreakup& record) {
  normalFirstLine(out, record);
  for (const NormalClientBlock& client : std::span(record.clients).subspan(1)) normalClientLine(out, client);
  normalRule(out);
}

void writeNormalBreakups(Output& out, const NormalBreakup* records, std::span<const std::uint32_t> order,
                         const BreakupOptions& options) {
  Page page = {1, 1};
  normalHeading(out, options, page.number);
  for (const auto& record : inOrder(records, order)) {
    if (page.counter == options.linesPerPage + 1) {
      print<"%c">(out, formFeed);
      page = {page.number + 1, 1};
      normalHeading(out, options, page.number);
    }
    normalRecord(out, record);
    ++page.counter;
  }
  print<"\n\n%83s">(out, "***** End  Of  BreakUp  Details  Report *****");
  print<"%c">(out, formFeed);
}

// ---- Kesto ------------------------------------------------------------------------------------------------------------

// Type 1 is labelled by a blank, and any but the three has no label: the cell is empty in both cases.
static const char* kestoLabel(std::int16_t clientType) {
  switch (clientType) {
    case 1:
      return " ";
    case 2:
      return "O";
    case 3:
      return "C";
    default:
      return "";
  }
}

// clang-format off

static void kestoRule(Output& out) {
  print<"|_______|______|______|______|______|______|_______|_______|_______|_______|_______|_______|_______|_________|_________|\n">(out);
}

static void kestoHeading(Output& out, const BreakupOptions& options, int page) {
  print<" %s%35s%11s%44s%2d\n\n">(out, exchange(options), "Run-Date : ", options.runDate, "Page:", page);
  print<"Kesto BreakUp  Details  Report">(out);
  print<" %35s%7s\n\n">(out, "Cl. No.  :", options.brokerNo);
  print<" ______________________________________________________________________________________________________________________\n">(out);
  print<"| Scrip |Client|  Clientwise Breakup       |       | Total |       | Total | Total | Total |  Net  |  Gross  |  Gross  |\n">(out);
  print<"| Code  |Type  | L.M. | B.M. | L.F. | B.F. |  G.P. |  L.M. |  G.S. |  B.M. | L.F.  | B.F.  | Postn.|  Lend   |  Borrow |\n">(out);
  kestoRule(out);
}

static void kestoFirstLine(Output& out, const KestoBreakup& r) {
  print<"|%7ld|%6s|%6s|%6s|%6s|%6s|%7ld|%7ld|%7ld|%7ld|%7ld|%7ld|%7ld|%9ld|%9ld|\n">(out,
      r.scripCode, " ", " ", " ", " ", " ",
      r.totalGP, r.totalLM, r.totalGS, r.totalBM, r.totalLF, r.totalBF, r.netPosition, r.grossLend, r.grossBorrow);
}

// The file gives B.F. before L.F., the report L.F. before B.F.
static void kestoClientLine(Output& out, const KestoClientBlock& c) {
  print<"|%7s|%6s|%6ld|%6ld|%6ld|%6ld|%7s|%7s|%7s|%7s|%7s|%7s|%7s|%9s|%9s|\n">(out,
      " ", kestoLabel(c.clientType), c.f1, c.f2, c.f4, c.f3,
      " ", " ", " ", " ", " ", " ", " ", " ", " ");
}

// clang-format on

static void kestoRecord(Output& out, const KestoBreakup& record) {
  kestoFirstLine(out, record);
  for (const KestoClientBlock& client : record.clients) kestoClientLine(out, client);
  kestoRule(out);
}

void writeKestoBreakups(Output& out, const KestoBreakup* records, std::span<const std::uint32_t> order,
                        const BreakupOptions& options) {
  Page page = {1, 1};
  kestoHeading(out, options, page.number);
  for (const auto& record : inOrder(records, order)) {
    if (page.counter == options.linesPerPage + 1) {
      print<"%c">(out, formFeed);
      page = {page.number + 1, 1};
      kestoHeading(out, options, page.number);
    }
    kestoRecord(out, record);
    ++page.counter;
  }
  print<"\n\n%83s">(out, "***** End  Of Kesto  BreakUp  Details  Report *****");
  print<"%c">(out, formFeed);
}

}  // namespace quillon
