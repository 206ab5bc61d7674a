#!/usr/bin/env python3
"""quillon-print.exe under Wine writes what the native one writes, from command lines as Windows has them.

Usage: print_wine.py NATIVE_QUILLON_PRINT WINDOWS_BUILD SAMPLES
"""

import os
import pathlib
import shutil
import subprocess
import sys
import tempfile

HERE = pathlib.Path(__file__).resolve().parent
sys.path.insert(0, str(HERE.parent / "windows"))

import wine_desktop  # noqa: E402

NATIVE, BUILD, SAMPLES = os.path.abspath(sys.argv[1]), os.path.abspath(sys.argv[2]), pathlib.Path(sys.argv[3])
CLOCK = ["--clock", "2009-05-22 10:11:12"]
CALLS = [
    (["trades", "export\\TR010109.B01", "--sort", "Scrip Code", "--check", "Print Net Position", "-o", "a report of caf\u00e9 \u20ac.txt"], 0),
    (["trades", "export\\TR010109.B01", "--sort", "Scrip Code", "--pdf", "-o", "r.pdf"], 0),
    (["trades", "export\\TR010109.B01", "-o", "r.pdf"], 0),  # takes the place of the older one
    (["trades", "export\\BR010109.BIN", "-o", "r.pdf"], 1),
    (["trades", "export\\TR010109.B01", "-o", "none\\r.txt"], 1),
    (["trades", "export\\TR010109.B01", "--sort", "Colour", "-o", "r.txt"], 2),
    (["trades", "export\\ctrl.z", "--pdf", "-o", "z.pdf"], 0),  # a report with ^Z in it, which ends no file
    (["trades", "export\\TR010109.B01", "-o", "/dev/stdout"] + CLOCK, 0),
    (["--all", "export", "-o", "the day's reports", "-j", "2"] + CLOCK, 0),
    # Whether each of the runs gets the label as it is: the form's answer, which has it word for word, shows that.
    (["--all", "export", "-o", "odd", "-j", "2", "--as", "KT*=kesto:a  \"b\" \\\" \\c \\\\"] + CLOCK, 1),
]


def files_of(folder):
    return {str(p.relative_to(folder)): p.read_bytes() for p in sorted(folder.rglob("*")) if p.is_file() and p.parent.name != "export"}


def left_in_temp(desktop):
    return sorted(str(p) for p in pathlib.Path(desktop.environment["WINEPREFIX"], "drive_c", "users").rglob("*quillon-print-*"))


def slashes(told):
    return told.replace(b"\\", b"/").replace(b"\r\n", b"\n")


def prepare(folder):
    (folder / "export").mkdir(parents=True)
    for name in ("TR010109.B01", "BR010109.BIN", "DELY0101.215", "KT010109.SAV"):
        shutil.copy(SAMPLES / name, folder / "export" / name)
    trades = (SAMPLES / "TR010109.B01").read_bytes()
    (folder / "export" / "ctrl.z").write_bytes(trades.replace(b"INS04", b"INS\x1a4"))


def main():
    failures = []
    with tempfile.TemporaryDirectory() as scratch, wine_desktop.Desktop(BUILD, prefix=wine_desktop.SECOND_PREFIX) as desktop:
        native, windows = pathlib.Path(scratch) / "native", pathlib.Path(scratch) / "windows"
        prepare(native)
        prepare(windows)
        before = set(left_in_temp(desktop))
        for arguments, status in CALLS:
            ours = subprocess.run([NATIVE, *(a.replace("\\", "/") for a in arguments)], cwd=native, capture_output=True, timeout=120)
            theirs = subprocess.run(["wine", os.path.join(BUILD, "quillon-print.exe"), *arguments], cwd=windows, env=desktop.environment,
                                    capture_output=True, timeout=120)
            if (ours.returncode, theirs.returncode) != (status, status):
                failures.append(f"{arguments}: status {ours.returncode} here and {theirs.returncode} under Wine, wanted {status}\n{theirs.stderr}")
            if slashes(theirs.stdout) != slashes(ours.stdout):
                failures.append(f"{arguments}: other outcomes\n- {ours.stdout}\n+ {theirs.stdout}")
            if theirs.stderr.replace(b"\\", b"/") != ours.stderr.replace(b"\\", b"/"):
                failures.append(f"{arguments}: other messages\n- {ours.stderr}\n+ {theirs.stderr}")
            ours, theirs = files_of(native), files_of(windows)
            if ours != theirs:
                failures.append(f"{arguments}: other files: {sorted(ours)} {sorted(theirs)}")
        if len(files_of(windows)) != 10:
            failures.append(f"ten reports are wanted: {sorted(files_of(windows))}")
        if set(left_in_temp(desktop)) - before:
            failures.append(f"left in the folder for temporary files: {sorted(set(left_in_temp(desktop)) - before)}")
    print("\n".join(failures) or f"{len(CALLS)} calls: the same reports, messages and statuses")
    sys.exit(1 if failures else 0)


main()
