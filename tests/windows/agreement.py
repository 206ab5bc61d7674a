"""Holds a transcript of the real program, seen from outside, against the scripted desktop's.

Both are brought into the same form first: at each box, at each open-file dialog and after each command, what has changed on
the forms since the last such moment. What cannot be seen from outside is left out, here and nowhere else:

- a box with no title of its own: Windows puts its own word, "Error", there;
- the owner of a box or a dialog, which only the screen has;
- the pattern of a file mask: the dialog shows its name alone;
- "selected" 0, no mask: the dialog shows the first;
- the focus while a box or a dialog is open, since it is in the box, and that of a form that is not the active one;
- the order of `opened`, `closed` and `tools` lines within one command, whose moments are not seen one by one;
- beeps and what goes to standard output.
"""

import copy

WORD_OF_WINDOWS = "Error"


def _without_owner(dialog):
    return {key: value for key, value in dialog.items() if key != "owner"}


def _box(box):
    if box["title"] is None:
        box = dict(box, title=WORD_OF_WINDOWS)
    return {"box": _without_owner(box)}


def _files(files):
    masks = [mask[:1] for mask in files["masks"]]
    return {"files": dict(_without_owner(files), masks=masks, selected=max(files["selected"], 1))}


class _Reader:
    def __init__(self):
        self.lines = []
        self.forms = {}    # as they stand
        self.told = {}     # as they stood at the last moment that counts
        self.order = []    # the form turned to last stands last
        self.events = []   # opened, closed and tools of this command
        self.command = None
        self.refused = False

    def change(self, changed):
        form = self.forms.setdefault(changed["form"], {"title": None, "focus": None, "controls": {}})
        form["title"] = changed.get("title", form["title"])
        form["focus"] = changed.get("focus", form["focus"])
        for control, pieces in changed.get("controls", {}).items():
            form["controls"].setdefault(control, {}).update(pieces)

    def tell_forms(self, with_focus):
        for name in sorted(self.forms):
            form = self.forms[name]
            told = self.told.get(name, {"title": None, "focus": None, "controls": {}})
            pieces = {}
            if form["title"] != told["title"]:
                pieces["title"] = form["title"]
            focus = told["focus"]
            if with_focus and self.order and self.order[-1] == name:
                focus = form["focus"]
                if focus != told["focus"]:
                    pieces["focus"] = focus
            for control, state in form["controls"].items():
                before = told["controls"].get(control, {})
                different = {key: value for key, value in state.items() if before.get(key, self) != value}
                if different:
                    pieces.setdefault("controls", {})[control] = different
            if pieces:
                self.lines.append({"changed": dict(pieces, form=name)})
            self.told[name] = dict(copy.deepcopy(form), focus=focus)

    def end_command(self):
        for event in sorted(self.events, key=str):
            self.lines.append(event)
        self.events = []
        if self.command and self.command.startswith("form ") and not self.refused:
            self.turn_to(self.command[5:])
        self.tell_forms(True)

    def turn_to(self, form):
        if form in self.order:
            self.order.remove(form)
        self.order.append(form)

    def read(self, line):
        (kind, value), = line.items()
        if kind == "command":
            self.end_command()
            self.command, self.refused = value, False
            self.lines.append(line)
        elif kind == "refused":
            self.refused = True
            self.lines.append(line)
        elif kind in ("opened", "closed", "tools"):
            self.events.append(line)
            if kind == "opened":
                self.turn_to(value)
            if kind == "closed":
                if value in self.order:
                    self.order.remove(value)
                self.forms.pop(value, None)
                self.told.pop(value, None)
        elif kind == "changed":
            self.change(value)
        elif kind == "box":
            self.tell_forms(False)
            self.lines.append(_box(value))
        elif kind == "files":
            self.tell_forms(False)
            self.lines.append(_files(value))
        elif kind == "exit":
            self.end_command()
            self.lines.append(line)
        elif kind not in ("beep", "stdout", "interrupted"):
            raise ValueError("a line of an unknown kind: " + kind)


def seen_from_outside(lines):
    """The transcript, as parsed lines, in the form in which two of them can be compared."""
    reader = _Reader()
    for line in lines:
        reader.read(line)
    return reader.lines
