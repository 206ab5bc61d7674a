// What was last chosen in the print dialog, for who shows pages without asking a printer.
#include "pages/entered.h"
#include "pages/windows/print_dialog.h"
#include "pages/windows/settings.h"

namespace quillon {

static double margin(const wchar_t* name) {
  double millimetres = 0;
  const bool usable = enteredLength(utf8FromWide(settingsText(name, L"10")), 0, widestMargin, millimetres);
  return usable ? millimetres * pointsPerMillimetre : usualMargin;
}

FitWishes printWishes() {
  FitWishes wishes;
  // A printer's own sheet is known to the printer alone.
  if (!sheetByName(utf8FromWide(settingsText(L"Sheet", L"A4")), wishes.sheet)) wishes.sheet = sheetA4;
  wishes.margins = {margin(L"MarginLeft"), margin(L"MarginTop"), margin(L"MarginRight"), margin(L"MarginBottom")};
  const int orientation = settingsNumber(L"Orientation", 0);
  if (orientation == 1) wishes.orientation = Orientation::portrait;
  if (orientation == 2) wishes.orientation = Orientation::landscape;
  double size = 0;
  if (enteredLength(utf8FromWide(settingsText(L"FontSize", L"")), smallestFont, largestEnteredFont, size))
    wishes.fontSize = size;
  return wishes;
}

}  // namespace quillon
