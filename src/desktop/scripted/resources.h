// The compiled resources (a .res file), from which the Windows program makes its forms: the scripted desktop makes them from
// the same bytes.
//
// Every function takes the bytes, so that a test can hand in its own. Nothing is trusted: what is cut short, or has a length
// that leads out of the bytes, gives the empty answer. Texts come out as Windows-1252.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace quillon {

using ResourceBytes = std::span<const std::uint8_t>;

ResourceBytes resourceBytes();  // the program's own

enum class ControlKind { pushButton, radioButton, checkBox, groupBox, label, edit, list, other };

struct ControlTemplate {
  int id;  // -1: it has none
  ControlKind kind;
  bool automatic;   // a radio button or check box that changes its state by itself when pressed
  bool readOnly;    // of an edit
  bool multiLine;   // of an edit
  bool digitsOnly;  // of an edit
  bool standard;    // a push button that Enter presses, unless another one has the focus
  bool visible;
  bool enabled;
  bool group;  // begins a group, which reaches to the next control that begins one
  bool tabStop;
  std::string text;
};

struct DialogTemplate {
  std::string title;
  bool closeable;                         // it has a system menu, and with it the title bar's close button
  std::vector<ControlTemplate> controls;  // in tab order
};

struct AcceleratorKey {
  bool virtualKey;  // `key` is a virtual key code, otherwise a character
  bool shift, control, alt;
  int key;
  int command;
};

// A name is taken without regard to case; "#12" is the resource with the number 12.
std::optional<DialogTemplate> resourceDialog(ResourceBytes bytes, std::string_view name);
std::vector<AcceleratorKey> resourceAccelerators(ResourceBytes bytes, std::string_view name);
std::optional<std::string> resourceString(ResourceBytes bytes, int id);

}  // namespace quillon
