// Arbitrary bytes through the whole run of the form PRNTORDLOG.

#include "resource.h"
#include "whole_run.h"

namespace quillon::fuzz {

static constexpr int choices[] = {IDC_ORDLOG_CLIENT_RECTIFICATION, IDC_ORDLOG_TYPE_RECTIFICATION, IDC_ORDLOG_ORDERS,
                                  IDC_ORDLOG_SORT_SCRIP_CODE,      IDC_ORDLOG_SORT_SCRIP_ID,      IDC_ORDLOG_SORT_CLIENT_ID,
                                  IDC_ORDLOG_SORT_TIME};
static constexpr const char* fileNames[] = {"OR250509.LOG", "SOR250509.LOG", "BO250509.BIN"};
static constexpr FormUnderTest form = {
    .resource = "PRNTORDLOG",
    .load = IDC_ORDLOG_LOAD,
    .print = IDC_ORDLOG_PRINT,
    .cancel = IDC_ORDLOG_CANCEL,
    .outFile = IDC_ORDLOG_OUTFILE,
    .linesPerPage = IDC_ORDLOG_LINES,
    .toFile = IDC_ORDLOG_FILE,
    .choices = choices,
    .fileNames = fileNames,
};

}  // namespace quillon::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  return quillon::fuzz::wholeRun(quillon::fuzz::form, bytes, size);
}
