// Whole runs of the form: what stays open, what is given back, and the date rule between two files.
#include "brokerquery/broker_form.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "brokerquery/records.h"
#include "desktop/scripted/faults.h"
#include "desktop/scripted/script.h"
#include "frame/date_rule.h"
#include "frame/main_window.h"
#include "resource.h"
#include "support/approved.h"

namespace quillon::test {
namespace {

int program() {
  static constexpr FormEntry forms[] = {{"PRNTBRKREP", brokerQueryFormEvent}};
  return frameRun(forms);
}

template <typename Record>
void writeFile(const std::string& name, TradeHeader fileHeader, char fileKind, const std::vector<Record>& block) {
  fileHeader.fileKind = fileKind;
  fileHeader.kind = 'B';
  std::ofstream file(name, std::ios::binary);
  file.write(reinterpret_cast<const char*>(&fileHeader), sizeof fileHeader);
  file.write(reinterpret_cast<const char*>(block.data()), static_cast<std::streamsize>((block.size() - 1) * sizeof(Record)));
}

const std::vector<Trade> trades = {
    {3, 500010, "AXLE", 12345, 100, "10:15:30", "C0001", 90525000001, 'L', 'B', 1001, "CLIENT"},
    {12, 532540, "BOLT", 250075, 25, "11:02:09", "HOUSE-77", 90525000002, 'T', 'S', 1002, "FII"},
    {3, 500010, "AXLE", 12400, 40, "12:45:17", "C0001", 90525000003, 'O', 'S', 1003, "CLIENT"},
};

// An empty folder that is the current one while the test runs, with a normal file in it.
class BrokerForm : public testing::Test {
 protected:
  void SetUp() override {
    before = std::filesystem::current_path();
    folder = std::filesystem::path(QUILLON_RECEIVED_FOLDER) / testing::UnitTest::GetInstance()->current_test_info()->name();
    std::filesystem::remove_all(folder);
    std::filesystem::create_directories(folder);
    std::filesystem::current_path(folder);
    writeFile("BR.BIN", header(25, 5, 2009), 'N', block<BrokerRec132>(trades));
  }
  void TearDown() override {
    std::filesystem::current_path(before);
    std::filesystem::remove_all(folder);
  }
  std::filesystem::path before, folder;
};

std::string printing(const std::string& input, const std::string& output) {
  return "choose " + input + "\npress 1209\npress 1034\ntype 1036" + (output.empty() ? "" : " " + output) + "\npress 1037\n";
}

// Both sections of BR.BIN.
std::string printingBoth(const std::string& output, const std::string& fault = "") {
  return "choose BR.BIN\npress 1209\npress 1034\ntype 1036 " + output + "\npress 1039\n" + fault + "press 1037\n";
}

TEST_F(BrokerForm, lendingFileLeavesTheDateRuleAsTheFileBeforeItSetIt) {
  writeFile("OLD.BIN", header(21, 5, 2009), 'V', block<BrokerRec160>(trades));
  writeFile("NEW.BIN", header(22, 5, 2009), 'V', block<BrokerRec160>(trades));
  writeFile("OLD.SBIN", header(21, 5, 2009), 'V', block<BrokerRec160>(trades));
  writeFile("NEW.SBIN", header(22, 5, 2009), 'N', block<BrokerRec160>(trades));
  const auto flagAfter = [](const std::string& first, const std::string& second) {
    const ScriptResult result =
        scriptRun("tool PRNTBRKREP\n" + printing(first, "FIRST.TXT") + printing(second, "SECOND.TXT"), program);
    EXPECT_EQ(result.transcript.find("\"icon\":\"error\""), std::string::npos) << result.transcript;
    return preCutoverFlag(DateRuleSlot::brokerQuery);
  };
  EXPECT_TRUE(flagAfter("OLD.BIN", "NEW.SBIN"));
  EXPECT_FALSE(flagAfter("NEW.BIN", "OLD.SBIN"));
  EXPECT_TRUE(flagAfter("NEW.BIN", "OLD.BIN"));
  EXPECT_FALSE(flagAfter("OLD.BIN", "NEW.BIN"));
}

TEST_F(BrokerForm, completeRunLeavesNothingOpenAndNoBlock) {
  const ScriptResult result = scriptRun("tool PRNTBRKREP\n" + printingBoth("OUT.TXT"), program);
  EXPECT_EQ(result.streamsOpen, 0u);
  EXPECT_EQ(result.blocksHeld, 0u);
}

TEST_F(BrokerForm, refusedOutputLeavesTheInputOpenUntilTheNextEnd) {
  struct Case {
    const char* name;
    std::string commands;
  };
  const Case cases[] = {
      {"no name", printing("BR.BIN", "")},
      {"bad name", printing("BR.BIN", "A-B")},
      {"the input itself", printing("BR.BIN", "BR.BIN")},
      {"no printer", "choose BR.BIN\npress 1209\npress 1037\n"},
      {"not created", "fail create\n" + printing("BR.BIN", "OUT.TXT")},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(scriptRun("tool PRNTBRKREP\n" + c.commands, program).streamsOpen, 1u) << c.name;
    EXPECT_EQ(scriptRun("tool PRNTBRKREP\n" + c.commands + "press 1208\n", program).streamsOpen, 0u)
        << c.name << ", then Cancel";
    EXPECT_EQ(scriptRun("tool PRNTBRKREP\n" + c.commands + printing("BR.BIN", "OUT.TXT"), program).streamsOpen, 0u)
        << c.name << ", then a run";
  }
}

TEST_F(BrokerForm, refusedFileAndQuittingCloseAll) {
  writeFile("X.BIN", header(25, 5, 2009), 'X', block<BrokerRec132>(trades));
  for (const std::string& commands : {printing("X.BIN", "OUT.TXT"), "answer no\n" + printing("BR.BIN", "OUT.TXT")}) {
    const ScriptResult result = scriptRun("tool PRNTBRKREP\n" + commands, program);
    EXPECT_EQ(result.streamsOpen, 0u);
    EXPECT_EQ(result.blocksHeld, 0u);
  }
}

// No box is open between the list and the net position, so no transcript shows what the Reply line reads there.
TEST_F(BrokerForm, replyLineTellsOfEachSectionAsItIsPrinted) {
  static std::vector<std::string> replies;
  replies.clear();
  scriptRun("tool PRNTBRKREP\n" + printingBoth("OUT.TXT"), [] {
    static constexpr FormEntry forms[] = {{"PRNTBRKREP", [](const FormEvent& event) {
                                             if (event.kind == FormEventKind::edit && event.control == IDC_BRKQRY_REPLY) {
                                               replies.push_back(formGetText(event.form, IDC_BRKQRY_REPLY, 300));
                                             }
                                             brokerQueryFormEvent(event);
                                           }}};
    return frameRun(forms);
  });
  std::erase(replies, "");
  EXPECT_EQ(replies, (std::vector<std::string>{"Printing of trades in Progress...Please wait.", "Broker Report printed. ",
                                               "Printing of NetPosition in Progress... Please Wait.",
                                               "Broker Report and NetPosition printed. "}));
}

// Every fault of a run, from the first of its kind until a run meets none: it is told, nothing is held afterwards, and the
// next run on the same form prints the whole report.
TEST_F(BrokerForm, everyFaultIsToldAndTheNextRunIsWhole) {
  scriptRun("tool PRNTBRKREP\n" + printingBoth("GOOD.TXT"), program);
  const std::string good = readWhole("GOOD.TXT");
  ASSERT_FALSE(good.empty());

  struct Case {
    const char* fault;
    Fault kind;
    std::size_t uses;  // of the first run
    const char* told;
  };
  const Case cases[] = {
      {"open", Fault::open, 1, "Error In Opening Broker Report File"},
      {"create", Fault::create, 1, "Error In Opening Output File"},
      {"seek", Fault::seek, 2, "Error In Calculating No Of Records"},
      {"tell", Fault::tell, 1, "Error In Calculating No Of Records"},
      {"memory", Fault::memory, 1, "Broker Report Data : Memory Allocation Failure"},
      {"order", Fault::order, 3, "Broker Report Data : Memory Allocation Failure"},
      {"read", Fault::read, 5, "Error In Reading File"},
      {"write", Fault::write, 1, "Error In Writing Output File"},
      {"close", Fault::close, 1, "Error In Writing Output File"},
  };
  for (const Case& c : cases) {
    for (std::size_t number = 1; number <= c.uses; ++number) {
      const std::string fault = std::string("fail ") + c.fault + " " + std::to_string(number) + "\n";
      const ScriptResult result =
          scriptRun("tool PRNTBRKREP\n" + printingBoth("FIRST.TXT", fault) + printingBoth("SECOND.TXT"), program);
      const std::string first = result.transcript.substr(0, result.transcript.find("SECOND.TXT"));
      // Without its header nothing of the file is printed; without a record the rest of it is.
      const bool headerRead = c.kind == Fault::read && number == 1;
      EXPECT_NE(first.find("\"text\":\"" + std::string(c.told) + "\",\"icon\":\"error\""), std::string::npos) << fault << first;
      EXPECT_EQ(first.find("PRINTING COMPLETE") != std::string::npos, c.kind == Fault::read && !headerRead) << fault << first;
      EXPECT_EQ(faultsFired(c.kind), 1u) << fault;
      EXPECT_EQ(readWhole("SECOND.TXT"), good) << fault;
      EXPECT_EQ(result.streamsOpen, 0u) << fault;
      EXPECT_EQ(result.blocksHeld, 0u) << fault;
    }
    // The first run meets no more of them.
    const std::string fault = std::string("fail ") + c.fault + " " + std::to_string(c.uses + 1) + "\n";
    scriptRun("tool PRNTBRKREP\n" + printingBoth("FIRST.TXT", fault), program);
    EXPECT_EQ(readWhole("FIRST.TXT"), good) << fault;
    EXPECT_EQ(faultsFired(c.kind), 0u) << fault;
  }
}

}  // namespace
}  // namespace quillon::test
