// Forms: the modeless dialogs of the program, as far as report code needs to know them.
//
// A form is made from its dialog resource, and a control is told by its numeric id (resources/resource.h). Asking for a
// control that the form does not have does nothing and gives the empty answer. Texts are bytes of Windows-1252, since they
// come out of the workstation's files; a form's title is UTF-8, since it shows a file's name.
//
// The desktop keeps a radio group (from one WS_GROUP control to the next) to one checked button when the user presses one.
// The program's own formSetChecked touches the named button alone.
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

namespace quillon {

struct FormWindow;
using FormHandle = FormWindow*;  // null: the form is closed

enum class FormEventKind {
  start,     // the form was made and is not shown yet; the handler sets it to its defaults
  press,     // a button, radio button or check box was clicked; its check state has already changed
  edit,      // the text of an edit was changed, by the user or by formSetText
  pick,      // the user chose another item of a list
  activate,  // the form was clicked into
  close,     // the user asked to close it by its title bar; nothing is closed yet
  destroy,   // it is going; its controls can no longer be reached
};

struct FormEvent {
  FormHandle form;
  FormEventKind kind;
  int control;  // for press, edit and pick; 0 otherwise
};

// Runs to its end inside the desktop's message handling; may be called again from within itself, as when a handler sets an
// edit's text.
using FormHandler = void (*)(const FormEvent&);

// Makes the form from the dialog resource of this name, not shown yet, and sends `start`. Null when it cannot be made: there
// is no such resource, or the desktop refuses; nothing is left behind.
FormHandle formCreate(const char* resource, FormHandler handler);
// Sends `destroy`, then takes the form off the desktop. A null handle is left alone.
void formDestroy(FormHandle form);
void formShow(FormHandle form);   // shows it on top of the others
void formRaise(FormHandle form);  // brings it to the top and gives it the focus

void formSetTitle(FormHandle form, std::string_view utf8);
void formSetText(FormHandle form, int control, std::string_view text);
// At most `limit` characters of the control's text.
std::string formGetText(FormHandle form, int control, std::size_t limit);

void formSetChecked(FormHandle form, int control, bool checked);
bool formIsChecked(FormHandle form, int control);
void formSetEnabled(FormHandle form, int control, bool enabled);
void formSetVisible(FormHandle form, int control, bool visible);
void formSetFocus(FormHandle form, int control);
// The Close entry of the form's own system menu, and with it the title bar's close button.
void formSetCloseEnabled(FormHandle form, bool enabled);

// Drop-down lists. Items stand in the order given; no list sorts itself. Stays quick at 100,000 items.
void formListFill(FormHandle form, int control, std::span<const std::string> items);  // in place of what was there
void formListSelect(FormHandle form, int control, int index);                         // -1: none
int formListCount(FormHandle form, int control);
int formListSelected(FormHandle form, int control);  // -1: none
std::string formListText(FormHandle form, int control, int index);  // empty where there is no such item

}  // namespace quillon
