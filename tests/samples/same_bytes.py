#!/usr/bin/env python3
"""The sample maker gives the committed samples byte for byte, all of them and no others."""

import os
import subprocess
import sys
import tempfile

SAMPLES = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..", "samples")


def files(folder):
    found = {}
    for name in sorted(os.listdir(folder)):
        with open(os.path.join(folder, name), "rb") as file:
            found[name] = file.read()
    return found


with tempfile.TemporaryDirectory() as folder:
    subprocess.run([sys.executable, os.path.join(SAMPLES, "make_samples.py"), folder], check=True)
    made, committed = files(folder), files(os.path.join(SAMPLES, "export"))

problems = [name + ": made, but not committed" for name in made if name not in committed]
problems += [name + ": committed, but not made" for name in committed if name not in made]
problems += [name + ": the bytes differ" for name in made if name in committed and made[name] != committed[name]]
if not made:
    problems.append("the maker made nothing")
print("\n".join(problems) if problems else "%d samples are as the maker makes them" % len(made))
sys.exit(1 if problems else 0)
