// The date that a report bears of its own run.
#pragma once

#include <string>

#include "desktop/clock.h"

namespace quillon {

// "dd/mm/yyyy"; a year of fewer digits stays as short as it is.
std::string runDateText(const LocalTime& time);

}  // namespace quillon
