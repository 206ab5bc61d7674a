#include "pages/page_selection.h"

#include <algorithm>

namespace quillon {

bool selectionIsEmpty(const PageSelection& selection) { return selection.anchor == selection.caret; }

SelectedColumns selectedColumns(const PageSelection& selection, const PageText& lines, std::size_t line) {
  const PageSpot& first = std::min(selection.anchor, selection.caret);
  const PageSpot& last = std::max(selection.anchor, selection.caret);
  if (line >= lines.size() || line < first.line || line > last.line) return {0, 0, false};
  const std::size_t size = lines[line].size();
  const std::size_t begin = line == first.line ? std::min(first.column, size) : 0;
  const std::size_t end = line == last.line ? std::min(last.column, size) : size;
  return {begin, std::max(begin, end), line < last.line};
}

std::string selectedText(const PageSelection& selection, const PageText& lines) {
  std::string text;
  for (std::size_t line = 0; line < lines.size(); ++line) {
    const SelectedColumns columns = selectedColumns(selection, lines, line);
    text.append(lines[line], columns.first, columns.behind - columns.first);
    if (columns.lineEnd && line + 1 < lines.size()) text += "\r\n";
  }
  return text;
}

PageSelection wholePageSelected(const PageText& lines) {
  if (lines.empty()) return {};
  return {{0, 0}, {lines.size() - 1, lines.back().size()}};
}

PageSelection wordSelected(const PageText& lines, const PageSpot& spot) {
  if (spot.line >= lines.size()) return {spot, spot};
  const std::string& text = lines[spot.line];
  if (spot.column >= text.size()) return {spot, spot};
  const auto isBlank = [&](std::size_t column) { return text[column] == ' ' || text[column] == '\xA0'; };
  const bool blank = isBlank(spot.column);
  std::size_t first = spot.column;
  std::size_t behind = spot.column + 1;
  while (first > 0 && isBlank(first - 1) == blank) --first;
  while (behind < text.size() && isBlank(behind) == blank) ++behind;
  return {{spot.line, first}, {spot.line, behind}};
}

std::string pageTextOf(const PageText& lines) { return selectedText(wholePageSelected(lines), lines); }

}  // namespace quillon
