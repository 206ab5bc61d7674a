// The Trades form (PRNTRPT): a trade file becomes the list of trades, with its net position on request.
#pragma once

#include "desktop/forms.h"

namespace quillon {

void tradesFormEvent(const FormEvent& event);

}  // namespace quillon
