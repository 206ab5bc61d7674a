#include "pages/windows/status_bar.h"

#include <algorithm>
#include <iterator>
#include <string>

#include "pages/ids.h"
#include "pages/windows/frame.h"
#include "pages/windows/page_view.h"
#include "pages/windows/viewer.h"

namespace quillon {

enum StatusPart { statusPage, statusFit, statusZoom, statusWords, statusParts };
static constexpr int partWidths[] = {150, 250, 60};  // at 96 dots an inch; the last part has what is left

static struct {
  HWND window;
  std::wstring texts[statusParts];
} state;

static std::wstring pageText() {
  const std::size_t count = pageCount(viewer().report.index);
  if (!viewer().open || count == 0) return {};
  return L"Page " + std::to_wstring(viewer().page + 1) + L" of " + std::to_wstring(count);
}

static std::wstring matchText() {
  const PageMatchCount& count = viewer().matchCount;
  if (count.all == 0) return {};
  return L"Match " + std::to_wstring(count.number) + L" of " + std::to_wstring(count.all) + L".";
}

static std::wstring findText() {
  const std::wstring match = matchText();
  const std::wstring behind = match.empty() ? L"" : L" " + match;
  switch (viewer().find) {
    case FindState::searching:
      return L"Searching ... " + std::to_wstring(viewerFindProgress()) + L" % (Esc stops)";
    case FindState::found:
      return match.empty() ? L"Found." : match;
    case FindState::foundFromStart:
      return L"Searched on from the first page." + behind;
    case FindState::foundFromEnd:
      return L"Searched on from the last page." + behind;
    case FindState::nowhere:
      return L"The text is not in this report.";
    case FindState::stopped:
      return L"The search was stopped.";
    case FindState::notShown:
      return L"Found behind the pages that can be shown.";
    case FindState::none:
      return {};
  }
  return {};
}

static std::wstring stateText() {
  const Report& report = viewer().report;
  if (!viewer().open) return {};
  if (viewer().state == ReportState::unreadable) return L"The report cannot be read.";
  if (viewer().state == ReportState::reading) {
    const std::uint64_t size = std::max<std::uint64_t>(report.size, 1);
    return L"reading ... " + std::to_wstring(report.index.read.scanned * 100 / size) + L" %";
  }
  if (pageIndexIsFull(report.index)) return L"more pages than can be shown";
  return pageCount(report.index) == 0 ? L"The report is empty." : L"";
}

// What the user asked for comes before what the program does by itself; that nothing can be read comes before all.
static std::wstring wordsText() {
  const bool unreadable = viewer().open && viewer().state == ReportState::unreadable;
  const std::wstring found = unreadable ? std::wstring() : findText();
  return found.empty() ? stateText() : found;
}

static void setText(StatusPart part, const std::wstring& text) {
  if (state.texts[part] == text) return;
  // Written only when it is another: who listens to a screen reader hears it once.
  if (SendMessageW(state.window, SB_SETTEXTW, part, reinterpret_cast<LPARAM>(text.c_str()))) state.texts[part] = text;
}

void statusBarUpdate() {
  const bool pages = viewer().open && pageCount(viewer().report.index) > 0;
  setText(statusPage, pageText());
  setText(statusFit, pages ? wideFromUtf8(pageFitText(viewer().fit)) : L"");
  setText(statusZoom, pages && !frameShowsText() ? std::to_wstring(pageViewPercent()) + L" %" : L"");
  setText(statusWords, wordsText());
}

void statusBarArrange() {
  SendMessageW(state.window, WM_SETFONT, reinterpret_cast<WPARAM>(frameFont()), TRUE);
  SendMessageW(state.window, WM_SIZE, 0, 0);
  int ends[statusParts] = {};
  int end = 0;
  for (std::size_t i = 0; i < std::size(partWidths); ++i) ends[i] = end += frameScaled(partWidths[i]);
  ends[statusWords] = -1;
  SendMessageW(state.window, SB_SETPARTS, statusParts, reinterpret_cast<LPARAM>(ends));
}

int statusBarHeight() {
  RECT area = {};
  GetWindowRect(state.window, &area);
  return area.bottom - area.top;
}

HWND statusBarCreate(HWND parent) {
  state.window =
      CreateWindowExW(0, STATUSCLASSNAMEW, L"", WS_CHILD | WS_VISIBLE | SBARS_SIZEGRIP, 0, 0, 0, 0, parent,
                      reinterpret_cast<HMENU>(static_cast<INT_PTR>(ID_STATUS_BAR)), GetModuleHandleW(nullptr), nullptr);
  return state.window;
}

}  // namespace quillon
