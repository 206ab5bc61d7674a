// The Convert form (CONVERT). The user loads any file of the workstation that can be converted, takes or changes the name that
// is proposed for its text, and gets one line a record, in the file's own order. An admin trade file asks for one of two
// formats, an order log for one of its three logs. The file is opened to propose the name, and looked at when Convert is
// pressed; the form tells what it is about to convert and converts it without a question. Whatever comes out of that, the file
// has to be loaded anew, save where it could not be opened.
#include "convert/convert_form.h"

#include <cstdint>
#include <string>

#include "convert/convert_file.h"
#include "convert/convert_lines.h"
#include "convert/converted_name.h"
#include "desktop/app.h"
#include "desktop/boxes.h"
#include "frame/date_rule.h"
#include "frame/file_selection.h"
#include "frame/report_form.h"
#include "frame/tools.h"
#include "logs/order_log_file.h"
#include "resource.h"
#include "text/encoding.h"
#include "text/print.h"

namespace quillon {

// ---- Texts ------------------------------------------------------------------------------------------------------------

static constexpr char formTitle[] = "CONVERT";  // of its boxes as well
static constexpr char loadedTitle[] = "CONVERT - ";
static constexpr char blankReply[] = " ";

static constexpr StreamTexts streamTexts = {
    .title = formTitle,
    .reply = IDC_CONVERT_REPLY,
    .inputKind = InputKind::binary,
    .noInput = {noInputText, noInputText},
    .inputNotOpened = {"Error In Opening Binary File.....", "Error In Opening Binary File"},
    .noOutputName = {"Please give OutFile Name.", "Please give OutFile Name"},
    .badOutputName = {badOutputNameText, badOutputNameText},
    .sameFile = {sameFileText, sameFileText},
    .printerTest = PrinterTest::never,
    .printerNotOpened = {},
    .outputNotOpened = {"Error opening Output File", "Error opening Output File"},
};

static constexpr char notReadText[] = "Error in Reading File";
static constexpr char scripGroupQuestion[] = "Do you want to print with Scrip Group & Settlement number?";
static constexpr char tradesQuestionTitle[] = "Trades Printing";
static constexpr char brokerQuestionTitle[] = "Broker Query Printing";
static constexpr char noKindText[] = "Error in File !! No File Info";

static constexpr char tooOldTitle[] = "ERROR";
static constexpr char noTypeRectificationText[] =
    "Inst Rectification Log is New Feature (Missing in Older files)   ,\n Please load New Order Log file. ";
static constexpr char noClientRectificationText[] =
    "Client Rectification Log is New Feature (Missing in Older files)   ,\n Please load New Order Log file. ";

static constexpr char noEndText[] = "Error-1 In Calculating No Of Records";
static constexpr char noPositionText[] = "Error-2 In Calculating No Of Records";
static constexpr char noStartText[] = "Error-3 In Calculating No Of Records";
static constexpr char zeroRecordsText[] = "Zero Records !! Cannot Convert File";

static constexpr char informationTitle[] = "FILE INFORMATION";
static constexpr Message noFormat = {"Please Select the format", "Please Select the format", "QUILLON"};
static constexpr char completeText[] = "CONVERSION COMPLETE";

// ---- Controls ---------------------------------------------------------------------------------------------------------

static constexpr int adminFormats[] = {IDC_CONVERT_NORMAL, IDC_CONVERT_BR};
static constexpr int adminControls[] = {IDC_CONVERT_FORMAT_GROUP, IDC_CONVERT_NORMAL, IDC_CONVERT_BR};
static constexpr int logChoices[] = {IDC_CONVERT_ORDERS, IDC_CONVERT_CLIENT_RECTIFICATION, IDC_CONVERT_TYPE_RECTIFICATION};
static constexpr int logControls[] = {IDC_CONVERT_FORMAT_GROUP, IDC_CONVERT_ORDERS, IDC_CONVERT_CLIENT_RECTIFICATION,
                                      IDC_CONVERT_TYPE_RECTIFICATION};
static constexpr int formatControls[] = {
    IDC_CONVERT_FORMAT_GROUP,      IDC_CONVERT_NORMAL, IDC_CONVERT_BR, IDC_CONVERT_ORDERS, IDC_CONVERT_CLIENT_RECTIFICATION,
    IDC_CONVERT_TYPE_RECTIFICATION};

static constexpr std::size_t outFileCapture = 300;  // characters that Convert takes from the edit

// ---- State ------------------------------------------------------------------------------------------------------------

namespace {

struct Options {
  std::string outputName;
  OrderLogChoice logChoice;
  AdminFormat adminFormat;
};

struct ConvertForm {
  std::string inputPath;  // empty until a file is chosen
  std::string fileTitle;  // its name without the folder, as an edit and a box show it
  Input* input;
  Output* output;
  TradeHeader header;
  ConvertKind kind;
  std::int64_t recordCount;
  bool formatMissing;  // the user was asked for a format, and no line was written
};

}  // namespace

static ConvertForm state;
// How records are read. What a file settles stays until the program ends, for the files that settle nothing there: a lending
// broker query has the records of the last normal one, though the form may have been closed meanwhile.
static ConvertRules rules;

// ---- The form between runs --------------------------------------------------------------------------------------------

static void resetForm(FormHandle form) {
  state.inputPath.clear();
  state.fileTitle.clear();
  fileSelection.fileTitle.clear();
  formSetText(form, IDC_CONVERT_OUTFILE, "");
  formSetEnabled(form, IDC_CONVERT_CONVERT, true);
  formSetEnabled(form, IDC_CONVERT_LOAD, true);
  formSetTitle(form, formTitle);
  formSetFocus(form, IDC_CONVERT_LOAD);
}

static void hideFormats(FormHandle form) { setControlsVisible(form, formatControls, false); }

// All zero where there is none to be had.
static TradeHeader headerOfLoaded() {
  TradeHeader header = {};
  Input* const input = inputOpen(state.inputPath, InputKind::binary);
  if (input && !inputRead(*input, &header, sizeof header)) header = {};
  (void)closeAllStreams();  // no report is being written between runs
  return header;
}

static void showFormats(FormHandle form, const TradeHeader& header) {
  if (header.kind == 'A') {
    setControlsVisible(form, adminControls, true);
    checkRadio(form, adminFormats, IDC_CONVERT_NORMAL);
  }
  if (header.kind == 'O') {
    setControlsVisible(form, logControls, true);
    checkRadio(form, logChoices, IDC_CONVERT_ORDERS);
  }
}

static void onLoad(FormHandle form) {
  showReply(form, IDC_CONVERT_REPLY, blankReply);
  loadFile(loadConvert, LoadVariant::standard, form, state.inputPath);
  // Cancel leaves the form as it is. Where the masks could not be loaded, a file counts as chosen, and there is none.
  if (!fileSelection.fileChosen || !requireInputPath(form, streamTexts, state.inputPath)) return;
  formSetTitle(form, loadedTitle + fileSelection.fileTitle);
  state.fileTitle = bytesFromUtf8(fileSelection.fileTitle);
  const TradeHeader header = headerOfLoaded();
  formSetText(form, IDC_CONVERT_OUTFILE, convertedName(header, state.fileTitle));
  showFormats(form, header);
  formSetEnabled(form, IDC_CONVERT_LOAD, false);
  formSetFocus(form, IDC_CONVERT_OUTFILE);
}

static void onCancel(FormHandle form) {
  showReply(form, IDC_CONVERT_REPLY, blankReply);
  checkRadio(form, adminFormats, 0);
  hideFormats(form);
  resetForm(form);
}

// ---- A run ------------------------------------------------------------------------------------------------------------

static Options captureOptions(FormHandle form) {
  Options options = {};
  options.outputName = formGetText(form, IDC_CONVERT_OUTFILE, outFileCapture);
  options.logChoice = OrderLogChoice::orders;
  if (formIsChecked(form, IDC_CONVERT_CLIENT_RECTIFICATION)) options.logChoice = OrderLogChoice::clientRectification;
  if (formIsChecked(form, IDC_CONVERT_TYPE_RECTIFICATION)) options.logChoice = OrderLogChoice::typeRectification;
  options.adminFormat = AdminFormat::none;
  if (formIsChecked(form, IDC_CONVERT_NORMAL)) options.adminFormat = AdminFormat::normal;
  if (formIsChecked(form, IDC_CONVERT_BR)) options.adminFormat = AdminFormat::br;
  return options;
}

static bool refuse(FormHandle form, const char* text) {
  reportOnReplyAndBox(form, IDC_CONVERT_REPLY, formTitle, text, BoxIcon::error);
  return false;
}

// The box alone tells these.
static bool refuseInBox(FormHandle form, const char* title, const char* text) {
  boxShow(form, title, text, BoxIcon::error);
  return false;
}

// What fails here leaves the file loaded.
static bool openInput(FormHandle form) {
  if (!requireInputPath(form, streamTexts, state.inputPath)) return false;
  if (openInputStream(form, streamTexts, state.inputPath, state.input)) return true;
  (void)closeAllStreams();  // nothing was written yet
  return false;
}

// The names are compared as they are typed, so that "ABC.DAT" is another one than "abc.dat" here.
static bool refuseSameName(FormHandle form, const Options& options) {
  if (options.outputName != state.fileTitle) return false;
  showMessage(form, IDC_CONVERT_REPLY, formTitle, streamTexts.sameFile, BoxIcon::exclamation);
  return true;
}

static bool openOutput(FormHandle form, Options& options) {
  const bool open = !refuseBadName(form, streamTexts, options.outputName) &&
                    !refuseEmptyName(form, streamTexts, options.outputName) &&
                    !refuseInputAsOutput(form, streamTexts, state.inputPath, options.outputName) &&
                    openOutputStream(form, streamTexts, options.outputName, state.output);
  if (!open) checkRadio(form, logChoices, IDC_CONVERT_ORDERS);
  return open;
}

static RunEnd openRun(FormHandle form, Options& options) {
  if (!openInput(form)) return RunEnd::kept;
  return !refuseSameName(form, options) && openOutput(form, options) ? RunEnd::printed : RunEnd::refused;
}

static bool refuseZeroRecords(FormHandle form) {
  (void)refuse(form, zeroRecordsText);
  onCancel(form);
  return false;
}

static bool readHeader(FormHandle form) {
  if (inputRead(*state.input, &state.header, sizeof state.header)) return true;
  const NoHeader why = whyNoHeader(*state.input);
  // A file that is too short for a header has no records either.
  if (why == NoHeader::emptyFile || why == NoHeader::tooShort) return refuseZeroRecords(form);
  return refuse(form, notReadText);
}

static void applyDateRule() {
  const TradeHeader& header = state.header;
  applyDateRule(header.century, header.year, header.month, header.day, DateRuleSlot::convert);
}

static bool wantsShortLine(FormHandle form, const char* title) {
  return boxAsk(form, title, scripGroupQuestion, BoxIcon::question, BoxChoice::no) == BoxChoice::no;
}

static void settleTrades(FormHandle form) {
  const bool isLong = state.header.fileKind == 'V';
  rules.tradeRec132 = !isLong;
  rules.tradeShortLine = !isLong || wantsShortLine(form, tradesQuestionTitle);
  applyDateRule();
}

static void settleBrokerQuery(FormHandle form) {
  const bool isLong = state.header.fileKind == 'V';
  rules.brokerRec132 = !isLong;
  rules.brokerShortLine = !isLong || wantsShortLine(form, brokerQuestionTitle);
  applyDateRule();
}

static void settleAdminTrades() {
  rules.adminRec144 = state.header.fileKind != 'V';
  applyDateRule();
  rules.adminRec168 = isLogDatedBefore(state.header, 2010, 7, 24);
}

// A lending broker query settles what a lending trade file does, and so is read as the last normal broker query was. No column
// depends on the date rule.
static void settleRules(FormHandle form, const Options& options) {
  rules.isLendingFile = fileSelection.isLendingFile;
  rules.logChoice = options.logChoice;
  rules.adminFormat = options.adminFormat;
  const char kind = state.header.kind;
  if (rules.isLendingFile) {
    if (kind == 'T' || kind == 'B') rules.tradeRec132 = rules.tradeShortLine = false;
    if (kind == 'A') rules.adminRec144 = false;
    return;
  }
  if (kind == 'T') settleTrades(form);
  if (kind == 'B') settleBrokerQuery(form);
  if (kind == 'A') settleAdminTrades();
}

static bool recognise(FormHandle form) {
  state.kind = convertKindOf(state.header);
  return state.kind != ConvertKind::none || refuse(form, noKindText);
}

// The rectifications came in years after the log.
static bool checkOrderLog(FormHandle form) {
  if (state.kind != ConvertKind::orderLog) return true;
  if (rules.logChoice == OrderLogChoice::typeRectification && instRectMissing(state.header, rules.isLendingFile)) {
    return refuseInBox(form, tooOldTitle, noTypeRectificationText);
  }
  rules.orderRec112 = orderRec112(state.header, rules.isLendingFile);
  if (rules.orderRec112 && rules.logChoice != OrderLogChoice::orders) {
    return refuseInBox(form, tooOldTitle, noClientRectificationText);
  }
  return true;
}

static std::int64_t failMeasuring(FormHandle form, const char* text) {
  (void)refuseInBox(form, formTitle, text);
  return 0;
}

// The file's size; 0 where it cannot be had, which is told.
static std::int64_t measureInput(FormHandle form) {
  if (!inputSeekEnd(*state.input)) return failMeasuring(form, noEndText);
  const std::int64_t size = inputTell(*state.input);
  if (size < 0) return failMeasuring(form, noPositionText);
  return inputSeekStart(*state.input) ? size : failMeasuring(form, noStartText);
}

// Gives as `shown` what the form tells, which is not what decides: an order log is converted over all its records, and tells
// those of the log that is wanted. One of orders must have some. Of the rectifications the test is the other way round: a file
// of nothing else counts as empty, and one without any is converted, to an empty text.
static bool countRecords(FormHandle form, std::int64_t& shown) {
  state.recordCount = convertCountOf(measureInput(form), state.kind, rules);
  shown = state.recordCount;
  if (state.kind != ConvertKind::orderLog || rules.orderRec112 || state.recordCount == 0) return true;
  if (!countRecordsOfKind(*state.input, state.recordCount, orderRecordKind(rules.logChoice), shown)) {
    return refuse(form, notReadText);
  }
  const bool isEmpty = rules.logChoice == OrderLogChoice::orders ? shown == 0 : shown == state.recordCount;
  if (isEmpty) state.recordCount = 0;
  return true;
}

static void showInformation(FormHandle form, std::int64_t records) {
  const TradeHeader& header = state.header;
  // clang-format off
  const std::string text = formatText<
      "File Name : %12s\n\nFile Type : %s\n\n MemberId : %ld\n\nTraderId : %ld\n\nDate : %02d%02d/%02d/%02d\n\n"
      "Time  %02d : %02d : %02d\n\nNo Of Records : %ld\n ">(
      state.fileTitle, fileTypeText(state.kind), header.memberId, header.traderId, header.century, header.year, header.month,
      header.day, header.hour, header.minute, header.second, static_cast<std::int32_t>(records));
  // clang-format on
  boxShow(form, informationTitle, text, BoxIcon::information);
}

static bool prepareConversion(FormHandle form, const Options& options) {
  if (!readHeader(form)) return false;
  settleRules(form, options);
  std::int64_t shown = 0;
  if (!recognise(form) || !checkOrderLog(form) || !countRecords(form, shown)) return false;
  if (state.recordCount == 0) return refuseZeroRecords(form);
  showInformation(form, shown);
  showReply(form, IDC_CONVERT_REPLY, "");
  return true;
}

static FormHandle convertingForm;
static void askFormat() {
  state.formatMissing = true;
  appBeep(3);
  showMessage(convertingForm, IDC_CONVERT_REPLY, formTitle, noFormat, BoxIcon::exclamation);
}

// A deletion log is one under any first letter, but under a strange one nothing is written of it, and nothing said.
static bool isConverted(char fileKind) {
  return fileKind == 'N' || fileKind == 'V' || fileKind == 'J' || fileKind == 'S' || fileKind == 'B';
}

static RunEnd convertFile(FormHandle form, const Options& options) {
  if (!prepareConversion(form, options) || !isConverted(state.header.fileKind)) return RunEnd::refused;
  convertingForm = form;
  state.formatMissing = false;
  switch (writeLines(*state.input, *state.output, state.header, state.kind, rules, state.recordCount, askFormat)) {
    case ConvertEnd::done:
      break;
    case ConvertEnd::formatMissing:
      return RunEnd::refused;
    case ConvertEnd::readFailed:
      (void)refuse(form, notReadText);
      return RunEnd::refused;
  }
  return state.formatMissing ? RunEnd::refused : RunEnd::printed;
}

static void endRun(FormHandle form, RunEnd end) {
  if (end == RunEnd::kept) {
    formSetEnabled(form, IDC_CONVERT_CONVERT, true);
    return formSetFocus(form, IDC_CONVERT_CONVERT);
  }
  const bool written = closeAllStreams();
  if (end == RunEnd::printed) {
    if (written) showReply(form, IDC_CONVERT_REPLY, completeText);
    showEndOfRun(form, IDC_CONVERT_REPLY, formTitle, completeText, written);
    if (state.header.fileKind != 'B') checkRadio(form, adminFormats, 0);
  }
  hideFormats(form);
  resetForm(form);
}

static void onConvert(FormHandle form) {
  showReply(form, IDC_CONVERT_REPLY, blankReply);
  Options options = captureOptions(form);
  formSetEnabled(form, IDC_CONVERT_CONVERT, false);
  RunEnd end = openRun(form, options);
  if (end == RunEnd::printed) end = convertFile(form, options);
  endRun(form, end);
}

// ---- Events -----------------------------------------------------------------------------------------------------------

static constexpr FormFrame frame = {
    .tool = toolConvert,
    .start = resetForm,
    .load = {IDC_CONVERT_LOAD, onLoad},
    .print = {IDC_CONVERT_CONVERT, onConvert},
    .cancel = {IDC_CONVERT_CANCEL, onCancel},
};

void convertFormEvent(const FormEvent& event) { reportFormEvent(frame, event); }

}  // namespace quillon
