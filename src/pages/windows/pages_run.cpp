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
#include "pages/windows/paths.h"
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

// What became of a call, and the words for it.
namespace {
struct CallEnd {
  PagesStatus status = PagesStatus::done;
  std::wstring words;
};
}  // namespace

static CallEnd endOf(const PagesCommand& command, PagesStatus status) {
  return {status, statusText(status, wideFromUtf8(command.report), wideFromUtf8(command.printer), wideFromUtf8(command.file))};
}

static CallEnd refused(const PagesCommand& command, const wchar_t* why) {
  return {PagesStatus::printerFailed, L"The printer \"" + wideFromUtf8(command.printer) + L"\" " + why};
}

static constexpr wchar_t asksForFile[] = L"asks for a file. A PDF is made by /pdf.";
static constexpr wchar_t noSuchSheet[] = L"has no such sheet.";
static constexpr wchar_t noLandscape[] = L"cannot print landscape.";

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
static CallEnd layOut(const PagesCommand& command, const Report& report, PrintOrder& order) {
  if (!printerSetup(wideFromUtf8(command.printer), order.setup)) return endOf(command, PagesStatus::noPrinter);
  // Windows would show a box for the file's name and wait.
  if (printerAsksForFile(order.setup.name)) return refused(command, asksForFile);
  if (command.sheetGiven && !printerSetSheet(order.setup, command.wishes.sheet)) return refused(command, noSuchSheet);
  PrinterSheet sheet;
  if (!printerSheet(order.setup, sheet)) return endOf(command, PagesStatus::noPrinter);
  FitWishes wishes = command.wishes;
  wishes.sheet = sheet.sheet;
  wishes.barePortrait = sheet.barePortrait;
  wishes.bareLandscape = sheet.bareLandscape;
  if (!sheet.turns && wishes.orientation == Orientation::landscape) return refused(command, noLandscape);
  if (!sheet.turns) wishes.orientation = Orientation::portrait;
  const bool room = pageFit(pageWidest(report.index), pageLongest(report.index), wishes, order.fit);
  return endOf(command, room ? PagesStatus::done : PagesStatus::noRoom);
}

static CallEnd printReport(const PagesCommand& command) {
  Report report;
  if (!openReport(command, report)) return endOf(command, PagesStatus::noReport);
  if (command.firstPage >= pageCount(report.index)) return endOf(command, PagesStatus::nothingToPrint);
  PrintOrder order = {{}, {}, command.firstPage, command.lastPage, command.copies};
  const CallEnd end = layOut(command, report, order);
  return end.status == PagesStatus::done ? endOf(command, printPages(report, order, {})) : end;
}

static CallEnd saveReport(const PagesCommand& command) {
  Report report;
  if (!openReport(command, report)) return endOf(command, PagesStatus::noReport);
  const PdfOrder order = {wideFromUtf8(command.file), command.wishes, command.firstPage, command.lastPage};
  return endOf(command, pdfSave(report, order, {}));
}

static CallEnd sendReport(const PagesCommand& command) {
  const std::wstring printer = wideFromUtf8(command.printer);
  if (printerAsksForFile(printer)) return refused(command, asksForFile);
  return endOf(command, printRaw(wideFromUtf8(command.report), printer, {}));
}

static PagesStatus tellEnd(const CallEnd& end) {
  if (end.status != PagesStatus::done) (void)consoleTell(STD_ERROR_HANDLE, end.words + L"\n");
  return end.status;
}

static PagesStatus carryOut(const PagesCommand& command, bool silent) {
  switch (command.action) {
    case PagesAction::print:
      return tellEnd(printReport(command));
    case PagesAction::pdf:
      return tellEnd(saveReport(command));
    case PagesAction::raw:
      return tellEnd(sendReport(command));
    case PagesAction::listPrinters:
      return listPrinters();
    case PagesAction::help:
      tellOrShow(STD_OUTPUT_HANDLE, wideFromUtf8(pagesHelp()), MB_OK, silent);
      return PagesStatus::done;
    case PagesAction::wrongCall:
      tellOrShow(STD_ERROR_HANDLE, wideFromUtf8(command.problem + "\n\"quillon-pages /?\" tells what there is.\n"),
                 MB_ICONEXCLAMATION, silent);
      return PagesStatus::wrongCall;
    case PagesAction::show:
      break;
  }
  return PagesStatus::failed;
}

int pagesRun(HINSTANCE instance, int show) {
  const std::vector<std::string> arguments = argumentsOfCall();
  const PagesCommand command = pagesCommand(arguments);
  if (command.action != PagesAction::show) return static_cast<int>(carryOut(command, isSilent(arguments)));
  const std::wstring report = command.report.empty() ? std::wstring() : pathWhole(wideFromUtf8(command.report));
  return pagesWindowRun(instance, show, report, command.flowLines);
}

}  // namespace quillon
