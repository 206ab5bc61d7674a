// The program as a whole on its desktop: the main window with its toolbar, the single-instance mark, the loop and the end.
#pragma once

#include <span>
#include <string_view>

#include "desktop/forms.h"

namespace quillon {

struct ToolButton {
  int tool;                 // command id of the button
  int bitmap;               // its 25 by 25 picture's resource id
  const char* tooltip;
  const char* form;         // its dialog resource, by which scripts name it
};

struct AppWindow {
  const char* windowClass;
  const char* title;
  const char* icon;          // icon resource
  const char* accelerators;  // accelerator resource
};

// What the desktop calls. All are set before the window is made.
struct AppHandler {
  void (*created)();                            // the main window was made
  void (*command)(int id);                      // a toolbar button or an accelerator key
  const char* (*tooltip)(int id);               // null where the id has none
  void (*notified)();                           // any other notification
  void (*destroyed)();                          // the main window is going
  std::span<const FormHandle> (*openForms)();   // in the order in which they are offered a message; nulls are skipped
};

bool appMutexExists(const char* name);  // another copy holds it
void appMutexCreate(const char* name);  // owned by this process
void appMutexRelease();                 // nothing where none is held

bool appRegisterClass(const AppWindow& window);
// False when the window cannot be made, as when its class is not registered in this process.
bool appCreateWindow(const AppWindow& window, const AppHandler& handler);
// The buttons stand in the order given, check-style, enabled, with the picture at the same position.
void appBuildToolbar(std::span<const ToolButton> buttons);
void appSetToolChecked(int tool, bool checked);
void appDestroyToolbar();
// Shows the window maximised, loads the accelerators and runs until appQuit or appEnd; gives the exit code.
int appRun(const AppWindow& window);
void appQuit(int status);  // the loop ends once the current message is handled

// Ends the whole program at once, without the shut-down of the main window. The caller returns straight to the desktop and
// shows nothing more.
void appEnd(int status);

void appBeep(int times);
void appWriteStdout(std::string_view text);

}  // namespace quillon
