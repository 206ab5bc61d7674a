#include "report_forms.h"

#include "brokerquery/broker_form.h"
#include "kesto/kesto_form.h"
#include "market/touchlines_form.h"
#include "market/trader_limits_form.h"
#include "position/position_form.h"
#include "trades/trades_form.h"

namespace quillon {

// Tools whose forms are not here have no dialog resource either: pressing them shows "Dialog Creation Failed".
static constexpr FormEntry entries[] = {
    {"PRNTRPT", tradesFormEvent},
    {"PRNTNP", netPositionFormEvent},
    {"PRNTNPRET", slbPositionFormEvent},
    {"PRNTBRKREP", brokerQueryFormEvent},
    {"PRNTTLINE", touchlinesFormEvent},
    {"PRNTTRDLM", traderLimitsFormEvent},
    {"PRNTVQLS", kestoFormEvent},
};

std::span<const FormEntry> reportForms() { return entries; }

}  // namespace quillon
