// The Kesto Net Position form (PRNTNETPOS).
#pragma once

#include "desktop/forms.h"

namespace quillon {

void kestoNetPositionFormEvent(const FormEvent& event);

}  // namespace quillon
