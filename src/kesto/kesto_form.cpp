// The Kesto form: the user chooses a kind of file of the lending product from the list, loads one, and gets its report on the
// printer or in a file, or, of trades and of a broker query, a delimited text. The list decides which of the other controls can
// be used. What fails is told on the Reply line, where the other forms open a box, and stands there as long as the last box is
// open. A change of the list after the load asks for another load, save that Convert takes the file that is there.
#include "kesto/kesto_form.h"

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "brokerquery/broker_file.h"
#include "desktop/boxes.h"
#include "desktop/clock.h"
#include "desktop/memory.h"
#include "frame/file_name.h"
#include "frame/file_selection.h"
#include "frame/report_form.h"
#include "frame/run_date.h"
#include "frame/tools.h"
#include "kesto/kesto_breakup_report.h"
#include "kesto/kesto_broker_list.h"
#include "kesto/kesto_conversion.h"
#include "kesto/kesto_header.h"
#include "kesto/kesto_limits_report.h"
#include "kesto/kesto_list_position.h"
#include "kesto/kesto_touchlines_report.h"
#include "kesto/kesto_trades_list.h"
#include "resource.h"
#include "text/encoding.h"
#include "text/letters.h"
#include "text/print.h"
#include "text/record_order.h"
#include "trades/trade_file.h"

namespace quillon {

// ---- Texts ------------------------------------------------------------------------------------------------------------

static constexpr char notLoadedReply[] = "File Not Loaded ";
static constexpr char printingReply[] = "Printing In Progress ...Please Wait..";
static constexpr char noOutputNameReply[] = "Output File Can't Be Blank,Name It And Reload The File !!";
static constexpr LinesPerPageRule linesRule = {
    .control = IDC_KESTO_LINES,
    .initial = 50,
    .limit = 50,
    .fallback = 50,
    .message = "Lines per page cannot be '>50' or '<1'\nWill be taken as 50",
    .title = "QUILLON",
    .writeBack = IDC_KESTO_LINES,
    .reply = 0,
    .ownerless = true,
};
// The input's kind is that of the file's kind. A name that was given cannot get lost on its way, so that the text for an empty
// one is not shown. The title of the one box is that of the trades, whatever is printed.
static constexpr StreamTexts streamTexts = {
    .title = "TRADES PRINTING",
    .reply = IDC_KESTO_REPLY,
    .inputKind = InputKind::binary,
    .noInput = {},
    .inputNotOpened = {nullptr, "Error In Loading File !!"},
    .noOutputName = {nullptr, "Output File Can't Be Blank ,Please Name It And Reload The  File !!"},
    .badOutputName = {.box = nullptr, .reply = "Invalid Characters In Output Filename", .focus = IDC_KESTO_OUTFILE},
    .sameFile = {nullptr, sameFileText},
    .printerTest = PrinterTest::never,
    .printerNotOpened = {},
    .outputNotOpened = {outputNotOpenedText, outputNotOpenedText},
};

// Trades, broker query and conversion
static constexpr char notKestoReply[] = "Error : File Is Not A Valid KESTO File !!";
// These two say what the file is, not what was asked for.
static constexpr char isBrokerQueryReply[] = "File Is Not A Valid KESTO BROKER QUERY File !!";
static constexpr char isTradesReply[] = "File Is Not A Valid KESTO TRADES File !!";
static constexpr char notCountedReply[] = "Error In Calculating No Of Records";
static constexpr char quittingTitle[] = "QUILLO32";
static constexpr char quittingBrokerPrinting[] = "QUITTING KESTO BROKER QUERY PRINTING";
static constexpr char quittingTradesPrinting[] = "QUITTING KESTO TRADES PRINTING";
static constexpr char quittingBrokerConversion[] = "QUITTING KESTO BROKER QUERY CONVERSION";
static constexpr char quittingTradesConversion[] = "QUITTING KESTO TRADES CONVERSION";
static constexpr char memoryTitle[] = "Error";
// They say (R) for a (W) file too.
static constexpr char noTradesMemory[] = "KESTO (R)Trades Data : Memory Allocation Failure";
static constexpr char noBrokerMemory[] = "KESTO (R) Broker Report Data : Memory Allocation Failure";
static constexpr char notReadReply[] = "Error in Reading File !! ";
static constexpr char brokerNotReadReply[] = "Error In Reading BROKER QUERY File !!";

// Touchlines
static constexpr char zeroScripsReply[] = "Zero Scrips !! Cannot Print!!";
static constexpr char noTouchlinesMemoryReply[] = "KESTO Touchlines Data: Memory Allocation Failure!!";
static constexpr char notRewound[] = "fseek failed";
static constexpr char touchlinesNotRewoundTitle[] = "PRINTING KESTO TLINES";

// Trader limits
static constexpr char noLimitsHeaderReply[] = "Error Reading File Header !!";
static constexpr char zeroLimitsReply[] = "Error In Calculating Records !!";
static constexpr char noLimitsMemory[] = "Trader Limits Data: Memory Allocation Failure";
static constexpr char traderwiseNotRewoundTitle[] = "QUILLO32";
static constexpr char scripwiseNotRewoundTitle[] = "PRINTING TRDLIMITS";

// Breakup data
static constexpr char zeroBreakups[] = "Zero Records !! Cannot Print";
static constexpr char breakupTitle[] = "PRINTING BREAKUP REPORT";
static constexpr char noBreakupMemory[] = "Kesto (R) BreakUp Report: Memory Allocation Failure";

static constexpr char printingCancelledReply[] = "Printing Cancelled !!";
static constexpr char printingCancelled[] = "  PRINTING CANCELLED";
static constexpr char printingCancelledTitle[] = " PRINTING CANCELLED";

static constexpr char nameNotProposedReply[] = "Error Opening Output File !!";
static constexpr char convertingReply[] = "Conversion In Progress ...Please Wait..";
static constexpr char conversionCancelledReply[] = "Conversion Cancelled !!";
static constexpr char conversionCancelled[] = " CONVERSION CANCELLED";

// ---- Controls ---------------------------------------------------------------------------------------------------------

// In the order in which Print looks for the one that is checked.
static constexpr int sortOptions[] = {IDC_KESTO_SORT_TIME,      IDC_KESTO_SORT_SCRIP_CODE, IDC_KESTO_SORT_SCRIP_ID,
                                      IDC_KESTO_SORT_CLIENT_ID, IDC_KESTO_SORT_DAYS,       IDC_KESTO_SORT_TRADER};
static constexpr std::span<const int> tradesSorts = std::span(sortOptions).first(5);
static constexpr int touchlinesSorts[] = {IDC_KESTO_SORT_SCRIP_CODE, IDC_KESTO_SORT_SCRIP_ID, IDC_KESTO_SORT_DAYS};
static constexpr int destinations[] = {IDC_KESTO_PRINTER, IDC_KESTO_FILE};
static constexpr int outFileControls[] = {IDC_KESTO_OUTFILE_LABEL, IDC_KESTO_OUTFILE};

static constexpr std::size_t outFileCapture = 14;  // characters that Print and Convert take from the edit
static constexpr std::size_t brokerCapture = 9;

// ---- State ------------------------------------------------------------------------------------------------------------

namespace {

struct Options {
  int kestoSortId;  // the sort option that is checked; -1: none
  unsigned linesPerPage;
  std::string brokerNo;
  std::string outputName;
};

struct KestoForm {
  int kestoKindCode = -1;  // the kind in force, told by the code of its load request; -1: no file is loaded
  std::string inputPath;
  Input* input;
  Output* output;
  bool told;  // a step of the run has put a text of its own on the Reply line
  TradeHeader header;
  KestoContent content;
  std::size_t count;
  void* block;  // the records of trades or broker query, and a zero one behind them; freed at the end of the run
};

// How a kind is printed.
struct KindRun {
  InputKind inputKind;
  bool (*print)(FormHandle form, const Options& options);  // false: cancelled
  const char *completedReply, *completed, *completedTitle;
};

// One item of the list: its words, and what can be used while it is chosen.
struct Kind {
  int code;
  const char *item, *title, *loadedTitle;  // the last goes ahead of the file's name
  std::string_view namePieces[3];          // one of them must stand in the file's name; all empty: any name does
  const char* badNameReply;
  std::span<const int> sorts;
  int defaultSort;
  bool netPosition, destination, brokerNo, conversion;
  const char* lines;  // empty: the edit cannot be used
  KindRun run;
};

}  // namespace

static KestoForm state;
// Once a net position was asked for, every later list brings one until the program ends, though the check box shows off and
// the form may have been closed meanwhile. Nothing clears this.
static bool netPositionAsked;

static bool printTrades(FormHandle form, const Options& options);
static bool printTouchlines(FormHandle form, const Options& options);
static bool convertFile(FormHandle form, const Options& options);
static bool printBrokerQuery(FormHandle form, const Options& options);
static bool printBreakup(FormHandle form, const Options& options);
static bool printLimits(FormHandle form, const Options& options);

// clang-format off
// In the order of the list.
static constexpr Kind kinds[] = {
    {.code = loadKestoTrades, .item = "Trades Printing", .title = "KESTO TRADES PRINTING",
     .loadedTitle = "KESTO TRADES PRINTING          ",
     .namePieces = {}, .badNameReply = nullptr, .sorts = tradesSorts, .defaultSort = IDC_KESTO_SORT_TIME,
     .netPosition = true, .destination = true, .brokerNo = false, .conversion = false, .lines = "50",
     .run = {InputKind::binary, printTrades,
             "Trades Printing Completed !!", " TRADES PRINTING COMPLETED", "KESTO TRADES PRINTING"}},
    {.code = loadKestoTouchlines, .item = "TouchLines Printing", .title = "KESTO TOUCHLINES PRINTING",
     .loadedTitle = "KESTO TOUCHLINE PRINTING          ",
     .namePieces = {".VQT"}, .badNameReply = "File name not valid. Enter *.vqt", .sorts = touchlinesSorts,
     .defaultSort = IDC_KESTO_SORT_SCRIP_CODE,
     .netPosition = false, .destination = true, .brokerNo = false, .conversion = false, .lines = "50",
     .run = {InputKind::text, printTouchlines,
             "TouchLine Printing Completed !!", " TOUCHLINE PRINTING COMPLETED", "KESTO TOUCHLINE PRINTING"}},
    {.code = loadKestoConvert, .item = "Convert", .title = "KESTO CONVERT", .loadedTitle = "KESTO CONVERT          ",
     .namePieces = {}, .badNameReply = nullptr, .sorts = {}, .defaultSort = 0,
     .netPosition = false, .destination = false, .brokerNo = false, .conversion = true, .lines = "",
     .run = {InputKind::binary, convertFile, "Conversion Completed !!", " CONVERSION COMPLETED", "KESTO CONVERT"}},
    {.code = loadKestoBrokerQuery, .item = "Broker Query Printing", .title = "KESTO BROKER QUERY PRINTING",
     .loadedTitle = "KESTO BROKER QUERY PRINTING          ",
     .namePieces = {".BIN"}, .badNameReply = "File name not valid. Enter *.bin", .sorts = sortOptions,
     .defaultSort = IDC_KESTO_SORT_TIME,
     .netPosition = true, .destination = true, .brokerNo = false, .conversion = false, .lines = "50",
     .run = {InputKind::binary, printBrokerQuery,
             "Broker Query Printing Completed !!", " BROKER QUERY PRINTING COMPLETED", "KESTO BROKER QUERY PRINTING"}},
    {.code = loadKestoBreakup, .item = "BreakUp Data Printing", .title = "KESTO (R) BREAKUP DATA PRINTING",
     .loadedTitle = "KESTO (R) BREAKUP DATA PRINTING          ",
     .namePieces = {".DAT"}, .badNameReply = "File name not valid. Enter *.dat", .sorts = {}, .defaultSort = 0,
     .netPosition = false, .destination = true, .brokerNo = true, .conversion = false, .lines = "3",
     .run = {InputKind::text, printBreakup,
             "Breakup Data Printing Completed !!", " BREAKUP DATA PRINTING COMPLETED", "KESTO (R) BREAKUP DATA PRINTING"}},
    {.code = loadKestoTraderLimits, .item = "Traders Limit Printing", .title = "KESTO TRADERS LIMIT PRINTING",
     .loadedTitle = "KESTO TRADER LIMITS PRINTING          ",
     .namePieces = {".TRD", ".TSL", ".STRD"}, .badNameReply = "File name not valid. Enter *.trd or *.tsl",
     .sorts = {}, .defaultSort = 0,
     .netPosition = false, .destination = true, .brokerNo = false, .conversion = false, .lines = "50",
     .run = {InputKind::text, printLimits,
             "Traders Limit  Printing Completed !!", " TRADERS LIMIT  PRINTING COMPLETED", "KESTO (R) TRADERS LIMIT PRINTING"}},
};
// clang-format on

// ---- The form between runs --------------------------------------------------------------------------------------------

static const Kind& selectedKind(FormHandle form) {
  const int selected = formListSelected(form, IDC_KESTO_KIND);
  return kinds[selected < 0 ? 0 : selected];
}

static void showOutFile(FormHandle form, bool shown) {
  formSetText(form, IDC_KESTO_OUTFILE, "");
  setControlsVisible(form, outFileControls, shown);
}

// What can be used with this kind, and its defaults. Print has to wait for a file.
static void applyRule(FormHandle form, const Kind& kind) {
  formSetEnabled(form, IDC_KESTO_LOAD, true);
  formSetEnabled(form, IDC_KESTO_PRINT, false);
  formSetEnabled(form, IDC_KESTO_CONVERT, kind.conversion);
  setControlsEnabled(form, sortOptions, false);
  setControlsEnabled(form, kind.sorts, true);
  checkRadio(form, sortOptions, kind.defaultSort);
  formSetEnabled(form, IDC_KESTO_NETPOS, kind.netPosition);
  formSetChecked(form, IDC_KESTO_NETPOS, false);
  setControlsEnabled(form, destinations, kind.destination);
  checkRadio(form, destinations, kind.destination ? IDC_KESTO_PRINTER : 0);
  formSetEnabled(form, IDC_KESTO_LINES, kind.lines[0] != '\0');
  formSetText(form, IDC_KESTO_LINES, kind.lines);
  formSetEnabled(form, IDC_KESTO_BROKER, kind.brokerNo);
  if (kind.brokerNo) formSetText(form, IDC_KESTO_BROKER, " ");
  showOutFile(form, kind.conversion);
  formSetTitle(form, kind.title);
}

static void closeStreams() {
  if (state.input) inputClose(state.input);
  if (state.output) (void)outputClose(state.output);  // its report has been given up
}

// No file is loaded any more. The form's controls are applyRule's.
static void resetForm() {
  closeStreams();
  state.inputPath.clear();
  state.kestoKindCode = -1;
}

static void onStart(FormHandle form) {
  std::vector<std::string> items;
  for (const Kind& kind : kinds) items.emplace_back(kind.item);
  formListFill(form, IDC_KESTO_KIND, items);
  formListSelect(form, IDC_KESTO_KIND, 0);
  applyRule(form, kinds[0]);
  resetForm();
  formSetFocus(form, IDC_KESTO_LOAD);
}

static void onKind(FormHandle form, int control) {
  if (control != IDC_KESTO_KIND) return;
  showReply(form, IDC_KESTO_REPLY, "");
  applyRule(form, selectedKind(form));
}

// What cannot be opened or has no header is taken for trades: Convert will tell what is wrong with it.
static bool holdsBrokerQuery() {
  Input* input = inputOpen(state.inputPath, InputKind::binary);
  if (!input) return false;
  TradeHeader header;
  const bool read = inputRead(*input, &header, sizeof header);
  inputClose(input);
  return read && header.kind == 'B';
}

static void proposeOutputName(FormHandle form) {
  if (state.inputPath.empty()) return showReply(form, IDC_KESTO_REPLY, nameNotProposedReply);
  formSetText(form, IDC_KESTO_OUTFILE, kestoConvertedName(bytesFromUtf8(fileSelection.fileTitle), holdsBrokerQuery()));
}

static void onLoad(FormHandle form) {
  showReply(form, IDC_KESTO_REPLY, "");
  formSetEnabled(form, IDC_KESTO_LOAD, false);
  const Kind& kind = selectedKind(form);
  state.kestoKindCode = kind.code;
  loadFile(kind.code, LoadVariant::standard, form, state.inputPath);
  if (state.inputPath.empty()) {
    state.kestoKindCode = -1;
    formSetEnabled(form, IDC_KESTO_LOAD, true);
    formSetFocus(form, IDC_KESTO_LOAD);
    return;
  }
  formSetEnabled(form, IDC_KESTO_PRINT, true);
  formSetTitle(form, upperCased(kind.loadedTitle + fileSelection.fileTitle));
  formRaise(form);
  if (!kind.conversion) return formSetFocus(form, IDC_KESTO_PRINT);
  formSetFocus(form, IDC_KESTO_CONVERT);
  formSetEnabled(form, IDC_KESTO_PRINT, false);
  proposeOutputName(form);
}

static void onCancel(FormHandle form) {
  formSetEnabled(form, IDC_KESTO_PRINT, false);
  resetForm();
  showReply(form, IDC_KESTO_REPLY, "");
  applyRule(form, selectedKind(form));
  formSetFocus(form, IDC_KESTO_LOAD);
}

// ---- A run: its frame -------------------------------------------------------------------------------------------------

// Tells on the Reply line why the run cannot go on, or what it has met on its way.
static bool tell(FormHandle form, const char* text) {
  showReply(form, IDC_KESTO_REPLY, text);
  state.told = true;
  return false;
}

static bool tellInBox(FormHandle form, const char* title, const char* text, BoxIcon icon = BoxIcon::error) {
  boxShow(form, title, text, icon);
  return false;
}

static int checkedSort(FormHandle form) {
  for (const int option : sortOptions) {
    if (formIsChecked(form, option)) return option;
  }
  return -1;
}

// False without an output name.
static bool captureOptions(FormHandle form, Options& options) {
  options.outputName = printerName;
  if (formIsChecked(form, IDC_KESTO_FILE)) options.outputName = formGetText(form, IDC_KESTO_OUTFILE, outFileCapture);
  if (options.outputName.empty()) return tell(form, noOutputNameReply);
  options.kestoSortId = checkedSort(form);
  if (formIsChecked(form, IDC_KESTO_NETPOS)) netPositionAsked = true;
  options.linesPerPage = captureLinesPerPage(form, linesRule);
  options.brokerNo = formGetText(form, IDC_KESTO_BROKER, brokerCapture);
  return true;
}

static bool openInput(FormHandle form, const Kind& kind) {
  StreamTexts texts = streamTexts;
  texts.inputKind = kind.run.inputKind;
  if (openInputStream(form, texts, state.inputPath, state.input)) return true;
  formSetEnabled(form, IDC_KESTO_LOAD, true);
  return false;
}

static bool requireInputName(FormHandle form, const Kind& kind) {
  if (!kind.badNameReply) return true;
  for (const std::string_view piece : kind.namePieces) {
    if (!piece.empty() && fileNameHolds(state.inputPath, {piece})) return true;
  }
  return tell(form, kind.badNameReply);
}

static bool openRun(FormHandle form, const Kind& kind, Options& options) {
  return !refuseEmptyName(form, streamTexts, options.outputName) && openInput(form, kind) && requireInputName(form, kind) &&
         !refuseBadName(form, streamTexts, options.outputName) &&
         !refuseInputAsOutput(form, streamTexts, state.inputPath, options.outputName) &&
         openOutputStream(form, streamTexts, options.outputName, state.output);
}

// ---- A run: trades, broker query and conversion -----------------------------------------------------------------------

static bool readHeader(FormHandle form) {
  if (inputRead(*state.input, &state.header, sizeof state.header)) return true;
  switch (whyNoHeader(*state.input)) {
    case NoHeader::notMeasured:
      return tell(form, notCountedReply);
    case NoHeader::emptyFile:
    case NoHeader::tooShort:
      break;
    case NoHeader::notRead:
      return tell(form, notReadReply);
  }
  return tell(form, notKestoReply);
}

// The file must be of the kind that was chosen; a conversion takes its kind from the file.
static bool checkHeader(FormHandle form) {
  state.content = kestoContentOf(state.header);
  if (state.content == KestoContent::other) return tell(form, notKestoReply);
  const bool isTrades = state.content == KestoContent::trades;
  const int code = isTrades ? loadKestoTrades : loadKestoBrokerQuery;
  if (state.kestoKindCode == loadKestoConvert) state.kestoKindCode = code;
  return state.kestoKindCode == code || tell(form, isTrades ? isTradesReply : isBrokerQueryReply);
}

static bool countRecords(FormHandle form) {
  if (countTrades(*state.input, TradeLayout::kesto, state.count) == TradeCount::counted) return true;
  resetForm();
  return tell(form, notCountedReply);
}

static bool confirm(FormHandle form) {
  const std::string title = formatText<"%s Information">(bytesFromUtf8(fileSelection.fileTitle));
  const std::string text = kestoHeaderText(state.header, state.content, state.count);
  if (boxAsk(form, title.c_str(), text, BoxIcon::question, BoxChoice::yes) == BoxChoice::yes) return true;
  const bool conversion = selectedKind(form).conversion;
  const char* const ofTrades = conversion ? quittingTradesConversion : quittingTradesPrinting;
  const char* const ofBrokerQuery = conversion ? quittingBrokerConversion : quittingBrokerPrinting;
  const char* const quitting = state.content == KestoContent::trades ? ofTrades : ofBrokerQuery;
  return tellInBox(form, quittingTitle, quitting, BoxIcon::exclamation);
}

static FormHandle readingForm;
// The list goes on without a trade that cannot be read; a broker query ends there.
static bool tellTradeNotRead() {
  (void)tell(readingForm, notReadReply);
  return true;
}
static bool tellBrokerNotRead() { return tell(readingForm, brokerNotReadReply); }

static bool failMemory(FormHandle form) {
  return tellInBox(form, memoryTitle, state.content == KestoContent::trades ? noTradesMemory : noBrokerMemory);
}

static bool readRecords(FormHandle form) {
  state.block = memoryTake((state.count + 1) * sizeof(KestoTradeRec));
  if (!state.block) return failMemory(form);
  readingForm = form;
  if (state.content == KestoContent::trades) {
    return readTrades(*state.input, TradeLayout::kesto, state.block, state.count, tellTradeNotRead);
  }
  // A broker query without records fails here, with nothing said.
  return state.count > 0 && readBrokerRecords(*state.input, BrokerLayout::kesto, state.block, state.count, tellBrokerNotRead);
}
static_assert(sizeof(KestoTradeRec) == sizeof(KestoBrokerRec), "one count and one block do for both");

static bool loadRecords(FormHandle form) {
  return readHeader(form) && checkHeader(form) && countRecords(form) && confirm(form) && readRecords(form);
}

static KestoSort sortOf(int kestoSortId) {
  switch (kestoSortId) {
    case IDC_KESTO_SORT_TIME:
      return KestoSort::time;
    case IDC_KESTO_SORT_SCRIP_CODE:
      return KestoSort::scripCode;
    case IDC_KESTO_SORT_SCRIP_ID:
      return KestoSort::scripId;
    case IDC_KESTO_SORT_CLIENT_ID:
      return KestoSort::clientId;
    case IDC_KESTO_SORT_DAYS:
      return KestoSort::days;
    case IDC_KESTO_SORT_TRADER:
      return KestoSort::trader;
  }
  return KestoSort::fileOrder;
}

namespace {

// The list of one file and the net position behind it.
template <typename Record>
struct ListWriter {
  KestoSortKeys (*keys)(KestoSort sort);
  void (*list)(Output& out, KestoList& list, const Record* records, KestoOrder order);
  void (*position)(Output& out, const KestoList& list, const Record* records, KestoOrder order);
};

}  // namespace

template <typename Record>
static bool writeList(FormHandle form, const Options& options, const ListWriter<Record>& writer) {
  const auto* const block = static_cast<const Record*>(state.block);
  const Records records = {block, sizeof(Record), state.count};
  const KestoSortKeys keys = writer.keys(sortOf(options.kestoSortId));
  const RecordOrder order = orderOfRecords(records, {keys.first, keys.second});
  if (!order) return failMemory(form);
  KestoList list = {state.header, fileSelection.isLendingFile, options.linesPerPage, 1};
  writer.list(*state.output, list, block, order.positions());
  if (!netPositionAsked) return true;
  const KestoSortKeys byDays = writer.keys(KestoSort::days);
  if (!recordOrder(records, {byDays.first, byDays.second}, order.memory.get())) return failMemory(form);
  writer.position(*state.output, list, block, order.positions());
  return true;
}

static bool printTrades(FormHandle form, const Options& options) {
  constexpr ListWriter<KestoTradeRec> writer = {kestoTradeSortKeys, printKestoTradesList, printKestoTradesPosition};
  return loadRecords(form) && writeList(form, options, writer);
}

static bool printBrokerQuery(FormHandle form, const Options& options) {
  constexpr ListWriter<KestoBrokerRec> writer = {kestoBrokerSortKeys, printKestoBrokerList, printKestoBrokerPosition};
  return loadRecords(form) && writeList(form, options, writer);
}

static bool convertFile(FormHandle form, const Options&) {
  if (!loadRecords(form)) return false;
  if (state.content == KestoContent::trades) {
    convertKestoTrades(*state.output, static_cast<const KestoTradeRec*>(state.block), state.count);
  } else {
    convertKestoBrokerQuery(*state.output, static_cast<const KestoBrokerRec*>(state.block), state.count);
  }
  return true;
}

// ---- A run: the delimited files ---------------------------------------------------------------------------------------

static KestoTouchlinesSort touchlinesSortOf(int kestoSortId) {
  if (kestoSortId == IDC_KESTO_SORT_SCRIP_ID) return KestoTouchlinesSort::scripId;
  return kestoSortId == IDC_KESTO_SORT_DAYS ? KestoTouchlinesSort::days : KestoTouchlinesSort::scripCode;
}

static bool writeTouchlines(FormHandle form, const Options& options, KestoDayTouchlines& file) {
  switch (loadKestoDayTouchlines(*state.input, file)) {
    case KestoTouchlinesLoad::loaded:
      break;
    case KestoTouchlinesLoad::zeroScrips:
      return tell(form, zeroScripsReply);
    case KestoTouchlinesLoad::noMemory:
      return tell(form, noTouchlinesMemoryReply);
    case KestoTouchlinesLoad::notRewound:
      return tellInBox(form, touchlinesNotRewoundTitle, notRewound);
    case KestoTouchlinesLoad::notRead:
      return tell(form, notReadReply);
  }
  const RecordOrder order = orderKestoDayTouchlines(file, touchlinesSortOf(options.kestoSortId));
  if (!order) return tell(form, noTouchlinesMemoryReply);
  writeKestoDayTouchlines(*state.output, file, order.positions(), {options.linesPerPage, fileSelection.isLendingFile});
  return true;
}

static bool printTouchlines(FormHandle form, const Options& options) {
  KestoDayTouchlines file;
  const bool done = writeTouchlines(form, options, file);
  freeKestoDayTouchlines(file);
  return done;
}

static bool writeLimits(FormHandle form, const Options& options, KestoLimits& file) {
  LimitsLayout layout = LimitsLayout::none;
  switch (loadKestoLimits(*state.input, file, layout)) {
    case KestoLimitsLoad::traderwise:
      writeKestoLimitsTraderwise(*state.output, file, {options.linesPerPage, fileSelection.isLendingFile});
      return true;
    case KestoLimitsLoad::scripwise:
      writeKestoLimitsScripwise(*state.output, file, {options.linesPerPage, fileSelection.isLendingFile});
      return true;
    case KestoLimitsLoad::otherTitle:
      return true;  // nothing is printed, and that is complete
    case KestoLimitsLoad::noHeader:
      if (inputPieceFailed(*state.input)) return tell(form, noLimitsHeaderReply);
      // Of an empty file it is said as well, and then it is complete like the one before.
      showReply(form, IDC_KESTO_REPLY, noLimitsHeaderReply);
      return true;
    case KestoLimitsLoad::zeroRecords:
      return tell(form, zeroLimitsReply);
    case KestoLimitsLoad::noMemory:
      return tellInBox(form, memoryTitle, noLimitsMemory);
    case KestoLimitsLoad::notRewound:
      return tellInBox(form, layout == LimitsLayout::kestoTraderwise ? traderwiseNotRewoundTitle : scripwiseNotRewoundTitle,
                       notRewound);
    case KestoLimitsLoad::notRead:
      break;
  }
  return tell(form, notReadReply);
}

static bool printLimits(FormHandle form, const Options& options) {
  KestoLimits file;
  const bool done = writeLimits(form, options, file);
  freeKestoLimits(file);
  return done;
}

static bool writeBreakup(FormHandle form, const Options& options, const std::string& runDate, FiveDayBreakups& file) {
  switch (loadFiveDayBreakups(*state.input, file)) {
    case KestoBreakupLoad::loaded:
      break;
    case KestoBreakupLoad::zeroRecords:
      return tellInBox(form, breakupTitle, zeroBreakups);
    case KestoBreakupLoad::noMemory:
      return tellInBox(form, memoryTitle, noBreakupMemory);
    case KestoBreakupLoad::notRewound:
      return tellInBox(form, breakupTitle, notRewound);
    case KestoBreakupLoad::notRead:
      return tell(form, notReadReply);
  }
  const RecordOrder order = orderFiveDayBreakups(file);
  if (!order) return tellInBox(form, memoryTitle, noBreakupMemory);
  writeFiveDayBreakups(*state.output, file, order.positions(),
                       {options.linesPerPage, fileSelection.isLendingFile, runDate, options.brokerNo});
  return true;
}

static bool printBreakup(FormHandle form, const Options& options) {
  const std::string runDate = runDateText(clockNow());
  FiveDayBreakups file;
  const bool done = writeBreakup(form, options, runDate, file);
  freeFiveDayBreakups(file);
  return done;
}

// ---- A run: from the press to its end ---------------------------------------------------------------------------------

static bool printFile(FormHandle form, const Kind& kind, const Options& options) {
  bool done = kind.run.print(form, options);
  if (!closeAllStreams() && done) done = tell(form, writeFailedText);
  memoryFree(state.block);
  state.block = nullptr;
  return done;
}

// The last box. A text that a step has told stays on the Reply line meanwhile, so that it can be read.
static void showEnd(FormHandle form, const char* reply, const char* title, const char* text, BoxIcon icon) {
  if (!state.told) showReply(form, IDC_KESTO_REPLY, reply);
  boxShow(form, title, text, icon);
  showReply(form, IDC_KESTO_REPLY, "");
}

// True where no file is loaded, which is told.
static bool refuseWithoutFile(FormHandle form) {
  if (state.inputPath.empty()) state.kestoKindCode = -1;
  if (state.kestoKindCode != -1) return false;
  showReply(form, IDC_KESTO_REPLY, notLoadedReply);
  resetForm();
  applyRule(form, selectedKind(form));
  return true;
}

static void endRun(FormHandle form, const Kind& kind) {
  resetForm();
  applyRule(form, kind);
  formSetFocus(form, IDC_KESTO_LOAD);
}

// Where the options or the streams are refused, the Reply line keeps the reason and no box follows.
static void onPrint(FormHandle form) {
  formSetEnabled(form, IDC_KESTO_PRINT, false);
  if (refuseWithoutFile(form)) return;
  showReply(form, IDC_KESTO_REPLY, printingReply);
  state.told = false;
  const Kind& kind = selectedKind(form);  // the list may have been changed since the load
  state.kestoKindCode = kind.code;
  Options options = {};
  if (captureOptions(form, options) && openRun(form, kind, options)) {
    if (printFile(form, kind, options)) {
      showEnd(form, kind.run.completedReply, kind.run.completedTitle, kind.run.completed, BoxIcon::exclamation);
    } else {
      showEnd(form, printingCancelledReply, printingCancelledTitle, printingCancelled, BoxIcon::error);
    }
  }
  endRun(form, kind);
}

// Until it has converted, the file stays loaded and the form as it is: the user can mend the name and press again.
static void onConvert(FormHandle form) {
  showReply(form, IDC_KESTO_REPLY, convertingReply);
  if (refuseWithoutFile(form)) return;
  state.told = false;
  const Kind& kind = selectedKind(form);
  state.kestoKindCode = kind.code;
  Options options = {};
  options.outputName = formGetText(form, IDC_KESTO_OUTFILE, outFileCapture);
  if (options.outputName.empty()) return showReply(form, IDC_KESTO_REPLY, noOutputNameReply);
  if (!openRun(form, kind, options)) return closeStreams();
  if (!printFile(form, kind, options)) {
    return showEnd(form, conversionCancelledReply, kind.title, conversionCancelled, BoxIcon::error);
  }
  showEnd(form, kind.run.completedReply, kind.run.completedTitle, kind.run.completed, BoxIcon::exclamation);
  resetForm();
  applyRule(form, kind);
}

// ---- Events -----------------------------------------------------------------------------------------------------------

static void onPressed(FormHandle form, int control) {
  switch (control) {
    case IDC_KESTO_CONVERT:
      return onConvert(form);
    case IDC_KESTO_PRINTER:
      return showOutFile(form, false);
    case IDC_KESTO_FILE:
      setControlsVisible(form, outFileControls, true);
      return formSetFocus(form, IDC_KESTO_OUTFILE);
  }
}

static constexpr FormFrame frame = {
    .tool = toolKesto,
    .start = onStart,
    .load = {IDC_KESTO_LOAD, onLoad},
    .print = {IDC_KESTO_PRINT, onPrint},
    .cancel = {IDC_KESTO_CANCEL, onCancel},
    .pressed = onPressed,
    .picked = onKind,
};

void kestoFormEvent(const FormEvent& event) { reportFormEvent(frame, event); }

}  // namespace quillon
