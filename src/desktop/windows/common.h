// What the sources of this folder share: the module, the main window, the windows that stand still while a box is open, and
// the way between the program's bytes and the wide characters of Windows.
#pragma once

#include <string>
#include <string_view>

#include "desktop/forms.h"
#include "desktop/windows/start.h"

namespace quillon {

HINSTANCE windowsInstance();
HWND windowsMainWindow();  // null until it is made
void windowsSetMainWindow(HWND window);
HWND windowsOf(FormHandle form);  // null for a null handle
bool windowsIsPushButton(HWND control);
HWND windowsOwnerOf(FormHandle form);  // the form's window, or the main window for a null handle

// While one stands around a box or a dialog, neither the main window nor any form takes input: a run blocks the whole program
// until its box is answered. `owner` is the box's own owner, which Windows blocks, and gives back in time to become the active
// window again; were all of them blocked until the box is gone, another program's window would come to the front.
struct InputBlock {
  explicit InputBlock(HWND owner);
  ~InputBlock();
  InputBlock(const InputBlock&) = delete;
  InputBlock& operator=(const InputBlock&) = delete;
};

// Stands around everything that the program does on the user's word. While one stands, a close message is ignored: it would
// take a form away from under its own run. One that `waits` is for what may take long: the pointer shows it, and the end of
// the Windows session is asked to wait.
struct Work {
  explicit Work(bool waits);
  ~Work();
  Work(const Work&) = delete;
  Work& operator=(const Work&) = delete;
  bool waits;
};
bool windowsAtWork();
void windowsPauseWork(bool paused);  // the user is asked for something; the pointer is the user's until the answer

std::wstring wideFromUtf8(std::string_view text);
std::string utf8FromWide(std::wstring_view text);
// Windows-1252, whatever the code page of the user's system: the texts of the workstation's files. A character that it does
// not have becomes '?', which no output name may hold; a look-alike would give a report another name than was typed.
std::wstring wideFromAnsi(std::string_view text);
std::string ansiFromWide(std::wstring_view text);

}  // namespace quillon
