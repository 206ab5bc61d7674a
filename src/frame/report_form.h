// What the report forms share: the answers to events that no form gives differently, and the steps of the common run, each
// with the form's own texts.
//
// Every form keeps its own state, its own order of steps and its own words; a form whose report departs from the common
// order writes its own steps and uses the small ones below.
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

#include "desktop/boxes.h"
#include "desktop/forms.h"
#include "text/input.h"
#include "text/output.h"

namespace quillon {

// ---- Events -----------------------------------------------------------------------------------------------------------

struct FormButton {
  int control = 0;
  void (*pressed)(FormHandle form) = nullptr;
};

// One form as the frame knows it. A member that is zero or null: the form has none, or answers for it in `pressed`.
struct FormFrame {
  int tool;                        // its toolbar button
  void (*start)(FormHandle form);  // it was made and is not shown yet: to its defaults
  FormButton load = {}, print = {}, cancel = {};
  int printer = 0, file = 0;                                // the destination: these radio buttons hide and show ...
  std::span<const int> outFileControls = {};                // ... the edit of the output name with its label
  int outFile = 0;                                          // the edit that is kept, while it is typed in, ...
  std::size_t outFileLimit = 0;                             // ... to this many characters
  void (*pressed)(FormHandle form, int control) = nullptr;  // any button that is not named above
  void (*picked)(FormHandle form, int control) = nullptr;   // another item of a list was chosen
  void (*destroyed)(FormHandle form) = nullptr;             // it is going: what it must not keep is given back
};

// Answers for the form: raises it when it is clicked into, sends the main window its tool's command when it is to be closed,
// tells the tools when it is gone, and hands everything else to the members of `frame`.
void reportFormEvent(const FormFrame& frame, const FormEvent& event);

// How a run ended, as far as its clean-up depends on it.
enum class RunEnd {
  printed,      // the report was written; the streams are still open
  refused,      // a step failed and has been told; the form goes back to its defaults
  kept,         // the form stays as the step that ended the run has left it
  programEnds,  // the whole program ends here
};

// ---- Messages ---------------------------------------------------------------------------------------------------------

// What is told, and where.
struct Message {
  const char* box;              // null: no box, the Reply line alone tells it
  const char* reply;            // null: the Reply line is left alone
  const char* title = nullptr;  // of its box, where it is not the title of the step that tells it
  int focus = 0;                // the control that has the focus afterwards; 0: it stays where it is
};

// Blanks the Reply line, then shows the text.
void showReply(FormHandle form, int reply, std::string_view text);
// A failure: on the Reply line first, so that it stands there while the box is open, then in a box.
void reportOnReplyAndBox(FormHandle form, int reply, const char* title, std::string_view text, BoxIcon icon);
// The same for a message that is told in its own places: Reply line, box, focus.
void showMessage(FormHandle form, int reply, const char* title, const Message& message, BoxIcon icon);

// ---- Options ----------------------------------------------------------------------------------------------------------

// What the edit holds, as an unsigned number: leading blanks are passed over, digits are read up to the first character that
// is none. 0 where there is no digit or the number is beyond 32 bits.
unsigned formGetNumber(FormHandle form, int control);

struct LinesPerPageRule {
  int control;
  unsigned initial;  // what the edit shows when the form is fresh
  unsigned limit;
  unsigned fallback;  // taken, and told, for a value below 1 or above the limit
  const char* message;
  const char* title;
  int writeBack;           // the control that then shows the fallback; 0: none, and the edit keeps its wrong text
  int reply;               // the Reply line that repeats the message; 0: none
  bool ownerless = false;  // the box belongs to the main window instead of the form
};
// Puts the number of a fresh form into the edit.
void showInitialLines(FormHandle form, const LinesPerPageRule& rule);
unsigned captureLinesPerPage(FormHandle form, const LinesPerPageRule& rule);

// Mode of limitEditText.
inline constexpr int editAnyCharacters = 7777;
inline constexpr int editDigitsOnly = 8888;
// A live filter on an edit, run on each of its updates. A text longer than `limit` is put back to `previous`; so is, with
// editDigitsOnly, a text with a character that is no digit. An accepted text becomes `previous`.
void limitEditText(FormHandle form, int control, std::string& previous, std::size_t limit, int mode);

// Enables or disables each of the controls.
void setControlsEnabled(FormHandle form, std::span<const int> controls, bool enabled);
// Shows or hides each of the controls.
void setControlsVisible(FormHandle form, std::span<const int> controls, bool visible);
// Checks one radio button of the named ones and clears the others.
void checkRadio(FormHandle form, std::span<const int> group, int checked);

// ---- Streams ----------------------------------------------------------------------------------------------------------

inline constexpr char printerName[] = "prn";

// Turns the name to upper case in place. True when every character of it is one that an output name may have: a letter, a
// digit or a dot.
bool outputNameIsValid(std::string& name);

// How a printer that cannot be opened is told from a file.
enum class PrinterTest {
  anyCase,  // the name is "prn" in any case: "Check Your Printer"
  never,    // compared against the upper-cased name, so that the file's message always shows
};

struct StreamTexts {
  const char* title;  // of every box of these steps that has none of its own
  int reply;
  InputKind inputKind;
  Message noInput;  // the box's text is the string resource for a missing input
  Message inputNotOpened;
  Message noOutputName;
  Message badOutputName;
  Message sameFile;  // the output name leads to the input itself
  PrinterTest printerTest;
  Message printerNotOpened;
  Message outputNotOpened;
};
// The usual wording of the texts above that most reports share.
inline constexpr char noInputText[] = "The input file is required for processing.";
inline constexpr char badOutputNameText[] = "Invalid Characters in OutFile Name";
inline constexpr char sameFileText[] = "Input and Output Filenames cannot be the same";
inline constexpr char checkPrinterText[] = "Check Your Printer";
inline constexpr char outputNotOpenedText[] = "Error In Opening Output File";
inline constexpr char writeFailedText[] = "Error In Writing Output File";

// The message for a missing input, which is a string resource: the same words for every form.
std::string noInputMessage();

// openStreams in its steps, each of which shows its own failure and gives false. `path` is the input's; `name` is turned to
// upper case by the first test that looks at its characters.
bool requireInputPath(FormHandle form, const StreamTexts& texts, const std::string& path);
bool refuseEmptyName(FormHandle form, const StreamTexts& texts, const std::string& name);  // true: it is empty, and told
bool refuseBadName(FormHandle form, const StreamTexts& texts, std::string& name);          // true: so, for its characters
bool requireOutputName(FormHandle form, const StreamTexts& texts, std::string& name);      // neither empty nor bad
// Refuses a name that leads to the input itself, before anything is opened for writing. True when it was refused.
bool refuseInputAsOutput(FormHandle form, const StreamTexts& texts, const std::string& path, const std::string& name);
// The stream is the form's own pointer to it, and becomes null when the stream is closed, by this form or by another's run.
bool openInputStream(FormHandle form, const StreamTexts& texts, const std::string& path, Input*& input);
bool openOutputStream(FormHandle form, const StreamTexts& texts, const std::string& name, Output*& output);

// All of these in their common order. False at the first failure, which has been shown; what was opened until then is open
// still, save that a failure to open the output closes all streams.
bool openStreams(FormHandle form, const StreamTexts& texts, const std::string& path, std::string& name, Input*& input,
                 Output*& output);

// Closes every open stream of the whole process, not only this form's; every form's pointer to its stream becomes null. False
// when a report lost bytes on its way out: a write failed, or the close itself.
bool closeAllStreams();

// The last box of a run: the completion, or, when the report could not be written whole, "Error In Writing Output File" with
// the report's own title, on the Reply line as well.
void showEndOfRun(FormHandle form, int reply, const char* title, const char* completion, bool written);

}  // namespace quillon
