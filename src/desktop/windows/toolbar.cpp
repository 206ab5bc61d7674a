// The toolbar: buttons of 25 by 25, scaled as the screen is, with the pictures that fit them best.
#include "desktop/windows/toolbar.h"

#include <array>
#include <iterator>
#include <string>
#include <vector>

#include "desktop/app.h"
#include "desktop/windows/common.h"

// After <windows.h>, which common.h brings.
// clang-format off
#include <commctrl.h>
// clang-format on

namespace quillon {

static constexpr int toolbarId = 178;
static constexpr int buttonSize = 25;
static constexpr int toolbarWidth = 800;
static constexpr int toolbarHeight = 40;

// The sizes in which the pictures are drawn, and what their resource ids have above those of the smallest.
struct PictureSize {
  int pixels;
  int idsAbove;
};
static constexpr PictureSize pictureSizes[] = {{25, 0}, {38, 1000}, {50, 2000}};

static struct {
  std::span<const ToolButton> buttons;
  HWND window;
  HWND tooltips;
  HIMAGELIST pictures;
} state;

static int scaled(int size, UINT dpi) { return MulDiv(size, static_cast<int>(dpi), USER_DEFAULT_SCREEN_DPI); }

// The largest that the buttons can take as it is; one drawn for another size would be blurred.
static PictureSize pictureSizeFor(UINT dpi) {
  PictureSize best = pictureSizes[0];
  for (const PictureSize& size : pictureSizes) {
    if (size.pixels <= scaled(buttonSize, dpi) + 1) best = size;  // at 150 in a hundred they are 37.5
  }
  return best;
}

// ---- Pictures ----------------------------------------------------------------------------------------------------------

static RGBQUAD paletteEntry(int colour) {
  const COLORREF of = GetSysColor(colour);
  return {.rgbBlue = GetBValue(of), .rgbGreen = GetGValue(of), .rgbRed = GetRValue(of), .rgbReserved = 0};
}

static bool isGrey(const RGBQUAD& entry, BYTE level) {
  return entry.rgbRed == level && entry.rgbGreen == level && entry.rgbBlue == level;
}

// The pictures have the button face and the ink as these two greys; both become the colours of the user's desktop.
static void takeDesktopColours(HBITMAP picture) {
  static constexpr BYTE face = 192;
  static constexpr BYTE ink = 0;
  const HDC memory = CreateCompatibleDC(nullptr);
  const HGDIOBJ before = SelectObject(memory, picture);
  std::array<RGBQUAD, 256> colours = {};
  const UINT count = GetDIBColorTable(memory, 0, static_cast<UINT>(colours.size()), colours.data());
  for (UINT i = 0; i < count; ++i) {
    if (isGrey(colours[i], face))
      colours[i] = paletteEntry(COLOR_BTNFACE);
    else if (isGrey(colours[i], ink))
      colours[i] = paletteEntry(COLOR_BTNTEXT);
  }
  SetDIBColorTable(memory, 0, count, colours.data());
  SelectObject(memory, before);
  DeleteDC(memory);
}

static HBITMAP loadPicture(int id) {
  const HANDLE picture = LoadImageW(windowsInstance(), MAKEINTRESOURCEW(id), IMAGE_BITMAP, 0, 0, LR_CREATEDIBSECTION);
  if (picture) takeDesktopColours(static_cast<HBITMAP>(picture));
  return static_cast<HBITMAP>(picture);
}

// ---- The window --------------------------------------------------------------------------------------------------------

// The themes of Windows let the main window's colour through; the pictures are drawn for the button face.
static LRESULT CALLBACK toolbarProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR id, DWORD_PTR) {
  if (message == WM_ERASEBKGND) {
    RECT area = {};
    GetClientRect(window, &area);
    FillRect(reinterpret_cast<HDC>(wParam), &area, GetSysColorBrush(COLOR_BTNFACE));
    return TRUE;
  }
  if (message == WM_NCDESTROY) RemoveWindowSubclass(window, toolbarProcedure, id);
  return DefSubclassProc(window, message, wParam, lParam);
}

// A toolbar's own tooltips show only while its window is the active one; here a form nearly always is.
static void giveTooltips() {
  const HWND own = reinterpret_cast<HWND>(SendMessageW(state.window, TB_GETTOOLTIPS, 0, 0));
  state.tooltips =
      CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_NOPREFIX | TTS_ALWAYSTIP, CW_USEDEFAULT,
                      CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, state.window, nullptr, windowsInstance(), nullptr);
  SendMessageW(state.window, TB_SETTOOLTIPS, reinterpret_cast<WPARAM>(state.tooltips), 0);
  if (own) DestroyWindow(own);
}

// One by one, each from its own resource, into a list that has room for all of them: the toolbar itself would make its list
// anew with each, and the main window comes some 15 ms later. Where the button face was, the button shows through.
static void addPictures(const PictureSize& size) {
  const int count = static_cast<int>(state.buttons.size());
  state.pictures = ImageList_Create(size.pixels, size.pixels, ILC_COLOR24 | ILC_MASK, count, 0);
  for (const ToolButton& button : state.buttons) {
    const HBITMAP picture = loadPicture(button.bitmap + size.idsAbove);
    ImageList_AddMasked(state.pictures, picture, GetSysColor(COLOR_BTNFACE));
    DeleteObject(picture);
  }
  SendMessageW(state.window, TB_SETIMAGELIST, 0, reinterpret_cast<LPARAM>(state.pictures));
}

static void addButtons() {
  std::vector<TBBUTTON> all;
  for (const ToolButton& button : state.buttons) {
    TBBUTTON made = {};
    made.iBitmap = static_cast<int>(all.size());
    made.idCommand = button.tool;
    made.fsState = TBSTATE_ENABLED;
    made.fsStyle = TBSTYLE_CHECK;
    made.iString = -1;
    all.push_back(made);
  }
  SendMessageW(state.window, TB_ADDBUTTONSW, all.size(), reinterpret_cast<LPARAM>(all.data()));
}

static void build(UINT dpi) {
  const PictureSize picture = pictureSizeFor(dpi);
  const int button = scaled(buttonSize, dpi);
  constexpr DWORD style = WS_CHILD | WS_BORDER | TBSTYLE_TOOLTIPS | TBSTYLE_WRAPABLE | CCS_TOP | CCS_NORESIZE;
  state.window = CreateWindowExW(0, TOOLBARCLASSNAMEW, nullptr, style, 0, 0, scaled(toolbarWidth, dpi),
                                 scaled(toolbarHeight, dpi), windowsMainWindow(),
                                 reinterpret_cast<HMENU>(static_cast<INT_PTR>(toolbarId)), windowsInstance(), nullptr);
  SetWindowSubclass(state.window, toolbarProcedure, toolbarId, 0);
  SendMessageW(state.window, TB_BUTTONSTRUCTSIZE, sizeof(TBBUTTON), 0);
  SendMessageW(state.window, TB_SETBUTTONSIZE, 0, MAKELPARAM(button, button));
  SendMessageW(state.window, TB_SETBITMAPSIZE, 0, MAKELPARAM(picture.pixels, picture.pixels));
  giveTooltips();
  addPictures(picture);
  addButtons();
  ShowWindow(state.window, SW_SHOW);
}

void appBuildToolbar(std::span<const ToolButton> buttons) {
  INITCOMMONCONTROLSEX controls = {.dwSize = sizeof controls, .dwICC = ICC_BAR_CLASSES};
  InitCommonControlsEx(&controls);
  state.buttons = buttons;
  build(GetDpiForWindow(windowsMainWindow()));
}

void appSetToolChecked(int tool, bool checked) {
  SendMessageW(state.window, TB_CHECKBUTTON, static_cast<WPARAM>(tool), MAKELPARAM(checked, 0));
}

void appDestroyToolbar() {
  if (state.window) DestroyWindow(state.window);
  if (state.tooltips) DestroyWindow(state.tooltips);
  state.window = nullptr;
  state.tooltips = nullptr;
  if (state.pictures) ImageList_Destroy(state.pictures);
  state.pictures = nullptr;
}

void toolbarRebuild(UINT dpi) {
  if (!state.window) return;
  std::vector<int> checked;
  for (const ToolButton& button : state.buttons) {
    if (SendMessageW(state.window, TB_ISBUTTONCHECKED, static_cast<WPARAM>(button.tool), 0)) checked.push_back(button.tool);
  }
  appDestroyToolbar();
  build(dpi);
  for (const int tool : checked) appSetToolChecked(tool, true);
}

}  // namespace quillon
