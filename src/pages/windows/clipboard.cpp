#include "pages/windows/clipboard.h"

namespace quillon {

static constexpr UINT ansiCodePage = 1252;

static HGLOBAL wideCopy(const std::string& text) {
  const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, (text.size() + 1) * sizeof(wchar_t));
  if (!memory) return nullptr;
  auto* wide = static_cast<wchar_t*>(GlobalLock(memory));
  const int size = static_cast<int>(text.size());
  const int written = size > 0 ? MultiByteToWideChar(ansiCodePage, 0, text.data(), size, wide, size) : 0;
  wide[written] = L'\0';
  GlobalUnlock(memory);
  return memory;
}

// A program that watches the clipboard may hold it for a moment.
static bool open(HWND owner) {
  for (int attempt = 0; attempt < 10; ++attempt) {
    if (OpenClipboard(owner)) return true;
    Sleep(20);
  }
  return false;
}

bool clipboardTake(HWND owner, const std::string& text) {
  const HGLOBAL memory = wideCopy(text);
  if (!memory || !open(owner)) {
    GlobalFree(memory);
    return false;
  }
  EmptyClipboard();
  const bool taken = SetClipboardData(CF_UNICODETEXT, memory) != nullptr;
  if (!taken) GlobalFree(memory);  // otherwise it is the clipboard's
  CloseClipboard();
  return taken;
}

}  // namespace quillon
