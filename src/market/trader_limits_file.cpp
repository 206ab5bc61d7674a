#include "market/trader_limits_file.h"

#include <cstring>

#include "text/scan.h"
#include "text/tokens.h"

namespace quillon {

// Sizes of the buffers a line is read into, and so one more than the characters of a piece.
static constexpr std::size_t headerLimit = 250;
static constexpr std::size_t kestoCountLimit = 90;
static constexpr std::size_t kestoTraderReadLimit = 120;
static constexpr std::size_t kestoScripReadLimit = 200;

static LimitLineResult readPiece(Input& input, char* text, std::size_t limit) {
  std::size_t length = 0;
  if (inputReadPiece(input, text, limit, &length)) return LimitLineResult::line;
  return length == 0 ? LimitLineResult::end : LimitLineResult::lost;
}

// The piece without its line end, which is part of no field, up to its first NUL.
static std::string_view lineOf(const char* piece) { return {piece, std::strcspn(piece, "\n")}; }

LimitsLayout limitsLayout(const TraderLimitsHeader& header, bool kesto) {
  const std::string_view title = header.title.view();
  if (title == "Scripwise Limits") return kesto ? LimitsLayout::kestoScripwise : LimitsLayout::normalScripwise;
  if (!kesto && title == "TraderWise Limits") return LimitsLayout::normalTraderwise;
  if (kesto && title == "Binary Limits") return LimitsLayout::kestoTraderwise;
  return LimitsLayout::none;
}

bool readTraderLimitsHeader(Input& input, TraderLimitsHeader& header) {
  header = {};
  char text[headerLimit];
  if (!inputReadPiece(input, text, headerLimit)) return false;
  scan<"%[^|]|%ld|%[^|]|%ld|">(lineOf(text), header.title, header.brokerId, header.date, header.traderId);
  return true;
}

LimitLineResult readLimitLine(Input& input, std::size_t limit, LimitLine& line) {
  line.count = 0;
  const LimitLineResult result = readPiece(input, line.text, limit);
  if (result != LimitLineResult::line) return result;
  const std::string_view text = lineOf(line.text);
  if (text.empty()) return LimitLineResult::end;
  Tokens tokens = {text};
  for (; line.count < limitLineTokens; ++line.count) {
    line.tokens[line.count] = tokenNext(tokens, "|");
    if (line.tokens[line.count].empty()) break;
  }
  return LimitLineResult::line;
}

LimitsCount countKestoLimits(Input& input) {
  char text[kestoCountLimit];
  LimitsCount count = {};
  while (readPiece(input, text, kestoCountLimit) == LimitLineResult::line) ++count.pieces;
  count.failed = inputPieceFailed(input);
  return count;
}

bool readKestoTraderLimits(Input& input, KestoTraderLimit* records, std::size_t count) {
  char line1[kestoTraderReadLimit];
  (void)readPiece(input, line1, kestoTraderReadLimit);  // is known by now
  const bool whole = !inputPieceFailed(input);
  return readKestoTraderRecords(input, records, count) && whole;
}

bool readKestoTraderRecords(Input& input, KestoTraderLimit* records, std::size_t count) {
  char text[kestoTraderReadLimit];
  bool whole = true;
  for (std::size_t i = 0; i < count; ++i) {
    const LimitLineResult result = readPiece(input, text, kestoTraderReadLimit);
    if (result == LimitLineResult::end) break;
    if (result == LimitLineResult::lost) {
      whole = false;
      continue;
    }
    KestoTraderLimit& r = records[i];
    // The flags are bits: a word that is written without a sign, from 2147483648 on, is the same 32 bits.
    std::int64_t flags = 0;
    scan<"%ld|%[^|]|%I64d|%ld|%ld|">(lineOf(text), r.traderNo, r.traderName, flags, r.grossLendLimit, r.grossBorrowLimit);
    r.controlFlags = static_cast<std::uint32_t>(flags);
  }
  return whole && !inputPieceFailed(input);
}

bool readKestoScripLimits(Input& input, KestoScripLimit* records, std::size_t count) {
  char line1[kestoScripReadLimit];
  (void)readPiece(input, line1, kestoScripReadLimit);  // is known by now
  const bool whole = !inputPieceFailed(input);
  return readKestoScripRecords(input, records, count) && whole;
}

bool readKestoScripRecords(Input& input, KestoScripLimit* records, std::size_t count) {
  char text[kestoScripReadLimit];
  bool whole = true;
  for (std::size_t i = 0; i < count; ++i) {
    const LimitLineResult result = readPiece(input, text, kestoScripReadLimit);
    if (result == LimitLineResult::end) break;
    if (result == LimitLineResult::lost) {
      whole = false;
      continue;
    }
    KestoScripLimit& r = records[i];
    scan<"%F[^|]|%Fld|%Fld|%Fld|">(lineOf(text), r.scripId, r.scripCode, r.lendLimit, r.borrowLimit);
  }
  return whole && !inputPieceFailed(input);
}

}  // namespace quillon
