// The local clock.
#pragma once

namespace quillon {

struct LocalTime {
  int year, month, day, hour, minute, second;  // year in full, month and day from 1
};

LocalTime clockNow();

}  // namespace quillon
