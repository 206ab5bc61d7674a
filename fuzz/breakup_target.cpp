// Arbitrary bytes through the whole run of the form PRNTBRKUP.

#include "resource.h"
#include "whole_run.h"

namespace quillon::fuzz {

static constexpr int choices[] = {IDC_BRKUP_NORMAL, IDC_BRKUP_KESTO, IDC_BRKUP_SORT};
static constexpr const char* fileNames[] = {"BU010109.DAT", "SU250509.DAT", "BU.TXT"};
static constexpr FormUnderTest form = {
    .resource = "PRNTBRKUP",
    .load = IDC_BRKUP_LOAD,
    .print = IDC_BRKUP_PRINT,
    .cancel = IDC_BRKUP_CANCEL,
    .outFile = IDC_BRKUP_OUTFILE,
    .linesPerPage = IDC_BRKUP_LINES,
    .toFile = IDC_BRKUP_FILE,
    .choices = choices,
    .fileNames = fileNames,
};

}  // namespace quillon::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  return quillon::fuzz::wholeRun(quillon::fuzz::form, bytes, size);
}
