#include "market/file_name.h"

#include <algorithm>
#include <string>

namespace quillon {

static char upperCase(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }

bool fileNameHolds(std::string_view path, std::initializer_list<std::string_view> pieces) {
  std::string folded(path);
  std::transform(folded.begin(), folded.end(), folded.begin(), upperCase);
  return std::any_of(pieces.begin(), pieces.end(),
                     [&folded](std::string_view piece) { return folded.find(piece) != std::string::npos; });
}

}  // namespace quillon
