// The Breakup Data form (PRNTBRKUP). The user loads one breakup file, says whether it is a normal or a Kesto one, types the
// broker number that the heading bears, and gets each scrip's figures by client type, in the order of the file or by scrip
// code. The file is first looked at when Print is pressed, and the user is asked nothing about it.
#include "market/breakup_form.h"

#include <cstddef>
#include <string>

#include "desktop/clock.h"
#include "desktop/memory.h"
#include "frame/file_selection.h"
#include "frame/report_form.h"
#include "frame/run_date.h"
#include "frame/tools.h"
#include "market/breakup_file.h"
#include "market/breakup_report.h"
#include "frame/file_name.h"
#include "resource.h"
#include "text/record_order.h"

namespace quillon {

// ---- Texts ------------------------------------------------------------------------------------------------------------

static constexpr char formTitle[] = "BREAKUP DATA PRINTING";
static constexpr char loadedTitle[] = "BRKUP PRINTING - ";
static constexpr char boxTitle[] = "PRINTING BREAKUP REPORT";
static constexpr char memoryTitle[] = "Error";

// A scrip takes several lines, so a page holds few of them.
static constexpr LinesPerPageRule linesRule = {
    .control = IDC_BRKUP_LINES,
    .initial = 6,
    .limit = 6,
    .fallback = 6,
    .message = "Lines Per Page cannot be '>6' or '<1'",
    .title = boxTitle,
    .writeBack = IDC_BRKUP_LINES,
    .reply = 0,
};

static constexpr StreamTexts streamTexts = {
    .title = boxTitle,
    .reply = IDC_BRKUP_REPLY,
    .inputKind = InputKind::text,
    .noInput = {noInputText, noInputText},
    .inputNotOpened = {"Error In Opening BreakUp Report File.....", "Error In Opening BreakUp Report File"},
    .noOutputName = {"Please give OutFile Name.", "Please give OutFile Name"},
    .badOutputName = {"Invalid Characters In OutFile Name", "Invalid Characters In OutFile Name"},
    .sameFile = {sameFileText, sameFileText},
    .printerTest = PrinterTest::never,
    .printerNotOpened = {checkPrinterText, nullptr},
    .outputNotOpened = {outputNotOpenedText, nullptr},
};
static constexpr char badInputNameText[] = "Invalid FileName";
static constexpr char readFailedText[] = "Error in Reading File";
static constexpr char zeroRecordsText[] = "Zero Records !! Cannot Print";
static constexpr char noMemoryText[] = "BreakUp Report: Memory Allocation Failure";
static constexpr char noKestoMemoryText[] = "Kesto BreakUp Report: Memory Allocation Failure";
static constexpr char rewindFailedText[] = "fseek failed";
static constexpr char completionText[] = "PRINTING COMPLETE";

// ---- Controls ---------------------------------------------------------------------------------------------------------

static constexpr int kindOptions[] = {IDC_BRKUP_NORMAL, IDC_BRKUP_KESTO};
static constexpr int destinations[] = {IDC_BRKUP_PRINTER, IDC_BRKUP_FILE};
static constexpr int outFileControls[] = {IDC_BRKUP_OUTFILE_LABEL, IDC_BRKUP_OUTFILE};
// Cancel is not among them: it stays enabled during a run, though nothing answers it.
static constexpr int runControls[] = {IDC_BRKUP_PRINTER, IDC_BRKUP_FILE,   IDC_BRKUP_OUTFILE, IDC_BRKUP_PRINT,
                                      IDC_BRKUP_SORT,    IDC_BRKUP_NORMAL, IDC_BRKUP_KESTO,   IDC_BRKUP_LOAD};

// Characters that Print takes from the edits.
static constexpr std::size_t outFileCapture = 29;
static constexpr std::size_t brokerNoCapture = 9;

// ---- State ------------------------------------------------------------------------------------------------------------

namespace {

struct Options {
  std::string runDate;  // dd/mm/yyyy
  bool kesto;
  bool sorted;
  unsigned linesPerPage;
  std::string outputName;
  std::string brokerNo;
};

struct BreakupForm {
  std::string inputPath;  // empty until a file is chosen
  Input* input;
  Output* output;
  void* block;  // the records; freed at the end of the run
};

}  // namespace

static BreakupForm state;

// ---- The form between runs --------------------------------------------------------------------------------------------

static void disableControls(FormHandle form) {
  setControlsEnabled(form, runControls, false);
  formSetCloseEnabled(form, false);
}

static void enableControls(FormHandle form) {
  setControlsEnabled(form, runControls, true);
  formSetCloseEnabled(form, true);
}

static void resetForm(FormHandle form) {
  state.inputPath.clear();
  formSetText(form, IDC_BRKUP_OUTFILE, "");
  setControlsVisible(form, outFileControls, false);
  checkRadio(form, destinations, IDC_BRKUP_PRINTER);
  checkRadio(form, kindOptions, IDC_BRKUP_NORMAL);
  formSetChecked(form, IDC_BRKUP_SORT, false);
  formSetText(form, IDC_BRKUP_BROKER_NO, "");
  showInitialLines(form, linesRule);
  formSetText(form, IDC_BRKUP_REPLY, "");
  formSetTitle(form, formTitle);
  formSetFocus(form, IDC_BRKUP_LOAD);
}

static void onLoad(FormHandle form) {
  showReply(form, IDC_BRKUP_REPLY, "");
  loadFile(loadBreakup, LoadVariant::standard, form, state.inputPath);
  if (state.inputPath.empty()) return;
  formSetTitle(form, loadedTitle + fileSelection.fileTitle);
  fileSelection.fileTitle.clear();
  formSetEnabled(form, IDC_BRKUP_LOAD, false);
  formSetFocus(form, IDC_BRKUP_PRINT);
}

static void onCancel(FormHandle form) {
  showReply(form, IDC_BRKUP_REPLY, "");
  enableControls(form);
  resetForm(form);
}

// ---- A run ------------------------------------------------------------------------------------------------------------

static Options captureOptions(FormHandle form) {
  Options options = {};
  options.runDate = runDateText(clockNow());
  options.kesto = formIsChecked(form, IDC_BRKUP_KESTO);
  options.sorted = formIsChecked(form, IDC_BRKUP_SORT);
  options.brokerNo = formGetText(form, IDC_BRKUP_BROKER_NO, brokerNoCapture);
  options.linesPerPage = captureLinesPerPage(form, linesRule);
  options.outputName = printerName;
  if (formIsChecked(form, IDC_BRKUP_FILE)) options.outputName = formGetText(form, IDC_BRKUP_OUTFILE, outFileCapture);
  return options;
}

static bool refuse(FormHandle form, const char* text, BoxIcon icon = BoxIcon::error) {
  reportOnReplyAndBox(form, IDC_BRKUP_REPLY, boxTitle, text, icon);
  return false;
}

static bool requireInputName(FormHandle form) {
  return fileNameHolds(state.inputPath, {".DAT"}) || refuse(form, badInputNameText, BoxIcon::exclamation);
}

static RunEnd openRun(FormHandle form, Options& options) {
  const bool open = requireInputPath(form, streamTexts, state.inputPath) &&
                    openInputStream(form, streamTexts, state.inputPath, state.input) && requireInputName(form) &&
                    requireOutputName(form, streamTexts, options.outputName) &&
                    !refuseInputAsOutput(form, streamTexts, state.inputPath, options.outputName) &&
                    openOutputStream(form, streamTexts, options.outputName, state.output);
  return open ? RunEnd::printed : RunEnd::refused;
}

static bool countRecords(FormHandle form, std::size_t& count) {
  const BreakupCount counted = countBreakups(*state.input);
  // What was not counted could not be printed, and nobody would see that it is missing.
  if (counted.failed) return refuse(form, readFailedText);
  if (counted.records == 0) return refuse(form, zeroRecordsText);
  count = counted.records;
  return true;
}

static bool refuseForMemory(FormHandle form, const Options& options) {
  boxShow(form, memoryTitle, options.kesto ? noKestoMemoryText : noMemoryText, BoxIcon::error);
  return false;
}

// One block: the records with a zero one behind them.
static bool takeBlock(FormHandle form, const Options& options, std::size_t recordSize, std::size_t count) {
  state.block = memoryTake((count + 1) * recordSize);
  return state.block || refuseForMemory(form, options);
}

// A failure is told, and the run goes on with what can be read.
static void rewindInput(FormHandle form) {
  if (!inputRewind(*state.input)) boxShow(form, boxTitle, rewindFailedText, BoxIcon::error);
}

// Without the check box the file's order stands.
static RecordOrder sortRecords(FormHandle form, const Options& options, const Records& records) {
  static_assert(offsetof(NormalBreakup, scripCode) == offsetof(KestoBreakup, scripCode));
  const RecordKey byCode = {KeyKind::number, offsetof(NormalBreakup, scripCode), 4};
  RecordOrder order = options.sorted ? orderOfRecords(records, {byCode}) : orderOfRecords(records, {});
  if (!order) (void)refuseForMemory(form, options);
  return order;
}

static BreakupOptions reportOptions(const Options& options) {
  return {options.linesPerPage, fileSelection.isLendingFile, options.runDate, options.brokerNo};
}

static bool printNormal(FormHandle form, const Options& options) {
  std::size_t count = 0;
  if (!countRecords(form, count) || !takeBlock(form, options, sizeof(NormalBreakup), count)) return false;
  auto* const records = static_cast<NormalBreakup*>(state.block);
  rewindInput(form);
  if (!readNormalBreakups(*state.input, records, count)) (void)refuse(form, readFailedText);
  const RecordOrder order = sortRecords(form, options, {records, sizeof(NormalBreakup), count});
  if (!order) return false;
  writeNormalBreakups(*state.output, records, order.positions(), reportOptions(options));
  return true;
}

static bool printKesto(FormHandle form, const Options& options) {
  std::size_t count = 0;
  if (!countRecords(form, count) || !takeBlock(form, options, sizeof(KestoBreakup), count)) return false;
  auto* const records = static_cast<KestoBreakup*>(state.block);
  rewindInput(form);
  if (!readKestoBreakups(*state.input, records, count)) (void)refuse(form, readFailedText);
  const RecordOrder order = sortRecords(form, options, {records, sizeof(KestoBreakup), count});
  if (!order) return false;
  writeKestoBreakups(*state.output, records, order.positions(), reportOptions(options));
  return true;
}

static RunEnd printFile(FormHandle form, const Options& options) {
  return (options.kesto ? printKesto(form, options) : printNormal(form, options)) ? RunEnd::printed : RunEnd::refused;
}

static void endRun(FormHandle form, RunEnd end) {
  // The streams are closed ahead of the last box, since a close can still lose the report.
  const bool written = closeAllStreams();
  if (end == RunEnd::printed) {
    if (written) showReply(form, IDC_BRKUP_REPLY, completionText);
    showEndOfRun(form, IDC_BRKUP_REPLY, boxTitle, completionText, written);
  }
  memoryFree(state.block);
  state.block = nullptr;
  enableControls(form);
  resetForm(form);
}

static void onPrint(FormHandle form) {
  showReply(form, IDC_BRKUP_REPLY, "");
  disableControls(form);
  Options options = captureOptions(form);
  RunEnd end = openRun(form, options);
  if (end == RunEnd::printed) end = printFile(form, options);
  endRun(form, end);
}

// ---- Events -----------------------------------------------------------------------------------------------------------

static constexpr FormFrame frame = {
    .tool = toolBreakup,
    .start = resetForm,
    .load = {IDC_BRKUP_LOAD, onLoad},
    .print = {IDC_BRKUP_PRINT, onPrint},
    .cancel = {IDC_BRKUP_CANCEL, onCancel},
    .printer = IDC_BRKUP_PRINTER,
    .file = IDC_BRKUP_FILE,
    .outFileControls = outFileControls,
};

void breakupFormEvent(const FormEvent& event) { reportFormEvent(frame, event); }

}  // namespace quillon
