// The small steps that the report forms share, on a form of the test's own behind the Trades resource: 1013 and 1057 are its
// edits, 1027 its Reply line.
#include "frame/report_form.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "desktop/scripted_run.h"

namespace quillon::test {

static constexpr int lines = 1057, reply = 1027, printButton = 1015, fileOption = 1011;

struct FilterCase {
  const char* typed;
  const char* stands;
};

// Types each text into the edit and gives what stands there afterwards.
static void expectFiltered(std::size_t limit, int mode, const std::vector<FilterCase>& rows) {
  std::string commands = "tool PRNTRPT\n", previous;
  for (const FilterCase& row : rows) commands += "type 1057" + (*row.typed ? " " + std::string(row.typed) : "") + "\n";
  std::vector<std::string> stood;
  bool own = false;
  runForm(commands, [&](const FormEvent& event) {
    if (event.kind != FormEventKind::edit || event.control != lines) return;
    const bool inner = own;
    own = true;
    limitEditText(event.form, event.control, previous, limit, mode);
    own = inner;
    if (!inner) stood.push_back(formGetText(event.form, lines, 300));
  });
  ASSERT_EQ(stood.size(), rows.size());
  for (std::size_t i = 0; i < rows.size(); ++i) EXPECT_EQ(stood[i], rows[i].stands) << rows[i].typed;
}

TEST(LimitEditText, textLongerThanTheLimitIsPutBack) {
  expectFiltered(
      12, editAnyCharacters,
      {{"ABCDEFGHIJKL", "ABCDEFGHIJKL"}, {"ABCDEFGHIJKLM", "ABCDEFGHIJKL"}, {"A-?", "A-?"}, {"", ""}, {"1234567890123", ""}});
}

TEST(LimitEditText, digitsOnlyPutsBackAnyOtherCharacterToo) {
  expectFiltered(3, editDigitsOnly,
                 {{"12", "12"}, {"1a", "12"}, {"-1", "12"}, {"123", "123"}, {"1234", "123"}, {"", ""}, {" ", ""}});
}

struct NumberCase {
  const char* text;
  unsigned number;
};

TEST(FormGetNumber, readsDigitsUpToTheFirstOtherCharacter) {
  static constexpr NumberCase rows[] = {
      {"50", 50},        {" 7", 7},
      {"007", 7},        {"12x", 12},
      {"x12", 0},        {"", 0},
      {"-1", 0},         {"+1", 0},
      {"1.5", 1},        {"4294967295", 4294967295u},
      {"4294967296", 0}, {"99999999999999999999999", 0},
  };
  std::size_t asked = 0;
  runForm("tool PRNTRPT\npress 1015\n", [&](const FormEvent& event) {
    if (event.kind != FormEventKind::press) return;
    for (const NumberCase& row : rows) {
      formSetText(event.form, lines, row.text);
      EXPECT_EQ(formGetNumber(event.form, lines), row.number) << row.text;
      ++asked;
    }
  });
  EXPECT_EQ(asked, std::size(rows));
}

TEST(CaptureLinesPerPage, valuesWithinTheLimitAreTakenAndOthersCorrected) {
  static constexpr NumberCase rows[] = {{"1", 1}, {"40", 40}, {"0", 6}, {"41", 6}, {"", 6}, {"many", 6}};
  static constexpr LinesPerPageRule rule = {.control = lines,
                                            .initial = 6,
                                            .limit = 40,
                                            .fallback = 6,
                                            .message = "wrong",
                                            .title = "LINES",
                                            .writeBack = lines,
                                            .reply = reply};
  int corrected = 0;
  const ScriptResult result = runForm("tool PRNTRPT\npress 1015\n", [&](const FormEvent& event) {
    if (event.kind != FormEventKind::press) return;
    for (const NumberCase& row : rows) {
      formSetText(event.form, lines, row.text);
      formSetText(event.form, reply, "");
      EXPECT_EQ(captureLinesPerPage(event.form, rule), row.number) << row.text;
      const bool wrong = row.number == 6;
      EXPECT_EQ(formGetText(event.form, lines, 10), wrong ? "6" : row.text);
      EXPECT_EQ(formGetText(event.form, reply, 10), wrong ? "wrong" : "");
      if (wrong) ++corrected;
    }
  });
  EXPECT_EQ(corrected, 4);
  std::size_t boxes = 0;
  for (const std::string& line : splitLines(result.transcript)) {
    if (line == R"({"box":{"title":"LINES","text":"wrong","icon":"exclamation","buttons":"ok","default":"ok","answer":"ok"}})")
      ++boxes;
  }
  EXPECT_EQ(boxes, 4u);
}

TEST(CaptureLinesPerPage, editKeepsItsWrongTextWhereNothingIsWrittenBack) {
  static constexpr LinesPerPageRule rule = {.control = lines,
                                            .initial = 25,
                                            .limit = 50,
                                            .fallback = 50,
                                            .message = "wrong",
                                            .title = "LINES",
                                            .writeBack = 0,
                                            .reply = 0};
  bool asked = false;
  runForm("tool PRNTRPT\npress 1015\n", [&](const FormEvent& event) {
    if (event.kind != FormEventKind::press) return;
    formSetText(event.form, lines, "51");
    EXPECT_EQ(captureLinesPerPage(event.form, rule), 50u);
    EXPECT_EQ(formGetText(event.form, lines, 10), "51");
    EXPECT_EQ(formGetText(event.form, reply, 10), "");
    asked = true;
  });
  EXPECT_TRUE(asked);
}

struct NameCase {
  const char* name;
  bool valid;
  const char* upper;
};

TEST(OutputName, lettersDigitsAndDotsPassInUpperCase) {
  static constexpr NameCase rows[] = {
      {"prn", true, "PRN"},
      {"out.txt", true, "OUT.TXT"},
      {"A1.B2.C3", true, "A1.B2.C3"},
      {"..", true, ".."},
      {"OUT-1", false, "OUT-1"},
      {"out_1", false, "OUT_1"},
      {"A B", false, "A B"},
      {"A\\B", false, "A\\B"},
      {"A/B", false, "A/B"},
      {"C:A", false, "C:A"},
      {"\xe4.TXT", false, "\xe4.TXT"},
      {"A*", false, "A*"},
      {"OUT.TXT-", false, "OUT.TXT-"},
  };
  for (const NameCase& row : rows) {
    std::string name = row.name;
    EXPECT_EQ(outputNameIsValid(name), row.valid) << row.name;
    EXPECT_EQ(name, row.upper);
  }
}

TEST(CheckRadio, oneOfTheNamedButtonsIsChecked) {
  static constexpr int group[] = {1016, 1017, 1018};
  bool asked = false;
  runForm("tool PRNTRPT\npress 1015\n", [&](const FormEvent& event) {
    if (event.kind != FormEventKind::press || event.control != printButton) return;
    formSetChecked(event.form, 1016, true);
    formSetChecked(event.form, fileOption, true);
    checkRadio(event.form, group, 1018);
    EXPECT_FALSE(formIsChecked(event.form, 1016));
    EXPECT_FALSE(formIsChecked(event.form, 1017));
    EXPECT_TRUE(formIsChecked(event.form, 1018));
    EXPECT_TRUE(formIsChecked(event.form, fileOption));
    asked = true;
  });
  EXPECT_TRUE(asked);
}

// ---- Messages ---------------------------------------------------------------------------------------------------------

// What a press of Print shows that tells `message`, under the title of the step.
static Lines shownBy(const Message& message) {
  const ScriptResult result = runForm("tool PRNTRPT\npress 1015\nquit\n", [&](const FormEvent& event) {
    if (event.kind == FormEventKind::press) showMessage(event.form, reply, "THE STEP", message, BoxIcon::error);
  });
  const Lines all = splitLines(result.transcript);
  const auto press = std::find(all.begin(), all.end(), "{\"command\":\"press 1015\"}");
  return {press + 1, std::find(press, all.end(), "{\"command\":\"quit\"}")};
}

static std::string boxTitled(const char* title) {
  return R"({"box":{"title":")" + std::string(title) +
         R"(","text":"in the box","icon":"error","buttons":"ok","default":"ok",)" + R"("answer":"ok"}})";
}

TEST(ShowMessage, standsOnTheReplyLineWhileItsBoxIsOpen) {
  EXPECT_EQ(shownBy({"in the box", "on the line"}),
            (Lines{R"({"changed":{"form":"PRNTRPT","focus":1015,"controls":{"1027":{"text":"on the line"}}}})",
                   boxTitled("THE STEP")}));
}

TEST(ShowMessage, mayStandOnTheReplyLineAlone) {
  EXPECT_EQ(shownBy({nullptr, "on the line"}),
            Lines{R"({"changed":{"form":"PRNTRPT","focus":1015,"controls":{"1027":{"text":"on the line"}}}})"});
}

TEST(ShowMessage, mayLeaveTheReplyLineAlone) {
  EXPECT_EQ(shownBy({"in the box", nullptr}), (Lines{R"({"changed":{"form":"PRNTRPT","focus":1015}})", boxTitled("THE STEP")}));
}

TEST(ShowMessage, mayHaveATitleOfItsOwn) {
  EXPECT_EQ(shownBy({"in the box", nullptr, "ITS OWN"}).back(), boxTitled("ITS OWN"));
}

TEST(ShowMessage, mayMoveTheFocusOnceTheBoxIsAnswered) {
  EXPECT_EQ(shownBy({"in the box", nullptr, nullptr, lines}),
            (Lines{R"({"changed":{"form":"PRNTRPT","focus":1015}})", boxTitled("THE STEP"),
                   R"({"changed":{"form":"PRNTRPT","focus":1057}})"}));
}

TEST(CaptureLinesPerPage, freshFormMayShowAnotherNumberThanTheFallback) {
  static constexpr LinesPerPageRule rule = {.control = lines,
                                            .initial = 25,
                                            .limit = 50,
                                            .fallback = 50,
                                            .message = "wrong",
                                            .title = "LINES",
                                            .writeBack = lines,
                                            .reply = 0,
                                            .ownerless = true};
  bool asked = false;
  runForm("tool PRNTRPT\npress 1015\n", [&](const FormEvent& event) {
    if (event.kind != FormEventKind::press) return;
    showInitialLines(event.form, rule);
    EXPECT_EQ(formGetText(event.form, lines, 10), "25");
    EXPECT_EQ(captureLinesPerPage(event.form, rule), 25u);
    formSetText(event.form, lines, "0");
    EXPECT_EQ(captureLinesPerPage(event.form, rule), 50u);
    asked = true;
  });
  EXPECT_TRUE(asked);
}

// ---- Events -----------------------------------------------------------------------------------------------------------

static std::vector<std::string> called;  // what the frame handed on, in order

static void note(const char* what, int control = 0) { called.push_back(what + (control ? std::to_string(control) : "")); }

static constexpr int nameControls[] = {1013, 1025};
static constexpr FormFrame frame = {
    .tool = toolTrades,
    .start = [](FormHandle) { note("start"); },
    .load = {1199, [](FormHandle) { note("load"); }},
    .print = {1015, [](FormHandle) { note("print"); }},
    .cancel = {1200, [](FormHandle) { note("cancel"); }},
    .printer = 1012,
    .file = 1011,
    .outFileControls = nameControls,
    .outFile = 1013,
    .outFileLimit = 12,
    .pressed = [](FormHandle, int control) { note("pressed ", control); },
    .destroyed = [](FormHandle) { note("destroyed"); },
};

// A program with this one form.
static ScriptResult runFramed(const std::string& commands) {
  called.clear();
  return scriptRun(commands, [] {
    static constexpr FormEntry forms[] = {{"PRNTRPT", [](const FormEvent& event) { reportFormEvent(frame, event); }}};
    return frameRun(forms);
  });
}

TEST(ReportFormEvent, buttonsGoToTheirFunctionsAndAllOthersToPressed) {
  runFramed("tool PRNTRPT\npress 1199\npress 1015\npress 1200\npress 1020\ntool PRNTRPT\n");
  EXPECT_EQ(called, (std::vector<std::string>{"start", "load", "print", "cancel", "pressed 1020", "destroyed"}));
}

TEST(ReportFormEvent, destinationShowsAndHidesTheOutputName) {
  const ScriptResult result = runFramed("tool PRNTRPT\npress 1011\npress 1012\n");
  EXPECT_NE(result.transcript.find(R"("1025":{"visible":true},"1013":{"visible":true})"), std::string::npos);
  EXPECT_NE(result.transcript.find(R"("1025":{"visible":false},"1013":{"visible":false})"), std::string::npos);
  EXPECT_EQ(called, (std::vector<std::string>{"start", "destroyed"})) << "no form hears of it";
}

TEST(ReportFormEvent, outputNameKeepsToItsLimitWhileItIsTyped) {
  const ScriptResult result =
      runFramed("tool PRNTRPT\npress 1011\ntype 1013 TWELVE.CHARS\ntype 1013 THIRTEEN.CHAR\ntype 1013 SHORT\nshow\n");
  const Lines last = effectsOfLast(result);
  ASSERT_EQ(last.size(), 1u);
  EXPECT_NE(last[0].find(R"("1013":{"text":"SHORT")"), std::string::npos);
  EXPECT_EQ(result.transcript.find("\"text\":\"THIRTEEN"), std::string::npos) << "it never stood there";
  EXPECT_NE(result.transcript.find(R"("1013":{"text":"TWELVE.CHARS"})"), std::string::npos);
}

TEST(ReportFormEvent, nameOfAFormThatWasClosedIsNotPutBack) {
  const ScriptResult result = runFramed(
      "tool PRNTRPT\npress 1011\ntype 1013 BEFORE\ntool PRNTRPT\ntool PRNTRPT\npress 1011\ntype 1013 THIRTEEN.CHAR\nshow\n");
  EXPECT_NE(effectsOfLast(result)[0].find(R"("1013":{"text":"")"), std::string::npos);
}

TEST(ReportFormEvent, titleBarClosesTheFormAndLetsItsButtonGo) {
  const ScriptResult result = runFramed("tool PRNTRPT\nclose\nquit\n");
  EXPECT_NE(result.transcript.find("{\"closed\":\"PRNTRPT\"}\n{\"tools\":{\"PRNTRPT\":false}}"), std::string::npos);
  EXPECT_EQ(called, (std::vector<std::string>{"start", "destroyed"}));
}

}  // namespace quillon::test
