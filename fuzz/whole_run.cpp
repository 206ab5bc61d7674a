#include "whole_run.h"


#include <fuzzer/FuzzedDataProvider.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>

#include "desktop/scripted/script.h"
#include "frame/main_window.h"
#include "report_forms.h"

namespace quillon::fuzz {

static void enterOwnFolder() {
  static const bool entered = [] {
    const char* base = std::filesystem::exists("/dev/shm") ? "/dev/shm" : "/tmp";
    std::string folder = std::string(base) + "/quillon-fuzz-XXXXXX";
    if (!mkdtemp(folder.data()) || chdir(folder.c_str()) != 0) std::abort();
    static std::string own = folder;
    std::atexit([] { std::filesystem::remove_all(own); });
    return true;
  }();
  (void)entered;
}

static void refuse(const char* why, const ScriptResult& result) {
  std::fprintf(stderr, "%s\n%s\n", why, result.transcript.c_str());
  std::abort();
}

void runCommands(std::string_view commands) {
  enterOwnFolder();
  const ScriptResult result = scriptRun(commands, [] { return frameRun(reportForms()); });
  if (result.status == 0 && result.transcript.find("{\"exit\":0}\n") == std::string::npos) {
    refuse("the run did not end in its exit line", result);
  }
}

void makeFile(const std::string& name, std::string_view bytes) {
  enterOwnFolder();
  std::FILE* file = std::fopen(name.c_str(), "wb");
  if (!file || std::fwrite(bytes.data(), 1, bytes.size(), file) != bytes.size() || std::fclose(file) != 0) std::abort();
}


static std::string press(int control) { return "press " + std::to_string(control) + "\n"; }

int wholeRun(const FormUnderTest& form, const std::uint8_t* bytes, std::size_t size) {
  FuzzedDataProvider data(bytes, size);
  std::string commands;
  // From the end of the input: choices.
  const std::string name = form.fileNames[data.ConsumeIntegralInRange<std::size_t>(0, form.fileNames.size() - 1)];
  const unsigned pressed = data.ConsumeIntegral<std::uint32_t>();
  const unsigned answers = data.ConsumeIntegral<std::uint8_t>();
  const unsigned lines = data.ConsumeIntegral<std::uint8_t>();
  const unsigned faultKind = data.ConsumeIntegral<std::uint8_t>();
  const unsigned faultNumber = data.ConsumeIntegral<std::uint8_t>();
  const unsigned moves = data.ConsumeIntegral<std::uint8_t>();
  const std::size_t kind = form.kinds.empty() ? 0 : data.ConsumeIntegralInRange<std::size_t>(0, form.kinds.size() - 1);
  static constexpr const char* faults[] = {"memory", "open", "create", "seek", "tell", "rewind", "read", "write", "close"};

  commands += "clock 2009-05-22 10:11:12\n";
  if (moves & 1) commands += "printer PRINTED\n";
  if (faultKind >= 128) {
    commands += std::string("fail ") + faults[faultKind % std::size(faults)] + " " +
                (faultNumber == 255 ? "always" : std::to_string(1 + faultNumber % 32)) + "\n";
  }
  commands += std::string("tool ") + form.resource + "\n";
  for (int i = 0; i < 4; ++i) commands += (answers >> i) & 1 ? "answer no\n" : "answer yes\n";
  commands += "choose " + name + "\n";
  if (form.kindList) commands += "pick " + std::to_string(form.kindList) + " " + form.kinds[kind] + "\n";
  // Some options before the load, all of them after it.
  for (std::size_t i = 0; i < form.choices.size(); ++i) {
    if ((pressed >> i) & 1 && moves & 2) commands += press(form.choices[i]);
  }
  commands += press(form.load);
  for (std::size_t i = 0; i < form.choices.size(); ++i) {
    if ((pressed >> i) & 1) commands += press(form.choices[i]);
  }
  if (form.outFile && moves & 4) {
    if (form.toFile) commands += press(form.toFile);
    commands += "type " + std::to_string(form.outFile) + " " + ((moves & 8) ? name : "OUT.TXT") + "\n";
  }
  if (form.linesPerPage && lines) commands += "type " + std::to_string(form.linesPerPage) + " " + std::to_string(lines - 1) + "\n";
  if (moves & 16) commands += press(form.cancel);
  commands += press(form.print);
  if (form.convert) commands += press(form.convert);
  if (moves & 32) commands += press(form.print);
  if (moves & 64) commands += "choose " + name + "\n" + press(form.load) + press(form.cancel);
  if (moves & 128) commands += "close\n";
  commands += "quit\n";

  makeFile(name, data.ConsumeRemainingBytesAsString());
  runCommands(commands);
  return 0;
}

}  // namespace quillon::fuzz
