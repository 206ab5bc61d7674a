// Each conversion against the text written out, with the widths counted.
#include "text/print.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>

#include "formed.h"

namespace quillon {

using std::string_literals::operator""s;

template <std::size_t N>
static TextField<N> fieldOf(const char* text) {
  TextField<N> field;
  fieldSet(field, text);
  return field;
}

TEST(Print, lineFeedOfTheFormatLeavesAsCrLf) { EXPECT_EQ(printed<"a\n\nb\n">(), "a\r\n\r\nb\r\n"); }

TEST(Print, lineFeedOfAValueLeavesAsCrLfAndCountsAsOneCharacter) {
  EXPECT_EQ(printed<"%5s|">("a\nb"), "  a\r\nb|");
  EXPECT_EQ(printed<"%-5s|">("a\nb"), "a\r\nb  |");
  EXPECT_EQ(printed<"%5s|">(fieldOf<12>("a\nb")), "  a\r\nb|");
  EXPECT_EQ(printed<"%-5s|">(fieldOf<40>("a\nb")), "a\r\nb  |");
  EXPECT_EQ(printed<"%3c|">('\n'), "  \r\n|");
}

TEST(Print, carriageReturnOfAValueStaysOne) { EXPECT_EQ(printed<"%s%c">("a\rb", '\r'), "a\rb\r"); }

TEST(Print, percentBeforeWhatIsNoConversionVanishes) {
  EXPECT_EQ(printed<"%1c%\n">('|'), "|\r\n");
  EXPECT_EQ(printed<"50%|%-5|">(), "50||");
  EXPECT_EQ(printed<"%">(), "");
  EXPECT_EQ(printed<"a%">(), "a");
  EXPECT_EQ(printed<"%%d %5%">(), "%d %");
}

TEST(Print, farPrefixHasNoEffect) {
  EXPECT_EQ(printed<"%10Fld|%-15Fs|%Fd|%Fhd|">(7, "abc", 12, 13), "         7|abc            |12|13|");
}

TEST(Print, characters) {
  EXPECT_EQ(printed<"%c%1c%6c%-6c|">('a', 'b', 'c', 'd'), "ab     cd     |");
  EXPECT_EQ(printed<"%c%2lc">(124, 32), "|  ");
  EXPECT_EQ(printed<"%c">(12), "\f");
}

TEST(Print, characterZeroIsANulByte) { EXPECT_EQ(printed<"a%cb%2lcc">(0, 0), "a\0b \0c"s); }

TEST(Print, missingCharacterLeavesItsCellEmpty) {
  const SmallText<1> missing = {}, letter = {1, {'A'}}, lineFeed = {1, {'\n'}};
  EXPECT_EQ(printed<"|%c|%c|">(missing, letter), "||A|");
  EXPECT_EQ(printed<"|%3c|%-3c|%3c|%-3c|">(missing, missing, letter, letter), "|   |   |  A|A  |");
  EXPECT_EQ(printed<"%c">(lineFeed), "\r\n");
}

TEST(Print, highCharacterIsItsByte) { EXPECT_EQ(printed<"%c%c%s">('\xe9', 0xe9, "\xe9"), "\xe9\xe9\xe9"); }

TEST(Print, wholeNumbersKeepTheirWidthOrGrowBeyondIt) {
  EXPECT_EQ(printed<"%4ld|%4ld|%4ld|%4ld|">(7, 1234, 12345, -123), "   7|1234|12345|-123|");
  EXPECT_EQ(printed<"%4ld|%2d|%1d|">(-1234, -1, 10), "-1234|-1|10|");
  EXPECT_EQ(printed<"%02d:%02d:%02d">(9, 15, 100), "09:15:100");
  EXPECT_EQ(printed<"%02d|%02d">(-5, -50), "-5|-50");
  EXPECT_EQ(printed<"%-3d|%-3d|%-3d|">(1, -22, 12345), "1  |-22|12345|");
}

TEST(Print, numbersOf64Bits) {
  EXPECT_EQ(printed<"%17I64d|">(std::int64_t{1234567890123456}), " 1234567890123456|");
  EXPECT_EQ(printed<"%I64d">(std::numeric_limits<std::int64_t>::min()), "-9223372036854775808");
  EXPECT_EQ(printed<"%0.2I64d">(std::int64_t{5}), "05");
  EXPECT_EQ(printed<"%0.2I64d">(std::int64_t{-5}), "-05");
  EXPECT_EQ(printed<"%0.2I64d">(std::int64_t{500}), "500");
}

TEST(Print, shortNumberKeepsTheLowerSixteenBits) { EXPECT_EQ(printed<"%hd|%02hd">(70000, 7), "4464|07"); }

TEST(Print, unsignedNumberOf32BitsPrintsAsSigned) { EXPECT_EQ(printed<"%ld">(4294967295u), "-1"); }

TEST(Print, textIsCutByThePrecisionAlone) {
  EXPECT_EQ(printed<"%3s|%.2s|%5.2s|%-5.2s|">("abcdef", "abcdef", "abcdef", "abcdef"), "abcdef|ab|   ab|ab   |");
}

TEST(Print, fieldWithoutNulIsBoundedByItsWidth) {
  struct {
    TextField<5> field;
    char behind[4];
  } record = {{{'A', 'B', 'C', 'D', 'E'}}, {'x', 'x', 'x', 'x'}};
  EXPECT_EQ(printed<"%7s|%s">(record.field, record.field), "  ABCDE|ABCDE");
}

TEST(Print, textEndsAtItsNul) {
  EXPECT_EQ(printed<"%s|">(std::string_view("ab\0cd", 5)), "ab|");
  EXPECT_EQ(printed<"%s|">("ab\0cd"s), "ab|");
  EXPECT_EQ(printed<"%4s|">(TextField<8>{{'a', 'b', 0, 'c'}}), "  ab|");
  EXPECT_EQ(printed<"%-4s|">(TextField<8>{{'a', 'b', 0, 'c'}}), "ab  |");
}

TEST(Print, everyFieldWidthAndLengthOnBothSides) {
  const auto check = []<std::size_t N>(std::integral_constant<std::size_t, N>) {
    for (std::size_t size = 0; size <= N; ++size) {
      TextField<N> field;
      std::memset(field.bytes, '#', N);
      for (std::size_t i = 0; i < size; ++i) field.bytes[i] = static_cast<char>('a' + i);
      if (size < N) field.bytes[size] = '\0';
      const std::string text(field.bytes, size);
      EXPECT_EQ((printed<"[%s]%c">(field, '.')), byLibrary("[%s].", text.c_str()));
      EXPECT_EQ((printed<"[%6s]%c">(field, '.')), byLibrary("[%6s].", text.c_str()));
      EXPECT_EQ((printed<"[%-6s]%c">(field, '.')), byLibrary("[%-6s].", text.c_str()));
      EXPECT_EQ((printed<"[%11s]%c">(field, '.')), byLibrary("[%11s].", text.c_str()));
      EXPECT_EQ((printed<"[%-11s]%c">(field, '.')), byLibrary("[%-11s].", text.c_str()));
      EXPECT_EQ((printed<"[%24s]%c">(field, '.')), byLibrary("[%24s].", text.c_str()));
      EXPECT_EQ((printed<"[%-24s]%c">(field, '.')), byLibrary("[%-24s].", text.c_str()));
      EXPECT_EQ((printed<"[%9.4s]%c">(field, '.')), byLibrary("[%9.4s].", text.c_str()));
    }
  };
  [&]<std::size_t... I>(std::index_sequence<I...>) { (check(std::integral_constant<std::size_t, I + 1>()), ...); }
  (std::make_index_sequence<22>());
}

TEST(Print, fieldOfAPackedRecordStandsAsItIs) {
#pragma pack(push, 1)
  struct {
    char kind = 'N';
    std::int32_t number = -77;
    TextField<3> text = {{'a', 'b', 'c'}};
    double value = 0.125;
    std::int64_t large = 1;
  } record;
#pragma pack(pop)
  EXPECT_EQ(printed<"%c%5ld%4s%7.2f%2I64d">(record.kind, record.number, record.text, record.value, record.large),
            "N  -77 abc   0.12 1");
}

TEST(Print, textLongerThanTheBufferComesOutWhole) {
  std::string lines;
  std::string expected;
  for (int i = 0; i < 100000; ++i) {
    lines += "0123456789\n";
    expected += "0123456789\r\n";
  }
  EXPECT_EQ(printed<"<%s>\n">(lines), "<" + expected + ">\r\n");
}

TEST(Print, manyRowsCrossTheEndOfTheBufferWhole) {
  std::string text;
  std::string expected;
  Output* output = outputToMemory(&text);
  for (int i = 0; i < 30000; ++i) {
    print<"|%9ld|%-12s|%12.2f|\n">(*output, i, "row", i / 4.0);
    expected += byLibrary("|%9d|%-12s|%12.2f|\r\n", i, "row", i / 4.0);
  }
  EXPECT_TRUE(outputClose(output));
  EXPECT_EQ(text, expected);
}

TEST(FormatText, keepsLineFeedsAsTheyAre) { EXPECT_EQ(formatText<"MemberId=%ld\n%s">(7, "a\nb"), "MemberId=7\na\nb"); }

TEST(FormatCell, goesIntoARowAsItsText) {
  EXPECT_EQ((printed<"|%18s|">(formatCell<"%12I64d.%02ld">(std::int64_t{12345}, 7))), "|          12345.07|");
  EXPECT_EQ(formatCell<"%d/%ld">(std::int16_t{2009}, 15).view(), "2009/15");
}

}  // namespace quillon
