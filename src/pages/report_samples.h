// Whether a report that has become longer is the one that was read, with more behind it, or another one that was written in its
// place: quillon.exe writes a report anew under the same name, and a new one may be longer than the old.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace quillon {

// A few hundred bytes from evenly spread places of a report, its first and its last bytes among them. Of a short report all of
// it.
std::string reportSamples(std::string_view bytes);

// True when what is now the beginning of `bytes`, `size` bytes of it, gives the same samples. False where there are fewer.
bool reportContinues(std::string_view samples, std::uint64_t size, std::string_view bytes);

}  // namespace quillon
