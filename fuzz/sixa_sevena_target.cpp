// Arbitrary bytes through the whole run of the form PRNTSIXASEVENA.

#include "resource.h"
#include "whole_run.h"

namespace quillon::fuzz {

static constexpr int choices[] = {IDC_6A7A_UPDATABLE, IDC_6A7A_NON_UPDATABLE};
static constexpr const char* fileNames[] = {"6A010109.UPD", "6A010109.SUPD", "6A010109.NUP", "6A010109.SNUP"};
static constexpr FormUnderTest form = {
    .resource = "PRNTSIXASEVENA",
    .load = IDC_6A7A_LOAD,
    .print = IDC_6A7A_PRINT,
    .cancel = IDC_6A7A_CANCEL,
    .outFile = IDC_6A7A_OUTFILE,
    .linesPerPage = IDC_6A7A_LINES,
    .toFile = IDC_6A7A_FILE,
    .choices = choices,
    .fileNames = fileNames,
};

}  // namespace quillon::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  return quillon::fuzz::wholeRun(quillon::fuzz::form, bytes, size);
}
