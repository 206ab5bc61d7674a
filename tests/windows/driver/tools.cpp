#include "tools.h"

#include <algorithm>
#include <cstring>
#include <map>

#include "program.h"

namespace driving {

// clang-format off
const std::vector<Tool> tools = {
    {20006, L"PRNTRPT"},
    {20007, L"PRNTNP"},
    {7020, L"PRNTNPRET"},
    {20008, L"AUCRPT"},
    {20009, L"PRNTTLINE"},
    {20010, L"PRNTTRDLM"},
    {20011, L"PRNTSIXASEVENA"},
    {20012, L"PRNTBRKUP"},
    {20013, L"PRNTBRKREP"},
    {20014, L"CONVERT"},
    {40033, L"DELV"},
    {20015, L"PRNTVQLS"},
    {20016, L"PRNTNETPOS"},
    {4049, L"PRNTORDLOG"},
    {20018, L"PRNTQUOTELOG"},
    {40037, L"PRNTADMINLOG"},
};

const std::vector<Key> keys = {
    {"F1", VK_F1, 0, 20006},   {"F2", VK_F2, 0, 20007},   {"Ctrl+F2", VK_F2, VK_CONTROL, 7020},
    {"F3", VK_F3, 0, 20008},   {"F4", VK_F4, 0, 20009},   {"F5", VK_F5, 0, 20010},
    {"F6", VK_F6, 0, 20011},   {"F7", VK_F7, 0, 20012},   {"F8", VK_F8, 0, 20013},
    {"F9", VK_F9, 0, 20014},   {"F10", VK_F10, 0, 20015}, {"F11", VK_F11, 0, 20016},
    {"Shift+F12", VK_F12, VK_SHIFT, 20018},               {"Ctrl+F1", VK_F1, VK_CONTROL, 40037},
};
// clang-format on

const Tool* toolNamed(const std::wstring& form) {
  for (const Tool& tool : tools) {
    if (tool.form == form) return &tool;
  }
  return nullptr;
}

const Tool* toolOf(int id) {
  for (const Tool& tool : tools) {
    if (tool.id == id) return &tool;
  }
  return nullptr;
}

// ---- Forms and the ids of their controls -------------------------------------------------------------------------------

namespace {

std::map<const Tool*, std::vector<int>> idsOfForms;
std::map<HWND, const Tool*> knownForms;  // as long as they have their controls

// Goes through the bytes of a dialog resource, the extended kind of which all forms are.
struct Reader {
  const BYTE* at;
  template <class Value>
  Value take() {
    Value value;
    std::memcpy(&value, at, sizeof value);
    at += sizeof value;
    return value;
  }
  void skip(std::size_t bytes) { at += bytes; }
  void align(const BYTE* start) { at += (4 - (at - start) % 4) % 4; }
  void skipText() {
    while (take<WORD>() != 0) continue;
  }
  void skipNameOrNumber() {
    const WORD first = take<WORD>();
    if (first == 0xFFFF)
      skip(sizeof(WORD));
    else if (first != 0)
      skipText();
  }
};

// Of every control that has an id.
std::vector<int> idsIn(const BYTE* resource) {
  Reader reader = {resource};
  reader.skip(12);  // version, mark, help, extended style
  const DWORD style = reader.take<DWORD>();
  const WORD count = reader.take<WORD>();
  reader.skip(8);  // place and size
  reader.skipNameOrNumber();
  reader.skipNameOrNumber();
  reader.skipText();
  if (style & DS_SETFONT) {
    reader.skip(6);  // size, weight, slant, character set
    reader.skipText();
  }
  std::vector<int> ids;
  for (WORD i = 0; i < count; ++i) {
    reader.align(resource);
    reader.skip(20);  // help, styles, place and size
    const DWORD id = reader.take<DWORD>();
    if ((id & 0xFFFF) != 0xFFFF) ids.push_back(static_cast<int>(id & 0xFFFF));
    reader.skipNameOrNumber();
    reader.skipNameOrNumber();
    reader.skip(reader.take<WORD>());
  }
  return ids;
}

}  // namespace

void learnForms(const wchar_t* program) {
  const HMODULE module = LoadLibraryExW(program, nullptr, LOAD_LIBRARY_AS_DATAFILE);
  for (const Tool& tool : tools) {
    const HRSRC found = FindResourceW(module, tool.form, MAKEINTRESOURCEW(5));  // a dialog
    if (found) idsOfForms[&tool] = idsIn(static_cast<const BYTE*>(LockResource(LoadResource(module, found))));
  }
  FreeLibrary(module);
}

const Tool* formOf(HWND window) {
  const auto isThere = [window](int id) { return GetDlgItem(window, id) != nullptr; };
  const auto known = knownForms.find(window);
  if (known != knownForms.end()) {
    if (isThere(idsOfForms[known->second].front())) return known->second;
    knownForms.erase(known);
  }
  if (classOf(window) != L"#32770") return nullptr;
  for (const auto& [tool, ids] : idsOfForms) {
    if (ids.empty() || !std::all_of(ids.begin(), ids.end(), isThere)) continue;
    knownForms[window] = tool;
    return tool;
  }
  return nullptr;
}

}  // namespace driving
