// The module, the main window and the conversion of texts.
#include "desktop/windows/common.h"

namespace quillon {

static constexpr UINT ansiCodePage = 1252;

static struct {
  HINSTANCE instance;
  HWND mainWindow;
} state;

void windowsStart(HINSTANCE instance) {
  state.instance = instance;
  // A run does not look at its messages until its end. Windows would take it for hung, whiten the windows and offer to end it.
  DisableProcessWindowsGhosting();
}

HINSTANCE windowsInstance() { return state.instance; }

HWND windowsMainWindow() { return state.mainWindow; }

void windowsSetMainWindow(HWND window) { state.mainWindow = window; }

HWND windowsOwnerOf(FormHandle form) { return form ? windowsOf(form) : state.mainWindow; }

static std::wstring widen(UINT codePage, std::string_view text) {
  const int size = static_cast<int>(text.size());
  const int wideSize = MultiByteToWideChar(codePage, 0, text.data(), size, nullptr, 0);
  std::wstring wide(static_cast<std::size_t>(wideSize), L'\0');
  MultiByteToWideChar(codePage, 0, text.data(), size, wide.data(), wideSize);
  return wide;
}

static std::string narrow(UINT codePage, DWORD flags, const char* unknown, std::wstring_view wide) {
  const int wideSize = static_cast<int>(wide.size());
  const int size = WideCharToMultiByte(codePage, flags, wide.data(), wideSize, nullptr, 0, unknown, nullptr);
  std::string text(static_cast<std::size_t>(size), '\0');
  WideCharToMultiByte(codePage, flags, wide.data(), wideSize, text.data(), size, unknown, nullptr);
  return text;
}

std::wstring wideFromUtf8(std::string_view text) { return widen(CP_UTF8, text); }

std::string utf8FromWide(std::wstring_view text) { return narrow(CP_UTF8, 0, nullptr, text); }

std::wstring wideFromAnsi(std::string_view text) { return widen(ansiCodePage, text); }

std::string ansiFromWide(std::wstring_view text) { return narrow(ansiCodePage, WC_NO_BEST_FIT_CHARS, "?", text); }

}  // namespace quillon
