// Every use of memory, seek, tell, rewind, read, write, the order of a sort and the rest fails once, at every place of a run,
// alone and with all later ones: the told message shows, nothing stays behind, and the form prints the right report afterwards.
#include "runs.h"
#include "support/approved.h"

namespace quillon::test {
namespace {

struct Kind {
  Fault fault;
  const char* name;
};
constexpr Kind kinds[] = {
    {Fault::memory, "memory"}, {Fault::open, "open"},     {Fault::create, "create"}, {Fault::seek, "seek"},
    {Fault::tell, "tell"},     {Fault::rewind, "rewind"}, {Fault::read, "read"},     {Fault::write, "write"},
    {Fault::close, "close"},   {Fault::order, "order"},   {Fault::string, "string"},
};

const std::string& told(const FormRun& run, Fault fault) {
  static const std::string written = "Error In Writing Output File", none;
  switch (fault) {
    case Fault::memory:
    case Fault::order:
      return run.memory;
    case Fault::string:
      return run.string;
    case Fault::open:
      return run.open;
    case Fault::create:
      return run.create;
    case Fault::seek:
      return run.seek;
    case Fault::tell:
      return run.tell;
    case Fault::read:
      return run.read;
    case Fault::write:
    case Fault::close:
      return written;
    default:
      return none;
  }
}

class Faults : public InOwnFolder {
 protected:
  // True when the run met the fault.
  static bool expectGoodEnd(const FormRun& run, Fault fault, std::size_t number, bool andAllLater, const std::string& wanted) {
    std::filesystem::remove("OUT.TXT");
    std::filesystem::remove("AGAIN.TXT");
    const Outcome outcome = runProgram(
        commandsOf(run, "OUT.TXT") + "fail\n" + "press " + std::to_string(run.cancel) + "\n" + loadAndPrint(run, "AGAIN.TXT"),
        fault, number, andAllLater);
    const bool met = faultsFired(fault) > 0;
    const bool ended = !run.endsProgram.empty() && outcome.transcript.find(run.endsProgram) != std::string::npos;
    EXPECT_EQ(outcome.status, ended ? run.endStatus : 0);
    EXPECT_EQ(outcome.error, "");
    EXPECT_EQ(outcome.blocksHeld, 0u) << outcome.transcript;
    EXPECT_EQ(outcome.streamsOpen, 0u) << outcome.transcript;
    if (!ended) {
      EXPECT_EQ(readWhole("AGAIN.TXT"), wanted) << "the run after the fault\n" << outcome.transcript;
    }
    const bool atProposal = run.proposesAtLoad && number == 1 && !andAllLater && (fault == Fault::open || fault == Fault::read);
    if (met && !atProposal) {
      const bool onReply = !run.read.empty();
      EXPECT_TRUE(onReply || outcome.transcript.find("\"icon\":\"error\"") != std::string::npos) << outcome.transcript;
      EXPECT_NE(outcome.transcript.find(told(run, fault)), std::string::npos) << outcome.transcript;
    } else if (!met) {
      EXPECT_EQ(readWhole("OUT.TXT"), wanted);
    }
    return met;
  }
};

TEST_F(Faults, atEveryPlaceAreToldAndLeaveNothingBehind) {
  for (const FormRun& run : allRuns()) {
    // A header and a few records do: each of them is a read.
    writeFile(run.sample, sampleBytes(run).substr(0, 24 + 4 * 160));
    (void)runProgram(commandsOf(run, "OUT.TXT"));
    const std::string wanted = readWhole("OUT.TXT");
    ASSERT_FALSE(wanted.empty()) << run.name;
    for (const Kind& kind : kinds) {
      for (bool andAllLater : {false, true}) {
        std::size_t number = 1;
        bool met = true;
        for (; met; ++number) {
          SCOPED_TRACE(run.name + ": fail " + kind.name + " " + std::to_string(number) + (andAllLater ? " and all later" : ""));
          ASSERT_LT(number, 200u);
          met = expectGoodEnd(run, kind.fault, number, andAllLater, wanted);
          if (HasFailure()) return;
        }
        const bool used = number > 2;
        const bool takesNoBlock = kind.fault == Fault::memory && run.memory.empty();
        const bool mustBeUsed = kind.fault != Fault::rewind && kind.fault != Fault::seek && kind.fault != Fault::tell &&
                                kind.fault != Fault::order && !takesNoBlock;
        EXPECT_TRUE(used || !mustBeUsed) << run.name << " meets no " << kind.name;
      }
    }
  }
}

TEST_F(Faults, ofEachWriteOfAReportWithAThreadBesideItAreToldAndCutItAtTheSameByte) {
  const FormRun& run = allRuns().front();  // trades
  const std::string sample = sampleBytes(run), header = sample.substr(0, 24);
  std::string records = sample.substr(24);
  while (records.size() < 132u * 4000) records += records;  // some five buffers of rows
  writeFile(run.sample, header + records);
  (void)runProgram(commandsOf(run, "OUT.TXT"));
  const std::string wanted = readWhole("OUT.TXT");
  ASSERT_GT(wanted.size(), 512u * 1024);
  std::size_t number = 1;
  for (bool met = true; met; ++number) {
    SCOPED_TRACE("fail write " + std::to_string(number));
    ASSERT_LT(number, 200u);
    std::string cut[2];
    for (std::string& left : cut) {
      const Outcome outcome = runProgram(commandsOf(run, "OUT.TXT"), Fault::write, number);
      met = faultsFired(Fault::write) > 0;
      left = readWhole("OUT.TXT");
      EXPECT_EQ(outcome.transcript.find("Error In Writing Output File") != std::string::npos, met);
      EXPECT_EQ(outcome.transcript.find("PRINTING COMPLETE") != std::string::npos, !met);
      EXPECT_EQ(outcome.streamsOpen, 0u);
    }
    EXPECT_TRUE(cut[0] == cut[1]);
    EXPECT_TRUE(cut[0] == wanted.substr(0, cut[0].size()));
    EXPECT_EQ(cut[0].size() == wanted.size(), !met);
  }
  EXPECT_GT(number, 3u) << "the report is not written in pieces";
}

TEST_F(Faults, leaveNoBlockAndNoStreamWhenTheProgramEndsWithoutAnotherRun) {
  for (const FormRun& run : allRuns()) {
    writeFile(run.sample, sampleBytes(run).substr(0, 24 + 4 * 160));
    for (const Kind& kind : kinds) {
      bool met = true;
      for (std::size_t number = 1; met; ++number) {
        SCOPED_TRACE(run.name + ": fail " + kind.name + " " + std::to_string(number));
        const Outcome outcome = runProgram(commandsOf(run, "OUT.TXT"), kind.fault, number);
        met = faultsFired(kind.fault) > 0;
        EXPECT_EQ(outcome.blocksHeld, 0u) << outcome.transcript;
        const bool keepsInput = met && run.keepsInputWithoutOutput && kind.fault == Fault::create;
        EXPECT_EQ(outcome.streamsOpen, keepsInput ? 1u : 0u) << outcome.transcript;
        if (HasFailure()) return;
      }
    }
  }
}

// Some forms hold their file open, or its records, from Load on.
TEST_F(Faults, formClosedBetweenLoadAndPrintLeavesNoBlockAndNoStream) {
  for (const FormRun& run : allRuns()) {
    SCOPED_TRACE(run.name);
    writeFile(run.sample, sampleBytes(run));
    const std::string whole = commandsOf(run, "OUT.TXT");
    const std::size_t print = whole.rfind("press " + std::to_string(run.print) + "\n");
    ASSERT_NE(print, std::string::npos);
    const Outcome outcome = runProgram(whole.substr(0, print) + "close\n");
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.blocksHeld, 0u) << outcome.transcript;
    EXPECT_EQ(outcome.streamsOpen, 0u) << outcome.transcript;
    EXPECT_FALSE(std::filesystem::exists("OUT.TXT"));
  }
}

}  // namespace
}  // namespace quillon::test
