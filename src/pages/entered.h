// Numbers as users type them, on the command line and in the print dialog.
#pragma once

#include <cstddef>
#include <string_view>

namespace quillon {

inline constexpr double widestMargin = 500;       // millimetres
inline constexpr double largestEnteredFont = 72;  // points
inline constexpr std::size_t mostCopies = 999;

// A whole number from `least` to `most`, nothing else around it. False otherwise, and `value` stays.
[[nodiscard]] bool enteredCount(std::string_view text, std::size_t least, std::size_t most, std::size_t& value);
// A length such as "8", "8.5" or "8,5", whatever the language of Windows.
[[nodiscard]] bool enteredLength(std::string_view text, double least, double most, double& value);

}  // namespace quillon
