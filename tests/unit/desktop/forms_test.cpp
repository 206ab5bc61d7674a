// What a user does to a form, what the form hears of it, and what the transcript shows.
#include "desktop/scripted/forms.h"

#include <fstream>

#include "desktop/app.h"
#include "desktop/boxes.h"
#include "desktop/open_dialog.h"
#include "desktop/scripted/app.h"
#include "resource.h"
#include "scripted_run.h"

namespace quillon::test {

static const char* nameOf(FormEventKind kind) {
  static constexpr const char* names[] = {"start", "press", "edit", "pick", "activate", "close", "destroy"};
  return names[static_cast<int>(kind)];
}

// The events that a form heard, as "press 1015".
static Lines eventsOf(const std::string& commands, std::function<void(const FormEvent&)> behaviour = {}) {
  Lines events;
  runForm(commands, [&](const FormEvent& event) {
    events.push_back(nameOf(event.kind) + (event.control ? " " + std::to_string(event.control) : std::string()));
    if (behaviour) behaviour(event);
  });
  return events;
}

static Lines effects(const std::string& commands, std::function<void(const FormEvent&)> behaviour = {}) {
  return effectsOfLast(runForm(commands, std::move(behaviour)));
}

// Runs `action` when the given control is pressed.
static std::function<void(const FormEvent&)> onPress(int control, std::function<void(FormHandle)> action) {
  return [control, action = std::move(action)](const FormEvent& event) {
    if (event.kind == FormEventKind::press && event.control == control) action(event.form);
  };
}

TEST(Forms, toolOpensAndClosesItsForm) {
  const Lines opened = effects("tool PRNTRPT");
  ASSERT_EQ(opened.size(), 3u);
  EXPECT_EQ(opened[0], R"({"opened":"PRNTRPT"})");
  EXPECT_EQ(opened[1], R"({"tools":{"PRNTRPT":true}})");
  EXPECT_TRUE(
      opened[2].starts_with(R"({"changed":{"form":"PRNTRPT","title":"TRADES PRINTING","focus":1199,"controls":{"1199":)"));
  const ScriptResult result = runForm("tool PRNTRPT\ntool PRNTRPT\n");
  const Lines all = splitLines(result.transcript);
  const Lines closing(all.end() - 4, all.end());
  EXPECT_EQ(closing, (Lines{R"({"command":"tool PRNTRPT"})", R"({"closed":"PRNTRPT"})", R"({"tools":{"PRNTRPT":false}})",
                            R"({"exit":0})"}));
}

TEST(Forms, formJustOpenedIsWrittenWhole) {
  const Lines opened = effects("tool PRNTNP");
  ASSERT_EQ(opened.size(), 3u);
  const std::string& whole = opened[2];
  for (const char* piece :
       {R"("1135":{"text":")", R"("enabled":true,"visible":true,"checked":false})", R"("items":[],"selected":null})"}) {
    EXPECT_NE(whole.find(piece), std::string::npos) << piece << "\n" << whole;
  }
  EXPECT_EQ(whole.find("\"-1\""), std::string::npos);
  EXPECT_EQ(whole.find("\"65535\""), std::string::npos);
}

TEST(Forms, titleBarClosesAsASecondPressOfTheButtonDoes) {
  const ScriptResult result = runForm("tool PRNTRPT\nclose\n");
  const Lines all = splitLines(result.transcript);
  const Lines closing(all.end() - 4, all.end());
  EXPECT_EQ(closing,
            (Lines{R"({"command":"close"})", R"({"closed":"PRNTRPT"})", R"({"tools":{"PRNTRPT":false}})", R"({"exit":0})"}));
}

TEST(Forms, eventsOfAFormsLife) {
  EXPECT_EQ(eventsOf("tool PRNTRPT\nform PRNTRPT\npress 1199\nclose\n"),
            (Lines{"start", "activate", "press 1199", "close", "destroy"}));
}

TEST(Forms, closeIsRefusedWhileItsEntryIsDisabled) {
  const auto behaviour = [](const FormEvent& event) {
    if (event.kind == FormEventKind::press) formSetCloseEnabled(event.form, event.control == IDC_TRADES_CANCEL);
  };
  EXPECT_EQ(effects("tool PRNTRPT\npress 1199\nclose\n", behaviour), (Lines{R"({"refused":"Close is disabled"})"}));
  EXPECT_EQ(eventsOf("tool PRNTRPT\npress 1199\npress 1200\nclose\n", behaviour),
            (Lines{"start", "press 1199", "press 1200", "close", "destroy"}));
}

TEST(Forms, keyDoesWhatTheButtonDoes) {
  EXPECT_EQ(effects("key F1")[0], R"({"opened":"PRNTRPT"})");
  EXPECT_EQ(effects("key F2")[0], R"({"opened":"PRNTNP"})");
  EXPECT_EQ(effects("tool PRNTRPT\nkey F1\ntool PRNTRPT")[0], R"({"opened":"PRNTRPT"})");
}

TEST(Forms, keyThatTheProgramDoesNotHaveIsRefused) {
  for (const char* key : {"F12", "Ctrl+F1+", "f1", "F01", "F25", "F0", "Q", "Ctrl+", "Alt+F1", "Ctrl+Shift+F2", "Enter"}) {
    EXPECT_EQ(effects(std::string("key ") + key),
              (Lines{std::string("{\"refused\":\"") + key + " is no key of the program\"}"}));
  }
}

TEST(Forms, toolWhoseFormIsNotThereShowsTheFailureAndStaysChecked) {
  EXPECT_EQ(
      effects("tool CONVERT"),
      (Lines{
          R"({"box":{"title":"CONVERT","text":"Dialog Creation Failed","icon":"error","buttons":"ok","default":"ok","answer":"ok"}})",
          R"({"tools":{"CONVERT":true}})"}));
  EXPECT_EQ(effects("tool CONVERT\ntool CONVERT").size(), 1u) << "its handle stayed zero, so it is tried again";
}

TEST(Forms, formThatCannotBeCreatedLeavesNothingBehind) {
  EXPECT_EQ(effects("fail form\ntool PRNTRPT")[0].substr(0, 40), R"({"box":{"title":null,"text":"Dialog Crea)");
  EXPECT_EQ(effects("fail form\ntool PRNTRPT\npress 1199"), (Lines{R"({"refused":"no form is open"})"}));
  EXPECT_EQ(effects("fail form\ntool PRNTRPT\ntool PRNTRPT")[0], R"({"opened":"PRNTRPT"})");
}

TEST(Forms, unknownToolIsRefused) { EXPECT_EQ(effects("tool NONE"), (Lines{R"({"refused":"there is no tool NONE"})"})); }

TEST(Forms, actionWithoutAFormIsRefused) {
  for (const char* command : {"press 1", "type 1 x", "pick 1 x", "enter", "close", "show"}) {
    EXPECT_EQ(effects(command), (Lines{R"({"refused":"no form is open"})"})) << command;
  }
  EXPECT_EQ(effects("form PRNTRPT"), (Lines{R"({"refused":"PRNTRPT is not open"})"}));
}

TEST(Forms, controlThatAUserCannotReachIsRefused) {
  const auto behaviour = onPress(IDC_TRADES_LOAD, [](FormHandle form) { formSetEnabled(form, IDC_TRADES_PRINT, false); });
  for (const char* command : {"press 1015", "type 1015 x", "pick 1015 x"}) {
    EXPECT_EQ(effects(std::string("tool PRNTRPT\npress 1199\n") + command, behaviour),
              (Lines{R"({"refused":"1015 is disabled"})"}));
  }
  EXPECT_EQ(effects("tool PRNTRPT\ntype 1013 x"), (Lines{R"({"refused":"1013 is hidden"})"}));
  EXPECT_EQ(effects("tool PRNTRPT\npress 9"), (Lines{R"({"refused":"9 is not on the form"})"}));
  EXPECT_EQ(effects("tool PRNTRPT\npress 65535"), (Lines{R"({"refused":"65535 is not on the form"})"}));
  EXPECT_EQ(effects("tool PRNTRPT\npress 99999999999999999999").size(), 1u);
}

TEST(Forms, actionOnTheWrongKindOfControlIsRefused) {
  EXPECT_EQ(effects("tool PRNTRPT\npress 1057"), (Lines{R"({"refused":"1057 cannot be pressed"})"}));
  EXPECT_EQ(effects("tool PRNTRPT\npress 1060"), (Lines{R"({"refused":"1060 cannot be pressed"})"})) << "a frame";
  EXPECT_EQ(effects("tool PRNTRPT\ntype 1015 x"), (Lines{R"({"refused":"1015 is no edit"})"}));
  EXPECT_EQ(effects("tool PRNTRPT\ntype 1027 x"), (Lines{R"({"refused":"1027 is read-only"})"}));
  EXPECT_EQ(effects("tool PRNTRPT\npick 1057 x"), (Lines{R"({"refused":"1057 is no list"})"}));
}

TEST(Forms, refusedActionChangesNothingAndIsNotHeard) {
  EXPECT_EQ(eventsOf("tool PRNTRPT\npress 1057\ntype 1027 x\npick 1057 x\npress 9\n"), (Lines{"start", "destroy"}));
}

TEST(Forms, radioButtonClearsItsGroupAndNoOther) {
  // Sort By (1016 to 1019) and Print To (1011, 1012) are two groups.
  EXPECT_EQ(
      effects("tool PRNTRPT\npress 1012\npress 1016\npress 1019"),
      (Lines{R"({"changed":{"form":"PRNTRPT","focus":1019,"controls":{"1016":{"checked":false},"1019":{"checked":true}}}})"}));
  EXPECT_EQ(
      effects("tool PRNTRPT\npress 1012\npress 1016\npress 1011"),
      (Lines{R"({"changed":{"form":"PRNTRPT","focus":1011,"controls":{"1012":{"checked":false},"1011":{"checked":true}}}})"}));
}

TEST(Forms, radioButtonIsCheckedBeforeItsPressIsHeard) {
  bool pressed = false, other = true;
  runForm("tool PRNTRPT\npress 1016\npress 1017\n", onPress(IDC_TRADES_SORT_SCRIP_CODE, [&](FormHandle form) {
            pressed = formIsChecked(form, IDC_TRADES_SORT_SCRIP_CODE);
            other = formIsChecked(form, IDC_TRADES_SORT_TIME);
          }));
  EXPECT_TRUE(pressed);
  EXPECT_FALSE(other);
}

TEST(Forms, programChecksTheNamedButtonAlone) {
  const auto behaviour = onPress(IDC_TRADES_LOAD, [](FormHandle form) {
    formSetChecked(form, IDC_TRADES_SORT_TIME, true);
    formSetChecked(form, IDC_TRADES_SORT_SCRIP_ID, true);
  });
  EXPECT_EQ(effects("tool PRNTRPT\npress 1199", behaviour),
            (Lines{R"({"changed":{"form":"PRNTRPT","controls":{"1016":{"checked":true},"1018":{"checked":true}}}})"}));
}

TEST(Forms, checkBoxTurnsAtEachPress) {
  EXPECT_EQ(effects("tool PRNTRPT\npress 1020"),
            (Lines{R"({"changed":{"form":"PRNTRPT","focus":1020,"controls":{"1020":{"checked":true}}}})"}));
  EXPECT_EQ(effects("tool PRNTRPT\npress 1020\npress 1020"),
            (Lines{R"({"changed":{"form":"PRNTRPT","controls":{"1020":{"checked":false}}}})"}));
}

TEST(Forms, nothingIsWrittenWhereNothingDiffers) {
  EXPECT_EQ(effects("tool PRNTRPT\npress 1199\npress 1199"), Lines());
  EXPECT_EQ(effects("tool PRNTRPT\ntype 1057 5\ntype 1057 5"), Lines());
}

TEST(Forms, typingReplacesTheTextWithOneNotification) {
  EXPECT_EQ(effects("tool PRNTRPT\ntype 1057 OUT.TXT"),
            (Lines{R"({"changed":{"form":"PRNTRPT","focus":1057,"controls":{"1057":{"text":"OUT.TXT"}}}})"}));
  EXPECT_EQ(effects("tool PRNTRPT\ntype 1057  a b "),
            (Lines{R"({"changed":{"form":"PRNTRPT","focus":1057,"controls":{"1057":{"text":" a b "}}}})"}));
  EXPECT_EQ(effects("tool PRNTRPT\ntype 1057 x\ntype 1057"),
            (Lines{R"({"changed":{"form":"PRNTRPT","controls":{"1057":{"text":""}}}})"}));
  EXPECT_EQ(eventsOf("tool PRNTRPT\ntype 1057 OUT.TXT\n"), (Lines{"start", "edit 1057", "destroy"}));
}

TEST(Forms, editOfDigitsTakesNoOtherCharacter) {
  ControlTemplate edit = {};
  edit.kind = ControlKind::edit;
  EXPECT_EQ(formsTyped(edit, "4x2"), "4x2");
  edit.digitsOnly = true;
  EXPECT_EQ(formsTyped(edit, "4x2"), "42");
  EXPECT_EQ(formsTyped(edit, " -1.5\xB2"), "15");
  EXPECT_EQ(formsTyped(edit, "abc"), "");
  EXPECT_EQ(formsTyped(edit, "0123456789"), "0123456789");
}

TEST(Forms, enterPressesTheFocusedButtonElseTheDefaultOne) {
  // Load File (1204) is the default button of Touchlines and has the focus at first; 1070 is an edit, 1065 a radio button.
  EXPECT_EQ(eventsOf("tool PRNTTLINE\nenter\n"), (Lines{"start", "press 1204", "destroy"}));
  EXPECT_EQ(eventsOf("tool PRNTTLINE\npress 1191\nenter\n"), (Lines{"start", "press 1191", "press 1191", "destroy"}));
  EXPECT_EQ(eventsOf("tool PRNTTLINE\ntype 1070 5\nenter\n"), (Lines{"start", "edit 1070", "press 1204", "destroy"}));
  EXPECT_EQ(eventsOf("tool PRNTTLINE\npress 1065\nenter\n"), (Lines{"start", "press 1065", "press 1204", "destroy"}));
}

TEST(Forms, enterLeavesTheFocusWhereItIs) {
  EXPECT_EQ(effects("tool PRNTTLINE\ntype 1070 5\nenter"), Lines());
  EXPECT_EQ(eventsOf("tool PRNTTLINE\ntype 1070 5\nenter\nenter\n"),
            (Lines{"start", "edit 1070", "press 1204", "press 1204", "destroy"}));
}

TEST(Forms, enterDoesNothingWithoutAButtonThatCanBeWorked) {
  EXPECT_EQ(eventsOf("tool PRNTRPT\ntype 1057 5\nenter\n"), (Lines{"start", "edit 1057", "destroy"})) << "no default button";
  EXPECT_EQ(effects("tool PRNTRPT\ntype 1057 5\nenter"), Lines());
  for (const bool hidden : {false, true}) {
    const auto behaviour = onPress(1191, [hidden](FormHandle form) {
      if (hidden)
        formSetVisible(form, 1204, false);
      else
        formSetEnabled(form, 1204, false);
    });
    EXPECT_EQ(eventsOf("tool PRNTTLINE\npress 1191\ntype 1070 5\nenter\n", behaviour),
              (Lines{"start", "press 1191", "edit 1070", "destroy"}));
  }
}

TEST(Forms, typedTextIsWindows1252InsideTheProgram) {
  std::string seen;
  const auto behaviour = [&seen](const FormEvent& event) {
    if (event.kind == FormEventKind::edit) seen = formGetText(event.form, IDC_TRADES_LINES, 100);
  };
  EXPECT_EQ(effects("tool PRNTRPT\ntype 1057 \u20AC\u00E9", behaviour),
            (Lines{"{\"changed\":{\"form\":\"PRNTRPT\",\"focus\":1057,\"controls\":{\"1057\":{\"text\":\"\u20AC\u00E9\"}}}}"}));
  EXPECT_EQ(seen, "\x80\xE9");
}

TEST(Forms, programsTextIsNotifiedAsAnEditsIs) {
  int edits = 0;
  runForm("tool PRNTRPT\npress 1199\n", [&edits](const FormEvent& event) {
    if (event.kind == FormEventKind::edit) ++edits;
    if (event.kind != FormEventKind::press) return;
    formSetText(event.form, IDC_TRADES_REPLY, "one");
    formSetText(event.form, IDC_TRADES_LOAD, "a button's text tells nothing");
  });
  EXPECT_EQ(edits, 1);
}

TEST(Forms, filterPutsThePreviousTextBack) {
  const auto behaviour = [](const FormEvent& event) {
    if (event.kind != FormEventKind::edit) return;
    if (formGetText(event.form, event.control, 100).size() > 3) formSetText(event.form, event.control, "abc");
  };
  EXPECT_EQ(effects("tool PRNTRPT\ntype 1057 abcdef", behaviour),
            (Lines{R"({"changed":{"form":"PRNTRPT","focus":1057,"controls":{"1057":{"text":"abc"}}}})"}));
}

TEST(Forms, textIsReadUpToItsLimit) {
  std::string whole, cut, none;
  runForm("tool PRNTRPT\ntype 1057 ABCDEFGH\npress 1199\n", onPress(IDC_TRADES_LOAD, [&](FormHandle form) {
            whole = formGetText(form, IDC_TRADES_LINES, 8);
            cut = formGetText(form, IDC_TRADES_LINES, 7);
            none = formGetText(form, 4242, 7);
          }));
  EXPECT_EQ(whole, "ABCDEFGH");
  EXPECT_EQ(cut, "ABCDEFG");
  EXPECT_EQ(none, "");
}

TEST(Forms, askingForAControlThatIsNotThereDoesNothing) {
  EXPECT_EQ(effects("tool PRNTRPT\npress 1199", onPress(IDC_TRADES_LOAD,
                                                        [](FormHandle form) {
                                                          formSetText(form, 4242, "x");
                                                          formSetChecked(form, 4242, true);
                                                          formSetEnabled(form, 4242, false);
                                                          formSetVisible(form, 4242, false);
                                                          formSetFocus(form, 4242);
                                                          const std::string items[] = {"x"};
                                                          formListFill(form, 4242, items);
                                                          formListFill(form, IDC_TRADES_LINES, items);
                                                          formListSelect(form, 4242, 0);
                                                          EXPECT_FALSE(formIsChecked(form, 4242));
                                                          EXPECT_EQ(formListCount(form, 4242), 0);
                                                          EXPECT_EQ(formListSelected(form, 4242), -1);
                                                          EXPECT_EQ(formListText(form, 4242, 0), "");
                                                        })),
            Lines());
}

TEST(Forms, handleOfAClosedFormDoesNothing) {
  FormHandle kept = nullptr;
  EXPECT_EQ(effects("tool PRNTRPT\ntool PRNTRPT\ntool PRNTNP\npress 1134",
                    [&kept](const FormEvent& event) {
                      if (event.kind == FormEventKind::start && !kept) kept = event.form;
                      if (event.kind == FormEventKind::press) {
                        formSetText(kept, IDC_TRADES_LINES, "x");
                        formSetTitle(kept, "x");
                        formShow(kept);
                        formRaise(kept);
                        formDestroy(kept);
                        EXPECT_EQ(formGetText(kept, IDC_TRADES_LINES, 9), "");
                      }
                      if (event.kind != FormEventKind::destroy) return;
                      EXPECT_EQ(formGetText(event.form, IDC_TRADES_LOAD, 9), "");
                    }),
            Lines());
  formDestroy(nullptr);
}

TEST(Forms, controlThatIsDisabledOrHiddenLosesTheFocus) {
  EXPECT_EQ(effects("tool PRNTRPT\npress 1199",
                    onPress(IDC_TRADES_LOAD, [](FormHandle form) { formSetEnabled(form, IDC_TRADES_LOAD, false); })),
            (Lines{R"({"changed":{"form":"PRNTRPT","focus":null,"controls":{"1199":{"enabled":false}}}})"}));
  EXPECT_EQ(effects("tool PRNTRPT\npress 1199",
                    onPress(IDC_TRADES_LOAD, [](FormHandle form) { formSetVisible(form, IDC_TRADES_LOAD, false); })),
            (Lines{R"({"changed":{"form":"PRNTRPT","focus":null,"controls":{"1199":{"visible":false}}}})"}));
  EXPECT_EQ(effects("tool PRNTRPT\npress 1199", onPress(IDC_TRADES_LOAD,
                                                        [](FormHandle form) {
                                                          formSetEnabled(form, IDC_TRADES_LOAD, false);
                                                          formSetFocus(form, IDC_TRADES_ODDLOT);
                                                          formSetFocus(form, IDC_TRADES_OUTFILE);  // hidden: it cannot have it
                                                        })),
            (Lines{R"({"changed":{"form":"PRNTRPT","focus":1028,"controls":{"1199":{"enabled":false}}}})"}));
}

TEST(Forms, focusIsFirstTabStopUnlessTheFormSetsIt) {
  const Lines opened = effects("tool PRNTRPT", [](const FormEvent& event) {
    if (event.kind == FormEventKind::start) formSetFocus(event.form, IDC_TRADES_LINES);
  });
  EXPECT_NE(opened[2].find(R"("focus":1057)"), std::string::npos);
}

TEST(Forms, formIsNotSeenBeforeItIsShown) {
  const Lines opened = effects("tool PRNTRPT", [](const FormEvent& event) {
    if (event.kind == FormEventKind::start) boxShow(event.form, nullptr, "x", BoxIcon::none);
  });
  ASSERT_EQ(opened.size(), 4u);
  EXPECT_EQ(opened[0], R"({"opened":"PRNTRPT"})");
  EXPECT_TRUE(opened[1].starts_with(R"({"box":)"));
  EXPECT_TRUE(opened[3].starts_with(R"({"changed":)"));
}

TEST(Forms, titleIsUtf8OrElseWindows1252) {
  const auto retitle = [](std::string title) {
    return onPress(IDC_TRADES_LOAD, [title](FormHandle form) { formSetTitle(form, title); });
  };
  const Lines wanted = {"{\"changed\":{\"form\":\"PRNTRPT\",\"title\":\"caf\u00E9\"}}"};
  EXPECT_EQ(effects("tool PRNTRPT\npress 1199", retitle("caf\u00E9")), wanted);
  EXPECT_EQ(effects("tool PRNTRPT\npress 1199", retitle("caf\xE9")), wanted);
}

static std::function<void(const FormEvent&)> listBehaviour(std::vector<std::string> items, int selected) {
  return onPress(IDC_NETPOS_LOAD, [items = std::move(items), selected](FormHandle form) {
    formListFill(form, IDC_NETPOS_CLIENT_LIST, items);
    formListSelect(form, IDC_NETPOS_CLIENT_LIST, selected);
    formSetEnabled(form, IDC_NETPOS_CLIENT_LIST, true);
    formSetVisible(form, IDC_NETPOS_CLIENT_LIST, true);
  });
}

TEST(Forms, listIsShownWithItsItemsAndTheSelectedOne) {
  EXPECT_EQ(
      effects("tool PRNTNP\npress 1134", listBehaviour({"ALL", "CLIENT1"}, 0)),
      (Lines{
          R"({"changed":{"form":"PRNTNP","controls":{"1139":{"enabled":true,"visible":true,"items":["ALL","CLIENT1"],"selected":"ALL"}}}})"}));
  EXPECT_EQ(effects("tool PRNTNP\npress 1134\npress 1134", listBehaviour({"ALL", "CLIENT1"}, 0)), Lines());
}

TEST(Forms, pickChoosesTheItemAndTellsTheForm) {
  EXPECT_EQ(effects("tool PRNTNP\npress 1134\npick 1139 CLIENT1", listBehaviour({"ALL", "CLIENT1"}, -1)),
            (Lines{R"({"changed":{"form":"PRNTNP","focus":1139,"controls":{"1139":{"selected":"CLIENT1"}}}})"}));
  int selected = -2;
  std::string text, asText;
  auto behaviour = listBehaviour({"ALL", "CLIENT1"}, -1);
  runForm("tool PRNTNP\npress 1134\npick 1139 CLIENT1\n", [&](const FormEvent& event) {
    behaviour(event);
    if (event.kind != FormEventKind::pick) return;
    EXPECT_EQ(event.control, IDC_NETPOS_CLIENT_LIST);
    selected = formListSelected(event.form, IDC_NETPOS_CLIENT_LIST);
    text = formListText(event.form, IDC_NETPOS_CLIENT_LIST, 0);
    asText = formGetText(event.form, IDC_NETPOS_CLIENT_LIST, 6);
  });
  EXPECT_EQ(selected, 1);
  EXPECT_EQ(text, "ALL");
  EXPECT_EQ(asText, "CLIENT");
}

TEST(Forms, itemThatIsNotThereIsRefused) {
  EXPECT_EQ(effects("tool PRNTNP\npress 1134\npick 1139 client1", listBehaviour({"ALL", "CLIENT1"}, -1)),
            (Lines{R"({"refused":"1139 has no item client1"})"}));
  EXPECT_EQ(effects("tool PRNTNP\npick 1139 ALL"), (Lines{R"({"refused":"1139 is hidden"})"}));
}

TEST(Forms, selectionBeyondTheItemsIsNone) {
  EXPECT_EQ(effects("tool PRNTNP\npress 1134", listBehaviour({"ALL"}, 1)),
            (Lines{R"({"changed":{"form":"PRNTNP","controls":{"1139":{"enabled":true,"visible":true,"items":["ALL"]}}}})"}));
}

TEST(Forms, refilledListLosesItsSelection) {
  auto fill = listBehaviour({"ALL", "CLIENT1"}, 1);
  const auto behaviour = [&fill](const FormEvent& event) {
    fill(event);
    if (event.kind == FormEventKind::press && event.control == IDC_NETPOS_CANCEL) {
      formListFill(event.form, IDC_NETPOS_CLIENT_LIST, {});
    }
  };
  EXPECT_EQ(effects("tool PRNTNP\npress 1134\npress 1148", behaviour),
            (Lines{R"({"changed":{"form":"PRNTNP","focus":1148,"controls":{"1139":{"items":[],"selected":null}}}})"}));
}

TEST(Forms, longListIsWrittenOnceAndComparedQuickly) {
  std::vector<std::string> items;
  for (int i = 0; i < 50'000; ++i) items.push_back("CLIENT" + std::to_string(i));
  std::string commands = "tool PRNTNP\npress 1134\n";
  for (int i = 0; i < 200; ++i) commands += "press 1148\npress 1142\n";
  const ScriptResult result = runForm(commands, listBehaviour(items, 0));
  const std::size_t first = result.transcript.find("\"CLIENT49999\"");
  ASSERT_NE(first, std::string::npos);
  EXPECT_EQ(result.transcript.find("\"CLIENT49999\"", first + 1), std::string::npos);
}

TEST(Forms, changesStandAheadOfABox) {
  EXPECT_EQ(
      effects("tool PRNTRPT\npress 1015", onPress(IDC_TRADES_PRINT,
                                                  [](FormHandle form) {
                                                    formSetText(form, IDC_TRADES_REPLY, "wait");
                                                    boxShow(form, "T", "one\ntwo", BoxIcon::exclamation);
                                                    formSetText(form, IDC_TRADES_REPLY, "");
                                                  })),
      (Lines{R"({"changed":{"form":"PRNTRPT","focus":1015,"controls":{"1027":{"text":"wait"}}}})",
             R"({"box":{"title":"T","text":"one\ntwo","icon":"exclamation","buttons":"ok","default":"ok","answer":"ok"}})",
             R"({"changed":{"form":"PRNTRPT","controls":{"1027":{"text":""}}}})"}));
}

TEST(Forms, changesOfAllFormsStandInTheOrderOfTheTools) {
  const auto behaviour = [](const FormEvent& event) {
    static FormHandle trades;
    if (event.kind == FormEventKind::start && formGetText(event.form, IDC_TRADES_LOAD, 50) == "&Load File") trades = event.form;
    if (event.kind == FormEventKind::press) {
      formSetTitle(event.form, "here");
      formSetTitle(trades, "there");
    }
  };
  EXPECT_EQ(effects("tool PRNTNP\ntool PRNTRPT\nform PRNTNP\npress 1134", behaviour),
            (Lines{R"({"changed":{"form":"PRNTRPT","title":"there"}})", R"({"changed":{"form":"PRNTNP","title":"here"}})"}));
}

TEST(Forms, openingAFormTurnsToItAndClosingTurnsBack) {
  EXPECT_EQ(effects("tool PRNTRPT\ntool PRNTNP\npress 1199"), (Lines{R"({"refused":"1199 is not on the form"})"}));
  EXPECT_EQ(effects("tool PRNTRPT\ntool PRNTNP\nform PRNTRPT\npress 1199"), Lines());
  EXPECT_EQ(effects("tool PRNTRPT\ntool PRNTNP\ntool PRNTNP\npress 1199"), Lines());
}

TEST(Forms, showWritesTheWholeFormAgain) {
  const Lines opened = effects("tool PRNTRPT"), shown = effects("tool PRNTRPT\nshow");
  ASSERT_EQ(opened.size(), 3u);
  EXPECT_EQ(shown, (Lines{opened[2]}));
}

TEST(Boxes, iconsAndChoicesAreNamed) {
  static constexpr BoxIcon icons[] = {BoxIcon::none, BoxIcon::information, BoxIcon::exclamation, BoxIcon::error,
                                      BoxIcon::question};
  static constexpr const char* names[] = {"none", "information", "exclamation", "error", "question"};
  for (std::size_t i = 0; i < std::size(icons); ++i) {
    const Lines lines = effects("tool PRNTRPT\npress 1199",
                                onPress(IDC_TRADES_LOAD, [&](FormHandle form) { boxShow(form, nullptr, "x", icons[i]); }));
    EXPECT_EQ(lines, (Lines{std::string(R"({"box":{"title":null,"text":"x","icon":")") + names[i] +
                            R"(","buttons":"ok","default":"ok","answer":"ok"}})"}));
  }
}

TEST(Boxes, choiceTakesTheNextAnswerOrItsDefault) {
  std::string answers;
  const auto behaviour = onPress(IDC_TRADES_LOAD, [&answers](FormHandle form) {
    boxShow(form, "t", "takes nothing from the queue", BoxIcon::none);
    for (BoxChoice standard : {BoxChoice::yes, BoxChoice::no, BoxChoice::yes, BoxChoice::no}) {
      answers += boxAsk(form, "t", "q", BoxIcon::question, standard) == BoxChoice::yes ? 'y' : 'n';
    }
  });
  const Lines lines = effects("tool PRNTRPT\nanswer no\nanswer yes\npress 1199", behaviour);
  EXPECT_EQ(answers, "nyyn");
  ASSERT_EQ(lines.size(), 5u);
  EXPECT_EQ(lines[1], R"({"box":{"title":"t","text":"q","icon":"question","buttons":"yesno","default":"yes","answer":"no"}})");
  EXPECT_EQ(lines[4], R"({"box":{"title":"t","text":"q","icon":"question","buttons":"yesno","default":"no","answer":"no"}})");
}

class OpenDialogs : public InFreshFolder {
 protected:
  // What the dialog gave, and the line about it.
  std::string ask(const std::string& commands, std::string& line, const std::string& name = {}) {
    std::optional<std::string> path;
    const Lines lines =
        effects("tool PRNTRPT\n" + commands + "press 1199", onPress(IDC_TRADES_LOAD, [&path, &name](FormHandle form) {
                  const FileMask masks[] = {{"A (*.a)", "*.a"}, {"B", "*.b"}};
                  path = openDialogAsk({form, "LOAD", openDialogCurrentFolder() + "\\export", masks, 1, name});
                }));
    line = lines.empty() ? "" : lines.back();
    return path.value_or("(cancelled)");
  }

  void SetUp() override {
    InFreshFolder::SetUp();
    std::filesystem::create_directories("export");
    std::ofstream("export/Tr010109.b01") << "x";
  }

  // clang-format off
  const std::string head =
      R"-({"files":{"title":"LOAD","folder":"export","masks":[["A (*.a)","*.a"],["B","*.b"]],"selected":1,"answer":)-";
  // clang-format on
};

TEST_F(OpenDialogs, chosenFileIsGivenAsItWasSpelled) {
  std::string line;
  EXPECT_EQ(ask("choose export/TR010109.B01\n", line), (folder / "export/TR010109.B01").string());
  EXPECT_EQ(line, head + R"("TR010109.B01"}})");
  EXPECT_EQ(ask("choose EXPORT\\tr010109.b01\n", line), (folder / "EXPORT/tr010109.b01").string());
  EXPECT_EQ(line, head + R"("tr010109.b01"}})");
}

TEST_F(OpenDialogs, cancelAndAnEmptyQueueGiveNothing) {
  std::string line;
  EXPECT_EQ(ask("choose\n", line), "(cancelled)");
  EXPECT_EQ(line, head + "null}}");
  EXPECT_EQ(ask("", line), "(cancelled)");
  EXPECT_EQ(line, head + "null}}");
}

TEST_F(OpenDialogs, fileThatIsNotThereCountsAsCancel) {
  std::string line;
  EXPECT_EQ(ask("choose export/none\n", line), "(cancelled)");
  EXPECT_EQ(line, head + "null}}");
  EXPECT_EQ(ask("choose export\n", line), "(cancelled)") << "a folder is no file";
}

TEST_F(OpenDialogs, fileToBeginWithIsNamedWithoutItsFolder) {
  std::string line;
  const std::string begun = R"-("selected":1,"name":"TR020109.B01","answer":)-";
  EXPECT_EQ(ask("", line, (folder / "export/TR020109.B01").string()), "(cancelled)") << "what it begins with is no answer";
  EXPECT_TRUE(line.ends_with(begun + "null}}")) << line;
  EXPECT_EQ(ask("choose export/Tr010109.b01\n", line, "C:\\export\\TR020109.B01"), (folder / "export/Tr010109.b01").string());
  EXPECT_TRUE(line.ends_with(begun + R"("Tr010109.b01"}})")) << line;
}

TEST_F(OpenDialogs, answersAreTakenInTheirOrder) {
  std::string line;
  EXPECT_EQ(ask("choose\nchoose export/Tr010109.b01\npress 1199\n", line), (folder / "export/Tr010109.b01").string());
}

TEST_F(OpenDialogs, fullPathHasAtMost299Characters) {
  const std::string sub = std::string(60, 'd') + "/";
  std::filesystem::create_directories(sub);
  const std::size_t room = (folder / sub).string().size();
  ASSERT_LT(room, 298u) << "the build folder's own path leaves no room for this test";
  ASSERT_GT(room, 299u - 250u);
  for (const std::size_t size : {298u, 299u, 300u}) {
    const std::string name = sub + std::string(size - room, 'f');
    std::ofstream(name) << "x";
    std::string line;
    const std::string wanted = size <= 299 ? (folder / name).string() : "(cancelled)";
    EXPECT_EQ(ask("choose " + name + "\n", line), wanted) << size;
  }
}

}  // namespace quillon::test
