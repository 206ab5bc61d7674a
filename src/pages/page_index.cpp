#include "pages/page_index.h"

#include <algorithm>
#include <cstring>

namespace quillon {

// ---- Lines ------------------------------------------------------------------------------------------------------------

enum class LineStop { none, line, page, cut };  // none: the bytes end before the line does

struct LineFound {
  std::size_t size;    // of its text
  std::uint64_t next;  // behind its end
  LineStop stop;
};

// The first LF, CR or FF, each sought with the C library's search, the shorter ranges last.
static std::size_t plainSize(const char* text, std::size_t size) {
  for (const char end : {'\n', '\f', '\r'}) {
    const void* found = size > 0 ? std::memchr(text, end, size) : nullptr;
    if (found) size = static_cast<std::size_t>(static_cast<const char*>(found) - text);
  }
  return size;
}

// The line that begins at `offset`.
static LineFound lineFind(std::string_view bytes, std::uint64_t offset) {
  const std::size_t room = bytes.size() - offset;
  const std::size_t size = plainSize(bytes.data() + offset, std::min(room, longestLine));
  std::uint64_t at = offset + size;
  if (at == bytes.size()) return {size, at, LineStop::none};
  const std::uint64_t firstReturn = at;
  while (at < bytes.size() && bytes[at] == '\r' && at - firstReturn < longestLine) ++at;
  if (at == bytes.size()) return {size, at, LineStop::none};  // an LF may be what comes next
  if (bytes[at] == '\n') return {size, at + 1, LineStop::line};
  if (bytes[at] == '\f') return {size, at + 1, LineStop::page};
  return {size, at, at > firstReturn ? LineStop::line : LineStop::cut};
}

// Control characters show as blanks; so do the bytes that Windows-1252 leaves open.
static char shownByte(char c) {
  const auto byte = static_cast<unsigned char>(c);
  const bool open = byte == 0x81 || byte == 0x8D || byte == 0x8F || byte == 0x90 || byte == 0x9D;
  return byte < ' ' || byte == 0x7F || open ? ' ' : c;
}

static bool isShown(char c) { return shownByte(c) != ' ' && c != '\xA0'; }

// How much of a text shows: up to its last character that is not blank.
static std::size_t shownSize(std::string_view text) {
  std::size_t size = text.size();
  while (size > 0 && !isShown(text[size - 1])) --size;
  return size;
}

static std::size_t columnsOf(std::string_view text) {
  if (text.empty() || !std::memchr(text.data(), '\t', text.size())) return text.size();
  std::size_t column = 0;
  for (const char c : text) column = c == '\t' ? (column / tabColumns + 1) * tabColumns : column + 1;
  return column;
}

// A line that was found and is none: what stands before a form feed where there is no text, and the end of a line that was cut
// right before it.
static bool isLine(const LineFound& found, bool midLine) {
  return found.size > 0 || (found.stop == LineStop::line && !midLine);
}

// ---- Reading ----------------------------------------------------------------------------------------------------------

PageIndex pageIndexStart(std::size_t flowLines) {
  PageIndex index;
  index.flowLines = std::clamp<std::size_t>(flowLines, 1, longestPage);
  index.pages.push_back({0, 0});
  return index;
}

static void addPage(PageIndex& index, const PageStart& page) {
  index.read.full = index.pages.size() == mostPages;
  if (!index.read.full) index.pages.push_back(page);
}

// Lines of the open page, up to its last one that shows something.
static std::size_t openLines(const PageIndex& index) {
  const std::uint64_t before = index.pages.back().line;
  return index.read.lastShown > before ? index.read.lastShown - before : 0;
}

// A page of a stretch that flows is full: it is as long as what shows on it so far. Where more shows behind it, takeLine makes
// it longer.
static void endFlowPage(PageIndex& index, const PageStart& next) {
  index.read.longest = std::max(index.read.longest, std::min<std::size_t>(openLines(index), index.flowLines));
  addPage(index, next);
}

// The current stretch proved to be longer than a page, or to be the whole report.
static void letFlow(PageIndex& index) {
  PageReading& read = index.read;
  read.flows = true;
  for (const PageStart& cut : read.cuts) endFlowPage(index, cut);
}

// A further line begins in the current stretch: the page may be full before it.
static void beginLine(PageIndex& index) {
  PageReading& read = index.read;
  const std::uint64_t inStretch = read.lines - read.stretchLine;
  if (inStretch > 0 && inStretch % index.flowLines == 0) {
    const PageStart here{read.scanned, read.lines};
    if (read.flows) {
      endFlowPage(index, here);
    } else {
      read.cuts.push_back(here);
    }
  }
  if (!read.flows && inStretch == longestPage) letFlow(index);
}

static void endStretch(PageIndex& index) {
  PageReading& read = index.read;
  read.longest = std::max(read.longest, openLines(index));
  ++read.formFeeds;
  read.cuts.clear();
  read.flows = false;
  read.stretchPage = index.pages.size();
  addPage(index, {read.scanned, read.lines});
  read.stretchLine = read.lines;
}

static void takeLine(PageIndex& index, std::string_view bytes, const LineFound& found) {
  PageReading& read = index.read;
  if (isLine(found, read.midLine)) {
    beginLine(index);
    if (read.full) return;
    const std::string_view text = bytes.substr(read.scanned, found.size);
    const std::size_t shown = shownSize(text);
    read.widest = std::max(read.widest, columnsOf(text.substr(0, shown)));
    ++read.lines;
    if (shown > 0) read.lastShown = read.lines;
    const bool behindFullPage = read.flows && read.lines - read.stretchLine > index.flowLines;
    if (shown > 0 && behindFullPage) read.longest = std::max(read.longest, index.flowLines);
  }
  read.scanned = found.next;
  read.midLine = found.stop == LineStop::cut;
  if (found.stop == LineStop::page) endStretch(index);
}

// The pages without those at the end that are open and blank.
static std::size_t countShown(const PageIndex& index) {
  std::size_t count = index.pages.size();
  while (count > index.read.stretchPage && index.pages[count - 1].line >= index.read.lastShown) --count;
  return count;
}

// The bytes end here, for now: the last line may have no end, and there may be no form feed at all.
static void reachEnd(PageIndex& index, std::string_view bytes) {
  index.beforeEnd = index.read;
  index.pagesBeforeEnd = index.pages.size();
  index.ended = true;
  if (index.read.scanned < bytes.size()) takeLine(index, bytes, lineFind(bytes, index.read.scanned));
  if (index.read.formFeeds == 0 && !index.read.flows) letFlow(index);
}

bool pageIndexStep(PageIndex& index, std::string_view bytes, std::size_t budget) {
  if (bytes.size() < index.size) index = pageIndexStart(index.flowLines);
  if (index.ended && bytes.size() == index.size) return true;
  if (index.ended) {
    index.read = index.beforeEnd;
    index.pages.resize(index.pagesBeforeEnd);
    index.ended = false;
  }
  index.size = bytes.size();
  PageReading& read = index.read;
  const std::uint64_t enough = read.scanned + std::min<std::uint64_t>(budget, bytes.size() - read.scanned);
  bool atEnd = read.scanned == bytes.size();
  while (!atEnd && !read.full && read.scanned < enough) {
    const LineFound found = lineFind(bytes, read.scanned);
    atEnd = found.stop == LineStop::none;
    if (!atEnd) takeLine(index, bytes, found);
    atEnd = atEnd || read.scanned == bytes.size();
  }
  if (atEnd && !read.full) reachEnd(index, bytes);
  index.shown = countShown(index);
  return atEnd || read.full;
}

void pageIndexFinish(PageIndex& index, std::string_view bytes) {
  while (!pageIndexStep(index, bytes, bytes.size() + 1)) {
  }
}

// ---- What was read ----------------------------------------------------------------------------------------------------

std::size_t pageCount(const PageIndex& index) { return index.shown; }

std::uint64_t pageLinesInReport(const PageIndex& index) { return index.read.lines; }

bool pageIndexIsFull(const PageIndex& index) { return index.read.full; }

std::size_t pageWidest(const PageIndex& index) { return index.read.widest; }

std::size_t pageLongest(const PageIndex& index) { return std::max(index.read.longest, openLines(index)); }

std::uint64_t pageFirstLine(const PageIndex& index, std::size_t page) {
  return page < index.shown ? index.pages[page].line : index.read.lines;
}

std::vector<PageLine> pageLines(const PageIndex& index, std::string_view bytes, std::size_t page) {
  std::vector<PageLine> lines;
  if (page >= index.shown) return lines;
  const std::uint64_t last = page + 1 < index.pages.size() ? index.pages[page + 1].offset : index.read.scanned;
  const std::uint64_t end = std::min<std::uint64_t>(last, bytes.size());
  bool midLine = false;
  for (std::uint64_t at = index.pages[page].offset; at < end;) {
    const LineFound found = lineFind(bytes, at);
    if (isLine(found, midLine)) lines.push_back({at, found.size});
    midLine = found.stop == LineStop::cut;
    at = found.next;
  }
  return lines;
}

bool pagePlaceOf(const PageIndex& index, std::string_view bytes, std::uint64_t offset, PagePlace& place) {
  const auto begin = index.pages.begin();
  const auto behind = std::upper_bound(begin, begin + static_cast<std::ptrdiff_t>(index.shown), offset,
                                       [](std::uint64_t wanted, const PageStart& page) { return wanted < page.offset; });
  if (behind == begin || offset >= index.read.scanned) return false;
  place.page = static_cast<std::size_t>(behind - begin) - 1;
  // Behind the last page that shows there may be blank ones.
  if (place.page + 1 < index.pages.size() && offset >= index.pages[place.page + 1].offset) return false;
  const std::vector<PageLine> lines = pageLines(index, bytes, place.page);
  if (lines.empty() || offset < lines.front().offset) return false;
  place.line = lines.size() - 1;
  while (lines[place.line].offset > offset) --place.line;
  const PageLine& line = lines[place.line];
  place.column = pageColumnOfByte(bytes, line, std::min<std::size_t>(offset - line.offset, line.size));
  return true;
}

// ---- Lines as they show -----------------------------------------------------------------------------------------------

std::string pageLineShown(std::string_view bytes, const PageLine& line) {
  std::string shown;
  for (const char c : bytes.substr(line.offset, line.size)) {
    if (c == '\t') {
      shown.append(tabColumns - shown.size() % tabColumns, ' ');
    } else {
      shown += shownByte(c);
    }
  }
  return shown;
}

std::size_t pageColumnOfByte(std::string_view bytes, const PageLine& line, std::size_t position) {
  return columnsOf(bytes.substr(line.offset, std::min(position, line.size)));
}

std::size_t pageByteOfColumn(std::string_view bytes, const PageLine& line, std::size_t column) {
  std::size_t at = 0;
  for (std::size_t position = 0; position < line.size; ++position) {
    at = bytes[line.offset + position] == '\t' ? (at / tabColumns + 1) * tabColumns : at + 1;
    if (at > column) return position;
  }
  return line.size;
}

}  // namespace quillon
