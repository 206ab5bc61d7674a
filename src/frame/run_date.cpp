#include "frame/run_date.h"

#include "text/print.h"

namespace quillon {

std::string runDateText(const LocalTime& time) { return formatText<"%02d/%02d/%d">(time.day, time.month, time.year); }

}  // namespace quillon
