// Finding text in a report: in the bytes as they lie in the file, forwards and backwards, piece by piece so that a window stays
// alive over a large report. A text is found within a line: what is sought has no line end.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace quillon {

inline constexpr std::uint64_t notFound = ~std::uint64_t{0};

// What is sought, made ready once.
struct PageFinder {
  std::string text;  // Windows-1252; small letters where the case does not matter
  bool matchCase = false;
  std::uint32_t ahead[256] = {};  // how far to go on after a byte at the end, and at the start, that lets nothing match
  std::uint32_t back[256] = {};
};

// `text` is UTF-8, as it was typed. Without `matchCase` letters are found in either case, those with accents as well. A text
// with a character that no report can hold is found nowhere; so is an empty one.
PageFinder pageFinder(std::string_view text, bool matchCase);

// The first match that begins in [from, to), notFound when there is none; it may end behind `to`, never behind the bytes.
std::uint64_t pageFindNext(const PageFinder& finder, std::string_view bytes, std::uint64_t from, std::uint64_t to);
// The last match that begins in [from, to).
std::uint64_t pageFindPrevious(const PageFinder& finder, std::string_view bytes, std::uint64_t from, std::uint64_t to);

}  // namespace quillon
