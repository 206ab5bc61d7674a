// The Trader Limits form (PRNTTRDLM): one trader limits file, Normal or Kesto, by trader or by scrip.
#pragma once

#include "desktop/forms.h"

namespace quillon {

void traderLimitsFormEvent(const FormEvent& event);

}  // namespace quillon
