// The trace window: a small window that keeps the last lines written to it, for the developers of this program. Nothing opens
// it and nothing writes to it; who hunts a fault calls traceWindowOpen where the fault shows and traceWindowWrite where it may
// come from, and takes both out again.
#pragma once

#include <string_view>

#include "desktop/forms.h"
#include "text/print.h"

namespace quillon {

// Opens it minimised, empty and scrolling, with '#' and the owner's title as its own; a null owner is the main window. It stays
// until its owner goes. False when it cannot be made; where it is open already it stays as it is.
bool traceWindowOpen(FormHandle owner);

// Adds a line of at most 200 characters, Windows-1252; what is longer is cut. Nothing while the window is not open. The window
// keeps the last 199 lines.
void traceWindowWriteLine(std::string_view line);

template <FormatText Format, class... Args>
void traceWindowWrite(const Args&... args) {
  traceWindowWriteLine(formatText<Format>(args...));
}

}  // namespace quillon
