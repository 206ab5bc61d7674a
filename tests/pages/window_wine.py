#!/usr/bin/env python3
"""The window of quillon-pages, worked from outside under Wine as a user works it.

    window_wine.py BUILD REPORTS [TEST ...]      BUILD holds the programs, REPORTS the approved pages
    window_wine.py BUILD REPORTS --large FILE    opens a report of any size and tells how long all takes; nothing is tested
    window_wine.py BUILD REPORTS --pictures FOLDER [--dpi N] [--fonts FOLDER]
                                                 keeps pictures of the window there, with the reports of the folder REPORTS, which
                                                 quillon-print --all makes of the samples, and the fonts of tools/pictures
"""

import argparse
import importlib.machinery
import os
import pathlib
import random
import re
import shutil
import subprocess
import sys
import tempfile
import time

HERE = pathlib.Path(__file__).resolve().parent
ROOT = HERE.parent.parent
sys.path[:0] = [str(HERE.parent / "windows")]
sys.dont_write_bytecode = True

import wine_desktop  # noqa: E402

IDS = {name: int(value) for name, value in re.findall(r"#define ID_(\w+) (\d+)", (ROOT / "resources/pages/ids.h").read_text())}
SECONDS = 15
PAGE, FIT, ZOOM, WORDS = range(4)  # the parts of the status bar


class Failure(Exception):
    """What was seen and what was wanted."""


class Window:
    """quillon-pages with its window, and the driver that works it. `with Window(desktop, folder, "reports") as window:`"""

    def __init__(self, desktop, folder, argument=""):
        self.folder = folder
        self.driver = subprocess.Popen(["wine", os.path.join(desktop.build, "quillon-window-driver.exe")], cwd=folder, env=desktop.environment,
                                       stdin=subprocess.PIPE, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, encoding="utf-8")
        program = wine_desktop.windows_path(os.path.join(desktop.build, "quillon-pages.exe"))
        self.do('start "%s"%s' % (program, ' "%s"' % argument if argument else ""))

    def __enter__(self):
        return self

    def __exit__(self, kind, *_):
        try:
            status = self.ask("close")
            if kind is None and status != "0":
                raise Failure("the program ended with status %s" % status)
        finally:
            self.driver.stdin.close()
            self.driver.wait(60)
            self.driver.stdout.close()

    def ask(self, command):
        self.driver.stdin.write(command + "\n")
        self.driver.stdin.flush()
        answer = self.driver.stdout.readline().rstrip("\r\n")
        return re.sub(r"\\(.)", lambda match: {"n": "\n", "r": "\r"}.get(match[1], match[1]), answer)

    def do(self, *commands):
        for command in commands:
            answer = self.ask(command)
            if answer.startswith("?"):
                raise Failure("%s: %s" % (command, answer))

    def command(self, name):
        self.do("command %d" % IDS[name])

    def wait(self, question, wanted):
        """Until the answer is the wanted one; or, where `wanted` is a pattern, until it matches."""
        end = time.monotonic() + SECONDS
        while True:
            answer = self.ask(question)
            if answer == wanted or (isinstance(wanted, re.Pattern) and wanted.fullmatch(answer)):
                return answer
            if time.monotonic() > end:
                raise Failure("%s: %r, wanted %r" % (question, answer, wanted))
            time.sleep(0.02)

    def status(self, part, wanted):
        return self.wait("status %d" % part, wanted)

    def page(self, number, count, text=None):
        self.status(PAGE, "Page %d of %d" % (number, count))
        if text is not None:
            self.wait("text", text)

    def show_text(self):
        if self.ask("visible %d" % IDS["TEXT_VIEW"]) == "no":
            self.command("VIEW_TEXT")
        self.wait("visible %d" % IDS["TEXT_VIEW"], "yes")

    def ready(self):
        """The first page is there: on a busy machine its window may be there before it."""
        self.status(PAGE, re.compile("Page 1 of .*"))

    def seek(self, text):
        self.command("EDIT_FIND")
        self.wait("focus", str(IDS["FIND_TEXT"]))
        self.do("type %d %s" % (IDS["FIND_TEXT"], text))

    def names(self):
        return [row.split(";")[0] for row in self.ask("list").split("|")]


def expect(what, seen, wanted):
    if seen != wanted:
        raise Failure("%s: %r, wanted %r" % (what, seen, wanted))


def page_text(number, lines=20):
    return "\r\n".join("page %d line %d %s end" % (number, line, "." * (line % 7)) for line in range(1, lines + 1))


def report(pages, first=1):
    return "".join(page_text(number) + "\r\n\f" for number in range(first, first + pages)).encode("ascii")


def write(path, data, ago=0):
    """In one go, as a file that was renamed to its name: what is half written is tested by itself."""
    with open(path + ".tmp", "wb") as file:
        file.write(data)
    if ago:
        os.utime(path + ".tmp", (time.time() - ago,) * 2)
    os.replace(path + ".tmp", path)


# ---- Pages -------------------------------------------------------------------------------------------------------------


def every_page_is_reached_and_reads_as_in_the_file(desktop, folder):
    write(folder + "/A.TXT", report(7))
    with Window(desktop, folder, "A.TXT") as window:
        window.wait("title", "A.TXT - Quillon Pages")
        window.status(FIT, "25 columns, portrait, 12.0 pt")
        window.show_text()
        window.page(1, 7, page_text(1))
        for number in range(2, 8):
            window.do("key ctrl+PageDown")
            window.page(number, 7, page_text(number))
        window.do("key ctrl+PageDown")  # there is none behind the last
        window.do("key ctrl+PageUp")
        window.page(6, 7, page_text(6))
        for command, number in (("PAGE_FIRST", 1), ("PAGE_PREVIOUS", 1), ("PAGE_LAST", 7), ("PAGE_NEXT", 7), ("PAGE_PREVIOUS", 6)):
            window.command(command)
            window.page(number, 7, page_text(number))
        window.do("key ctrl+End")
        window.page(7, 7, page_text(7))
        window.do("key ctrl+Home")
        window.page(1, 7, page_text(1))
        for answer, number in (("5", 5), ("8", 5), ("0", 5), ("", 5), ("7", 7)):
            go_to(window, answer, number)


def go_to(window, answer, number):
    window.do("key ctrl+G")
    window.wait("dialog", "Go to Page")
    expect("the question", window.ask("words").strip(), "&Page (1 to 7):")
    window.do("type %d %s" % (IDS["GO_TO_PAGE"], answer), "key Enter")
    if answer not in ("5", "7"):  # is refused, and the question stays
        time.sleep(0.1)
        expect("the dialog", window.ask("dialog"), "Go to Page")
        window.do("key Esc")
    window.wait("dialog", "")
    window.page(number, 7, page_text(number))


def approved_pages_read_as_they_are(desktop, folder):
    """The widest and the longest of each kind, as the approved files have them."""
    chosen = {}
    for path in sorted(desktop.reports.glob("*/*.txt")):
        kind = path.parent.name
        widest = max(map(len, path.read_bytes().split(b"\n")), default=0)
        chosen[kind] = max(chosen.get(kind, (0, None)), (widest, path))
    os.mkdir(folder + "/reports")
    for kind, (_, path) in chosen.items():
        shutil.copy(path, "%s/reports/%s.TXT" % (folder, kind))
    with Window(desktop, folder, "reports") as window:
        window.ready()
        window.show_text()
        names = window.names()
        expect("reports in the list", sorted(names), sorted(kind + ".TXT" for kind in chosen))
        window.do("key F6")
        window.wait("focus", str(IDS["REPORT_LIST"]))
        window.do("key Home")
        for number, name in enumerate(names):
            if number:
                window.do("key Down")
            window.wait("title", name + " - Quillon Pages")
            window.wait("selected", str(number))
            pages = chosen[name[:-4]][1].read_bytes().decode("cp1252").split("\f")
            if not pages[-1].strip():
                pages.pop()
            for page, text in enumerate(pages, 1):
                window.page(page, len(pages), "\r\n".join(text.removesuffix("\n").replace("\r", "").split("\n")))
                window.do("key ctrl+PageDown")


def keys_and_wheel_go_through_a_page_and_on_to_the_next(desktop, folder):
    write(folder + "/A.TXT", report(3))
    with Window(desktop, folder, "A.TXT") as window:
        window.do("size 900 600")
        window.command("ZOOM_PAGE")
        window.status(PAGE, "Page 1 of 3")
        window.do("key PageDown")
        window.page(2, 3)
        window.do("wheel -1")
        window.page(3, 3)
        window.do("wheel -2")
        window.do("wheel 1")
        window.page(2, 3)
        window.do("key PageUp")
        window.page(1, 3)
        window.do("key PageUp")  # nothing stands before it
        window.command("ZOOM_ACTUAL")
        window.status(ZOOM, "100 %")
        window.do("key PageDown")  # a part of the page further
        window.do("key Space", "key Space")
        window.page(2, 3)
        window.do("wheel 1 ctrl")
        window.status(ZOOM, "110 %")
        window.do("key ctrl+Plus")
        window.status(ZOOM, "125 %")
        window.do("key ctrl+Minus", "wheel -1 ctrl")
        window.status(ZOOM, "100 %")
        window.do("key ctrl+0")
        # As wide as the window: a gap of 12 on each side, and the scroll bar. The sheet is 595.28 points wide.
        width = int(window.ask("area %d" % IDS["PAGE_VIEW"]).split()[2])
        window.status(ZOOM, re.compile("%d %%|%d %%" % tuple(round(100 * (width - bar - 24) * 72 / 96 / 595.28) for bar in (16, 17))))


# ---- Finding and copying -----------------------------------------------------------------------------------------------


def find_goes_through_the_report_and_round(desktop, folder):
    write(folder + "/A.TXT", b"one Needle\r\n\f\r\nnothing\r\n\fneedle and needle\r\n\f")
    with Window(desktop, folder, "A.TXT") as window:
        window.ready()
        window.seek("NEEDLE")
        for page, words in ((1, "Match 1 of 3."), (3, "Match 2 of 3."), (3, "Match 3 of 3."),
                            (1, "Searched on from the first page. Match 1 of 3.")):
            window.do("key F3")
            window.status(WORDS, words)
            window.page(page, 3)
        window.do("key shift+F3")
        window.status(WORDS, "Searched on from the last page. Match 3 of 3.")
        window.page(3, 3)
        window.do("key shift+F3")
        window.status(WORDS, "Match 2 of 3.")
        window.do("press %d" % IDS["FIND_PREVIOUS"])
        window.status(WORDS, "Match 1 of 3.")
        window.page(1, 3)
        window.do("press %d" % IDS["FIND_CASE"], "type %d needle" % IDS["FIND_TEXT"], "press %d" % IDS["FIND_NEXT"])
        window.status(WORDS, "Match 1 of 2.")
        window.page(3, 3)
        window.seek("haystack")
        window.do("key Enter")
        window.status(WORDS, "The text is not in this report.")
        window.page(3, 3)
        window.do("key Esc")
        window.wait("visible %d" % IDS["FIND_BAR"], "no")
        window.wait("focus", str(IDS["PAGE_VIEW"]))
        window.do("key F3")  # what was typed is still sought
        window.status(WORDS, "The text is not in this report.")


def find_goes_on_from_the_page_in_front(desktop, folder):
    write(folder + "/A.TXT", b"".join(b"needle %d\r\n\f" % page for page in range(1, 10)))
    with Window(desktop, folder, "A.TXT") as window:
        window.ready()
        window.show_text()
        window.seek("needle")
        window.command("PAGE_LAST")
        window.page(9, 9)
        window.command("PAGE_PREVIOUS")
        window.page(8, 9)
        window.do("key F3")
        window.status(WORDS, "Match 8 of 9.")
        window.command("PAGE_FIRST")
        window.page(1, 9)
        window.do("key shift+F3")
        window.status(WORDS, "Match 1 of 9.")


def text_view_selects_what_is_found_and_turns_pages(desktop, folder):
    write(folder + "/A.TXT", b"first line\r\nsecond needle\r\nthird\r\n\f" + report(2))
    with Window(desktop, folder, "A.TXT") as window:
        window.ready()
        window.show_text()
        window.seek("needle")
        window.do("key F3")
        found = len("first line\r\nsecond ")
        window.wait("selection", "%d %d" % (found, found + 6))
        window.do("key ctrl+A", "key Esc")  # of the bar's edit, not of the page
        window.wait("focus", str(IDS["TEXT_VIEW"]))
        expect("selection", window.ask("selection"), "%d %d" % (found, found + 6))
        window.do("key PageDown", "key PageDown")
        window.page(2, 3)
        window.wait("selection", "0 0")
        window.do("key PageUp")
        window.page(1, 3)
        end = len("first line\r\nsecond needle\r\nthird")  # where one reads on upwards
        window.wait("selection", "%d %d" % (end, end))


def what_is_selected_is_copied(desktop, folder):
    write(folder + "/A.TXT", b"Caf\xe9 \x80 500410\r\nsecond\tline\r\n\fpage two\r\n\f")
    whole = "Caf\u00e9 \u20ac 500410\r\nsecond  line"
    with Window(desktop, folder, "A.TXT") as window:
        window.ready()
        window.do("size 900 600", "key ctrl+1")
        window.status(ZOOM, "100 %")
        window.do("copy before")
        window.do("key ctrl+C")
        expect("clipboard", window.ask("clipboard"), "before")
        window.do("key ctrl+A", "key ctrl+C")
        window.wait("clipboard", whole)
        x, y = text_place(window)
        window.do("word %d %d" % (x + 9 * 80 // 10, y), "key ctrl+C")  # the tenth character
        window.wait("clipboard", "500410")
        window.do("drag %d %d %d %d" % (x + 5 * 96 // 10, y, x + 6 * 96 // 10, y + 16), "key ctrl+C")
        window.wait("clipboard", "\u20ac 500410\r\nsecond")
        window.do("key Esc", "copy before", "key ctrl+C")  # nothing is selected any more
        time.sleep(0.1)
        expect("clipboard", window.ask("clipboard"), "before")
        window.show_text()
        window.do("key F6", "key F6")
        window.wait("focus", str(IDS["TEXT_VIEW"]))
        window.do("key ctrl+A", "key ctrl+C")
        window.wait("clipboard", whole)


def text_place(window):
    """Where the first character stands on the page view, at 100 in a hundred and 96 dots an inch; its middle.

    Ten characters an inch, six lines an inch at most; the margins are 10 millimetres, the sheet is 793 wide and 12 below the edge.
    """
    width = int(window.ask("area %d" % IDS["PAGE_VIEW"]).split()[2]) - 17
    return max(12, (width - 793) // 2) + 38 + 2, 12 + 38 + 8


# ---- Folders -----------------------------------------------------------------------------------------------------------


def folder_is_listed_newest_first_and_followed(desktop, folder):
    os.makedirs(folder + "/reports/below")
    for number, name in enumerate(("OLD.TXT", "NEWER.LST", "NEWEST", "settings.ini", "A.PDF", "\u041e\u0442\u0447\u0451\u0442.TXT")):
        write("%s/reports/%s" % (folder, name), report(number + 1), 1000 - number * 100)
    with Window(desktop, folder, "reports") as window:
        wanted = ["\u041e\u0442\u0447\u0451\u0442.TXT", "NEWEST", "NEWER.LST", "OLD.TXT"]
        expect("the list", window.names(), wanted)
        window.page(1, 6)  # the newest one is shown
        window.wait("selected", "0")
        expect("its size", window.ask("list").split("|")[0].split(";")[1], "%d KB" % ((len(report(6)) + 1023) // 1024))
        write(folder + "/reports/CAME.TXT", report(1))
        window.wait("list", re.compile("CAME.TXT;1 KB\\|.*", re.DOTALL))
        expect("the list", window.names(), ["CAME.TXT"] + wanted)
        window.wait("selected", "1")  # the report in front stays in front
        expect("title", window.ask("title"), wanted[0] + " - Quillon Pages")
        os.remove(folder + "/reports/NEWEST")
        window.wait("list", re.compile("CAME.TXT;1 KB\\|[^|]*\\|NEWER.*", re.DOTALL))
        window.do("key F6", "key End")
        window.wait("title", "OLD.TXT - Quillon Pages")
        window.page(1, 1)
        window.command("VIEW_LIST")
        window.wait("visible %d" % IDS["REPORT_LIST"], "no")
        window.wait("focus", str(IDS["PAGE_VIEW"]))


def empty_folder_shows_no_report(desktop, folder):
    os.mkdir(folder + "/none")
    with Window(desktop, folder, "none") as window:
        window.wait("title", "Quillon Pages")
        window.status(PAGE, "")
        for command in ("PAGE_NEXT", "PAGE_LAST", "PAGE_GO_TO", "EDIT_COPY", "EDIT_SELECT_ALL", "FILE_PRINT", "FILE_SAVE_AS_PDF", "VIEW_REFRESH"):
            window.command(command)
        expect("dialogs", window.ask("dialog"), "")
        write(folder + "/none/FIRST.TXT", report(2))
        window.wait("list", re.compile("FIRST.TXT;.*"))
        expect("title", window.ask("title"), "Quillon Pages")


def report_is_dropped_and_chosen(desktop, folder):
    os.makedirs(folder + "/other")
    write(folder + "/A.TXT", report(1))
    write(folder + "/other/B.TXT", report(2))
    write(folder + "/other/C.TXT", report(3), 500)
    with Window(desktop, folder, "A.TXT") as window:
        window.do("drop " + wine_desktop.windows_path(folder + "/other/C.TXT"))
        window.wait("title", "C.TXT - Quillon Pages")
        window.page(1, 3)
        expect("the list", window.names(), ["B.TXT", "C.TXT"])
        window.do("drop " + wine_desktop.windows_path(folder + "/other"))
        window.wait("title", "B.TXT - Quillon Pages")
        window.do("key ctrl+O")
        window.wait("dialog", "Open Report")
        window.do("type 1152 " + wine_desktop.windows_path(folder + "/A.TXT"), "press 1")
        window.wait("title", "A.TXT - Quillon Pages")
        window.page(1, 1)
        window.command("HELP_ABOUT")
        window.wait("dialog", "About Quillon Pages")
        version = re.search(r"project\(quillon VERSION ([\d.]+)", (ROOT / "CMakeLists.txt").read_text())[1]
        expect("About", ("Quillon Pages %s\n" % version) in window.ask("words"), True)
        window.do("key Enter")
        window.wait("dialog", "")


def dialogs_of_printing_are_reached(desktop, folder):
    write(folder + "/A.TXT", report(2))
    with Window(desktop, folder, "A.TXT") as window:
        window.page(1, 2)
        window.do("key ctrl+P")
        window.wait("dialog", "Print")
        with open(folder + "/A.TXT", "ab") as file:  # what comes meanwhile is taken up afterwards
            file.write(report(1, first=3))
        time.sleep(1.2)
        expect("pages while the dialog is open", window.ask("status %d" % PAGE), "Page 1 of 2")
        window.do("press 2")
        window.wait("dialog", "")
        window.page(1, 3)
        window.do("key ctrl+S")
        window.wait("dialog", "Save as PDF")
        window.do("type 1148 " + wine_desktop.windows_path(folder + "/SAVED.pdf"), "press 1")
        end = time.monotonic() + SECONDS
        while not os.path.exists(folder + "/SAVED.pdf") and time.monotonic() < end:
            time.sleep(0.02)  # it takes its name when it is complete
        with open(folder + "/SAVED.pdf", "rb") as file:
            pdf = file.read()
        window.wait("dialog", "")
        expect("a PDF of three pages", (pdf[:5], b"/Count 3" in pdf), (b"%PDF-", True))


# ---- Files that change -------------------------------------------------------------------------------------------------


def report_that_grows_is_followed(desktop, folder):
    write(folder + "/A.TXT", report(3))
    with Window(desktop, folder, "A.TXT") as window:
        window.show_text()
        window.page(1, 3, page_text(1))
        with open(folder + "/A.TXT", "ab") as file:
            file.write(report(2, first=4) + b"page 6 begins")
        window.page(1, 6, page_text(1))  # who reads the first page stays there
        window.command("PAGE_LAST")
        window.page(6, 6, "page 6 begins")
        window.do("key End")
        window.wait("selection", "13 13")
        with open(folder + "/A.TXT", "ab") as file:
            file.write(b" and goes on")
        window.page(6, 6, "page 6 begins and goes on")
        expect("where one reads", window.ask("selection"), "13 13")
        with open(folder + "/A.TXT", "ab") as file:
            file.write(b"\r\n\f" + report(1, first=7))
        window.page(7, 7, page_text(7))  # who reads the last one stays on the last


def report_that_is_written_anew_is_shown_anew(desktop, folder):
    write(folder + "/A.TXT", report(5))
    with Window(desktop, folder, "A.TXT") as window:
        window.show_text()
        window.page(1, 5, page_text(1))
        window.do("key ctrl+PageDown")
        window.page(2, 5, page_text(2))
        write(folder + "/A.TXT", report(9, first=11))  # longer than before, and another
        window.page(2, 9, page_text(12))
        write(folder + "/A.TXT", report(1, first=31))  # shorter: page 2 is gone
        window.page(1, 1, page_text(31))
        write(folder + "/A.TXT", report(4, first=41))
        window.page(2, 4, page_text(42))  # and there again
        same = report(4, first=41).replace(b"page 42 line 20", b"PAGE 42 LINE 20")
        write(folder + "/A.TXT", same)  # as long as before
        window.page(2, 4, page_text(42).replace("page 42 line 20", "PAGE 42 LINE 20"))
        write(folder + "/A.TXT", b"")
        window.status(WORDS, "The report is empty.")
        window.status(PAGE, "")


def report_in_front_can_be_written_and_removed_by_others(desktop, folder):
    write(folder + "/A.TXT", report(2))
    with Window(desktop, folder, "A.TXT") as window:
        window.show_text()
        window.page(1, 2)
        refused = int(window.ask("rewrite 60 " + wine_desktop.windows_path(folder + "/A.TXT")))
        if refused:
            raise Failure("the report could not be written %d times of 60" % refused)
        window.page(1, 1, "written 60")
        os.remove(folder + "/A.TXT")
        window.status(WORDS, "The report cannot be read.")
        window.page(1, 1, "written 60")  # what was read stays on the screen
        for command in ("PAGE_NEXT", "PAGE_LAST", "EDIT_SELECT_ALL", "ZOOM_IN"):
            window.command(command)
        window.seek("written")
        window.do("key F3")
        window.status(WORDS, "The report cannot be read.")
        write(folder + "/A.TXT", report(3))
        window.page(3, 3, page_text(3))  # the last page was asked for


def no_file_is_too_strange(desktop, folder):
    long_name = folder
    while len(long_name) < 280:
        long_name += "/folder with a long name " + "x" * 40
    os.makedirs(long_name)
    write(long_name + "/LONG.TXT", report(2))
    write(folder + "/EMPTY.TXT", b"")
    write(folder + "/ONE.TXT", b"\f")
    write(folder + "/BINARY.TXT", random.Random(1).randbytes(3_000_000))
    write(folder + "/FEEDS.TXT", b"\f" * 100_000)
    write(folder + "/WIDE.TXT", b"x" * 100_000)
    with Window(desktop, folder, "MISSING.TXT") as window:
        window.status(WORDS, "The report cannot be read.")
        for name, page in (("EMPTY", ""), ("ONE", "Page 1 of 1"), ("BINARY", re.compile(r"Page 1 of \d{2,}")),
                           ("FEEDS", "Page 1 of 100000"), ("WIDE", "Page 1 of 3")):
            window.do("drop " + wine_desktop.windows_path("%s/%s.TXT" % (folder, name)))
            window.wait("title", name + ".TXT - Quillon Pages")
            window.status(WORDS, re.compile("|The report is empty."))
            window.status(PAGE, page)
            for command in ("VIEW_TEXT", "PAGE_LAST", "PAGE_PREVIOUS", "EDIT_SELECT_ALL", "VIEW_TEXT", "ZOOM_PAGE", "ZOOM_IN"):
                window.command(command)
            window.seek("zq0zq")
            window.do("key F3")
            window.status(WORDS, "The text is not in this report.")
            window.do("key Esc")
            window.wait("visible %d" % IDS["FIND_BAR"], "no")
            if int(window.ask("answers")) > 2000:
                raise Failure("%s: the window does not answer" % name)
        window.do("drop " + wine_desktop.windows_path(long_name + "/LONG.TXT"))
        window.page(1, 2)
        expect("the list", window.names(), ["LONG.TXT"])


# ---- Between two runs --------------------------------------------------------------------------------------------------


def place_and_choices_are_remembered(desktop, folder):
    os.mkdir(folder + "/reports")
    write(folder + "/reports/A.TXT", report(1))
    with Window(desktop, folder, "reports") as window:
        window.do("size 801 602", "key ctrl+1", "key ctrl+T")
        window.command("VIEW_LIST")
        window.wait("visible %d" % IDS["REPORT_LIST"], "no")
        window.wait("visible %d" % IDS["TEXT_VIEW"], "yes")
    with Window(desktop, folder) as window:
        window.wait("title", "A.TXT - Quillon Pages")  # of the folder that was looked at last
        window.wait("visible %d" % IDS["TEXT_VIEW"], "yes")
        expect("the list", window.ask("visible %d" % IDS["REPORT_LIST"]), "no")
        expect("place", window.ask("place"), "20 20 801 602")
        window.command("VIEW_TEXT")
        window.command("VIEW_LIST")
        window.status(ZOOM, "100 %")
        window.do("dpi 144")  # the zoom is in hundredths of the paper's size, on every screen
        window.status(ZOOM, "100 %")
        window.do("key ctrl+0")
        window.wait("visible %d" % IDS["REPORT_LIST"], "yes")


def huge_report_shows_at_once(desktop, folder):
    write(folder + "/A.TXT", report(2))
    piece = report(300)
    with open(folder + "/HUGE.TXT", "wb") as file:
        for _ in range((500 << 20) // len(piece) + 1):
            file.write(piece)
    with Window(desktop, folder, "A.TXT") as window:
        window.show_text()
        begun = time.monotonic()
        window.do("drop " + wine_desktop.windows_path(folder + "/HUGE.TXT"))
        window.wait("title", "HUGE.TXT - Quillon Pages")
        window.status(PAGE, re.compile("Page 1 of .*"))
        window.wait("text", re.compile(".+", re.DOTALL))
        took = time.monotonic() - begun
        if took > 2:  # a second on a machine that has nothing else to do
            raise Failure("the first page of 500 MB showed after %.1f s" % took)
        window.command("PAGE_NEXT")
        window.status(PAGE, re.compile("Page 2 of .*"))
        slowest = 0
        while window.ask("status %d" % WORDS).startswith("reading"):
            slowest = max(slowest, int(window.ask("answers")))
            time.sleep(0.05)
        if slowest > 1000:
            raise Failure("while the report was read, the window did not answer for %d ms" % slowest)
        window.command("PAGE_LAST")
        window.status(PAGE, re.compile(r"Page (\d+) of \1"))


TESTS = [
    every_page_is_reached_and_reads_as_in_the_file,
    approved_pages_read_as_they_are,
    keys_and_wheel_go_through_a_page_and_on_to_the_next,
    find_goes_through_the_report_and_round,
    find_goes_on_from_the_page_in_front,
    text_view_selects_what_is_found_and_turns_pages,
    what_is_selected_is_copied,
    folder_is_listed_newest_first_and_followed,
    empty_folder_shows_no_report,
    report_is_dropped_and_chosen,
    dialogs_of_printing_are_reached,
    report_that_grows_is_followed,
    report_that_is_written_anew_is_shown_anew,
    report_in_front_can_be_written_and_removed_by_others,
    no_file_is_too_strange,
    place_and_choices_are_remembered,
    huge_report_shows_at_once,
]


def forget(desktop):
    """Nothing is remembered from the test before."""
    for path in pathlib.Path(desktop.prefix).glob("drive_c/users/*/AppData/Roaming/Quillon/quillon-pages.ini"):
        path.unlink()


def run_test(desktop, test):
    """What went wrong; empty where nothing did."""
    folder = wine_desktop.new_folder()
    try:
        forget(desktop)
        test(desktop, folder)
    except (Failure, subprocess.TimeoutExpired, OSError) as error:
        return str(error) or repr(error)
    finally:
        shutil.rmtree(folder, ignore_errors=True)
    return ""


def measure(desktop, path):
    """How long a large report takes: until its first page shows, until a page far behind does, until all of it is read."""
    forget(desktop)
    with Window(desktop, os.path.dirname(path)) as window:  # the program is there already
        window.show_text()
        begun = time.monotonic()
        window.do("drop " + wine_desktop.windows_path(path))
        window.wait("title", os.path.basename(path) + " - Quillon Pages")
        window.status(PAGE, re.compile("Page 1 of .*"))
        window.wait("text", re.compile(".+", re.DOTALL))
        print("the first page shows after %.2f s" % (time.monotonic() - begun))
        slowest = 0
        while window.ask("status %d" % WORDS).startswith("reading"):
            slowest = max(slowest, int(window.ask("answers")))
            time.sleep(0.01)
        print("all is read after %.2f s; meanwhile the window answered within %d ms" % (time.monotonic() - begun, slowest))
        print(window.ask("status %d" % PAGE), window.ask("status %d" % FIT))
        begun = time.monotonic()
        window.command("PAGE_LAST")
        window.status(PAGE, re.compile(r"Page (\d+) of \1"))
        print("the last page shows after %.2f s" % (time.monotonic() - begun))
        window.command("PAGE_FIRST")
        window.status(PAGE, re.compile(r"Page 1 of .*"))
        window.seek("no report has this")
        begun = time.monotonic()
        window.do("key F3")
        slowest = 0
        while window.ask("status %d" % WORDS) != "The text is not in this report.":
            slowest = max(slowest, int(window.ask("answers")))
            time.sleep(0.01)
        print("searched through in %.2f s; meanwhile the window answered within %d ms" % (time.monotonic() - begun, slowest))


def pictures(desktop, place):
    """The window as docs/pages.md shows it: a sheet with what was found on it, and the text view."""
    forget(desktop)
    folder = wine_desktop.new_folder()
    shutil.copytree(desktop.reports, folder + "/reports")
    names = ["TR010109.B01.txt", "OR250509.LOG.txt", "BR010109.BIN.txt", "TL010109.SAV.txt", "TD010109.TRD.txt", "QO250509.LOG.txt"]
    for ago, name in enumerate(names):
        os.utime("%s/reports/%s" % (folder, name), (time.time() - 60 - 400 * ago,) * 2)
    for name in os.listdir(folder + "/reports"):
        if name not in names:
            os.remove("%s/reports/%s" % (folder, name))
    with Window(desktop, folder, "reports/" + names[0]) as window:
        window.do("size 1180 760")
        window.seek("lotusglass")
        window.do("key F3")
        window.status(WORDS, re.compile("Match .*"))
        picture(desktop, window, os.path.join(place, "pages.png"))
        window.do("key ctrl+T", "key Esc")
        window.wait("visible %d" % IDS["FIND_BAR"], "no")
        picture(desktop, window, os.path.join(place, "pages_text.png"))
    shutil.rmtree(folder)


def picture_tool():
    return importlib.machinery.SourceFileLoader("pictures", str(ROOT / "tools" / "pictures")).load_module()


def picture(desktop, window, path):
    time.sleep(1)  # until all is drawn
    tool = picture_tool()
    left, top, width, height = map(int, window.ask("place").split())
    _, _, rows = tool.read_screen(os.path.join(desktop.frame_buffers, "Xvfb_screen0"))
    tool.write_png(path, (left, top, left + width, top + height), rows)
    print(path)


def main():
    parser = argparse.ArgumentParser(description="Tests of the window of quillon-pages.")
    parser.add_argument("build")
    parser.add_argument("reports", type=pathlib.Path)
    parser.add_argument("tests", nargs="*", metavar="TEST")
    parser.add_argument("--large", metavar="FILE")
    parser.add_argument("--pictures", metavar="FOLDER")
    parser.add_argument("--dpi", type=int, default=96)
    parser.add_argument("--fonts", default="/usr/share/wine/fonts")
    options = parser.parse_args()
    chosen = [test for test in TESTS if not options.tests or test.__name__ in options.tests]
    failed = 0
    begun = time.monotonic()
    prefix = wine_desktop.SECOND_PREFIX
    if options.pictures:
        prefix = picture_tool().PREFIX
        picture_tool().give_fonts(options.build, options.fonts)
    try:
        with tempfile.TemporaryDirectory() as frames, \
                wine_desktop.Desktop(options.build, dpi=options.dpi, frame_buffers=frames, prefix=prefix) as desktop:
            desktop.reports = options.reports
            if options.pictures:
                pictures(desktop, options.pictures)
                return 0
            if options.large:
                measure(desktop, os.path.abspath(options.large))
                return 0
            for test in chosen:
                started = time.monotonic()
                problem = run_test(desktop, test)
                failed += bool(problem)
                print("%s %s (%.1f s)%s" % ("FAILED" if problem else "passed", test.__name__, time.monotonic() - started,
                                            "\n  " + problem if problem else ""), flush=True)
    except wine_desktop.DesktopError as error:
        print(error)
        return 1
    print("%d of %d passed; %.0f seconds" % (len(chosen) - failed, len(chosen), time.monotonic() - begun))
    return 1 if failed or not chosen else 0


if __name__ == "__main__":
    sys.exit(main())
