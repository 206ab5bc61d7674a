// The reader of compiled resources, on bytes written here field by field and on the program's own.
#include "desktop/scripted/resources.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "frame/tools.h"

namespace quillon {

using Bytes = std::vector<std::uint8_t>;

static void u16(Bytes& bytes, unsigned value) {
  bytes.push_back(value & 0xFF);
  bytes.push_back(value >> 8 & 0xFF);
}

static void u32(Bytes& bytes, std::uint32_t value) {
  u16(bytes, value & 0xFFFF);
  u16(bytes, value >> 16);
}

static void text(Bytes& bytes, std::u16string_view units) {
  for (char16_t unit : units) u16(bytes, unit);
  u16(bytes, 0);
}

static void number(Bytes& bytes, unsigned value) {
  u16(bytes, 0xFFFF);
  u16(bytes, value);
}

static void align(Bytes& bytes) {
  while (bytes.size() % 4 != 0) bytes.push_back(0);
}

// One entry of a .res file: its name is a text, or a number where the text is empty.
static void entry(Bytes& file, unsigned type, std::u16string_view name, unsigned nameNumber, const Bytes& data) {
  Bytes names;
  number(names, type);
  if (name.empty()) {
    number(names, nameNumber);
  } else {
    text(names, name);
  }
  align(names);
  align(file);
  u32(file, static_cast<std::uint32_t>(data.size()));
  u32(file, static_cast<std::uint32_t>(8 + names.size() + 16));
  file.insert(file.end(), names.begin(), names.end());
  for (int i = 0; i < 4; ++i) u32(file, 0);  // versions, flags, language, characteristics
  file.insert(file.end(), data.begin(), data.end());
  align(file);
}

static Bytes emptyFile() {
  Bytes file;
  entry(file, 0, u"", 0, {});  // every .res file begins with an empty entry
  return file;
}

static void oldControl(Bytes& dialog, std::uint32_t style, unsigned id, unsigned atom, std::u16string_view caption) {
  align(dialog);
  u32(dialog, style);
  u32(dialog, 0);
  for (int i = 0; i < 4; ++i) u16(dialog, 0);
  u16(dialog, id);
  number(dialog, atom);
  text(dialog, caption);
  u16(dialog, 0);
}

static constexpr std::uint32_t visible = 0x10000000, disabled = 0x08000000, group = 0x00020000, tabStop = 0x00010000;

static Bytes oldDialog() {
  Bytes dialog;
  u32(dialog, 0x00080040);  // a system menu, a font
  u32(dialog, 0);
  u16(dialog, 5);
  for (int i = 0; i < 4; ++i) u16(dialog, 0);
  u16(dialog, 0);          // no menu
  number(dialog, 0x8002);  // a window class by number
  text(dialog, u"OLD FORM");
  u16(dialog, 8);
  text(dialog, u"MS Shell Dlg");
  oldControl(dialog, visible | tabStop | 0x1, 100, 0x80, u"&Go");
  oldControl(dialog, visible | disabled | 0x800, 101, 0x81, u"\u20AC5");
  oldControl(dialog, group, 0xFFFF, 0x82, u"Label");
  oldControl(dialog, visible | 0x2001, 102, 0x81, u"7");
  oldControl(dialog, visible | 0x2000, 103, 0x80, u"Stop");
  return dialog;
}

static Bytes extendedDialog() {
  Bytes dialog;
  u16(dialog, 1);
  u16(dialog, 0xFFFF);
  u32(dialog, 77);  // help id
  u32(dialog, 0);
  u32(dialog, 0x48);
  u16(dialog, 2);
  for (int i = 0; i < 4; ++i) u16(dialog, 0);
  number(dialog, 12);  // a menu by number
  u16(dialog, 0);
  text(dialog, u"NEW FORM");
  u16(dialog, 8);
  u16(dialog, 400);
  u16(dialog, 0);
  text(dialog, u"MS Shell Dlg");
  for (int i = 0; i < 2; ++i) {
    align(dialog);
    u32(dialog, 0);
    u32(dialog, 0);
    u32(dialog, visible | (i == 0 ? 0x3 : 0x9));
    for (int j = 0; j < 4; ++j) u16(dialog, 0);
    u32(dialog, i == 0 ? 200 : 0xFFFFFFFF);
    text(dialog, u"Button");
    if (i == 0) {
      number(dialog, 5);  // a picture in place of a caption
    } else {
      text(dialog, u"One");
    }
    u16(dialog, i == 0 ? 4 : 0);  // creation data
    if (i == 0) u32(dialog, 0xDEADBEEF);
  }
  return dialog;
}

static Bytes wholeFile() {
  Bytes file = emptyFile();
  entry(file, 5, u"OLDFORM", 0, oldDialog());
  entry(file, 5, u"NEWFORM", 0, extendedDialog());
  entry(file, 5, u"", 12, oldDialog());
  Bytes strings;
  for (unsigned i = 0; i < 16; ++i) {
    if (i == 3) {
      u16(strings, 2);
      u16(strings, 'h');
      u16(strings, 'i');
    } else {
      u16(strings, 0);
    }
  }
  entry(file, 6, u"", 5, strings);  // strings 64 to 79
  Bytes keys;
  u16(keys, 0x01);
  u16(keys, 0x70);
  u16(keys, 20006);
  u16(keys, 0);
  u16(keys, 0x89);
  u16(keys, 0x71);
  u16(keys, 7020);
  u16(keys, 0);
  entry(file, 9, u"KEYS", 0, keys);
  return file;
}

TEST(Resources, dialogOfTheOldFormIsRead) {
  const std::optional<DialogTemplate> dialog = resourceDialog(wholeFile(), "OLDFORM");
  ASSERT_TRUE(dialog);
  EXPECT_EQ(dialog->title, "OLD FORM");
  EXPECT_TRUE(dialog->closeable);
  ASSERT_EQ(dialog->controls.size(), 5u);

  const ControlTemplate& button = dialog->controls[0];
  EXPECT_EQ(button.id, 100);
  EXPECT_EQ(button.kind, ControlKind::pushButton);
  EXPECT_EQ(button.text, "&Go");
  EXPECT_TRUE(button.visible && button.enabled && button.tabStop);
  EXPECT_FALSE(button.group);
  EXPECT_TRUE(button.standard);

  const ControlTemplate& edit = dialog->controls[1];
  EXPECT_EQ(edit.kind, ControlKind::edit);
  EXPECT_EQ(edit.text,
            "\x80"
            "5");
  EXPECT_TRUE(edit.readOnly);
  EXPECT_FALSE(edit.multiLine);
  EXPECT_FALSE(edit.enabled);
  EXPECT_FALSE(edit.digitsOnly);

  const ControlTemplate& label = dialog->controls[2];
  EXPECT_EQ(label.id, -1);
  EXPECT_EQ(label.kind, ControlKind::label);
  EXPECT_TRUE(label.group);
  EXPECT_FALSE(label.visible);

  // The bits of one kind of control mean something else on another.
  EXPECT_TRUE(dialog->controls[3].digitsOnly);
  EXPECT_FALSE(dialog->controls[3].standard);
  EXPECT_EQ(dialog->controls[4].kind, ControlKind::pushButton);
  EXPECT_FALSE(dialog->controls[4].digitsOnly || dialog->controls[4].standard);
}

TEST(Resources, dialogOfTheExtendedFormIsRead) {
  const std::optional<DialogTemplate> dialog = resourceDialog(wholeFile(), "NEWFORM");
  ASSERT_TRUE(dialog);
  EXPECT_EQ(dialog->title, "NEW FORM");
  EXPECT_FALSE(dialog->closeable);
  ASSERT_EQ(dialog->controls.size(), 2u);
  EXPECT_EQ(dialog->controls[0].id, 200);
  EXPECT_EQ(dialog->controls[0].kind, ControlKind::checkBox);
  EXPECT_TRUE(dialog->controls[0].automatic);
  EXPECT_EQ(dialog->controls[0].text, "");
  EXPECT_EQ(dialog->controls[1].id, -1);
  EXPECT_EQ(dialog->controls[1].kind, ControlKind::radioButton);
  EXPECT_EQ(dialog->controls[1].text, "One");
}

TEST(Resources, namesAreFoundInAnyCaseAndByNumber) {
  EXPECT_TRUE(resourceDialog(wholeFile(), "newForm"));
  EXPECT_TRUE(resourceDialog(wholeFile(), "#12"));
  EXPECT_FALSE(resourceDialog(wholeFile(), "#13"));
  EXPECT_FALSE(resourceDialog(wholeFile(), "KEYS"));  // that name is one of another type
}

TEST(Resources, stringIsFoundInItsBlock) {
  EXPECT_EQ(resourceString(wholeFile(), 67), "hi");
  EXPECT_EQ(resourceString(wholeFile(), 66), std::nullopt);
  EXPECT_EQ(resourceString(wholeFile(), 3), std::nullopt);
  EXPECT_EQ(resourceString(wholeFile(), -1), std::nullopt);
  EXPECT_EQ(resourceString(wholeFile(), 70000), std::nullopt);
}

TEST(Resources, keysAreReadWithTheirModifiers) {
  const std::vector<AcceleratorKey> keys = resourceAccelerators(wholeFile(), "KEYS");
  ASSERT_EQ(keys.size(), 2u);
  EXPECT_TRUE(keys[0].virtualKey);
  EXPECT_FALSE(keys[0].control || keys[0].shift || keys[0].alt);
  EXPECT_EQ(keys[0].key, 0x70);
  EXPECT_EQ(keys[0].command, 20006);
  EXPECT_TRUE(keys[1].control);
  EXPECT_FALSE(keys[1].shift || keys[1].alt);
  EXPECT_EQ(keys[1].command, 7020);
}

// Every button style that a resource can have, and what the desktop makes of it.
TEST(Resources, buttonStylesGiveTheirKinds) {
  static constexpr ControlKind push = ControlKind::pushButton, radio = ControlKind::radioButton, check = ControlKind::checkBox,
                               box = ControlKind::groupBox;
  struct Row {
    unsigned style;
    ControlKind kind;
    bool automatic;
  };
  static constexpr Row rows[] = {{0, push, false},  {1, push, false}, {2, check, false}, {3, check, true}, {4, radio, false},
                                 {5, check, false}, {6, check, true}, {7, box, false},   {9, radio, true}, {11, push, false}};
  for (const Row& row : rows) {
    Bytes dialog, file = emptyFile();
    u32(dialog, 0);
    u32(dialog, 0);
    u16(dialog, 1);
    for (int i = 0; i < 4; ++i) u16(dialog, 0);
    u16(dialog, 0);
    u16(dialog, 0);
    text(dialog, u"F");
    oldControl(dialog, row.style, 5, 0x80, u"x");
    entry(file, 5, u"F", 0, dialog);
    const std::optional<DialogTemplate> made = resourceDialog(file, "F");
    ASSERT_TRUE(made) << row.style;
    EXPECT_EQ(made->controls[0].kind, row.kind) << row.style;
    EXPECT_EQ(made->controls[0].automatic, row.automatic) << row.style;
  }
}

// Every length at which a file can be cut, in memory of exactly that length, so that the sanitizer sees a step too far.
TEST(Resources, fileCutAnywhereIsReadWithoutHarm) {
  const Bytes file = wholeFile();
  for (std::size_t size = 0; size < file.size(); ++size) {
    const Bytes cut(file.begin(), file.begin() + static_cast<std::ptrdiff_t>(size));
    (void)resourceDialog(cut, "OLDFORM");
    (void)resourceDialog(cut, "NEWFORM");
    (void)resourceString(cut, 67);
    EXPECT_TRUE(resourceAccelerators(cut, "KEYS").empty()) << "its keys are the last entry, and cut at " << size;
  }
}

TEST(Resources, dialogCutShortInsideItsEntryIsNone) {
  const Bytes dialog = oldDialog();
  for (std::size_t size = 0; size < dialog.size(); size += 2) {
    Bytes file = emptyFile();
    entry(file, 5, u"F", 0, Bytes(dialog.begin(), dialog.begin() + static_cast<std::ptrdiff_t>(size)));
    EXPECT_FALSE(resourceDialog(file, "F")) << size;
  }
}

TEST(Resources, everyByteTurnedIsReadWithoutHarm) {
  const Bytes file = wholeFile();
  for (std::size_t i = 0; i < file.size(); ++i) {
    Bytes turned = file;
    turned[i] ^= 0xFF;
    (void)resourceDialog(turned, "OLDFORM");
    (void)resourceDialog(turned, "NEWFORM");
    (void)resourceString(turned, 67);
    (void)resourceAccelerators(turned, "KEYS");
  }
  SUCCEED();
}

TEST(ProgramResources, keysAreThoseOfTheTools) {
  struct Row {
    int tool, key;
    bool control, shift;
  };
  // F1 is 0x70. Order log and the delivery statement have no key.
  static constexpr Row rows[] = {
      {20006, 0x70, false, false}, {20007, 0x71, false, false}, {7020, 0x71, true, false},   {20008, 0x72, false, false},
      {20009, 0x73, false, false}, {20010, 0x74, false, false}, {20011, 0x75, false, false}, {20012, 0x76, false, false},
      {20013, 0x77, false, false}, {20014, 0x78, false, false}, {20015, 0x79, false, false}, {20016, 0x7A, false, false},
      {20018, 0x7B, false, true},  {40037, 0x70, true, false},
  };
  const std::vector<AcceleratorKey> keys = resourceAccelerators(resourceBytes(), "QUILLONACC");
  EXPECT_EQ(keys.size(), std::size(rows));
  for (const Row& row : rows) {
    const auto found =
        std::find_if(keys.begin(), keys.end(), [&row](const AcceleratorKey& key) { return key.command == row.tool; });
    ASSERT_NE(found, keys.end()) << row.tool;
    EXPECT_EQ(found->key, row.key) << row.tool;
    EXPECT_EQ(found->control, row.control) << row.tool;
    EXPECT_EQ(found->shift, row.shift) << row.tool;
    EXPECT_TRUE(found->virtualKey && !found->alt) << row.tool;
  }
}

TEST(ProgramResources, noFormHasTwoControlsWithOneId) {
  int forms = 0;
  for (const ToolButton& tool : toolTable) {
    const std::optional<DialogTemplate> dialog = resourceDialog(resourceBytes(), tool.form);
    if (!dialog) continue;
    ++forms;
    for (const ControlTemplate& control : dialog->controls) {
      if (control.id < 0) continue;
      EXPECT_EQ(std::count_if(dialog->controls.begin(), dialog->controls.end(),
                              [&control](const ControlTemplate& other) { return other.id == control.id; }),
                1)
          << tool.form << " " << control.id;
    }
  }
  EXPECT_GE(forms, 6);
}

TEST(ProgramResources, everyFormCanBeClosedByItsTitleBar) {
  for (const ToolButton& tool : toolTable) {
    const std::optional<DialogTemplate> dialog = resourceDialog(resourceBytes(), tool.form);
    if (!dialog) continue;
    EXPECT_TRUE(dialog->closeable) << tool.form;
  }
}

// Titles that a form replaces as it starts, and labels without an id: a transcript shows neither.
TEST(ProgramResources, titlesAndLabelsThatNoTranscriptShows) {
  struct Row {
    const char* form;
    const char* title;
    std::vector<std::string> labels;
  };
  const Row rows[] = {
      {"PRNTRPT", "TRADES PRINTING", {"Sort By", "Print To", "Lines per page", "Reply"}},
      {"PRNTNP", "NET POSITION PRINTING", {"Report", "Print To", "LinesPerPage", "Reply"}},
      {"PRNTNPRET", "Position Printing - SLB", {"Report", "Print To", "LinesPerPage", "Reply :"}},
      {"PRNTBRKREP", "Print Broker Report", {"Sort By", "Print To", "Lines per page", "Reply"}},
      {"PRNTTLINE", "Touchlines Printing ", {"Sort By ", "Select File Type", "Print to", "Lines Per Page", "Reply :"}},
      {"PRNTTRDLM", "Trader Limits Printing", {"Select File Type", "Print To", "Lines Per Page", "Reply :"}},
  };
  for (const Row& row : rows) {
    const std::optional<DialogTemplate> dialog = resourceDialog(resourceBytes(), row.form);
    ASSERT_TRUE(dialog) << row.form;
    EXPECT_EQ(dialog->title, row.title);
    std::vector<std::string> labels;
    for (const ControlTemplate& control : dialog->controls) {
      if (control.id < 0) labels.push_back(control.text);
    }
    EXPECT_EQ(labels, row.labels) << row.form;
  }
}

}  // namespace quillon
