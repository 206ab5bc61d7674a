// Quote logs: the two-sided quotes that one trader entered in a day, with the reply to each. A 24-byte header, then fixed-size
// records to the end of the file, in the order in which they were logged. log_file.h counts and reads them.
//
// Numbers are little-endian, fields follow each other without padding, texts end at a NUL within their width. Rates are whole
// hundredths of a rupee.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "text/fields.h"
#include "text/record_order.h"
#include "trades/trade_file.h"

namespace quillon {

#pragma pack(push, 1)

struct QuoteRec {
  std::int32_t scripCode;
  std::int32_t bidQty;
  std::int32_t bidRevQty;  // the quantity that was revealed
  std::int32_t bidRate;    // 0: none
  std::int32_t offerQty;
  std::int32_t offerRevQty;
  std::int32_t offerRate;  // 0: none
  std::int64_t quoteId;
  std::int16_t bidClientType;  // see log_codes.h
  std::int16_t offerClientType;
  std::uint8_t hour;
  std::uint8_t minute;
  std::uint8_t second;
  char unread[3];
  std::int16_t actionCode;  // see log_codes.h
  char unreadBehindAction[2];
  TextField<12> bidClientId;
  TextField<12> offerClientId;
  TextField<12> scripId;
  TextField<40> message;  // the reply; a line feed ends it
};

#pragma pack(pop)

static_assert(sizeof(QuoteRec) == 126);
static_assert(offsetof(QuoteRec, scripCode) == 0);
static_assert(offsetof(QuoteRec, bidQty) == 4);
static_assert(offsetof(QuoteRec, bidRevQty) == 8);
static_assert(offsetof(QuoteRec, bidRate) == 12);
static_assert(offsetof(QuoteRec, offerQty) == 16);
static_assert(offsetof(QuoteRec, offerRevQty) == 20);
static_assert(offsetof(QuoteRec, offerRate) == 24);
static_assert(offsetof(QuoteRec, quoteId) == 28);
static_assert(offsetof(QuoteRec, bidClientType) == 36);
static_assert(offsetof(QuoteRec, offerClientType) == 38);
static_assert(offsetof(QuoteRec, hour) == 40);
static_assert(offsetof(QuoteRec, minute) == 41);
static_assert(offsetof(QuoteRec, second) == 42);
static_assert(offsetof(QuoteRec, unread) == 43);
static_assert(offsetof(QuoteRec, actionCode) == 46);
static_assert(offsetof(QuoteRec, unreadBehindAction) == 48);
static_assert(offsetof(QuoteRec, bidClientId) == 50);
static_assert(offsetof(QuoteRec, offerClientId) == 62);
static_assert(offsetof(QuoteRec, scripId) == 74);
static_assert(offsetof(QuoteRec, message) == 86);

// A quote log by its first two letters.
constexpr bool isQuoteLog(const TradeHeader& header) { return header.fileKind == 'N' && header.kind == 'Q'; }

enum class QuoteSort { time, scripCode, scripId, bidClientId, offerClientId };
// Where the keys of a sort stand in a record, most important first: the sort's own, then the time, then the quote id. A quote
// log stands in the order of time already, so that it has no key there.
std::array<RecordKey, 3> quoteLogSortKeys(QuoteSort sort);

}  // namespace quillon
