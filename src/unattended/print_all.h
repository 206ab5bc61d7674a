// A report of every file in a folder that a form's masks know.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "unattended/print_call.h"

namespace quillon {

// Which form prints a file, and what is set on it ahead.
struct FormForFile {
  const char* form;
  std::vector<std::string> options;
};
// By `first`, then by the masks of the forms' open-file dialogs, "All Files" left aside. Where several forms know the file, the
// one that lists it. Nothing where none does.
std::optional<FormForFile> formForFile(const std::vector<FormForMask>& first, std::string_view name);

// A name against a mask such as "TR*.B*" or "K?01*.SAV", without regard to case; ".*" at a mask's end goes without a dot as
// well.
bool maskFits(std::string_view mask, std::string_view name);

// Prints them, call.jobs at a time, each in a process of its own, and tells the outcome of each on a line of standard output;
// the forms' boxes go to standard error, ahead of each the file's name. Gives printDone when all reports are complete.
int printAll(const PrintCall& call);

}  // namespace quillon
