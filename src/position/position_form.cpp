// One story for both tools: Load reads the whole file, since the form offers lists of the clients and scrips found in it;
// Print makes one of four summaries of it and gives the file back. What differs between the tools stands in position_tool.cpp.
//
// Each tool has its own state. They share nothing but the flags of the last file selection, whichever form made it.
#include "position/position_form.h"

#include <array>
#include <string>
#include <utility>
#include <vector>

#include "desktop/boxes.h"
#include "desktop/memory.h"
#include "frame/file_selection.h"
#include "frame/report_form.h"
#include "frame/tools.h"
#include "position/position_report.h"
#include "position/position_tool.h"
#include "text/input.h"
#include "text/output.h"

namespace quillon {

// ---- Texts ------------------------------------------------------------------------------------------------------------

static constexpr char title[] = "PRINTING NET POSITION";
static constexpr char blockTitle[] = "Error";

static constexpr char selectionCancelled[] = "Error in opening Outfile";  // on the Reply line alone; the wording is settled
static constexpr char inputNotOpened[] = "Error in Loading Trade File";
static constexpr char readFailed[] = "fread Failed";
static constexpr char wrongLetter[] = "Error in input file ";
static constexpr char notTradeFile[] = "The Input file is not a valid trade file";  // a known letter, but no trades behind it
static constexpr char notCounted[] = "Error In Calculating No Of Records";
static constexpr char seekFailed[] = "Fseek Failed ";
static constexpr char noRecords[] = "Trade file is Blank";
static constexpr char tradesFailed[] = "Trades Data : Memory Allocation Failure";

static constexpr char linesTitle[] = "NET POSITION PRINTING";
static constexpr char linesCorrected[] = "Lines per page cannot be '>50' or '<1'. Default value of 50 will be taken.";
static constexpr char noOutputName[] = "Please give OutFile Name.";
static constexpr char clientNetPosFailed[] = "ClientNetPos Data : Memory Allocation Failure";
static constexpr char scripNetPosFailed[] = "ScripNetPos Data : Memory Allocation Failure";
static constexpr char scripByClientFailed[] = "ScripByClient Data : Memory Allocation Failure";
static constexpr char csNetPosFailed[] = "CSNetPos Data : Memory Allocation Failure";
static constexpr char printingComplete[] = "PRINTING COMPLETE";

static StreamTexts streamTexts(const PositionTool& tool) {
  return {
      .title = title,
      .reply = tool.controls.reply,
      .inputKind = InputKind::binary,
      .noInput = {noInputText, noInputText},
      .inputNotOpened = {inputNotOpened, inputNotOpened},
      .noOutputName = {noOutputName, noOutputName},
      .badOutputName = {badOutputNameText, badOutputNameText},
      .sameFile = {sameFileText, sameFileText},
      // The name is upper case by the time it is compared, so that a printer that is off reads as a file.
      .printerTest = PrinterTest::never,
      .printerNotOpened = {checkPrinterText, checkPrinterText},
      .outputNotOpened = {outputNotOpenedText, outputNotOpenedText},
  };
}

static LinesPerPageRule linesRule(const PositionTool& tool) {
  return {
      .control = tool.controls.lines,
      .initial = 50,
      .limit = 50,
      .fallback = 50,
      .message = linesCorrected,
      .title = linesTitle,
      .writeBack = tool.controls.lines,
      .reply = 0,
  };
}

// ---- Controls ---------------------------------------------------------------------------------------------------------

static constexpr std::size_t outFileCapture = 14;  // characters that Print takes from the edit

// ---- State ------------------------------------------------------------------------------------------------------------

namespace {

struct Options {
  PositionReport report;
  std::string client;  // chosen in its list; empty when the list is
  std::string scrip;
  std::string outputName;
  unsigned linesPerPage;
};

struct PositionForm {
  const PositionTool& tool;
  FormHandle form = nullptr;
  std::string inputPath = {};  // empty until a file is loaded
  PositionFile file = {};      // its block is held from a load to the end of the next run, to Cancel or to the form's end
  PositionLists lists = {};    // what the two lists show
  Input* input = nullptr;
  Output* output = nullptr;
};

}  // namespace

static PositionForm netPosition = {.tool = netPositionTool};
static PositionForm slbPosition = {.tool = slbPositionTool};

// ---- The form between runs --------------------------------------------------------------------------------------------

static int controlOf(const PositionTool& tool, PositionReport report) {
  switch (report) {
    case PositionReport::clientWise:
      return tool.controls.clientWise;
    case PositionReport::clientScrip:
      return tool.controls.clientScrip;
    case PositionReport::scripClient:
      return tool.controls.scripClient;
    case PositionReport::scripWise:
      break;
  }
  return tool.controls.scripWise;
}

static PositionReport chosenReport(const PositionForm& state) {
  const PositionControls& at = state.tool.controls;
  if (formIsChecked(state.form, at.scripWise)) return PositionReport::scripWise;
  if (formIsChecked(state.form, at.clientScrip)) return PositionReport::clientScrip;
  if (formIsChecked(state.form, at.scripClient)) return PositionReport::scripClient;
  return PositionReport::clientWise;
}

static void showList(FormHandle form, int list, int label, bool shown) {
  formSetVisible(form, label, shown);
  formSetVisible(form, list, shown);
  formSetEnabled(form, list, shown);
}

// A list shows with the report that asks for it.
static void showListOf(const PositionForm& state, PositionReport report) {
  const PositionControls& at = state.tool.controls;
  showList(state.form, at.clientList, at.clientListLabel, report == PositionReport::clientScrip);
  showList(state.form, at.scripList, at.scripListLabel, report == PositionReport::scripClient);
}

static void hideLists(const PositionForm& state) { showListOf(state, PositionReport::clientWise); }

// Everything that a run may not be disturbed by; Cancel is not among it.
static void setRunControls(const PositionForm& state, bool enabled) {
  const PositionControls& at = state.tool.controls;
  setControlsEnabled(state.form,
                     std::to_array({at.load, at.clientWise, at.scripWise, at.clientScrip, at.scripClient, at.clientList,
                                    at.scripList, at.printer, at.file, at.outFileControls[0], at.print}),
                     enabled);
  formSetCloseEnabled(state.form, enabled);
}

static void disableControls(const PositionForm& state) { setRunControls(state, false); }

static void enableControls(const PositionForm& state) { setRunControls(state, true); }

static void fillLists(PositionForm& state, PositionLists lists) {
  const PositionControls& at = state.tool.controls;
  state.lists = std::move(lists);
  formListFill(state.form, at.clientList, state.lists.clients);
  formListFill(state.form, at.scripList, state.lists.scrips);
  formListSelect(state.form, at.clientList, state.lists.clients.empty() ? -1 : 0);
  formListSelect(state.form, at.scripList, state.lists.scrips.empty() ? -1 : 0);
}

// Back to the defaults. A block that is held stays held.
static void resetForm(PositionForm& state) {
  const PositionControls& at = state.tool.controls;
  state.inputPath.clear();
  formSetText(state.form, at.outFileControls[0], "");
  setControlsVisible(state.form, at.outFileControls, false);
  checkRadio(state.form, std::to_array({at.printer, at.file}), at.printer);
  checkRadio(state.form, std::to_array({at.clientWise, at.scripWise, at.clientScrip, at.scripClient}), at.clientWise);
  fillLists(state, {});
  hideLists(state);
  showInitialLines(state.form, linesRule(state.tool));
  formSetText(state.form, at.reply, "");
  formSetFocus(state.form, at.load);
  formSetTitle(state.form, state.tool.plainTitle);
}

static void freeTrades(PositionForm& state) {
  memoryFree(state.file.block);
  state.file = {};
}

// A failure of the load: told, streams closed, the form as it was opened.
static bool endLoad(PositionForm& state, const char* boxTitle, const char* text) {
  reportOnReplyAndBox(state.form, state.tool.controls.reply, boxTitle, text, BoxIcon::error);
  (void)closeAllStreams();  // nothing of this form's is being written
  resetForm(state);
  return false;
}

// The header, the number of records, their block, the records. False when a step failed; that has been told. A read that
// fails among the records leaves the block held: Cancel gives it back, and so does whatever comes next.
static bool readFile(PositionForm& state, Input& input) {
  PositionFile& file = state.file;
  if (!inputRead(input, &file.header, sizeof file.header)) return endLoad(state, title, readFailed);
  if (!isTradeFileLetter(file.header.fileKind)) return endLoad(state, title, wrongLetter);
  if (!isTradeFile(file.header)) return endLoad(state, title, notTradeFile);
  positionSetLayout(file, state.tool.always144);

  if (!inputSeekEnd(input)) return endLoad(state, title, notCounted);
  const std::int64_t fileSize = inputTell(input);
  if (fileSize < 0) return endLoad(state, title, notCounted);
  if (!inputSeekStart(input)) return endLoad(state, title, seekFailed);
  file.count = tradeCountOf(fileSize, positionLayoutInFile(file));
  if (file.count == 0) return endLoad(state, title, noRecords);

  file.block = memoryTake(positionBlockSize(file));
  if (!file.block) return endLoad(state, blockTitle, tradesFailed);
  if (!positionReadRecords(input, file, fileSelection.isLendingFile)) return endLoad(state, title, readFailed);
  return true;
}

static void onLoad(PositionForm& state) {
  const PositionControls& at = state.tool.controls;
  formSetText(state.form, at.reply, "");
  loadFile(state.tool.loadRequest, LoadVariant::standard, state.form, state.inputPath);
  if (state.inputPath.empty()) {
    showReply(state.form, at.reply, selectionCancelled);
    return;
  }
  const std::string name = std::exchange(fileSelection.fileTitle, {});

  Input* const input = inputOpen(state.inputPath, InputKind::binary);
  if (!input) {
    // The form stands as before the press, with the reason on its Reply line.
    state.inputPath.clear();
    reportOnReplyAndBox(state.form, at.reply, title, inputNotOpened, BoxIcon::error);
    return;
  }
  freeTrades(state);  // of a load before, whose read failed
  if (!readFile(state, *input)) return;
  inputClose(input);
  fillLists(state, positionListsOf(state.file));

  enableControls(state);
  formSetEnabled(state.form, at.load, false);
  const PositionReport report = chosenReport(state);
  showListOf(state, report);
  const char* const prefix = fileSelection.isLendingFile ? state.tool.loadedTitleLending : state.tool.loadedTitle;
  formSetTitle(state.form, prefix + name);
  // To the report that is chosen: the desktop would check another one that is given the focus.
  formSetFocus(state.form, controlOf(state.tool, report));
}

static void onCancel(PositionForm& state) {
  formSetText(state.form, state.tool.controls.reply, "");
  (void)closeAllStreams();  // nothing is being written between runs
  freeTrades(state);
  enableControls(state);
  hideLists(state);
  resetForm(state);
}

// ---- A run ------------------------------------------------------------------------------------------------------------

static std::string selectedText(FormHandle form, int list, const std::vector<std::string>& items) {
  const int selected = formListSelected(form, list);
  return selected >= 0 && static_cast<std::size_t>(selected) < items.size() ? items[static_cast<std::size_t>(selected)] : "";
}

static Options captureOptions(const PositionForm& state) {
  const PositionControls& at = state.tool.controls;
  Options options = {};
  options.outputName = printerName;
  if (formIsChecked(state.form, at.file)) options.outputName = formGetText(state.form, at.outFileControls[0], outFileCapture);
  options.report = chosenReport(state);
  options.client = selectedText(state.form, at.clientList, state.lists.clients);
  options.scrip = selectedText(state.form, at.scripList, state.lists.scrips);
  options.linesPerPage = captureLinesPerPage(state.form, linesRule(state.tool));
  return options;
}

// The input is opened as in every run, though its records are in the block already.
static RunEnd openRun(PositionForm& state, Options& options) {
  const bool open =
      openStreams(state.form, streamTexts(state.tool), state.inputPath, options.outputName, state.input, state.output);
  state.inputPath.clear();
  return open ? RunEnd::printed : RunEnd::refused;
}

static const char* failureOf(const PositionTool& tool, PositionBlock block) {
  switch (block) {
    case PositionBlock::none:
    case PositionBlock::trades:
      break;
    case PositionBlock::clientNetPos:
      return clientNetPosFailed;
    case PositionBlock::scripNetPos:
      return scripNetPosFailed;
    case PositionBlock::scripByClient:
      return scripByClientFailed;
    case PositionBlock::csNetPos:
      return csNetPosFailed;
    case PositionBlock::clientsInScrip:
      return tool.clientsInScripFailed;
    case PositionBlock::scNetPos:
      return tool.scNetPosFailed;
  }
  return tradesFailed;
}

static void writeReport(const PositionForm& state, const Options& options, const PositionTotals& totals) {
  const PositionPages pages = {.report = options.report,
                               .header = state.file.header,
                               .selected = options.report == PositionReport::clientScrip ? options.client : options.scrip,
                               .isLendingFile = fileSelection.isLendingFile,
                               .linesPerPage = options.linesPerPage,
                               .words = state.tool.words};
  writePositionReport(*state.output, pages, {totals.rows, totals.rowCount});
}

// Takes the report's blocks, writes the report, gives the blocks back. Where a block is not to be had nothing is written.
static RunEnd printFile(const PositionForm& state, const Options& options) {
  const PositionChoice choice = {.report = options.report,
                                 .client = options.client,
                                 .scrip = options.scrip,
                                 .clientCount = state.lists.clients.size(),
                                 .scripCount = state.lists.scrips.size()};
  PositionTotals totals;
  const PositionBlock failed = positionTotal(state.file, choice, totals);
  if (failed == PositionBlock::none) writeReport(state, options, totals);
  positionFreeTotals(totals);
  if (failed == PositionBlock::none) return RunEnd::printed;
  reportOnReplyAndBox(state.form, state.tool.controls.reply, blockTitle, failureOf(state.tool, failed), BoxIcon::error);
  return RunEnd::refused;
}

// Whatever the end of a run, the form is fresh behind it and the file has to be loaded again.
static void endRun(PositionForm& state, RunEnd end) {
  const int reply = state.tool.controls.reply;
  const bool written = closeAllStreams();
  freeTrades(state);
  if (end == RunEnd::printed) {
    showEndOfRun(state.form, reply, state.tool.completionTitle, printingComplete, written);
    if (written) showReply(state.form, reply, printingComplete);
  }
  enableControls(state);
  hideLists(state);
  resetForm(state);
}

static void onPrint(PositionForm& state) {
  formSetText(state.form, state.tool.controls.reply, "");
  disableControls(state);
  Options options = captureOptions(state);
  RunEnd end = openRun(state, options);
  if (end == RunEnd::printed) end = printFile(state, options);
  endRun(state, end);
}

// ---- Events -----------------------------------------------------------------------------------------------------------

static void onStart(PositionForm& state, FormHandle form) {
  state.form = form;
  resetForm(state);
}

static void onPressed(const PositionForm& state, int control) {
  const PositionControls& at = state.tool.controls;
  if (control == at.clientWise || control == at.scripWise || control == at.clientScrip || control == at.scripClient) {
    showListOf(state, chosenReport(state));
  }
}

static void onDestroyed(PositionForm& state) {
  freeTrades(state);
  state.lists = {};
  state.inputPath.clear();
  state.form = nullptr;
}

template <PositionForm& state>
static void formEvent(const FormEvent& event) {
  const PositionControls& at = state.tool.controls;
  const FormFrame frame = {
      .tool = state.tool.tool,
      .start = [](FormHandle form) { onStart(state, form); },
      .load = {at.load, [](FormHandle) { onLoad(state); }},
      .print = {at.print, [](FormHandle) { onPrint(state); }},
      .cancel = {at.cancel, [](FormHandle) { onCancel(state); }},
      .printer = at.printer,
      .file = at.file,
      .outFileControls = at.outFileControls,
      .pressed = [](FormHandle, int control) { onPressed(state, control); },
      .destroyed = [](FormHandle) { onDestroyed(state); },
  };
  reportFormEvent(frame, event);
}

void netPositionFormEvent(const FormEvent& event) { formEvent<netPosition>(event); }

void slbPositionFormEvent(const FormEvent& event) { formEvent<slbPosition>(event); }

}  // namespace quillon
