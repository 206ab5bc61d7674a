// Arbitrary bytes through the whole run of the form PRNTNETPOS.

#include "resource.h"
#include "whole_run.h"

namespace quillon::fuzz {

static constexpr int choices[] = {IDC_KNETPOS_CLIENT, IDC_KNETPOS_SCRIP, IDC_KNETPOS_CLIENT_SCRIP, IDC_KNETPOS_SCRIP_CLIENT};
static constexpr const char* fileNames[] = {"CT010109.B01", "SCT010109.B01"};
static constexpr FormUnderTest form = {
    .resource = "PRNTNETPOS",
    .load = IDC_KNETPOS_LOAD,
    .print = IDC_KNETPOS_PRINT,
    .cancel = IDC_KNETPOS_CANCEL,
    .outFile = IDC_KNETPOS_OUTFILE,
    .linesPerPage = IDC_KNETPOS_LINES,
    .toFile = IDC_KNETPOS_FILE,
    .choices = choices,
    .fileNames = fileNames,
};

}  // namespace quillon::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  return quillon::fuzz::wholeRun(quillon::fuzz::form, bytes, size);
}
