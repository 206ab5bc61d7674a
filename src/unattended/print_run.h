// One report without a screen: the form is worked on the scripted desktop as a user works it.
#pragma once

#include <string>

#include "unattended/print_call.h"

namespace quillon {

inline constexpr int printDone = 0;
inline constexpr int printFailed = 1;
inline constexpr int printWrongCall = 2;

// Loads the file, makes the settings, prints, and puts the report into its place. Every box and every refusal goes to standard
// error, or to the file that the call names. Gives printDone only for a report that the form calls complete, without a box that
// tells of an error on the way.
int printRun(const PrintCall& call);

// What can be set on the form, to standard output: its labels with what a fresh form has.
int printFormHelp(const PrintCall& call);

}  // namespace quillon
