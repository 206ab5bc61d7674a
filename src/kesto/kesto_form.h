// The Kesto form (PRNTVQLS).
#pragma once

#include "desktop/forms.h"

namespace quillon {

void kestoFormEvent(const FormEvent& event);

}  // namespace quillon
