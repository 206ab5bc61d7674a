// Arbitrary bytes through the whole run of the form PRNTBRKREP.

#include "resource.h"
#include "whole_run.h"

namespace quillon::fuzz {

static constexpr int choices[] = {IDC_BRKQRY_SORT_TIME, IDC_BRKQRY_SORT_SCRIP_CODE, IDC_BRKQRY_SORT_SCRIP_ID, IDC_BRKQRY_SORT_CLIENT_ID,
                                 IDC_BRKQRY_SORT_TRADER, IDC_BRKQRY_NETPOS};
static constexpr const char* fileNames[] = {"BR010109.BIN", "SBR010109.BIN"};
static constexpr FormUnderTest form = {
    .resource = "PRNTBRKREP",
    .load = IDC_BRKQRY_LOAD,
    .print = IDC_BRKQRY_PRINT,
    .cancel = IDC_BRKQRY_CANCEL,
    .outFile = IDC_BRKQRY_OUTFILE,
    .linesPerPage = IDC_BRKQRY_LINES,
    .toFile = IDC_BRKQRY_FILE,
    .choices = choices,
    .fileNames = fileNames,
};

}  // namespace quillon::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  return quillon::fuzz::wholeRun(quillon::fuzz::form, bytes, size);
}
