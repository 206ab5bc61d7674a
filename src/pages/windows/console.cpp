#include "pages/windows/console.h"

#include <string>

namespace quillon {

static std::wstring withReturns(std::wstring_view text) {
  std::wstring made;
  for (const wchar_t c : text) {
    if (c == L'\n') made += L'\r';
    made += c;
  }
  return made;
}

static bool writeFile(HANDLE file, std::string_view bytes) {
  while (!bytes.empty()) {
    DWORD written = 0;
    if (!WriteFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr) || written == 0) return false;
    bytes.remove_prefix(written);
  }
  return true;
}

static bool writeTo(HANDLE to, const std::wstring& text) {
  DWORD mode = 0;
  if (!GetConsoleMode(to, &mode)) return writeFile(to, utf8FromWide(text));
  DWORD written = 0;
  return WriteConsoleW(to, text.data(), static_cast<DWORD>(text.size()), &written, nullptr) != 0;
}

static bool isThere(HANDLE handle) {
  return handle && handle != INVALID_HANDLE_VALUE && GetFileType(handle) != FILE_TYPE_UNKNOWN;
}

bool consoleTell(DWORD which, std::wstring_view text) {
  const std::wstring lines = withReturns(text);
  if (const HANDLE given = GetStdHandle(which); isThere(given)) return writeTo(given, lines);
  if (!AttachConsole(ATTACH_PARENT_PROCESS)) return false;
  const HANDLE console = CreateFileW(L"CONOUT$", GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                     OPEN_EXISTING, 0, nullptr);
  const bool told = console != INVALID_HANDLE_VALUE && writeTo(console, lines);
  if (console != INVALID_HANDLE_VALUE) CloseHandle(console);
  FreeConsole();
  return told;
}

bool somebodyIsThere() {
  USEROBJECTFLAGS flags = {};
  return GetUserObjectInformationW(GetProcessWindowStation(), UOI_FLAGS, &flags, sizeof flags, nullptr) &&
         (flags.dwFlags & WSF_VISIBLE) != 0;
}

}  // namespace quillon
