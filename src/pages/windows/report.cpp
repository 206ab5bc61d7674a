#include "pages/windows/report.h"

#include <algorithm>

#include "pages/report_samples.h"
#include "pages/windows/paths.h"

namespace quillon {

// ---- Its bytes ---------------------------------------------------------------------------------------------------------

// Reports up to this size are read into memory and never mapped: nothing at all then stands in the way of who writes them anew.
static constexpr std::size_t mostRead = std::size_t{32} << 20;

// A handle for the length of a look.
struct OpenFile {
  explicit OpenFile(const std::wstring& path)
      : handle(CreateFileW(pathOfAnyLength(path).c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                           nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr)) {}
  ~OpenFile() {
    if (handle != INVALID_HANDLE_VALUE) CloseHandle(handle);
  }
  OpenFile(const OpenFile&) = delete;
  OpenFile& operator=(const OpenFile&) = delete;
  HANDLE handle;
};

ReportBytes::~ReportBytes() {
  if (mapped) UnmapViewOfFile(mapped);
}

// A mapped file that goes away ends in a fault: on another machine, or on a stick that is pulled out.
static bool mayGoAway(HANDLE file, const std::wstring& path) {
  FILE_REMOTE_PROTOCOL_INFO info = {};
  if (GetFileInformationByHandleEx(file, FileRemoteProtocolInfo, &info, sizeof info)) return true;
  std::wstring root(path.size() + MAX_PATH, L'\0');
  if (!GetVolumePathNameW(pathOfAnyLength(path).c_str(), root.data(), static_cast<DWORD>(root.size()))) return false;
  const UINT drive = GetDriveTypeW(root.c_str());
  return drive == DRIVE_REMOVABLE || drive == DRIVE_CDROM || drive == DRIVE_REMOTE;
}

static bool map(HANDLE file, std::size_t size, ReportBytes& look) {
  const HANDLE mapping = CreateFileMappingW(file, nullptr, PAGE_READONLY, 0, 0, nullptr);
  if (!mapping) return false;
  look.mapped = MapViewOfFile(mapping, FILE_MAP_READ, 0, 0, size);
  CloseHandle(mapping);  // the view keeps it
  if (!look.mapped) return false;
  look.bytes = {static_cast<const char*>(look.mapped), size};
  return true;
}

// Room for a whole report, or none: the memory may be too small for it.
static std::shared_ptr<char> memoryFor(std::size_t size) {
  void* const memory = VirtualAlloc(nullptr, size, MEM_RESERVE | MEM_COMMIT, PAGE_READWRITE);
  if (!memory) return {};
  return {static_cast<char*>(memory), [](char* given) { VirtualFree(given, 0, MEM_RELEASE); }};
}

// What was read last.
static struct {
  std::wstring path;
  std::uint64_t size;
  std::uint64_t written;
  std::shared_ptr<const char> bytes;
} kept;

static bool read(HANDLE file, const std::wstring& path, std::size_t size, ReportBytes& look) {
  if (kept.bytes && kept.path == path && kept.size == size && kept.written == look.written) {
    look.copy = kept.bytes;
    look.bytes = {look.copy.get(), size};
    return true;
  }
  kept.bytes.reset();
  const std::shared_ptr<char> memory = memoryFor(size);
  if (!memory) return false;
  std::size_t total = 0;
  while (total < size) {
    const DWORD asked = static_cast<DWORD>(std::min<std::size_t>(size - total, std::size_t{16} << 20));
    DWORD got = 0;
    if (!ReadFile(file, memory.get() + total, asked, &got, nullptr)) return false;
    if (got == 0) break;  // it became shorter meanwhile: what is there counts
    total += got;
  }
  look.copy = memory;
  look.bytes = {memory.get(), total};
  kept = {path, total, look.written, memory};
  return true;
}

bool reportLook(const std::wstring& path, ReportBytes& look) {
  const OpenFile file(path);
  if (file.handle == INVALID_HANDLE_VALUE) return false;
  // A console, a pipe or the printer port has no bytes to go back to.
  if (GetFileType(file.handle) != FILE_TYPE_DISK) {
    SetLastError(ERROR_INVALID_FUNCTION);
    return false;
  }
  LARGE_INTEGER size = {};
  FILETIME written = {};
  if (!GetFileSizeEx(file.handle, &size) || !GetFileTime(file.handle, nullptr, nullptr, &written)) return false;
  look.written = std::uint64_t{written.dwHighDateTime} << 32 | written.dwLowDateTime;
  if (size.QuadPart == 0) return true;
  const std::size_t bytes = static_cast<std::size_t>(size.QuadPart);
  if (bytes > mostRead && !mayGoAway(file.handle, path) && map(file.handle, bytes, look)) return true;
  return read(file.handle, path, bytes, look);
}

// ---- Its pages ---------------------------------------------------------------------------------------------------------

void reportOpen(Report& report, const std::wstring& path, std::size_t flowLines) {
  report.path = path;
  report.index = pageIndexStart(flowLines);
  report.size = 0;
  report.written = 0;
  report.samples.clear();
  ++report.version;
}

ReportState reportStep(Report& report, ReportBytes& look, std::size_t budget) {
  if (!reportLook(report.path, look)) return ReportState::unreadable;
  const bool same = look.bytes.size() == report.size && look.written == report.written;
  if (!same) {
    const bool grown = look.bytes.size() > report.size && reportContinues(report.samples, report.size, look.bytes);
    if (!grown) reportOpen(report, report.path, report.index.flowLines);  // written anew
    report.size = look.bytes.size();
    report.written = look.written;
    report.samples = reportSamples(look.bytes);
  }
  return pageIndexStep(report.index, look.bytes, budget) ? ReportState::complete : ReportState::reading;
}

bool reportFinish(Report& report, ReportBytes& look) {
  if (reportStep(report, look, 0) == ReportState::unreadable) return false;
  pageIndexFinish(report.index, look.bytes);
  return true;
}

bool reportLookAgain(const Report& report, ReportBytes& look) {
  if (!reportLook(report.path, look)) return false;
  const bool same = look.bytes.size() == report.size && look.written == report.written;
  const bool grown = look.bytes.size() > report.size && reportContinues(report.samples, report.size, look.bytes);
  look.bytes = look.bytes.substr(0, report.size);
  return same || grown;
}

}  // namespace quillon
