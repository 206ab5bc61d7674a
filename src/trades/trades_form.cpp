// The Trades form (PRNTRPT). The user loads one trade file, confirms what was found in it, and gets the list of its trades
// on the printer or in a file, in an order of his choice and with its net position on request. A Kesto file has a list of
// its own and is printed without being confirmed.
#include "trades/trades_form.h"

#include <string>

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

// ---- Texts, in the order in which a user meets them -----------------------------------------------------------------------

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
    .limit = 50,
    .fallback = 50,
    .message = linesWrong,
    .title = linesTitle,
    .writeBack = IDC_TRADES_LINES,
    .reply = 0,
};

static constexpr std::size_t outFileLimit = 12;    // characters that the edit takes
static constexpr std::size_t outFileCapture = 14;  // characters that Print takes from it

// ---- State ----------------------------------------------------------------------------------------------------------------

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
  std::string outFile;    // what the OutFile edit held before its last update
  Input* input;
  Output* output;
};

}  // namespace

static TradesForm state;

static constexpr int lotOptions[] = {IDC_TRADES_ODDLOT, IDC_TRADES_MARKETLOT};
static constexpr int sortOptions[] = {IDC_TRADES_SORT_TIME, IDC_TRADES_SORT_SCRIP_CODE, IDC_TRADES_SORT_SCRIP_ID,
                                      IDC_TRADES_SORT_CLIENT_ID};
static constexpr int destinations[] = {IDC_TRADES_PRINTER, IDC_TRADES_FILE};
static constexpr int outFileControls[] = {IDC_TRADES_OUTFILE, IDC_TRADES_OUTFILE_LABEL};

// Cancel is not among them: during a run it gets no message anyway.
static constexpr int runControls[] = {IDC_TRADES_PRINTER,       IDC_TRADES_FILE,           IDC_TRADES_OUTFILE,
                                      IDC_TRADES_PRINT,         IDC_TRADES_SORT_TIME,      IDC_TRADES_SORT_SCRIP_CODE,
                                      IDC_TRADES_SORT_SCRIP_ID, IDC_TRADES_SORT_CLIENT_ID, IDC_TRADES_LOAD};
static constexpr int loadControls[] = {IDC_TRADES_ODDLOT, IDC_TRADES_MARKETLOT, IDC_TRADES_NETPOS};

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
  state.outFile.clear();
  setControlsVisible(form, outFileControls, false);
  checkRadio(form, destinations, IDC_TRADES_PRINTER);
  checkRadio(form, sortOptions, IDC_TRADES_SORT_TIME);
  checkRadio(form, lotOptions, IDC_TRADES_MARKETLOT);
  formSetText(form, IDC_TRADES_LINES, std::to_string(linesRule.fallback));
  formSetText(form, IDC_TRADES_REPLY, "");
  formSetChecked(form, IDC_TRADES_NETPOS, false);
  formSetFocus(form, IDC_TRADES_LOAD);
  formSetTitle(form, title);
}

// ---- Load -----------------------------------------------------------------------------------------------------------------

static void onLoad(FormHandle form) {
  showReply(form, IDC_TRADES_REPLY, "");
  const bool oddLot = formIsChecked(form, IDC_TRADES_ODDLOT);
  loadFile(loadTrades, oddLot ? LoadVariant::oddLot : LoadVariant::standard, form, state.inputPath);

  // The option that is not selected cannot be had for this file any more. A selection that was cancelled leaves "MarketLot
  // File" to be chosen, but not "Oddlot File"; Cancel gives both back.
  if (oddLot && fileSelection.fileChosen) {
    formSetChecked(form, IDC_TRADES_MARKETLOT, false);
    formSetEnabled(form, IDC_TRADES_MARKETLOT, false);
  }
  if (!oddLot) {
    formSetChecked(form, IDC_TRADES_ODDLOT, false);
    formSetEnabled(form, IDC_TRADES_ODDLOT, false);
  }
  state.isLendingFile = fileSelection.isLendingFile;
  if (state.isLendingFile) formSetChecked(form, IDC_TRADES_NETPOS, false);
  formSetEnabled(form, IDC_TRADES_NETPOS, !state.isLendingFile);

  if (state.inputPath.empty()) return;
  formSetTitle(form, loadedTitle + fileSelection.fileTitle);
  fileSelection.fileTitle.clear();
  formSetEnabled(form, IDC_TRADES_LOAD, false);
  formSetFocus(form, oddLot ? IDC_TRADES_ODDLOT : IDC_TRADES_MARKETLOT);

  // Proves that the file can be read. Print opens it anew; the end of the run closes both.
  state.input = openInputStream(form, streamTexts, state.inputPath);
  if (!state.input) {
    enableControls(form);
    resetForm(form);
  }
}

// ---- Print: options and streams -------------------------------------------------------------------------------------------

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

// A failure that ends the run: told, and the form is as it was when it was opened.
static void failRun(FormHandle form, const char* boxTitle, const char* text, BoxIcon icon) {
  reportOnReplyAndBox(form, IDC_TRADES_REPLY, boxTitle, text, icon);
  enableControls(form);
  resetForm(form);
  (void)closeAllStreams();  // the report that was lost has been given up above
}

// False when the run is over. Without a file the form stays as it stands, with the options that were chosen; whatever fails
// behind that ends the run, and the file has to be loaded again.
static bool openRun(FormHandle form, Options& options) {
  if (!requireInputPath(form, streamTexts, state.inputPath)) return false;
  if (openStreams(form, streamTexts, state.inputPath, options.outputName, state.input, state.output)) return true;
  enableControls(form);
  resetForm(form);
  (void)closeAllStreams();  // nothing was written yet
  return false;
}

// ---- Print: the file's header and its records -----------------------------------------------------------------------------

// Why a file without a whole header cannot be printed: it is empty, it is too short for a trade file, or it is long enough
// and cannot be read.
static const char* shortHeaderText() {
  if (!inputSeekEnd(*state.input)) return notCounted;
  const std::int64_t size = inputTell(*state.input);
  if (size < 0) return notCounted;
  if (size == 0) return emptyFile;
  return size < static_cast<std::int64_t>(sizeof(TradeHeader)) ? notTradeFile : notRead;
}

// Chooses the columns; asks the user where the records have more of them than the page.
static bool askShortColumns(FormHandle form, const TradeHeader& header) {
  if (state.isLendingFile) return false;
  if (header.fileKind != 'V') return true;
  return boxAsk(form, columnsTitle, columnsQuestion, BoxIcon::question, BoxChoice::no) == BoxChoice::no;
}

static bool askIsItCorrect(FormHandle form, const TradeHeader& header, std::size_t count) {
  // clang-format off
  const std::string text = formatText<"%s\n%s\n%s\n%s\n%s\n%s\n\n%s\n">(
      std::string("File Type: Normal\n"),
      formatText<"MemberId=%ld\n">(header.memberId),
      formatText<"TraderId=%ld\n">(header.traderId),
      formatText<"Time %02d : %02d : %02d\n">(header.hour, header.minute, header.second),
      formatText<"Date %02d%02d/%02d/%02d\n">(header.century, header.year, header.month, header.day),
      formatText<"Records in the File=%I64d\n">(static_cast<std::int64_t>(count)),
      std::string("Is it Correct?"));
  // clang-format on
  return boxAsk(form, correctTitle, text, BoxIcon::question, BoxChoice::yes) == BoxChoice::yes;
}

// Reading goes on behind a record that cannot be read, which stays all zero.
static FormHandle readingForm;
static bool tellReadFailed() {
  reportOnReplyAndBox(readingForm, IDC_TRADES_REPLY, title, notRead, BoxIcon::error);
  return true;
}

// ---- Print: the order of the records --------------------------------------------------------------------------------------

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

// ---- Print: list and section ----------------------------------------------------------------------------------------------

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

// ---- Print ----------------------------------------------------------------------------------------------------------------

static void onPrint(FormHandle form) {
  state.isLendingFile = fileSelection.isLendingFile;
  Options options = captureOptions(form);
  if (!openRun(form, options)) return;

  TradesReport report = {};
  TradeHeader& header = report.header;
  if (!inputRead(*state.input, &header, sizeof header)) return failRun(form, title, shortHeaderText(), BoxIcon::error);
  report.isLendingFile = state.isLendingFile;
  report.oddLotOption = options.oddLot;
  report.linesPerPage = options.linesPerPage;
  report.page = 1;

  // The question comes first, even where the next test shows that this is no trade file.
  report.shortColumns = askShortColumns(form, header);
  if (!report.isLendingFile) applyDateRule(header.century, header.year, header.month, header.day, DateRuleSlot::trades);
  report.preCutover = preCutoverFlag(DateRuleSlot::trades);
  if (!isTradeFile(header)) return failRun(form, title, notTradeFile, BoxIcon::error);

  const TradeLayout layout = tradeLayoutOf(header, report.isLendingFile);
  std::size_t count = 0;
  switch (countTrades(*state.input, layout, count)) {
    case TradeCount::counted:
      break;
    case TradeCount::notCalculated:
      return failRun(form, title, notCounted, BoxIcon::error);
    case TradeCount::emptyFile:
      return failRun(form, title, emptyFile, BoxIcon::error);
  }
  if (count == 0) return failRun(form, title, noRecords, BoxIcon::error);

  showReply(form, IDC_TRADES_REPLY, inProgress);
  disableControls(form);

  // The zero record behind the last one ends the comparisons with the next record's scrip.
  void* const block = memoryTake((count + 1) * tradeRecordSize(layout));
  if (!block) return failRun(form, memoryTitle, noMemory, BoxIcon::error);
  readingForm = form;
  (void)readTrades(*state.input, layout, block, count, tellReadFailed);

  const bool kesto = layout == TradeLayout::kesto;
  if (!kesto) {
    if (report.isLendingFile) rewriteLends(static_cast<TradeRec144*>(block), count);

    const bool oddLotFile = isOddLotFile(layout, block);
    if (oddLotFile != options.oddLot) {
      // The block stays taken and the streams stay open until the next run's end.
      showReply(form, IDC_TRADES_REPLY, "");
      boxShow(form, lotTitle, options.oddLot ? fileIsMarketLot : fileIsOddLot, BoxIcon::exclamation);
      enableControls(form);
      resetForm(form);
      return;
    }

    if (!askIsItCorrect(form, header, count)) {
      // The block stays taken here as well.
      boxShow(form, title, quitting, BoxIcon::exclamation);
      showReply(form, IDC_TRADES_REPLY, "");
      (void)closeAllStreams();  // nothing was written
      enableControls(form);
      resetForm(form);
      return;
    }
  }

  const Keys keys = keysOf(layout);
  const Records records = {block, tradeRecordSize(layout), count};
  const KeyPair pair = kesto ? kestoKeys(options.sortBy, keys) : normalKeys(options.sortBy, keys);
  const RecordOrder order = orderOfRecords(records, {pair.first, pair.second});
  bool sorted = static_cast<bool>(order);
  if (sorted) {
    printList(*state.output, report, layout, block, order.positions());
    showReply(form, IDC_TRADES_REPLY, kesto ? kestoPrinted : normalPrinted);
    if (options.netPosition) {
      if (options.sortBy != SortBy::scripId) sorted = recordOrder(records, {keys.scripId}, order.memory.get());
      if (sorted) {
        printNetPosition(*state.output, report, layout, block, order.positions());
        showReply(form, IDC_TRADES_REPLY, kesto ? kestoWithNetPos : normalWithNetPos);
      }
    }
  }
  if (!sorted) {
    memoryFree(block);
    return failRun(form, memoryTitle, noMemory, BoxIcon::error);
  }

  const bool written = closeAllStreams();
  enableControls(form);
  memoryFree(block);
  showEndOfRun(form, IDC_TRADES_REPLY, title, complete, written);
  resetForm(form);
}

// ---- Events ---------------------------------------------------------------------------------------------------------------

static void onCancel(FormHandle form) {
  showReply(form, IDC_TRADES_REPLY, "");
  (void)closeAllStreams();  // no run is in progress
  enableControls(form);
  resetForm(form);
}

static void onPress(FormHandle form, int control) {
  switch (control) {
    case IDC_TRADES_LOAD:
      return onLoad(form);
    case IDC_TRADES_PRINT:
      return onPrint(form);
    case IDC_TRADES_CANCEL:
      return onCancel(form);
    case IDC_TRADES_FILE:
      return setControlsVisible(form, outFileControls, true);
    case IDC_TRADES_PRINTER:
      return setControlsVisible(form, outFileControls, false);
  }
}

void tradesFormEvent(const FormEvent& event) {
  switch (event.kind) {
    case FormEventKind::start:
      state = {};
      formSetTitle(event.form, title);
      resetForm(event.form);
      break;
    case FormEventKind::press:
      onPress(event.form, event.control);
      break;
    case FormEventKind::edit:
      if (event.control == IDC_TRADES_OUTFILE) {
        limitEditText(event.form, event.control, state.outFile, outFileLimit, editAnyCharacters);
      }
      break;
    case FormEventKind::pick:
      break;
    case FormEventKind::activate:
      formRaise(event.form);
      break;
    case FormEventKind::close:
      toolCommand(toolTrades);
      break;
    case FormEventKind::destroy:
      toolFormGone(toolTrades);
      break;
  }
}

}  // namespace quillon
