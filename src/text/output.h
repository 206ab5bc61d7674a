// A report on its way out: a large buffer in front of a file, the printer device, or memory.
//
// A line feed comes out as CR LF, on every platform. A write that fails is remembered until somebody asks; from then on
// nothing more is written, and what reached the file stays there.
//
// A report that is larger than the buffer is written by a thread beside the work that forms it. The thread begins with the
// first full buffer and ends with outputClose or outputSettleAll, whichever comes first.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace quillon {

struct FileStream;
struct OutputWriter;

struct Output {
  char* next = nullptr;   // where the next byte goes
  char* limit = nullptr;  // one past the end of the buffer
  char* buffer = nullptr;
  FileStream* file = nullptr;  // null: into `memory`
  std::string* memory = nullptr;
  bool failed = false;
  Output** holder = nullptr;  // the form's own pointer to it; null: nobody holds it
  OutputWriter* writer = nullptr;
};

// Opens a named file anew, or the printer device for "prn" in any case. Null when that fails.
Output* outputOpen(const std::string& name);
// Writes to a text in memory (tests, benchmarks); close it as any other.
Output* outputToMemory(std::string* text);
// Writes what is still in the buffer and closes. False when any byte of the report was lost. `output` is gone afterwards.
[[nodiscard]] bool outputClose(Output* output);
// Closes every open output of the process; false when any of them lost a byte.
[[nodiscard]] bool outputCloseAll();
// Waits until what was handed to a thread is written, and ends the threads. What is still in a buffer stays there; the outputs
// stay open, and a loss is told by their close. For a run that ends and leaves its output open.
void outputSettleAll();

// From here on `holder` becomes null when the output that it points to is closed, by whoever: a pointer that is not null can be
// closed. A holder lives as long as its output. It may be given another output meanwhile; the first then has no holder any more
// and goes with outputCloseAll. A null holder is left alone.
void outputHold(Output*& holder);

// Makes room for `size` more bytes in the buffer, writing out what is there; `size` is at most outputRoom.
inline constexpr std::size_t outputRoom = std::size_t{64} * 1024;
void outputFlush(Output& output);
inline void outputReserve(Output& output, std::size_t size) {
  if (static_cast<std::size_t>(output.limit - output.next) < size) outputFlush(output);
}

// Text as it stands, of any length, line feeds as CR LF.
void outputText(Output& output, std::string_view text);

}  // namespace quillon
