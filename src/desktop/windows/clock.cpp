// The local clock of the machine.
#include "desktop/clock.h"

#include "desktop/windows/start.h"

namespace quillon {

LocalTime clockNow() {
  SYSTEMTIME time = {};
  GetLocalTime(&time);
  return {
      .year = time.wYear,
      .month = time.wMonth,
      .day = time.wDay,
      .hour = time.wHour,
      .minute = time.wMinute,
      .second = time.wSecond,
  };
}

}  // namespace quillon
