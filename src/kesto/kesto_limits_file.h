// Trader limits as the form of the lending product reads them: the files and records are those of the Kesto kind of the Trader
// Limits form (market/trader_limits_file.h). Here the file's own title alone chooses the layout, and lines are counted in
// longer pieces.
#pragma once

#include <cstddef>

#include "market/trader_limits_file.h"
#include "text/input.h"

namespace quillon {

// A file in memory for the length of a run. One of the two blocks is taken, by the file's layout.
struct KestoLimits {
  TraderLimitsHeader header = {};
  KestoTraderLimit* traders = nullptr;
  KestoScripLimit* scrips = nullptr;
  std::size_t count = 0;  // records of the one that is there
};

enum class KestoLimitsLoad {
  traderwise,  // loaded
  scripwise,   // loaded
  otherTitle,  // the title is that of neither layout: there is nothing to print
  noHeader,    // no line to read
  zeroRecords,
  noMemory,
  notRewound,  // the file did not go back to its start: no record was read
  notRead,     // a read failed, while counting or while loading
};

// Reads line 1 from where the file stands, counts the lines behind it in pieces of at most 99 characters, takes the block and
// reads the records from the file's start, in pieces of 119 characters (trader-wise) or 199 (scrip-wise): a line that counted
// as several leaves records at the end zero. `layout` is set as soon as the title is known, so that the texts of a failure can
// be chosen by it; `none` where it is not. Whatever it gives, freeKestoLimits is due; the records are only good after
// traderwise and scripwise.
[[nodiscard]] KestoLimitsLoad loadKestoLimits(Input& input, KestoLimits& file, LimitsLayout& layout);
void freeKestoLimits(KestoLimits& file);

}  // namespace quillon
