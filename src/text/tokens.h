// Delimited lines taken apart: tokens between delimiters, a run of which is one, and numbers out of tokens.
#pragma once

#include <cstdint>
#include <limits>
#include <string_view>

#include "text/scan.h"

namespace quillon {

// A line that is taken apart; the line itself stays as it is.
struct Tokens {
  std::string_view rest;
};

// The next token, as strtok gives it: delimiters before it are passed over, however many, and it ends before the next one. The
// line ends at a NUL. Empty when there is no further token, as no token is empty.
inline std::string_view tokenNext(Tokens& tokens, std::string_view delimiters) {
  const std::string_view rest = tokens.rest;
  std::size_t begin = 0;
  // A line has one delimiter, or few: a loop finds them sooner than a search.
  const auto isDelimiter = [&](char c) {
    for (const char delimiter : delimiters) {
      if (c == delimiter) return true;
    }
    return false;
  };
  while (begin < rest.size() && rest[begin] != '\0' && isDelimiter(rest[begin])) ++begin;
  std::size_t end = begin;
  while (end < rest.size() && rest[end] != '\0' && !isDelimiter(rest[end])) ++end;
  const bool atDelimiter = end < rest.size() && rest[end] != '\0';
  tokens.rest = atDelimiter ? rest.substr(end + 1) : std::string_view();
  return rest.substr(begin, end - begin);
}

// The number at the start of a text, as atol takes it: white space is passed over, a sign may stand before the digits, and the
// first character that is no digit ends it. 0 where there is no digit; a number beyond 32 bits gives the nearest one within.
inline std::int32_t textToNumber(std::string_view text) {
  std::int64_t number = 0;
  const char* at = text.data();
  if (!detail::scanNumber(at, at + text.size(), std::numeric_limits<std::int32_t>::min(),
                          std::numeric_limits<std::int32_t>::max(), number)) {
    return 0;
  }
  return static_cast<std::int32_t>(number);
}

}  // namespace quillon
