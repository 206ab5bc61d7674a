// A report on its way out.
#include "text/output.h"

#include <pthread.h>

#include <condition_variable>
#include <cstdlib>
#include <cstring>
#include <mutex>
#include <new>

#include "desktop/files.h"
#include "text/print.h"

namespace quillon {

namespace {

// Large enough that a write to the system costs nothing beside the bytes, small enough to stay in the processor's cache.
constexpr std::size_t bufferSize = std::size_t{256} * 1024;
static_assert(outputRoom <= bufferSize);
// The report is formed in one of them while the others are written.
constexpr std::size_t bufferCount = 4;

}  // namespace

// Beside the report: a thread that writes the full buffers in turn. Buffer n is the (n % bufferCount)th of the block.
struct OutputWriter {
  FileStream* file = nullptr;
  char* block = nullptr;
  pthread_t thread = {};
  bool runs = false;  // known to the report's side alone; the rest is under the lock while it does
  std::mutex lock;
  std::condition_variable changed;  // one side at most waits for it: all buffers are full, or all are written
  std::size_t sizes[bufferCount] = {};
  std::size_t filled = 0;   // buffers handed over so far
  std::size_t written = 0;  // of them, those that went out, or were dropped behind one that failed
  bool ending = false;      // nothing more will be handed over
  bool failed = false;
};

namespace {

// Every open output, for outputCloseAll.
struct OpenOutput {
  Output output;
  OutputWriter writer;
  OpenOutput* following;
};
OpenOutput* openOutputs = nullptr;

char* bufferAt(const OutputWriter& writer, std::size_t number) { return writer.block + number % bufferCount * bufferSize; }

void takeBuffer(Output& output, const OutputWriter& writer) {
  output.buffer = output.next = bufferAt(writer, writer.filled);
  output.limit = output.buffer + bufferSize;
}

Output* makeOutput(FileStream* file, std::string* memory) {
  auto* block = static_cast<char*>(std::malloc(bufferCount * bufferSize));  // what is not used costs nothing
  OpenOutput* open = nullptr;
  if (block) open = new (std::nothrow) OpenOutput{};
  if (!open) {
    std::free(block);
    return nullptr;
  }
  open->writer.file = open->output.file = file;
  open->writer.block = block;
  open->output.memory = memory;
  open->output.writer = &open->writer;
  takeBuffer(open->output, open->writer);
  open->following = openOutputs;
  openOutputs = open;
  return &open->output;
}

// ---- The thread beside the report --------------------------------------------------------------------------------------

// The thread: writes until it is told that nothing more will come.
void* writeBuffers(void* given) {
  OutputWriter& writer = *static_cast<OutputWriter*>(given);
  std::unique_lock held(writer.lock);
  for (;;) {
    writer.changed.wait(held, [&writer] { return writer.ending || writer.written < writer.filled; });
    if (writer.written == writer.filled) return nullptr;
    const std::size_t number = writer.written;
    const std::size_t size = writer.sizes[number % bufferCount];
    if (!writer.failed) {
      held.unlock();
      const bool whole = fileWrite(writer.file, bufferAt(writer, number), size);
      held.lock();
      writer.failed = !whole;
    }
    ++writer.written;
    writer.changed.notify_one();
  }
}

// False where the system has no thread to give: the report is then written where it is formed. (A std::thread would tell that
// by an exception.)
bool ensureThread(OutputWriter& writer) {
  if (!writer.runs) writer.runs = pthread_create(&writer.thread, nullptr, writeBuffers, &writer) == 0;
  return writer.runs;
}

// Gives the output's buffer to the thread and takes the next one, as soon as that is free.
void handOver(Output& output, std::size_t size) {
  OutputWriter& writer = *output.writer;
  std::unique_lock held(writer.lock);
  writer.sizes[writer.filled++ % bufferCount] = size;
  writer.changed.notify_one();
  writer.changed.wait(held, [&writer] { return writer.filled - writer.written < bufferCount; });
  output.failed = writer.failed;
  takeBuffer(output, writer);
}

void endThread(Output& output) {
  OutputWriter& writer = *output.writer;
  if (!writer.runs) return;
  {
    const std::lock_guard held(writer.lock);
    writer.ending = true;
    writer.changed.notify_one();
  }
  static_cast<void>(pthread_join(writer.thread, nullptr));
  writer.runs = writer.ending = false;
  if (writer.failed) output.failed = true;
}

// Where the buffer's bytes go. Only a buffer that another one follows is worth a thread. False when any of them was lost.
bool sendBytes(Output& output, std::size_t size, bool moreFollows) {
  if (output.memory) {
    output.memory->append(output.buffer, size);
    return true;
  }
  if (!fileWriteGranted(output.file)) return false;
  if (!moreFollows || !ensureThread(*output.writer)) return fileWrite(output.file, output.buffer, size);
  handOver(output, size);
  return !output.failed;
}

void sendBuffer(Output& output, bool moreFollows) {
  const auto size = static_cast<std::size_t>(output.next - output.buffer);
  output.next = output.buffer;
  if (size == 0 || output.failed) return;
  output.failed = !sendBytes(output, size, moreFollows);
}

}  // namespace

// ---- Opening and closing -----------------------------------------------------------------------------------------------

Output* outputOpen(const std::string& name) {
  FileStream* file = fileCreateOutput(name);
  if (!file) return nullptr;
  Output* output = makeOutput(file, nullptr);
  if (!output) static_cast<void>(fileClose(file));
  return output;
}

Output* outputToMemory(std::string* text) { return makeOutput(nullptr, text); }

bool outputClose(Output* output) {
  endThread(*output);
  sendBuffer(*output, false);
  bool whole = !output->failed;
  if (output->file && !fileClose(output->file)) whole = false;
  OpenOutput** link = &openOutputs;
  while (&(*link)->output != output) link = &(*link)->following;
  OpenOutput* const closed = *link;
  *link = closed->following;
  if (output->holder && *output->holder == output) *output->holder = nullptr;
  std::free(closed->writer.block);
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

void outputSettleAll() {
  for (OpenOutput* open = openOutputs; open; open = open->following) endThread(open->output);
}

void outputHold(Output*& holder) {
  if (holder) holder->holder = &holder;
}

void outputFlush(Output& output) { sendBuffer(output, true); }

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
