// The pages of an admin log: one report a section, in two layouts for the limits of traders and of scrips.
#pragma once

#include <cstdint>
#include <span>

#include "logs/admin_log_file.h"
#include "text/output.h"

namespace quillon {

// What the reports of one run have in common.
struct AdminPage {
  AdminHeader header;
  bool isLendingFile;
  unsigned recordsPerPage;  // at least 1
  int number;               // of the last page that was begun, 0 ahead of the first: pages count straight through a run
};

// Prints the section's report, a page of headings alone where there are no records, and ends its last page. `records` are those
// of the section, `order` the positions of those that are printed.
void printAdminSection(Output& out, AdminSection section, const void* records, std::span<const std::uint32_t> order,
                       AdminPage& page);

}  // namespace quillon
