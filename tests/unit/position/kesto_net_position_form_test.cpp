// The Kesto Net Position form where no script gets: Print without a file, which a user finds disabled.
#include "position/kesto_net_position_form.h"

#include <gtest/gtest.h>

#include "desktop/scripted/script.h"
#include "frame/main_window.h"
#include "resource.h"

namespace quillon::test {
namespace {

// Cancel leaves Print enabled here.
void eventWithPrintEnabled(const FormEvent& event) {
  kestoNetPositionFormEvent(event);
  const bool cancelled = event.kind == FormEventKind::press && event.control == IDC_KNETPOS_CANCEL;
  if (cancelled) formSetEnabled(event.form, IDC_KNETPOS_PRINT, true);
}

int program() {
  static constexpr FormEntry forms[] = {{"PRNTNETPOS", eventWithPrintEnabled}};
  return frameRun(forms);
}

TEST(KestoNetPositionForm, printWithoutAFileSaysSoAndPrintsNothing) {
  const ScriptResult result = scriptRun("tool PRNTNETPOS\npress 4038\npress 4037\n", program);
  EXPECT_EQ(result.error, "");
  EXPECT_NE(result.transcript.find(R"("4046":{"text":"File Not Loaded "})"), std::string::npos) << result.transcript;
  EXPECT_EQ(result.transcript.find("\"box\""), std::string::npos) << result.transcript;
}

}  // namespace
}  // namespace quillon::test
