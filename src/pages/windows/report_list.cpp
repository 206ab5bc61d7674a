#include "pages/windows/report_list.h"

#include <algorithm>
#include <cstdint>
#include <vector>

#include "pages/ids.h"
#include "pages/report_names.h"
#include "pages/windows/frame.h"
#include "pages/windows/paths.h"

namespace quillon {

// A look at a folder may take this part of the time, in hundredths: one on another machine may be slow.
static constexpr ULONGLONG shareOfTime = 5;

namespace {
struct ListedReport {
  std::wstring name;
  std::uint64_t size;
  std::uint64_t written;
  bool operator==(const ListedReport&) const = default;
};
}  // namespace

static struct {
  HWND window;
  std::wstring folder;
  std::vector<ListedReport> reports;
  std::wstring marked;  // the name of the report in front
  bool marking;         // the list is selecting by itself
  ULONGLONG nextLook;
} state;

// ---- The folder --------------------------------------------------------------------------------------------------------

static std::uint64_t joined(DWORD high, DWORD low) { return std::uint64_t{high} << 32 | low; }

static bool newerFirst(const ListedReport& one, const ListedReport& other) {
  if (one.written != other.written) return one.written > other.written;
  return CompareStringOrdinal(one.name.c_str(), -1, other.name.c_str(), -1, TRUE) == CSTR_LESS_THAN;
}

static std::vector<ListedReport> reportsIn(const std::wstring& folder) {
  std::vector<ListedReport> reports;
  WIN32_FIND_DATAW found = {};
  const std::wstring all = pathOfAnyLength(pathIn(folder, L"*"));
  const HANDLE search =
      FindFirstFileExW(all.c_str(), FindExInfoBasic, &found, FindExSearchNameMatch, nullptr, FIND_FIRST_EX_LARGE_FETCH);
  if (search == INVALID_HANDLE_VALUE) return reports;
  do {
    constexpr DWORD others = FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM;
    if ((found.dwFileAttributes & others) || !isReportName(utf8FromWide(found.cFileName))) continue;
    reports.push_back({found.cFileName, joined(found.nFileSizeHigh, found.nFileSizeLow),
                       joined(found.ftLastWriteTime.dwHighDateTime, found.ftLastWriteTime.dwLowDateTime)});
  } while (FindNextFileW(search, &found));
  FindClose(search);
  std::sort(reports.begin(), reports.end(), newerFirst);
  return reports;
}

// ---- The list ----------------------------------------------------------------------------------------------------------

static void selectMarked() {
  const auto marked = std::find_if(state.reports.begin(), state.reports.end(), [](const ListedReport& report) {
    return CompareStringOrdinal(report.name.c_str(), -1, state.marked.c_str(), -1, TRUE) == CSTR_EQUAL;
  });
  state.marking = true;
  ListView_SetItemState(state.window, -1, 0, LVIS_SELECTED | LVIS_FOCUSED);
  if (marked != state.reports.end()) {
    const int row = static_cast<int>(marked - state.reports.begin());
    ListView_SetItemState(state.window, row, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
  }
  state.marking = false;
}

static void take(std::vector<ListedReport> reports) {
  if (reports == state.reports) return;
  state.reports = std::move(reports);
  state.marking = true;  // of a shorter list the last row may become the selected one
  ListView_SetItemCountEx(state.window, static_cast<int>(state.reports.size()), LVSICF_NOSCROLL);
  state.marking = false;
  selectMarked();
  reportListArrange();  // the scroll bar may have come or gone
  InvalidateRect(state.window, nullptr, TRUE);
}

void reportListRefresh(bool atOnce) {
  const ULONGLONG begun = GetTickCount64();
  if (state.folder.empty() || (!atOnce && begun < state.nextLook)) return;
  take(reportsIn(state.folder));
  const ULONGLONG taken = GetTickCount64() - begun;
  state.nextLook = begun + taken * 100 / shareOfTime;
}

void reportListShow(const std::wstring& folder) {
  state.folder = folder;
  state.marked.clear();
  reportListRefresh(true);
}

const std::wstring& reportListFolder() { return state.folder; }

std::wstring reportListNewest() {
  return state.reports.empty() ? std::wstring() : pathIn(state.folder, state.reports.front().name);
}

void reportListMark(const std::wstring& path) {
  state.marked = pathName(path);
  selectMarked();
  const int row = ListView_GetNextItem(state.window, -1, LVNI_SELECTED);
  if (row >= 0) ListView_EnsureVisible(state.window, row, FALSE);
}

// ---- Its texts ---------------------------------------------------------------------------------------------------------

static std::wstring dateText(std::uint64_t written) {
  const FILETIME time = {static_cast<DWORD>(written), static_cast<DWORD>(written >> 32)};
  SYSTEMTIME universal = {};
  SYSTEMTIME local = {};
  wchar_t date[64] = {};
  wchar_t clock[64] = {};
  FileTimeToSystemTime(&time, &universal);
  SystemTimeToTzSpecificLocalTime(nullptr, &universal, &local);
  GetDateFormatEx(LOCALE_NAME_USER_DEFAULT, DATE_SHORTDATE, &local, nullptr, date, 64, nullptr);
  GetTimeFormatEx(LOCALE_NAME_USER_DEFAULT, TIME_NOSECONDS, &local, nullptr, clock, 64);
  return std::wstring(date) + L' ' + clock;
}

// In kilobytes, begun ones counted, as Windows shows them.
static std::wstring sizeText(std::uint64_t size) { return std::to_wstring((size + 1023) / 1024) + L" KB"; }

static void giveText(LVITEMW& item) {
  if (!(item.mask & LVIF_TEXT) || !item.pszText || item.cchTextMax <= 0) return;
  item.pszText[0] = L'\0';
  const auto row = static_cast<std::size_t>(item.iItem);
  if (row >= state.reports.size()) return;
  const ListedReport& report = state.reports[row];
  const std::wstring text = item.iSubItem == 0   ? report.name
                            : item.iSubItem == 1 ? dateText(report.written)
                                                 : sizeText(report.size);
  lstrcpynW(item.pszText, text.c_str(), item.cchTextMax);
}

// A name that is typed in the list, from a row on and round.
static LRESULT rowOfName(const NMLVFINDITEMW& wanted) {
  if (!(wanted.lvfi.flags & (LVFI_STRING | LVFI_PARTIAL)) || !wanted.lvfi.psz) return -1;
  const std::wstring_view start = wanted.lvfi.psz;
  const std::size_t count = state.reports.size();
  for (std::size_t i = 0; i < count; ++i) {
    const std::size_t row = (static_cast<std::size_t>(std::max(wanted.iStart, 0)) + i) % count;
    const std::wstring& name = state.reports[row].name;
    if (name.size() < start.size()) continue;
    const int size = static_cast<int>(start.size());
    if (CompareStringOrdinal(name.c_str(), size, start.data(), size, TRUE) == CSTR_EQUAL) return static_cast<LRESULT>(row);
  }
  return -1;
}

static void onSelected(const NMLISTVIEW& change) {
  const bool chosen =
      (change.uChanged & LVIF_STATE) && (change.uNewState & LVIS_SELECTED) && !(change.uOldState & LVIS_SELECTED);
  const auto row = static_cast<std::size_t>(change.iItem);
  if (state.marking || !chosen || change.iItem < 0 || row >= state.reports.size()) return;
  state.marked = state.reports[row].name;
  frameOpenListed(pathIn(state.folder, state.marked));
}

bool reportListNotified(NMHDR* notification, LRESULT& answer) {
  if (notification->hwndFrom != state.window) return false;
  answer = 0;
  switch (notification->code) {
    case LVN_GETDISPINFOW:
      giveText(reinterpret_cast<NMLVDISPINFOW*>(notification)->item);
      return true;
    case LVN_ODFINDITEMW:
      answer = rowOfName(*reinterpret_cast<NMLVFINDITEMW*>(notification));
      return true;
    case LVN_ITEMCHANGED:
      onSelected(*reinterpret_cast<NMLISTVIEW*>(notification));
      return true;
    case NM_DBLCLK:
    case NM_RETURN:
      frameGiveFocusToPage();
      return true;
    default:
      return false;
  }
}

// ---- The window --------------------------------------------------------------------------------------------------------

// The names have what the others leave, so that nothing has to be scrolled across.
void reportListArrange() {
  static constexpr int writtenWidth = 132;
  static constexpr int sizeWidth = 72;
  static constexpr int narrowestName = 90;
  RECT client = {};
  GetClientRect(state.window, &client);
  const int others = frameScaled(writtenWidth) + frameScaled(sizeWidth);
  ListView_SetColumnWidth(state.window, 0, std::max<int>(client.right - others, frameScaled(narrowestName)));
  ListView_SetColumnWidth(state.window, 1, frameScaled(writtenWidth));
  ListView_SetColumnWidth(state.window, 2, frameScaled(sizeWidth));
}

void reportListNewFont() {
  SendMessageW(state.window, WM_SETFONT, reinterpret_cast<WPARAM>(frameFont()), TRUE);
  reportListArrange();
}

HWND reportListCreate(HWND parent) {
  constexpr DWORD style =
      WS_CHILD | WS_TABSTOP | LVS_REPORT | LVS_OWNERDATA | LVS_SINGLESEL | LVS_SHOWSELALWAYS | LVS_NOSORTHEADER;
  state.window =
      CreateWindowExW(WS_EX_CLIENTEDGE, WC_LISTVIEWW, L"Reports", style, 0, 0, 0, 0, parent,
                      reinterpret_cast<HMENU>(static_cast<INT_PTR>(ID_REPORT_LIST)), GetModuleHandleW(nullptr), nullptr);
  ListView_SetExtendedListViewStyle(state.window, LVS_EX_FULLROWSELECT | LVS_EX_DOUBLEBUFFER | LVS_EX_LABELTIP);
  static constexpr const wchar_t* titles[] = {L"Report", L"Written", L"Size"};
  for (int i = 0; i < 3; ++i) {
    LVCOLUMNW column = {};
    column.mask = LVCF_TEXT | LVCF_WIDTH | LVCF_FMT | LVCF_SUBITEM;
    column.fmt = i == 2 ? LVCFMT_RIGHT : LVCFMT_LEFT;
    column.cx = 100;
    std::wstring title = titles[i];
    column.pszText = title.data();
    column.iSubItem = i;
    ListView_InsertColumn(state.window, i, &column);
  }
  reportListNewFont();
  return state.window;
}

}  // namespace quillon
