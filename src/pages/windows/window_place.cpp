#include "pages/windows/window_place.h"

#include <cwchar>

#include "pages/windows/settings.h"

namespace quillon {

static constexpr wchar_t placeSetting[] = L"Window";  // left, top, right, bottom, 1 where it filled the screen

void windowPlaceRestore(HWND window, int show) {
  WINDOWPLACEMENT place = {};
  place.length = sizeof place;
  RECT& area = place.rcNormalPosition;
  int filled = 0;
  const std::wstring kept = settingsText(placeSetting, L"");
  const bool known =
      std::swscanf(kept.c_str(), L"%ld %ld %ld %ld %d", &area.left, &area.top, &area.right, &area.bottom, &filled) == 5;
  // A screen may have gone since.
  const bool usable = known && area.right - area.left >= 100 && area.bottom - area.top >= 100 &&
                      MonitorFromRect(&area, MONITOR_DEFAULTTONULL) != nullptr;
  const bool usual = show == SW_SHOWNORMAL || show == SW_SHOWDEFAULT || show == SW_SHOW;
  if (usable) {
    place.showCmd = usual && filled ? SW_SHOWMAXIMIZED : static_cast<UINT>(show);
    SetWindowPlacement(window, &place);
  } else {
    ShowWindow(window, show);
  }
}

void windowPlaceKeep(HWND window) {
  WINDOWPLACEMENT place = {};
  place.length = sizeof place;
  if (!GetWindowPlacement(window, &place)) return;
  const RECT& area = place.rcNormalPosition;
  const bool filled = place.showCmd == SW_SHOWMAXIMIZED || (place.flags & WPF_RESTORETOMAXIMIZED) != 0;
  std::wstring text;
  for (const LONG edge : {area.left, area.top, area.right, area.bottom}) text += std::to_wstring(edge) + L' ';
  settingsKeep(placeSetting, text + (filled ? L"1" : L"0"));
}

}  // namespace quillon
