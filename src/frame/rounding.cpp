#include "frame/rounding.h"

#include <cmath>
#include <limits>

namespace quillon {

// Toward zero, held within the range of 64 bits.
static std::int64_t wholePart(double x) {
  constexpr double beyond = 9223372036854775808.0;  // 2 to the 63rd, the first value that does not fit
  if (std::isnan(x)) return 0;
  if (x >= beyond) return std::numeric_limits<std::int64_t>::max();
  if (x < -beyond) return std::numeric_limits<std::int64_t>::min();
  return static_cast<std::int64_t>(x);
}

std::int64_t roundHalfAway(double x) {
  const double t = std::trunc(x * 100.0);
  if (t < 0) return std::fmod(-t, 100.0) >= 50.0 ? wholePart(-(-x + 1.0)) : wholePart(x);
  return std::fmod(t, 100.0) >= 50.0 ? wholePart(x + 1.0) : wholePart(x);
}

}  // namespace quillon
