// Arbitrary bytes through the whole run of the form DELV.

#include "resource.h"
#include "whole_run.h"

namespace quillon::fuzz {

static constexpr const char* fileNames[] = {"DELY0101.215", "DELY0101.S12", "D.B", "NAMEWITHOUTDOT"};
static constexpr FormUnderTest form = {
    .resource = "DELV",
    .load = IDC_DELV_LOAD,
    .print = IDC_DELV_PRINT,
    .cancel = IDC_DELV_CANCEL,
    .fileNames = fileNames,
};

}  // namespace quillon::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  return quillon::fuzz::wholeRun(quillon::fuzz::form, bytes, size);
}
