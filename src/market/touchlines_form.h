// The Touchlines form (PRNTTLINE): one saved touchlines file, Normal or Kesto, becomes a table of its scrips.
#pragma once

#include "desktop/forms.h"

namespace quillon {

void touchlinesFormEvent(const FormEvent& event);

}  // namespace quillon
