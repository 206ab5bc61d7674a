// What can be set on a form, by the words that stand on it: the options of quillon-print are the form's own labels, read from
// its resource, so that there is no second list of them.
//
// Words are compared without regard to case, blanks, access keys and punctuation: "--lines-per-page" is the edit that one form
// labels "Lines per page" and another "LinesPerPage :".
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "desktop/scripted/resources.h"

namespace quillon {

// A form by the name that quillon-print knows it by.
struct NamedForm {
  const char* name;  // "trades"
  int tool;
};
// Null where there is none of that name.
const NamedForm* formNamed(std::string_view name);
std::vector<const NamedForm*> formNames();  // in the order of the toolbar

struct FormOption {
  ControlKind kind;  // radioButton, checkBox, edit or list
  int control;
  std::string group;  // of a radio button or check box: the words of the box around it
  std::string label;
  std::string name;  // of an edit or list: its option, such as "--lines-per-page"
};

// The controls of a form that a run needs.
struct FormParts {
  std::string resource;
  std::vector<FormOption> options;  // without the destination and the output's name, which -o takes the place of
  int load = -1;
  int print = -1;    // -1: the form prints nothing
  int convert = -1;  // -1: it converts nothing
  int printer = -1;  // the radio button of the destination; -1: the form leaves no choice
  int outFile = -1;
  int reply = -1;
};
// Nothing where the form cannot be read.
std::optional<FormParts> formParts(const NamedForm& form);

// The words as an option's name: "Lines Per Page :" and "LinesPerPage" become "lines-per-page".
std::string optionName(std::string_view label);
bool sameWords(std::string_view one, std::string_view other);

// One choice of a call.
struct FormSetting {
  FormOption option;
  std::string value;    // of an edit or a list: UTF-8
  bool checked;         // of a radio button or check box
  std::string asGiven;  // for messages
};

// Whether a radio button belongs to a group that says how to sort.
bool isSortOption(const FormOption& option);
// --sort, --select, --check and --uncheck by `word`, an edit or a list by its own option. Nothing where the form has none such.
std::optional<FormSetting> formSetting(const FormParts& parts, const std::string& word, const std::string& value);

}  // namespace quillon
