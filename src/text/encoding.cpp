// Windows-1252 and UTF-8, written out so that both desktops convert alike: Windows itself would take letters that Windows-1252
// lacks for their nearest ones.
#include "text/encoding.h"

#include <cstddef>

namespace quillon {

// clang-format off
static constexpr std::uint16_t upperControls[32] = {  // what Windows-1252 has in 0x80 to 0x9F
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
    0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};
// clang-format on

static constexpr std::uint32_t noCharacter = 0xFFFFFFFF;

static unsigned byteAt(std::string_view text, std::size_t position) { return static_cast<unsigned char>(text[position]); }

// The character at the front, and how many bytes it took; noCharacter (one byte) where there is no valid one.
static std::uint32_t takeCharacter(std::string_view text, std::size_t& length) {
  length = 1;
  const unsigned first = byteAt(text, 0);
  if (first < 0x80) return first;
  const std::size_t size = first >= 0xF0 ? 4 : first >= 0xE0 ? 3 : 2;
  if (first < 0xC2 || first > 0xF4 || text.size() < size) return noCharacter;
  std::uint32_t character = first & (0xFFu >> (size + 1));
  for (std::size_t i = 1; i < size; ++i) {
    if ((byteAt(text, i) & 0xC0) != 0x80) return noCharacter;
    character = character << 6 | (byteAt(text, i) & 0x3F);
  }
  const bool longerThanNeeded = (size == 3 && character < 0x800) || (size == 4 && character < 0x10000);
  const bool surrogate = character >= 0xD800 && character <= 0xDFFF;
  if (longerThanNeeded || surrogate || character > 0x10FFFF) return noCharacter;
  length = size;
  return character;
}

static void appendUtf8(std::string& out, std::uint32_t character) {
  if (character < 0x80) {
    out += static_cast<char>(character);
  } else if (character < 0x800) {
    out += static_cast<char>(0xC0 | character >> 6);
    out += static_cast<char>(0x80 | (character & 0x3F));
  } else {
    out += static_cast<char>(0xE0 | character >> 12);
    out += static_cast<char>(0x80 | (character >> 6 & 0x3F));
    out += static_cast<char>(0x80 | (character & 0x3F));
  }
}

bool isUtf8(std::string_view text) {
  while (!text.empty()) {
    std::size_t length;
    if (takeCharacter(text, length) == noCharacter) return false;
    text.remove_prefix(length);
  }
  return true;
}

std::string utf8FromBytes(std::string_view bytes) {
  std::string text;
  text.reserve(bytes.size());
  for (char c : bytes) {
    const unsigned byte = static_cast<unsigned char>(c);
    appendUtf8(text, byte >= 0x80 && byte < 0xA0 ? upperControls[byte - 0x80] : byte);
  }
  return text;
}

std::string utf8FromEither(std::string_view text) { return isUtf8(text) ? std::string(text) : utf8FromBytes(text); }

char byteFromUnicode(std::uint32_t character) {
  if (character < 0x80 || (character >= 0xA0 && character <= 0xFF)) return static_cast<char>(character);
  for (unsigned i = 0; i < 32; ++i) {
    if (upperControls[i] == character) return static_cast<char>(0x80 + i);
  }
  return '?';
}

std::string bytesFromUtf8(std::string_view text) {
  if (!isUtf8(text)) return std::string(text);
  std::string bytes;
  while (!text.empty()) {
    std::size_t length;
    bytes += byteFromUnicode(takeCharacter(text, length));
    text.remove_prefix(length);
  }
  return bytes;
}

std::u16string utf16FromUtf8(std::string_view text) {
  if (!isUtf8(text)) return utf16FromUtf8(utf8FromBytes(text));
  std::u16string wide;
  while (!text.empty()) {
    std::size_t length;
    const std::uint32_t character = takeCharacter(text, length);
    if (character >= 0x10000) {
      wide += static_cast<char16_t>(0xD800 + ((character - 0x10000) >> 10));
      wide += static_cast<char16_t>(0xDC00 + ((character - 0x10000) & 0x3FF));
    } else {
      wide += static_cast<char16_t>(character);
    }
    text.remove_prefix(length);
  }
  return wide;
}

}  // namespace quillon
