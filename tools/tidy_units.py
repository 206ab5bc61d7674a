#!/usr/bin/env python3
"""Puts sources together into units for clang-tidy, which spends most of its time on the headers that they have in common.

Usage: tidy_units.py BUILD SOURCE...     writes BUILD/static/units/*.cpp and their compile_commands.json, tells each unit's path
       tidy_units.py --tell FILE         what was said, with the places in units as places in their sources

A unit holds sources of one folder that are built alike and have no name of their own in common. (A name of a source that a header
of another has too is not seen here; tools/static_checks then reads the sources one by one.)
"""

import json
import pathlib
import re
import shlex
import sys

LONGEST = 2000  # lines

# What begins a line and gives a name to the whole file.
NAME = re.compile(r"""
    ^(?:static|constexpr|inline|const|using|struct|class|union|enum|template|typedef|namespace)\b[^;{=(\[]*?(\w+)\s*(?=[;{=(\[]|:(?!:))
  | ^\}\s*(\w+)\s*(?:=.*|\{.*)?;
  | ^\#\s*define\s+(\w+)""", re.M | re.X)
SHARED = {"quillon", "fs"}  # namespaces that are the same everywhere


def names_of(text):
    """What a source has at its outermost level that another may have as well."""
    return {name for match in NAME.finditer(text) for name in match.groups() if name and name not in SHARED}


def flags_of(command, file):
    """The compiler's arguments without the source and the object."""
    words, flags, skip = shlex.split(command), [], False
    for word in words:
        if skip or word in ("-c", file):
            skip = False
        elif word == "-o":
            skip = True
        else:
            flags.append(word)
    return flags


def tell(said):
    def place(match):
        lines = pathlib.Path(match.group(1)).read_text(encoding="utf-8").split("\n")[:int(match.group(2))]
        begin = max(number for number, line in enumerate(lines) if line.startswith("#line "))
        return f"{lines[begin].split(chr(34))[1]}:{len(lines) - begin - 1}"

    print(re.sub(r"(\S+/static/units/\w+\.cpp):(\d+)", place, pathlib.Path(said).read_text(encoding="utf-8", errors="replace")))


def main():
    if sys.argv[1] == "--tell":
        return tell(sys.argv[2])
    build, sources = pathlib.Path(sys.argv[1]).resolve(), [pathlib.Path(s).resolve() for s in sys.argv[2:]]
    database = {entry["file"]: entry for entry in json.loads((build / "compile_commands.json").read_text())}
    place = build / "static" / "units"
    place.mkdir(parents=True, exist_ok=True)
    units = []
    for source in sources:
        entry = database.get(str(source))
        if not entry:
            sys.exit(f"{source} is not built here")
        text = source.read_text(encoding="utf-8")
        flags, names, lines = flags_of(entry["command"], entry["file"]), names_of(text), text.count("\n")
        kind = (source.parent, flags)
        for unit in units:
            if unit["kind"] == kind and not unit["names"] & names and unit["lines"] + lines <= LONGEST:
                break
        else:
            unit = {"kind": kind, "names": set(), "lines": 0, "text": "", "first": source, "entry": entry}
            units.append(unit)
        unit["names"] |= names
        unit["lines"] += lines
        unit["text"] += f'#line 1 "{source}"\n{text}'
    commands = []
    for unit in units:
        path = place / ("_".join(unit["first"].parts[-3:-1]) + "_" + unit["first"].name)
        path.write_text(unit["text"], encoding="utf-8")
        commands.append({"directory": unit["entry"]["directory"], "file": str(path), "arguments": [*unit["kind"][1], "-c", str(path)]})
        print(pathlib.Path(sys.argv[1]) / path.relative_to(build))
    (place / "compile_commands.json").write_text(json.dumps(commands, indent=1))


main()
