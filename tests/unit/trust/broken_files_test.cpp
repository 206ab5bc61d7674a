// Files that are cut short, have a byte changed, or say things that cannot be: a told message or a report, and the same
// program afterwards.
//
// By default the header, the first record and the last one are cut at every byte, and the bytes of the second record are
// changed in one way instead of three; with QUILLON_THOROUGH set every sample is cut at each of its bytes, and each change is
// made.
#include <cstdlib>
#include <set>

#include "runs.h"
#include "support/approved.h"

namespace quillon::test {
namespace {

constexpr std::size_t headerSize = 24;
constexpr std::size_t recordSize = 160;  // or less

bool thorough() { return std::getenv("QUILLON_THOROUGH") != nullptr; }

// The Reply line showed something.
bool isOnReply(const FormRun& run, const std::string& transcript) {
  const std::string text = "\"" + std::to_string(run.reply) + "\":{\"text\":\"";
  for (std::size_t at = 0; (at = transcript.find(text, at)) != std::string::npos; at += text.size()) {
    if (transcript[at + text.size()] != '"') return true;
  }
  return false;
}

class BrokenFiles : public InOwnFolder {
 protected:
  static void expectToldOrReported(const FormRun& run, const std::string& bytes, const std::string& what) {
    writeFile(run.sample, bytes);
    const Outcome outcome = runProgram(commandsOf(run, "OUT.TXT"));
    const bool box = outcome.transcript.find("{\"box\":") != std::string::npos;
    EXPECT_TRUE(box || (run.reply && isOnReply(run, outcome.transcript)))
        << run.name << ", " << what << ": neither a message nor a completion\n" << outcome.transcript;
    EXPECT_EQ(outcome.status, 0) << run.name << ", " << what;
    EXPECT_TRUE(outcome.transcript.ends_with("{\"exit\":0}\n")) << run.name << ", " << what << "\n" << outcome.transcript;
  }
};

TEST_F(BrokenFiles, cutAnywhereAreToldOrReported) {
  for (const FormRun& run : allRuns()) {
    const std::string whole = sampleBytes(run);
    ASSERT_FALSE(whole.empty()) << run.sample;
    std::set<std::size_t> sizes;
    for (std::size_t size = 0; size <= whole.size(); ++size) {
      const bool early = size <= headerSize + recordSize;
      const bool late = size + recordSize >= whole.size();
      if (thorough() || early || late) sizes.insert(size);
    }
    for (std::size_t size : sizes) {
      expectToldOrReported(run, whole.substr(0, size), "cut to " + std::to_string(size));
      if (HasFailure()) return;
    }
  }
}

TEST_F(BrokenFiles, changedInAnyByteOfTheHeaderAndTheFirstRecordsAreToldOrReported) {
  for (const FormRun& run : allRuns()) {
    const std::string whole = sampleBytes(run).substr(0, headerSize + 3 * recordSize);
    for (std::size_t at = 0; at < std::min(whole.size(), headerSize + 2 * recordSize); ++at) {
      const bool everyWay = thorough() || at < headerSize + recordSize;
      for (unsigned char flip : {0xFF, 0x01, 0x80}) {
        if (flip != 0xFF && !everyWay) continue;
        std::string bytes = whole;
        bytes[at] = static_cast<char>(static_cast<unsigned char>(bytes[at]) ^ flip);
        expectToldOrReported(run, bytes, "byte " + std::to_string(at) + " changed");
        if (HasFailure()) return;
      }
    }
  }
}

TEST_F(BrokenFiles, recordsOfAllOnesAndAllTopBitsAreToldOrReported) {
  for (const FormRun& run : allRuns()) {
    const std::string whole = sampleBytes(run);
    for (char fill : {'\xFF', '\x80', '\x7F', '\x00', 'A', '\n', '|'}) {
      std::string bytes = whole.substr(0, headerSize * 4);
      std::fill(bytes.begin() + headerSize, bytes.end(), fill);
      bytes.append(3 * 160, fill);
      // The sides by which records print at all stand where the layouts have them.
      expectToldOrReported(run, bytes, "filled");
      for (std::size_t record = headerSize; record + 160 < bytes.size(); record += 2) bytes[record] = record % 3 ? 'B' : 'S';
      expectToldOrReported(run, bytes, "filled, with sides");
    }
  }
}

TEST_F(BrokenFiles, headersOfExtremeNumbersAreToldOrReported) {
  for (const FormRun& run : allRuns()) {
    const std::string whole = sampleBytes(run).substr(0, headerSize + 2 * 160);
    for (char fill : {'\xFF', '\x80', '\x7F', '\x00'}) {
      std::string bytes = whole;
      // The letters stay, so that the numbers behind them are believed.
      std::fill(bytes.begin() + 2, bytes.begin() + headerSize, fill);
      expectToldOrReported(run, bytes, "extreme header");
    }
  }
}

// A file of forty million records, of which the file system holds the header alone.
void makeHugeFile(const FormRun& run) {
  writeFile(run.sample, sampleBytes(run).substr(0, headerSize));
  std::filesystem::resize_file(run.sample, headerSize + std::uintmax_t{132} * 40'000'000);
}

const FormRun& runNamed(const std::string& start) {
  for (const FormRun& run : allRuns()) {
    if (run.name.starts_with(start)) return run;
  }
  std::abort();
}

TEST_F(BrokenFiles, beyondFourGigabytesAreCountedInFull) {
  const FormRun& run = runNamed("broker query of 132 bytes");
  makeHugeFile(run);
  const Outcome outcome = runProgram("answer no\n" + commandsOf(run, "OUT.TXT"));
  EXPECT_NE(outcome.transcript.find("Records in the File=40000000"), std::string::npos) << outcome.transcript;
}

TEST_F(BrokenFiles, tooLargeForTheMemoryAreToldSo) {
  for (const char* name : {"trades of 132 bytes", "net position by client", "broker query of 132 bytes"}) {
    const FormRun& run = runNamed(name);
    makeHugeFile(run);
    const Outcome outcome = runProgram(commandsOf(run, "OUT.TXT"), Fault::memory, 1);
    EXPECT_NE(outcome.transcript.find("Memory Allocation Failure"), std::string::npos) << outcome.transcript;
    EXPECT_EQ(outcome.blocksHeld, 0u);
    EXPECT_EQ(outcome.streamsOpen, 0u);
  }
}

}  // namespace
}  // namespace quillon::test
