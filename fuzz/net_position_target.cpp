// Arbitrary bytes through the whole run of the form PRNTNP.

#include "resource.h"
#include "whole_run.h"

namespace quillon::fuzz {

static constexpr int choices[] = {IDC_NETPOS_CLIENT, IDC_NETPOS_SCRIP, IDC_NETPOS_CLIENT_SCRIP, IDC_NETPOS_SCRIP_CLIENT};
static constexpr const char* fileNames[] = {"TR010109.B01", "STR010109.B01"};
static constexpr FormUnderTest form = {
    .resource = "PRNTNP",
    .load = IDC_NETPOS_LOAD,
    .print = IDC_NETPOS_PRINT,
    .cancel = IDC_NETPOS_CANCEL,
    .outFile = IDC_NETPOS_OUTFILE,
    .linesPerPage = IDC_NETPOS_LINES,
    .toFile = IDC_NETPOS_FILE,
    .choices = choices,
    .fileNames = fileNames,
};

}  // namespace quillon::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  return quillon::fuzz::wholeRun(quillon::fuzz::form, bytes, size);
}
