// report_to_pdf REPORT PDF [FIRST LAST]: the PDF that quillon-pages keeps of a report, for programs of others to look at.
// Writes to standard output what the fit is and how many pages there are.

#include <cstdio>
#include <cstdlib>
#include <string>

#include "pages/pdf_file.h"

static bool writeFile(void* to, std::string_view bytes) {
  return std::fwrite(bytes.data(), 1, bytes.size(), static_cast<std::FILE*>(to)) == bytes.size();
}

int main(int argc, char** argv) {
  if (argc != 3 && argc != 5) return 2;
  std::FILE* in = std::fopen(argv[1], "rb");
  if (!in) return 2;
  std::string report;
  char piece[65536];
  for (std::size_t got; (got = std::fread(piece, 1, sizeof piece, in)) > 0;) report.append(piece, got);
  std::fclose(in);

  quillon::PageIndex index = quillon::pageIndexStart();
  quillon::pageIndexFinish(index, report);
  quillon::PageFit fit;
  if (!quillon::pageFit(quillon::pageWidest(index), quillon::pageLongest(index), {}, fit)) return 2;
  std::printf("%s\n%zu pages\n", quillon::pageFitText(fit).c_str(), quillon::pageCount(index));
  std::FILE* out = std::fopen(argv[2], "wb");
  if (!out) return 2;
  const std::size_t first = argc == 5 ? std::strtoul(argv[3], nullptr, 10) - 1 : 0;
  const std::size_t last = argc == 5 ? std::strtoul(argv[4], nullptr, 10) - 1 : quillon::mostPages;
  const std::string name(argv[1]);
  const auto outcome =
      quillon::pdfReport({writeFile, out}, index, report, first, last, {}, name.substr(name.find_last_of('/') + 1));
  const bool closed = std::fclose(out) == 0;
  return closed ? static_cast<int>(outcome) : 3;
}
