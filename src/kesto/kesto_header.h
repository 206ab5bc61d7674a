// What the header of a trades or broker query file must say for the Kesto form, and how it is shown to the user.
#pragma once

#include <cstddef>
#include <string>

#include "trades/trade_file.h"

namespace quillon {

enum class KestoContent { trades, brokerQuery, other };
// By the header's second letter, where the first is that of a Kesto file: 'C' for (R) or 'B' for (W). Otherwise `other`.
KestoContent kestoContentOf(const TradeHeader& header);

// The text of the question "Is it Correct?". `content` is not `other`.
std::string kestoHeaderText(const TradeHeader& header, KestoContent content, std::size_t count);

// The name that the conversion of a file proposes for its output: a broker query's ends in "DAT", any other name has '0' as the
// third character from its end. A name of fewer than three characters stays as it is.
std::string kestoConvertedName(const std::string& fileName, bool brokerQuery);

}  // namespace quillon
