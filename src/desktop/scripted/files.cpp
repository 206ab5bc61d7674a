#include "desktop/scripted/files.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <limits>
#include <memory>
#include <system_error>
#include <vector>

#include "desktop/scripted/faults.h"
#include "desktop/scripted/paths.h"

#ifdef _WIN32
#include <io.h>
#else
#include <unistd.h>
#endif

namespace quillon {

struct FileStream {
  int descriptor;
  bool output;
};

static struct {
  std::string printer;
  std::filesystem::path output;
  bool outputMade;
  std::vector<std::unique_ptr<FileStream>> open;
  std::vector<std::unique_ptr<FileStream>> orphans;  // of a program that has ended; already closed
} state;

enum class Access { read, update, create };

// The system's calls, where its two kinds differ.
#ifdef _WIN32
static int systemOpen(const std::filesystem::path& path, Access access) {
  const int modes[] = {_O_RDONLY, _O_RDWR, _O_WRONLY | _O_CREAT | _O_TRUNC};
  return _wopen(path.c_str(), modes[static_cast<int>(access)] | _O_BINARY | _O_NOINHERIT, _S_IREAD | _S_IWRITE);
}
static std::int64_t systemSeek(int descriptor, std::int64_t offset, int from) { return _lseeki64(descriptor, offset, from); }
static std::int64_t systemRead(int descriptor, void* bytes, std::size_t size) {
  return _read(descriptor, bytes, static_cast<unsigned>(size));
}
static std::int64_t systemWrite(int descriptor, const void* bytes, std::size_t size) {
  return _write(descriptor, bytes, static_cast<unsigned>(size));
}
static int systemClose(int descriptor) { return _close(descriptor); }
#else
static_assert(sizeof(off_t) == 8, "files beyond 2 GB");
static int systemOpen(const std::filesystem::path& path, Access access) {
  const int modes[] = {O_RDONLY, O_RDWR, O_WRONLY | O_CREAT | O_TRUNC};
  return open(path.c_str(), modes[static_cast<int>(access)] | O_CLOEXEC, 0666);
}
static std::int64_t systemSeek(int descriptor, std::int64_t offset, int from) { return lseek(descriptor, offset, from); }
static std::int64_t systemRead(int descriptor, void* bytes, std::size_t size) { return read(descriptor, bytes, size); }
static std::int64_t systemWrite(int descriptor, const void* bytes, std::size_t size) { return write(descriptor, bytes, size); }
static int systemClose(int descriptor) { return close(descriptor); }
#endif

static constexpr std::size_t largestPiece = std::size_t{1} << 30;  // what every system moves in one call

// A file that nobody may write to is read-only for everybody, as on Windows; an administrator's rights would pass it over.
static bool isReadOnly(const std::filesystem::path& path) {
  using std::filesystem::perms;
  std::error_code error;
  const perms writers = perms::owner_write | perms::group_write | perms::others_write;
  return (std::filesystem::status(path, error).permissions() & writers) == perms::none;
}

static FileStream* openStream(const std::filesystem::path& path, Access access) {
  std::error_code error;
  if (path.empty() || std::filesystem::is_directory(path, error)) return nullptr;
  if (access == Access::update && isReadOnly(path)) return nullptr;
  const int descriptor = systemOpen(path, access);
  if (descriptor < 0) return nullptr;
  state.open.push_back(std::make_unique<FileStream>(FileStream{descriptor, access == Access::create}));
  return state.open.back().get();
}

static auto findStream(std::vector<std::unique_ptr<FileStream>>& streams, const FileStream* file) {
  return std::find_if(streams.begin(), streams.end(), [file](const auto& stream) { return stream.get() == file; });
}

FileStream* fileOpenInput(const std::string& path) {
  if (faultFires(Fault::open)) return nullptr;
  return openStream(pathOnDisk(path), Access::read);
}

FileStream* fileOpenUpdate(const std::string& path) {
  if (faultFires(Fault::open)) return nullptr;
  return openStream(pathOnDisk(path), Access::update);
}

FileStream* fileCreateOutput(const std::string& path) {
  if (faultFires(Fault::create) || pathIsRefusedDevice(path)) return nullptr;
  if (!state.output.empty()) {
    FileStream* const made = openStream(state.output, Access::create);
    state.outputMade = state.outputMade || made;
    return made;
  }
  if (!pathIsPrinter(path)) return openStream(pathOnDisk(path), Access::create);
  return state.printer.empty() ? nullptr : openStream(pathOnDisk(state.printer), Access::create);
}

bool fileClose(FileStream* file) {
  const auto orphan = findStream(state.orphans, file);
  if (orphan != state.orphans.end()) {
    state.orphans.erase(orphan);
    return true;
  }
  const auto found = findStream(state.open, file);
  if (found == state.open.end()) return true;
  const bool lost = file->output && faultFires(Fault::close);
  const bool closed = systemClose(file->descriptor) == 0;
  state.open.erase(found);
  return closed && !lost;
}

bool fileSeekEnd(FileStream* file) {
  if (faultFires(Fault::seek)) return false;
  return systemSeek(file->descriptor, 0, SEEK_END) >= 0;
}

bool fileSeekStart(FileStream* file) {
  if (faultFires(Fault::seek)) return false;
  return systemSeek(file->descriptor, 0, SEEK_SET) >= 0;
}

bool fileRewind(FileStream* file) {
  if (faultFires(Fault::rewind)) return false;
  return systemSeek(file->descriptor, 0, SEEK_SET) >= 0;
}

std::int64_t fileTell(FileStream* file) {
  if (faultFires(Fault::tell)) return -1;
  return systemSeek(file->descriptor, 0, SEEK_CUR);
}

std::size_t fileRead(FileStream* file, void* bytes, std::size_t size) {
  char* next = static_cast<char*>(bytes);
  std::size_t total = 0;
  while (total < size) {
    const std::int64_t got = systemRead(file->descriptor, next + total, std::min(size - total, largestPiece));
    if (got < 0 && errno == EINTR) continue;
    if (got <= 0) break;
    total += static_cast<std::size_t>(got);
  }
  return total;
}

std::size_t fileReadGranted(FileStream*, std::size_t asks) { return faultsGrant(Fault::read, asks); }

bool fileWriteGranted(FileStream* file) { return file->descriptor < 0 || !faultFires(Fault::write); }

bool fileWrite(FileStream* file, const void* bytes, std::size_t size) {
  if (file->descriptor < 0) return true;  // of a program that has ended: the next one is not to hear of it
  const char* next = static_cast<const char*>(bytes);
  while (size > 0) {
    const std::int64_t put = systemWrite(file->descriptor, next, std::min(size, largestPiece));
    if (put < 0 && errno == EINTR) continue;
    if (put <= 0) return false;
    next += put;
    size -= static_cast<std::size_t>(put);
  }
  return true;
}

// The printer leads to the file that takes its pages.
static std::filesystem::path destinationOf(const std::string& path) {
  if (!pathIsPrinter(path)) return pathOnDisk(path);
  return state.printer.empty() ? std::filesystem::path() : pathOnDisk(state.printer);
}

bool fileIsSame(const std::string& path, const std::string& other) {
  std::error_code error;
  return std::filesystem::equivalent(destinationOf(path), destinationOf(other), error) && !error;
}

void filesSetPrinter(const std::string& path) { state.printer = path; }

void filesSetOutput(const std::filesystem::path& path) {
  state.output = path;
  state.outputMade = false;
}

bool filesOutputMade() { return state.outputMade; }

std::size_t filesOpen() { return state.open.size(); }

void filesReset() {
  state.printer.clear();
  filesSetOutput({});
  for (std::unique_ptr<FileStream>& stream : state.open) {
    (void)systemClose(stream->descriptor);
    stream->descriptor = -1;
    state.orphans.push_back(std::move(stream));
  }
  state.open.clear();
}

}  // namespace quillon
