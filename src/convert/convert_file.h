// Which files the Convert tool reads: the kind of a file by the two letters of its header, the form of its records, and the
// records that no report knows. Those of trades, broker queries and logs stand with their reports.
//
// Numbers are little-endian, fields follow each other without padding, texts end at a NUL within their width. Bytes named
// `unread` have no known meaning. Rates are whole hundredths of a rupee.
#pragma once

#include <cstddef>
#include <cstdint>

#include "logs/order_log_file.h"
#include "text/fields.h"
#include "trades/trade_file.h"

namespace quillon {

enum class ConvertKind {
  none,  // no file that can be converted
  trade,
  brokerQuery,
  kestoBrokerQuery,
  kestoTrade,
  adminTrade,
  orderLog,
  quoteLog,
  consolidatedLog,
  adminDeletion,
  tradeRectification,
};

// By the first two letters of the file.
ConvertKind convertKindOf(const TradeHeader& header);
// The kind's name for the user, such as "Normal Trade File"; empty for none.
const char* fileTypeText(ConvertKind kind);

enum class AdminFormat { none, normal, br };

// How the records of a file are read and written. What a file settles of it stays for the files that settle nothing there.
struct ConvertRules {
  bool isLendingFile = false;
  bool tradeRec132 = false;      // trades of 132 bytes, not 144
  bool tradeShortLine = false;   // those of 144 without scrip group and settlement
  bool brokerRec132 = false;     // broker queries of 132 bytes, not 160
  bool brokerShortLine = false;  // those of 160 without scrip group and settlement
  bool adminRec144 = false;
  bool adminRec168 = false;  // of the longer admin files: 168 bytes, not 176
  bool orderRec112 = false;  // order logs of 112 bytes, not 136
  OrderLogChoice logChoice = OrderLogChoice::orders;
  AdminFormat adminFormat = AdminFormat::none;
};

// Bytes of one record as they are read; 0 for none.
std::size_t convertRecordSize(ConvertKind kind, const ConvertRules& rules);
// Bytes of one record as they are counted: 176 for the admin files of 168 as well, so that the last records of such a file are
// not converted. 0 for none.
std::size_t convertCountSize(ConvertKind kind, const ConvertRules& rules);
// Whole records behind the header of a file of `fileSize` bytes, counted with convertCountSize: a part record at the end is
// dropped, a file shorter than its header has none, and neither has a file of no kind.
std::int64_t convertCountOf(std::int64_t fileSize, ConvertKind kind, const ConvertRules& rules);

#pragma pack(push, 1)

// A member's trades as its administrator's workstation has them. The texts of time and date are closed by force where the
// record is read: a NUL at 53 and at 70.
struct AdminRec144 {
  std::int32_t leadingNumber;
  std::int32_t traderNo;
  std::int32_t scripCode;
  TextField<12> scripId;
  std::int32_t number;
  std::int32_t rate;
  std::int32_t qty;
  std::int32_t counterBroker;
  std::int32_t counterTrader;
  TextField<15> tradeTime;
  TextField<15> tradeDate;
  TextField<12> clientId;
  char side;
  char orderType;
  std::int64_t orderTimeStamp;
  TextField<10> instId;
  TextField<14> tailText;
  std::int32_t numberAtEnd;
  char unread[20];
};

// The longer ones, before 24 July 2010.
struct AdminRec168 {
  std::int32_t leadingNumber;
  std::int32_t traderNo;
  std::int32_t scripCode;
  TextField<12> scripId;
  std::int32_t number;
  std::int32_t rate;
  std::int32_t qty;
  std::int32_t counterBroker;
  std::int32_t counterTrader;
  TextField<15> tradeTime;
  TextField<15> tradeDate;
  TextField<20> orderDateTime;  // the time stands at indices 11 to 18
  TextField<12> clientId;
  char side;
  char orderType;
  std::int64_t orderTimeStamp;
  TextField<10> instId;
  TextField<14> tailText;
  std::int32_t settlementPart1;  // the settlement number is shown as both parts with a slash between
  std::int32_t settlementPart2;
  TextField<20> scripGroup;
};

// And since that day.
struct AdminRec176 {
  AdminRec168 front;
  std::int64_t lastNumber;
};

// An order that the administrator deleted. Its front is that of an order log's record.
struct AdminDeletionRec {
  std::int32_t scripCode;
  std::int32_t qty;
  std::int32_t revQty;
  std::int32_t limitRate;
  std::int32_t trigRate;
  char unread[4];
  std::int64_t orderId;
  std::int16_t retention;   // see log_codes.h
  std::int16_t clientType;  // likewise
  char orderType;
  char side;
  std::uint8_t hour;
  std::uint8_t minute;
  std::uint8_t second;
  char unreadBehindTime[5];
  TextField<12> clientId;
  TextField<12> scripId;
  TextField<40> message;
  std::int32_t firstNumber;
  char unreadBehindNumber[20];
  std::int64_t lastNumber;
};

// A trade whose client or client type was put right.
struct TradeRectificationRec {
  std::int32_t firstNumber;
  std::int32_t secondNumber;
  char letter;
  char unread;
  std::int32_t thirdNumber;
  std::int32_t fourthNumber;
  std::int32_t fifthNumber;
  std::int64_t number64;
  TextField<12> firstText;
  TextField<12> secondText;
  std::int16_t firstClientType;  // see log_codes.h
  std::int16_t secondClientType;
  char unreadBehindTypes[50];
  TextField<40> message;
  std::uint8_t hour;
  std::uint8_t minute;
  std::uint8_t second;
  TextField<5> behindTime;
};

#pragma pack(pop)

// clang-format off
static_assert(sizeof(AdminRec144) == 144);
static_assert(offsetof(AdminRec144, leadingNumber) == 0   && offsetof(AdminRec144, traderNo) == 4);
static_assert(offsetof(AdminRec144, scripCode) == 8       && offsetof(AdminRec144, scripId) == 12);
static_assert(offsetof(AdminRec144, number) == 24         && offsetof(AdminRec144, rate) == 28);
static_assert(offsetof(AdminRec144, qty) == 32            && offsetof(AdminRec144, counterBroker) == 36);
static_assert(offsetof(AdminRec144, counterTrader) == 40  && offsetof(AdminRec144, tradeTime) == 44);
static_assert(offsetof(AdminRec144, tradeDate) == 59      && offsetof(AdminRec144, clientId) == 74);
static_assert(offsetof(AdminRec144, side) == 86           && offsetof(AdminRec144, orderType) == 87);
static_assert(offsetof(AdminRec144, orderTimeStamp) == 88 && offsetof(AdminRec144, instId) == 96);
static_assert(offsetof(AdminRec144, tailText) == 106      && offsetof(AdminRec144, numberAtEnd) == 120);
static_assert(offsetof(AdminRec144, unread) == 124);

static_assert(sizeof(AdminRec168) == 168);
static_assert(offsetof(AdminRec168, leadingNumber) == 0     && offsetof(AdminRec168, traderNo) == 4);
static_assert(offsetof(AdminRec168, scripCode) == 8         && offsetof(AdminRec168, scripId) == 12);
static_assert(offsetof(AdminRec168, number) == 24           && offsetof(AdminRec168, rate) == 28);
static_assert(offsetof(AdminRec168, qty) == 32              && offsetof(AdminRec168, counterBroker) == 36);
static_assert(offsetof(AdminRec168, counterTrader) == 40    && offsetof(AdminRec168, tradeTime) == 44);
static_assert(offsetof(AdminRec168, tradeDate) == 59        && offsetof(AdminRec168, orderDateTime) == 74);
static_assert(offsetof(AdminRec168, clientId) == 94         && offsetof(AdminRec168, side) == 106);
static_assert(offsetof(AdminRec168, orderType) == 107       && offsetof(AdminRec168, orderTimeStamp) == 108);
static_assert(offsetof(AdminRec168, instId) == 116          && offsetof(AdminRec168, tailText) == 126);
static_assert(offsetof(AdminRec168, settlementPart1) == 140 && offsetof(AdminRec168, settlementPart2) == 144);
static_assert(offsetof(AdminRec168, scripGroup) == 148);

static_assert(sizeof(AdminRec176) == 176);
static_assert(offsetof(AdminRec176, front) == 0 && offsetof(AdminRec176, lastNumber) == 168);

static_assert(sizeof(AdminDeletionRec) == 142);
static_assert(offsetof(AdminDeletionRec, scripCode) == 0           && offsetof(AdminDeletionRec, qty) == 4);
static_assert(offsetof(AdminDeletionRec, revQty) == 8              && offsetof(AdminDeletionRec, limitRate) == 12);
static_assert(offsetof(AdminDeletionRec, trigRate) == 16           && offsetof(AdminDeletionRec, unread) == 20);
static_assert(offsetof(AdminDeletionRec, orderId) == 24            && offsetof(AdminDeletionRec, retention) == 32);
static_assert(offsetof(AdminDeletionRec, clientType) == 34         && offsetof(AdminDeletionRec, orderType) == 36);
static_assert(offsetof(AdminDeletionRec, side) == 37               && offsetof(AdminDeletionRec, hour) == 38);
static_assert(offsetof(AdminDeletionRec, minute) == 39             && offsetof(AdminDeletionRec, second) == 40);
static_assert(offsetof(AdminDeletionRec, unreadBehindTime) == 41   && offsetof(AdminDeletionRec, clientId) == 46);
static_assert(offsetof(AdminDeletionRec, scripId) == 58            && offsetof(AdminDeletionRec, message) == 70);
static_assert(offsetof(AdminDeletionRec, firstNumber) == 110       && offsetof(AdminDeletionRec, unreadBehindNumber) == 114);
static_assert(offsetof(AdminDeletionRec, lastNumber) == 134);

static_assert(sizeof(TradeRectificationRec) == 156);
static_assert(offsetof(TradeRectificationRec, firstNumber) == 0       && offsetof(TradeRectificationRec, secondNumber) == 4);
static_assert(offsetof(TradeRectificationRec, letter) == 8            && offsetof(TradeRectificationRec, unread) == 9);
static_assert(offsetof(TradeRectificationRec, thirdNumber) == 10      && offsetof(TradeRectificationRec, fourthNumber) == 14);
static_assert(offsetof(TradeRectificationRec, fifthNumber) == 18      && offsetof(TradeRectificationRec, number64) == 22);
static_assert(offsetof(TradeRectificationRec, firstText) == 30        && offsetof(TradeRectificationRec, secondText) == 42);
static_assert(offsetof(TradeRectificationRec, firstClientType) == 54  && offsetof(TradeRectificationRec, secondClientType) == 56);
static_assert(offsetof(TradeRectificationRec, unreadBehindTypes) == 58 && offsetof(TradeRectificationRec, message) == 108);
static_assert(offsetof(TradeRectificationRec, hour) == 148            && offsetof(TradeRectificationRec, minute) == 149);
static_assert(offsetof(TradeRectificationRec, second) == 150          && offsetof(TradeRectificationRec, behindTime) == 151);
// clang-format on

}  // namespace quillon
