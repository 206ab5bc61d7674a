// The string table in the program's own resources.
#include "desktop/strings.h"

#include "desktop/windows/common.h"

namespace quillon {

std::optional<std::string> stringLoad(int id, std::size_t limit) {
  // With a size of 0 the call gives the address of the text inside the resource, and its length.
  const wchar_t* text = nullptr;
  const int length = LoadStringW(windowsInstance(), static_cast<UINT>(id), reinterpret_cast<wchar_t*>(&text), 0);
  if (length <= 0) return std::nullopt;
  std::string bytes = ansiFromWide({text, static_cast<std::size_t>(length)});
  if (limit > 0 && bytes.size() > limit - 1) bytes.resize(limit - 1);
  return bytes;
}

}  // namespace quillon
