#include "pages/report_samples.h"

namespace quillon {

// Enough that a report of the same form about other records differs in one of them; few enough to look at every second.
static constexpr std::size_t samplePlaces = 16;
static constexpr std::size_t sampleSize = 64;

std::string reportSamples(std::string_view bytes) {
  if (bytes.size() <= samplePlaces * sampleSize) return std::string(bytes);
  std::string samples;
  const std::size_t last = bytes.size() - sampleSize;
  for (std::size_t i = 0; i < samplePlaces; ++i) {
    const std::size_t steps = samplePlaces - 1;
    samples += bytes.substr(last / steps * i + last % steps * i / steps, sampleSize);
  }
  return samples;
}

bool reportContinues(std::string_view samples, std::uint64_t size, std::string_view bytes) {
  return size <= bytes.size() && reportSamples(bytes.substr(0, size)) == samples;
}

}  // namespace quillon
