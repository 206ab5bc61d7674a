// A trader limits file: what a broker has allowed its traders, by trader or by scrip, as '|' delimited text. Line 1 names the
// contents, the broker, a date and a trader; its title, together with the kind that the user chose, decides the layout.
//
// Normal files are read and printed line by line. Kesto files are counted, then loaded whole.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

#include "text/fields.h"
#include "text/input.h"

namespace quillon {

// No field of line 1 is longer than the piece in which it is read.
struct TraderLimitsHeader {
  TextField<250> title;
  std::int32_t brokerId;
  TextField<250> date;
  std::int32_t traderId;
};

enum class LimitsLayout { normalTraderwise, normalScripwise, kestoTraderwise, kestoScripwise, none };

// The layout for the title in a file of the kind the user chose; `none` where they do not go together.
LimitsLayout limitsLayout(const TraderLimitsHeader& header, bool kesto);

// Line 1 from where the file stands, at most 249 characters. Fields that the line does not hold are zero. False when there is
// no line to read.
[[nodiscard]] bool readTraderLimitsHeader(Input& input, TraderLimitsHeader& header);

// ---- Normal -----------------------------------------------------------------------------------------------------------

inline constexpr std::size_t limitLineTokens = 26;

// One line's tokens, cut at runs of '|'; those beyond the 26th are left out. They point into the line.
struct LimitLine {
  char text[300];
  std::array<std::string_view, limitLineTokens> tokens;
  std::size_t count;

  std::span<const std::string_view> view() const { return {tokens.data(), count}; }
};

enum class LimitLineResult { line, lost, end };

inline constexpr std::size_t traderwiseLineLimit = 300;  // sizes of the buffer a line is read into
inline constexpr std::size_t scripwiseLineLimit = 80;

// The next line, or the next piece of one that is longer than `limit` - 1 characters. `end` at the end of the file, at an
// empty line and at a line holding only a newline: nothing behind it belongs to the report. `lost`: its read failed, and the
// next call goes on behind it. inputPieceFailed tells whether an `end` came from a read that failed.
LimitLineResult readLimitLine(Input& input, std::size_t limit, LimitLine& line);

// ---- Kesto ------------------------------------------------------------------------------------------------------------

struct KestoTraderLimit {
  std::int32_t traderNo;
  TextField<16> traderName;
  std::uint32_t controlFlags;  // bits, see the report
  std::int32_t grossLendLimit;
  std::int32_t grossBorrowLimit;
};

struct KestoScripLimit {
  TextField<12> scripId;
  std::int32_t scripCode;
  std::int32_t lendLimit;
  std::int32_t borrowLimit;
};

static_assert(sizeof(KestoTraderLimit) == 32);
static_assert(offsetof(KestoTraderLimit, traderNo) == 0);
static_assert(offsetof(KestoTraderLimit, traderName) == 4);
static_assert(offsetof(KestoTraderLimit, controlFlags) == 20);
static_assert(offsetof(KestoTraderLimit, grossLendLimit) == 24);
static_assert(offsetof(KestoTraderLimit, grossBorrowLimit) == 28);

static_assert(sizeof(KestoScripLimit) == 24);
static_assert(offsetof(KestoScripLimit, scripId) == 0);
static_assert(offsetof(KestoScripLimit, scripCode) == 12);
static_assert(offsetof(KestoScripLimit, lendLimit) == 16);
static_assert(offsetof(KestoScripLimit, borrowLimit) == 20);

struct LimitsCount {
  std::size_t pieces;  // of 89 characters at most, line 1 among them: the records are pieces less one
  bool failed;         // the pass ended at a read that failed, not at the end of the file
};
LimitsCount countKestoLimits(Input& input);

// Reads past line 1, then up to `count` records, into a zero-filled block. Records that the file no longer holds stay zero,
// and what it holds beyond them is not read. Lines come in pieces of 119 characters (trader-wise) or 199 (scrip-wise), so a
// line that counted as several may leave records at the end zero. False when a read failed on the way; its record stays zero
// and the rest is loaded.
[[nodiscard]] bool readKestoTraderLimits(Input& input, KestoTraderLimit* records, std::size_t count);
[[nodiscard]] bool readKestoScripLimits(Input& input, KestoScripLimit* records, std::size_t count);
// The same where line 1 has been read already, in whatever pieces.
[[nodiscard]] bool readKestoTraderRecords(Input& input, KestoTraderLimit* records, std::size_t count);
[[nodiscard]] bool readKestoScripRecords(Input& input, KestoScripLimit* records, std::size_t count);

}  // namespace quillon
