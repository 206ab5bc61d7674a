// Message boxes. Showing one blocks the program until the user has answered it.
//
// Which icon a box bears, where its report does not tell: question for a choice, information for a run that is complete,
// exclamation for what the user can put right on the form, error for a file, a block or a device that failed.
#pragma once

#include <string_view>

#include "desktop/forms.h"

namespace quillon {

enum class BoxIcon { none, information, exclamation, error, question };
enum class BoxChoice { yes, no };

// One OK button. `title` null: a box with no title of its own. `owner` null: the main window owns it. Bytes of Windows-1252.
void boxShow(FormHandle owner, const char* title, std::string_view text, BoxIcon icon);
// Yes and No; `standard` is the default button, which Enter presses.
BoxChoice boxAsk(FormHandle owner, const char* title, std::string_view text, BoxIcon icon, BoxChoice standard);

}  // namespace quillon
