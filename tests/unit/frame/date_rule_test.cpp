#include "frame/date_rule.h"

#include <gtest/gtest.h>

namespace quillon {

struct DateCase {
  int century, year, month, day;
  bool before;
};

static constexpr DateRuleSlot slots[] = {DateRuleSlot::brokerQuery, DateRuleSlot::convert, DateRuleSlot::trades,
                                         DateRuleSlot::orderLog};

TEST(DateRule, datesBefore22May2009) {
  static constexpr DateCase rows[] = {
      {20, 9, 5, 21, true},   // the last day of the old form
      {20, 9, 5, 22, false},  // the day itself
      {20, 9, 5, 23, false},
      {20, 9, 5, 1, true},
      {20, 9, 4, 30, true},  // any earlier month, whatever the day
      {20, 9, 1, 31, true},
      {20, 9, 6, 1, false},  // any later month
      {20, 9, 12, 31, false},
      {20, 8, 12, 31, true},  // any date of 2008
      {20, 8, 1, 1, true},
      {19, 99, 12, 31, true},
      {20, 10, 1, 1, false},  // and none of 2010
      {20, 10, 5, 21, false},
      {21, 0, 1, 1, false},
      // What no calendar has does no harm: two digits each, read as one number.
      {20, 109, 1, 1, false},  // 20109
      {0, 0, 0, 0, true},
      {20, -1, 1, 1, true},  // "20-1" is 20
      {32767, 32767, 1, 1, false},
      {-32768, -32768, 1, 1, true},
  };
  for (const DateCase& row : rows) {
    for (const DateRuleSlot slot : slots) {
      applyDateRule(row.century, row.year, row.month, row.day, slot);
      EXPECT_EQ(preCutoverFlag(slot), row.before) << row.century << " " << row.year << " " << row.month << " " << row.day;
    }
  }
}

TEST(DateRule, eachSlotKeepsItsOwnFlag) {
  for (const DateRuleSlot slot : slots) applyDateRule(20, 10, 1, 1, slot);
  applyDateRule(20, 8, 1, 1, DateRuleSlot::trades);
  EXPECT_TRUE(preCutoverFlag(DateRuleSlot::trades));
  EXPECT_FALSE(preCutoverFlag(DateRuleSlot::brokerQuery));
  EXPECT_FALSE(preCutoverFlag(DateRuleSlot::convert));
  EXPECT_FALSE(preCutoverFlag(DateRuleSlot::orderLog));
}

TEST(DateRule, laterFileClearsTheFlag) {
  applyDateRule(20, 9, 5, 21, DateRuleSlot::trades);
  applyDateRule(20, 9, 5, 22, DateRuleSlot::trades);
  EXPECT_FALSE(preCutoverFlag(DateRuleSlot::trades));
}

}  // namespace quillon
