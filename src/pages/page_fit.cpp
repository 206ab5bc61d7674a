#include "pages/page_fit.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <utility>

#include "text/letters.h"
#include "text/print.h"

namespace quillon {

static constexpr double characterWidth = 0.6;  // of the font's size
static constexpr double widestLineHeight = 1.2;
static constexpr double slack = 1e-6;  // what sums of decimal fractions may be off

bool sheetByName(std::string_view name, Sheet& sheet) {
  static constexpr std::pair<std::string_view, Sheet> known[] = {
      {"A4", sheetA4}, {"A3", sheetA3}, {"Letter", sheetLetter}, {"Legal", sheetLegal}};
  for (const auto& [knownName, knownSheet] : known) {
    if (upperCased(name) != upperCased(knownName)) continue;
    sheet = knownSheet;
    return true;
  }
  return false;
}

static double inTenths(double size) { return std::floor(size * 10 + slack) / 10; }

static std::size_t howMany(double room, double each) { return static_cast<std::size_t>(room / each + slack); }

static Margins widerOf(const Margins& one, const Margins& other) {
  return {std::max(one.left, other.left), std::max(one.top, other.top), std::max(one.right, other.right),
          std::max(one.bottom, other.bottom)};
}

// The fit with the sheet lying one way. False where there is no room.
static bool fitOneWay(bool landscape, const FitWishes& wishes, PageFit& fit) {
  fit.landscape = landscape;
  fit.width = landscape ? wishes.sheet.height : wishes.sheet.width;
  fit.height = landscape ? wishes.sheet.width : wishes.sheet.height;
  const Margins& wished = wishes.margins;
  const Margins margins = widerOf(wished, landscape ? wishes.bareLandscape : wishes.barePortrait);
  fit.widened =
      margins.left > wished.left || margins.top > wished.top || margins.right > wished.right || margins.bottom > wished.bottom;
  fit.left = margins.left;
  fit.top = margins.top;
  const double width = fit.width - margins.left - margins.right;
  const double height = fit.height - margins.top - margins.bottom;
  const auto columns = static_cast<double>(fit.columns);
  const auto lines = static_cast<double>(fit.lines);
  const double fitting = std::min({width / (columns * characterWidth), height / lines, largestFont});
  fit.fontSize = inTenths(wishes.fontSize > 0 ? wishes.fontSize : std::max(fitting, smallestFont));
  fit.fontSize = std::max(fit.fontSize, smallestFont);
  fit.lineHeight = std::clamp(height / lines, fit.fontSize, fit.fontSize * widestLineHeight);
  if (!(width >= fit.fontSize * characterWidth) || !(height >= fit.fontSize)) return false;
  fit.columnsFit = std::min(fit.columns, howMany(width, fit.fontSize * characterWidth));
  fit.linesFit = std::min(fit.lines, howMany(height, fit.lineHeight));
  return true;
}

// The larger letters win; of two alike, the one on which more comes out, then the upright sheet.
static bool landscapeIsBetter(const PageFit& landscape, const PageFit& portrait) {
  if (landscape.fontSize != portrait.fontSize) return landscape.fontSize > portrait.fontSize;
  return landscape.columnsFit > portrait.columnsFit && landscape.linesFit >= portrait.linesFit;
}

bool pageFit(std::size_t columns, std::size_t lines, const FitWishes& wishes, PageFit& fit) {
  PageFit portrait = {};
  portrait.columns = std::max<std::size_t>(columns, 1);
  portrait.lines = std::max<std::size_t>(lines, 1);
  PageFit landscape = portrait;
  const bool upright = wishes.orientation != Orientation::landscape && fitOneWay(false, wishes, portrait);
  const bool across = wishes.orientation != Orientation::portrait && fitOneWay(true, wishes, landscape);
  fit = across && (!upright || landscapeIsBetter(landscape, portrait)) ? landscape : portrait;
  return upright || across;
}

std::string pageFitText(const PageFit& fit) {
  const auto number = [](std::size_t count) { return static_cast<std::int64_t>(count); };
  std::string text = formatText<"%I64d column%s, %s, %.1f pt">(number(fit.columns), fit.columns == 1 ? "" : "s",
                                                               fit.landscape ? "landscape" : "portrait", fit.fontSize);
  if (fit.columnsFit < fit.columns) {
    text += formatText<": %I64d column%s">(number(fit.columnsFit), fit.columnsFit == 1 ? " fits" : "s fit");
    if (fit.linesFit < fit.lines) text += formatText<" and %I64d of %I64d lines">(number(fit.linesFit), number(fit.lines));
  } else if (fit.linesFit < fit.lines) {
    text += formatText<": %I64d of %I64d lines fit">(number(fit.linesFit), number(fit.lines));
  }
  return text;
}

}  // namespace quillon
