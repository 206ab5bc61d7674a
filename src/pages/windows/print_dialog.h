// The print dialog of quillon-pages: printer, sheet, orientation, font, margins, pages, copies, and "as it is". What was chosen
// is remembered for the next time. Below the choices stands what will come out of them.
#pragma once

#include "pages/page_fit.h"
#include "pages/windows/report.h"

namespace quillon {

// Asks, and prints when the user says so, with a window to cancel it by. `page` is the page in front of the user. Failures are
// told in a box over `owner`. True when all of it went to the printer.
bool printDialog(HWND owner, Report& report, std::size_t page);

// What was last chosen of sheet, orientation, margins and font: pages show on the screen as they would come out.
FitWishes printWishes();

// Asks for a file and keeps the report as PDF there; without a prompt when `file` is given. Failures are told in a box.
bool saveAsPdf(HWND owner, Report& report, const std::wstring& file = {});

}  // namespace quillon
