#include "pages/windows/page_font.h"

#include <algorithm>
#include <cmath>

namespace quillon {

// The first of them that is there. Reports were laid out for Courier's proportions.
static constexpr const wchar_t* faces[] = {L"Courier New",      L"Liberation Mono", L"Consolas",
                                           L"DejaVu Sans Mono", L"Nimbus Mono PS",  L"Lucida Console"};

static struct {
  const wchar_t* face;
  HFONT font;
  int height;
  int width;
  HFONT textFont;
} state;

static int CALLBACK noteFace(const LOGFONTW*, const TEXTMETRICW*, DWORD, LPARAM found) {
  *reinterpret_cast<bool*>(found) = true;
  return 0;
}

static const wchar_t* pageFace() {
  if (state.face) return state.face;
  const HDC screen = GetDC(nullptr);
  state.face = faces[0];
  for (const wchar_t* face : faces) {
    LOGFONTW wanted = {};
    wanted.lfCharSet = DEFAULT_CHARSET;
    lstrcpynW(wanted.lfFaceName, face, LF_FACESIZE);
    bool found = false;
    EnumFontFamiliesExW(screen, &wanted, noteFace, reinterpret_cast<LPARAM>(&found), 0);
    if (!found) continue;
    state.face = face;
    break;
  }
  ReleaseDC(nullptr, screen);
  return state.face;
}

static HFONT makeFont(int height, int width) {
  return CreateFontW(-height, width, 0, 0, FW_NORMAL, FALSE, FALSE, FALSE, DEFAULT_CHARSET, OUT_TT_PRECIS, CLIP_DEFAULT_PRECIS,
                     DEFAULT_QUALITY, FIXED_PITCH | FF_MODERN, pageFace());
}

static int averageWidth(HFONT font) {
  const HDC screen = GetDC(nullptr);
  const HGDIOBJ before = SelectObject(screen, font);
  TEXTMETRICW metrics = {};
  GetTextMetricsW(screen, &metrics);
  SelectObject(screen, before);
  ReleaseDC(nullptr, screen);
  return metrics.tmAveCharWidth;
}

HFONT pageFont(double size, double columnWidth) {
  const int height = std::max(1, static_cast<int>(std::lround(size)));
  const int width = std::max(1, static_cast<int>(std::ceil(columnWidth)));
  if (state.font && state.height == height && state.width == width) return state.font;
  if (state.font) DeleteObject(state.font);
  state.font = makeFont(height, 0);
  if (averageWidth(state.font) > width) {
    DeleteObject(state.font);
    state.font = makeFont(height, width);
  }
  state.height = height;
  state.width = width;
  return state.font;
}

HFONT pageFontForText(int points, int dpi) {
  if (state.textFont) DeleteObject(state.textFont);
  state.textFont = makeFont(MulDiv(points, dpi, 72), 0);
  return state.textFont;
}

}  // namespace quillon
