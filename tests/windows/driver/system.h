// The headers of Windows, in the order in which they lean on each other.
#pragma once

#define WIN32_LEAN_AND_MEAN
#ifndef NOMINMAX
#define NOMINMAX
#endif
// clang-format off
#include <windows.h>
#include <commctrl.h>
#include <commdlg.h>
#include <dlgs.h>
// clang-format on
