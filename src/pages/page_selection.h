// What is selected on a page, as text is selected: from one place between two characters to another, over the ends of lines.
#pragma once

#include <compare>
#include <cstddef>
#include <string>
#include <vector>

namespace quillon {

// A place between two characters of a page's lines as they show.
struct PageSpot {
  std::size_t line;
  std::size_t column;  // how many characters of the line stand before it
  auto operator<=>(const PageSpot&) const = default;
};

struct PageSelection {
  PageSpot anchor = {};  // where it was begun
  PageSpot caret = {};   // where it ends, on either side of the anchor
  bool operator==(const PageSelection&) const = default;
};

// The lines are as pageLineShown gives them: a character a column, Windows-1252.
using PageText = std::vector<std::string>;

bool selectionIsEmpty(const PageSelection& selection);

struct SelectedColumns {
  std::size_t first;
  std::size_t behind;  // behind the last one; the same as `first` where nothing is selected
  bool lineEnd;        // the selection goes on in the next line
};
SelectedColumns selectedColumns(const PageSelection& selection, const PageText& lines, std::size_t line);

// With CR LF between lines. What lies behind a line's end, or behind the last line, is left out.
std::string selectedText(const PageSelection& selection, const PageText& lines);

PageSelection wholePageSelected(const PageText& lines);
// What stands between two blanks; on a blank all blanks around it.
PageSelection wordSelected(const PageText& lines, const PageSpot& spot);

// All lines, each but the last one with CR LF behind it.
std::string pageTextOf(const PageText& lines);

}  // namespace quillon
