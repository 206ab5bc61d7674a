// The Broker Query form (PRNTBRKREP): a broker query file becomes the list of trades, with its net position on request.
#pragma once

#include "desktop/forms.h"

namespace quillon {

void brokerQueryFormEvent(const FormEvent& event);

}  // namespace quillon
