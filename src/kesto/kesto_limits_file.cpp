#include "kesto/kesto_limits_file.h"

#include "desktop/memory.h"

namespace quillon {

// Size of the buffer a line is counted with, and so one more than the characters of a piece.
static constexpr std::size_t countLimit = 100;

// From where the file stands, behind line 1.
static std::size_t countPieces(Input& input) {
  char text[countLimit];
  std::size_t pieces = 0;
  while (inputReadPiece(input, text, countLimit)) ++pieces;
  return pieces;
}

static bool takeBlock(KestoLimits& file, LimitsLayout layout, std::size_t count) {
  file.count = count;
  if (layout == LimitsLayout::kestoTraderwise) {
    file.traders = static_cast<KestoTraderLimit*>(memoryTake((count + 1) * sizeof(KestoTraderLimit)));
    return file.traders != nullptr;
  }
  file.scrips = static_cast<KestoScripLimit*>(memoryTake((count + 1) * sizeof(KestoScripLimit)));
  return file.scrips != nullptr;
}

// Line 1 is passed over whole, as it was read at first: were the rest of a long one a record, the last record would find no
// place.
static bool readRecords(Input& input, KestoLimits& file) {
  TraderLimitsHeader again;
  if (!readTraderLimitsHeader(input, again)) return false;
  return file.traders ? readKestoTraderRecords(input, file.traders, file.count)
                      : readKestoScripRecords(input, file.scrips, file.count);
}

KestoLimitsLoad loadKestoLimits(Input& input, KestoLimits& file, LimitsLayout& layout) {
  layout = LimitsLayout::none;
  if (!readTraderLimitsHeader(input, file.header)) return KestoLimitsLoad::noHeader;
  layout = limitsLayout(file.header, true);
  if (layout == LimitsLayout::none) return KestoLimitsLoad::otherTitle;

  const std::size_t count = countPieces(input);
  // What was not counted could not be printed, and nobody would see that it is missing.
  if (inputPieceFailed(input)) return KestoLimitsLoad::notRead;
  if (count == 0) return KestoLimitsLoad::zeroRecords;
  if (!takeBlock(file, layout, count)) return KestoLimitsLoad::noMemory;
  if (!inputSeekStart(input)) return KestoLimitsLoad::notRewound;
  if (!readRecords(input, file)) return KestoLimitsLoad::notRead;
  return layout == LimitsLayout::kestoTraderwise ? KestoLimitsLoad::traderwise : KestoLimitsLoad::scripwise;
}

void freeKestoLimits(KestoLimits& file) {
  memoryFree(file.traders);
  memoryFree(file.scrips);
  file = {};
}

}  // namespace quillon
