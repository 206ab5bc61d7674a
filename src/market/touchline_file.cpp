#include "market/touchline_file.h"

#include <string>

#include "text/scan.h"
#include "text/tokens.h"

namespace quillon {

// Sizes of the buffers a line is read into, and so one more than the characters of a piece. Counting and reading differ, and
// they differ the other way round for the two kinds.
static constexpr std::size_t normalCountLimit = 90;
static constexpr std::size_t normalReadLimit = 120;
static constexpr std::size_t kestoCountLimit = 120;
static constexpr std::size_t kestoReadLimit = 90;

namespace {

enum class PieceResult { piece, lost, end };

// A file's lines in pieces.
struct Pieces {
  Input& input;
  std::size_t limit;
  bool failed = false;     // a read failed, now or earlier
  std::size_t length = 0;  // of the piece
  char text[normalReadLimit] = {};
};

}  // namespace

static_assert(kestoCountLimit <= sizeof(Pieces::text));

static PieceResult nextPiece(Pieces& pieces) {
  if (inputReadPiece(pieces.input, pieces.text, pieces.limit, &pieces.length)) return PieceResult::piece;
  if (inputPieceFailed(pieces.input)) pieces.failed = true;
  return pieces.length == 0 ? PieceResult::end : PieceResult::lost;
}

static bool endsLine(const Pieces& pieces) { return pieces.length > 0 && pieces.text[pieces.length - 1] == '\n'; }

TouchlineCount countNormalTouchlines(Input& input) {
  Pieces pieces = {.input = input, .limit = normalCountLimit};
  TouchlineCount count = {};
  while (nextPiece(pieces) == PieceResult::piece) ++count.pieces;
  count.failed = pieces.failed;
  return count;
}

TouchlineCount countKestoTouchlines(Input& input) {
  Pieces pieces = {.input = input, .limit = kestoCountLimit};
  TouchlineCount count = {};
  std::size_t toRead = 0;  // pieces that the reading will find
  std::size_t line = 0;    // characters of the line so far
  while (nextPiece(pieces) == PieceResult::piece) {
    ++count.pieces;
    line += pieces.length;
    if (!endsLine(pieces)) continue;
    toRead += (line + kestoReadLimit - 2) / (kestoReadLimit - 1);
    line = 0;
  }
  toRead += (line + kestoReadLimit - 2) / (kestoReadLimit - 1);
  count.failed = pieces.failed;
  count.passOver = toRead > count.pieces ? toRead - count.pieces : 0;
  return count;
}

// The piece without its line end, which is part of no field: a blank line is a record of zeros.
static std::string_view lineOf(const Pieces& pieces) {
  return {pieces.text, endsLine(pieces) ? pieces.length - 1 : pieces.length};
}

static void readHeader(const Pieces& pieces, TouchlineHeader& header) {
  Tokens tokens = {lineOf(pieces)};
  fieldSet(header.date, tokenNext(tokens, "|"));
  fieldSet(header.second, tokenNext(tokens, "|"));
  fieldSet(header.third, tokenNext(tokens, "|"));
}

void rewriteTouchlineDate(TextField<128>& date) {
  constexpr std::size_t yearAt = 14;
  const std::string_view text = date.view();
  if (text.size() <= yearAt) return;
  const std::int32_t year = textToNumber(text.substr(yearAt, 2));
  const std::string rewritten = std::string(text.substr(0, yearAt)) + std::to_string(year < 99 ? 2000 + year : 1900 + year);
  fieldSet(date, rewritten);
}

bool readNormalTouchlines(Input& input, TouchlineHeader& header, NormalTouchline* records, std::size_t count) {
  header = {};
  Pieces pieces = {.input = input, .limit = normalReadLimit};
  PieceResult result = nextPiece(pieces);
  if (result == PieceResult::piece) readHeader(pieces, header);
  rewriteTouchlineDate(header.date);

  for (std::size_t i = 0; i < count && (result = nextPiece(pieces)) != PieceResult::end; ++i) {
    if (result == PieceResult::lost) continue;
    NormalTouchline& r = records[i];
    // clang-format off
    scan<"%[^|]|%Fld|%Fld|%Fld|%Fld|%Fld|%Fld|%Fld|%Fld|">(lineOf(pieces),
        r.scripId, r.scripCode, r.rate1, r.rate2, r.open, r.high, r.low, r.lastTraded, r.volume);
    // clang-format on
  }
  return !pieces.failed;
}

static void splitKestoLine(std::string_view line, KestoTouchline& record) {
  Tokens tokens = {line};
  const auto number = [&tokens] { return textToNumber(tokenNext(tokens, "|")); };
  fieldSet(record.scripId, tokenNext(tokens, "|"));
  record.scripCode = number();
  record.lendRate = number();
  record.lendQty = number();
  record.lendYield = number();
  record.borrowRate = number();
  record.borrowQty = number();
  record.borrowYield = number();
  record.standardRate = number();
  record.weightedAverage = number();
  record.tradedVolume = number();
  fieldSet(record.trailer, tokenNext(tokens, "|"));
}

bool readKestoTouchlines(Input& input, TouchlineHeader& header, KestoTouchline* records, std::size_t count,
                         std::size_t passOver) {
  header = {};
  Pieces pieces = {.input = input, .limit = kestoReadLimit};
  PieceResult result = nextPiece(pieces);
  if (result == PieceResult::piece) readHeader(pieces, header);
  bool insideLine = result == PieceResult::piece && !endsLine(pieces);

  std::size_t i = 0;
  while (i < count && (result = nextPiece(pieces)) != PieceResult::end) {
    const bool beginsInsideLine = insideLine;
    if (result == PieceResult::lost) {
      // Where the lost piece ended is not known; what follows is taken for a line's beginning.
      insideLine = false;
      ++i;
      continue;
    }
    insideLine = !endsLine(pieces);
    if (beginsInsideLine && passOver > 0) {
      --passOver;
      continue;
    }
    splitKestoLine(lineOf(pieces), records[i]);
    ++i;
  }
  return !pieces.failed;
}

}  // namespace quillon
