// A report on its way out.
#include "text/output.h"

#include <cstdlib>
#include <cstring>
#include <new>

#include "desktop/files.h"
#include "text/print.h"

namespace quillon {
namespace {

// Large enough that a write to the system costs nothing beside the bytes, small enough to stay in the processor's cache.
constexpr std::size_t bufferSize = std::size_t{256} * 1024;
static_assert(outputRoom <= bufferSize);

// Every open output, for outputCloseAll.
struct OpenOutput {
  Output output;  // first, so that the one leads to the other
  OpenOutput* following;
};
OpenOutput* openOutputs = nullptr;

Output* makeOutput(FileStream* file, std::string* memory) {
  auto* buffer = static_cast<char*>(std::malloc(bufferSize));
  OpenOutput* open = nullptr;
  if (buffer) open = new (std::nothrow) OpenOutput{};
  if (!open) {
    std::free(buffer);
    return nullptr;
  }
  open->output = {buffer, buffer + bufferSize, buffer, file, memory, false, nullptr};
  open->following = openOutputs;
  openOutputs = open;
  return &open->output;
}

}  // namespace

Output* outputOpen(const std::string& name) {
  FileStream* file = fileCreateOutput(name);
  if (!file) return nullptr;
  Output* output = makeOutput(file, nullptr);
  if (!output) static_cast<void>(fileClose(file));
  return output;
}

Output* outputToMemory(std::string* text) { return makeOutput(nullptr, text); }

bool outputClose(Output* output) {
  outputFlush(*output);
  bool whole = !output->failed;
  if (output->file && !fileClose(output->file)) whole = false;
  OpenOutput** link = &openOutputs;
  while (&(*link)->output != output) link = &(*link)->following;
  OpenOutput* const closed = *link;
  *link = closed->following;
  if (output->holder && *output->holder == output) *output->holder = nullptr;
  std::free(closed->output.buffer);
  delete closed;
  return whole;
}

bool outputCloseAll() {
  bool whole = true;
  while (openOutputs) {
    if (!outputClose(&openOutputs->output)) whole = false;
  }
  return whole;
}

void outputHold(Output*& holder) {
  if (holder) holder->holder = &holder;
}

void outputFlush(Output& output) {
  const auto size = static_cast<std::size_t>(output.next - output.buffer);
  output.next = output.buffer;
  if (size == 0 || output.failed) return;
  if (output.memory)
    output.memory->append(output.buffer, size);
  else if (!fileWrite(output.file, output.buffer, size))
    output.failed = true;
}

namespace detail {

void outputRaw(Output& output, std::string_view bytes) {
  while (!bytes.empty()) {
    auto room = static_cast<std::size_t>(output.limit - output.next);
    if (room == 0) {
      outputFlush(output);
      room = static_cast<std::size_t>(output.limit - output.next);
    }
    const std::size_t size = bytes.size() < room ? bytes.size() : room;
    std::memcpy(output.next, bytes.data(), size);
    output.next += size;
    bytes.remove_prefix(size);
  }
}

}  // namespace detail

void outputText(Output& output, std::string_view text) {
  while (!text.empty()) {
    const std::size_t line = text.find('\n');
    detail::outputRaw(output, text.substr(0, line));
    if (line == std::string_view::npos) return;
    detail::outputRaw(output, "\r\n");
    text.remove_prefix(line + 1);
  }
}

}  // namespace quillon
