// Admin logs: what a member's administrator did during the day, each act with the reply that came back.
//
// A 36-byte header counts the records of four sections, which follow each other without gaps: limits of traders, limits of a
// trader in a scrip, limits of a trader in a scrip group, and general activities. The counts are the header's word; how much
// the file really holds is told by its size alone, and the two are compared here before anything is read. Numbers are
// little-endian, fields follow each other without padding, texts end at a NUL within their width.
#pragma once

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <string_view>

#include "text/fields.h"
#include "text/input.h"
#include "text/record_order.h"

namespace quillon {

#pragma pack(push, 1)

struct AdminHeader {
  std::int32_t memberId;  // broker number
  std::int32_t traderLimitCount;
  std::int32_t scripLimitCount;
  std::int32_t groupLimitCount;
  std::int32_t activityCount;
  std::int16_t day;  // date of the file
  std::int16_t month;
  std::int16_t century;        // first two digits of the year, such as 20
  std::int16_t yearOfCentury;  // last two digits of the year
  std::int16_t hour;           // time of the file
  std::int16_t minute;
  std::int16_t second;
  char reserved[2];
};

// Flags are letters that are printed as they stand. Limits ending in L on the page are lakhs, stored as whole ones.
struct TraderLimitRec {
  std::int32_t traderNo;
  TextField<12> alias;
  char utr;
  char active;
  char ol;
  char bt;
  char resFlag1;
  char sl;
  char sixASevenA;
  char mq;
  char resFlag2;  // lending: CREG
  char auc;
  char blockD;
  char cd;
  char resFlag3;
  char clRec;
  char resFlag4;  // lending: CR
  char uql;       // lending: SetGBL
  char ugl;       // lending: SetSBL
  std::uint8_t hour;
  std::uint8_t minute;
  std::uint8_t second;  // known to the sort alone
  char reserved1[6];
  std::int16_t opCode;
  char reserved2[2];
  std::int32_t grBuy;         // lakhs; lending: borrow
  std::int32_t grSell;        // lakhs; lending: lend
  std::int32_t netVal;        // lakhs
  std::int32_t netBuyQty;     // lending: DefBorrow
  std::int32_t netSellQty;    // lending: DefLend
  std::int32_t singleOrdQty;  // lending: largest quantity
  std::int32_t singleOrdVal;  // lakhs; lending: largest value
  TextField<48> message;
};

struct ScripLimitRec {
  std::int32_t traderId;
  std::int32_t scripCode;
  std::int32_t buyLimit;   // lending: borrow
  std::int32_t sellLimit;  // lending: lend
  TextField<12> scripId;
  std::uint8_t hour;
  std::uint8_t minute;
  std::uint8_t second;
  char reserved1[5];
  std::int16_t opCode;
  char reserved2[2];
  TextField<48> message;
};

struct GroupLimitRec {
  std::int32_t traderId;
  double buyLimit;   // lakhs
  double sellLimit;  // lakhs
  std::uint8_t hour;
  std::uint8_t minute;
  std::uint8_t second;
  char reserved1[3];
  TextField<3> groupName;
  TextField<48> message;
  char reserved2[3];
  std::int16_t opCode;
  char reserved3[2];
};

struct ActivityRec {
  std::int32_t traderId;
  TextField<20> oprType;
  TextField<11> oldPwd;
  TextField<11> newPwd;
  std::uint8_t hour;
  std::uint8_t minute;
  std::uint8_t second;
  char reserved[3];
  TextField<48> message;
};

#pragma pack(pop)

// clang-format off
static_assert(sizeof(AdminHeader) == 36);
static_assert(offsetof(AdminHeader, memberId) == 0         && offsetof(AdminHeader, traderLimitCount) == 4);
static_assert(offsetof(AdminHeader, scripLimitCount) == 8  && offsetof(AdminHeader, groupLimitCount) == 12);
static_assert(offsetof(AdminHeader, activityCount) == 16   && offsetof(AdminHeader, day) == 20);
static_assert(offsetof(AdminHeader, month) == 22           && offsetof(AdminHeader, century) == 24);
static_assert(offsetof(AdminHeader, yearOfCentury) == 26   && offsetof(AdminHeader, hour) == 28);
static_assert(offsetof(AdminHeader, minute) == 30          && offsetof(AdminHeader, second) == 32);

static_assert(sizeof(TraderLimitRec) == 122);
static_assert(offsetof(TraderLimitRec, traderNo) == 0      && offsetof(TraderLimitRec, alias) == 4);
static_assert(offsetof(TraderLimitRec, utr) == 16          && offsetof(TraderLimitRec, active) == 17);
static_assert(offsetof(TraderLimitRec, ol) == 18           && offsetof(TraderLimitRec, bt) == 19);
static_assert(offsetof(TraderLimitRec, resFlag1) == 20     && offsetof(TraderLimitRec, sl) == 21);
static_assert(offsetof(TraderLimitRec, sixASevenA) == 22   && offsetof(TraderLimitRec, mq) == 23);
static_assert(offsetof(TraderLimitRec, resFlag2) == 24     && offsetof(TraderLimitRec, auc) == 25);
static_assert(offsetof(TraderLimitRec, blockD) == 26       && offsetof(TraderLimitRec, cd) == 27);
static_assert(offsetof(TraderLimitRec, resFlag3) == 28     && offsetof(TraderLimitRec, clRec) == 29);
static_assert(offsetof(TraderLimitRec, resFlag4) == 30     && offsetof(TraderLimitRec, uql) == 31);
static_assert(offsetof(TraderLimitRec, ugl) == 32          && offsetof(TraderLimitRec, hour) == 33);
static_assert(offsetof(TraderLimitRec, minute) == 34       && offsetof(TraderLimitRec, second) == 35);
static_assert(offsetof(TraderLimitRec, opCode) == 42       && offsetof(TraderLimitRec, grBuy) == 46);
static_assert(offsetof(TraderLimitRec, grSell) == 50       && offsetof(TraderLimitRec, netVal) == 54);
static_assert(offsetof(TraderLimitRec, netBuyQty) == 58    && offsetof(TraderLimitRec, netSellQty) == 62);
static_assert(offsetof(TraderLimitRec, singleOrdQty) == 66 && offsetof(TraderLimitRec, singleOrdVal) == 70);
static_assert(offsetof(TraderLimitRec, message) == 74);

static_assert(sizeof(ScripLimitRec) == 88);
static_assert(offsetof(ScripLimitRec, traderId) == 0       && offsetof(ScripLimitRec, scripCode) == 4);
static_assert(offsetof(ScripLimitRec, buyLimit) == 8       && offsetof(ScripLimitRec, sellLimit) == 12);
static_assert(offsetof(ScripLimitRec, scripId) == 16       && offsetof(ScripLimitRec, hour) == 28);
static_assert(offsetof(ScripLimitRec, minute) == 29        && offsetof(ScripLimitRec, second) == 30);
static_assert(offsetof(ScripLimitRec, opCode) == 36        && offsetof(ScripLimitRec, message) == 40);

static_assert(sizeof(GroupLimitRec) == 84);
static_assert(offsetof(GroupLimitRec, traderId) == 0       && offsetof(GroupLimitRec, buyLimit) == 4);
static_assert(offsetof(GroupLimitRec, sellLimit) == 12     && offsetof(GroupLimitRec, hour) == 20);
static_assert(offsetof(GroupLimitRec, minute) == 21        && offsetof(GroupLimitRec, second) == 22);
static_assert(offsetof(GroupLimitRec, groupName) == 26     && offsetof(GroupLimitRec, message) == 29);
static_assert(offsetof(GroupLimitRec, opCode) == 80);

static_assert(sizeof(ActivityRec) == 100);
static_assert(offsetof(ActivityRec, traderId) == 0         && offsetof(ActivityRec, oprType) == 4);
static_assert(offsetof(ActivityRec, oldPwd) == 24          && offsetof(ActivityRec, newPwd) == 35);
static_assert(offsetof(ActivityRec, hour) == 46            && offsetof(ActivityRec, minute) == 47);
static_assert(offsetof(ActivityRec, second) == 48          && offsetof(ActivityRec, message) == 52);
// clang-format on

// The four sections in the order in which they stand in the file and on paper.
enum class AdminSection { traderLimits, scripLimits, groupLimits, activities };
inline constexpr AdminSection adminSections[] = {AdminSection::traderLimits, AdminSection::scripLimits,
                                                 AdminSection::groupLimits, AdminSection::activities};
inline constexpr std::size_t adminSectionCount = std::size(adminSections);

constexpr std::size_t adminRecordSize(AdminSection section) {
  constexpr std::size_t sizes[] = {sizeof(TraderLimitRec), sizeof(ScripLimitRec), sizeof(GroupLimitRec), sizeof(ActivityRec)};
  return sizes[static_cast<std::size_t>(section)];
}

// What the header says that the section holds, believed or not.
std::int32_t adminCount(const AdminHeader& header, AdminSection section);
// All four sections together.
std::int64_t adminTotal(const AdminHeader& header);

// The bytes of the file, of which the header is the first 36; goes back to the start. False when they cannot be had.
[[nodiscard]] bool measureAdminLog(Input& input, std::int64_t& fileSize);

// How many whole records of the section stand in a file of `fileSize` bytes: what the header says, or fewer where the file
// ends before. None for a count below zero, nor where one before it leaves nobody knowing where the section begins.
std::size_t adminRecordsHeld(const AdminHeader& header, AdminSection section, std::int64_t fileSize);

// Reads `count` records of the section, which the file holds, into `block`. Gives the number that stand in the block, in the
// file's order and without a gap: a record that could not be read is left out.
[[nodiscard]] std::size_t readAdminSection(Input& input, const AdminHeader& header, AdminSection section, void* block,
                                           std::size_t count);

// The order of printing of a section's records: as they stand, or by trader and then by time. Records of one trader and one
// second keep their order in the file. False where there was no memory for it.
enum class AdminSort { time, trader };
[[nodiscard]] RecordOrder adminOrder(AdminSection section, const void* records, std::size_t count, AdminSort sort);

// The letter of what was done; a NUL for a code that has none.
char adminOpLetter(std::int16_t opCode);

// A reply's text, which ends at its first CR or LF as well.
std::string_view adminMessage(const TextField<48>& message);

}  // namespace quillon
