#include "desktop/scripted/app.h"

#include <vector>

#include "desktop/scripted/faults.h"
#include "desktop/scripted/forms.h"
#include "desktop/scripted/json.h"
#include "desktop/scripted/resources.h"
#include "desktop/scripted/script.h"
#include "desktop/scripted/transcript.h"

namespace quillon {

namespace {

struct Button {
  ToolButton tool;
  bool checked;
};

}  // namespace

static struct {
  AppHandler handler;
  std::string title;
  std::vector<Button> toolbar;
  std::vector<AcceleratorKey> keys;
  bool otherCopy;
  bool mutexHeld;
  bool classRegistered;
  bool over;
  int status;
  void (*stdoutListener)(std::string_view text);
} state;

bool appMutexExists(const char*) { return state.otherCopy || state.mutexHeld; }

void appMutexCreate(const char*) { state.mutexHeld = true; }

void appMutexRelease() { state.mutexHeld = false; }

bool appRegisterClass(const AppWindow&) {
  state.classRegistered = !faultFires(Fault::windowClass);
  return state.classRegistered;
}

bool appCreateWindow(const AppWindow& window, const AppHandler& handler) {
  if (!state.classRegistered) return false;
  state.handler = handler;
  state.title = window.title ? window.title : "";
  state.handler.created();
  return true;
}

void appBuildToolbar(std::span<const ToolButton> buttons) {
  state.toolbar.clear();
  for (const ToolButton& button : buttons) state.toolbar.push_back({button, false});
  appNotify();  // as on Windows, where a toolbar tells of its tooltips before its making has come to an end
}

void appSetToolChecked(int tool, bool checked) {
  for (Button& button : state.toolbar) {
    if (button.tool.tool != tool || button.checked == checked) continue;
    button.checked = checked;
    transcriptWrite("{\"tools\":{" + jsonOfUtf8(button.tool.form) + (checked ? ":true}}" : ":false}}"));
  }
}

void appDestroyToolbar() { state.toolbar.clear(); }

int appRun(const AppWindow& window) {
  state.keys = resourceAccelerators(resourceBytes(), window.accelerators);
  while (!state.over && scriptCommand()) formsSweep();
  return state.status;
}

void appQuit(int status) {
  state.over = true;
  state.status = status;
}

void appEnd(int status) {
  appQuit(status);
  transcriptMute(true);
}

void appBeep(int times) { transcriptWrite("{\"beep\":" + std::to_string(times) + "}"); }

void appWriteStdout(std::string_view text) {
  transcriptWrite("{\"stdout\":" + jsonOfBytes(text) + "}");
  if (state.stdoutListener) state.stdoutListener(text);
}

// ---- What a user does --------------------------------------------------------------------------------------------------

std::string appPressTool(std::string_view form) {
  for (const Button& button : state.toolbar) {
    if (form != button.tool.form) continue;
    state.handler.command(button.tool.tool);
    return {};
  }
  return "there is no tool " + std::string(form);
}

static bool takePrefix(std::string_view& text, std::string_view prefix) {
  if (!text.starts_with(prefix)) return false;
  text.remove_prefix(prefix.size());
  return true;
}

// The virtual key code: F1 to F24, a letter or a digit; 0 where there is no such key.
static int virtualKey(std::string_view name) {
  static constexpr int keyF1 = 0x70;
  if (name.size() == 1 && ((name[0] >= 'A' && name[0] <= 'Z') || (name[0] >= '0' && name[0] <= '9'))) return name[0];
  if (!takePrefix(name, "F") || name.empty() || name.size() > 2 || name[0] == '0') return 0;
  int number = 0;
  for (char c : name) {
    if (c < '0' || c > '9') return 0;
    number = number * 10 + (c - '0');
  }
  return number <= 24 ? keyF1 + number - 1 : 0;
}

std::string appPressKey(std::string_view key) {
  std::string_view name = key;
  bool control = false, shift = false, alt = false;
  for (bool more = true; more;) {
    more = false;
    if (takePrefix(name, "Ctrl+")) more = control = true;
    if (takePrefix(name, "Shift+")) more = shift = true;
    if (takePrefix(name, "Alt+")) more = alt = true;
  }
  const int code = virtualKey(name);
  for (const AcceleratorKey& entry : state.keys) {
    if (code == 0 || !entry.virtualKey || entry.key != code) continue;
    if (entry.control != control || entry.shift != shift || entry.alt != alt) continue;
    state.handler.command(entry.command);
    return {};
  }
  return std::string(key) + " is no key of the program";
}

void appCloseWindow() {
  state.handler.destroyed();
  formsDestroyAll();
  state.over = true;
}

std::size_t appToolPosition(std::string_view form) {
  std::size_t position = 0;
  while (position < state.toolbar.size() && form != state.toolbar[position].tool.form) ++position;
  return position;
}

std::string appTitle() { return state.title; }

const char* appTooltip(int tool) { return state.handler.tooltip ? state.handler.tooltip(tool) : nullptr; }

void appNotify() {
  if (state.handler.notified) state.handler.notified();
}

bool appIsOver() { return state.over; }

int appStatus() { return state.status; }

void appSetOtherCopy(bool runs) { state.otherCopy = runs; }

void appListenToStdout(void (*told)(std::string_view text)) { state.stdoutListener = told; }

void appReset() { state = {}; }

}  // namespace quillon
