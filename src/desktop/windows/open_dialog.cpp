// The standard open-file dialog.
#include "desktop/open_dialog.h"

#include "desktop/windows/common.h"

// After <windows.h>, which common.h brings.
// clang-format off
#include <objbase.h>
#include <shobjidl.h>
// clang-format on

#include <vector>

namespace quillon {

static constexpr std::size_t longestPath = 299;

// The libraries of the dialog bring half the shell with them. They are loaded when the first file is chosen, so that the main
// window does not wait for them.
template <class Function>
static Function* systemFunction(const wchar_t* library, const char* name) {
  const HMODULE module = LoadLibraryExW(library, nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
  return module ? reinterpret_cast<Function*>(reinterpret_cast<void*>(GetProcAddress(module, name))) : nullptr;
}

namespace {

// Something of the shell's, given back at the end.
template <class Interface>
struct Held {
  Interface* it = nullptr;
  Held() = default;
  ~Held() {
    if (it) it->Release();
  }
  Held(const Held&) = delete;
  Held& operator=(const Held&) = delete;
  Interface* operator->() const { return it; }
  void** place() { return reinterpret_cast<void**>(&it); }
};

using OpenDialogOfShell = Held<IFileOpenDialog>;

}  // namespace

// Once for the life of the program: this thread shows windows, and the shell's are among them.
static bool startShell() {
  const auto start = systemFunction<decltype(CoInitializeEx)>(L"ole32.dll", "CoInitializeEx");
  return start && SUCCEEDED(start(nullptr, COINIT_APARTMENTTHREADED | COINIT_DISABLE_OLE1DDE));
}

static bool makeDialog(OpenDialogOfShell& made) {
  static const bool started = startShell();
  const auto create = systemFunction<decltype(CoCreateInstance)>(L"ole32.dll", "CoCreateInstance");
  return started && create &&
         SUCCEEDED(create(__uuidof(FileOpenDialog), nullptr, CLSCTX_INPROC_SERVER, __uuidof(IFileOpenDialog), made.place()));
}

static void setMasks(const OpenDialogOfShell& made, std::span<const FileMask> masks, int selected) {
  std::vector<std::wstring> texts;
  for (const FileMask& mask : masks) {
    texts.push_back(wideFromAnsi(mask.name));
    texts.push_back(wideFromAnsi(mask.pattern));
  }
  std::vector<COMDLG_FILTERSPEC> pairs;
  for (std::size_t i = 0; i < texts.size(); i += 2) pairs.push_back({texts[i].c_str(), texts[i + 1].c_str()});
  if (pairs.empty()) return;
  made->SetFileTypes(static_cast<UINT>(pairs.size()), pairs.data());
  if (selected > 0) made->SetFileTypeIndex(static_cast<UINT>(selected));
}

static bool setFolder(const OpenDialogOfShell& made, const std::wstring& folder) {
  const auto find = systemFunction<decltype(SHCreateItemFromParsingName)>(L"shell32.dll", "SHCreateItemFromParsingName");
  Held<IShellItem> item;
  return find && SUCCEEDED(find(folder.c_str(), nullptr, __uuidof(IShellItem), item.place())) &&
         SUCCEEDED(made->SetFolder(item.it));
}

// The folder is set each time: left to itself, Windows begins where the user was last. One that is not there gives way to the
// current folder.
static void setStart(const OpenDialogOfShell& made, const OpenDialog& dialog) {
  const std::wstring name = wideFromUtf8(dialog.name);
  const std::size_t separator = name.find_last_of(L"/\\");
  const bool hasFolder = separator != std::wstring::npos;
  if (!name.empty()) made->SetFileName(name.c_str() + (hasFolder ? separator + 1 : 0));
  if (hasFolder && setFolder(made, name.substr(0, separator + 1))) return;
  if (!setFolder(made, wideFromUtf8(dialog.folder))) setFolder(made, wideFromUtf8(openDialogCurrentFolder()));
}

// Empty where the user gave up.
static std::wstring show(const OpenDialogOfShell& made, HWND owner) {
  Held<IShellItem> chosen;
  if (FAILED(made->Show(owner)) || FAILED(made->GetResult(&chosen.it))) return {};
  PWSTR text = nullptr;
  if (FAILED(chosen->GetDisplayName(SIGDN_FILESYSPATH, &text))) return {};
  const std::wstring path = text;
  const auto freeText = systemFunction<decltype(CoTaskMemFree)>(L"ole32.dll", "CoTaskMemFree");
  if (freeText) freeText(text);
  return path;
}

static void complain(HWND owner, const std::wstring& title, const wchar_t* text) {
  MessageBoxW(owner, text, title.empty() ? nullptr : title.c_str(), MB_ICONEXCLAMATION);
}

std::optional<std::string> openDialogAsk(const OpenDialog& dialog) {
  const HWND owner = windowsOwnerOf(dialog.owner);
  const InputBlock block(owner);
  const std::wstring title = wideFromAnsi(dialog.title);
  OpenDialogOfShell made;
  if (!makeDialog(made)) {
    complain(owner, title, L"Windows cannot show its open-file dialog.");
    return std::nullopt;
  }
  if (!title.empty()) made->SetTitle(title.c_str());
  setMasks(made, dialog.masks, dialog.selected);
  setStart(made, dialog);
  made->SetOptions(FOS_FORCEFILESYSTEM | FOS_FILEMUSTEXIST | FOS_PATHMUSTEXIST | FOS_NOCHANGEDIR);

  // The current folder stays where it is, whatever the dialog does: reports go there, wherever the input was found.
  const std::wstring current = wideFromUtf8(openDialogCurrentFolder());
  const std::wstring path = show(made, owner);
  SetCurrentDirectoryW(current.c_str());
  if (path.size() > longestPath) {
    complain(owner, title, L"The name of this file, with its folders, is too long.");
    return std::nullopt;
  }
  return path.empty() ? std::nullopt : std::optional(utf8FromWide(path));
}

std::string openDialogCurrentFolder() {
  std::wstring folder(GetCurrentDirectoryW(0, nullptr), L'\0');
  folder.resize(GetCurrentDirectoryW(static_cast<DWORD>(folder.size()), folder.data()));
  return utf8FromWide(folder);
}

}  // namespace quillon
