#include "pages/print_plan.h"

#include <algorithm>
#include <cstdint>

#include "pages/entered.h"
#include "text/print.h"

namespace quillon {

static std::int64_t number(std::uint64_t count) { return static_cast<std::int64_t>(count); }

// ---- Entries ----------------------------------------------------------------------------------------------------------

static bool readMargin(const std::string& text, double& margin) {
  double millimetres = 0;
  if (!enteredLength(text, 0, widestMargin, millimetres)) return false;
  margin = millimetres * pointsPerMillimetre;
  return true;
}

// Empty when all is well, otherwise what is wrong.
static std::string readMargins(const PrintEntries& entries, Margins& margins) {
  const char* wrong = nullptr;
  if (!readMargin(entries.bottom, margins.bottom)) wrong = "bottom";
  if (!readMargin(entries.right, margins.right)) wrong = "right";
  if (!readMargin(entries.top, margins.top)) wrong = "top";
  if (!readMargin(entries.left, margins.left)) wrong = "left";
  if (!wrong) return {};
  return formatText<"The %s margin is to be a number of millimetres from 0 to %d.">(wrong, static_cast<int>(widestMargin));
}

static std::string noSuchPage(std::size_t count) {
  if (count == 1) return "There is no such page: the report has one page.";
  return formatText<"There is no such page: the report has pages 1 to %I64d.">(number(count));
}

static std::string readPages(const PrintEntries& entries, std::size_t count, std::size_t thisPage, PrintPlan& plan) {
  plan.first = 0;
  plan.last = count - 1;
  if (entries.pages == PagesChosen::all) return {};
  if (entries.pages == PagesChosen::thisPage) {
    plan.first = plan.last = std::min(thisPage, count - 1);
    return {};
  }
  std::size_t from = 0;
  std::size_t to = count;
  if (!enteredCount(entries.from, 1, count, from)) return noSuchPage(count);
  if (!entries.to.empty() && !enteredCount(entries.to, 1, mostPages, to)) return noSuchPage(count);
  if (to < from) return "The first page comes behind the last one.";
  plan.first = from - 1;
  plan.last = std::min(to, count) - 1;
  return {};
}

static std::string readEntries(const PrintEntries& entries, const PageIndex& index, std::size_t thisPage, PrintPlan& plan) {
  const std::size_t count = pageCount(index);
  if (count == 0) return "The report has no page to print.";
  double& size = plan.wishes.fontSize;
  if (!entries.fontSize.empty() && !enteredLength(entries.fontSize, smallestFont, largestEnteredFont, size)) {
    return formatText<"The font size is to be a number of points from %d to %d.">(static_cast<int>(smallestFont),
                                                                                  static_cast<int>(largestEnteredFont));
  }
  if (std::string wrong = readMargins(entries, plan.wishes.margins); !wrong.empty()) return wrong;
  if (std::string wrong = readPages(entries, count, thisPage, plan); !wrong.empty()) return wrong;
  // No half report under the name of all of it.
  if (pageIndexIsFull(index) && plan.last + 1 == count) {
    return formatText<"The report has more pages than the %I64d that can be printed.">(number(count));
  }
  if (!enteredCount(entries.copies, 1, mostCopies, plan.copies)) {
    return formatText<"Copies are to be a number from 1 to %d.">(static_cast<int>(mostCopies));
  }
  return {};
}

// ---- The plan ---------------------------------------------------------------------------------------------------------

static std::string outcome(const PrintPlan& plan) {
  const std::size_t sheets = (plan.last - plan.first + 1) * plan.copies;
  std::string text = pageFitText(plan.fit);
  if (plan.fit.widened) text += ", margins as wide as the printer needs";
  return text + formatText<"; %I64d sheet%s">(number(sheets), sheets == 1 ? "" : "s");
}

PrintPlan printPlan(const PrintEntries& entries, const PrinterSheet& sheet, const PageIndex& index, std::size_t thisPage) {
  PrintPlan plan;
  plan.wishes.sheet = sheet.sheet;
  plan.wishes.barePortrait = sheet.barePortrait;
  plan.wishes.bareLandscape = sheet.bareLandscape;
  plan.wishes.orientation = sheet.turns ? entries.orientation : Orientation::portrait;
  plan.status = readEntries(entries, index, thisPage, plan);
  if (plan.status.empty() && !sheet.turns && entries.orientation == Orientation::landscape) {
    plan.status = "This printer cannot print landscape.";
  }
  if (!plan.status.empty()) return plan;
  plan.possible = pageFit(pageWidest(index), pageLongest(index), plan.wishes, plan.fit);
  plan.status = plan.possible ? outcome(plan) : "The margins leave no room on the sheet.";
  return plan;
}

std::string bytesText(std::uint64_t bytes) {
  std::string text = std::to_string(bytes);
  for (std::size_t at = text.size(); at > 3;) text.insert(at -= 3, 1, ',');
  return text + (bytes == 1 ? " byte" : " bytes");
}

}  // namespace quillon
