// Arbitrary bytes through the whole run of the form PRNTTRDLM.

#include "resource.h"
#include "whole_run.h"

namespace quillon::fuzz {

static constexpr int choices[] = {IDC_TRDLIM_NORMAL, IDC_TRDLIM_KESTO};
static constexpr const char* fileNames[] = {"TD010109.TRD", "TD010109.STRD", "TD010109.TSL", "TD010109.STSL", "TD.TXT"};
static constexpr FormUnderTest form = {
    .resource = "PRNTTRDLM",
    .load = IDC_TRDLIM_LOAD,
    .print = IDC_TRDLIM_PRINT,
    .cancel = IDC_TRDLIM_CANCEL,
    .outFile = IDC_TRDLIM_OUTFILE,
    .linesPerPage = IDC_TRDLIM_LINES,
    .toFile = IDC_TRDLIM_FILE,
    .choices = choices,
    .fileNames = fileNames,
};

}  // namespace quillon::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  return quillon::fuzz::wholeRun(quillon::fuzz::form, bytes, size);
}
