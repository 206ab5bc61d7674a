// Windows, and the way between its wide characters and UTF-8.
#pragma once

#include <windows.h>

// Both need what <windows.h> declares.
#include <commctrl.h>
#include <windowsx.h>

#include <string>
#include <string_view>

namespace quillon {

inline std::wstring wideFromUtf8(std::string_view text) {
  const int size = static_cast<int>(text.size());
  std::wstring wide(static_cast<std::size_t>(MultiByteToWideChar(CP_UTF8, 0, text.data(), size, nullptr, 0)), L'\0');
  MultiByteToWideChar(CP_UTF8, 0, text.data(), size, wide.data(), static_cast<int>(wide.size()));
  return wide;
}

inline std::string utf8FromWide(std::wstring_view wide) {
  const int size = static_cast<int>(wide.size());
  std::string text(static_cast<std::size_t>(WideCharToMultiByte(CP_UTF8, 0, wide.data(), size, nullptr, 0, nullptr, nullptr)),
                   '\0');
  WideCharToMultiByte(CP_UTF8, 0, wide.data(), size, text.data(), static_cast<int>(text.size()), nullptr, nullptr);
  return text;
}

}  // namespace quillon
