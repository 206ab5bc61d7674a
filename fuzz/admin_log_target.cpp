// Arbitrary bytes through the whole run of the form PRNTADMINLOG.

#include "resource.h"
#include "whole_run.h"

namespace quillon::fuzz {

static constexpr int choices[] = {IDC_ADMLOG_TRADERS,    IDC_ADMLOG_SCRIPS,    IDC_ADMLOG_GROUPS,
                                  IDC_ADMLOG_ACTIVITIES, IDC_ADMLOG_SORT_TIME, IDC_ADMLOG_SORT_TRADER};
static constexpr const char* fileNames[] = {"Ad010109.adl", "SAd010109.adl", "Ad010109.ADL"};
static constexpr FormUnderTest form = {
    .resource = "PRNTADMINLOG",
    .load = IDC_ADMLOG_LOAD,
    .print = IDC_ADMLOG_PRINT,
    .cancel = IDC_ADMLOG_CANCEL,
    .outFile = IDC_ADMLOG_OUTFILE,
    .linesPerPage = IDC_ADMLOG_LINES,
    .toFile = IDC_ADMLOG_FILE,
    .choices = choices,
    .fileNames = fileNames,
};

}  // namespace quillon::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  return quillon::fuzz::wholeRun(quillon::fuzz::form, bytes, size);
}
