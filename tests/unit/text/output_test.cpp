// What reaches the file, and what is told when it does not.
#include "text/output.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "desktop/scripted/faults.h"
#include "desktop/scripted/files.h"
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

// ---- The thread beside a large report ----------------------------------------------------------------------------------

namespace {

constexpr int largeRows = 150000;  // of 21 bytes: twelve buffers and a piece of one
constexpr std::size_t buffer = std::size_t{256} * 1024;

void printRows(Output& output, int from, int to) {
  for (int i = from; i < to; ++i) print<"%19d\n">(output, i);
}

std::string rows(int from, int to) {
  std::string text;
  for (int i = from; i < to; ++i) {
    char row[32];
    text.append(row, static_cast<std::size_t>(std::snprintf(row, sizeof row, "%19d\r\n", i)));
  }
  return text;
}

std::size_t threads() {
  const std::filesystem::directory_iterator tasks("/proc/self/task");
  return static_cast<std::size_t>(std::distance(begin(tasks), end(tasks)));
}

// No file may grow beyond `size` while it lives: the disk is full there.
struct FullDisk {
  explicit FullDisk(rlim_t size) {
    signal(SIGXFSZ, SIG_IGN);
    getrlimit(RLIMIT_FSIZE, &before);
    const rlimit limit = {size, before.rlim_max};
    EXPECT_EQ(setrlimit(RLIMIT_FSIZE, &limit), 0);
  }
  ~FullDisk() { setrlimit(RLIMIT_FSIZE, &before); }

  rlimit before = {};
};

// A printer that takes what it is given only as fast as the test reads.
struct SlowPrinter {
  SlowPrinter() {
    signal(SIGPIPE, SIG_IGN);
    EXPECT_EQ(mkfifo("PRINTER", 0600), 0);
    reader = open("PRINTER", O_RDONLY | O_NONBLOCK);
    fcntl(reader, F_SETFL, fcntl(reader, F_GETFL) & ~O_NONBLOCK);
    filesSetPrinter("PRINTER");
  }
  ~SlowPrinter() {
    goAway();
    filesSetPrinter("");
    std::filesystem::remove("PRINTER");
  }
  std::string take(std::size_t size) const {
    std::string text(size, 0);
    std::size_t got = 0;
    while (got < size) {
      const ssize_t part = read(reader, text.data() + got, size - got);
      if (part <= 0) break;
      got += static_cast<std::size_t>(part);
    }
    text.resize(got);
    return text;
  }
  void goAway() {
    if (reader >= 0) close(reader);
    reader = -1;
  }

  int reader = -1;
};

}  // namespace

TEST_F(OutputTest, onlyALargeReportHasAThreadAndItEndsWithTheClose) {
  const std::size_t alone = threads();
  Output* output = outputOpen("REPORT.TXT");
  printRows(*output, 0, 10000);  // 210,000 bytes: the buffer is not full
  EXPECT_EQ(threads(), alone);
  printRows(*output, 10000, largeRows);
  EXPECT_EQ(threads(), alone + 1);
  EXPECT_TRUE(outputClose(output));
  EXPECT_EQ(threads(), alone);
  EXPECT_TRUE(fileBytes("REPORT.TXT") == rows(0, largeRows));
}

TEST_F(OutputTest, reportIntoMemoryHasNoThread) {
  const std::size_t alone = threads();
  std::string text;
  Output* output = outputToMemory(&text);
  printRows(*output, 0, largeRows);
  EXPECT_EQ(threads(), alone);
  EXPECT_TRUE(outputClose(output));
  EXPECT_TRUE(text == rows(0, largeRows));
}

TEST_F(OutputTest, settlingWritesWhatWasHandedOverEndsTheThreadAndTheReportGoesOn) {
  const std::size_t alone = threads();
  Output* output = outputOpen("REPORT.TXT");
  Output* small = outputOpen("SECOND.TXT");
  printRows(*output, 0, 50000);
  print<"kept\n">(*small);
  outputSettleAll();
  EXPECT_EQ(threads(), alone);
  const std::string settled = fileBytes("REPORT.TXT");
  EXPECT_TRUE(settled == rows(0, 50000).substr(0, settled.size()));
  EXPECT_GT(settled.size(), 50000u * 21 - buffer) << "only what did not fill a buffer waits";
  EXPECT_EQ(fileBytes("SECOND.TXT"), "");
  printRows(*output, 50000, largeRows);
  EXPECT_EQ(threads(), alone + 1);
  outputSettleAll();
  outputSettleAll();
  EXPECT_TRUE(outputCloseAll());
  EXPECT_TRUE(fileBytes("REPORT.TXT") == rows(0, largeRows));
  EXPECT_EQ(fileBytes("SECOND.TXT"), "kept\r\n");
}

TEST_F(OutputTest, twoLargeReportsGoSideBySide) {
  Output* first = outputOpen("REPORT.TXT");
  Output* second = outputOpen("SECOND.TXT");
  for (int i = 0; i < largeRows; i += 1000) {
    printRows(*first, i, i + 1000);
    printRows(*second, i + 1, i + 1001);
  }
  EXPECT_TRUE(outputCloseAll());
  EXPECT_TRUE(fileBytes("REPORT.TXT") == rows(0, largeRows));
  EXPECT_TRUE(fileBytes("SECOND.TXT") == rows(1, largeRows + 1));
}

TEST_F(OutputTest, slowPrinterHoldsTheReportUpAndGetsEveryByteInOrder) {
  const SlowPrinter printer;
  const std::string expected = rows(0, largeRows);
  Output* output = outputOpen("prn");
  ASSERT_NE(output, nullptr);
  const pid_t user = fork();  // prints while this process reads what comes
  if (user == 0) {
    close(printer.reader);
    printRows(*output, 0, largeRows);
    _exit(outputClose(output) ? 0 : 1);
  }
  EXPECT_EQ(printer.take(1000), expected.substr(0, 1000));
  usleep(20000);  // meanwhile all buffers fill
  EXPECT_TRUE(printer.take(expected.size() - 1000) == expected.substr(1000));
  int status = -1;
  waitpid(user, &status, 0);
  EXPECT_EQ(status, 0);
  EXPECT_TRUE(outputClose(output));
}

TEST_F(OutputTest, fail_fullDiskIsToldByTheCloseAndKeepsWhatFitted) {
  const std::string expected = rows(0, largeRows);
  // In the first buffer, at a later one, and in what only the close writes.
  for (const std::size_t room : {std::size_t{1000}, std::size_t{1000000}, expected.size() - 1}) {
    Output* output = outputOpen("REPORT.TXT");
    bool whole = true;
    {
      const FullDisk full(room);
      printRows(*output, 0, largeRows);
      whole = outputClose(output);
    }
    EXPECT_FALSE(whole) << room;
    EXPECT_TRUE(fileBytes("REPORT.TXT") == expected.substr(0, room));
  }
}

TEST_F(OutputTest, fail_diskThatHasRoomAgainGetsNothingBehindTheGap) {
  Output* output = outputOpen("REPORT.TXT");
  {
    const FullDisk full(1000);
    printRows(*output, 0, largeRows);
    outputSettleAll();
  }
  printRows(*output, 0, largeRows);
  EXPECT_FALSE(outputClose(output));
  EXPECT_TRUE(fileBytes("REPORT.TXT") == rows(0, 100).substr(0, 1000));
}

TEST_F(OutputTest, fail_printerThatGoesAwayIsToldAndHoldsNothingUp) {
  SlowPrinter printer;
  Output* output = outputOpen("prn");
  printer.goAway();
  printRows(*output, 0, largeRows);
  EXPECT_FALSE(outputClose(output));
}

TEST_F(OutputTest, fail_lossOfOneReportIsNotToldOfTheOther) {
  SlowPrinter printer;
  Output* lost = outputOpen("prn");
  Output* whole = outputOpen("REPORT.TXT");
  printer.goAway();
  printRows(*lost, 0, largeRows);
  printRows(*whole, 0, largeRows);
  outputSettleAll();
  EXPECT_TRUE(outputClose(whole));
  EXPECT_FALSE(outputClose(lost));
}

TEST_F(OutputTest, fail_armedWriteCutsALargeReportAtTheSameByteEveryTime) {
  const std::string expected = rows(0, largeRows);
  for (const std::size_t number : {1u, 2u, 5u, 13u}) {
    std::string bytes[2];
    for (std::string& left : bytes) {
      faultsReset();
      faultsArm(Fault::write, number, true);
      Output* output = outputOpen("REPORT.TXT");
      printRows(*output, 0, largeRows);
      EXPECT_FALSE(outputClose(output));
      EXPECT_EQ(faultUses(Fault::write), number) << "nothing is asked for behind the failure";
      left = fileBytes("REPORT.TXT");
    }
    EXPECT_TRUE(bytes[0] == expected.substr(0, bytes[0].size()));
    EXPECT_EQ(bytes[0].size(), bytes[1].size());
    EXPECT_LE(bytes[0].size(), (number - 1) * buffer) << "one buffer for each write that was granted";
    EXPECT_GE(bytes[0].size(), (number - 1) * (buffer - 100));
  }
}

TEST_F(OutputTest, withoutAThreadToBeHadTheReportIsWrittenWhereItIsFormed) {
  const pid_t user = fork();  // a limit that this process should not keep
  if (user == 0) {
    Output* output = outputOpen("REPORT.TXT");
    const rlimit none = {0, 0};
    const bool limited = setrlimit(RLIMIT_NPROC, &none) == 0 && (getuid() != 0 || setuid(65534) == 0);
    if (!output || !limited) _exit(101);
    const std::size_t alone = threads();
    printRows(*output, 0, largeRows);
    const std::size_t begun = threads() - alone;
    _exit(outputClose(output) ? static_cast<int>(begun) : 102);
  }
  int status = -1;
  waitpid(user, &status, 0);
  EXPECT_EQ(WEXITSTATUS(status), 0) << "threads begun while it was printed";
  EXPECT_TRUE(fileBytes("REPORT.TXT") == rows(0, largeRows));
}

}  // namespace quillon
