// A search through a whole report, begun at the page in front of the user, over the report's end and on to where it was begun;
// piece by piece, so that a window stays alive. And what of it shows on a page.
#pragma once

#include <vector>

#include "pages/page_find.h"
#include "pages/page_index.h"

namespace quillon {

struct PageSearch {
  PageFinder finder;
  bool forward = true;
  std::uint64_t from = 0;  // where it was begun
  std::uint64_t at = 0;    // how far it is; backwards, all behind it has been looked through
  bool wrapped = false;    // over the end, or the beginning, of the report
  std::uint64_t match = notFound;
};

// Forwards the first match that begins at `from` or behind it, backwards the last one that begins before it.
PageSearch pageSearchStart(const PageFinder& finder, bool forward, std::uint64_t from);

enum class PageSearchState { searching, found, nowhere };
// Looks through about `budget` bytes. `bytes` may have grown or shrunk since the last step; a match is always within them.
PageSearchState pageSearchStep(PageSearch& search, std::string_view bytes, std::uint64_t budget);

// A match where it shows on a page.
struct PageMark {
  std::size_t line;
  std::size_t column;
  std::size_t columns;
  std::uint64_t offset;  // of the match in the report
  bool operator==(const PageMark&) const = default;
};
// The matches on the lines of a page. Of those that overlap the first one counts.
std::vector<PageMark> pageMarks(const PageFinder& finder, std::string_view bytes, const std::vector<PageLine>& lines);

struct PageMatchCount {
  std::uint64_t number;  // of the match, from 1
  std::uint64_t all;
};
// Counts the matches of a whole report, those that overlap once.
PageMatchCount pageMatchCount(const PageFinder& finder, std::string_view bytes, std::uint64_t match);

}  // namespace quillon
