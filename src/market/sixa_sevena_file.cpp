#include "market/sixa_sevena_file.h"

#include <string>
#include <string_view>

#include "text/scan.h"
#include "text/tokens.h"

namespace quillon {

// Size of the buffer a line is read into, and so one more than the characters of a piece. It is that of the count, so that
// every line finds the record that was counted for it.
static constexpr std::size_t pieceLimit = 500;
// How much of a piece is looked at.
static constexpr std::size_t headerCharacters = 119;
static constexpr std::size_t recordCharacters = 139;

namespace {

enum class PieceResult { piece, lost, end };

struct Piece {
  std::size_t length;  // with its line end
  char text[pieceLimit];
};

}  // namespace

static PieceResult nextPiece(Input& input, Piece& piece) {
  if (inputReadPiece(input, piece.text, pieceLimit, &piece.length)) return PieceResult::piece;
  return piece.length == 0 ? PieceResult::end : PieceResult::lost;
}

Count6A7A count6A7A(Input& input) {
  Piece piece;
  Count6A7A count = {};
  while (nextPiece(input, piece) == PieceResult::piece) ++count.pieces;
  count.failed = inputPieceFailed(input);
  return count;
}

// The first characters of a piece, without its line end, which is part of no field.
static std::string_view lineOf(const Piece& piece, std::size_t characters) {
  const bool ended = piece.length > 0 && piece.text[piece.length - 1] == '\n';
  return std::string_view(piece.text, ended ? piece.length - 1 : piece.length).substr(0, characters);
}

void rewrite6A7ADate(TextField<128>& date) {
  constexpr std::size_t yearAt = 6;
  const std::string_view text = date.view();
  const std::int32_t year = text.size() > yearAt ? textToNumber(text.substr(yearAt, 2)) : 0;
  fieldSet(date, std::string(text.substr(0, yearAt)) + std::to_string(year < 99 ? 2000 + year : 1900 + year));
}

static void scanRecord(std::string_view line, Record6A7A& r) {
  // clang-format off
  scan<"%ld|%ld|%c|%ld|%c|%c|%ld|%I64d|%[^|]|%[^|]|%c|%ld|%[^|]|%[^|]|%hd|">(line,
      r.scripCode, r.custCode, r.ndFlag, r.tradeId, r.buySell, r.deliveryMonth, r.quantity, r.value,
      r.tradeDate, r.clientId, r.confirmFlag, r.entry6a7aId, r.contractNo, r.comments, r.blockDeal);
  // clang-format on
}

bool read6A7A(Input& input, Header6A7A& header, Record6A7A* records, std::size_t count, bool lending) {
  header = {};
  Piece piece;
  PieceResult result = nextPiece(input, piece);
  bool whole = !inputPieceFailed(input);
  if (result == PieceResult::piece) {
    scan<"%[^|]|%[^|]">(lineOf(piece, headerCharacters), header.date, header.time);
    rewrite6A7ADate(header.date);
  }

  for (std::size_t i = 0; i < count && (result = nextPiece(input, piece)) != PieceResult::end; ++i) {
    if (result == PieceResult::lost) {
      whole = false;
      continue;
    }
    scanRecord(lineOf(piece, recordCharacters), records[i]);
    if (lending && records[i].buySell == 'L') records[i].buySell = 'S';
  }
  return whole && !inputPieceFailed(input);
}

}  // namespace quillon
