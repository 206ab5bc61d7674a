// The Kesto Net Position form: Load reads a whole trade file of the lending product, since the form offers lists of the clients
// and scrips found in it; Print makes one of four summaries of it and gives the file back, so that the next one asks for
// another load. What fails while a file is loaded is told on the Reply line alone, save one step. A name that was refused at
// Print can be put right and Print pressed again: the file stays loaded.
#include "position/kesto_net_position_form.h"

#include <string>
#include <utility>

#include "desktop/boxes.h"
#include "desktop/memory.h"
#include "frame/file_selection.h"
#include "frame/report_form.h"
#include "frame/tools.h"
#include "position/kesto_net_position_report.h"
#include "resource.h"
#include "text/input.h"
#include "text/letters.h"
#include "text/output.h"

namespace quillon {

// ---- Texts ------------------------------------------------------------------------------------------------------------

static constexpr char plainTitle[] = "KESTO NET POSITION PRINTING";
static constexpr char loadedTitle[] = "KESTO NET POSITION PRINTING -          ";
static constexpr char titleBehindARun[] = "KESTO NETPOSITION PRINTING ";

static constexpr char inputNotOpened[] = "Error in Loading Trade File";
static constexpr char notRead[] = "File cannot be read";
static constexpr char wrongLetter[] = "Error in input file";
static constexpr char seekFailed[] = "Fseek Failed";
static constexpr char notCounted[] = "Error In Calculating No Of Records";
static constexpr char notCountedTitle[] = "PRINTING NET POSITION";
static constexpr char noRecords[] = "Trade file is Blank";
static constexpr char tradesFailed[] = "Trades Data : Memory Allocation Failure";

static constexpr char notLoaded[] = "File Not Loaded ";
static constexpr char inProgress[] = "Printing In Progress ...Please Wait..";
static constexpr LinesPerPageRule linesRule = {
    .control = IDC_KNETPOS_LINES,
    .initial = 50,
    .limit = 50,
    .fallback = 50,
    .message = "Lines per page cannot be '>50' or '<1'\nWill be taken as 50",
    .title = "QUILLON",
    .writeBack = IDC_KNETPOS_LINES,
    .reply = 0,
    .ownerless = true,
};
// That the input cannot be opened again is shown nowhere: its records are in memory, and the run ends as cancelled.
static constexpr StreamTexts streamTexts = {
    .title = "TRADES PRINTING",
    .reply = IDC_KNETPOS_REPLY,
    .inputKind = InputKind::binary,
    .noInput = {},
    .inputNotOpened = {},
    .noOutputName = {nullptr, "Outfile can't be Blank ,Please name it and Click Print !!"},
    .badOutputName = {.box = nullptr, .reply = "Invalid Characters in OutFile,Resubmit", .focus = IDC_KNETPOS_OUTFILE},
    .sameFile = {.box = nullptr, .reply = sameFileText, .focus = IDC_KNETPOS_OUTFILE},
    // The name is upper case by the time it is compared, so that a printer that is off reads as a file.
    .printerTest = PrinterTest::never,
    .printerNotOpened = {},
    .outputNotOpened = {"Error In Opening Output File & reload file", nullptr},
};
static constexpr char blockTitle[] = "Error";
static constexpr char scripNetPosFailed[] = "ScripNetPos Data : Memory Allocation Failure";
static constexpr char printingCancelled[] = "Printing Cancelled !!";
static constexpr char clientComplete[] = "Client-Wise Printing Complete !!";
static constexpr char scripComplete[] = "Scrip-Wise Printing Complete !!";
static constexpr char clientScripComplete[] = "ClientScrip-Wise Printing Complete !!";
static constexpr char scripClientComplete[] = "ScripClient-Wise Printing Complete !!";
static constexpr char printingComplete[] = "PRINTING COMPLETE";

// ---- Controls ---------------------------------------------------------------------------------------------------------

static constexpr int views[] = {IDC_KNETPOS_CLIENT, IDC_KNETPOS_SCRIP, IDC_KNETPOS_CLIENT_SCRIP, IDC_KNETPOS_SCRIP_CLIENT};
static constexpr int clientListControls[] = {IDC_KNETPOS_CLIENT_LIST, IDC_KNETPOS_CLIENT_LIST_LABEL};
static constexpr int scripListControls[] = {IDC_KNETPOS_SCRIP_LIST, IDC_KNETPOS_SCRIP_LIST_LABEL};
static constexpr int destinations[] = {IDC_KNETPOS_PRINTER, IDC_KNETPOS_FILE};
static constexpr int outFileControls[] = {IDC_KNETPOS_OUTFILE, IDC_KNETPOS_OUTFILE_LABEL};

static constexpr std::size_t outFileCapture = 14;  // characters that Print takes from the edit

// ---- State ------------------------------------------------------------------------------------------------------------

namespace {

struct Options {
  PositionReport view;
  std::string client;  // chosen in its list; empty when the list is
  std::string scrip;
  std::string outputName;
  unsigned linesPerPage;
};

struct KestoNetPositionForm {
  bool loaded;
  std::string inputPath;
  KestoPositionFile file;  // its block is held from a load to the end of the next run, to Cancel or to the form's end
  PositionLists lists;     // what the two lists show
  Input* input;
  Output* output;
};

}  // namespace

static KestoNetPositionForm state;

// ---- The form between runs --------------------------------------------------------------------------------------------

static void fillLists(FormHandle form, PositionLists lists) {
  state.lists = std::move(lists);
  formListFill(form, IDC_KNETPOS_CLIENT_LIST, state.lists.clients);
  formListFill(form, IDC_KNETPOS_SCRIP_LIST, state.lists.scrips);
  formListSelect(form, IDC_KNETPOS_CLIENT_LIST, state.lists.clients.empty() ? -1 : 0);
  formListSelect(form, IDC_KNETPOS_SCRIP_LIST, state.lists.scrips.empty() ? -1 : 0);
}

// A list shows with the view that asks for it.
static void showListOf(FormHandle form, int view) {
  setControlsVisible(form, clientListControls, view == IDC_KNETPOS_CLIENT_SCRIP);
  setControlsVisible(form, scripListControls, view == IDC_KNETPOS_SCRIP_CLIENT);
}

static void freeTrades() {
  memoryFree(state.file.block);
  state.file = {};
}

static void resetState() {
  (void)closeAllStreams();  // no report is being written
  state.loaded = false;
  state.inputPath.clear();
}

// Back to the defaults. A block that is held stays held, and Load stays disabled where it is.
static void resetForm(FormHandle form) {
  formSetFocus(form, IDC_KNETPOS_LOAD);
  showListOf(form, IDC_KNETPOS_CLIENT);
  fillLists(form, {});
  checkRadio(form, views, IDC_KNETPOS_CLIENT);
  checkRadio(form, destinations, IDC_KNETPOS_PRINTER);
  setControlsVisible(form, outFileControls, false);
  formSetText(form, IDC_KNETPOS_OUTFILE, "");
  showInitialLines(form, linesRule);
  formSetTitle(form, plainTitle);
  formSetText(form, IDC_KNETPOS_REPLY, "");
  formSetEnabled(form, IDC_KNETPOS_PRINT, false);
}

static void offerLoad(FormHandle form) {
  formSetEnabled(form, IDC_KNETPOS_LOAD, true);
  formSetFocus(form, IDC_KNETPOS_LOAD);
}

// A failure of the load: the form as it was opened, with the reason on its Reply line. Cancel has to be pressed before another
// file can be loaded, save where Load is offered again.
static bool endLoad(FormHandle form, const char* text) {
  resetState();
  resetForm(form);
  showReply(form, IDC_KNETPOS_REPLY, text);
  return false;
}

static bool endLoadAndOfferAnother(FormHandle form, const char* text) {
  (void)endLoad(form, text);
  offerLoad(form);
  return false;
}

static bool readHeader(FormHandle form, Input& input) {
  if (!inputRead(input, &state.file.header, sizeof state.file.header)) return endLoadAndOfferAnother(form, notRead);
  if (!isKestoPositionFile(state.file.header)) return endLoadAndOfferAnother(form, wrongLetter);
  return inputSeekStart(input) || endLoadAndOfferAnother(form, seekFailed);
}

static bool countRecords(FormHandle form, Input& input) {
  if (!inputSeekEnd(input)) return endLoad(form, notCounted);
  const std::int64_t fileSize = inputTell(input);
  if (fileSize < 0) {
    reportOnReplyAndBox(form, IDC_KNETPOS_REPLY, notCountedTitle, notCounted, BoxIcon::error);
    return endLoad(form, notCounted);
  }
  if (!inputSeekStart(input)) return endLoad(form, notCounted);
  state.file.count = tradeCountOf(fileSize, TradeLayout::kesto);
  return state.file.count > 0 || endLoadAndOfferAnother(form, noRecords);
}

// A read that fails leaves the block held: Cancel gives it back.
static bool readRecords(FormHandle form, Input& input) {
  state.file.block = static_cast<KestoTradeRec*>(memoryTake((state.file.count + 1) * sizeof(KestoTradeRec)));
  if (!state.file.block) return endLoad(form, tradesFailed);
  return kestoPositionReadRecords(input, state.file) || endLoad(form, notRead);
}

static void onLoad(FormHandle form) {
  formSetText(form, IDC_KNETPOS_REPLY, "");
  formSetEnabled(form, IDC_KNETPOS_LOAD, false);
  loadFile(loadKestoNetPosition, LoadVariant::standard, form, state.inputPath);
  if (state.inputPath.empty()) return offerLoad(form);
  state.loaded = true;
  const std::string name = std::move(fileSelection.fileTitle);
  fileSelection.fileTitle.clear();

  Input* const input = inputOpen(state.inputPath, InputKind::binary);
  if (!input) {
    (void)endLoad(form, inputNotOpened);
    return;
  }
  if (!readHeader(form, *input) || !countRecords(form, *input) || !readRecords(form, *input)) return;
  inputClose(input);
  fillLists(form, kestoPositionListsOf(state.file, state.lists));
  formSetTitle(form, upperCased(loadedTitle + name));
  formSetEnabled(form, IDC_KNETPOS_PRINT, true);
  formSetFocus(form, IDC_KNETPOS_PRINT);
}

static void onCancel(FormHandle form) {
  resetForm(form);
  resetState();
  offerLoad(form);
  freeTrades();
}

// ---- A run ------------------------------------------------------------------------------------------------------------

static PositionReport chosenView(FormHandle form) {
  if (formIsChecked(form, IDC_KNETPOS_SCRIP)) return PositionReport::scripWise;
  if (formIsChecked(form, IDC_KNETPOS_CLIENT_SCRIP)) return PositionReport::clientScrip;
  if (formIsChecked(form, IDC_KNETPOS_SCRIP_CLIENT)) return PositionReport::scripClient;
  return PositionReport::clientWise;
}

static std::string selectedText(FormHandle form, int list) { return formListText(form, list, formListSelected(form, list)); }

static Options captureOptions(FormHandle form) {
  Options options = {};
  options.outputName = printerName;
  if (formIsChecked(form, IDC_KNETPOS_FILE)) options.outputName = formGetText(form, IDC_KNETPOS_OUTFILE, outFileCapture);
  options.view = chosenView(form);
  options.linesPerPage = captureLinesPerPage(form, linesRule);
  options.client = selectedText(form, IDC_KNETPOS_CLIENT_LIST);
  options.scrip = selectedText(form, IDC_KNETPOS_SCRIP_LIST);
  return options;
}

// The input is opened as in every run, though its records are in the block already.
static RunEnd openRun(FormHandle form, Options& options) {
  if (refuseEmptyName(form, streamTexts, options.outputName) || refuseBadName(form, streamTexts, options.outputName) ||
      refuseInputAsOutput(form, streamTexts, state.inputPath, options.outputName)) {
    return RunEnd::kept;
  }
  const bool open = openInputStream(form, streamTexts, state.inputPath, state.input) &&
                    openOutputStream(form, streamTexts, options.outputName, state.output);
  return open ? RunEnd::printed : RunEnd::refused;
}

static void writeReport(const Options& options, const KestoPositionTotals& totals) {
  const KestoPositionPages pages = {.report = options.view,
                                    .header = state.file.header,
                                    .selected = options.view == PositionReport::clientScrip ? options.client : options.scrip,
                                    .isLendingFile = fileSelection.isLendingFile,
                                    .linesPerPage = options.linesPerPage};
  writeKestoPosition(*state.output, pages, {totals.rows, totals.rowCount});
}

// Takes the view's blocks, writes the report, gives the blocks back. Where a block is not to be had nothing is written; only
// that of all scrips is told by its name.
static RunEnd printFile(FormHandle form, const Options& options) {
  const KestoPositionChoice choice = {
      .report = options.view, .client = options.client, .scrip = options.scrip, .clientCount = state.lists.clients.size()};
  KestoPositionTotals totals;
  const PositionBlock failed = kestoPositionTotal(state.file, choice, totals);
  if (failed == PositionBlock::none) writeReport(options, totals);
  kestoPositionFreeTotals(totals);
  if (failed == PositionBlock::scripNetPos) boxShow(form, blockTitle, scripNetPosFailed, BoxIcon::error);
  return failed == PositionBlock::none ? RunEnd::printed : RunEnd::refused;
}

static const char* completionOf(PositionReport view) {
  switch (view) {
    case PositionReport::clientWise:
      return clientComplete;
    case PositionReport::clientScrip:
      return clientScripComplete;
    case PositionReport::scripClient:
      return scripClientComplete;
    case PositionReport::scripWise:
      break;
  }
  return scripComplete;
}

// A run that could not begin. The form stays as it stands; where the name alone was at fault, so does the file.
static void endUnopened(FormHandle form, RunEnd end) {
  (void)closeAllStreams();  // nothing was written yet
  if (end == RunEnd::kept) return;
  showReply(form, IDC_KNETPOS_REPLY, printingCancelled);
  resetState();
  freeTrades();
  formSetEnabled(form, IDC_KNETPOS_PRINT, false);
  formSetEnabled(form, IDC_KNETPOS_LOAD, true);
}

// The streams are closed ahead of the last box, since a close can still lose the report; that stays on the Reply line. The
// title is another one than at the start, until the next reset.
static void endRun(FormHandle form, const Options& options, RunEnd end) {
  const bool written = closeAllStreams();
  freeTrades();
  if (end != RunEnd::printed) {
    showReply(form, IDC_KNETPOS_REPLY, printingCancelled);
  } else {
    if (written) showReply(form, IDC_KNETPOS_REPLY, completionOf(options.view));
    showEndOfRun(form, IDC_KNETPOS_REPLY, plainTitle, printingComplete, written);
    if (written) formSetText(form, IDC_KNETPOS_REPLY, "");
  }
  formSetTitle(form, titleBehindARun);
  formSetEnabled(form, IDC_KNETPOS_PRINT, false);
  formSetEnabled(form, IDC_KNETPOS_LOAD, true);
  setControlsVisible(form, outFileControls, false);
  showListOf(form, IDC_KNETPOS_CLIENT);
  fillLists(form, {});
  checkRadio(form, views, IDC_KNETPOS_CLIENT);
  checkRadio(form, destinations, IDC_KNETPOS_PRINTER);
  resetState();
  formSetFocus(form, IDC_KNETPOS_LOAD);
}

static void onPrint(FormHandle form) {
  if (!state.loaded) {
    showReply(form, IDC_KNETPOS_REPLY, notLoaded);
    return resetState();
  }
  showReply(form, IDC_KNETPOS_REPLY, inProgress);
  Options options = captureOptions(form);
  const RunEnd opened = openRun(form, options);
  if (opened != RunEnd::printed) return endUnopened(form, opened);
  endRun(form, options, printFile(form, options));
}

// ---- Events -----------------------------------------------------------------------------------------------------------

static void onPressed(FormHandle form, int control) {
  switch (control) {
    case IDC_KNETPOS_CLIENT:
    case IDC_KNETPOS_SCRIP:
    case IDC_KNETPOS_CLIENT_SCRIP:
    case IDC_KNETPOS_SCRIP_CLIENT:
      formSetText(form, IDC_KNETPOS_REPLY, "");
      return showListOf(form, control);
    case IDC_KNETPOS_PRINTER:
      setControlsVisible(form, outFileControls, false);
      return formSetText(form, IDC_KNETPOS_OUTFILE, "");
    case IDC_KNETPOS_FILE:
      setControlsVisible(form, outFileControls, true);
      return formSetFocus(form, IDC_KNETPOS_OUTFILE);
    default:
      return;
  }
}

static void onStart(FormHandle form) {
  state.loaded = false;
  state.inputPath.clear();
  resetForm(form);
}

static void onDestroyed(FormHandle) {
  freeTrades();
  state.lists = {};
}

static constexpr FormFrame frame = {
    .tool = toolKestoNetPosition,
    .start = onStart,
    .load = {IDC_KNETPOS_LOAD, onLoad},
    .print = {IDC_KNETPOS_PRINT, onPrint},
    .cancel = {IDC_KNETPOS_CANCEL, onCancel},
    .pressed = onPressed,  // the destinations as well: Printer empties the name, File moves the focus to it
    .destroyed = onDestroyed,
};

void kestoNetPositionFormEvent(const FormEvent& event) { reportFormEvent(frame, event); }

}  // namespace quillon
