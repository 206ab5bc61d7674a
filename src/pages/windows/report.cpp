#include "pages/windows/report.h"

#include <algorithm>

namespace quillon {

// A handle for the length of a look.
struct OpenFile {
  explicit OpenFile(const std::wstring& path)
      : handle(CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                           OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr)) {}
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

static bool isOnThisMachine(HANDLE file) {
  FILE_REMOTE_PROTOCOL_INFO info = {};
  return GetFileInformationByHandleEx(file, FileRemoteProtocolInfo, &info, sizeof info) == 0;
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

static bool read(HANDLE file, std::size_t size, ReportBytes& look) {
  look.copy.resize(size);
  std::size_t total = 0;
  while (total < size) {
    const DWORD asked = static_cast<DWORD>(std::min<std::size_t>(size - total, std::size_t{16} << 20));
    DWORD got = 0;
    if (!ReadFile(file, look.copy.data() + total, asked, &got, nullptr)) return false;
    if (got == 0) break;  // it became shorter meanwhile: what is there counts
    total += got;
  }
  look.copy.resize(total);
  look.bytes = look.copy;
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
  if (isOnThisMachine(file.handle) && map(file.handle, bytes, look)) return true;
  return read(file.handle, bytes, look);
}

void reportOpen(Report& report, const std::wstring& path, std::size_t flowLines) {
  report.path = path;
  report.index = pageIndexStart(flowLines);
  report.size = 0;
  report.written = 0;
  ++report.version;
}

ReportState reportStep(Report& report, ReportBytes& look, std::size_t budget) {
  if (!reportLook(report.path, look)) return ReportState::unreadable;
  const bool grown = look.bytes.size() > report.size;
  const bool same = look.bytes.size() == report.size && look.written == report.written;
  if (!grown && !same) reportOpen(report, report.path, report.index.flowLines);  // written anew
  report.size = look.bytes.size();
  report.written = look.written;
  return pageIndexStep(report.index, look.bytes, budget) ? ReportState::complete : ReportState::reading;
}

bool reportFinish(Report& report, ReportBytes& look) {
  if (reportStep(report, look, 0) == ReportState::unreadable) return false;
  pageIndexFinish(report.index, look.bytes);
  return true;
}

}  // namespace quillon
