// Arbitrary bytes through the whole run of the form PRNTNPRET.

#include "resource.h"
#include "whole_run.h"

namespace quillon::fuzz {

static constexpr int choices[] = {IDC_SLB_CLIENT, IDC_SLB_SCRIP, IDC_SLB_CLIENT_SCRIP, IDC_SLB_SCRIP_CLIENT};
static constexpr const char* fileNames[] = {"STR010109.B01", "TR010109.B01"};
static constexpr FormUnderTest form = {
    .resource = "PRNTNPRET",
    .load = IDC_SLB_LOAD,
    .print = IDC_SLB_PRINT,
    .cancel = IDC_SLB_CANCEL,
    .outFile = IDC_SLB_OUTFILE,
    .linesPerPage = IDC_SLB_LINES,
    .toFile = IDC_SLB_FILE,
    .choices = choices,
    .fileNames = fileNames,
};

}  // namespace quillon::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  return quillon::fuzz::wholeRun(quillon::fuzz::form, bytes, size);
}
