// Arbitrary bytes through the whole run of the form PRNTVQLS, in each of its kinds.

#include "resource.h"
#include "whole_run.h"

namespace quillon::fuzz {

static constexpr int choices[] = {IDC_KESTO_SORT_TIME,      IDC_KESTO_SORT_SCRIP_CODE, IDC_KESTO_SORT_SCRIP_ID,
                                  IDC_KESTO_SORT_CLIENT_ID, IDC_KESTO_SORT_DAYS,       IDC_KESTO_SORT_TRADER,
                                  IDC_KESTO_NETPOS};
// The second name is of the lending market, and holds what every kind asks of a name.
static constexpr const char* fileNames[] = {"K.VQT.BIN.DAT.TSL", "S.VQT.BIN.DAT.STRD", "CT010109.B01", "KB"};
static constexpr const char* kinds[] = {"Trades Printing",       "TouchLines Printing",   "Convert",
                                        "Broker Query Printing", "BreakUp Data Printing", "Traders Limit Printing"};
static constexpr FormUnderTest form = {
    .resource = "PRNTVQLS",
    .load = IDC_KESTO_LOAD,
    .print = IDC_KESTO_PRINT,
    .cancel = IDC_KESTO_CANCEL,
    .outFile = IDC_KESTO_OUTFILE,
    .linesPerPage = IDC_KESTO_LINES,
    .toFile = IDC_KESTO_FILE,
    .choices = choices,
    .fileNames = fileNames,
    .kindList = IDC_KESTO_KIND,
    .kinds = kinds,
    .convert = IDC_KESTO_CONVERT,
};

}  // namespace quillon::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  return quillon::fuzz::wholeRun(quillon::fuzz::form, bytes, size);
}
