#!/usr/bin/env python3
"""Shows that docs/messages.md has every message of the forms, the frame and the file selection, and nothing else.

    messages_page.py [--list] [SOURCE-FOLDER]

The texts are read out of the sources as texts_in_transcripts.py reads them. Of these a message is what tells a failure or asks
a question: titles, progress, completions, list items and the like are left out by rule, and what no rule knows is listed below
with its reason. Each message must stand in the first column of the page's tables, in alphabetical order, with the forms that
have it in the second; each text of the page must be a message of those forms. That no rule leaves out too much is seen in the
transcripts under tests/scripts: whatever a box with the icon of a failure or a question shows must be a message. An entry of the
lists below that is no longer needed is a failure as well.
"""

import glob
import json
import os
import re
import sys

import texts_in_transcripts as sources

PAGE = "docs/messages.md"
SHARED_TEXTS = "src/frame/report_form.h"

# Whose messages a source has. A file with two forms' tables has them by the tables' names.
PLACES = {
    "src/auction/auction_form.cpp": ["Auction"],
    "src/auction/delivery_form.cpp": ["Delivery Slips"],
    "src/brokerquery/broker_form.cpp": ["Broker Query"],
    "src/convert/convert_form.cpp": ["Convert"],
    "src/kesto/kesto_form.cpp": ["Kesto"],
    "src/kesto/kesto_header.cpp": ["Kesto"],
    "src/logs/admin_log_form.cpp": ["Admin Log"],
    "src/logs/order_log_form.cpp": ["Order Log"],
    "src/logs/quote_log_form.cpp": ["Quote Log"],
    "src/market/breakup_form.cpp": ["Breakup Data"],
    "src/market/sixa_sevena_form.cpp": ["6A7A"],
    "src/market/touchlines_form.cpp": ["Touchlines"],
    "src/market/trader_limits_form.cpp": ["Trader Limits"],
    "src/position/kesto_net_position_form.cpp": ["Kesto Net Position"],
    "src/position/position_form.cpp": ["Net Position", "SLB Position"],
    "src/position/position_tool.cpp": {"netPositionTool": ["Net Position"], "slbPositionTool": ["SLB Position"]},
    "src/trades/trades_form.cpp": ["Trades"],
    "src/frame/file_selection.cpp": ["file selection"],
    "src/frame/main_window.cpp": ["main window"],
    "src/frame/tools.cpp": ["main window"],
}
NOT_FORMS = {"file selection", "main window"}

# The words by which a form's source shows a text of SHARED_TEXTS, where that is not the text's own name alone: one of each group.
SHOWN_BY = {
    "noInputText": [{"noInputText", "noInputMessage"}],
    "writeFailedText": [{"writeFailedText", "showEndOfRun"}],
    "checkPrinterText": [{"checkPrinterText"}, {"anyCase"}],  # where a printer is told from a file
}

# Constants and members whose texts are no messages.
NO_MESSAGE_NAMES = re.compile(
    r"title|"  # of a form, of a box
    r"Type(Text)?$|"  # what the box FILE INFORMATION says of the file
    r"^item$|^lines$",  # items of a list; the number that an edit shows at first
    re.I)

NO_MESSAGE_TEXTS = re.compile(
    r"\s*|"  # blanks the Reply line
    r"\.\w+|"  # an ending of file names
    r".*in progress.*|"
    r"(?!.*\b(not?|cannot|can't)\b).*(complete|completed|printed)[ .!]*",
    re.I | re.S)

NO_MESSAGE_TABLES = {
    "src/frame/file_selection.cpp": {"requests": "titles of the open-file dialog"},
    "src/frame/main_window.cpp": {
        "mutexName": "the name of the mutex", "mainWindow": "names of the window class and the window's title"},
}

# {(file, text): why it is no message}
NO_MESSAGES = {
    ("src/convert/convert_form.cpp", "QUILLON"): "a box's title",
    ("src/frame/tools.cpp", "CONVERT"): "a box's title",
    ("src/frame/tools.cpp", "ERROR"): "a box's title",
    ("src/kesto/kesto_form.cpp", "KESTO TOUCHLINE PRINTING"): "a box's title",
    ("src/kesto/kesto_form.cpp", "KESTO (R) TRADERS LIMIT PRINTING"): "a box's title",
}

# {(file, text)}: titles that ask what their boxes leave unsaid.
TITLES_THAT_ASK = {("src/logs/admin_log_form.cpp", "DO YOU WISH TO CONTINUE")}


# ---- Sources -----------------------------------------------------------------------------------------------------------

def not_message_members(tokens):
    """The literals that stand behind a member such as `.title =`."""
    found = set()
    for position in range(len(tokens) - 3):
        dot, name, sign, value = tokens[position:position + 4]
        if (dot, sign) == (("sign", "."), ("sign", "=")) and value[0] == "text" and NO_MESSAGE_NAMES.search(name[1]):
            found.add(value[1])
    return found


def messages_of(path, source):
    """([(table, text)] of one source, entries of the lists above that it has needed)."""
    tokens = sources.tokens_of(source)
    members = not_message_members(tokens)
    skipped = {**sources.NOT_SHOWN_TABLES.get(path, {}), **NO_MESSAGE_TABLES.get(path, {})}
    found, used = [], set()
    for table, text in sources.texts_of_file(source):
        if table in skipped:
            used.add((path, table))
        elif (path, text) in TITLES_THAT_ASK:
            found.append((table, text))
            used.add((path, text))
        elif text in members or NO_MESSAGE_NAMES.search(table) or NO_MESSAGE_TEXTS.fullmatch(text):
            pass
        elif (path, text) in NO_MESSAGES:
            used.add((path, text))
        elif (path, text) not in sources.EXCEPTIONS:  # what no run can bring about needs no advice
            found.append((table, text))
    # A question that a format puts into its box.
    found += [("", value) for kind, value in tokens if kind == "text" and value.endswith("?") and ("", value) not in found]
    return found, used


def places_of_text(path, table):
    """Who shows a text that stands in this table of the source."""
    places = PLACES[path]
    return places[table] if isinstance(places, dict) else places


def shows_shared(name, source):
    """True for a form's source that shows the text which SHARED_TEXTS has under this name."""
    words = {value for kind, value in sources.tokens_of(source) if kind == "word"}
    return all(words & group for group in SHOWN_BY.get(name, [{name}]))


def on_page(text):
    """The text as the page has it."""
    return re.sub(r" *\n *", " ⏎ ", text.strip())


def read_messages(folder):
    """({text as the page has it: places that show it}, problems)."""
    messages, problems, used = {}, [], set()
    texts = {}
    for path in PLACES:
        try:
            with open(os.path.join(folder, path), encoding="utf-8") as file:
                texts[path] = file.read()
        except OSError:
            problems.append("%s: is gone, and stands in the list of places" % path)
    for path, source in texts.items():
        found, needed = messages_of(path, source)
        used |= needed
        for table, text in found:
            messages.setdefault(on_page(text), set()).update(places_of_text(path, table))
    with open(os.path.join(folder, SHARED_TEXTS), encoding="utf-8") as file:
        for name, text in messages_of(SHARED_TEXTS, file.read())[0]:
            for path, source in texts.items():
                if not path.startswith("src/frame/") and shows_shared(name, source):
                    messages.setdefault(on_page(text), set()).update(places_of_text(path, ""))

    for pattern in ("*/*_form.cpp", "*/*_tool.cpp", "frame/*.cpp"):
        for path in sorted(glob.glob(os.path.join(folder, "src", pattern))):
            path = os.path.relpath(path, folder).replace(os.sep, "/")
            with open(os.path.join(folder, path), encoding="utf-8") as file:
                known = path in PLACES or path in sources.NOT_SHOWN_FILES or not messages_of(path, file.read())[0]
            if not known:
                problems.append("%s: has messages and no place" % path)
    entries = {(path, table) for path, tables in NO_MESSAGE_TABLES.items() for table in tables}
    for path, text in sorted((entries | set(NO_MESSAGES) | TITLES_THAT_ASK) - used):
        problems.append("%s: the entry for %s is not needed" % (path, text))
    return messages, problems


def is_told(box, messages):
    """True for a box that tells no failure and asks nothing, and for one of a message: its text, its last line or its title."""
    if box["icon"] not in ("error", "exclamation", "question") or NO_MESSAGE_TEXTS.fullmatch(box["text"]):
        return True
    last_line = box["text"].strip().split("\n")[-1]
    return any(on_page(text) in messages for text in (box["text"], last_line, box["title"] or ""))


def problems_of_boxes(folder, messages):
    problems = set()
    for path in glob.glob(os.path.join(folder, "tests", "scripts", "*", "*", "transcript")):
        with open(path, encoding="utf-8") as file:
            boxes = [json.loads(line)["box"] for line in file if '"box":' in line]
        problems.update("`%s` shows in a box and is no message here" % on_page(box["text"])
                        for box in boxes if not is_told(box, messages))
    return sorted(problems)


# ---- The page ----------------------------------------------------------------------------------------------------------

def rows_of(page):
    """[(texts, places' cell, advice)] of all rows whose first cell has a text in backticks."""
    rows = []
    for line in page.splitlines():
        cells = [cell.strip() for cell in line.strip().strip("|").split("|")]
        if line.startswith("|") and cells[0].startswith("`"):
            rows.append((re.findall(r"`([^`]*)`", cells[0]), cells[1], cells[2] if len(cells) == 3 else ""))
    return rows


def places_of(cell, forms):
    """The places that a cell names: "Trades, Auction", "every form", "every form but Kesto, Convert"."""
    match = re.fullmatch(r"every form(?: but (.*))?", cell)
    named = {name.strip() for name in (match.group(1) or "" if match else cell).split(",")} - {""}
    return forms - named if match else named


def order_key(text):
    """Capitals and small letters are alike, and signs are passed over."""
    return re.sub(r"[^a-z0-9]+", " ", text.lower()).strip()


def problems_of(page, messages):
    problems = []
    forms = set().union(*messages.values()) - NOT_FORMS
    seen, before = set(), ""
    for texts, cell, advice in rows_of(page):
        shown = set()
        for text in texts:
            if text in seen:
                problems.append("`%s` stands on the page twice" % text)
            if order_key(text) < order_key(before):
                problems.append("`%s` stands behind `%s`" % (text, before))
            if text not in messages:
                problems.append("`%s` stands on the page and is no message of any source" % text)
            seen.add(text)
            before = text
            shown |= messages.get(text, set())
        if places_of(cell, forms) != shown:
            problems.append("`%s` shows on %s; the page says: %s" % (texts[0], ", ".join(sorted(shown)), cell))
        if not advice:
            problems.append("`%s` has no advice" % texts[0])
    for text in sorted(set(messages) - seen):
        problems.append("`%s` (%s) is not on the page" % (text, ", ".join(sorted(messages[text]))))
    return problems


def main():
    listing = "--list" in sys.argv
    arguments = [argument for argument in sys.argv[1:] if argument != "--list"]
    folder = arguments[0] if arguments else os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..")
    messages, problems = read_messages(folder)
    if listing:
        for text in sorted(messages, key=order_key):
            print("`%s`: %s" % (text, ", ".join(sorted(messages[text]))))
    with open(os.path.join(folder, PAGE), encoding="utf-8") as file:
        page = file.read()
    problems += problems_of(page, messages) + problems_of_boxes(folder, messages)
    for problem in problems:
        print(problem)
    print("%d messages, %d rows on the page, %d problems" % (len(messages), len(rows_of(page)), len(problems)))
    return 1 if problems or not messages else 0


if __name__ == "__main__":
    sys.exit(main())
