#include "pages/windows/find_bar.h"

#include <algorithm>
#include <iterator>
#include <string>

#include "pages/ids.h"
#include "pages/windows/frame.h"
#include "pages/windows/viewer.h"

namespace quillon {

static constexpr wchar_t findBarClass[] = L"QuillonFindBar";
static constexpr int longestText = 512;  // as long as a line

namespace {
struct FindPart {
  const wchar_t* windowClass;
  const wchar_t* text;
  DWORD style;
  int id;
  int width;  // at 96 dots an inch
};
}  // namespace

// No key twice, and none of the menu's.
static constexpr FindPart findParts[] = {
    {WC_STATICW, L"Fi&nd:", SS_LEFT, -1, 36},
    {WC_EDITW, L"", WS_TABSTOP | ES_AUTOHSCROLL, ID_FIND_TEXT, 200},
    {WC_BUTTONW, L"Ne&xt", WS_TABSTOP | BS_DEFPUSHBUTTON, ID_FIND_NEXT, 70},
    {WC_BUTTONW, L"&Previous", WS_TABSTOP | BS_PUSHBUTTON, ID_FIND_PREVIOUS, 76},
    {WC_BUTTONW, L"Match &case", WS_TABSTOP | BS_AUTOCHECKBOX, ID_FIND_CASE, 100},
    {WC_BUTTONW, L"C&lose", WS_TABSTOP | BS_PUSHBUTTON, ID_FIND_CLOSE, 60},
};
static constexpr int partHeight = 24;
static constexpr int partGap = 6;

static struct {
  HWND window;
  HWND parts[std::size(findParts)];
} state;

static HWND edit() { return GetDlgItem(state.window, ID_FIND_TEXT); }

static std::wstring typed() {
  std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(edit())) + 1, L'\0');
  text.resize(static_cast<std::size_t>(GetWindowTextW(edit(), text.data(), static_cast<int>(text.size()))));
  return text;
}

static void seek() {
  viewerSeek(typed(), SendDlgItemMessageW(state.window, ID_FIND_CASE, BM_GETCHECK, 0, 0) == BST_CHECKED);
  frameShow();
}

void findBarOpen() {
  if (!IsWindowVisible(state.window)) {
    ShowWindow(state.window, SW_SHOW);
    frameArrange();
    seek();
  }
  SetFocus(edit());
  SendMessageW(edit(), EM_SETSEL, 0, -1);
}

void findBarClose() {
  ShowWindow(state.window, SW_HIDE);
  viewerSeek({}, false);
  frameArrange();
  frameGiveFocusToPage();
  frameShow();
}

bool findBarIsOpen() { return IsWindowVisible(state.window) != 0; }

bool findBarSeek() {
  if (GetWindowTextLengthW(edit()) == 0) return false;
  seek();
  return true;
}

bool findBarHasEditFocus() { return GetFocus() == edit(); }
int findBarHeight() { return frameScaled(partHeight + 2 * partGap); }

static void onCommand(int id, int code) {
  switch (id) {
    case ID_FIND_TEXT:
      if (code == EN_CHANGE) seek();
      return;
    case ID_FIND_CASE:
      return seek();
    case IDOK:  // Enter
      return frameCommand(GetKeyState(VK_SHIFT) < 0 ? ID_EDIT_FIND_PREVIOUS : ID_EDIT_FIND_NEXT);
    case ID_FIND_NEXT:
      return frameCommand(ID_EDIT_FIND_NEXT);
    case ID_FIND_PREVIOUS:
      return frameCommand(ID_EDIT_FIND_PREVIOUS);
    case IDCANCEL:
    case ID_FIND_CLOSE:
      return findBarClose();
  }
}

// One beside the other; the edit gives way where the window is narrow.
static void arrange(int width) {
  int others = frameScaled(partGap);
  for (const FindPart& part : findParts)
    others += frameScaled(partGap) + (part.id == ID_FIND_TEXT ? 0 : frameScaled(part.width));
  const int room = std::max(width - others, frameScaled(60));
  int x = frameScaled(partGap);
  for (std::size_t i = 0; i < std::size(findParts); ++i) {
    const bool label = findParts[i].id == -1;
    const int wanted = frameScaled(findParts[i].width);
    const int size = findParts[i].id == ID_FIND_TEXT ? std::min(room, wanted) : wanted;
    const int lower = frameScaled(label ? 4 : findParts[i].id == ID_FIND_TEXT ? 2 : 0);
    MoveWindow(state.parts[i], x, frameScaled(partGap) + lower, size, frameScaled(partHeight) - 2 * lower, TRUE);
    x += size + frameScaled(partGap);
  }
}

void findBarNewFont() {
  for (const HWND part : state.parts) SendMessageW(part, WM_SETFONT, reinterpret_cast<WPARAM>(frameFont()), TRUE);
  RECT client = {};
  GetClientRect(state.window, &client);
  arrange(client.right);
}

static LRESULT CALLBACK findBarProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_COMMAND:
      onCommand(LOWORD(wParam), HIWORD(wParam));
      return 0;
    case WM_SIZE:
      arrange(LOWORD(lParam));
      return 0;
    case WM_CTLCOLORSTATIC:
      SetBkMode(reinterpret_cast<HDC>(wParam), TRANSPARENT);
      SetTextColor(reinterpret_cast<HDC>(wParam), GetSysColor(COLOR_BTNTEXT));
      return reinterpret_cast<LRESULT>(GetSysColorBrush(COLOR_BTNFACE));
    default:
      return DefWindowProcW(window, message, wParam, lParam);
  }
}

HWND findBarCreate(HWND parent) {
  WNDCLASSW windowClass = {};
  windowClass.lpfnWndProc = findBarProcedure;
  windowClass.hInstance = GetModuleHandleW(nullptr);
  windowClass.hCursor = LoadCursorW(nullptr, IDC_ARROW);
  windowClass.hbrBackground = GetSysColorBrush(COLOR_BTNFACE);
  windowClass.lpszClassName = findBarClass;
  RegisterClassW(&windowClass);
  state.window = CreateWindowExW(WS_EX_CONTROLPARENT, findBarClass, L"Find", WS_CHILD | WS_CLIPCHILDREN, 0, 0, 0, 0, parent,
                                 reinterpret_cast<HMENU>(static_cast<INT_PTR>(ID_FIND_BAR)), windowClass.hInstance, nullptr);
  for (std::size_t i = 0; i < std::size(findParts); ++i) {
    const FindPart& part = findParts[i];
    const DWORD edge = part.id == ID_FIND_TEXT ? WS_EX_CLIENTEDGE : 0;
    state.parts[i] =
        CreateWindowExW(edge, part.windowClass, part.text, WS_CHILD | WS_VISIBLE | part.style, 0, 0, 0, 0, state.window,
                        reinterpret_cast<HMENU>(static_cast<INT_PTR>(part.id)), windowClass.hInstance, nullptr);
  }
  SendMessageW(edit(), EM_LIMITTEXT, longestText, 0);
  findBarNewFont();
  return state.window;
}

}  // namespace quillon
