// The print dialog and Save as PDF of quillon-pages, each by itself, for the tests that work them from outside. The status is 0
// when all of it was printed or saved.
//
//     quillon-pages-dialogs print REPORT PAGE      (counted from 1)
//     quillon-pages-dialogs pdf REPORT [FILE]
#include <string>

#include "pages/windows/print_dialog.h"

int WINAPI wWinMain(HINSTANCE, HINSTANCE, PWSTR, int) {
  if (__argc < 3) return 2;
  quillon::Report report;
  quillon::reportOpen(report, __wargv[2]);
  const std::wstring what = __wargv[1];
  if (what == L"print" && __argc == 4) return quillon::printDialog(nullptr, report, std::stoul(__wargv[3]) - 1) ? 0 : 1;
  if (what == L"pdf") return quillon::saveAsPdf(nullptr, report, __argc > 3 ? __wargv[3] : L"") ? 0 : 1;
  return 2;
}
