#include "report_forms.h"

#include "trades/trades_form.h"

namespace quillon {

// Tools whose forms are not here have no dialog resource either: pressing them shows "Dialog Creation Failed".
static constexpr FormEntry entries[] = {
    {"PRNTRPT", tradesFormEvent},
};

std::span<const FormEntry> reportForms() { return entries; }

}  // namespace quillon
