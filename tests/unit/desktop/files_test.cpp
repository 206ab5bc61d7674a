// Files as Windows finds them, the printer, and every fault of theirs.
#include "desktop/scripted/files.h"

#include <gtest/gtest.h>

#include <fstream>
#include <string>

#include "desktop/scripted/faults.h"
#include "desktop/scripted/paths.h"
#include "scripted_run.h"
#include "support/approved.h"

namespace quillon {

class Files : public test::InFreshFolder {
 protected:
  void SetUp() override {
    InFreshFolder::SetUp();
    filesReset();
    faultsReset();
  }
  void TearDown() override {
    EXPECT_EQ(filesOpen(), 0u);
    filesReset();
    faultsReset();
    InFreshFolder::TearDown();
  }

  static void make(const std::string& name, const std::string& bytes) { std::ofstream(name, std::ios::binary) << bytes; }

  // What an input of this name gives; "(none)" where it cannot be opened.
  static std::string read(const std::string& path) {
    FileStream* file = fileOpenInput(path);
    if (!file) return "(none)";
    char bytes[100];
    const std::string text(bytes, fileRead(file, bytes, sizeof bytes));
    EXPECT_TRUE(fileClose(file));
    return text;
  }

  static bool write(const std::string& path, const std::string& bytes) {
    FileStream* file = fileCreateOutput(path);
    if (!file) return false;
    const bool written = fileWrite(file, bytes.data(), bytes.size());
    return fileClose(file) && written;
  }
};

TEST_F(Files, inputIsFoundWithoutRegardToCase) {
  std::filesystem::create_directories("Export/Day");
  make("Export/Day/Tr010109.b01", "trades");
  EXPECT_EQ(read("Export/Day/Tr010109.b01"), "trades");
  EXPECT_EQ(read("export/DAY/TR010109.B01"), "trades");
  EXPECT_EQ(read("export\\day\\tr010109.B01"), "trades");
  EXPECT_EQ(read((folder / "EXPORT/day/TR010109.B01").string()), "trades");
  EXPECT_EQ(read("export/day/TR010109.B02"), "(none)");
}

TEST_F(Files, fileForUpdateIsFoundWithoutRegardToCaseAndIsNotMadeAnew) {
  make("Or010109.B01", "orders");
  FileStream* file = fileOpenUpdate("OR010109.B01");
  ASSERT_TRUE(file);
  char bytes[10];
  EXPECT_EQ(std::string(bytes, fileRead(file, bytes, sizeof bytes)), "orders");
  EXPECT_TRUE(fileClose(file));
  EXPECT_EQ(fileOpenUpdate("OR010109.B02"), nullptr);
  EXPECT_FALSE(std::filesystem::exists("OR010109.B02"));
}

TEST_F(Files, readOnlyFileIsRefusedForUpdateAlone) {
  make("Or010109.B01", "orders");
  std::filesystem::permissions("Or010109.B01", std::filesystem::perms::owner_read);
  EXPECT_EQ(fileOpenUpdate("Or010109.B01"), nullptr);
  EXPECT_EQ(read("Or010109.B01"), "orders");
}

TEST_F(Files, exactSpellingComesBeforeOthers) {
  make("a.txt", "lower");
  make("A.TXT", "upper");
  EXPECT_EQ(read("a.txt"), "lower");
  EXPECT_EQ(read("A.TXT"), "upper");
  EXPECT_EQ(read("A.txt"), "upper");  // neither is exact: the first in the order of their bytes
}

TEST_F(Files, folderIsNoInputAndNoOutput) {
  std::filesystem::create_directories("export");
  EXPECT_EQ(read("export"), "(none)");
  EXPECT_FALSE(write("EXPORT", "x"));
  EXPECT_FALSE(write(".", "x"));
  EXPECT_FALSE(write("..", "x"));
  EXPECT_FALSE(write("", "x"));
}

TEST_F(Files, outputTakesThePlaceOfAFileInAnotherCase) {
  make("out.txt", "a longer text that was there");
  EXPECT_TRUE(write("OUT.TXT", "new"));
  EXPECT_EQ(test::readWhole("out.txt"), "new");
  EXPECT_FALSE(std::filesystem::exists("OUT.TXT"));
}

TEST_F(Files, dotsThatEndANameAreLeftOut) {
  EXPECT_TRUE(write("OUT...", "x"));
  EXPECT_TRUE(std::filesystem::exists("OUT"));
  EXPECT_FALSE(write("....", "x"));
}

TEST_F(Files, outputInAFolderThatIsNotThereFails) { EXPECT_FALSE(write("none/OUT.TXT", "x")); }

TEST_F(Files, deviceNamesTakeNoReport) {
  for (const char* name : {"NUL", "nul", "CON", "AUX", "Nul.txt", "CON.", "AUX.B01", "export/NUL"})
    EXPECT_FALSE(write(name, "x")) << name;
  EXPECT_TRUE(write("NULL", "x"));
  EXPECT_TRUE(write("CONS.TXT", "x"));
  EXPECT_TRUE(std::filesystem::is_regular_file("NULL"));
}

TEST_F(Files, printerIsOffUntilItIsGivenAFile) {
  EXPECT_FALSE(write("prn", "x"));
  EXPECT_FALSE(std::filesystem::exists("prn"));
  filesSetPrinter("paper.txt");
  EXPECT_TRUE(write("PRN", "a first page"));
  EXPECT_EQ(test::readWhole("paper.txt"), "a first page");
  EXPECT_TRUE(write("Prn", "second"));
  EXPECT_EQ(test::readWhole("paper.txt"), "second") << "made anew at each opening";
  EXPECT_TRUE(write("PRN1", "x")) << "a file like any other";
  filesSetPrinter("");
  EXPECT_FALSE(write("PRN", "x"));
}

TEST_F(Files, positionIsToldInBytes) {
  make("ten", "0123456789");
  FileStream* file = fileOpenInput("ten");
  ASSERT_TRUE(file);
  EXPECT_EQ(fileTell(file), 0);
  EXPECT_TRUE(fileSeekEnd(file));
  EXPECT_EQ(fileTell(file), 10);
  EXPECT_TRUE(fileSeekStart(file));
  char bytes[4];
  EXPECT_EQ(fileRead(file, bytes, 4), 4u);
  EXPECT_EQ(fileTell(file), 4);
  EXPECT_TRUE(fileRewind(file));
  EXPECT_EQ(fileTell(file), 0);
  EXPECT_TRUE(fileClose(file));
}

TEST_F(Files, positionBeyond4GigabytesIsTold) {
  make("large", "x");
  std::error_code error;
  std::filesystem::resize_file("large", std::uintmax_t{5} << 30, error);
  if (error) GTEST_SKIP() << "the disk takes no such file";
  FileStream* file = fileOpenInput("large");
  ASSERT_TRUE(file);
  EXPECT_TRUE(fileSeekEnd(file));
  EXPECT_EQ(fileTell(file), std::int64_t{5} << 30);
  EXPECT_TRUE(fileClose(file));
}

TEST_F(Files, readBeyondTheEndIsShort) {
  make("three", "abc");
  FileStream* file = fileOpenInput("three");
  char bytes[10];
  EXPECT_EQ(fileRead(file, bytes, 10), 3u);
  EXPECT_EQ(fileRead(file, bytes, 10), 0u);
  EXPECT_TRUE(fileClose(file));
}

TEST_F(Files, lostBytesAreToldWhereTheDeviceIsFull) {
  if (!std::filesystem::exists("/dev/full")) GTEST_SKIP() << "no such device here";
  filesSetPrinter("/dev/full");
  EXPECT_FALSE(write("prn", "x"));
}

TEST_F(Files, sameFileIsToldUnderAnySpelling) {
  std::filesystem::create_directories("export");
  make("export/TR.B01", "x");
  make("TR.B02", "x");
  std::filesystem::create_hard_link("TR.B02", "TR.B03");
  EXPECT_TRUE(fileIsSame("export/TR.B01", "EXPORT\\tr.b01"));
  EXPECT_TRUE(fileIsSame((folder / "export/TR.B01").string(), "export/../export/TR.B01"));
  EXPECT_TRUE(fileIsSame("TR.B02", "tr.b03")) << "two names of one file";
  EXPECT_FALSE(fileIsSame("export/TR.B01", "TR.B02"));
  EXPECT_FALSE(fileIsSame("export/TR.B01", "NEW.TXT"));
  EXPECT_FALSE(fileIsSame("NEW.TXT", "NEW.TXT")) << "a file that is not there is the same as none";
}

TEST_F(Files, printerIsTheSameAsTheFileThatTakesItsPages) {
  make("paper.txt", "x");
  EXPECT_FALSE(fileIsSame("paper.txt", "PRN"));
  filesSetPrinter("PAPER.TXT");
  EXPECT_TRUE(fileIsSame("paper.txt", "PRN"));
}

TEST_F(Files, eachCallFailsOnRequest) {
  make("in", "0123456789");
  faultsArm(Fault::open, 1, false);
  EXPECT_EQ(read("in"), "(none)");
  EXPECT_EQ(read("in"), "0123456789");
  faultsArm(Fault::open, 2, false);
  EXPECT_EQ(read("in"), "0123456789");
  EXPECT_EQ(fileOpenUpdate("in"), nullptr) << "opening for update counts with opening for reading";
  faultsArm(Fault::create, 2, false);
  EXPECT_TRUE(write("OUT", "one"));
  EXPECT_FALSE(write("OUT", "two"));
  EXPECT_EQ(read("OUT"), "one") << "what was there stays";

  FileStream* file = fileOpenInput("in");
  faultsArm(Fault::seek, 2, false);
  EXPECT_TRUE(fileSeekEnd(file));
  EXPECT_FALSE(fileSeekStart(file));
  faultsArm(Fault::tell, 1, false);
  EXPECT_EQ(fileTell(file), -1);
  EXPECT_EQ(fileTell(file), 10);
  faultsArm(Fault::rewind, 1, false);
  EXPECT_FALSE(fileRewind(file));
  EXPECT_TRUE(fileRewind(file));
  faultsArm(Fault::read, 3, false);
  EXPECT_EQ(fileReadGranted(file, 5), 2u);
  EXPECT_EQ(fileReadGranted(file, 5), 5u);
  faultsArm(Fault::close, 1, false);
  EXPECT_TRUE(fileClose(file)) << "the fault is for an output";

  file = fileCreateOutput("OUT");
  faultsArm(Fault::write, 1, false);
  EXPECT_FALSE(fileWriteGranted(file));
  EXPECT_TRUE(fileWriteGranted(file));
  EXPECT_TRUE(fileWrite(file, "def", 3)) << "what was granted is not asked for again";
  EXPECT_EQ(faultUses(Fault::write), 2u);
  EXPECT_FALSE(fileClose(file)) << "the fault armed above";
  EXPECT_EQ(read("OUT"), "def");
}

TEST_F(Files, streamOfAnEarlierRunIsClosedWithoutHarm) {
  FileStream* file = fileCreateOutput("OUT");
  EXPECT_EQ(filesOpen(), 1u);
  filesReset();
  EXPECT_EQ(filesOpen(), 0u);
  faultsArm(Fault::write, 1, false);
  EXPECT_TRUE(fileWriteGranted(file) && fileWrite(file, "x", 1)) << "the next run is not to hear of it";
  EXPECT_EQ(faultUses(Fault::write), 0u);
  EXPECT_TRUE(fileClose(file));
  EXPECT_EQ(std::filesystem::file_size("OUT"), 0u);
}

TEST_F(Files, pathInFullKeepsTheSpelling) {
  EXPECT_EQ(pathInFull("export\\Tr.b01"), (folder / "export/Tr.b01").string());
  EXPECT_EQ(pathInFull("/tmp/x"), "/tmp/x");
  EXPECT_EQ(pathCurrentFolder(), folder.string());
}

TEST_F(Files, allOutputGoesToOneFileWhereTold) {
  filesSetOutput(folder / "to.txt");
  EXPECT_FALSE(filesOutputMade());
  for (const char* name : {"prn", "OTHER.TXT"}) {
    FileStream* const file = fileCreateOutput(name);
    ASSERT_TRUE(file);
    EXPECT_TRUE(filesOutputMade());
    EXPECT_TRUE(fileWrite(file, name, 3));
    EXPECT_TRUE(fileClose(file));
    EXPECT_EQ(test::readWhole("to.txt"), std::string(name, 3));  // made anew at each opening
  }
  EXPECT_FALSE(std::filesystem::exists("OTHER.TXT"));
  EXPECT_FALSE(fileCreateOutput("CON"));
  faultsArm(Fault::create, 1, false);
  EXPECT_FALSE(fileCreateOutput("prn"));
  filesSetOutput(folder / "none" / "to.txt");
  EXPECT_FALSE(fileCreateOutput("prn"));
  EXPECT_FALSE(filesOutputMade());
  filesSetOutput({});
  EXPECT_FALSE(fileCreateOutput("prn"));  // the printer is off again
}

}  // namespace quillon
