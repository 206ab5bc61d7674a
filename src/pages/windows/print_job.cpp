#include "pages/windows/print_job.h"

#include "pages/windows/paths.h"

// After <windows.h>, which print_job.h brings.
// clang-format off
#include <winspool.h>
// clang-format on

#include <algorithm>
#include <cmath>
#include <vector>

namespace quillon {

static constexpr UINT reportCodePage = 1252;
static constexpr double characterWidth = 0.6;  // of the font's size, as the fit has it
static constexpr double baseline = 0.8;        // of the font's size below the upper edge of a line, as in a PDF
static constexpr std::size_t rawPiece = 65536;

namespace {

// A device context of the printer with the job's font in it.
struct PrintCanvas {
  HDC device = nullptr;
  HFONT font = nullptr;
  PageFit fit = {};
  double across = 1;  // dots a point
  double down = 1;
  int offsetX = 0;  // of the device's first dot from the sheet's edge, in dots
  int offsetY = 0;
};

}  // namespace

// ---- The canvas -------------------------------------------------------------------------------------------------------

static int rounded(double value) { return static_cast<int>(std::lround(value)); }

static HFONT fontOf(int height, int width) {
  return CreateFontW(-height, width, 0, 0, FW_NORMAL, FALSE, FALSE, FALSE, ANSI_CHARSET, OUT_DEFAULT_PRECIS,
                     CLIP_DEFAULT_PRECIS, DEFAULT_QUALITY, FIXED_PITCH | FF_MODERN, L"Courier New");
}

// The font of the fit's size. Where the printer gives one whose letters are wider or narrower than their columns, or where its
// dots are not square, the letters are made as wide as the columns.
static void chooseFont(PrintCanvas& canvas) {
  const int height = std::max(1, rounded(canvas.fit.fontSize * canvas.down));
  const double pitch = canvas.fit.fontSize * characterWidth * canvas.across;
  canvas.font = fontOf(height, 0);
  SelectObject(canvas.device, canvas.font);
  SIZE ten = {};
  if (!GetTextExtentPoint32W(canvas.device, L"MMMMMMMMMM", 10, &ten)) return;
  if (std::abs(ten.cx / 10.0 - pitch) <= pitch * 0.05) return;
  const HFONT fitting = fontOf(height, std::max(1, rounded(pitch)));
  SelectObject(canvas.device, fitting);
  DeleteObject(canvas.font);
  canvas.font = fitting;
}

static bool open(PrintCanvas& canvas, const PrinterSetup& setup) {
  canvas.device = CreateDCW(L"WINSPOOL", setup.name.c_str(), nullptr, reinterpret_cast<const DEVMODEW*>(setup.mode.data()));
  if (!canvas.device) return false;
  canvas.across = GetDeviceCaps(canvas.device, LOGPIXELSX) / 72.0;
  canvas.down = GetDeviceCaps(canvas.device, LOGPIXELSY) / 72.0;
  canvas.offsetX = GetDeviceCaps(canvas.device, PHYSICALOFFSETX);
  canvas.offsetY = GetDeviceCaps(canvas.device, PHYSICALOFFSETY);
  chooseFont(canvas);
  return true;
}

static void close(PrintCanvas& canvas) {
  if (canvas.device) DeleteDC(canvas.device);
  if (canvas.font) DeleteObject(canvas.font);
  canvas = {};
}

// A page begins with a fresh device context on some drivers: font and the like are chosen for each.
static void prepare(const PrintCanvas& canvas) {
  SelectObject(canvas.device, canvas.font);
  SetTextAlign(canvas.device, TA_LEFT | TA_BASELINE | TA_NOUPDATECP);
  SetBkMode(canvas.device, TRANSPARENT);
  SetTextColor(canvas.device, RGB(0, 0, 0));
}

// ---- A line -----------------------------------------------------------------------------------------------------------

static std::wstring wideLine(std::string_view shown) {
  std::wstring wide(shown.size(), L' ');
  const int size = static_cast<int>(shown.size());
  MultiByteToWideChar(reportCodePage, 0, shown.data(), size, wide.data(), size);  // a byte is a character
  for (wchar_t& c : wide) {
    if (c < L' ' || (c >= 0x7F && c < 0xA0)) c = L' ';  // the few bytes to which Windows-1252 gives no letter
  }
  return wide;
}

static int columnAt(const PrintCanvas& canvas, std::size_t column) {
  const double x = canvas.fit.left + static_cast<double>(column) * canvas.fit.fontSize * characterWidth;
  return rounded(x * canvas.across) - canvas.offsetX;
}

static bool drawWords(const PrintCanvas& canvas, const std::wstring& line, std::size_t from, std::size_t to, int y) {
  std::vector<int> widths;
  for (std::size_t column = from; column < to; ++column) {
    widths.push_back(columnAt(canvas, column + 1) - columnAt(canvas, column));
  }
  return ExtTextOutW(canvas.device, columnAt(canvas, from), y, 0, nullptr, line.data() + from, static_cast<UINT>(to - from),
                     widths.data()) != 0;
}

// Each character stands where its column is, whatever the letters of the printer's font measure. Two blanks and more are not
// sent: they are a good half of a report.
static bool drawLine(const PrintCanvas& canvas, std::string_view shown, std::size_t row) {
  const std::wstring line = wideLine(shown);
  const double y = canvas.fit.top + static_cast<double>(row) * canvas.fit.lineHeight + baseline * canvas.fit.fontSize;
  const int dots = rounded(y * canvas.down) - canvas.offsetY;
  std::size_t from = line.find_first_not_of(L' ');
  while (from != std::wstring::npos) {
    std::size_t to = line.find(L"  ", from);
    if (to == std::wstring::npos) to = line.find_last_not_of(L' ') + 1;
    if (!drawWords(canvas, line, from, to, dots)) return false;
    from = line.find_first_not_of(L' ', to);
  }
  return true;
}

// ---- The job ----------------------------------------------------------------------------------------------------------

// One at a time, and Windows hands the abort procedure nothing of ours.
static struct {
  const Progress* progress;
  std::uint64_t done;
  std::uint64_t all;
} running;

// While Windows waits for the printer's queue: the user may cancel. A full disk is nothing to wait for, or nobody would know.
static BOOL CALLBACK abortProcedure(HDC, int error) {
  return error != SP_OUTOFDISK && progressGoesOn(*running.progress, running.done, running.all);
}

// One page, the file looked at for as long as that takes.
static PagesStatus printPage(const PrintCanvas& canvas, const Report& report, std::size_t page) {
  ReportBytes look;
  if (!reportLookAgain(report, look)) return PagesStatus::noReport;
  if (StartPage(canvas.device) <= 0) return PagesStatus::printerFailed;
  prepare(canvas);
  std::size_t row = 0;
  for (const PageLine& line : pageLines(report.index, look.bytes, page)) {
    if (!drawLine(canvas, pageLineShown(look.bytes, line), row++)) return PagesStatus::printerFailed;
  }
  return EndPage(canvas.device) > 0 ? PagesStatus::done : PagesStatus::printerFailed;
}

static PagesStatus printAllPages(const PrintCanvas& canvas, const Report& report, const PrintOrder& order, std::size_t rounds) {
  for (std::size_t copy = 0; copy < rounds; ++copy) {
    for (std::size_t page = order.first; page <= order.last; ++page) {
      if (!progressGoesOn(*running.progress, running.done, running.all)) return PagesStatus::failed;
      const PagesStatus status = printPage(canvas, report, page);
      if (status != PagesStatus::done) return status;
      ++running.done;
    }
  }
  return PagesStatus::done;
}

static PagesStatus runJob(const PrintCanvas& canvas, const Report& report, const PrintOrder& order, std::size_t rounds) {
  const std::wstring title = pathName(report.path);
  DOCINFOW document = {};
  document.cbSize = sizeof document;
  document.lpszDocName = title.c_str();
  if (SetAbortProc(canvas.device, abortProcedure) <= 0) return PagesStatus::printerFailed;
  SetLastError(ERROR_SUCCESS);
  if (StartDocW(canvas.device, &document) <= 0) {
    return GetLastError() == ERROR_CANCELLED ? PagesStatus::failed : PagesStatus::printerFailed;
  }
  PagesStatus status = printAllPages(canvas, report, order, rounds);
  if (status == PagesStatus::done && EndDoc(canvas.device) <= 0) status = PagesStatus::printerFailed;
  if (status != PagesStatus::done) AbortDoc(canvas.device);
  return status;
}

PagesStatus printPages(const Report& report, const PrintOrder& wanted, const Progress& progress) {
  const std::size_t count = pageCount(report.index);
  if (wanted.first >= count || wanted.first > wanted.last) return PagesStatus::nothingToPrint;
  if (pageIndexIsFull(report.index) && wanted.last + 1 >= count) return PagesStatus::failed;  // it would not be all of it
  PrintOrder order = wanted;
  order.last = std::min(order.last, count - 1);
  const std::size_t pages = order.last - order.first + 1;
  const bool byPrinter = printerSetCopies(order.setup, order.copies, pages > 1);
  const std::size_t rounds = byPrinter ? 1 : order.copies;
  printerSetLandscape(order.setup, order.fit.landscape);

  PrintCanvas canvas;
  canvas.fit = order.fit;
  if (!open(canvas, order.setup)) return PagesStatus::noPrinter;
  const Report own = report;  // a window may go on with its own while messages are handled
  running = {&progress, 0, pages * rounds};
  const PagesStatus status = runJob(canvas, own, order, rounds);
  running = {};
  close(canvas);
  return status;
}

// ---- As it is ---------------------------------------------------------------------------------------------------------

static bool writeAll(HANDLE printer, std::string_view bytes) {
  while (!bytes.empty()) {
    DWORD written = 0;
    std::string piece(bytes.substr(0, rawPiece));
    if (!WritePrinter(printer, piece.data(), static_cast<DWORD>(piece.size()), &written) || written == 0) return false;
    bytes.remove_prefix(std::min<std::size_t>(written, piece.size()));
  }
  return true;
}

// As many bytes as there were at the first look. A file that was written anew meanwhile is another report.
static PagesStatus sendBytes(HANDLE printer, const std::wstring& path, const Progress& progress) {
  Report report;
  reportOpen(report, path);
  for (std::size_t at = 0;;) {
    ReportBytes look;
    const bool read = at == 0 ? reportStep(report, look, 0) != ReportState::unreadable : reportLookAgain(report, look);
    if (!read || look.bytes.empty()) return PagesStatus::noReport;
    // What is on this machine is mapped, and looked at again for each stretch; what had to be read is in memory whole.
    const std::size_t stretch = !look.copy ? std::size_t{1} << 20 : look.bytes.size();
    const std::string_view piece = look.bytes.substr(at, stretch);
    if (!progressGoesOn(progress, at, look.bytes.size())) return PagesStatus::failed;
    if (!writeAll(printer, piece)) return PagesStatus::printerFailed;
    at += piece.size();
    if (at >= look.bytes.size()) return PagesStatus::done;
  }
}

static PagesStatus runRawJob(HANDLE printer, const std::wstring& path, const Progress& progress) {
  std::wstring title = pathName(path);
  wchar_t kind[] = L"RAW";
  DOC_INFO_1W document = {title.data(), nullptr, kind};
  if (!StartDocPrinterW(printer, 1, reinterpret_cast<BYTE*>(&document))) return PagesStatus::printerFailed;
  PagesStatus status = StartPagePrinter(printer) ? PagesStatus::done : PagesStatus::printerFailed;
  if (status == PagesStatus::done) status = sendBytes(printer, path, progress);
  if (status == PagesStatus::done && !EndPagePrinter(printer)) status = PagesStatus::printerFailed;
  if (status == PagesStatus::done && !EndDocPrinter(printer)) status = PagesStatus::printerFailed;
  if (status != PagesStatus::done) AbortPrinter(printer);
  return status;
}

PagesStatus printRaw(const std::wstring& path, const std::wstring& printer, const Progress& progress) {
  {
    ReportBytes look;
    if (!reportLook(path, look)) return PagesStatus::noReport;
    if (look.bytes.empty()) return PagesStatus::nothingToPrint;
  }
  std::wstring name = printer;
  HANDLE handle = nullptr;
  if (name.empty() || !OpenPrinterW(name.data(), &handle, nullptr)) return PagesStatus::noPrinter;
  const PagesStatus status = runRawJob(handle, path, progress);
  ClosePrinter(handle);
  return status;
}

}  // namespace quillon
