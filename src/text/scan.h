// Fields taken out of a line by the reports' scanf formats:
//   scan<"%[^|]|%Fld|%Fld|">(piece, scrip.scripId, scrip.scripCode, scrip.rate)
//
// The format is read while compiling; a wrong count or type of fields does not compile. The scan stops at the first field
// that fails, or at a plain character of the format that the line does not have, and leaves the fields from there on as they
// were. White space is passed over before numbers and not before %[ and %c; a blank in the format passes over any amount of it.
//
//   %ld %d         std::int32_t&; a number beyond 32 bits gives the nearest one within
//   %hd            std::int16_t&, likewise; %I64d  std::int64_t&, likewise
//   %c             char&
//   %[^|] %[abc]   TextField<N>&: at least one character out of the set, or out of all but the set. The scan passes over the
//                  whole text; what is longer than the field is cut to N - 1 characters, and NULs follow.
//
// An "F" before the conversion has no effect. Fields of packed records cannot stand here, as they have no references; scan
// into variables or into a plain struct.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>
#include <string_view>
#include <type_traits>
#include <utility>

#include "text/fields.h"
#include "text/format_string.h"

namespace quillon {
namespace detail {

enum class ScanKind { plain, blank, character, shortNumber, number, number64, set };
enum class ScanMistake { none, unknownConversion, openSet };

// One thing that the scan wants of the line.
struct ScanPart {
  ScanKind kind = ScanKind::plain;
  char plain = 0;          // of a plain character; of a set of all but one, that one
  bool allButOne = false;  // a set of the form [^x]
  std::size_t field = 0;   // which argument it fills
  bool members[256] = {};  // of a set
};

template <std::size_t N>
struct ScanParts {
  ScanPart parts[N] = {};
  std::size_t count = 0;
  std::size_t fields = 0;
  ScanMistake mistake = ScanMistake::none;
};

constexpr bool isScanBlank(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }

// Reads a set from behind its "[" to behind its "]"; a "]" that stands first is a member.
template <std::size_t N>
constexpr void readSet(const FormatText<N>& format, std::size_t& at, ScanPart& part, ScanMistake& mistake) {
  part.kind = ScanKind::set;
  const bool inverted = format.bytes[at] == '^';
  if (inverted) ++at;
  const std::size_t begin = at;
  while (at + 1 < N && (format.bytes[at] != ']' || at == begin)) ++at;
  if (at + 1 >= N) {
    mistake = ScanMistake::openSet;
    return;
  }
  for (bool& member : part.members) member = inverted;
  for (std::size_t i = begin; i < at; ++i) {
    const auto low = static_cast<unsigned char>(format.bytes[i]);
    const bool range = i + 2 < at && format.bytes[i + 1] == '-';
    const auto high = range ? static_cast<unsigned char>(format.bytes[i + 2]) : low;
    for (int c = low; c <= high; ++c) part.members[c] = !inverted;
    if (range) i += 2;
  }
  part.members[0] = false;  // the NUL ends the line
  part.allButOne = inverted && at == begin + 1;
  part.plain = format.bytes[begin];
  ++at;
}

template <std::size_t N>
constexpr ScanParts<N> readScanFormat(const FormatText<N>& format) {
  ScanParts<N> read;
  for (std::size_t at = 0; at + 1 < N;) {
    ScanPart& part = read.parts[read.count++];
    const char c = format.bytes[at++];
    if (isScanBlank(c)) {
      part.kind = ScanKind::blank;
      continue;
    }
    if (c != '%') {
      part.plain = c;
      continue;
    }
    bool isShort = false;
    bool is64 = false;
    for (;; ++at) {
      const char prefix = format.bytes[at];
      if (prefix == 'h')
        isShort = true;
      else if (prefix == 'I' && format.bytes[at + 1] == '6' && format.bytes[at + 2] == '4')
        is64 = true, at += 2;
      else if (prefix != 'F' && prefix != 'l')
        break;
    }
    const char letter = format.bytes[at++];
    if (letter == 'd')
      part.kind = is64 ? ScanKind::number64 : isShort ? ScanKind::shortNumber : ScanKind::number;
    else if (letter == 'c')
      part.kind = ScanKind::character;
    else if (letter == '[')
      readSet(format, at, part, read.mistake);
    else
      read.mistake = ScanMistake::unknownConversion;
    if (read.mistake != ScanMistake::none) return read;
    part.field = read.fields++;
  }
  return read;
}

template <FormatText Format>
inline constexpr auto scanParts = readScanFormat(Format);

inline void skipBlanks(const char*& at, const char* end) {
  while (at != end && isScanBlank(*at)) ++at;
}

// Reads a number of one to seven digits eight bytes at a time: what is no digit is found by its bits, the digits are moved to
// the end of the word, and neighbours are joined to pairs, fours and eights. False, and nothing done, where it is not that
// short or too near to the end.
inline bool shortNumber(const char*& at, const char* end, std::uint64_t& magnitude) {
  if (end - at < 8) return false;
  std::uint64_t word;
  std::memcpy(&word, at, 8);
  word ^= 0x3030303030303030;
  const std::uint64_t others = ((word + 0x7676767676767676) | word) & 0x8080808080808080;
  if (others == 0) return false;
  const int bits = std::countr_zero(others) & ~7;
  if (bits == 0) return false;
  word <<= 64 - bits;
  word = (word * 10 + (word >> 8)) & 0x00ff00ff00ff00ff;
  word = (word * 100 + (word >> 16)) & 0x0000ffff0000ffff;
  magnitude = (word * 10000 + (word >> 32)) & 0xffffffff;
  at += bits / 8;
  return true;
}

// Reads a number with the white space before it. False where there is no digit.
inline bool scanNumber(const char*& at, const char* end, std::int64_t lowest, std::int64_t highest, std::int64_t& number) {
  skipBlanks(at, end);
  const bool negative = at != end && *at == '-';
  if (at != end && (*at == '-' || *at == '+')) ++at;
  if (at == end || !isDigit(*at)) return false;
  std::uint64_t magnitude = 0;
  const char* const begin = at;
  if (!shortNumber(at, end, magnitude)) {
    for (; at != end && isDigit(*at); ++at) magnitude = magnitude * 10 + static_cast<std::uint64_t>(*at - '0');
  }
  if (at - begin > 18) {  // may have run over: once more, with an eye on the limit
    constexpr std::uint64_t enough = std::uint64_t{1} << 63;
    magnitude = 0;
    for (const char* digit = begin; digit != at && magnitude < enough; ++digit) {
      const auto value = static_cast<std::uint64_t>(*digit - '0');
      magnitude = magnitude > (enough - value) / 10 ? enough : magnitude * 10 + value;
    }
  }
  const auto above = static_cast<std::uint64_t>(highest);
  const std::uint64_t limit = negative ? above + 1 : above;
  if (magnitude > limit) magnitude = limit;
  number =
      negative ? (magnitude > above ? lowest : -static_cast<std::int64_t>(magnitude)) : static_cast<std::int64_t>(magnitude);
  return true;
}

template <class T>
inline bool scanNumberInto(const char*& at, const char* end, T& field) {
  constexpr std::uint64_t highest = std::numeric_limits<T>::max();
  std::uint64_t magnitude;
  if (shortNumber(at, end, magnitude)) {  // most numbers stand without blank and sign
    field = static_cast<T>(magnitude < highest ? magnitude : highest);
    return true;
  }
  std::int64_t number;
  if (!scanNumber(at, end, std::numeric_limits<T>::min(), std::numeric_limits<T>::max(), number)) return false;
  field = static_cast<T>(number);
  return true;
}

template <FormatText Format, std::size_t Part>
inline const char* setEnd(const char* at, const char* end) {
  constexpr const ScanPart& part = scanParts<Format>.parts[Part];
  if constexpr (part.allButOne) {
    // Eight bytes at a time as far as they go.
    constexpr std::uint64_t every = 0x0101010101010101;
    for (; end - at >= 8; at += 8) {
      std::uint64_t word;
      std::memcpy(&word, at, 8);
      const std::uint64_t other = word ^ (every * static_cast<unsigned char>(part.plain));
      const std::uint64_t stop = (((word - every) & ~word) | ((other - every) & ~other)) & (every * 0x80);
      if (stop) return at + std::countr_zero(stop) / 8;
    }
    while (at != end && *at != part.plain && *at != '\0') ++at;
  } else {
    while (at != end && part.members[static_cast<unsigned char>(*at)]) ++at;
  }
  return at;
}

// Copies up to sixteen bytes without a call: two pieces that may overlap.
inline void copyShort(char* to, const char* from, std::size_t size) {
  if (size >= 8) {
    std::uint64_t first;
    std::uint64_t last;
    std::memcpy(&first, from, 8);
    std::memcpy(&last, from + size - 8, 8);
    std::memcpy(to, &first, 8);
    std::memcpy(to + size - 8, &last, 8);
  } else if (size >= 4) {
    std::uint32_t first;
    std::uint32_t last;
    std::memcpy(&first, from, 4);
    std::memcpy(&last, from + size - 4, 4);
    std::memcpy(to, &first, 4);
    std::memcpy(to + size - 4, &last, 4);
  } else {
    for (std::size_t i = 0; i < size; ++i) to[i] = from[i];
  }
}

template <std::size_t N>
inline void storeText(TextField<N>& field, const char* text, std::size_t size) {
  if (size > N - 1) size = N - 1;
  std::memset(field.bytes, 0, N);
  if (size <= 16) {
    copyShort(field.bytes, text, size);
  } else {
    std::memcpy(field.bytes, text, size);
  }
}

// One part of the format. False where the scan ends.
template <FormatText Format, std::size_t Part, class Field>
[[gnu::always_inline]] inline bool scanPart(const char*& at, const char* end, [[maybe_unused]] Field& field, int& stored) {
  constexpr ScanKind kind = scanParts<Format>.parts[Part].kind;
  if constexpr (kind == ScanKind::blank) {
    skipBlanks(at, end);
    return true;
  } else if constexpr (kind == ScanKind::plain) {
    if (at == end || *at != scanParts<Format>.parts[Part].plain) return false;
    ++at;
    return true;
  } else {
    if constexpr (kind == ScanKind::character) {
      if (at == end || *at == '\0') return false;
      field = *at++;
    } else if constexpr (kind == ScanKind::set) {
      const char* const textEnd = setEnd<Format, Part>(at, end);
      if (textEnd == at) return false;
      storeText(field, at, static_cast<std::size_t>(textEnd - at));
      at = textEnd;
    } else {
      if (!scanNumberInto(at, end, field)) return false;
    }
    ++stored;
    return true;
  }
}

template <class T>
struct IsTextField : std::false_type {};
template <std::size_t N>
struct IsTextField<TextField<N>> : std::true_type {};

template <ScanKind Kind, class T>
constexpr bool checkField() {
  static_assert(Kind != ScanKind::character || std::is_same_v<T, char>, "%c fills a char");
  static_assert(Kind != ScanKind::shortNumber || std::is_same_v<T, std::int16_t>, "%hd fills a std::int16_t");
  static_assert(Kind != ScanKind::number || std::is_same_v<T, std::int32_t>, "%d and %ld fill a std::int32_t");
  static_assert(Kind != ScanKind::number64 || std::is_same_v<T, std::int64_t>, "%I64d fills a std::int64_t");
  static_assert(Kind != ScanKind::set || IsTextField<T>::value, "%[ fills a TextField");
  return true;
}

// The kind of the conversion that fills this field.
template <FormatText Format>
constexpr ScanKind fieldKind(std::size_t field) {
  for (std::size_t i = 0; i < scanParts<Format>.count; ++i) {
    const ScanPart& part = scanParts<Format>.parts[i];
    if (part.field == field && part.kind != ScanKind::plain && part.kind != ScanKind::blank) return part.kind;
  }
  return ScanKind::plain;
}

template <std::size_t I, class First, class... Rest>
[[gnu::always_inline]] inline auto& fieldAt(First& first, Rest&... rest) {
  if constexpr (I == 0)
    return first;
  else
    return fieldAt<I - 1>(rest...);
}

}  // namespace detail

// Gives how many fields were filled; 0 also for an empty line. The line ends at a NUL.
template <FormatText Format, class... Fields>
inline int scan(std::string_view line, Fields&... fields) {
  constexpr auto& read = detail::scanParts<Format>;
  static_assert(read.mistake != detail::ScanMistake::unknownConversion,
                "the format has a conversion that the reports do not use");
  static_assert(read.mistake != detail::ScanMistake::openSet, "the format has a %[ without its ]");
  static_assert(read.fields <= sizeof...(Fields), "the format has more conversions than there are fields");
  static_assert(read.fields >= sizeof...(Fields), "there are more fields than the format has conversions");
  int stored = 0;
  if constexpr (read.fields == sizeof...(Fields) && sizeof...(Fields) > 0) {
    []<std::size_t... I>(std::index_sequence<I...>) {
      static_assert((detail::checkField<detail::fieldKind<Format>(I), Fields>() && ...));
    }
    (std::index_sequence_for<Fields...>());
    const char* at = line.data();
    const char* const end = at + line.size();
    [&]<std::size_t... Part>(std::index_sequence<Part...>) {
      static_cast<void>(
          (detail::scanPart<Format, Part>(at, end, detail::fieldAt<read.parts[Part].field>(fields...), stored) && ...));
    }
    (std::make_index_sequence<read.count>());
  }
  return stored;
}

}  // namespace quillon
