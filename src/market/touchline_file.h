// A saved touchlines file: the market's quote line of every scrip at one moment of the day, as '|' delimited text. Line 1 is a
// header of up to three tokens, each further line one scrip.
//
// There are two kinds, Normal and Kesto. Nothing in the file tells which it is: the user says so on the form.
#pragma once

#include <cstddef>
#include <cstdint>

#include "text/fields.h"
#include "text/input.h"

namespace quillon {

// No token of the header is longer than the piece in which the line is read; the rewritten date is two characters longer.
struct TouchlineHeader {
  TextField<128> date;
  TextField<128> second;
  TextField<128> third;
};

struct NormalTouchline {
  TextField<12> scripId;
  std::int32_t scripCode;
  std::int32_t rate1;  // paise, as are the five that follow
  std::int32_t rate2;
  std::int32_t open;
  std::int32_t high;
  std::int32_t low;
  std::int32_t lastTraded;
  std::int32_t volume;  // units traded
};

struct KestoTouchline {
  TextField<12> scripId;
  std::int32_t scripCode;
  std::int32_t lendRate;         // paise
  std::int32_t lendQty;          // units
  std::int32_t lendYield;        // hundredths
  std::int32_t borrowRate;       // paise
  std::int32_t borrowQty;        // units
  std::int32_t borrowYield;      // hundredths
  std::int32_t standardRate;     // paise
  std::int32_t weightedAverage;  // paise
  std::int32_t tradedVolume;     // units
  TextField<12> trailer;         // not printed
};

static_assert(sizeof(NormalTouchline) == 44);
static_assert(offsetof(NormalTouchline, scripId) == 0);
static_assert(offsetof(NormalTouchline, scripCode) == 12);
static_assert(offsetof(NormalTouchline, rate1) == 16);
static_assert(offsetof(NormalTouchline, rate2) == 20);
static_assert(offsetof(NormalTouchline, open) == 24);
static_assert(offsetof(NormalTouchline, high) == 28);
static_assert(offsetof(NormalTouchline, low) == 32);
static_assert(offsetof(NormalTouchline, lastTraded) == 36);
static_assert(offsetof(NormalTouchline, volume) == 40);

static_assert(sizeof(KestoTouchline) == 64);
static_assert(offsetof(KestoTouchline, scripId) == 0);
static_assert(offsetof(KestoTouchline, scripCode) == 12);
static_assert(offsetof(KestoTouchline, lendRate) == 16);
static_assert(offsetof(KestoTouchline, lendQty) == 20);
static_assert(offsetof(KestoTouchline, lendYield) == 24);
static_assert(offsetof(KestoTouchline, borrowRate) == 28);
static_assert(offsetof(KestoTouchline, borrowQty) == 32);
static_assert(offsetof(KestoTouchline, borrowYield) == 36);
static_assert(offsetof(KestoTouchline, standardRate) == 40);
static_assert(offsetof(KestoTouchline, weightedAverage) == 44);
static_assert(offsetof(KestoTouchline, tradedVolume) == 48);
static_assert(offsetof(KestoTouchline, trailer) == 52);

// What one pass over the file found. The header counts as a piece, so the records are pieces less one.
struct TouchlineCount {
  std::size_t pieces;
  std::size_t passOver;  // how many pieces of overlong lines the loading has to pass over, so that every line finds a record
  bool failed;           // the pass ended at a read that failed, not at the end of the file
};

// Counts the pieces from where the file stands: of 89 characters at most (Normal), of 119 (Kesto).
TouchlineCount countNormalTouchlines(Input& input);
TouchlineCount countKestoTouchlines(Input& input);

// Loads the header and up to `count` records from where the file stands, into a zero-filled block. Records that the file no
// longer holds stay zero, and what it holds beyond them is not read. False when a read failed on the way; its record stays
// zero and the rest is loaded.
//
// Normal lines come in pieces of 119 characters, so a line of 89 to 118 characters, which counts as two, leaves one record
// zero. Kesto lines come in pieces of 89, so a line may have more pieces here than it was counted for: `passOver` of those
// that begin in the middle of a line are left out. Any other such piece is a record of its own.
[[nodiscard]] bool readNormalTouchlines(Input& input, TouchlineHeader& header, NormalTouchline* records, std::size_t count);
[[nodiscard]] bool readKestoTouchlines(Input& input, TouchlineHeader& header, KestoTouchline* records, std::size_t count,
                                       std::size_t passOver);

// A Normal header's date with its year in full: characters 15 and 16 are the year, and nothing stays behind them. A year of
// 99 is 1999, any other belongs to the years from 2000 on. A text with no character 15 has no year and stays as it is.
void rewriteTouchlineDate(TextField<128>& date);

}  // namespace quillon
