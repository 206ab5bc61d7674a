#include "desktop/scripted/paths.h"

#include <algorithm>
#include <string_view>
#include <system_error>

#include "text/encoding.h"
#include "text/letters.h"

namespace quillon {

namespace fs = std::filesystem;

static fs::path fromUtf8(std::string_view text) {
#ifdef _WIN32
  // Bytes that are no UTF-8 are taken as Windows-1252: the library's conversion would throw.
  const std::string valid = utf8FromEither(text.substr(0, text.find('\0')));
  return fs::path(std::u8string(valid.begin(), valid.end()));
#else
  return fs::path(text);
#endif
}

static std::string toUtf8(const fs::path& path) {
  const std::u8string units = path.u8string();
  return std::string(units.begin(), units.end());
}

static std::string lastName(const std::string& path) {
  const std::size_t separator = path.find_last_of("/\\");
  return separator == std::string::npos ? path : path.substr(separator + 1);
}

#ifdef _WIN32

fs::path pathOnDisk(const std::string& path) { return fromUtf8(path); }

#else

static bool isThere(const fs::path& path) {
  std::error_code error;
  return fs::exists(path, error);
}

static std::string withSlashes(const std::string& path) {
  std::string text = path.substr(0, path.find('\0'));
  std::replace(text.begin(), text.end(), '\\', '/');
  return text;
}

// A name without the dots and blanks at its end; "." and ".." are names of folders.
static std::string trimmed(const std::string& name) {
  if (name == "." || name == "..") return name;
  return name.substr(0, name.find_last_not_of(". ") + 1);
}

// The name under which the folder holds it. Where several differ in case alone, the one that sorts first, so that runs repeat.
static std::string nameInFolder(const fs::path& folder, const std::string& name) {
  std::error_code error;
  if (isThere(folder / name)) return name;
  const std::string wanted = upperCased(name);
  std::string found;
  fs::directory_iterator entry(folder.empty() ? fs::path(".") : folder, error);
  for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
    const std::string candidate = entry->path().filename().string();
    if (upperCased(candidate) == wanted && (found.empty() || candidate < found)) found = candidate;
  }
  return found.empty() ? name : found;
}

fs::path pathOnDisk(const std::string& path) {
  const std::string text = withSlashes(path);
  if (isThere(text)) return text;
  fs::path onDisk = text.starts_with('/') ? "/" : "";
  std::size_t start = 0;
  while (start <= text.size()) {
    const std::size_t end = std::min(text.find('/', start), text.size());
    const std::string name = text.substr(start, end - start);
    start = end + 1;
    if (name.empty()) continue;
    const std::string plain = isThere(onDisk / name) ? name : trimmed(name);
    if (plain.empty()) return {};
    onDisk /= nameInFolder(onDisk, plain);
  }
  return text.ends_with('/') ? onDisk / "" : onDisk;
}

#endif

bool pathIsFile(const std::string& path) {
  std::error_code error;
  const fs::file_status status = fs::status(pathOnDisk(path), error);
  return fs::exists(status) && !fs::is_directory(status);
}

std::string pathCurrentFolder() {
  std::error_code error;
  return toUtf8(fs::current_path(error));
}

std::string pathInFull(const std::string& path) {
  std::string text = path;
#ifndef _WIN32
  text = withSlashes(path);
#endif
  const fs::path spelled = fromUtf8(text);
  if (spelled.is_absolute()) return text;
  std::error_code error;
  return toUtf8(fs::current_path(error) / spelled);
}

bool pathIsRefusedDevice(const std::string& path) {
  std::string name = lastName(path);
  name = upperCased(name.substr(0, name.find_first_of(".:")));
  name.resize(name.find_last_not_of(' ') + 1);
  return name == "NUL" || name == "CON" || name == "AUX";
}

bool pathIsPrinter(const std::string& path) { return upperCased(path) == "PRN"; }

}  // namespace quillon
