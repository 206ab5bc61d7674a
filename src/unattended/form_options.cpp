#include "unattended/form_options.h"

#include <algorithm>
#include <utility>

#include "frame/tools.h"
#include "text/encoding.h"
#include "text/letters.h"

namespace quillon {

// clang-format off
static constexpr NamedForm forms[] = {
    {"trades",             toolTrades},
    {"net-position",       toolNetPosition},
    {"slb-position",       toolSlbPosition},
    {"auction",            toolAuction},
    {"touchlines",         toolTouchlines},
    {"trader-limits",      toolTraderLimits},
    {"6a7a",               tool6A7A},
    {"breakup",            toolBreakup},
    {"broker-query",       toolBrokerQuery},
    {"convert",            toolConvert},
    {"delivery-slips",     toolDelivery},
    {"kesto",              toolKesto},
    {"kesto-net-position", toolKestoNetPosition},
    {"order-log",          toolOrderLog},
    {"quote-log",          toolQuoteLog},
    {"admin-log",          toolAdminLog},
};
// clang-format on

const NamedForm* formNamed(std::string_view name) {
  for (const NamedForm& form : forms) {
    if (upperCased(name) == upperCased(form.name)) return &form;
  }
  return nullptr;
}

std::vector<const NamedForm*> formNames() {
  std::vector<const NamedForm*> names;
  for (const NamedForm& form : forms) names.push_back(&form);
  return names;
}

// ---- Words ------------------------------------------------------------------------------------------------------------

static bool isSmall(char c) { return c >= 'a' && c <= 'z'; }
static bool isCapital(char c) { return c >= 'A' && c <= 'Z'; }
static bool isLetterOrDigit(char c) { return isSmall(c) || isCapital(c) || (c >= '0' && c <= '9'); }

static std::string lettersOf(std::string_view text) {
  std::string letters;
  for (const char c : text) {
    if (isLetterOrDigit(c)) letters += upperCase(c);
  }
  return letters;
}

bool sameWords(std::string_view one, std::string_view other) {
  const std::string letters = lettersOf(one);
  return !letters.empty() && letters == lettersOf(other);
}

std::string optionName(std::string_view label) {
  std::string name;
  char before = ' ';
  for (const char c : label) {
    if (!isLetterOrDigit(c)) {
      before = c == '&' ? before : ' ';
      continue;
    }
    if (!name.empty() && (before == ' ' || (isSmall(before) && isCapital(c)))) name += '-';
    name += isCapital(c) ? static_cast<char>(c - 'A' + 'a') : c;
    before = c;
  }
  return name;
}

// Without the mark of the access key and the blanks around.
static std::string shownWords(std::string_view label) {
  std::string words(label);
  std::erase(words, '&');
  const std::size_t first = words.find_first_not_of(' ');
  if (first == std::string::npos) return {};
  return words.substr(first, words.find_last_not_of(' ') + 1 - first);
}

// ---- Parts ------------------------------------------------------------------------------------------------------------

static bool isOutFileLabel(std::string_view label) {
  const std::string letters = lettersOf(label);
  return letters.find("OUTFILE") != std::string::npos || letters.find("OUTPUTFILE") != std::string::npos;
}

static void takeButton(FormParts& parts, const ControlTemplate& control) {
  const std::string letters = lettersOf(control.text);
  if (letters.starts_with("LOAD")) parts.load = control.id;
  if (letters.starts_with("PRINT")) parts.print = control.id;
  if (letters == "CONVERT") parts.convert = control.id;
}

static void takeEdit(FormParts& parts, const ControlTemplate& control, const std::string& label) {
  if (sameWords(label, "Reply")) {
    parts.reply = control.id;
  } else if (isOutFileLabel(label)) {
    parts.outFile = control.id;
  } else if (!control.readOnly) {
    parts.options.push_back({control.kind, control.id, "", shownWords(label), "--" + optionName(label)});
  }
}

// Controls stand in tab order: a label ahead of what it names, a group's box ahead of what is in it.
static void takeControl(FormParts& parts, const ControlTemplate& control, std::string& group, std::string& label) {
  switch (control.kind) {
    case ControlKind::groupBox:
      group = shownWords(control.text);
      return;
    case ControlKind::label:
      label = control.text;
      return;
    case ControlKind::pushButton:
      return takeButton(parts, control);
    case ControlKind::edit:
    case ControlKind::list:
      return takeEdit(parts, control, label);
    case ControlKind::radioButton:
      if (sameWords(group, "Print To")) {
        if (sameWords(control.text, "Printer")) parts.printer = control.id;
        return;
      }
      break;
    case ControlKind::checkBox:
      // Check boxes that begin a group of their own stand outside the box before them.
      if (control.group && !group.empty()) group.clear();
      break;
    case ControlKind::other:
      return;
  }
  parts.options.push_back({control.kind, control.id, group, shownWords(control.text), ""});
}

static const char* resourceOf(const NamedForm& form) {
  for (const ToolButton& button : toolTable) {
    if (button.tool == form.tool) return button.form;
  }
  return "";
}

std::optional<FormParts> formParts(const NamedForm& form) {
  FormParts parts;
  parts.resource = resourceOf(form);
  const std::optional<DialogTemplate> dialog = resourceDialog(resourceBytes(), parts.resource);
  if (!dialog) return std::nullopt;
  std::string group;
  std::string label;
  for (const ControlTemplate& control : dialog->controls) takeControl(parts, control, group, label);
  if (parts.load < 0 || (parts.print < 0 && parts.convert < 0)) return std::nullopt;
  return parts;
}

// ---- Settings ---------------------------------------------------------------------------------------------------------

bool isSortOption(const FormOption& option) {
  return option.kind == ControlKind::radioButton && lettersOf(option.group).starts_with("SORT");
}

static bool answersTo(const FormOption& option, const std::string& word, const std::string& value) {
  if (option.kind == ControlKind::edit || option.kind == ControlKind::list) return sameWords(option.name, word);
  if (!sameWords(option.label, bytesFromUtf8(value))) return false;
  if (word == "--sort") return isSortOption(option);
  if (word == "--select") return option.kind == ControlKind::radioButton && !isSortOption(option);
  return (word == "--check" || word == "--uncheck") && option.kind == ControlKind::checkBox;
}

std::optional<FormSetting> formSetting(const FormParts& parts, const std::string& word, const std::string& value) {
  for (const FormOption& option : parts.options) {
    if (!answersTo(option, word, value)) continue;
    std::string asGiven = word;
    asGiven += " \"" + value + "\"";
    return FormSetting{option, value, word != "--uncheck", std::move(asGiven)};
  }
  return std::nullopt;
}

}  // namespace quillon
