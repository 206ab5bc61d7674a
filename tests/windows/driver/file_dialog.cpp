// The open-file dialog.
#include <algorithm>
#include <array>
#include <filesystem>
#include <iterator>
#include <optional>
#include <string>
#include <vector>

#include "dialogs.h"
#include "program.h"
#include "texts.h"

namespace driving {

static std::wstring currentFolder() {
  wchar_t folder[MAX_PATH] = {};
  GetCurrentDirectoryW(MAX_PATH, folder);
  return folder;
}

// ---- In which folder it stands -----------------------------------------------------------------------------------------

// The dialog keeps its folder to itself, but lists what is in it. So each folder below the current one gets a folder whose name
// tells it, for the length of the driver's life.
static constexpr wchar_t markWord[] = L"~this folder is ";

static std::vector<std::wstring> marks;

static void mark(const std::filesystem::path& folder) {
  std::wstring name = std::filesystem::relative(folder).wstring();
  std::replace(name.begin(), name.end(), L'\\', L'+');
  const std::wstring path = (folder / (markWord + name)).wstring();
  if (CreateDirectoryW(path.c_str(), nullptr)) marks.push_back(path);
}

void markFolders() {
  const std::filesystem::path current = currentFolder();
  std::vector<std::filesystem::path> folders = {current};
  for (const auto& entry : std::filesystem::recursive_directory_iterator(current)) {
    if (entry.is_directory() && !entry.path().filename().wstring().starts_with(markWord)) folders.push_back(entry.path());
  }
  for (const auto& folder : folders) mark(folder);
}

void unmarkFolders() {
  for (const std::wstring& path : marks) RemoveDirectoryW(path.c_str());
  marks.clear();
}

static HWND listOf(HWND dialog) {
  HWND list = nullptr;
  const auto look = [](HWND window, LPARAM found) -> BOOL {
    if (classOf(window) == WC_LISTVIEWW) *reinterpret_cast<HWND*>(found) = window;
    return TRUE;
  };
  EnumChildWindows(dialog, look, reinterpret_cast<LPARAM>(&list));
  return list;
}

static std::wstring nameInList(HWND list, int index) {
  struct Asked {
    LVITEMW what;
    std::array<wchar_t, MAX_PATH> text;
  } asked = {};
  const RemoteMemory memory(sizeof asked);
  asked.what.pszText = reinterpret_cast<Asked*>(memory.address)->text.data();
  asked.what.cchTextMax = MAX_PATH;
  memory.write(&asked, sizeof asked);
  ask(list, LVM_GETITEMTEXTW, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(memory.address));
  memory.read(&asked, sizeof asked);
  return asked.text.data();
}

static std::wstring markIn(HWND dialog) {
  const HWND list = listOf(dialog);
  const LRESULT count = list ? ask(list, LVM_GETITEMCOUNT) : 0;
  for (int i = 0; i < count; ++i) {
    const std::wstring name = nameInList(list, i);
    if (name.starts_with(markWord)) return name.substr(std::size(markWord) - 1);
  }
  return {};
}

// As seen from the current folder, which the program shares. Empty where it is not below that.
static std::wstring folderOf(HWND dialog) {
  constexpr ULONGLONG patience = 3'000;  // until the list is filled
  const ULONGLONG end = GetTickCount64() + patience;
  std::wstring folder = markIn(dialog);
  while (folder.empty() && GetTickCount64() < end) {
    Sleep(pollStep);
    folder = markIn(dialog);
  }
  std::replace(folder.begin(), folder.end(), L'+', L'\\');
  return folder;
}

// ---- Its answer --------------------------------------------------------------------------------------------------------

static std::wstring withoutFolder(const std::wstring& path) { return path.substr(path.find_last_of(L"/\\") + 1); }

static HWND nameEdit(HWND dialog) {
  const HWND edit = GetDlgItem(dialog, edt1);
  return edit ? edit : GetDlgItem(dialog, cmb13);
}

// Typed as a user types it who knows where the file is. False where the dialog refuses it and stays.
static bool enterFile(HWND dialog, const std::wstring& file) {
  std::wstring path = file;
  std::replace(path.begin(), path.end(), L'/', L'\\');
  const bool whole = path.size() > 1 && (path[1] == L':' || path[0] == L'\\');
  if (!whole) path = currentFolder() + L'\\' + path;
  ask(nameEdit(dialog), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(path.c_str()));
  PostMessageW(GetDlgItem(dialog, IDOK), BM_CLICK, 0, 0);
  HWND complaint = nullptr;
  waitFor("the open-file dialog to take a file", commandDeadline, [&] {
    if (!IsWindow(dialog)) return true;
    for (HWND window : topWindows()) {
      if (window != dialog && GetWindow(window, GW_OWNER) == dialog && classOf(window) == L"#32770") complaint = window;
    }
    return complaint != nullptr;
  });
  if (!complaint) return true;
  pressAndWait(complaint, GetDlgItem(complaint, IDOK) ? IDOK : IDCANCEL);
  return false;
}

void answerFiles(HWND dialog) {
  expectBlocked(dialog);
  interrupt();
  std::optional<std::wstring> answer;
  if (!driver.files.empty()) {
    answer = driver.files.front();
    driver.files.pop_front();
  }
  writeChanges();
  const std::string owner = '"' + ownerOf(dialog) + '"';
  std::string pieces;
  add(pieces, "title", json(textOf(dialog)));
  add(pieces, "folder", json(folderOf(dialog)));
  const HWND list = GetDlgItem(dialog, cmb1);
  std::string masks;
  for (LRESULT i = 0; i < ask(list, CB_GETCOUNT); ++i) masks += (masks.empty() ? "[" : ",[") + json(itemOf(list, i)) + "]";
  add(pieces, "masks", '[' + masks + ']');
  add(pieces, "selected", std::to_string(ask(list, CB_GETCURSEL) + 1));
  const std::wstring name = textOf(nameEdit(dialog));
  if (!name.empty()) add(pieces, "name", json(name));
  const bool taken = answer && enterFile(dialog, *answer);
  if (!taken) pressAndWait(dialog, IDCANCEL);
  add(pieces, "answer", taken ? json(withoutFolder(*answer)) : "null");
  add(pieces, "owner", owner);
  write("{\"files\":{" + pieces + "}}");
}

}  // namespace driving
