// The page that shows, as it will print: a sheet with its lines, marks and selection, at some zoom.
#pragma once

#include "pages/page_geometry.h"
#include "pages/windows/system.h"

namespace quillon {

HWND pageViewCreate(HWND parent, const Zoom& zoom);

// The report in front, its page or what is marked on it may have changed.
void pageViewUpdate();
enum class PageEdge { top, bottom };
void pageViewScrollTo(PageEdge edge);
void pageViewShowMatch();  // scrolls to the current match

Zoom pageViewZoom();
void pageViewSetZoom(const Zoom& zoom);
int pageViewPercent();  // what the zoom comes to

}  // namespace quillon
