// The Quote Log form (PRNTQUOTELOG). The user loads a quote log, which is opened and looked at there and then, and gets its
// quotes as a list. The form tells what it is about to print and prints it without a question.
#include "logs/quote_log_form.h"

#include <string>

#include "desktop/boxes.h"
#include "desktop/memory.h"
#include "frame/file_selection.h"
#include "frame/report_form.h"
#include "frame/tools.h"
#include "logs/log_file.h"
#include "logs/quote_log_file.h"
#include "logs/quote_log_report.h"
#include "resource.h"
#include "text/encoding.h"
#include "text/print.h"
#include "text/record_order.h"

namespace quillon {

// ---- Texts ------------------------------------------------------------------------------------------------------------

static constexpr char formTitle[] = "Quote Log Printing";

static constexpr char notOpenedText[] = "File cannot be opened!";
static constexpr char notOpenedTitle[] = "ERROR!";
static constexpr char fileTitle[] = "Quote Log";  // of what is told about the file's contents
static constexpr char badFileText[] = "Invalid File! \nPlease Load Proper File";

static constexpr char notLoadedTitle[] = "QUOTELOG PRINTING";
static constexpr char notCountedText[] = "Error In Calculating No Of Records";
static constexpr char noMemoryTitle[] = "Error";
static constexpr char noMemoryText[] = "QuoteLog Data : Memory Allocation Failure";
static constexpr char notReadText[] = "Error in Reading File";
static constexpr char zeroRecordsText[] = "Zero Records present in the File !!";

static constexpr LinesPerPageRule linesRule = {
    .control = IDC_QUOTELOG_LINES,
    .initial = 25,
    .limit = 25,
    .fallback = 25,
    .message = "Lines per page cannot be '>25' or '<1'\nWill be taken as 25",
    .title = "Printing QuoteLog",
    .writeBack = IDC_QUOTELOG_LINES,
    .reply = 0,
};

// The boxes alone tell these: whatever fails here ends in a fresh form.
static constexpr char outputTitle[] = "QuoteLog Printing";
static constexpr StreamTexts streamTexts = {
    .title = formTitle,
    .reply = IDC_QUOTELOG_REPLY,
    .inputKind = InputKind::binaryUpdate,
    .noInput = {noInputText, nullptr, notLoadedTitle},
    .inputNotOpened = {notOpenedText, nullptr, notOpenedTitle},
    .noOutputName = {"Please give OutFile Name.", nullptr},
    .badOutputName = {badOutputNameText, nullptr},
    .sameFile = {sameFileText, nullptr},
    .printerTest = PrinterTest::anyCase,
    .printerNotOpened = {checkPrinterText, nullptr, outputTitle},
    .outputNotOpened = {outputNotOpenedText, nullptr, outputTitle},
};

static constexpr char inProgress[] = "QuoteLog Printing in progress. Please Wait ...";
static constexpr char informationTitle[] = "FILE INFORMATION";
static constexpr char quotesType[] = "Quote Log File";

static constexpr char completeTitle[] = "Message!";
static constexpr char completeText[] = "Printing Complete";

// ---- Controls ---------------------------------------------------------------------------------------------------------

static constexpr int sortOptions[] = {IDC_QUOTELOG_SORT_TIME, IDC_QUOTELOG_SORT_SCRIP_CODE, IDC_QUOTELOG_SORT_SCRIP_ID,
                                      IDC_QUOTELOG_SORT_BID_CLIENT_ID, IDC_QUOTELOG_SORT_OFFER_CLIENT_ID};
static constexpr int destinations[] = {IDC_QUOTELOG_PRINTER, IDC_QUOTELOG_FILE};
static constexpr int outFileControls[] = {IDC_QUOTELOG_OUTFILE_LABEL, IDC_QUOTELOG_OUTFILE};
// Cancel is not among them: it stays enabled during a run, though nothing answers it.
static constexpr int runControls[] = {IDC_QUOTELOG_PRINTER,
                                      IDC_QUOTELOG_FILE,
                                      IDC_QUOTELOG_OUTFILE,
                                      IDC_QUOTELOG_PRINT,
                                      IDC_QUOTELOG_SORT_TIME,
                                      IDC_QUOTELOG_SORT_SCRIP_CODE,
                                      IDC_QUOTELOG_SORT_SCRIP_ID,
                                      IDC_QUOTELOG_SORT_BID_CLIENT_ID,
                                      IDC_QUOTELOG_SORT_OFFER_CLIENT_ID,
                                      IDC_QUOTELOG_LOAD};

static constexpr std::size_t outFileCapture = 300;  // characters that Print takes from the edit

// ---- State ------------------------------------------------------------------------------------------------------------

namespace {

struct Options {
  QuoteSort sort;
};

struct QuoteLogForm {
  std::string inputPath;  // empty until a file is chosen
  std::string fileTitle;  // its name without the folder, as a box shows it
  bool loaded;
  TradeHeader header;
  Input* input;  // open from Load on
  Output* output;
  std::size_t count;
  QuoteRec* block;  // the records and a zero one behind them
};

}  // namespace

static QuoteLogForm state;

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
  state.fileTitle.clear();
  state.loaded = false;
  checkRadio(form, destinations, IDC_QUOTELOG_PRINTER);
  checkRadio(form, sortOptions, IDC_QUOTELOG_SORT_TIME);
  showInitialLines(form, linesRule);
  formSetText(form, IDC_QUOTELOG_REPLY, "");
  formSetText(form, IDC_QUOTELOG_OUTFILE, "");
  setControlsVisible(form, outFileControls, false);
  formSetTitle(form, formTitle);
  formSetEnabled(form, IDC_QUOTELOG_LOAD, true);
  formSetFocus(form, IDC_QUOTELOG_LOAD);
}

static void onCancel(FormHandle form) {
  enableControls(form);
  resetForm(form);
  (void)closeAllStreams();  // no report is being written between runs
}

// The file just opened is no quote log. It is this form's own, and goes alone.
static void refuseFile(FormHandle form, const char* text) {
  boxShow(form, fileTitle, text, BoxIcon::error);
  inputClose(state.input);
  resetForm(form);
}

static void onLoad(FormHandle form) {
  showReply(form, IDC_QUOTELOG_REPLY, "");
  loadFile(loadQuoteLog, LoadVariant::standard, form, state.inputPath);
  if (state.inputPath.empty()) return;
  state.fileTitle = bytesFromUtf8(fileSelection.fileTitle);
  if (!openInputStream(form, streamTexts, state.inputPath, state.input)) return resetForm(form);

  if (!inputRead(*state.input, &state.header, sizeof state.header)) {
    // A file that is long enough and all the same gives no header is no bad file: its device failed.
    return refuseFile(form, whyNoHeader(*state.input) == NoHeader::notRead ? notReadText : badFileText);
  }
  if (!isQuoteLog(state.header)) return refuseFile(form, badFileText);
  state.loaded = true;
  formSetEnabled(form, IDC_QUOTELOG_LOAD, false);
  formSetFocus(form, IDC_QUOTELOG_PRINT);
}

static void onDestroyed(FormHandle) {
  if (state.input) inputClose(state.input);  // a file that was loaded and not printed
}

// ---- A run ------------------------------------------------------------------------------------------------------------

static bool requireLoaded(FormHandle form) {
  if (state.loaded) return true;
  boxShow(form, notLoadedTitle, noInputMessage(), BoxIcon::exclamation);
  formSetEnabled(form, IDC_QUOTELOG_LOAD, true);
  formSetFocus(form, IDC_QUOTELOG_LOAD);
  return false;
}

static Options captureOptions(FormHandle form) {
  Options options = {QuoteSort::time};
  if (formIsChecked(form, IDC_QUOTELOG_SORT_SCRIP_CODE)) options.sort = QuoteSort::scripCode;
  if (formIsChecked(form, IDC_QUOTELOG_SORT_SCRIP_ID)) options.sort = QuoteSort::scripId;
  if (formIsChecked(form, IDC_QUOTELOG_SORT_BID_CLIENT_ID)) options.sort = QuoteSort::bidClientId;
  if (formIsChecked(form, IDC_QUOTELOG_SORT_OFFER_CLIENT_ID)) options.sort = QuoteSort::offerClientId;
  return options;
}

static bool refuse(FormHandle form, const char* title, const char* text) {
  boxShow(form, title, text, BoxIcon::error);
  return false;
}

// Another form's run closes the file that this one has loaded.
static bool reopenInput(FormHandle form) {
  return state.input || openInputStream(form, streamTexts, state.inputPath, state.input);
}

static bool countRecords(FormHandle form) {
  return countLogRecords(*state.input, sizeof(QuoteRec), state.count) || refuse(form, formTitle, notCountedText);
}

// Reading goes on behind a record that cannot be read, which stays all zero.
static FormHandle readingForm;
static void tellReadFailed() { (void)refuse(readingForm, formTitle, notReadText); }

static bool readRecords(FormHandle form) {
  state.block = static_cast<QuoteRec*>(memoryTake((state.count + 1) * sizeof(QuoteRec)));
  if (!state.block) return refuse(form, noMemoryTitle, noMemoryText);
  readingForm = form;
  readLogRecords(*state.input, state.header, sizeof(QuoteRec), state.block, state.count, tellReadFailed);
  return true;
}

static bool requireRecords(FormHandle form) {
  if (state.count > 0) return true;
  reportOnReplyAndBox(form, IDC_QUOTELOG_REPLY, fileTitle, zeroRecordsText, BoxIcon::error);
  return false;
}

static RecordOrder sortRecords(FormHandle form, const Options& options) {
  RecordOrder order = orderOfRecords({state.block, sizeof(QuoteRec), state.count}, quoteLogSortKeys(options.sort));
  if (!order) (void)refuse(form, noMemoryTitle, noMemoryText);
  return order;
}

static bool openOutput(FormHandle form) {
  std::string name = printerName;
  if (formIsChecked(form, IDC_QUOTELOG_FILE)) name = formGetText(form, IDC_QUOTELOG_OUTFILE, outFileCapture);
  return requireOutputName(form, streamTexts, name) && !refuseInputAsOutput(form, streamTexts, state.inputPath, name) &&
         openOutputStream(form, streamTexts, name, state.output);
}

static void showInformation(FormHandle form) {
  const TradeHeader& header = state.header;
  // clang-format off
  const std::string text = formatText<
      "File Name : %12s\n\nFile Type : %s\n\nMemberId : %ld\n\nTraderId : %ld\n\nDate : %02d%02d/%02d/%02d\n\n"
      "Time : %02d : %02d : %02d\n\nNo Of Records : %ld\n ">(
      state.fileTitle, quotesType, header.memberId, header.traderId, header.century, header.year, header.month,
      header.day, header.hour, header.minute, header.second, static_cast<std::int32_t>(state.count));
  // clang-format on
  boxShow(form, informationTitle, text, BoxIcon::information);
}

static RunEnd printFile(FormHandle form, const Options& options) {
  if (!reopenInput(form) || !countRecords(form) || !readRecords(form) || !requireRecords(form)) return RunEnd::refused;
  const RecordOrder order = sortRecords(form, options);
  if (!order) return RunEnd::refused;
  const unsigned linesPerPage = captureLinesPerPage(form, linesRule);
  if (!openOutput(form)) return RunEnd::refused;
  showReply(form, IDC_QUOTELOG_REPLY, inProgress);
  showInformation(form);
  printQuoteLog(*state.output, state.header, state.block, order.positions(), {fileSelection.isLendingFile, linesPerPage});
  return RunEnd::printed;
}

static void endRun(FormHandle form, RunEnd end) {
  memoryFree(state.block);
  state.block = nullptr;
  if (end != RunEnd::printed) return onCancel(form);
  const bool written = closeAllStreams();
  if (written) showReply(form, IDC_QUOTELOG_REPLY, completeText);
  showEndOfRun(form, IDC_QUOTELOG_REPLY, written ? completeTitle : outputTitle, completeText, written);
  enableControls(form);
  resetForm(form);
}

static void onPrint(FormHandle form) {
  if (!requireLoaded(form)) return;
  disableControls(form);
  endRun(form, printFile(form, captureOptions(form)));
}

// ---- Events -----------------------------------------------------------------------------------------------------------

static constexpr FormFrame frame = {
    .tool = toolQuoteLog,
    .start = resetForm,
    .load = {IDC_QUOTELOG_LOAD, onLoad},
    .print = {IDC_QUOTELOG_PRINT, onPrint},
    .cancel = {IDC_QUOTELOG_CANCEL, onCancel},
    .printer = IDC_QUOTELOG_PRINTER,
    .file = IDC_QUOTELOG_FILE,
    .outFileControls = outFileControls,
    .destroyed = onDestroyed,
};

void quoteLogFormEvent(const FormEvent& event) { reportFormEvent(frame, event); }

}  // namespace quillon
