// The name that Convert proposes for its text.
#pragma once

#include <string>

#include "trades/trade_file.h"

namespace quillon {

// Out of the file's own name, without its folder, by the letters of its header; a header that could not be had is all zero. A
// name that is too short for a change is left without it.
std::string convertedName(const TradeHeader& header, std::string fileTitle);

}  // namespace quillon
