// What tells the two position tools apart: Net Position for the exchange's own market and Kesto, SLB Position for the lending
// market. Everything else is common to both.
#pragma once

#include <array>

#include "position/position_engine.h"

namespace quillon {

// The words of a report that are the tool's own.
struct PositionWords {
  bool hasLendingLayout;         // a lending-market file has its own page title, headings and rows
  const char* clientScripTitle;  // of a normal file; a Kesto file has the words of Net Position in either tool
  const char* scripClientTitle;  // likewise
  const char* endClientWise;     // last line of each report
  const char* endClientScrip;
  const char* endScripClient;
  const char* endScripWise;
};

// Control ids of a form.
struct PositionControls {
  int load;
  int clientWise, scripWise, clientScrip, scripClient;  // the report's radio buttons
  int clientList, clientListLabel;
  int scripList, scripListLabel;
  int printer, file;
  std::array<int, 2> outFileControls;  // the edit, then its label
  int lines;
  int print, cancel;
  int reply;
};

struct PositionTool {
  int tool;         // the toolbar button
  int loadRequest;  // which files the open-file dialog offers
  bool always144;   // reads 144-byte records whatever the header's letter says
  const char* plainTitle;
  const char* loadedTitle;         // in front of the file's name
  const char* loadedTitleLending;  // the same for a lending-market file
  const char* completionTitle;     // of the last box
  const char* clientsInScripFailed;
  const char* scNetPosFailed;
  PositionControls controls;
  PositionWords words;
};

extern const PositionTool netPositionTool;
extern const PositionTool slbPositionTool;

}  // namespace quillon
