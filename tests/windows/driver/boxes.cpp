#include <algorithm>
#include <cstdio>
#include <string>
#include <vector>

#include "dialogs.h"
#include "pictures.h"
#include "program.h"
#include "texts.h"

namespace driving {

static const char* iconOf(HWND box) {
  for (HWND child : childrenOf(box)) {
    if (classOf(child) != L"Static" || (GetWindowLongPtrW(child, GWL_STYLE) & SS_TYPEMASK) != SS_ICON) continue;
    if (!IsWindowVisible(child)) continue;
    const char* name = nullptr;
    waitFor("the icon of a box to be drawn", commandDeadline, [&] { return (name = iconOnScreen(child)) != nullptr; });
    return name;
  }
  return "none";
}

static std::wstring wordsOf(HWND box) {
  for (HWND child : childrenOf(box)) {
    if (classOf(child) == L"Static" && (GetWindowLongPtrW(child, GWL_STYLE) & SS_TYPEMASK) != SS_ICON) return textOf(child);
  }
  return {};
}

void pressAndWait(HWND dialog, int button) {
  PostMessageW(GetDlgItem(dialog, button), BM_CLICK, 0, 0);
  waitFor("a box to go", commandDeadline, [&] { return !IsWindow(dialog) || !IsWindowVisible(dialog); });
}

static const char* nameOfButton(int id) {
  switch (id) {
    case IDOK:
      return "ok";
    case IDYES:
      return "yes";
    case IDNO:
      return "no";
    default:
      return "unknown";
  }
}

void expectBlocked(HWND dialog) {
  for (HWND window : topWindows()) {
    const bool ours = window == driver.mainWindow || formOf(window);
    if (ours && window != dialog && IsWindowEnabled(window)) {
      std::fprintf(stderr, "driver: \"%s\" takes input while \"%s\" is open\n", narrow(textOf(window)).c_str(),
                   narrow(textOf(dialog)).c_str());
    }
  }
}

std::string ownerOf(HWND dialog) {
  const HWND owner = GetWindow(dialog, GW_OWNER);
  if (!owner) return "none";
  if (owner == driver.mainWindow) return "main";
  const Tool* tool = formOf(owner);
  return tool ? narrow(tool->form) : "unknown";
}

void interrupt() {
  if (!driver.interrupts) return;
  driver.interrupts = false;
  std::vector<HWND> windows = {driver.mainWindow};
  for (const auto& [tool, window] : driver.open) windows.push_back(window);
  bool mayEnd = true;
  for (HWND window : windows) {
    ask(window, WM_CLOSE);
    mayEnd = mayEnd && ask(window, WM_QUERYENDSESSION) != 0;
  }
  const auto isThere = [](HWND window) { return IsWindow(window) && IsWindowVisible(window); };
  std::string pieces;
  add(pieces, "windows", std::to_string(std::count_if(windows.begin(), windows.end(), isThere)));
  add(pieces, "mayEnd", truth(mayEnd));
  write("{\"interrupted\":{" + pieces + "}}");
}

void answerBox(HWND box) {
  expectBlocked(box);
  interrupt();
  std::vector<int> buttons;
  int standard = 0;
  for (HWND child : childrenOf(box)) {
    if (kindOf(child) != Kind::button || !IsWindowVisible(child)) continue;
    buttons.push_back(idOf(child));
    if ((GetWindowLongPtrW(child, GWL_STYLE) & BS_TYPEMASK) == BS_DEFPUSHBUTTON) standard = idOf(child);
  }
  std::sort(buttons.begin(), buttons.end());
  const bool choice = buttons == std::vector<int>{IDYES, IDNO};
  if (!choice && buttons != std::vector<int>{IDOK}) stuck("a box with buttons that the program uses");

  int answer = standard;
  if (choice && !driver.answers.empty()) {
    answer = driver.answers.front() ? IDYES : IDNO;
    driver.answers.pop_front();
  }
  writeChanges();
  std::string pieces;
  add(pieces, "title", json(textOf(box)));
  add(pieces, "text", json(wordsOf(box)));
  add(pieces, "icon", std::string("\"") + iconOf(box) + '"');
  add(pieces, "buttons", choice ? "\"yesno\"" : "\"ok\"");
  add(pieces, "default", std::string("\"") + nameOfButton(standard) + '"');
  add(pieces, "answer", std::string("\"") + nameOfButton(answer) + '"');
  add(pieces, "owner", '"' + ownerOf(box) + '"');
  write("{\"box\":{" + pieces + "}}");
  pressAndWait(box, answer);
}

static bool isFileDialog(HWND window) { return GetDlgItem(window, cmb1) && GetDlgItem(window, IDOK); }

void answerDialog(HWND dialog) {
  if (isFileDialog(dialog))
    answerFiles(dialog);
  else
    answerBox(dialog);
}

}  // namespace driving
