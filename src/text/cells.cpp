// The general roads of cells.h: any width, flags and precision.
#include "text/cells.h"

#include <charconv>

namespace quillon::detail {
namespace {

// Lays out a number's sign and digits in the conversion's width.
char* putSigned(char* to, bool negative, std::string_view digits, bool zeroFilled, const Conversion& conversion) {
  const char sign = negative ? '-' : conversion.plus ? '+' : conversion.blank ? ' ' : '\0';
  const std::size_t size = digits.size() + (sign ? 1 : 0);
  const auto width = static_cast<std::size_t>(conversion.width);
  const std::size_t filling = size < width ? width - size : 0;
  if (!conversion.left && !zeroFilled) to = putBlanks(to, filling);
  if (sign) *to++ = sign;
  if (!conversion.left && zeroFilled) {
    std::memset(to, '0', filling);
    to += filling;
  }
  std::memcpy(to, digits.data(), digits.size());
  to += digits.size();
  return conversion.left ? putBlanks(to, filling) : to;
}

}  // namespace

char* putNumberGeneral(char* to, std::uint64_t magnitude, bool negative, const Conversion& conversion) {
  char digits[largestWidth + 24];
  char* const end = digits + sizeof digits;
  char* begin = end;
  for (; magnitude >= 100; magnitude /= 100) {
    begin -= 2;
    std::memcpy(begin, digitPairs + 2 * (magnitude % 100), 2);
  }
  if (magnitude >= 10) {
    begin -= 2;
    std::memcpy(begin, digitPairs + 2 * magnitude, 2);
  } else if (magnitude > 0 || conversion.precision < 0) {
    *--begin = static_cast<char>('0' + magnitude);
  }
  while (end - begin < conversion.precision) *--begin = '0';
  return putSigned(to, negative, {begin, static_cast<std::size_t>(end - begin)}, conversion.zero, conversion);
}

char* putRealGeneral(char* to, double value, const Conversion& conversion) {
  char digits[312 + largestWidth];
  const std::to_chars_result result =
      std::to_chars(digits, digits + sizeof digits, value, std::chars_format::fixed, conversion.precision);
  const bool negative = digits[0] == '-';
  const char* begin = digits + negative;
  // Zeros do not lead an infinity or a no-number.
  const bool zeroFilled = conversion.zero && isDigit(*begin);
  return putSigned(to, negative, {begin, static_cast<std::size_t>(result.ptr - begin)}, zeroFilled, conversion);
}

char* putTextGeneral(char* to, std::string_view text, const Conversion& conversion, LineEnd end) {
  if (conversion.precision >= 0) text = text.substr(0, static_cast<std::size_t>(conversion.precision));
  const auto width = static_cast<std::size_t>(conversion.width);
  const std::size_t filling = text.size() < width ? width - text.size() : 0;
  if (!conversion.left) to = putBlanks(to, filling);
  for (const char c : text) {
    if (c == '\n' && end == LineEnd::crLf) *to++ = '\r';
    *to++ = c;
  }
  return conversion.left ? putBlanks(to, filling) : to;
}

}  // namespace quillon::detail
