// The Broker Query form: load a broker query file, say how it is to be sorted and where it goes, confirm what its header
// says, and get the list of trades, followed on request by the net position.
#include "brokerquery/broker_form.h"

#include <string>

#include "brokerquery/broker_file.h"
#include "brokerquery/broker_net_position.h"
#include "brokerquery/broker_report.h"
#include "desktop/boxes.h"
#include "desktop/memory.h"
#include "frame/date_rule.h"
#include "frame/file_selection.h"
#include "frame/report_form.h"
#include "frame/tools.h"
#include "resource.h"
#include "text/print.h"

namespace quillon {

// ---- Texts ------------------------------------------------------------------------------------------------------------

static constexpr char titlePlain[] = "BROKER QUERY PRINTING";
static constexpr char titleLoadedPrefix[] = "BRKQRY PRINTING - ";

static constexpr char replyPrinting[] = "Printing of trades in Progress...Please wait.";
// The message lacks a quote mark, and the edit keeps the number that was refused.
static constexpr LinesPerPageRule linesRule = {
    .control = IDC_BRKQRY_LINES,
    .initial = 50,
    .limit = 50,
    .fallback = 50,
    .message = "Lines per page cannot be '>50 or '<1'",
    .title = "PRINTING BRKQRY",
    .writeBack = 0,
    .reply = 0,
};

static constexpr char inputNotOpenedText[] = "Error In Opening Broker Report File";
static constexpr char noOutputNameText[] = "Please give OutFile Name.";
static constexpr StreamTexts streamTexts = {
    .title = titlePlain,
    .reply = IDC_BRKQRY_REPLY,
    .inputKind = InputKind::binary,
    .noInput = {noInputText, noInputText},
    .inputNotOpened = {inputNotOpenedText, inputNotOpenedText},
    .noOutputName = {noOutputNameText, noOutputNameText},
    .badOutputName = {badOutputNameText, badOutputNameText},
    .sameFile = {sameFileText, sameFileText},
    .printerTest = PrinterTest::anyCase,
    .printerNotOpened = {checkPrinterText, checkPrinterText},
    .outputNotOpened = {outputNotOpenedText, outputNotOpenedText},
};

static constexpr char groupQuestion[] = "Do you want to print with Scrip Group & Settlement number?";
static constexpr char groupQuestionTitle[] = "Broker Query Printing";
static constexpr char badKindText[] = "Error in input file";
static constexpr char badContentText[] = "The Input file is not a valid Broker Query File";
static constexpr char notCountedText[] = "Error In Calculating No Of Records";

static constexpr char confirmTitle[] = "INFORMATION";
static constexpr char quittingText[] = "QUITTING BROKER QUERY PRINTING";
static constexpr char quittingTitle[] = "BRK QRY PRINTING";

static constexpr char noMemoryText[] = "Broker Report Data : Memory Allocation Failure";
static constexpr char noMemoryTitle[] = "Error";
static constexpr char shortReadText[] = "Error In Reading File";

static constexpr char replyPrinted[] = "Broker Report printed. ";
static constexpr char replyNetPosition[] = "Printing of NetPosition in Progress... Please Wait.";
static constexpr char replyBothPrinted[] = "Broker Report and NetPosition printed. ";
static constexpr char completeText[] = "PRINTING COMPLETE";
static constexpr char completeTitle[] = "PRINTING BRKQRY";

// ---- Controls ---------------------------------------------------------------------------------------------------------

static constexpr int sortOptions[] = {IDC_BRKQRY_SORT_TIME, IDC_BRKQRY_SORT_SCRIP_CODE, IDC_BRKQRY_SORT_SCRIP_ID,
                                      IDC_BRKQRY_SORT_CLIENT_ID, IDC_BRKQRY_SORT_TRADER};
static constexpr int destinations[] = {IDC_BRKQRY_PRINTER, IDC_BRKQRY_FILE};
static constexpr int outFileControls[] = {IDC_BRKQRY_OUTFILE, IDC_BRKQRY_OUTFILE_LABEL};
// What cannot be used while a run goes on.
static constexpr int runControls[] = {IDC_BRKQRY_PRINTER,       IDC_BRKQRY_FILE,           IDC_BRKQRY_OUTFILE,
                                      IDC_BRKQRY_PRINT,         IDC_BRKQRY_SORT_TIME,      IDC_BRKQRY_SORT_SCRIP_CODE,
                                      IDC_BRKQRY_SORT_SCRIP_ID, IDC_BRKQRY_SORT_CLIENT_ID, IDC_BRKQRY_SORT_TRADER,
                                      IDC_BRKQRY_NETPOS,        IDC_BRKQRY_LINES};

static constexpr std::size_t outFileLimit = 12;    // characters that the edit takes
static constexpr std::size_t outFileCapture = 14;  // characters that Print takes from it

// ---- State ------------------------------------------------------------------------------------------------------------

namespace {

struct Options {
  BrokerSort sort;
  bool netPosition;
  unsigned linesPerPage;
  std::string outputName;
};

struct BrokerForm {
  std::string inputPath;  // empty until a file is chosen
  Input* input;
  Output* output;
  TradeHeader header;
  BrokerLayout layout;
  bool shortColumns;
  std::size_t count;
  void* block;  // the records and a zero one behind them
  int pageNumber;
};

}  // namespace

static BrokerForm state;

// ---- The form between runs --------------------------------------------------------------------------------------------

static void disableControls(FormHandle form) {
  setControlsEnabled(form, runControls, false);
  formSetCloseEnabled(form, false);
}

static void enableControls(FormHandle form) {
  setControlsEnabled(form, runControls, true);
  formSetEnabled(form, IDC_BRKQRY_LOAD, true);
  formSetCloseEnabled(form, true);
}

static void resetForm(FormHandle form) {
  state.inputPath.clear();
  formSetText(form, IDC_BRKQRY_OUTFILE, "");
  setControlsVisible(form, outFileControls, false);
  checkRadio(form, destinations, IDC_BRKQRY_PRINTER);
  checkRadio(form, sortOptions, IDC_BRKQRY_SORT_TIME);
  showInitialLines(form, linesRule);
  formSetChecked(form, IDC_BRKQRY_NETPOS, false);
  formSetText(form, IDC_BRKQRY_REPLY, "");
  formSetTitle(form, titlePlain);
  formSetFocus(form, IDC_BRKQRY_LOAD);
  state.pageNumber = 1;
}

static void onLoad(FormHandle form) {
  formSetText(form, IDC_BRKQRY_REPLY, "");
  loadFile(loadBrokerQuery, LoadVariant::standard, form, state.inputPath);
  if (state.inputPath.empty()) return;
  formSetTitle(form, titleLoadedPrefix + fileSelection.fileTitle);
  fileSelection.fileTitle.clear();
  formSetEnabled(form, IDC_BRKQRY_LOAD, false);
  formSetFocus(form, IDC_BRKQRY_CANCEL);
}

static void onCancel(FormHandle form) {
  formSetText(form, IDC_BRKQRY_REPLY, "");
  (void)closeAllStreams();  // no report of this form is on its way between runs
  enableControls(form);
  resetForm(form);
}

// ---- A run ------------------------------------------------------------------------------------------------------------

static BrokerSort chosenSort(FormHandle form) {
  if (formIsChecked(form, IDC_BRKQRY_SORT_SCRIP_CODE)) return BrokerSort::scripCode;
  if (formIsChecked(form, IDC_BRKQRY_SORT_SCRIP_ID)) return BrokerSort::scripId;
  if (formIsChecked(form, IDC_BRKQRY_SORT_CLIENT_ID)) return BrokerSort::clientId;
  if (formIsChecked(form, IDC_BRKQRY_SORT_TRADER)) return BrokerSort::trader;
  return BrokerSort::time;
}

static Options captureOptions(FormHandle form) {
  Options options = {};
  options.sort = chosenSort(form);
  options.netPosition = formIsChecked(form, IDC_BRKQRY_NETPOS);
  options.linesPerPage = captureLinesPerPage(form, linesRule);
  options.outputName = printerName;
  if (formIsChecked(form, IDC_BRKQRY_FILE)) options.outputName = formGetText(form, IDC_BRKQRY_OUTFILE, outFileCapture);
  return options;
}

// A refusal here ends the run without closing anything: an input that was opened stays open until the next run's end, or
// Cancel.
static RunEnd openRun(FormHandle form, Options& options) {
  const bool open = requireInputPath(form, streamTexts, state.inputPath) &&
                    openInputStream(form, streamTexts, state.inputPath, state.input) &&
                    requireOutputName(form, streamTexts, options.outputName) &&
                    !refuseInputAsOutput(form, streamTexts, state.inputPath, options.outputName) &&
                    openOutputStream(form, streamTexts, options.outputName, state.output);
  if (open) return RunEnd::printed;
  enableControls(form);
  resetForm(form);
  return RunEnd::kept;
}

static bool refuse(FormHandle form, const char* title, const char* text) {
  reportOnReplyAndBox(form, IDC_BRKQRY_REPLY, title, text, BoxIcon::error);
  return false;
}

// Why a file without a whole header cannot be printed: it holds none, or the device does not give it.
static const char* shortHeaderText() {
  switch (whyNoHeader(*state.input)) {
    case NoHeader::notMeasured:
      return notCountedText;
    case NoHeader::emptyFile:
    case NoHeader::tooShort:
      break;
    case NoHeader::notRead:
      return shortReadText;
  }
  return badKindText;
}

// Reads the header and settles layout, columns and date rule, in this order: a 'V' file asks its question, and the date rule
// runs, before the file may turn out to be none of a broker query.
static bool readHeader(FormHandle form) {
  TradeHeader& header = state.header;
  if (!inputRead(*state.input, &header, sizeof header)) return refuse(form, titlePlain, shortHeaderText());
  bool recordSize132 = false;
  state.shortColumns = false;
  // The date rule is not run for a lending file: the flag of the file before it stands.
  if (!fileSelection.isLendingFile) {
    recordSize132 = header.fileKind != 'V';
    state.shortColumns = true;
    if (header.fileKind == 'V' &&
        boxAsk(form, groupQuestionTitle, groupQuestion, BoxIcon::question, BoxChoice::no) == BoxChoice::yes) {
      state.shortColumns = false;
    }
    applyDateRule(header.century, header.year, header.month, header.day, DateRuleSlot::brokerQuery);
  }

  const std::optional<BrokerLayout> layout = chooseBrokerLayout(header.fileKind, recordSize132);
  if (!layout) return refuse(form, titlePlain, badKindText);
  state.layout = *layout;
  if (header.kind == 'T') return refuse(form, titlePlain, badContentText);
  return true;
}

static bool countRecords(FormHandle form) {
  return countBrokerRecords(*state.input, state.layout, state.count) || refuse(form, titlePlain, notCountedText);
}

static bool confirm(FormHandle form) {
  const TradeHeader& header = state.header;
  // clang-format off
  const std::string text =
      formatText<"%s\n\n">(header.fileKind == 'B' ? "File Type: Kesto" : "File Type: Normal") +
      formatText<"MemberId=%ld\n\n">(header.memberId) +
      formatText<"Time %02d : %02d : %02d\n\n">(header.hour, header.minute, header.second) +
      formatText<"Date %02d%02d/%02d/%02d\n\n">(header.century, header.year, header.month, header.day) +
      formatText<"Records in the File=%ld\n\n">(static_cast<std::int32_t>(state.count)) +
      formatText<"%s\n\n">("Is it Correct?");
  // clang-format on
  if (boxAsk(form, confirmTitle, text, BoxIcon::question, BoxChoice::yes) == BoxChoice::yes) return true;
  boxShow(form, quittingTitle, quittingText, BoxIcon::exclamation);
  return false;
}

// The run goes on with the records that follow one that failed, which stays all zero.
static FormHandle readingForm;
static bool tellReadFailed() {
  (void)refuse(readingForm, titlePlain, shortReadText);
  return true;
}

static bool readRecords(FormHandle form) {
  state.block = memoryTake((state.count + 1) * brokerRecordSize(state.layout));
  if (!state.block) return refuse(form, noMemoryTitle, noMemoryText);
  readingForm = form;
  (void)readBrokerRecords(*state.input, state.layout, state.block, state.count, tellReadFailed);  // nothing ends this load
  return true;
}

static void printList(const Options& options, const BrokerRecords& records) {
  const bool isLendingFile = fileSelection.isLendingFile;
  const BrokerArrangement arrangement =
      chooseBrokerArrangement(state.layout, {state.shortColumns, preCutoverFlag(DateRuleSlot::brokerQuery), isLendingFile});
  BrokerPage page = {state.header, isLendingFile, state.pageNumber};
  printBrokerReport(*state.output, records, arrangement, options.linesPerPage, page);
  state.pageNumber = page.number;
}

static bool writeReport(FormHandle form, const Options& options) {
  const Records stored = {state.block, brokerRecordSize(state.layout), state.count};
  const BrokerSortKeys keys = brokerSortKeys(state.layout, options.sort);
  const RecordOrder order = orderOfRecords(stored, {keys.first, keys.second});
  if (!order) return refuse(form, noMemoryTitle, noMemoryText);
  const BrokerRecords records = {state.layout, state.block, state.count, order.memory.get()};
  printList(options, records);
  showReply(form, IDC_BRKQRY_REPLY, replyPrinted);
  if (!options.netPosition) return true;

  showReply(form, IDC_BRKQRY_REPLY, replyNetPosition);
  if (options.sort != BrokerSort::scripId) {
    const RecordKey scripId = brokerSortKeys(state.layout, BrokerSort::scripId).first;
    if (!recordOrder(stored, {scripId}, order.memory.get())) return refuse(form, noMemoryTitle, noMemoryText);
  }
  printBrokerNetPosition(*state.output, records, state.header, fileSelection.isLendingFile);
  showReply(form, IDC_BRKQRY_REPLY, replyBothPrinted);
  return true;
}

static RunEnd printFile(FormHandle form, const Options& options) {
  const bool done = readHeader(form) && countRecords(form) && confirm(form) && readRecords(form) && writeReport(form, options);
  return done ? RunEnd::printed : RunEnd::refused;
}

static void endRun(FormHandle form, RunEnd end) {
  if (end == RunEnd::kept) return;
  const bool written = closeAllStreams();
  enableControls(form);
  memoryFree(state.block);
  state.block = nullptr;
  if (end == RunEnd::printed) showEndOfRun(form, IDC_BRKQRY_REPLY, completeTitle, completeText, written);
  resetForm(form);
}

static void onPrint(FormHandle form) {
  showReply(form, IDC_BRKQRY_REPLY, replyPrinting);
  disableControls(form);
  Options options = captureOptions(form);
  RunEnd end = openRun(form, options);
  if (end == RunEnd::printed) end = printFile(form, options);
  endRun(form, end);
}

// ---- Events -----------------------------------------------------------------------------------------------------------

static constexpr FormFrame frame = {
    .tool = toolBrokerQuery,
    .start = resetForm,
    .load = {IDC_BRKQRY_LOAD, onLoad},
    .print = {IDC_BRKQRY_PRINT, onPrint},
    .cancel = {IDC_BRKQRY_CANCEL, onCancel},
    .printer = IDC_BRKQRY_PRINTER,
    .file = IDC_BRKQRY_FILE,
    .outFileControls = outFileControls,
    .outFile = IDC_BRKQRY_OUTFILE,
    .outFileLimit = outFileLimit,
};

void brokerQueryFormEvent(const FormEvent& event) { reportFormEvent(frame, event); }

}  // namespace quillon
