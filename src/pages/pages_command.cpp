#include "pages/pages_command.h"

#include <utility>

#include "pages/entered.h"
#include "text/letters.h"

namespace quillon {

std::string_view pagesHelp() {
  return "Shows, prints and keeps reports.\n"
         "\n"
         "quillon-pages [REPORT or FOLDER]             shows it\n"
         "quillon-pages REPORT /print PRINTER          prints it, fitted to the sheet\n"
         "quillon-pages REPORT /raw PRINTER            hands its bytes to the printer as they are\n"
         "quillon-pages REPORT /pdf FILE               keeps it as PDF\n"
         "quillon-pages /list-printers                 lists the printers\n"
         "\n"
         "With /print and /pdf alone:\n"
         "  /pages 3 or 3-7 or 3-                      these pages only\n"
         "  /portrait, /landscape                      the sheet lies so (otherwise as fits better)\n"
         "  /font POINTS                               letters of this size (otherwise as large as fits)\n"
         "  /margin MILLIMETRES                        at all four edges (otherwise 10)\n"
         "  /paper A4, A3, Letter or Legal             the sheet (otherwise the printer's own; A4 for a PDF)\n"
         "With /print alone: /copies N\n"
         "With all but /raw:\n"
         "  /lines N                                   lines a page where a report has no form feeds (otherwise 66)\n"
         "\n"
         "The status is 0 when all is done, 2 for a wrong call, 3 when the report cannot be read, 4 when it has no such\n"
         "page, 5 when the margins leave no room, 6 for an unknown printer, 7 when the printer failed, 8 when the PDF\n"
         "cannot be written, 1 for anything else.\n";
}

// ---- Values -----------------------------------------------------------------------------------------------------------

// "3", "3-7" or "3-", counted from 1.
static bool readPages(std::string_view text, PagesCommand& command) {
  const std::size_t dash = text.find('-');
  std::size_t first = 0;
  std::size_t last = mostPages;
  if (!enteredCount(text.substr(0, dash), 1, mostPages, first)) return false;
  if (dash == std::string_view::npos) {
    last = first;
  } else if (dash + 1 < text.size() && !enteredCount(text.substr(dash + 1), first, mostPages, last)) {
    return false;
  }
  command.firstPage = first - 1;
  command.lastPage = last - 1;
  return true;
}

static bool readMargin(std::string_view text, PagesCommand& command) {
  double millimetres = 0;
  if (!enteredLength(text, 0, widestMargin, millimetres)) return false;
  const double margin = millimetres * pointsPerMillimetre;
  command.wishes.margins = {margin, margin, margin, margin};
  command.marginsGiven = true;
  return true;
}

static bool readPaper(std::string_view text, PagesCommand& command) {
  command.sheetGiven = sheetByName(text, command.wishes.sheet);
  return command.sheetGiven;
}

// ---- Options ----------------------------------------------------------------------------------------------------------

// An option with a value; false when it is none of these. A value that cannot be taken makes the call a wrong one.
static bool takeValue(std::string_view option, const std::string& value, PagesCommand& command, bool& valid) {
  const auto act = [&](PagesAction action, std::string& name) {
    valid = !value.empty() && command.action == PagesAction::show;
    command.action = action;
    name = value;
  };
  valid = true;
  if (option == "PRINT") return act(PagesAction::print, command.printer), true;
  if (option == "RAW") return act(PagesAction::raw, command.printer), true;
  if (option == "PDF") return act(PagesAction::pdf, command.file), true;
  if (option == "PAGES") return valid = readPages(value, command), true;
  if (option == "FONT") return valid = enteredLength(value, smallestFont, largestEnteredFont, command.wishes.fontSize), true;
  if (option == "MARGIN") return valid = readMargin(value, command), true;
  if (option == "PAPER") return valid = readPaper(value, command), true;
  if (option == "LINES") return valid = enteredCount(value, 1, longestPage, command.flowLines), true;
  if (option == "COPIES") return valid = enteredCount(value, 1, mostCopies, command.copies), true;
  return false;
}

// An option that stands by itself; false when it is none of these.
static bool takePlain(std::string_view option, PagesCommand& command, bool& valid) {
  valid = true;
  if (option == "PORTRAIT" || option == "LANDSCAPE") {
    const Orientation wanted = option == "PORTRAIT" ? Orientation::portrait : Orientation::landscape;
    valid = command.wishes.orientation == Orientation::automatic || command.wishes.orientation == wanted;
    command.wishes.orientation = wanted;
    return true;
  }
  if (option == "LIST-PRINTERS") {
    valid = command.action == PagesAction::show;
    command.action = PagesAction::listPrinters;
    return true;
  }
  return false;
}

static PagesCommand wrongCall(std::string problem) {
  PagesCommand command;
  command.action = PagesAction::wrongCall;
  command.problem = std::move(problem);
  return command;
}

static bool isOption(const std::string& argument) { return argument.size() > 1 && (argument[0] == '/' || argument[0] == '-'); }

// What would have no effect is refused: who hands pages 3 to 5 to a printer as they are would get all of them. The lines of a
// page go with a window too.
static const char* withoutEffect(const PagesCommand& command) {
  const bool printed = command.action == PagesAction::print;
  const FitWishes& wishes = command.wishes;
  const bool part = command.firstPage != 0 || command.lastPage != mostPages;
  const bool fitted = wishes.fontSize > 0 || wishes.orientation != Orientation::automatic;
  const bool forPages = part || fitted || command.marginsGiven || command.sheetGiven;
  if (forPages && !printed && command.action != PagesAction::pdf) {
    return "/pages, /portrait, /landscape, /font, /margin and /paper go with /print and /pdf alone.";
  }
  if (command.copies > 1 && !printed) return "/copies goes with /print alone.";
  if (command.flowLines != usualFlowLines && command.action == PagesAction::raw) return "/lines does not go with /raw.";
  return nullptr;
}

PagesCommand pagesCommand(const std::vector<std::string>& arguments) {
  PagesCommand command;
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    const std::string& argument = arguments[i];
    if (!isOption(argument)) {
      if (!command.report.empty()) return wrongCall("One report at a time: \"" + argument + "\" is a second one.");
      command.report = argument;
      continue;
    }
    const std::string option = upperCased(argument.substr(argument.starts_with("--") ? 2 : 1));
    if (option == "?" || option == "H" || option == "HELP") {
      command.action = PagesAction::help;
      return command;
    }
    bool valid = true;
    if (takePlain(option, command, valid)) {
      if (!valid) return wrongCall("\"" + argument + "\" does not go with what was asked before it.");
      continue;
    }
    const bool last = i + 1 == arguments.size();
    PagesCommand tried = command;
    if (!takeValue(option, last ? std::string() : arguments[i + 1], tried, valid)) {
      return wrongCall("There is no option \"" + argument + "\".");
    }
    if (last) return wrongCall("\"" + argument + "\" needs a value behind it.");
    if (!valid) return wrongCall("\"" + argument + " " + arguments[i + 1] + "\" cannot be done.");
    command = std::move(tried);
    ++i;
  }
  const bool needsReport =
      command.action == PagesAction::print || command.action == PagesAction::pdf || command.action == PagesAction::raw;
  if (needsReport && command.report.empty()) return wrongCall("The report is missing.");
  const char* const problem = withoutEffect(command);
  return problem ? wrongCall(problem) : command;
}

}  // namespace quillon
