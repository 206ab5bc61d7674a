#include "pictures.h"

#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

namespace driving {

namespace {

// A square picture as it stands on the screen, or as it would stand on the ground colour.
using Pixels = std::vector<COLORREF>;

// What `draw` puts onto a square of this size.
template <class Draw>
Pixels pixelsOf(int size, Draw draw) {
  BITMAPINFO info = {};
  info.bmiHeader.biSize = sizeof info.bmiHeader;
  info.bmiHeader.biWidth = size;
  info.bmiHeader.biHeight = -size;
  info.bmiHeader.biPlanes = 1;
  info.bmiHeader.biBitCount = 32;
  const HDC screen = GetDC(nullptr);
  const HDC memory = CreateCompatibleDC(screen);
  void* bits = nullptr;
  const HBITMAP bitmap = CreateDIBSection(memory, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
  const HGDIOBJ before = SelectObject(memory, bitmap);
  draw(memory, screen);
  GdiFlush();
  Pixels pixels(static_cast<COLORREF*>(bits), static_cast<COLORREF*>(bits) + size * size);
  for (COLORREF& pixel : pixels) pixel &= 0x00FFFFFF;
  SelectObject(memory, before);
  DeleteObject(bitmap);
  DeleteDC(memory);
  ReleaseDC(nullptr, screen);
  return pixels;
}

Pixels pixelsOnScreen(int x, int y, int size) {
  return pixelsOf(size, [=](HDC memory, HDC screen) { BitBlt(memory, 0, 0, size, size, screen, x, y, SRCCOPY); });
}

Pixels pixelsOfIcon(HICON icon, int size, COLORREF ground) {
  return pixelsOf(size, [=](HDC memory, HDC) {
    const RECT area = {0, 0, size, size};
    const HBRUSH brush = CreateSolidBrush(RGB((ground >> 16) & 0xFF, (ground >> 8) & 0xFF, ground & 0xFF));
    FillRect(memory, &area, brush);
    DeleteObject(brush);
    DrawIconEx(memory, 0, 0, icon, size, size, 0, nullptr, DI_NORMAL);
  });
}

std::size_t distance(const Pixels& one, const Pixels& other) {
  std::size_t different = 0;
  for (std::size_t i = 0; i < one.size(); ++i) different += one[i] != other[i];
  return different;
}

}  // namespace

const char* iconOnScreen(HWND picture) {
  const std::pair<const wchar_t*, const char*> icons[] = {
      {IDI_INFORMATION, "information"}, {IDI_EXCLAMATION, "exclamation"}, {IDI_ERROR, "error"}, {IDI_QUESTION, "question"}};
  RECT area = {};
  GetWindowRect(picture, &area);
  const int size = std::min<int>(area.right - area.left, area.bottom - area.top);
  const Pixels seen = pixelsOnScreen(area.left, area.top, size);
  for (const auto& [icon, name] : icons) {
    if (distance(seen, pixelsOfIcon(LoadIconW(nullptr, icon), size, seen[0])) * 20 < seen.size()) return name;
  }
  return nullptr;
}

// Where in the bar it stands is the desktop's affair: the places at its left end are tried one after the other.
bool hasIconInTitle(HWND window, const wchar_t* program, const wchar_t* icon) {
  const int size = GetSystemMetrics(SM_CXSMICON);
  const HMODULE module = LoadLibraryExW(program, nullptr, LOAD_LIBRARY_AS_DATAFILE);
  const HICON wanted = static_cast<HICON>(LoadImageW(module, icon, IMAGE_ICON, size, size, 0));
  RECT area = {};
  GetWindowRect(window, &area);
  const int left = std::max<int>(area.left, 0);
  const int top = std::max<int>(area.top, 0);
  bool found = false;
  for (int y = top; wanted && !found && y < top + 2 * size; ++y) {
    for (int x = left; !found && x < left + size; ++x) {
      const Pixels seen = pixelsOnScreen(x, y, size);
      found = distance(seen, pixelsOfIcon(wanted, size, seen[0])) * 20 < seen.size();
    }
  }
  FreeLibrary(module);
  return found;
}

}  // namespace driving
