// Reading the workstation's files.
//
// Bytes wait in a buffer of the input as the file has them, up to a Ctrl-Z in a text; CR LF becomes LF as a piece is taken.
// Large reads of records go past the buffer, straight to where they are wanted.
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
  char* next;          // the first byte not yet taken
  char* end;           // one past the last byte that waits
  bool ended;          // nothing more comes out of the file
  bool failed;         // the last piece was asked for and not granted
  std::size_t hidden;  // bytes that were fetched and stand behind a Ctrl-Z, with it
  Input* following;    // every open input, for inputCloseAll
  Input** holder;      // the form's own pointer to it; null: nobody holds it
};

namespace {

constexpr std::size_t bufferSize = std::size_t{64} * 1024;
constexpr char ctrlZ = 0x1a;
Input* openInputs = nullptr;

std::size_t waiting(const Input& input) { return static_cast<std::size_t>(input.end - input.next); }

void forget(Input& input) {
  input.next = input.end = input.buffer;
  input.ended = false;
  input.hidden = 0;
}

// Fetches further bytes behind those that wait, as many as the buffer has room for. False when there are none to be had.
bool fetch(Input& input) {
  const std::size_t left = waiting(input);
  if (input.ended || left == bufferSize) return false;
  if (left > 0) std::memmove(input.buffer, input.next, left);
  char* const bytes = input.buffer + left;
  std::size_t got = fileRead(input.file, bytes, bufferSize - left);
  input.ended = got < bufferSize - left;
  if (input.kind == InputKind::text) {
    if (const void* stop = std::memchr(bytes, ctrlZ, got)) {
      const auto seen = static_cast<std::size_t>(static_cast<const char*>(stop) - bytes);
      input.hidden = got - seen;
      got = seen;
      input.ended = true;
    }
  }
  input.next = input.buffer;
  input.end = bytes + got;
  return got > 0;
}

// Takes the next `size` bytes as they stand, fewer at the end of the file. With `bytes` null they are passed over.
std::size_t takeBytes(Input& input, char* bytes, std::size_t size) {
  std::size_t taken = 0;
  while (taken < size) {
    const std::size_t left = size - taken;
    if (input.next == input.end) {
      if (bytes && left >= bufferSize && !input.ended) {
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

// Takes the next piece of a text: up to `most` characters, up to and with the line feed. Gives its length. Within a line only a
// CR right before the line feed goes, so the bytes before it are copied as they stand.
std::size_t takePiece(Input& input, char* bytes, std::size_t most) {
  std::size_t size = 0;
  while (size < most) {
    const std::size_t room = most - size;
    // The piece, a CR that may go, and the line feed.
    const std::size_t seen = waiting(input) < room + 1 ? waiting(input) : room + 1;
    const auto* lineFeed = static_cast<const char*>(seen > 0 ? std::memchr(input.next, '\n', seen) : nullptr);
    if (!lineFeed && seen < room + 1 && fetch(input)) continue;
    std::size_t part = seen;
    if (lineFeed) {
      part = static_cast<std::size_t>(lineFeed - input.next);
      if (part > 0 && lineFeed[-1] == '\r') --part;
    } else if (!input.ended && seen <= room) {
      --part;  // the buffer is full of one line: its last byte waits for what follows it
    }
    if (part > room) part = room;
    if (bytes) std::memcpy(bytes + size, input.next, part);
    input.next += part;
    size += part;
    if (lineFeed && size < most) {
      if (bytes) bytes[size] = '\n';
      input.next = input.buffer + (lineFeed - input.buffer) + 1;
      return size + 1;
    }
    if (part == 0) break;
  }
  return size;
}

// A text as its reader sees it, of the given size.
std::size_t takeText(Input& input, char* bytes, std::size_t size) {
  std::size_t taken = 0;
  while (taken < size) {
    const std::size_t part = takePiece(input, bytes ? bytes + taken : nullptr, size - taken);
    if (part == 0) break;
    taken += part;
  }
  return taken;
}

std::size_t take(Input& input, char* bytes, std::size_t size) {
  return input.kind == InputKind::text ? takeText(input, bytes, size) : takeBytes(input, bytes, size);
}

}  // namespace

Input* inputOpen(const std::string& path, InputKind kind) {
  FileStream* file = kind == InputKind::binaryUpdate ? fileOpenUpdate(path) : fileOpenInput(path);
  if (!file) return nullptr;
  auto* buffer = static_cast<char*>(std::malloc(bufferSize));
  auto* input =
      buffer ? new (std::nothrow) Input{file, kind, buffer, buffer, buffer, false, false, 0, openInputs, nullptr} : nullptr;
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
  if (input->holder && *input->holder == input) *input->holder = nullptr;
  static_cast<void>(fileClose(input->file));  // nothing was written that could be lost
  std::free(input->buffer);
  delete input;
}

void inputCloseAll() {
  while (openInputs) inputClose(openInputs);
}

void inputHold(Input*& holder) {
  if (holder) holder->holder = &holder;
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
  return position < 0 ? -1 : position - static_cast<std::int64_t>(waiting(input) + input.hidden);
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
  input.failed = !granted;
  const std::size_t size = takePiece(input, granted ? buffer : nullptr, limit - 1);
  if (length) *length = size;
  if (!granted || (size == 0 && limit > 1)) return false;
  buffer[size] = '\0';
  return true;
}

bool inputPieceFailed(const Input& input) { return input.failed; }

}  // namespace quillon
