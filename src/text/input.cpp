// Reading the workstation's files.
//
// Bytes wait in a buffer of the input. A text file's bytes are turned into what its reader sees as they come into the buffer:
// CR LF into LF, and nothing behind a Ctrl-Z. Large reads of records go past the buffer, straight to where they are wanted.
#include "text/input.h"

#include <cstdlib>
#include <cstring>
#include <new>

#include "desktop/files.h"

namespace quillon {

struct Input {
  FileStream* file;
  InputKind kind;
  char* buffer;
  char* next;        // the first byte not yet taken
  char* end;         // one past the last byte that waits
  bool heldCr;       // a CR at the end of what was fetched: what follows decides whether it stays
  bool ended;        // nothing more comes out of the file
  Input* following;  // every open input, for inputCloseAll
};

namespace {

constexpr std::size_t bufferSize = std::size_t{64} * 1024;
constexpr char ctrlZ = 0x1a;
Input* openInputs = nullptr;

std::size_t waiting(const Input& input) { return static_cast<std::size_t>(input.end - input.next); }

void forget(Input& input) {
  input.next = input.end = input.buffer;
  input.heldCr = false;
  input.ended = false;
}

// Drops every CR before a LF between `bytes` and `end`; gives the new end.
char* dropCrs(char* bytes, char* end) {
  auto* from = static_cast<char*>(std::memchr(bytes, '\r', static_cast<std::size_t>(end - bytes)));
  char* to = from;
  if (!from) return end;
  while (from != end) {
    if (*from == '\r' && from + 1 != end && from[1] == '\n') ++from;
    auto* stop = static_cast<char*>(std::memchr(from + 1, '\r', static_cast<std::size_t>(end - from - 1)));
    if (!stop) stop = end;
    std::memmove(to, from, static_cast<std::size_t>(stop - from));
    to += stop - from;
    from = stop;
  }
  return to;
}

// Fetches the next bytes into the buffer, which is empty. False at the end of the file.
bool fetch(Input& input) {
  input.next = input.end = input.buffer;
  while (input.next == input.end && !input.ended) {
    char* bytes = input.buffer;
    if (input.heldCr) *bytes++ = '\r';
    const std::size_t asked = bufferSize - static_cast<std::size_t>(bytes - input.buffer);
    const std::size_t got = fileRead(input.file, bytes, asked);
    input.end = bytes + got;
    input.ended = got < asked;
    if (input.kind == InputKind::binary) break;
    if (void* stop = std::memchr(bytes, ctrlZ, got)) {
      input.end = static_cast<char*>(stop);
      input.ended = true;
    }
    input.heldCr = !input.ended && input.end[-1] == '\r';
    if (input.heldCr) --input.end;
    input.end = dropCrs(input.buffer, input.end);
  }
  return input.next != input.end;
}

// Takes the next `size` bytes, fewer at the end of the file. With `bytes` null they are passed over.
std::size_t take(Input& input, char* bytes, std::size_t size) {
  std::size_t taken = 0;
  while (taken < size) {
    const std::size_t left = size - taken;
    if (input.next == input.end) {
      if (bytes && input.kind == InputKind::binary && left >= bufferSize && !input.ended) {
        const std::size_t got = fileRead(input.file, bytes + taken, left);
        input.ended = got < left;
        return taken + got;
      }
      if (!fetch(input)) break;
    }
    const std::size_t part = waiting(input) < left ? waiting(input) : left;
    if (bytes) std::memcpy(bytes + taken, input.next, part);
    input.next += part;
    taken += part;
  }
  return taken;
}

}  // namespace

Input* inputOpen(const std::string& path, InputKind kind) {
  FileStream* file = fileOpenInput(path);
  if (!file) return nullptr;
  auto* buffer = static_cast<char*>(std::malloc(bufferSize));
  auto* input = buffer ? new (std::nothrow) Input{file, kind, buffer, buffer, buffer, false, false, openInputs} : nullptr;
  if (!input) {
    std::free(buffer);
    static_cast<void>(fileClose(file));
    return nullptr;
  }
  openInputs = input;
  return input;
}

void inputClose(Input* input) {
  Input** link = &openInputs;
  while (*link != input) link = &(*link)->following;
  *link = input->following;
  static_cast<void>(fileClose(input->file));  // nothing was written that could be lost
  std::free(input->buffer);
  delete input;
}

void inputCloseAll() {
  while (openInputs) inputClose(openInputs);
}

bool inputSeekEnd(Input& input) {
  forget(input);
  return fileSeekEnd(input.file);
}

bool inputSeekStart(Input& input) {
  forget(input);
  return fileSeekStart(input.file);
}

// Where it fails, the file goes on from where it stood, with the bytes that wait.
bool inputRewind(Input& input) {
  if (!fileRewind(input.file)) return false;
  forget(input);
  return true;
}

std::int64_t inputTell(Input& input) {
  const std::int64_t position = fileTell(input.file);
  return position < 0 ? -1 : position - static_cast<std::int64_t>(waiting(input));
}

bool inputRead(Input& input, void* bytes, std::size_t size) {
  const bool granted = fileReadGranted(input.file, 1) == 1;
  const bool whole = take(input, static_cast<char*>(granted ? bytes : nullptr), size) == size;
  return granted && whole;
}

std::size_t inputReadRecords(Input& input, void* block, std::size_t size, std::size_t count) {
  if (count == 0 || size == 0) return 0;
  const std::size_t granted = fileReadGranted(input.file, count);
  auto* bytes = static_cast<char*>(block);
  const std::size_t asked = granted < count ? granted + 1 : count;  // with the record that fails
  const std::size_t got = take(input, bytes, asked * size);
  std::size_t whole = got / size;
  if (whole > granted) whole = granted;
  if (got > whole * size) std::memset(bytes + whole * size, 0, got - whole * size);
  return whole;
}

bool inputReadPiece(Input& input, char* buffer, std::size_t limit, std::size_t* length) {
  if (limit == 0) return false;
  const bool granted = fileReadGranted(input.file, 1) == 1;
  std::size_t size = 0;
  bool lineEnded = false;
  while (size + 1 < limit && !lineEnded) {
    if (input.next == input.end && !fetch(input)) break;
    std::size_t part = waiting(input) < limit - 1 - size ? waiting(input) : limit - 1 - size;
    if (const void* lineFeed = std::memchr(input.next, '\n', part)) {
      part = static_cast<std::size_t>(static_cast<const char*>(lineFeed) - input.next) + 1;
      lineEnded = true;
    }
    if (granted) std::memcpy(buffer + size, input.next, part);
    input.next += part;
    size += part;
  }
  if (length) *length = size;
  if (!granted || (size == 0 && limit > 1)) return false;
  buffer[size] = '\0';
  return true;
}

}  // namespace quillon
