// The toolbar, as the main window needs it beside what desktop/app.h has of it.
#pragma once

#include "desktop/windows/start.h"

namespace quillon {

// Makes it anew for a screen of this many dots an inch, or in new colours of the desktop; the checked buttons stay checked.
// Nothing where there is none.
void toolbarRebuild(UINT dpi);

}  // namespace quillon
