// The Auction form (AUCRPT): five statements of an auction, each from a file of its own kind.
#pragma once

#include "desktop/forms.h"

namespace quillon {

void auctionFormEvent(const FormEvent& event);

}  // namespace quillon
