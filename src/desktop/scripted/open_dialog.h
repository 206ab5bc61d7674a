// The open-file dialog of the scripted desktop: told in the transcript, answered from a queue.
#pragma once

#include <optional>
#include <string>

#include "desktop/open_dialog.h"

namespace quillon {

// For the next dialog: this file, or Cancel.
void openDialogQueueAnswer(std::optional<std::string> file);
void openDialogReset();

}  // namespace quillon
