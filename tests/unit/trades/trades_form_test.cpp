// What ended runs of the Trades form hold: a file of the wrong lot and a No leave blocks behind, which the next run gives back.
#include "trades/trades_form.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "desktop/scripted/files.h"
#include "desktop/scripted/memory.h"
#include "desktop/scripted/script.h"
#include "frame/main_window.h"
#include "resource.h"
#include "support/approved.h"
#include "trade_records.h"

namespace quillon::test {
namespace {

struct Held {
  std::size_t blocks, streams;
  bool operator==(const Held&) const = default;
};
void PrintTo(const Held& held, std::ostream* out) { *out << held.blocks << " blocks, " << held.streams << " streams"; }

std::vector<Held> heldAfterRun;

void formEvent(const FormEvent& event) {
  tradesFormEvent(event);
  const bool runEnded = event.kind == FormEventKind::press && event.control == IDC_TRADES_PRINT;
  if (runEnded) heldAfterRun.push_back({memoryBlocksHeld(), filesOpen()});
}

int program() {
  static constexpr FormEntry forms[] = {{"PRNTRPT", formEvent}};
  return frameRun(forms);
}

void writeTrades(const char* name, char tradeType) {
  const std::vector<TradeRec132> records = recordsOf<TradeRec132>({{.tradeType = tradeType}, {.tradeType = 'L'}});
  std::ofstream file(name, std::ios::binary);
  const TradeHeader header = newReport('N').header;
  file.write(reinterpret_cast<const char*>(&header), sizeof header);
  file.write(reinterpret_cast<const char*>(records.data()),
             static_cast<std::streamsize>((records.size() - 1) * sizeof records[0]));
}

// A folder of its own for each test, with a file of each lot.
class TradesForm : public testing::Test {
 protected:
  std::filesystem::path before = std::filesystem::current_path();
  std::filesystem::path folder =
      std::filesystem::path(testing::TempDir()) / testing::UnitTest::GetInstance()->current_test_info()->name();

  void SetUp() override {
    std::filesystem::remove_all(folder);
    std::filesystem::create_directories(folder);
    std::filesystem::current_path(folder);
    writeTrades("TR.B01", 'L');
    writeTrades("TO.B01", 'O');
    heldAfterRun.clear();
  }
  void TearDown() override {
    std::filesystem::current_path(before);
    std::filesystem::remove_all(folder);
  }

  // A run to OUT.TXT, as of a market-lot file. A file of odd lots is refused before its question, and takes no answer.
  static std::string run(const std::string& file) {
    return "choose " + file + "\npress 1199\npress 1011\ntype 1013 OUT.TXT\npress 1015\n";
  }
  const std::string wrongLot = run("TO.B01");
  const std::string whole = "answer yes\n" + run("TR.B01");
  const std::string quit = "answer no\n" + run("TR.B01");
};

TEST_F(TradesForm, aFileOfTheWrongLotHoldsItsBlockAndStreamsUntilTheNextRunsEnd) {
  scriptRun("tool PRNTRPT\n" + wrongLot + "press 1015\n" + whole, program);
  // The input of the load, that of the run, and the output. Print without a file is no run: it gives nothing back.
  EXPECT_EQ(heldAfterRun, (std::vector<Held>{{1, 3}, {1, 3}, {0, 0}}));
}

TEST_F(TradesForm, eachFileOfTheWrongLotHoldsABlockMore) {
  scriptRun("tool PRNTRPT\n" + wrongLot + wrongLot + "close\ntool PRNTRPT\n" + whole, program);
  EXPECT_EQ(heldAfterRun, (std::vector<Held>{{1, 3}, {2, 6}, {0, 0}}));
}

TEST_F(TradesForm, aNoHoldsItsBlockButNoStreamUntilTheNextRunsEnd) {
  scriptRun("tool PRNTRPT\n" + quit + whole, program);
  EXPECT_EQ(heldAfterRun, (std::vector<Held>{{1, 0}, {0, 0}}));
}

TEST_F(TradesForm, aRunThatFailsGivesTheBlocksBackAsWell) {
  scriptRun("tool PRNTRPT\n" + wrongLot + quit + "fail order\n" + whole, program);
  EXPECT_EQ(heldAfterRun, (std::vector<Held>{{1, 3}, {2, 0}, {0, 0}}));
}

TEST_F(TradesForm, cancelClosesTheStreamsAndLeavesTheBlock) {
  scriptRun("tool PRNTRPT\n" + wrongLot + "press 1200\npress 1015\n", program);
  EXPECT_EQ(heldAfterRun, (std::vector<Held>{{1, 3}, {1, 0}}));
}

}  // namespace
}  // namespace quillon::test
