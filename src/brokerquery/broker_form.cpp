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

// The form's texts in the order in which a user meets them.
static constexpr char titlePlain[] = "BROKER QUERY PRINTING";
static constexpr char titleLoadedPrefix[] = "BRKQRY PRINTING - ";

static constexpr char replyPrinting[] = "Printing of trades in Progress...Please wait.";
// The message lacks a quote mark, and the edit keeps the number that was refused.
static constexpr LinesPerPageRule linesPerPageRule = {
    .control = IDC_BRKQRY_LINES,
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

static constexpr std::size_t outputNameLimit = 12;
static constexpr std::size_t outputNameCapture = 14;
static constexpr char defaultLinesPerPage[] = "50";

static constexpr int sortControls[] = {IDC_BRKQRY_SORT_TIME, IDC_BRKQRY_SORT_SCRIP_CODE, IDC_BRKQRY_SORT_SCRIP_ID,
                                       IDC_BRKQRY_SORT_CLIENT_ID, IDC_BRKQRY_SORT_TRADER};
static constexpr int printToControls[] = {IDC_BRKQRY_PRINTER, IDC_BRKQRY_FILE};
static constexpr int outputNameControls[] = {IDC_BRKQRY_OUTFILE, IDC_BRKQRY_OUTFILE_LABEL};
// What cannot be used while a run goes on.
static constexpr int runControls[] = {IDC_BRKQRY_PRINTER,       IDC_BRKQRY_FILE,           IDC_BRKQRY_OUTFILE,
                                      IDC_BRKQRY_PRINT,         IDC_BRKQRY_SORT_TIME,      IDC_BRKQRY_SORT_SCRIP_CODE,
                                      IDC_BRKQRY_SORT_SCRIP_ID, IDC_BRKQRY_SORT_CLIENT_ID, IDC_BRKQRY_SORT_TRADER,
                                      IDC_BRKQRY_NETPOS,        IDC_BRKQRY_LINES};

struct BrokerFormState {
  FormHandle form;
  std::string path;            // of the input; empty until one is loaded
  std::string previousOutput;  // the last accepted text of the output name's edit
  Input* input;
  Output* output;
  void* block;  // the records and a zero record behind them
  int pageNumber;
};
static BrokerFormState state;

// ---- The form between runs --------------------------------------------------------------------------------------------

static void enableControls(FormHandle form) {
  setControlsEnabled(form, runControls, true);
  formSetEnabled(form, IDC_BRKQRY_LOAD, true);
  formSetCloseEnabled(form, true);
}

static void disableControls(FormHandle form) {
  setControlsEnabled(form, runControls, false);
  formSetCloseEnabled(form, false);
}

static void resetForm(FormHandle form) {
  state.path.clear();
  formSetText(form, IDC_BRKQRY_OUTFILE, "");
  state.previousOutput.clear();
  setControlsVisible(form, outputNameControls, false);
  checkRadio(form, printToControls, IDC_BRKQRY_PRINTER);
  checkRadio(form, sortControls, IDC_BRKQRY_SORT_TIME);
  formSetText(form, IDC_BRKQRY_LINES, defaultLinesPerPage);
  formSetChecked(form, IDC_BRKQRY_NETPOS, false);
  formSetText(form, IDC_BRKQRY_REPLY, "");
  formSetTitle(form, titlePlain);
  formSetFocus(form, IDC_BRKQRY_LOAD);
  state.pageNumber = 1;
}

static void load(FormHandle form) {
  formSetText(form, IDC_BRKQRY_REPLY, "");
  loadFile(loadBrokerQuery, LoadVariant::standard, form, state.path);
  if (state.path.empty()) return;
  formSetTitle(form, titleLoadedPrefix + fileSelection.fileTitle);
  fileSelection.fileTitle.clear();
  formSetEnabled(form, IDC_BRKQRY_LOAD, false);
  formSetFocus(form, IDC_BRKQRY_CANCEL);
}

static void cancel(FormHandle form) {
  formSetText(form, IDC_BRKQRY_REPLY, "");
  (void)closeAllStreams();  // no report of this form is on its way between runs
  enableControls(form);
  resetForm(form);
}

// ---- A run ------------------------------------------------------------------------------------------------------------

namespace {

struct RunOptions {
  BrokerSort sort;
  bool netPosition;
  unsigned linesPerPage;
  std::string outputName;
};

// What the header settles about the rest of the file.
struct FileFacts {
  TradeHeader header;
  BrokerLayout layout;
  bool shortColumns;
  std::size_t count;
};

}  // namespace

static BrokerSort chosenSort(FormHandle form) {
  if (formIsChecked(form, IDC_BRKQRY_SORT_SCRIP_CODE)) return BrokerSort::scripCode;
  if (formIsChecked(form, IDC_BRKQRY_SORT_SCRIP_ID)) return BrokerSort::scripId;
  if (formIsChecked(form, IDC_BRKQRY_SORT_CLIENT_ID)) return BrokerSort::clientId;
  if (formIsChecked(form, IDC_BRKQRY_SORT_TRADER)) return BrokerSort::trader;
  return BrokerSort::time;
}

static RunOptions captureOptions(FormHandle form) {
  RunOptions options;
  options.sort = chosenSort(form);
  options.netPosition = formIsChecked(form, IDC_BRKQRY_NETPOS);
  options.linesPerPage = captureLinesPerPage(form, linesPerPageRule);
  options.outputName = printerName;
  if (formIsChecked(form, IDC_BRKQRY_FILE)) options.outputName = formGetText(form, IDC_BRKQRY_OUTFILE, outputNameCapture);
  return options;
}

// An input that was opened stays open when the output is refused; the next run's end, or Cancel, closes it.
static bool openFiles(FormHandle form, std::string& outputName) {
  if (!requireInputPath(form, streamTexts, state.path)) return false;
  state.input = openInputStream(form, streamTexts, state.path);
  if (!state.input) return false;
  if (!requireOutputName(form, streamTexts, outputName)) return false;
  if (refuseInputAsOutput(form, streamTexts, state.path, outputName)) return false;
  state.output = openOutputStream(form, streamTexts, outputName);
  return state.output != nullptr;
}

static bool refuse(FormHandle form, const char* text) {
  reportOnReplyAndBox(form, IDC_BRKQRY_REPLY, titlePlain, text, BoxIcon::error);
  return false;
}

// Reads the header and settles layout, columns and date rule, in this order: a 'V' file asks its question, and the date rule
// runs, before the file may turn out to be none of a broker query.
static bool readFacts(FormHandle form, FileFacts& facts) {
  if (!inputRead(*state.input, &facts.header, sizeof facts.header)) return refuse(form, badKindText);
  const TradeHeader& header = facts.header;
  bool recordSize132 = false;
  facts.shortColumns = false;
  // The date rule is not run for a lending file: the flag of the file before it stands.
  if (!fileSelection.isLendingFile) {
    recordSize132 = header.fileKind != 'V';
    facts.shortColumns = true;
    if (header.fileKind == 'V' &&
        boxAsk(form, groupQuestionTitle, groupQuestion, BoxIcon::question, BoxChoice::no) == BoxChoice::yes) {
      facts.shortColumns = false;
    }
    applyDateRule(header.century, header.year, header.month, header.day, DateRuleSlot::brokerQuery);
  }

  const std::optional<BrokerLayout> layout = chooseBrokerLayout(header.fileKind, recordSize132);
  if (!layout) return refuse(form, badKindText);
  facts.layout = *layout;
  if (header.kind == 'T') return refuse(form, badContentText);
  if (!countBrokerRecords(*state.input, facts.layout, facts.count)) return refuse(form, notCountedText);
  return true;
}

static bool confirm(FormHandle form, const FileFacts& facts) {
  const TradeHeader& header = facts.header;
  // clang-format off
  const std::string text =
      formatText<"%s\n\n">(header.fileKind == 'B' ? "File Type: Kesto" : "File Type: Normal") +
      formatText<"MemberId=%ld\n\n">(header.memberId) +
      formatText<"Time %02d : %02d : %02d\n\n">(header.hour, header.minute, header.second) +
      formatText<"Date %02d%02d/%02d/%02d\n\n">(header.century, header.year, header.month, header.day) +
      formatText<"Records in the File=%ld\n\n">(static_cast<std::int32_t>(facts.count)) +
      formatText<"%s\n\n">("Is it Correct?");
  // clang-format on
  if (boxAsk(form, confirmTitle, text, BoxIcon::question, BoxChoice::yes) == BoxChoice::yes) return true;
  boxShow(form, quittingTitle, quittingText, BoxIcon::exclamation);
  return false;
}

static bool takeBlock(const FileFacts& facts) {
  state.block = memoryTake((facts.count + 1) * brokerRecordSize(facts.layout));
  return state.block != nullptr;
}

static void releaseBlock() {
  memoryFree(state.block);
  state.block = nullptr;
}

static bool failMemory(FormHandle form) {
  reportOnReplyAndBox(form, IDC_BRKQRY_REPLY, noMemoryTitle, noMemoryText, BoxIcon::error);
  return false;
}

// The run goes on with the records that follow; the one that failed stays all zero.
static bool onShortRead() {
  reportOnReplyAndBox(state.form, IDC_BRKQRY_REPLY, titlePlain, shortReadText, BoxIcon::error);
  return true;
}

static bool printReports(FormHandle form, const RunOptions& options, const FileFacts& facts) {
  const Records stored = {state.block, brokerRecordSize(facts.layout), facts.count};
  const bool isLendingFile = fileSelection.isLendingFile;

  const BrokerSortKeys keys = brokerSortKeys(facts.layout, options.sort);
  const RecordOrder order = orderOfRecords(stored, {keys.first, keys.second});
  if (!order) return failMemory(form);
  const BrokerRecords records = {facts.layout, state.block, facts.count, order.memory.get()};
  const BrokerArrangement arrangement =
      chooseBrokerArrangement(facts.layout, {facts.shortColumns, preCutoverFlag(DateRuleSlot::brokerQuery), isLendingFile});
  BrokerPage page = {facts.header, isLendingFile, state.pageNumber};
  printBrokerReport(*state.output, records, arrangement, options.linesPerPage, page);
  state.pageNumber = page.number;
  showReply(form, IDC_BRKQRY_REPLY, replyPrinted);
  if (!options.netPosition) return true;

  showReply(form, IDC_BRKQRY_REPLY, replyNetPosition);
  if (options.sort != BrokerSort::scripId) {
    const RecordKey scripId = brokerSortKeys(facts.layout, BrokerSort::scripId).first;
    if (!recordOrder(stored, {scripId}, order.memory.get())) return failMemory(form);
  }
  printBrokerNetPosition(*state.output, records, facts.header, isLendingFile);
  showReply(form, IDC_BRKQRY_REPLY, replyBothPrinted);
  return true;
}

// From the open files to the printed report; false when the run ended before it, which has been told.
static bool printFile(FormHandle form, const RunOptions& options) {
  FileFacts facts = {};
  if (!readFacts(form, facts)) return false;
  if (!confirm(form, facts)) return false;
  if (!takeBlock(facts)) return failMemory(form);
  (void)readBrokerRecords(*state.input, facts.layout, state.block, facts.count, onShortRead);  // nothing ends this load
  return printReports(form, options, facts);
}

static void runPrint(FormHandle form) {
  showReply(form, IDC_BRKQRY_REPLY, replyPrinting);
  disableControls(form);
  RunOptions options = captureOptions(form);
  bool complete = false, written = false;
  if (openFiles(form, options.outputName)) {
    complete = printFile(form, options);
    written = closeAllStreams();
  }
  enableControls(form);
  releaseBlock();
  if (complete) showEndOfRun(form, IDC_BRKQRY_REPLY, completeTitle, completeText, written);
  resetForm(form);
}

// ---- Events -----------------------------------------------------------------------------------------------------------

static void onPress(const FormEvent& event) {
  switch (event.control) {
    case IDC_BRKQRY_LOAD:
      load(event.form);
      break;
    case IDC_BRKQRY_PRINT:
      runPrint(event.form);
      break;
    case IDC_BRKQRY_CANCEL:
      cancel(event.form);
      break;
    case IDC_BRKQRY_FILE:
      setControlsVisible(event.form, outputNameControls, true);
      break;
    case IDC_BRKQRY_PRINTER:
      setControlsVisible(event.form, outputNameControls, false);
      break;
    default:
      break;
  }
}

void brokerQueryFormEvent(const FormEvent& event) {
  switch (event.kind) {
    case FormEventKind::start:
      state = {};
      state.form = event.form;
      resetForm(event.form);
      break;
    case FormEventKind::press:
      onPress(event);
      break;
    case FormEventKind::edit:
      if (event.control == IDC_BRKQRY_OUTFILE) {
        limitEditText(event.form, IDC_BRKQRY_OUTFILE, state.previousOutput, outputNameLimit, editAnyCharacters);
      }
      break;
    case FormEventKind::activate:
      formRaise(event.form);
      break;
    case FormEventKind::close:
      toolCommand(toolBrokerQuery);
      break;
    case FormEventKind::destroy:
      toolFormGone(toolBrokerQuery);
      break;
    case FormEventKind::pick:
      break;
  }
}

}  // namespace quillon
