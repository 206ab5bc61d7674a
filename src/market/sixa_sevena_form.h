// The 6A7A form (PRNTSIXASEVENA): one file of 6A/7A entries, updatable or non-updatable, becomes a table of them.
#pragma once

#include "desktop/forms.h"

namespace quillon {

void sixaSevenaFormEvent(const FormEvent& event);

}  // namespace quillon
