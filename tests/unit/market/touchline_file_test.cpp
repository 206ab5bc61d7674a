// Reading touchlines files: pieces counted and read with different limits, the two ways of splitting a line, the header.
#include "market/touchline_file.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "desktop/scripted/faults.h"
#include "market/market_input.h"

namespace quillon {
namespace {

using test::TextFile;

const std::string normalHeader = "As on : 01/01/09|10:30:00|NORMAL|\n";
const std::string kestoHeader = "01/01/09|10:30:00|KESTO|\n";

// What a run takes out of a file: it is counted, opened anew and read into a block of the count and one more.
struct NormalFile {
  TouchlineCount count = {};
  TouchlineHeader header = {};
  std::vector<NormalTouchline> records;  // without the zero one at the end
  bool whole = false;
};

NormalFile readNormal(const std::string& bytes) {
  const TextFile file(bytes);
  NormalFile read;
  read.count = countNormalTouchlines(file.open());
  if (read.count.pieces == 0) return read;
  std::vector<NormalTouchline> block(read.count.pieces);
  read.whole = readNormalTouchlines(file.open(), read.header, block.data(), read.count.pieces - 1);
  EXPECT_EQ(block.back().scripId.view(), "");
  block.pop_back();
  read.records = block;
  return read;
}

struct KestoFile {
  TouchlineCount count = {};
  TouchlineHeader header = {};
  std::vector<KestoTouchline> records;
  bool whole = false;
};

KestoFile readKesto(const std::string& bytes) {
  const TextFile file(bytes);
  KestoFile read;
  read.count = countKestoTouchlines(file.open());
  if (read.count.pieces == 0) return read;
  std::vector<KestoTouchline> block(read.count.pieces);
  read.whole = readKestoTouchlines(file.open(), read.header, block.data(), read.count.pieces - 1, read.count.passOver);
  EXPECT_EQ(block.back().scripId.view(), "");
  block.pop_back();
  read.records = block;
  return read;
}

std::vector<std::string> idsOf(const std::vector<KestoTouchline>& records) {
  std::vector<std::string> ids;
  for (const KestoTouchline& record : records) ids.emplace_back(record.scripId.view());
  return ids;
}

// A record's line of exactly `size` characters, without its line feed.
std::string normalLine(const std::string& id, std::size_t size) {
  std::string line = id + "|500101|1|2|3|4|5|6|7|";
  line.resize(size, 'x');
  return line;
}
std::string kestoLine(const std::string& id, std::size_t size) {
  std::string line = id + "|1|2|3|4|5|6|7|8|9|10|";
  line.resize(size, 'x');
  return line;
}

TEST(TouchlineFile, anEmptyFileHasNoPieceAndAHeaderAloneHasOne) {
  EXPECT_EQ(readNormal("").count.pieces, 0u);
  EXPECT_EQ(readKesto("").count.pieces, 0u);
  EXPECT_EQ(readNormal(normalHeader).count.pieces, 1u);
  EXPECT_EQ(readKesto(kestoHeader).count.pieces, 1u);
}

TEST(TouchlineFile, normalRecordHasNineFields) {
  const NormalFile file = readNormal(normalHeader + "AXLEIND|500101|1|22|333|-4|0|2147483647|98765|\n");
  ASSERT_EQ(file.records.size(), 1u);
  const NormalTouchline& record = file.records[0];
  EXPECT_EQ(record.scripId.view(), "AXLEIND");
  EXPECT_EQ(record.scripCode, 500101);
  EXPECT_EQ(record.rate1, 1);
  EXPECT_EQ(record.rate2, 22);
  EXPECT_EQ(record.open, 333);
  EXPECT_EQ(record.high, -4);
  EXPECT_EQ(record.low, 0);
  EXPECT_EQ(record.lastTraded, 2147483647);
  EXPECT_EQ(record.volume, 98765);
  EXPECT_TRUE(file.whole);
}

TEST(TouchlineFile, crLfAndAMissingLastLineEndMakeNoDifference) {
  const NormalFile file = readNormal("As on : 01/01/09|10:30:00|NORMAL\r\nA|1|2|3|4|5|6|7|8|\r\nB|9|2|3|4|5|6|7|8|");
  ASSERT_EQ(file.records.size(), 2u);
  EXPECT_EQ(file.records[1].scripCode, 9);
  EXPECT_EQ(file.header.third.view(), "NORMAL");
}

TEST(TouchlineFile, theScanStopsAtTheFirstFieldThatFails) {
  struct Case {
    const char* line;
    const char* scripId;
    std::int32_t scripCode, rate1, rate2;
  };
  const Case cases[] = {
      {"A|1|2|x|4|5|6|7|8|\n", "A", 1, 2, 0},   {"A|1||3|4|5|6|7|8|\n", "A", 1, 0, 0}, {"A|1 |2|3|4|5|6|7|8|\n", "A", 1, 0, 0},
      {"A|  1|2|3|4|5|6|7|8|\n", "A", 1, 2, 3}, {"|1|2|3|4|5|6|7|8|\n", "", 0, 0, 0},  {"A\n", "A", 0, 0, 0},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.line);
    const NormalFile file = readNormal(normalHeader + c.line);
    ASSERT_EQ(file.records.size(), 1u);
    EXPECT_EQ(file.records[0].scripId.view(), c.scripId);
    EXPECT_EQ(file.records[0].scripCode, c.scripCode);
    EXPECT_EQ(file.records[0].rate1, c.rate1);
    EXPECT_EQ(file.records[0].rate2, c.rate2);
    EXPECT_EQ(file.records[0].open, c.rate2 == 0 ? 0 : 4);
  }
}

TEST(TouchlineFile, aBlankLineIsARecordOfZeros) {
  const NormalFile normal = readNormal(normalHeader + "A|1|2|3|4|5|6|7|8|\n\r\n");
  ASSERT_EQ(normal.records.size(), 2u);
  EXPECT_EQ(normal.records[1].scripId.view(), "");  // no line end in it, which would break its row in two
  EXPECT_EQ(normal.records[1].scripCode, 0);
  EXPECT_EQ(idsOf(readKesto(kestoHeader + "A|1|\n\nB|2|\n").records), (std::vector<std::string>{"A", "", "B"}));
}

TEST(TouchlineFile, aScripIdLongerThanItsFieldIsCutToElevenCharacters) {
  const NormalFile normal = readNormal(normalHeader + "ABCDEFGHIJKLMNOP|1|2|3|4|5|6|7|8|\n");
  EXPECT_EQ(normal.records[0].scripId.view(), "ABCDEFGHIJK");
  EXPECT_EQ(normal.records[0].scripCode, 1);
  const KestoFile kesto = readKesto(kestoHeader + "ABCDEFGHIJKLMNOP|1|2|3|4|5|6|7|8|9|10|abcdefghijklmnop|\n");
  EXPECT_EQ(kesto.records[0].scripId.view(), "ABCDEFGHIJK");
  EXPECT_EQ(kesto.records[0].trailer.view(), "abcdefghijk");
}

TEST(TouchlineFile, aNormalLineOf89CharactersCountsTwiceAndLeavesOneRecordZero) {
  for (const std::size_t size : {88u, 89u, 118u}) {
    SCOPED_TRACE(size);
    const NormalFile file = readNormal(normalHeader + normalLine("LONG", size) + "\n" + normalLine("NEXT", 40) + "\n");
    ASSERT_EQ(file.records.size(), size < 89 ? 2u : 3u);
    EXPECT_EQ(file.records[0].scripId.view(), "LONG");
    EXPECT_EQ(file.records[1].scripId.view(), "NEXT");
    if (size >= 89) {
      EXPECT_EQ(file.records[2].scripId.view(), "");
      EXPECT_EQ(file.records[2].scripCode, 0);
    }
  }
}

TEST(TouchlineFile, aNormalLineOf119CharactersIsReadAsTwoRecords) {
  std::string line = normalLine("LONG", 119);
  line += "TAIL|77|1|2|3|4|5|6|7|";
  const NormalFile file = readNormal(normalHeader + line + "\n");
  ASSERT_EQ(file.records.size(), 2u);
  EXPECT_EQ(file.records[1].scripId.view(), "TAIL");
  EXPECT_EQ(file.records[1].scripCode, 77);
}

TEST(TouchlineFile, kestoRecordHasTwelveTokensAndWhatFollowsIsIgnored) {
  const KestoFile file = readKesto(kestoHeader + "AXLEIND|500101|-1|2|3|4|5|6|7|8|9|BC|14|MORE|\n");
  ASSERT_EQ(file.records.size(), 1u);
  const KestoTouchline& record = file.records[0];
  EXPECT_EQ(record.scripId.view(), "AXLEIND");
  EXPECT_EQ(record.scripCode, 500101);
  EXPECT_EQ(record.lendRate, -1);
  EXPECT_EQ(record.lendQty, 2);
  EXPECT_EQ(record.lendYield, 3);
  EXPECT_EQ(record.borrowRate, 4);
  EXPECT_EQ(record.borrowQty, 5);
  EXPECT_EQ(record.borrowYield, 6);
  EXPECT_EQ(record.standardRate, 7);
  EXPECT_EQ(record.weightedAverage, 8);
  EXPECT_EQ(record.tradedVolume, 9);
  EXPECT_EQ(record.trailer.view(), "BC");
}

TEST(TouchlineFile, anEmptyKestoFieldShiftsTheLaterOnesToTheLeft) {
  const KestoFile file = readKesto(kestoHeader + "A|1||3|4|5|6|7|8|9|10|BC|\n|B|2|\n");
  ASSERT_EQ(file.records.size(), 2u);
  EXPECT_EQ(file.records[0].lendRate, 3);
  EXPECT_EQ(file.records[0].tradedVolume, 0);  // the text that stands there now is no number
  EXPECT_EQ(file.records[1].scripId.view(), "B");
  EXPECT_EQ(file.records[1].scripCode, 2);
}

TEST(TouchlineFile, anOverlongKestoLineTakesNoOtherScripsRecord) {
  // 94 characters: counted once, read in two pieces.
  const KestoFile file = readKesto(kestoHeader + kestoLine("LONG", 94) + "\nSECOND|2|\nTHIRD|3|\n");
  EXPECT_EQ(file.count.pieces, 4u);
  EXPECT_EQ(idsOf(file.records), (std::vector<std::string>{"LONG", "SECOND", "THIRD"}));
  EXPECT_TRUE(file.whole);
}

// A line is read in pieces of 89 characters, its line feed among them: up to there it is read whole. Of a longer one that
// counts once the rest is passed over, so that the next scrip keeps its record.
TEST(TouchlineFile, aKestoLineOfAbout89CharactersIsOneRecordOfItsFirst89) {
  struct Case {
    std::size_t size;  // without the line feed
    bool lineFeed;
    std::size_t passOver;
    std::int32_t volume;
  };
  // 88 characters and a line feed are just one piece; of 89 the line feed alone is left over.
  const Case cases[] = {
      {88, false, 0, 12345678},  {88, true, 0, 12345678},  {89, false, 0, 123456789}, {89, true, 1, 123456789},
      {90, false, 1, 123456789}, {90, true, 1, 123456789}, {91, false, 1, 123456789}, {91, true, 1, 123456789},
      {92, false, 1, 123456789}, {92, true, 1, 123456789},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(std::to_string(c.size) + (c.lineFeed ? " and a line feed" : ""));
    // The digits of the traded volume begin at the 81st character.
    std::string line = "LONG|1|2|3|4|5|6|7|8|9|";
    line.append(80 - line.size(), ' ');
    line.append("123456789012", c.size - 80);
    ASSERT_EQ(line.size(), c.size);
    std::vector<std::string> ids = {"FIRST", "LONG"};
    std::string bytes = kestoHeader + "FIRST|1|\n" + line;
    if (c.lineFeed) {
      // First as the file's last line, then with another one behind it.
      bytes += "\n";
      const KestoFile last = readKesto(bytes);
      EXPECT_EQ(last.count.passOver, c.passOver);
      EXPECT_EQ(idsOf(last.records), ids);
      EXPECT_EQ(last.records[1].tradedVolume, c.volume);
      bytes += "NEXT|2|\n";
      ids.push_back("NEXT");
    }
    const KestoFile file = readKesto(bytes);
    EXPECT_EQ(file.count.pieces, ids.size() + 1);
    EXPECT_EQ(file.count.passOver, c.passOver);
    EXPECT_EQ(idsOf(file.records), ids);
    EXPECT_EQ(file.records[1].tradedVolume, c.volume);
  }
}

TEST(TouchlineFile, aKestoLineThatCountsTwiceIsTwoRecords) {
  std::string line = kestoLine("LONG", 89) + "TAIL|77|";
  line.resize(130, 'x');
  const KestoFile file = readKesto(kestoHeader + line + "\nSECOND|2|\n");
  EXPECT_EQ(idsOf(file.records), (std::vector<std::string>{"LONG", "TAIL", "SECOND"}));
}

TEST(TouchlineFile, anOverlongKestoHeaderTakesNoScripsRecord) {
  const KestoFile file = readKesto(std::string(100, 'h') + "\nFIRST|1|\nSECOND|2|\n");
  EXPECT_EQ(idsOf(file.records), (std::vector<std::string>{"FIRST", "SECOND"}));
  EXPECT_EQ(file.header.date.view(), std::string(89, 'h'));
}

TEST(TouchlineFile, aFileThatGrewSinceItWasCountedFillsNoMoreThanTheBlock) {
  const std::string lines = "A|1|\nB|2|\nC|3|\n";
  const TextFile file(kestoHeader + lines);
  TouchlineHeader header;
  std::vector<KestoTouchline> kesto(2);
  EXPECT_TRUE(readKestoTouchlines(file.open(), header, kesto.data(), 1, 0));
  EXPECT_EQ(idsOf(kesto), (std::vector<std::string>{"A", ""}));
  std::vector<NormalTouchline> normal(2);
  EXPECT_TRUE(readNormalTouchlines(file.open(), header, normal.data(), 1));
  EXPECT_EQ(normal[0].scripId.view(), "A");
  EXPECT_EQ(normal[1].scripId.view(), "");
}

TEST(TouchlineFile, aFileThatShrankSinceItWasCountedLeavesRecordsZero) {
  const TextFile file(kestoHeader + "A|1|\n");
  TouchlineHeader header;
  std::vector<KestoTouchline> kesto(4);
  EXPECT_TRUE(readKestoTouchlines(file.open(), header, kesto.data(), 3, 0));
  EXPECT_EQ(idsOf(kesto), (std::vector<std::string>{"A", "", "", ""}));
  std::vector<NormalTouchline> normal(4);
  EXPECT_TRUE(readNormalTouchlines(file.open(), header, normal.data(), 3));
  EXPECT_EQ(normal[1].scripCode, 0);
}

TEST(TouchlineFile, aReadThatFailsLeavesItsRecordZeroAndTheRestIsRead) {
  const TextFile file(kestoHeader + "A|1|\nB|2|\nC|3|\n");
  TouchlineHeader header;
  std::vector<KestoTouchline> kesto(4);
  faultsArm(Fault::read, 3, false);
  EXPECT_FALSE(readKestoTouchlines(file.open(), header, kesto.data(), 3, 0));
  EXPECT_EQ(idsOf(kesto), (std::vector<std::string>{"A", "", "C", ""}));
  std::vector<NormalTouchline> normal(4);
  faultsArm(Fault::read, 1, false);
  EXPECT_FALSE(readNormalTouchlines(file.open(), header, normal.data(), 3));
  EXPECT_EQ(header.date.view(), "");
  EXPECT_EQ(normal[2].scripId.view(), "C");
  faultsReset();
}

TEST(TouchlineFile, aReadThatFailsEndsTheCount) {
  const TextFile file(kestoHeader + "A|1|\nB|2|\n");
  faultsArm(Fault::read, 3, false);
  const TouchlineCount kesto = countKestoTouchlines(file.open());
  EXPECT_EQ(kesto.pieces, 2u);
  EXPECT_TRUE(kesto.failed);
  faultsArm(Fault::read, 1, false);
  const TouchlineCount normal = countNormalTouchlines(file.open());
  EXPECT_EQ(normal.pieces, 0u);
  EXPECT_TRUE(normal.failed);
  faultsReset();
}

TEST(TouchlineFile, theNormalHeadersYearIsWrittenInFull) {
  struct Case {
    const char* date;
    const char* rewritten;
  };
  const Case cases[] = {
      {"As on : 01/01/09", "As on : 01/01/2009"},
      {"As on : 01/01/02", "As on : 01/01/2002"},
      {"As on : 01/01/98", "As on : 01/01/2098"},
      {"As on : 01/01/99", "As on : 01/01/1999"},
      {"As on : 01/01/00", "As on : 01/01/2000"},
      {"As on : 01/01/09 and more", "As on : 01/01/2009"},  // what stands behind the year goes
      {"As on : 01/01/9", "As on : 01/01/2009"},
      {"As on : 01/01/xx", "As on : 01/01/2000"},
      {"As on : 01/01/", "As on : 01/01/"},  // no year to rewrite
      {"", ""},
  };
  for (const Case& c : cases) {
    TextField<128> date = {};
    fieldSet(date, c.date);
    rewriteTouchlineDate(date);
    EXPECT_EQ(date.view(), c.rewritten) << c.date;
  }
}

TEST(TouchlineFile, theKestoHeadersDateStaysAsItIs) {
  const KestoFile file = readKesto("As on : 01/01/09|10:30:00|\nA|1|\n");
  EXPECT_EQ(file.header.date.view(), "As on : 01/01/09");
  EXPECT_EQ(file.header.second.view(), "10:30:00");
  EXPECT_EQ(file.header.third.view(), "");
}

}  // namespace
}  // namespace quillon
