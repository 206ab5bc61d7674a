// Which files of a folder are taken for reports: a report may have any name that its form's output field takes, with any
// extension or none, so every file counts save those that are known to be something else.
#pragma once

#include <string_view>

namespace quillon {

// `name` is a file's name without its folder, UTF-8.
bool isReportName(std::string_view name);

}  // namespace quillon
