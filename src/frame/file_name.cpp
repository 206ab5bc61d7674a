#include "frame/file_name.h"

#include <algorithm>
#include <string>

#include "text/letters.h"

namespace quillon {

bool fileNameHolds(std::string_view path, std::initializer_list<std::string_view> pieces) {
  const std::string folded = upperCased(path);
  return std::any_of(pieces.begin(), pieces.end(),
                     [&folded](std::string_view piece) { return folded.find(piece) != std::string::npos; });
}

}  // namespace quillon
