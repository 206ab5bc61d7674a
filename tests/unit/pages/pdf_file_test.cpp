// The PDF's bytes, its compressor, and writes that fail. What other programs make of the file is seen in tests/pages.
#include "pages/pdf_file.h"

#include <gtest/gtest.h>
#include <zlib.h>

#include <random>

#include "pages/deflate.h"

namespace quillon {
namespace {

// ---- The compressor ---------------------------------------------------------------------------------------------------

std::string inflatedByTheLibrary(const std::string& packed, std::size_t size) {
  std::string out(size + 1, '\0');
  uLongf got = out.size();
  EXPECT_EQ(
      uncompress(reinterpret_cast<Bytef*>(out.data()), &got, reinterpret_cast<const Bytef*>(packed.data()), packed.size()),
      Z_OK);
  out.resize(got);
  return out;
}

void expectSame(const std::string& bytes) {
  EXPECT_TRUE(inflatedByTheLibrary(deflated(bytes), bytes.size()) == bytes) << bytes.size();
}

TEST(Deflated, everyByteAndNothing) {
  expectSame("");
  expectSame("a");
  std::string all;
  for (int byte = 0; byte < 256; ++byte) all += static_cast<char>(byte);
  expectSame(all);
  expectSame(all + all);
}

TEST(Deflated, matchesOfEveryLength) {
  for (std::size_t length = 0; length < 600; ++length) expectSame("begin" + std::string(length, 'x') + "end");
}

TEST(Deflated, matchesOfEveryDistance) {
  std::mt19937 random(1);
  for (std::size_t distance = 3; distance < 40000; distance += distance / 3) {
    std::string text = "the repeated";
    while (text.size() < distance) text += static_cast<char>(random());
    expectSame(text + "the repeated");
  }
}

TEST(Deflated, matchesAtTheFarthestDistanceAndOneBeyond) {
  for (const std::size_t distance : {32767u, 32768u, 32769u}) {
    std::string text = "the repeated";
    for (std::size_t i = 0; text.size() < distance; ++i) text += static_cast<char>((i * 7919) >> 5);
    expectSame(text + "the repeated");
  }
}

TEST(Deflated, textsOfFewLetters) {
  std::mt19937 random(2);
  for (int run = 0; run < 300; ++run) {
    std::string text;
    const unsigned letters = 1 + random() % 4;
    for (std::size_t i = random() % 5000; i > 0; --i) text += static_cast<char>('a' + random() % letters);
    expectSame(text);
  }
}

TEST(Deflated, moreThanOneBlock) { expectSame(std::string((std::size_t{1} << 24) + 5, 'q')); }

TEST(Deflated, blanksBecomeSmall) { EXPECT_LT(deflated(std::string(10000, ' ')).size(), 100u); }

// ---- The file ---------------------------------------------------------------------------------------------------------

struct Sunk {
  std::string bytes;
  std::size_t room = ~std::size_t{0};
  int writesAfterFailure = 0;
  bool failed = false;
};

bool sink(void* to, std::string_view bytes) {
  Sunk& sunk = *static_cast<Sunk*>(to);
  if (sunk.failed) ++sunk.writesAfterFailure;
  sunk.failed = sunk.failed || sunk.bytes.size() + bytes.size() > sunk.room;
  if (!sunk.failed) sunk.bytes += bytes;
  return !sunk.failed;
}

PdfOutcome made(Sunk& sunk, std::string_view report, std::string_view title = "TRADES.TXT", std::size_t first = 0,
                std::size_t last = mostPages, const FitWishes& wishes = {}) {
  PageIndex index = pageIndexStart();
  pageIndexFinish(index, report);
  return pdfReport({sink, &sunk}, index, report, first, last, wishes, title);
}

std::string pdfOf(std::string_view report, std::string_view title = "TRADES.TXT") {
  Sunk sunk;
  EXPECT_EQ(made(sunk, report, title), PdfOutcome::written);
  return sunk.bytes;
}

// The contents of the file's pages, unpacked.
std::vector<std::string> contents(const std::string& pdf) {
  std::vector<std::string> found;
  for (std::size_t at = pdf.find(">>\nstream\n"); at != std::string::npos; at = pdf.find(">>\nstream\n", at + 1)) {
    const std::size_t begin = at + 10;
    found.push_back(inflatedByTheLibrary(pdf.substr(begin, pdf.find("\nendstream", begin) - begin), 1000000));
  }
  return found;
}

TEST(PdfFile, thePageOfAReport) {
  const std::vector<std::string> pages = contents(pdfOf("a (1) \\ \xE9\r\n\r\n  b\r\n\f"));
  ASSERT_EQ(pages.size(), 1u);
  // 841.89 - 28.346 - 0.8 * 12 = 803.944
  EXPECT_EQ(pages[0], "BT\n/F1 12.0 Tf\n14.400 TL\n28.35 803.94 Td\n(a \\(1\\) \\\\ \xE9)Tj T*\nT*\n(  b)Tj T*\nET\n");
}

TEST(PdfFile, everyCharacterStandsInThePageAsItsByte) {
  std::string report = "|";
  std::string wanted = "(|";
  for (int byte = 1; byte < 256; ++byte) {
    const char c = static_cast<char>(byte);
    if (byte == '\n' || byte == '\r' || byte == '\f' || byte == '\t') continue;
    report += c;
    const bool blank =
        byte < ' ' || byte == 0x7F || byte == 0x81 || byte == 0x8D || byte == 0x8F || byte == 0x90 || byte == 0x9D;
    if (c == '(' || c == ')' || c == '\\') wanted += '\\';
    wanted += blank ? ' ' : c;
  }
  const std::vector<std::string> pages = contents(pdfOf(report));
  ASSERT_EQ(pages.size(), 1u);
  EXPECT_NE(pages[0].find("Td\n" + wanted + ")Tj T*\nET\n"), std::string::npos);
  EXPECT_NE(pdfOf("a").find("/Encoding /WinAnsiEncoding"), std::string::npos);
}

// The table of positions has ten digits. A file that would need more is given up, and what was written is told to be no PDF.
TEST(PdfFile, aFileOfMoreThanTenDigitsIsGivenUp) {
  Sunk sunk;
  PageFit fit;
  ASSERT_TRUE(pageFit(1, 1, {}, fit));
  PdfFile pdf = pdfBegin({sink, &sunk}, fit, "t", 0);
  const std::uint64_t begun = pdf.position;
  ASSERT_TRUE(pdfAddPage(pdf, "a", {{0, 1}}));
  const std::uint64_t page = pdf.position - begun;
  pdf.position = 9999999999 - page;
  EXPECT_TRUE(pdfAddPage(pdf, "a", {{0, 1}}));
  EXPECT_EQ(pdf.position, 9999999999u);
  EXPECT_FALSE(pdfAddPage(pdf, "a", {{0, 1}}));
  EXPECT_FALSE(pdfEnd(pdf));
}

TEST(PdfFile, anEmptyPageIsASheet) {
  const std::vector<std::string> pages = contents(pdfOf("a\f\fb"));
  ASSERT_EQ(pages.size(), 3u);
  EXPECT_EQ(pages[1], "BT\n/F1 12.0 Tf\n14.400 TL\n28.35 803.94 Td\nET\n");
}

// The file without what its pages hold, of which the length stays open.
std::string skeleton(std::string pdf) {
  for (std::size_t at = pdf.find("stream\n"); at != std::string::npos; at = pdf.find(">>\nstream\n", at)) {
    at = pdf.find("stream\n", at) + 7;
    pdf.erase(at, pdf.find("\nendstream", at) - at);
  }
  for (std::size_t at = 0; (at = pdf.find("/Length ", at)) != std::string::npos;) {
    at += 8;
    while (pdf[at] >= '0' && pdf[at] <= '9') pdf.erase(at, 1);
  }
  return pdf;
}

TEST(PdfFile, everythingThatStandsAroundThePages) {
  const std::string pdf = skeleton(pdfOf("a\fb"));
  const std::size_t table = pdf.find("xref\n");
  EXPECT_EQ(pdf.substr(0, table),
            "%PDF-1.4\n%\xE2\xE3\xCF\xD3\n"
            "5 0 obj\n<< /Type /Page /Parent 2 0 R /Contents 6 0 R >>\nendobj\n"
            "6 0 obj\n<< /Length  /Filter /FlateDecode >>\nstream\n\nendstream\nendobj\n"
            "7 0 obj\n<< /Type /Page /Parent 2 0 R /Contents 8 0 R >>\nendobj\n"
            "8 0 obj\n<< /Length  /Filter /FlateDecode >>\nstream\n\nendstream\nendobj\n"
            "1 0 obj\n<< /Type /Catalog /Pages 2 0 R /PageLabels << /Nums [0 << /S /D /St 1 >>] >>\n"
            "/ViewerPreferences << /DisplayDocTitle true >> >>\nendobj\n"
            "2 0 obj\n<< /Type /Pages /Count 2 /MediaBox [0 0 595.28 841.89]\n"
            "/Resources << /Font << /F1 3 0 R >> >>\n/Kids [\n5 0 R 7 0 R] >>\nendobj\n"
            "3 0 obj\n<< /Type /Font /Subtype /Type1 /BaseFont /Courier /Encoding /WinAnsiEncoding >>\nendobj\n"
            "4 0 obj\n<< /Title (TRADES.TXT) >>\nendobj\n");
  const std::string whole = pdfOf("a\fb");
  EXPECT_EQ(pdf.substr(pdf.find("trailer")),
            "trailer\n<< /Size 9 /Root 1 0 R /Info 4 0 R >>\nstartxref\n" + std::to_string(whole.find("xref\n")) + "\n%%EOF\n");
}

TEST(PdfFile, tenPagesALineInTheListOfPages) {
  const std::string pdf = pdfOf("\f\f\f\f\f\f\f\f\f\f\f");
  EXPECT_NE(pdf.find("/Kids [\n5 0 R 7 0 R 9 0 R 11 0 R 13 0 R 15 0 R 17 0 R 19 0 R 21 0 R 23 0 R\n25 0 R] >>\n"),
            std::string::npos);
}

TEST(PdfFile, theLengthOfAPageIsThatOfItsBytes) {
  const std::string pdf = pdfOf(std::string(3000, 'a') + "b");
  const std::size_t begin = pdf.find("stream\n") + 7;
  EXPECT_EQ(std::stoul(pdf.substr(pdf.find("/Length ") + 8)), pdf.find("\nendstream") - begin);
}

TEST(PdfFile, everyPositionOfTheTableLeadsToItsObject) {
  const std::string pdf = pdfOf("a\fb\fc\f");
  const std::size_t table = std::stoul(pdf.substr(pdf.find("startxref\n") + 10));
  ASSERT_EQ(pdf.substr(table, 10), "xref\n0 11\n");
  ASSERT_EQ(pdf.substr(table + 10, 20), "0000000000 65535 f \n");
  for (std::size_t object = 1; object < 11; ++object) {
    const std::string entry = pdf.substr(table + 10 + 20 * object, 20);
    EXPECT_EQ(entry.substr(10), " 00000 n \n");
    EXPECT_EQ(entry.find_first_not_of("0123456789"), 10u);
    const std::string begin = std::to_string(object) + " 0 obj\n";
    EXPECT_EQ(pdf.substr(std::stoul(entry.substr(0, 10)), begin.size()), begin);
  }
}

TEST(PdfFile, sameReportSameBytes) { EXPECT_EQ(pdfOf("a\fb\n"), pdfOf("a\fb\n")); }

TEST(PdfFile, titles) {
  EXPECT_NE(pdfOf("a", "A (1).TXT").find("/Title (A \\(1\\).TXT)"), std::string::npos);
  EXPECT_NE(pdfOf("a", "\xC3\xA9").find("/Title <FEFF00E9>"), std::string::npos);
  EXPECT_NE(pdfOf("a", "\xF0\x9F\x98\x80").find("/Title <FEFFD83DDE00>"), std::string::npos);
  EXPECT_NE(pdfOf("a", "\xE9").find("/Title <FEFF00E9>"), std::string::npos);  // no UTF-8: Windows-1252
  EXPECT_NE(pdfOf("a", " ~").find("/Title ( ~)"), std::string::npos);
  EXPECT_NE(pdfOf("a", "\x7F").find("/Title <FEFF007F>"), std::string::npos);
  EXPECT_NE(pdfOf("a", "\xC4\xA3\xE4\x95\xA7\xE8\xA6\xAB\xEC\xB7\xAF").find("/Title <FEFF0123456789ABCDEF>"),
            std::string::npos);
  EXPECT_NE(pdfOf("a", "").find("/Title ()"), std::string::npos);
  EXPECT_NE(pdfOf("a", "a\nb").find("/Title <FEFF0061000A0062>"), std::string::npos);
}

TEST(PdfFile, aRangeIsLabelledByItsNumbersInTheReport) {
  Sunk sunk;
  EXPECT_EQ(made(sunk, "a\fb\fc\fd", "t", 1, 2), PdfOutcome::written);
  EXPECT_NE(sunk.bytes.find("/Nums [0 << /S /D /St 2 >>]"), std::string::npos);
  EXPECT_NE(sunk.bytes.find("/Count 2 "), std::string::npos);
  EXPECT_EQ(contents(sunk.bytes).size(), 2u);
}

TEST(PdfFile, aReportWithoutPagesAndARangeBehindTheEndAreNothingToPrint) {
  Sunk sunk;
  EXPECT_EQ(made(sunk, ""), PdfOutcome::nothingToPrint);
  EXPECT_EQ(made(sunk, "a\fb", "t", 2, 5), PdfOutcome::nothingToPrint);
  EXPECT_EQ(made(sunk, "a\fb", "t", 1, 0), PdfOutcome::nothingToPrint);
  EXPECT_EQ(sunk.bytes, "");
}

TEST(PdfFile, marginsWithoutRoomWriteNothing) {
  Sunk sunk;
  FitWishes wishes;
  wishes.margins = {500, 500, 500, 500};
  EXPECT_EQ(made(sunk, "a", "t", 0, 0, wishes), PdfOutcome::noRoomOnSheet);
  EXPECT_EQ(sunk.bytes, "");
}

TEST(PdfFile, aWriteThatFailsIsToldWhereverItHappens) {
  const std::string report = "a\fb\fc";
  const std::size_t whole = pdfOf(report).size();
  for (std::size_t room = 0; room < whole; ++room) {
    Sunk sunk;
    sunk.room = room;
    ASSERT_EQ(made(sunk, report), PdfOutcome::writeFailed) << room;
    ASSERT_EQ(sunk.writesAfterFailure, 0) << room;
  }
  Sunk sunk;
  sunk.room = whole;
  EXPECT_EQ(made(sunk, report), PdfOutcome::written);
}

TEST(PdfFile, aFileWithoutPagesIsNone) {
  Sunk sunk;
  PageFit fit;
  ASSERT_TRUE(pageFit(1, 1, {}, fit));
  PdfFile pdf = pdfBegin({sink, &sunk}, fit, "t", 0);
  EXPECT_FALSE(pdfEnd(pdf));
}

}  // namespace
}  // namespace quillon
