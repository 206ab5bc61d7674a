// The Kesto form on the scripted desktop: whatever fails, no press leaves a block held or a stream open, and the next run is
// right.
#include "kesto/kesto_form.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "desktop/scripted/faults.h"
#include "desktop/scripted/files.h"
#include "desktop/scripted/memory.h"
#include "desktop/scripted/script.h"
#include "frame/main_window.h"

namespace quillon::test {
namespace {

std::size_t pressesThatHeldSomething;

void eventThenNote(const FormEvent& event) {
  kestoFormEvent(event);
  if (event.kind == FormEventKind::press && memoryBlocksHeld() + filesOpen() > 0) ++pressesThatHeldSomething;
}

int program() {
  static constexpr FormEntry forms[] = {{"PRNTVQLS", eventThenNote}};
  pressesThatHeldSomething = 0;
  return frameRun(forms);
}

// A header that says little, and records of zeros: `days` 0, no scrip, no client.
std::string binaryFile(char content) {
  std::string bytes(24 + 2 * 142, '\0');
  bytes[0] = 'C';
  bytes[1] = content;
  return bytes;
}

struct Kind {
  const char* item;
  const char* file;
  const char* run;  // presses behind the load
};
constexpr char printing[] = "press 4007\ntype 4008 OUT.TXT\npress 4003\n";
constexpr char converting[] = "type 4008 OUT.TXT\npress 4005\n";
const Kind kinds[] = {
    {"Trades Printing", "TWO.B01", printing},
    {"Broker Query Printing", "TWO.BIN", printing},
    {"TouchLines Printing", "TWO.VQT", printing},
    {"BreakUp Data Printing", "TWO.DAT", printing},
    {"Traders Limit Printing", "TWO.TRD", printing},
    {"Traders Limit Printing", "TWO.TSL", printing},
    {"Convert", "TWO.B01", converting},
    {"Convert", "TWO.BIN", converting},
};

std::string readWhole(const char* name) {
  std::ifstream file(name, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

class KestoForm : public testing::Test {
 protected:
  std::filesystem::path before = std::filesystem::current_path();
  std::filesystem::path folder =
      std::filesystem::path(testing::TempDir()) / testing::UnitTest::GetInstance()->current_test_info()->name();

  void SetUp() override {
    std::filesystem::remove_all(folder);
    std::filesystem::create_directories(folder);
    std::filesystem::current_path(folder);
    std::ofstream("TWO.B01", std::ios::binary) << binaryFile('T');
    std::ofstream("TWO.BIN", std::ios::binary) << binaryFile('B');
    std::ofstream("TWO.VQT") << "d|t|k|\nA|1|2|3|4|5|6|7|8|9|10|OP|11|\nB|2|2|3|4|5|6|7|8|9|10|OP|11|\n";
    std::ofstream("TWO.DAT") << "1|2|\n3|4|\n";
    std::ofstream("TWO.TRD") << "Binary Limits|1|d|2|\n1|A|0|1|2|\n2|B|0|1|2|\n";
    std::ofstream("TWO.TSL") << "Scripwise Limits|1|d|2|\nA|1|1|2|\nB|2|1|2|\n";
  }
  void TearDown() override {
    std::filesystem::current_path(before);
    std::filesystem::remove_all(folder);
  }

  static std::string runOf(const Kind& kind) { return std::string("choose ") + kind.file + "\npress 4002\n" + kind.run; }

  static std::string opened(const Kind& kind) {
    return std::string("clock 2009-02-03 10:11:12\ntool PRNTVQLS\npick 4001 ") + kind.item + "\n";
  }

  static ScriptResult expectNothingLeft(const std::string& commands) {
    ScriptResult result = scriptRun(commands, program);
    EXPECT_EQ(result.error, "");
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.blocksHeld, 0u);
    EXPECT_EQ(result.streamsOpen, 0u);
    EXPECT_EQ(pressesThatHeldSomething, 0u) << result.transcript;
    return result;
  }

  // A run under the fault, then one without. True when the first met the fault.
  static bool expectRunAfter(const Kind& kind, Fault fault, const std::string& which, const std::string& wanted) {
    SCOPED_TRACE(std::string(kind.item) + " of " + kind.file + ", fail " + which);
    std::filesystem::remove("OUT.TXT");
    const std::string run = runOf(kind);
    expectNothingLeft(opened(kind) + "fail " + which + "\n" + run + "fail\npress 4004\n" + run);
    EXPECT_EQ(readWhole("OUT.TXT"), wanted) << "the run after the fault";
    return faultsFired(fault) > 0;
  }
};

TEST_F(KestoForm, everyFaultAtEveryPlaceLeavesNothingBehindAndTheNextRunIsRight) {
  static constexpr std::pair<Fault, const char*> faults[] = {
      {Fault::memory, "memory"}, {Fault::order, "order"}, {Fault::open, "open"},
      {Fault::create, "create"}, {Fault::seek, "seek"},   {Fault::tell, "tell"},
      {Fault::read, "read"},     {Fault::write, "write"}, {Fault::close, "close"}};
  for (const Kind& kind : kinds) {
    expectNothingLeft(opened(kind) + runOf(kind));
    const std::string wanted = readWhole("OUT.TXT");
    ASSERT_FALSE(wanted.empty()) << kind.item;
    for (const auto& [fault, name] : faults) {
      // The first, the second, ... until a run meets none.
      int number = 1;
      while (expectRunAfter(kind, fault, std::string(name) + " " + std::to_string(number), wanted)) ASSERT_LT(++number, 30);
    }
  }
}

TEST_F(KestoForm, refusedNamesLeaveNoStreamOpen) {
  for (const Kind& kind : kinds) {
    SCOPED_TRACE(kind.item);
    std::string run = runOf(kind);
    run.replace(run.find("OUT.TXT"), 7, "O-T.TXT");
    const ScriptResult result = expectNothingLeft(opened(kind) + run);
    EXPECT_NE(result.transcript.find("Invalid Characters In Output Filename"), std::string::npos) << result.transcript;
  }
}

}  // namespace
}  // namespace quillon::test
