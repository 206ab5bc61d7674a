// Message boxes of the scripted desktop: told in the transcript, answered from a queue.
#pragma once

#include "desktop/boxes.h"

namespace quillon {

void boxQueueAnswer(BoxChoice answer);  // for the next box that has a choice
void boxesReset();

}  // namespace quillon
