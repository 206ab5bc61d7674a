// The cut-over of 22 May 2009: files dated before it are printed in the old arrangement of columns.
#pragma once

namespace quillon {

enum class DateRuleSlot { brokerQuery = 1, convert = 2, trades = 3, orderLog = 4 };

// The year of a file header, whose date fields hold its first and its last two digits: the number that both read as, joined as
// text with two digits each.
long long fullYear(int century, int year);

// Sets the slot's flag from the date fields of a file header.
void applyDateRule(int century, int year, int month, int day, DateRuleSlot slot);

// True when the file last put to this slot is dated before 22 May 2009. False at the start of the program.
bool preCutoverFlag(DateRuleSlot slot);

}  // namespace quillon
