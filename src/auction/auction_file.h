// Auction files: what the workstation leaves behind after an auction, one file each for money, delivery, offer status,
// close-out details and rejected entitlements.
//
// All five begin with one header and hold fixed-size records to the end of the file. Nothing in a file tells which of the five
// it is: the user says so, and its name must agree. There is no count and no trailer either: the count follows from the size,
// and a tail shorter than a record is left alone. Numbers are little-endian, fields follow each other without padding, texts
// end at a NUL within their width. Paise are hundredths of a rupee. A BDC number N is shown as N/100, "-", N%100, save where
// its report shows it as a plain number.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "text/fields.h"
#include "text/input.h"

namespace quillon {

#pragma pack(push, 1)

struct AuctionHeader {
  std::int16_t settlementNo;
  TextField<12> auctionNoticeNo;  // its first character is the notice class, see isSpecialNotice
  std::int16_t auctionNo;
  std::int32_t clearingNo;  // the member's own; delivery records compare their brokerNo with it
  TextField<42> memberName;
};

// What the member pays and gets for the auction. The two paise parts stand together between the two rupee fields.
struct MonyRec {
  std::int32_t scripCode;
  TextField<13> scripName;
  TextField<3> entryType;  // see moneyGroup
  std::int32_t bdcNo;      // 0: there is none
  std::int32_t quantity;
  std::int32_t stdRate;       // paise
  std::int32_t closeOutRate;  // paise
  std::int32_t auctionRate;   // paise
  std::int32_t debitRupees;
  std::int16_t debitPaise;
  std::int16_t creditPaise;
  std::int32_t creditRupees;
  std::int32_t auctionCommission;  // paise
  std::int32_t bankCode;
  char reserved[42];
};

// One order to receive or to deliver.
struct DelyRec {
  std::int32_t scripCode;
  TextField<13> scripName;
  char side;             // 'O' the member receives, 'B' the member delivers
  std::int32_t stdRate;  // paise
  std::int32_t orderId;
  std::int32_t brokerNo;  // the counter-party; -2 and -3 are markers and no members
  std::int32_t bdcNo;
  TextField<42> brokerName;
  std::int32_t quantity;
  std::int32_t bankCode;
  TextField<41> remarks;      // printed nowhere
  TextField<2> deliveryType;  // "C", "N", "P" or "X"
  TextField<13> clientId;
  std::int16_t subBrokerId;
  char reserved[114];
};

// One offer of the member and what became of it.
struct OffsRec {
  std::int32_t scripCode;
  TextField<14> scripName;
  std::int32_t offerRate;  // paise
  std::int32_t qtyOffered;
  std::int32_t highestOfferRateAccepted;  // paise
  std::int32_t qtyAccepted;
  double creditValue;          // paise
  std::int32_t stdRate;        // paise
  std::int32_t closedOutRate;  // paise
  TextField<12> clientId;
  TextField<2> deliveryType;
};

// What was closed out of an auction.
struct ClbdRec {
  std::int32_t scripCode;
  char reserved[14];
  std::int32_t bdcNo;  // shown as a plain number
  std::int32_t totalAuctionQty;
  std::int32_t qtyAuctioned;
  std::int32_t qtyClosedOut;
  std::int32_t closeOutRate;   // paise
  std::int32_t auctionRate;    // paise
  std::int32_t closeOutValue;  // paise
};

// An entitlement that was not closed out, with the reason.
struct EntlRec {
  char buySellFlag;
  char reserved;
  std::int32_t scripCode;
  TextField<14> scripName;
  std::int32_t oppMemberId;
  TextField<42> oppMemberName;
  std::int32_t bdcNo;  // shown as a plain number
  TextField<4> entitlementType;
  std::int32_t closingRate;      // paise
  std::int32_t entitlementRate;  // paise
  std::int16_t reason;           // 1 to 4
};

#pragma pack(pop)

static_assert(sizeof(AuctionHeader) == 62);
static_assert(offsetof(AuctionHeader, settlementNo) == 0);
static_assert(offsetof(AuctionHeader, auctionNoticeNo) == 2);
static_assert(offsetof(AuctionHeader, auctionNo) == 14);
static_assert(offsetof(AuctionHeader, clearingNo) == 16);
static_assert(offsetof(AuctionHeader, memberName) == 20);

static_assert(sizeof(MonyRec) == 102);
static_assert(offsetof(MonyRec, scripCode) == 0);
static_assert(offsetof(MonyRec, scripName) == 4);
static_assert(offsetof(MonyRec, entryType) == 17);
static_assert(offsetof(MonyRec, bdcNo) == 20);
static_assert(offsetof(MonyRec, quantity) == 24);
static_assert(offsetof(MonyRec, stdRate) == 28);
static_assert(offsetof(MonyRec, closeOutRate) == 32);
static_assert(offsetof(MonyRec, auctionRate) == 36);
static_assert(offsetof(MonyRec, debitRupees) == 40);
static_assert(offsetof(MonyRec, debitPaise) == 44);
static_assert(offsetof(MonyRec, creditPaise) == 46);
static_assert(offsetof(MonyRec, creditRupees) == 48);
static_assert(offsetof(MonyRec, auctionCommission) == 52);
static_assert(offsetof(MonyRec, bankCode) == 56);
static_assert(offsetof(MonyRec, reserved) == 60);

static_assert(sizeof(DelyRec) == 256);
static_assert(offsetof(DelyRec, scripCode) == 0);
static_assert(offsetof(DelyRec, scripName) == 4);
static_assert(offsetof(DelyRec, side) == 17);
static_assert(offsetof(DelyRec, stdRate) == 18);
static_assert(offsetof(DelyRec, orderId) == 22);
static_assert(offsetof(DelyRec, brokerNo) == 26);
static_assert(offsetof(DelyRec, bdcNo) == 30);
static_assert(offsetof(DelyRec, brokerName) == 34);
static_assert(offsetof(DelyRec, quantity) == 76);
static_assert(offsetof(DelyRec, bankCode) == 80);
static_assert(offsetof(DelyRec, remarks) == 84);
static_assert(offsetof(DelyRec, deliveryType) == 125);
static_assert(offsetof(DelyRec, clientId) == 127);
static_assert(offsetof(DelyRec, subBrokerId) == 140);
static_assert(offsetof(DelyRec, reserved) == 142);

static_assert(sizeof(OffsRec) == 64);
static_assert(offsetof(OffsRec, scripCode) == 0);
static_assert(offsetof(OffsRec, scripName) == 4);
static_assert(offsetof(OffsRec, offerRate) == 18);
static_assert(offsetof(OffsRec, qtyOffered) == 22);
static_assert(offsetof(OffsRec, highestOfferRateAccepted) == 26);
static_assert(offsetof(OffsRec, qtyAccepted) == 30);
static_assert(offsetof(OffsRec, creditValue) == 34);
static_assert(offsetof(OffsRec, stdRate) == 42);
static_assert(offsetof(OffsRec, closedOutRate) == 46);
static_assert(offsetof(OffsRec, clientId) == 50);
static_assert(offsetof(OffsRec, deliveryType) == 62);

static_assert(sizeof(ClbdRec) == 46);
static_assert(offsetof(ClbdRec, scripCode) == 0);
static_assert(offsetof(ClbdRec, reserved) == 4);
static_assert(offsetof(ClbdRec, bdcNo) == 18);
static_assert(offsetof(ClbdRec, totalAuctionQty) == 22);
static_assert(offsetof(ClbdRec, qtyAuctioned) == 26);
static_assert(offsetof(ClbdRec, qtyClosedOut) == 30);
static_assert(offsetof(ClbdRec, closeOutRate) == 34);
static_assert(offsetof(ClbdRec, auctionRate) == 38);
static_assert(offsetof(ClbdRec, closeOutValue) == 42);

static_assert(sizeof(EntlRec) == 84);
static_assert(offsetof(EntlRec, buySellFlag) == 0);
static_assert(offsetof(EntlRec, reserved) == 1);
static_assert(offsetof(EntlRec, scripCode) == 2);
static_assert(offsetof(EntlRec, scripName) == 6);
static_assert(offsetof(EntlRec, oppMemberId) == 20);
static_assert(offsetof(EntlRec, oppMemberName) == 24);
static_assert(offsetof(EntlRec, bdcNo) == 66);
static_assert(offsetof(EntlRec, entitlementType) == 70);
static_assert(offsetof(EntlRec, closingRate) == 74);
static_assert(offsetof(EntlRec, entitlementRate) == 78);
static_assert(offsetof(EntlRec, reason) == 82);

// ---- The five kinds ---------------------------------------------------------------------------------------------------

enum class AuctionKind { mony, dely, offs, clbd, entl };

// What the path of a file of this kind must hold: "MONY", "DELY", "OFFS", "CLBD" or "ENTL".
const char* auctionPrefix(AuctionKind kind);
std::size_t auctionRecordSize(AuctionKind kind);

// True when the kind's prefix stands anywhere in the path, the names of its folders included, whatever the case.
bool auctionPathIsOfKind(const std::string& path, AuctionKind kind);

// The path of the offer status file of the same auction as this money file: the four characters that stand twelve places from
// the end become "OFFS". So it is the right one for a name of the form MONYnnnn.nnn and for no other length. Empty for a path
// shorter than that.
std::string offerStatusPath(const std::string& moneyPath);

// The market as the file's name told it. The second flag is set for a lending auction's money, delivery and offer files alone,
// and never without the first.
struct AuctionMarket {
  bool isLendingFile;
  bool isLendingAuctionFile;
};

// A notice beginning "X" or "Y": no settlement number in the money statement, but a BDC column and entitlements.
bool isSpecialNotice(const AuctionHeader& header);

// ---- Reading ----------------------------------------------------------------------------------------------------------

// The file's size in bytes; leaves the input at its start. False when it cannot be had.
[[nodiscard]] bool auctionFileSize(Input& input, std::int64_t& size);
// How many whole records follow the header in a file of this size; 0 also for a file too short for a header.
std::size_t auctionRecordCount(std::int64_t fileSize, AuctionKind kind);
// Reads the next `count` records into the zero-filled `block`. False as soon as one comes back short; those before it are in
// the block.
[[nodiscard]] bool readAuctionRecords(Input& input, AuctionKind kind, void* block, std::size_t count);

// ---- Entries of the money file ----------------------------------------------------------------------------------------

// The group of an entry, by which it is sorted, sectioned and summed: A, B and C received (CC, debit, other credit), D to be
// auctioned, O offers, Z entitlements. An entry of another type keeps the type's first character, or its small letter where
// that would read as A or Z; it belongs to no group.
char moneyGroup(const TextField<3>& entryType);
bool isMoneyGroup(char group);

// The word for an entitlement's type, such as "Dividend"; empty for any other entry.
const char* entitlementWord(const TextField<3>& entryType);

}  // namespace quillon
