// The Admin Log form (PRNTADMINLOG): any of the four sections of an admin log as reports, one behind the other.
#pragma once

#include "desktop/forms.h"

namespace quillon {

void adminLogFormEvent(const FormEvent& event);

}  // namespace quillon
