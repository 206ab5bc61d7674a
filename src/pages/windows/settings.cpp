#include "pages/windows/settings.h"

#include <cwchar>

#include "pages/windows/system.h"

namespace quillon {

static constexpr wchar_t section[] = L"Pages";
static constexpr DWORD longestText = 40000;  // characters; a path has 32767 at most

static std::wstring folder() {
  std::wstring path(GetEnvironmentVariableW(L"APPDATA", nullptr, 0), L'\0');
  if (path.empty()) return {};
  path.resize(GetEnvironmentVariableW(L"APPDATA", path.data(), static_cast<DWORD>(path.size())));
  return path.empty() ? path : path + L"\\Quillon";
}

// Empty where there is no such place. Windows would take a name without a folder for a file of its own.
static std::wstring file() {
  const std::wstring place = folder();
  return place.empty() ? place : place + L"\\quillon-pages.ini";
}

// Windows keeps letters of every language in such a file only when it begins with the mark of UTF-16.
static void make(const std::wstring& path) {
  CreateDirectoryW(folder().c_str(), nullptr);
  const HANDLE made = CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (made == INVALID_HANDLE_VALUE) return;  // it is there already, or cannot be
  static constexpr wchar_t start[] = L"\xFEFF[Pages]\r\n";
  DWORD written = 0;
  WriteFile(made, start, sizeof start - sizeof start[0], &written, nullptr);
  CloseHandle(made);
}

std::wstring settingsText(const wchar_t* name, const wchar_t* usual) {
  const std::wstring path = file();
  if (path.empty()) return usual;
  std::wstring text(256, L'\0');
  for (;;) {
    const DWORD room = static_cast<DWORD>(text.size());
    const DWORD size = GetPrivateProfileStringW(section, name, usual, text.data(), room, path.c_str());
    if (size + 1 < room || room >= longestText) {
      text.resize(size);
      return text;
    }
    text.resize(text.size() * 4);
  }
}

int settingsNumber(const wchar_t* name, int usual) {
  const std::wstring text = settingsText(name, L"");
  wchar_t* end = nullptr;
  const long number = std::wcstol(text.c_str(), &end, 10);
  return text.empty() || *end != L'\0' ? usual : static_cast<int>(number);
}

void settingsKeep(const wchar_t* name, const std::wstring& text) {
  const std::wstring path = file();
  if (path.empty() || text.find_first_of(L"\r\n") != std::wstring::npos) return;
  make(path);
  // Read back, blanks at the ends and one pair of quotes are taken off: with quotes of our own around it every text stays
  // whole.
  WritePrivateProfileStringW(section, name, (L'"' + text + L'"').c_str(), path.c_str());
}

void settingsKeep(const wchar_t* name, int number) { settingsKeep(name, std::to_wstring(number)); }

}  // namespace quillon
