// The report in front of the user: which of its pages shows, that page's lines, what is selected on it and what is found in the
// report. It knows no window; the window's parts show what stands here.
//
// The lines of the page are kept as they were when they were last read, so that the page stays on the screen when its file has
// gone away, and a window that is drawn anew needs no file.
#pragma once

#include "pages/page_fit.h"
#include "pages/page_search.h"
#include "pages/page_selection.h"
#include "pages/windows/report.h"

namespace quillon {

enum class FindState {
  none,
  searching,
  found,
  foundFromStart,  // the search went on over the end of the report
  foundFromEnd,    // backwards, over its beginning
  nowhere,
  stopped,
  notShown,  // on a page behind those that can be shown
};

struct Viewer {
  Report report;
  bool open = false;  // a report was chosen
  ReportState state = ReportState::complete;
  std::size_t page = 0;  // that shows; 0 where there is none
  std::vector<PageLine> places;
  PageText lines;
  PageFit fit = {};
  PageSelection selection;

  FindState find = FindState::none;
  std::uint64_t match = notFound;  // the current one
  PageMatchCount matchCount = {};  // all 0 where counting would take long
  std::vector<PageMark> marks;     // the matches on the page

  unsigned changes = 0;  // one more whenever the page is to be drawn anew
};
const Viewer& viewer();

// Before all else.
void viewerBegin();

// Shows a report from its first page; what was sought before is marked in it too.
void viewerOpen(const std::wstring& path, std::size_t flowLines);

void viewerClose();
Report& viewerReport();  // for who prints it; viewerStep afterwards

// Looks whether the file has changed, and reads about `budget` bytes further.
void viewerStep(std::size_t budget);
// There is something to go on with, by viewerWork, when nobody asks for anything else.
bool viewerHasWork();
void viewerWork();

// Turns to a page, from 0; to the last one where there are fewer. A page that is not read yet shows when it is. Who turns to
// the last page stays on the last one when the report grows.
void viewerTurnTo(std::size_t page);
void viewerTurnToLast();
// What of the sheet's and the letters' size was chosen for printing counts here as well; it may have changed.
void viewerFitAgain();

void viewerSelect(const PageSelection& selection);

// What is sought, as it was typed: marked on the page from now on.
void viewerSeek(const std::wstring& text, bool matchCase);
// Begins a search for it from the current match, or from the page that shows. Nothing where nothing is sought.
void viewerFind(bool forward);
void viewerFindStop();
// How far a search is, in hundredths.
int viewerFindProgress();

// The current match on the page that shows; null where there is none.
const PageMark* viewerMatchOnPage();

}  // namespace quillon
