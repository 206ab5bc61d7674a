// Reading the workstation's files: fixed-size records, and text lines in bounded pieces.
//
// Each header, record and line piece that is asked for counts as one read, however its bytes are fetched; the bytes of one
// that fails are passed over, so that the next ask finds what follows it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace quillon {

struct Input;  // an open input file

enum class InputKind {
  binary,        // bytes as they stand
  binaryUpdate,  // the same, of a file that could be written to as well: a read-only one is not opened
  text,          // CR LF read as LF; a Ctrl-Z ends the file
};

// Null when it cannot be opened.
Input* inputOpen(const std::string& path, InputKind kind);
void inputClose(Input* input);
void inputCloseAll();  // every open input of the process, the other forms' among them

// From here on `holder` becomes null when the input that it points to is closed, by whoever: a pointer that is not null can be
// closed. A holder lives as long as its input. It may be given another input meanwhile; the first then has no holder any more
// and goes with inputCloseAll. A null holder is left alone.
void inputHold(Input*& holder);

[[nodiscard]] bool inputSeekEnd(Input& input);
[[nodiscard]] bool inputSeekStart(Input& input);
[[nodiscard]] bool inputRewind(Input& input);
[[nodiscard]] std::int64_t inputTell(Input& input);  // -1 on failure

// One header or record of `size` bytes. False when it comes back short; `bytes` then holds nothing that may be used.
[[nodiscard]] bool inputRead(Input& input, void* bytes, std::size_t size);
// Up to `count` records of `size` bytes, straight into `block`. Gives the number read before one failed (`count` when none
// did); the failing record's bytes in the block are zero and are passed over in the file.
[[nodiscard]] std::size_t inputReadRecords(Input& input, void* block, std::size_t size, std::size_t count);

// The next piece of a text file, as fgets with a buffer of `limit` takes it: at most limit - 1 characters, up to and with the
// line feed, then a NUL. False at the end of the file or when the read fails. `length` (may be null) is the piece's length,
// so that a NUL inside it can be told; with a false it is the number of characters passed over, which is 0 at the end of the
// file.
[[nodiscard]] bool inputReadPiece(Input& input, char* buffer, std::size_t limit, std::size_t* length = nullptr);
// True when the last piece was false because its read failed, be it at the end of the file: then nobody knows that it is one.
bool inputPieceFailed(const Input& input);

}  // namespace quillon
