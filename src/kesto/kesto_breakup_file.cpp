#include "kesto/kesto_breakup_file.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <string_view>

#include "desktop/memory.h"
#include "text/scan.h"

namespace quillon {

// Size of the buffer a line is read into, and so one more than the characters of a piece.
static constexpr std::size_t lineLimit = 1000;

namespace {

// The place of every number in a record, in the order of the file, by which its width goes.
constexpr std::size_t placeOf(std::size_t offset) { return offset / sizeof(std::int32_t); }

constexpr bool isPlaceInDay(std::size_t place, std::size_t offsetInDay) {
  constexpr std::size_t begin = placeOf(offsetof(FiveDayBreakup, days));
  constexpr std::size_t size = placeOf(sizeof(KestoBreakupDay));
  return place >= begin && place < begin + kestoBreakupDays * size && (place - begin) % size == placeOf(offsetInDay);
}

constexpr bool has16Bits(std::size_t place) {
  return isPlaceInDay(place, offsetof(KestoBreakupDay, day)) || isPlaceInDay(place, offsetof(KestoBreakupDay, borrowMarket1)) ||
         isPlaceInDay(place, offsetof(KestoBreakupDay, borrowMarket2)) || place == placeOf(offsetof(FiveDayBreakup, totalGP)) ||
         place == placeOf(offsetof(FiveDayBreakup, totalLF));
}

}  // namespace

// A number of 32 bits is the nearest one within, of 16 bits the lower half of what stands there.
static std::int32_t storedNumber(std::size_t place, std::int64_t number) {
  if (has16Bits(place)) return static_cast<std::uint16_t>(number);
  using Limits = std::numeric_limits<std::int32_t>;
  return static_cast<std::int32_t>(std::clamp<std::int64_t>(number, Limits::min(), Limits::max()));
}

static void readRecord(std::string_view line, FiveDayBreakup& record) {
  std::int32_t numbers[kestoBreakupNumbers] = {};
  for (std::size_t place = 0; place < kestoBreakupNumbers; ++place) {
    std::int64_t number = 0;
    char bar = '\0';
    if (scan<"%I64d%c">(line, number, bar) == 0) break;
    numbers[place] = storedNumber(place, number);
    if (bar != '|') break;
    line.remove_prefix(line.find('|') + 1);
  }
  std::memcpy(&record, numbers, sizeof record);
}

static std::size_t countLines(Input& input) {
  char text[lineLimit];
  std::size_t lines = 0;
  while (inputReadPiece(input, text, lineLimit)) ++lines;
  return lines;
}

static bool takeBlock(FiveDayBreakups& file, std::size_t count) {
  file.records = static_cast<FiveDayBreakup*>(memoryTake((count + 1) * sizeof(FiveDayBreakup)));
  file.count = file.records ? count : 0;
  return file.records != nullptr;
}

static bool readRecords(Input& input, FiveDayBreakups& file) {
  char text[lineLimit];
  std::size_t length = 0;
  for (std::size_t i = 0; i < file.count; ++i) {
    if (!inputReadPiece(input, text, lineLimit, &length)) return false;
    readRecord({text, length}, file.records[i]);
  }
  return true;
}

KestoBreakupLoad loadFiveDayBreakups(Input& input, FiveDayBreakups& file) {
  const std::size_t count = countLines(input);
  // What was not counted could not be printed, and nobody would see that it is missing.
  if (inputPieceFailed(input)) return KestoBreakupLoad::notRead;
  if (count == 0) return KestoBreakupLoad::zeroRecords;
  if (!takeBlock(file, count)) return KestoBreakupLoad::noMemory;
  if (!inputSeekStart(input)) return KestoBreakupLoad::notRewound;
  return readRecords(input, file) ? KestoBreakupLoad::loaded : KestoBreakupLoad::notRead;
}

void freeFiveDayBreakups(FiveDayBreakups& file) {
  memoryFree(file.records);
  file = {};
}

RecordOrder orderFiveDayBreakups(const FiveDayBreakups& file) {
  const RecordKey byScripCode = {KeyKind::number, offsetof(FiveDayBreakup, scripCode), 0};
  return orderOfRecords({file.records, sizeof(FiveDayBreakup), file.count}, {byScripCode});
}

}  // namespace quillon
