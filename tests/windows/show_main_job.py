#!/usr/bin/env python3
"""The main job, as a user does it, in the real program: opens Trades, loads a sample, prints it to a file, shows a page.

    show_main_job.py --build build/windows

With a display the program is left open for use; without one it gets a screen of its own, and is closed at the end.
"""

import argparse
import os
import shutil
import sys

HERE = os.path.dirname(os.path.abspath(__file__))
SAMPLES = os.path.join(HERE, "..", "..", "samples", "export")
sys.path[:0] = [HERE, os.path.join(HERE, "..", "tools")]

import transcripts  # noqa: E402
import wine_desktop  # noqa: E402

TRADE_FILE = "TR010109.B01"
REPORT = "REPORT.TXT"
COMMANDS = ["tool PRNTRPT", "choose export/" + TRADE_FILE, "press 1199", "press 1011", "type 1013 " + REPORT, "answer yes",
            "press 1015"]
PAGE_END = b"\x0c"


def prepare(folder):
    """The program's current folder, with the samples where its open-file dialog looks first; reports of before stay."""
    os.makedirs(folder, exist_ok=True)
    shutil.copytree(SAMPLES, os.path.join(folder, "export"), dirs_exist_ok=True)
    report = os.path.join(folder, REPORT)
    if os.path.exists(report):
        os.remove(report)
    return report


def do_job(desktop, folder, leave):
    """The words of the last box, or why there was none."""
    if leave:
        status, out = desktop.run_and_leave(folder, COMMANDS)
    else:
        process = desktop.start_driver(folder)
        out, _ = process.communicate("\n".join(COMMANDS) + "\n", timeout=300)
        status = process.returncode
    if status != 0:
        return "the driver ended with status %d" % status
    boxes = [line["box"]["text"] for line in transcripts.parse(out) if "box" in line]
    return boxes[-1] if boxes else "a copy of the program is open already; close it first"


def main():
    parser = argparse.ArgumentParser(description="Does the main job with the real program and shows the first page.")
    parser.add_argument("--build", required=True, help="the build folder with quillon.exe and quillon-driver.exe")
    options = parser.parse_args()
    has_display = bool(os.environ.get("DISPLAY"))
    folder = os.path.join(os.path.abspath(options.build), "work")
    report = prepare(folder)
    try:
        with wine_desktop.Desktop(options.build, own_screen=not has_display) as desktop:
            desktop.keep_open = has_display
            last_words = do_job(desktop, folder, leave=has_display)
    except wine_desktop.DesktopError as error:
        print(error, file=sys.stderr)
        return 1
    if last_words != "PRINTING COMPLETE" or not os.path.exists(report):
        print("The report was not printed: " + last_words, file=sys.stderr)
        return 1
    with open(report, "rb") as file:
        page = file.read().split(PAGE_END)[0]
    print(page.decode("cp1252").replace("\r\n", "\n"))
    print("quillon.exe loaded export/%s and printed it: %s" % (TRADE_FILE, report))
    if has_display:
        print("The program is open for use.")
    return 0


if __name__ == "__main__":
    sys.exit(main())
