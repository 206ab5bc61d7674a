// The command line of quillon-print.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "desktop/boxes.h"
#include "unattended/form_options.h"

namespace quillon {

enum class PrintAction { report, all, help, formHelp, version, wrongCall };

// --as MASK=FORM:LABEL of a call: what prints the files that fit the mask.
struct FormForMask {
  std::string mask;
  const NamedForm* form;             // null: nothing does
  std::vector<std::string> options;  // of the form, as they stand in a call
};

struct PrintCall {
  PrintAction action = PrintAction::wrongCall;
  const NamedForm* form = nullptr;  // of report and formHelp
  FormParts parts;
  std::string input;   // the file, or the folder of `all`
  std::string output;  // the report, or the folder of `all`
  std::vector<FormSetting> settings;
  std::vector<BoxChoice> answers;  // to the questions, in their order; further ones get their default
  std::string clock;               // "2009-05-22 10:11:12": what the report takes for now; empty: the machine's own
  std::string messages;            // the file that takes the boxes; empty: standard error
  bool pdf = false;
  int jobs = 1;                    // of `all`
  std::vector<FormForMask> forms;  // of `all`: these go before the forms' own masks
  std::string problem;             // of wrongCall: a sentence for the user
};

inline constexpr int mostJobs = 64;

// The arguments without the program's name, UTF-8.
PrintCall printCall(const std::vector<std::string>& arguments);

std::string printHelp();

}  // namespace quillon
