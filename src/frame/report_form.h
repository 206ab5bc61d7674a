// What the report forms share: the steps of the common run, each with the form's own texts.
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

// ---- Reply line -------------------------------------------------------------------------------------------------------

// Blanks the Reply line, then shows the text.
void showReply(FormHandle form, int reply, std::string_view text);
// A failure: on the Reply line first, so that it stands there while the box is open, then in a box.
void reportOnReplyAndBox(FormHandle form, int reply, const char* title, std::string_view text, BoxIcon icon);

// ---- Options ----------------------------------------------------------------------------------------------------------

// What the edit holds, as an unsigned number: leading blanks are passed over, digits are read up to the first character that
// is none. 0 where there is no digit or the number is beyond 32 bits.
unsigned formGetNumber(FormHandle form, int control);

struct LinesPerPageRule {
  int control;
  unsigned limit;
  unsigned fallback;  // taken, and told, for a value below 1 or above the limit
  const char* message;
  const char* title;
  int writeBack;  // the control that then shows the fallback; 0: none, and the edit keeps its wrong text
  int reply;      // the Reply line that repeats the message; 0: none
};
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

// A message with what the Reply line shows beside it.
struct Message {
  const char* box;
  const char* reply;  // null: the Reply line is left alone
};

// How a printer that cannot be opened is told from a file.
enum class PrinterTest {
  anyCase,  // the name is "prn" in any case: "Check Your Printer"
  never,    // compared against the upper-cased name, so that the file's message always shows
};

struct StreamTexts {
  const char* title;  // of every box of this step
  int reply;
  InputKind inputKind;
  Message noInput;           // the box's text is the string resource for a missing input
  Message inputNotOpened;
  Message noOutputName;
  Message badOutputName;
  Message sameFile;          // the output name leads to the input itself
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

// openStreams in its steps, each of which shows its own failure. `path` is the input's; `name` is turned to upper case.
bool requireInputPath(FormHandle form, const StreamTexts& texts, const std::string& path);
Input* openInputStream(FormHandle form, const StreamTexts& texts, const std::string& path);
bool requireOutputName(FormHandle form, const StreamTexts& texts, std::string& name);
// Refuses a name that leads to the input itself, before anything is opened for writing.
bool refuseInputAsOutput(FormHandle form, const StreamTexts& texts, const std::string& path, const std::string& name);
Output* openOutputStream(FormHandle form, const StreamTexts& texts, const std::string& name);

// All of these in their common order. False at the first failure, which has been shown; what was opened until then is open
// still, save that a failure to open the output closes all streams.
bool openStreams(FormHandle form, const StreamTexts& texts, const std::string& path, std::string& name, Input*& input,
                 Output*& output);

// Closes every open stream of the whole process, not only this form's. False when a report lost bytes on its way out: a
// write failed, or the close itself.
bool closeAllStreams();

// The last box of a run: the completion, or, when the report could not be written whole, "Error In Writing Output File" with
// the report's own title, on the Reply line as well.
void showEndOfRun(FormHandle form, int reply, const char* title, const char* completion, bool written);

}  // namespace quillon
