#include "pages/report_names.h"

#include <algorithm>

#include "text/letters.h"

namespace quillon {

// Programs and their parts, documents and pictures of other programs, packed files, settings: none of them is text on pages.
static constexpr std::string_view otherKinds[] = {
    "7Z",  "BAK", "BAT", "BMP", "CHM", "CMD", "CPL",  "CSS",  "DB",   "DLL",  "DOC", "DOCX", "EXE",  "GIF", "HTM",  "HTML",
    "ICO", "INI", "JPG", "JS",  "LNK", "MSI", "JPEG", "ODS",  "ODT",  "PDF",  "PNG", "PPT",  "PPTX", "PS1", "RAR",  "REG",
    "SYS", "TMP", "URL", "VBS", "XLS", "XML", "XLSX", "XLSM", "YAML", "JSON", "ZIP", "OCX",  "PIF",  "SCR", "TIFF", "TIF"};

bool isReportName(std::string_view name) {
  // What quillon-print has not finished yet.
  if (name.starts_with(".quillon-print-")) return false;
  const std::size_t dot = name.rfind('.');
  if (dot == std::string_view::npos) return !name.empty();
  const std::string extension = upperCased(name.substr(dot + 1));
  return std::find(std::begin(otherKinds), std::end(otherKinds), extension) == std::end(otherKinds);
}

}  // namespace quillon
