// Boxes and open-file dialogs: written as they stand, and answered.
#pragma once

#include "system.h"

namespace driving {

void answerBox(HWND box);
void answerFiles(HWND dialog);
void answerDialog(HWND dialog);  // either

void pressAndWait(HWND dialog, int button);  // until the dialog is gone
// A run blocks the whole program until its box is answered: complains where anything but the box takes input.
void expectBlocked(HWND dialog);

}  // namespace driving
