#include "views.h"

#include <algorithm>
#include <map>

#include "program.h"
#include "texts.h"

namespace driving {

Kind kindOf(HWND control) {
  const std::wstring name = classOf(control);
  if (name == L"Edit") return Kind::edit;
  if (name == L"ComboBox") return Kind::list;
  if (name != L"Button") return Kind::other;
  switch (GetWindowLongPtrW(control, GWL_STYLE) & BS_TYPEMASK) {
    case BS_PUSHBUTTON:
    case BS_DEFPUSHBUTTON:
      return Kind::button;
    case BS_RADIOBUTTON:
    case BS_AUTORADIOBUTTON:
      return Kind::radio;
    case BS_CHECKBOX:
    case BS_AUTOCHECKBOX:
      return Kind::check;
    default:
      return Kind::other;
  }
}

std::wstring itemOf(HWND list, LRESULT index) {
  const LRESULT length = ask(list, CB_GETLBTEXTLEN, static_cast<WPARAM>(index));
  if (length < 0) return {};
  std::wstring text(static_cast<std::size_t>(length) + 1, L'\0');
  ask(list, CB_GETLBTEXT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(text.data()));
  text.resize(static_cast<std::size_t>(length));
  return text;
}

static const ControlView* find(const FormView* view, int id) {
  if (!view) return nullptr;
  for (const auto& [key, control] : view->controls) {
    if (key == id) return &control;
  }
  return nullptr;
}

static ControlView lookAtControl(HWND window, const ControlView* before) {
  ControlView view = {};
  view.window = window;
  view.kind = before && before->window == window ? before->kind : kindOf(window);
  const LONG_PTR style = GetWindowLongPtrW(window, GWL_STYLE);
  view.enabled = !(style & WS_DISABLED);
  view.visible = (style & WS_VISIBLE) != 0;
  if (view.kind == Kind::radio || view.kind == Kind::check) view.checked = ask(window, BM_GETCHECK) == BST_CHECKED;
  if (view.kind == Kind::list) {
    const LRESULT count = ask(window, CB_GETCOUNT);
    for (LRESULT i = 0; i < count; ++i) view.items.push_back(itemOf(window, i));
    const LRESULT selected = ask(window, CB_GETCURSEL);
    if (selected >= 0) view.selected = view.items[static_cast<std::size_t>(selected)];
  } else {
    view.text = textOf(window);
  }
  return view;
}

// The focus of a form can be seen only while it is the active one.
static int focusOf(HWND form, int last) {
  GUITHREADINFO info = {};
  info.cbSize = sizeof info;
  if (!GetGUIThreadInfo(driver.thread, &info) || info.hwndActive != form) return last;
  if (!info.hwndFocus || info.hwndFocus == form) return 0;
  if (hasStyle(info.hwndFocus, WS_DISABLED) || !hasStyle(info.hwndFocus, WS_VISIBLE)) return 0;  // a focus of no use
  return idOf(info.hwndFocus);
}

static FormView lookAt(HWND window, const FormView* before) {
  FormView view = {};
  view.window = window;
  view.title = textOf(window);
  view.focus = focusOf(window, before ? before->focus : 0);
  for (HWND child : childrenOf(window)) {
    if (const int id = idOf(child)) view.controls.emplace_back(id, lookAtControl(child, find(before, id)));
  }
  return view;
}

static std::string differences(const ControlView& now, const ControlView* before) {
  std::string pieces;
  if (now.kind != Kind::list && (!before || now.text != before->text)) add(pieces, "text", json(now.text));
  if (!before || now.enabled != before->enabled) add(pieces, "enabled", truth(now.enabled));
  if (!before || now.visible != before->visible) add(pieces, "visible", truth(now.visible));
  const bool checkable = now.kind == Kind::radio || now.kind == Kind::check;
  if (checkable && (!before || now.checked != before->checked)) add(pieces, "checked", truth(now.checked));
  if (now.kind == Kind::list) {
    if (!before || now.items != before->items) add(pieces, "items", listOf(now.items));
    if (!before || now.selected != before->selected) add(pieces, "selected", now.selected ? json(*now.selected) : "null");
  }
  return pieces;
}

void writeForm(const Tool* tool, HWND window, bool whole) {
  const auto known = driver.shown.find(tool);
  const FormView* last = known == driver.shown.end() ? nullptr : &known->second;
  const FormView* before = whole ? nullptr : last;
  const FormView now = lookAt(window, last);
  std::string pieces;
  if (!before || now.title != before->title) add(pieces, "title", json(now.title));
  if (!before || now.focus != before->focus) add(pieces, "focus", now.focus ? std::to_string(now.focus) : "null");
  std::string controls;
  for (const auto& [id, control] : now.controls) {
    const std::string different = differences(control, find(before, id));
    if (!different.empty()) add(controls, std::to_string(id), '{' + different + '}');
  }
  if (!before || !controls.empty()) add(pieces, "controls", '{' + controls + '}');
  if (!pieces.empty()) write("{\"changed\":{\"form\":" + json(tool->form) + ',' + pieces + "}}");
  driver.shown[tool] = now;
}

void writeOpenAndClosed() {
  std::map<const Tool*, HWND> open;
  for (HWND window : topWindows()) {
    if (const Tool* tool = formOf(window)) open[tool] = window;
  }
  for (const Tool& tool : tools) {
    const bool wasOpen = driver.open.count(&tool) > 0;
    if (!wasOpen && open.count(&tool)) {
      write("{\"opened\":" + json(tool.form) + "}");
      driver.order.push_back(&tool);
    }
    if (wasOpen && !open.count(&tool)) {
      write("{\"closed\":" + json(tool.form) + "}");
      std::erase(driver.order, &tool);
      driver.shown.erase(&tool);
    }
  }
  driver.open = open;
}

bool isChecked(const Tool& tool) { return ask(driver.toolbar, TB_ISBUTTONCHECKED, static_cast<WPARAM>(tool.id)) != 0; }

void writeTools() {
  for (const Tool& tool : tools) {
    const bool checked = isChecked(tool);
    if (checked == (driver.checked.count(&tool) > 0)) continue;
    write("{\"tools\":{" + json(tool.form) + ":" + truth(checked) + "}}");
    if (checked)
      driver.checked.insert(&tool);
    else
      driver.checked.erase(&tool);
  }
}

void writeChanges() {
  writeOpenAndClosed();
  for (const Tool& tool : tools) {
    const auto open = driver.open.find(&tool);
    if (open != driver.open.end()) writeForm(&tool, open->second, false);
  }
}

}  // namespace driving
