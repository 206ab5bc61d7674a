// Save as PDF: the question for the file, and the window while it is written.
#include "pages/windows/paths.h"
#include "pages/windows/pdf_save.h"
#include "pages/windows/print_dialog.h"
#include "pages/windows/status_text.h"

// After <windows.h>, which the headers above bring.
// clang-format off
#include <commdlg.h>
// clang-format on

namespace quillon {

static constexpr wchar_t title[] = L"Quillon Pages";
static constexpr std::size_t longestPath = 32767;

// For "TRADES.TXT" it is "TRADES.pdf", in the report's folder.
static std::wstring proposed(const std::wstring& report) {
  const std::wstring name = pathName(report);
  const std::size_t dot = name.find_last_of(L'.');
  return (dot == std::wstring::npos || dot == 0 ? name : name.substr(0, dot)) + L".pdf";
}

// Empty where the user gave up.
static std::wstring askFile(HWND owner, const std::wstring& report) {
  std::wstring path = proposed(report);
  const std::wstring folder = pathFolder(report);
  path.resize(longestPath + 1);
  OPENFILENAMEW ask = {};
  ask.lStructSize = sizeof ask;
  ask.hwndOwner = owner;
  ask.lpstrFilter = L"PDF (*.pdf)\0*.pdf\0All files (*.*)\0*.*\0";
  ask.lpstrFile = path.data();
  ask.nMaxFile = static_cast<DWORD>(path.size());
  ask.lpstrInitialDir = folder.c_str();
  ask.lpstrTitle = L"Save as PDF";
  ask.lpstrDefExt = L"pdf";
  ask.Flags = OFN_OVERWRITEPROMPT | OFN_PATHMUSTEXIST | OFN_HIDEREADONLY | OFN_NOCHANGEDIR;
  return GetSaveFileNameW(&ask) ? std::wstring(path.c_str()) : std::wstring();
}

// As the pages show on the screen, but with the letters as large as fit: a size that was chosen once for a printer must not cut
// a column off every PDF from then on.
static FitWishes wishes() {
  FitWishes chosen = printWishes();
  chosen.fontSize = 0;
  return chosen;
}

bool saveAsPdf(HWND owner, Report& report, const std::wstring& file) {
  const std::wstring place = file.empty() ? askFile(owner, report.path) : file;
  if (place.empty()) return false;
  ProgressWindow progress;
  progressOpen(progress, owner, (L"Saving " + pathName(place)).c_str());
  bool read = false;
  {
    const HCURSOR before = SetCursor(LoadCursorW(nullptr, IDC_WAIT));
    ReportBytes look;
    read = reportFinish(report, look);
    SetCursor(before);
  }
  PagesStatus status = PagesStatus::noReport;
  if (read) status = pdfSave(report, {place, wishes(), 0, mostPages - 1}, progressOf(progress));
  progressClose(progress);
  if (status != PagesStatus::done && !progress.cancelled) {
    MessageBoxW(owner, statusText(status, report.path, L"", place).c_str(), title, MB_ICONERROR);
  }
  return status == PagesStatus::done;
}

}  // namespace quillon
