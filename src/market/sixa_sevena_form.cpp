// The 6A7A form (PRNTSIXASEVENA). The user says whether updatable or non-updatable entries are wanted, loads one file of that
// kind, and gets its entries in the order of the file. The file is first looked at when Print is pressed, and the user is asked
// nothing about it.
#include "market/sixa_sevena_form.h"

#include <string>

#include "desktop/memory.h"
#include "frame/file_selection.h"
#include "frame/report_form.h"
#include "frame/tools.h"
#include "frame/file_name.h"
#include "market/sixa_sevena_file.h"
#include "market/sixa_sevena_report.h"
#include "resource.h"

namespace quillon {

// ---- Texts ------------------------------------------------------------------------------------------------------------

static constexpr char formTitle[] = "6A7A REPORT PRINTING";
static constexpr char loadedTitle[] = "6A7A PRINTING - ";
static constexpr char boxTitle[] = "PRINTING 6A7A REPORT";
static constexpr char memoryTitle[] = "Error";

static constexpr LinesPerPageRule linesRule = {
    .control = IDC_6A7A_LINES,
    .initial = 40,
    .limit = 40,
    .fallback = 40,
    .message = "Lines per page cannot be '>40' or '<1'",
    .title = boxTitle,
    .writeBack = IDC_6A7A_LINES,
    .reply = 0,
};

static constexpr StreamTexts streamTexts = {
    .title = boxTitle,
    .reply = IDC_6A7A_REPLY,
    .inputKind = InputKind::text,
    .noInput = {noInputText, noInputText},
    .inputNotOpened = {"Error In Opening 6A7A Report File", "Error In Opening 6A7A Report File"},
    .noOutputName = {"Please give OutFile Name.", "Please give OutFile Name."},
    .badOutputName = {badOutputNameText, badOutputNameText},
    .sameFile = {sameFileText, sameFileText},
    .printerTest = PrinterTest::never,
    .printerNotOpened = {checkPrinterText, nullptr},
    .outputNotOpened = {outputNotOpenedText, nullptr},
};
// The Reply line names one of the two extensions alone.
static constexpr Message badUpdatableName = {"File name not valid.Enter *.UPD or *.SUPD", "File name not valid.Enter *.UPD"};
static constexpr Message badNonUpdatableName = {"File name not valid.Enter *.NUP or *.SNUP", "File name not valid.Enter *.NUP"};
static constexpr char notReopenedText[] = "Error In Opening Input File";
static constexpr char readFailedText[] = "Error in Reading File";
static constexpr char zeroRecordsText[] = "Zero Records !! Cannot Print";
static constexpr char noMemoryText[] = "6A7A Report: Memory Allocation Failure";
static constexpr char rewindFailedText[] = "fseek failed";
static constexpr char writerNotOpenedText[] = "Error in opening Outfile";
static constexpr char completionText[] = "PRINTING COMPLETE";

// ---- Controls ---------------------------------------------------------------------------------------------------------

static constexpr int kindOptions[] = {IDC_6A7A_UPDATABLE, IDC_6A7A_NON_UPDATABLE};
static constexpr int destinations[] = {IDC_6A7A_PRINTER, IDC_6A7A_FILE};
static constexpr int outFileControls[] = {IDC_6A7A_OUTFILE_LABEL, IDC_6A7A_OUTFILE};
// Cancel is not among them: it stays enabled during a run, though nothing answers it.
static constexpr int runControls[] = {IDC_6A7A_PRINTER,   IDC_6A7A_FILE,          IDC_6A7A_OUTFILE, IDC_6A7A_PRINT,
                                      IDC_6A7A_UPDATABLE, IDC_6A7A_NON_UPDATABLE, IDC_6A7A_LOAD};

// Characters that Print takes from the edits.
static constexpr std::size_t outFileCapture = 14;
static constexpr std::size_t brokerIdCapture = 9;

// ---- State ------------------------------------------------------------------------------------------------------------

namespace {

struct Options {
  bool updatable;
  unsigned linesPerPage;
  std::string outputName;
  std::string brokerId;
};

struct SixaSevenaForm {
  std::string inputPath;  // empty until a file is chosen
  Input* input;
  Output* output;
  Record6A7A* block;  // freed at the end of the run
  bool probeLost;     // the output that only proved that it can be written could not be closed
};

}  // namespace

static SixaSevenaForm state;

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
  formSetText(form, IDC_6A7A_OUTFILE, "");
  setControlsVisible(form, outFileControls, false);
  checkRadio(form, destinations, IDC_6A7A_PRINTER);
  checkRadio(form, kindOptions, IDC_6A7A_UPDATABLE);
  formSetText(form, IDC_6A7A_BROKER_ID, "");
  showInitialLines(form, linesRule);
  formSetText(form, IDC_6A7A_REPLY, "");
  formSetTitle(form, formTitle);
  formSetFocus(form, IDC_6A7A_LOAD);
}

static void onLoad(FormHandle form) {
  showReply(form, IDC_6A7A_REPLY, "");
  const bool updatable = formIsChecked(form, IDC_6A7A_UPDATABLE);
  loadFile(load6A7A, updatable ? LoadVariant::standard : LoadVariant::nonUpdatable, form, state.inputPath);
  if (state.inputPath.empty()) return;
  formSetTitle(form, loadedTitle + fileSelection.fileTitle);
  fileSelection.fileTitle.clear();
  formSetEnabled(form, IDC_6A7A_LOAD, false);
  formSetFocus(form, IDC_6A7A_PRINT);
}

static void onCancel(FormHandle form) {
  showReply(form, IDC_6A7A_REPLY, "");
  enableControls(form);
  resetForm(form);
}

// ---- A run ------------------------------------------------------------------------------------------------------------

static Options captureOptions(FormHandle form) {
  Options options = {};
  options.updatable = formIsChecked(form, IDC_6A7A_UPDATABLE);
  options.brokerId = formGetText(form, IDC_6A7A_BROKER_ID, brokerIdCapture);
  options.linesPerPage = captureLinesPerPage(form, linesRule);
  options.outputName = printerName;
  if (formIsChecked(form, IDC_6A7A_FILE)) options.outputName = formGetText(form, IDC_6A7A_OUTFILE, outFileCapture);
  return options;
}

static bool refuse(FormHandle form, const char* text) {
  reportOnReplyAndBox(form, IDC_6A7A_REPLY, boxTitle, text, BoxIcon::error);
  return false;
}

static bool requireInputName(FormHandle form, bool updatable) {
  // ".SUPD" does not hold ".UPD", nor ".SNUP" ".NUP".
  if (updatable ? fileNameHolds(state.inputPath, {".SUPD", ".UPD"}) : fileNameHolds(state.inputPath, {".SNUP", ".NUP"})) {
    return true;
  }
  showMessage(form, IDC_6A7A_REPLY, boxTitle, updatable ? badUpdatableName : badNonUpdatableName, BoxIcon::exclamation);
  return false;
}

// Proves that everything can be opened before anything is counted.
static RunEnd openRun(FormHandle form, Options& options) {
  const bool open = requireInputPath(form, streamTexts, state.inputPath) &&
                    openInputStream(form, streamTexts, state.inputPath, state.input) &&
                    requireInputName(form, options.updatable) && requireOutputName(form, streamTexts, options.outputName) &&
                    !refuseInputAsOutput(form, streamTexts, state.inputPath, options.outputName) &&
                    openOutputStream(form, streamTexts, options.outputName, state.output);
  return open ? RunEnd::printed : RunEnd::refused;
}

// Counts the records in the file, opened anew. A header without records is printed as well.
static bool countRecords(FormHandle form, std::size_t& count) {
  inputClose(state.input);
  state.input = inputOpen(state.inputPath, InputKind::text);
  inputHold(state.input);
  if (!state.input) return refuse(form, notReopenedText);
  const Count6A7A counted = count6A7A(*state.input);
  // What was not counted could not be printed, and nobody would see that it is missing.
  if (counted.failed) return refuse(form, readFailedText);
  if (counted.pieces == 0) return refuse(form, zeroRecordsText);
  count = counted.pieces - 1;
  return true;
}

static bool takeBlock(FormHandle form, std::size_t count) {
  state.block = static_cast<Record6A7A*>(memoryTake((count + 1) * sizeof(Record6A7A)));
  if (state.block) return true;
  boxShow(form, memoryTitle, noMemoryText, BoxIcon::error);
  return false;
}

// A failure is told, and the run goes on with what can be read.
static void readRecords(FormHandle form, Header6A7A& header, std::size_t count) {
  if (!inputRewind(*state.input)) boxShow(form, boxTitle, rewindFailedText, BoxIcon::error);
  if (!read6A7A(*state.input, header, state.block, count, fileSelection.isLendingFile)) (void)refuse(form, readFailedText);
}

// Opens the output a second time, for the report itself.
static bool openWriter(FormHandle form, const Options& options) {
  state.probeLost = !outputClose(state.output);
  state.output = outputOpen(options.outputName);
  outputHold(state.output);
  return state.output || refuse(form, writerNotOpenedText);
}

static RunEnd printFile(FormHandle form, const Options& options) {
  std::size_t count = 0;
  if (!countRecords(form, count) || !takeBlock(form, count)) return RunEnd::refused;
  Header6A7A header;
  readRecords(form, header, count);
  if (!openWriter(form, options)) return RunEnd::refused;
  write6A7A(*state.output, header, {state.block, count},
            {options.linesPerPage, options.updatable, fileSelection.isLendingFile, options.brokerId});
  return RunEnd::printed;
}

static void endRun(FormHandle form, RunEnd end) {
  // The streams are closed ahead of the last box, since a close can still lose the report.
  const bool written = closeAllStreams() && !state.probeLost;
  if (end == RunEnd::printed) showEndOfRun(form, IDC_6A7A_REPLY, boxTitle, completionText, written);
  state.probeLost = false;
  memoryFree(state.block);
  state.block = nullptr;
  enableControls(form);
  resetForm(form);
}

static void onPrint(FormHandle form) {
  showReply(form, IDC_6A7A_REPLY, "");
  disableControls(form);
  Options options = captureOptions(form);
  RunEnd end = openRun(form, options);
  if (end == RunEnd::printed) end = printFile(form, options);
  endRun(form, end);
}

// ---- Events -----------------------------------------------------------------------------------------------------------

static constexpr FormFrame frame = {
    .tool = tool6A7A,
    .start = resetForm,
    .load = {IDC_6A7A_LOAD, onLoad},
    .print = {IDC_6A7A_PRINT, onPrint},
    .cancel = {IDC_6A7A_CANCEL, onCancel},
    .printer = IDC_6A7A_PRINTER,
    .file = IDC_6A7A_FILE,
    .outFileControls = outFileControls,
};

void sixaSevenaFormEvent(const FormEvent& event) { reportFormEvent(frame, event); }

}  // namespace quillon
