// The small steps that the report forms share, on a form of the test's own behind the Trades resource: 1013 and 1057 are its
// edits, 1027 its Reply line.
#include "frame/report_form.h"

#include <gtest/gtest.h>

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
  static constexpr LinesPerPageRule rule = {
      .control = lines, .initial = 6, .limit = 40, .fallback = 6, .message = "wrong", .title = "LINES", .writeBack = lines, .reply = reply};
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
  static constexpr LinesPerPageRule rule = {
      .control = lines, .initial = 25, .limit = 50, .fallback = 50, .message = "wrong", .title = "LINES", .writeBack = 0, .reply = 0};
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

}  // namespace quillon::test
