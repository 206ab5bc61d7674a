#include "pages/windows/page_paint.h"

#include <algorithm>
#include <cmath>

#include "pages/windows/page_font.h"

namespace quillon {

static constexpr UINT ansiCodePage = 1252;
// Black on them is read in every colour scheme.
static constexpr COLORREF markGround = RGB(255, 236, 139);
static constexpr COLORREF currentMarkGround = RGB(255, 160, 64);
static constexpr COLORREF markInk = RGB(0, 0, 0);

namespace {
// A paint in the making.
struct PagePaint {
  HDC device;
  RECT area;
  const Viewer& report;
  const PageGeometry& geometry;
  int scrollX;
  int scrollY;
};
}  // namespace

static int columnX(const PagePaint& paint, std::size_t column) {
  return pageColumnLeft(paint.geometry, column) - paint.scrollX;
}

static int lineY(const PagePaint& paint, std::size_t line) { return pageLineTop(paint.geometry, line) - paint.scrollY; }

static RECT sheetOf(const PagePaint& paint) {
  const PageGeometry& geometry = paint.geometry;
  const int left = geometry.sheetLeft - paint.scrollX;
  const int top = geometry.sheetTop - paint.scrollY;
  return {left, top, left + geometry.sheetWidth, top + geometry.sheetHeight};
}

static void fill(HDC device, const RECT& area, COLORREF colour) {
  SetDCBrushColor(device, colour);
  FillRect(device, &area, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
}

static void paintSheet(const PagePaint& paint) {
  fill(paint.device, paint.area, GetSysColor(COLOR_APPWORKSPACE));
  if (paint.report.lines.empty() && pageCount(paint.report.report.index) == 0) return;
  const RECT sheet = sheetOf(paint);
  const RECT edge = {sheet.left - 1, sheet.top - 1, sheet.right + 1, sheet.bottom + 1};
  fill(paint.device, edge, GetSysColor(COLOR_WINDOWFRAME));
  fill(paint.device, sheet, GetSysColor(COLOR_WINDOW));
}

// Columns [first, behind) of a line, each character at its column's place, so that columns stay below each other whatever the
// font does.
static void paintCharacters(const PagePaint& paint, std::size_t line, std::size_t first, std::size_t behind, COLORREF ink) {
  const std::string_view text = std::string_view(paint.report.lines[line]).substr(first, behind - first);
  const int size = static_cast<int>(text.size());
  if (size == 0) return;
  std::wstring wide(text.size(), L' ');  // a character a byte
  MultiByteToWideChar(ansiCodePage, 0, text.data(), size, wide.data(), size);
  std::vector<int> widths;
  for (std::size_t column = first; column < behind; ++column) {
    widths.push_back(columnX(paint, column + 1) - columnX(paint, column));
  }
  const PageGeometry& geometry = paint.geometry;
  const double above = (geometry.lineHeight - geometry.fontSize) / 2 + 0.8 * geometry.fontSize;
  const int baseline = lineY(paint, line) + static_cast<int>(std::lround(above));
  SetTextColor(paint.device, ink);
  ExtTextOutW(paint.device, columnX(paint, first), baseline, 0, nullptr, wide.data(), static_cast<UINT>(size), widths.data());
}

static void paintGround(const PagePaint& paint, std::size_t line, std::size_t first, std::size_t behind, COLORREF ground) {
  const RECT area = {columnX(paint, first), lineY(paint, line), columnX(paint, behind), lineY(paint, line + 1)};
  fill(paint.device, area, ground);
}

// The columns of which something lies within the painted area.
static void visibleColumns(const PagePaint& paint, std::size_t size, std::size_t& first, std::size_t& behind) {
  const PageGeometry& geometry = paint.geometry;
  const double left = (paint.area.left + paint.scrollX - geometry.textLeft) / geometry.columnWidth;
  const double right = (paint.area.right + paint.scrollX - geometry.textLeft) / geometry.columnWidth;
  const auto most = static_cast<double>(size);
  first = static_cast<std::size_t>(std::clamp(std::floor(left) - 1, 0.0, most));
  behind = static_cast<std::size_t>(std::clamp(std::ceil(right) + 1, 0.0, most));
}

// The grounds of a line's marks and of what is selected on it. All grounds come before all letters: letters reach over their
// line, and rules of underscores stand in the next.
static void paintGrounds(const PagePaint& paint, std::size_t line) {
  const Viewer& report = paint.report;
  for (const PageMark& mark : report.marks) {
    if (mark.line != line) continue;
    const bool current = mark.offset == report.match;
    paintGround(paint, line, mark.column, mark.column + mark.columns, current ? currentMarkGround : markGround);
  }
  if (selectionIsEmpty(report.selection)) return;
  const SelectedColumns selected = selectedColumns(report.selection, report.lines, line);
  // Where the line's end is selected too, a little behind it shows that.
  const std::size_t behind = selected.behind + (selected.lineEnd ? 1 : 0);
  if (behind > selected.first) paintGround(paint, line, selected.first, behind, GetSysColor(COLOR_HIGHLIGHT));
}

// The ink of each column of a line.
static std::vector<COLORREF> inksOf(const Viewer& report, std::size_t line) {
  const std::size_t size = report.lines[line].size();
  std::vector<COLORREF> inks(size, GetSysColor(COLOR_WINDOWTEXT));
  const auto set = [&](std::size_t first, std::size_t behind, COLORREF ink) {
    for (std::size_t column = first; column < std::min(behind, size); ++column) inks[column] = ink;
  };
  for (const PageMark& mark : report.marks) {
    if (mark.line == line) set(mark.column, mark.column + mark.columns, markInk);
  }
  if (selectionIsEmpty(report.selection)) return inks;
  const SelectedColumns selected = selectedColumns(report.selection, report.lines, line);
  set(selected.first, selected.behind, GetSysColor(COLOR_HIGHLIGHTTEXT));
  return inks;
}

static void paintLetters(const PagePaint& paint, std::size_t line) {
  std::size_t first = 0;
  std::size_t behind = 0;
  visibleColumns(paint, paint.report.lines[line].size(), first, behind);
  const std::vector<COLORREF> inks = inksOf(paint.report, line);
  while (first < behind) {
    std::size_t end = first + 1;
    while (end < behind && inks[end] == inks[first]) ++end;
    paintCharacters(paint, line, first, end, inks[first]);
    first = end;
  }
}

static void paintLines(const PagePaint& paint) {
  const HGDIOBJ fontBefore = SelectObject(paint.device, pageFont(paint.geometry.fontSize, paint.geometry.columnWidth));
  SetBkMode(paint.device, TRANSPARENT);
  SetTextAlign(paint.device, TA_BASELINE | TA_LEFT);
  const RECT sheet = sheetOf(paint);
  SaveDC(paint.device);
  IntersectClipRect(paint.device, sheet.left, sheet.top, sheet.right, sheet.bottom);  // what does not fit is not printed either
  const int beyond = static_cast<int>(paint.geometry.fontSize) + 1;                   // letters reach over their line
  const auto each = [&](auto paintOne) {
    for (std::size_t line = 0; line < paint.report.lines.size(); ++line) {
      const bool above = lineY(paint, line + 1) + beyond < paint.area.top;
      const bool below = lineY(paint, line) - beyond > paint.area.bottom;
      if (!above && !below) paintOne(paint, line);
    }
  };
  each(paintGrounds);
  each(paintLetters);
  RestoreDC(paint.device, -1);
  SetTextAlign(paint.device, TA_TOP | TA_LEFT);
  SelectObject(paint.device, fontBefore);
}

// What stands in place of a page where there is none.
static const wchar_t* messageFor(const Viewer& report) {
  if (!report.open) return L"Choose a report from the list, open one with Ctrl+O, or drop one here.";
  if (pageCount(report.report.index) > 0) return nullptr;
  if (report.state == ReportState::unreadable) return L"The report cannot be read.";
  return report.state == ReportState::reading ? L"reading ..." : L"The report is empty.";
}

void pagePaint(HDC device, const RECT& area, const Viewer& report, const PageGeometry& geometry, int scrollX, int scrollY,
               HFONT messageFont) {
  const PagePaint paint = {device, area, report, geometry, scrollX, scrollY};
  paintSheet(paint);
  const wchar_t* const message = messageFor(report);
  if (!message) return paintLines(paint);
  const HGDIOBJ before = SelectObject(device, messageFont);
  SetBkMode(device, TRANSPARENT);
  SetTextColor(device, GetSysColor(COLOR_WINDOWTEXT));
  RECT all = area;
  DrawTextW(device, message, -1, &all, DT_CENTER | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX | DT_END_ELLIPSIS);
  SelectObject(device, before);
}

}  // namespace quillon
