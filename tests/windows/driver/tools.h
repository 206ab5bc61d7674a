// The tools of the program, their keys, and the forms that they open.
#pragma once

#include <string>
#include <vector>

#include "system.h"

namespace driving {

struct Tool {
  int id;
  const wchar_t* form;
};
extern const std::vector<Tool> tools;  // in the order of the buttons

struct Key {
  const char* name;
  WORD code;
  WORD modifier;  // 0: none
  int tool;
};
extern const std::vector<Key> keys;

const Tool* toolNamed(const std::wstring& form);
const Tool* toolOf(int id);

// Reads from the program's own resources by which controls each of its forms is known. Those that it does not have are passed
// over.
void learnForms(const wchar_t* program);
// The tool whose form this window is; null where it is none.
const Tool* formOf(HWND window);

}  // namespace driving
