// The Delivery form (DELV). The user loads a delivery file and presses Print, and the slips of what the member delivers go
// straight to the printer: there is no file to print to, no sort and no question.
//
// It stays live: no run disables anything on it, and a file that was printed stays loaded, to be printed again. Whatever goes
// wrong takes the file back, and leaves its reason on the Reply line.
#include "auction/delivery_form.h"

#include <cstdint>
#include <string>

#include "auction/auction_file.h"
#include "auction/delivery_slips.h"
#include "desktop/app.h"
#include "desktop/boxes.h"
#include "desktop/clock.h"
#include "desktop/memory.h"
#include "frame/file_selection.h"
#include "frame/report_form.h"
#include "frame/tools.h"
#include "resource.h"
#include "text/encoding.h"

namespace quillon {

// ---- Texts ------------------------------------------------------------------------------------------------------------

static constexpr char boxTitle[] = "PRINTING DELIVERY STATEMENT";
static constexpr char replyPrinting[] = "Printing In Progress...";
// Follows every failure to open something, whatever was told before it.
static constexpr Message notOpened = {.box = "Error in opening Delivery File", .reply = "Error in Opening File"};
static constexpr char noPrinterText[] = "Unable to connect to printer";
static constexpr char errorTitle[] = "ERROR";
static constexpr char noRecordsText[] = "No Records present in the File.";
static constexpr char memoryTitle[] = "Error";
static constexpr char noMemoryText[] = "Delv Data : Memory Allocation Failure";
static constexpr char noMemoryReply[] = "Memory Allocation failure";
static constexpr char headerNotReadText[] = "Unable to read Header from the file .";
static constexpr Message notRead = {.box = "Error in Reading File", .reply = "Error in Reading File"};
// Goes to the standard output, where there is one.
static constexpr char noDeliveriesText[] = "No deliveries to be made for this auction \n";
static constexpr char completeTitle[] = "SUCCESS";
static constexpr char completeText[] = "PRINTING COMPLETE";

// ---- State ------------------------------------------------------------------------------------------------------------

namespace {

struct DeliveryForm {
  std::string inputPath;  // empty until a file is chosen
  SlipName slipName;      // what its name tells
  Input* input;
  Output* output;
  AuctionHeader header;
  std::size_t count;
  DelyRec* block;
};

}  // namespace

static DeliveryForm state;

// ---- The form between runs --------------------------------------------------------------------------------------------

static void forgetFile(FormHandle form) {
  state.inputPath.clear();
  formSetText(form, IDC_DELV_FILENAME, "");
}

static void resetForm(FormHandle form) {
  forgetFile(form);
  formSetText(form, IDC_DELV_REPLY, "");
}

// A selection that is cancelled leaves the file that was loaded.
static void onLoad(FormHandle form) {
  showReply(form, IDC_DELV_REPLY, "");
  loadFile(loadDelivery, LoadVariant::standard, form, state.inputPath);
  if (fileSelection.fileTitle.empty()) return;
  const std::string name = bytesFromUtf8(fileSelection.fileTitle);
  fileSelection.fileTitle.clear();
  formSetText(form, IDC_DELV_FILENAME, name);
  state.slipName = slipNameOf(name, clockNow());
}

// ---- A run ------------------------------------------------------------------------------------------------------------

static bool refuse(FormHandle form, const Message& message) {
  showMessage(form, IDC_DELV_REPLY, boxTitle, message, BoxIcon::error);
  return false;
}

// Told in a box of its own ahead of the one that follows every such failure.
static bool refuseOpening(FormHandle form, const char* title, const char* text) {
  boxShow(form, title, text, BoxIcon::error);
  return refuse(form, notOpened);
}

static bool openInput(FormHandle form) {
  if (!state.inputPath.empty()) state.input = inputOpen(state.inputPath, InputKind::binary);
  inputHold(state.input);
  return state.input || refuse(form, notOpened);
}

static bool openPrinter(FormHandle form) {
  state.output = outputOpen(printerName);
  outputHold(state.output);
  return state.output || refuseOpening(form, boxTitle, noPrinterText);
}

static bool countRecords(FormHandle form) {
  std::int64_t size;
  if (!auctionFileSize(*state.input, size)) return refuse(form, notOpened);
  state.count = auctionRecordCount(size, AuctionKind::dely);
  return state.count > 0 || refuseOpening(form, errorTitle, noRecordsText);
}

static bool takeBlock(FormHandle form) {
  state.block = static_cast<DelyRec*>(memoryTake(state.count * sizeof(DelyRec)));
  if (state.block) return true;
  boxShow(form, memoryTitle, noMemoryText, BoxIcon::error);
  showReply(form, IDC_DELV_REPLY, noMemoryReply);
  return false;
}

static bool readHeader(FormHandle form) {
  if (inputRead(*state.input, &state.header, sizeof state.header)) return true;
  boxShow(form, errorTitle, headerNotReadText, BoxIcon::error);
  return false;
}

static bool readRecords(FormHandle form) {
  if (!readAuctionRecords(*state.input, AuctionKind::dely, state.block, state.count)) return refuse(form, notRead);
  keepDeliveries(state.block, state.count);
  return true;
}

static void writeSlips() {
  const std::size_t slips = printDeliverySlips(*state.output, state.header, state.slipName, state.block, state.count);
  if (slips == 0) appWriteStdout(noDeliveriesText);
}

static RunEnd printFile(FormHandle form) {
  if (!openInput(form) || !openPrinter(form) || !countRecords(form) || !takeBlock(form)) return RunEnd::refused;
  // A file that has records and no header that can be read is one with which nothing can go on.
  if (!readHeader(form)) return RunEnd::programEnds;
  if (!readRecords(form)) return RunEnd::refused;
  writeSlips();
  return RunEnd::printed;
}

static void endRun(FormHandle form, RunEnd end) {
  const bool written = closeAllStreams();
  memoryFree(state.block);
  state.block = nullptr;
  if (end == RunEnd::programEnds) return appEnd(1);
  if (end == RunEnd::refused) return forgetFile(form);
  showEndOfRun(form, IDC_DELV_REPLY, written ? completeTitle : boxTitle, completeText, written);
  if (written) showReply(form, IDC_DELV_REPLY, "");
}

static void onPrint(FormHandle form) {
  showReply(form, IDC_DELV_REPLY, replyPrinting);
  endRun(form, printFile(form));
}

// ---- Events -----------------------------------------------------------------------------------------------------------

static constexpr FormFrame frame = {
    .tool = toolDelivery,
    .start = resetForm,
    .load = {IDC_DELV_LOAD, onLoad},
    .print = {IDC_DELV_PRINT, onPrint},
    .cancel = {IDC_DELV_CANCEL, resetForm},
};

void deliveryFormEvent(const FormEvent& event) { reportFormEvent(frame, event); }

}  // namespace quillon
