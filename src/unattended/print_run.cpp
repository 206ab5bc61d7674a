#include "unattended/print_run.h"

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <system_error>
#include <utility>

#include "desktop/scripted/app.h"
#include "desktop/scripted/boxes.h"
#include "desktop/scripted/clock.h"
#include "desktop/scripted/files.h"
#include "desktop/scripted/forms.h"
#include "desktop/scripted/open_dialog.h"
#include "desktop/scripted/paths.h"
#include "desktop/scripted/script.h"
#include "frame/file_selection.h"
#include "frame/main_window.h"
#include "frame/tools.h"
#include "report_forms.h"
#include "text/encoding.h"
#include "text/letters.h"
#include "unattended/print_output.h"

namespace quillon {

namespace fs = std::filesystem;

static constexpr std::size_t longestInput = 299;        // what an open-file dialog gives
static constexpr std::size_t longestText = 65536;       // of a control, read back
static constexpr char convertedName[] = "CONVERT.OUT";  // any name: the output goes where the call says

// The run at hand: the user of the scripted desktop is a plain function.
static struct {
  const PrintCall* call;
  const PrintOutput* output;
  std::FILE* messages;
  std::string completion;  // the text of the last box
  std::string error;       // the first box that told of a file, a block or a device that failed; its first line
  bool complete;
} state;

// ---- What is told -----------------------------------------------------------------------------------------------------

static void tell(const std::string& text) {
  std::fprintf(state.messages, "%s\n", text.c_str());
  std::fflush(state.messages);
}

static std::string withoutBlanksAround(std::string_view text) {
  const std::size_t first = text.find_first_not_of(" \t\r\n");
  if (first == std::string_view::npos) return {};
  return std::string(text.substr(first, text.find_last_not_of(" \t\r\n") + 1 - first));
}

// A box as "TITLE: text", with further lines of the text indented, empty ones left out, and a question with its answer.
static void tellBox(const BoxTold& box) {
  std::string line = withoutBlanksAround(box.title ? box.title : "Error");
  line += ": ";
  const std::string text = withoutBlanksAround(box.text);
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t end = std::min(text.find('\n', at), text.size());
    const std::string piece = withoutBlanksAround(text.substr(at, end - at));
    if (at > 0 && !piece.empty()) line += "\n  ";
    line += piece;
    at = end + 1;
  }
  if (box.isQuestion) line += box.answer == BoxChoice::yes ? " [yes]" : " [no]";
  tell(utf8FromBytes(line));
  if (box.isQuestion) return;
  state.completion = upperCased(box.text);
  if (box.icon == BoxIcon::error && state.error.empty()) state.error = utf8FromBytes(line.substr(0, line.find('\n')));
}

static std::string replyOf(FormHandle form) {
  return withoutBlanksAround(utf8FromBytes(formGetText(form, state.call->parts.reply, longestText)));
}

static void tellLine(std::string_view text) { tell(utf8FromBytes(withoutBlanksAround(text))); }

// What the form's Reply line says, where the run goes no further: not all failures have a box.
static void tellReply(FormHandle form) {
  const std::string reply = replyOf(form);
  if (!reply.empty()) tell("Reply: " + reply);
}

// ---- Settings ---------------------------------------------------------------------------------------------------------

static bool isMade(FormHandle form, const FormSetting& setting) {
  const int control = setting.option.control;
  switch (setting.option.kind) {
    case ControlKind::radioButton:
    case ControlKind::checkBox:
      return formIsChecked(form, control) == setting.checked;
    case ControlKind::list:
      return formListSelected(form, control) >= 0 && formGetText(form, control, longestText) == bytesFromUtf8(setting.value);
    default:
      return formGetText(form, control, longestText) == bytesFromUtf8(setting.value);
  }
}

// The reason why the form does not take it; empty where it does.
static std::string make(FormHandle form, const FormSetting& setting) {
  if (isMade(form, setting)) return {};
  const int control = setting.option.control;
  std::string reason;
  if (setting.option.kind == ControlKind::edit) {
    reason = formsType(control, bytesFromUtf8(setting.value));
  } else if (setting.option.kind == ControlKind::list) {
    reason = formsPick(control, bytesFromUtf8(setting.value));
  } else {
    reason = formsPress(control);
  }
  return isMade(form, setting) ? std::string() : reason + ".";
}

// All settings that can be made now. What decides about others goes first: before the file is loaded a list is the kind of
// file, afterwards it belongs to the report that a radio button chooses.
static void makeSettings(FormHandle form, bool loaded) {
  const ControlKind first = loaded ? ControlKind::radioButton : ControlKind::list;
  const ControlKind second = loaded ? ControlKind::list : ControlKind::radioButton;
  for (const ControlKind kind : {first, second, ControlKind::checkBox, ControlKind::edit}) {
    for (const FormSetting& setting : state.call->settings) {
      if (setting.option.kind == kind) (void)make(form, setting);
    }
  }
}

static bool settingsAreMade(FormHandle form) {
  const auto& settings = state.call->settings;
  const auto open = std::find_if(settings.begin(), settings.end(), [&](const FormSetting& s) { return !isMade(form, s); });
  if (open == settings.end()) return true;
  tell("The form does not take " + open->asGiven + " for this file.");
  return false;
}

// ---- A run ------------------------------------------------------------------------------------------------------------

static const char* resource() { return state.call->parts.resource.c_str(); }

static FormHandle openForm() {
  if (!appPressTool(resource()).empty()) return nullptr;
  return toolForm(state.call->form->tool);
}

static bool load(FormHandle form) {
  openDialogQueueAnswer(state.call->input);
  const std::string reason = formsPress(state.call->parts.load);
  if (!reason.empty()) tell("The form takes no file.");
  if (!reason.empty() || appIsOver()) return false;
  if (!fileSelection.fileChosen) tell("\"" + state.call->input + "\" was not loaded.");
  return fileSelection.fileChosen && toolForm(state.call->form->tool) == form;
}

// Presses what makes the report. False where the form does not let it be pressed.
static bool print() {
  const FormParts& parts = state.call->parts;
  if (parts.printer >= 0) (void)formsPress(parts.printer);
  if (formsPress(parts.print).empty()) return true;
  // A conversion wants a name, which stands for the call's output.
  if (parts.convert < 0 || !formsType(parts.outFile, convertedName).empty()) return false;
  return formsPress(parts.convert).empty();
}

static void work() {
  for (const BoxChoice answer : state.call->answers) boxQueueAnswer(answer);
  if (!state.call->clock.empty()) (void)clockStop(state.call->clock);
  filesSetOutput(state.output->written);
  boxesListen(tellBox);
  appListenToStdout(tellLine);
  const FormHandle form = openForm();
  if (!form) return tell("The form cannot be opened.");
  makeSettings(form, false);
  if (!load(form)) return tellReply(toolForm(state.call->form->tool));
  makeSettings(form, true);
  if (!settingsAreMade(form)) return tellReply(form);
  if (!print()) {
    tell("The form does not print this file.");
    return tellReply(form);
  }
  state.complete = state.completion.find("COMPLETE") != std::string::npos && state.error.empty() && filesOutputMade();
  if (!state.complete) tellReply(toolForm(state.call->form->tool));
}

static std::string fileName(const std::string& path) {
  const std::size_t separator = path.find_last_of("/\\");
  return separator == std::string::npos ? path : path.substr(separator + 1);
}

// A form goes over its file more than once: it can do nothing with a pipe, and comes to no end with a device.
static std::string whyNoInput(const PrintCall& call) {
  if (!pathIsFile(call.input)) return "There is no file \"" + call.input + "\".";
  std::error_code error;
  if (!fs::is_regular_file(pathOnDisk(call.input), error)) return "\"" + call.input + "\" is a device or a pipe, not a file.";
  if (pathInFull(call.input).size() > longestInput) return "The path of \"" + call.input + "\" is too long.";
  if (fileIsSame(call.input, call.output)) return "The report cannot take the place of the file that is printed.";
  return {};
}

// The form's run, with the report beside its place.
static std::string runForm(const PrintCall& call, const PrintOutput& output) {
  state.call = &call;
  state.output = &output;
  state.completion.clear();
  state.error.clear();
  state.complete = false;
  (void)scriptRunBy(work, [] { return frameRun(reportForms()); });
  if (!state.complete) {
    const std::string why = state.error.empty() ? "" : " (" + state.error + ")";
    return "\"" + call.input + "\": no report was made." + why;
  }
  return call.pdf ? printOutputToPdf(output, fileName(call.input)) : std::string();
}

static bool isDevice(const std::string& path) {
  std::error_code error;
  const fs::file_status status = fs::status(systemPath(path), error);
  return fs::exists(status) && !fs::is_regular_file(status);
}

// Opens what takes the messages, unless that would cost a file of the call. Null where it cannot be had.
static std::FILE* openMessages(const PrintCall& call) {
  if (call.messages.empty()) return stderr;
  for (const std::string& file : {call.input, call.output}) {
    const bool same = call.messages == file || fileIsSame(call.messages, file);
    if (!same || isDevice(file)) continue;
    std::fprintf(stderr, "quillon-print: The messages cannot take the place of \"%s\".\n", file.c_str());
    return nullptr;
  }
  std::FILE* const messages = systemFile(systemPath(call.messages), true);
  if (!messages) std::fprintf(stderr, "quillon-print: \"%s\" cannot be written.\n", call.messages.c_str());
  return messages;
}

int printRun(const PrintCall& call) {
  state.messages = openMessages(call);
  if (!state.messages) return printFailed;
  PrintOutput output;
  std::string problem = whyNoInput(call);
  if (problem.empty()) problem = printOutputBegin(output, call.output);
  if (problem.empty()) {
    problem = runForm(call, output);
    if (!problem.empty()) {
      printOutputDrop(output);
    } else {
      problem = printOutputFinish(output);
    }
  }
  if (!problem.empty()) tell("quillon-print: " + utf8FromEither(problem));
  if (state.messages != stderr) (void)std::fclose(state.messages);
  return problem.empty() ? printDone : printFailed;
}

// ---- Help -------------------------------------------------------------------------------------------------------------

static std::string inQuotes(const std::string& text) { return "\"" + utf8FromBytes(text) + "\""; }

// The radio buttons of one group, or the check boxes, in one line each; what a fresh form has is marked.
static void helpOnButtons(FormHandle form, const FormOption& option, std::string& group) {
  const bool radio = option.kind == ControlKind::radioButton;
  const char* word = !radio ? "--check" : isSortOption(option) ? "--sort" : "--select";
  if (radio && option.group != group) std::printf("%s\n", utf8FromBytes(option.group).c_str());
  group = option.group;
  std::printf("  %s %s%s\n", word, inQuotes(option.label).c_str(),
              formIsChecked(form, option.control) ? "   (as the form begins)" : "");
}

static void helpOnField(FormHandle form, const FormOption& option) {
  const std::string begins = formGetText(form, option.control, longestText);
  std::printf("%s\n  %s TEXT%s\n", utf8FromBytes(option.label).c_str(), option.name.c_str(),
              begins.empty() ? "" : ("   (begins with " + inQuotes(begins) + ")").c_str());
  for (int i = 0; i < formListCount(form, option.control); ++i) {
    std::printf("    %s\n", inQuotes(formListText(form, option.control, i)).c_str());
  }
}

static void showHelp() {
  const FormHandle form = openForm();
  if (!form) return;
  std::printf("quillon-print %s FILE [options] -o REPORT\n\n", state.call->form->name);
  std::string group;
  for (const FormOption& option : state.call->parts.options) {
    if (option.kind == ControlKind::radioButton || option.kind == ControlKind::checkBox) {
      helpOnButtons(form, option, group);
    } else {
      helpOnField(form, option);
    }
  }
  std::printf(
      "\n--check LABEL checks a box, --uncheck LABEL clears it. Some choices are there for some files only.\n"
      "quillon-print --help tells of the options that all forms have.\n");
  state.complete = true;
}

int printFormHelp(const PrintCall& call) {
  state.call = &call;
  state.complete = false;
  (void)scriptRunBy(showHelp, [] { return frameRun(reportForms()); });
  return state.complete ? printDone : printFailed;
}

}  // namespace quillon
