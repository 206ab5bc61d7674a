// Small runs on the scripted desktop, with a form of the test's own behind the Trades resource (PRNTRPT) and the Net Position
// resource (PRNTNP, which has lists) and the Touchlines resource (PRNTTLINE, which has a default button).
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "desktop/forms.h"
#include "desktop/scripted/script.h"
#include "frame/main_window.h"
#include "frame/tools.h"

namespace quillon::test {

using Lines = std::vector<std::string>;

inline Lines splitLines(const std::string& text) {
  Lines lines;
  std::size_t start = 0;
  for (std::size_t end; (end = text.find('\n', start)) != std::string::npos; start = end + 1) {
    lines.push_back(text.substr(start, end - start));
  }
  if (start < text.size()) lines.push_back("(no line feed) " + text.substr(start));
  return lines;
}

// What the test's form does on each event; set by runForm.
inline std::function<void(const FormEvent&)> formBehaviour;

inline void testFormEvent(const FormEvent& event) {
  if (formBehaviour) formBehaviour(event);
}

inline void tradesTestEvent(const FormEvent& event) {
  testFormEvent(event);
  if (event.kind == FormEventKind::close) toolCommand(toolTrades);
  if (event.kind == FormEventKind::destroy) toolFormGone(toolTrades);
}

inline void netPositionTestEvent(const FormEvent& event) {
  testFormEvent(event);
  if (event.kind == FormEventKind::close) toolCommand(toolNetPosition);
  if (event.kind == FormEventKind::destroy) toolFormGone(toolNetPosition);
}

inline void touchlinesTestEvent(const FormEvent& event) {
  testFormEvent(event);
  if (event.kind == FormEventKind::close) toolCommand(toolTouchlines);
  if (event.kind == FormEventKind::destroy) toolFormGone(toolTouchlines);
}

inline int testProgram() {
  static constexpr FormEntry forms[] = {
      {"PRNTRPT", tradesTestEvent}, {"PRNTNP", netPositionTestEvent}, {"PRNTTLINE", touchlinesTestEvent}};
  return frameRun(forms);
}

// The whole transcript of these commands.
inline ScriptResult runForm(const std::string& commands, std::function<void(const FormEvent&)> behaviour = {}) {
  formBehaviour = std::move(behaviour);
  const ScriptResult result = scriptRun(commands, testProgram);
  formBehaviour = {};
  return result;
}

// The lines that the last command of the script brought about, with the end of the program left out.
inline Lines effectsOfLast(const ScriptResult& result) {
  Lines lines = splitLines(result.transcript), effects;
  for (const std::string& line : lines) {
    if (line.starts_with("{\"command\":")) {
      effects.clear();
    } else {
      effects.push_back(line);
    }
  }
  // With no command after it, the window closes: its forms go, and the program ends.
  while (!effects.empty() && (effects.back().starts_with("{\"exit\"") || effects.back().starts_with("{\"closed\""))) {
    effects.pop_back();
  }
  return effects;
}

// An empty folder that is the current one while the test runs.
class InFreshFolder : public ::testing::Test {
 protected:
  void SetUp() override {
    before = std::filesystem::current_path();
    const auto* info = ::testing::UnitTest::GetInstance()->current_test_info();
    folder = std::filesystem::path(QUILLON_RECEIVED_FOLDER) / info->test_suite_name() / info->name();
    std::filesystem::remove_all(folder);
    std::filesystem::create_directories(folder);
    std::filesystem::current_path(folder);
  }
  void TearDown() override {
    std::filesystem::current_path(before);
    std::filesystem::remove_all(folder);
  }

  std::filesystem::path before, folder;
};

}  // namespace quillon::test
