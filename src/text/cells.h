// Cells of report rows: one value formed by one conversion into memory, to the character what the C library's printf forms.
//
// Every function writes at `to` and gives the place behind the cell. There must be room for cellRoom characters; what lies
// behind the cell may be written over, as the next cell does. This is the part of the program that a long report spends its
// time in, so the common cells (right-justified whole numbers of up to eight digits, amounts with two or four decimals, short
// text fields) are formed without a loop; whatever else comes takes the general road in cells.cpp.
#pragma once

#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <type_traits>

#include "text/fields.h"
#include "text/format_string.h"

namespace quillon {

// A short text formed in place, as formatCell gives it.
template <std::size_t N>
struct SmallText {
  std::size_t size;
  char bytes[N];

  std::string_view view() const { return {bytes, size}; }
};

namespace detail {

static_assert(std::endian::native == std::endian::little, "the digits of a number are laid out for little-endian machines");

// The general roads: any width, flags and precision.
char* putNumberGeneral(char* to, std::uint64_t magnitude, bool negative, const Conversion& conversion);
char* putRealGeneral(char* to, double value, const Conversion& conversion);
char* putTextGeneral(char* to, std::string_view text, const Conversion& conversion, LineEnd end);

inline constexpr char digitPairs[] =
    "00010203040506070809101112131415161718192021222324252627282930313233343536373839404142434445464748495051525354555657585960"
    "616263"
    "6465666768697071727374757677787980818283848586878889909192939495969798990";

constexpr std::uint64_t powerOfTen(int exponent) {
  std::uint64_t power = 1;
  for (; exponent > 0; --exponent) power *= 10;
  return power;
}

inline char* putBlanks(char* to, std::size_t size) {
  std::memset(to, ' ', size);
  return to + size;
}

inline void storeWord(char* to, std::uint64_t word) { std::memcpy(to, &word, 8); }

// ---- Whole numbers ----------------------------------------------------------------------------------------------------

// The eight decimal digits of a number below 10^8 as values, the first of them in the lowest byte. Halves are split by
// multiplication, all of a level at once.
inline std::uint64_t eightDigits(std::uint32_t number) {
  const std::uint64_t halves = (number / 10000) | (static_cast<std::uint64_t>(number % 10000) << 32);
  const std::uint64_t hundreds = ((halves * 10486) >> 20) & 0x0000007f0000007f;
  const std::uint64_t pairs = hundreds | ((halves - hundreds * 100) << 16);
  const std::uint64_t tens = ((pairs * 103) >> 10) & 0x000f000f000f000f;
  return tens | ((pairs - tens * 10) << 8);
}

inline constexpr std::uint64_t digitCharacters = 0x3030303030303030;

// How many bits of the digits stand before the first one that is shown; the last digit always is.
inline int leadingZeroBits(std::uint64_t digits) { return std::countr_zero(digits | (std::uint64_t{1} << 56)) & ~7; }

// The digits as characters with blanks for leading zeros.
inline std::uint64_t blankLed(std::uint64_t digits, int leading) {
  return (digits | digitCharacters) ^ (((std::uint64_t{1} << leading) - 1) & 0x1010101010101010);
}

// Right-justified in `Width` characters, led by blanks. False when the number does not fit the quick road.
template <int Width>
inline bool putPlain(char* to, std::uint64_t magnitude, bool negative) {
  constexpr std::uint64_t limit = Width >= 8 ? 100000000 : powerOfTen(Width);
  if (magnitude >= limit) {
    // Two words of eight digits; of the upper one as many as the width has room for.
    if constexpr (Width > 8) {
      constexpr std::uint64_t upperLimit = Width >= 16 ? 100000000 : powerOfTen(Width - 8);
      const std::uint64_t upper = magnitude / 100000000;
      if (upper < upperLimit) {
        const std::uint64_t digits = eightDigits(static_cast<std::uint32_t>(upper));
        const int leading = leadingZeroBits(digits);
        const int sign = Width - 17 + leading / 8;
        if (negative && sign < 0) return false;
        if constexpr (Width >= 16) {
          putBlanks(to, Width - 16);
          storeWord(to + Width - 16, blankLed(digits, leading));
        } else {
          storeWord(to, blankLed(digits, leading) >> (8 * (16 - Width)));
        }
        storeWord(to + Width - 8, eightDigits(static_cast<std::uint32_t>(magnitude % 100000000)) | digitCharacters);
        if (negative) to[sign] = '-';
        return true;
      }
    }
    return false;
  }
  if constexpr (Width == 1) {
    if (negative) return false;
    *to = static_cast<char>('0' + magnitude);
    return true;
  } else {
    const std::uint64_t digits = eightDigits(static_cast<std::uint32_t>(magnitude));
    const int leading = leadingZeroBits(digits);
    if constexpr (Width >= 8) {
      if (negative && leading == 0 && Width == 8) return false;
      putBlanks(to, Width - 8);
      storeWord(to + Width - 8, blankLed(digits, leading));
      if (negative) to[Width - 9 + leading / 8] = '-';
    } else {
      const int sign = Width - 9 + leading / 8;
      if (negative && sign < 0) return false;
      storeWord(to, blankLed(digits, leading) >> (8 * (8 - Width)));
      if (negative) to[sign] = '-';
    }
    return true;
  }
}

template <Conversion C>
inline char* putNumber(char* to, std::int64_t value) {
  const bool negative = value < 0;
  const std::uint64_t magnitude = negative ? 0 - static_cast<std::uint64_t>(value) : static_cast<std::uint64_t>(value);
  constexpr bool unsignedForm = !C.plus && !C.blank;
  if constexpr (unsignedForm && !C.left && !C.zero && C.precision < 0 && C.width > 0) {
    if (putPlain<C.width>(to, magnitude, negative)) [[likely]]
      return to + C.width;
  } else if constexpr (unsignedForm && !C.left && ((C.zero && C.width == 2) || (C.width <= 2 && C.precision == 2))) {
    if (magnitude < 100 && !negative) [[likely]] {
      std::memcpy(to, digitPairs + 2 * magnitude, 2);
      return to + 2;
    }
  } else if constexpr (unsignedForm && C.precision < 0 && (C.left || C.width == 0)) {
    if (magnitude < 100000000) [[likely]] {
      *to = '-';
      const std::uint64_t digits = eightDigits(static_cast<std::uint32_t>(magnitude));
      const int leading = leadingZeroBits(digits);
      char* begin = to + negative;
      if constexpr (C.width > 8) putBlanks(to + 8, static_cast<std::size_t>(C.width - 8));
      // Blanks come in from above as the leading zeros are shifted out below.
      const std::uint64_t blanks = leading ? 0x2020202020202020u << (64 - leading) : 0;
      storeWord(begin, ((digits | digitCharacters) >> leading) | blanks);
      const int size = 8 - leading / 8 + negative;
      return to + (size < C.width ? C.width : size);
    }
  }
  constexpr Conversion conversion = C;
  return putNumberGeneral(to, magnitude, negative, conversion);
}

// ---- Amounts ----------------------------------------------------------------------------------------------------------

inline constexpr int quickDecimals = 4;

// The value in units of its last shown decimal, rounded as the exact binary value asks, halves to even: value is m / 2^s with
// whole m and s, so m * 10^decimals / 2^s is a whole division by a shift, whose remainder is known exactly. False for values
// of 2^53 and more, infinities and no-numbers, and where the result is beyond 64 bits.
template <int Decimals>
inline bool scaledExactly(double value, std::uint64_t& scaled) {
  const std::uint64_t bits = std::bit_cast<std::uint64_t>(value);
  const int exponent = static_cast<int>((bits >> 52) & 0x7ff);
  const int shift = 1075 - exponent;
  if (shift <= 0) return false;
  // Below 2^-15 a value is less than half a unit of the fourth decimal; so are the denormals, whose hidden bit would be none.
  if (shift > 67) return scaled = 0, true;
  const std::uint64_t mantissa = (bits & 0x000fffffffffffff) | 0x0010000000000000;
  if constexpr (Decimals <= 3) {
    // Below 2^63; a shift of 64 and more leaves less than half a unit.
    const std::uint64_t product = mantissa * powerOfTen(Decimals);
    if (shift > 63) return scaled = 0, true;
    const std::uint64_t whole = product >> shift;
    const std::uint64_t rest = product & ((std::uint64_t{1} << shift) - 1);
    const std::uint64_t half = std::uint64_t{1} << (shift - 1);
    scaled = whole + (rest + (whole & 1) > half);
    return true;
  } else {
    __extension__ using Wide = unsigned __int128;
    const Wide product = static_cast<Wide>(mantissa) * powerOfTen(Decimals);
    const Wide whole = product >> shift;
    if (whole >> 63) return false;
    const Wide rest = product & ((Wide{1} << shift) - 1);
    const Wide half = Wide{1} << (shift - 1);
    scaled = static_cast<std::uint64_t>(whole) + (rest + (whole & 1) > half);
    return true;
  }
}

template <Conversion C>
inline char* putReal(char* to, double value) {
  constexpr int decimals = C.precision;
  constexpr int point = decimals == 0 ? 0 : 1;
  constexpr int wholeWidth = C.width - decimals - point;
  if constexpr (decimals <= quickDecimals && !C.left && !C.zero && !C.plus && !C.blank && wholeWidth >= 1) {
    std::uint64_t scaled;
    constexpr std::uint64_t unit = powerOfTen(decimals);
    if (scaledExactly<decimals>(value, scaled)) [[likely]] {
      if (putPlain<wholeWidth>(to, scaled / unit, std::signbit(value))) [[likely]] {
        char* digit = to + wholeWidth;
        if constexpr (decimals > 0) *digit++ = '.';
        const std::size_t rest = scaled % unit;
        if constexpr (decimals == 1) *digit = static_cast<char>('0' + rest);
        if constexpr (decimals == 2) std::memcpy(digit, digitPairs + 2 * rest, 2);
        if constexpr (decimals == 3) {
          *digit = static_cast<char>('0' + rest / 100);
          std::memcpy(digit + 1, digitPairs + 2 * (rest % 100), 2);
        }
        if constexpr (decimals == 4) {
          std::memcpy(digit, digitPairs + 2 * (rest / 100), 2);
          std::memcpy(digit + 2, digitPairs + 2 * (rest % 100), 2);
        }
        return to + C.width;
      }
    }
  }
  constexpr Conversion conversion = C;
  return putRealGeneral(to, value, conversion);
}

// ---- Characters and text ----------------------------------------------------------------------------------------------

template <Conversion C, LineEnd End>
inline char* putCharacter(char* to, char value) {
  constexpr std::size_t blanks = C.width > 1 ? static_cast<std::size_t>(C.width - 1) : 0;
  if constexpr (!C.left) to = putBlanks(to, blanks);
  if (End == LineEnd::crLf && value == '\n') *to++ = '\r';
  *to++ = value;
  if constexpr (C.left) to = putBlanks(to, blanks);
  return to;
}

template <Conversion C, LineEnd End>
inline char* putView(char* to, std::string_view text) {
  std::size_t size = text.size();
  if constexpr (C.precision >= 0) size = size < C.precision ? size : static_cast<std::size_t>(C.precision);
  if (End == LineEnd::crLf && std::memchr(text.data(), '\n', size)) [[unlikely]] {
    constexpr Conversion conversion = C;
    return putTextGeneral(to, text, conversion, End);
  }
  constexpr auto width = static_cast<std::size_t>(C.width);
  const std::size_t blanks = size < width ? width - size : 0;
  if constexpr (width > 0) putBlanks(to, width);
  std::memcpy(C.left ? to : to + blanks, text.data(), size);
  return to + size + blanks;
}

inline constexpr std::uint64_t everyByte = 0x0101010101010101;
// The lowest bit that is set stands in the first byte that is zero.
inline std::uint64_t zeroBytes(std::uint64_t word) { return (word - everyByte) & ~word & (everyByte * 0x80); }

// Loads the N bytes (4 to 16) of a short field into two words, zeros behind.
template <std::size_t N>
inline void loadField(const char* bytes, std::uint64_t& low, std::uint64_t& high) {
  if constexpr (N >= 8) {
    std::memcpy(&low, bytes, 8);
    high = 0;
    if constexpr (N > 8) {
      std::memcpy(&high, bytes + N - 8, 8);
      high >>= 8 * (16 - N);
    }
  } else {
    std::uint32_t first;
    std::uint32_t last;
    std::memcpy(&first, bytes, 4);
    std::memcpy(&last, bytes + N - 4, 4);
    low = first | (static_cast<std::uint64_t>(last) << (8 * (N - 4)));
    high = 0;
  }
}

template <Conversion C, LineEnd End, std::size_t N>
inline char* putField(char* to, const char* bytes) {
  if constexpr (N < 4 || N > 16 || C.precision >= 0) {
    const void* nul = std::memchr(bytes, 0, N);
    return putView<C, End>(to, {bytes, nul ? static_cast<std::size_t>(static_cast<const char*>(nul) - bytes) : N});
  } else {
    std::uint64_t low;
    std::uint64_t high;
    loadField<N>(bytes, low, high);
    const std::uint64_t lowEnd = zeroBytes(low);
    const std::uint64_t highEnd = zeroBytes(high);
    std::size_t size = 16;
    if (lowEnd)
      size = static_cast<std::size_t>(std::countr_zero(lowEnd)) / 8;
    else if (highEnd)
      size = 8 + static_cast<std::size_t>(std::countr_zero(highEnd)) / 8;
    constexpr std::uint64_t lineFeeds = everyByte * '\n';
    if (End == LineEnd::crLf && (zeroBytes(low ^ lineFeeds) | zeroBytes(high ^ lineFeeds))) [[unlikely]] {
      constexpr Conversion conversion = C;
      return putTextGeneral(to, {bytes, size}, conversion, End);
    }
    constexpr auto width = static_cast<std::size_t>(C.width);
    const std::size_t blanks = size < width ? width - size : 0;
    if constexpr (width > 0) putBlanks(to, width);
    if constexpr (C.left) {
      // What lies behind the NUL is not text: blanks take its place.
      constexpr std::uint64_t blankWord = everyByte * ' ';
      const std::uint64_t lowText = lowEnd ? (std::uint64_t{1} << (size * 8)) - 1 : ~std::uint64_t{0};
      storeWord(to, (low & lowText) | (blankWord & ~lowText));
      if constexpr (N > 8) {
        std::uint64_t highText = ~std::uint64_t{0};
        if (size < 16) highText = size > 8 ? (std::uint64_t{1} << (size * 8 - 64)) - 1 : 0;
        storeWord(to + 8, (high & highText) | (blankWord & ~highText));
      }
    } else {
      storeWord(to + blanks, low);
      if constexpr (N > 8) storeWord(to + blanks + 8, high);
    }
    return to + size + blanks;
  }
}

// ---- Which value goes with which conversion ---------------------------------------------------------------------------

template <class T>
struct FieldWidth : std::integral_constant<std::size_t, 0> {};
template <std::size_t N>
struct FieldWidth<TextField<N>> : std::integral_constant<std::size_t, N> {};
template <std::size_t N>
struct FieldWidth<SmallText<N>> : std::integral_constant<std::size_t, N> {};

template <class T>
inline constexpr bool isWholeNumber = std::is_integral_v<T> && !std::is_same_v<T, bool>;
template <class T>
inline constexpr bool isPointerText = std::is_same_v<T, const char*> || std::is_same_v<T, char*>;
template <class T>
inline constexpr bool isFreeText = isPointerText<T> || std::is_same_v<T, std::string_view> || std::is_same_v<T, std::string>;

template <Conversion C, class T>
consteval bool checkArgument() {
  if constexpr (C.kind == ConversionKind::character) {
    static_assert((isWholeNumber<T> && sizeof(T) <= 4) || std::is_same_v<T, SmallText<1>>,
                  "%c and %lc take a character, a whole number of at most 32 bits, or a character that may be missing");
  } else if constexpr (C.kind == ConversionKind::number || C.kind == ConversionKind::shortNumber) {
    static_assert(isWholeNumber<T> && sizeof(T) <= 4, "%d, %ld and %hd take a whole number of at most 32 bits; see %I64d");
  } else if constexpr (C.kind == ConversionKind::number64) {
    static_assert(isWholeNumber<T>, "%I64d takes a whole number");
  } else if constexpr (C.kind == ConversionKind::real) {
    static_assert(std::is_floating_point_v<T> && sizeof(T) <= 8, "%f and %lf take a double");
  } else if constexpr (C.kind == ConversionKind::text) {
    static_assert(isFreeText<T> || FieldWidth<T>::value > 0, "%s takes a text: a TextField, a view, a string or a literal");
  }
  return true;
}

// The value as it is formed: texts of unknown length as views that end at the NUL, all else as it is.
template <class T>
[[gnu::always_inline]] inline decltype(auto) plainValue(const T& value) {
  if constexpr (isPointerText<T>) {
    return std::string_view(value ? value : "");
  } else if constexpr (isFreeText<T>) {
    const std::string_view text = value;
    // An empty view may point nowhere.
    if (text.empty()) return std::string_view("");
    // By memchr itself, which the compiler works out for a text that it knows, such as a rule's underscores.
    const void* nul = std::memchr(text.data(), 0, text.size());
    return std::string_view(text.data(),
                            nul ? static_cast<std::size_t>(static_cast<const char*>(nul) - text.data()) : text.size());
  } else {
    return (value);
  }
}

// The size of a text of unknown length; nothing for all else.
template <class T>
inline std::size_t freeSize(const T& value) {
  if constexpr (std::is_same_v<T, std::string_view>) {
    return value.size();
  } else {
    return 0;
  }
}

template <Conversion C, LineEnd End, class T>
inline char* putCell(char* to, const T& value) {
  if constexpr (C.kind == ConversionKind::character && !std::is_same_v<T, SmallText<1>>) {
    return putCharacter<C, End>(to, static_cast<char>(value));
  } else if constexpr (C.kind == ConversionKind::shortNumber) {
    return putNumber<C>(to, static_cast<std::int16_t>(value));
  } else if constexpr (C.kind == ConversionKind::number) {
    return putNumber<C>(to, static_cast<std::int32_t>(value));
  } else if constexpr (C.kind == ConversionKind::number64) {
    return putNumber<C>(to, static_cast<std::int64_t>(value));
  } else if constexpr (C.kind == ConversionKind::real) {
    return putReal<C>(to, static_cast<double>(value));
  } else if constexpr (std::is_same_v<T, std::string_view>) {
    return putView<C, End>(to, value);
  } else if constexpr (requires { value.size; }) {
    return putView<C, End>(to, value.view());
  } else {
    return putField<C, End, FieldWidth<T>::value>(to, value.bytes);
  }
}

// The most that a cell takes, with what the quick roads write behind it; of a free text, its width alone.
template <Conversion C, class T>
consteval std::size_t cellRoom() {
  const std::size_t spill = 16;
  const auto width = static_cast<std::size_t>(C.width);
  const auto precision = static_cast<std::size_t>(C.precision < 0 ? 0 : C.precision);
  std::size_t size = 2;
  if (C.kind == ConversionKind::real)
    size = 312 + precision;  // the largest double has 309 digits
  else if (C.kind == ConversionKind::text)
    size = 2 * FieldWidth<T>::value;
  else if (C.kind != ConversionKind::character)
    size = 21 + precision;
  return width + size + spill;
}

}  // namespace detail
}  // namespace quillon
