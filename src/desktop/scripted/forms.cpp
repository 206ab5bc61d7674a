#include "desktop/scripted/forms.h"

#include <algorithm>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

#include "desktop/scripted/app.h"
#include "desktop/scripted/faults.h"
#include "desktop/scripted/json.h"
#include "desktop/scripted/resources.h"
#include "desktop/scripted/transcript.h"
#include "text/encoding.h"

namespace quillon {

using Items = std::vector<std::string>;

namespace {

struct ControlState {
  std::string text;
  bool enabled;
  bool visible;
  bool checked;
  std::shared_ptr<const Items> items;  // a list's; what was shown may be an older one
  int selected;
};

struct Control {
  ControlTemplate made;  // as the resource has it
  bool reported;         // it has an id, and is the first with it
  ControlState now;
  ControlState shown;  // as the transcript has it
};

}  // namespace

struct FormWindow {
  std::string resource;
  FormHandler handler;
  std::vector<Control> controls;
  std::string title, shownTitle;
  int focus = -1, shownFocus = -1;  // positions in `controls`
  bool focusSet = false;            // by the program, so that the desktop need not choose
  bool visible = false;
  bool closeEnabled = false;
  bool written = false;  // the transcript knows the form
  bool going = false;
};

static struct {
  std::vector<std::unique_ptr<FormWindow>> forms;  // in the order in which they were made
  std::vector<FormWindow*> stack;                  // the topmost is the last
  std::vector<std::unique_ptr<FormWindow>> gone;   // their handlers may still be running
} state;

static FormWindow* live(FormHandle form) {
  for (const auto& open : state.forms) {
    if (open.get() == form) return form->going ? nullptr : form;
  }
  return nullptr;
}

static Control* find(FormHandle form, int id) {
  if (!live(form) || id < 0) return nullptr;
  for (Control& control : form->controls) {
    if (control.made.id == id) return &control;
  }
  return nullptr;
}

static int positionOf(const FormWindow& form, const Control& control) {
  return static_cast<int>(&control - form.controls.data());
}

static void send(FormHandle form, FormEventKind kind, int control = 0) {
  const FormHandler handler = form->handler;
  handler(FormEvent{form, kind, control});
}

static void toTop(FormWindow* form) {
  std::erase(state.stack, form);
  state.stack.push_back(form);
}

static FormWindow* current() { return state.stack.empty() ? nullptr : state.stack.back(); }

// ---- What the program asks ---------------------------------------------------------------------------------------------

static std::unique_ptr<FormWindow> makeForm(const char* resource, FormHandler handler, const DialogTemplate& dialog) {
  auto form = std::make_unique<FormWindow>();
  form->resource = resource;
  form->handler = handler;
  form->title = utf8FromBytes(dialog.title);
  form->closeEnabled = dialog.closeable;
  for (const ControlTemplate& made : dialog.controls) {
    const bool first = std::none_of(form->controls.begin(), form->controls.end(),
                                    [&made](const Control& other) { return other.made.id == made.id; });
    ControlState now = {made.text, made.enabled, made.visible, false, nullptr, -1};
    if (made.kind == ControlKind::list) {
      now.text.clear();
      now.items = std::make_shared<Items>();
    }
    form->controls.push_back({made, first && made.id >= 0, now, now});
  }
  return form;
}

FormHandle formCreate(const char* resource, FormHandler handler) {
  if (faultFires(Fault::form)) return nullptr;
  const std::optional<DialogTemplate> dialog = resourceDialog(resourceBytes(), resource);
  if (!dialog) return nullptr;
  state.forms.push_back(makeForm(resource, handler, *dialog));
  FormWindow* form = state.forms.back().get();
  toTop(form);
  transcriptWrite("{\"opened\":" + jsonOfUtf8(form->resource) + "}");
  send(form, FormEventKind::start);
  if (!live(form)) return nullptr;
  if (!form->focusSet) {
    for (const Control& control : form->controls) {
      if (!control.made.tabStop || !control.now.visible || !control.now.enabled) continue;
      form->focus = positionOf(*form, control);
      break;
    }
  }
  return form;
}

void formDestroy(FormHandle form) {
  if (!live(form)) return;
  form->going = true;
  send(form, FormEventKind::destroy);
  transcriptWrite("{\"closed\":" + jsonOfUtf8(form->resource) + "}");
  std::erase(state.stack, form);
  const auto found =
      std::find_if(state.forms.begin(), state.forms.end(), [form](const auto& open) { return open.get() == form; });
  state.gone.push_back(std::move(*found));
  state.forms.erase(found);
}

void formShow(FormHandle form) {
  if (!live(form)) return;
  form->visible = true;
  toTop(form);
}

void formRaise(FormHandle form) {
  if (live(form)) toTop(form);
}

void formSetTitle(FormHandle form, std::string_view utf8) {
  if (live(form)) form->title = utf8FromEither(upToNul(utf8));
}

void formSetText(FormHandle form, int id, std::string_view text) {
  Control* control = find(form, id);
  if (!control || control->made.kind == ControlKind::list) return;
  control->now.text = upToNul(text);
  // An edit of several lines tells nothing of what the program sets; that is how Windows has it.
  if (control->made.kind == ControlKind::edit && !control->made.multiLine) send(form, FormEventKind::edit, id);
}

static std::string selectedText(const ControlState& list) {
  return list.selected < 0 ? std::string() : (*list.items)[static_cast<std::size_t>(list.selected)];
}

std::string formGetText(FormHandle form, int id, std::size_t limit) {
  const Control* control = find(form, id);
  if (!control) return {};
  return (control->now.items ? selectedText(control->now) : control->now.text).substr(0, limit);
}

void formSetChecked(FormHandle form, int id, bool checked) {
  Control* control = find(form, id);
  if (control) control->now.checked = checked;
}

bool formIsChecked(FormHandle form, int id) {
  const Control* control = find(form, id);
  return control && control->now.checked;
}

// What can no longer be worked cannot have the focus.
static void dropFocus(FormWindow& form, const Control& control) {
  if (form.focus == positionOf(form, control)) form.focus = -1;
}

void formSetEnabled(FormHandle form, int id, bool enabled) {
  Control* control = find(form, id);
  if (!control) return;
  control->now.enabled = enabled;
  if (!enabled) dropFocus(*form, *control);
}

void formSetVisible(FormHandle form, int id, bool visible) {
  Control* control = find(form, id);
  if (!control) return;
  control->now.visible = visible;
  if (!visible) dropFocus(*form, *control);
}

void formSetFocus(FormHandle form, int id) {
  const Control* control = find(form, id);
  if (!control || !control->now.enabled || !control->now.visible) return;
  form->focus = positionOf(*form, *control);
  form->focusSet = true;
}

void formSetCloseEnabled(FormHandle form, bool enabled) {
  if (live(form)) form->closeEnabled = enabled;
}

static Control* findList(FormHandle form, int id) {
  Control* control = find(form, id);
  return control && control->now.items ? control : nullptr;
}

void formListFill(FormHandle form, int id, std::span<const std::string> items) {
  Control* list = findList(form, id);
  if (!list) return;
  auto filled = std::make_shared<Items>();
  filled->reserve(items.size());
  for (const std::string& item : items) filled->emplace_back(upToNul(item));
  list->now.items = std::move(filled);
  list->now.selected = -1;
}

void formListSelect(FormHandle form, int id, int index) {
  Control* list = findList(form, id);
  if (list) list->now.selected = index >= 0 && index < formListCount(form, id) ? index : -1;
}

int formListCount(FormHandle form, int id) {
  const Control* list = findList(form, id);
  return list ? static_cast<int>(list->now.items->size()) : 0;
}

int formListSelected(FormHandle form, int id) {
  const Control* list = findList(form, id);
  return list ? list->now.selected : -1;
}

std::string formListText(FormHandle form, int id, int index) {
  const Control* list = findList(form, id);
  if (!list || index < 0 || index >= formListCount(form, id)) return {};
  return (*list->now.items)[static_cast<std::size_t>(index)];
}

// ---- What a user does --------------------------------------------------------------------------------------------------

// Why a user cannot reach the control; empty where it can be worked.
static std::string reasonAgainst(FormHandle form, int id) {
  if (!form) return "no form is open";
  const Control* control = find(form, id);
  if (!control) return std::to_string(id) + " is not on the form";
  if (!control->now.visible) return std::to_string(id) + " is hidden";
  if (!control->now.enabled) return std::to_string(id) + " is disabled";
  return {};
}

static void takeFocus(FormWindow& form, const Control& control) { form.focus = positionOf(form, control); }

// From the control that begins the group up to the one that begins the next.
static void clearRadioGroup(FormWindow& form, std::size_t pressed) {
  std::size_t first = pressed;
  while (first > 0 && !form.controls[first].made.group) --first;
  std::size_t i = first;
  do {
    if (form.controls[i].made.kind == ControlKind::radioButton) form.controls[i].now.checked = false;
    ++i;
  } while (i < form.controls.size() && !form.controls[i].made.group);
}

std::string formsTurnTo(std::string_view resource) {
  for (const auto& form : state.forms) {
    if (form->resource != resource) continue;
    FormWindow* turnedTo = form.get();
    toTop(turnedTo);
    send(turnedTo, FormEventKind::activate);
    return {};
  }
  return std::string(resource) + " is not open";
}

// Why the control cannot be pressed; empty where it was.
static std::string press(FormWindow* form, int id, bool byKey) {
  if (std::string reason = reasonAgainst(form, id); !reason.empty()) return reason;
  Control& control = *find(form, id);
  switch (control.made.kind) {
    case ControlKind::pushButton:
      break;
    case ControlKind::radioButton:
      if (!control.made.automatic) break;
      clearRadioGroup(*form, static_cast<std::size_t>(positionOf(*form, control)));
      control.now.checked = true;
      break;
    case ControlKind::checkBox:
      if (control.made.automatic) control.now.checked = !control.now.checked;
      break;
    default:
      return std::to_string(id) + " cannot be pressed";
  }
  if (!byKey) takeFocus(*form, control);
  send(form, FormEventKind::press, id);
  return {};
}

std::string formsPress(int id) { return press(current(), id, false); }

// The push button that has the focus, else the form's own; -1 where there is none, or where it cannot be worked.
static int buttonOfEnter(const FormWindow& form) {
  const auto isReady = [](const Control& control) {
    return control.made.kind == ControlKind::pushButton && control.now.enabled && control.now.visible;
  };
  if (form.focus >= 0) {
    const Control& focused = form.controls[static_cast<std::size_t>(form.focus)];
    if (isReady(focused)) return focused.made.id;
  }
  const auto standard =
      std::find_if(form.controls.begin(), form.controls.end(), [](const Control& control) { return control.made.standard; });
  return standard != form.controls.end() && isReady(*standard) ? standard->made.id : -1;
}

std::string formsEnter() {
  FormWindow* form = current();
  if (!form) return "no form is open";
  const int button = buttonOfEnter(*form);
  return button < 0 ? std::string() : press(form, button, true);
}

std::string formsTyped(const ControlTemplate& edit, std::string_view text) {
  std::string typed(upToNul(text));
  if (edit.digitsOnly) std::erase_if(typed, [](char c) { return c < '0' || c > '9'; });
  return typed;
}

std::string formsType(int id, std::string_view text) {
  FormWindow* form = current();
  if (std::string reason = reasonAgainst(form, id); !reason.empty()) return reason;
  Control& control = *find(form, id);
  if (control.made.kind != ControlKind::edit) return std::to_string(id) + " is no edit";
  if (control.made.readOnly) return std::to_string(id) + " is read-only";
  takeFocus(*form, control);
  control.now.text = formsTyped(control.made, text);
  send(form, FormEventKind::edit, id);
  return {};
}

std::string formsPick(int id, std::string_view text) {
  FormWindow* form = current();
  if (std::string reason = reasonAgainst(form, id); !reason.empty()) return reason;
  Control& control = *find(form, id);
  if (!control.now.items) return std::to_string(id) + " is no list";
  const Items& items = *control.now.items;
  const auto found = std::find(items.begin(), items.end(), text);
  if (found == items.end()) return std::to_string(id) + " has no item " + utf8FromBytes(text);
  takeFocus(*form, control);
  control.now.selected = static_cast<int>(found - items.begin());
  send(form, FormEventKind::pick, id);
  return {};
}

std::string formsClose() {
  FormWindow* form = current();
  if (!form) return "no form is open";
  if (!form->closeEnabled) return "Close is disabled";
  send(form, FormEventKind::close);
  return {};
}

// ---- What a user sees --------------------------------------------------------------------------------------------------

static std::string jsonOfItems(const Items& items) {
  std::string out = "[";
  for (const std::string& item : items) {
    if (out.size() > 1) out += ',';
    appendJson(out, utf8FromBytes(item));
  }
  return out + "]";
}

static std::string jsonOfSelected(const ControlState& list) {
  return list.selected < 0 ? "null" : jsonOfBytes(selectedText(list));
}

static bool sameItems(const ControlState& one, const ControlState& other) {
  return one.items == other.items || *one.items == *other.items;
}

static bool sameSelection(const ControlState& one, const ControlState& other) {
  if (one.items == other.items && one.selected == other.selected) return true;
  return (one.selected < 0) == (other.selected < 0) && selectedText(one) == selectedText(other);
}

// Each piece as "key":value, behind a comma where it is not the first.
static void addPiece(std::string& pieces, const char* key, std::string_view value) {
  if (!pieces.empty()) pieces += ',';
  pieces += '"';
  pieces += key;
  pieces += "\":";
  pieces += value;
}

static void addTruth(std::string& pieces, const char* key, bool value) { addPiece(pieces, key, value ? "true" : "false"); }

// What the transcript does not know yet of the control, or all of it.
static std::string piecesOf(const Control& control, bool whole) {
  const ControlState &now = control.now, &shown = control.shown;
  const ControlKind kind = control.made.kind;
  std::string pieces;
  if (kind != ControlKind::list && (whole || now.text != shown.text)) addPiece(pieces, "text", jsonOfBytes(now.text));
  if (whole || now.enabled != shown.enabled) addTruth(pieces, "enabled", now.enabled);
  if (whole || now.visible != shown.visible) addTruth(pieces, "visible", now.visible);
  const bool checkable = kind == ControlKind::radioButton || kind == ControlKind::checkBox;
  if (checkable && (whole || now.checked != shown.checked)) addTruth(pieces, "checked", now.checked);
  if (kind == ControlKind::list) {
    if (whole || !sameItems(now, shown)) addPiece(pieces, "items", jsonOfItems(*now.items));
    if (whole || !sameSelection(now, shown)) addPiece(pieces, "selected", jsonOfSelected(now));
  }
  return pieces;
}

static std::string jsonOfFocus(const FormWindow& form) {
  const int id = form.focus < 0 ? -1 : form.controls[static_cast<std::size_t>(form.focus)].made.id;
  return id < 0 ? "null" : std::to_string(id);
}

static void writeForm(FormWindow& form, bool whole) {
  std::string pieces;
  if (whole || form.title != form.shownTitle) addPiece(pieces, "title", jsonOfUtf8(form.title));
  if (whole || form.focus != form.shownFocus) addPiece(pieces, "focus", jsonOfFocus(form));
  std::string controls;
  for (Control& control : form.controls) {
    if (!control.reported) continue;
    const std::string differences = piecesOf(control, whole);
    if (differences.empty()) continue;
    addPiece(controls, std::to_string(control.made.id).c_str(), "{" + differences + "}");
    control.shown = control.now;
  }
  if (whole || !controls.empty()) addPiece(pieces, "controls", "{" + controls + "}");
  if (pieces.empty()) return;
  form.shownTitle = form.title;
  form.shownFocus = form.focus;
  form.written = true;
  transcriptWrite("{\"changed\":{\"form\":" + jsonOfUtf8(form.resource) + "," + pieces + "}}");
}

std::string formsShowWhole() {
  FormWindow* form = current();
  if (!form) return "no form is open";
  writeForm(*form, true);
  return {};
}

void formsWriteChanges() {
  std::vector<FormWindow*> open;
  for (const auto& form : state.forms) open.push_back(form.get());
  std::stable_sort(open.begin(), open.end(), [](const FormWindow* one, const FormWindow* other) {
    return appToolPosition(one->resource) < appToolPosition(other->resource);
  });
  for (FormWindow* form : open) {
    if (form->visible && !form->going) writeForm(*form, !form->written);
  }
}

// ---- The end -----------------------------------------------------------------------------------------------------------

std::string formsTitle(FormHandle form) { return live(form) ? form->title : std::string(); }

std::size_t formsOpen() { return state.forms.size(); }

void formsDestroyAll() {
  while (!state.forms.empty()) formDestroy(state.forms.front().get());
}

void formsSweep() { state.gone.clear(); }

void formsReset() {
  formsDestroyAll();
  formsSweep();
}

}  // namespace quillon
