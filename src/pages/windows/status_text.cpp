#include "pages/windows/status_text.h"

namespace quillon {

static std::wstring quoted(const std::wstring& name) { return L"\"" + name + L"\""; }

std::wstring statusText(PagesStatus status, const std::wstring& report, const std::wstring& printer, const std::wstring& file) {
  switch (status) {
    case PagesStatus::done:
      return {};
    case PagesStatus::failed:
      return L"The report " + quoted(report) + L" has too many pages.";
    case PagesStatus::wrongCall:
      return L"This cannot be done.";
    case PagesStatus::noReport:
      return L"The report " + quoted(report) + L" cannot be read, or it was written anew meanwhile.";
    case PagesStatus::nothingToPrint:
      return L"The report " + quoted(report) + L" has nothing on the pages that were asked for.";
    case PagesStatus::noRoom:
      return L"The margins leave no room on the sheet.";
    case PagesStatus::noPrinter:
      return L"There is no printer " + quoted(printer) + L", or it cannot be opened.";
    case PagesStatus::printerFailed:
      return L"The printer " + quoted(printer) +
             L" did not take the report. See that it is there and switched on, and look at its queue.";
    case PagesStatus::fileFailed:
      return L"The PDF " + quoted(file) + L" cannot be written. A file of that name is as it was before.";
  }
  return {};
}

}  // namespace quillon
