#!/usr/bin/env python3
"""Runs the script tests on the real quillon.exe, under Wine, worked from outside as a user works it.

    run_wine.py --build build/windows tests/scripts/trades/cancel_after_load ...

Each script gets a fresh program in a fresh folder. What is seen must agree with the approved transcript of the scripted
desktop (agreement.py says in what), and the files that are left must be those of expected/, byte for byte. A case with a
file not-on-windows is passed over; the file says why. What came out is kept in received/ under the build folder.

The real program's clock is the machine's: where a script sets the clock, to one day for the whole of it, today's date in what
the run leaves stands for that day's, and so does its year behind the day and month of a delivery slip.
"""

import argparse
import os
import re
import shutil
import sys
import time

HERE = os.path.dirname(os.path.abspath(__file__))
sys.path[:0] = [HERE, os.path.join(HERE, "..", "tools")]

import agreement  # noqa: E402
import run_script  # noqa: E402
import transcripts  # noqa: E402
import wine_desktop  # noqa: E402


def compare(case, received):
    path = os.path.join(case, "transcript")
    if not os.path.exists(path):
        return "there is no approved transcript yet"
    with open(path, encoding="utf-8") as file:
        wanted = transcripts.parse(file.read())
    try:
        seen = transcripts.parse(received)
    except transcripts.NotATranscript as error:
        return str(error)
    return transcripts.difference(agreement.seen_from_outside(wanted), agreement.seen_from_outside(seen))


def today():
    return time.strftime("%d/%m/%Y").encode("ascii")


def on_another_day(data, run_day, day):
    data = data.replace(run_day, day)
    return re.sub(rb"(  [^\s-]{2}-[^\s-]{2}-)" + run_day[-4:], rb"\g<1>" + day[-4:], data)


def on_the_day_of_the_script(case, days, before, after):
    """The files with each of the days, as reports print a date, taken for the one day to which the script sets the clock."""
    with open(os.path.join(case, "script"), encoding="utf-8") as script:
        clocks = set(re.findall(r"^clock (\d+)-(\d+)-(\d+)", script.read(), re.MULTILINE))
    if len(clocks) != 1:
        return after
    day = "/".join(reversed(clocks.pop())).encode("ascii")
    files = dict(after)
    for name, data in after.items():
        if before.get(name) != data:
            for run_day in days:
                data = on_another_day(data, run_day, day)
            files[name] = data
    return files


def run_case(desktop, case):
    """What went wrong, as a list of texts to read."""
    folder = wine_desktop.new_folder()
    try:
        run_script.prepare(case, folder)
        before = run_script.files_under(folder)
        days = [today()]
        transcript, complaint = desktop.run_script(folder, os.path.join(case, "script"))
        days.append(today())
        after = on_the_day_of_the_script(case, days, before, run_script.files_under(folder))
    finally:
        shutil.rmtree(folder, ignore_errors=True)
    name = os.path.normpath(case).split(os.sep)[-2:]
    run_script.keep_received(os.path.join(desktop.build, "received", *name), transcript.encode("utf-8"), before, after)
    problems = [complaint] if complaint else []
    problems.append(compare(case, transcript))
    problems += run_script.compare_files(case, before, after)
    return [problem for problem in problems if problem]


def cases_below(folder):
    return sorted(base for base, _, names in os.walk(folder) if "script" in names)


def main():
    parser = argparse.ArgumentParser(description="Runs script tests on the real program under Wine.")
    parser.add_argument("--build", required=True, help="the build folder with quillon.exe and quillon-driver.exe")
    parser.add_argument("--all", metavar="FOLDER", help="every case below this folder")
    parser.add_argument("cases", nargs="*", metavar="CASE", help="a folder with a script")
    options = parser.parse_args()

    cases = [os.path.abspath(case) for case in options.cases + (cases_below(options.all) if options.all else [])]
    if not cases:
        print("no case was found")
        return 1
    failed, passed_over = 0, 0
    started = time.monotonic()
    try:
        with wine_desktop.Desktop(options.build) as desktop:
            for case in cases:
                if os.path.exists(os.path.join(case, "not-on-windows")):
                    passed_over += 1
                    continue
                problems = run_case(desktop, case)
                if problems:
                    failed += 1
                    print("FAILED %s\n%s\n" % (case, "\n\n".join(problems)), flush=True)
    except wine_desktop.DesktopError as error:
        print(error)
        return 1
    ran = len(cases) - passed_over
    print("%d of %d scripts agree with the real program; %d passed over, as not-on-windows says; %.0f seconds"
          % (ran - failed, ran, passed_over, time.monotonic() - started))
    return 1 if failed or ran == 0 else 0


if __name__ == "__main__":
    sys.exit(main())
