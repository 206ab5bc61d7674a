#!/usr/bin/env python3
"""Shows that every text that a form can put in front of its user is seen by some script test.

    texts_in_transcripts.py [--list] [SOURCE-FOLDER]

The texts are read out of the sources: the tables and constants of the form files (src/*/*_form.cpp, *_tool.cpp) and of the
frame, wherever in the file they stand, and the texts that stand in a call of a box, of the Reply line or of a title. Each must
be the text, the title or a control's text of some line of a transcript under tests/scripts, in a run of that very form; the
frame's texts in a run of any. A text that goes on (a title ahead of a file's name, which ends with a blank or a hyphen) may
begin one; one that is put into a longer text must be a line of it, or stand there behind a colon.

What cannot be seen is listed below with its reason. An entry that is no longer needed is a failure as well.
"""

import glob
import json
import os
import re
import sys

# Files of the frame whose texts no transcript can show.
NOT_SHOWN_FILES = {
    "src/frame/client_types.cpp": "names of clients' types, which stand in reports",
    "src/frame/main_window.cpp": "names of the window class and of the mutex, and the main window's title",
    "src/frame/trace_window.cpp": "nothing opens the trace window",
}

# Members of a table whose texts are not shown on a form: what stands on a report's page, and names that Windows asks for.
NOT_SHOWN_MEMBERS = {"words"}

# Tables by their names.
NOT_SHOWN_TABLES = {
    "src/frame/report_form.h": {"printerName": "the device's own name"},
    "src/frame/tools.cpp": {"buttons": "tooltips"},
    "src/frame/file_selection.cpp": {
        "lendingExtensions": "endings of file names", "normalExtensions": "endings of file names"},
}

# {(file, text): why no run can bring it about}
EXCEPTIONS = {
    ("src/brokerquery/broker_form.cpp", "Printing of NetPosition in Progress... Please Wait."):
        "stands on the Reply line between two steps with no box between them; BrokerForm's unit tests look there",
    ("src/position/kesto_net_position_form.cpp", "File Not Loaded "): "Print is disabled for as long as nothing is loaded",
    ("src/kesto/kesto_form.cpp", "Output File Can't Be Blank ,Please Name It And Reload The  File !!"):
        "a name that is blank is refused when the options are captured, and none gets lost behind that",
    ("src/kesto/kesto_form.cpp", "Error Opening Output File !!"):
        "the load step ends earlier where it leaves no file",
}

SHOWING_CALLS = {"boxShow", "boxAsk", "showReply", "reportOnReplyAndBox", "formSetTitle", "failRun", "fail", "refuse", "tell",
                 "showMessage"}

TOKEN = re.compile(
    r"//[^\n]*|/\*.*?\*/"  # comments
    r"|(?P<directive>^[ \t]*\#(?:[^\n\\]|\\.)*(?:\\\n[^\n]*)*)"
    r'|R"(?P<mark>[^(\s]*)\((?P<raw>.*?)\)(?P=mark)"'
    r'|"(?P<text>(?:[^"\\\n]|\\.)*)"'
    r"|'(?:[^'\\\n]|\\.)+'"
    r"|(?P<word>[A-Za-z_]\w*)"
    r"|(?P<number>\.?\d[\w.']*)"
    r"|(?P<sign>\S)",
    re.S | re.M)

ESCAPES = {"n": "\n", "t": "\t", "r": "\r", "0": "\0", "\\": "\\", '"': '"', "'": "'", "a": "\a", "f": "\f", "v": "\v"}


def unescaped(text):
    """A C++ literal's characters; \\xNN as Windows-1252 has it."""
    def replaced(match):
        escape = match.group(1)
        if escape.startswith("x"):
            return bytes([int(escape[1:], 16)]).decode("cp1252", "replace")
        return ESCAPES.get(escape, escape)
    return re.sub(r"\\(x[0-9A-Fa-f]{1,2}|.)", replaced, text, flags=re.S)


def tokens_of(source):
    """The source as a list of ("word" | "text" | "sign", value), literals that stand side by side joined."""
    tokens = []
    for match in TOKEN.finditer(source):
        if match.group("text") is not None or match.group("raw") is not None:
            value = match.group("raw") if match.group("raw") is not None else unescaped(match.group("text"))
            if tokens and tokens[-1][0] == "text":
                tokens[-1] = ("text", tokens[-1][1] + value)
            else:
                tokens.append(("text", value))
        elif match.group("word"):
            tokens.append(("word", match.group("word")))
        elif match.group("number"):
            tokens.append(("number", match.group("number")))
        elif match.group("sign"):
            tokens.append(("sign", match.group("sign")))
    return tokens


def closing(tokens, start):
    """The position of the bracket that closes the one at `start`."""
    pairs = {"{": "}", "(": ")", "[": "]"}
    opened, closed = tokens[start][1], pairs[tokens[start][1]]
    depth = 0
    for position in range(start, len(tokens)):
        if tokens[position][0] != "sign":
            continue
        if tokens[position][1] == opened:
            depth += 1
        elif tokens[position][1] == closed:
            depth -= 1
            if depth == 0:
                return position
    raise ValueError("a bracket is not closed")


def texts_of_initialiser(tokens):
    """The literals of a table, without those of members that are not shown."""
    position = 0
    while position < len(tokens):
        kind, value = tokens[position]
        if kind == "sign" and value == "." and position + 3 < len(tokens) and tokens[position + 1][1] in NOT_SHOWN_MEMBERS:
            if tokens[position + 3] == ("sign", "{"):
                position = closing(tokens, position + 3) + 1
                continue
        if kind == "text":
            yield value
        position += 1


def texts_of_calls(tokens):
    """The literals in calls that show something; a format is none, since what it forms is not known here."""
    position = 0
    while position + 1 < len(tokens):
        if tokens[position][1] in SHOWING_CALLS and tokens[position + 1] == ("sign", "("):
            end = closing(tokens, position + 1)
            for kind, value in tokens[position + 1:end]:
                if kind == "text" and "%" not in value:
                    yield value
        position += 1


def is_table(head):
    """True for the head of a constant: what stands ahead of its '='."""
    words = {value for kind, value in head if kind == "word"}
    return bool(words & {"constexpr", "const"}) and "using" not in words


def declared_name(head):
    for kind, value in reversed(head):
        if kind == "word":
            return value
    return ""


def texts_of_file(source):
    """[(name of the table or "", text)] of one source."""
    found = []
    tokens = tokens_of(source)
    start = position = 0
    while position < len(tokens):
        kind, value = tokens[position]
        if kind != "sign" or value not in "{=;}":
            position += 1
            continue
        head = tokens[start:position]
        if value == "=" and head.count(("sign", "(")) > head.count(("sign", ")")):  # a parameter's standard value
            position += 1
        elif value == "=" and is_table(head):
            end = position
            while tokens[end] != ("sign", ";"):
                end = closing(tokens, end) if tokens[end] in (("sign", "{"), ("sign", "("), ("sign", "[")) else end
                end += 1
            name = declared_name([token for token in head if token[1] not in "[]"])
            found += [(name, text) for text in texts_of_initialiser(tokens[position:end])]
            start = position = end + 1
        elif value == "{" and any(token == ("word", "namespace") for token in head):
            start = position = position + 1
        elif value == "{":
            end = closing(tokens, position)
            body = tokens[position:end]
            found += [("", text) for text in texts_of_calls(body)]
            # Constants inside a function: each `constexpr ... = ...;`.
            found += constants_in(body)
            position = end + 1
            start = position
        else:
            position += 1
            if value in ";}":
                start = position
    return found


def constants_in(body):
    found = []
    for position, token in enumerate(body):
        if token != ("word", "constexpr"):
            continue
        end = position
        while end < len(body) and body[end] not in (("sign", "="), ("sign", ";"), ("sign", "(")):
            end += 1
        if end == len(body) or body[end] != ("sign", "="):
            continue
        stop = end
        while stop < len(body) and body[stop] != ("sign", ";"):
            stop += 1
        name = declared_name([part for part in body[position:end] if part[1] not in "[]"])
        found += [(name, text) for text in texts_of_initialiser(body[end:stop])]
    return found


# ---- Transcripts -------------------------------------------------------------------------------------------------------

def strings_in(value):
    if isinstance(value, str):
        yield value
    elif isinstance(value, list):
        for item in value:
            yield from strings_in(item)
    elif isinstance(value, dict):
        for item in value.values():
            yield from strings_in(item)


def read_transcripts(folder):
    """[(forms that it opens, texts that it shows)] of every approved transcript."""
    transcripts = []
    for path in sorted(glob.glob(os.path.join(folder, "tests", "scripts", "*", "*", "transcript"))):
        forms, shown = set(), set()
        with open(path, encoding="utf-8") as file:
            for line in file:
                if not line.strip():
                    continue
                entry = json.loads(line)
                forms.update(strings_in(entry.get("opened", [])))
                for kind in ("box", "changed", "files", "stdout"):
                    shown.update(strings_in(entry.get(kind, [])))
        transcripts.append((forms, shown))
    return transcripts


def is_shown(text, shown):
    if text in shown:
        return True
    if text.endswith((" ", "-")) and any(other.startswith(text) for other in shown):
        return True
    # A line of a longer text, or what stands there behind a colon: "File Type : Quote Log File".
    piece = re.compile(r"(?:\n|: ?)" + re.escape(text) + r"(?:\n|$)")
    return any(piece.search(other) for other in shown)


# ---- Sources -----------------------------------------------------------------------------------------------------------

def forms_of_tools(folder):
    """{"toolTrades": "PRNTRPT"} out of the table of tools."""
    with open(os.path.join(folder, "src", "frame", "tools.cpp"), encoding="utf-8") as file:
        return dict(re.findall(r'\{(tool\w+),\s*\d+,\s*"[^"]*",\s*"(\w+)"', file.read()))


def main():
    listing = "--list" in sys.argv
    arguments = [argument for argument in sys.argv[1:] if argument != "--list"]
    folder = arguments[0] if arguments else os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..")

    def relative(pattern):
        found = glob.glob(os.path.join(folder, "src", pattern))
        return sorted(os.path.relpath(path, folder).replace(os.sep, "/") for path in found)

    form_files = [path for path in relative("*/*_form.cpp") + relative("*/*_tool.cpp") if not path.startswith("src/frame/")]
    frame_files = [path for path in relative("frame/*.cpp") + relative("frame/*.h") if path not in NOT_SHOWN_FILES]
    tools = forms_of_tools(folder)
    transcripts = read_transcripts(folder)
    everything = set().union(*(shown for _, shown in transcripts))

    problems, checked, excused = [], 0, set()
    for path in form_files + frame_files:
        with open(os.path.join(folder, path), encoding="utf-8") as file:
            source = file.read()
        forms = {tools[name] for name in re.findall(r"\btool[A-Z0-9]\w*", source) if name in tools}
        shown = everything
        if path in form_files and forms:
            shown = set().union(*(texts for opened, texts in transcripts if opened & forms))
        skipped = NOT_SHOWN_TABLES.get(path, {})
        for name, text in texts_of_file(source):
            if not text or name in skipped or re.fullmatch(r"\.\w+", text):  # an ending of file names
                continue
            checked += 1
            seen = is_shown(text, shown)
            if listing:
                print("%s %s: %s %s" % ("seen   " if seen else "MISSING", path, name or "(in a call)", json.dumps(text)))
            if (path, text) in EXCEPTIONS:
                excused.add((path, text))
                if seen:
                    problems.append("%s: %s is seen by now; its exception goes" % (path, json.dumps(text)))
            elif not seen:
                problems.append("%s: %s %s stands in no transcript" % (path, name or "a call's text", json.dumps(text)))
    for path, text in EXCEPTIONS:
        if (path, text) not in excused:
            problems.append("%s: the exception %s excuses nothing" % (path, json.dumps(text)))
    for problem in problems:
        print(problem)
    print("%d texts of %d files, %d transcripts, %d problems" %
          (checked, len(form_files + frame_files), len(transcripts), len(problems)))
    return 1 if problems or checked == 0 else 0


if __name__ == "__main__":
    sys.exit(main())
