// The command line of quillon-pages: a report shown, printed, kept as PDF or handed to a printer as it is, and what the
// program's status tells whoever called it.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "pages/page_fit.h"
#include "pages/page_index.h"

namespace quillon {

// What the program ends with. Nothing is shown and nothing is asked where the command line tells what to do.
enum class PagesStatus : int {
  done = 0,
  failed = 1,          // for a reason that has no number of its own
  wrongCall = 2,       // the command line cannot be understood
  noReport = 3,        // the report cannot be read
  nothingToPrint = 4,  // it has no page, or none of those asked for
  noRoom = 5,          // the margins leave no room on the sheet
  noPrinter = 6,       // there is no printer of that name, or it cannot be opened
  printerFailed = 7,   // the printer or its queue refused the pages, or went away
  fileFailed = 8,      // the PDF cannot be written
};

enum class PagesAction { show, print, pdf, raw, listPrinters, help, wrongCall };

struct PagesCommand {
  PagesAction action = PagesAction::show;
  std::string report;   // the file or folder; may be empty with `show`, `listPrinters` and `help` alone
  std::string printer;  // of print and raw
  std::string file;     // of pdf
  FitWishes wishes;
  bool sheetGiven = false;  // otherwise a printer's own sheet is used
  bool marginsGiven = false;
  std::size_t firstPage = 0;  // from 0, both included
  std::size_t lastPage = mostPages;
  std::size_t copies = 1;
  std::size_t flowLines = usualFlowLines;
  std::string problem;  // of wrongCall: a sentence for the user
};

// The arguments without the program's name, UTF-8. Options begin with '/' or '-' and are taken in any case.
PagesCommand pagesCommand(const std::vector<std::string>& arguments);

// What "/?" tells.
std::string_view pagesHelp();

}  // namespace quillon
