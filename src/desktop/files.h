// Files and the printer device, as bytes. Paths are UTF-8. Names are found as Windows finds them, without regard to case.
//
// Every call that can fail says so; the words shown to the user belong to the form. The scripted desktop can make any of
// them fail on request, which is how each failure message is tested.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace quillon {

struct FileStream;  // an open file or device

// Null when it cannot be opened. The position is the start.
FileStream* fileOpenInput(const std::string& path);
// The same for a file that could be written to as well: one that is read-only, or that another program keeps from being
// written, is refused. Nothing is written to it.
FileStream* fileOpenUpdate(const std::string& path);
// Makes the file anew, or opens the printer device when the name is "prn" in any case. Null when that fails. Names that
// Windows keeps for devices that take no report ("NUL", "CON", "AUX") cannot be created.
FileStream* fileCreateOutput(const std::string& path);
// Gives the stream back, whatever the answer; false when the system reports that bytes written earlier were lost.
[[nodiscard]] bool fileClose(FileStream* file);

[[nodiscard]] bool fileSeekEnd(FileStream* file);
[[nodiscard]] bool fileSeekStart(FileStream* file);
[[nodiscard]] bool fileRewind(FileStream* file);        // the start again, told apart from a seek by the faults alone
[[nodiscard]] std::int64_t fileTell(FileStream* file);  // the position in bytes; -1 on failure

// How many bytes were read: fewer than `size` at the end of the file or on an error of the device.
std::size_t fileRead(FileStream* file, void* bytes, std::size_t size);
// Asks to read the next `asks` headers, records or lines, before their bytes are fetched, and tells how many will be granted
// before one fails (`asks` when none does). Those, and the failing one, count as asked. The caller passes over the bytes of
// the failing one.
std::size_t fileReadGranted(FileStream* file, std::size_t asks);

// Asks to write the next bytes, before they are handed to fileWrite, wherever that is called: false when they are to fail, and
// are then not handed over. Counts as asked.
[[nodiscard]] bool fileWriteGranted(FileStream* file);
// Writes all of it, or gives false. The one call that may come from another thread, and while it is under way no other for the
// same stream.
[[nodiscard]] bool fileWrite(FileStream* file, const void* bytes, std::size_t size);

// True when both names lead to the same file on disk, whatever their spelling. False when either does not exist.
bool fileIsSame(const std::string& path, const std::string& other);

}  // namespace quillon
