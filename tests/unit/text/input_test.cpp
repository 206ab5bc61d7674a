// Records and line pieces out of files made here, the pieces against the C library's fgets.
#include "text/input.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <random>
#include <string>
#include <vector>

#include "desktop/scripted/faults.h"

namespace quillon {

using std::string_literals::operator""s;

namespace {

constexpr char fileName[] = "INPUT.BIN";

struct InputTest : testing::Test {
  void SetUp() override {
    faultsReset();
    faultsClear();
  }
  void TearDown() override {
    faultsClear();
    inputCloseAll();
    std::filesystem::remove(fileName);
    std::filesystem::remove("PLAIN.TXT");
  }
};

void writeFile(const char* name, const std::string& bytes) { std::ofstream(name, std::ios::binary) << bytes; }

Input* openWith(const std::string& bytes, InputKind kind) {
  writeFile(fileName, bytes);
  return inputOpen(fileName, kind);
}

std::string randomText(std::mt19937& random, std::size_t size, const std::string& letters) {
  std::string text(size, ' ');
  for (char& c : text) c = letters[random() % letters.size()];
  return text;
}

// All pieces, each with a mark behind it.
std::string pieces(Input& input, std::size_t limit) {
  std::string all;
  std::vector<char> buffer(limit);
  std::size_t length = 0;
  while (inputReadPiece(input, buffer.data(), limit, &length)) {
    EXPECT_LT(length, limit);
    EXPECT_EQ(buffer[length], '\0');
    all.append(buffer.data(), length) += "<>";
  }
  return all;
}

// What a text file's reader sees, worked out one character after the other.
std::string asText(const std::string& bytes) {
  std::string text;
  for (std::size_t i = 0; i < bytes.size() && bytes[i] != '\x1a'; ++i) {
    if (bytes[i] != '\r' || i + 1 >= bytes.size() || bytes[i + 1] != '\n') text += bytes[i];
  }
  return text;
}

std::string piecesByFgets(const std::string& text, std::size_t limit) {
  std::FILE* file = std::fopen("PLAIN.TXT", "wb+");
  std::fwrite(text.data(), 1, text.size(), file);
  std::rewind(file);
  std::string all;
  for (;;) {
    // A NUL in a piece hides its length from the caller of fgets; the mark in the buffer shows it.
    std::vector<char> buffer(limit, '\x7f');
    if (!std::fgets(buffer.data(), static_cast<int>(limit), file)) break;
    std::size_t end = limit;
    while (buffer[end - 1] == '\x7f') --end;
    all.append(buffer.data(), end - 1) += "<>";
  }
  std::fclose(file);
  return all;
}

}  // namespace

TEST_F(InputTest, missingFileGivesNull) { EXPECT_EQ(inputOpen("NOWHERE.BIN", InputKind::binary), nullptr); }

TEST_F(InputTest, readOnlyFileIsOpenedForReadingButNotForUpdate) {
  writeFile(fileName, "abc");
  std::filesystem::permissions(fileName, std::filesystem::perms::owner_read);
  EXPECT_NE(inputOpen(fileName, InputKind::binary), nullptr);
  EXPECT_EQ(inputOpen(fileName, InputKind::binaryUpdate), nullptr);
  std::filesystem::permissions(fileName, std::filesystem::perms::owner_all);
  EXPECT_NE(inputOpen(fileName, InputKind::binaryUpdate), nullptr);
}

TEST_F(InputTest, inputForUpdateReadsBytesAsTheyStandAndLeavesTheFile) {
  Input* input = openWith(
      "a\r\n\x1a"
      "b",
      InputKind::binaryUpdate);
  ASSERT_NE(input, nullptr);
  char bytes[5];
  EXPECT_TRUE(inputRead(*input, bytes, sizeof bytes));
  EXPECT_EQ(std::string(bytes, sizeof bytes),
            "a\r\n\x1a"
            "b");
  inputClose(input);
  EXPECT_EQ(std::filesystem::file_size(fileName), 5u);
}

TEST_F(InputTest, fail_openRefusesBothKindsOfBinaryInput) {
  writeFile(fileName, "abc");
  for (const InputKind kind : {InputKind::binary, InputKind::binaryUpdate}) {
    faultsArm(Fault::open, 1, false);
    EXPECT_EQ(inputOpen(fileName, kind), nullptr);
    EXPECT_NE(inputOpen(fileName, kind), nullptr);
  }
}

TEST_F(InputTest, piecesAreThoseOfFgets) {
  std::mt19937 random(6);
  const std::string letters[] = {"ab\n", "ab\r\n", "abcdefghij|1234567890\r\n", "\r\n", "a\r", "a\0b\n"s};
  for (int round = 0; round < 300; ++round) {
    const std::string bytes = randomText(random, random() % 300, letters[round % 6]);
    for (const std::size_t limit : {2, 3, 7, 90, 1000}) {
      Input* input = openWith(bytes, InputKind::text);
      ASSERT_EQ(pieces(*input, limit), piecesByFgets(asText(bytes), limit)) << bytes;
      inputClose(input);
    }
  }
}

TEST_F(InputTest, piecesAcrossTheEndOfTheBufferAreThoseOfFgets) {
  std::mt19937 random(7);
  for (std::size_t before = 65530; before <= 65540; ++before) {
    for (const char* around : {"\r\n", "\r", "\r\r\n", "\n", "\r\n\r\n\r\n", "\x1a"}) {
      const std::string bytes = randomText(random, before, "abc|") + around + "end\r\n" + std::string(70000, 'x') + around;
      Input* input = openWith(bytes, InputKind::text);
      ASSERT_EQ(pieces(*input, 120), piecesByFgets(asText(bytes), 120)) << before;
      inputClose(input);
    }
  }
}

TEST_F(InputTest, limitBeyondTheBufferTakesTheWholeLine) {
  for (const std::size_t size : {65534, 65535, 65536, 65537, 65538, 140000}) {
    for (const char* around : {"\r\n", "\r", "\r\r\n"}) {
      const std::string bytes = std::string(size, 'x') + around + "end\r\n";
      for (const std::size_t limit : {65534, 65535, 65536, 65537, 65538, 65539, 200000}) {
        Input* input = openWith(bytes, InputKind::text);
        ASSERT_EQ(pieces(*input, limit), piecesByFgets(asText(bytes), limit)) << size << " " << limit;
        inputClose(input);
      }
    }
  }
}

TEST_F(InputTest, recordOfATextFileIsReadAsItsReaderSeesIt) {
  Input* input = openWith(
      "a\r\nb\rc\r\n\r\nlast\x1a"
      "more",
      InputKind::text);
  char bytes[6];
  ASSERT_TRUE(inputRead(*input, bytes, 6));
  EXPECT_EQ(std::string(bytes, 6), "a\nb\rc\n");
  EXPECT_EQ(inputTell(*input), 8);  // of the bytes in the file
  ASSERT_TRUE(inputRead(*input, bytes, 5));
  EXPECT_EQ(std::string(bytes, 5), "\nlast");
  EXPECT_FALSE(inputRead(*input, bytes, 1));
}

TEST_F(InputTest, lineLongerThanTheLimitComesInPieces) {
  Input* input = openWith("abcdefgh\r\nij\r\n", InputKind::text);
  EXPECT_EQ(pieces(*input, 4), "abc<>def<>gh\n<>ij\n<>");
}

TEST_F(InputTest, lineThatJustFitsKeepsItsLineFeedInTheSamePiece) {
  Input* input = openWith("abc\r\ndefg\r\n", InputKind::text);
  EXPECT_EQ(pieces(*input, 5), "abc\n<>defg<>\n<>");
}

TEST_F(InputTest, lastLineWithoutLineFeedIsRead) {
  Input* input = openWith("abc\r\nde", InputKind::text);
  EXPECT_EQ(pieces(*input, 90), "abc\n<>de<>");
}

TEST_F(InputTest, loneCrIsKept) {
  Input* input = openWith("a\rb\r\r\nc\r", InputKind::text);
  EXPECT_EQ(pieces(*input, 90), "a\rb\r\n<>c\r<>");
}

TEST_F(InputTest, ctrlZEndsATextFileAndIsAByteOfABinaryOne) {
  Input* text = openWith(
      "ab\r\nc\x1a"
      "d\r\n",
      InputKind::text);
  EXPECT_EQ(pieces(*text, 90), "ab\n<>c<>");
  char piece[10] = "left";
  EXPECT_FALSE(inputReadPiece(*text, piece, 10));
  EXPECT_STREQ(piece, "left");
  inputClose(text);
  Input* binary = inputOpen(fileName, InputKind::binary);
  char bytes[9];
  ASSERT_TRUE(inputRead(*binary, bytes, 9));
  EXPECT_EQ(std::string(bytes, 9),
            "ab\r\nc\x1a"
            "d\r\n");
}

TEST_F(InputTest, rewindStartsAgainAfterTheEndOrACtrlZ) {
  for (const char* bytes : {"ab\r\n", "ab\r\n\x1a"}) {
    Input* input = openWith(bytes, InputKind::text);
    EXPECT_EQ(pieces(*input, 90), "ab\n<>");
    ASSERT_TRUE(inputRewind(*input));
    EXPECT_EQ(pieces(*input, 90), "ab\n<>");
    ASSERT_TRUE(inputSeekStart(*input));
    EXPECT_EQ(pieces(*input, 90), "ab\n<>");
    inputClose(input);
  }
}

TEST_F(InputTest, sizeIsToldAtTheEnd) {
  Input* input = openWith(std::string(100000, 'x'), InputKind::binary);
  char header[24];
  ASSERT_TRUE(inputRead(*input, header, 24));
  EXPECT_EQ(inputTell(*input), 24);
  ASSERT_TRUE(inputSeekEnd(*input));
  EXPECT_EQ(inputTell(*input), 100000);
  EXPECT_FALSE(inputRead(*input, header, 1));
  ASSERT_TRUE(inputSeekStart(*input));
  EXPECT_TRUE(inputRead(*input, header, 24));
}

TEST_F(InputTest, recordsArriveWholeWhateverTheirNumber) {
  std::mt19937 random(8);
  for (const std::size_t count : {0, 1, 2, 496, 497, 498, 5000}) {
    const std::string header = randomText(random, 24, "header");
    const std::string records = randomText(random, count * 132, "abc\r\n\x1a");
    for (const std::size_t extra : {0, 1, 131}) {
      Input* input = openWith(header + records + std::string(extra, '#'), InputKind::binary);
      std::vector<char> block((count + 2) * 132, 0);
      char read[24];
      ASSERT_TRUE(inputRead(*input, read, 24));
      EXPECT_EQ(std::string(read, 24), header);
      EXPECT_EQ(inputReadRecords(*input, block.data(), 132, count + 1), count);
      EXPECT_EQ(std::string(block.data(), count * 132), records);
      EXPECT_EQ(std::string(block.data() + count * 132, 264), std::string(264, '\0'));  // nothing of the half record stays
      inputClose(input);
    }
  }
}

TEST_F(InputTest, shortHeaderIsNotRead) {
  char header[24];
  EXPECT_FALSE(inputRead(*openWith(std::string(23, 'x'), InputKind::binary), header, 24));
  EXPECT_FALSE(inputRead(*openWith("", InputKind::binary), header, 24));
}

TEST_F(InputTest, fail_readOfARecordPassesOverIt) {
  for (std::size_t number = 1; number <= 1002; ++number) {
    if (number > 10 && number < 990) continue;
    std::string bytes;
    for (int i = 0; i < 1000; ++i) bytes += std::string(131, static_cast<char>('a' + i % 26)) + '.';
    Input* input = openWith(bytes, InputKind::binary);
    faultsReset();
    faultsArm(Fault::read, number, false);
    std::vector<char> block(1000 * 132, '?');
    const std::size_t read = inputReadRecords(*input, block.data(), 132, 1000);
    const std::size_t expected = number <= 1000 ? number - 1 : 1000;
    ASSERT_EQ(read, expected);
    EXPECT_EQ(std::string(block.data(), read * 132), bytes.substr(0, read * 132));
    EXPECT_EQ(faultUses(Fault::read), number <= 1000 ? number : 1000);
    if (read < 1000) {
      EXPECT_EQ(std::string(block.data() + read * 132, 132), std::string(132, '\0'));
      char next[132];
      EXPECT_EQ(inputRead(*input, next, 132), number < 1000);  // what follows the failed one
      if (number < 1000) {
        EXPECT_EQ(std::string(next, 132), bytes.substr(number * 132, 132));
      }
    }
    inputClose(input);
  }
}

TEST_F(InputTest, fileThatShrinksMeanwhileGivesTheRecordsThatAreLeftAndZerosBehindThem) {
  constexpr std::size_t size = 132, count = 2000;
  Input* input = openWith(std::string(size * count, 'x'), InputKind::binary);
  ASSERT_TRUE(inputSeekEnd(*input));
  EXPECT_EQ(inputTell(*input), static_cast<std::int64_t>(size * count));
  ASSERT_TRUE(inputSeekStart(*input));
  std::filesystem::resize_file(fileName, size * 700 + 60);  // by another program, between the count and the read
  std::string block(size * (count + 1), '\0');
  EXPECT_EQ(inputReadRecords(*input, block.data(), size, count), 700u);
  EXPECT_TRUE(block == std::string(size * 700, 'x') + std::string(size * (count + 1 - 700), '\0'));
  inputClose(input);
}

TEST_F(InputTest, bytesArePassedOverUpToTheEndOfTheFile) {
  for (const std::size_t skipped :
       {std::size_t{0}, std::size_t{36}, std::size_t{65535}, std::size_t{65536}, std::size_t{199999}}) {
    std::string bytes(200000, 'x');
    bytes[skipped] = 'y';
    Input* input = openWith(bytes, InputKind::binary);
    const std::size_t reads = faultUses(Fault::read);
    ASSERT_TRUE(inputSkip(*input, static_cast<std::int64_t>(skipped)));
    EXPECT_EQ(faultUses(Fault::read), reads);  // nobody asked for what was passed over
    char next = 0;
    ASSERT_TRUE(inputRead(*input, &next, 1));
    EXPECT_EQ(next, 'y') << skipped;
    EXPECT_FALSE(inputSkip(*input, 200000));
    EXPECT_FALSE(inputRead(*input, &next, 1));
    EXPECT_FALSE(inputSkip(*input, -1));
    inputClose(input);
  }
}

TEST_F(InputTest, fail_readOfAPiecePassesOverIt) {
  Input* input = openWith("one\r\ntwo\r\nthree\r\n", InputKind::text);
  faultsArm(Fault::read, 2, false);
  char piece[90];
  ASSERT_TRUE(inputReadPiece(*input, piece, sizeof piece));
  std::size_t length = 0;
  EXPECT_FALSE(inputReadPiece(*input, piece, sizeof piece, &length));
  EXPECT_EQ(length, 4u);  // "two" and its line feed were passed over, which tells the fault from the end
  EXPECT_STREQ(piece, "one\n");
  ASSERT_TRUE(inputReadPiece(*input, piece, sizeof piece));
  EXPECT_STREQ(piece, "three\n");
  EXPECT_FALSE(inputReadPiece(*input, piece, sizeof piece, &length));
  EXPECT_EQ(length, 0u);
  EXPECT_EQ(faultUses(Fault::read), 4u);
}

TEST_F(InputTest, fail_seekTellAndRewindAreTold) {
  Input* input = openWith("abc", InputKind::binary);
  faultsArm(Fault::seek, 1, true);
  EXPECT_FALSE(inputSeekEnd(*input));
  EXPECT_FALSE(inputSeekStart(*input));
  faultsClear();
  faultsArm(Fault::tell, faultUses(Fault::tell) + 1, true);
  EXPECT_EQ(inputTell(*input), -1);
  faultsClear();
  faultsArm(Fault::rewind, faultUses(Fault::rewind) + 1, true);
  EXPECT_FALSE(inputRewind(*input));
}

TEST_F(InputTest, closeAllClosesEveryOpenInput) {
  Input* first = openWith("abc", InputKind::binary);
  ASSERT_NE(inputOpen(fileName, InputKind::text), nullptr);
  ASSERT_NE(inputOpen(fileName, InputKind::text), nullptr);
  inputClose(first);
  inputCloseAll();
  inputCloseAll();
  EXPECT_NE(inputOpen(fileName, InputKind::binary), nullptr);
}

TEST_F(InputTest, holderIsNullOnceItsInputIsClosedByWhoever) {
  Input* mine = openWith("abc", InputKind::binary);
  Input* other = inputOpen(fileName, InputKind::text);
  inputHold(mine);
  inputHold(other);
  inputClose(other);
  EXPECT_EQ(other, nullptr);
  ASSERT_NE(mine, nullptr);
  inputCloseAll();
  EXPECT_EQ(mine, nullptr);
}

TEST_F(InputTest, holderThatTookASecondInputKeepsItWhenTheFirstIsClosed) {
  Input* holder = openWith("abc", InputKind::binary);
  Input* const first = holder;
  inputHold(holder);
  holder = inputOpen(fileName, InputKind::binary);
  Input* const second = holder;
  inputHold(holder);
  inputClose(first);
  EXPECT_EQ(holder, second);
  inputCloseAll();
  EXPECT_EQ(holder, nullptr);
}

TEST_F(InputTest, holderOfNothingIsLeftAlone) {
  Input* holder = inputOpen("NOWHERE.BIN", InputKind::binary);
  inputHold(holder);
  inputCloseAll();
  EXPECT_EQ(holder, nullptr);
}

}  // namespace quillon
