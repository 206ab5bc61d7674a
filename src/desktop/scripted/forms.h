// Forms of the scripted desktop, as a user sees and works them: what a script's commands do, and what the transcript shows.
//
// The actions work on the current form, the topmost one. Each gives the reason why a user could not carry it out, in which
// case nothing has changed; an empty reason means that it was done, with everything the form made of it.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "desktop/forms.h"
#include "desktop/scripted/resources.h"

namespace quillon {

std::string formsTurnTo(std::string_view resource);
std::string formsPress(int control);
// Enter presses the push button that has the focus, else the form's default button; where there is none that can be worked, it
// does nothing. The focus stays where it is.
std::string formsEnter();
std::string formsType(int control, std::string_view text);  // Windows-1252
// What of a typed text the edit takes.
std::string formsTyped(const ControlTemplate& edit, std::string_view text);
std::string formsPick(int control, std::string_view text);
std::string formsClose();
std::string formsShowWhole();  // writes the whole state of the current form

// Writes what is different on every open form since it was last shown, in the order of the toolbar's tools.
void formsWriteChanges();

std::string formsTitle(FormHandle form);  // UTF-8
std::size_t formsOpen();
void formsDestroyAll();  // as they go with their owner, in the order in which they were made
void formsSweep();       // gives back what destroyed forms took, once no handler can be running
void formsReset();

}  // namespace quillon
