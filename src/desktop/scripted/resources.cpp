#include "desktop/scripted/resources.h"

#include <cstddef>

#include "text/encoding.h"
#include "text/letters.h"

extern "C" const std::uint8_t quillonResourcesStart[];
extern "C" const std::uint8_t quillonResourcesEnd[];

namespace quillon {

static constexpr std::uint16_t typeDialog = 5, typeString = 6, typeAccelerator = 9;

static constexpr std::uint32_t styleVisible = 0x10000000, styleDisabled = 0x08000000, styleGroup = 0x00020000,
                               styleTabStop = 0x00010000, styleSystemMenu = 0x00080000;
static constexpr std::uint32_t dialogSetFont = 0x40;
static constexpr std::uint32_t editMultiLine = 0x4, editReadOnly = 0x800, editNumber = 0x2000;
static constexpr std::uint32_t buttonTypes = 0xF, buttonStandard = 0x1;
static constexpr std::uint16_t atomMark = 0xFFFF;  // a number follows in place of a text

namespace {

// Reads forward. Past the end it gives zeros and `ok` is false from then on.
struct Reader {
  ResourceBytes bytes;
  std::size_t at = 0;
  bool ok = true;
};

// A type, a name, a window class or a caption: a text or a number.
struct NameOrNumber {
  bool isNumber;
  std::uint16_t number;
  std::string text;
};

}  // namespace

static void skip(Reader& reader, std::size_t size) {
  if (size > reader.bytes.size() - reader.at) {
    reader.ok = false;
    reader.at = reader.bytes.size();
  } else {
    reader.at += size;
  }
}

static std::uint16_t takeU16(Reader& reader) {
  const std::size_t at = reader.at;
  skip(reader, 2);
  return reader.ok ? static_cast<std::uint16_t>(reader.bytes[at] | reader.bytes[at + 1] << 8) : 0;
}

static std::uint32_t takeU32(Reader& reader) {
  const std::uint32_t low = takeU16(reader);
  return low | static_cast<std::uint32_t>(takeU16(reader)) << 16;
}

static void alignTo4(Reader& reader) {
  if (reader.at % 4 != 0) skip(reader, 4 - reader.at % 4);
}

static std::string takeText(Reader& reader) {
  std::string text;
  while (const std::uint16_t unit = takeU16(reader)) text += byteFromUnicode(unit);
  return text;
}

static NameOrNumber takeNameOrNumber(Reader& reader) {
  const std::size_t at = reader.at;
  if (takeU16(reader) == atomMark) return {true, takeU16(reader), {}};
  if (reader.ok) reader.at = at;
  return {false, 0, takeText(reader)};
}

static bool sameName(std::string_view name, std::string_view other) { return upperCased(name) == upperCased(other); }

static bool isNamed(const NameOrNumber& found, std::string_view name) {
  return found.isNumber ? sameName("#" + std::to_string(found.number), name) : sameName(found.text, name);
}

// The data of the first resource of this type and name; empty where there is none.
static ResourceBytes findResource(ResourceBytes bytes, std::uint16_t type, std::string_view name) {
  Reader reader = {bytes};
  while (reader.ok && reader.at < bytes.size()) {
    const std::size_t start = reader.at;
    const std::uint32_t dataSize = takeU32(reader);
    const std::uint32_t headerSize = takeU32(reader);
    const NameOrNumber foundType = takeNameOrNumber(reader);
    const NameOrNumber foundName = takeNameOrNumber(reader);
    // A header is at least its two sizes, its two names and its 16 closing bytes: smaller ones would not get us further.
    if (!reader.ok || headerSize < 32) break;
    reader.at = start;
    skip(reader, headerSize);
    const std::size_t data = reader.at;
    skip(reader, dataSize);
    if (!reader.ok) break;
    if (foundType.isNumber && foundType.number == type && isNamed(foundName, name)) return bytes.subspan(data, dataSize);
    alignTo4(reader);
  }
  return {};
}

static ControlKind buttonKind(std::uint32_t style, bool& automatic) {
  switch (style & buttonTypes) {
    case 0x3:  // auto check box
    case 0x6:  // auto three-state
      automatic = true;
      return ControlKind::checkBox;
    case 0x2:
    case 0x5:
      return ControlKind::checkBox;
    case 0x9:
      automatic = true;
      return ControlKind::radioButton;
    case 0x4:
      return ControlKind::radioButton;
    case 0x7:
      return ControlKind::groupBox;
    default:
      return ControlKind::pushButton;
  }
}

static ControlKind kindOf(const NameOrNumber& windowClass, std::uint32_t style, bool& automatic) {
  const auto is = [&windowClass](std::uint16_t atom, std::string_view name) {
    return windowClass.isNumber ? windowClass.number == atom : sameName(windowClass.text, name);
  };
  if (is(0x80, "BUTTON")) return buttonKind(style, automatic);
  if (is(0x81, "EDIT")) return ControlKind::edit;
  if (is(0x82, "STATIC")) return ControlKind::label;
  if (is(0x83, "LISTBOX") || is(0x85, "COMBOBOX")) return ControlKind::list;
  return ControlKind::other;
}

static ControlTemplate takeControl(Reader& reader, bool extended) {
  alignTo4(reader);
  std::uint32_t style;
  if (extended) {
    skip(reader, 8);  // help id, extended style
    style = takeU32(reader);
  } else {
    style = takeU32(reader);
    skip(reader, 4);
  }
  skip(reader, 8);  // place and size
  // An id of -1 stands for none; the extended form has it in 32 bits, or in the lower 16 of them.
  const std::uint32_t id = extended ? takeU32(reader) : takeU16(reader);
  const NameOrNumber windowClass = takeNameOrNumber(reader);
  const NameOrNumber caption = takeNameOrNumber(reader);
  skip(reader, takeU16(reader));  // creation data

  ControlTemplate control = {};
  control.id = id >= 0xFFFF ? -1 : static_cast<int>(id);
  control.kind = kindOf(windowClass, style, control.automatic);
  control.readOnly = control.kind == ControlKind::edit && (style & editReadOnly);
  control.multiLine = control.kind == ControlKind::edit && (style & editMultiLine);
  control.digitsOnly = control.kind == ControlKind::edit && (style & editNumber);
  control.standard = control.kind == ControlKind::pushButton && (style & buttonTypes) == buttonStandard;
  control.visible = style & styleVisible;
  control.enabled = !(style & styleDisabled);
  control.group = style & styleGroup;
  control.tabStop = style & styleTabStop;
  control.text = caption.text;
  return control;
}

std::optional<DialogTemplate> resourceDialog(ResourceBytes bytes, std::string_view name) {
  Reader reader = {findResource(bytes, typeDialog, name)};
  if (reader.bytes.empty()) return std::nullopt;

  std::uint32_t style = takeU32(reader);
  const bool extended = style == 0xFFFF0001;
  if (extended) {
    skip(reader, 8);  // help id, extended style
    style = takeU32(reader);
  } else {
    skip(reader, 4);
  }
  const std::size_t count = takeU16(reader);
  skip(reader, 8);                 // place and size
  (void)takeNameOrNumber(reader);  // menu
  (void)takeNameOrNumber(reader);  // window class
  DialogTemplate dialog = {};
  dialog.title = takeText(reader);
  dialog.closeable = style & styleSystemMenu;
  if (style & dialogSetFont) {
    skip(reader, extended ? 6 : 2);  // point size; weight, italic and character set
    (void)takeText(reader);          // typeface
  }
  for (std::size_t i = 0; i < count && reader.ok; ++i) dialog.controls.push_back(takeControl(reader, extended));
  if (!reader.ok) return std::nullopt;
  return dialog;
}

std::vector<AcceleratorKey> resourceAccelerators(ResourceBytes bytes, std::string_view name) {
  static constexpr unsigned virtualKey = 0x01, shift = 0x04, control = 0x08, alt = 0x10;
  std::vector<AcceleratorKey> keys;
  Reader reader = {findResource(bytes, typeAccelerator, name)};
  while (reader.bytes.size() - reader.at >= 8) {
    const unsigned flags = takeU16(reader);
    const int key = takeU16(reader);
    const int command = takeU16(reader);
    skip(reader, 2);
    keys.push_back({(flags & virtualKey) != 0, (flags & shift) != 0, (flags & control) != 0, (flags & alt) != 0, key, command});
  }
  return keys;
}

// Strings stand in blocks of 16, each with its length before it; a length of 0 is no string.
std::optional<std::string> resourceString(ResourceBytes bytes, int id) {
  if (id < 0 || id > 0xFFFF) return std::nullopt;
  Reader reader = {findResource(bytes, typeString, "#" + std::to_string(id / 16 + 1))};
  for (int i = 0; i < id % 16; ++i) skip(reader, std::size_t{2} * takeU16(reader));
  const std::size_t length = takeU16(reader);
  std::string text;
  for (std::size_t i = 0; i < length && reader.ok; ++i) text += byteFromUnicode(takeU16(reader));
  if (!reader.ok || text.empty()) return std::nullopt;
  return text;
}

ResourceBytes resourceBytes() { return {quillonResourcesStart, quillonResourcesEnd}; }

}  // namespace quillon
