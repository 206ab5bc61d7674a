#include "frame/report_form.h"

#include <algorithm>
#include <cstdint>
#include <limits>

#include "desktop/files.h"
#include "desktop/strings.h"
#include "text/letters.h"

namespace quillon {

static constexpr std::size_t editTextLimit = 300;
static constexpr int stringInputRequired = 2036;

static bool isDigit(char c) { return c >= '0' && c <= '9'; }

void showReply(FormHandle form, int reply, std::string_view text) {
  formSetText(form, reply, "");
  formSetText(form, reply, text);
}

void reportOnReplyAndBox(FormHandle form, int reply, const char* title, std::string_view text, BoxIcon icon) {
  showReply(form, reply, text);
  boxShow(form, title, text, icon);
}

static void showMessage(FormHandle form, const StreamTexts& texts, const Message& message, BoxIcon icon) {
  if (message.reply) showReply(form, texts.reply, message.reply);
  boxShow(form, texts.title, message.box, icon);
}

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

unsigned captureLinesPerPage(FormHandle form, const LinesPerPageRule& rule) {
  const unsigned lines = formGetNumber(form, rule.control);
  if (lines >= 1 && lines <= rule.limit) return lines;
  if (rule.reply) showReply(form, rule.reply, rule.message);
  boxShow(form, rule.title, rule.message, BoxIcon::exclamation);
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

bool outputNameIsValid(std::string& name) {
  name = upperCased(name);
  return name.find_first_not_of("ABCDEFGHIJKLMNOPQRSTUVWXYZ1234567890.") == std::string::npos;
}

bool requireInputPath(FormHandle form, const StreamTexts& texts, const std::string& path) {
  if (!path.empty()) return true;
  const std::string text = stringLoad(stringInputRequired, editTextLimit).value_or(noInputText);
  if (texts.noInput.reply) showReply(form, texts.reply, texts.noInput.reply);
  boxShow(form, texts.title, text, BoxIcon::exclamation);
  return false;
}

Input* openInputStream(FormHandle form, const StreamTexts& texts, const std::string& path) {
  Input* input = inputOpen(path, texts.inputKind);
  if (!input) showMessage(form, texts, texts.inputNotOpened, BoxIcon::error);
  return input;
}

bool requireOutputName(FormHandle form, const StreamTexts& texts, std::string& name) {
  if (name.empty()) {
    showMessage(form, texts, texts.noOutputName, BoxIcon::exclamation);
    return false;
  }
  if (!outputNameIsValid(name)) {
    showMessage(form, texts, texts.badOutputName, BoxIcon::exclamation);
    return false;
  }
  return true;
}

bool refuseInputAsOutput(FormHandle form, const StreamTexts& texts, const std::string& path, const std::string& name) {
  if (!fileIsSame(path, name)) return false;
  showMessage(form, texts, texts.sameFile, BoxIcon::exclamation);
  return true;
}

static bool isPrinter(const std::string& name) { return upperCased(name) == "PRN"; }

Output* openOutputStream(FormHandle form, const StreamTexts& texts, const std::string& name) {
  Output* output = outputOpen(name);
  if (output) return output;
  if (texts.printerTest == PrinterTest::anyCase && isPrinter(name)) {
    showMessage(form, texts, texts.printerNotOpened, BoxIcon::exclamation);
  } else {
    showMessage(form, texts, texts.outputNotOpened, BoxIcon::error);
  }
  return nullptr;
}

bool openStreams(FormHandle form, const StreamTexts& texts, const std::string& path, std::string& name, Input*& input,
                 Output*& output) {
  if (!requireInputPath(form, texts, path)) return false;
  input = openInputStream(form, texts, path);
  if (!input) return false;
  if (!requireOutputName(form, texts, name)) return false;
  if (refuseInputAsOutput(form, texts, path, name)) return false;
  output = openOutputStream(form, texts, name);
  if (!output) {
    (void)closeAllStreams();  // nothing was written yet
    return false;
  }
  return true;
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
