#include "pages/windows/print_dialog.h"

#include <iterator>
#include <vector>

#include "pages/print_ids.h"
#include "pages/print_plan.h"
#include "pages/windows/paths.h"
#include "pages/windows/print_job.h"
#include "pages/windows/printers.h"
#include "pages/windows/progress.h"
#include "pages/windows/settings.h"
#include "pages/windows/status_text.h"

namespace quillon {

namespace {

struct NamedSheet {
  const wchar_t* name;
  Sheet sheet;
};
constexpr NamedSheet namedSheets[] = {{L"A4", sheetA4}, {L"A3", sheetA3}, {L"Letter", sheetLetter}, {L"Legal", sheetLegal}};

}  // namespace

static constexpr wchar_t title[] = L"Quillon Pages";
static constexpr wchar_t ownSheet[] = L"The printer's own";
static constexpr wchar_t largestFit[] = L"As large as fits";

static struct {
  const Report* report;
  std::size_t page;
  std::vector<Printer> printers;
  PrinterSetup setup;      // of the chosen printer, as its user set it in Windows or by Properties
  PrinterSetup withSheet;  // with the chosen sheet as well
  PrinterSheet sheet;
  bool ready;  // the printer can be asked
  bool filling;
  std::wstring wantedSheet;  // what the user chose last, whether or not this printer has it
  bool asItIs;
  PrintPlan plan;
} state;

// ---- Entries ----------------------------------------------------------------------------------------------------------

static std::wstring textOf(HWND dialog, int id) {
  const HWND control = GetDlgItem(dialog, id);
  std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(control)) + 1, L'\0');
  text.resize(static_cast<std::size_t>(GetWindowTextW(control, text.data(), static_cast<int>(text.size()))));
  const std::size_t first = text.find_first_not_of(L' ');
  return first == std::wstring::npos ? std::wstring() : text.substr(first, text.find_last_not_of(L' ') + 1 - first);
}

static std::string entryOf(HWND dialog, int id) { return utf8FromWide(textOf(dialog, id)); }

static bool isChecked(HWND dialog, int id) { return IsDlgButtonChecked(dialog, id) == BST_CHECKED; }

static std::wstring fontOf(HWND dialog) {
  const std::wstring text = textOf(dialog, IDC_PRINT_FONT);
  return text == largestFit ? std::wstring() : text;
}

static PagesChosen pagesOf(HWND dialog) {
  if (isChecked(dialog, IDC_PRINT_THIS_PAGE)) return PagesChosen::thisPage;
  return isChecked(dialog, IDC_PRINT_FROM_TO) ? PagesChosen::fromTo : PagesChosen::all;
}

static Orientation orientationOf(HWND dialog) {
  return static_cast<Orientation>(ComboBox_GetCurSel(GetDlgItem(dialog, IDC_PRINT_ORIENTATION)));
}

static PrintEntries entriesOf(HWND dialog) {
  PrintEntries entries;
  entries.orientation = orientationOf(dialog);
  entries.fontSize = utf8FromWide(fontOf(dialog));
  entries.left = entryOf(dialog, IDC_PRINT_LEFT);
  entries.top = entryOf(dialog, IDC_PRINT_TOP);
  entries.right = entryOf(dialog, IDC_PRINT_RIGHT);
  entries.bottom = entryOf(dialog, IDC_PRINT_BOTTOM);
  entries.pages = pagesOf(dialog);
  entries.from = entryOf(dialog, IDC_PRINT_FROM);
  entries.to = entryOf(dialog, IDC_PRINT_TO);
  entries.copies = entryOf(dialog, IDC_PRINT_COPIES);
  return entries;
}

// ---- What comes out ---------------------------------------------------------------------------------------------------

static std::wstring outcome(HWND dialog, bool& possible) {
  possible = false;
  if (state.printers.empty()) return L"No printer is installed. Add one in the settings of Windows.";
  if (!state.ready) return L"This printer cannot be opened.";
  state.plan = printPlan(entriesOf(dialog), state.sheet, state.report->index, state.page);
  if (!state.asItIs) {
    possible = state.plan.possible;
    return wideFromUtf8(state.plan.status);
  }
  possible = state.report->size > 0;
  return possible ? L"As it is: " + wideFromUtf8(bytesText(state.report->size)) : L"The report is empty.";
}

static void refresh(HWND dialog) {
  if (state.filling) return;
  state.asItIs = isChecked(dialog, IDC_PRINT_AS_IT_IS);
  EnableWindow(GetDlgItem(dialog, IDC_PRINT_PROPERTIES), state.ready && !state.asItIs);
  EnableWindow(GetDlgItem(dialog, IDC_PRINT_PRINTER), !state.printers.empty());
  for (int id = IDC_PRINT_SHEET; id <= IDC_PRINT_COPIES; ++id) EnableWindow(GetDlgItem(dialog, id), !state.asItIs);
  bool possible = false;
  const std::wstring text = outcome(dialog, possible);
  // Written only when it is another: who listens to a screen reader hears it once.
  if (textOf(dialog, IDC_PRINT_STATUS) != text) SetDlgItemTextW(dialog, IDC_PRINT_STATUS, text.c_str());
  EnableWindow(GetDlgItem(dialog, IDOK), possible);
}

// ---- Printer and sheet ------------------------------------------------------------------------------------------------

static void takeSheet(HWND dialog) {
  state.withSheet = state.setup;
  const std::wstring chosen = textOf(dialog, IDC_PRINT_SHEET);
  for (const NamedSheet& named : namedSheets) {
    if (state.ready && chosen == named.name && !printerSetSheet(state.withSheet, named.sheet)) state.ready = false;
  }
  state.ready = state.ready && printerSheet(state.withSheet, state.sheet);
}

// The sheets that this printer has; the one that was wanted if it is among them.
static void fillSheets(HWND dialog) {
  const HWND list = GetDlgItem(dialog, IDC_PRINT_SHEET);
  ComboBox_ResetContent(list);
  ComboBox_AddString(list, ownSheet);
  ComboBox_SetCurSel(list, 0);
  for (const NamedSheet& named : namedSheets) {
    PrinterSetup tried = state.setup;
    if (!state.ready || !printerSetSheet(tried, named.sheet)) continue;
    const int item = ComboBox_AddString(list, named.name);
    if (state.wantedSheet == named.name) ComboBox_SetCurSel(list, item);
  }
}

static void takePrinter(HWND dialog) {
  const int chosen = ComboBox_GetCurSel(GetDlgItem(dialog, IDC_PRINT_PRINTER));
  const bool there = chosen >= 0 && static_cast<std::size_t>(chosen) < state.printers.size();
  const HCURSOR before = SetCursor(LoadCursorW(nullptr, IDC_WAIT));  // a printer on another machine may take its time
  state.ready = there && printerSetup(state.printers[static_cast<std::size_t>(chosen)].name, state.setup);
  fillSheets(dialog);
  takeSheet(dialog);
  SetCursor(before);
}

static void askProperties(HWND dialog) {
  if (!state.ready || !printerAsk(dialog, state.setup)) return;
  fillSheets(dialog);
  takeSheet(dialog);
}

// ---- Remembered -------------------------------------------------------------------------------------------------------

static void fillPrinters(HWND dialog) {
  const HWND list = GetDlgItem(dialog, IDC_PRINT_PRINTER);
  const std::wstring last = settingsText(L"Printer", L"");
  int chosen = state.printers.empty() ? -1 : 0;
  bool remembered = false;
  for (const Printer& printer : state.printers) {
    const int item = ComboBox_AddString(list, printer.name.c_str());
    if (printer.name == last) remembered = true;
    if (printer.name == last || (printer.standard && !remembered)) chosen = item;
  }
  ComboBox_SetCurSel(list, chosen);
}

static void fillFonts(HWND dialog) {
  const HWND list = GetDlgItem(dialog, IDC_PRINT_FONT);
  for (const wchar_t* size : {largestFit, L"6", L"7", L"8", L"9", L"10", L"12"}) ComboBox_AddString(list, size);
  const std::wstring last = settingsText(L"FontSize", L"");
  SetWindowTextW(list, last.empty() ? largestFit : last.c_str());
}

// A range belongs to the report for which it was chosen.
static void fillPages(HWND dialog) {
  const bool same = settingsText(L"PagesOf", L"") == state.report->path;
  const int kept = same ? settingsNumber(L"Pages", 0) : 0;
  const int chosen = kept >= 0 && kept <= 2 ? kept : 0;
  CheckRadioButton(dialog, IDC_PRINT_ALL, IDC_PRINT_FROM_TO, IDC_PRINT_ALL + chosen);
  SetDlgItemTextW(dialog, IDC_PRINT_FROM, same ? settingsText(L"PagesFrom", L"").c_str() : L"");
  SetDlgItemTextW(dialog, IDC_PRINT_TO, same ? settingsText(L"PagesTo", L"").c_str() : L"");
}

static void fill(HWND dialog) {
  state.filling = true;
  fillPrinters(dialog);
  CheckDlgButton(dialog, IDC_PRINT_AS_IT_IS, settingsNumber(L"AsItIs", 0) ? BST_CHECKED : BST_UNCHECKED);
  state.wantedSheet = settingsText(L"Sheet", L"");
  const HWND orientations = GetDlgItem(dialog, IDC_PRINT_ORIENTATION);
  for (const wchar_t* name : {L"Automatic", L"Portrait", L"Landscape"}) ComboBox_AddString(orientations, name);
  if (ComboBox_SetCurSel(orientations, settingsNumber(L"Orientation", 0)) < 0) ComboBox_SetCurSel(orientations, 0);
  fillFonts(dialog);
  SetDlgItemTextW(dialog, IDC_PRINT_LEFT, settingsText(L"MarginLeft", L"10").c_str());
  SetDlgItemTextW(dialog, IDC_PRINT_TOP, settingsText(L"MarginTop", L"10").c_str());
  SetDlgItemTextW(dialog, IDC_PRINT_RIGHT, settingsText(L"MarginRight", L"10").c_str());
  SetDlgItemTextW(dialog, IDC_PRINT_BOTTOM, settingsText(L"MarginBottom", L"10").c_str());
  fillPages(dialog);
  SetDlgItemTextW(dialog, IDC_PRINT_COPIES, settingsText(L"Copies", L"1").c_str());
  state.filling = false;
  takePrinter(dialog);
}

static void keep(HWND dialog) {
  settingsKeep(L"Printer", textOf(dialog, IDC_PRINT_PRINTER));
  settingsKeep(L"AsItIs", state.asItIs ? 1 : 0);
  if (state.asItIs) return;  // the rest was of no concern
  const std::wstring sheet = textOf(dialog, IDC_PRINT_SHEET);
  settingsKeep(L"Sheet", sheet == ownSheet ? std::wstring() : sheet);
  settingsKeep(L"Orientation", static_cast<int>(orientationOf(dialog)));
  settingsKeep(L"FontSize", fontOf(dialog));
  settingsKeep(L"MarginLeft", textOf(dialog, IDC_PRINT_LEFT));
  settingsKeep(L"MarginTop", textOf(dialog, IDC_PRINT_TOP));
  settingsKeep(L"MarginRight", textOf(dialog, IDC_PRINT_RIGHT));
  settingsKeep(L"MarginBottom", textOf(dialog, IDC_PRINT_BOTTOM));
  settingsKeep(L"PagesOf", state.report->path);
  settingsKeep(L"Pages", static_cast<int>(pagesOf(dialog)));
  settingsKeep(L"PagesFrom", textOf(dialog, IDC_PRINT_FROM));
  settingsKeep(L"PagesTo", textOf(dialog, IDC_PRINT_TO));
  settingsKeep(L"Copies", textOf(dialog, IDC_PRINT_COPIES));
}

// ---- Events -----------------------------------------------------------------------------------------------------------

// What is chosen from the list of sizes reaches the edit only after this event.
static void takeFontFromList(HWND dialog) {
  const HWND list = GetDlgItem(dialog, IDC_PRINT_FONT);
  const int item = ComboBox_GetCurSel(list);
  if (item < 0) return;
  std::wstring text(static_cast<std::size_t>(ComboBox_GetLBTextLen(list, item)) + 1, L'\0');
  ComboBox_GetLBText(list, item, text.data());
  SetWindowTextW(list, text.c_str());
}

static void onCommand(HWND dialog, int id, int event) {
  if (state.filling) return;
  if (id == IDOK) {
    refresh(dialog);
    if (!IsWindowEnabled(GetDlgItem(dialog, IDOK))) return;
    keep(dialog);
    EndDialog(dialog, IDOK);
  } else if (id == IDCANCEL) {
    EndDialog(dialog, IDCANCEL);
  } else if (id == IDC_PRINT_PROPERTIES) {
    askProperties(dialog);
    refresh(dialog);
  } else if (id == IDC_PRINT_PRINTER && event == CBN_SELCHANGE) {
    takePrinter(dialog);
    refresh(dialog);
  } else if (id == IDC_PRINT_SHEET && event == CBN_SELCHANGE) {
    const std::wstring sheet = textOf(dialog, IDC_PRINT_SHEET);
    state.wantedSheet = sheet == ownSheet ? std::wstring() : sheet;
    // What was chosen in the printer's own settings stays.
    state.ready ? takeSheet(dialog) : takePrinter(dialog);
    refresh(dialog);
  } else if (event == CBN_SELCHANGE || event == CBN_EDITCHANGE || event == EN_CHANGE || event == BN_CLICKED) {
    if (id == IDC_PRINT_FONT && event == CBN_SELCHANGE) takeFontFromList(dialog);
    const bool range = id == IDC_PRINT_FROM || id == IDC_PRINT_TO;
    if (range && event == EN_CHANGE) CheckRadioButton(dialog, IDC_PRINT_ALL, IDC_PRINT_FROM_TO, IDC_PRINT_FROM_TO);
    refresh(dialog);
  }
}

static INT_PTR CALLBACK procedure(HWND dialog, UINT message, WPARAM wParam, LPARAM) {
  if (message == WM_INITDIALOG) {
    fill(dialog);
    refresh(dialog);
    return TRUE;
  }
  if (message != WM_COMMAND) return FALSE;
  onCommand(dialog, LOWORD(wParam), HIWORD(wParam));
  return TRUE;
}

// ---- The job ----------------------------------------------------------------------------------------------------------

static PagesStatus runJob(const Report& report, const Progress& progress) {
  if (state.asItIs) return printRaw(report.path, state.setup.name, progress);
  const PrintPlan& plan = state.plan;
  return printPages(report, {state.withSheet, plan.fit, plan.first, plan.last, plan.copies}, progress);
}

static bool readReport(HWND owner, Report& report) {
  const HCURSOR before = SetCursor(LoadCursorW(nullptr, IDC_WAIT));
  ReportBytes look;
  const bool read = reportFinish(report, look);
  SetCursor(before);
  if (read) return true;
  MessageBoxW(owner, statusText(PagesStatus::noReport, report.path, L"", L"").c_str(), title, MB_ICONERROR);
  return false;
}

bool printDialog(HWND owner, Report& report, std::size_t page) {
  if (!readReport(owner, report)) return false;
  state = {};
  state.report = &report;
  state.page = page;
  if (!printersList(state.printers)) state.printers.clear();
  const HINSTANCE instance = GetModuleHandleW(nullptr);
  if (DialogBoxParamW(instance, MAKEINTRESOURCEW(IDD_PRINT), owner, procedure, 0) != IDOK) return false;
  ProgressWindow progress;
  progressOpen(progress, owner, (L"Printing " + pathName(report.path)).c_str());
  const PagesStatus status = runJob(report, progressOf(progress));
  progressClose(progress);
  // Where it failed for no reason with a name, the user gave it up where Windows asked for a file. After Cancel the printer may
  // refuse what is left.
  if (status != PagesStatus::done && status != PagesStatus::failed && !progress.cancelled) {
    MessageBoxW(owner, statusText(status, report.path, state.setup.name, L"").c_str(), title, MB_ICONERROR);
  }
  return status == PagesStatus::done;
}

}  // namespace quillon
