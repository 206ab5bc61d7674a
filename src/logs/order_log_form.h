// The Order Log form (PRNTORDLOG).
#pragma once

#include "desktop/forms.h"

namespace quillon {

void orderLogFormEvent(const FormEvent& event);

}  // namespace quillon
