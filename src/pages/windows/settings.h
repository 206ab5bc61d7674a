// What the user chose last, kept for the next time: in %APPDATA%\Quillon\quillon-pages.ini, section [Pages]. The file is made
// when something is first kept.
#pragma once

#include <string>

namespace quillon {

std::wstring settingsText(const wchar_t* name, const wchar_t* usual);
// `usual` too where what stands there is no number.
int settingsNumber(const wchar_t* name, int usual);
// Silently do nothing where it cannot be written. A text with a line end in it is not kept.
void settingsKeep(const wchar_t* name, const std::wstring& text);
void settingsKeep(const wchar_t* name, int number);

}  // namespace quillon
