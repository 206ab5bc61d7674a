#!/usr/bin/env python3
"""The print dialog of quillon-pages and Save as PDF, worked from outside under Wine as a user works them.

Usage: dialog_wine.py BUILD [--pictures FOLDER [--dpi N] [--fonts FOLDER]]

With --pictures the dialog is opened and kept as print_dialog.png there, in the letters of tools/pictures; nothing is tested.
"""

import argparse
import importlib.machinery
import os
import pathlib
import re
import subprocess
import sys
import tempfile
import time

HERE = pathlib.Path(__file__).resolve().parent
ROOT = HERE.parent.parent
sys.path[:0] = [str(HERE), str(HERE.parent / "windows")]
sys.dont_write_bytecode = True

import cups_queues  # noqa: E402
import wine_desktop  # noqa: E402
from page_words import pages_of  # noqa: E402
from printed_pages import printed_wrong  # noqa: E402

pictures = importlib.machinery.SourceFileLoader("pictures", str(ROOT / "tools" / "pictures")).load_module()

IDS = {name: int(value) for name, value in re.findall(r"#define IDC_PRINT_(\w+) (\d+)", (ROOT / "resources/pages/print_ids.h").read_text())}
COMMANDS = {name: int(value) for name, value in re.findall(r"#define ID_(\w+) (\d+)", (ROOT / "resources/pages/ids.h").read_text())}
OK, CANCEL = 1, 2
SECONDS = 60
PAGE = "\r\n".join(f"{line:3} " + "123456789 " * 14 + "end" for line in range(1, 61)) + "\r\n\f"  # 147 columns
REPORT = (PAGE * 12).encode()

failures = []


def fail(text):
    failures.append(text)
    print(text, flush=True)


def expect(what, got, wanted):
    if got != wanted:
        fail(f"{what}: {got!r}, {wanted!r} is wanted")


class Dialog:
    """One opening of a dialog, in a program of its own where arguments are given, and the driver that works it."""

    def __init__(self, desktop, folder, *arguments, title="Print"):
        program = [] if arguments[:1] == ("start",) else [os.path.join(desktop.build, "quillon-pages-dialogs.exe")]
        self.program = arguments and subprocess.Popen(["wine", *program, *arguments], cwd=folder, env=desktop.environment,
                                                      stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        self.driver = subprocess.Popen(["wine", os.path.join(desktop.build, "quillon-dialog-driver.exe")], env=desktop.environment,
                                       stdin=subprocess.PIPE, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, encoding="utf-8")
        self.do(f"wait {title}")

    def do(self, command):
        self.driver.stdin.write(command + "\n")
        self.driver.stdin.flush()
        answer = self.driver.stdout.readline().rstrip("\r\n")
        if answer.startswith("?"):
            fail(f"{command}: {answer}")
        return answer

    def on(self, verb, control, rest=""):
        return self.do(f"{verb} {IDS.get(control, control)} {rest}".rstrip())

    def status(self):
        return self.on("text", "STATUS")

    def end(self, wanted):
        """The program's status once its last window is gone; None where the program stays."""
        self.driver.stdin.close()
        self.driver.wait(SECONDS)
        self.driver.stdout.close()
        if wanted is not None:
            expect("the status of the program", self.program.wait(SECONDS), wanted)


def first_opening(desktop, folder, spooler):
    dialog = Dialog(desktop, folder, "print", "REPORT.TXT", "3")
    expect("printers", dialog.on("items", "PRINTER"), "PDF|RAW")
    expect("the default printer is chosen", dialog.on("text", "PRINTER"), "PDF")
    expect("sheets", dialog.on("items", "SHEET"), "The printer's own|A4|A3|Letter|Legal")
    expect("the fit", dialog.status(), "147 columns, landscape, 8.9 pt; 12 sheets")
    for letter, control in (("S", "SHEET"), ("O", "ORIENTATION"), ("F", "FONT"), ("L", "LEFT"), ("T", "TOP"), ("G", "RIGHT"), ("B", "BOTTOM"),
                            ("U", "TO"), ("C", "COPIES"), ("P", "PRINTER")):
        expect(f"Alt+{letter}", dialog.do(f"access {letter.lower()}"), str(IDS[control]))

    dialog.on("pick", "ORIENTATION", "Portrait")
    expect("upright", dialog.status(), "147 columns, portrait, 6.1 pt; 12 sheets")
    dialog.on("pick", "FONT", "12")
    expect("12 points", dialog.status(), "147 columns, portrait, 12.0 pt: 74 columns fit; 12 sheets")
    dialog.on("type", "FONT", "5,5")
    expect("a size that was typed", dialog.status(), "147 columns, portrait, 5.5 pt; 12 sheets")
    dialog.on("type", "FONT", "large")
    expect("a size that is none", dialog.status(), "The font size is to be a number of points from 1 to 72.")
    expect("Print then", dialog.on("enabled", OK), "no")
    dialog.on("pick", "FONT", "As large as fits")
    dialog.on("pick", "ORIENTATION", "Automatic")
    dialog.on("type", "LEFT", "290")
    expect("margins", dialog.status(), "The margins leave no room on the sheet.")
    dialog.on("type", "LEFT", "")
    expect("no margin", dialog.status(), "The left margin is to be a number of millimetres from 0 to 500.")
    dialog.on("type", "LEFT", "15")
    dialog.on("press", "THIS_PAGE")
    expect("this page", dialog.status(), "147 columns, landscape, 8.7 pt; 1 sheet")
    dialog.on("type", "FROM", "13")
    expect("typing a page chooses the range", dialog.on("checked", "FROM_TO"), "yes")
    expect("no such page", dialog.status(), "There is no such page: the report has pages 1 to 12.")
    dialog.on("type", "FROM", "2")
    dialog.on("type", "TO", "4")
    dialog.on("pick", "SHEET", "A3")
    expect("on A3", dialog.status(), "147 columns, landscape, 12.0 pt; 3 sheets")
    dialog.on("pick", "SHEET", "A4")
    dialog.on("type", "COPIES", "0")
    expect("no copy", dialog.status(), "Copies are to be a number from 1 to 999.")
    dialog.on("type", "COPIES", "1")
    dialog.on("press", "AS_IT_IS")
    expect("as it is", dialog.status(), f"As it is: {len(REPORT):,} bytes")
    expect("the margins then", dialog.on("enabled", "LEFT"), "no")
    dialog.on("press", "AS_IT_IS")
    expect("as at first", dialog.status(), "147 columns, landscape, 8.7 pt; 3 sheets")
    dialog.on("press", OK)
    dialog.do("gone")
    dialog.end(0)
    ((title, job),) = spooler.jobs("PDF", 1)
    expect("the job's title", title, "REPORT.TXT")
    wrong = printed_wrong("pages 2 to 4 by the dialog", job, pages_of(REPORT)[1:4], folder, True, 8.7, 15 * 72 / 25.4)
    if wrong:
        fail(wrong)


def second_opening(desktop, folder, spooler):
    dialog = Dialog(desktop, folder, "print", "REPORT.TXT", "1")
    for control, wanted in (("PRINTER", "PDF"), ("SHEET", "A4"), ("ORIENTATION", "Automatic"), ("FONT", "As large as fits"), ("LEFT", "15"), ("TOP", "10"),
                            ("FROM", "2"), ("TO", "4"), ("COPIES", "1")):
        expect(f"{control} is remembered", dialog.on("text", control), wanted)
    expect("the range is remembered", dialog.on("checked", "FROM_TO"), "yes")
    expect("the fit", dialog.status(), "147 columns, landscape, 8.7 pt; 3 sheets")
    dialog.on("pick", "PRINTER", "RAW")
    dialog.on("press", "AS_IT_IS")
    dialog.on("press", OK)
    dialog.do("gone")
    dialog.end(0)
    ((title, job),) = spooler.jobs("RAW", 1)
    expect("the bytes as they are", (title, job == REPORT), ("REPORT.TXT", True))


def other_report(desktop, folder):
    """The range belongs to the first report; printer and "as it is" are remembered. Cancel prints nothing."""
    dialog = Dialog(desktop, folder, "print", "OTHER.TXT", "1")
    expect("the printer is remembered", dialog.on("text", "PRINTER"), "RAW")
    expect("as it is is remembered", dialog.on("checked", "AS_IT_IS"), "yes")
    expect("all pages of another report", dialog.on("checked", "ALL"), "yes")
    dialog.on("press", CANCEL)
    dialog.do("gone")
    dialog.end(1)


def nothing_there(desktop, folder, spooler):
    dialog = Dialog(desktop, folder, "print", "NONE.TXT", "1", title="Quillon Pages")
    if "NONE.TXT" not in dialog.do("words") or "cannot be read" not in dialog.do("words"):
        fail(f"a report that is not there: {dialog.do('words')}")
    dialog.on("press", OK)
    dialog.do("gone")
    dialog.end(1)
    spooler.run("cupsreject", "RAW")
    dialog = Dialog(desktop, folder, "print", "REPORT.TXT", "1")
    dialog.on("pick", "PRINTER", "RAW")
    dialog.on("press", OK)
    dialog.do("wait Quillon Pages")
    if '"RAW" did not take the report' not in dialog.do("words"):
        fail(f"a queue that refuses: {dialog.do('words')}")
    dialog.on("press", OK)
    dialog.do("gone")
    dialog.end(1)
    spooler.run("lpadmin", "-x", "RAW")
    spooler.run("lpadmin", "-x", "PDF")
    dialog = Dialog(desktop, folder, "print", "REPORT.TXT", "1")
    expect("no printer", dialog.status(), "No printer is installed. Add one in the settings of Windows.")
    expect("Print then", dialog.on("enabled", OK), "no")
    dialog.on("press", CANCEL)
    dialog.do("gone")
    dialog.end(1)


def cancelled(desktop, folder, spooler):
    """A long job, given up in its window: nothing arrives."""
    (folder / "LONG.TXT").write_bytes(PAGE.encode() * 3000)
    dialog = Dialog(desktop, folder, "print", "LONG.TXT", "1")
    expect("the long report", dialog.status(), "147 columns, landscape, 8.9 pt; 3000 sheets")
    dialog.on("press", OK)
    dialog.do("wait Working")
    expect("what it says", dialog.do("text 340"), "Printing LONG.TXT")
    dialog.on("press", CANCEL)
    dialog.do("gone")
    dialog.end(1)
    expect("the queue after a cancelled job", (spooler.idle("PDF"), list(spooler.place("PDF").iterdir())), (True, []))


def save_as_pdf(desktop, folder):
    program = subprocess.run(["wine", os.path.join(desktop.build, "quillon-pages-dialogs.exe"), "pdf", "OTHER.TXT", "given.pdf"], cwd=folder,
                             env=desktop.environment, stdin=subprocess.DEVNULL, capture_output=True, timeout=SECONDS)
    expect("a file that is given", (program.returncode, (folder / "given.pdf").exists()), (0, True))
    dialog = Dialog(desktop, folder, "pdf", "OTHER.TXT", title="Save as PDF")
    dialog.on("press", OK)
    dialog.do("gone")
    dialog.end(0)
    expect("the name that is proposed", (folder / "OTHER.pdf").exists() and (folder / "OTHER.pdf").read_bytes(), (folder / "given.pdf").read_bytes())
    dialog = Dialog(desktop, folder, "pdf", "OTHER.TXT", "OTHER.TXT", title="Quillon Pages")
    if "cannot be written" not in dialog.do("words"):
        fail(f"the report as its own PDF: {dialog.do('words')}")
    dialog.on("press", OK)
    dialog.do("gone")
    dialog.end(1)
    expect("the report", (folder / "OTHER.TXT").read_bytes(), b"another report\r\n")


def from_the_window(desktop, folder, spooler):
    """The page in front of the user, from the window's own menu; afterwards the window takes input again."""
    program = wine_desktop.windows_path(os.path.join(desktop.build, "quillon-pages.exe"))
    window = subprocess.Popen(["wine", os.path.join(desktop.build, "quillon-window-driver.exe")], cwd=folder, env=desktop.environment,
                              stdin=subprocess.PIPE, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, encoding="utf-8")

    def do(command):
        window.stdin.write(command + "\n")
        window.stdin.flush()
        answer = window.stdout.readline().rstrip("\r\n")
        if answer.startswith("?"):
            fail(f"{command}: {answer}")
        return answer

    do(f'start "{program}" "REPORT.TXT"')
    do(f"command {COMMANDS['PAGE_NEXT']}")
    do(f"command {COMMANDS['FILE_PRINT']}")
    dialog = Dialog(desktop, folder)
    dialog.on("pick", "PRINTER", "PDF")
    if dialog.on("checked", "AS_IT_IS") == "yes":
        dialog.on("press", "AS_IT_IS")
    dialog.on("press", "THIS_PAGE")
    dialog.on("press", OK)
    dialog.do("gone")
    dialog.end(None)
    ((title, job),) = spooler.jobs("PDF", 1)
    wrong = printed_wrong("page 2 from the window", job, pages_of(REPORT)[1:2], folder, True, 8.7, 15 * 72 / 25.4)
    if wrong:
        fail(wrong)
    do(f"command {COMMANDS['PAGE_NEXT']}")
    expect("the page after printing", do("status 0").split(" of ")[0].split()[-1], "3")
    expect("the status of the window", do("close"), "0")
    window.stdin.close()
    window.wait(SECONDS)
    window.stdout.close()


def without_console(desktop, folder):
    """Started from the desktop, help and a wrong call show in a box; a call that comes from a script never does."""
    start = ["start", "/wait", wine_desktop.windows_path(os.path.join(desktop.build, "quillon-pages.exe"))]
    for arguments, words, status in ((["/?"], "/list-printers", 0), (["/paint"], "no option", 2)):
        dialog = Dialog(desktop, folder, *start, *arguments, title="Quillon Pages")
        if words not in dialog.do("words"):
            fail(f"{arguments} shows {dialog.do('words')!r}")
        dialog.on("press", OK)
        dialog.do("gone")
        dialog.end(status)
    for arguments, status in ((["OTHER.TXT", "/print"], 2), (["NONE.TXT", "/print", "PDF"], 3), (["NONE.TXT", "/paint", "/pdf", "x.pdf"], 2)):
        silent = subprocess.run(["wine", *start, *arguments], cwd=folder, env=desktop.environment, stdin=subprocess.DEVNULL,
                                stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, timeout=SECONDS)
        expect(f"the status of {arguments}", silent.returncode, status)


def picture(desktop, folder, frame_buffers, place):
    dialog = Dialog(desktop, folder, "print", "REPORT.TXT", "1")
    left, top, right, bottom = map(int, dialog.do("place").split())
    time.sleep(3)  # until Wine has drawn it
    _, _, rows = pictures.read_screen(os.path.join(frame_buffers, "Xvfb_screen0"))
    pictures.write_png(os.path.join(place, "print_dialog.png"), (left, top, right, bottom), rows)
    dialog.on("press", CANCEL)
    dialog.do("gone")
    dialog.end(1)


def forget(desktop):
    for path in pathlib.Path(desktop.prefix).glob("drive_c/users/*/AppData/Roaming/Quillon/quillon-pages.ini"):
        path.unlink()


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("build")
    parser.add_argument("--pictures")
    parser.add_argument("--dpi", type=int, default=96)
    parser.add_argument("--fonts", default="/usr/share/wine/fonts")
    options = parser.parse_args()
    prefix = pictures.PREFIX if options.pictures else wine_desktop.SECOND_PREFIX
    if options.pictures:
        pictures.give_fonts(options.build, options.fonts)
    with cups_queues.Spooler() as spooler, tempfile.TemporaryDirectory(prefix="qp-") as name, tempfile.TemporaryDirectory() as frames, \
            wine_desktop.Desktop(options.build, dpi=options.dpi, frame_buffers=frames, prefix=prefix) as desktop:
        desktop.environment["CUPS_SERVER"] = spooler.environment["CUPS_SERVER"]
        folder = pathlib.Path(os.path.realpath(name))
        (folder / "REPORT.TXT").write_bytes(REPORT)
        (folder / "OTHER.TXT").write_bytes(b"another report\r\n")
        spooler.queue("PDF", default=True)
        spooler.queue("RAW", described=False)
        forget(desktop)
        if options.pictures:
            picture(desktop, folder, frames, options.pictures)
            return 0
        cancelled(desktop, folder, spooler)
        forget(desktop)
        first_opening(desktop, folder, spooler)
        second_opening(desktop, folder, spooler)
        other_report(desktop, folder)
        from_the_window(desktop, folder, spooler)
        save_as_pdf(desktop, folder)
        without_console(desktop, folder)
        nothing_there(desktop, folder, spooler)
        forget(desktop)
    print(f"{len(failures)} failures" if failures else "the dialogs say and do what they should")
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main())
