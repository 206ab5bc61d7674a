// The fixed-pitch font in which pages are drawn, in any size.
#pragma once

#include "pages/windows/system.h"

namespace quillon {

// A font of letters `size` pixels high whose characters are at most `columnWidth` pixels wide. It is kept, and belongs here.
HFONT pageFont(double size, double columnWidth);
// A font for the text view, in points.
HFONT pageFontForText(int points, int dpi);

}  // namespace quillon
