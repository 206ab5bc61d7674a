// The steps of a Trader Limits run. The user's choice of kind and the title in the file's first line decide between four
// layouts; the file's extension does not.

#include "market/trader_limits_form.h"

#include <string>

#include "desktop/app.h"
#include "desktop/memory.h"
#include "frame/file_selection.h"
#include "frame/report_form.h"
#include "frame/tools.h"
#include "market/file_name.h"
#include "market/trader_limits_file.h"
#include "market/trader_limits_report.h"
#include "resource.h"

namespace quillon {

static constexpr char formTitle[] = "TRADER LIMITS PRINTING";
static constexpr char loadedTitle[] = "TRD LIMITS PRINTING - ";
static constexpr char boxTitle[] = "PRINTING TRDLIMITS";
static constexpr char memoryTitle[] = "Error";

static constexpr unsigned defaultLines = 50;
static constexpr std::size_t outputNameLimit = 14;

// All four layouts take the form's value as it is, up to 50: the trader-wise ones as well.
static constexpr LinesPerPageRule linesRule = {
    .control = IDC_TRDLIM_LINES,
    .limit = 50,
    .fallback = defaultLines,
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

static constexpr int kindRadios[] = {IDC_TRDLIM_NORMAL, IDC_TRDLIM_KESTO};
static constexpr int printRadios[] = {IDC_TRDLIM_PRINTER, IDC_TRDLIM_FILE};
static constexpr int outputControls[] = {IDC_TRDLIM_OUTFILE_LABEL, IDC_TRDLIM_OUTFILE};
// Cancel is not among them: it stays enabled during a run, though nothing answers it.
static constexpr int runControls[] = {IDC_TRDLIM_PRINTER, IDC_TRDLIM_FILE,  IDC_TRDLIM_OUTFILE, IDC_TRDLIM_PRINT,
                                      IDC_TRDLIM_NORMAL,  IDC_TRDLIM_KESTO, IDC_TRDLIM_LOAD};

static struct {
  std::string inputPath;  // empty until a file is chosen
  std::string outputName;
  bool kesto;
  unsigned linesPerPage;
  Input* input;    // given back by closeAllStreams
  Output* output;  // likewise
  void* block;     // the records of a Kesto file; freed at the end of the run
  bool probeLost;  // the output that only proved that it can be written could not be closed
} state;

namespace {

enum class RunEnd { printed, failed, programEnds };

}  // namespace

static void fail(FormHandle form, const Message& message, BoxIcon icon) {
  if (message.reply) showReply(form, IDC_TRDLIM_REPLY, message.reply);
  boxShow(form, boxTitle, message.box, icon);
}

static void fail(FormHandle form, const char* text, BoxIcon icon) { fail(form, Message{text, text}, icon); }

static void setRunning(FormHandle form, bool running) {
  setControlsEnabled(form, runControls, !running);
  formSetCloseEnabled(form, !running);
}

static void resetForm(FormHandle form) {
  state.inputPath.clear();
  state.outputName.clear();
  formSetText(form, IDC_TRDLIM_OUTFILE, "");
  setControlsVisible(form, outputControls, false);
  checkRadio(form, printRadios, IDC_TRDLIM_PRINTER);
  checkRadio(form, kindRadios, IDC_TRDLIM_NORMAL);
  formSetText(form, IDC_TRDLIM_LINES, std::to_string(defaultLines));
  formSetText(form, IDC_TRDLIM_REPLY, "");
  formSetTitle(form, formTitle);
  formSetFocus(form, IDC_TRDLIM_LOAD);
}

static void load(FormHandle form) {
  showReply(form, IDC_TRDLIM_REPLY, "");
  loadFile(loadTraderLimits, LoadVariant::standard, form, state.inputPath);
  if (state.inputPath.empty()) return;
  formSetTitle(form, loadedTitle + fileSelection.fileTitle);
  fileSelection.fileTitle.clear();
  formSetEnabled(form, IDC_TRDLIM_LOAD, false);
  formSetFocus(form, IDC_TRDLIM_PRINT);
}

static void captureOptions(FormHandle form) {
  state.kesto = formIsChecked(form, IDC_TRDLIM_KESTO);
  state.linesPerPage = captureLinesPerPage(form, linesRule);
  const bool toFile = formIsChecked(form, IDC_TRDLIM_FILE);
  state.outputName = toFile ? formGetText(form, IDC_TRDLIM_OUTFILE, outputNameLimit) : printerName;
}

static bool requireInputName(FormHandle form) {
  if (fileNameHolds(state.inputPath, {".TRD", ".STRD", ".STSL", ".TSL"})) return true;
  fail(form, badInputName, BoxIcon::exclamation);
  return false;
}

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

// Opens the output a second time, for the report itself.
static bool openWriter(FormHandle form) {
  state.probeLost = !outputClose(state.output);
  state.output = outputOpen(state.outputName);
  if (state.output) return true;
  fail(form, writerNotOpenedText, BoxIcon::error);
  return false;
}

static bool rewindInput(FormHandle form) {
  if (inputRewind(*state.input)) return true;
  fail(form, rewindFailedText, BoxIcon::error);
  return false;
}

static LimitsOptions reportOptions() { return {state.linesPerPage, fileSelection.isLendingFile}; }

// ---- Normal -----------------------------------------------------------------------------------------------------------

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

static RunEnd printNormalTraderwise(FormHandle form, const TraderLimitsHeader& header) {
  if (!openWriter(form)) return RunEnd::failed;
  LimitsReport report = {*state.output, header, reportOptions(), 1, 0};
  traderwiseBegin(report);
  printLines(form, report, traderwiseLineLimit, 3, traderwiseRow);
  traderwiseEnd(report);
  return RunEnd::printed;
}

static RunEnd printNormalScripwise(FormHandle form, const TraderLimitsHeader& header) {
  if (!openWriter(form)) return RunEnd::failed;
  LimitsReport report = {*state.output, header, reportOptions(), 1, 0};
  scripwiseBegin(report);
  printLines(form, report, scripwiseLineLimit, 2, scripwiseRow);
  scripwiseEnd(report);
  return RunEnd::printed;
}

// ---- Kesto ------------------------------------------------------------------------------------------------------------

// Counts the records in the file, opened anew.
static RunEnd countRecords(FormHandle form, std::size_t& count) {
  inputClose(state.input);
  state.input = inputOpen(state.inputPath, InputKind::text);
  if (!state.input) {
    fail(form, notReopenedText, BoxIcon::error);
    return RunEnd::failed;
  }
  const LimitsCount counted = countKestoLimits(*state.input);
  if (counted.pieces == 0) {
    fail(form, zeroRecordsText, BoxIcon::error);
    return RunEnd::programEnds;
  }
  // What was not counted could not be printed, and nobody would see that it is missing.
  if (counted.failed) {
    fail(form, readFailedText, BoxIcon::error);
    return RunEnd::failed;
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

static RunEnd printKestoTraderwise(FormHandle form, const TraderLimitsHeader& header) {
  std::size_t count = 0;
  const RunEnd counted = countRecords(form, count);
  if (counted != RunEnd::printed) return counted;
  if (!takeBlock(form, (count + 1) * sizeof(KestoTraderLimit), noTraderMemoryText)) return RunEnd::failed;
  auto* const records = static_cast<KestoTraderLimit*>(state.block);
  (void)rewindInput(form);  // told; the run goes on
  if (!readKestoTraderLimits(*state.input, records, count)) fail(form, readFailedText, BoxIcon::error);
  if (!openWriter(form)) return RunEnd::failed;
  writeKestoTraderLimits(*state.output, header, {records, count}, reportOptions());
  return RunEnd::printed;
}

static RunEnd printKestoScripwise(FormHandle form, const TraderLimitsHeader& header) {
  std::size_t count = 0;
  const RunEnd counted = countRecords(form, count);
  if (counted != RunEnd::printed) return counted;
  if (!takeBlock(form, (count + 1) * sizeof(KestoScripLimit), noScripMemoryText)) return RunEnd::failed;
  auto* const records = static_cast<KestoScripLimit*>(state.block);
  (void)rewindInput(form);  // told; the run goes on
  if (!readKestoScripLimits(*state.input, records, count)) fail(form, readFailedText, BoxIcon::error);
  if (!openWriter(form)) return RunEnd::failed;
  writeKestoScripLimits(*state.output, header, {records, count}, reportOptions());
  return RunEnd::printed;
}

// ---- The run ----------------------------------------------------------------------------------------------------------

static RunEnd printByLayout(FormHandle form) {
  TraderLimitsHeader header;
  if (!readTraderLimitsHeader(*state.input, header)) {
    fail(form, headerNotReadText, BoxIcon::error);
    return RunEnd::failed;
  }
  switch (limitsLayout(header, state.kesto)) {
    case LimitsLayout::normalTraderwise:
      return printNormalTraderwise(form, header);
    case LimitsLayout::normalScripwise:
      return printNormalScripwise(form, header);
    case LimitsLayout::kestoTraderwise:
      return printKestoTraderwise(form, header);
    case LimitsLayout::kestoScripwise:
      return printKestoScripwise(form, header);
    case LimitsLayout::none:
      break;
  }
  fail(form, state.kesto ? notCompatibleKestoText : notCompatibleNormalText, BoxIcon::exclamation);
  return RunEnd::failed;
}

static void run(FormHandle form) {
  showReply(form, IDC_TRDLIM_REPLY, "");
  setRunning(form, true);
  captureOptions(form);
  const RunEnd end = validate(form) ? printByLayout(form) : RunEnd::failed;
  if (end == RunEnd::programEnds) {
    (void)closeAllStreams();  // no report was begun
    appEnd(0);
    return;
  }
  if (end == RunEnd::printed) {
    // The streams are closed ahead of the last box, since a close can still lose the report.
    const bool written = closeAllStreams() && !state.probeLost;
    showEndOfRun(form, IDC_TRDLIM_REPLY, boxTitle, completionText, written);
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
  showReply(form, IDC_TRDLIM_REPLY, "");
  setRunning(form, false);
  resetForm(form);
}

static void press(FormHandle form, int control) {
  switch (control) {
    case IDC_TRDLIM_LOAD:
      load(form);
      break;
    case IDC_TRDLIM_PRINT:
      run(form);
      break;
    case IDC_TRDLIM_CANCEL:
      cancel(form);
      break;
    case IDC_TRDLIM_PRINTER:
      setControlsVisible(form, outputControls, false);
      break;
    case IDC_TRDLIM_FILE:
      setControlsVisible(form, outputControls, true);
      break;
    default:
      break;
  }
}

void traderLimitsFormEvent(const FormEvent& event) {
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
      toolCommand(toolTraderLimits);
      break;
    case FormEventKind::destroy:
      toolFormGone(toolTraderLimits);
      break;
    case FormEventKind::edit:
    case FormEventKind::pick:
      break;
  }
}

}  // namespace quillon
