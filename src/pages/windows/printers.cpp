#include "pages/windows/printers.h"

// After <windows.h>, which printers.h brings.
// clang-format off
#include <winspool.h>
// clang-format on

#include <algorithm>
#include <cmath>

namespace quillon {

namespace {

// A printer for the length of a question.
struct HeldPrinter {
  explicit HeldPrinter(const std::wstring& name) {
    std::wstring writable = name;
    if (!name.empty() && !OpenPrinterW(writable.data(), &handle, nullptr)) handle = nullptr;
  }
  ~HeldPrinter() {
    if (handle) ClosePrinter(handle);
  }
  HeldPrinter(const HeldPrinter&) = delete;
  HeldPrinter& operator=(const HeldPrinter&) = delete;
  HANDLE handle = nullptr;
};

struct NamedPaper {
  Sheet sheet;
  short paper;
};
constexpr NamedPaper namedPapers[] = {
    {sheetA4, DMPAPER_A4}, {sheetA3, DMPAPER_A3}, {sheetLetter, DMPAPER_LETTER}, {sheetLegal, DMPAPER_LEGAL}};

}  // namespace

static DEVMODEW* modeOf(PrinterSetup& setup) { return reinterpret_cast<DEVMODEW*>(setup.mode.data()); }

// ---- The list ---------------------------------------------------------------------------------------------------------

static std::wstring standardPrinter() {
  DWORD size = 0;
  GetDefaultPrinterW(nullptr, &size);
  std::wstring name(size, L'\0');
  if (size == 0 || !GetDefaultPrinterW(name.data(), &size)) return {};
  name.resize(std::min(name.size(), name.find(L'\0')));  // the size counts the end
  return name;
}

bool printersList(std::vector<Printer>& printers) {
  printers.clear();
  // Level 4 asks no printer and no other machine: the answer is there at once, whatever is switched off.
  constexpr DWORD kinds = PRINTER_ENUM_LOCAL | PRINTER_ENUM_CONNECTIONS;
  std::vector<unsigned char> room;
  DWORD size = 0;
  DWORD count = 0;
  while (!EnumPrintersW(kinds, nullptr, 4, room.data(), static_cast<DWORD>(room.size()), &size, &count)) {
    if (GetLastError() != ERROR_INSUFFICIENT_BUFFER || size <= room.size()) return false;
    room.resize(size);
  }
  const std::wstring standard = standardPrinter();
  const auto found = reinterpret_cast<const PRINTER_INFO_4W*>(room.data());
  for (DWORD i = 0; i < count; ++i) {
    const std::wstring name = found[i].pPrinterName ? found[i].pPrinterName : L"";
    if (!name.empty()) printers.push_back({name, name == standard});
  }
  std::sort(printers.begin(), printers.end(), [](const Printer& one, const Printer& other) {
    return CompareStringOrdinal(one.name.c_str(), -1, other.name.c_str(), -1, TRUE) == CSTR_LESS_THAN;
  });
  return true;
}

// ---- A printer's setup ------------------------------------------------------------------------------------------------

// The driver brings its own part of the setup in line with what was written into the common part.
static LONG driverCall(HWND owner, PrinterSetup& setup, DWORD what) {
  const HeldPrinter printer(setup.name);
  if (!printer.handle) return -1;
  std::wstring name = setup.name;
  std::vector<unsigned char> before = setup.mode;
  return DocumentPropertiesW(owner, printer.handle, name.data(), modeOf(setup),
                             what & DM_IN_BUFFER ? reinterpret_cast<DEVMODEW*>(before.data()) : nullptr, what);
}

bool printerSetup(const std::wstring& name, PrinterSetup& setup) {
  setup.name = name;
  setup.mode.clear();
  const HeldPrinter printer(name);
  if (!printer.handle) return false;
  std::wstring writable = name;
  const LONG size = DocumentPropertiesW(nullptr, printer.handle, writable.data(), nullptr, nullptr, 0);
  if (size < static_cast<LONG>(sizeof(DEVMODEW))) return false;
  setup.mode.assign(static_cast<std::size_t>(size), 0);
  return driverCall(nullptr, setup, DM_OUT_BUFFER) == IDOK;
}

static bool settle(PrinterSetup& setup) { return driverCall(nullptr, setup, DM_IN_BUFFER | DM_OUT_BUFFER) == IDOK; }

bool printerAsk(HWND owner, PrinterSetup& setup) {
  PrinterSetup asked = setup;
  if (driverCall(owner, asked, DM_IN_PROMPT | DM_IN_BUFFER | DM_OUT_BUFFER) != IDOK) return false;
  setup = std::move(asked);
  return true;
}

static bool hasPaper(const std::wstring& name, short paper) {
  const int count = DeviceCapabilitiesW(name.c_str(), nullptr, DC_PAPERS, nullptr, nullptr);
  if (count <= 0) return false;
  std::vector<WORD> papers(static_cast<std::size_t>(count));
  const int filled = DeviceCapabilitiesW(name.c_str(), nullptr, DC_PAPERS, reinterpret_cast<wchar_t*>(papers.data()), nullptr);
  return filled > 0 && std::find(papers.begin(), papers.end(), static_cast<WORD>(paper)) != papers.end();
}

bool printerSetSheet(PrinterSetup& setup, const Sheet& sheet) {
  for (const NamedPaper& named : namedPapers) {
    if (named.sheet.width != sheet.width || named.sheet.height != sheet.height) continue;
    if (!hasPaper(setup.name, named.paper)) return false;
    PrinterSetup changed = setup;
    DEVMODEW* const mode = modeOf(changed);
    // A length and a width of the user's own, or a form by its name, would win over the size.
    mode->dmFields = (mode->dmFields & ~static_cast<DWORD>(DM_PAPERLENGTH | DM_PAPERWIDTH | DM_FORMNAME)) | DM_PAPERSIZE;
    mode->dmPaperSize = named.paper;
    if (!settle(changed) || modeOf(changed)->dmPaperSize != named.paper) return false;
    setup = std::move(changed);
    return true;
  }
  return false;
}

// ---- The sheet --------------------------------------------------------------------------------------------------------

static double points(HDC device, int what, int dotsAnInch) {
  return GetDeviceCaps(device, what) * 72.0 / std::max(1, GetDeviceCaps(device, dotsAnInch));
}

static bool lookAtSheet(PrinterSetup setup, bool landscape, Sheet& lying, Margins& bare) {
  printerSetLandscape(setup, landscape);
  const HDC device = CreateICW(L"WINSPOOL", setup.name.c_str(), nullptr, modeOf(setup));
  if (!device) return false;
  lying = {points(device, PHYSICALWIDTH, LOGPIXELSX), points(device, PHYSICALHEIGHT, LOGPIXELSY)};
  bare.left = points(device, PHYSICALOFFSETX, LOGPIXELSX);
  bare.top = points(device, PHYSICALOFFSETY, LOGPIXELSY);
  bare.right = std::max(0.0, lying.width - bare.left - points(device, HORZRES, LOGPIXELSX));
  bare.bottom = std::max(0.0, lying.height - bare.top - points(device, VERTRES, LOGPIXELSY));
  DeleteDC(device);
  return lying.width > 0 && lying.height > 0;
}

bool printerSheet(const PrinterSetup& setup, PrinterSheet& sheet) {
  Sheet across = {};
  if (!lookAtSheet(setup, false, sheet.sheet, sheet.barePortrait)) return false;
  if (!lookAtSheet(setup, true, across, sheet.bareLandscape)) return false;
  // Some drivers, of receipt printers and for text alone, leave the sheet as it is.
  sheet.turns = std::abs(across.width - sheet.sheet.height) <= std::abs(across.width - sheet.sheet.width);
  return true;
}

// ---- What a job sets --------------------------------------------------------------------------------------------------

void printerSetLandscape(PrinterSetup& setup, bool landscape) {
  DEVMODEW* const mode = modeOf(setup);
  mode->dmFields |= DM_ORIENTATION;
  mode->dmOrientation = landscape ? DMORIENT_LANDSCAPE : DMORIENT_PORTRAIT;
  settle(setup);
}

static bool can(const std::wstring& name, WORD what, std::size_t least) {
  const int most = DeviceCapabilitiesW(name.c_str(), nullptr, what, nullptr, nullptr);
  return most > 0 && static_cast<std::size_t>(most) >= least;
}

bool printerSetCopies(PrinterSetup& setup, std::size_t copies, bool severalPages) {
  const bool able = copies == 1 || (can(setup.name, DC_COPIES, copies) && (!severalPages || can(setup.name, DC_COLLATE, 1)));
  const auto wanted = static_cast<short>(able ? copies : 1);
  DEVMODEW* const mode = modeOf(setup);
  mode->dmFields |= DM_COPIES | DM_COLLATE;
  mode->dmCopies = wanted;
  mode->dmCollate = DMCOLLATE_TRUE;
  if (!settle(setup)) {
    mode->dmCopies = 1;  // or the pages that are sent again for each copy would come out as often once more
    return copies == 1;
  }
  const bool taken =
      modeOf(setup)->dmCopies == wanted && (wanted == 1 || !severalPages || modeOf(setup)->dmCollate == DMCOLLATE_TRUE);
  if (!taken) modeOf(setup)->dmCopies = 1;
  return able && taken;
}

bool printerAsksForFile(const std::wstring& name) {
  const HeldPrinter printer(name);
  DWORD size = 0;
  if (!printer.handle || GetPrinterW(printer.handle, 5, nullptr, 0, &size) || size == 0) return false;
  std::vector<unsigned char> room(size);
  if (!GetPrinterW(printer.handle, 5, room.data(), size, &size)) return false;
  const wchar_t* const port = reinterpret_cast<const PRINTER_INFO_5W*>(room.data())->pPortName;
  const auto is = [port](const wchar_t* asking) { return CompareStringOrdinal(port, -1, asking, -1, TRUE) == CSTR_EQUAL; };
  return port && (is(L"FILE:") || is(L"PORTPROMPT:"));
}

}  // namespace quillon
