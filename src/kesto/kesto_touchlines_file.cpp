#include "kesto/kesto_touchlines_file.h"

#include "desktop/memory.h"
#include "text/tokens.h"

namespace quillon {

// Sizes of the buffers a line is read into, and so one more than the characters of a piece. A line is counted in longer pieces
// than it is read in.
static constexpr std::size_t countLimit = 130;
static constexpr std::size_t readLimit = 90;

namespace {

struct LineCount {
  std::size_t lines;   // as counted; the header is one of them
  std::size_t pieces;  // that the loading will find, the header's first among them: never fewer than lines
  bool failed;
};

}  // namespace

static std::size_t piecesOf(std::size_t lineLength) { return (lineLength + readLimit - 2) / (readLimit - 1); }

static LineCount countLines(Input& input) {
  char text[countLimit];
  LineCount count = {};
  std::size_t length = 0;
  std::size_t line = 0;  // characters of the line so far
  while (inputReadPiece(input, text, countLimit, &length)) {
    ++count.lines;
    line += length;
    if (length == 0 || text[length - 1] != '\n') continue;
    count.pieces += piecesOf(line);
    line = 0;
  }
  count.pieces += piecesOf(line);
  count.failed = inputPieceFailed(input);
  return count;
}

static bool takeBlock(KestoDayTouchlines& file, std::size_t count) {
  file.rows = static_cast<KestoDayTouchline*>(memoryTake((count + 1) * sizeof(KestoDayTouchline)));
  file.count = file.rows ? count : 0;
  return file.rows != nullptr;
}

static void splitHeader(std::string_view line, TouchlineHeader& header) {
  Tokens tokens = {line};
  fieldSet(header.date, tokenNext(tokens, "|"));
  fieldSet(header.second, tokenNext(tokens, "|"));
  fieldSet(header.third, tokenNext(tokens, "|"));
}

// A run of delimiters is one: behind an empty field the others move forward.
static void splitRow(std::string_view line, KestoDayTouchline& row) {
  Tokens tokens = {line};
  const auto number = [&tokens] { return textToNumber(tokenNext(tokens, "|")); };
  fieldSet(row.scripId, tokenNext(tokens, "|"));
  row.scripCode = number();
  row.lendRate = number();
  row.lendQty = number();
  row.lendYield = number();
  row.borrowRate = number();
  row.borrowQty = number();
  row.borrowYield = number();
  row.stdRate = number();
  row.weighAv = number();
  row.tradeVolume = number();
  fieldSet(row.marketStatus, tokenNext(tokens, "|"));
  row.days = static_cast<std::int8_t>(number());
}

// The line's end is part of no token: a blank line is a row of zeros.
static std::string_view withoutLineEnd(const char* text, std::size_t length) {
  return {text, length > 0 && text[length - 1] == '\n' ? length - 1 : length};
}

static bool readLines(Input& input, KestoDayTouchlines& file) {
  char text[readLimit];
  std::size_t length = 0;
  if (!inputReadPiece(input, text, readLimit, &length)) return false;
  splitHeader(withoutLineEnd(text, length), file.header);
  for (std::size_t i = 0; i < file.count; ++i) {
    if (!inputReadPiece(input, text, readLimit, &length)) return false;
    splitRow(withoutLineEnd(text, length), file.rows[i]);
  }
  return true;
}

KestoTouchlinesLoad loadKestoDayTouchlines(Input& input, KestoDayTouchlines& file) {
  const LineCount count = countLines(input);
  // What was not counted could not be printed, and nobody would see that it is missing.
  if (count.failed) return KestoTouchlinesLoad::notRead;
  if (count.lines < 2) return KestoTouchlinesLoad::zeroScrips;
  if (!takeBlock(file, count.pieces - 1)) return KestoTouchlinesLoad::noMemory;
  if (!inputSeekStart(input)) return KestoTouchlinesLoad::notRewound;
  return readLines(input, file) ? KestoTouchlinesLoad::loaded : KestoTouchlinesLoad::notRead;
}

void freeKestoDayTouchlines(KestoDayTouchlines& file) {
  memoryFree(file.rows);
  file = {};
}

RecordOrder orderKestoDayTouchlines(const KestoDayTouchlines& file, KestoTouchlinesSort sort) {
  RecordKey key = {KeyKind::number, offsetof(KestoDayTouchline, scripCode), 0};
  if (sort == KestoTouchlinesSort::scripId) key = {KeyKind::text, offsetof(KestoDayTouchline, scripId), sizeof(TextField<12>)};
  if (sort == KestoTouchlinesSort::days) key = {KeyKind::number8, offsetof(KestoDayTouchline, days), 0};
  return orderOfRecords({file.rows, sizeof(KestoDayTouchline), file.count}, {key});
}

}  // namespace quillon
