#include "unattended/print_output.h"

#include <cstdio>
#include <system_error>

#ifdef _WIN32
#include <process.h>
#else
#include <unistd.h>
#endif

#include "pages/pdf_file.h"
#include "text/encoding.h"

namespace quillon {

namespace fs = std::filesystem;

#ifdef _WIN32
fs::path systemPath(const std::string& path) {
  const std::string valid = utf8FromEither(path);
  return fs::path(std::u8string(valid.begin(), valid.end()));
}
std::FILE* systemFile(const fs::path& path, bool write) { return _wfopen(path.c_str(), write ? L"wb" : L"rb"); }
int systemProcessId() { return _getpid(); }
#else
fs::path systemPath(const std::string& path) { return path; }
std::FILE* systemFile(const fs::path& path, bool write) { return std::fopen(path.c_str(), write ? "wbe" : "rbe"); }
int systemProcessId() { return getpid(); }
#endif

static std::string shown(const fs::path& path) {
  const std::u8string text = path.u8string();
  return utf8FromEither(std::string(text.begin(), text.end()));
}

static std::string cannotWrite(const fs::path& path) { return "\"" + shown(path) + "\" cannot be written."; }

// ---- The place --------------------------------------------------------------------------------------------------------

static constexpr std::string_view standardOutput = "/dev/stdout";  // on Windows as well

static bool isReadOnly(fs::file_status status) {
  const fs::perms writers = fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;
  return (status.permissions() & writers) == fs::perms::none;
}

std::string printOutputBegin(PrintOutput& output, const std::string& path) {
  std::error_code error;
  output.place = systemPath(path);
  output.isStdout = path == standardOutput;
  const fs::file_status status = output.isStdout ? fs::file_status(fs::file_type::character) : fs::status(output.place, error);
  if (fs::is_directory(status)) return "\"" + shown(output.place) + "\" is a folder.";
  if (fs::exists(status) && isReadOnly(status)) return "\"" + shown(output.place) + "\" is read-only.";
  output.isDevice = fs::exists(status) && !fs::is_regular_file(status);
  // The file that a link leads to is replaced, not the link.
  if (fs::is_regular_file(status)) {
    const fs::path real = fs::canonical(output.place, error);
    if (!error) output.place = real;
  }
  const fs::path folder = output.isDevice ? fs::temp_directory_path(error) : output.place.parent_path();
  output.written = folder / systemPath(".quillon-print-" + std::to_string(systemProcessId()) + ".tmp");
  std::FILE* const made = systemFile(output.written, true);
  if (!made) return cannotWrite(output.place);
  (void)std::fclose(made);
  if (fs::is_regular_file(status)) fs::permissions(output.written, status.permissions(), error);
  return {};
}

void printOutputDrop(const PrintOutput& output) {
  std::error_code ignored;
  fs::remove(output.written, ignored);
}

static bool copyInto(std::FILE* from, std::FILE* to) {
  char piece[65536];
  for (;;) {
    const std::size_t got = std::fread(piece, 1, sizeof piece, from);
    if (got == 0) return std::ferror(from) == 0;
    if (std::fwrite(piece, 1, got, to) != got) return false;
  }
}

static bool copyToDevice(const PrintOutput& output) {
  std::FILE* const from = systemFile(output.written, false);
  if (!from) return false;
  std::FILE* const to = output.isStdout ? stdout : systemFile(output.place, true);
  bool copied = to && copyInto(from, to) && std::fflush(to) == 0;
  if (to && !output.isStdout && std::fclose(to) != 0) copied = false;
  (void)std::fclose(from);
  return copied;
}

std::string printOutputFinish(const PrintOutput& output) {
  std::error_code error;
  bool done = true;
  if (output.isDevice) {
    done = copyToDevice(output);
  } else {
    fs::rename(output.written, output.place, error);
    done = !error;
  }
  if (!done || output.isDevice) printOutputDrop(output);
  return done ? std::string() : cannotWrite(output.place);
}

// ---- PDF --------------------------------------------------------------------------------------------------------------

static bool readFile(const fs::path& path, std::string& bytes) {
  std::FILE* const file = systemFile(path, false);
  if (!file) return false;
  char piece[65536];
  for (std::size_t got; (got = std::fread(piece, 1, sizeof piece, file)) > 0;) bytes.append(piece, got);
  const bool whole = std::ferror(file) == 0;
  (void)std::fclose(file);
  return whole;
}

static bool writeFile(void* to, std::string_view bytes) {
  return std::fwrite(bytes.data(), 1, bytes.size(), static_cast<std::FILE*>(to)) == bytes.size();
}

static bool writeEmptyPage(const PdfSink& sink, std::string_view title) {
  PageFit fit;
  if (!pageFit(1, 1, {}, fit)) return false;
  PdfFile pdf = pdfBegin(sink, fit, title, 0);
  return pdfAddPage(pdf, "", {}) && pdfEnd(pdf);
}

std::string printOutputToPdf(const PrintOutput& output, std::string_view title) {
  std::string report;
  if (!readFile(output.written, report)) return "The report cannot be read again.";
  PageIndex index = pageIndexStart();
  pageIndexFinish(index, report);
  if (pageIndexIsFull(index)) return "The report has too many pages for a PDF.";
  std::FILE* const file = systemFile(output.written, true);
  if (!file) return cannotWrite(output.place);
  const PdfSink sink = {writeFile, file};
  const PdfOutcome outcome = pdfReport(sink, index, report, 0, mostPages, {}, title);
  bool written = outcome == PdfOutcome::written;
  if (outcome == PdfOutcome::nothingToPrint) written = writeEmptyPage(sink, title);
  if (std::fclose(file) != 0) written = false;
  return written ? std::string() : cannotWrite(output.place);
}

}  // namespace quillon
