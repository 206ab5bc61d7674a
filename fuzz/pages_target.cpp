// Any bytes as a report: read piece by piece and as it grows, its pages hold every byte that shows, in order and within bounds,
// and agree with reading it at once; what is found stands where it is told.

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include "pages/page_find.h"
#include "pages/page_fit.h"
#include "pages/page_index.h"
#include "pages/pages_command.h"

using namespace quillon;

static void require(bool holds) {
  if (!holds) std::abort();
}

static std::string textOf(const PageIndex& index, std::string_view bytes) {
  std::string text;
  std::uint64_t at = 0;
  for (std::size_t page = 0; page < pageCount(index); ++page) {
    const std::vector<PageLine> lines = pageLines(index, bytes, page);
    require(lines.size() <= longestPage);
    for (const PageLine& line : lines) {
      require(line.offset >= at && line.size <= longestLine && line.offset + line.size <= bytes.size());
      at = line.offset + line.size;
      text += bytes.substr(line.offset, line.size);
      const std::string shown = pageLineShown(bytes, line);
      require(pageColumnOfByte(bytes, line, line.size) == shown.size());
      require(shown.find_last_not_of(" \xA0") == std::string::npos || shown.find_last_not_of(" \xA0") < pageWidest(index));
      PagePlace place;
      if (line.size == 0) continue;
      require(pagePlaceOf(index, bytes, line.offset, place) && place.page == page && place.column == 0);
    }
    text += '\f';
  }
  return text;
}

// What shows of the bytes, without line ends, form feeds and what shows as a blank.
static std::string shownBytes(std::string_view bytes) {
  std::string shown;
  for (const char c : bytes) {
    if (static_cast<unsigned char>(c) > ' ' && !std::strchr("\x7f\x81\x8d\x8f\x90\x9d\xa0", c)) shown += c;
  }
  return shown;
}

static void findIn(std::string_view bytes, std::string_view sought, bool matchCase) {
  const PageFinder finder = pageFinder(sought, matchCase);
  std::vector<std::uint64_t> ahead;
  std::vector<std::uint64_t> back;
  for (std::uint64_t at = 0; (at = pageFindNext(finder, bytes, at, bytes.size())) != notFound; ++at) ahead.push_back(at);
  for (std::uint64_t at = bytes.size(); (at = pageFindPrevious(finder, bytes, 0, at)) != notFound;)
    back.insert(back.begin(), at);
  require(ahead == back);
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* input, std::size_t size) {
  if (size < 4) return 0;
  const std::size_t flow = input[0];
  const std::size_t budget = 1 + input[1];
  const std::size_t first = input[2] * size / 256;
  const std::string text(input + 3, input + size);
  const std::string_view bytes = text;

  PageIndex atOnce = pageIndexStart(flow);
  pageIndexFinish(atOnce, bytes);
  PageIndex grown = pageIndexStart(flow);
  pageIndexFinish(grown, bytes.substr(0, first));
  textOf(grown, bytes.substr(0, first));
  while (!pageIndexStep(grown, bytes, budget)) {
  }
  const std::string pages = textOf(atOnce, bytes);
  require(pages == textOf(grown, bytes));
  require(pageWidest(atOnce) == pageWidest(grown) && pageLongest(atOnce) == pageLongest(grown));
  require(shownBytes(pages) == shownBytes(bytes));

  PageFit fit;
  require(pageFit(pageWidest(atOnce), pageLongest(atOnce), {}, fit));
  // A line of tabs may be wider than the smallest letters bring onto the sheet.
  require(fit.fontSize <= smallestFont || (fit.columnsFit == fit.columns && fit.linesFit == fit.lines));
  findIn(bytes, bytes.substr(0, budget % 8), input[1] & 8);
  const std::size_t third = text.size() / 3;
  const std::size_t half = text.size() / 2;
  pagesCommand({text.substr(0, third), "/pages", text.substr(third, 6), "/font", text.substr(half, 5), text.substr(half)});
  return 0;
}
