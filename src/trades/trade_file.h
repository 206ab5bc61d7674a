// What the trading workstation leaves behind for one trader on one day: a 24-byte header, then fixed-size records, one for
// each leg of a trade. The header serves the whole trade family; records come in three sizes.
//
// All numbers are little-endian and follow each other without padding, save where a gap is named. Text fields end at their
// first NUL. Bytes named `unread` have no known meaning.
#pragma once

#include <cstddef>
#include <cstdint>

#include "text/fields.h"
#include "text/input.h"

namespace quillon {

#pragma pack(push, 1)

struct TradeHeader {
  char fileKind;          // 'N' normal, 132-byte records; 'V' normal, 144-byte records; 'B' Kesto, 142-byte records
  char kind;              // 'T': a trade file; other letters mark other files with a header of this shape
  std::int32_t memberId;  // broker number
  std::int32_t traderId;
  std::int16_t day;  // date of the file
  std::int16_t month;
  std::int16_t century;  // first two digits of the year, such as 20
  std::int16_t year;     // last two digits of the year
  std::int16_t hour;     // time of the file
  std::int16_t minute;
  std::int16_t second;
};

struct TradeRec132 {
  std::int32_t scripCode;
  TextField<12> scripId;  // scrip symbol
  std::int32_t trdId;
  std::int32_t rate;  // hundredths
  std::int32_t qty;
  std::int32_t brokerId;
  std::int32_t traderId;
  TextField<15> time;
  TextField<15> date;  // not printed by any report
  TextField<12> clientId;
  char side;                 // 'B' buy, 'S' sell
  char tradeType;            // 'O': an odd-lot trade
  std::int64_t trnId;        // transaction number
  TextField<10> cliTyp;      // client type, such as "CLIENT_SD"
  TextField<34> clientText;  // second client text; not printed by any report
};

struct TradeRec144 {
  std::int32_t scripCode;
  TextField<12> scripId;
  std::int32_t trdId;
  std::int32_t rate;  // hundredths
  std::int32_t qty;
  std::int32_t brokerId;  // not printed by the reports, which leave its column blank
  std::int32_t traderId;  // likewise
  TextField<15> time;
  TextField<15> date;
  TextField<20> orderTimeStamp;  // date and time of the order; characters 11 to 18, counting from 0, are the time of day
  TextField<12> clientId;
  char side;  // 'B' buy, 'S' sell; in a lending-market file 'B' borrow, 'L' lend
  char tradeType;
  std::int64_t trnId;
  TextField<10> cliTyp;
  TextField<13> clientText;     // second client text; not printed by any report
  TextField<5> scGr;            // scrip group
  std::int16_t settlementYear;  // first part of the settlement number
  char unread[2];
  std::int32_t settlementNo;  // second part
};

struct KestoTradeRec {
  std::int32_t scripCode;
  TextField<12> scripId;
  std::int8_t days;  // number of days of the deal
  char unread;
  std::int32_t trdId;
  std::int32_t rate;  // ten-thousandths
  std::int32_t qty;
  std::int32_t brokerId;
  std::int32_t traderId;
  TextField<15> time;
  TextField<15> date;
  TextField<12> clientId;
  char side;  // 'T' and 'S' lend, 'M' and 'V' borrow
  char tradeType;
  std::int32_t trnId;  // 32 bits here
  TextField<56> settFyear;
};

#pragma pack(pop)

// clang-format off
static_assert(sizeof(TradeHeader) == 24);
static_assert(offsetof(TradeHeader, fileKind) == 0   && offsetof(TradeHeader, kind) == 1);
static_assert(offsetof(TradeHeader, memberId) == 2   && offsetof(TradeHeader, traderId) == 6);
static_assert(offsetof(TradeHeader, day) == 10       && offsetof(TradeHeader, month) == 12);
static_assert(offsetof(TradeHeader, century) == 14   && offsetof(TradeHeader, year) == 16);
static_assert(offsetof(TradeHeader, hour) == 18      && offsetof(TradeHeader, minute) == 20);
static_assert(offsetof(TradeHeader, second) == 22);

static_assert(sizeof(TradeRec132) == 132);
static_assert(offsetof(TradeRec132, scripCode) == 0  && offsetof(TradeRec132, scripId) == 4);
static_assert(offsetof(TradeRec132, trdId) == 16     && offsetof(TradeRec132, rate) == 20);
static_assert(offsetof(TradeRec132, qty) == 24       && offsetof(TradeRec132, brokerId) == 28);
static_assert(offsetof(TradeRec132, traderId) == 32  && offsetof(TradeRec132, time) == 36);
static_assert(offsetof(TradeRec132, date) == 51      && offsetof(TradeRec132, clientId) == 66);
static_assert(offsetof(TradeRec132, side) == 78      && offsetof(TradeRec132, tradeType) == 79);
static_assert(offsetof(TradeRec132, trnId) == 80     && offsetof(TradeRec132, cliTyp) == 88);
static_assert(offsetof(TradeRec132, clientText) == 98);

static_assert(sizeof(TradeRec144) == 144);
static_assert(offsetof(TradeRec144, scripCode) == 0  && offsetof(TradeRec144, scripId) == 4);
static_assert(offsetof(TradeRec144, trdId) == 16     && offsetof(TradeRec144, rate) == 20);
static_assert(offsetof(TradeRec144, qty) == 24       && offsetof(TradeRec144, brokerId) == 28);
static_assert(offsetof(TradeRec144, traderId) == 32  && offsetof(TradeRec144, time) == 36);
static_assert(offsetof(TradeRec144, date) == 51      && offsetof(TradeRec144, orderTimeStamp) == 66);
static_assert(offsetof(TradeRec144, clientId) == 86  && offsetof(TradeRec144, side) == 98);
static_assert(offsetof(TradeRec144, tradeType) == 99 && offsetof(TradeRec144, trnId) == 100);
static_assert(offsetof(TradeRec144, cliTyp) == 108   && offsetof(TradeRec144, clientText) == 118);
static_assert(offsetof(TradeRec144, scGr) == 131     && offsetof(TradeRec144, settlementYear) == 136);
static_assert(offsetof(TradeRec144, unread) == 138   && offsetof(TradeRec144, settlementNo) == 140);

static_assert(sizeof(KestoTradeRec) == 142);
static_assert(offsetof(KestoTradeRec, scripCode) == 0 && offsetof(KestoTradeRec, scripId) == 4);
static_assert(offsetof(KestoTradeRec, days) == 16     && offsetof(KestoTradeRec, unread) == 17);
static_assert(offsetof(KestoTradeRec, trdId) == 18    && offsetof(KestoTradeRec, rate) == 22);
static_assert(offsetof(KestoTradeRec, qty) == 26      && offsetof(KestoTradeRec, brokerId) == 30);
static_assert(offsetof(KestoTradeRec, traderId) == 34 && offsetof(KestoTradeRec, time) == 38);
static_assert(offsetof(KestoTradeRec, date) == 53     && offsetof(KestoTradeRec, clientId) == 68);
static_assert(offsetof(KestoTradeRec, side) == 80     && offsetof(KestoTradeRec, tradeType) == 81);
static_assert(offsetof(KestoTradeRec, trnId) == 82    && offsetof(KestoTradeRec, settFyear) == 86);
// clang-format on

enum class TradeLayout { rec132, rec144, kesto };

// Bytes of one record.
std::size_t tradeRecordSize(TradeLayout layout);

// The first letter is one of a trade file's.
bool isTradeFileLetter(char fileKind);
// So it is, and the second says that the file holds trades.
bool isTradeFile(const TradeHeader& header);

// Which records follow the header, by its first letter alone: a letter that is none of a trade file's gives rec132.
TradeLayout tradeLayoutOf(const TradeHeader& header);
// The same where the file's name has its say: a lending-market file holds 144-byte records whatever its letter, save that a
// Kesto file stays one.
TradeLayout tradeLayoutOf(const TradeHeader& header, bool isLendingFile);

// Why a header came back short.
enum class NoHeader {
  notMeasured,  // the file's size cannot be had
  emptyFile,
  tooShort,  // some bytes, but fewer than a header's
  notRead,   // there are enough; the device does not give them
};
// Asks the file's size; the input is left at its end.
NoHeader whyNoHeader(Input& input);

// Whole records in a file of `fileSize` bytes. A part record at the end is dropped without a word.
std::size_t tradeCountOf(std::int64_t fileSize, TradeLayout layout);

enum class TradeCount {
  counted,        // `count` is set, perhaps to 0
  notCalculated,  // a seek or the tell failed
  emptyFile,      // the file has no bytes at all
};
// Counts the records from the file's size and goes back to its start.
[[nodiscard]] TradeCount countTrades(Input& input, TradeLayout layout, std::size_t& count);

// Passes over the header and reads `count` records into the zero-filled `block`, from the start of the file. Each header or
// record that comes back short is told by `readFailed`: true carries on with what follows it, the record staying all zero;
// false ends the load. False when it was ended so.
[[nodiscard]] bool readTrades(Input& input, TradeLayout layout, void* block, std::size_t count, bool (*readFailed)());

// Lending-market files call a sell 'L': it becomes 'S', so that the reports know only 'B' and 'S'.
void rewriteLends(TradeRec144* records, std::size_t count);

// The time of day in the time stamp of an order: its characters 11 to 18, counted from 0, whatever stands before them; a NUL
// among them ends it. Trade and broker query files share the field.
TextField<8> timeOfStamp(const TextField<20>& stamp);

// True when the first of the records is an odd-lot trade; the others are not looked at. Kesto files know no odd lots.
bool isOddLotFile(TradeLayout layout, const void* block);

}  // namespace quillon
