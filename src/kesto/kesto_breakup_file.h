// A breakup data file of the (R) market (.DAT): what the clients of a member lent and borrowed, scrip by scrip, over up to five
// days. Text, one record a line without a header: 76 numbers, each with a '|' behind it.
#pragma once

#include <cstddef>
#include <cstdint>

#include "text/input.h"
#include "text/record_order.h"

namespace quillon {

// One day with the lines of two client types. Numbers that the file keeps in 16 bits are what their lower 16 bits say, without
// a sign; `day` prints as its lowest byte, with one.
struct KestoBreakupDay {
  std::int32_t day;  // 16 bits
  std::int32_t unread[2];
  std::int32_t clientType1;  // the lower 16 bits are the type
  std::int32_t lendMarket1;
  std::int32_t borrowMarket1;  // 16 bits
  std::int32_t borrowFirm1;
  std::int32_t lendFirm1;
  std::int32_t clientType2;
  std::int32_t lendMarket2;
  std::int32_t borrowMarket2;  // 16 bits
  std::int32_t borrowFirm2;
  std::int32_t lendFirm2;
};

inline constexpr std::size_t kestoBreakupDays = 5;
inline constexpr std::size_t kestoBreakupNumbers = 76;

struct FiveDayBreakup {
  std::int32_t scripCode;
  KestoBreakupDay days[kestoBreakupDays];
  std::int32_t totalGP;  // 16 bits
  std::int32_t totalLM;
  std::int32_t totalGS;
  std::int32_t totalBM;
  std::int32_t totalBF;
  std::int32_t totalLF;  // 16 bits
  std::int32_t netPosition;
  std::int32_t unread;
  std::int32_t grossLend;
  std::int32_t grossBorrow;
};

// clang-format off
static_assert(sizeof(KestoBreakupDay) == 52);
static_assert(offsetof(KestoBreakupDay, day) == 0            && offsetof(KestoBreakupDay, unread) == 4);
static_assert(offsetof(KestoBreakupDay, clientType1) == 12   && offsetof(KestoBreakupDay, lendMarket1) == 16);
static_assert(offsetof(KestoBreakupDay, borrowMarket1) == 20 && offsetof(KestoBreakupDay, borrowFirm1) == 24);
static_assert(offsetof(KestoBreakupDay, lendFirm1) == 28     && offsetof(KestoBreakupDay, clientType2) == 32);
static_assert(offsetof(KestoBreakupDay, lendMarket2) == 36   && offsetof(KestoBreakupDay, borrowMarket2) == 40);
static_assert(offsetof(KestoBreakupDay, borrowFirm2) == 44   && offsetof(KestoBreakupDay, lendFirm2) == 48);

static_assert(sizeof(FiveDayBreakup) == kestoBreakupNumbers * sizeof(std::int32_t));
static_assert(offsetof(FiveDayBreakup, scripCode) == 0     && offsetof(FiveDayBreakup, days) == 4);
static_assert(offsetof(FiveDayBreakup, totalGP) == 264     && offsetof(FiveDayBreakup, totalLM) == 268);
static_assert(offsetof(FiveDayBreakup, totalGS) == 272     && offsetof(FiveDayBreakup, totalBM) == 276);
static_assert(offsetof(FiveDayBreakup, totalBF) == 280     && offsetof(FiveDayBreakup, totalLF) == 284);
static_assert(offsetof(FiveDayBreakup, netPosition) == 288 && offsetof(FiveDayBreakup, unread) == 292);
static_assert(offsetof(FiveDayBreakup, grossLend) == 296   && offsetof(FiveDayBreakup, grossBorrow) == 300);
// clang-format on

// A file in memory for the length of a run.
struct FiveDayBreakups {
  FiveDayBreakup* records = nullptr;  // count, and a zero one behind them
  std::size_t count = 0;
};

enum class KestoBreakupLoad {
  loaded,
  zeroRecords,
  noMemory,
  notRewound,  // the file did not go back to its start: nothing was read
  notRead,     // a read failed, while counting or while loading
};

// Counts the lines from where the file stands, takes the block and reads the file from its start. Lines come in pieces of 999
// characters, each a record. The first number that is none, or has no '|' behind it, ends its record; the numbers behind it
// stay zero. Whatever it gives, freeFiveDayBreakups is due; the records are only good after `loaded`.
[[nodiscard]] KestoBreakupLoad loadFiveDayBreakups(Input& input, FiveDayBreakups& file);
void freeFiveDayBreakups(FiveDayBreakups& file);

// The order of the records, ascending by scrip code; those of one scrip keep their order in the file. It tests as false when
// there was no memory for it.
[[nodiscard]] RecordOrder orderFiveDayBreakups(const FiveDayBreakups& file);

}  // namespace quillon
