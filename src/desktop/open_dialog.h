// The standard open-file dialog.
#pragma once

#include <optional>
#include <span>
#include <string>

#include "desktop/forms.h"

namespace quillon {

struct FileMask {
  std::string name;     // as shown, such as "Tr Files(Trddmmyy.BNN)"
  std::string pattern;  // such as "TR*.B*"
};

struct OpenDialog {
  FormHandle owner;  // null: the main window
  std::string title;
  std::string folder;  // where it starts, UTF-8
  std::span<const FileMask> masks;
  int selected;      // 1 is the first mask; 0 selects none
  std::string name;  // the file that it offers to begin with, a full path in UTF-8; empty: none
};

// The full path of the file that was chosen, UTF-8, at most 299 characters; nothing on Cancel. The file and its folder exist:
// the dialog takes no other answer. There is no read-only check box.
std::optional<std::string> openDialogAsk(const OpenDialog& dialog);

// The program's current folder, UTF-8.
std::string openDialogCurrentFolder();

}  // namespace quillon
