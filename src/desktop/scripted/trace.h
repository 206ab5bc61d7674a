// The trace window on the scripted desktop. No script can bring it up, since nothing in the program does; a test looks at it
// and works it here.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "desktop/trace.h"

namespace quillon {

struct TraceView {
  TraceTemplate made;
  bool minimised = false;
  int clientHeight = 0;
  int scrollFirst = 0, scrollLast = 0, scrollPosition = 0;
  std::map<int, std::string> menu;  // by id
  std::vector<std::string> rows;    // what was drawn on each, blanks at the end left out
  int drawn = 0;                    // rows drawn so far, so that a test sees whether anything was
};

// The one that is open, or null. Its line height is 10 pixels.
TraceView* traceView();
void traceSend(TraceEventKind kind, int number = 0);  // what a user does to it
void traceDestroy();                                  // with its owner
void traceReset();

}  // namespace quillon
