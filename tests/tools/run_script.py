#!/usr/bin/env python3
"""Runs script tests: whole runs of the program on the scripted desktop.

    run_script.py --program build/debug/quillon-script tests/scripts/trades/cancel_after_load ...

A case is a folder with
    script          the commands
    transcript      the JSON lines that they must bring about, compared line by line as JSON
    make.py         (optional) makes input files in the current folder, with the builders in tests/tools
    expected/       (optional) every file that the run must leave, byte for byte
    status          (optional) the exit status, where the transcript has no last line that tells it
    not-on-windows  (optional) why the real program cannot run it; not read here
Files that the run leaves and expected/ does not have are a failure; so is a changed or lost input.

The run happens in a fresh folder, with samples/export copied to export/. What came out is kept beside the build, in
received/<form>/<case>/ (or under --received), for reading: a transcript is read, and then moved by hand.
"""

import argparse
import os
import shutil
import subprocess
import sys
import tempfile

import transcripts

TOOLS = os.path.dirname(os.path.abspath(__file__))
SAMPLES = os.path.join(TOOLS, "..", "..", "samples", "export")
TIMEOUT = 120


def files_under(folder):
    """Every file below the folder as {name with '/': bytes}."""
    found = {}
    for base, _, names in os.walk(folder):
        for name in names:
            path = os.path.join(base, name)
            with open(path, "rb") as file:
                found[os.path.relpath(path, folder).replace(os.sep, "/")] = file.read()
    return found


def prepare(case, folder):
    """Puts a case's input files into its folder."""
    if os.path.isdir(SAMPLES):
        shutil.copytree(SAMPLES, os.path.join(folder, "export"))
    maker = os.path.join(case, "make.py")
    if os.path.exists(maker):
        environment = dict(os.environ, PYTHONPATH=TOOLS, PYTHONDONTWRITEBYTECODE="1")
        subprocess.run([sys.executable, maker], cwd=folder, env=environment, check=True, timeout=TIMEOUT)


def compare_files(case, before, after):
    """What differs between the files that a run left and those that it must leave, as a list of texts to read."""
    expected = files_under(os.path.join(case, "expected"))
    problems = []
    for name, data in expected.items():
        if name not in after:
            problems.append("the run did not leave " + name)
        else:
            problems.append(transcripts.bytes_difference(name, data, after[name]))
    for name, data in after.items():
        if name in expected:
            continue
        if name not in before:
            problems.append("the run left %s (%d bytes), which is not in expected/" % (name, len(data)))
        elif before[name] != data:
            problems.append("the run changed " + name)
    problems += ["the run took away " + name for name in before if name not in after]
    return [problem for problem in problems if problem]


def compare_transcript(case, received):
    """What differs between the transcript and the approved one, as a list of texts to read; and the approved exit status."""
    path = os.path.join(case, "transcript")
    if not os.path.exists(path):
        return ["there is no approved transcript yet"], None
    with open(path, encoding="utf-8") as file:
        wanted = transcripts.parse(file.read())
    try:
        difference = transcripts.difference(wanted, transcripts.parse(received.decode("utf-8")))
    except (UnicodeDecodeError, transcripts.NotATranscript) as error:
        difference = str(error)
    status = wanted[-1].get("exit") if wanted else None
    return [difference] if difference else [], status


def wanted_status(case, status):
    path = os.path.join(case, "status")
    if not os.path.exists(path):
        return status
    with open(path, encoding="ascii") as file:
        return int(file.read())


def keep_received(target, transcript, before, after):
    """Leaves what came out where a person can read it."""
    shutil.rmtree(target, ignore_errors=True)
    os.makedirs(target)
    with open(os.path.join(target, "transcript"), "wb") as file:
        file.write(transcript)
    for name, data in after.items():
        if before.get(name) == data:
            continue
        path = os.path.join(target, "expected", name)
        os.makedirs(os.path.dirname(path), exist_ok=True)
        with open(path, "wb") as file:
            file.write(data)


def run_case(program, case, work, received):
    """Runs one case; gives what went wrong, as a list of texts to read."""
    folder = tempfile.mkdtemp(prefix="script-", dir=work)
    try:
        prepare(case, folder)
        before = files_under(folder)
        with open(os.path.join(case, "script"), "rb") as script:
            run = subprocess.run([program], stdin=script, cwd=folder, capture_output=True, timeout=TIMEOUT)
        after = files_under(folder)
    except subprocess.TimeoutExpired:
        return ["the run did not end within %d seconds" % TIMEOUT]
    finally:
        shutil.rmtree(folder, ignore_errors=True)

    keep_received(os.path.join(received, *os.path.normpath(case).split(os.sep)[-2:]), run.stdout, before, after)
    problems, status = compare_transcript(case, run.stdout)
    status = wanted_status(case, status)
    if status is not None and run.returncode != status:
        problems.append("the exit status is %d, wanted %d" % (run.returncode, status))
    if run.stderr and status == 0:
        problems.append("on standard error: " + run.stderr.decode("utf-8", "replace"))
    return problems + compare_files(case, before, after)


def main():
    parser = argparse.ArgumentParser(description="Runs script tests on the scripted desktop.")
    parser.add_argument("--program", required=True, help="quillon-script")
    parser.add_argument("--work", help="the folder in which each run gets a fresh folder of its own (default: the system's)")
    parser.add_argument("--received", help="where received transcripts and files are kept (default: received/ beside the program)")
    parser.add_argument("cases", nargs="+", metavar="CASE", help="a folder with a script")
    options = parser.parse_args()

    program = os.path.abspath(options.program)
    received = options.received or os.path.join(os.path.dirname(program), "received", "scripts")
    if options.work:
        os.makedirs(options.work, exist_ok=True)
    failed = 0
    for case in options.cases:
        case = os.path.abspath(case)
        problems = run_case(program, case, options.work, received)
        if problems:
            failed += 1
            print("FAILED %s\n%s\n" % (case, "\n\n".join(problems)))
    print("%d of %d script tests passed" % (len(options.cases) - failed, len(options.cases)))
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
