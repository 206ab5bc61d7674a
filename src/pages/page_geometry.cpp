#include "pages/page_geometry.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <iterator>

namespace quillon {

static constexpr double gapAround = 12;  // at 96 dots an inch
static constexpr int zoomSteps[] = {smallestZoom, 25,  33,  50,  67,  75,  90,  100,        110,
                                    125,          150, 175, 200, 250, 300, 400, largestZoom};

static int rounded(double value) { return static_cast<int>(std::lround(value)); }

static double scaleOf(const PageFit& fit, const Zoom& zoom, int width, int height, double actual, double gap) {
  const double byWidth = (width - 2 * gap) / fit.width;
  double scale = actual * zoom.percent / 100;
  if (zoom.kind == ZoomKind::width) scale = byWidth;
  if (zoom.kind == ZoomKind::page) scale = std::min(byWidth, (height - 2 * gap) / fit.height);
  return std::clamp(scale, actual * smallestZoom / 100, actual * largestZoom / 100);
}

PageGeometry pageGeometry(const PageFit& fit, const Zoom& zoom, int width, int height, int dpi) {
  const double actual = dpi / 72.0;
  const double gap = gapAround * dpi / 96;
  PageGeometry geometry = {};
  geometry.scale = scaleOf(fit, zoom, width, height, actual, gap);
  geometry.percent = rounded(geometry.scale / actual * 100);
  // Down, so that a sheet as wide as the window is not a pixel wider.
  geometry.sheetWidth = std::max(1, static_cast<int>(fit.width * geometry.scale + 0.01));
  geometry.sheetHeight = std::max(1, static_cast<int>(fit.height * geometry.scale + 0.01));
  geometry.width = std::max(width, geometry.sheetWidth + rounded(2 * gap));
  geometry.height = std::max(height, geometry.sheetHeight + rounded(2 * gap));
  geometry.sheetLeft = (geometry.width - geometry.sheetWidth) / 2;
  geometry.sheetTop = rounded(gap);
  geometry.textLeft = geometry.sheetLeft + fit.left * geometry.scale;
  geometry.textTop = geometry.sheetTop + fit.top * geometry.scale;
  geometry.fontSize = fit.fontSize * geometry.scale;
  geometry.columnWidth = 0.6 * geometry.fontSize;
  geometry.lineHeight = fit.lineHeight * geometry.scale;
  return geometry;
}

int pageColumnLeft(const PageGeometry& geometry, std::size_t column) {
  return rounded(geometry.textLeft + static_cast<double>(column) * geometry.columnWidth);
}

int pageLineTop(const PageGeometry& geometry, std::size_t line) {
  return rounded(geometry.textTop + static_cast<double>(line) * geometry.lineHeight);
}

static PageSpot spotAt(const PageGeometry& geometry, const PageText& lines, int x, int y, double behindMiddle) {
  if (lines.empty()) return {0, 0};
  const double line = std::floor((y - geometry.textTop) / geometry.lineHeight);
  const double column = std::floor((x - geometry.textLeft) / geometry.columnWidth + behindMiddle);
  const auto lastLine = static_cast<double>(lines.size() - 1);
  const auto onLine = static_cast<std::size_t>(std::clamp(line, 0.0, lastLine));
  const auto size = static_cast<double>(lines[onLine].size());
  return {onLine, static_cast<std::size_t>(std::clamp(column, 0.0, size))};
}

PageSpot pageSpotAt(const PageGeometry& geometry, const PageText& lines, int x, int y) {
  return spotAt(geometry, lines, x, y, 0.5);
}

PageSpot pageCharacterAt(const PageGeometry& geometry, const PageText& lines, int x, int y) {
  return spotAt(geometry, lines, x, y, 0);
}

int zoomedIn(int percent) {
  const auto next = std::upper_bound(std::begin(zoomSteps), std::end(zoomSteps), percent);
  return next == std::end(zoomSteps) ? percent : *next;
}

int zoomedOut(int percent) {
  const auto same = std::lower_bound(std::begin(zoomSteps), std::end(zoomSteps), percent);
  return same == std::begin(zoomSteps) ? percent : *std::prev(same);
}

std::string zoomText(const Zoom& zoom) {
  if (zoom.kind == ZoomKind::width) return "width";
  return zoom.kind == ZoomKind::page ? "page" : std::to_string(zoom.percent);
}

Zoom zoomFromText(std::string_view text) {
  if (text == "page") return {ZoomKind::page};
  int percent = 0;
  const auto [end, problem] = std::from_chars(text.data(), text.data() + text.size(), percent);
  const bool number = problem == std::errc() && end == text.data() + text.size();
  if (!number || percent < smallestZoom || percent > largestZoom) return {};
  return {ZoomKind::percent, percent};
}

}  // namespace quillon
