#include "pages/page_search.h"

#include <algorithm>

namespace quillon {

PageSearch pageSearchStart(const PageFinder& finder, bool forward, std::uint64_t from) {
  PageSearch search;
  search.finder = finder;
  search.forward = forward;
  search.from = from;
  search.at = from;
  return search;
}

// A piece towards the end; after the end from the first byte to where the search was begun.
static PageSearchState stepForward(PageSearch& search, std::string_view bytes, std::uint64_t budget) {
  const std::uint64_t end = search.wrapped ? std::min<std::uint64_t>(search.from, bytes.size()) : bytes.size();
  const std::uint64_t to = search.at < end ? search.at + std::min(budget, end - search.at) : end;
  search.match = pageFindNext(search.finder, bytes, search.at, to);
  if (search.match != notFound) return PageSearchState::found;
  search.at = std::max(search.at, to);
  if (search.at < end) return PageSearchState::searching;
  if (search.wrapped) return PageSearchState::nowhere;
  search.wrapped = true;
  search.at = 0;
  return PageSearchState::searching;
}

static PageSearchState stepBack(PageSearch& search, std::string_view bytes, std::uint64_t budget) {
  const std::uint64_t end = search.wrapped ? std::min<std::uint64_t>(search.from, bytes.size()) : 0;
  search.at = std::min<std::uint64_t>(search.at, bytes.size());
  const std::uint64_t from = search.at > end ? search.at - std::min(budget, search.at - end) : end;
  search.match = pageFindPrevious(search.finder, bytes, from, search.at);
  if (search.match != notFound) return PageSearchState::found;
  search.at = std::min(search.at, from);
  if (search.at > end) return PageSearchState::searching;
  if (search.wrapped) return PageSearchState::nowhere;
  search.wrapped = true;
  search.at = bytes.size();
  return PageSearchState::searching;
}

PageSearchState pageSearchStep(PageSearch& search, std::string_view bytes, std::uint64_t budget) {
  if (search.finder.text.empty()) return PageSearchState::nowhere;
  budget = std::max<std::uint64_t>(budget, 1);
  return search.forward ? stepForward(search, bytes, budget) : stepBack(search, bytes, budget);
}

std::vector<PageMark> pageMarks(const PageFinder& finder, std::string_view bytes, const std::vector<PageLine>& lines) {
  std::vector<PageMark> marks;
  const std::size_t size = finder.text.size();
  for (std::size_t i = 0; size > 0 && i < lines.size(); ++i) {
    const PageLine& line = lines[i];
    const std::string_view text = bytes.substr(line.offset, line.size);
    std::uint64_t at = pageFindNext(finder, text, 0, text.size());
    for (; at != notFound; at = pageFindNext(finder, text, at + size, text.size())) {
      const std::size_t column = pageColumnOfByte(bytes, line, at);
      const std::size_t behind = pageColumnOfByte(bytes, line, at + size);
      marks.push_back({i, column, behind - column, line.offset + at});
    }
  }
  return marks;
}

PageMatchCount pageMatchCount(const PageFinder& finder, std::string_view bytes, std::uint64_t match) {
  PageMatchCount count = {};
  const std::size_t size = finder.text.size();
  if (size == 0) return count;
  std::uint64_t at = pageFindNext(finder, bytes, 0, bytes.size());
  for (; at != notFound; at = pageFindNext(finder, bytes, at + size, bytes.size())) {
    ++count.all;
    if (at <= match) count.number = count.all;
  }
  return count;
}

}  // namespace quillon
