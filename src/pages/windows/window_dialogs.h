// What the window asks in dialogs of its own or of Windows, save printing.
#pragma once

#include <string>

#include "pages/windows/system.h"

namespace quillon {

// A file or a folder that the user chooses, beginning in `folder`; empty when the user chose none.
std::wstring askForReport(HWND owner, const std::wstring& folder);
std::wstring askForFolder(HWND owner, const std::wstring& folder);

// A page from 1 to `count`; 0 when the user gave none.
std::size_t askForPage(HWND owner, std::size_t page, std::size_t count);

void showAbout(HWND owner);

}  // namespace quillon
