#include "pages/windows/pages_run.h"

// After <windows.h>, which pages_run.h brings.
// clang-format off
#include <shellapi.h>
// clang-format on

#include <string>
#include <vector>

#include "pages/pages_command.h"
#include "pages/windows/console.h"
#include "pages/windows/pages_window.h"
#include "pages/windows/pdf_save.h"
#include "pages/windows/print_job.h"
#include "pages/windows/printers.h"
#include "pages/windows/report.h"
#include "pages/windows/status_text.h"

namespace quillon {

static constexpr wchar_t title[] = L"Quillon Pages";

static std::vector<std::string> argumentsOfCall() {
  std::vector<std::string> arguments;
  int count = 0;
  wchar_t** const all = CommandLineToArgvW(GetCommandLineW(), &count);
  for (int i = 1; all && i < count; ++i) arguments.push_back(utf8FromWide(all[i]));
  if (all) LocalFree(all);
  return arguments;
}

// ---- Words ------------------------------------------------------------------------------------------------------------

// A call that names one of these comes from a script: whatever is wrong with it, no box waits for an answer.
static bool isSilent(const std::vector<std::string>& arguments) {
  for (const std::string& argument : arguments) {
    const std::size_t word = argument.starts_with("--") ? 2 : argument.starts_with("-") || argument.starts_with("/") ? 1 : 0;
    if (word == 0) continue;
    const std::wstring option = wideFromUtf8(std::string_view(argument).substr(word));
    for (const wchar_t* silent : {L"print", L"raw", L"pdf", L"list-printers"}) {
      if (CompareStringOrdinal(option.c_str(), -1, silent, -1, TRUE) == CSTR_EQUAL) return true;
    }
  }
  return false;
}

static void tellOrShow(DWORD which, const std::wstring& text, UINT icon, bool silent) {
  if (consoleTell(which, text) || silent || !somebodyIsThere()) return;
  MessageBoxW(nullptr, text.c_str(), title, icon);
}

static PagesStatus ended(const PagesCommand& command, PagesStatus status) {
  if (status == PagesStatus::done) return status;
  const std::wstring words =
      statusText(status, wideFromUtf8(command.report), wideFromUtf8(command.printer), wideFromUtf8(command.file));
  (void)consoleTell(STD_ERROR_HANDLE, words + L"\n");
  return status;
}

// ---- Actions ----------------------------------------------------------------------------------------------------------

static PagesStatus listPrinters() {
  std::vector<Printer> printers;
  if (!printersList(printers)) {
    (void)consoleTell(STD_ERROR_HANDLE, L"Windows cannot list the printers.\n");
    return PagesStatus::failed;
  }
  std::wstring lines;
  for (const Printer& printer : printers) lines += printer.name + (printer.standard ? L"\tdefault\n" : L"\n");
  return lines.empty() || consoleTell(STD_OUTPUT_HANDLE, lines) ? PagesStatus::done : PagesStatus::failed;
}

static bool openReport(const PagesCommand& command, Report& report) {
  reportOpen(report, wideFromUtf8(command.report), command.flowLines);
  ReportBytes look;
  return reportFinish(report, look);
}

// The printer's own sheet unless another is asked for, and on it the fit.
static PagesStatus layOut(const PagesCommand& command, const Report& report, PrintOrder& order) {
  if (!printerSetup(wideFromUtf8(command.printer), order.setup)) return PagesStatus::noPrinter;
  // Windows would show a box for the file's name and wait.
  if (printerAsksForFile(order.setup.name)) return PagesStatus::printerFailed;
  if (command.sheetGiven && !printerSetSheet(order.setup, command.wishes.sheet)) return PagesStatus::printerFailed;
  PrinterSheet sheet;
  if (!printerSheet(order.setup, sheet)) return PagesStatus::noPrinter;
  FitWishes wishes = command.wishes;
  wishes.sheet = sheet.sheet;
  wishes.barePortrait = sheet.barePortrait;
  wishes.bareLandscape = sheet.bareLandscape;
  const bool room = pageFit(pageWidest(report.index), pageLongest(report.index), wishes, order.fit);
  return room ? PagesStatus::done : PagesStatus::noRoom;
}

static PagesStatus printReport(const PagesCommand& command) {
  Report report;
  if (!openReport(command, report)) return PagesStatus::noReport;
  if (command.firstPage >= pageCount(report.index)) return PagesStatus::nothingToPrint;
  PrintOrder order = {{}, {}, command.firstPage, command.lastPage, command.copies};
  const PagesStatus status = layOut(command, report, order);
  return status == PagesStatus::done ? printPages(report, order, {}) : status;
}

static PagesStatus saveReport(const PagesCommand& command) {
  Report report;
  if (!openReport(command, report)) return PagesStatus::noReport;
  return pdfSave(report, {wideFromUtf8(command.file), command.wishes, command.firstPage, command.lastPage}, {});
}

static PagesStatus sendReport(const PagesCommand& command) {
  const std::wstring printer = wideFromUtf8(command.printer);
  if (printerAsksForFile(printer)) return PagesStatus::printerFailed;
  return printRaw(wideFromUtf8(command.report), printer, {});
}

static std::wstring fullPath(const std::wstring& path) {
  if (path.empty()) return path;
  std::wstring full(GetFullPathNameW(path.c_str(), 0, nullptr, nullptr), L'\0');
  if (full.empty()) return path;
  full.resize(GetFullPathNameW(path.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr));
  return full;
}

int pagesRun(HINSTANCE instance, int show) {
  const std::vector<std::string> arguments = argumentsOfCall();
  const PagesCommand command = pagesCommand(arguments);
  PagesStatus status = PagesStatus::done;
  switch (command.action) {
    case PagesAction::show:
      return pagesWindowRun(instance, show, fullPath(wideFromUtf8(command.report)), command.flowLines);
    case PagesAction::print:
      status = ended(command, printReport(command));
      break;
    case PagesAction::pdf:
      status = ended(command, saveReport(command));
      break;
    case PagesAction::raw:
      status = ended(command, sendReport(command));
      break;
    case PagesAction::listPrinters:
      status = listPrinters();
      break;
    case PagesAction::help:
      tellOrShow(STD_OUTPUT_HANDLE, wideFromUtf8(pagesHelp()), MB_OK, isSilent(arguments));
      break;
    case PagesAction::wrongCall:
      tellOrShow(STD_ERROR_HANDLE, wideFromUtf8(command.problem + "\n\"quillon-pages /?\" tells what there is.\n"),
                 MB_ICONEXCLAMATION, isSilent(arguments));
      status = PagesStatus::wrongCall;
      break;
  }
  return static_cast<int>(status);
}

}  // namespace quillon
