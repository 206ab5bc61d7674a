// The forms of the two position tools, Net Position (PRNTNP) and SLB Position (PRNTNPRET): a trade file becomes one of four
// summaries, by client, by scrip, of one client or of one scrip.
#pragma once

#include "desktop/forms.h"

namespace quillon {

void netPositionFormEvent(const FormEvent& event);
void slbPositionFormEvent(const FormEvent& event);

}  // namespace quillon
