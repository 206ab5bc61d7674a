// Message boxes of the scripted desktop: told in the transcript, answered from a queue.
#pragma once

#include "desktop/boxes.h"

namespace quillon {

void boxQueueAnswer(BoxChoice answer);  // for the next box that has a choice

// What a user reads of a box, and how it was answered.
struct BoxTold {
  const char* title;      // null: it has none of its own
  std::string_view text;  // Windows-1252
  BoxIcon icon;
  bool isQuestion;
  BoxChoice answer;  // of a question
};
void boxesListen(void (*told)(const BoxTold& box));  // beside the transcript; null: nobody listens

void boxesReset();

}  // namespace quillon
