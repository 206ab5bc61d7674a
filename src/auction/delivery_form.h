// The Delivery form (DELV): the slips of what the member delivers after an auction.
#pragma once

#include "desktop/forms.h"

namespace quillon {

void deliveryFormEvent(const FormEvent& event);

}  // namespace quillon
