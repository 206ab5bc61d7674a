// What can be seen of the forms, and what has changed on them since it was last written.
#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "tools.h"

namespace driving {

enum class Kind { other, button, radio, check, edit, list };

struct ControlView {
  HWND window;
  Kind kind;
  std::wstring text;
  bool enabled;
  bool visible;
  bool checked;
  std::vector<std::wstring> items;
  std::optional<std::wstring> selected;
};

struct FormView {
  HWND window;
  std::wstring title;
  int focus;                                          // 0: none that has an id
  std::vector<std::pair<int, ControlView>> controls;  // in tab order
};

Kind kindOf(HWND control);
std::wstring itemOf(HWND list, LRESULT index);
bool isChecked(const Tool& tool);  // its button on the toolbar

void writeForm(const Tool* tool, HWND window, bool whole);
void writeOpenAndClosed();
void writeTools();    // the buttons of the toolbar
void writeChanges();  // what opened and closed, and what is different on the forms

}  // namespace driving
