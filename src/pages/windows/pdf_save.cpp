#include "pages/windows/pdf_save.h"

#include <algorithm>

#include "pages/pdf_file.h"
#include "pages/windows/paths.h"

namespace quillon {

static constexpr std::size_t gathered = std::size_t{1} << 20;  // bytes handed to Windows in one go
static constexpr int mostNames = 100;

namespace {

// The file in the making, beside its place.
struct PdfOutput {
  HANDLE handle = INVALID_HANDLE_VALUE;
  std::wstring path;
  std::string waiting;
};

}  // namespace

// ---- The file ---------------------------------------------------------------------------------------------------------

static bool fileId(const std::wstring& path, BY_HANDLE_FILE_INFORMATION& info) {
  const HANDLE file = CreateFileW(pathOfAnyLength(path).c_str(), 0, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                  nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (file == INVALID_HANDLE_VALUE) return false;
  const bool known = GetFileInformationByHandle(file, &info) != 0;
  CloseHandle(file);
  return known;
}

// By whatever name: another folder's path to it, short names, links.
static bool isSameFile(const std::wstring& one, const std::wstring& other) {
  BY_HANDLE_FILE_INFORMATION first = {};
  BY_HANDLE_FILE_INFORMATION second = {};
  return fileId(one, first) && fileId(other, second) && first.dwVolumeSerialNumber == second.dwVolumeSerialNumber &&
         first.nFileIndexHigh == second.nFileIndexHigh && first.nFileIndexLow == second.nFileIndexLow;
}

static bool open(PdfOutput& output, const std::wstring& place) {
  const std::wstring start = L"quillon-pages-" + std::to_wstring(GetCurrentProcessId()) + L"-";
  for (int i = 0; i < mostNames; ++i) {
    output.path = pathOfAnyLength(pathIn(pathFolder(place), start + std::to_wstring(i) + L".tmp"));
    output.handle = CreateFileW(output.path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (output.handle != INVALID_HANDLE_VALUE) return true;
    if (GetLastError() != ERROR_FILE_EXISTS) return false;
  }
  return false;
}

static bool flush(PdfOutput& output) {
  std::string_view bytes = output.waiting;
  while (!bytes.empty()) {
    DWORD written = 0;
    if (!WriteFile(output.handle, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr) || written == 0)
      return false;
    bytes.remove_prefix(written);
  }
  output.waiting.clear();
  return true;
}

static bool write(void* to, std::string_view bytes) {
  PdfOutput& output = *static_cast<PdfOutput*>(to);
  for (;;) {
    const std::size_t taken = std::min(bytes.size(), gathered - output.waiting.size());
    output.waiting += bytes.substr(0, taken);
    bytes.remove_prefix(taken);
    if (output.waiting.size() == gathered && !flush(output)) return false;
    if (bytes.empty()) return true;
  }
}

// Takes its place, or goes without a trace.
static bool close(PdfOutput& output, bool complete, const std::wstring& place) {
  complete = complete && flush(output);
  CloseHandle(output.handle);
  complete = complete && MoveFileExW(output.path.c_str(), pathOfAnyLength(place).c_str(), MOVEFILE_REPLACE_EXISTING);
  if (!complete) DeleteFileW(output.path.c_str());
  return complete;
}

// ---- The pages --------------------------------------------------------------------------------------------------------

static PagesStatus addPages(PdfFile& pdf, const Report& report, std::size_t first, std::size_t last, const Progress& progress) {
  for (std::size_t page = first; page <= last; ++page) {
    if (!progressGoesOn(progress, page - first, last - first + 1)) return PagesStatus::failed;
    ReportBytes look;
    if (!reportLookAgain(report, look)) return PagesStatus::noReport;
    if (!pdfAddPage(pdf, look.bytes, pageLines(report.index, look.bytes, page))) return PagesStatus::fileFailed;
  }
  return pdfEnd(pdf) ? PagesStatus::done : PagesStatus::fileFailed;
}

PagesStatus pdfSave(const Report& report, const PdfOrder& order, const Progress& progress) {
  const std::size_t count = pageCount(report.index);
  if (order.first >= count || order.first > order.last) return PagesStatus::nothingToPrint;
  if (pageIndexIsFull(report.index) && order.last + 1 >= count) return PagesStatus::failed;  // it would not be all of it
  PageFit fit;
  if (!pageFit(pageWidest(report.index), pageLongest(report.index), order.wishes, fit)) return PagesStatus::noRoom;
  const std::wstring place = pathWhole(order.file);
  if (isSameFile(place, report.path)) return PagesStatus::fileFailed;
  PdfOutput output;
  if (!open(output, place)) return PagesStatus::fileFailed;
  const Report own = report;  // a window may go on with its own while messages are handled
  PdfFile pdf = pdfBegin({write, &output}, fit, utf8FromWide(pathName(report.path)), order.first);
  PagesStatus status = addPages(pdf, own, order.first, std::min(order.last, count - 1), progress);
  if (!close(output, status == PagesStatus::done, place) && status == PagesStatus::done) status = PagesStatus::fileFailed;
  return status;
}

}  // namespace quillon
