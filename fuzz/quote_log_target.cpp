// Arbitrary bytes through the whole run of the form PRNTQUOTELOG.

#include "resource.h"
#include "whole_run.h"

namespace quillon::fuzz {

static constexpr int choices[] = {IDC_QUOTELOG_SORT_SCRIP_CODE, IDC_QUOTELOG_SORT_SCRIP_ID, IDC_QUOTELOG_SORT_BID_CLIENT_ID,
                                  IDC_QUOTELOG_SORT_OFFER_CLIENT_ID, IDC_QUOTELOG_SORT_TIME};
static constexpr const char* fileNames[] = {"QO250509.LOG", "SQO250509.LOG"};
static constexpr FormUnderTest form = {
    .resource = "PRNTQUOTELOG",
    .load = IDC_QUOTELOG_LOAD,
    .print = IDC_QUOTELOG_PRINT,
    .cancel = IDC_QUOTELOG_CANCEL,
    .outFile = IDC_QUOTELOG_OUTFILE,
    .linesPerPage = IDC_QUOTELOG_LINES,
    .toFile = IDC_QUOTELOG_FILE,
    .choices = choices,
    .fileNames = fileNames,
};

}  // namespace quillon::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  return quillon::fuzz::wholeRun(quillon::fuzz::form, bytes, size);
}
