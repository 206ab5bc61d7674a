// The Kesto Net Position form where no script looks: what it holds behind each press, and Print without a file, which a user
// finds disabled.
#include "position/kesto_net_position_form.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "desktop/scripted/faults.h"
#include "desktop/scripted/files.h"
#include "desktop/scripted/memory.h"
#include "desktop/scripted/script.h"
#include "frame/file_selection.h"
#include "frame/main_window.h"
#include "resource.h"
#include "text/input.h"

namespace quillon::test {
namespace {

struct Held {
  int control;  // that was pressed
  std::size_t blocks, streams;
  bool titleLeft;  // the name of the chosen file can still be seen by other forms
};
std::vector<Held> heldAfterPress;
bool printIsEnabledByCancel;
bool anotherFormOpensAFileBeforePrint;

void eventThenNote(const FormEvent& event) {
  const bool press = event.kind == FormEventKind::press;
  if (press && event.control == IDC_KNETPOS_PRINT && anotherFormOpensAFileBeforePrint) {
    EXPECT_NE(inputOpen("DAY.B01", InputKind::binary), nullptr);
  }
  kestoNetPositionFormEvent(event);
  if (!press) return;
  heldAfterPress.push_back({event.control, memoryBlocksHeld(), filesOpen(), !fileSelection.fileTitle.empty()});
  if (printIsEnabledByCancel && event.control == IDC_KNETPOS_CANCEL) formSetEnabled(event.form, IDC_KNETPOS_PRINT, true);
}

int program() {
  static constexpr FormEntry forms[] = {{"PRNTNETPOS", eventThenNote}};
  heldAfterPress.clear();
  return frameRun(forms);
}

std::string readWhole(const char* name) {
  std::ifstream file(name, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

class KestoNetPositionForm : public testing::Test {
 protected:
  std::filesystem::path before = std::filesystem::current_path();
  std::filesystem::path folder =
      std::filesystem::path(testing::TempDir()) / testing::UnitTest::GetInstance()->current_test_info()->name();

  void SetUp() override {
    printIsEnabledByCancel = anotherFormOpensAFileBeforePrint = false;
    std::filesystem::remove_all(folder);
    std::filesystem::create_directories(folder);
    std::filesystem::current_path(folder);
    // Records of zeros, of a scrip and a client of two spellings: more rows than the list of clients is long, which the form
    // finds out on its way.
    std::string bytes(24 + 3 * 142, '\0');
    bytes[0] = 'C';
    for (std::size_t i = 0; i < 3; ++i) {
      bytes[24 + i * 142 + 4] = 'B';
      bytes[24 + i * 142 + 68] = i == 1 ? 'a' : 'A';
    }
    std::ofstream("DAY.B01", std::ios::binary) << bytes;
  }
  void TearDown() override {
    printIsEnabledByCancel = anotherFormOpensAFileBeforePrint = false;
    std::filesystem::current_path(before);
    std::filesystem::remove_all(folder);
  }

  static std::string runOf(int view) {
    return "choose DAY.B01\npress 4024\npress " + std::to_string(view) + "\npress 4033\ntype 4034 A.TXT\npress 4037\n";
  }

  // A run under the fault, Cancel, and a run without it. True when the fault was met.
  static bool expectRunAfter(int view, Fault fault, const std::string& which, const std::string& wanted) {
    SCOPED_TRACE(std::to_string(view) + " fail " + which);
    std::filesystem::remove("A.TXT");
    const ScriptResult result =
        scriptRun("tool PRNTNETPOS\nfail " + which + "\n" + runOf(view) + "fail\npress 4038\n" + runOf(view), program);
    EXPECT_EQ(result.error, "");
    EXPECT_EQ(result.blocksHeld, 0u);
    EXPECT_EQ(result.streamsOpen, 0u);
    for (const Held& held : heldAfterPress) {
      EXPECT_EQ(held.streams, 0u) << "after " << held.control;
      const bool mayHoldTheFile = held.control != IDC_KNETPOS_PRINT && held.control != IDC_KNETPOS_CANCEL;
      EXPECT_LE(held.blocks, mayHoldTheFile ? 1u : 0u) << "after " << held.control;
    }
    EXPECT_EQ(readWhole("A.TXT"), wanted) << "the run after the fault";
    return faultsFired(fault) > 0;
  }
};

TEST_F(KestoNetPositionForm, everyFaultAtEveryPlaceLeavesNothingBehindAndTheNextRunIsRight) {
  static constexpr std::pair<Fault, const char*> faults[] = {
      {Fault::memory, "memory"}, {Fault::order, "order"}, {Fault::open, "open"},
      {Fault::create, "create"}, {Fault::seek, "seek"},   {Fault::tell, "tell"},
      {Fault::read, "read"},     {Fault::write, "write"}, {Fault::close, "close"}};
  for (const int view : {IDC_KNETPOS_CLIENT, IDC_KNETPOS_SCRIP, IDC_KNETPOS_CLIENT_SCRIP, IDC_KNETPOS_SCRIP_CLIENT}) {
    scriptRun("tool PRNTNETPOS\n" + runOf(view), program);
    const std::string wanted = readWhole("A.TXT");
    ASSERT_FALSE(wanted.empty());
    for (const auto& [fault, name] : faults) {
      // The first, the second, ... until a run meets none.
      int number = 1;
      while (expectRunAfter(view, fault, std::string(name) + " " + std::to_string(number), wanted)) ASSERT_LT(++number, 30);
    }
  }
}

TEST_F(KestoNetPositionForm, fileIsHeldFromTheLoadToCancelOrTheFormsEndAndItsNameIsTakenBack) {
  scriptRun("tool PRNTNETPOS\nchoose DAY.B01\npress 4024\npress 4038\n", program);
  ASSERT_EQ(heldAfterPress.size(), 2u);
  EXPECT_EQ(heldAfterPress[0].blocks, 1u);
  EXPECT_FALSE(heldAfterPress[0].titleLeft);
  EXPECT_EQ(heldAfterPress[1].blocks, 0u);
  EXPECT_EQ(scriptRun("tool PRNTNETPOS\nchoose DAY.B01\npress 4024\nclose\n", program).blocksHeld, 0u);
}

TEST_F(KestoNetPositionForm, refusedNameClosesEveryStreamAndKeepsTheFile) {
  anotherFormOpensAFileBeforePrint = true;
  scriptRun("tool PRNTNETPOS\nchoose DAY.B01\npress 4024\npress 4033\ntype 4034 A-B.TXT\npress 4037\n", program);
  ASSERT_EQ(heldAfterPress.size(), 3u);
  EXPECT_EQ(heldAfterPress[2].streams, 0u);
  EXPECT_EQ(heldAfterPress[2].blocks, 1u);
}

TEST_F(KestoNetPositionForm, printWithoutAFileSaysSoAndPrintsNothing) {
  printIsEnabledByCancel = true;
  const ScriptResult result = scriptRun("tool PRNTNETPOS\npress 4038\npress 4037\n", program);
  EXPECT_EQ(result.error, "");
  EXPECT_NE(result.transcript.find(R"("4046":{"text":"File Not Loaded "})"), std::string::npos) << result.transcript;
  EXPECT_EQ(result.transcript.find("\"box\""), std::string::npos) << result.transcript;
}

}  // namespace
}  // namespace quillon::test
