// Report text, written with the reports' printf formats: print<"%10s%7ld\n">(out, "Broker Id. :", header.memberId).
//
// The format is read while compiling; a wrong count or type of arguments does not compile. What comes out is to the character
// what the C library prints, on every platform alike and without a locale; doubles are rounded from their exact binary value.
//
//   %c %lc              a character or a small whole number; 0 comes out as a NUL byte. A SmallText<1> is a character
//                       that may be missing: the cell is then empty
//   %d %ld %hd          whole numbers of at most 32 bits; %hd keeps the lower 16 bits
//   %I64d               whole numbers of at most 64 bits
//   %f %lf              double
//   %s                  TextField (bounded), const char*, std::string_view, std::string, SmallText; each ends at a NUL
//
// Arguments go by value, so that fields of packed records may stand there.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

#include "text/cells.h"
#include "text/format_string.h"
#include "text/output.h"

namespace quillon {
namespace detail {

template <FormatText Format, class... Args>
consteval bool checkFormat() {
  constexpr auto& parts = formatParts<Format, LineEnd::lf>;
  static_assert(parts.mistake != FormatMistake::unknownLetter, "the format has a conversion that the reports do not use");
  static_assert(parts.mistake != FormatMistake::widthTooLarge, "the format has a width or precision above 512");
  static_assert(parts.mistake != FormatMistake::flagWithoutEffect, "the format has a flag that means nothing for %c or %s");
  static_assert(parts.conversions <= sizeof...(Args), "the format has more conversions than there are arguments");
  static_assert(parts.conversions >= sizeof...(Args), "there are more arguments than the format has conversions");
  if constexpr (parts.conversions == sizeof...(Args)) {
    return []<std::size_t... I>(std::index_sequence<I...>) {
      return (checkArgument<parts.pieces[I].conversion, Args>() && ...);
    }
    (std::index_sequence_for<Args...>());
  }
  return true;
}

// The room that the bounded parts of a formed text take.
template <FormatText Format, LineEnd End, class... Args>
consteval std::size_t boundedRoom() {
  constexpr auto& parts = formatParts<Format, End>;
  std::size_t room = 0;
  for (std::size_t i = 0; i <= parts.conversions; ++i) room += parts.pieces[i].size;
  [&]<std::size_t... I>(std::index_sequence<I...>) { ((room += cellRoom<parts.pieces[I].conversion, Args>()), ...); }
  (std::index_sequence_for<Args...>());
  return room;
}

template <FormatText Format, LineEnd End, std::size_t I>
[[gnu::always_inline]] inline char* putPlainText(char* to) {
  constexpr auto& parts = formatParts<Format, End>;
  constexpr FormatPiece piece = parts.pieces[I];
  if constexpr (piece.size > 0) std::memcpy(to, parts.plain + piece.begin, piece.size);
  return to + piece.size;
}

template <FormatText Format, LineEnd End, std::size_t... I, class... Values>
[[gnu::always_inline]] inline char* putAll(char* to, std::index_sequence<I...>, const Values&... values) {
  constexpr auto& parts = formatParts<Format, End>;
  ((to = putPlainText<Format, End, I>(to), to = putCell<parts.pieces[I].conversion, End>(to, values)), ...);
  return putPlainText<Format, End, sizeof...(I)>(to);
}

// Bytes that have their line feeds as they leave, of any length.
void outputRaw(Output& output, std::string_view bytes);

// `values` are plainValues of what was given.
template <FormatText Format, std::size_t Bounded, class... Values>
[[gnu::always_inline]] inline void printValues(Output& output, const Values&... values) {
  constexpr auto places = std::index_sequence_for<Values...>();
  const std::size_t room = Bounded + 2 * (freeSize(values) + ... + 0);
  if (room > outputRoom) [[unlikely]] {
    std::string formed(room, ' ');
    const char* end = putAll<Format, LineEnd::crLf>(formed.data(), places, values...);
    outputRaw(output, {formed.data(), static_cast<std::size_t>(end - formed.data())});
    return;
  }
  outputReserve(output, room);
  output.next = putAll<Format, LineEnd::crLf>(output.next, places, values...);
}

template <FormatText Format, std::size_t Bounded, class... Values>
[[gnu::always_inline]] inline std::string formValues(const Values&... values) {
  std::string formed(Bounded + (freeSize(values) + ... + 0), ' ');
  const char* end = putAll<Format, LineEnd::lf>(formed.data(), std::index_sequence_for<Values...>(), values...);
  formed.resize(static_cast<std::size_t>(end - formed.data()));
  return formed;
}

}  // namespace detail

#ifdef QUILLON_PRINT_DECLARED
// For tools/static_checks: to what it reads these are calls like any other. The compilers check every format against its
// arguments, and a few sources are read with the bodies.
template <FormatText Format, class... Args>
void print(Output& output, Args... args);
template <FormatText Format, class... Args>
std::string formatText(Args... args);
template <FormatText Format, class... Args>
SmallText<detail::boundedRoom<Format, LineEnd::lf, Args...>()> formatCell(Args... args);
#else

// Writes one formed text. A failed write is remembered by the output.
template <FormatText Format, class... Args>
[[gnu::always_inline]] inline void print(Output& output, Args... args) {
  static_assert(detail::checkFormat<Format, Args...>());
  if constexpr (formatParts<Format, LineEnd::crLf>.conversions == sizeof...(Args)) {
    constexpr std::size_t bounded = detail::boundedRoom<Format, LineEnd::crLf, Args...>();
    static_assert(bounded <= outputRoom, "the format is too long for one print");
    detail::printValues<Format, bounded>(output, detail::plainValue(args)...);
  }
}

// The formed text by itself. Line feeds stay as they are.
template <FormatText Format, class... Args>
inline std::string formatText(Args... args) {
  static_assert(detail::checkFormat<Format, Args...>());
  if constexpr (formatParts<Format, LineEnd::lf>.conversions == sizeof...(Args)) {
    return detail::formValues<Format, detail::boundedRoom<Format, LineEnd::lf, Args...>()>(detail::plainValue(args)...);
  } else {
    return {};
  }
}

// The same without taking memory, for a cell that goes into a row as its %s. Texts among the arguments must be bounded.
template <FormatText Format, class... Args>
inline auto formatCell(Args... args) {
  static_assert(detail::checkFormat<Format, Args...>());
  static_assert((!detail::isFreeText<Args> && ...), "formatCell takes no text of unknown length; see formatText");
  constexpr auto& parts = formatParts<Format, LineEnd::lf>;
  if constexpr (parts.conversions == sizeof...(Args) && (!detail::isFreeText<Args> && ...)) {
    SmallText<detail::boundedRoom<Format, LineEnd::lf, Args...>()> formed;
    const char* end = detail::putAll<Format, LineEnd::lf>(formed.bytes, std::index_sequence_for<Args...>(), args...);
    formed.size = static_cast<std::size_t>(end - formed.bytes);
    return formed;
  } else {
    return SmallText<1>{};
  }
}

#endif

}  // namespace quillon
