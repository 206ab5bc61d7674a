#include "unattended/print_call.h"

#include <utility>

#include "desktop/scripted/clock.h"
#include "text/letters.h"

namespace quillon {

std::string printHelp() {
  std::string help =
      "Prints a form's report without a screen.\n"
      "\n"
      "quillon-print FORM FILE [options] -o REPORT    one report\n"
      "quillon-print FORM --help                      what can be set on the form\n"
      "quillon-print --all FOLDER -o FOLDER           a report of every file that a form's masks know\n"
      "quillon-print --help, quillon-print --version\n"
      "\n"
      "Forms:";
  std::size_t column = 0;
  for (const NamedForm* form : formNames()) {
    help += column++ % 8 ? " " : "\n  ";
    help += form->name;
  }
  help +=
      "\n\n"
      "Options of a report:\n"
      "  -o REPORT          where it goes; what stands there is replaced when the report is complete\n"
      "  --sort, --select, --check, --uncheck \"LABEL\", and an option for each field: see the form's --help\n"
      "  --answer yes|no    the answer to the form's next question; otherwise it gets its default\n"
      "  --pdf              as PDF, fitted to A4\n"
      "  --clock \"2009-05-22 10:11:12\"   the date and time that the report takes for now\n"
      "  --messages FILE    the form's boxes go there instead of to standard error\n"
      "Options of --all:\n"
      "  -o FOLDER          where the reports go: the file's name with .txt, or .pdf, behind it\n"
      "  --pdf, --clock     as above\n"
      "  -j N               so many at a time\n"
      "  --as MASK=FORM:LABEL   files that fit the mask go to this form, set to this label, as in\n"
      "                     --as \"KB*.DAT=kesto:BreakUp Data Printing\"; the label may be left out; FORM may be none\n"
      "\n"
      "The status is 0 when the report, or every report, is complete; 1 when a form refused or failed; 2 for a wrong\n"
      "call.\n";
  return help;
}

// ---- Arguments --------------------------------------------------------------------------------------------------------

static PrintCall wrongCall(std::string problem) {
  PrintCall call;
  call.problem = std::move(problem);
  return call;
}

static bool isOption(const std::string& argument) { return argument.size() > 1 && argument[0] == '-'; }

static bool readJobs(const std::string& text, int& jobs) {
  if (text.empty() || text.size() > 2) return false;
  jobs = 0;
  for (const char c : text) {
    if (c < '0' || c > '9') return false;
    jobs = jobs * 10 + (c - '0');
  }
  return jobs >= 1 && jobs <= mostJobs;
}

static bool readAnswer(const std::string& text, PrintCall& call) {
  const std::string answer = upperCased(text);
  if (answer != "YES" && answer != "NO") return false;
  call.answers.push_back(answer == "YES" ? BoxChoice::yes : BoxChoice::no);
  return true;
}

static bool isMoment(const std::string& text) {
  const bool taken = clockStop(text);
  clockReset();
  return taken;
}

// What brings a form to one of its labels: the radio button or check box of that name, otherwise an item of its list.
static std::vector<std::string> optionsFor(const FormParts& parts, const std::string& label) {
  if (label.empty()) return {};
  for (const char* word : {"--select", "--sort", "--check"}) {
    if (formSetting(parts, word, label)) return {word, label};
  }
  for (const FormOption& option : parts.options) {
    if (option.kind == ControlKind::list) return {option.name, label};
  }
  return {};
}

// "MASK=FORM", "MASK=FORM:LABEL" or "MASK=none".
static bool readForm(const std::string& text, PrintCall& call) {
  const std::size_t equals = text.find('=');
  if (equals == std::string::npos || equals == 0) return false;
  const std::size_t colon = text.find(':', equals);
  const std::string name = text.substr(equals + 1, colon == std::string::npos ? colon : colon - equals - 1);
  FormForMask form = {text.substr(0, equals), formNamed(name), {}};
  if (!form.form && upperCased(name) != "NONE") return false;
  if (colon != std::string::npos) {
    const std::optional<FormParts> parts = form.form ? formParts(*form.form) : std::nullopt;
    if (!parts) return false;
    form.options = optionsFor(*parts, text.substr(colon + 1));
    if (form.options.empty()) return false;
  }
  call.forms.push_back(std::move(form));
  return true;
}

// The options that every call has: false where it is none of them. `valid` tells whether its value can be taken.
static bool takeCommon(const std::string& option, const std::string& value, PrintCall& call, bool& valid) {
  valid = !value.empty();
  if (option == "-o" || option == "--output") return call.output = value, true;
  if (option == "--clock") return call.clock = value, valid = isMoment(value), true;
  if (call.action == PrintAction::all) {
    if (option == "--as") return valid = readForm(value, call), true;
    if (option != "-j") return false;
    valid = readJobs(value, call.jobs);
    return true;
  }
  if (option == "--messages") return call.messages = value, true;
  if (option != "--answer") return false;
  valid = readAnswer(value, call);
  return true;
}

static std::string labelsFor(const FormParts& parts, const std::string& word) {
  std::string labels;
  for (const FormOption& option : parts.options) {
    const bool fits = word == "--sort"     ? isSortOption(option)
                      : word == "--select" ? option.kind == ControlKind::radioButton && !isSortOption(option)
                                           : option.kind == ControlKind::checkBox;
    if (fits) labels += (labels.empty() ? " It has \"" : ", \"") + option.label + "\"";
  }
  if (labels.empty()) return " It has none.";
  labels += '.';
  return labels;
}

// An option of the form itself. Gives the problem; empty where it was taken.
static std::string takeFormOption(const std::string& option, const std::string& value, PrintCall& call) {
  if (call.action != PrintAction::report) return "There is no option \"" + option + "\".";
  const std::string form = std::string("The form ") + call.form->name;
  std::optional<FormSetting> setting = formSetting(call.parts, option, value);
  if (setting) {
    call.settings.push_back(std::move(*setting));
    return {};
  }
  const bool byLabel = option == "--sort" || option == "--select" || option == "--check" || option == "--uncheck";
  if (!byLabel) return form + " has no option \"" + option + "\"; quillon-print " + call.form->name + " --help lists them.";
  return form + " has no \"" + value + "\" for " + option + "." + labelsFor(call.parts, option);
}

static std::string cannotBeDone(const std::string& option, const std::string& value) {
  return "\"" + option + " " + value + "\" cannot be done.";
}

// The arguments behind the form or --all. Gives the problem; empty where there is none.
static std::string takeRest(const std::vector<std::string>& arguments, PrintCall& call) {
  for (std::size_t i = 1; i < arguments.size(); ++i) {
    const std::string& argument = arguments[i];
    if (!isOption(argument)) {
      if (!call.input.empty()) return "\"" + argument + "\" is one file too many.";
      call.input = argument;
      continue;
    }
    if (argument == "--pdf") {
      call.pdf = true;
      continue;
    }
    const bool last = i + 1 == arguments.size();
    const std::string value = last ? std::string() : arguments[i + 1];
    bool valid = true;
    if (takeCommon(argument, value, call, valid)) {
      if (last) return "\"" + argument + "\" needs a value behind it.";
      if (!valid) return cannotBeDone(argument, value);
    } else {
      std::string problem = takeFormOption(argument, value, call);
      if (last && (problem.empty() || call.action == PrintAction::report))
        return "\"" + argument + "\" needs a value behind it.";
      if (!problem.empty()) return problem;
    }
    ++i;
  }
  if (call.input.empty()) return call.action == PrintAction::all ? "The folder is missing." : "The file to print is missing.";
  if (call.output.empty()) return "Where to? -o is missing.";
  return {};
}

PrintCall printCall(const std::vector<std::string>& arguments) {
  PrintCall call;
  if (arguments.empty()) return wrongCall("What to print is missing.");
  const std::string& first = arguments[0];
  if (first == "--help" || first == "-h" || first == "--version") {
    call.action = first == "--version" ? PrintAction::version : PrintAction::help;
    return call;
  }
  call.form = formNamed(first);
  call.action = call.form ? PrintAction::report : PrintAction::all;
  if (!call.form && first != "--all") return wrongCall("There is no form \"" + first + "\".");
  for (const std::string& argument : arguments) {
    if (argument != "--help" && argument != "-h") continue;
    call.action = call.form ? PrintAction::formHelp : PrintAction::help;
  }
  if (call.form) {
    std::optional<FormParts> parts = formParts(*call.form);
    if (!parts) return wrongCall("The form \"" + first + "\" cannot be read.");
    call.parts = std::move(*parts);
  }
  if (call.action != PrintAction::report && call.action != PrintAction::all) return call;
  std::string problem = takeRest(arguments, call);
  return problem.empty() ? call : wrongCall(std::move(problem));
}

}  // namespace quillon
