// The Admin Log form: load a day's admin log, say which of its four sections are wanted and in which order, confirm what its
// header says, and get their reports one behind the other.
//
// The file is opened at Load and stays open until the form is put back to its beginnings. An output name that does not do, or
// no section at all, leaves the form as it stands with the file loaded; every other end of a run is a Cancel. The records are
// read ahead of these checks, so that a file with nothing in it is told first.
#include "logs/admin_log_form.h"

#include <array>
#include <string>

#include "desktop/boxes.h"
#include "desktop/memory.h"
#include "frame/file_selection.h"
#include "frame/report_form.h"
#include "frame/tools.h"
#include "logs/admin_log_file.h"
#include "logs/admin_log_report.h"
#include "resource.h"
#include "text/encoding.h"
#include "text/print.h"

namespace quillon {

// ---- Texts ------------------------------------------------------------------------------------------------------------

static constexpr char formTitle[] = "Admin Log Printing";
static constexpr char loadedTitle[] = "Printing Admin Log - ";

static constexpr char badInputNameText[] = "Invalid File Format.Please load the correct file";
static constexpr char badInputNameTitle[] = "Invalid File";
static constexpr char inputNotOpenedText[] = "File Cannot be opened";
static constexpr char inputNotOpenedTitle[] = "ERROR!";
static constexpr char noInputTitle[] = "ADMIN LOG PRINTING";

static constexpr char replyPrinting[] = "Admin Log Printing in progress. Please Wait ...";
static constexpr char readFailedText[] = "Error in Reading File";
static constexpr char noMemoryTitle[] = "Error";
static constexpr const char* noMemoryTexts[] = {
    "Trader Limits : Memory Allocation Failure",
    "Scripwise Limits : Memory Allocation Failure",
    "Groupwise Limits : Memory Allocation Failure",
    "General Activities : Memory Allocation Failure",
};
static constexpr char zeroRecordsText[] = "Zero Records present in the File !!";
static constexpr char zeroRecordsTitle[] = "Admin Log";

// A form that is fresh shows 25, though up to 50 are taken and 50 stand in for anything else.
static constexpr LinesPerPageRule linesRule = {
    .control = IDC_ADMLOG_LINES,
    .initial = 25,
    .limit = 50,
    .fallback = 50,
    .message = "Line Per Page cannot be less than 1 or greater than 50. Default value of 50 will be taken",
    .title = formTitle,
    .writeBack = IDC_ADMLOG_LINES,
    .reply = 0,
};
static constexpr char noOutputNameText[] = "Please give Out File Name.";
static constexpr char invalidOutputNameText[] = "Invalid characters in OutFile Name";
static constexpr StreamTexts streamTexts = {
    .title = formTitle,
    .reply = IDC_ADMLOG_REPLY,
    .inputKind = InputKind::binaryUpdate,
    .noInput = {noInputText, nullptr, noInputTitle},
    .inputNotOpened = {inputNotOpenedText, nullptr, inputNotOpenedTitle},
    .noOutputName = {noOutputNameText, nullptr},
    .badOutputName = {invalidOutputNameText, nullptr},
    .sameFile = {sameFileText, nullptr},
    .printerTest = PrinterTest::anyCase,
    .printerNotOpened = {checkPrinterText, nullptr},
    .outputNotOpened = {outputNotOpenedText, nullptr},
};
static constexpr char noOptionText[] = "Please specify required printing option";
static constexpr char noOptionTitle[] = "No Option Selected";
static constexpr char confirmTitle[] = "DO YOU WISH TO CONTINUE";
static constexpr char fileTypeText[] = "Admin Log File";
static constexpr char completeText[] = "Printing Complete";
static constexpr char completeTitle[] = "Success";

// ---- Controls ---------------------------------------------------------------------------------------------------------

// In the order of the sections.
static constexpr int sectionOptions[] = {IDC_ADMLOG_TRADERS, IDC_ADMLOG_SCRIPS, IDC_ADMLOG_GROUPS, IDC_ADMLOG_ACTIVITIES};
static constexpr int sortOptions[] = {IDC_ADMLOG_SORT_TIME, IDC_ADMLOG_SORT_TRADER};
static constexpr int destinations[] = {IDC_ADMLOG_FILE, IDC_ADMLOG_PRINTER};
static constexpr int outFileControls[] = {IDC_ADMLOG_OUTFILE, IDC_ADMLOG_OUTFILE_LABEL};

static constexpr std::size_t outFileCapture = 14;  // characters that Print takes from the edit

static_assert(std::size(sectionOptions) == adminSectionCount && std::size(noMemoryTexts) == adminSectionCount);

// ---- State ------------------------------------------------------------------------------------------------------------

namespace {

struct Options {
  std::array<bool, adminSectionCount> sections;
  AdminSort sort;
  bool toFile;
  unsigned recordsPerPage;
  std::string outputName;
};

// One section as it was read. One that was not asked for has no block.
struct Section {
  void* block;        // the records and a zero one behind them
  std::size_t held;   // records that the file holds of it
  std::size_t count;  // those that could be read
  RecordOrder order;
};

struct AdminLogForm {
  std::string inputPath;  // empty until a file is loaded
  std::string fileTitle;  // its name, for the question: another form may choose a file of its own in between
  Input* input;
  Output* output;
  AdminHeader header;
  std::array<Section, adminSectionCount> sections;
  int pageNumber;
};

}  // namespace

static AdminLogForm state;

static std::size_t indexOf(AdminSection section) { return static_cast<std::size_t>(section); }

// ---- The form between runs --------------------------------------------------------------------------------------------

// The output's name is hidden and keeps its text.
static void resetForm(FormHandle form) {
  state.inputPath.clear();
  for (const int option : sectionOptions) formSetChecked(form, option, true);
  checkRadio(form, sortOptions, IDC_ADMLOG_SORT_TIME);
  checkRadio(form, destinations, IDC_ADMLOG_PRINTER);
  setControlsVisible(form, outFileControls, false);
  showInitialLines(form, linesRule);
  formSetText(form, IDC_ADMLOG_REPLY, "");
  formSetTitle(form, formTitle);
}

static bool openInput(FormHandle form) {
  // Case counts, here and nowhere else in the name.
  if (state.fileTitle.find(".adl") == std::string::npos) {
    boxShow(form, badInputNameTitle, badInputNameText, BoxIcon::exclamation);
    return false;
  }
  return openInputStream(form, streamTexts, state.inputPath, state.input);
}

static void onLoad(FormHandle form) {
  formSetText(form, IDC_ADMLOG_REPLY, "");
  loadFile(loadAdminLog, LoadVariant::standard, form, state.inputPath);
  if (state.inputPath.empty()) return;
  state.fileTitle = fileSelection.fileTitle;
  if (!openInput(form)) return resetForm(form);
  // The lending market knows no groups. Any other file brings them back, whatever was chosen before the load.
  formSetChecked(form, IDC_ADMLOG_GROUPS, !fileSelection.isLendingFile);
  formSetEnabled(form, IDC_ADMLOG_GROUPS, !fileSelection.isLendingFile);
  formSetTitle(form, loadedTitle + state.fileTitle);
  formSetEnabled(form, IDC_ADMLOG_LOAD, false);
  formSetFocus(form, IDC_ADMLOG_PRINT);
}

static void onCancel(FormHandle form) {
  (void)closeAllStreams();  // no report of this form is on its way any more
  formSetEnabled(form, IDC_ADMLOG_GROUPS, true);
  resetForm(form);
  formSetText(form, IDC_ADMLOG_OUTFILE, "");
  formSetEnabled(form, IDC_ADMLOG_LOAD, true);
  state.header = {};
  state.pageNumber = 0;
}

// ---- A run ------------------------------------------------------------------------------------------------------------

static Options captureOptions(FormHandle form) {
  Options options = {};
  for (const AdminSection section : adminSections) {
    options.sections[indexOf(section)] = formIsChecked(form, sectionOptions[indexOf(section)]);
  }
  options.sort = formIsChecked(form, IDC_ADMLOG_SORT_TIME) ? AdminSort::time : AdminSort::trader;
  options.toFile = formIsChecked(form, IDC_ADMLOG_FILE);
  return options;
}

static bool refuse(FormHandle form, const char* title, const char* text) {
  boxShow(form, title, text, BoxIcon::error);
  return false;
}

static void tellReadFailed(FormHandle form) {
  reportOnReplyAndBox(form, IDC_ADMLOG_REPLY, formTitle, readFailedText, BoxIcon::error);
}

// Reads the header and compares its counts with the file's size. The end of another form's run may have closed the file.
static bool readHeader(FormHandle form) {
  if (!state.input && !openInputStream(form, streamTexts, state.inputPath, state.input)) return false;
  std::int64_t fileSize = 0;
  if (!measureAdminLog(*state.input, fileSize) || !inputRead(*state.input, &state.header, sizeof state.header)) {
    tellReadFailed(form);
    return false;
  }
  for (const AdminSection section : adminSections) {
    state.sections[indexOf(section)] = {nullptr, adminRecordsHeld(state.header, section, fileSize), 0, {}};
  }
  return true;
}

// A block is as large as what the file holds, whatever the header says. There is none for a count below zero.
static bool takeBlocks(FormHandle form, const Options& options) {
  for (const AdminSection section : adminSections) {
    if (!options.sections[indexOf(section)]) continue;
    Section& taken = state.sections[indexOf(section)];
    if (adminCount(state.header, section) >= 0) {
      taken.block = memoryTake((taken.held + 1) * adminRecordSize(section));
    }
    if (!taken.block) return refuse(form, noMemoryTitle, noMemoryTexts[indexOf(section)]);
  }
  return true;
}

// A file that promises more than it holds is told to be so once, and what it holds goes on to the question. The sections that
// were not asked for are counted too before a file is said to be empty.
static bool readRecords(FormHandle form, const Options& options) {
  bool isWhole = true;
  for (const AdminSection section : adminSections) {
    if (!options.sections[indexOf(section)]) continue;
    Section& read = state.sections[indexOf(section)];
    read.count = readAdminSection(*state.input, state.header, section, read.block, read.held);
    if (static_cast<std::int64_t>(read.count) < adminCount(state.header, section)) isWhole = false;
  }
  if (adminTotal(state.header) == 0) {
    reportOnReplyAndBox(form, IDC_ADMLOG_REPLY, zeroRecordsTitle, zeroRecordsText, BoxIcon::error);
    return false;
  }
  if (!isWhole) tellReadFailed(form);
  return true;
}

static bool sortRecords(FormHandle form, const Options& options) {
  for (const AdminSection section : adminSections) {
    if (!options.sections[indexOf(section)]) continue;
    Section& sorted = state.sections[indexOf(section)];
    sorted.order = adminOrder(section, sorted.block, sorted.count, options.sort);
    if (!sorted.order) return refuse(form, noMemoryTitle, noMemoryTexts[indexOf(section)]);
  }
  return true;
}

static bool openOutput(FormHandle form, Options& options) {
  options.recordsPerPage = captureLinesPerPage(form, linesRule);
  options.outputName = options.toFile ? formGetText(form, IDC_ADMLOG_OUTFILE, outFileCapture) : printerName;
  return requireOutputName(form, streamTexts, options.outputName) &&
         !refuseInputAsOutput(form, streamTexts, state.inputPath, options.outputName) &&
         openOutputStream(form, streamTexts, options.outputName, state.output);
}

// What is refused here can be put right on the form, which keeps its file. Where no section is chosen the Reply line keeps its
// words as well.
static RunEnd openRun(FormHandle form, Options& options) {
  if (!openOutput(form, options)) {
    formSetText(form, IDC_ADMLOG_REPLY, "");
    formSetText(form, IDC_ADMLOG_OUTFILE, "");
    if (options.toFile) formSetFocus(form, IDC_ADMLOG_OUTFILE);  // beside the printer it is hidden and takes none
    return RunEnd::kept;
  }
  for (const bool chosen : options.sections) {
    if (chosen) return RunEnd::printed;
  }
  boxShow(form, noOptionTitle, noOptionText, BoxIcon::exclamation);
  (void)outputClose(state.output);  // nothing was written
  return RunEnd::kept;
}

static bool confirm(FormHandle form) {
  const AdminHeader& header = state.header;
  std::size_t count = 0;
  for (const Section& section : state.sections) count += section.count;
  // clang-format off
  const std::string text = formatText<"File Name : %11s\n\nFile Type : %s\n\nMemberId : %ld\n\nDate : %02d%02d/%02d/%02d\n\nTime : %02d : %02d : %02d\n\nNo Of Records : %ld\n ">(
      bytesFromUtf8(state.fileTitle), fileTypeText, header.memberId, header.century, header.yearOfCentury, header.month, header.day,
      header.hour, header.minute, header.second, static_cast<std::int32_t>(count));
  // clang-format on
  return boxAsk(form, confirmTitle, text, BoxIcon::question, BoxChoice::yes) == BoxChoice::yes;
}

static void writeReport(const Options& options) {
  AdminPage page = {state.header, fileSelection.isLendingFile, options.recordsPerPage, state.pageNumber};
  for (const AdminSection section : adminSections) {
    const Section& printed = state.sections[indexOf(section)];
    if (options.sections[indexOf(section)]) {
      printAdminSection(*state.output, section, printed.block, printed.order.positions(), page);
    }
  }
  state.pageNumber = page.number;
}

static RunEnd printFile(FormHandle form, Options& options) {
  const bool read = readHeader(form) && takeBlocks(form, options) && readRecords(form, options) && sortRecords(form, options);
  if (!read) return RunEnd::refused;
  const RunEnd opened = openRun(form, options);
  if (opened != RunEnd::printed) return opened;
  if (!confirm(form)) return RunEnd::refused;
  writeReport(options);
  return RunEnd::printed;
}

static void endRun(FormHandle form, RunEnd end) {
  for (Section& section : state.sections) {
    memoryFree(section.block);
    section = {};
  }
  if (end == RunEnd::kept) return;
  if (end == RunEnd::printed) {
    // The streams are closed ahead of the last box, since a close can still lose the report.
    const bool written = closeAllStreams();
    formSetText(form, IDC_ADMLOG_REPLY, "");
    showEndOfRun(form, IDC_ADMLOG_REPLY, written ? completeTitle : formTitle, completeText, written);
  }
  onCancel(form);
}

static void onPrint(FormHandle form) {
  Options options = captureOptions(form);
  if (!requireInputPath(form, streamTexts, state.inputPath)) return formSetEnabled(form, IDC_ADMLOG_LOAD, true);
  showReply(form, IDC_ADMLOG_REPLY, replyPrinting);
  const RunEnd end = printFile(form, options);
  endRun(form, end);
}

// ---- Events -----------------------------------------------------------------------------------------------------------

// A file that was loaded and never printed is given back.
static void onDestroyed(FormHandle) {
  if (state.input) inputClose(state.input);
  state.inputPath.clear();
}

static constexpr FormFrame frame = {
    .tool = toolAdminLog,
    .start = resetForm,
    .load = {IDC_ADMLOG_LOAD, onLoad},
    .print = {IDC_ADMLOG_PRINT, onPrint},
    .cancel = {IDC_ADMLOG_CANCEL, onCancel},
    .printer = IDC_ADMLOG_PRINTER,
    .file = IDC_ADMLOG_FILE,
    .outFileControls = outFileControls,
    .destroyed = onDestroyed,
};

void adminLogFormEvent(const FormEvent& event) { reportFormEvent(frame, event); }

}  // namespace quillon
