// The Breakup Data form (PRNTBRKUP): one breakup file, Normal or Kesto, becomes a table of each scrip's figures by client type.
#pragma once

#include "desktop/forms.h"

namespace quillon {

void breakupFormEvent(const FormEvent& event);

}  // namespace quillon
