// The Quote Log form (PRNTQUOTELOG).
#pragma once

#include "desktop/forms.h"

namespace quillon {

void quoteLogFormEvent(const FormEvent& event);

}  // namespace quillon
