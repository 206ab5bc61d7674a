// Whole runs of every form over the samples, as the tests of this folder put them through faults and broken files.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <span>
#include <string>
#include <vector>

#include "desktop/scripted/faults.h"

namespace quillon::test {

// One road through one form: which sample, and what is pressed between its load and the end of the run.
struct FormRun {
  std::string name;
  const char* form;    // its resource
  std::string sample;  // under samples/export
  int load, print, cancel, file, outFile;  // outFile 0: the form prints to the printer alone; file 0: it prints to files alone
  std::vector<int> options;  // pressed after the load
  std::vector<std::string> beside = {};  // other samples that the run reads, in full
  // What must be shown when a use of the kind fails; empty: any box with an error icon. A form with no text for memory may take
  // none.
  std::string memory, open, create, seek, tell;
  std::string string = "LoadString Failed";  // of the masks
  // Of a form whose load reads the file: its load step fails, and Print has nothing to print.
  bool readsAtLoad = false;
  // Of a form that is told to reset, and no more, when its output cannot be opened: the next run's end closes the input.
  bool keepsInputWithoutOutput = false;
  // Of a form that ends the whole program with this message and status, so that no other run follows.
  std::string endsProgram = {};
  int endStatus = 0;
  // Of a form with a list of kinds: the list, and the item that is picked ahead of the load.
  int kindList = 0;
  std::string kind = {};
  // Of a form that tells most failures on its Reply line, some of them without a box: what is told of a read.
  std::string read = {};
  // Of a form that tells what is wrong with a file on its Reply line alone: that control.
  int reply = 0;
  // Of a form whose load looks into the file for a proposal alone: what fails there is not told, and the run goes on.
  bool proposesAtLoad = false;
};

const std::vector<FormRun>& allRuns();

// Opens the form, loads the sample's copy in the current folder under its own name and prints it to `out`. The files beside the
// sample are put there for it.
std::string commandsOf(const FormRun& run, const std::string& out);
// The same without the opening of the form, for a second run after the first.
std::string loadAndPrint(const FormRun& run, const std::string& out);

struct Outcome {
  std::string transcript;
  int status;
  std::string error;
  std::size_t blocksHeld, streamsOpen;
};
// Runs the commands on the whole program; with `number` above 0, that use of `kind` fails, `andAllLater` or alone.
Outcome runProgram(const std::string& commands, Fault kind = Fault::memory, std::size_t number = 0, bool andAllLater = false);

// A folder of its own for each test, which is the current folder while it runs.
class InOwnFolder : public testing::Test {
 protected:
  void SetUp() override;
  void TearDown() override;

 private:
  std::filesystem::path before_, folder_;
};

std::string sampleBytes(const FormRun& run);
std::string sampleBytes(const std::string& name);
void writeFile(const std::string& name, const std::string& bytes);

}  // namespace quillon::test
