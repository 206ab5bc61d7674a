#!/usr/bin/env python3
"""A disk that is really full: the run ends in the error, not in its completion, and what was written stays.

A small file system in memory is mounted for it, and the printer's link leads to a device that is always full. Where the
machine does not allow the mount, the device alone is tried and the rest is told as skipped (status 77).
"""

import json
import os
import pathlib
import shutil
import subprocess
import sys
import tempfile

PROGRAM = sys.argv[1]
SAMPLES = pathlib.Path(sys.argv[2])
ROOM = 16 * 1024  # less than any of the reports below
ERROR = "Error In Writing Output File"

# form, sample, load, file radio, out-file edit, print, title of the report
RUNS = [
    ("PRNTRPT", "TR010109.B01", 1199, 1011, 1013, 1015, "TRADES PRINTING"),
    ("PRNTNP", "TR010109.B01", 1134, 1143, 1144, 1147, "PRINTING NET POSITION"),
    ("PRNTBRKREP", "BR010109.BIN", 1209, 1034, 1036, 1037, "PRINTING BRKQRY"),
    ("PRNTTLINE", "TL010109.SAV", 1204, 1065, 1063, 1071, "PRINTING TLINES"),
    ("PRNTTRDLM", "TD010109.TRD", 1205, 1091, 1089, 1094, "PRINTING TRDLIMITS"),
]
LARGE = ("PRNTRPT", "PRNTBRKREP")  # forms with a row for each record, whose report grows with them
failures = []


def enlarged(sample, header=24, size=132):
    """The sample's records often enough for a report of several buffers, which a thread writes beside the work."""
    whole = (SAMPLES / sample).read_bytes()
    records = whole[header:]
    records = records[:len(records) // size * size]
    return whole[:header] + records * (6000 * size // len(records) + 1)


def boxes(folder, commands):
    run = subprocess.run([PROGRAM], input=commands, cwd=folder, capture_output=True, text=True, timeout=60)
    if run.returncode != 0:
        failures.append(f"status {run.returncode}: {run.stderr}")
    return [json.loads(line)["box"] for line in run.stdout.splitlines() if line.startswith('{"box"')]


def expect_error(what, shown, title):
    last = shown[-1] if shown else {}
    if (last.get("text"), last.get("title"), last.get("icon")) != (ERROR, title, "error"):
        failures.append(f"{what}: the last box is {last}")
    if any("COMPLETE" in box["text"].upper() for box in shown):
        failures.append(f"{what}: a completion is shown")


with tempfile.TemporaryDirectory() as work:
    for form, sample, load, file, edit, button, title in RUNS:
        shutil.copy(SAMPLES / sample, work)
        expect_error(f"{form} on a full device",
                     boxes(work, f"printer /dev/full\ntool {form}\nchoose {sample}\npress {load}\npress {button}\n"), title)

        if form in LARGE:
            (pathlib.Path(work) / sample).write_bytes(enlarged(sample))
            expect_error(f"{form}, a large report, on a full device",
                         boxes(work, f"printer /dev/full\ntool {form}\nchoose {sample}\npress {load}\npress {button}\n"), title)

skipped = False
with tempfile.TemporaryDirectory() as work:
    mounted = subprocess.run(["mount", "-t", "tmpfs", "-o", f"size={ROOM}", "tmpfs", work], capture_output=True).returncode == 0
    if mounted:
        try:
            disk = pathlib.Path(work)
            (disk / "FILLER").write_bytes(b"x" * (ROOM - 4096))  # one page of memory is left
            for form, sample, load, file, edit, button, title in RUNS:
                shown = boxes(work, f"tool {form}\nchoose {SAMPLES / sample}\npress {load}\npress {file}\ntype {edit} OUT.TXT\npress {button}\n")
                report = disk / "OUT.TXT"
                if not report.exists():
                    failures.append(f"{form}: nothing stayed on the full disk")
                    continue
                size = report.stat().st_size
                report.unlink()
                if size < 4096:  # it fitted: then it must have been told as complete
                    if any(box["text"] == ERROR for box in shown):
                        failures.append(f"{form}: {size} bytes fitted and were told as lost")
                else:
                    expect_error(f"{form} on a full disk", shown, title)
            # Room for some buffers of a large report, and no more.
            (disk / "FILLER").unlink()
            subprocess.run(["mount", "-o", "remount,size=600k", work], check=True)
            with tempfile.TemporaryDirectory() as inputs:
                for form, sample, load, file, edit, button, title in RUNS:
                    if form not in LARGE:
                        continue
                    (pathlib.Path(inputs) / sample).write_bytes(enlarged(sample))
                    shown = boxes(work, f"tool {form}\nchoose {inputs}/{sample}\npress {load}\npress {file}\ntype {edit} OUT.TXT\npress {button}\n")
                    expect_error(f"{form}, a large report, on a full disk", shown, title)
                    size = (disk / "OUT.TXT").stat().st_size
                    if size != 600 * 1024:
                        failures.append(f"{form}, a large report: {size} bytes stayed on a disk of 600 KiB")
                    (disk / "OUT.TXT").unlink()
        finally:
            subprocess.run(["umount", work], check=True)
    else:
        skipped = True

print("\n".join(failures) if failures else "a full disk and a full device are told")
if not failures and skipped:
    print("the full disk itself was not tried: no file system can be mounted here")
sys.exit(1 if failures else 77 if skipped else 0)
