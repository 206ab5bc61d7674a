// What the writers of all kinds share: the walk through a file's records and the columns that several kinds have. Each writer
// walks through `count` records from where the file stands; see writeLines.
#pragma once

#include <cstddef>
#include <cstdint>

#include "convert/convert_lines.h"
#include "text/print.h"

namespace quillon {

// The walk.
struct ConvertRun {
  Input& in;
  Output& out;
  const TradeHeader& header;
  const ConvertRules& rules;
  std::int64_t recordCount;
  void (*askFormat)();
};

// Gives each record to `write`, which takes a Record& that it may change. readFailed where one comes back short; those before
// it have been given.
template <class Record, class Write>
[[nodiscard]] ConvertEnd eachRecord(Input& in, std::int64_t recordCount, Write write) {
  constexpr std::size_t most = std::size_t{32} * 1024 / sizeof(Record);
  Record records[most];
  while (recordCount > 0) {
    const std::size_t asked = recordCount < static_cast<std::int64_t>(most) ? static_cast<std::size_t>(recordCount) : most;
    const std::size_t got = inputReadRecords(in, records, sizeof(Record), asked);
    for (std::size_t i = 0; i < got; ++i) write(records[i]);
    if (got < asked) return ConvertEnd::readFailed;
    recordCount -= static_cast<std::int64_t>(got);
  }
  return ConvertEnd::done;
}

// A sell of a lending file is 'L' or 'S' there; the lines that turn it show it as 'L', the others as 'S'.
constexpr char lendAsL(char side, bool isLendingFile) { return isLendingFile && side == 'S' ? 'L' : side; }
constexpr char lendAsS(char side, bool isLendingFile) { return isLendingFile && side == 'L' ? 'S' : side; }

// A letter that a code stands for. It stays for the next lines until a code has one; the column is empty before the first.
struct KeptLetter {
  SmallText<1> text = {};

  // noLetter keeps what there is.
  void set(char letter) {
    if (letter != 0) text = {1, {letter}};
  }
};

// "-" where there is no rate.
inline auto rateText(std::int32_t rate, bool hasRate) {
  auto text = formatCell<"%ld">(rate);
  if (!hasRate) {
    text.size = 1;
    text.bytes[0] = '-';
  }
  return text;
}

[[nodiscard]] ConvertEnd writeTrades(const ConvertRun& run);
[[nodiscard]] ConvertEnd writeBrokerQuery(const ConvertRun& run);
[[nodiscard]] ConvertEnd writeKestoTrades(const ConvertRun& run);
[[nodiscard]] ConvertEnd writeKestoBrokerQuery(const ConvertRun& run);
[[nodiscard]] ConvertEnd writeAdminTrades(const ConvertRun& run);
[[nodiscard]] ConvertEnd writeAdminDeletions(const ConvertRun& run);
[[nodiscard]] ConvertEnd writeTradeRectifications(const ConvertRun& run);
[[nodiscard]] ConvertEnd writeOrderLog(const ConvertRun& run);
[[nodiscard]] ConvertEnd writeQuoteLog(const ConvertRun& run);
[[nodiscard]] ConvertEnd writeConsolidatedLog(const ConvertRun& run);

}  // namespace quillon
