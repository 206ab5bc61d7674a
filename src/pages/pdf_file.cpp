#include "pages/pdf_file.h"

#include <algorithm>

#include "pages/deflate.h"
#include "text/encoding.h"
#include "text/print.h"

namespace quillon {

// Objects are numbered: four of the file, then two a page.
static constexpr std::size_t catalogObject = 1;
static constexpr std::size_t pagesObject = 2;
static constexpr std::size_t fontObject = 3;
static constexpr std::size_t titleObject = 4;
static constexpr std::size_t firstPageObject = 5;
static constexpr std::uint64_t farthestPosition = 9999999999;  // what the table of positions has digits for
static constexpr double baseline = 0.8;                        // of the font's size below the upper edge of a line

static std::int64_t number(std::uint64_t value) { return static_cast<std::int64_t>(value); }

static std::size_t pageObject(std::size_t page) { return firstPageObject + 2 * page; }

static void put(PdfFile& pdf, std::string_view text) {
  if (pdf.failed) return;
  pdf.failed = !pdf.sink.write(pdf.sink.to, text);
  pdf.position += text.size();
  pdf.failed = pdf.failed || pdf.position > farthestPosition;
}

// ---- Texts ------------------------------------------------------------------------------------------------------------

static void appendLiteral(std::string& out, std::string_view text) {
  out += '(';
  for (const char c : text) {
    if (c == '(' || c == ')' || c == '\\') out += '\\';
    out += c;
  }
  out += ')';
}

static std::string titleText(std::string_view title) {
  std::string text;
  const bool plain = std::all_of(title.begin(), title.end(), [](char c) { return c >= ' ' && c <= '~'; });
  if (plain) {
    appendLiteral(text, title);
    return text;
  }
  static constexpr char digits[] = "0123456789ABCDEF";
  text = "<FEFF";
  for (const char16_t unit : utf16FromUtf8(title)) {
    for (int shift = 12; shift >= 0; shift -= 4) text += digits[unit >> shift & 15];
  }
  return text + ">";
}

// ---- The file ---------------------------------------------------------------------------------------------------------

PdfFile pdfBegin(const PdfSink& sink, const PageFit& fit, std::string_view title, std::size_t firstPage) {
  PdfFile pdf;
  pdf.sink = sink;
  pdf.fit = fit;
  pdf.title = title;
  pdf.firstPage = firstPage;
  put(pdf, "%PDF-1.4\n%\xE2\xE3\xCF\xD3\n");  // bytes above 127 tell programs that the file is not text
  return pdf;
}

static std::string pageContent(const PageFit& fit, std::string_view bytes, const std::vector<PageLine>& lines) {
  const double top = fit.height - fit.top - baseline * fit.fontSize;
  std::string content = formatText<"BT\n/F1 %.1f Tf\n%.3f TL\n%.2f %.2f Td\n">(fit.fontSize, fit.lineHeight, fit.left, top);
  for (const PageLine& line : lines) {
    const std::string shown = pageLineShown(bytes, line);
    if (shown.find_first_not_of(' ') != std::string::npos) {
      appendLiteral(content, shown);
      content += "Tj ";
    }
    content += "T*\n";
  }
  return content + "ET\n";
}

bool pdfAddPage(PdfFile& pdf, std::string_view bytes, const std::vector<PageLine>& lines) {
  const std::size_t object = pageObject(pdf.pageObjects.size());
  pdf.pageObjects.push_back(pdf.position);
  put(pdf, formatText<"%I64d 0 obj\n<< /Type /Page /Parent %I64d 0 R /Contents %I64d 0 R >>\nendobj\n">(
               number(object), number(pagesObject), number(object + 1)));
  const std::string content = deflated(pageContent(pdf.fit, bytes, lines));
  pdf.contentObjects.push_back(pdf.position);
  put(pdf, formatText<"%I64d 0 obj\n<< /Length %I64d /Filter /FlateDecode >>\nstream\n">(number(object + 1),
                                                                                         number(content.size())));
  put(pdf, content);
  put(pdf, "\nendstream\nendobj\n");
  return !pdf.failed;
}

static void putCatalog(PdfFile& pdf) {
  put(pdf, formatText<"%I64d 0 obj\n<< /Type /Catalog /Pages %I64d 0 R /PageLabels << /Nums [0 << /S /D /St %I64d >>] >>\n">(
               number(catalogObject), number(pagesObject), number(pdf.firstPage + 1)));
  put(pdf, "/ViewerPreferences << /DisplayDocTitle true >> >>\nendobj\n");
}

static void putPageTree(PdfFile& pdf) {
  const std::size_t pages = pdf.pageObjects.size();
  put(pdf, formatText<"%I64d 0 obj\n<< /Type /Pages /Count %I64d /MediaBox [0 0 %.2f %.2f]\n">(
               number(pagesObject), number(pages), pdf.fit.width, pdf.fit.height));
  put(pdf, formatText<"/Resources << /Font << /F1 %I64d 0 R >> >>\n/Kids [">(number(fontObject)));
  for (std::size_t page = 0; page < pages; ++page) {
    put(pdf, formatText<"%s%I64d 0 R">(page % 10 ? " " : "\n", number(pageObject(page))));
  }
  put(pdf, "] >>\nendobj\n");
}

static void putFont(PdfFile& pdf) {
  put(pdf, formatText<"%I64d 0 obj\n<< /Type /Font /Subtype /Type1 /BaseFont /Courier /Encoding /WinAnsiEncoding >>\nendobj\n">(
               number(fontObject)));
}

static void putPosition(PdfFile& pdf, std::uint64_t position) { put(pdf, formatText<"%010I64d 00000 n \n">(number(position))); }

bool pdfEnd(PdfFile& pdf) {
  if (pdf.pageObjects.empty()) pdf.failed = true;
  std::uint64_t positions[4];
  positions[0] = pdf.position, putCatalog(pdf);
  positions[1] = pdf.position, putPageTree(pdf);
  positions[2] = pdf.position, putFont(pdf);
  positions[3] = pdf.position;
  put(pdf, formatText<"%I64d 0 obj\n<< /Title ">(number(titleObject)) + titleText(pdf.title) + " >>\nendobj\n");

  const std::uint64_t table = pdf.position;
  const std::int64_t objects = number(pageObject(pdf.pageObjects.size()));
  put(pdf, formatText<"xref\n0 %I64d\n0000000000 65535 f \n">(objects));
  for (const std::uint64_t position : positions) putPosition(pdf, position);
  for (std::size_t page = 0; page < pdf.pageObjects.size(); ++page) {
    putPosition(pdf, pdf.pageObjects[page]);
    putPosition(pdf, pdf.contentObjects[page]);
  }
  put(pdf, formatText<"trailer\n<< /Size %I64d /Root %I64d 0 R /Info %I64d 0 R >>\n">(objects, number(catalogObject),
                                                                                      number(titleObject)));
  put(pdf, formatText<"startxref\n%I64d\n%%%%EOF\n">(number(table)));
  return !pdf.failed;
}

PdfOutcome pdfReport(const PdfSink& sink, const PageIndex& index, std::string_view bytes, std::size_t first, std::size_t last,
                     const FitWishes& wishes, std::string_view title) {
  if (first > last || first >= pageCount(index)) return PdfOutcome::nothingToPrint;
  PageFit fit;
  if (!pageFit(pageWidest(index), pageLongest(index), wishes, fit)) return PdfOutcome::noRoomOnSheet;
  PdfFile pdf = pdfBegin(sink, fit, title, first);
  for (std::size_t page = first; page <= last && page < pageCount(index); ++page) {
    if (!pdfAddPage(pdf, bytes, pageLines(index, bytes, page))) return PdfOutcome::writeFailed;
  }
  return pdfEnd(pdf) ? PdfOutcome::written : PdfOutcome::writeFailed;
}

}  // namespace quillon
