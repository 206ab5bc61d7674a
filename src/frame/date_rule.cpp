#include "frame/date_rule.h"

#include <cstdio>
#include <cstdlib>

namespace quillon {

static bool preCutoverFlags[5];

long long fullYear(int century, int year) {
  char digits[32];
  std::snprintf(digits, sizeof digits, "%02d%02d", century, year);
  return std::strtoll(digits, nullptr, 10);
}

void applyDateRule(int century, int year, int month, int day, DateRuleSlot slot) {
  bool& flag = preCutoverFlags[static_cast<int>(slot)];
  flag = false;
  const long long joined = fullYear(century, year);
  if (joined == 2009) {
    if (month == 5 && day < 22) flag = true;
    if (month < 5) flag = true;
  }
  if (joined < 2009) flag = true;
}

bool preCutoverFlag(DateRuleSlot slot) { return preCutoverFlags[static_cast<int>(slot)]; }

}  // namespace quillon
