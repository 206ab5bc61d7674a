#include "report_forms.h"

#include "brokerquery/broker_form.h"
#include "position/position_form.h"
#include "trades/trades_form.h"

namespace quillon {

// Tools whose forms are not here have no dialog resource either: pressing them shows "Dialog Creation Failed".
static constexpr FormEntry entries[] = {
    {"PRNTRPT", tradesFormEvent},
    {"PRNTNP", netPositionFormEvent},
    {"PRNTNPRET", slbPositionFormEvent},
    {"PRNTBRKREP", brokerQueryFormEvent},
};

std::span<const FormEntry> reportForms() { return entries; }

}  // namespace quillon
