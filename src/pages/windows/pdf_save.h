// A report as a PDF file on the disk.
#pragma once

#include <cstddef>
#include <string>

#include "pages/pages_command.h"
#include "pages/windows/progress.h"
#include "pages/windows/report.h"

namespace quillon {

struct PdfOrder {
  std::wstring file;
  FitWishes wishes;
  std::size_t first;  // from 0, both included; pages behind the report's last are left out
  std::size_t last;
};

// `report` has been read to its end. The PDF is written beside its place and takes it at the very end: after a failure an older
// one is still there. The report itself is refused as a place. Between two pages nothing of the report is held.
PagesStatus pdfSave(const Report& report, const PdfOrder& order, const Progress& progress);

}  // namespace quillon
