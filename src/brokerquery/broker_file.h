// Broker query files: a 24-byte header, then a member's trades as fixed-size records to the end of the file.
//
// There is no count in the file and no trailer: the count follows from the size, and a tail shorter than a record is left
// alone. The bytes alone are told here; forms and page layouts stand elsewhere. Numbers are little-endian, fields follow
// each other without padding, texts end at a NUL within their width.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>

#include "text/fields.h"
#include "text/input.h"
#include "text/record_order.h"
#include "trades/trade_file.h"

namespace quillon {

#pragma pack(push, 1)

// Files of kind 'N'.
struct BrokerRec132 {
  std::int32_t leadingNumber;  // printed by no report
  std::int32_t traderNo;       // the member's trader
  std::int32_t scripCode;
  TextField<12> scripId;
  std::int32_t rate;  // hundredths of a rupee
  std::int32_t qty;
  std::int32_t counterBroker;  // the other side; blank in every normal report
  std::int32_t counterTrader;
  TextField<9> tradeTime;   // "hh:mm:ss"
  TextField<11> tradeDate;  // printed by no report
  TextField<12> clientId;
  std::int64_t trnId;
  char tradeType;  // printed as it stands, directly behind trnId
  char side;       // 'B' buy, 'S' sell; another letter is not listed, and is a sell in the net position
  std::int32_t trdId;
  TextField<11> instId;
  TextField<35> tailText;  // printed by no report
};

// The same with the order's time and, at the end, scrip group and settlement number.
struct BrokerRec160 {
  std::int32_t leadingNumber;
  std::int32_t traderNo;
  std::int32_t scripCode;
  TextField<12> scripId;
  std::int32_t rate;  // hundredths of a rupee
  std::int32_t qty;
  std::int32_t counterBroker;
  std::int32_t counterTrader;
  TextField<9> tradeTime;
  TextField<11> tradeDate;
  TextField<20> orderTimeStamp;  // date and time; the time stands at indices 11 to 18
  TextField<12> clientId;
  std::int64_t trnId;
  char tradeType;
  char side;
  std::int32_t trdId;
  TextField<11> instId;
  TextField<15> tailText;
  TextField<20> scripGroup;
  std::int16_t settlementPart1;  // the settlement number is shown as both parts with a slash between
  char reserved[2];
  std::int32_t settlementPart2;
};

// Files of kind 'B' and 'C', the Kesto lending product.
struct KestoBrokerRec {
  std::int32_t leadingNumber;
  std::int32_t traderNo;
  std::int32_t scripCode;
  TextField<12> scripId;
  std::int32_t rate;  // ten-thousandths of a rupee
  std::int32_t qty;
  std::int32_t counterBroker;  // shown as "broker/trader"
  std::int32_t counterTrader;
  TextField<9> tradeTime;
  TextField<11> tradeDate;
  TextField<12> clientId;
  char legCode;  // see kestoLegs
  char reserved;
  std::int32_t trdId;
  std::int8_t days;  // of the lending
  TextField<63> settFyear;
};

#pragma pack(pop)

static_assert(sizeof(BrokerRec132) == 132);
static_assert(offsetof(BrokerRec132, leadingNumber) == 0);
static_assert(offsetof(BrokerRec132, traderNo) == 4);
static_assert(offsetof(BrokerRec132, scripCode) == 8);
static_assert(offsetof(BrokerRec132, scripId) == 12);
static_assert(offsetof(BrokerRec132, rate) == 24);
static_assert(offsetof(BrokerRec132, qty) == 28);
static_assert(offsetof(BrokerRec132, counterBroker) == 32);
static_assert(offsetof(BrokerRec132, counterTrader) == 36);
static_assert(offsetof(BrokerRec132, tradeTime) == 40);
static_assert(offsetof(BrokerRec132, tradeDate) == 49);
static_assert(offsetof(BrokerRec132, clientId) == 60);
static_assert(offsetof(BrokerRec132, trnId) == 72);
static_assert(offsetof(BrokerRec132, tradeType) == 80);
static_assert(offsetof(BrokerRec132, side) == 81);
static_assert(offsetof(BrokerRec132, trdId) == 82);
static_assert(offsetof(BrokerRec132, instId) == 86);
static_assert(offsetof(BrokerRec132, tailText) == 97);

static_assert(sizeof(BrokerRec160) == 160);
static_assert(offsetof(BrokerRec160, leadingNumber) == 0);
static_assert(offsetof(BrokerRec160, traderNo) == 4);
static_assert(offsetof(BrokerRec160, scripCode) == 8);
static_assert(offsetof(BrokerRec160, scripId) == 12);
static_assert(offsetof(BrokerRec160, rate) == 24);
static_assert(offsetof(BrokerRec160, qty) == 28);
static_assert(offsetof(BrokerRec160, counterBroker) == 32);
static_assert(offsetof(BrokerRec160, counterTrader) == 36);
static_assert(offsetof(BrokerRec160, tradeTime) == 40);
static_assert(offsetof(BrokerRec160, tradeDate) == 49);
static_assert(offsetof(BrokerRec160, orderTimeStamp) == 60);
static_assert(offsetof(BrokerRec160, clientId) == 80);
static_assert(offsetof(BrokerRec160, trnId) == 92);
static_assert(offsetof(BrokerRec160, tradeType) == 100);
static_assert(offsetof(BrokerRec160, side) == 101);
static_assert(offsetof(BrokerRec160, trdId) == 102);
static_assert(offsetof(BrokerRec160, instId) == 106);
static_assert(offsetof(BrokerRec160, tailText) == 117);
static_assert(offsetof(BrokerRec160, scripGroup) == 132);
static_assert(offsetof(BrokerRec160, settlementPart1) == 152);
static_assert(offsetof(BrokerRec160, reserved) == 154);
static_assert(offsetof(BrokerRec160, settlementPart2) == 156);

static_assert(sizeof(KestoBrokerRec) == 142);
static_assert(offsetof(KestoBrokerRec, leadingNumber) == 0);
static_assert(offsetof(KestoBrokerRec, traderNo) == 4);
static_assert(offsetof(KestoBrokerRec, scripCode) == 8);
static_assert(offsetof(KestoBrokerRec, scripId) == 12);
static_assert(offsetof(KestoBrokerRec, rate) == 24);
static_assert(offsetof(KestoBrokerRec, qty) == 28);
static_assert(offsetof(KestoBrokerRec, counterBroker) == 32);
static_assert(offsetof(KestoBrokerRec, counterTrader) == 36);
static_assert(offsetof(KestoBrokerRec, tradeTime) == 40);
static_assert(offsetof(KestoBrokerRec, tradeDate) == 49);
static_assert(offsetof(KestoBrokerRec, clientId) == 60);
static_assert(offsetof(KestoBrokerRec, legCode) == 72);
static_assert(offsetof(KestoBrokerRec, reserved) == 73);
static_assert(offsetof(KestoBrokerRec, trdId) == 74);
static_assert(offsetof(KestoBrokerRec, days) == 78);
static_assert(offsetof(KestoBrokerRec, settFyear) == 79);

// What a Kesto leg code says.
enum class KestoSide { lend, borrow };
struct KestoLeg {
  char legCode;
  KestoSide side;
  char term;           // the "F/M" column
  char convertedSide;  // in converted text
};
inline constexpr KestoLeg kestoLegs[] = {
    {'S', KestoSide::lend, 'F', 'B'},
    {'T', KestoSide::lend, 'M', 'B'},
    {'V', KestoSide::borrow, 'F', 'S'},
    {'M', KestoSide::borrow, 'M', 'S'},
};
// Null for any other letter.
const KestoLeg* findKestoLeg(char legCode);

enum class BrokerLayout { rec132, rec160, kesto };

constexpr std::size_t brokerRecordSize(BrokerLayout layout) {
  switch (layout) {
    case BrokerLayout::rec132:
      return sizeof(BrokerRec132);
    case BrokerLayout::rec160:
      return sizeof(BrokerRec160);
    case BrokerLayout::kesto:
      break;
  }
  return sizeof(KestoBrokerRec);
}

// The layout for a file kind: 'N' and 'V' have 132-byte records where `recordSize132` is set and 160-byte records where it is
// not, 'B' is Kesto. Nothing for any other kind, 'C' among them.
std::optional<BrokerLayout> chooseBrokerLayout(char fileKind, bool recordSize132);

// How many whole records follow the header. Leaves the input at its start. False when the size cannot be had.
[[nodiscard]] bool countBrokerRecords(Input& input, BrokerLayout layout, std::size_t& count);

// Passes over the header and reads `count` records into the zero-filled `block`, from the start of the file. Each header or
// record that comes back short is told by `readFailed`: true carries on with what follows it, the record staying all zero;
// false ends the load. False when it was ended so.
[[nodiscard]] bool readBrokerRecords(Input& input, BrokerLayout layout, void* block, std::size_t count, bool (*readFailed)());

enum class BrokerSort { time, scripCode, scripId, clientId, trader };

struct BrokerSortKeys {
  RecordKey first, second;
};
// Where the keys of a sort stand in the records of a layout.
BrokerSortKeys brokerSortKeys(BrokerLayout layout, BrokerSort sort);

}  // namespace quillon
