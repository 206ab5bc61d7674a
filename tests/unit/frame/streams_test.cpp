// Opening the input and the output of a run, in its steps, and giving all streams back.
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

#include "desktop/scripted/files.h"
#include "desktop/scripted_run.h"
#include "frame/report_form.h"
#include "resource.h"

namespace quillon::test {

static constexpr StreamTexts textsWith(PrinterTest printerTest) {
  return {
      .title = "A TITLE",
      .reply = IDC_TRADES_REPLY,
      .inputKind = InputKind::binary,
      .noInput = {noInputText, nullptr},
      .inputNotOpened = {"input not opened", nullptr},
      .noOutputName = {"no name", "no name on Reply"},
      .badOutputName = {badOutputNameText, badOutputNameText},
      .sameFile = {sameFileText, sameFileText},
      .printerTest = printerTest,
      .printerNotOpened = {checkPrinterText, checkPrinterText},
      .outputNotOpened = {outputNotOpenedText, outputNotOpenedText},
  };
}

static constexpr char nothingShown[] = "";

struct OpenCase {
  const char* path;
  const char* name;
  PrinterTest printerTest;
  const char* box;  // nothingShown: both streams are open
  const char* icon;
  const char* reply;
  std::size_t streams;  // that are open afterwards
  const char* upper;    // what the name has become
};

class OpenStreams : public InFreshFolder {
 protected:
  void SetUp() override {
    InFreshFolder::SetUp();
    std::ofstream("IN.B01") << "a day's trades";
  }

  static void expectOpened(const OpenCase& row) {
    const StreamTexts texts = textsWith(row.printerTest);
    std::string name = row.name, reply;
    std::size_t streams = 99;
    const ScriptResult result = runForm("tool PRNTRPT\npress 1199\n", [&](const FormEvent& event) {
      if (event.kind != FormEventKind::press) return;
      Input* input = nullptr;
      Output* output = nullptr;
      const bool opened = openStreams(event.form, texts, row.path, name, input, output);
      EXPECT_EQ(opened, row.box == nothingShown) << row.name;
      EXPECT_EQ(opened, output != nullptr) << row.name;
      streams = filesOpen();
      reply = formGetText(event.form, IDC_TRADES_REPLY, 100);
      EXPECT_TRUE(closeAllStreams());
    });
    Lines boxes;
    for (const std::string& line : splitLines(result.transcript)) {
      if (line.starts_with("{\"box\"")) boxes.push_back(line);
    }
    Lines expected;
    if (row.box != nothingShown) {
      expected.push_back(R"({"box":{"title":"A TITLE","text":")" + std::string(row.box) + R"(","icon":")" + row.icon +
                         R"(","buttons":"ok","default":"ok","answer":"ok"}})");
    }
    EXPECT_EQ(boxes, expected) << row.name;
    EXPECT_EQ(reply, row.reply) << row.name;
    EXPECT_EQ(streams, row.streams) << row.name;
    EXPECT_EQ(name, row.upper);
  }
};

TEST_F(OpenStreams, eachStepStopsAtItsOwnFailure) {
  static constexpr PrinterTest any = PrinterTest::anyCase, never = PrinterTest::never;
  // clang-format off
  static constexpr OpenCase rows[] = {
      // The first failure is the one that shows, whatever else is wrong.
      {"",        "",        any,   noInputText,         "exclamation", "",                  0, ""},
      {"NONE",    "A-B",     any,   "input not opened",  "error",       "",                  0, "A-B"},
      {"IN.B01",  "",        any,   "no name",           "exclamation", "no name on Reply",  1, ""},
      {"IN.B01",  "out_1",   any,   badOutputNameText,   "exclamation", badOutputNameText,   1, "OUT_1"},
      {"IN.B01",  "in.b01",  any,   sameFileText,        "exclamation", sameFileText,        1, "IN.B01"},
      // What cannot be written gives all streams back.
      {"IN.B01",  "prn",     any,   checkPrinterText,    "exclamation", checkPrinterText,    0, "PRN"},
      {"IN.B01",  "prn",     never, outputNotOpenedText, "error",       outputNotOpenedText, 0, "PRN"},
      {"IN.B01",  "..",      any,   outputNotOpenedText, "error",       outputNotOpenedText, 0, ".."},
      {"IN.B01",  "nul.txt", any,   outputNotOpenedText, "error",       outputNotOpenedText, 0, "NUL.TXT"},
      {"IN.B01",  "out.txt", any,   nothingShown,        "",            "",                  2, "OUT.TXT"},
  };
  // clang-format on
  for (const OpenCase& row : rows) expectOpened(row);
  std::ifstream input("IN.B01");
  EXPECT_EQ(std::string(std::istreambuf_iterator<char>(input), {}), "a day's trades");
  EXPECT_TRUE(std::filesystem::exists("OUT.TXT"));
}

TEST_F(OpenStreams, nameWithAHyphenIsRefusedAfterUpperCasing) {
  expectOpened({"IN.B01", "out-1.txt", PrinterTest::anyCase, "Invalid Characters in OutFile Name", "exclamation",
                "Invalid Characters in OutFile Name", 1, "OUT-1.TXT"});
}

TEST_F(OpenStreams, printWithoutALoadedFileShowsThatItIsRequired) {
  expectOpened(
      {"", "OUT.TXT", PrinterTest::anyCase, "The input file is required for processing.", "exclamation", "", 0, "OUT.TXT"});
}

TEST_F(OpenStreams, runOfOneFormClosesTheInputThatAnotherOpenedAtItsLoad) {
  std::size_t afterLoad = 99, afterRun = 99;
  runForm("tool PRNTRPT\npress 1199\ntool PRNTNP\npress 1147\n", [&](const FormEvent& event) {
    if (event.kind != FormEventKind::press) return;
    if (event.control == IDC_TRADES_LOAD) {
      EXPECT_NE(inputOpen("IN.B01", InputKind::binary), nullptr);
      afterLoad = filesOpen();
    } else if (event.control == IDC_NETPOS_PRINT) {
      EXPECT_TRUE(closeAllStreams());
      afterRun = filesOpen();
    }
  });
  EXPECT_EQ(afterLoad, 1u);
  EXPECT_EQ(afterRun, 0u);
}

// A form that holds a stream is told, by its own pointer, that another form's run has closed it.
TEST_F(OpenStreams, pointersToStreamsAreNullOnceAnotherFormHasClosedThem) {
  Input* input = nullptr;
  Output* output = nullptr;
  bool opened = false, closed = false;
  runForm("tool PRNTRPT\npress 1199\ntool PRNTNP\npress 1147\n", [&](const FormEvent& event) {
    if (event.kind != FormEventKind::press) return;
    const StreamTexts texts = textsWith(PrinterTest::anyCase);
    if (event.control == IDC_TRADES_LOAD) {
      opened = openInputStream(event.form, texts, "IN.B01", input) && openOutputStream(event.form, texts, "OUT.TXT", output);
    } else if (event.control == IDC_NETPOS_PRINT) {
      EXPECT_TRUE(input && output);
      EXPECT_TRUE(closeAllStreams());
      closed = true;
    }
  });
  EXPECT_TRUE(opened && closed);
  EXPECT_EQ(input, nullptr);
  EXPECT_EQ(output, nullptr);
}

// Reports that look at the characters of a name before they ask for one take the two tests in the other order.
TEST_F(OpenStreams, emptyAndBadNamesAreToldApart) {
  int asked = 0;
  runForm("tool PRNTRPT\npress 1199\n", [&](const FormEvent& event) {
    if (event.kind != FormEventKind::press) return;
    const StreamTexts texts = textsWith(PrinterTest::anyCase);
    std::string empty, bad = "out_1", good = "out1";
    EXPECT_TRUE(refuseEmptyName(event.form, texts, empty));
    EXPECT_FALSE(refuseBadName(event.form, texts, empty));
    EXPECT_FALSE(refuseEmptyName(event.form, texts, bad));
    EXPECT_TRUE(refuseBadName(event.form, texts, bad));
    EXPECT_FALSE(refuseBadName(event.form, texts, good));
    EXPECT_EQ(good, "OUT1");
    ++asked;
  });
  EXPECT_EQ(asked, 1);
}

}  // namespace quillon::test
