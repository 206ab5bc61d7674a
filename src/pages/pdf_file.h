// A report as PDF: one sheet a page, in the fixed-pitch font that every reader of PDF has (Courier, nothing embedded), page
// contents compressed. The same report, fit and title give the same bytes: no date and no machine stands in the file.
//
// The text stands in the file as text, so that it can be found, selected and copied. Pages are labelled with their numbers in
// the report.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "pages/page_fit.h"
#include "pages/page_index.h"

namespace quillon {

// Where the file's bytes go. False from `write` ends the writing: nothing more is given to it.
struct PdfSink {
  bool (*write)(void* to, std::string_view bytes);
  void* to;
};

// A file in the making. All members are its own.
struct PdfFile {
  PdfSink sink = {};
  PageFit fit = {};
  std::string title;
  std::size_t firstPage = 0;
  std::uint64_t position = 0;
  std::vector<std::uint64_t> pageObjects;  // where each page's two objects stand
  std::vector<std::uint64_t> contentObjects;
  bool failed = false;
};

// Begins a file. `title` is UTF-8; `firstPage` is the number in the report, from 0, of the first page that will be added.
PdfFile pdfBegin(const PdfSink& sink, const PageFit& fit, std::string_view title, std::size_t firstPage);
// Adds a page of these lines of the report. False as soon as a write failed.
bool pdfAddPage(PdfFile& pdf, std::string_view bytes, const std::vector<PageLine>& lines);
// Writes what stands behind the pages. False when a write failed or there is no page: what was written is then no PDF.
[[nodiscard]] bool pdfEnd(PdfFile& pdf);

enum class PdfOutcome { written, nothingToPrint, noRoomOnSheet, writeFailed };

// The pages `first` to `last` (from 0, both included; those behind the last page are left out) of a report that was read to its
// end, in one go.
PdfOutcome pdfReport(const PdfSink& sink, const PageIndex& index, std::string_view bytes, std::size_t first, std::size_t last,
                     const FitWishes& wishes, std::string_view title);

}  // namespace quillon
