// The printers that Windows knows, and what each of them can do.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "pages/print_plan.h"
#include "pages/windows/system.h"

namespace quillon {

struct Printer {
  std::wstring name;
  bool standard;  // Windows' default printer
};

// The printers of this machine and those that it is connected to, in the order of their names. False when Windows cannot tell.
[[nodiscard]] bool printersList(std::vector<Printer>& printers);

// How a printer is to print: what its user set in Windows, with what is asked for laid over it.
struct PrinterSetup {
  std::wstring name;
  std::vector<unsigned char> mode;  // a DEVMODEW and what the driver keeps behind it
};

// False when there is no printer of that name, or it cannot be opened; `setup` is then not to be used.
[[nodiscard]] bool printerSetup(const std::wstring& name, PrinterSetup& setup);
// Shows the driver's own window of settings. False when the user gave up; nothing has changed then.
bool printerAsk(HWND owner, PrinterSetup& setup);

// One of the sheets with a name (A4, A3, Letter, Legal). False when the printer has no such sheet; `setup` stays.
[[nodiscard]] bool printerSetSheet(PrinterSetup& setup, const Sheet& sheet);
// The sheet of the setup. False when the printer cannot be asked.
[[nodiscard]] bool printerSheet(const PrinterSetup& setup, PrinterSheet& sheet);

void printerSetLandscape(PrinterSetup& setup, bool landscape);
// Asks the driver for so many copies, each with its pages in order. False when it cannot: it makes one then, and the pages must
// be sent again. `severalPages`: whether the order matters.
[[nodiscard]] bool printerSetCopies(PrinterSetup& setup, std::size_t copies, bool severalPages);

// Printing to it makes Windows ask for a file: FILE:, and the printers that make documents.
bool printerAsksForFile(const std::wstring& name);

}  // namespace quillon
