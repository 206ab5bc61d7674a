// An open report as the window and the printers see it: its path, its bytes for as long as a look at them takes, and how far
// its pages are known.
//
// Windows lets nobody write a file anew while it is mapped: with a report on the screen, quillon.exe would be refused its own
// output. So nothing is held between two looks, and a report is read into memory: the bytes read last are kept until the file
// has changed, so that turning its pages does not read it again. Only one that is too large for that is mapped, for as long as
// a look takes, and only where it cannot go away with a stick or another machine: that would be a fault in the middle of a line.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "pages/page_index.h"
#include "pages/windows/system.h"

namespace quillon {

// A look at a file's bytes; they are gone with it. `size` and `written` tell whether the file changed since the last look.
struct ReportBytes {
  ReportBytes() = default;
  ~ReportBytes();
  ReportBytes(const ReportBytes&) = delete;
  ReportBytes& operator=(const ReportBytes&) = delete;

  std::string_view bytes;
  std::uint64_t written = 0;  // when it was last written, in Windows' hundreds of nanoseconds

  const void* mapped = nullptr;      // its own
  std::shared_ptr<const char> copy;  // its own
};
// False when the file cannot be read (GetLastError tells why); `look` is then empty. An empty file can be read. A path may have
// any length.
[[nodiscard]] bool reportLook(const std::wstring& path, ReportBytes& look);

struct Report {
  std::wstring path;
  PageIndex index;
  std::uint64_t size = 0;  // at the last look
  std::uint64_t written = 0;
  std::string samples;   // of its bytes then: whether it grew or was written anew shows in them
  unsigned version = 0;  // one more whenever the report was begun again: what was selected or found in it is void
};

enum class ReportState { unreadable, reading, complete };

void reportOpen(Report& report, const std::wstring& path, std::size_t flowLines = usualFlowLines);
// Takes `look` at the file, which must be empty, and reads about `budget` bytes further. A file that was written anew is begun
// again, also where it is longer than before; one that has grown is gone on with. When it cannot be read, all that was known of
// it stays.
ReportState reportStep(Report& report, ReportBytes& look, std::size_t budget);
// The whole report, for who prints or saves it. False when it cannot be read.
[[nodiscard]] bool reportFinish(Report& report, ReportBytes& look);
// A further look at the bytes of which a finished report has counted the pages. A report that has grown meanwhile is given as
// it was: its last lines and pages would be others. False when it cannot be read or was written anew. `look` must be empty.
[[nodiscard]] bool reportLookAgain(const Report& report, ReportBytes& look);

}  // namespace quillon
