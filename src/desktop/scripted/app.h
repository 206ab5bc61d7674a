// The main window of the scripted desktop, as a user works it.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "desktop/app.h"

namespace quillon {

// Why a user could not do it; empty where it was done.
std::string appPressTool(std::string_view form);  // the toolbar button of the tool with this dialog resource
std::string appPressKey(std::string_view key);    // "F1", "Ctrl+F2", "Shift+F12"
// The window goes, and with it every form that is still open.
void appCloseWindow();

// The position of the tool's button on the toolbar; past all of them where there is none.
std::size_t appToolPosition(std::string_view form);
std::string appTitle();            // of the main window
const char* appTooltip(int tool);  // null where the id has none
void appNotify();                  // any other notification reaches the window

// The program has come to its end, in whatever way: no command is carried out any more.
bool appIsOver();
int appStatus();

void appSetOtherCopy(bool runs);  // another copy of the program holds the single-instance mark
// Hears what the program writes to its standard output, beside the transcript.
void appListenToStdout(void (*told)(std::string_view text));
void appReset();

}  // namespace quillon
