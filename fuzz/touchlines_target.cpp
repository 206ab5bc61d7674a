// Arbitrary bytes through the whole run of the form PRNTTLINE.

#include "resource.h"
#include "whole_run.h"

namespace quillon::fuzz {

static constexpr int choices[] = {IDC_TLINE_SORT_SCRIP_CODE, IDC_TLINE_SORT_SCRIP_ID, IDC_TLINE_NORMAL, IDC_TLINE_KESTO};
static constexpr const char* fileNames[] = {"TL010109.SAV", "TL010109.SSAV", "TL.TXT"};
static constexpr FormUnderTest form = {
    .resource = "PRNTTLINE",
    .load = IDC_TLINE_LOAD,
    .print = IDC_TLINE_PRINT,
    .cancel = IDC_TLINE_CANCEL,
    .outFile = IDC_TLINE_OUTFILE,
    .linesPerPage = IDC_TLINE_LINES,
    .toFile = IDC_TLINE_FILE,
    .choices = choices,
    .fileNames = fileNames,
};

}  // namespace quillon::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  return quillon::fuzz::wholeRun(quillon::fuzz::form, bytes, size);
}
