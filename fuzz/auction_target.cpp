// Arbitrary bytes through the whole run of the form AUCRPT.

#include "resource.h"
#include "whole_run.h"

namespace quillon::fuzz {

static constexpr int choices[] = {IDC_AUC_MONEY,       IDC_AUC_DELIVERY,        IDC_AUC_OFFERS,
                                  IDC_AUC_BDA,         IDC_AUC_ENTITLEMENTS,    IDC_AUC_SORT_SCRIP_NAME,
                                  IDC_AUC_SORT_MEMBER, IDC_AUC_SORT_OPP_MEMBER, IDC_AUC_SORT_SCRIP_CODE};
// Names that pass for every report. The offer status file that the money statement wants beside its own is the same file: its
// name has the right letters twelve places from the end.
static constexpr const char* fileNames[] = {"MONYDELYCLBDENTLOFFS0101.001", "MONYDELYCLBDENTLOFFS0101.S01",
                                            "SONYMONYDELYOFFS0101.001", "MONY0101.001"};
static constexpr FormUnderTest form = {
    .resource = "AUCRPT",
    .load = IDC_AUC_LOAD,
    .print = IDC_AUC_PRINT,
    .cancel = IDC_AUC_CANCEL,
    .outFile = IDC_AUC_OUTFILE,
    .linesPerPage = IDC_AUC_LINES,
    .toFile = IDC_AUC_FILE,
    .choices = choices,
    .fileNames = fileNames,
};

}  // namespace quillon::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  return quillon::fuzz::wholeRun(quillon::fuzz::form, bytes, size);
}
