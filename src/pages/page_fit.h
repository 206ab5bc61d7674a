// How a report's pages come onto a sheet: which way the sheet lies and how large the letters are, so that the widest line and
// the longest page fit between the margins, unless the user chooses. One fit for all pages of a report.
//
// Lengths are points, 72 to the inch. The font has a fixed pitch: a character is 0.6 of its size wide. Lines stand as far apart
// as the size of the font and up to 1.2 of it where the sheet has room.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace quillon {

struct Sheet {
  double width;  // the shorter side: every sheet is given upright
  double height;
};

inline constexpr double pointsPerMillimetre = 72.0 / 25.4;
inline constexpr Sheet sheetA4 = {595.28, 841.89};
inline constexpr Sheet sheetA3 = {841.89, 1190.55};
inline constexpr Sheet sheetLetter = {612, 792};
inline constexpr Sheet sheetLegal = {612, 1008};
// By its name in any case: "A4", "A3", "Letter", "Legal". False for any other name, and `sheet` stays.
[[nodiscard]] bool sheetByName(std::string_view name, Sheet& sheet);

struct Margins {
  double left;
  double top;
  double right;
  double bottom;
};
inline constexpr double usualMargin = 10 * pointsPerMillimetre;
inline constexpr Margins usualMargins = {usualMargin, usualMargin, usualMargin, usualMargin};

enum class Orientation { automatic, portrait, landscape };

struct FitWishes {
  Sheet sheet = sheetA4;
  Margins margins = usualMargins;  // of the sheet as it lies in front of the reader
  // What the printer leaves bare at least, with the sheet upright and across: narrower margins become as wide as that.
  Margins barePortrait = {0, 0, 0, 0};
  Margins bareLandscape = {0, 0, 0, 0};
  Orientation orientation = Orientation::automatic;
  double fontSize = 0;  // 0: as large as fits, at most largestFont
};
inline constexpr double largestFont = 12;  // ten characters an inch, as on the printers that the reports were laid out for
inline constexpr double smallestFont = 1;

struct PageFit {
  bool landscape;
  double width;  // of the sheet as it lies
  double height;
  double fontSize;  // in whole tenths of a point
  double lineHeight;
  bool widened;         // a margin is wider than was wished, because the printer leaves more bare
  double left;          // where the first character begins
  double top;           // of the first line, from the sheet's upper edge
  std::size_t columns;  // of the report
  std::size_t lines;
  std::size_t columnsFit;  // how many of them come out whole; less than there are only when the user chose the font's size, or
  std::size_t linesFit;    // when smallestFont is too large
};

// `columns` and `lines` are those of the widest line and the longest page; 0 counts as 1. False when the margins leave no room
// on the sheet for one character; `fit` is then not to be used.
[[nodiscard]] bool pageFit(std::size_t columns, std::size_t lines, const FitWishes& wishes, PageFit& fit);

// "147 columns, landscape, 8.9 pt"; where not all fits, what of it does: "147 columns, portrait, 12.0 pt: 74 columns fit".
std::string pageFitText(const PageFit& fit);

}  // namespace quillon
