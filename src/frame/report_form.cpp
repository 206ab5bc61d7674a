#include "frame/report_form.h"

#include <algorithm>
#include <array>
#include <cassert>
#include <cstdint>
#include <limits>

#include "desktop/files.h"
#include "desktop/strings.h"
#include "frame/tools.h"
#include "text/letters.h"

namespace quillon {

static constexpr std::size_t editTextLimit = 300;
static constexpr int stringInputRequired = 2036;

// ---- Events -----------------------------------------------------------------------------------------------------------

// What the edit of each tool's output name held before its last update.
static std::array<std::string, 16> previousNames;

static std::string& previousName(int tool) {
  const auto isTool = [tool](const ToolButton& button) { return button.tool == tool; };
  const auto found = std::find_if(toolTable.begin(), toolTable.end(), isTool);
  assert(found != toolTable.end());
  return previousNames[static_cast<std::size_t>(found - toolTable.begin())];
}

static void pressed(const FormFrame& frame, FormHandle form, int control) {
  for (const FormButton& button : {frame.load, frame.print, frame.cancel}) {
    if (button.pressed && control == button.control) return button.pressed(form);
  }
  if (frame.file && control == frame.file) return setControlsVisible(form, frame.outFileControls, true);
  if (frame.printer && control == frame.printer) return setControlsVisible(form, frame.outFileControls, false);
  if (frame.pressed) frame.pressed(form, control);
}

// A run may end and leave its output open; no thread goes on writing to it behind the user's back.
static void onPress(const FormFrame& frame, FormHandle form, int control) {
  pressed(frame, form, control);
  outputSettleAll();
}

void reportFormEvent(const FormFrame& frame, const FormEvent& event) {
  switch (event.kind) {
    case FormEventKind::start:
      previousName(frame.tool).clear();
      return frame.start(event.form);
    case FormEventKind::press:
      return onPress(frame, event.form, event.control);
    case FormEventKind::edit:
      if (frame.outFileLimit && event.control == frame.outFile) {
        limitEditText(event.form, event.control, previousName(frame.tool), frame.outFileLimit, editAnyCharacters);
      }
      return;
    case FormEventKind::pick:
      if (frame.picked) frame.picked(event.form, event.control);
      return;
    case FormEventKind::activate:
      return formRaise(event.form);
    case FormEventKind::close:
      return toolCommand(frame.tool);
    case FormEventKind::destroy:
      if (frame.destroyed) frame.destroyed(event.form);
      return toolFormGone(frame.tool);
  }
}

// ---- Messages ---------------------------------------------------------------------------------------------------------

static bool isDigit(char c) { return c >= '0' && c <= '9'; }

void showReply(FormHandle form, int reply, std::string_view text) {
  formSetText(form, reply, "");
  formSetText(form, reply, text);
}

void reportOnReplyAndBox(FormHandle form, int reply, const char* title, std::string_view text, BoxIcon icon) {
  showReply(form, reply, text);
  boxShow(form, title, text, icon);
}

void showMessage(FormHandle form, int reply, const char* title, const Message& message, BoxIcon icon) {
  if (message.reply) showReply(form, reply, message.reply);
  if (message.box) boxShow(form, message.title ? message.title : title, message.box, icon);
  if (message.focus) formSetFocus(form, message.focus);
}

static void showMessage(FormHandle form, const StreamTexts& texts, const Message& message, BoxIcon icon) {
  showMessage(form, texts.reply, texts.title, message, icon);
}

// ---- Options ----------------------------------------------------------------------------------------------------------

unsigned formGetNumber(FormHandle form, int control) {
  const std::string text = formGetText(form, control, editTextLimit);
  std::size_t i = 0;
  while (i < text.size() && (text[i] == ' ' || text[i] == '\t')) ++i;
  std::uint64_t number = 0;
  for (; i < text.size() && isDigit(text[i]); ++i) {
    number = number * 10 + static_cast<unsigned>(text[i] - '0');
    if (number > std::numeric_limits<std::uint32_t>::max()) return 0;
  }
  return static_cast<unsigned>(number);
}

void showInitialLines(FormHandle form, const LinesPerPageRule& rule) {
  formSetText(form, rule.control, std::to_string(rule.initial));
}

unsigned captureLinesPerPage(FormHandle form, const LinesPerPageRule& rule) {
  const unsigned lines = formGetNumber(form, rule.control);
  if (lines >= 1 && lines <= rule.limit) return lines;
  if (rule.reply) showReply(form, rule.reply, rule.message);
  boxShow(rule.ownerless ? nullptr : form, rule.title, rule.message, BoxIcon::exclamation);
  if (rule.writeBack) formSetText(form, rule.writeBack, std::to_string(rule.fallback));
  return rule.fallback;
}

void limitEditText(FormHandle form, int control, std::string& previous, std::size_t limit, int mode) {
  const std::string text = formGetText(form, control, editTextLimit);
  const bool tooLong = text.size() > limit;
  const bool badCharacter = mode == editDigitsOnly && !std::all_of(text.begin(), text.end(), isDigit);
  if (tooLong || badCharacter) {
    formSetText(form, control, previous);
  } else {
    previous = text;
  }
}

void setControlsEnabled(FormHandle form, std::span<const int> controls, bool enabled) {
  for (int control : controls) formSetEnabled(form, control, enabled);
}

void setControlsVisible(FormHandle form, std::span<const int> controls, bool visible) {
  for (int control : controls) formSetVisible(form, control, visible);
}

void checkRadio(FormHandle form, std::span<const int> group, int checked) {
  for (int control : group) formSetChecked(form, control, control == checked);
}

// ---- Streams ----------------------------------------------------------------------------------------------------------

bool outputNameIsValid(std::string& name) {
  name = upperCased(name);
  return name.find_first_not_of("ABCDEFGHIJKLMNOPQRSTUVWXYZ1234567890.") == std::string::npos;
}

std::string noInputMessage() { return stringLoad(stringInputRequired, editTextLimit).value_or(noInputText); }

bool requireInputPath(FormHandle form, const StreamTexts& texts, const std::string& path) {
  if (!path.empty()) return true;
  const std::string text = noInputMessage();
  Message message = texts.noInput;
  if (message.box) message.box = text.c_str();
  showMessage(form, texts, message, BoxIcon::exclamation);
  return false;
}

bool openInputStream(FormHandle form, const StreamTexts& texts, const std::string& path, Input*& input) {
  input = inputOpen(path, texts.inputKind);
  inputHold(input);
  if (!input) showMessage(form, texts, texts.inputNotOpened, BoxIcon::error);
  return input != nullptr;
}

bool refuseEmptyName(FormHandle form, const StreamTexts& texts, const std::string& name) {
  if (!name.empty()) return false;
  showMessage(form, texts, texts.noOutputName, BoxIcon::exclamation);
  return true;
}

bool refuseBadName(FormHandle form, const StreamTexts& texts, std::string& name) {
  if (outputNameIsValid(name)) return false;
  showMessage(form, texts, texts.badOutputName, BoxIcon::exclamation);
  return true;
}

bool requireOutputName(FormHandle form, const StreamTexts& texts, std::string& name) {
  return !refuseEmptyName(form, texts, name) && !refuseBadName(form, texts, name);
}

bool refuseInputAsOutput(FormHandle form, const StreamTexts& texts, const std::string& path, const std::string& name) {
  if (!fileIsSame(path, name)) return false;
  showMessage(form, texts, texts.sameFile, BoxIcon::exclamation);
  return true;
}

static bool isPrinter(const std::string& name) { return upperCased(name) == "PRN"; }

bool openOutputStream(FormHandle form, const StreamTexts& texts, const std::string& name, Output*& output) {
  output = outputOpen(name);
  outputHold(output);
  if (output) return true;
  if (texts.printerTest == PrinterTest::anyCase && isPrinter(name)) {
    showMessage(form, texts, texts.printerNotOpened, BoxIcon::exclamation);
  } else {
    showMessage(form, texts, texts.outputNotOpened, BoxIcon::error);
  }
  return false;
}

bool openStreams(FormHandle form, const StreamTexts& texts, const std::string& path, std::string& name, Input*& input,
                 Output*& output) {
  if (!requireInputPath(form, texts, path)) return false;
  if (!openInputStream(form, texts, path, input)) return false;
  if (!requireOutputName(form, texts, name)) return false;
  if (refuseInputAsOutput(form, texts, path, name)) return false;
  if (openOutputStream(form, texts, name, output)) return true;
  (void)closeAllStreams();  // nothing was written yet
  return false;
}

bool closeAllStreams() {
  const bool written = outputCloseAll();
  inputCloseAll();
  return written;
}

void showEndOfRun(FormHandle form, int reply, const char* title, const char* completion, bool written) {
  if (written) {
    boxShow(form, title, completion, BoxIcon::information);
  } else {
    reportOnReplyAndBox(form, reply, title, writeFailedText, BoxIcon::error);
  }
}

}  // namespace quillon
