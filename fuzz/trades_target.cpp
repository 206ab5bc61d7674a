// Arbitrary bytes through the whole run of the form PRNTRPT.

#include "resource.h"
#include "whole_run.h"

namespace quillon::fuzz {

static constexpr int choices[] = {IDC_TRADES_ODDLOT, IDC_TRADES_MARKETLOT, IDC_TRADES_SORT_TIME, IDC_TRADES_SORT_SCRIP_CODE, IDC_TRADES_SORT_SCRIP_ID,
                                 IDC_TRADES_SORT_CLIENT_ID, IDC_TRADES_NETPOS};
static constexpr const char* fileNames[] = {"TR010109.B01", "STR010109.B01", "TO010109.B01"};
static constexpr FormUnderTest form = {
    .resource = "PRNTRPT",
    .load = IDC_TRADES_LOAD,
    .print = IDC_TRADES_PRINT,
    .cancel = IDC_TRADES_CANCEL,
    .outFile = IDC_TRADES_OUTFILE,
    .linesPerPage = IDC_TRADES_LINES,
    .toFile = IDC_TRADES_FILE,
    .choices = choices,
    .fileNames = fileNames,
};

}  // namespace quillon::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  return quillon::fuzz::wholeRun(quillon::fuzz::form, bytes, size);
}
