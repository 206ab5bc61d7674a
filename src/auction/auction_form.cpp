// The Auction form (AUCRPT). The user says which of five statements of an auction is wanted, loads the file of that kind, says
// how it is sorted and where it goes, and is asked nothing more. The statement decides what the rest of the form offers: the
// files that the open-file dialog shows and the sorts. What the file's name does not promise is refused at Print.
#include "auction/auction_form.h"

#include <cstdint>
#include <span>
#include <string>

#include "auction/auction_file.h"
#include "auction/auction_page.h"
#include "auction/bda_details_report.h"
#include "auction/delivery_statement_report.h"
#include "auction/money_statement_report.h"
#include "auction/offer_status_report.h"
#include "auction/rejected_entitlements_report.h"
#include "desktop/boxes.h"
#include "desktop/clock.h"
#include "desktop/memory.h"
#include "frame/file_selection.h"
#include "frame/report_form.h"
#include "frame/run_date.h"
#include "frame/tools.h"
#include "resource.h"
#include "text/record_order.h"

namespace quillon {

// ---- Texts ------------------------------------------------------------------------------------------------------------

static constexpr char formTitle[] = "AUCTION REPORT PRINTING";
static constexpr char notLoadedTitle[] = "PRINTING AUCTION REPORT";
static constexpr char notLoadedText[] = "Error in Loading Auction File";
static constexpr char loadedTitle[] = "AUCTION PRINTING - ";

static constexpr LinesPerPageRule linesRule = {
    .control = IDC_AUC_LINES,
    .initial = 40,
    .limit = 40,
    .fallback = 40,
    .message = "Lines per page cannot be '>40' or '<1'",
    .title = formTitle,
    .writeBack = IDC_AUC_LINES,
    .reply = IDC_AUC_REPLY,
};

// An empty name is told under the title of another form: users know it so.
static constexpr char emptyNameTitle[] = "PRINTING TRDLIMITS";
static constexpr char inputNotOpenedText[] = "Error In Opening Auction Report File";
static constexpr char outFileNotOpenedText[] = "Error In Opening OutFile";
static constexpr StreamTexts streamTexts = {
    .title = formTitle,
    .reply = IDC_AUC_REPLY,
    .inputKind = InputKind::binary,
    .noInput = {noInputText, noInputText},
    .inputNotOpened = {inputNotOpenedText, inputNotOpenedText},
    .noOutputName = {outFileNotOpenedText, outFileNotOpenedText, emptyNameTitle},
    .badOutputName = {badOutputNameText, badOutputNameText},
    .sameFile = {sameFileText, sameFileText},
    .printerTest = PrinterTest::never,
    .printerNotOpened = {outFileNotOpenedText, outFileNotOpenedText},
    .outputNotOpened = {outFileNotOpenedText, outFileNotOpenedText},
};
static constexpr char badInputNameText[] = "Invalid FileName";
static constexpr char emptyFileText[] = "No Records Present! Cannot Print File";
static constexpr char headerNotReadText[] = "Could not Read Header from File";
static constexpr char noRecordsText[] = "No Records Found ";
static constexpr char memoryTitle[] = "Error";
static constexpr char noMemoryText[] = "Auction Report Data: Memory Allocation Failure";
static constexpr char noGroupMemoryText[] = "Memory Allocation Failure";
static constexpr char notReadText[] = "Error Reading File ";
static constexpr Message noOffersFile = {
    .box = "No Offer status file available\nCan't proceed with Money statement printing\nDownload reports again",
    .reply = "No Offer status file available",
};
// Of close-outs, and in the same words of rejected entitlements.
static constexpr char listingNotReadText[] = "ERROR reading Close Out statement file";
static constexpr char completeText[] = "PRINTING COMPLETE";

// ---- Controls ---------------------------------------------------------------------------------------------------------

static constexpr int reportOptions[] = {IDC_AUC_MONEY, IDC_AUC_DELIVERY, IDC_AUC_OFFERS, IDC_AUC_BDA, IDC_AUC_ENTITLEMENTS};
static constexpr int sortOptions[] = {IDC_AUC_SORT_SCRIP_NAME, IDC_AUC_SORT_SCRIP_CODE, IDC_AUC_SORT_MEMBER,
                                      IDC_AUC_SORT_OPP_MEMBER};
static constexpr std::span<const int> allSorts = sortOptions;
static constexpr std::span<const int> scripSorts = allSorts.first(2);
static constexpr std::span<const int> noSorts = {};
static constexpr int destinations[] = {IDC_AUC_PRINTER, IDC_AUC_FILE};
static constexpr int outFileControls[] = {IDC_AUC_OUTFILE_LABEL, IDC_AUC_OUTFILE};
// Cancel is not among them: it stays enabled during a run, though nothing answers it.
static constexpr int runControls[] = {
    IDC_AUC_MONEY,           IDC_AUC_DELIVERY,    IDC_AUC_OFFERS,          IDC_AUC_BDA,   IDC_AUC_ENTITLEMENTS,
    IDC_AUC_PRINTER,         IDC_AUC_FILE,        IDC_AUC_OUTFILE,         IDC_AUC_LINES, IDC_AUC_SORT_SCRIP_NAME,
    IDC_AUC_SORT_SCRIP_CODE, IDC_AUC_SORT_MEMBER, IDC_AUC_SORT_OPP_MEMBER, IDC_AUC_LOAD,  IDC_AUC_PRINT};

static constexpr std::size_t outFileCapture = 14;  // characters that Print takes from the edit

// ---- State ------------------------------------------------------------------------------------------------------------

namespace {

struct Report;

struct Options {
  const Report* report;
  AuctionSort sort;
  unsigned linesPerPage;
  std::string outputName;
};

// What the choice of a statement decides.
struct Report {
  int option;
  AuctionKind kind;
  LoadVariant variant;         // the masks of the open-file dialog
  std::span<const int> sorts;  // the sorts that it offers
  // Takes the records' memory, reads them from behind the header, and writes all pages. False when the run ended before that,
  // which has been told.
  bool (*write)(FormHandle form, const Options& options);
};

struct AuctionForm {
  std::string inputPath;  // empty until a file is chosen
  Input* input;
  Input* offersInput;  // the offer status file beside a money file
  Output* output;
  AuctionHeader header;
  std::int64_t fileSize;
  std::size_t count;
  void* block;      // the records and a zero one behind them
  char* groups;     // of the money statement's records
  OffsRec* offers;  // of the offer status, in its own block also where it is a part of the money statement
  bool outputLost;  // bytes of a report whose streams were closed ahead of the end of the run
};

}  // namespace

static bool writeMoney(FormHandle form, const Options& options);
static bool writeOffers(FormHandle form, const Options& options);
static bool writeDeliveries(FormHandle form, const Options& options);
static bool writeBdaDetails(FormHandle form, const Options& options);
static bool writeEntitlements(FormHandle form, const Options& options);

// clang-format off
static constexpr Report reports[] = {
    {IDC_AUC_MONEY,        AuctionKind::mony, LoadVariant::standard,                    scripSorts, writeMoney},
    {IDC_AUC_DELIVERY,     AuctionKind::dely, LoadVariant::auctionDelivery,             allSorts,   writeDeliveries},
    {IDC_AUC_OFFERS,       AuctionKind::offs, LoadVariant::auctionOfferStatus,          scripSorts, writeOffers},
    {IDC_AUC_BDA,          AuctionKind::clbd, LoadVariant::auctionBdaDetails,           noSorts,    writeBdaDetails},
    {IDC_AUC_ENTITLEMENTS, AuctionKind::entl, LoadVariant::auctionRejectedEntitlements, noSorts,    writeEntitlements},
};
// clang-format on

static AuctionForm state;

// ---- The form between runs --------------------------------------------------------------------------------------------

static void disableControls(FormHandle form) {
  setControlsEnabled(form, runControls, false);
  formSetCloseEnabled(form, false);
}

static void enableControls(FormHandle form) {
  setControlsEnabled(form, runControls, true);
  formSetCloseEnabled(form, true);
}

// The delivery statement keeps the sort that was chosen, since it has them all.
static void chooseReport(FormHandle form, const Report& report) {
  setControlsVisible(form, sortOptions, false);
  setControlsVisible(form, report.sorts, true);
  if (report.kind != AuctionKind::dely) checkRadio(form, sortOptions, IDC_AUC_SORT_SCRIP_NAME);
}

static void resetForm(FormHandle form) {
  state.inputPath.clear();
  checkRadio(form, reportOptions, IDC_AUC_MONEY);
  chooseReport(form, reports[0]);
  checkRadio(form, destinations, IDC_AUC_PRINTER);
  formSetText(form, IDC_AUC_OUTFILE, "");
  setControlsVisible(form, outFileControls, false);
  showInitialLines(form, linesRule);
  formSetText(form, IDC_AUC_REPLY, "");
  formSetTitle(form, formTitle);
  formSetFocus(form, IDC_AUC_LOAD);
}

static bool refuse(FormHandle form, const char* title, const char* text, BoxIcon icon = BoxIcon::error) {
  reportOnReplyAndBox(form, IDC_AUC_REPLY, title, text, icon);
  return false;
}

static const Report& chosenReport(FormHandle form) {
  for (const Report& report : reports) {
    if (formIsChecked(form, report.option)) return report;
  }
  return reports[0];
}

// The file is opened to prove that it can be read; Print opens it anew.
static void onLoad(FormHandle form) {
  showReply(form, IDC_AUC_REPLY, "");
  loadFile(loadAuction, chosenReport(form).variant, form, state.inputPath);
  if (state.inputPath.empty()) return;
  const std::string name = fileSelection.fileTitle;
  fileSelection.fileTitle.clear();
  Input* const probe = inputOpen(state.inputPath, InputKind::binary);
  if (!probe) {
    // The form stands as before the press, with the reason on its Reply line.
    state.inputPath.clear();
    (void)refuse(form, notLoadedTitle, notLoadedText);
    return;
  }
  inputClose(probe);
  formSetTitle(form, loadedTitle + name);
  formSetEnabled(form, IDC_AUC_LOAD, false);
  formSetFocus(form, IDC_AUC_PRINT);
}

static void onCancel(FormHandle form) {
  showReply(form, IDC_AUC_REPLY, "");
  (void)closeAllStreams();  // no report is being written between runs
  enableControls(form);
  resetForm(form);
}

// ---- A run ------------------------------------------------------------------------------------------------------------

static AuctionSort chosenSort(FormHandle form) {
  if (formIsChecked(form, IDC_AUC_SORT_SCRIP_CODE)) return AuctionSort::scripCode;
  if (formIsChecked(form, IDC_AUC_SORT_MEMBER)) return AuctionSort::memberId;
  if (formIsChecked(form, IDC_AUC_SORT_OPP_MEMBER)) return AuctionSort::oppMemberId;
  return AuctionSort::scripName;
}

static Options captureOptions(FormHandle form) {
  Options options = {};
  options.report = &chosenReport(form);
  options.sort = chosenSort(form);
  options.linesPerPage = captureLinesPerPage(form, linesRule);
  options.outputName = printerName;
  if (formIsChecked(form, IDC_AUC_FILE)) options.outputName = formGetText(form, IDC_AUC_OUTFILE, outFileCapture);
  return options;
}

static bool requireKind(FormHandle form, AuctionKind kind) {
  return auctionPathIsOfKind(state.inputPath, kind) || refuse(form, formTitle, badInputNameText, BoxIcon::exclamation);
}

static bool requireContent(FormHandle form) {
  if (!auctionFileSize(*state.input, state.fileSize)) return refuse(form, formTitle, notReadText);
  return state.fileSize > 0 || refuse(form, formTitle, emptyFileText);
}

// The money statement reads a second file, which must not be the output either.
static bool refuseInputsAsOutput(FormHandle form, const Options& options) {
  if (refuseInputAsOutput(form, streamTexts, state.inputPath, options.outputName)) return true;
  return options.report->kind == AuctionKind::mony &&
         refuseInputAsOutput(form, streamTexts, offerStatusPath(state.inputPath), options.outputName);
}

static RunEnd openRun(FormHandle form, Options& options) {
  const bool open = requireInputPath(form, streamTexts, state.inputPath) && requireKind(form, options.report->kind) &&
                    openInputStream(form, streamTexts, state.inputPath, state.input) && requireContent(form) &&
                    !refuseBadName(form, streamTexts, options.outputName) &&
                    !refuseEmptyName(form, streamTexts, options.outputName) && !refuseInputsAsOutput(form, options) &&
                    openOutputStream(form, streamTexts, options.outputName, state.output);
  return open ? RunEnd::printed : RunEnd::refused;
}

static bool readHeader(FormHandle form) {
  return inputRead(*state.input, &state.header, sizeof state.header) || refuse(form, nullptr, headerNotReadText);
}

static bool countRecords(FormHandle form, const Options& options) {
  state.count = auctionRecordCount(state.fileSize, options.report->kind);
  return state.count > 0 || refuse(form, formTitle, noRecordsText);
}

// What every page of the statement shows. The market is that of the file that was chosen last, on whichever form.
static AuctionStatement statementOf(const Options& options) {
  return {state.header,
          {fileSelection.isLendingFile, fileSelection.isLendingAuctionFile},
          runDateText(clockNow()),
          options.linesPerPage};
}

// The memory of the report's records, with a zero one behind them.
static bool takeBlock(FormHandle form, const Options& options) {
  state.block = memoryTake((state.count + 1) * auctionRecordSize(options.report->kind));
  return state.block || refuse(form, memoryTitle, noMemoryText);
}

// ---- Offers

namespace {

enum class OffersRead {
  done,
  noMemory,  // told; the streams are closed and nothing more can be written, and yet the run goes on to its end
  failed,    // told; the run ends
};

}  // namespace

static OffersRead readOffers(FormHandle form, Input& input, std::size_t count) {
  state.offers = static_cast<OffsRec*>(memoryTake((count + 1) * sizeof(OffsRec)));
  if (!state.offers) {
    (void)refuse(form, memoryTitle, noMemoryText);
    state.outputLost = !closeAllStreams();
    return OffersRead::noMemory;
  }
  if (readAuctionRecords(input, AuctionKind::offs, state.offers, count)) return OffersRead::done;
  (void)refuse(form, formTitle, notReadText);
  return OffersRead::failed;
}

static bool writeOffers(FormHandle form, const Options& options) {
  const OffersRead read = readOffers(form, *state.input, state.count);
  if (read != OffersRead::done) return read == OffersRead::noMemory;
  const RecordOrder order = offerOrder(state.offers, state.count, options.sort);
  if (!order) return refuse(form, memoryTitle, noMemoryText);
  printOfferStatus(*state.output, statementOf(options), OfferHeading::offerStatus,
                   {state.offers, state.count, order.memory.get()}, 1);
  return true;
}

// ---- Money

static bool readMoney(FormHandle form, const Options& options) {
  if (!takeBlock(form, options)) return false;
  state.groups = static_cast<char*>(memoryTake(state.count));
  if (!state.groups) return refuse(form, memoryTitle, noGroupMemoryText);
  if (!readAuctionRecords(*state.input, AuctionKind::mony, state.block, state.count)) {
    return refuse(form, formTitle, notReadText);
  }
  const auto* const records = static_cast<const MonyRec*>(state.block);
  for (std::size_t i = 0; i < state.count; ++i) state.groups[i] = moneyGroup(records[i].entryType);
  return true;
}

// Counts the offers of the file beside the money file and passes over its header, which is the same.
static bool openOffers(FormHandle form, std::size_t& count) {
  state.offersInput = inputOpen(offerStatusPath(state.inputPath), InputKind::binary);
  inputHold(state.offersInput);
  if (!state.offersInput) {
    showMessage(form, IDC_AUC_REPLY, formTitle, noOffersFile, BoxIcon::error);
    return false;
  }
  std::int64_t size;
  AuctionHeader header;
  const bool read = auctionFileSize(*state.offersInput, size) && inputRead(*state.offersInput, &header, sizeof header);
  if (!read) return refuse(form, formTitle, notReadText);
  count = auctionRecordCount(size, AuctionKind::offs);
  return true;
}

static bool writeMoney(FormHandle form, const Options& options) {
  std::size_t offerCount = 0;
  if (!readMoney(form, options) || !openOffers(form, offerCount)) return false;
  const auto* const records = static_cast<const MonyRec*>(state.block);
  const RecordOrder order = moneyOrder(records, state.groups, state.count, options.sort);
  if (!order) return refuse(form, memoryTitle, noMemoryText);

  const AuctionStatement statement = statementOf(options);
  MoneyTotals totals;
  int page = printMoneySections(*state.output, statement, {records, state.groups, order.memory.get(), state.count}, totals);
  if (offerCount > 0) {
    // The offers are read only here: a file whose offers cannot be read leaves the sections that were printed.
    const OffersRead read = readOffers(form, *state.offersInput, offerCount);
    if (read != OffersRead::done) return read == OffersRead::noMemory;
    page = printMoneyOffers(*state.output, statement, {state.offers, offerCount, nullptr}, page);
  }
  printMoneyNetPosition(*state.output, statement, totals, page);
  return true;
}

// ---- Deliveries

static bool writeDeliveries(FormHandle form, const Options& options) {
  if (!takeBlock(form, options)) return false;
  if (!readAuctionRecords(*state.input, AuctionKind::dely, state.block, state.count)) {
    return refuse(form, formTitle, notReadText);
  }
  const auto* const records = static_cast<const DelyRec*>(state.block);
  const RecordOrder order = deliveryOrder(records, state.count, options.sort);
  if (!order) return refuse(form, memoryTitle, noMemoryText);
  printDeliveryStatement(*state.output, statementOf(options), {records, state.count, order.memory.get()});
  return true;
}

// ---- Close-outs and rejected entitlements

static bool readListing(FormHandle form, const Options& options) {
  if (!takeBlock(form, options)) return false;
  return readAuctionRecords(*state.input, options.report->kind, state.block, state.count) ||
         refuse(form, nullptr, listingNotReadText);
}

static bool writeBdaDetails(FormHandle form, const Options& options) {
  if (!readListing(form, options)) return false;
  printBdaDetails(*state.output, statementOf(options), static_cast<const ClbdRec*>(state.block), state.count);
  return true;
}

static bool writeEntitlements(FormHandle form, const Options& options) {
  if (!readListing(form, options)) return false;
  printRejectedEntitlements(*state.output, statementOf(options), static_cast<const EntlRec*>(state.block), state.count);
  return true;
}

static RunEnd printFile(FormHandle form, const Options& options) {
  const bool done = readHeader(form) && countRecords(form, options) && options.report->write(form, options);
  return done ? RunEnd::printed : RunEnd::refused;
}

static void endRun(FormHandle form, RunEnd end) {
  // The streams are closed ahead of the last box, since a close can still lose the report.
  const bool written = closeAllStreams() && !state.outputLost;
  if (end == RunEnd::printed) {
    if (written) showReply(form, IDC_AUC_REPLY, completeText);
    showEndOfRun(form, IDC_AUC_REPLY, formTitle, completeText, written);
  }
  state.outputLost = false;
  memoryFree(state.block);
  memoryFree(state.groups);
  memoryFree(state.offers);
  state.block = nullptr;
  state.groups = nullptr;
  state.offers = nullptr;
  enableControls(form);
  resetForm(form);
}

static void onPrint(FormHandle form) {
  showReply(form, IDC_AUC_REPLY, "");
  disableControls(form);
  Options options = captureOptions(form);
  RunEnd end = openRun(form, options);
  if (end == RunEnd::printed) end = printFile(form, options);
  endRun(form, end);
}

// ---- Events -----------------------------------------------------------------------------------------------------------

static void onPressed(FormHandle form, int control) {
  for (const Report& report : reports) {
    if (report.option == control) chooseReport(form, report);
  }
}

static constexpr FormFrame frame = {
    .tool = toolAuction,
    .start = resetForm,
    .load = {IDC_AUC_LOAD, onLoad},
    .print = {IDC_AUC_PRINT, onPrint},
    .cancel = {IDC_AUC_CANCEL, onCancel},
    .printer = IDC_AUC_PRINTER,
    .file = IDC_AUC_FILE,
    .outFileControls = outFileControls,
    .pressed = onPressed,
};

void auctionFormEvent(const FormEvent& event) { reportFormEvent(frame, event); }

}  // namespace quillon
