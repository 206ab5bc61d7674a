// The cut-over of 22 May 2009: files dated before it are printed in the old arrangement of columns.
#pragma once

namespace quillon {

enum class DateRuleSlot { brokerQuery = 1, convert = 2, trades = 3, orderLog = 4 };

// Sets the slot's flag from the date fields of a file header: `century` and `year` are the first and the last two digits of
// the year, joined as text with two digits each.
void applyDateRule(int century, int year, int month, int day, DateRuleSlot slot);

// True when the file last put to this slot is dated before 22 May 2009. False at the start of the program.
bool preCutoverFlag(DateRuleSlot slot);

}  // namespace quillon
