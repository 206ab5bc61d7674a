// What the parts of the window ask of the window.
#pragma once

#include <string>

#include "pages/windows/system.h"

namespace quillon {

HWND frameWindow();
int frameScaled(int size);  // a length at 96 dots an inch, on the screen that the window is on
HFONT frameFont();          // of texts, as the user has set it

// A command of the menu, whoever gives it.
void frameCommand(int command);

// All parts show what the report in front has become.
void frameShow();
// Looks at once at what the timer looks at every second.
void frameRefresh();

// A report, or a folder with its newest report.
void frameOpen(const std::wstring& path);
// A report of the list.
void frameOpenListed(const std::wstring& path);

void framePrint();
void frameSaveAsPdf();

bool frameShowsText();  // the text view in place of the sheet
void frameShowText(bool text);
bool frameShowsList();
void frameShowList(bool list);

void frameArrange();  // the find bar was shown or put away
void frameGiveFocusToPage();
void frameTurnFocus();  // from the list to the page, to the find bar, and to the list again

}  // namespace quillon
