// The standard open-file dialog.
#include "desktop/open_dialog.h"

#include <algorithm>
#include <array>

#include "desktop/windows/common.h"

// After <windows.h>, which common.h brings.
// clang-format off
#include <cderr.h>
#include <commdlg.h>
// clang-format on

namespace quillon {

static constexpr std::size_t pathSize = 300;  // with its end mark

// Pairs of name and pattern, each ended by a NUL, and one more at the end.
static std::wstring filterText(std::span<const FileMask> masks) {
  std::wstring filter;
  for (const FileMask& mask : masks) {
    filter += wideFromAnsi(mask.name);
    filter += L'\0';
    filter += wideFromAnsi(mask.pattern);
    filter += L'\0';
  }
  filter += L'\0';
  return filter;
}

// The library of the dialog brings half the shell with it. It is loaded when the first file is chosen, so that the main window
// does not wait for it.
template <class Function>
static Function* commonDialog(const char* name) {
  static const HMODULE library = LoadLibraryExW(L"comdlg32.dll", nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
  return library ? reinterpret_cast<Function*>(reinterpret_cast<void*>(GetProcAddress(library, name))) : nullptr;
}

std::optional<std::string> openDialogAsk(const OpenDialog& dialog) {
  const HWND owner = windowsOwnerOf(dialog.owner);
  const InputBlock block(owner);
  const std::wstring filter = filterText(dialog.masks);
  const std::wstring title = wideFromAnsi(dialog.title);
  const std::wstring folder = wideFromUtf8(dialog.folder);
  std::array<wchar_t, pathSize> path = {};
  const std::wstring name = wideFromUtf8(dialog.name);
  if (name.size() < path.size()) std::copy(name.begin(), name.end(), path.begin());

  OPENFILENAMEW ask = {};
  ask.lStructSize = sizeof ask;
  ask.hwndOwner = owner;
  ask.lpstrFilter = dialog.masks.empty() ? nullptr : filter.c_str();
  ask.nFilterIndex = static_cast<DWORD>(dialog.selected);
  ask.lpstrFile = path.data();
  ask.nMaxFile = static_cast<DWORD>(path.size());
  ask.lpstrInitialDir = folder.c_str();
  ask.lpstrTitle = dialog.title.empty() ? nullptr : title.c_str();
  ask.Flags = OFN_EXPLORER | OFN_FILEMUSTEXIST | OFN_PATHMUSTEXIST | OFN_HIDEREADONLY | OFN_NOCHANGEDIR;

  const auto askForFile = commonDialog<decltype(GetOpenFileNameW)>("GetOpenFileNameW");
  const auto lastError = commonDialog<decltype(CommDlgExtendedError)>("CommDlgExtendedError");
  // The current folder stays where it is: reports go there, wherever the input was found. Windows does not promise that the
  // flag binds this dialog.
  const std::wstring current = wideFromUtf8(openDialogCurrentFolder());
  const bool chosen = askForFile && askForFile(&ask);
  SetCurrentDirectoryW(current.c_str());
  if (chosen) return utf8FromWide(path.data());
  if (lastError && lastError() == FNERR_BUFFERTOOSMALL) {
    MessageBoxW(ask.hwndOwner, L"The name of this file, with its folders, is too long.", ask.lpstrTitle, MB_ICONEXCLAMATION);
  }
  return std::nullopt;
}

std::string openDialogCurrentFolder() {
  std::wstring folder(GetCurrentDirectoryW(0, nullptr), L'\0');
  folder.resize(GetCurrentDirectoryW(static_cast<DWORD>(folder.size()), folder.data()));
  return utf8FromWide(folder);
}

}  // namespace quillon
