#include "market/breakup_file.h"

#include <string_view>

#include "text/scan.h"

namespace quillon {

// Size of the buffer a line is read into, and so one more than the characters of a piece.
static constexpr std::size_t lineLimit = 200;

BreakupCount countBreakups(Input& input) {
  char text[lineLimit];
  BreakupCount count = {};
  while (inputReadPiece(input, text, lineLimit)) ++count.records;
  count.failed = inputPieceFailed(input);
  return count;
}

// White space before a number is passed over, and the format's stands for any amount of it, so that the groups of a line may be
// set apart as a reader likes.
static void scanLine(std::string_view line, NormalBreakup& r) {
  auto& [c1, c2, c3, c4] = r.clients;
  // clang-format off
  scan<"%Fld|%Fhd|%Fld|%Fld|%Fld|%Fld|%Fld|%Fld|\t\t     %Fhd|%Fld|%Fld|%Fld|%Fld|%Fld|%Fld|\t\t     %Fhd|%Fld|%Fld|%Fld|%Fld|%Fld|%Fld|\t\t     %Fhd|%Fld|%Fld|%Fld|%Fld|%Fld|%Fld|\t\t%Fld|%Fld|%Fld|%Fld|%Fld|%Fld|%Fld|%Fld|%Fld|%Fld|%Fld">(line,
      r.scripCode,
      c1.clientType, c1.pd, c1.sd, c1.pc, c1.sc, c1.vb, c1.sb,
      c2.clientType, c2.pd, c2.sd, c2.pc, c2.sc, c2.vb, c2.sb,
      c3.clientType, c3.pd, c3.sd, c3.pc, c3.sc, c3.vb, c3.sb,
      c4.clientType, c4.pd, c4.sd, c4.pc, c4.sc, c4.vb, c4.sb,
      r.totalPD, r.totalSD, r.totalPC, r.totalSC, r.totalVB, r.totalSB,
      r.netPosition, r.grossPurchase, r.grossSell, r.grossBP, r.grossBS);
  // clang-format on
}

static void scanLine(std::string_view line, KestoBreakup& r) {
  auto& [c1, c2] = r.clients;
  // clang-format off
  scan<"%Fld|%Fhd|%Fld|%Fld|%Fld|%Fld|\t\t\t\t\t\t     %Fhd|%Fld|%Fld|%Fld|%Fld|\t\t\t\t\t\t     %Fld|%Fld|%Fld|%Fld|%Fld|%Fld|%Fld|%Fld|%Fld|%Fld|">(line,
      r.scripCode,
      c1.clientType, c1.f1, c1.f2, c1.f3, c1.f4,
      c2.clientType, c2.f1, c2.f2, c2.f3, c2.f4,
      r.totalGP, r.totalLM, r.totalGS, r.totalBM, r.totalLF, r.totalBF, r.netPosition, r.spare, r.grossLend, r.grossBorrow);
  // clang-format on
}

template <class Record>
static bool readBreakups(Input& input, Record* records, std::size_t count) {
  char text[lineLimit];
  bool whole = true;
  for (std::size_t i = 0; i < count; ++i) {
    std::size_t length = 0;
    if (inputReadPiece(input, text, lineLimit, &length)) {
      scanLine({text, length}, records[i]);
      continue;
    }
    if (inputPieceFailed(input)) whole = false;
    if (length == 0) break;
  }
  return whole;
}

bool readNormalBreakups(Input& input, NormalBreakup* records, std::size_t count) { return readBreakups(input, records, count); }

bool readKestoBreakups(Input& input, KestoBreakup* records, std::size_t count) { return readBreakups(input, records, count); }

}  // namespace quillon
