// The bytes of the auction files: kinds, layouts, count, groups of the money file, and the companion's path.
#include "auction/auction_file.h"

#include <gtest/gtest.h>

#include <cstring>
#include <vector>

#include "auction_records.h"

namespace quillon::test {
namespace {

constexpr AuctionKind allKinds[] = {AuctionKind::mony, AuctionKind::dely, AuctionKind::offs, AuctionKind::clbd,
                                    AuctionKind::entl};

// A record whose every byte is different from its neighbours'; no field of it can stand in another's place unseen.
template <typename Record>
Record counted() {
  Record record;
  unsigned char bytes[sizeof record];
  for (std::size_t i = 0; i < sizeof record; ++i) bytes[i] = static_cast<unsigned char>(i + 1);
  std::memcpy(&record, bytes, sizeof record);
  return record;
}

constexpr std::int32_t numberAt(int offset) {
  std::uint32_t number = 0;
  for (int i = 3; i >= 0; --i) number = number << 8 | static_cast<std::uint32_t>((offset + i + 1) & 0xff);
  return static_cast<std::int32_t>(number);
}

constexpr std::int16_t shortAt(int offset) { return static_cast<std::int16_t>((offset + 2) << 8 | (offset + 1)); }

template <std::size_t N>
bool standsAt(const TextField<N>& field, int offset) {
  for (std::size_t i = 0; i < N; ++i) {
    if (static_cast<unsigned char>(field.bytes[i]) != static_cast<unsigned char>(offset + static_cast<int>(i) + 1))
      return false;
  }
  return true;
}

TEST(AuctionLayouts, headerFieldsStandWhereTheWorkstationPutsThem) {
  const auto header = counted<AuctionHeader>();
  EXPECT_EQ(header.settlementNo, shortAt(0));
  EXPECT_TRUE(standsAt(header.auctionNoticeNo, 2));
  EXPECT_EQ(header.auctionNo, shortAt(14));
  EXPECT_EQ(header.clearingNo, numberAt(16));
  EXPECT_TRUE(standsAt(header.memberName, 20));
}

TEST(AuctionLayouts, moneyPaiseStandTogetherBetweenTheRupees) {
  const auto record = counted<MonyRec>();
  EXPECT_EQ(record.debitRupees, numberAt(40));
  EXPECT_EQ(record.debitPaise, shortAt(44));
  EXPECT_EQ(record.creditPaise, shortAt(46));
  EXPECT_EQ(record.creditRupees, numberAt(48));
  EXPECT_EQ(record.auctionCommission, numberAt(52));
  EXPECT_EQ(record.bankCode, numberAt(56));
  EXPECT_TRUE(standsAt(record.scripName, 4));
  EXPECT_TRUE(standsAt(record.entryType, 17));
}

TEST(AuctionLayouts, everyKindHasItsPrefixAndRecordSize) {
  struct Case {
    AuctionKind kind;
    const char* prefix;
    std::size_t size;
  };
  for (const Case& c :
       {Case{AuctionKind::mony, "MONY", 102}, Case{AuctionKind::dely, "DELY", 256}, Case{AuctionKind::offs, "OFFS", 64},
        Case{AuctionKind::clbd, "CLBD", 46}, Case{AuctionKind::entl, "ENTL", 84}}) {
    EXPECT_STREQ(auctionPrefix(c.kind), c.prefix);
    EXPECT_EQ(auctionRecordSize(c.kind), c.size) << c.prefix;
  }
}

TEST(AuctionRecordCount, isTheWholeRecordsBehindTheHeader) {
  struct Case {
    std::int64_t size;
    std::size_t mony, dely, offs, clbd, entl;
  };
  const Case cases[] = {
      {0, 0, 0, 0, 0, 0},
      {1, 0, 0, 0, 0, 0},
      {61, 0, 0, 0, 0, 0},
      {62, 0, 0, 0, 0, 0},
      {62 + 45, 0, 0, 0, 0, 0},
      {62 + 46, 0, 0, 0, 1, 0},
      {62 + 64, 0, 0, 1, 1, 0},
      {62 + 84, 0, 0, 1, 1, 1},
      {62 + 101, 0, 0, 1, 2, 1},
      {62 + 102 + 50, 1, 0, 2, 3, 1},
      {62 + 255, 2, 0, 3, 5, 3},
      {62 + 256, 2, 1, 4, 5, 3},
      {62 + std::int64_t{256} * 20000000, 50196078, 20000000, 80000000, 111304347, 60952380},
  };
  for (const Case& c : cases) {
    const std::size_t want[] = {c.mony, c.dely, c.offs, c.clbd, c.entl};
    for (std::size_t i = 0; i < 5; ++i) EXPECT_EQ(auctionRecordCount(c.size, allKinds[i]), want[i]) << c.size << " " << i;
  }
}

TEST(AuctionRecordCount, fileOfTheHeaderAloneHasNone) {
  for (const AuctionKind kind : allKinds) EXPECT_EQ(auctionRecordCount(62, kind), 0u);
}

TEST(AuctionFileSize, isToldAndLeavesTheInputAtItsStart) {
  const AuctionHeader header = auctionHeader("A123");
  const TestFile file(bytesOf(header) + "rest");
  Input* input = inputOpen(file.path.string(), InputKind::binary);
  ASSERT_TRUE(input);
  std::int64_t size = 0;
  ASSERT_TRUE(auctionFileSize(*input, size));
  EXPECT_EQ(size, 66);
  AuctionHeader read;
  ASSERT_TRUE(inputRead(*input, &read, sizeof read));
  EXPECT_EQ(bytesOf(read), bytesOf(header));
  inputClose(input);
}

TEST(AuctionFileSize, fail_whereItCannotBeHad) {
  const Faults faults;
  const TestFile file(std::string(100, 'x'));
  struct Case {
    Fault fault;
    std::size_t number;
  };
  for (const Case& c : {Case{Fault::seek, 1}, Case{Fault::tell, 1}, Case{Fault::seek, 2}}) {
    Input* input = inputOpen(file.path.string(), InputKind::binary);
    ASSERT_TRUE(input);
    faultsArm(c.fault, c.number, false);
    std::int64_t size = 0;
    EXPECT_FALSE(auctionFileSize(*input, size)) << static_cast<int>(c.fault) << " " << c.number;
    inputClose(input);
  }
}

// A file of one to 61 bytes is not empty, and yet has no header to read.
TEST(AuctionReading, fail_headerCutShort) {
  for (const std::size_t size : {std::size_t{1}, std::size_t{61}}) {
    const TestFile file(std::string(size, 'x'));
    Input* input = inputOpen(file.path.string(), InputKind::binary);
    ASSERT_TRUE(input);
    AuctionHeader header;
    EXPECT_FALSE(inputRead(*input, &header, sizeof header)) << size;
    inputClose(input);
  }
}

TEST(AuctionReading, recordsAreReadAndATailLeftAlone) {
  MonyRec first = {}, second = {};
  first.scripCode = 590004;
  second.scripCode = 590011;
  const TestFile file(bytesOf(auctionHeader("A123")) + bytesOf(first) + bytesOf(second) + std::string(50, 'x'));
  Input* input = inputOpen(file.path.string(), InputKind::binary);
  ASSERT_TRUE(input);
  std::int64_t size = 0;
  ASSERT_TRUE(auctionFileSize(*input, size));
  ASSERT_EQ(auctionRecordCount(size, AuctionKind::mony), 2u);
  AuctionHeader header;
  ASSERT_TRUE(inputRead(*input, &header, sizeof header));
  std::vector<MonyRec> records(2);
  EXPECT_TRUE(readAuctionRecords(*input, AuctionKind::mony, records.data(), records.size()));
  EXPECT_EQ(bytesOf(records[0]), bytesOf(first));
  EXPECT_EQ(bytesOf(records[1]), bytesOf(second));
  inputClose(input);
}

TEST(AuctionReading, fail_recordThatCannotBeRead) {
  const Faults faults;
  OffsRec offer = {};
  offer.scripCode = 590004;
  const TestFile file(bytesOf(offer) + bytesOf(offer) + bytesOf(offer));
  Input* input = inputOpen(file.path.string(), InputKind::binary);
  ASSERT_TRUE(input);
  faultsArm(Fault::read, 2, false);
  std::vector<OffsRec> records(3);
  EXPECT_FALSE(readAuctionRecords(*input, AuctionKind::offs, records.data(), records.size()));
  EXPECT_EQ(records[0].scripCode, 590004);
  EXPECT_EQ(records[1].scripCode, 0);
  inputClose(input);
}

TEST(AuctionKindCheck, looksAtTheWholePathWhateverItsCase) {
  EXPECT_TRUE(auctionPathIsOfKind("export/MONY0101.001", AuctionKind::mony));
  EXPECT_TRUE(auctionPathIsOfKind("export/mOnY0101.S01", AuctionKind::mony));
  EXPECT_TRUE(auctionPathIsOfKind("testimony/ANY.BIN", AuctionKind::mony));
  EXPECT_FALSE(auctionPathIsOfKind("export/MON0101.001", AuctionKind::mony));
  EXPECT_FALSE(auctionPathIsOfKind("", AuctionKind::mony));
  EXPECT_TRUE(auctionPathIsOfKind("export/dely0101.001", AuctionKind::dely));
  EXPECT_TRUE(auctionPathIsOfKind("export/offs0101.001", AuctionKind::offs));
  EXPECT_TRUE(auctionPathIsOfKind("export/clbd0101.001", AuctionKind::clbd));
  EXPECT_TRUE(auctionPathIsOfKind("export/entl0101.001", AuctionKind::entl));
  for (const AuctionKind kind : allKinds) {
    EXPECT_EQ(auctionPathIsOfKind("export/OFFS0101.001", kind), kind == AuctionKind::offs);
  }
}

TEST(AuctionCompanion, standsBesideTheMoneyFile) {
  EXPECT_EQ(offerStatusPath("C:\\export\\MONY0101.S01"), "C:\\export\\OFFS0101.S01");
  EXPECT_EQ(offerStatusPath("C:\\export\\mony0101.s01"), "C:\\export\\OFFS0101.s01");
  EXPECT_EQ(offerStatusPath("MONY0101.001"), "OFFS0101.001");
}

// The scheme holds for an 8.3 name alone: another length names a file that is not there.
TEST(AuctionCompanion, nameOfAnotherLengthGivesAnotherPath) {
  EXPECT_EQ(offerStatusPath("export/MONY010109.001"), "export/MOOFFS0109.001");
  EXPECT_EQ(offerStatusPath("export/MONY01.001"), "exporOFFSNY01.001");
  EXPECT_EQ(offerStatusPath("MONY01.001"), "");
  EXPECT_EQ(offerStatusPath(""), "");
}

// Places are counted in letters, not in the bytes of the path's encoding: the name below has twelve.
TEST(AuctionCompanion, letterOutsideAsciiTakesOnePlace) {
  EXPECT_EQ(offerStatusPath("export/MONY\u00c9101.001"), "export/OFFS\u00c9101.001");
  EXPECT_EQ(offerStatusPath("Export\u00e9/MONY0101.001"), "Export\u00e9/OFFS0101.001");
  EXPECT_EQ(offerStatusPath("\u20acONY0101.001"), "OFFS0101.001");
  EXPECT_EQ(offerStatusPath("MONY\u00c901.001"), "");
  EXPECT_EQ(offerStatusPath("\x80\x80\x80\x80\x80\x80\x80\x80\x80\x80\x80\x80\x80"), "");  // no text at all
}

TEST(AuctionNotice, xAndYAreSpecial) {
  EXPECT_TRUE(isSpecialNotice(auctionHeader("X123")));
  EXPECT_TRUE(isSpecialNotice(auctionHeader("Y")));
  EXPECT_FALSE(isSpecialNotice(auctionHeader("x123")));
  EXPECT_FALSE(isSpecialNotice(auctionHeader("AX12")));
  EXPECT_FALSE(isSpecialNotice(auctionHeader("")));
}

TEST(MoneyGroups, wholeTypesComeBeforeFirstLetters) {
  struct Case {
    const char* type;
    char group;
    const char* word;
  };
  const Case cases[] = {
      {"CC", 'A', ""},           {"B", 'B', ""},          {"BX", 'B', ""},           {"C", 'C', ""},
      {"CX", 'C', ""},           {"D", 'D', ""},          {"DX", 'D', ""},           {"O", 'O', ""},
      {"OX", 'O', ""},           {"DI", 'Z', "Dividend"}, {"CB", 'Z', "Cash Bonus"}, {"CM", 'Z', "Call Money"},
      {"SD", 'Z', "Stamp Duty"}, {"OT", 'Z', "Other"},    {"RR", 'Z', "Rights"},     {"Ct", 'C', ""},
      {"Dj", 'D', ""},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(moneyGroup(entryType(c.type)), c.group) << c.type;
    EXPECT_STREQ(entitlementWord(entryType(c.type)), c.word) << c.type;
    EXPECT_TRUE(isMoneyGroup(c.group)) << c.type;
  }
}

// The type may fill its three bytes without a NUL.
TEST(MoneyGroups, threeLettersAreNoWholeType) {
  EXPECT_EQ(moneyGroup(TextField<3>{{'C', 'C', 'C'}}), 'C');
  EXPECT_EQ(moneyGroup(TextField<3>{{'D', 'I', ' '}}), 'D');
  EXPECT_EQ(moneyGroup(TextField<3>{{'D', 'I', '\0'}}), 'Z');
}

TEST(MoneyGroups, otherTypesBelongToNone) {
  for (const char* type : {"", "E", "X1", "b", "d", "S", "SX", "R", "a", "z", "?", "A", "AA", "Z", "ZZ", "\xc4"}) {
    EXPECT_FALSE(isMoneyGroup(moneyGroup(entryType(type)))) << type;
  }
  EXPECT_EQ(moneyGroup(entryType("X1")), 'X');
}

}  // namespace
}  // namespace quillon::test
