// Forms: modeless dialogs from the program's own resources, owned by the main window.
#include "desktop/forms.h"

#include <algorithm>
#include <vector>

#include "desktop/windows/common.h"

// After <windows.h>, which common.h brings.
// clang-format off
#include <commctrl.h>
// clang-format on

namespace quillon {

struct FormWindow {
  HWND window;
  FormHandler handler;
  HWND focusWhenShown;  // asked for while the form was not to be seen yet
};

static struct {
  std::vector<FormWindow*> forms;  // all that are open
  std::vector<HWND> blocked;       // disabled for the length of a box
  int blocks;                      // boxes that are open, one inside another
  bool settingFocus;               // the focus moves on the program's word: no press, though a radio button tells of one
} state;

HWND windowsOf(FormHandle form) { return form ? form->window : nullptr; }

// ---- Standing still while a box is open --------------------------------------------------------------------------------

static void blockWindow(HWND window, HWND owner) {
  if (!window || window == owner || !IsWindowEnabled(window)) return;
  EnableWindow(window, FALSE);
  state.blocked.push_back(window);
}

InputBlock::InputBlock(HWND owner) {
  if (state.blocks++ > 0) return;
  windowsPauseWork(true);
  blockWindow(windowsMainWindow(), owner);
  for (const FormWindow* form : state.forms) blockWindow(form->window, owner);
}

InputBlock::~InputBlock() {
  if (--state.blocks > 0) return;
  for (HWND window : state.blocked) EnableWindow(window, TRUE);
  state.blocked.clear();
  windowsPauseWork(false);
}

// ---- Messages of a form ------------------------------------------------------------------------------------------------

static void send(FormWindow* form, FormEventKind kind, int control = 0) {
  form->handler({.form = form, .kind = kind, .control = control});
}

// The same on the user's word. A button's work may take long.
static void sendAsWork(FormWindow* form, FormEventKind kind, int control, bool mayTakeLong) {
  const Work work(mayTakeLong);
  send(form, kind, control);
}

static bool isKind(HWND control, const wchar_t* windowClass) {
  wchar_t name[16] = {};
  GetClassNameW(control, name, static_cast<int>(std::size(name)));
  return lstrcmpiW(name, windowClass) == 0;
}

bool windowsIsPushButton(HWND button) {
  if (!isKind(button, L"Button")) return false;
  const LONG_PTR type = GetWindowLongPtrW(button, GWL_STYLE) & BS_TYPEMASK;
  return type == BS_PUSHBUTTON || type == BS_DEFPUSHBUTTON;
}

static bool canBePressed(HWND button) {
  return IsWindowEnabled(button) && (GetWindowLongPtrW(button, GWL_STYLE) & WS_VISIBLE) != 0;
}

// Enter arrives here as the press of the focused or the default button, even of one that cannot be pressed. Where a form has
// none, it comes without a control and does nothing; so does Escape.
static void onCommand(FormWindow* form, int control, int code, HWND window) {
  if (!window) return;
  if (isKind(window, L"Button")) {
    if (code == BN_CLICKED && !state.settingFocus && canBePressed(window))
      sendAsWork(form, FormEventKind::press, control, windowsIsPushButton(window));
  } else if (isKind(window, L"Edit")) {
    if (code == EN_UPDATE) sendAsWork(form, FormEventKind::edit, control, false);
  } else if (isKind(window, L"ComboBox")) {
    if (code == CBN_SELCHANGE) sendAsWork(form, FormEventKind::pick, control, false);
  }
}

static bool closeIsEnabled(HWND window) {
  const UINT entry = GetMenuState(GetSystemMenu(window, FALSE), SC_CLOSE, MF_BYCOMMAND);
  return (entry & (MF_GRAYED | MF_DISABLED)) == 0;
}

// ---- Edits that take digits only ---------------------------------------------------------------------------------------

// What is on the clipboard, without all that is no digit.
static std::wstring digitsOnClipboard(HWND window) {
  std::wstring digits;
  if (!OpenClipboard(window)) return digits;
  if (const HANDLE block = GetClipboardData(CF_UNICODETEXT)) {
    const wchar_t* text = static_cast<const wchar_t*>(GlobalLock(block));
    const std::size_t size = text ? GlobalSize(block) / sizeof(wchar_t) : 0;
    for (std::size_t i = 0; i < size && text[i] != L'\0'; ++i) {
      if (text[i] >= L'0' && text[i] <= L'9') digits += text[i];
    }
    GlobalUnlock(block);
  }
  CloseClipboard();
  return digits;
}

// Windows sees to the keyboard. What is pasted it would take as it is.
static LRESULT CALLBACK digitsProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR id, DWORD_PTR) {
  if (message == WM_PASTE) {
    const std::wstring digits = digitsOnClipboard(window);
    if (digits.empty())
      MessageBeep(MB_OK);
    else
      SendMessageW(window, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(digits.c_str()));
    return 0;
  }
  if (message == WM_NCDESTROY) RemoveWindowSubclass(window, digitsProcedure, id);
  return DefSubclassProc(window, message, wParam, lParam);
}

static void watchEdits(HWND form) {
  for (HWND child = GetWindow(form, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
    const bool digitsOnly = isKind(child, L"Edit") && (GetWindowLongPtrW(child, GWL_STYLE) & ES_NUMBER) != 0;
    if (digitsOnly) SetWindowSubclass(child, digitsProcedure, 1, 0);
  }
}

// ---- From its making to its end ----------------------------------------------------------------------------------------

// On a small screen a form would otherwise open with its lower buttons out of reach.
static void keepOnScreen(HWND window) {
  RECT place = {};
  MONITORINFO screen = {};
  screen.cbSize = sizeof screen;
  if (!GetWindowRect(window, &place) || !GetMonitorInfoW(MonitorFromWindow(window, MONITOR_DEFAULTTONEAREST), &screen)) return;
  const RECT& room = screen.rcWork;
  const int left = std::max(std::min(place.left, room.right - (place.right - place.left)), room.left);
  const int top = std::max(std::min(place.top, room.bottom - (place.bottom - place.top)), room.top);
  SetWindowPos(window, nullptr, left, top, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

static void takeOff(FormWindow* form) {
  std::erase(state.forms, form);
  delete form;
}

static INT_PTR CALLBACK dialogProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_INITDIALOG) {
    FormWindow* form = reinterpret_cast<FormWindow*>(lParam);
    form->window = window;
    SetWindowLongPtrW(window, DWLP_USER, lParam);
    watchEdits(window);
    keepOnScreen(window);
    send(form, FormEventKind::start);
    return FALSE;  // the focus is where the form has put it
  }
  FormWindow* form = reinterpret_cast<FormWindow*>(GetWindowLongPtrW(window, DWLP_USER));
  if (!form) return FALSE;
  switch (message) {
    case WM_COMMAND:
      onCommand(form, LOWORD(wParam), HIWORD(wParam), reinterpret_cast<HWND>(lParam));
      return TRUE;
    case WM_MOUSEACTIVATE:
      send(form, FormEventKind::activate);
      return FALSE;
    case WM_SYSCOMMAND:
      // Alt+F4 asks to close even where the entry is greyed.
      return (wParam & 0xFFF0) == SC_CLOSE && !closeIsEnabled(window);
    case WM_CLOSE:
      if (!windowsAtWork()) send(form, FormEventKind::close);
      return TRUE;  // else the dialog manager would turn it into Cancel
    case WM_DESTROY:
      send(form, FormEventKind::destroy);
      return TRUE;
    case WM_NCDESTROY:
      SetWindowLongPtrW(window, DWLP_USER, 0);
      takeOff(form);
      return FALSE;
    default:
      return FALSE;
  }
}

FormHandle formCreate(const char* resource, FormHandler handler) {
  FormWindow* form = new FormWindow{.window = nullptr, .handler = handler, .focusWhenShown = nullptr};
  state.forms.push_back(form);
  const HWND window = CreateDialogParamW(windowsInstance(), wideFromAnsi(resource).c_str(), windowsMainWindow(),
                                         dialogProcedure, reinterpret_cast<LPARAM>(form));
  if (window) return form;
  // A form that came as far as its window has been taken off with it.
  if (std::find(state.forms.begin(), state.forms.end(), form) != state.forms.end()) takeOff(form);
  return nullptr;
}

void formDestroy(FormHandle form) {
  if (form) DestroyWindow(form->window);
}

// ---- The form as a whole -----------------------------------------------------------------------------------------------

static void moveFocus(HWND form, HWND control) {
  state.settingFocus = true;
  SendMessageW(form, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(control), TRUE);
  state.settingFocus = false;
}

void formShow(FormHandle form) {
  if (!form) return;
  ShowWindow(form->window, SW_SHOW);
  BringWindowToTop(form->window);
  if (form->focusWhenShown) moveFocus(form->window, form->focusWhenShown);
  form->focusWhenShown = nullptr;
}

// Activating a form gives the focus back to the control that had it. A form that is active already keeps it: taking it away
// would shut a list that is dropped down.
void formRaise(FormHandle form) {
  if (!form || GetActiveWindow() == form->window) return;
  state.settingFocus = true;
  BringWindowToTop(form->window);
  SetActiveWindow(form->window);
  state.settingFocus = false;
}

void formSetTitle(FormHandle form, std::string_view utf8) {
  if (form) SetWindowTextW(form->window, wideFromUtf8(utf8).c_str());
}

void formSetCloseEnabled(FormHandle form, bool enabled) {
  if (!form) return;
  EnableMenuItem(GetSystemMenu(form->window, FALSE), SC_CLOSE,
                 static_cast<UINT>(MF_BYCOMMAND | (enabled ? MF_ENABLED : MF_GRAYED)));
}

// ---- Controls ----------------------------------------------------------------------------------------------------------

static HWND controlOf(FormHandle form, int control) { return form ? GetDlgItem(form->window, control) : nullptr; }

static std::string textOf(HWND window) {
  std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
  text.resize(static_cast<std::size_t>(GetWindowTextW(window, text.data(), static_cast<int>(text.size()))));
  return ansiFromWide(text);
}

void formSetText(FormHandle form, int control, std::string_view text) {
  const HWND window = controlOf(form, control);
  if (!window) return;
  // A filter that puts a text back while the user types in it leaves the caret where it stands, or at the end of the text.
  const bool typedInto = GetFocus() == window && isKind(window, L"Edit");
  DWORD caret = 0;
  if (typedInto) SendMessageW(window, EM_GETSEL, 0, reinterpret_cast<LPARAM>(&caret));
  SetWindowTextW(window, wideFromAnsi(text).c_str());
  if (typedInto) SendMessageW(window, EM_SETSEL, caret, static_cast<LPARAM>(caret));
  UpdateWindow(window);  // a run does not come back to the message loop before its end; its progress is to be seen
}

std::string formGetText(FormHandle form, int control, std::size_t limit) {
  const HWND window = controlOf(form, control);
  return window ? textOf(window).substr(0, limit) : std::string();
}

void formSetChecked(FormHandle form, int control, bool checked) {
  if (const HWND window = controlOf(form, control)) {
    SendMessageW(window, BM_SETCHECK, checked ? BST_CHECKED : BST_UNCHECKED, 0);
  }
}

bool formIsChecked(FormHandle form, int control) {
  const HWND window = controlOf(form, control);
  return window && SendMessageW(window, BM_GETCHECK, 0, 0) == BST_CHECKED;
}

void formSetEnabled(FormHandle form, int control, bool enabled) {
  if (const HWND window = controlOf(form, control)) EnableWindow(window, enabled);
}

void formSetVisible(FormHandle form, int control, bool visible) {
  if (const HWND window = controlOf(form, control)) ShowWindow(window, visible ? SW_SHOW : SW_HIDE);
}

void formSetFocus(FormHandle form, int control) {
  const HWND window = controlOf(form, control);
  if (!window) return;
  if (IsWindowVisible(form->window)) {
    moveFocus(form->window, window);
  } else {
    form->focusWhenShown = window;
  }
}

// ---- Drop-down lists ---------------------------------------------------------------------------------------------------

void formListFill(FormHandle form, int control, std::span<const std::string> items) {
  const HWND window = controlOf(form, control);
  if (!window) return;
  SendMessageW(window, WM_SETREDRAW, FALSE, 0);
  SendMessageW(window, CB_RESETCONTENT, 0, 0);
  std::size_t bytes = 0;
  for (const std::string& item : items) bytes += (item.size() + 1) * sizeof(wchar_t);
  SendMessageW(window, CB_INITSTORAGE, items.size(), static_cast<LPARAM>(bytes));
  for (const std::string& item : items) {
    SendMessageW(window, CB_INSERTSTRING, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(wideFromAnsi(item).c_str()));
  }
  SendMessageW(window, WM_SETREDRAW, TRUE, 0);
  if (IsWindowVisible(window)) InvalidateRect(window, nullptr, TRUE);
}

static int askList(FormHandle form, int control, UINT message, int whenNone) {
  const HWND window = controlOf(form, control);
  return window ? static_cast<int>(SendMessageW(window, message, 0, 0)) : whenNone;
}

void formListSelect(FormHandle form, int control, int index) {
  const HWND window = controlOf(form, control);
  if (window) SendMessageW(window, CB_SETCURSEL, static_cast<WPARAM>(index), 0);
}

int formListCount(FormHandle form, int control) { return std::max(askList(form, control, CB_GETCOUNT, 0), 0); }

int formListSelected(FormHandle form, int control) { return askList(form, control, CB_GETCURSEL, -1); }

std::string formListText(FormHandle form, int control, int index) {
  const HWND window = controlOf(form, control);
  if (!window) return {};
  const LRESULT length = SendMessageW(window, CB_GETLBTEXTLEN, static_cast<WPARAM>(index), 0);
  if (length == CB_ERR) return {};
  std::wstring text(static_cast<std::size_t>(length) + 1, L'\0');
  SendMessageW(window, CB_GETLBTEXT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(text.data()));
  text.resize(static_cast<std::size_t>(length));
  return ansiFromWide(text);
}

}  // namespace quillon
