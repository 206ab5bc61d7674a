// Reads the reports' printf formats while the program is compiled.
//
// Taken: %c %lc %s %d %ld %hd %I64d %f %lf with the flags "-", "0", "+" and blank, a width and a precision; an "F" before the
// conversion letter has no effect, and %ld is 32 bits wide, as it is on Windows. A "%" before a character that is no
// letter vanishes and the character stands ("%\n" is the line feed). Any other letter is a slip and does not compile.
#pragma once

#include <cstddef>

namespace quillon {

// The text of a format, as a template argument.
template <std::size_t N>
struct FormatText {
  char bytes[N];

  consteval FormatText(const char (&text)[N]) {
    for (std::size_t i = 0; i < N; ++i) bytes[i] = text[i];
  }
};

// How a line feed leaves: the reports' streams are text streams.
enum class LineEnd { lf, crLf };

enum class ConversionKind { none, character, shortNumber, number, number64, real, text };

struct Conversion {
  ConversionKind kind = ConversionKind::none;
  bool left = false;
  bool zero = false;
  bool plus = false;
  bool blank = false;
  int width = 0;
  int precision = -1;  // -1: none given
};

enum class FormatMistake { none, unknownLetter, widthTooLarge, flagWithoutEffect };

// A stretch of plain text and the conversion behind it; the last one of a format has none.
struct FormatPiece {
  std::size_t begin = 0;  // in FormatParts::plain
  std::size_t size = 0;
  Conversion conversion;
};

inline constexpr int largestWidth = 512;  // of a cell, and of its precision

template <std::size_t N>
struct FormatParts {
  char plain[2 * N] = {};  // with line feeds as they leave
  FormatPiece pieces[N / 2 + 2] = {};
  std::size_t conversions = 0;
  FormatMistake mistake = FormatMistake::none;
};

namespace detail {

constexpr bool isLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }
constexpr bool isDigit(char c) { return c >= '0' && c <= '9'; }

template <std::size_t N>
constexpr int readNumber(const FormatText<N>& format, std::size_t& at) {
  int number = 0;
  for (; isDigit(format.bytes[at]); ++at) {
    if (number <= largestWidth) number = number * 10 + (format.bytes[at] - '0');
  }
  return number;
}

// Reads what stands behind a "%". Leaves `at` behind the conversion, or on the character that is none.
template <std::size_t N>
constexpr Conversion readConversion(const FormatText<N>& format, std::size_t& at, FormatMistake& mistake) {
  Conversion conversion;
  for (;; ++at) {
    const char c = format.bytes[at];
    if (c == '-')
      conversion.left = true;
    else if (c == '0')
      conversion.zero = true;
    else if (c == '+')
      conversion.plus = true;
    else if (c == ' ')
      conversion.blank = true;
    else
      break;
  }
  conversion.width = readNumber(format, at);
  if (format.bytes[at] == '.') {
    ++at;
    conversion.precision = readNumber(format, at);
  }
  if (conversion.width > largestWidth || conversion.precision > largestWidth) mistake = FormatMistake::widthTooLarge;
  bool isShort = false;
  bool is64 = false;
  for (;;) {
    const char c = format.bytes[at];
    if (c == 'h')
      isShort = true;
    else if (c == 'I' && format.bytes[at + 1] == '6' && format.bytes[at + 2] == '4')
      is64 = true, at += 2;
    else if (c != 'F' && c != 'l')
      break;
    ++at;
  }
  const char letter = format.bytes[at];
  if (letter == 'c')
    conversion.kind = ConversionKind::character;
  else if (letter == 's')
    conversion.kind = ConversionKind::text;
  else if (letter == 'f')
    conversion.kind = ConversionKind::real;
  else if (letter == 'd' && is64)
    conversion.kind = ConversionKind::number64;
  else if (letter == 'd')
    conversion.kind = isShort ? ConversionKind::shortNumber : ConversionKind::number;
  else if (isLetter(letter) || letter == '*' || letter == '#')
    mistake = FormatMistake::unknownLetter;
  if (conversion.kind == ConversionKind::none) return conversion;
  ++at;
  const bool ofText = conversion.kind == ConversionKind::text || conversion.kind == ConversionKind::character;
  if (ofText && (conversion.zero || conversion.plus || conversion.blank)) mistake = FormatMistake::flagWithoutEffect;
  // What C says of flags that meet: "-" beats "0", "+" beats blank, and a precision of a whole number beats "0".
  if (conversion.left) conversion.zero = false;
  if (conversion.plus) conversion.blank = false;
  if (conversion.kind == ConversionKind::real) {
    if (conversion.precision < 0) conversion.precision = 6;
  } else if (conversion.precision >= 0) {
    conversion.zero = false;
  }
  return conversion;
}

template <LineEnd End, std::size_t N>
constexpr FormatParts<N> readFormat(const FormatText<N>& format) {
  FormatParts<N> parts;
  std::size_t size = 0;
  std::size_t begin = 0;
  const auto plain = [&](char c) {
    if (c == '\n' && End == LineEnd::crLf) parts.plain[size++] = '\r';
    parts.plain[size++] = c;
  };
  for (std::size_t at = 0; at + 1 < N;) {
    if (format.bytes[at] != '%') {
      plain(format.bytes[at++]);
      continue;
    }
    ++at;
    const Conversion conversion = readConversion(format, at, parts.mistake);
    if (conversion.kind != ConversionKind::none) {
      parts.pieces[parts.conversions++] = {begin, size - begin, conversion};
      begin = size;
    } else if (at + 1 < N) {
      plain(format.bytes[at++]);
    }
  }
  parts.pieces[parts.conversions] = {begin, size - begin, {}};
  return parts;
}

}  // namespace detail

template <FormatText Format, LineEnd End>
inline constexpr auto formatParts = detail::readFormat<End>(Format);

}  // namespace quillon
