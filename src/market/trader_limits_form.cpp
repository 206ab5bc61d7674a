// The Trader Limits form (PRNTTRDLM). The user loads one trader limits file, says whether it is a normal or a Kesto one, and
// gets its limits by trader or by scrip. The choice of kind and the title in the file's first line decide between four layouts;
// the file's extension does not.
#include "market/trader_limits_form.h"

#include <string>

#include "desktop/app.h"
#include "desktop/memory.h"
#include "frame/file_selection.h"
#include "frame/report_form.h"
#include "frame/tools.h"
#include "frame/file_name.h"
#include "market/trader_limits_file.h"
#include "market/trader_limits_report.h"
#include "resource.h"

namespace quillon {

// ---- Texts ------------------------------------------------------------------------------------------------------------

static constexpr char formTitle[] = "TRADER LIMITS PRINTING";
static constexpr char loadedTitle[] = "TRD LIMITS PRINTING - ";
static constexpr char boxTitle[] = "PRINTING TRDLIMITS";
static constexpr char memoryTitle[] = "Error";

// All four layouts take the form's value as it is, up to 50: the trader-wise ones as well.
static constexpr LinesPerPageRule linesRule = {
    .control = IDC_TRDLIM_LINES,
    .initial = 50,
    .limit = 50,
    .fallback = 50,
    .message = "Lines per page cannot be '>50' or '<1'",
    .title = boxTitle,
    .writeBack = IDC_TRDLIM_LINES,
    .reply = 0,
};

static constexpr StreamTexts streamTexts = {
    .title = boxTitle,
    .reply = IDC_TRDLIM_REPLY,
    .inputKind = InputKind::text,
    .noInput = {noInputText, noInputText},
    .inputNotOpened = {"Error In Opening Trader Limits File.....", "Error In Opening Trader Limits File"},
    .noOutputName = {"Please give OutFile Name.", "Please give OutFile Name."},
    .badOutputName = {badOutputNameText, badOutputNameText},
    .sameFile = {sameFileText, sameFileText},
    .printerTest = PrinterTest::never,
    .printerNotOpened = {checkPrinterText, nullptr},
    .outputNotOpened = {outputNotOpenedText, nullptr},
};
// The Reply line has stars that the box has not, and lacks a dot.
static constexpr Message badInputName = {"File name not valid.Enter *.TRD or *.TSL or .STRD or .STSL",
                                         "File name not valid.Enter *.TRD or *.TSL or *.STRD or *STSL"};
static constexpr char headerNotReadText[] = "Error opening Trader Limits file";
static constexpr char notCompatibleNormalText[] = "FileName not compatible 1";
static constexpr char notCompatibleKestoText[] = "FileName not compatible 2";
static constexpr char notReopenedText[] = "Error In Opening Touchlines File";
static constexpr char zeroRecordsText[] = "Zero Records !! Cannot Print";
static constexpr char noTraderMemoryText[] = "Trader Limits Data: Memory Allocation Failure";
static constexpr char noScripMemoryText[] = "Trader Limits  scrip Data: Memory Allocation Failure";
static constexpr char rewindFailedText[] = "fseek failed";
static constexpr char readFailedText[] = "Error in Reading File";
static constexpr char writerNotOpenedText[] = "Error in opening Outfile";
static constexpr char completionText[] = "PRINTING COMPLETE";

// ---- Controls ---------------------------------------------------------------------------------------------------------

static constexpr int kindOptions[] = {IDC_TRDLIM_NORMAL, IDC_TRDLIM_KESTO};
static constexpr int destinations[] = {IDC_TRDLIM_PRINTER, IDC_TRDLIM_FILE};
static constexpr int outFileControls[] = {IDC_TRDLIM_OUTFILE_LABEL, IDC_TRDLIM_OUTFILE};
// Cancel is not among them: it stays enabled during a run, though nothing answers it.
static constexpr int runControls[] = {IDC_TRDLIM_PRINTER, IDC_TRDLIM_FILE,  IDC_TRDLIM_OUTFILE, IDC_TRDLIM_PRINT,
                                      IDC_TRDLIM_NORMAL,  IDC_TRDLIM_KESTO, IDC_TRDLIM_LOAD};

static constexpr std::size_t outFileCapture = 14;  // characters that Print takes from the edit

// ---- State ------------------------------------------------------------------------------------------------------------

namespace {

struct Options {
  bool kesto;
  unsigned linesPerPage;
  std::string outputName;
};

struct TraderLimitsForm {
  std::string inputPath;  // empty until a file is chosen
  Input* input;
  Output* output;
  void* block;     // the records of a Kesto file; freed at the end of the run
  bool probeLost;  // the output that only proved that it can be written could not be closed
};

}  // namespace

static TraderLimitsForm state;

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
  formSetText(form, IDC_TRDLIM_OUTFILE, "");
  setControlsVisible(form, outFileControls, false);
  checkRadio(form, destinations, IDC_TRDLIM_PRINTER);
  checkRadio(form, kindOptions, IDC_TRDLIM_NORMAL);
  showInitialLines(form, linesRule);
  formSetText(form, IDC_TRDLIM_REPLY, "");
  formSetTitle(form, formTitle);
  formSetFocus(form, IDC_TRDLIM_LOAD);
}

static void onLoad(FormHandle form) {
  showReply(form, IDC_TRDLIM_REPLY, "");
  loadFile(loadTraderLimits, LoadVariant::standard, form, state.inputPath);
  if (state.inputPath.empty()) return;
  formSetTitle(form, loadedTitle + fileSelection.fileTitle);
  fileSelection.fileTitle.clear();
  formSetEnabled(form, IDC_TRDLIM_LOAD, false);
  formSetFocus(form, IDC_TRDLIM_PRINT);
}

static void onCancel(FormHandle form) {
  showReply(form, IDC_TRDLIM_REPLY, "");
  enableControls(form);
  resetForm(form);
}

// ---- A run ------------------------------------------------------------------------------------------------------------

static Options captureOptions(FormHandle form) {
  Options options = {};
  options.kesto = formIsChecked(form, IDC_TRDLIM_KESTO);
  options.linesPerPage = captureLinesPerPage(form, linesRule);
  options.outputName = printerName;
  if (formIsChecked(form, IDC_TRDLIM_FILE)) options.outputName = formGetText(form, IDC_TRDLIM_OUTFILE, outFileCapture);
  return options;
}

static void fail(FormHandle form, const char* text, BoxIcon icon) {
  reportOnReplyAndBox(form, IDC_TRDLIM_REPLY, boxTitle, text, icon);
}

static bool requireInputName(FormHandle form) {
  if (fileNameHolds(state.inputPath, {".TRD", ".STRD", ".STSL", ".TSL"})) return true;
  showMessage(form, IDC_TRDLIM_REPLY, boxTitle, badInputName, BoxIcon::exclamation);
  return false;
}

// Proves that everything can be opened before anything is read.
static RunEnd openRun(FormHandle form, Options& options) {
  const bool open = requireInputPath(form, streamTexts, state.inputPath) &&
                    openInputStream(form, streamTexts, state.inputPath, state.input) && requireInputName(form) &&
                    requireOutputName(form, streamTexts, options.outputName) &&
                    !refuseInputAsOutput(form, streamTexts, state.inputPath, options.outputName) &&
                    openOutputStream(form, streamTexts, options.outputName, state.output);
  return open ? RunEnd::printed : RunEnd::refused;
}

// Opens the output a second time, for the report itself.
static bool openWriter(FormHandle form, const Options& options) {
  state.probeLost = !outputClose(state.output);
  state.output = outputOpen(options.outputName);
  outputHold(state.output);
  if (state.output) return true;
  fail(form, writerNotOpenedText, BoxIcon::error);
  return false;
}

static bool rewindInput(FormHandle form) {
  if (inputRewind(*state.input)) return true;
  fail(form, rewindFailedText, BoxIcon::error);
  return false;
}

static LimitsOptions reportOptions(const Options& options) { return {options.linesPerPage, fileSelection.isLendingFile}; }

// Gives each detail line to `row`. The first `headLines` lines of the file are none.
static void printLines(FormHandle form, LimitsReport& report, std::size_t lineLimit, std::size_t headLines,
                       void (*row)(LimitsReport&, std::span<const std::string_view>)) {
  // Where the file could not be rewound, it stands behind line 1 still.
  std::size_t seen = rewindInput(form) ? 0 : 1;
  bool failureTold = false;
  LimitLine line;
  for (;;) {
    const LimitLineResult result = readLimitLine(*state.input, lineLimit, line);
    if (inputPieceFailed(*state.input) && !failureTold) {
      fail(form, readFailedText, BoxIcon::error);
      failureTold = true;
    }
    if (result == LimitLineResult::end) break;
    ++seen;
    if (result == LimitLineResult::line && seen > headLines) row(report, line.view());
  }
}

static RunEnd printNormalTraderwise(FormHandle form, const Options& options, const TraderLimitsHeader& header) {
  if (!openWriter(form, options)) return RunEnd::refused;
  LimitsReport report = {*state.output, header, reportOptions(options), 1, 0};
  traderwiseBegin(report);
  printLines(form, report, traderwiseLineLimit, 3, traderwiseRow);
  traderwiseEnd(report);
  return RunEnd::printed;
}

static RunEnd printNormalScripwise(FormHandle form, const Options& options, const TraderLimitsHeader& header) {
  if (!openWriter(form, options)) return RunEnd::refused;
  LimitsReport report = {*state.output, header, reportOptions(options), 1, 0};
  scripwiseBegin(report);
  printLines(form, report, scripwiseLineLimit, 2, scripwiseRow);
  scripwiseEnd(report);
  return RunEnd::printed;
}

// Counts the records in the file, opened anew.
static RunEnd countRecords(FormHandle form, std::size_t& count) {
  inputClose(state.input);
  state.input = inputOpen(state.inputPath, InputKind::text);
  inputHold(state.input);
  if (!state.input) {
    fail(form, notReopenedText, BoxIcon::error);
    return RunEnd::refused;
  }
  const LimitsCount counted = countKestoLimits(*state.input);
  if (counted.pieces == 0) {
    fail(form, zeroRecordsText, BoxIcon::error);
    return RunEnd::programEnds;
  }
  // What was not counted could not be printed, and nobody would see that it is missing.
  if (counted.failed) {
    fail(form, readFailedText, BoxIcon::error);
    return RunEnd::refused;
  }
  count = counted.pieces - 1;
  return RunEnd::printed;
}

static bool takeBlock(FormHandle form, std::size_t size, const char* failure) {
  state.block = memoryTake(size);
  if (state.block) return true;
  boxShow(form, memoryTitle, failure, BoxIcon::error);
  return false;
}

static RunEnd printKestoTraderwise(FormHandle form, const Options& options, const TraderLimitsHeader& header) {
  std::size_t count = 0;
  const RunEnd counted = countRecords(form, count);
  if (counted != RunEnd::printed) return counted;
  if (!takeBlock(form, (count + 1) * sizeof(KestoTraderLimit), noTraderMemoryText)) return RunEnd::refused;
  auto* const records = static_cast<KestoTraderLimit*>(state.block);
  (void)rewindInput(form);  // told; the run goes on
  if (!readKestoTraderLimits(*state.input, records, count)) fail(form, readFailedText, BoxIcon::error);
  if (!openWriter(form, options)) return RunEnd::refused;
  writeKestoTraderLimits(*state.output, header, {records, count}, reportOptions(options));
  return RunEnd::printed;
}

static RunEnd printKestoScripwise(FormHandle form, const Options& options, const TraderLimitsHeader& header) {
  std::size_t count = 0;
  const RunEnd counted = countRecords(form, count);
  if (counted != RunEnd::printed) return counted;
  if (!takeBlock(form, (count + 1) * sizeof(KestoScripLimit), noScripMemoryText)) return RunEnd::refused;
  auto* const records = static_cast<KestoScripLimit*>(state.block);
  (void)rewindInput(form);  // told; the run goes on
  if (!readKestoScripLimits(*state.input, records, count)) fail(form, readFailedText, BoxIcon::error);
  if (!openWriter(form, options)) return RunEnd::refused;
  writeKestoScripLimits(*state.output, header, {records, count}, reportOptions(options));
  return RunEnd::printed;
}

static RunEnd printFile(FormHandle form, const Options& options) {
  TraderLimitsHeader header;
  if (!readTraderLimitsHeader(*state.input, header)) {
    fail(form, headerNotReadText, BoxIcon::error);
    return RunEnd::refused;
  }
  switch (limitsLayout(header, options.kesto)) {
    case LimitsLayout::normalTraderwise:
      return printNormalTraderwise(form, options, header);
    case LimitsLayout::normalScripwise:
      return printNormalScripwise(form, options, header);
    case LimitsLayout::kestoTraderwise:
      return printKestoTraderwise(form, options, header);
    case LimitsLayout::kestoScripwise:
      return printKestoScripwise(form, options, header);
    case LimitsLayout::none:
      break;
  }
  fail(form, options.kesto ? notCompatibleKestoText : notCompatibleNormalText, BoxIcon::exclamation);
  return RunEnd::refused;
}

static void endRun(FormHandle form, RunEnd end) {
  // The streams are closed ahead of the last box, since a close can still lose the report.
  const bool written = closeAllStreams() && !state.probeLost;
  if (end == RunEnd::programEnds) return appEnd(0);
  if (end == RunEnd::printed) showEndOfRun(form, IDC_TRDLIM_REPLY, boxTitle, completionText, written);
  state.probeLost = false;
  enableControls(form);
  memoryFree(state.block);
  state.block = nullptr;
  resetForm(form);
}

static void onPrint(FormHandle form) {
  showReply(form, IDC_TRDLIM_REPLY, "");
  disableControls(form);
  Options options = captureOptions(form);
  RunEnd end = openRun(form, options);
  if (end == RunEnd::printed) end = printFile(form, options);
  endRun(form, end);
}

// ---- Events -----------------------------------------------------------------------------------------------------------

static constexpr FormFrame frame = {
    .tool = toolTraderLimits,
    .start = resetForm,
    .load = {IDC_TRDLIM_LOAD, onLoad},
    .print = {IDC_TRDLIM_PRINT, onPrint},
    .cancel = {IDC_TRDLIM_CANCEL, onCancel},
    .printer = IDC_TRDLIM_PRINTER,
    .file = IDC_TRDLIM_FILE,
    .outFileControls = outFileControls,
};

void traderLimitsFormEvent(const FormEvent& event) { reportFormEvent(frame, event); }

}  // namespace quillon
