// The date that a report bears of its own run.
#include "frame/run_date.h"

#include <gtest/gtest.h>

namespace quillon::test {

TEST(RunDate, isDayMonthAndYear) {
  EXPECT_EQ(runDateText({.year = 2009, .month = 5, .day = 6, .hour = 10, .minute = 11, .second = 12}), "06/05/2009");
  EXPECT_EQ(runDateText({.year = 2010, .month = 12, .day = 31, .hour = 23, .minute = 59, .second = 59}), "31/12/2010");
}

}  // namespace quillon::test
