// Where a page's sheet and its characters stand on the screen: a fit, looked at through a window of some size at some zoom.
// All lengths are pixels; x and y are counted from the upper left corner of the ground, which is what can be scrolled over.
#pragma once

#include <string>
#include <string_view>

#include "pages/page_fit.h"
#include "pages/page_selection.h"

namespace quillon {

enum class ZoomKind { width, page, percent };  // as wide as the window, all of the sheet in the window, or so large
struct Zoom {
  ZoomKind kind = ZoomKind::width;
  int percent = 100;  // of ZoomKind::percent; 100 is the size on paper
};
inline constexpr int smallestZoom = 10;
inline constexpr int largestZoom = 500;

struct PageGeometry {
  double scale;  // pixels a point
  int percent;   // what the zoom comes to
  int sheetLeft;
  int sheetTop;
  int sheetWidth;
  int sheetHeight;
  int width;  // of the ground: the sheet and what stands around it, at least the window's
  int height;
  double textLeft;
  double textTop;
  double columnWidth;
  double lineHeight;
  double fontSize;
};

// For a window of `width` by `height` on a screen of `dpi` dots an inch.
PageGeometry pageGeometry(const PageFit& fit, const Zoom& zoom, int width, int height, int dpi);

// The left edge of a column, and the upper edge of a line. Each is rounded by itself, so that columns stay below each other.
int pageColumnLeft(const PageGeometry& geometry, std::size_t column);
int pageLineTop(const PageGeometry& geometry, std::size_t line);
// The place between two characters that is nearest to a point, on the nearest line there is.
PageSpot pageSpotAt(const PageGeometry& geometry, const PageText& lines, int x, int y);
// The same with the character below the point, for who points at a word.
PageSpot pageCharacterAt(const PageGeometry& geometry, const PageText& lines, int x, int y);

// The next step from a percentage; the same where there is none.
int zoomedIn(int percent);
int zoomedOut(int percent);

// As it is remembered: "width", "page" or a percentage. What is none of them gives the usual zoom.
std::string zoomText(const Zoom& zoom);
Zoom zoomFromText(std::string_view text);

}  // namespace quillon
