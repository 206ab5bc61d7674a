// Boxes and open-file dialogs: written as they stand, and answered.
#pragma once

#include <string>

#include "system.h"

namespace driving {

// The form that owns it, "main" for the main window, or "none".
std::string ownerOf(HWND dialog);
// The close messages of "interrupt", and the question whether the session may end.
void interrupt();

void answerBox(HWND box);
// So that an open-file dialog can be asked for its folder: between the two, each folder below the current one holds a mark.
void markFolders();
void unmarkFolders();

void answerFiles(HWND dialog);
void answerDialog(HWND dialog);  // either

void pressAndWait(HWND dialog, int button);  // until the dialog is gone
// A run blocks the whole program until its box is answered: complains where anything but the box takes input.
void expectBlocked(HWND dialog);

}  // namespace driving
