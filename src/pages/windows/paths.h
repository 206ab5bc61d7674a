// The pieces of a path.
#pragma once

#include <string>

#include "pages/windows/system.h"

namespace quillon {

// Windows takes paths of more than 259 characters only in a form of their own, unless the machine was set up otherwise.
std::wstring pathOfAnyLength(const std::wstring& path);

std::wstring pathWhole(const std::wstring& path);  // with its drive and folder
std::wstring pathFolder(const std::wstring& path);
std::wstring pathName(const std::wstring& path);  // without its folder
std::wstring pathIn(const std::wstring& folder, const std::wstring& name);
bool pathIsFolder(const std::wstring& path);

}  // namespace quillon
