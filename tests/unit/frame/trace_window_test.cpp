// What the trace window keeps and shows, and what its user does to it.
#include "frame/trace_window.h"

#include "desktop/scripted/faults.h"
#include "desktop/scripted/trace.h"
#include "desktop/scripted_run.h"

namespace quillon::test {

static constexpr int clearEntry = 1, scrollEntry = 2;

// Opens it on the scripted desktop's Trades form and hands it to `body`; gives what the opening and all that followed showed.
static Lines withTrace(const std::function<void(TraceView&)>& body, int rows = 3) {
  return effectsOfLast(runForm("tool PRNTRPT\npress 1199\n", [&](const FormEvent& event) {
    if (event.kind != FormEventKind::press) return;
    ASSERT_TRUE(traceWindowOpen(event.form));
    TraceView* view = traceView();
    ASSERT_NE(view, nullptr);
    view->minimised = false;
    view->clientHeight = rows * 10 + 9;
    body(*view);
    traceDestroy();
  }));
}

static void writeNumbers(int first, int last) {
  for (int number = first; number <= last; ++number) traceWindowWrite<"line %d">(number);
}

static const std::string boxOfThree =
    R"({"box":{"title":null,"text":"3","icon":"none","buttons":"ok","default":"ok","answer":"ok"}})";

TEST(TraceWindow, opensMinimisedBelowItsOwnersTitle) {
  const Lines lines = withTrace([](TraceView& view) {
    EXPECT_EQ(view.made.title, "#TRADES PRINTING");
    EXPECT_STREQ(view.made.windowClass, "dclass");
    EXPECT_EQ(view.made.left, 100);
    EXPECT_EQ(view.made.top, 100);
    EXPECT_EQ(view.made.width, 400);
    EXPECT_EQ(view.made.height, 100);
    EXPECT_EQ(view.scrollFirst, 0);
    EXPECT_EQ(view.scrollLast, 199);
    EXPECT_EQ(view.scrollPosition, 10);
    EXPECT_EQ(view.menu, (std::map<int, std::string>{{clearEntry, "&Clear"}, {scrollEntry, "&Scroll off"}}));
    EXPECT_EQ(view.drawn, 0);
  });
  EXPECT_EQ(lines, (Lines{boxOfThree}));
}

TEST(TraceWindow, isShownMinimisedAndDrawsNothingUntilItIsRestored) {
  withTrace([](TraceView& view) {
    view.minimised = true;
    writeNumbers(1, 3);
    EXPECT_EQ(view.drawn, 0);
    view.minimised = false;
    traceSend(TraceEventKind::paint);
    EXPECT_EQ(view.rows, (Lines{"line 1", "line 2", "line 3"}));
  });
  runForm("tool PRNTRPT\npress 1199\n", [](const FormEvent& event) {
    if (event.kind != FormEventKind::press) return;
    EXPECT_TRUE(traceWindowOpen(nullptr));
    EXPECT_TRUE(traceView()->minimised);
    EXPECT_EQ(traceView()->made.title, "#Windows Printing Program for Windows 2000, Version 18.02");
    traceDestroy();
  });
}

TEST(TraceWindow, ownersTitleIsTakenUpTo97Characters) {
  runForm("tool PRNTRPT\npress 1199\n", [](const FormEvent& event) {
    if (event.kind != FormEventKind::press) return;
    formSetTitle(event.form, std::string(96, 'a') + "\u00E9z");
    EXPECT_TRUE(traceWindowOpen(event.form));
    EXPECT_EQ(traceView()->made.title, "#" + std::string(96, 'a') + "\xE9");
    traceDestroy();
  });
}

TEST(TraceWindow, secondOpeningLeavesItAsItStands) {
  const Lines lines = withTrace([](TraceView& view) {
    writeNumbers(1, 2);
    EXPECT_TRUE(traceWindowOpen(nullptr));
    EXPECT_EQ(traceView(), &view);
    EXPECT_EQ(view.rows, (Lines{"line 1", "line 2", ""}));
  });
  EXPECT_EQ(lines, (Lines{boxOfThree}));
}

TEST(TraceWindow, fail_classIsToldAndWritesThenDoNothing) {
  runForm("tool PRNTRPT\npress 1199\n", [](const FormEvent& event) {
    if (event.kind != FormEventKind::press) return;
    faultsArm(Fault::windowClass, 1, false);
    EXPECT_FALSE(traceWindowOpen(event.form));
    writeNumbers(1, 3);
    EXPECT_TRUE(traceWindowOpen(event.form));
    traceView()->minimised = false;
    traceView()->clientHeight = 30;
    traceSend(TraceEventKind::paint);
    EXPECT_EQ(traceView()->rows, (Lines{"", "", ""}));
    traceDestroy();
  });
}

TEST(TraceWindow, lineOf200CharactersIsWholeAndALongerOneIsCut) {
  withTrace([](TraceView& view) {
    traceWindowWrite<"%s">(std::string(200, 'a'));
    traceWindowWrite<"%s%s">(std::string(200, 'b'), std::string("cut"));
    EXPECT_EQ(view.rows, (Lines{std::string(200, 'a'), std::string(200, 'b'), ""}));
  });
}

TEST(TraceWindow, lastLinesThatFitAreShownAndTheScrollBarTellsTheFirst) {
  withTrace([](TraceView& view) {
    writeNumbers(1, 1);
    EXPECT_EQ(view.rows, (Lines{"line 1", "", ""}));
    EXPECT_EQ(view.scrollPosition, 0);
    writeNumbers(2, 10);
    EXPECT_EQ(view.rows, (Lines{"line 8", "line 9", "line 10"}));
    EXPECT_EQ(view.scrollPosition, 7);
  });
}

TEST(TraceWindow, shorterLineLeavesNothingOfALongerOne) {
  withTrace(
      [](TraceView& view) {
        writeNumbers(1, 1);
        traceWindowWrite<"x">();
        EXPECT_EQ(view.rows, (Lines{"x"}));
      },
      1);
}

TEST(TraceWindow, oneRowShowsTheNewestLine) {
  withTrace(
      [](TraceView& view) {
        writeNumbers(1, 5);
        EXPECT_EQ(view.rows, (Lines{"line 5"}));
        EXPECT_EQ(view.scrollPosition, 4);
      },
      1);
}

TEST(TraceWindow, after201WritesTheOldestLineIsGoneAndTheRingHolds199) {
  withTrace(
      [](TraceView& view) {
        const auto shownNow = [&view] {
          return Lines(view.rows.begin(), std::find(view.rows.begin(), view.rows.end(), std::string()));
        };
        writeNumbers(1, 199);
        EXPECT_EQ(shownNow().size(), 199u);
        EXPECT_EQ(view.rows.front(), "line 1");
        writeNumbers(200, 201);
        EXPECT_EQ(shownNow().size(), 199u);
        EXPECT_EQ(view.rows.front(), "line 3");
        EXPECT_EQ(view.rows[198], "line 201");
        EXPECT_EQ(view.scrollPosition, 0);
        writeNumbers(202, 1000);
        EXPECT_EQ(shownNow().size(), 199u) << "head and tail never meet";
        EXPECT_EQ(view.rows.front(), "line 802");
        EXPECT_EQ(view.rows[198], "line 1000");
      },
      250);
}

TEST(TraceWindow, lastLinesAreShownAcrossTheEndOfTheRing) {
  withTrace([](TraceView& view) {
    writeNumbers(1, 202);  // in slots 0 to 199, then 0 and 1
    EXPECT_EQ(view.rows, (Lines{"line 200", "line 201", "line 202"}));
    EXPECT_EQ(view.scrollPosition, 196);
  });
}

TEST(TraceWindow, clearEmptiesRingAndRows) {
  withTrace([](TraceView& view) {
    writeNumbers(1, 10);
    traceSend(TraceEventKind::command, clearEntry);
    EXPECT_EQ(view.rows, (Lines{"", "", ""}));
    EXPECT_EQ(view.scrollPosition, 0);
    writeNumbers(11, 11);
    EXPECT_EQ(view.rows, (Lines{"line 11", "", ""}));
  });
}

TEST(TraceWindow, menuEntryTurnsScrollingOffAndOn) {
  withTrace([](TraceView& view) {
    writeNumbers(1, 3);
    traceSend(TraceEventKind::command, scrollEntry);
    EXPECT_EQ(view.menu[scrollEntry], "&Scroll on");
    const int drawn = view.drawn;
    writeNumbers(4, 5);
    traceSend(TraceEventKind::paint);
    traceSend(TraceEventKind::thumb, 0);
    traceSend(TraceEventKind::command, clearEntry);
    EXPECT_EQ(view.drawn, drawn) << "a redraw does nothing while scrolling is off";
    writeNumbers(6, 7);
    traceSend(TraceEventKind::command, scrollEntry);
    EXPECT_EQ(view.menu[scrollEntry], "&Scroll off");
    EXPECT_EQ(view.drawn, drawn);
    traceSend(TraceEventKind::paint);
    EXPECT_EQ(view.rows, (Lines{"line 6", "line 7", ""}));
  });
}

TEST(TraceWindow, clickTurnsScrollingOnAndDoubleClickOff) {
  withTrace([](TraceView& view) {
    traceSend(TraceEventKind::doubleClick);
    EXPECT_EQ(view.menu[scrollEntry], "&Scroll on");
    writeNumbers(1, 1);
    EXPECT_EQ(view.drawn, 0);
    traceSend(TraceEventKind::doubleClick);
    EXPECT_EQ(view.menu[scrollEntry], "&Scroll on");
    traceSend(TraceEventKind::click);
    EXPECT_EQ(view.menu[scrollEntry], "&Scroll off");
    writeNumbers(2, 2);
    EXPECT_EQ(view.rows, (Lines{"line 1", "line 2", ""}));
    traceSend(TraceEventKind::click);
    EXPECT_EQ(view.menu[scrollEntry], "&Scroll off");
  });
}

TEST(TraceWindow, arrowsMoveByOneLineAndStopAtSlot1AndAtTheNewest) {
  withTrace([](TraceView& view) {
    writeNumbers(1, 6);
    traceSend(TraceEventKind::lineUp);
    EXPECT_EQ(view.rows, (Lines{"line 3", "line 4", "line 5"}));
    EXPECT_EQ(view.scrollPosition, 2);
    traceSend(TraceEventKind::lineDown);
    EXPECT_EQ(view.rows, (Lines{"line 4", "line 5", "line 6"}));
    traceSend(TraceEventKind::lineDown);
    EXPECT_EQ(view.rows, (Lines{"line 4", "line 5", "line 6"})) << "behind the newest there is no line";
    for (int i = 0; i < 10; ++i) traceSend(TraceEventKind::lineUp);
    EXPECT_EQ(view.rows, (Lines{"line 1", "line 2", ""})) << "the line of slot 1 is the second";
  });
}

TEST(TraceWindow, arrowsStopAtTheEndOfTheRingAndAtItsOldestLine) {
  withTrace([](TraceView& view) {
    writeNumbers(1, 203);  // the newest in slot 2, the oldest in slot 4, line 200 in slot 199
    traceSend(TraceEventKind::thumb, 195);
    EXPECT_EQ(view.rows, (Lines{"line 198", "line 199", "line 200"}));
    traceSend(TraceEventKind::lineDown);
    EXPECT_EQ(view.rows, (Lines{"line 198", "line 199", "line 200"}));
    traceSend(TraceEventKind::thumb, 1);
    EXPECT_EQ(view.rows, (Lines{"line 5", "line 6", ""}));
    traceSend(TraceEventKind::lineUp);
    EXPECT_EQ(view.rows, (Lines{"line 5", "", ""}));
    traceSend(TraceEventKind::lineUp);
    EXPECT_EQ(view.rows, (Lines{"line 5", "", ""}));
  });
}

TEST(TraceWindow, thumbShowsTheLinesUpToItsPlaceBehindTheOldest) {
  withTrace([](TraceView& view) {
    traceSend(TraceEventKind::thumb, 50);
    EXPECT_EQ(view.rows, (Lines{"", "", ""}));
    writeNumbers(1, 50);
    traceSend(TraceEventKind::thumb, 20);
    EXPECT_EQ(view.rows, (Lines{"line 19", "line 20", "line 21"}));
    EXPECT_EQ(view.scrollPosition, 18);
    traceSend(TraceEventKind::thumb, 0);
    EXPECT_EQ(view.rows, (Lines{"line 1", "", ""}));
    traceSend(TraceEventKind::thumb, 199);
    EXPECT_EQ(view.rows, (Lines{"line 48", "line 49", "line 50"})) << "behind the newest stands the newest";
  });
}

TEST(TraceWindow, paintDrawsWhatWasShownLast) {
  withTrace([](TraceView& view) {
    writeNumbers(1, 9);
    traceSend(TraceEventKind::lineUp);
    view.rows.clear();
    traceSend(TraceEventKind::paint);
    EXPECT_EQ(view.rows, (Lines{"line 6", "line 7", "line 8"}));
  });
}

TEST(TraceWindow, closingItByItsTitleBarOnlyShowsTheMessage) {
  const Lines lines = withTrace([](TraceView& view) {
    traceSend(TraceEventKind::close);
    EXPECT_EQ(traceView(), &view);
    writeNumbers(1, 1);
    EXPECT_EQ(view.rows, (Lines{"line 1", "", ""}));
  });
  EXPECT_EQ(
      lines,
      (Lines{
          boxOfThree,
          R"({"box":{"title":null,"text":"CAN NOT BE DESTROY ALONE","icon":"none","buttons":"ok","default":"ok","answer":"ok"}})"}));
}

TEST(TraceWindow, nothingIsWrittenOnceItHasGoneWithItsOwner) {
  withTrace([](TraceView&) { writeNumbers(1, 3); });
  EXPECT_EQ(traceView(), nullptr);
  writeNumbers(4, 5);
  withTrace([](TraceView& view) {
    writeNumbers(6, 6);
    EXPECT_EQ(view.rows, (Lines{"line 6", "", ""})) << "a new one begins empty";
  });
}

}  // namespace quillon::test
