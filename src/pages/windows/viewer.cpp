#include "pages/windows/viewer.h"

#include <algorithm>

#include "pages/windows/print_dialog.h"

namespace quillon {

static constexpr std::size_t firstBudget = std::size_t{1} << 20;   // bytes before the first page is drawn
static constexpr std::size_t workBudget = std::size_t{4} << 20;    // bytes that take some hundredths of a second
static constexpr std::size_t countedSize = std::size_t{16} << 20;  // of a report whose matches are counted at once

static Viewer shown;

static struct {
  unsigned version = 0;    // of the report that the page and the match belong to
  std::uint64_t size = 0;  // of the report that the lines were taken from
  std::uint64_t written = 0;
  std::size_t linesPage = 0;  // the page that the lines are of
  std::size_t wanted = 0;     // the page that the user turned to; the one that shows may be before it
  bool followsEnd = false;    // the user turned to the last page
  FitWishes wishes;
  PageFinder finder;
  PageSearch search;
  bool searching = false;
  bool matchToShow = false;  // found, and its page is not read yet
  bool wrapped = false;
} state;

const Viewer& viewer() { return shown; }

// ---- The page ----------------------------------------------------------------------------------------------------------

static void changed() { ++shown.changes; }

static void settleFit() {
  PageFit fit = {};
  const std::size_t columns = pageWidest(shown.report.index);
  const std::size_t lines = pageLongest(shown.report.index);
  // Margins may be remembered that leave no room: they are for the print dialog to refuse.
  if (!pageFit(columns, lines, state.wishes, fit) && !pageFit(columns, lines, {}, fit)) return;
  const PageFit& old = shown.fit;
  const bool same = fit.landscape == old.landscape && fit.width == old.width && fit.height == old.height &&
                    fit.fontSize == old.fontSize && fit.lineHeight == old.lineHeight && fit.left == old.left &&
                    fit.top == old.top && fit.columns == old.columns && fit.lines == old.lines;
  if (same) return;
  shown.fit = fit;
  changed();
}

static void settlePage() {
  const std::size_t count = pageCount(shown.report.index);
  const std::size_t last = count > 0 ? count - 1 : 0;
  const std::size_t page = state.followsEnd ? last : std::min(state.wanted, last);
  if (page == shown.page) return;
  shown.page = page;
  shown.selection = {};
  changed();
}

static void takeMarks(std::string_view bytes) {
  std::vector<PageMark> marks = pageMarks(state.finder, bytes, shown.places);
  if (marks == shown.marks) return;
  shown.marks = std::move(marks);
  changed();
}

// The lines of the page that shows, where they may have become others.
static void takeLines(std::string_view bytes) {
  const Report& report = shown.report;
  const bool same = state.linesPage == shown.page && state.size == report.size && state.written == report.written;
  // The page that is read at the moment is still becoming longer.
  if (same && shown.state == ReportState::complete && !shown.lines.empty()) return;
  state.linesPage = shown.page;
  state.size = report.size;
  state.written = report.written;
  shown.places = pageLines(report.index, bytes, shown.page);
  PageText lines;
  for (const PageLine& place : shown.places) lines.push_back(pageLineShown(bytes, place));
  if (lines != shown.lines) {
    shown.lines = std::move(lines);
    changed();
  }
  takeMarks(bytes);
}

static void showMatch(std::string_view bytes);

static void settle(std::string_view bytes) {
  if (state.version != shown.report.version) {
    state.version = shown.report.version;
    shown.selection = {};
    shown.match = notFound;
    state.searching = state.matchToShow = false;
    shown.find = FindState::none;
    shown.lines.clear();
    shown.places.clear();
    shown.marks.clear();
    changed();
  }
  if (state.matchToShow) showMatch(bytes);
  settleFit();
  settlePage();
  takeLines(bytes);
}

void viewerStep(std::size_t budget) {
  if (!shown.open) return;
  ReportBytes look;
  shown.state = reportStep(shown.report, look, budget);
  if (shown.state != ReportState::unreadable) settle(look.bytes);
}

void viewerBegin() {
  reportOpen(shown.report, {});
  viewerFitAgain();
}

static void begin(const std::wstring& path, std::size_t flowLines) {
  reportOpen(shown.report, path, flowLines);
  shown.state = ReportState::complete;
  shown.page = 0;
  state.wanted = 0;
  state.followsEnd = false;
  state.size = 0;
  settle({});
}

void viewerOpen(const std::wstring& path, std::size_t flowLines) {
  shown.open = true;
  state.wishes = printWishes();
  begin(path, flowLines);
  viewerStep(firstBudget);
}

void viewerClose() {
  shown.open = false;
  begin({}, usualFlowLines);
}

Report& viewerReport() { return shown.report; }

void viewerTurnTo(std::size_t page) {
  state.wanted = page;
  state.followsEnd = false;
  const std::size_t count = pageCount(shown.report.index);
  if (shown.state == ReportState::complete && count > 0 && page + 1 >= count) {
    state.wanted = count - 1;
    state.followsEnd = count > 1;
  }
  viewerStep(0);
}

void viewerTurnToLast() {
  state.wanted = std::max<std::size_t>(pageCount(shown.report.index), 1) - 1;
  state.followsEnd = true;
  viewerStep(0);
}

void viewerFitAgain() {
  state.wishes = printWishes();
  settleFit();
}

void viewerSelect(const PageSelection& selection) {
  if (selection == shown.selection) return;
  shown.selection = selection;
  changed();
}

// ---- Finding -----------------------------------------------------------------------------------------------------------

void viewerSeek(const std::wstring& text, bool matchCase) {
  const PageFinder finder = pageFinder(utf8FromWide(text), matchCase);
  if (finder.text == state.finder.text && finder.matchCase == state.finder.matchCase) return;
  viewerFindStop();
  state.finder = finder;
  shown.find = FindState::none;
  shown.match = notFound;
  ReportBytes look;
  const bool same = shown.open && reportLook(shown.report.path, look) && look.bytes.size() == state.size;
  if (same) return takeMarks(look.bytes);
  shown.marks.clear();
  changed();
}

// Where a search begins: behind the current match, or before it, where the user still has its page in front; otherwise at the
// beginning of the page, or at its end.
static std::uint64_t searchFrom(bool forward) {
  const std::size_t size = state.finder.text.size();
  if (viewerMatchOnPage()) {
    if (forward) return shown.match + size;
    return shown.match + 1 > size ? shown.match + 1 - size : 0;
  }
  if (shown.places.empty()) return 0;
  const PageLine& last = shown.places.back();
  return forward ? shown.places.front().offset : last.offset + last.size;
}

void viewerFind(bool forward) {
  if (!shown.open) return;
  state.matchToShow = false;
  state.search = pageSearchStart(state.finder, forward, searchFrom(forward));
  state.searching = true;
  shown.find = FindState::searching;
}

void viewerFindStop() {
  if (!state.searching && !state.matchToShow) return;
  state.searching = state.matchToShow = false;
  shown.match = notFound;
  shown.find = FindState::stopped;
  changed();
}

int viewerFindProgress() {
  const std::uint64_t size = std::max<std::uint64_t>(shown.report.size, 1);
  const PageSearch& search = state.search;
  const std::uint64_t from = std::min(search.from, size);
  const std::uint64_t at = std::min(search.at, size);
  const std::uint64_t done = search.forward ? (search.wrapped ? size - from + at : at - std::min(from, at))
                                            : (search.wrapped ? from + (size - at) : from - std::min(from, at));
  return static_cast<int>(std::min(done, size) * 100 / size);
}

static FindState howFound() {
  if (!state.wrapped) return FindState::found;
  return state.search.forward ? FindState::foundFromStart : FindState::foundFromEnd;
}

// The page of a match comes to the front as soon as it is read.
static void showMatch(std::string_view bytes) {
  PagePlace place = {};
  if (pagePlaceOf(shown.report.index, bytes, shown.match, place)) {
    state.matchToShow = false;
    state.wanted = place.page;
    state.followsEnd = false;
    shown.find = howFound();
    changed();
  } else if (shown.state == ReportState::complete) {
    state.matchToShow = false;
    shown.match = notFound;
    shown.find = FindState::notShown;
  }
}

static void searchOn() {
  ReportBytes look;
  const unsigned version = shown.report.version;
  shown.state = reportStep(shown.report, look, 0);
  if (shown.state == ReportState::unreadable || version != shown.report.version) {
    viewerFindStop();
    if (shown.state != ReportState::unreadable) settle(look.bytes);
    return;
  }
  const PageSearchState step = pageSearchStep(state.search, look.bytes, 4 * workBudget);
  if (step == PageSearchState::searching) return;
  state.searching = false;
  shown.matchCount = {};
  if (step == PageSearchState::nowhere) {
    shown.match = notFound;
    shown.find = FindState::nowhere;
    changed();
    return;
  }
  shown.match = state.search.match;
  state.wrapped = state.search.wrapped;
  state.matchToShow = true;
  if (look.bytes.size() <= countedSize) shown.matchCount = pageMatchCount(state.finder, look.bytes, shown.match);
  settle(look.bytes);
}

const PageMark* viewerMatchOnPage() {
  const auto found =
      std::find_if(shown.marks.begin(), shown.marks.end(), [](const PageMark& mark) { return mark.offset == shown.match; });
  return found == shown.marks.end() ? nullptr : &*found;
}

// ---- Between the user's wishes -----------------------------------------------------------------------------------------

bool viewerHasWork() {
  return shown.open && shown.state != ReportState::unreadable && (state.searching || shown.state == ReportState::reading);
}

void viewerWork() {
  if (state.searching) return searchOn();
  viewerStep(workBudget);
}

}  // namespace quillon
