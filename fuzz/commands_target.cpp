// Arbitrary text as commands of quillon-script. What would lead out of the run's own folder is left out: names with a folder in
// them, for these commands open whatever they are told.

#include <cstdint>
#include <string>
#include <string_view>

#include "whole_run.h"

static bool staysInFolder(std::string_view line) {
  const bool namesFile = line.starts_with("printer") || line.starts_with("choose");
  return !namesFile || line.find_first_of("/\\:") == std::string_view::npos;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  std::string_view text(reinterpret_cast<const char*>(bytes), size);
  std::string commands;
  while (!text.empty()) {
    const std::size_t end = text.find('\n');
    const std::string_view line = text.substr(0, end);
    if (staysInFolder(line)) commands.append(line).append("\n");
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
  }
  quillon::fuzz::runCommands(commands);
  return 0;
}
