// The steps of a Touchlines run. The file is first looked at when Print is pressed, and the user is asked nothing about it.

#include "market/touchlines_form.h"

#include <algorithm>
#include <cstdint>
#include <string>

#include "desktop/memory.h"
#include "frame/file_selection.h"
#include "frame/report_form.h"
#include "frame/tools.h"
#include "market/file_name.h"
#include "market/touchline_file.h"
#include "market/touchlines_report.h"
#include "resource.h"
#include "text/record_order.h"

namespace quillon {

static constexpr char formTitle[] = "TOUCHLINES PRINTING";
static constexpr char loadedTitle[] = "TLINES PRINTING - ";
static constexpr char boxTitle[] = "PRINTING TLINES";
static constexpr char kestoBoxTitle[] = "PRINTING KESTO TLINES";
static constexpr char memoryTitle[] = "Error";

static constexpr unsigned defaultLines = 50;
static constexpr std::size_t outputNameLimit = 14;

// The edit keeps its wrong entry: the fallback is told, and taken, but not shown.
static constexpr LinesPerPageRule linesRule = {
    .control = IDC_TLINE_LINES,
    .limit = 50,
    .fallback = defaultLines,
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
  Message notReopened;
  const char* noMemory;
};

}  // namespace

static constexpr KindTexts normalTexts = {
    .title = boxTitle,
    .notReopened = {"Error In Opening Touchlines File", "Error In Opening Touchlines File"},
    .noMemory = "Touchlines Data: Memory Allocation Failure",
};
static constexpr KindTexts kestoTexts = {
    .title = kestoBoxTitle,
    .notReopened = {"Error In Opening Kesto Touchlines File", "Error In Opening Kesto Touchlines File"},
    .noMemory = "Kesto Touchlines Data: Memory Allocation Failure",
};

static constexpr int sortRadios[] = {IDC_TLINE_SORT_SCRIP_CODE, IDC_TLINE_SORT_SCRIP_ID};
static constexpr int kindRadios[] = {IDC_TLINE_NORMAL, IDC_TLINE_KESTO};
static constexpr int printRadios[] = {IDC_TLINE_PRINTER, IDC_TLINE_FILE};
static constexpr int outputControls[] = {IDC_TLINE_OUTFILE_LABEL, IDC_TLINE_OUTFILE};
// Cancel is not among them: it stays enabled during a run, though nothing answers it.
static constexpr int runControls[] = {
    IDC_TLINE_PRINTER,       IDC_TLINE_FILE,   IDC_TLINE_OUTFILE, IDC_TLINE_PRINT, IDC_TLINE_SORT_SCRIP_CODE,
    IDC_TLINE_SORT_SCRIP_ID, IDC_TLINE_NORMAL, IDC_TLINE_KESTO,   IDC_TLINE_LOAD};

static struct {
  std::string inputPath;  // empty until a file is chosen
  std::string outputName;
  bool byScripCode;
  bool kesto;
  unsigned linesPerPage;
  Input* input;    // given back by closeAllStreams
  Output* output;  // likewise
  void* block;     // the records; freed at the end of the run
  bool probeLost;  // the output that only proved that it can be written could not be closed
} state;

static void fail(FormHandle form, const char* title, const char* text, BoxIcon icon) {
  reportOnReplyAndBox(form, IDC_TLINE_REPLY, title, text, icon);
}

static void setRunning(FormHandle form, bool running) {
  setControlsEnabled(form, runControls, !running);
  formSetCloseEnabled(form, !running);
}

static void resetForm(FormHandle form) {
  state.inputPath.clear();
  state.outputName.clear();
  formSetText(form, IDC_TLINE_OUTFILE, "");
  setControlsVisible(form, outputControls, false);
  checkRadio(form, printRadios, IDC_TLINE_PRINTER);
  checkRadio(form, sortRadios, IDC_TLINE_SORT_SCRIP_ID);
  checkRadio(form, kindRadios, IDC_TLINE_NORMAL);
  formSetText(form, IDC_TLINE_LINES, std::to_string(defaultLines));
  formSetText(form, IDC_TLINE_REPLY, "");
  formSetTitle(form, formTitle);
  formSetFocus(form, IDC_TLINE_LOAD);
}

static void load(FormHandle form) {
  showReply(form, IDC_TLINE_REPLY, "");
  loadFile(loadTouchlines, LoadVariant::standard, form, state.inputPath);
  if (state.inputPath.empty()) return;
  formSetTitle(form, loadedTitle + fileSelection.fileTitle);
  fileSelection.fileTitle.clear();
  formSetEnabled(form, IDC_TLINE_LOAD, false);
  formSetFocus(form, IDC_TLINE_PRINT);
}

static void captureOptions(FormHandle form) {
  state.byScripCode = formIsChecked(form, IDC_TLINE_SORT_SCRIP_CODE);
  state.kesto = formIsChecked(form, IDC_TLINE_KESTO);
  state.linesPerPage = captureLinesPerPage(form, linesRule);
  const bool toFile = formIsChecked(form, IDC_TLINE_FILE);
  state.outputName = toFile ? formGetText(form, IDC_TLINE_OUTFILE, outputNameLimit) : printerName;
}

static bool requireInputName(FormHandle form) {
  // ".SSAV" does not hold ".SAV".
  if (fileNameHolds(state.inputPath, {".SSAV", ".SAV"})) return true;
  fail(form, boxTitle, badInputNameText, BoxIcon::exclamation);
  return false;
}

// Proves that everything can be opened before anything is counted.
static bool validate(FormHandle form) {
  if (!requireInputPath(form, streamTexts, state.inputPath)) return false;
  state.input = openInputStream(form, streamTexts, state.inputPath);
  if (!state.input) return false;
  if (!requireInputName(form)) return false;
  if (!requireOutputName(form, streamTexts, state.outputName)) return false;
  if (refuseInputAsOutput(form, streamTexts, state.inputPath, state.outputName)) return false;
  state.output = openOutputStream(form, streamTexts, state.outputName);
  return state.output != nullptr;
}

static bool reopenInput(FormHandle form, const KindTexts& texts) {
  inputClose(state.input);
  state.input = inputOpen(state.inputPath, InputKind::text);
  if (state.input) return true;
  fail(form, texts.title, texts.notReopened.box, BoxIcon::error);
  return false;
}

// A header with no records does not print.
static bool requireScrips(FormHandle form, const TouchlineCount& counted) {
  if (counted.pieces < 2) {
    fail(form, boxTitle, zeroScripsText, BoxIcon::error);
    return false;
  }
  // What was not counted could not be printed, and nobody would see that it is missing.
  if (counted.failed) {
    fail(form, boxTitle, readFailedText, BoxIcon::error);
    return false;
  }
  return true;
}

// One block: the records with a zero one behind them.
static bool takeBlock(FormHandle form, const KindTexts& texts, std::size_t recordSize, std::size_t count) {
  state.block = memoryTake((count + 1) * recordSize);
  if (state.block) return true;
  fail(form, memoryTitle, texts.noMemory, BoxIcon::error);
  return false;
}

static void rewindInput(FormHandle form) {
  if (!inputRewind(*state.input)) fail(form, boxTitle, rewindFailedText, BoxIcon::error);
}

static RecordOrder sortRecords(FormHandle form, const KindTexts& texts, const Records& records, std::size_t codeOffset) {
  const RecordKey byCode = {KeyKind::number, codeOffset, 4};
  const RecordKey byId = {KeyKind::text, 0, 12};
  RecordOrder order = orderOfRecords(records, {state.byScripCode ? byCode : byId});
  if (!order) fail(form, memoryTitle, texts.noMemory, BoxIcon::error);
  return order;
}

// Opens the output a second time, for the report itself.
static bool openWriter(FormHandle form, const KindTexts& texts) {
  state.probeLost = !outputClose(state.output);
  state.output = outputOpen(state.outputName);
  if (state.output) return true;
  fail(form, texts.title, writerNotOpenedText, BoxIcon::error);
  return false;
}

static TouchlinesOptions reportOptions() { return {state.linesPerPage, fileSelection.isLendingFile}; }

static bool printNormal(FormHandle form) {
  if (!reopenInput(form, normalTexts)) return false;
  const TouchlineCount counted = countNormalTouchlines(*state.input);
  if (!requireScrips(form, counted)) return false;
  const std::size_t count = counted.pieces - 1;
  if (!takeBlock(form, normalTexts, sizeof(NormalTouchline), count)) return false;
  auto* const records = static_cast<NormalTouchline*>(state.block);

  rewindInput(form);
  TouchlineHeader header;
  if (!readNormalTouchlines(*state.input, header, records, count)) fail(form, boxTitle, readFailedText, BoxIcon::error);
  const Records sorted = {records, sizeof(NormalTouchline), count};
  const RecordOrder order = sortRecords(form, normalTexts, sorted, offsetof(NormalTouchline, scripCode));
  if (!order) return false;
  if (!openWriter(form, normalTexts)) return false;
  writeNormalTouchlines(*state.output, header, records, order.positions(), reportOptions());
  return true;
}

static bool printKesto(FormHandle form) {
  if (!reopenInput(form, kestoTexts)) return false;
  const TouchlineCount counted = countKestoTouchlines(*state.input);
  if (!requireScrips(form, counted)) return false;
  const std::size_t count = counted.pieces - 1;
  if (!takeBlock(form, kestoTexts, sizeof(KestoTouchline), count)) return false;
  auto* const records = static_cast<KestoTouchline*>(state.block);

  rewindInput(form);
  TouchlineHeader header;
  if (!readKestoTouchlines(*state.input, header, records, count, counted.passOver)) {
    fail(form, boxTitle, readFailedText, BoxIcon::error);
  }
  const Records sorted = {records, sizeof(KestoTouchline), count};
  const RecordOrder order = sortRecords(form, kestoTexts, sorted, offsetof(KestoTouchline, scripCode));
  if (!order) return false;
  if (!openWriter(form, kestoTexts)) return false;
  writeKestoTouchlines(*state.output, header, records, order.positions(), reportOptions());
  return true;
}

static void run(FormHandle form) {
  showReply(form, IDC_TLINE_REPLY, "");
  setRunning(form, true);
  captureOptions(form);
  if (validate(form) && (state.kesto ? printKesto(form) : printNormal(form))) {
    // The streams are closed ahead of the last box, since a close can still lose the report.
    const bool written = closeAllStreams() && !state.probeLost;
    if (written) showReply(form, IDC_TLINE_REPLY, completionReply);
    showEndOfRun(form, IDC_TLINE_REPLY, state.kesto ? kestoBoxTitle : boxTitle, completionText, written);
  }
  (void)closeAllStreams();  // of a run that failed: its report is not complete, and that was told
  state.input = nullptr;
  state.output = nullptr;
  state.probeLost = false;
  setRunning(form, false);
  memoryFree(state.block);
  state.block = nullptr;
  resetForm(form);
}

static void cancel(FormHandle form) {
  showReply(form, IDC_TLINE_REPLY, "");
  (void)closeAllStreams();  // no report is being written between runs
  setRunning(form, false);
  resetForm(form);
}

static void press(FormHandle form, int control) {
  switch (control) {
    case IDC_TLINE_LOAD:
      load(form);
      break;
    case IDC_TLINE_PRINT:
      run(form);
      break;
    case IDC_TLINE_CANCEL:
      cancel(form);
      break;
    case IDC_TLINE_PRINTER:
      setControlsVisible(form, outputControls, false);
      break;
    case IDC_TLINE_FILE:
      setControlsVisible(form, outputControls, true);
      break;
    default:
      break;
  }
}

void touchlinesFormEvent(const FormEvent& event) {
  switch (event.kind) {
    case FormEventKind::start:
      resetForm(event.form);
      break;
    case FormEventKind::press:
      press(event.form, event.control);
      break;
    case FormEventKind::activate:
      formRaise(event.form);
      break;
    case FormEventKind::close:
      toolCommand(toolTouchlines);
      break;
    case FormEventKind::destroy:
      toolFormGone(toolTouchlines);
      break;
    case FormEventKind::edit:
    case FormEventKind::pick:
      break;
  }
}

}  // namespace quillon
