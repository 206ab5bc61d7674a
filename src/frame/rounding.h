// Rounding of averages, as the net position reports of the exchange's normal market do it.
#pragma once

#include <cstdint>

namespace quillon {

// To a whole number, halves away from zero; only the first two decimals of `x` decide, so that 1234.4999 is taken down as
// well as 1234.49. The forms pass an average already multiplied by 100 and so get hundredths. A value beyond 64 bits gives
// the end of their range, and what is no number gives 0.
std::int64_t roundHalfAway(double x);

}  // namespace quillon
