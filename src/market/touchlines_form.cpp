// The Touchlines form (PRNTTLINE). The user loads one saved touchlines file, says whether it is a normal or a Kesto one, and
// gets its scrips as a table, by code or by symbol. The file is first looked at when Print is pressed, and the user is asked
// nothing about it.
#include "market/touchlines_form.h"

#include <algorithm>
#include <cstdint>
#include <string>

#include "desktop/memory.h"
#include "frame/file_selection.h"
#include "frame/report_form.h"
#include "frame/tools.h"
#include "frame/file_name.h"
#include "market/touchline_file.h"
#include "market/touchlines_report.h"
#include "resource.h"
#include "text/record_order.h"

namespace quillon {

// ---- Texts ------------------------------------------------------------------------------------------------------------

static constexpr char formTitle[] = "TOUCHLINES PRINTING";
static constexpr char loadedTitle[] = "TLINES PRINTING - ";
static constexpr char boxTitle[] = "PRINTING TLINES";
static constexpr char kestoBoxTitle[] = "PRINTING KESTO TLINES";
static constexpr char memoryTitle[] = "Error";

// The edit keeps its wrong entry: the fallback is told, and taken, but not shown.
static constexpr LinesPerPageRule linesRule = {
    .control = IDC_TLINE_LINES,
    .initial = 50,
    .limit = 50,
    .fallback = 50,
    .message = "Lines per page cannot be '>50 or '<1'",
    .title = boxTitle,
    .writeBack = 0,
    .reply = IDC_TLINE_REPLY,
};

static constexpr StreamTexts streamTexts = {
    .title = boxTitle,
    .reply = IDC_TLINE_REPLY,
    .inputKind = InputKind::text,
    .noInput = {noInputText, noInputText},
    .inputNotOpened = {"Error In Opening Touchlines File", "Error In Opening Touchlines File"},
    .noOutputName = {"Please give OutFile Name", "Please give OutFile Name"},
    .badOutputName = {badOutputNameText, badOutputNameText},
    .sameFile = {sameFileText, sameFileText},
    .printerTest = PrinterTest::never,
    .printerNotOpened = {checkPrinterText, checkPrinterText},
    .outputNotOpened = {outputNotOpenedText, outputNotOpenedText},
};
static constexpr char badInputNameText[] = "File name not valid.Enter *.SAV or *.SSAV";
static constexpr char zeroScripsText[] = "Zero Scrips !! Cannot Print";
static constexpr char rewindFailedText[] = "fseek failed";
static constexpr char readFailedText[] = "Error in Reading File";
static constexpr char writerNotOpenedText[] = "Error in opening Outfile";
static constexpr char completionText[] = "   Printing Complete. ";
static constexpr char completionReply[] = "Printing Complete.";

namespace {

// Where the two kinds of file differ in words.
struct KindTexts {
  const char* title;  // of the boxes of counting, writing and completion
  const char* notReopened;
  const char* noMemory;
};

}  // namespace

static constexpr KindTexts normalTexts = {
    .title = boxTitle,
    .notReopened = "Error In Opening Touchlines File",
    .noMemory = "Touchlines Data: Memory Allocation Failure",
};
static constexpr KindTexts kestoTexts = {
    .title = kestoBoxTitle,
    .notReopened = "Error In Opening Kesto Touchlines File",
    .noMemory = "Kesto Touchlines Data: Memory Allocation Failure",
};

// ---- Controls ---------------------------------------------------------------------------------------------------------

static constexpr int sortOptions[] = {IDC_TLINE_SORT_SCRIP_CODE, IDC_TLINE_SORT_SCRIP_ID};
static constexpr int kindOptions[] = {IDC_TLINE_NORMAL, IDC_TLINE_KESTO};
static constexpr int destinations[] = {IDC_TLINE_PRINTER, IDC_TLINE_FILE};
static constexpr int outFileControls[] = {IDC_TLINE_OUTFILE_LABEL, IDC_TLINE_OUTFILE};
// Cancel is not among them: it stays enabled during a run, though nothing answers it.
static constexpr int runControls[] = {
    IDC_TLINE_PRINTER,       IDC_TLINE_FILE,   IDC_TLINE_OUTFILE, IDC_TLINE_PRINT, IDC_TLINE_SORT_SCRIP_CODE,
    IDC_TLINE_SORT_SCRIP_ID, IDC_TLINE_NORMAL, IDC_TLINE_KESTO,   IDC_TLINE_LOAD};

static constexpr std::size_t outFileCapture = 14;  // characters that Print takes from the edit

// ---- State ------------------------------------------------------------------------------------------------------------

namespace {

struct Options {
  bool byScripCode;
  bool kesto;
  unsigned linesPerPage;
  std::string outputName;
};

struct TouchlinesForm {
  std::string inputPath;  // empty until a file is chosen
  Input* input;
  Output* output;
  void* block;     // the records; freed at the end of the run
  bool probeLost;  // the output that only proved that it can be written could not be closed
};

}  // namespace

static TouchlinesForm state;

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
  formSetText(form, IDC_TLINE_OUTFILE, "");
  setControlsVisible(form, outFileControls, false);
  checkRadio(form, destinations, IDC_TLINE_PRINTER);
  checkRadio(form, sortOptions, IDC_TLINE_SORT_SCRIP_ID);
  checkRadio(form, kindOptions, IDC_TLINE_NORMAL);
  showInitialLines(form, linesRule);
  formSetText(form, IDC_TLINE_REPLY, "");
  formSetTitle(form, formTitle);
  formSetFocus(form, IDC_TLINE_LOAD);
}

static void onLoad(FormHandle form) {
  showReply(form, IDC_TLINE_REPLY, "");
  loadFile(loadTouchlines, LoadVariant::standard, form, state.inputPath);
  if (state.inputPath.empty()) return;
  formSetTitle(form, loadedTitle + fileSelection.fileTitle);
  fileSelection.fileTitle.clear();
  formSetEnabled(form, IDC_TLINE_LOAD, false);
  formSetFocus(form, IDC_TLINE_PRINT);
}

static void onCancel(FormHandle form) {
  showReply(form, IDC_TLINE_REPLY, "");
  (void)closeAllStreams();  // no report is being written between runs
  enableControls(form);
  resetForm(form);
}

// ---- A run ------------------------------------------------------------------------------------------------------------

static Options captureOptions(FormHandle form) {
  Options options = {};
  options.byScripCode = formIsChecked(form, IDC_TLINE_SORT_SCRIP_CODE);
  options.kesto = formIsChecked(form, IDC_TLINE_KESTO);
  options.linesPerPage = captureLinesPerPage(form, linesRule);
  options.outputName = printerName;
  if (formIsChecked(form, IDC_TLINE_FILE)) options.outputName = formGetText(form, IDC_TLINE_OUTFILE, outFileCapture);
  return options;
}

static bool refuse(FormHandle form, const char* title, const char* text, BoxIcon icon = BoxIcon::error) {
  reportOnReplyAndBox(form, IDC_TLINE_REPLY, title, text, icon);
  return false;
}

static bool requireInputName(FormHandle form) {
  // ".SSAV" does not hold ".SAV".
  if (fileNameHolds(state.inputPath, {".SSAV", ".SAV"})) return true;
  return refuse(form, boxTitle, badInputNameText, BoxIcon::exclamation);
}

// Proves that everything can be opened before anything is counted.
static RunEnd openRun(FormHandle form, Options& options) {
  const bool open = requireInputPath(form, streamTexts, state.inputPath) &&
                    openInputStream(form, streamTexts, state.inputPath, state.input) && requireInputName(form) &&
                    requireOutputName(form, streamTexts, options.outputName) &&
                    !refuseInputAsOutput(form, streamTexts, state.inputPath, options.outputName) &&
                    openOutputStream(form, streamTexts, options.outputName, state.output);
  return open ? RunEnd::printed : RunEnd::refused;
}

static bool reopenInput(FormHandle form, const KindTexts& texts) {
  inputClose(state.input);
  state.input = inputOpen(state.inputPath, InputKind::text);
  inputHold(state.input);
  return state.input || refuse(form, texts.title, texts.notReopened);
}

// A header with no records does not print.
static bool requireScrips(FormHandle form, const TouchlineCount& counted) {
  if (counted.pieces < 2) return refuse(form, boxTitle, zeroScripsText);
  // What was not counted could not be printed, and nobody would see that it is missing.
  return !counted.failed || refuse(form, boxTitle, readFailedText);
}

// One block: the records with a zero one behind them.
static bool takeBlock(FormHandle form, const KindTexts& texts, std::size_t recordSize, std::size_t count) {
  state.block = memoryTake((count + 1) * recordSize);
  return state.block || refuse(form, memoryTitle, texts.noMemory);
}

static void rewindInput(FormHandle form) {
  if (!inputRewind(*state.input)) (void)refuse(form, boxTitle, rewindFailedText);
}

static RecordOrder sortRecords(FormHandle form, const KindTexts& texts, const Options& options, const Records& records,
                               std::size_t codeOffset) {
  const RecordKey byCode = {KeyKind::number, codeOffset, 4};
  const RecordKey byId = {KeyKind::text, 0, 12};
  RecordOrder order = orderOfRecords(records, {options.byScripCode ? byCode : byId});
  if (!order) (void)refuse(form, memoryTitle, texts.noMemory);
  return order;
}

// Opens the output a second time, for the report itself.
static bool openWriter(FormHandle form, const KindTexts& texts, const Options& options) {
  state.probeLost = !outputClose(state.output);
  state.output = outputOpen(options.outputName);
  outputHold(state.output);
  return state.output || refuse(form, texts.title, writerNotOpenedText);
}

static TouchlinesOptions reportOptions(const Options& options) { return {options.linesPerPage, fileSelection.isLendingFile}; }

static bool printNormal(FormHandle form, const Options& options) {
  if (!reopenInput(form, normalTexts)) return false;
  const TouchlineCount counted = countNormalTouchlines(*state.input);
  if (!requireScrips(form, counted)) return false;
  const std::size_t count = counted.pieces - 1;
  if (!takeBlock(form, normalTexts, sizeof(NormalTouchline), count)) return false;
  auto* const records = static_cast<NormalTouchline*>(state.block);

  rewindInput(form);
  TouchlineHeader header;
  if (!readNormalTouchlines(*state.input, header, records, count)) (void)refuse(form, boxTitle, readFailedText);
  const Records sorted = {records, sizeof(NormalTouchline), count};
  const RecordOrder order = sortRecords(form, normalTexts, options, sorted, offsetof(NormalTouchline, scripCode));
  if (!order) return false;
  if (!openWriter(form, normalTexts, options)) return false;
  writeNormalTouchlines(*state.output, header, records, order.positions(), reportOptions(options));
  return true;
}

static bool printKesto(FormHandle form, const Options& options) {
  if (!reopenInput(form, kestoTexts)) return false;
  const TouchlineCount counted = countKestoTouchlines(*state.input);
  if (!requireScrips(form, counted)) return false;
  const std::size_t count = counted.pieces - 1;
  if (!takeBlock(form, kestoTexts, sizeof(KestoTouchline), count)) return false;
  auto* const records = static_cast<KestoTouchline*>(state.block);

  rewindInput(form);
  TouchlineHeader header;
  if (!readKestoTouchlines(*state.input, header, records, count, counted.passOver)) {
    (void)refuse(form, boxTitle, readFailedText);
  }
  const Records sorted = {records, sizeof(KestoTouchline), count};
  const RecordOrder order = sortRecords(form, kestoTexts, options, sorted, offsetof(KestoTouchline, scripCode));
  if (!order) return false;
  if (!openWriter(form, kestoTexts, options)) return false;
  writeKestoTouchlines(*state.output, header, records, order.positions(), reportOptions(options));
  return true;
}

static RunEnd printFile(FormHandle form, const Options& options) {
  return (options.kesto ? printKesto(form, options) : printNormal(form, options)) ? RunEnd::printed : RunEnd::refused;
}

static void endRun(FormHandle form, const Options& options, RunEnd end) {
  // The streams are closed ahead of the last box, since a close can still lose the report.
  const bool written = closeAllStreams() && !state.probeLost;
  if (end == RunEnd::printed) {
    if (written) showReply(form, IDC_TLINE_REPLY, completionReply);
    showEndOfRun(form, IDC_TLINE_REPLY, options.kesto ? kestoBoxTitle : boxTitle, completionText, written);
  }
  state.probeLost = false;
  enableControls(form);
  memoryFree(state.block);
  state.block = nullptr;
  resetForm(form);
}

static void onPrint(FormHandle form) {
  showReply(form, IDC_TLINE_REPLY, "");
  disableControls(form);
  Options options = captureOptions(form);
  RunEnd end = openRun(form, options);
  if (end == RunEnd::printed) end = printFile(form, options);
  endRun(form, options, end);
}

// ---- Events -----------------------------------------------------------------------------------------------------------

static constexpr FormFrame frame = {
    .tool = toolTouchlines,
    .start = resetForm,
    .load = {IDC_TLINE_LOAD, onLoad},
    .print = {IDC_TLINE_PRINT, onPrint},
    .cancel = {IDC_TLINE_CANCEL, onCancel},
    .printer = IDC_TLINE_PRINTER,
    .file = IDC_TLINE_FILE,
    .outFileControls = outFileControls,
};

void touchlinesFormEvent(const FormEvent& event) { reportFormEvent(frame, event); }

}  // namespace quillon
