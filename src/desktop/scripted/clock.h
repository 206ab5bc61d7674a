// The clock of the scripted desktop: the machine's own until a script stops it.
#pragma once

#include <string_view>

#include "desktop/clock.h"

namespace quillon {

// "2009-05-22 10:11:12": the clock stands at this moment from here on. False, and no change, where the text is no moment.
bool clockStop(std::string_view text);
void clockReset();  // it runs

}  // namespace quillon
