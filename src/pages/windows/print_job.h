// A report on its way to a printer: its pages drawn, or its bytes as they are. Whatever fails on the way ends the job: the
// printer's queue is told to forget what it has.
#pragma once

#include <cstddef>
#include <string>

#include "pages/pages_command.h"
#include "pages/windows/printers.h"
#include "pages/windows/progress.h"
#include "pages/windows/report.h"

namespace quillon {

struct PrintOrder {
  PrinterSetup setup;  // with the sheet
  PageFit fit;         // on that sheet
  std::size_t first;   // from 0, both included; pages behind the report's last are left out
  std::size_t last;
  std::size_t copies;
};

// In the printer's queue a job bears the name of the report's file.
//
// `report` has been read to its end. Between two pages nothing of it is held, so that others can write it: one that was begun
// anew meanwhile ends the job with noReport. A job that `progress` gave up ends with `failed`, and so does one of a report with
// more pages than are known.
PagesStatus printPages(const Report& report, const PrintOrder& order, const Progress& progress);

// The bytes of a file, unchanged, as a job of the kind RAW.
PagesStatus printRaw(const std::wstring& path, const std::wstring& printer, const Progress& progress);

}  // namespace quillon
