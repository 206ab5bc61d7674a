#include "pages/windows/window_dialogs.h"

#include <shobjidl.h>

#include <cstdint>
#include <iterator>

#include "pages/ids.h"

namespace quillon {

// ---- Files -------------------------------------------------------------------------------------------------------------

static void beginIn(IFileOpenDialog* dialog, const std::wstring& folder) {
  IShellItem* item = nullptr;
  if (folder.empty() || FAILED(SHCreateItemFromParsingName(folder.c_str(), nullptr, IID_PPV_ARGS(&item)))) return;
  dialog->SetFolder(item);
  item->Release();
}

static std::wstring chosenIn(IFileOpenDialog* dialog) {
  IShellItem* item = nullptr;
  if (FAILED(dialog->GetResult(&item))) return {};
  std::wstring path;
  PWSTR name = nullptr;
  if (SUCCEEDED(item->GetDisplayName(SIGDN_FILESYSPATH, &name))) path = name;
  CoTaskMemFree(name);
  item->Release();
  return path;
}

static std::wstring ask(HWND owner, const std::wstring& folder, DWORD more, const wchar_t* title) {
  static constexpr COMDLG_FILTERSPEC kinds[] = {{L"All files", L"*.*"}, {L"Text files", L"*.txt;*.lst;*.prn;*.rpt;*.log"}};
  IFileOpenDialog* dialog = nullptr;
  if (FAILED(CoCreateInstance(CLSID_FileOpenDialog, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&dialog)))) return {};
  DWORD options = 0;
  dialog->GetOptions(&options);
  dialog->SetOptions(options | more | FOS_FORCEFILESYSTEM | FOS_PATHMUSTEXIST | FOS_NOCHANGEDIR);
  dialog->SetTitle(title);
  if (!(more & FOS_PICKFOLDERS)) dialog->SetFileTypes(static_cast<UINT>(std::size(kinds)), kinds);
  beginIn(dialog, folder);
  std::wstring path;
  if (SUCCEEDED(dialog->Show(owner))) path = chosenIn(dialog);
  dialog->Release();
  return path;
}

std::wstring askForReport(HWND owner, const std::wstring& folder) {
  return ask(owner, folder, FOS_FILEMUSTEXIST, L"Open Report");
}

std::wstring askForFolder(HWND owner, const std::wstring& folder) {
  return ask(owner, folder, FOS_PICKFOLDERS, L"Open Folder of Reports");
}

// ---- Go to a page ------------------------------------------------------------------------------------------------------

namespace {
struct GoToQuestion {
  std::size_t page;
  std::size_t count;
};
}  // namespace

static void askPage(HWND dialog, const GoToQuestion& question) {
  const std::wstring label = L"&Page (1 to " + std::to_wstring(question.count) + L"):";
  SetDlgItemTextW(dialog, ID_GO_TO_LABEL, label.c_str());
  SetDlgItemTextW(dialog, ID_GO_TO_PAGE, std::to_wstring(question.page).c_str());
  SendDlgItemMessageW(dialog, ID_GO_TO_PAGE, EM_LIMITTEXT, 9, 0);
}

// Only a page that is there is taken; the field is given back for anything else.
static void takePage(HWND dialog) {
  const auto* question = reinterpret_cast<const GoToQuestion*>(GetWindowLongPtrW(dialog, DWLP_USER));
  BOOL isNumber = FALSE;
  const UINT page = GetDlgItemInt(dialog, ID_GO_TO_PAGE, &isNumber, FALSE);
  if (isNumber && page >= 1 && page <= question->count) {
    EndDialog(dialog, static_cast<INT_PTR>(page));
    return;
  }
  MessageBeep(MB_ICONWARNING);
  SetFocus(GetDlgItem(dialog, ID_GO_TO_PAGE));
  SendDlgItemMessageW(dialog, ID_GO_TO_PAGE, EM_SETSEL, 0, -1);
}

static INT_PTR CALLBACK goToProcedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_INITDIALOG) {
    SetWindowLongPtrW(dialog, DWLP_USER, lParam);
    askPage(dialog, *reinterpret_cast<const GoToQuestion*>(lParam));
    return TRUE;
  }
  if (message != WM_COMMAND) return FALSE;
  if (LOWORD(wParam) == IDOK) takePage(dialog);
  if (LOWORD(wParam) == IDCANCEL) EndDialog(dialog, 0);
  return TRUE;
}

std::size_t askForPage(HWND owner, std::size_t page, std::size_t count) {
  const GoToQuestion question = {page, count};
  const INT_PTR answer = DialogBoxParamW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(ID_GO_TO_DIALOG), owner, goToProcedure,
                                         reinterpret_cast<LPARAM>(&question));
  return answer > 0 ? static_cast<std::size_t>(answer) : 0;
}

// ---- About -------------------------------------------------------------------------------------------------------------

void showAbout(HWND owner) {
  const std::wstring text = L"Quillon Pages " + wideFromUtf8(QUILLON_VERSION) +
                            L"\n\nThe reports of a folder: read, searched, printed on any printer, and kept as PDF.";
  MSGBOXPARAMSW box = {};
  box.cbSize = sizeof box;
  box.hwndOwner = owner;
  box.hInstance = GetModuleHandleW(nullptr);
  box.lpszText = text.c_str();
  box.lpszCaption = L"About Quillon Pages";
  box.dwStyle = MB_OK | MB_USERICON;
  box.lpszIcon = L"QUILLON";
  MessageBoxIndirectW(&box);
}

}  // namespace quillon
