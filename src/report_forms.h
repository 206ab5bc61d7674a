// Which subsystem answers for which form resource: the one place where all forms are named together.
#pragma once

#include <span>

#include "frame/tools.h"

namespace quillon {

std::span<const FormEntry> reportForms();

}  // namespace quillon
