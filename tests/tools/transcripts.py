"""Transcripts: reading them, comparing them line by line as JSON, and showing where they differ.

Used by run_script.py for the scripted desktop, and by whatever works the real program and writes the same lines.
"""

import difflib
import json


class NotATranscript(Exception):
    """A line is no JSON object; the message says which."""


def parse(text):
    """The lines of a transcript as Python objects, blank ones skipped. A key that stands twice is refused."""

    def without_doubles(pairs):
        keys = [key for key, _ in pairs]
        if len(keys) != len(set(keys)):
            raise ValueError("a key stands twice: " + ", ".join(key for key in keys if keys.count(key) > 1))
        return dict(pairs)

    lines = []
    for number, line in enumerate(text.split("\n"), 1):
        if not line.strip():
            continue
        try:
            value = json.loads(line, object_pairs_hook=without_doubles)
        except ValueError as error:
            raise NotATranscript("line %d is no JSON: %s\n%s" % (number, error, line)) from error
        if not isinstance(value, dict):
            raise NotATranscript("line %d is no object: %s" % (number, line))
        lines.append(value)
    return lines


def line_of(value):
    """One object as one line, in the order of its keys as they came."""
    return json.dumps(value, ensure_ascii=False, separators=(",", ":"))


def same(wanted, received):
    """Equal as JSON: the order of keys is free, but true is not 1 and 1 is not 1.0."""
    return json.dumps(wanted, sort_keys=True) == json.dumps(received, sort_keys=True)


def _sorted_line(value):
    return json.dumps(value, sort_keys=True)


def difference(wanted, received):
    """What differs between two parsed transcripts, as text to read; empty where nothing does.

    Lines are matched up by their meaning; a line that is not in `received` begins with "- ", one that is not in `wanted`
    with "+ ". Of the lines that agree, two stand before and after each difference.
    """
    if len(wanted) == len(received) and all(same(a, b) for a, b in zip(wanted, received)):
        return ""
    matcher = difflib.SequenceMatcher(None, [_sorted_line(v) for v in wanted], [_sorted_line(v) for v in received], autojunk=False)
    shown = []
    for group in matcher.get_grouped_opcodes(2):
        shown.append("wanted from line %d, received from line %d:" % (group[0][1] + 1, group[0][3] + 1))
        for kind, from_wanted, to_wanted, from_received, to_received in group:
            if kind == "equal":
                shown += ["  " + line_of(value) for value in wanted[from_wanted:to_wanted]]
            else:
                shown += ["- " + line_of(value) for value in wanted[from_wanted:to_wanted]]
                shown += ["+ " + line_of(value) for value in received[from_received:to_received]]
    return "\n".join(shown)


def bytes_difference(name, wanted, received):
    """What differs between two files of bytes, as text to read; empty where nothing does."""
    if wanted == received:
        return ""

    def lines(data):
        return [repr(line)[2:-1] for line in data.split(b"\n")]

    diff = list(difflib.unified_diff(lines(wanted), lines(received), "wanted " + name, "received " + name, lineterm="", n=1))
    more = [] if len(diff) <= 60 else ["(%d more lines)" % (len(diff) - 60)]
    return "\n".join(diff[:60] + more)
