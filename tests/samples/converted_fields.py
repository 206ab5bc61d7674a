#!/usr/bin/env python3
"""Files of every kind through the Convert form, and what comes out read back column by column against the binary records.

    converted_fields.py PROGRAM SAMPLES

First a sample of every kind, as its users have them. Then, for each layout, records of any bytes at all, of which the output is
compared as a whole: a text may hold a '|' there, or a line feed.
"""

import json
import os
import pathlib
import random
import shutil
import subprocess
import sys
import tempfile

HERE = os.path.dirname(os.path.abspath(__file__))
sys.path.insert(0, os.path.join(HERE, "..", "tools"))
sys.dont_write_bytecode = True

import conversions  # noqa: E402
from workfiles import header  # noqa: E402

PROGRAM, SAMPLES = os.path.abspath(sys.argv[1]), pathlib.Path(sys.argv[2]).resolve()
LOAD, NAME, CONVERT = 1209, 1153, 1151
BR, CLIENTS, TYPES = "press 1221", "press 1232", "press 1261"  # what is pressed beside the choice that stands there
LONG, SHORT = "answer yes", "answer no"  # to the question for scrip group and settlement

# sample, layout, lending, steps between Load and Convert
RUNS = [
    ("TR010109.B01", "trade 132", False),
    ("TO010109.B01", "trade 132", False),
    ("TR210509.B01", "trade 144 short", False, SHORT),
    ("TR250509.B01", "trade 144 long", False, LONG),
    ("STR250509.B01", "trade 144 long", True),
    ("BR010109.BIN", "broker 132", False),
    ("BR210509.BIN", "broker 160 short", False, SHORT),
    ("BR250509.BIN", "broker 160 long", False, LONG),
    ("BR250509.SBIN", "broker 160 long", True),
    ("CT010109.B01", "kesto trade", False),
    ("SCT250509.B01", "kesto trade", True),
    ("BB010109.BIN", "kesto broker", False),
    ("SBB250509.BIN", "kesto broker", True),
    ("AD010109.adm", "admin 144 normal", False),
    ("AD010109.adm", "admin 144 br", False, BR),
    ("AD230710.adm", "admin 168 normal", False),
    ("AD230710.adm", "admin 168 br", False, BR),
    ("AD260710.adm", "admin 176 normal", False),
    ("AD260710.adm", "admin 176 br", False, BR),
    ("AD260710.SADM", "admin 176 normal", True),
    ("AD260710.SADM", "admin 176 br", True, BR),
    ("OR211103.LOG", "order 112", False),
    ("OR210509.LOG", "order", False),
    ("OR250509.LOG", "order", False),
    ("OR250509.LOG", "client rectification", False, CLIENTS),
    ("OR250509.LOG", "type rectification", False, TYPES),
    ("SOR250509.LOG", "order", True),
    ("SOR250509.LOG", "client rectification", True, CLIENTS),
    ("SOR250509.LOG", "type rectification", True, TYPES),
    ("QO250509.LOG", "quote", False),
    ("BO250509.BIN", "consolidated", False),
    ("SBO250509.BIN", "consolidated", True),
    ("Adel250509.adl", "admin deletion", False),
    ("TrdRect250509.dat", "trade rectification", False),
]

# layout, name and letters of its file, date, steps; the names that begin with an S are lending files
MADE = [
    ("trade 132", "TR.B01", "NT", "01/01/2009"),
    ("trade 144 short", "TR.B01", "VT", "01/01/2009", SHORT),
    ("trade 144 long", "TR.B01", "VT", "01/01/2009", LONG),
    ("trade 144 long", "STR.B01", "VT", "01/01/2009"),
    ("broker 132", "BR.BIN", "NB", "01/01/2009"),
    ("broker 160 short", "BR.BIN", "VB", "01/01/2009", SHORT),
    ("broker 160 long", "BR.BIN", "VB", "01/01/2009", LONG),
    ("broker 160 long", "SBR.BIN", "VB", "01/01/2009"),
    ("kesto trade", "CT.B01", "BT", "01/01/2009"),
    ("kesto broker", "BB.BIN", "BB", "01/01/2009"),
    ("admin 144 normal", "AD.X", "NA", "01/01/2009"),
    ("admin 144 br", "AD.X", "NA", "01/01/2011", BR),
    ("admin 168 normal", "AD.X", "VA", "23/07/2010"),
    ("admin 168 br", "AD.X", "VA", "30/06/2010", BR),
    ("admin 176 normal", "AD.X", "VA", "24/07/2010"),
    ("admin 176 br", "SAD.X", "VA", "24/07/2009", BR),
    ("order 112", "OR.LOG", "NO", "21/11/2003"),
    ("order", "OR.LOG", "NO", "22/11/2003"),
    ("order", "SOR.LOG", "NO", "21/11/2003"),
    ("client rectification", "OR.LOG", "NO", "22/11/2003", CLIENTS),
    ("type rectification", "OR.LOG", "NO", "26/05/2007", TYPES),
    ("quote", "QO.LOG", "NQ", "01/01/2009"),
    ("consolidated", "BO.BIN", "NL", "01/01/2009"),
    ("consolidated", "SBO.BIN", "NL", "01/01/2009"),
    ("admin deletion", "AD.L", "NJ", "01/01/2009"),
    ("admin deletion", "SAD.L", "JJ", "01/01/2009"),
    ("trade rectification", "RECT", "SS", "01/01/2009"),
]
# where a layout has a code or a client type, of which few values mean anything
ORDER_CODES = (32, 34, 44, 132)
CODES = {"order 112": ORDER_CODES[:3], "order": ORDER_CODES, "client rectification": ORDER_CODES,
         "type rectification": ORDER_CODES, "quote": (36, 38, 46), "consolidated": (52, 54, 56), "admin deletion": (32, 34),
         "trade rectification": (54, 56)}
SIDES = {"trade 132": 78, "trade 144 short": 98, "trade 144 long": 98, "broker 132": 81, "broker 160 short": 101,
         "broker 160 long": 101, "kesto trade": 80, "kesto broker": 72, "consolidated": 71, "admin deletion": 37,
         "order 112": 37, "order": 37, "client rectification": 37, "type rectification": 37}
MADE_RECORDS = 120

problems = []


def convert(folder, name, steps):
    """The bytes of the output; None, and a problem, where the conversion does not come to its end."""
    commands = ["tool CONVERT", f"choose {name}", f"press {LOAD}", *steps, f"type {NAME} OUT.TXT", f"press {CONVERT}", ""]
    run = subprocess.run([PROGRAM], input="\n".join(commands), cwd=folder, capture_output=True, text=True, timeout=60)
    boxes = [json.loads(line)["box"]["text"] for line in run.stdout.splitlines() if line.startswith('{"box"')]
    if run.returncode != 0 or not boxes or boxes[-1] != "CONVERSION COMPLETE":
        problems.append(f"{name} {steps}: status {run.returncode}, boxes {boxes} {run.stderr}")
        return None
    return pathlib.Path(folder, "OUT.TXT").read_bytes()


def linesOf(what, text, end):
    lines = text.split(end)
    if lines.pop() != b"":
        problems.append(f"{what}: the last line has no end")
    if any(b"\n" in line or b"\r" in line for line in lines):
        problems.append(f"{what}: an end of a line that is not {end}")
    return lines


def compare(what, text, layout, expected):
    lines = linesOf(what, text, conversions.endOf(layout))
    if len(lines) != len(expected):
        problems.append(f"{what}: {len(lines)} lines, {len(expected)} records")
    for number, (line, row) in enumerate(zip(lines, expected), 1):
        *columns, last = line.split(b"|")
        if last != b"" or len(columns) != len(row):
            problems.append(f"{what}, line {number}: {len(columns)} columns and {last}, not {len(row)}: {line}")
            continue
        for place, (column, (field, value)) in enumerate(zip(columns, row), 1):
            if column != value:
                problems.append(f"{what}, line {number}, column {place}, {field}: {column}, in the record {value}")
    return sum(len(row) for row in expected)


def samples(folder):
    compared, told = 0, set()
    for sample, layout, lending, *steps in RUNS:
        shutil.copy(SAMPLES / sample, folder)
        text = convert(folder, sample, steps)
        if text is None:
            continue
        expected = conversions.rows((SAMPLES / sample).read_bytes(), layout, lending)
        if len(expected) < 2:
            problems.append(f"{sample}: {len(expected)} lines of {layout} are no sample")
        compared += compare(f"{sample} as {layout}", text, layout, expected)
        told.add(layout)
    for layout in set(conversions.LAYOUTS) - told:
        problems.append(f"no sample of {layout}")
    return compared


def anyRecord(chance, layout):
    """Any bytes, letters, or small ones, so that texts end early and late; codes that mean something three times of four."""
    alphabet = chance.choice((range(256), range(256), range(32, 127), (0, 10, 13, 37, 48, 65, 124)))
    record = bytearray(chance.choice(alphabet) for _ in range(conversions.LAYOUTS[layout][0]))
    for at in CODES.get(layout, ()):
        if chance.randrange(4):
            record[at:at + 2] = bytes([chance.choice((*range(24), *range(24), 28, 29, 40, 51, 61, 71, 76, 81, 86, 88, 89, 90)), 0])
    if layout in SIDES and chance.randrange(4):
        record[SIDES[layout]] = ord(chance.choice("BSLTMV"))
    if layout in conversions.LISTED:
        record[128] = ord(chance.choice("NYIX"))
    return bytes(record)


def madeFiles(folder):
    compared = 0
    for number, (layout, name, letters, date, *steps) in enumerate(MADE):
        chance = random.Random(number)
        file = header(fileKind=letters[0], kind=letters[1], date=date)
        file += b"".join(anyRecord(chance, layout) for _ in range(MADE_RECORDS))
        pathlib.Path(folder, name).write_bytes(file)
        text = convert(folder, name, steps)
        expected = conversions.textOf(file, layout, name.startswith("S"))
        if text is not None and text != expected:
            at = next((i for i, (a, b) in enumerate(zip(text, expected)) if a != b), min(len(text), len(expected)))
            problems.append(f"any bytes as {layout}, {name}: at {at}\n  {text[at - 60:at + 60]}\n  {expected[at - 60:at + 60]}")
        compared += len(expected)
    return compared


with tempfile.TemporaryDirectory() as work:
    columns, size = samples(work), madeFiles(work)
print("\n".join(problems) if problems else f"{columns} columns of samples and {size} bytes of any records are as they must be")
sys.exit(1 if problems else 0)
