// Any bytes as a report and its title: the PDF's positions lead to its objects, and its pages, unpacked by the library, hold
// the lines of the report.

#include <zlib.h>

#include <cstdint>
#include <cstdlib>
#include <string>

#include "pages/deflate.h"
#include "pages/pdf_file.h"

using namespace quillon;

static void require(bool holds) {
  if (!holds) std::abort();
}

static bool sink(void* to, std::string_view bytes) {
  static_cast<std::string*>(to)->append(bytes);
  return true;
}

static std::string unpacked(const std::string& packed, std::size_t most) {
  std::string out(most, '\0');
  uLongf got = out.size();
  require(uncompress(reinterpret_cast<Bytef*>(out.data()), &got, reinterpret_cast<const Bytef*>(packed.data()),
                     packed.size()) == Z_OK);
  out.resize(got);
  return out;
}

// The texts that a page's content draws, line by line.
static std::string drawn(const std::string& content) {
  std::string text;
  bool inside = false;
  for (std::size_t i = content.find("Td\n"); i < content.size(); ++i) {
    const char c = content[i];
    if (!inside && c == '(') {
      inside = true;
    } else if (!inside && c == '*') {
      text += '\n';
    } else if (inside && c == ')') {
      inside = false;
    } else if (inside) {
      text += c == '\\' ? content[++i] : c;
    }
  }
  return text;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* input, std::size_t size) {
  if (size == 0) return 0;
  const std::string all(input + 1, input + size);
  const std::string title = all.substr(0, input[0] % 32);
  require(unpacked(deflated(all), all.size() + 1) == all);

  PageIndex index = pageIndexStart();
  pageIndexFinish(index, all);
  std::string pdf;
  const PdfOutcome outcome = pdfReport({sink, &pdf}, index, all, 0, mostPages, {}, title);
  require(outcome == (pageCount(index) ? PdfOutcome::written : PdfOutcome::nothingToPrint));
  if (outcome != PdfOutcome::written) return 0;

  const std::size_t table = std::strtoul(pdf.c_str() + pdf.rfind("startxref\n") + 10, nullptr, 10);
  for (std::size_t page = 0; page < pageCount(index); ++page) {
    const std::size_t object = 6 + 2 * page;
    const std::string begin = pdf.substr(table).substr(pdf.substr(table).find('\n', 5) + 1 + 20 * object, 10);
    const std::size_t at = std::strtoul(begin.c_str(), nullptr, 10);
    require(pdf.compare(at, std::to_string(object).size() + 1, std::to_string(object) + " ") == 0);
    const std::size_t length = std::strtoul(pdf.c_str() + pdf.find("/Length ", at) + 8, nullptr, 10);
    const std::size_t stream = pdf.find("stream\n", at) + 7;
    require(pdf.compare(stream + length, 10, "\nendstream") == 0);
    std::string wanted;
    for (const PageLine& line : pageLines(index, all, page)) {
      const std::string shown = pageLineShown(all, line);
      wanted += (shown.find_first_not_of(' ') == std::string::npos ? "" : shown) + "\n";
    }
    require(drawn(unpacked(pdf.substr(stream, length), 4 * all.size() + 100000)) == wanted);
    if (page > 30) break;
  }
  return 0;
}
