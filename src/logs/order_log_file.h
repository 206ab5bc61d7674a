// Order logs: what one trader's workstation sent to the exchange in a day and what it was answered; and consolidated order
// logs, the same for all traders of a member. A 24-byte header, then fixed-size records to the end of the file, in the order
// in which they were logged. log_file.h counts and reads them.
//
// Which of three records a file holds is told by its header, never by its size. Numbers are little-endian, fields follow each
// other without padding, texts end at a NUL within their width, save the message, which is told below. Rates are whole
// hundredths of a rupee.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "text/fields.h"
#include "text/record_order.h"
#include "trades/trade_file.h"

namespace quillon {

#pragma pack(push, 1)

// The whole record of the order logs before 22 November 2003, and the front of those after it.
struct OrderRec112 {
  std::int32_t scripCode;
  std::int32_t qty;
  std::int32_t revQty;     // the quantity that was revealed
  std::int32_t limitRate;  // not shown where the action has none, see log_codes.h
  std::int32_t trigRate;   // 0: none
  std::int32_t thirdRate;  // above 0 it is shown in place of limitRate
  std::int64_t orderId;
  std::int16_t retention;   // see log_codes.h
  std::int16_t clientType;  // likewise
  char orderType;           // the letter behind orderId
  char side;                // 'L' in a lending file; see rewriteOrderLends
  std::uint8_t hour;        // of the event
  std::uint8_t minute;
  std::uint8_t second;
  std::uint8_t recDay;  // date of the event; bytes without a meaning where the record has 136
  std::uint8_t recMonth;
  std::uint8_t recYear;
  std::int16_t actionCode;  // see log_codes.h
  char unread[2];
  TextField<12> clientId;  // the old one, where a client id was rectified
  TextField<12> scripId;
  TextField<40> message;  // see orderMessage
};

struct OrderRec136 {
  OrderRec112 order;
  std::int32_t tradeId;  // of a rectification
  TextField<12> newClientId;
  char recordKind;  // 'N' order, 'Y' rectification of a client id, 'I' rectification of a client type
  char unread[3];
  std::int16_t newClientType;
  char unreadEnd[2];
};

struct ConsolidatedOrderRec {
  char unread[4];
  std::int32_t traderId;
  std::int32_t scripCode;
  TextField<12> scripId;
  std::int32_t qty;
  std::int32_t revQty;
  std::int32_t limitRate;
  std::int32_t trigRate;
  std::int32_t thirdRate;
  std::int64_t orderId;
  std::int16_t retention;
  std::int16_t clientType;
  std::int16_t actionCode;
  TextField<12> clientId;
  char orderType;
  char side;
  TextField<15> logDate;  // printed by no report
  TextField<15> logTime;  // such as "09:15:00"
  TextField<40> message;
};

#pragma pack(pop)

static_assert(sizeof(OrderRec112) == 112);
static_assert(offsetof(OrderRec112, scripCode) == 0);
static_assert(offsetof(OrderRec112, qty) == 4);
static_assert(offsetof(OrderRec112, revQty) == 8);
static_assert(offsetof(OrderRec112, limitRate) == 12);
static_assert(offsetof(OrderRec112, trigRate) == 16);
static_assert(offsetof(OrderRec112, thirdRate) == 20);
static_assert(offsetof(OrderRec112, orderId) == 24);
static_assert(offsetof(OrderRec112, retention) == 32);
static_assert(offsetof(OrderRec112, clientType) == 34);
static_assert(offsetof(OrderRec112, orderType) == 36);
static_assert(offsetof(OrderRec112, side) == 37);
static_assert(offsetof(OrderRec112, hour) == 38);
static_assert(offsetof(OrderRec112, minute) == 39);
static_assert(offsetof(OrderRec112, second) == 40);
static_assert(offsetof(OrderRec112, recDay) == 41);
static_assert(offsetof(OrderRec112, recMonth) == 42);
static_assert(offsetof(OrderRec112, recYear) == 43);
static_assert(offsetof(OrderRec112, actionCode) == 44);
static_assert(offsetof(OrderRec112, unread) == 46);
static_assert(offsetof(OrderRec112, clientId) == 48);
static_assert(offsetof(OrderRec112, scripId) == 60);
static_assert(offsetof(OrderRec112, message) == 72);

static_assert(sizeof(OrderRec136) == 136);
static_assert(offsetof(OrderRec136, order) == 0);
static_assert(offsetof(OrderRec136, tradeId) == 112);
static_assert(offsetof(OrderRec136, newClientId) == 116);
static_assert(offsetof(OrderRec136, recordKind) == 128);
static_assert(offsetof(OrderRec136, unread) == 129);
static_assert(offsetof(OrderRec136, newClientType) == 132);
static_assert(offsetof(OrderRec136, unreadEnd) == 134);

static_assert(sizeof(ConsolidatedOrderRec) == 142);
static_assert(offsetof(ConsolidatedOrderRec, unread) == 0);
static_assert(offsetof(ConsolidatedOrderRec, traderId) == 4);
static_assert(offsetof(ConsolidatedOrderRec, scripCode) == 8);
static_assert(offsetof(ConsolidatedOrderRec, scripId) == 12);
static_assert(offsetof(ConsolidatedOrderRec, qty) == 24);
static_assert(offsetof(ConsolidatedOrderRec, revQty) == 28);
static_assert(offsetof(ConsolidatedOrderRec, limitRate) == 32);
static_assert(offsetof(ConsolidatedOrderRec, trigRate) == 36);
static_assert(offsetof(ConsolidatedOrderRec, thirdRate) == 40);
static_assert(offsetof(ConsolidatedOrderRec, orderId) == 44);
static_assert(offsetof(ConsolidatedOrderRec, retention) == 52);
static_assert(offsetof(ConsolidatedOrderRec, clientType) == 54);
static_assert(offsetof(ConsolidatedOrderRec, actionCode) == 56);
static_assert(offsetof(ConsolidatedOrderRec, clientId) == 58);
static_assert(offsetof(ConsolidatedOrderRec, orderType) == 70);
static_assert(offsetof(ConsolidatedOrderRec, side) == 71);
static_assert(offsetof(ConsolidatedOrderRec, logDate) == 72);
static_assert(offsetof(ConsolidatedOrderRec, logTime) == 87);
static_assert(offsetof(ConsolidatedOrderRec, message) == 102);

enum class OrderLogLayout { rec112, rec136, consolidated };

// Bytes of one record.
constexpr std::size_t orderLogRecordSize(OrderLogLayout layout) {
  switch (layout) {
    case OrderLogLayout::rec112:
      return sizeof(OrderRec112);
    case OrderLogLayout::rec136:
      return sizeof(OrderRec136);
    case OrderLogLayout::consolidated:
      break;
  }
  return sizeof(ConsolidatedOrderRec);
}

// An order log by its first two letters.
bool isOrderLog(const TradeHeader& header);
// A consolidated one by its second letter alone.
bool isConsolidatedOrderLog(const TradeHeader& header);

// The file is dated before this day.
bool isLogDatedBefore(const TradeHeader& header, int year, int month, int day);
// The order logs from before 22 November 2003, whose records are the short ones. Never so for a lending file.
bool orderRec112(const TradeHeader& header, bool isLendingFile);
// The order logs from before 26 May 2007 know no rectification of client types. Never so for a lending file.
bool instRectMissing(const TradeHeader& header, bool isLendingFile);

// Which records follow the header.
OrderLogLayout orderLogLayout(const TradeHeader& header, bool isLendingFile);

// Lending files call a sell 'L': it becomes 'S' in memory, and every 'S' of such a file is shown as 'L' again.
void rewriteOrderLends(OrderLogLayout layout, void* block, std::size_t count);
constexpr char shownOrderSide(char side, bool isLendingFile) { return isLendingFile && side == 'S' ? 'L' : side; }

// One file holds three logs, told apart by recordKind.
enum class OrderLogChoice { orders = 1, clientRectification = 2, typeRectification = 3 };
// The kind of the records that a choice lists.
constexpr char orderRecordKind(OrderLogChoice choice) {
  switch (choice) {
    case OrderLogChoice::orders:
      return 'N';
    case OrderLogChoice::clientRectification:
      return 'Y';
    case OrderLogChoice::typeRectification:
      break;
  }
  return 'I';
}
// How many of the records belong to the other two choices. A record of an unknown kind is not among them, though no choice
// lists it.
std::size_t countExcludedOrders(const OrderRec136* records, std::size_t count, OrderLogChoice choice);

enum class OrderLogSort { time, scripCode, scripId, clientId };
// Where the keys of a sort stand in the records, most important first: the sort's own, then the time, then the order id. An
// order log stands in the order of time already, so that it has no key there.
std::array<RecordKey, 3> orderLogSortKeys(OrderLogLayout layout, OrderLogSort sort);

// Records in the order in which they are printed.
struct OrderLogRecords {
  OrderLogLayout layout;
  const void* bytes;  // count records and the zero record behind them
  std::size_t count;
  const std::uint32_t* order;  // positions; null: as they stand in the file
};

inline const void* orderRecordAt(const OrderLogRecords& records, std::size_t place) {
  const std::size_t position = records.order ? records.order[place] : place;
  return static_cast<const char*>(records.bytes) + position * orderLogRecordSize(records.layout);
}

// No message is longer, however long its bytes run on.
inline constexpr std::size_t longestOrderMessage = 512;

// The message of the record at `place` of the order, up to its first line feed or NUL. One that fills its field runs on into
// the fields behind it and, in the records that end with it, into the record that is printed next; the zero record behind the
// last one ends it at the latest. `room` holds a text that is in several pieces; the view is good until its next use.
std::string_view orderMessage(const OrderLogRecords& records, std::size_t place, std::string& room);

}  // namespace quillon
