// Reading 6A/7A files: the header's date, every field of an entry, lines that are short or too long, lending letters.
#include "market/sixa_sevena_file.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "desktop/scripted/faults.h"
#include "market/market_input.h"

namespace quillon {
namespace {

using test::TextFile;

const std::string headerLine = "25/05/09|10:30:00|\n";

// What a run takes out of a file: it is counted, rewound and read into a block of the count and one more.
struct File6A7A {
  Count6A7A count = {};
  Header6A7A header = {};
  std::vector<Record6A7A> records;  // without the zero one at the end
};

File6A7A read(const std::string& bytes, bool lending = false) {
  const TextFile file(bytes);
  File6A7A made;
  Input& input = file.open();
  made.count = count6A7A(input);
  if (made.count.pieces == 0) return made;
  made.records.resize(made.count.pieces);
  EXPECT_TRUE(inputRewind(input));
  EXPECT_TRUE(read6A7A(input, made.header, made.records.data(), made.count.pieces - 1, lending));
  EXPECT_EQ(made.records.back().scripCode, 0);
  made.records.pop_back();
  return made;
}

std::vector<std::int32_t> codesOf(const std::vector<Record6A7A>& records) {
  std::vector<std::int32_t> codes;
  for (const Record6A7A& record : records) codes.push_back(record.scripCode);
  return codes;
}

const std::string entry = "500101|1234|N|1000001|B|C|250|1234567|01/01/2009|CLIENT000001|Y|10001|CONTRACT/1|FIRST COMMENT|1|";

TEST(File6A7A, anEmptyFileHasNoPieceAndAHeaderAloneHasOne) {
  EXPECT_EQ(read("").count.pieces, 0u);
  const File6A7A file = read(headerLine);
  EXPECT_EQ(file.count.pieces, 1u);
  EXPECT_EQ(file.header.date.view(), "25/05/2009");
  EXPECT_EQ(file.header.time.view(), "10:30:00");
}

TEST(File6A7A, anEntryHasFifteenFields) {
  const File6A7A file = read(headerLine + entry + "\n");
  ASSERT_EQ(file.records.size(), 1u);
  const Record6A7A& record = file.records[0];
  EXPECT_EQ(record.scripCode, 500101);
  EXPECT_EQ(record.custCode, 1234);
  EXPECT_EQ(record.ndFlag, 'N');
  EXPECT_EQ(record.tradeId, 1000001);
  EXPECT_EQ(record.buySell, 'B');
  EXPECT_EQ(record.deliveryMonth, 'C');
  EXPECT_EQ(record.quantity, 250);
  EXPECT_EQ(record.value, 1234567);
  EXPECT_EQ(record.tradeDate.view(), "01/01/2009");
  EXPECT_EQ(record.clientId.view(), "CLIENT000001");
  EXPECT_EQ(record.confirmFlag, 'Y');
  EXPECT_EQ(record.entry6a7aId, 10001);
  EXPECT_EQ(record.contractNo.view(), "CONTRACT/1");
  EXPECT_EQ(record.comments.view(), "FIRST COMMENT");
  EXPECT_EQ(record.blockDeal, 1);
}

TEST(File6A7A, aValueHas64Bits) {
  const auto valueOf = [](const std::string& value) {
    return read(headerLine + "1|2|N|3|B|C|4|" + value + "|\n").records[0].value;
  };
  EXPECT_EQ(valueOf("9223372036854775807"), 9223372036854775807);
  EXPECT_EQ(valueOf("-9223372036854775808"), -9223372036854775807 - 1);
  EXPECT_EQ(valueOf("4294967301"), 4294967301);
  EXPECT_EQ(valueOf("99999999999999999999"), 9223372036854775807);
}

TEST(File6A7A, blanksStandForFlagsButNotForTexts) {
  const File6A7A file = read(headerLine + "1|2| |3| | |4|5| |ID| |6|7|8|1|\n1|2|N|3|B|C|4|5||ID|Y|6|7|8|1|\n");
  EXPECT_EQ(file.records[0].ndFlag, ' ');
  EXPECT_EQ(file.records[0].buySell, ' ');
  EXPECT_EQ(file.records[0].deliveryMonth, ' ');
  EXPECT_EQ(file.records[0].tradeDate.view(), " ");
  EXPECT_EQ(file.records[0].confirmFlag, ' ');
  EXPECT_EQ(file.records[0].blockDeal, 1);
  // An empty text ends the scan.
  EXPECT_EQ(file.records[1].value, 5);
  EXPECT_EQ(file.records[1].clientId.view(), "");
  EXPECT_EQ(file.records[1].confirmFlag, 0);
  EXPECT_EQ(file.records[1].blockDeal, 0);
}

TEST(File6A7A, aShortLineLeavesTheRestZeroAndHasNoLineEndInItsLastField) {
  const File6A7A file = read(headerLine + "1|2|N|3|B|C|4|5|01/01/2009|CLIENT\r\n\r\n7|\r\n");
  EXPECT_EQ(codesOf(file.records), (std::vector<std::int32_t>{1, 0, 7}));
  EXPECT_EQ(file.records[0].clientId.view(), "CLIENT");
  EXPECT_EQ(file.records[0].confirmFlag, 0);
  EXPECT_EQ(file.records[0].entry6a7aId, 0);
  EXPECT_EQ(file.records[1].ndFlag, 0);
}

TEST(File6A7A, textsLongerThanTheirFieldsAreCut) {
  const File6A7A file = read(headerLine + "1|2|N|3|B|C|4|5|01/01/20099|CLIENT0000012|Y|6|CONTRACT/2009/00000000012X|" +
                             "COMMENTS OF 22 LETTERS|1|\n");
  EXPECT_EQ(file.records[0].tradeDate.view(), "01/01/2009");
  EXPECT_EQ(file.records[0].clientId.view(), "CLIENT000001");
  EXPECT_EQ(file.records[0].contractNo.view(), "CONTRACT/2009/00000000012");
  EXPECT_EQ(file.records[0].comments.view(), "COMMENTS OF 22 LETTER");
  EXPECT_EQ(file.records[0].blockDeal, 1);
}

TEST(File6A7A, onLendingFilesLIsHeldAsS) {
  const auto letterOf = [](const std::string& letter, bool lending) {
    return read(headerLine + "1|2|N|3|" + letter + "|C|4|\n", lending).records[0].buySell;
  };
  EXPECT_EQ(letterOf("L", true), 'S');
  EXPECT_EQ(letterOf("S", true), 'S');
  EXPECT_EQ(letterOf("B", true), 'B');
  EXPECT_EQ(letterOf("L", false), 'L');
  EXPECT_EQ(letterOf("S", false), 'S');
}

// An entry's line of `size` characters without its line end; what is behind the comments is part of them.
std::string lineOf(const std::string& code, std::size_t size) {
  std::string line = code + "|2|N|3|B|C|4|5|01/01/2009|CLIENT|Y|6|CONTRACT|";
  line.resize(size, 'x');
  return line;
}

TEST(File6A7A, only139CharactersOfAnEntryAreRead) {
  const std::string most = lineOf("7", 136);  // with "|1|" behind it 139
  EXPECT_EQ(read(headerLine + most + "|1|\n").records[0].blockDeal, 1);
  EXPECT_EQ(read(headerLine + most + "x|1|\n").records[0].blockDeal, 1);
  EXPECT_EQ(read(headerLine + most + "xx|1|\n").records[0].blockDeal, 0);
}

TEST(File6A7A, anOverlongLineTakesNoOtherEntrysRecord) {
  const File6A7A file = read(headerLine + lineOf("7", 498) + "\n8|\n" + lineOf("9", 140) + "\n10|\n");
  EXPECT_EQ(codesOf(file.records), (std::vector<std::int32_t>{7, 8, 9, 10}));
  EXPECT_EQ(codesOf(read(std::string(300, 'h') + "\n7|\n8|\n").records), (std::vector<std::int32_t>{7, 8}));
}

TEST(File6A7A, aLineThatCountsTwiceIsTwoRecords) {
  EXPECT_EQ(codesOf(read(headerLine + lineOf("7", 499) + "66|\n8|\n").records), (std::vector<std::int32_t>{7, 66, 8}));
}

TEST(File6A7A, only119CharactersOfTheHeaderAreRead) {
  const std::string date(100, 'd');
  EXPECT_EQ(read(date + "|0123456789012345678\n").header.time.view(), "012345678901234567");
  EXPECT_EQ(read(date + "|012345678901234567\n").header.time.view(), "012345678901234567");
}

TEST(File6A7A, theHeadersTimeEndsAtTheNextBarOrTheLinesEnd) {
  EXPECT_EQ(read("25/05/09|10:30:00\r\n").header.time.view(), "10:30:00");
  EXPECT_EQ(read("25/05/09|10:30:00|MORE|\r\n").header.time.view(), "10:30:00");
  EXPECT_EQ(read("25/05/09|\n").header.time.view(), "");
  EXPECT_EQ(read("25/05/09\n").header.time.view(), "");
}

TEST(File6A7A, theHeadersYearIsWrittenInFull) {
  struct Case {
    const char* date;
    const char* rewritten;
  };
  const Case cases[] = {
      {"25/05/09", "25/05/2009"}, {"25/05/00", "25/05/2000"},   {"25/05/98", "25/05/2098"},
      {"25/05/99", "25/05/1999"}, {"25/05/2009", "25/05/2020"}, {"25/05/09 and more", "25/05/2009"},
      {"25/05/9", "25/05/2009"},  {"25/05/xx", "25/05/2000"},   {"25/05/", "25/05/2000"},
      {"1/1/09", "1/1/092000"},   {"1/1/9", "1/1/92000"},       {"", "2000"},
      {"25/05/1x", "25/05/2001"},
  };
  for (const Case& c : cases) {
    TextField<128> date = {};
    fieldSet(date, c.date);
    rewrite6A7ADate(date);
    EXPECT_EQ(date.view(), c.rewritten) << c.date;
  }
}

TEST(File6A7A, aFileThatGrewSinceItWasCountedFillsNoMoreThanTheBlock) {
  const TextFile file(headerLine + "1|\n2|\n3|\n");
  Header6A7A header;
  std::vector<Record6A7A> records(3);
  EXPECT_TRUE(read6A7A(file.open(), header, records.data(), 2, false));
  EXPECT_EQ(codesOf(records), (std::vector<std::int32_t>{1, 2, 0}));
}

TEST(File6A7A, aFileThatShrankSinceItWasCountedLeavesRecordsZero) {
  const TextFile file(headerLine + "1|\n");
  Header6A7A header;
  std::vector<Record6A7A> records(3);
  EXPECT_TRUE(read6A7A(file.open(), header, records.data(), 3, false));
  EXPECT_EQ(codesOf(records), (std::vector<std::int32_t>{1, 0, 0}));
}

TEST(File6A7A, aReadThatFailsLeavesItsRecordZeroAndTheRestIsRead) {
  const TextFile file(headerLine + "1|\n2|\n3|\n");
  Header6A7A header;
  std::vector<Record6A7A> records(3);
  faultsArm(Fault::read, 3, false);
  EXPECT_FALSE(read6A7A(file.open(), header, records.data(), 3, false));
  EXPECT_EQ(codesOf(records), (std::vector<std::int32_t>{1, 0, 3}));

  records.assign(3, {});
  faultsArm(Fault::read, 1, false);
  EXPECT_FALSE(read6A7A(file.open(), header, records.data(), 3, false));
  EXPECT_EQ(header.date.view(), "");
  EXPECT_EQ(codesOf(records), (std::vector<std::int32_t>{1, 2, 3}));

  records.assign(4, {});
  faultsArm(Fault::read, 5, false);  // the read that would find the end
  EXPECT_FALSE(read6A7A(file.open(), header, records.data(), 4, false));
  EXPECT_EQ(codesOf(records), (std::vector<std::int32_t>{1, 2, 3, 0}));
  faultsReset();
}

TEST(File6A7A, aReadThatFailsEndsTheCount) {
  const TextFile file(headerLine + "1|\n2|\n");
  faultsArm(Fault::read, 3, false);
  const Count6A7A count = count6A7A(file.open());
  EXPECT_EQ(count.pieces, 2u);
  EXPECT_TRUE(count.failed);
  faultsReset();
  EXPECT_FALSE(count6A7A(file.open()).failed);
}

}  // namespace
}  // namespace quillon
