#include "pages/windows/paths.h"

namespace quillon {

static constexpr std::size_t longestPlain = 247;  // what is left of 259 with a short name in a folder

std::wstring pathWhole(const std::wstring& path) {
  std::wstring whole(path.size() + 32768, L'\0');
  const DWORD size = GetFullPathNameW(path.c_str(), static_cast<DWORD>(whole.size()), whole.data(), nullptr);
  if (size == 0 || size >= whole.size()) return path;
  whole.resize(size);
  return whole;
}

std::wstring pathOfAnyLength(const std::wstring& path) {
  if (path.size() <= longestPlain || path.starts_with(L"\\\\?\\") || path.starts_with(L"\\\\.\\")) return path;
  const std::wstring whole = pathWhole(path);
  return whole.starts_with(L"\\\\") ? L"\\\\?\\UNC" + whole.substr(1) : L"\\\\?\\" + whole;
}

// Where its name begins.
static std::size_t nameStart(const std::wstring& path) {
  const std::size_t found = path.find_last_of(L"\\/:");
  return found == std::wstring::npos ? 0 : found + 1;
}

std::wstring pathFolder(const std::wstring& path) {
  std::wstring folder = path.substr(0, nameStart(path));
  while (folder.size() > 1 && (folder.back() == L'\\' || folder.back() == L'/') && folder[folder.size() - 2] != L':') {
    folder.pop_back();
  }
  return folder;
}

std::wstring pathName(const std::wstring& path) { return path.substr(nameStart(path)); }

std::wstring pathIn(const std::wstring& folder, const std::wstring& name) {
  const bool apart = folder.empty() || folder.back() == L'\\' || folder.back() == L'/';
  return apart ? folder + name : folder + L'\\' + name;
}

bool pathIsFolder(const std::wstring& path) {
  const DWORD attributes = GetFileAttributesW(pathOfAnyLength(path).c_str());
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

}  // namespace quillon
