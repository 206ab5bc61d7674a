// The forms of both position tools on the scripted desktop: every fault at every place, what is given back, and every text.
#include "position/position_form.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>

#include "desktop/scripted/faults.h"
#include "desktop/scripted/files.h"
#include "desktop/scripted/memory.h"
#include "desktop/scripted/script.h"
#include "frame/main_window.h"
#include "position_records.h"
#include "support/approved.h"

namespace quillon::test {
namespace {

struct Held {
  std::size_t blocks, streams;
};
std::vector<Held> heldAfterPress;

void notePress(const FormEvent& event) {
  if (event.kind == FormEventKind::press) heldAfterPress.push_back({memoryBlocksHeld(), filesOpen()});
}
void netEvent(const FormEvent& event) {
  netPositionFormEvent(event);
  notePress(event);
}
void slbEvent(const FormEvent& event) {
  slbPositionFormEvent(event);
  notePress(event);
}

int program() {
  static constexpr FormEntry forms[] = {{"PRNTNP", netEvent}, {"PRNTNPRET", slbEvent}};
  heldAfterPress.clear();
  return frameRun(forms);
}

struct Tool {
  const PositionTool& tool;
  const char* form;
};
const Tool tools[] = {{netPositionTool, "PRNTNP"}, {slbPositionTool, "PRNTNPRET"}};

std::string press(int control) { return "press " + std::to_string(control) + "\n"; }

// A folder of its own for each test, with a small file that both tools read alike.
class PositionForms : public testing::Test {
 protected:
  std::filesystem::path before = std::filesystem::current_path();
  std::filesystem::path folder =
      std::filesystem::path(testing::TempDir()) / testing::UnitTest::GetInstance()->current_test_info()->name();

  void SetUp() override {
    std::filesystem::remove_all(folder);
    std::filesystem::create_directories(folder);
    std::filesystem::current_path(folder);
    const std::vector<Deal> deals = {{"C1", "AXLE", 'B', 5, 100}, {"C2", "AXLE", 'S', 7, 200}, {"C1", "BOLT", 'B', 9, 300}};
    std::ofstream("DAY.B01", std::ios::binary) << bytesOf(dealHeader('V')) << dealBytes<TradeRec144>(deals);
  }
  void TearDown() override {
    std::filesystem::current_path(before);
    std::filesystem::remove_all(folder);
  }

  static std::string load(const Tool& t) { return "choose DAY.B01\n" + press(t.tool.controls.load); }
  static std::string printTo(const Tool& t, int radio, const std::string& name) {
    const PositionControls& at = t.tool.controls;
    return press(radio) + press(at.file) + "type " + std::to_string(at.outFileControls[0]) + " " + name + "\n" +
           press(at.print);
  }

  // A run under the fault, Cancel, and a run without it: whatever the first one met, nothing stays behind and the second one
  // leaves the report `wanted`. True when the fault was met.
  static bool expectRunAfter(const Tool& t, int radio, Fault fault, const std::string& which, const std::string& wanted) {
    SCOPED_TRACE(std::string(t.form) + " " + std::to_string(radio) + " fail " + which);
    std::filesystem::remove("A.TXT");
    const std::string run = load(t) + printTo(t, radio, "A.TXT");
    const ScriptResult result = scriptRun(
        std::string("tool ") + t.form + "\nfail " + which + "\n" + run + "fail\n" + press(t.tool.controls.cancel) + run,
        program);
    const bool met = faultsFired(fault) > 0;
    EXPECT_EQ(result.error, "");
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.blocksHeld, 0u);
    EXPECT_EQ(result.streamsOpen, 0u);
    // Load, the report, File, Print; Cancel; and the first four again.
    EXPECT_EQ(heldAfterPress.size(), 9u);
    if (heldAfterPress.size() != 9) return false;
    EXPECT_EQ(heldAfterPress[0].streams, 0u) << "the load closes its input";
    for (std::size_t i : {3u, 4u, 8u}) {
      EXPECT_EQ(heldAfterPress[i].blocks, 0u) << "after press " << i;
      EXPECT_EQ(heldAfterPress[i].streams, 0u) << "after press " << i;
    }
    EXPECT_EQ(heldAfterPress[5].blocks, 1u) << "a loaded file is held";
    EXPECT_EQ(readWhole("A.TXT"), wanted) << "the run after the fault";
    const bool told = result.transcript.find("\"icon\":\"error\"") != std::string::npos;
    EXPECT_EQ(told, met) << result.transcript;
    return met;
  }
};

TEST_F(PositionForms, everyFaultAtEveryPlaceLeavesNothingBehindAndTheNextRunIsRight) {
  static constexpr std::pair<Fault, const char*> faults[] = {
      {Fault::memory, "memory"}, {Fault::open, "open"}, {Fault::create, "create"}, {Fault::seek, "seek"},
      {Fault::tell, "tell"},     {Fault::read, "read"}, {Fault::write, "write"},   {Fault::close, "close"}};
  for (const Tool& t : tools) {
    const PositionControls& at = t.tool.controls;
    for (int radio : {at.clientWise, at.scripWise, at.clientScrip, at.scripClient}) {
      const std::string run = load(t) + printTo(t, radio, "A.TXT");
      const std::string open = std::string("tool ") + t.form + "\n";
      scriptRun(open + run, program);
      const std::string wanted = readWhole("A.TXT");
      ASSERT_FALSE(wanted.empty());

      for (const auto& [fault, name] : faults) {
        // The first, the second, ... until a run meets none; then all of them.
        std::size_t number = 1;
        for (bool met = true; met; ++number) {
          ASSERT_LT(number, 50u);
          met = expectRunAfter(t, radio, fault, std::string(name) + " " + std::to_string(number), wanted);
        }
        EXPECT_GT(number, 2u) << "the run meets no " << name;
        EXPECT_TRUE(expectRunAfter(t, radio, fault, std::string(name) + " always", wanted));
      }
    }
  }
}

TEST_F(PositionForms, readFailureKeepsTheBlockUntilCancel) {
  for (const Tool& t : tools) {
    SCOPED_TRACE(t.form);
    const std::string open = std::string("tool ") + t.form + "\n";
    scriptRun(open + "fail read 3\n" + load(t) + press(t.tool.controls.cancel), program);
    ASSERT_EQ(heldAfterPress.size(), 2u);
    EXPECT_EQ(heldAfterPress[0].blocks, 1u);
    EXPECT_EQ(heldAfterPress[1].blocks, 0u);

    scriptRun(open + "fail read 3\n" + load(t) + load(t), program);
    ASSERT_EQ(heldAfterPress.size(), 2u);
    EXPECT_EQ(heldAfterPress[1].blocks, 1u) << "the next load gives the old block back before it takes its own";

    const ScriptResult closed = scriptRun(open + "fail read 3\n" + load(t) + "close\n", program);
    EXPECT_EQ(closed.blocksHeld, 0u) << "and so does closing the form";
  }
}

TEST_F(PositionForms, eachToolHasItsOwnFileAndClosingOneLeavesTheOtherLoaded) {
  const Tool& net = tools[0];
  const Tool& slb = tools[1];
  scriptRun("tool PRNTNP\n" + load(net) + "tool PRNTNPRET\n" + load(slb) + "close\nform PRNTNP\n" +
                press(net.tool.controls.scripWise) + printTo(net, net.tool.controls.clientWise, "A.TXT"),
            program);
  ASSERT_GE(heldAfterPress.size(), 3u);
  EXPECT_EQ(heldAfterPress[1].blocks, 2u);
  EXPECT_EQ(heldAfterPress[2].blocks, 1u);
  EXPECT_NE(readWhole("A.TXT").find("C1"), std::string::npos);
}

TEST_F(PositionForms, fileWithoutAClientThatTakesPartPrintsTheTitleWithoutAName) {
  const std::vector<Deal> deals = {{"C1", "AXLE", 'B', 5, 100, 'O'}};
  std::ofstream("DAY.B01", std::ios::binary) << bytesOf(dealHeader('V')) << dealBytes<TradeRec144>(deals);
  const Tool& net = tools[0];
  scriptRun("tool PRNTNP\n" + load(net) + printTo(net, net.tool.controls.clientScrip, "A.TXT"), program);
  EXPECT_NE(readWhole("A.TXT").find("ScripWise Net Position of Client : \r\n"), std::string::npos);
}

TEST_F(PositionForms, idsOfEachFormAreDistinct) {
  for (const Tool& t : tools) {
    const PositionControls& at = t.tool.controls;
    std::vector<int> ids = {at.load,
                            at.clientWise,
                            at.scripWise,
                            at.clientScrip,
                            at.scripClient,
                            at.clientList,
                            at.clientListLabel,
                            at.scripList,
                            at.scripListLabel,
                            at.printer,
                            at.file,
                            at.outFileControls[0],
                            at.outFileControls[1],
                            at.lines,
                            at.print,
                            at.cancel,
                            at.reply};
    std::sort(ids.begin(), ids.end());
    EXPECT_EQ(std::adjacent_find(ids.begin(), ids.end()), ids.end()) << t.form;
    const std::string shown = scriptRun(std::string("tool ") + t.form + "\n", program).transcript;
    for (int id : ids)
      EXPECT_NE(shown.find("\"" + std::to_string(id) + "\":{"), std::string::npos) << id << " is not on " << t.form;
  }
}

}  // namespace
}  // namespace quillon::test
