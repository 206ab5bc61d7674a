// The command language as such: lines, arguments, the order at the start, the end, and runs one after the other.
#include <algorithm>
#include <cstdlib>

#include "desktop/app.h"
#include "desktop/boxes.h"
#include "desktop/clock.h"
#include "desktop/files.h"
#include "desktop/memory.h"
#include "desktop/scripted/app.h"
#include "desktop/scripted/boxes.h"
#include "desktop/scripted/faults.h"
#include "desktop/scripted/files.h"
#include "desktop/scripted/forms.h"
#include "desktop/scripted/memory.h"
#include "desktop/strings.h"
#include "resource.h"
#include "scripted_run.h"

namespace quillon::test {

static std::function<void(const FormEvent&)> onLoad(std::function<void()> action) {
  return [action = std::move(action)](const FormEvent& event) {
    if (event.kind == FormEventKind::press && event.control == IDC_TRADES_LOAD) action();
  };
}

TEST(Script, emptyScriptStartsAndEndsTheProgram) {
  const ScriptResult result = runForm("");
  EXPECT_EQ(result.transcript, "{\"exit\":0}\n");
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.error, "");
}

TEST(Script, blankLinesAndRemarksAreSkipped) {
  EXPECT_EQ(runForm("\n   \n\t\n# tool PRNTRPT\n#\n\r\n").transcript, "{\"exit\":0}\n");
}

TEST(Script, everyCommandIsWrittenAheadOfItsEffects) {
  EXPECT_EQ(runForm("tool NONE\r\nkey Q\n").transcript,
            "{\"command\":\"tool NONE\"}\n{\"refused\":\"there is no tool NONE\"}\n"
            "{\"command\":\"key Q\"}\n{\"refused\":\"Q is no key of the program\"}\n{\"exit\":0}\n");
}

TEST(Script, lastLineNeedsNoLineFeed) { EXPECT_EQ(runForm("quit").transcript, "{\"command\":\"quit\"}\n{\"exit\":0}\n"); }

TEST(Script, quitEndsItAndWhatFollowsIsNotCarriedOut) {
  EXPECT_EQ(runForm("quit\ntool PRNTRPT\nnonsense\n").transcript, "{\"command\":\"quit\"}\n{\"exit\":0}\n");
}

TEST(Script, quitAndTheEndOfTheCommandsCloseEveryForm) {
  const std::string open = "tool PRNTNP\ntool PRNTRPT\n";
  // Trades goes first on shut-down, Net Position after it.
  for (const char* end : {"quit\n", ""}) {
    const Lines lines = splitLines(runForm(open + end).transcript);
    ASSERT_GE(lines.size(), 3u);
    EXPECT_EQ(Lines(lines.end() - 3, lines.end()),
              (Lines{R"({"closed":"PRNTRPT"})", R"({"closed":"PRNTNP"})", R"({"exit":0})"}));
  }
}

// Broker Query is not in the frame's list for the shut-down: it goes with its owner.
TEST(Script, formThatTheShutDownPassesOverGoesWithItsOwner) {
  const ScriptResult result = scriptRun("tool PRNTBRKREP\ntool PRNTRPT\nquit\n", [] {
    static constexpr FormEntry forms[] = {{"PRNTRPT", tradesTestEvent}, {"PRNTBRKREP", [](const FormEvent&) {}}};
    return frameRun(forms);
  });
  const Lines lines = splitLines(result.transcript);
  ASSERT_GE(lines.size(), 3u);
  EXPECT_EQ(Lines(lines.end() - 3, lines.end()),
            (Lines{R"({"closed":"PRNTRPT"})", R"({"closed":"PRNTBRKREP"})", R"({"exit":0})"}));
}

TEST(Script, lineThatIsNoCommandEndsItWithStatus2) {
  static constexpr const char* lines[] = {
      "nonsense",
      "Press 1199",
      " press 1199",
      "press",
      "press ",
      "press x",
      "press -1",
      "press 1199 ",
      "press  1199",
      "press 1199 twice",
      "type",
      "type x",
      "type -1 x",
      "pick",
      "pick ALL",
      "tool",
      "tool ",
      "key",
      "form",
      "close PRNTRPT",
      "show it",
      "quit now",
      "clock",
      "clock now",
      "clock 2009-02-30 10:00:00",
      "printer",
      "printer ",
      "answer",
      "answer ok",
      "answer Yes",
      "fail all",
      "fail memory 0",
      "fail memory -1",
      "fail memory x",
      "fail memory ",
      "fail memory 2 always",
      "fail memory Always",
      "fail  memory",
      "fail ",
      "\x01",
      "\xFF\xFE",
  };
  for (const char* line : lines) {
    const ScriptResult result = runForm(std::string("tool PRNTRPT\n") + line + "\nquit\n");
    EXPECT_EQ(result.status, 2) << line;
    EXPECT_TRUE(result.error.starts_with("line 2 is no command: ")) << result.error;
    const Lines written = splitLines(result.transcript);
    ASSERT_EQ(written.size(), 4u) << "what came before stays, and there is no last line: " << line;
    EXPECT_TRUE(written[3].starts_with(R"({"changed":{"form":"PRNTRPT")"));
  }
}

TEST(Script, lineThatIsNoCommandAtTheHeadKeepsTheProgramFromStarting) {
  bool started = false;
  const ScriptResult result =
      runForm("clock 2009-05-22 10:11:12\nfail nothing\ntool PRNTRPT\n", [&](const FormEvent&) { started = true; });
  EXPECT_EQ(result.transcript, "{\"command\":\"clock 2009-05-22 10:11:12\"}\n");
  EXPECT_EQ(result.status, 2);
  EXPECT_FALSE(started);
}

TEST(Script, argumentIsTheRestOfTheLineAsItStands) {
  EXPECT_EQ(runForm("tool A \"b\\\tc \n").transcript,
            "{\"command\":\"tool A \\\"b\\\\\\tc \"}\n{\"refused\":\"there is no tool A \\\"b\\\\\\tc \"}\n{\"exit\":0}\n");
}

TEST(Script, bytesThatAreNoUtf8AreWrittenAsWindows1252) {
  EXPECT_EQ(runForm("tool caf\xE9\n").transcript,
            "{\"command\":\"tool caf\u00E9\"}\n{\"refused\":\"there is no tool caf\u00E9\"}\n{\"exit\":0}\n");
}

TEST(Script, byteOrderMarkIsPassedOver) {
  EXPECT_EQ(runForm("\xEF\xBB\xBFquit\n").transcript, "{\"command\":\"quit\"}\n{\"exit\":0}\n");
}

TEST(Script, nulsAndLongLinesDoNoHarm) {
  using namespace std::string_literals;
  std::string seen;
  const auto behaviour = [&seen](const FormEvent& event) {
    if (event.kind == FormEventKind::edit) seen = formGetText(event.form, event.control, 10'000'000);
  };
  EXPECT_EQ(effectsOfLast(runForm("tool PRNTRPT\ntype 1057 ab\0cd"s, behaviour)),
            (Lines{R"({"changed":{"form":"PRNTRPT","focus":1057,"controls":{"1057":{"text":"ab"}}}})"}));
  EXPECT_EQ(seen, "ab");
  EXPECT_EQ(runForm("tool \0x\n"s).transcript,
            "{\"command\":\"tool \\u0000x\"}\n{\"refused\":\"there is no tool \\u0000x\"}\n{\"exit\":0}\n");
  runForm("tool PRNTRPT\ntype 1057 " + std::string(5'000'000, 'a') + "\n", behaviour);
  EXPECT_EQ(seen.size(), 5'000'000u);
  EXPECT_EQ(runForm(std::string(5'000'000, 'a')).status, 2);
}

TEST(Script, anyBytesAtAllGiveATranscriptOfWholeLines) {
  static constexpr const char* pieces[] = {"tool PRNTRPT", "press ", "type ", "1057",   "1199",   " ",      "\n",
                                           "\n",           "close",  "fail ", "memory", "always", "\xE9",   "\x01",
                                           "form",         "show",   "pick",  "key F1", "choose", "answer", "yes",
                                           "quit",         "#",      "\r",    "clock "};
  std::srand(20090522);
  for (int run = 0; run < 500; ++run) {
    std::string commands;
    for (int i = 0; i < 40; ++i) commands += pieces[static_cast<std::size_t>(std::rand()) % std::size(pieces)];
    const ScriptResult result = runForm(commands);
    const Lines lines = splitLines(result.transcript);
    for (const std::string& line : lines)
      ASSERT_TRUE(line.starts_with("{\"") && line.ends_with("}")) << line << "\n" << commands;
    ASSERT_EQ(result.status == 0, !lines.empty() && lines.back() == "{\"exit\":0}") << commands;
    ASSERT_EQ(result.status == 2, !result.error.empty()) << commands;
  }
}

TEST(Script, arrangementsAtTheHeadReachTheStartOfTheProgram) {
  EXPECT_EQ(runForm("fail class\ntool PRNTRPT\n").transcript,
            "{\"command\":\"fail class\"}\n"
            "{\"box\":{\"title\":null,\"text\":\"Error in "
            "InitWindow\",\"icon\":\"error\",\"buttons\":\"ok\",\"default\":\"ok\",\"answer\":\"ok\"}}\n"
            "{\"exit\":0}\n");
  EXPECT_EQ(runForm("fail class\nfail\n").transcript, "{\"command\":\"fail class\"}\n{\"command\":\"fail\"}\n{\"exit\":0}\n");
  EXPECT_EQ(runForm("fail class 2\n").transcript, "{\"command\":\"fail class 2\"}\n{\"exit\":0}\n");
}

TEST(Script, secondCopyEndsWithoutAWindowAndWithoutAWord) {
  const ScriptResult result = scriptRun("tool PRNTRPT\n", testProgram, {.otherCopyRuns = true});
  EXPECT_EQ(result.transcript, "{\"exit\":0}\n");
  EXPECT_EQ(result.status, 0);
}

TEST(Script, clockStandsForTheProgram) {
  LocalTime time = {};
  runForm("clock 2009-05-21 23:59:58\ntool PRNTRPT\npress 1199\n", onLoad([&time] { time = clockNow(); }));
  EXPECT_EQ(time.year, 2009);
  EXPECT_EQ(time.day, 21);
  EXPECT_EQ(time.second, 58);
}

TEST(Script, endOfTheWholeProgramShowsNothingMore) {
  const ScriptResult result = runForm("tool PRNTRPT\npress 1199\nshow\n", [](const FormEvent& event) {
    if (event.kind != FormEventKind::press) return;
    formSetText(event.form, IDC_TRADES_REPLY, "gone");
    appEnd(3);
    boxShow(event.form, "t", "nobody sees this", BoxIcon::error);
  });
  const Lines lines = splitLines(result.transcript);
  ASSERT_GE(lines.size(), 2u);
  EXPECT_EQ(Lines(lines.end() - 2, lines.end()), (Lines{R"({"command":"press 1199"})", R"({"exit":3})"}));
  EXPECT_EQ(result.status, 3);
  EXPECT_EQ(runForm("tool PRNTRPT\n").status, 0) << "the next run is a fresh one";
}

TEST(Script, beepAndStandardOutputAreTold) {
  EXPECT_EQ(effectsOfLast(runForm("tool PRNTRPT\npress 1199\n", onLoad([] {
                                    appBeep(3);
                                    appWriteStdout("caf\xE9\n");
                                  }))),
            (Lines{R"({"beep":3})", "{\"stdout\":\"caf\u00E9\\n\"}"}));
}

TEST(Script, blocksAndStreamsThatStayAreCountedAndTakenDown) {
  const ScriptResult result = runForm("printer PAPER\ntool PRNTRPT\npress 1199\n", onLoad([] {
                                        (void)memoryTake(10);
                                        memoryFree(memoryTake(10));
                                        (void)memoryTake(10);
                                      }));
  EXPECT_EQ(result.blocksHeld, 2u);
  EXPECT_EQ(memoryBlocksHeld(), 0u);
  EXPECT_EQ(result.streamsOpen, 0u);
}

TEST(Script, faultsEndWithTheRun) {
  runForm("fail memory always\n");
  void* block = memoryTake(1);
  EXPECT_TRUE(block);
  memoryFree(block);
}

class ScriptInFolder : public InFreshFolder {};

TEST_F(ScriptInFolder, streamThatStaysOpenIsCountedAndClosed) {
  FileStream* file = nullptr;
  const ScriptResult result =
      runForm("printer PAPER\ntool PRNTRPT\npress 1199\n", onLoad([&file] { file = fileCreateOutput("prn"); }));
  ASSERT_TRUE(file);
  EXPECT_EQ(result.streamsOpen, 1u);
  EXPECT_EQ(filesOpen(), 0u);
  EXPECT_TRUE(fileClose(file));
  EXPECT_TRUE(std::filesystem::exists("PAPER"));
}

TEST_F(ScriptInFolder, printerCanBeTurnedOffAgain) {
  int opened = 0;
  const auto behaviour = onLoad([&opened] {
    if (FileStream* file = fileCreateOutput("PRN")) {
      ++opened;
      EXPECT_TRUE(fileClose(file));
    }
  });
  runForm("tool PRNTRPT\npress 1199\nprinter paper.txt\npress 1199\nprinter off\npress 1199\n", behaviour);
  EXPECT_EQ(opened, 1);
}

TEST(Script, runsStartFresh) {
  const std::string first = runForm("tool PRNTRPT\n").transcript;
  runForm("clock 2009-05-22 10:11:12\nfail memory always\nanswer no\nchoose x\ntool PRNTRPT\ntype 1057 x\nnonsense\n");
  bool yes = false;
  const ScriptResult again = runForm("tool PRNTRPT\n", [&yes](const FormEvent& event) {
    if (event.kind != FormEventKind::destroy) return;
    yes = boxAsk(nullptr, nullptr, "?", BoxIcon::question, BoxChoice::yes) == BoxChoice::yes;
    void* block = memoryTake(1);
    EXPECT_TRUE(block);
    memoryFree(block);
    EXPECT_NE(clockNow().year, 2009);
  });
  EXPECT_TRUE(yes);
  EXPECT_EQ(splitLines(again.transcript)[2], splitLines(first)[2]);
}

// N = 1, 2, 3... until a run meets no fault: the loop that every report's own tests are to use.
TEST(Script, countOfUsesEndsTheLoopOverFaults) {
  int taken = 0;
  const auto behaviour = onLoad([&taken] {
    for (int i = 0; i < 3; ++i) {
      void* block = memoryTake(4);
      if (block) ++taken;
      memoryFree(block);
    }
  });
  int runs = 0;
  for (bool met = true; met;) {
    taken = 0;
    runForm("fail memory " + std::to_string(++runs) + "\ntool PRNTRPT\npress 1199\n", behaviour);
    met = faultsFired(Fault::memory) > 0;
    EXPECT_EQ(taken, met ? 2 : 3);
    EXPECT_EQ(faultUses(Fault::memory), 3u);
  }
  EXPECT_EQ(runs, 4);
}

TEST(MainWindow, otherNotificationsLeaveTheToolbarAsItIs) {
  EXPECT_EQ(effectsOfLast(runForm("tool PRNTRPT\npress 1199\n", onLoad([] {
                                    for (int i = 0; i < 3; ++i) appNotify();
                                  }))),
            Lines());
}

TEST(MainWindow, tooltipsAreThoseOfTheTools) {
  std::string trades, adminLog;
  bool none = false;
  runForm("tool PRNTRPT\npress 1199\n", onLoad([&] {
            trades = appTooltip(20006);
            adminLog = appTooltip(40037);
            none = appTooltip(20017) == nullptr;
          }));
  EXPECT_EQ(trades, "Trades Printing");
  EXPECT_EQ(adminLog, "Admin Log Printing");
  EXPECT_TRUE(none);
}

TEST(Strings, stringIsCutToOneLessThanItsLimit) {
  EXPECT_EQ(stringLoad(2036, 300), "The input file is required for processing.");
  EXPECT_EQ(stringLoad(2036, 4), "The");
  EXPECT_EQ(stringLoad(1, 300), std::nullopt);
  faultsArm(Fault::string, 2, false);
  EXPECT_EQ(stringLoad(2036, 4), "The");
  EXPECT_EQ(stringLoad(2036, 4), std::nullopt);
  EXPECT_EQ(stringLoad(2036, 4), "The");
}

// ---- A user that is a function --------------------------------------------------------------------------------------------

static struct {
  int calls;
  std::string told;
} seen;

TEST(ScriptUser, worksTheDesktopAndTheWindowCloses) {
  seen = {};
  formBehaviour = onLoad([] {
    boxShow(nullptr, "TITLE", std::string_view("text\0rest", 9), BoxIcon::error);
    seen.told += boxAsk(nullptr, nullptr, "sure?", BoxIcon::question, BoxChoice::yes) == BoxChoice::no ? "no;" : "yes;";
    appWriteStdout("out");
  });
  const ScriptResult result = scriptRunBy(
      [] {
        ++seen.calls;
        boxesListen([](const BoxTold& box) {
          seen.told += std::string(box.title ? box.title : "-") + ":" + std::string(box.text) + (box.isQuestion ? "?" : ".");
          seen.told += box.icon == BoxIcon::error ? "error;" : "other;";
        });
        appListenToStdout([](std::string_view text) { seen.told += text; });
        boxQueueAnswer(BoxChoice::no);
        EXPECT_EQ(appPressTool("PRNTRPT"), "");
        EXPECT_EQ(formsPress(IDC_TRADES_LOAD), "");
        EXPECT_TRUE(toolForm(toolTrades));
      },
      testProgram);
  formBehaviour = {};
  EXPECT_EQ(seen.calls, 1);
  EXPECT_EQ(seen.told, "TITLE:text.error;-:sure??other;no;out");
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.transcript, "");
  EXPECT_EQ(formsOpen(), 0u);
}

TEST(ScriptUser, listenersHearNothingOfTheNextRun) {
  seen = {};
  (void)scriptRunBy([] { boxesListen([](const BoxTold&) { ++seen.calls; }); }, testProgram);
  (void)runForm("tool PRNTRPT\npress 1199\n", onLoad([] { boxShow(nullptr, nullptr, "", BoxIcon::none); }));
  EXPECT_EQ(seen.calls, 0);
}

}  // namespace quillon::test
