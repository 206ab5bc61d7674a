// The string table of the resources.
#pragma once

#include <cstddef>
#include <optional>
#include <string>

namespace quillon {

// The string with this id, cut to `limit` - 1 characters; nothing where there is no such string.
std::optional<std::string> stringLoad(int id, std::size_t limit);

}  // namespace quillon
