// Message boxes.
#include "desktop/boxes.h"

#include "desktop/windows/common.h"

namespace quillon {

static UINT iconFlag(BoxIcon icon) {
  switch (icon) {
    case BoxIcon::none:
      return 0;
    case BoxIcon::information:
      return MB_ICONINFORMATION;
    case BoxIcon::exclamation:
      return MB_ICONEXCLAMATION;
    case BoxIcon::error:
      return MB_ICONERROR;
    case BoxIcon::question:
      return MB_ICONQUESTION;
  }
  return 0;
}

static int show(FormHandle owner, const char* title, std::string_view text, UINT flags) {
  const HWND ownerWindow = windowsOwnerOf(owner);
  const InputBlock block(ownerWindow);
  const std::wstring wideTitle = wideFromAnsi(title ? title : "");
  const std::wstring wideText = wideFromAnsi(text);
  // No title at all: Windows puts its own word there.
  return MessageBoxW(ownerWindow, wideText.c_str(), title ? wideTitle.c_str() : nullptr, flags);
}

void boxShow(FormHandle owner, const char* title, std::string_view text, BoxIcon icon) {
  show(owner, title, text, MB_OK | iconFlag(icon));
}

BoxChoice boxAsk(FormHandle owner, const char* title, std::string_view text, BoxIcon icon, BoxChoice standard) {
  const UINT standardFlag = standard == BoxChoice::yes ? MB_DEFBUTTON1 : MB_DEFBUTTON2;
  return show(owner, title, text, MB_YESNO | iconFlag(icon) | standardFlag) == IDYES ? BoxChoice::yes : BoxChoice::no;
}

}  // namespace quillon
