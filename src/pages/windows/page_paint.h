// The drawing of a page: onto any device context, so that it needs no window.
#pragma once

#include "pages/page_geometry.h"
#include "pages/windows/system.h"
#include "pages/windows/viewer.h"

namespace quillon {

// Draws what of the ground lies in `area`, a rectangle of the device; the ground's upper left corner lies at (-scrollX,
// -scrollY).
void pagePaint(HDC device, const RECT& area, const Viewer& report, const PageGeometry& geometry, int scrollX, int scrollY,
               HFONT messageFont);

}  // namespace quillon
