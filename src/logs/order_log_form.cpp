// The Order Log form (PRNTORDLOG). The user loads an order log, which is opened and looked at there and then, says which of
// its three logs is wanted, and gets it as a list; a consolidated log has one list and asks for no choice. The form tells what
// it is about to print and prints it without a question. The rectifications came in years after the log: an older file
// that is asked for them is refused, and has to be loaded again.
#include "logs/order_log_form.h"

#include <string>
#include <vector>

#include "desktop/boxes.h"
#include "desktop/memory.h"
#include "frame/date_rule.h"
#include "frame/file_selection.h"
#include "frame/report_form.h"
#include "frame/tools.h"
#include "logs/log_file.h"
#include "logs/order_log_file.h"
#include "logs/order_log_report.h"
#include "resource.h"
#include "text/encoding.h"
#include "text/print.h"
#include "text/record_order.h"

namespace quillon {

// ---- Texts ------------------------------------------------------------------------------------------------------------

static constexpr char formTitle[] = "Order Log Printing";

static constexpr char notOpenedText[] = "File cannot be opened!";
static constexpr char notOpenedTitle[] = "ERROR!";
static constexpr char fileTitle[] = "Order Log/Client Rectification";  // of what is told about the file's contents
static constexpr Message badFile = {"Invalid File! \nPlease Load Proper File", "Invalid File Format"};
static constexpr char notReadText[] = "Error in Reading File";
static constexpr Message headerNotRead = {notReadText, notReadText};

static constexpr char notLoadedTitle[] = "ORDERLOG PRINTING";
static constexpr char inProgress[] = "OrderLog Printing in progress. Please Wait ...";

static constexpr char tooOldTitle[] = "ERROR";
static constexpr char noTypeRectificationText[] =
    "Inst Rectification Log is New Feature (Missing in Older files),\n Please load New Order Log file. ";
static constexpr char noClientRectificationText[] =
    "Client Rectification Log is New Feature (Missing in Older files),\n Please load New Order Log file. ";

static constexpr char notCountedText[] = "Error In Calculating No Of Records";
static constexpr char noMemoryTitle[] = "Error";
static constexpr char noMemoryText[] = "OrderLog Data : Memory Allocation Failure";
static constexpr char zeroRecordsText[] = "Zero Records present in the File !!";

static constexpr LinesPerPageRule linesRule = {
    .control = IDC_ORDLOG_LINES,
    .initial = 50,
    .limit = 50,
    .fallback = 50,
    .message = "Lines per page cannot be '>50' or '<1'\nWill be taken as 50",
    .title = "Printing OrderLog",
    .writeBack = IDC_ORDLOG_LINES,
    .reply = 0,
};

// The boxes alone tell these: whatever fails here ends in a fresh form.
static constexpr char outputTitle[] = "OrderLog Printing";
static constexpr StreamTexts streamTexts = {
    .title = formTitle,
    .reply = IDC_ORDLOG_REPLY,
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

static constexpr char informationTitle[] = "FILE INFORMATION";
static constexpr char ordersType[] = "Order Log File";
static constexpr char clientRectificationType[] = "Client Rectification Log File";
static constexpr char typeRectificationType[] = "Client Type Rectification Log File";
static constexpr char consolidatedType[] = "Consolidated Order Log File";

static constexpr char completeTitle[] = "Message!";
static constexpr char completeText[] = "Printing Complete";

// ---- Controls ---------------------------------------------------------------------------------------------------------

static constexpr int choiceOptions[] = {IDC_ORDLOG_ORDERS, IDC_ORDLOG_CLIENT_RECTIFICATION, IDC_ORDLOG_TYPE_RECTIFICATION};
static constexpr int choiceControls[] = {IDC_ORDLOG_CHOICE_GROUP, IDC_ORDLOG_ORDERS, IDC_ORDLOG_CLIENT_RECTIFICATION,
                                         IDC_ORDLOG_TYPE_RECTIFICATION};
static constexpr int sortOptions[] = {IDC_ORDLOG_SORT_TIME, IDC_ORDLOG_SORT_SCRIP_CODE, IDC_ORDLOG_SORT_SCRIP_ID,
                                      IDC_ORDLOG_SORT_CLIENT_ID};
static constexpr int destinations[] = {IDC_ORDLOG_PRINTER, IDC_ORDLOG_FILE};
static constexpr int outFileControls[] = {IDC_ORDLOG_OUTFILE_LABEL, IDC_ORDLOG_OUTFILE};
// Cancel is not among them: it stays enabled during a run, though nothing answers it.
static constexpr int runControls[] = {IDC_ORDLOG_PRINTER,
                                      IDC_ORDLOG_FILE,
                                      IDC_ORDLOG_OUTFILE,
                                      IDC_ORDLOG_PRINT,
                                      IDC_ORDLOG_SORT_TIME,
                                      IDC_ORDLOG_SORT_SCRIP_CODE,
                                      IDC_ORDLOG_SORT_SCRIP_ID,
                                      IDC_ORDLOG_SORT_CLIENT_ID,
                                      IDC_ORDLOG_LOAD,
                                      IDC_ORDLOG_ORDERS,
                                      IDC_ORDLOG_CLIENT_RECTIFICATION,
                                      IDC_ORDLOG_TYPE_RECTIFICATION};

static constexpr std::size_t outFileCapture = 255;  // characters that Print takes from the edit

// ---- State ------------------------------------------------------------------------------------------------------------

namespace {

struct Options {
  OrderLogChoice logChoice;  // of an order log; a consolidated one has none
  OrderLogSort sort;
  bool isLendingFile;  // of the file last chosen on any form, as it stands when Print is pressed
};

struct OrderLogForm {
  std::string inputPath;  // empty until a file is chosen
  std::string fileTitle;  // its name without the folder, as a box shows it
  bool logLoaded;
  char fileTypeLetter;  // the header's second
  bool orderRec112;
  TradeHeader header;
  Input* input;  // open from Load on
  Output* output;
  std::size_t count;
  std::size_t excludedCount;  // records of the choices that were not chosen
  void* block;                // the records of this run and a zero one behind them
  // Blocks of prints that failed: they go with the end of the next one that does not, or with the form.
  std::vector<void*> blocksLeft;
};

}  // namespace

static OrderLogForm state;

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
  state.logLoaded = false;
  formSetText(form, IDC_ORDLOG_OUTFILE, "");
  setControlsVisible(form, outFileControls, false);
  checkRadio(form, destinations, IDC_ORDLOG_PRINTER);
  checkRadio(form, sortOptions, IDC_ORDLOG_SORT_TIME);
  checkRadio(form, choiceOptions, IDC_ORDLOG_ORDERS);
  setControlsVisible(form, choiceControls, false);
  showInitialLines(form, linesRule);
  formSetText(form, IDC_ORDLOG_REPLY, "");
  formSetTitle(form, formTitle);
  formSetFocus(form, IDC_ORDLOG_LOAD);
}

static void onCancel(FormHandle form) {
  (void)closeAllStreams();  // no report is being written between runs
  enableControls(form);
  resetForm(form);
}

// The file just opened is none of an order log's.
static void refuseFile(FormHandle form, const Message& message) {
  showMessage(form, IDC_ORDLOG_REPLY, fileTitle, message, BoxIcon::error);
  onCancel(form);
}

static int chosenSortOption(FormHandle form) {
  for (const int option : sortOptions) {
    if (formIsChecked(form, option)) return option;
  }
  return IDC_ORDLOG_SORT_TIME;
}

// The choice of three logs is shown for a file that holds them.
static void showLoaded(FormHandle form, bool isConsolidated) {
  state.logLoaded = true;
  if (!isConsolidated) setControlsVisible(form, choiceControls, true);
  formSetEnabled(form, IDC_ORDLOG_LOAD, false);
  formSetFocus(form, isConsolidated ? chosenSortOption(form) : IDC_ORDLOG_ORDERS);
}

static void onLoad(FormHandle form) {
  showReply(form, IDC_ORDLOG_REPLY, "");
  loadFile(loadOrderLog, LoadVariant::standard, form, state.inputPath);
  if (state.inputPath.empty()) return;
  state.fileTitle = bytesFromUtf8(fileSelection.fileTitle);
  if (!openInputStream(form, streamTexts, state.inputPath, state.input)) return state.inputPath.clear();

  TradeHeader& header = state.header;
  if (!inputRead(*state.input, &header, sizeof header)) {
    // A file that is long enough and all the same gives no header is no bad file: its device failed.
    return refuseFile(form, whyNoHeader(*state.input) == NoHeader::notRead ? headerNotRead : badFile);
  }
  applyDateRule(header.century, header.year, header.month, header.day, DateRuleSlot::orderLog);
  state.fileTypeLetter = header.kind;
  const bool isConsolidated = isConsolidatedOrderLog(header);
  if (!isConsolidated && !isOrderLog(header)) return refuseFile(form, badFile);
  state.orderRec112 = !isConsolidated && orderRec112(header, fileSelection.isLendingFile);
  showLoaded(form, isConsolidated);
}

static void freeBlocks() {
  memoryFree(state.block);
  state.block = nullptr;
  for (void* block : state.blocksLeft) memoryFree(block);
  state.blocksLeft.clear();
}

static void onDestroyed(FormHandle) {
  if (state.input) inputClose(state.input);  // a file that was loaded and not printed
  freeBlocks();
}

// ---- A run ------------------------------------------------------------------------------------------------------------

static bool isConsolidated() { return state.fileTypeLetter == 'L'; }

static OrderLogLayout layout() {
  if (isConsolidated()) return OrderLogLayout::consolidated;
  return state.orderRec112 ? OrderLogLayout::rec112 : OrderLogLayout::rec136;
}

static bool requireLoaded(FormHandle form) {
  if (state.logLoaded) return true;
  boxShow(form, notLoadedTitle, noInputMessage(), BoxIcon::exclamation);
  formSetEnabled(form, IDC_ORDLOG_LOAD, true);
  return false;
}

static Options captureOptions(FormHandle form) {
  Options options = {};
  options.logChoice = OrderLogChoice::orders;
  if (formIsChecked(form, IDC_ORDLOG_CLIENT_RECTIFICATION)) options.logChoice = OrderLogChoice::clientRectification;
  if (formIsChecked(form, IDC_ORDLOG_TYPE_RECTIFICATION)) options.logChoice = OrderLogChoice::typeRectification;
  switch (chosenSortOption(form)) {
    case IDC_ORDLOG_SORT_SCRIP_CODE:
      options.sort = OrderLogSort::scripCode;
      break;
    case IDC_ORDLOG_SORT_SCRIP_ID:
      options.sort = OrderLogSort::scripId;
      break;
    case IDC_ORDLOG_SORT_CLIENT_ID:
      options.sort = OrderLogSort::clientId;
      break;
    default:
      options.sort = OrderLogSort::time;
  }
  options.isLendingFile = fileSelection.isLendingFile;
  return options;
}

static bool refuse(FormHandle form, const char* title, const char* text) {
  boxShow(form, title, text, BoxIcon::error);
  return false;
}

// The file must be young enough for the choice.
static bool requireFeature(FormHandle form, const Options& options) {
  if (isConsolidated()) return true;
  if (options.logChoice == OrderLogChoice::typeRectification && instRectMissing(state.header, options.isLendingFile)) {
    return refuse(form, tooOldTitle, noTypeRectificationText);
  }
  if (state.orderRec112 && options.logChoice != OrderLogChoice::orders) {
    return refuse(form, tooOldTitle, noClientRectificationText);
  }
  return true;
}

// Another form's run closes the file that this one has loaded.
static bool reopenInput(FormHandle form) {
  return state.input || openInputStream(form, streamTexts, state.inputPath, state.input);
}

static bool countRecords(FormHandle form) {
  return countLogRecords(*state.input, orderLogRecordSize(layout()), state.count) || refuse(form, formTitle, notCountedText);
}

// Reading goes on behind a record that cannot be read, which stays all zero.
static FormHandle readingForm;
static void tellReadFailed() { (void)refuse(readingForm, formTitle, notReadText); }

static bool readRecords(FormHandle form, const Options& options) {
  const std::size_t recordSize = orderLogRecordSize(layout());
  state.block = memoryTake((state.count + 1) * recordSize);
  if (!state.block) return refuse(form, noMemoryTitle, noMemoryText);
  readingForm = form;
  readLogRecords(*state.input, state.header, recordSize, state.block, state.count, tellReadFailed);
  if (options.isLendingFile) rewriteOrderLends(layout(), state.block, state.count);
  return true;
}

static bool requireRecords(FormHandle form, const Options& options) {
  state.excludedCount = 0;
  if (layout() == OrderLogLayout::rec136) {
    state.excludedCount = countExcludedOrders(static_cast<const OrderRec136*>(state.block), state.count, options.logChoice);
  }
  if (state.count != state.excludedCount) return true;
  reportOnReplyAndBox(form, IDC_ORDLOG_REPLY, fileTitle, zeroRecordsText, BoxIcon::error);
  return false;
}

static RecordOrder sortRecords(FormHandle form, const Options& options) {
  const Records records = {state.block, orderLogRecordSize(layout()), state.count};
  RecordOrder order = orderOfRecords(records, orderLogSortKeys(layout(), options.sort));
  if (!order) (void)refuse(form, noMemoryTitle, noMemoryText);
  return order;
}

static bool openOutput(FormHandle form) {
  std::string name = printerName;
  if (formIsChecked(form, IDC_ORDLOG_FILE)) name = formGetText(form, IDC_ORDLOG_OUTFILE, outFileCapture);
  return requireOutputName(form, streamTexts, name) && !refuseInputAsOutput(form, streamTexts, state.inputPath, name) &&
         openOutputStream(form, streamTexts, name, state.output);
}

static const char* fileTypeText(const Options& options) {
  if (isConsolidated()) return consolidatedType;
  switch (options.logChoice) {
    case OrderLogChoice::orders:
      return ordersType;
    case OrderLogChoice::clientRectification:
      return clientRectificationType;
    case OrderLogChoice::typeRectification:
      break;
  }
  return typeRectificationType;
}

static void showInformation(FormHandle form, const Options& options) {
  const TradeHeader& header = state.header;
  // clang-format off
  const std::string text = formatText<
      "File Name : %12s\n\nFile Type : %s\n\nMemberId : %ld\n\nTraderId : %ld\n\nDate : %02d%02d/%02d/%02d\n\n"
      "Time : %02d : %02d : %02d\n\nNo Of Records : %ld\n ">(
      state.fileTitle, fileTypeText(options), header.memberId, header.traderId, header.century, header.year, header.month,
      header.day, header.hour, header.minute, header.second, static_cast<std::int32_t>(state.count - state.excludedCount));
  // clang-format on
  boxShow(form, informationTitle, text, BoxIcon::information);
}

static void writeReport(const Options& options, unsigned linesPerPage, const RecordOrder& order) {
  const OrderLogRecords records = {layout(), state.block, state.count, order.positions().data()};
  const OrderLogOptions report = {.list = orderLogList(layout(), options.logChoice),
                                  .preCutover = preCutoverFlag(DateRuleSlot::orderLog),
                                  .isLendingFile = options.isLendingFile,
                                  .recordsPerPage = linesPerPage};
  printOrderLog(*state.output, state.header, records, report);
}

static RunEnd printFile(FormHandle form, const Options& options) {
  if (!requireFeature(form, options) || !reopenInput(form) || !countRecords(form) || !readRecords(form, options) ||
      !requireRecords(form, options)) {
    return RunEnd::refused;
  }
  const RecordOrder order = sortRecords(form, options);
  if (!order) return RunEnd::refused;
  const unsigned linesPerPage = captureLinesPerPage(form, linesRule);
  if (!openOutput(form)) return RunEnd::refused;
  showInformation(form, options);
  writeReport(options, linesPerPage, order);
  return RunEnd::printed;
}

// The block of a print that failed stays taken.
static void leaveBlock() {
  if (state.block) state.blocksLeft.push_back(state.block);
  state.block = nullptr;
}

static void endRun(FormHandle form, RunEnd end) {
  if (end != RunEnd::printed) {
    leaveBlock();
    return onCancel(form);
  }
  const bool written = closeAllStreams();
  freeBlocks();
  if (written) showReply(form, IDC_ORDLOG_REPLY, completeText);
  showEndOfRun(form, IDC_ORDLOG_REPLY, written ? completeTitle : outputTitle, completeText, written);
  enableControls(form);
  resetForm(form);
}

static void onPrint(FormHandle form) {
  if (!requireLoaded(form)) return;
  showReply(form, IDC_ORDLOG_REPLY, inProgress);
  disableControls(form);
  endRun(form, printFile(form, captureOptions(form)));
}

// ---- Events -----------------------------------------------------------------------------------------------------------

static constexpr FormFrame frame = {
    .tool = toolOrderLog,
    .start = resetForm,
    .load = {IDC_ORDLOG_LOAD, onLoad},
    .print = {IDC_ORDLOG_PRINT, onPrint},
    .cancel = {IDC_ORDLOG_CANCEL, onCancel},
    .printer = IDC_ORDLOG_PRINTER,
    .file = IDC_ORDLOG_FILE,
    .outFileControls = outFileControls,
    .destroyed = onDestroyed,
};

void orderLogFormEvent(const FormEvent& event) { reportFormEvent(frame, event); }

}  // namespace quillon
