// The words and letters that the logs show for the codes in their records.
//
// A code that no table knows has no text. The reports then repeat what the record before showed in that column; what the
// first record shows is the report's own choice. So these give "nothing" rather than a word of their own.
#pragma once

#include <cstdint>

namespace quillon {

// How long an order stands: "IOC", "EOSESS", "EOTODY", "EOD", "EOSTLM" for 0 to 4. Null for any other code.
const char* retentionText(std::int16_t retention);

// What a letter of column "C" cannot be.
inline constexpr char noLetter = 0;

// 'A' for an order that was added, 'U' updated, 'D' deleted. noLetter for a code that is none of these.
char orderActionLetter(std::int16_t actionCode);
// An event without a limit rate: the rate that its record holds is not shown.
bool actionHasNoLimitRate(std::int16_t actionCode);

// 'A' accepted or 'R' rejected, for the rectification of a client id and that of a client type. noLetter for any other code.
char clientRectificationLetter(std::int16_t actionCode);
char typeRectificationLetter(std::int16_t actionCode);

// The same letters as an order's for a quote, of whose codes there are six.
char quoteActionLetter(std::int16_t actionCode);

// The client type's name by either of its codes; "CLIENT" for a code that is none.
const char* clientTypeName(std::int16_t clientType);

}  // namespace quillon
