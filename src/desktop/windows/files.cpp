// Files and the printer device, straight on the system's handles; what buffers there are stand in text/.
#include "desktop/files.h"

#include <algorithm>
#include <string_view>

#include "desktop/windows/common.h"
#include "text/letters.h"

namespace quillon {

struct FileStream {
  HANDLE handle;
  bool isOutput;
};

// One call of the system moves at most this much; its sizes have 32 bits.
static constexpr std::size_t largestMove = std::size_t{1} << 30;

static FileStream* streamOf(HANDLE handle, bool isOutput) {
  return handle == INVALID_HANDLE_VALUE ? nullptr : new FileStream{handle, isOutput};
}

// Windows takes a device's name for the device whatever extension follows it, and without regard to case.
static bool isDeviceName(std::string_view path, std::string_view device) {
  const std::string_view base = path.substr(0, path.find('.'));
  return upperCased(base) == device;
}

static FileStream* openExisting(const std::string& path, DWORD access) {
  return streamOf(CreateFileW(wideFromUtf8(path).c_str(), access, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                              nullptr, OPEN_EXISTING, FILE_FLAG_SEQUENTIAL_SCAN, nullptr),
                  false);
}

FileStream* fileOpenInput(const std::string& path) { return openExisting(path, GENERIC_READ); }

FileStream* fileOpenUpdate(const std::string& path) { return openExisting(path, GENERIC_READ | GENERIC_WRITE); }

FileStream* fileCreateOutput(const std::string& path) {
  // What goes to these is lost, though every write succeeds.
  for (const char* device : {"NUL", "CON", "AUX"}) {
    if (isDeviceName(path, device)) return nullptr;
  }
  // A run that the user gave up may have left its output open; the next run can take the same name all the same.
  return streamOf(CreateFileW(wideFromUtf8(path).c_str(), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                              CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr),
                  true);
}

// Across a network a write is taken first and may be lost later; only a flush tells. A local disk tells at the write.
static bool isRemote(HANDLE handle) {
  FILE_REMOTE_PROTOCOL_INFO info = {};
  return GetFileInformationByHandleEx(handle, FileRemoteProtocolInfo, &info, sizeof info) != 0;
}

bool fileClose(FileStream* file) {
  const bool flushed = !file->isOutput || !isRemote(file->handle) || FlushFileBuffers(file->handle);
  const bool closed = CloseHandle(file->handle) != 0;
  delete file;
  return flushed && closed;
}

static bool seek(FileStream* file, DWORD origin) { return SetFilePointerEx(file->handle, {}, nullptr, origin) != 0; }

bool fileSeekEnd(FileStream* file) { return seek(file, FILE_END); }

bool fileSeekStart(FileStream* file) { return seek(file, FILE_BEGIN); }

bool fileRewind(FileStream* file) { return seek(file, FILE_BEGIN); }

std::int64_t fileTell(FileStream* file) {
  LARGE_INTEGER position = {};
  return SetFilePointerEx(file->handle, {}, &position, FILE_CURRENT) ? position.QuadPart : -1;
}

std::size_t fileRead(FileStream* file, void* bytes, std::size_t size) {
  std::size_t total = 0;
  while (total < size) {
    const DWORD asked = static_cast<DWORD>(std::min(size - total, largestMove));
    DWORD got = 0;
    if (!ReadFile(file->handle, static_cast<char*>(bytes) + total, asked, &got, nullptr) || got == 0) break;
    total += got;
  }
  return total;
}

// Only the scripted desktop makes reads fail on request.
std::size_t fileReadGranted(FileStream*, std::size_t asks) { return asks; }

// Nor writes.
bool fileWriteGranted(FileStream*) { return true; }

bool fileWrite(FileStream* file, const void* bytes, std::size_t size) {
  std::size_t total = 0;
  while (total < size) {
    const DWORD asked = static_cast<DWORD>(std::min(size - total, largestMove));
    DWORD put = 0;
    if (!WriteFile(file->handle, static_cast<const char*>(bytes) + total, asked, &put, nullptr) || put == 0) return false;
    total += put;
  }
  return true;
}

// What tells a file from every other of the machine. Opened for its properties alone, so that a file in use is no obstacle.
static bool identify(const std::string& path, BY_HANDLE_FILE_INFORMATION& info) {
  const HANDLE handle = CreateFileW(wideFromUtf8(path).c_str(), 0, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                    nullptr, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr);
  if (handle == INVALID_HANDLE_VALUE) return false;
  const bool known = GetFileInformationByHandle(handle, &info) != 0;
  CloseHandle(handle);
  return known;
}

bool fileIsSame(const std::string& path, const std::string& other) {
  if (isDeviceName(path, "PRN") || isDeviceName(other, "PRN")) return false;  // the printer is no file
  BY_HANDLE_FILE_INFORMATION first = {};
  BY_HANDLE_FILE_INFORMATION second = {};
  if (!identify(path, first) || !identify(other, second)) return false;
  return first.dwVolumeSerialNumber == second.dwVolumeSerialNumber && first.nFileIndexHigh == second.nFileIndexHigh &&
         first.nFileIndexLow == second.nFileIndexLow;
}

}  // namespace quillon
