#include "pages/page_find.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <limits>

#include "text/encoding.h"

namespace quillon {

// The small letter of each Windows-1252 letter; every other byte is its own.
static constexpr std::array<unsigned char, 256> smallLetters = [] {
  std::array<unsigned char, 256> small{};
  for (unsigned byte = 0; byte < 256; ++byte) {
    const bool capital = (byte >= 'A' && byte <= 'Z') || (byte >= 0xC0 && byte <= 0xDE && byte != 0xD7);
    small[byte] = static_cast<unsigned char>(capital ? byte + 0x20 : byte);
  }
  small[0x8A] = 0x9A;  // S, OE and Z with their marks, and Y with its dots, lie elsewhere
  small[0x8C] = 0x9C;
  small[0x8E] = 0x9E;
  small[0x9F] = 0xFF;
  return small;
}();

static unsigned char sought(const PageFinder& finder, char c) {
  const auto byte = static_cast<unsigned char>(c);
  return finder.matchCase ? byte : smallLetters[byte];
}

PageFinder pageFinder(std::string_view text, bool matchCase) {
  PageFinder finder;
  finder.matchCase = matchCase;
  finder.text = bytesFromUtf8(text);
  const bool foreign = isUtf8(text) && utf8FromBytes(finder.text) != text;
  if (foreign || finder.text.size() > std::numeric_limits<std::uint32_t>::max()) finder.text.clear();
  for (char& c : finder.text) c = static_cast<char>(sought(finder, c));
  const auto size = static_cast<std::uint32_t>(finder.text.size());
  std::fill(std::begin(finder.ahead), std::end(finder.ahead), size);
  std::fill(std::begin(finder.back), std::end(finder.back), size);
  for (std::uint32_t i = 0; i + 1 < size; ++i) finder.ahead[static_cast<unsigned char>(finder.text[i])] = size - 1 - i;
  for (std::uint32_t i = size; i-- > 1;) finder.back[static_cast<unsigned char>(finder.text[i])] = i;
  return finder;
}

static bool matchesAt(const PageFinder& finder, std::string_view bytes, std::uint64_t at) {
  for (std::size_t i = 0; i < finder.text.size(); ++i) {
    if (sought(finder, bytes[at + i]) != static_cast<unsigned char>(finder.text[i])) return false;
  }
  return true;
}

// One past the last place where a match may begin.
static std::uint64_t placesEnd(const PageFinder& finder, std::string_view bytes, std::uint64_t to) {
  const std::size_t size = finder.text.size();
  if (size == 0 || size > bytes.size()) return 0;
  return std::min<std::uint64_t>(to, bytes.size() - size + 1);
}

std::uint64_t pageFindNext(const PageFinder& finder, std::string_view bytes, std::uint64_t from, std::uint64_t to) {
  const std::uint64_t end = placesEnd(finder, bytes, to);
  for (std::uint64_t at = from; at < end; at += finder.ahead[sought(finder, bytes[at + finder.text.size() - 1])]) {
    if (matchesAt(finder, bytes, at)) return at;
  }
  return notFound;
}

std::uint64_t pageFindPrevious(const PageFinder& finder, std::string_view bytes, std::uint64_t from, std::uint64_t to) {
  for (std::uint64_t behind = placesEnd(finder, bytes, to); behind > from;) {
    const std::uint64_t at = behind - 1;
    if (matchesAt(finder, bytes, at)) return at;
    const std::uint64_t step = finder.back[sought(finder, bytes[at])];
    behind = behind > step ? behind - step : 0;
  }
  return notFound;
}

}  // namespace quillon
