// A touchlines file of the lending product (.VQT): the quote line of every scrip and number of days at one moment of the day,
// as '|' delimited text. Line 1 is a header of up to three tokens, each further line one row.
//
// Its lines hold more than those of the Kesto kind of the Touchlines form (market/touchline_file.h), from which only the header
// is the same: the number of days, the market's status, and rates in ten-thousandths.
#pragma once

#include <cstddef>
#include <cstdint>

#include "market/touchline_file.h"
#include "text/fields.h"
#include "text/input.h"
#include "text/record_order.h"

namespace quillon {

struct KestoDayTouchline {
  TextField<12> scripId;
  std::int32_t scripCode;
  std::int32_t lendRate;      // ten-thousandths
  std::int32_t lendQty;       // units
  std::int32_t lendYield;     // ten-thousandths
  std::int32_t borrowRate;    // ten-thousandths
  std::int32_t borrowQty;     // units
  std::int32_t borrowYield;   // ten-thousandths
  std::int32_t stdRate;       // ten-thousandths
  std::int32_t weighAv;       // ten-thousandths
  std::int32_t tradeVolume;   // units
  TextField<4> marketStatus;  // not printed; "BC" hides the yields
  std::int8_t days;           // number of days of the deal
};

static_assert(sizeof(KestoDayTouchline) == 60);
static_assert(offsetof(KestoDayTouchline, scripId) == 0);
static_assert(offsetof(KestoDayTouchline, scripCode) == 12);
static_assert(offsetof(KestoDayTouchline, lendRate) == 16);
static_assert(offsetof(KestoDayTouchline, lendQty) == 20);
static_assert(offsetof(KestoDayTouchline, lendYield) == 24);
static_assert(offsetof(KestoDayTouchline, borrowRate) == 28);
static_assert(offsetof(KestoDayTouchline, borrowQty) == 32);
static_assert(offsetof(KestoDayTouchline, borrowYield) == 36);
static_assert(offsetof(KestoDayTouchline, stdRate) == 40);
static_assert(offsetof(KestoDayTouchline, weighAv) == 44);
static_assert(offsetof(KestoDayTouchline, tradeVolume) == 48);
static_assert(offsetof(KestoDayTouchline, marketStatus) == 52);
static_assert(offsetof(KestoDayTouchline, days) == 56);

// A file in memory for the length of a run.
struct KestoDayTouchlines {
  TouchlineHeader header = {};
  KestoDayTouchline* rows = nullptr;  // count, and a zero one behind them
  std::size_t count = 0;
};

enum class KestoTouchlinesLoad {
  loaded,
  zeroScrips,  // not so much as a header and one line
  noMemory,
  notRewound,  // the file did not go back to its start: nothing was read
  notRead,     // a read failed, while counting or while loading
};

// Counts the lines from where the file stands, takes the block and reads the file from its start. Lines come in pieces of 89
// characters: a longer line has several, and each further piece is a row of its own, be it the header's. Whatever it gives,
// freeKestoDayTouchlines is due; count and rows are only good after `loaded`.
[[nodiscard]] KestoTouchlinesLoad loadKestoDayTouchlines(Input& input, KestoDayTouchlines& file);
void freeKestoDayTouchlines(KestoDayTouchlines& file);

enum class KestoTouchlinesSort { scripCode, scripId, days };

// The order of the rows, ascending; rows that are equal keep their order in the file. It tests as false when there was no
// memory for it.
[[nodiscard]] RecordOrder orderKestoDayTouchlines(const KestoDayTouchlines& file, KestoTouchlinesSort sort);

}  // namespace quillon
