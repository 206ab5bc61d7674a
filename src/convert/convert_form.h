// The Convert form (CONVERT).
#pragma once

#include "desktop/forms.h"

namespace quillon {

void convertFormEvent(const FormEvent& event);

}  // namespace quillon
