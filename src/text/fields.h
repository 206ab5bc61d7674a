// Text fields of the workstation's records: NUL-terminated within their width, where there is room for the NUL.
#pragma once

#include <cstddef>
#include <cstring>
#include <string_view>

namespace quillon {

// A text field of N bytes in a packed record. Bytes behind the first NUL are not part of the text; a field without a NUL is
// all text.
template <std::size_t N>
struct TextField {
  char bytes[N];

  std::string_view view() const {
    const void* end = std::memchr(bytes, 0, N);
    return {bytes, end ? static_cast<std::size_t>(static_cast<const char*>(end) - bytes) : N};
  }
};

// Puts `text` into the field, cut to leave room for a NUL, and clears the rest.
template <std::size_t N>
void fieldSet(TextField<N>& field, std::string_view text) {
  const std::size_t size = text.size() < N - 1 ? text.size() : N - 1;
  std::memset(field.bytes, 0, N);
  if (size > 0) std::memcpy(field.bytes, text.data(), size);
}

}  // namespace quillon
