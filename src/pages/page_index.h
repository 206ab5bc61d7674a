// A report's text as pages and lines, over its bytes as they lie in the file: an index of where each page starts, made piece by
// piece, so that the first page of a large report is there at once and a report that is still being written can be followed.
//
// What a page is:
// - A form feed ends a page. Two in a row make an empty page, as they do on paper; the form feed that ends a report makes none,
//   nor do blanks and line ends behind it.
// - A stretch of more than `longestPage` lines without a form feed, and a report that has no form feed at all, runs over pages
//   of `flowLines` lines, as it would on fanfold paper.
// What a line is:
// - It ends with LF, CR LF, CRs before an LF (copying tools double them; up to `longestLine` of them), or a CR alone. A form
//   feed ends it as well; where no text stands before the form feed, there is no line.
// - A line of more than `longestLine` bytes goes on in the next line: no page is without bounds, whatever file is opened.
// Bytes are Windows-1252. A tab goes to the next column that is a multiple of eight; other control characters show as blanks.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace quillon {

inline constexpr std::size_t longestPage = 200;    // lines between two form feeds that still are one page
inline constexpr std::size_t usualFlowLines = 66;  // eleven inches of paper at six lines an inch
inline constexpr std::size_t longestLine = 512;    // bytes
inline constexpr std::size_t tabColumns = 8;
inline constexpr std::size_t mostPages = std::size_t{1} << 22;  // what an index holds; see pageIndexIsFull

struct PageStart {
  std::uint64_t offset;  // of the page's first byte
  std::uint64_t line;    // how many lines stand before it in the report
};

// How far a report is read.
struct PageReading {
  std::uint64_t scanned = 0;      // bytes read
  std::uint64_t lines = 0;        // lines in them
  std::uint64_t lastShown = 0;    // lines up to and with the last one that shows something
  std::uint64_t stretchLine = 0;  // lines before the current stretch (what lies between two form feeds)
  std::size_t stretchPage = 0;    // its first page
  std::size_t formFeeds = 0;
  std::size_t widest = 0;       // columns
  std::size_t longest = 0;      // lines of the longest page that is closed
  bool flows = false;           // the current stretch runs over pages of flowLines lines
  bool midLine = false;         // the last line read was cut at longestLine
  bool full = false;            // there are more than mostPages pages
  std::vector<PageStart> cuts;  // where the current stretch would be cut if it proved to be longer than longestPage
};

// All members are the index's own; callers use the functions below.
struct PageIndex {
  std::size_t flowLines = usualFlowLines;
  std::vector<PageStart> pages;  // the last one is the open page
  PageReading read;
  // The report may grow: what its present end made of its last line and page is taken back when reading goes on.
  bool ended = false;
  PageReading beforeEnd;
  std::size_t pagesBeforeEnd = 0;
  std::uint64_t size = 0;  // of the bytes when they were last read
  std::size_t shown = 0;   // pages without the blank ones at the end
};

// An empty index. `flowLines` is the page length of text without form feeds: 1 to longestPage; another number is brought into
// that range.
PageIndex pageIndexStart(std::size_t flowLines = usualFlowLines);

// Reads on, about `budget` bytes further. `bytes` is the whole report as it is now: the same as at the last call, or longer
// when it has grown. A report that has become shorter is read from its start again. True when all of it is read.
bool pageIndexStep(PageIndex& index, std::string_view bytes, std::size_t budget);
// Reads to the end.
void pageIndexFinish(PageIndex& index, std::string_view bytes);

// The numbers are those of what has been read so far; the page that is read at the moment counts. Pages are counted from 0.
std::size_t pageCount(const PageIndex& index);
std::uint64_t pageLinesInReport(const PageIndex& index);
// The report has more than mostPages pages: what comes behind them is not shown. To be told to the user.
bool pageIndexIsFull(const PageIndex& index);
// The columns of the widest line, blanks at its end not counted, and the lines of the longest page up to its last line that
// shows something; a page of text without form feeds has `flowLines` lines where more that shows follows it. Both 0 where
// nothing shows.
std::size_t pageWidest(const PageIndex& index);
std::size_t pageLongest(const PageIndex& index);

// A line of the report: where it stands in the bytes, without its end.
struct PageLine {
  std::uint64_t offset;
  std::size_t size;
};

// The lines of a page; none where there is no such page. `bytes` is what the index last read.
std::vector<PageLine> pageLines(const PageIndex& index, std::string_view bytes, std::size_t page);
// How many lines stand before this page in the report.
std::uint64_t pageFirstLine(const PageIndex& index, std::size_t page);

struct PagePlace {
  std::size_t page;
  std::size_t line;    // within the page
  std::size_t column;  // as it shows, tabs counted
};
// Where a byte stands. A byte of a line's end belongs to that line. False when there is no page or no line there (yet), as
// among the blank lines that make no page at the report's end.
[[nodiscard]] bool pagePlaceOf(const PageIndex& index, std::string_view bytes, std::uint64_t offset, PagePlace& place);

// A line as it shows: tabs as blanks, every other control character as one blank, blanks at its end as they are. A character a
// column, Windows-1252.
std::string pageLineShown(std::string_view bytes, const PageLine& line);
// The column at which a byte of a line shows, by its position in the line; and back, the byte that shows at or behind a column,
// the line's size where there is none.
std::size_t pageColumnOfByte(std::string_view bytes, const PageLine& line, std::size_t position);
std::size_t pageByteOfColumn(std::string_view bytes, const PageLine& line, std::size_t column);

}  // namespace quillon
