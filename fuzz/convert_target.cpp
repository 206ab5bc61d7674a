// Arbitrary bytes through the whole run of the form CONVERT.

#include "resource.h"
#include "whole_run.h"

namespace quillon::fuzz {

static constexpr int choices[] = {IDC_CONVERT_NORMAL, IDC_CONVERT_BR, IDC_CONVERT_ORDERS, IDC_CONVERT_CLIENT_RECTIFICATION,
                                  IDC_CONVERT_TYPE_RECTIFICATION};
static constexpr const char* fileNames[] = {"CO250509.B01", "SCO250509.B01", "AB"};
static constexpr FormUnderTest form = {
    .resource = "CONVERT",
    .load = IDC_CONVERT_LOAD,
    .print = IDC_CONVERT_CONVERT,
    .cancel = IDC_CONVERT_CANCEL,
    .outFile = IDC_CONVERT_OUTFILE,
    .choices = choices,
    .fileNames = fileNames,
};

}  // namespace quillon::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  return quillon::fuzz::wholeRun(quillon::fuzz::form, bytes, size);
}
