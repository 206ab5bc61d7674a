// The 16 tools: their table, the toggle, the order in which forms are offered a message, and the shut-down.
#include "frame/tools.h"

#include <gtest/gtest.h>

#include "desktop/scripted/app.h"
#include "desktop/scripted_run.h"
#include "frame/client_types.h"
#include "report_forms.h"

namespace quillon::test {

struct ToolCase {
  int tool, bitmap;
  const char* tooltip;
  const char* form;
  const char* key;  // null: none
};

// clang-format off
static constexpr ToolCase tools[] = {
    {20006, 183, "Trades Printing",             "PRNTRPT",        "F1"},
    {20007, 196, "NetPosition Printing",        "PRNTNP",         "F2"},
    {7020,  200, "SLB Position Printing",       "PRNTNPRET",      "Ctrl+F2"},
    {20008, 184, "Auction Report Printing",     "AUCRPT",         "F3"},
    {20009, 192, "TouchLines Printing",         "PRNTTLINE",      "F4"},
    {20010, 195, "Trader Limits Printing",      "PRNTTRDLM",      "F5"},
    {20011, 194, "6A 7A Report Printing",       "PRNTSIXASEVENA", "F6"},
    {20012, 189, "BreakUp Data Printing",       "PRNTBRKUP",      "F7"},
    {20013, 187, "Broker Query Printing",       "PRNTBRKREP",     "F8"},
    {20014, 188, "Convert",                     "CONVERT",        "F9"},
    {40033, 190, "Auc.Delv Statement Printing", "DELV",           nullptr},
    {20015, 185, "Kesto Printing",              "PRNTVQLS",       "F10"},
    {20016, 186, "Kesto Net Position Printing", "PRNTNETPOS",     "F11"},
    {4049,  191, "Order Log Printing",          "PRNTORDLOG",     nullptr},
    {20018, 197, "Quote Log Printing",          "PRNTQUOTELOG",   "Shift+F12"},
    {40037, 202, "Admin Log Printing",          "PRNTADMINLOG",   "Ctrl+F1"},
};
// clang-format on

TEST(Tools, tableIsThatOfTheToolbar) {
  ASSERT_EQ(toolTable.size(), std::size(tools));
  for (std::size_t i = 0; i < toolTable.size(); ++i) {
    EXPECT_EQ(toolTable[i].tool, tools[i].tool);
    EXPECT_EQ(toolTable[i].bitmap, tools[i].bitmap) << tools[i].form;
    EXPECT_STREQ(toolTable[i].tooltip, tools[i].tooltip);
    EXPECT_STREQ(toolTable[i].form, tools[i].form);
    EXPECT_STREQ(toolTooltip(tools[i].tool), tools[i].tooltip);
  }
}

// ---- On the scripted desktop ----------------------------------------------------------------------------------------------

// Forms of the test's own behind every dialog resource that there is: they tell the frame when they go, and nothing more.
template <int Tool>
static void plainForm(const FormEvent& event) {
  if (event.kind == FormEventKind::destroy) toolFormGone(Tool);
  if (event.kind == FormEventKind::close) toolCommand(Tool);
}

// What a press of the button "Print" does in the Trades form; called on the desktop, inside a run.
static std::function<void()> onPress;

static void tradesForm(const FormEvent& event) {
  if (event.kind == FormEventKind::press && onPress) onPress();
  plainForm<toolTrades>(event);
}

static constexpr FormEntry forms[] = {
    {"PRNTRPT", tradesForm},
    {"PRNTNP", plainForm<toolNetPosition>},
    {"PRNTNPRET", plainForm<toolSlbPosition>},
    {"PRNTTLINE", plainForm<toolTouchlines>},
    {"PRNTTRDLM", plainForm<toolTraderLimits>},
    {"PRNTBRKREP", plainForm<toolBrokerQuery>},
};

static int program() { return frameRun(forms); }

// The lines of these commands that are neither commands nor the states of forms.
static Lines linesOf(const std::string& commands, const ScriptOptions& options = {}) {
  Lines lines;
  for (const std::string& line : splitLines(scriptRun(commands, program, options).transcript)) {
    if (!line.starts_with("{\"command\"") && !line.starts_with("{\"changed\"")) lines.push_back(line);
  }
  return lines;
}

TEST(Tools, togglingTwiceOpensAndClosesAndTheButtonFollows) {
  EXPECT_EQ(linesOf("key F1\nkey F1\nquit\n"),
            (Lines{R"({"opened":"PRNTRPT"})", R"({"tools":{"PRNTRPT":true}})", R"({"closed":"PRNTRPT"})",
                   R"({"tools":{"PRNTRPT":false}})", R"({"exit":0})"}));
}

TEST(Tools, titleBarLeavesTheButtonUncheckedAsASecondPressDoes) {
  EXPECT_EQ(linesOf("tool PRNTRPT\nclose\nquit\n"), linesOf("tool PRNTRPT\ntool PRNTRPT\nquit\n"));
}

TEST(Tools, keysAndButtonsAreTheSameCommand) {
  for (const ToolCase& tool : tools) {
    if (!tool.key) continue;
    const std::string name = tool.form;
    EXPECT_EQ(linesOf("key " + std::string(tool.key) + "\nquit\n"), linesOf("tool " + name + "\nquit\n")) << name;
  }
}

TEST(Tools, formThatCannotBeCreatedLeavesItsButtonCheckedAndTheNextPressTriesAgain) {
  const std::string box =
      R"({"box":{"title":null,"text":"Dialog Creation Failed","icon":"error","buttons":"ok","default":"ok","answer":"ok"}})";
  EXPECT_EQ(
      linesOf("fail form\ntool PRNTRPT\ntool PRNTRPT\nquit\n"),
      (Lines{box, R"({"tools":{"PRNTRPT":true}})", R"({"opened":"PRNTRPT"})", R"({"closed":"PRNTRPT"})", R"({"exit":0})"}));
}

TEST(Tools, idThatIsNoToolDoesNothingAndHasNoTooltip) {
  EXPECT_EQ(toolTooltip(20017), nullptr);
  EXPECT_EQ(toolForm(20017), nullptr);
  toolFormGone(20017);
  onPress = [] { toolCommand(20017); };
  EXPECT_EQ(linesOf("tool PRNTRPT\npress 1015\nquit\n"), linesOf("tool PRNTRPT\nquit\n"));
  onPress = {};
}

TEST(Tools, messagesAreOfferedInTheirOrderAndClosedFormsAreSkipped) {
  static constexpr int order[] = {toolTrades,       toolBrokerQuery, toolConvert,  tool6A7A,
                                  toolTraderLimits, toolTouchlines,  toolAuction,  toolBreakup,
                                  toolNetPosition,  toolSlbPosition, toolKesto,    toolKestoNetPosition,
                                  toolOrderLog,     toolQuoteLog,    toolDelivery, toolAdminLog};
  bool asked = false;
  onPress = [&asked] {
    const std::span<const FormHandle> offered = toolsInRoutingOrder();
    ASSERT_EQ(offered.size(), std::size(order));
    std::size_t open = 0;
    for (std::size_t i = 0; i < offered.size(); ++i) {
      EXPECT_EQ(offered[i], toolForm(order[i])) << i;
      if (offered[i]) ++open;
    }
    EXPECT_EQ(open, 6u);
    asked = true;
  };
  linesOf("tool PRNTTRDLM\ntool PRNTTLINE\ntool PRNTNPRET\ntool PRNTNP\ntool PRNTBRKREP\ntool PRNTRPT\npress 1015\nquit\n");
  onPress = {};
  EXPECT_TRUE(asked);
}

TEST(Tools, shutDownDestroysTheFormsInItsOrderAndBrokerQueryGoesWithItsOwner) {
  Lines closed;
  for (const std::string& line :
       linesOf("tool PRNTBRKREP\ntool PRNTTRDLM\ntool PRNTTLINE\ntool PRNTNPRET\ntool PRNTNP\ntool PRNTRPT\nquit\n")) {
    if (line.starts_with("{\"closed\"") || line.starts_with("{\"exit\"")) closed.push_back(line);
  }
  EXPECT_EQ(closed,
            (Lines{R"({"closed":"PRNTRPT"})", R"({"closed":"PRNTNP"})", R"({"closed":"PRNTNPRET"})",
                   R"({"closed":"PRNTTLINE"})", R"({"closed":"PRNTTRDLM"})", R"({"closed":"PRNTBRKREP"})", R"({"exit":0})"}));
}

// ---- The main window ------------------------------------------------------------------------------------------------------

TEST(MainWindow, secondCopyShowsNothingAndEndsWith0) {
  const ScriptResult result = scriptRun("tool PRNTRPT\n", program, {.otherCopyRuns = true});
  EXPECT_EQ(result.transcript, "{\"exit\":0}\n");
  EXPECT_EQ(result.status, 0);
}

TEST(MainWindow, classThatCannotBeRegisteredIsToldAndEndsWith0) {
  const std::string box =
      R"({"box":{"title":null,"text":"Error in InitWindow","icon":"error","buttons":"ok","default":"ok","answer":"ok"}})";
  EXPECT_EQ(linesOf("fail class\ntool PRNTRPT\n"), (Lines{box, R"({"exit":0})"}));
}

TEST(MainWindow, otherNotificationFillsInTheClientTypesAgain) {
  onPress = [] {
    clientTypeTable[0].codeA = 7;
    appNotify();
    EXPECT_EQ(clientTypeTable[0].codeA, 50);
  };
  EXPECT_EQ(linesOf("tool PRNTRPT\npress 1015\nquit\n"), linesOf("tool PRNTRPT\nquit\n"));
  onPress = {};
}

TEST(MainWindow, toolbarThatTellsOfItsOwnMakingIsBuiltOnce) {
  static int told;
  told = 0;
  static constexpr ToolButton one[] = {{1, 1, "", "ONE"}};
  static constexpr AppHandler handler = {
      .created = [] { appBuildToolbar(one); },
      .command = [](int) {},
      .tooltip = [](int) -> const char* { return nullptr; },
      .notified = [] { ++told; },
      .destroyed = [] {},
      .openForms = [] { return std::span<const FormHandle>(); },
  };
  scriptRun("quit\n", [] {
    appRegisterClass({});
    appCreateWindow({}, handler);
    return 0;
  });
  EXPECT_EQ(told, 1) << "the desktop tells of it while it builds";
  EXPECT_EQ(linesOf("tool PRNTRPT\ntool PRNTRPT\nquit\n").size(), 5u) << "and the frame does not build another";
}

TEST(ReportForms, everyFormOfTheProgramBelongsToATool) {
  for (const FormEntry& entry : reportForms()) {
    bool found = false;
    for (const ToolCase& tool : tools) found = found || std::string(tool.form) == entry.resource;
    EXPECT_TRUE(found) << entry.resource;
  }
}

}  // namespace quillon::test
