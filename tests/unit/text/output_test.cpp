// What reaches the file, and what is told when it does not.
#include "text/output.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "desktop/scripted/faults.h"
#include "text/print.h"

namespace quillon {

namespace {

std::string fileBytes(const char* name) {
  std::ifstream file(name, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

struct OutputTest : testing::Test {
  void SetUp() override {
    faultsReset();
    faultsClear();
  }
  void TearDown() override {
    faultsClear();
    static_cast<void>(outputCloseAll());
    std::filesystem::remove("REPORT.TXT");
    std::filesystem::remove("SECOND.TXT");
  }
};

}  // namespace

TEST_F(OutputTest, fileHoldsWhatWasPrinted) {
  Output* output = outputOpen("REPORT.TXT");
  ASSERT_NE(output, nullptr);
  print<"%3d|\n">(*output, 5);
  outputText(*output, "a\nb\n\nc");
  EXPECT_TRUE(outputClose(output));
  EXPECT_EQ(fileBytes("REPORT.TXT"), "  5|\r\na\r\nb\r\n\r\nc");
}

TEST_F(OutputTest, emptyReportLeavesAnEmptyFile) {
  EXPECT_TRUE(outputClose(outputOpen("REPORT.TXT")));
  EXPECT_TRUE(std::filesystem::exists("REPORT.TXT"));
  EXPECT_EQ(fileBytes("REPORT.TXT"), "");
}

TEST_F(OutputTest, largeReportIsWrittenInPiecesAndWhole) {
  Output* output = outputOpen("REPORT.TXT");
  std::string expected;
  for (int i = 0; i < 100000; ++i) {
    print<"%19d\n">(*output, i);
    char row[32];
    std::snprintf(row, sizeof row, "%19d\r\n", i);
    expected += row;
  }
  EXPECT_TRUE(outputClose(output));
  EXPECT_EQ(fileBytes("REPORT.TXT"), expected);
  EXPECT_GT(faultUses(Fault::write), 1u);
  EXPECT_LT(faultUses(Fault::write), 40u);
}

TEST_F(OutputTest, fail_openGivesNull) {
  faultsArm(Fault::create, 1, false);
  EXPECT_EQ(outputOpen("REPORT.TXT"), nullptr);
}

TEST_F(OutputTest, fail_eachWriteIsRememberedUntilTheClose) {
  for (std::size_t number = 1;; ++number) {
    faultsReset();
    faultsArm(Fault::write, number, false);
    Output* output = outputOpen("REPORT.TXT");
    for (int i = 0; i < 50000; ++i) print<"%19d\n">(*output, i);
    const bool whole = outputClose(output);
    EXPECT_EQ(whole, faultsFired(Fault::write) == 0) << number;
    // What reached the file stays, and nothing is written behind the gap.
    const std::string bytes = fileBytes("REPORT.TXT");
    if (whole) {
      EXPECT_EQ(bytes.size(), 50000u * 21);
      EXPECT_GT(number, 2u);
      break;
    }
    EXPECT_LT(bytes.size(), 50000u * 21);
    if (number == 1) {
      EXPECT_EQ(bytes, "");
    }
    if (number == 2) {
      EXPECT_EQ(bytes.substr(0, 21), "                  0\r\n");
    }
  }
}

TEST_F(OutputTest, fail_closeLosesBytes) {
  faultsArm(Fault::close, 1, false);
  Output* output = outputOpen("REPORT.TXT");
  print<"a\n">(*output);
  EXPECT_FALSE(outputClose(output));
}

TEST_F(OutputTest, closeAllClosesEveryOpenOutputAndTellsALoss) {
  Output* first = outputOpen("REPORT.TXT");
  Output* second = outputOpen("SECOND.TXT");
  print<"one\n">(*first);
  print<"two\n">(*second);
  faultsArm(Fault::write, 1, false);
  EXPECT_FALSE(outputCloseAll());
  EXPECT_EQ(fileBytes("REPORT.TXT") + fileBytes("SECOND.TXT"), "one\r\n");  // the last opened is closed first
  EXPECT_TRUE(outputCloseAll());
}

TEST_F(OutputTest, closingOneLeavesTheOthersOpen) {
  std::string text;
  Output* first = outputOpen("REPORT.TXT");
  Output* second = outputToMemory(&text);
  Output* third = outputOpen("SECOND.TXT");
  EXPECT_TRUE(outputClose(second));
  print<"one\n">(*first);
  print<"three\n">(*third);
  EXPECT_TRUE(outputCloseAll());
  EXPECT_EQ(fileBytes("REPORT.TXT"), "one\r\n");
  EXPECT_EQ(fileBytes("SECOND.TXT"), "three\r\n");
}

TEST_F(OutputTest, holderIsNullOnceItsOutputIsClosedByWhoever) {
  Output* mine = outputOpen("REPORT.TXT");
  Output* other = outputOpen("SECOND.TXT");
  outputHold(mine);
  outputHold(other);
  EXPECT_TRUE(outputClose(other));
  EXPECT_EQ(other, nullptr);
  ASSERT_NE(mine, nullptr);
  EXPECT_TRUE(outputCloseAll());
  EXPECT_EQ(mine, nullptr);
}

TEST_F(OutputTest, holderThatTookASecondOutputKeepsItWhenTheFirstIsClosed) {
  Output* holder = outputOpen("REPORT.TXT");
  Output* const first = holder;
  outputHold(holder);
  holder = outputOpen("SECOND.TXT");
  Output* const second = holder;
  outputHold(holder);
  EXPECT_TRUE(outputClose(first));
  EXPECT_EQ(holder, second);
  EXPECT_TRUE(outputCloseAll());
  EXPECT_EQ(holder, nullptr);
}

TEST_F(OutputTest, holderOfNothingIsLeftAlone) {
  Output* holder = outputOpen("NOWHERE/REPORT.TXT");
  outputHold(holder);
  EXPECT_TRUE(outputCloseAll());
  EXPECT_EQ(holder, nullptr);
}

}  // namespace quillon
