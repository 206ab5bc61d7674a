// The reports of a folder, newest first: a list that follows what is written there.
#pragma once

#include <string>

#include "pages/windows/system.h"

namespace quillon {

HWND reportListCreate(HWND parent);

void reportListShow(const std::wstring& folder);
const std::wstring& reportListFolder();
// Looks what has become of the folder's files; not oftener than a slow folder bears.
void reportListRefresh(bool atOnce);
// The newest report's path; empty where there is none.
std::wstring reportListNewest();
// The report in front of the user stands selected, where the list has it.
void reportListMark(const std::wstring& path);

// What the list tells its parent; `answer` is what the parent is to give back.
bool reportListNotified(NMHDR* notification, LRESULT& answer);
void reportListArrange();  // its columns, to its width
void reportListNewFont();

}  // namespace quillon
