// What a user does: the commands of a script, each carried out to its end.
#pragma once

#include <functional>
#include <string>

#include "program.h"

namespace driving {

using Action = std::function<void()>;
// On a thread of its own, until the action has come back, and with it everything that the program did on its word; boxes and
// dialogs are answered meanwhile.
void carryOut(Action action);
void send(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
void clickAt(HWND window, int x, int y);
HWND focusWindow();
// A key that is posted goes through the program's message loop and comes back to nobody. This waits until what was posted to
// the program so far has been handled, and answers what asks meanwhile.
void settle();
POINT middleOf(const Tool& tool);  // of its button, on the toolbar

// The form that the commands go to; null, and refused, where none is open.
const Tool* current();

void pressTool(const std::wstring& form);
void pressKey(const std::string& name);
void turnTo(const std::wstring& form);
void press(int id);
void type(int id, const std::wstring& text);
void pick(int id, const std::wstring& text);
void closeForm();
void pressEnter();
void quit();

// What only Windows has.
void hover(const std::wstring& form);
void pressTab();
void pressEscape();
void pressMnemonic(wchar_t letter);
void typeKeys(const std::wstring& text);
void paste(const std::wstring& text);
void moveToScreen(int dpi);  // tells the main window that it has come to a screen of so many dots an inch
void askForSessionEnd();
void tellOfFrame();

}  // namespace driving
