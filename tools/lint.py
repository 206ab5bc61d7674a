#!/usr/bin/env python3
"""Keeps the rules of the house that no compiler knows. Each refusal says why its rule exists."""

import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
SOURCES = sorted(p for p in (ROOT / "src").rglob("*") if p.suffix in (".h", ".cpp"))
SUBSYSTEMS = {"trades", "position", "brokerquery", "kesto", "auction", "market", "logs", "convert"}


def folder_of(path):
    return path.relative_to(ROOT / "src").parts[0]


def refusals():
    resource_header = ROOT / "resources" / "resource.h"
    named = {}
    for match in re.finditer(r"#define\s+(ID[CD]?_\w+)\s+(\d+)", resource_header.read_text()):
        named.setdefault(match.group(2), match.group(1))

    for path in SOURCES:
        shown = path.relative_to(ROOT)
        parts = shown.parts
        for number, line in enumerate(path.read_text(encoding="utf-8").splitlines(), 1):
            at = f"{shown}:{number}"
            include = re.match(r'\s*#\s*include\s+[<"]([^>"]+)[>"]', line)
            if include:
                name = include.group(1)
                windows_place = parts[1:3] in (("desktop", "windows"), ("pages", "windows")) or shown.name == "main_windows.cpp"
                scripted_files = parts[1:3] == ("desktop", "scripted")
                if name.lower() == "windows.h" and not windows_place and not scripted_files:
                    yield f"{at}: <windows.h> outside desktop/windows: report and form code must not know which desktop it runs on"
                if name.endswith("_form.h") and folder_of(path) in SUBSYSTEMS and not name.startswith((folder_of(path) + "/", "frame/")):
                    yield f"{at}: one form includes another: what forms share belongs in frame/"
                if name == "resource.h" and folder_of(path) in ("text",):
                    yield f"{at}: text/ knows nothing of forms"
                if folder_of(path) == "text" and re.match(r"(frame|" + "|".join(SUBSYSTEMS) + ")/", name):
                    yield f"{at}: arrows run one way: text/ is used by the others and uses none of them"
                if folder_of(path) == "pages" and not re.match(r"(pages|text)/", name) and "/" in name:
                    yield f"{at}: pages/ knows reports as text alone: no form, no desktop"
                if folder_of(path) == "frame" and re.match(r"(" + "|".join(SUBSYSTEMS) + ")/", name):
                    yield f"{at}: arrows run one way: frame/ is used by the subsystems and uses none of them"
                if name in ("iostream", "fstream", "sstream"):
                    yield f"{at}: no iostreams: report text goes through print, which the compiler checks"
            if folder_of(path) in SUBSYSTEMS:
                code = line.split("//")[0]
                for call in re.finditer(r"\bform\w+\([^,()]+,\s*(\d{2,5})\b", code):
                    if call.group(1) in named:
                        yield f"{at}: a raw control id where resource.h has a name ({named[call.group(1)]}): ids drift apart unseen"
            if re.search(r"\b(throw|dynamic_cast|typeid|virtual)\b", line.split("//")[0].split('"')[0]):
                yield f"{at}: no exceptions, no RTTI, no virtual functions: plain functions over plain structs"


def seam_refusals():
    """What desktop/x.h declares, windows/x.cpp and scripted/x.cpp define, under the same file name."""
    for header in sorted((ROOT / "src/desktop").glob("*.h")):
        for side in ("windows", "scripted"):
            if not (ROOT / "src/desktop" / side / (header.stem + ".cpp")).exists():
                yield f"src/desktop/{header.name}: no {side}/{header.stem}.cpp: a reader must find both sides by the header's name"


def name_refusals():
    """One name, one type: of two in different files the linker takes whichever it meets first, without a word."""
    seen = {}
    for path in SOURCES:
        if path.relative_to(ROOT).parts[1:3] == ("desktop", "windows"):
            continue  # never in one program with the scripted desktop's
        unnamed = False
        for number, line in enumerate(path.read_text(encoding="utf-8").splitlines(), 1):
            if line == "namespace {":
                unnamed = True
            elif line == "}  // namespace":
                unnamed = False
            match = None if unnamed else re.match(r"(?:struct|class|enum class|union) (\w+)(?: :[^;]*)? \{", line)
            if not match:
                continue
            at = f"{path.relative_to(ROOT)}:{number}"
            if match.group(1) in seen:
                yield f"{at}: {match.group(1)} is a type of {seen[match.group(1)]} already: the linker would take one for the other"
            seen.setdefault(match.group(1), at)


found = list(refusals()) + list(name_refusals()) + list(seam_refusals())
print("\n".join(found) if found else f"lint: {len(SOURCES)} files, nothing to say")
sys.exit(1 if found else 0)
