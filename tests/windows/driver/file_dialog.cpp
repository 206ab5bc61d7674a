// The open-file dialog.
#include <algorithm>
#include <array>
#include <optional>
#include <string>

#include "dialogs.h"
#include "program.h"
#include "texts.h"

namespace driving {

static std::wstring currentFolder() {
  wchar_t folder[MAX_PATH] = {};
  GetCurrentDirectoryW(MAX_PATH, folder);
  return folder;
}

// As seen from the current folder, which the program shares.
static std::wstring folderOf(HWND dialog) {
  std::array<wchar_t, MAX_PATH> path = {};
  const RemoteMemory memory(sizeof path);
  ask(dialog, CDM_GETFOLDERPATH, path.size(), reinterpret_cast<LPARAM>(memory.address));
  memory.read(path.data(), sizeof path);
  const std::wstring folder = path.data();
  const std::wstring current = currentFolder();
  if (folder == current) return L".";
  if (folder.starts_with(current + L'\\')) return folder.substr(current.size() + 1);
  return folder;
}

static std::wstring withoutFolder(const std::wstring& path) { return path.substr(path.find_last_of(L"/\\") + 1); }

// Typed as a user types it who knows where the file is. False where the dialog refuses it and stays.
static bool enterFile(HWND dialog, const std::wstring& file) {
  std::wstring path = file;
  std::replace(path.begin(), path.end(), L'/', L'\\');
  const bool whole = path.size() > 1 && (path[1] == L':' || path[0] == L'\\');
  if (!whole) path = currentFolder() + L'\\' + path;
  HWND name = GetDlgItem(dialog, edt1);
  if (!name) name = GetDlgItem(dialog, cmb13);
  ask(name, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(path.c_str()));
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
  std::optional<std::wstring> answer;
  if (!driver.files.empty()) {
    answer = driver.files.front();
    driver.files.pop_front();
  }
  writeChanges();
  std::string pieces;
  add(pieces, "title", json(textOf(dialog)));
  add(pieces, "folder", json(folderOf(dialog)));
  const HWND list = GetDlgItem(dialog, cmb1);
  std::string masks;
  for (LRESULT i = 0; i < ask(list, CB_GETCOUNT); ++i) masks += (masks.empty() ? "[" : ",[") + json(itemOf(list, i)) + "]";
  add(pieces, "masks", '[' + masks + ']');
  add(pieces, "selected", std::to_string(ask(list, CB_GETCURSEL) + 1));
  const bool taken = answer && enterFile(dialog, *answer);
  if (!taken) pressAndWait(dialog, IDCANCEL);
  add(pieces, "answer", taken ? json(withoutFolder(*answer)) : "null");
  write("{\"files\":{" + pieces + "}}");
}

}  // namespace driving
