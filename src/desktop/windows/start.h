// What the Windows program does before anything else. The one header of this folder that a source outside it includes.
#pragma once

#define WIN32_LEAN_AND_MEAN
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>

namespace quillon {

// Keeps the instance: the module that the resources are loaded from. Called once, before any other call of the desktop.
void windowsStart(HINSTANCE instance);

}  // namespace quillon
