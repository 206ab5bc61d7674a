// What comes out of the entries of the print dialog: the pages, their fit on the sheet and how many sheets there will be, or
// what is wrong with the entries. The dialog shows `status` below them, anew with every change.
#pragma once

#include <cstddef>
#include <string>

#include "pages/page_fit.h"
#include "pages/page_index.h"

namespace quillon {

enum class PagesChosen { all, thisPage, fromTo };

// As they stand in the dialog, UTF-8. Lengths are millimetres, the font's size is points.
struct PrintEntries {
  Orientation orientation = Orientation::automatic;
  std::string fontSize;  // empty: as large as fits
  std::string left = "10";
  std::string top = "10";
  std::string right = "10";
  std::string bottom = "10";
  PagesChosen pages = PagesChosen::all;
  std::string from;  // counted from 1
  std::string to;    // empty: to the last page
  std::string copies = "1";
};

// The sheet that lies in the printer, and what it leaves bare at least.
struct PrinterSheet {
  Sheet sheet = sheetA4;
  Margins barePortrait = {0, 0, 0, 0};
  Margins bareLandscape = {0, 0, 0, 0};
  bool turns = true;  // false: the printer prints on the upright sheet alone, whatever it is told
};

struct PrintPlan {
  bool possible = false;
  std::string status;  // what comes out, or what is wrong
  // Where it is possible:
  FitWishes wishes;
  PageFit fit;
  std::size_t first = 0;  // from 0, both included, both there
  std::size_t last = 0;
  std::size_t copies = 1;
};

// `index` has been read to its end; `thisPage` is the page in front of the user.
PrintPlan printPlan(const PrintEntries& entries, const PrinterSheet& sheet, const PageIndex& index, std::size_t thisPage);

// "48,213 bytes"
std::string bytesText(std::uint64_t bytes);

}  // namespace quillon
