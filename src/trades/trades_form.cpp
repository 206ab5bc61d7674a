// The Trades form (PRNTRPT). The user loads one trade file, confirms what was found in it, and gets the list of its trades
// on the printer or in a file, in an order of his choice and with its net position on request. A Kesto file has a list of
// its own and is printed without being confirmed.
#include "trades/trades_form.h"

#include <string>
#include <vector>

#include "desktop/boxes.h"
#include "desktop/memory.h"
#include "frame/date_rule.h"
#include "frame/file_selection.h"
#include "frame/report_form.h"
#include "frame/tools.h"
#include "resource.h"
#include "text/print.h"
#include "text/record_order.h"
#include "trades/kesto_trades_report.h"
#include "trades/trade_file.h"
#include "trades/trades_net_position.h"
#include "trades/trades_report.h"

namespace quillon {

// ---- Texts ------------------------------------------------------------------------------------------------------------

// clang-format off
static constexpr char title[]             = "TRADES PRINTING";
static constexpr char loadedTitle[]       = "TRADES PRINTING - ";
static constexpr char notLoaded[]         = "Error in Loading Trade File";
static constexpr char linesTitle[]        = "PRINTING TRADES";
static constexpr char linesWrong[]        = "Lines per page cannot be '>50' or '<1'\nWill be taken as 50";
static constexpr char noOutFile[]         = "Please give OutFile Name.";
static constexpr char columnsTitle[]      = "Trades Printing";
static constexpr char columnsQuestion[]   = "Do you want to print with Scrip Group & Settlement number?";
static constexpr char notTradeFile[]      = "The Input file is not a valid trade file";
static constexpr char notCounted[]        = "Error In Calculating No Of Records";
static constexpr char emptyFile[]         = "Error in input file";
static constexpr char noRecords[]         = "No Records Present";
static constexpr char inProgress[]        = "Trades printing in progress... Please wait";
static constexpr char memoryTitle[]       = "Error";
static constexpr char noMemory[]          = "Trades Data : Memory Allocation Failure";
static constexpr char notRead[]           = "Error in Reading File";
static constexpr char lotTitle[]          = "ERROR";
static constexpr char fileIsOddLot[]      = "You had selected Marketlot option,\n Please load Normal Trades file. ";
static constexpr char fileIsMarketLot[]   = "You had selected Oddlot option,\n Please load OddLot Trades file. ";
static constexpr char correctTitle[]      = " Information";  // the file's name before it is blank since the load
static constexpr char quitting[]          = "QUITTING TRADES PRINTING";
static constexpr char normalPrinted[]     = "Normal Trades printed";
static constexpr char normalWithNetPos[]  = "Normal Trades and NetPosition printed";
static constexpr char kestoPrinted[]      = "Kesto Trades printed";
static constexpr char kestoWithNetPos[]   = "Kesto Trades and NetPosition printed";
static constexpr char complete[]          = "PRINTING COMPLETE";
// clang-format on

static constexpr StreamTexts streamTexts = {
    .title = title,
    .reply = IDC_TRADES_REPLY,
    .inputKind = InputKind::binary,
    .noInput = {noInputText, noInputText},
    .inputNotOpened = {notLoaded, notLoaded},
    .noOutputName = {noOutFile, noOutFile},
    .badOutputName = {badOutputNameText, badOutputNameText},
    .sameFile = {sameFileText, sameFileText},
    .printerTest = PrinterTest::anyCase,
    .printerNotOpened = {checkPrinterText, checkPrinterText},
    .outputNotOpened = {outputNotOpenedText, outputNotOpenedText},
};

static constexpr LinesPerPageRule linesRule = {
    .control = IDC_TRADES_LINES,
    .initial = 50,
    .limit = 50,
    .fallback = 50,
    .message = linesWrong,
    .title = linesTitle,
    .writeBack = IDC_TRADES_LINES,
    .reply = 0,
};

// ---- Controls ---------------------------------------------------------------------------------------------------------

static constexpr int lotOptions[] = {IDC_TRADES_ODDLOT, IDC_TRADES_MARKETLOT};
static constexpr int sortOptions[] = {IDC_TRADES_SORT_TIME, IDC_TRADES_SORT_SCRIP_CODE, IDC_TRADES_SORT_SCRIP_ID,
                                      IDC_TRADES_SORT_CLIENT_ID};
static constexpr int destinations[] = {IDC_TRADES_PRINTER, IDC_TRADES_FILE};
static constexpr int outFileControls[] = {IDC_TRADES_OUTFILE, IDC_TRADES_OUTFILE_LABEL};
// Cancel is not among them: during a run it gets no message anyway.
static constexpr int runControls[] = {IDC_TRADES_PRINTER,       IDC_TRADES_FILE,           IDC_TRADES_OUTFILE,
                                      IDC_TRADES_PRINT,         IDC_TRADES_SORT_TIME,      IDC_TRADES_SORT_SCRIP_CODE,
                                      IDC_TRADES_SORT_SCRIP_ID, IDC_TRADES_SORT_CLIENT_ID, IDC_TRADES_LOAD};
// What a load may have disabled on top of them.
static constexpr int loadControls[] = {IDC_TRADES_ODDLOT, IDC_TRADES_MARKETLOT, IDC_TRADES_NETPOS};

static constexpr std::size_t outFileLimit = 12;    // characters that the edit takes
static constexpr std::size_t outFileCapture = 14;  // characters that Print takes from it

// ---- State ------------------------------------------------------------------------------------------------------------

namespace {

enum class SortBy { time, scripCode, scripId, clientId };

struct Options {
  SortBy sortBy;
  bool oddLot;  // "Oddlot File"; otherwise "MarketLot File"
  bool netPosition;
  unsigned linesPerPage;
  std::string outputName;
};

struct TradesForm {
  std::string inputPath;  // empty until a file is chosen
  bool isLendingFile;     // of the file last chosen on any form, as it stands when Print is pressed
  Input* input;
  Output* output;
  TradeLayout layout;
  std::size_t count;
  void* block;  // the records of this run, and a zero one behind them, which ends the comparisons with the next record's scrip
  // Blocks of runs that ended at the question or at the wrong kind of lot: they go with the next run's end.
  std::vector<void*> blocksLeft;
};

}  // namespace

static TradesForm state;

// ---- The form between runs --------------------------------------------------------------------------------------------

static void disableControls(FormHandle form) {
  setControlsEnabled(form, runControls, false);
  formSetCloseEnabled(form, false);
}

static void enableControls(FormHandle form) {
  setControlsEnabled(form, runControls, true);
  setControlsEnabled(form, loadControls, true);
  formSetCloseEnabled(form, true);
}

static void resetForm(FormHandle form) {
  state.inputPath.clear();
  formSetText(form, IDC_TRADES_OUTFILE, "");
  setControlsVisible(form, outFileControls, false);
  checkRadio(form, destinations, IDC_TRADES_PRINTER);
  checkRadio(form, sortOptions, IDC_TRADES_SORT_TIME);
  checkRadio(form, lotOptions, IDC_TRADES_MARKETLOT);
  showInitialLines(form, linesRule);
  formSetText(form, IDC_TRADES_REPLY, "");
  formSetChecked(form, IDC_TRADES_NETPOS, false);
  formSetFocus(form, IDC_TRADES_LOAD);
  formSetTitle(form, title);
}

// The lot option that is not selected cannot be had for this file any more. A selection that was cancelled leaves "MarketLot
// File" to be chosen, but not "Oddlot File"; Cancel gives both back.
static void settleLotOption(FormHandle form, bool oddLot) {
  if (oddLot && fileSelection.fileChosen) {
    formSetChecked(form, IDC_TRADES_MARKETLOT, false);
    formSetEnabled(form, IDC_TRADES_MARKETLOT, false);
  }
  if (!oddLot) {
    formSetChecked(form, IDC_TRADES_ODDLOT, false);
    formSetEnabled(form, IDC_TRADES_ODDLOT, false);
  }
}

static void onLoad(FormHandle form) {
  showReply(form, IDC_TRADES_REPLY, "");
  const bool oddLot = formIsChecked(form, IDC_TRADES_ODDLOT);
  loadFile(loadTrades, oddLot ? LoadVariant::oddLot : LoadVariant::standard, form, state.inputPath);
  settleLotOption(form, oddLot);
  state.isLendingFile = fileSelection.isLendingFile;
  if (state.isLendingFile) formSetChecked(form, IDC_TRADES_NETPOS, false);
  formSetEnabled(form, IDC_TRADES_NETPOS, !state.isLendingFile);

  if (state.inputPath.empty()) return;
  formSetTitle(form, loadedTitle + fileSelection.fileTitle);
  fileSelection.fileTitle.clear();
  formSetEnabled(form, IDC_TRADES_LOAD, false);
  formSetFocus(form, oddLot ? IDC_TRADES_ODDLOT : IDC_TRADES_MARKETLOT);

  // Proves that the file can be read. Print opens it anew; the end of the run closes both.
  if (!openInputStream(form, streamTexts, state.inputPath, state.input)) {
    enableControls(form);
    resetForm(form);
  }
}

static void onCancel(FormHandle form) {
  showReply(form, IDC_TRADES_REPLY, "");
  (void)closeAllStreams();  // no run is in progress
  enableControls(form);
  resetForm(form);
}

static void onDestroyed(FormHandle) {
  if (state.input) inputClose(state.input);  // a file that was loaded and not printed
}

// ---- A run ------------------------------------------------------------------------------------------------------------

static Options captureOptions(FormHandle form) {
  Options options = {};
  options.outputName = printerName;
  if (formIsChecked(form, IDC_TRADES_FILE)) options.outputName = formGetText(form, IDC_TRADES_OUTFILE, outFileCapture);
  if (formIsChecked(form, IDC_TRADES_SORT_SCRIP_CODE)) options.sortBy = SortBy::scripCode;
  if (formIsChecked(form, IDC_TRADES_SORT_SCRIP_ID)) options.sortBy = SortBy::scripId;
  if (formIsChecked(form, IDC_TRADES_SORT_CLIENT_ID)) options.sortBy = SortBy::clientId;
  options.oddLot = formIsChecked(form, IDC_TRADES_ODDLOT);
  options.netPosition = formIsChecked(form, IDC_TRADES_NETPOS);
  options.linesPerPage = captureLinesPerPage(form, linesRule);
  return options;
}

// Without a file the form stays as it stands, with the options that were chosen; whatever fails behind that ends the run, and
// the file has to be loaded again.
static RunEnd openRun(FormHandle form, Options& options) {
  state.isLendingFile = fileSelection.isLendingFile;
  if (!requireInputPath(form, streamTexts, state.inputPath)) return RunEnd::kept;
  const bool open = openStreams(form, streamTexts, state.inputPath, options.outputName, state.input, state.output);
  return open ? RunEnd::printed : RunEnd::refused;
}

static bool refuse(FormHandle form, const char* boxTitle, const char* text) {
  reportOnReplyAndBox(form, IDC_TRADES_REPLY, boxTitle, text, BoxIcon::error);
  return false;
}

// Why a file without a whole header cannot be printed: it is empty, it is too short for a trade file, or it is long enough
// and cannot be read.
static const char* shortHeaderText() {
  switch (whyNoHeader(*state.input)) {
    case NoHeader::notMeasured:
      return notCounted;
    case NoHeader::emptyFile:
      return emptyFile;
    case NoHeader::tooShort:
      return notTradeFile;
    case NoHeader::notRead:
      break;
  }
  return notRead;
}

// Chooses the columns; asks the user where the records have more of them than the page.
static bool askShortColumns(FormHandle form, const TradeHeader& header) {
  if (state.isLendingFile) return false;
  if (header.fileKind != 'V') return true;
  return boxAsk(form, columnsTitle, columnsQuestion, BoxIcon::question, BoxChoice::no) == BoxChoice::no;
}

// Reads the header and settles what it decides about the pages.
static bool readHeader(FormHandle form, const Options& options, TradesReport& report) {
  TradeHeader& header = report.header;
  if (!inputRead(*state.input, &header, sizeof header)) return refuse(form, title, shortHeaderText());
  report.isLendingFile = state.isLendingFile;
  report.oddLotOption = options.oddLot;
  report.linesPerPage = options.linesPerPage;
  report.page = 1;

  // The question comes first, even where the next test shows that this is no trade file.
  report.shortColumns = askShortColumns(form, header);
  if (!report.isLendingFile) applyDateRule(header.century, header.year, header.month, header.day, DateRuleSlot::trades);
  report.preCutover = preCutoverFlag(DateRuleSlot::trades);
  if (!isTradeFile(header)) return refuse(form, title, notTradeFile);
  state.layout = tradeLayoutOf(header, report.isLendingFile);
  return true;
}

static bool countRecords(FormHandle form) {
  switch (countTrades(*state.input, state.layout, state.count)) {
    case TradeCount::counted:
      break;
    case TradeCount::notCalculated:
      return refuse(form, title, notCounted);
    case TradeCount::emptyFile:
      return refuse(form, title, emptyFile);
  }
  return state.count > 0 || refuse(form, title, noRecords);
}

// Reading goes on behind a record that cannot be read, which stays all zero.
static FormHandle readingForm;
static bool tellReadFailed() {
  (void)refuse(readingForm, title, notRead);
  return true;
}

static bool readRecords(FormHandle form) {
  showReply(form, IDC_TRADES_REPLY, inProgress);
  disableControls(form);
  state.block = memoryTake((state.count + 1) * tradeRecordSize(state.layout));
  if (!state.block) return refuse(form, memoryTitle, noMemory);
  readingForm = form;
  (void)readTrades(*state.input, state.layout, state.block, state.count, tellReadFailed);
  if (state.isLendingFile && state.layout == TradeLayout::rec144) {
    rewriteLends(static_cast<TradeRec144*>(state.block), state.count);
  }
  return true;
}

// The block stays taken, here and behind a No, until the next run's end.
static RunEnd leaveBlock() {
  state.blocksLeft.push_back(state.block);
  state.block = nullptr;
  return RunEnd::kept;
}

// The file must be of the lot that was asked for. Where it is not, the streams stay open as well.
static RunEnd checkLot(FormHandle form, const Options& options) {
  if (isOddLotFile(state.layout, state.block) == options.oddLot) return RunEnd::printed;
  showReply(form, IDC_TRADES_REPLY, "");
  boxShow(form, lotTitle, options.oddLot ? fileIsMarketLot : fileIsOddLot, BoxIcon::exclamation);
  enableControls(form);
  resetForm(form);
  return leaveBlock();
}

static RunEnd confirm(FormHandle form, const TradeHeader& header) {
  // clang-format off
  const std::string text = formatText<"%s\n%s\n%s\n%s\n%s\n%s\n\n%s\n">(
      std::string("File Type: Normal\n"),
      formatText<"MemberId=%ld\n">(header.memberId),
      formatText<"TraderId=%ld\n">(header.traderId),
      formatText<"Time %02d : %02d : %02d\n">(header.hour, header.minute, header.second),
      formatText<"Date %02d%02d/%02d/%02d\n">(header.century, header.year, header.month, header.day),
      formatText<"Records in the File=%I64d\n">(static_cast<std::int64_t>(state.count)),
      std::string("Is it Correct?"));
  // clang-format on
  if (boxAsk(form, correctTitle, text, BoxIcon::question, BoxChoice::yes) == BoxChoice::yes) return RunEnd::printed;
  boxShow(form, title, quitting, BoxIcon::exclamation);
  showReply(form, IDC_TRADES_REPLY, "");
  (void)closeAllStreams();  // nothing was written
  enableControls(form);
  resetForm(form);
  return leaveBlock();
}

namespace {

struct Keys {
  RecordKey scripCode, scripId, clientId, time;
};

struct KeyPair {
  RecordKey first, second;
};

}  // namespace

static constexpr RecordKey noKey = {KeyKind::none, 0, 0};

template <typename Record>
static constexpr Keys keysOfRecord = {
    .scripCode = {KeyKind::number, offsetof(Record, scripCode), sizeof(Record::scripCode)},
    .scripId = {KeyKind::text, offsetof(Record, scripId), sizeof(Record::scripId)},
    .clientId = {KeyKind::text, offsetof(Record, clientId), sizeof(Record::clientId)},
    .time = {KeyKind::text, offsetof(Record, time), sizeof(Record::time)},
};

static Keys keysOf(TradeLayout layout) {
  switch (layout) {
    case TradeLayout::rec132:
      return keysOfRecord<TradeRec132>;
    case TradeLayout::rec144:
      return keysOfRecord<TradeRec144>;
    case TradeLayout::kesto:
      return keysOfRecord<KestoTradeRec>;
  }
  return keysOfRecord<TradeRec132>;
}

static KeyPair normalKeys(SortBy sortBy, const Keys& keys) {
  switch (sortBy) {
    case SortBy::time:
      return {keys.time, keys.clientId};
    case SortBy::scripCode:
      return {keys.scripCode, keys.clientId};
    case SortBy::scripId:
      return {keys.scripId, keys.clientId};
    case SortBy::clientId:
      return {keys.clientId, keys.scripId};
  }
  return {noKey, noKey};
}

// A Kesto file has one key, and none by time: its records stay in file order.
static KeyPair kestoKeys(SortBy sortBy, const Keys& keys) {
  switch (sortBy) {
    case SortBy::time:
      return {noKey, noKey};
    case SortBy::scripCode:
      return {keys.scripCode, noKey};
    case SortBy::scripId:
      return {keys.scripId, noKey};
    case SortBy::clientId:
      return {keys.clientId, noKey};
  }
  return {noKey, noKey};
}

static void printList(Output& out, TradesReport& report, TradeLayout layout, const void* block, TradeOrder order) {
  switch (layout) {
    case TradeLayout::rec132:
      return printTrades132(out, report, static_cast<const TradeRec132*>(block), order);
    case TradeLayout::rec144:
      return printTrades144(out, report, static_cast<const TradeRec144*>(block), order);
    case TradeLayout::kesto:
      return printKestoTrades(out, report, static_cast<const KestoTradeRec*>(block), order);
  }
}

static void printNetPosition(Output& out, const TradesReport& report, TradeLayout layout, const void* block, TradeOrder order) {
  switch (layout) {
    case TradeLayout::rec132:
      return printNetPosition132(out, report, static_cast<const TradeRec132*>(block), order);
    case TradeLayout::rec144:
      return printNetPosition144(out, report, static_cast<const TradeRec144*>(block), order);
    case TradeLayout::kesto:
      return printKestoNetPosition(out, report, static_cast<const KestoTradeRec*>(block), order);
  }
}

static bool writeReport(FormHandle form, const Options& options, TradesReport& report) {
  const bool kesto = state.layout == TradeLayout::kesto;
  const Keys keys = keysOf(state.layout);
  const KeyPair pair = kesto ? kestoKeys(options.sortBy, keys) : normalKeys(options.sortBy, keys);
  const Records records = {state.block, tradeRecordSize(state.layout), state.count};
  const RecordOrder order = orderOfRecords(records, {pair.first, pair.second});
  if (!order) return refuse(form, memoryTitle, noMemory);
  printList(*state.output, report, state.layout, state.block, order.positions());
  showReply(form, IDC_TRADES_REPLY, kesto ? kestoPrinted : normalPrinted);
  if (!options.netPosition) return true;

  if (options.sortBy != SortBy::scripId && !recordOrder(records, {keys.scripId}, order.memory.get())) {
    return refuse(form, memoryTitle, noMemory);
  }
  printNetPosition(*state.output, report, state.layout, state.block, order.positions());
  showReply(form, IDC_TRADES_REPLY, kesto ? kestoWithNetPos : normalWithNetPos);
  return true;
}

static RunEnd printFile(FormHandle form, const Options& options) {
  TradesReport report = {};
  if (!readHeader(form, options, report) || !countRecords(form) || !readRecords(form)) return RunEnd::refused;
  // A Kesto file knows no odd lots, and is printed without a question.
  if (state.layout != TradeLayout::kesto) {
    if (const RunEnd lot = checkLot(form, options); lot != RunEnd::printed) return lot;
    if (const RunEnd answer = confirm(form, report.header); answer != RunEnd::printed) return answer;
  }
  return writeReport(form, options, report) ? RunEnd::printed : RunEnd::refused;
}

static void freeBlocks() {
  memoryFree(state.block);
  state.block = nullptr;
  for (void* block : state.blocksLeft) memoryFree(block);
  state.blocksLeft.clear();
}

static void endRun(FormHandle form, RunEnd end) {
  if (end == RunEnd::kept) return;
  const bool written = closeAllStreams();
  enableControls(form);
  freeBlocks();
  if (end == RunEnd::printed) showEndOfRun(form, IDC_TRADES_REPLY, title, complete, written);
  resetForm(form);
}

static void onPrint(FormHandle form) {
  Options options = captureOptions(form);
  RunEnd end = openRun(form, options);
  if (end == RunEnd::printed) end = printFile(form, options);
  endRun(form, end);
}

// ---- Events -----------------------------------------------------------------------------------------------------------

static void onStart(FormHandle form) {
  formSetTitle(form, title);
  resetForm(form);
}

static constexpr FormFrame frame = {
    .tool = toolTrades,
    .start = onStart,
    .load = {IDC_TRADES_LOAD, onLoad},
    .print = {IDC_TRADES_PRINT, onPrint},
    .cancel = {IDC_TRADES_CANCEL, onCancel},
    .printer = IDC_TRADES_PRINTER,
    .file = IDC_TRADES_FILE,
    .outFileControls = outFileControls,
    .outFile = IDC_TRADES_OUTFILE,
    .outFileLimit = outFileLimit,
    .destroyed = onDestroyed,
};

void tradesFormEvent(const FormEvent& event) { reportFormEvent(frame, event); }

}  // namespace quillon
