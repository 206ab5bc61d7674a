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

// ---- Texts, in the order in which a user meets them -------------------------------------------------------------------

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

static constexpr unsigned defaultLines = 50;
static constexpr std::size_t outNameLimit = 14;

// ---- State ------------------------------------------------------------------------------------------------------------

namespace {

struct PositionForm {
  const PositionTool& tool;
  FormHandle form = nullptr;
  std::string inputPath = {};  // empty until a file is loaded
  PositionFile file = {};      // its block is held from a load to the end of the next run, to Cancel or to the form's end
  PositionLists lists = {};    // what the two lists show
  // Captured at Print:
  PositionReport report = PositionReport::clientWise;
  std::string outName = {};
  std::string client = {};
  std::string scrip = {};
  unsigned linesPerPage = defaultLines;
};

}  // namespace

static PositionForm netPosition = {.tool = netPositionTool};
static PositionForm slbPosition = {.tool = slbPositionTool};

// ---- What the form shows ----------------------------------------------------------------------------------------------

static void showOutFile(const PositionForm& state, bool visible) {
  const PositionControls& at = state.tool.controls;
  setControlsVisible(state.form, std::to_array({at.outFile, at.outFileLabel}), visible);
}

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
static void setFormEnabled(const PositionForm& state, bool enabled) {
  const PositionControls& at = state.tool.controls;
  setControlsEnabled(state.form,
                     std::to_array({at.load, at.clientWise, at.scripWise, at.clientScrip, at.scripClient, at.clientList,
                                    at.scripList, at.printer, at.file, at.outFile, at.print}),
                     enabled);
  formSetCloseEnabled(state.form, enabled);
}

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
  state.outName.clear();
  formSetText(state.form, at.outFile, "");
  showOutFile(state, false);
  checkRadio(state.form, std::to_array({at.printer, at.file}), at.printer);
  checkRadio(state.form, std::to_array({at.clientWise, at.scripWise, at.clientScrip, at.scripClient}), at.clientWise);
  fillLists(state, {});
  hideLists(state);
  formSetText(state.form, at.lines, std::to_string(defaultLines));
  formSetText(state.form, at.reply, "");
  formSetFocus(state.form, at.load);
  formSetTitle(state.form, state.tool.plainTitle);
}

static void freeTrades(PositionForm& state) {
  memoryFree(state.file.block);
  state.file = {};
}

// ---- Load -------------------------------------------------------------------------------------------------------------

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

static void load(PositionForm& state) {
  const PositionControls& at = state.tool.controls;
  formSetText(state.form, at.reply, "");
  loadFile(state.tool.loadRequest, LoadVariant::standard, state.form, state.inputPath);
  if (state.inputPath.empty()) {
    showReply(state.form, at.reply, selectionCancelled);
    return;
  }
  const std::string name = std::move(fileSelection.fileTitle);
  fileSelection.fileTitle.clear();

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

  setFormEnabled(state, true);
  formSetEnabled(state.form, at.load, false);
  const PositionReport report = chosenReport(state);
  showListOf(state, report);
  const char* const prefix = fileSelection.isLendingFile ? state.tool.loadedTitleLending : state.tool.loadedTitle;
  formSetTitle(state.form, prefix + name);
  // To the report that is chosen: the desktop would check another one that is given the focus.
  formSetFocus(state.form, controlOf(state.tool, report));
}

// ---- Print ------------------------------------------------------------------------------------------------------------

static std::string selectedText(FormHandle form, int list, const std::vector<std::string>& items) {
  const int selected = formListSelected(form, list);
  return selected >= 0 && static_cast<std::size_t>(selected) < items.size() ? items[static_cast<std::size_t>(selected)] : "";
}

static void captureOptions(PositionForm& state) {
  const PositionControls& at = state.tool.controls;
  const bool toFile = formIsChecked(state.form, at.file);
  state.outName = toFile ? formGetText(state.form, at.outFile, outNameLimit) : printerName;
  state.report = chosenReport(state);
  state.client = selectedText(state.form, at.clientList, state.lists.clients);
  state.scrip = selectedText(state.form, at.scripList, state.lists.scrips);
  state.linesPerPage = captureLinesPerPage(state.form, {.control = at.lines,
                                                        .limit = 50,
                                                        .fallback = defaultLines,
                                                        .message = linesCorrected,
                                                        .title = linesTitle,
                                                        .writeBack = at.lines,
                                                        .reply = 0});
}

static bool openReportStreams(PositionForm& state, Output*& output) {
  const StreamTexts texts = {
      .title = title,
      .reply = state.tool.controls.reply,
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
  Input* input = nullptr;  // opened as every run does, though the records are in the block already
  const bool opened = openStreams(state.form, texts, state.inputPath, state.outName, input, output);
  state.inputPath.clear();
  return opened;
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

// Takes the report's blocks, writes the report, gives the blocks back. False when a block could not be taken; that has been
// told and nothing was written.
static bool runReport(PositionForm& state, Output& output) {
  const PositionChoice choice = {.report = state.report,
                                 .client = state.client,
                                 .scrip = state.scrip,
                                 .clientCount = state.lists.clients.size(),
                                 .scripCount = state.lists.scrips.size()};
  PositionTotals totals;
  const PositionBlock failed = positionTotal(state.file, choice, totals);
  if (failed == PositionBlock::none) {
    const PositionPages pages = {.report = state.report,
                                 .header = state.file.header,
                                 .selected = state.report == PositionReport::clientScrip ? state.client : state.scrip,
                                 .isLendingFile = fileSelection.isLendingFile,
                                 .linesPerPage = state.linesPerPage,
                                 .words = state.tool.words};
    writePositionReport(output, pages, {totals.rows, totals.rowCount});
  }
  positionFreeTotals(totals);
  if (failed == PositionBlock::none) return true;
  reportOnReplyAndBox(state.form, state.tool.controls.reply, blockTitle, failureOf(state.tool, failed), BoxIcon::error);
  return false;
}

// Whatever the end of a run, the form is fresh behind it and the file has to be loaded again.
static void endRun(PositionForm& state) {
  setFormEnabled(state, true);
  hideLists(state);
  resetForm(state);
}

static void print(PositionForm& state) {
  const int reply = state.tool.controls.reply;
  formSetText(state.form, reply, "");
  setFormEnabled(state, false);
  captureOptions(state);

  Output* output = nullptr;
  const bool done = openReportStreams(state, output) && runReport(state, *output);
  const bool written = closeAllStreams();
  freeTrades(state);
  if (done) {
    showEndOfRun(state.form, reply, state.tool.completionTitle, printingComplete, written);
    if (written) showReply(state.form, reply, printingComplete);
  }
  endRun(state);
}

static void cancel(PositionForm& state) {
  formSetText(state.form, state.tool.controls.reply, "");
  (void)closeAllStreams();  // nothing is being written between runs
  freeTrades(state);
  endRun(state);
}

// ---- Events -----------------------------------------------------------------------------------------------------------

static void pressed(PositionForm& state, int control) {
  const PositionControls& at = state.tool.controls;
  if (control == at.load) return load(state);
  if (control == at.print) return print(state);
  if (control == at.cancel) return cancel(state);
  if (control == at.file) return showOutFile(state, true);
  if (control == at.printer) return showOutFile(state, false);
  if (control == at.clientWise || control == at.scripWise || control == at.clientScrip || control == at.scripClient) {
    showListOf(state, chosenReport(state));
  }
}

static void formEvent(PositionForm& state, const FormEvent& event) {
  switch (event.kind) {
    case FormEventKind::start:
      state.form = event.form;
      resetForm(state);
      return;
    case FormEventKind::press:
      return pressed(state, event.control);
    case FormEventKind::activate:
      return formRaise(event.form);
    case FormEventKind::close:
      return toolCommand(state.tool.tool);
    case FormEventKind::destroy:
      freeTrades(state);
      state.lists = {};
      state.inputPath.clear();
      state.form = nullptr;
      return toolFormGone(state.tool.tool);
    case FormEventKind::edit:
    case FormEventKind::pick:
      return;
  }
}

void netPositionFormEvent(const FormEvent& event) { formEvent(netPosition, event); }

void slbPositionFormEvent(const FormEvent& event) { formEvent(slbPosition, event); }

}  // namespace quillon
