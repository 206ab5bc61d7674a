#!/usr/bin/env python3
"""quillon-pages.exe prints under Wine, on queues of a real spooler, and nobody looks.

Usage: print_wine.py BUILD REPORTS_FOLDER

For the narrowest and the widest approved report of every form (QUILLON_THOROUGH=1: of every kind of report): each word of every
page that comes out of the printer stands in its line and column. What goes as it is arrives to the byte. Then pages, copies,
sheets, fonts and margins; every status; files that are broken, empty, huge or no text; printers that are none, refuse or go away.
"""

import concurrent.futures
import os
import pathlib
import re
import subprocess
import sys
import tempfile
import time

HERE = pathlib.Path(__file__).resolve().parent
sys.path[:0] = [str(HERE), str(HERE.parent / "windows")]
sys.dont_write_bytecode = True

import cups_queues  # noqa: E402
import wine_desktop  # noqa: E402
from page_words import MARGIN, pages_of, placed, placed_in_pdf, without_line_numbers  # noqa: E402
from printed_pages import A3, A4, LEGAL, LETTER, fit, printed_wrong, read, to_pdf  # noqa: E402

BUILD, REPORTS = os.path.abspath(sys.argv[1]), pathlib.Path(sys.argv[2])
THOROUGH = os.environ.get("QUILLON_THOROUGH") == "1"
SECONDS = 120
DONE, FAILED, WRONG_CALL, NO_REPORT, NOTHING, NO_ROOM, NO_PRINTER, PRINTER_FAILED, FILE_FAILED = range(9)

# The form of a report, by its folder and the first word of its name; the others of a folder are the first form's.
FORMS = {("auction", "slips"): "delivery", ("logs", "quotes"): "quotes", ("logs", "admin"): "admin", ("market", "breakup"): "breakup",
         ("market", "limits"): "limits", ("market", "sixa"): "sixa", ("market", "touchlines"): "touchlines",
         ("position", "slb"): "slb", ("position", "kesto"): "kesto position"}

failures = []


def fail(text):
    failures.append(text)
    print(text, flush=True)


def check_pages(*arguments):
    wrong = printed_wrong(*arguments)
    if wrong:
        fail(wrong)


class Pages:
    """Calls of quillon-pages.exe in a folder of their own."""

    def __init__(self, folder, environment):
        self.folder, self.environment = folder, environment

    def start(self, *arguments):
        return subprocess.Popen(["wine", os.path.join(BUILD, "quillon-pages.exe"), *map(str, arguments)], cwd=self.folder,
                                env=self.environment, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.PIPE)

    def call(self, wanted, *arguments):
        """The words on standard output and error; the status must be the wanted one."""
        process = self.start(*arguments)
        out, err = process.communicate(timeout=SECONDS)
        out, err = out.decode(), "".join(line for line in err.decode().splitlines(True) if not re.match(r"[0-9a-f]{4}:|wine|it looks|multiarch|execute|apt-get", line))
        if process.returncode != wanted:
            fail(f"{arguments}: status {process.returncode}, {wanted} is wanted\n{out}{err}")
        if (wanted == DONE) != (err == ""):
            fail(f"{arguments}: status {wanted} with these words: {err!r}")
        return out, err


# ---- The reports of all forms ---------------------------------------------------------------------------------------------

def chosen_reports():
    """(name, report) of the narrowest and the widest of every form, or of every kind."""
    groups = {}
    for path in sorted(REPORTS.glob("*/*.txt")):
        report = path.read_bytes().replace(b"\n", b"\r\n")
        if not report.strip():
            continue
        folder, kind = path.parent.name, path.stem.split("_")[0]
        group = (folder, kind) if THOROUGH else (folder, FORMS.get((folder, kind), ""))
        width = max(len(line.rstrip()) for line in report.split(b"\n"))
        groups.setdefault(group, []).append((width, f"{folder}/{path.stem}", report))
    return [(name, report) for group in groups.values() for _, name, report in sorted({min(group), max(group)})]


def print_all_forms(pages, spooler, scratch):
    reports = chosen_reports()
    for number, (name, report) in enumerate(reports):
        (scratch / f"{number}.TXT").write_bytes(report)
        pages.call(DONE, f"{number}.TXT", "/print", "PDF")
        pages.call(DONE, f"{number}.TXT", "/raw", "RAW") if number % 8 == 0 else None
    jobs = dict(spooler.jobs("PDF", len(reports)))
    if sorted(jobs) != sorted(f"{number}.TXT" for number in range(len(reports))):
        fail(f"the jobs' titles are {sorted(jobs)}")

    def compare(number):
        name, report = reports[number]
        want = pages_of(report)
        check_pages(name, jobs[f"{number}.TXT"], want, scratch, *fit(want, flows=b"\f" not in report))

    with concurrent.futures.ThreadPoolExecutor(2) as pool:
        list(pool.map(compare, range(len(reports))))
    unchanged = dict(spooler.jobs("RAW", len(range(0, len(reports), 8))))
    for title, job in unchanged.items():
        if job != reports[int(title.split(".")[0])][1]:
            fail(f"{title}: other bytes came to the printer than the report has")
    return len(reports)


# ---- Choices --------------------------------------------------------------------------------------------------------------

PAGE = "\r\n".join(f"line {line:2} of page %d, with a few words up to the end of it: {'=' * 40}|" for line in range(1, 61)) + "\r\n\f"
SIX = "".join(PAGE.replace("%d", str(page)) for page in range(1, 7)).encode()
TWO = "".join(PAGE.replace("%d", str(page)) for page in range(1, 3)).encode()


def check_choices(pages, spooler, scratch):
    (scratch / "SIX.TXT").write_bytes(SIX)
    (scratch / "TWO.TXT").write_bytes(TWO)
    six, two = pages_of(SIX), pages_of(TWO)
    narrow = 5 * 72 / 25.4
    cases = [
        ("pages 3 to 5", ["SIX.TXT", "/pages", "3-5"], six[2:5], fit(six), MARGIN, A4),
        ("page 2", ["SIX.TXT", "/pages", "2"], six[1:2], fit(six), MARGIN, A4),
        ("from page 5", ["SIX.TXT", "/pages", "5-"], six[4:], fit(six), MARGIN, A4),
        ("two copies", ["TWO.TXT", "/copies", "2"], None, fit(two), MARGIN, A4),
        ("landscape", ["TWO.TXT", "/landscape"], two, fit(two, orientation=True), MARGIN, A4),
        ("portrait", ["TWO.TXT", "/portrait"], two, fit(two, orientation=False), MARGIN, A4),
        ("6.5 points", ["TWO.TXT", "/font", "6.5"], two, (False, 6.5), MARGIN, A4),
        ("margins of 5 mm", ["TWO.TXT", "/margin", "5"], two, fit(two, margin=narrow), narrow, A4),
        ("on A3", ["TWO.TXT", "/paper", "A3"], two, fit(two, A3), MARGIN, A3),
        ("on Letter", ["TWO.TXT", "/paper", "letter"], two, fit(two, LETTER), MARGIN, LETTER),
        ("on Legal", ["TWO.TXT", "/paper", "Legal"], two, fit(two, LEGAL), MARGIN, LEGAL),
    ]
    for name, arguments, want, (landscape, size), left, sheet in cases:
        pages.call(DONE, *arguments, "/print", "PDF")
        ((title, job),) = spooler.jobs("PDF", 1)
        if want is None:
            check_copies(name, job, two, scratch, landscape, size)
        else:
            check_pages(name, job, want, scratch, landscape, size, left, sheet)


def check_copies(name, job, once, scratch, landscape, size):
    """Either the pages come twice, in order, or the printer is told to make two copies, in order."""
    told = re.search(rb"/NumCopies\s+2\b|/#copies\s+2\b", job)
    check_pages(name, job, once if told else once + once, scratch, landscape, size)


# ---- Statuses -------------------------------------------------------------------------------------------------------------

def check_lists(pages, spooler):
    out, _ = pages.call(DONE, "/list-printers")
    if out != "PDF\tdefault\r\nRAW\r\n":
        fail(f"/list-printers tells {out!r}")
    out, _ = pages.call(DONE, "/?")
    if "/list-printers" not in out or "/raw PRINTER" not in out:
        fail(f"/? tells {out!r}")


def check_statuses(pages, spooler, scratch):
    (scratch / "EMPTY.TXT").write_bytes(b"")
    (scratch / "BLANK.TXT").write_bytes(b"  \r\n\r\n \r\n")
    (scratch / "ZEROS.TXT").write_bytes(bytes(100000))
    (scratch / "folder").mkdir()
    for call, words in ((["TWO.TXT", "/paint", "PDF"], "no option"), (["/print", "PDF"], "report is missing"), (["TWO.TXT", "/print"], "needs a value"),
                        (["TWO.TXT", "/print", "PDF", "/pages", "0"], "cannot be done"), (["TWO.TXT", "SIX.TXT", "/pdf", "x.pdf"], "One report")):
        _, err = pages.call(WRONG_CALL, *call)
        if words not in err:
            fail(f"{call}: {err!r}")
    for way in (("/print", "PDF"), ("/raw", "RAW"), ("/pdf", "none.pdf")):
        pages.call(NO_REPORT, "NONE.TXT", *way)
        pages.call(NOTHING, "EMPTY.TXT", *way)
    pages.call(NO_REPORT, "folder", "/print", "PDF")
    pages.call(NOTHING, "BLANK.TXT", "/print", "PDF")
    pages.call(NOTHING, "ZEROS.TXT", "/print", "PDF")
    pages.call(NOTHING, "TWO.TXT", "/print", "PDF", "/pages", "3-")
    pages.call(NOTHING, "TWO.TXT", "/pdf", "none.pdf", "/pages", "3")
    (scratch / "MANY.TXT").write_bytes(b"x\f" * ((1 << 22) + 5))  # more pages than are known
    pages.call(FAILED, "MANY.TXT", "/print", "PDF")
    pages.call(FAILED, "MANY.TXT", "/pdf", "none.pdf")
    pages.call(NO_ROOM, "TWO.TXT", "/print", "PDF", "/margin", "200")
    pages.call(NO_ROOM, "TWO.TXT", "/pdf", "none.pdf", "/margin", "200")
    for printer in ("NONE", "P" * 300, "\u0160koda \u20ac", "\\\\nowhere\\printer"):
        pages.call(NO_PRINTER, "TWO.TXT", "/print", printer)
        pages.call(NO_PRINTER, "TWO.TXT", "/raw", printer)
    pages.call(FILE_FAILED, "TWO.TXT", "/pdf", "nowhere\\none.pdf")
    pages.call(FILE_FAILED, "TWO.TXT", "/pdf", "folder")
    if (scratch / "none.pdf").exists():
        fail("a PDF of nothing was left")
    if not all(spooler.idle(name) and not list(spooler.place(name).iterdir()) for name in ("PDF", "RAW")):
        fail("a call that failed left something in a queue")


def check_pdf(pages, scratch):
    place = scratch / "caf\u00e9 \u20ac.pdf"
    pages.call(DONE, "TWO.TXT", "/pdf", place.name)
    subprocess.run(["qpdf", "--check", place], check=True, capture_output=True)
    first = place.read_bytes()
    boxes = read("pdftotext", "-bbox", place, "-")
    want = pages_of(TWO)
    got = placed_in_pdf(boxes, MARGIN, fit(want)[1] * 0.6)
    if [without_line_numbers(page) for page in got] != [without_line_numbers(placed(page)) for page in want]:
        fail("the PDF has other words than the report")
    pages.call(DONE, "SIX.TXT", "/pdf", place.name, "/pages", "2-4")
    if place.read_bytes() == first or subprocess.run(["pdfinfo", place], capture_output=True).stdout.count(b"Pages:           3") != 1:
        fail("the newer PDF did not take the older one's place")
    second = place.read_bytes()
    pages.call(NOTHING, "SIX.TXT", "/pdf", place.name, "/pages", "9")
    pages.call(FILE_FAILED, "TWO.TXT", "/pdf", "two.txt")
    (scratch / "linked.txt").hardlink_to(scratch / "TWO.TXT")
    pages.call(FILE_FAILED, "TWO.TXT", "/pdf", "linked.txt")
    if (scratch / "TWO.TXT").read_bytes() != TWO:
        fail("the report itself was overwritten")
    if place.read_bytes() != second:
        fail("a call that failed took away the older PDF")
    if list(scratch.glob("*.tmp")):
        fail(f"left behind: {list(scratch.glob('*.tmp'))}")


# ---- Files of all kinds ---------------------------------------------------------------------------------------------------

def check_files(pages, spooler, scratch):
    everything = bytes(range(256)) * 64
    cases = {
        "binary": everything,
        "one line": b"x" * 5000,
        "feeds": b"\f" * 50 + b"last",
        "no end": b"first\r\nsecond",
        "letters": "caf\u00e9 \u20ac 5 \u0160koda (1) \\n % \u2013 \u00ff\r\n".encode("cp1252"),
        "doubled": b"one\r\r\n  two\r\r\n\fthree\r\r\n",
    }
    for name, data in cases.items():
        (scratch / f"{name}.TXT").write_bytes(data)
        pages.call(DONE, f"{name}.TXT", "/print", "PDF")
        pages.call(DONE, f"{name}.TXT", "/raw", "RAW")
        ((_, job),) = spooler.jobs("PDF", 1)
        ((_, raw),) = spooler.jobs("RAW", 1)
        if raw != data:
            fail(f"{name}: {len(raw)} other bytes came to the printer for {len(data)}")
        if name in ("letters", "doubled", "no end"):
            want = pages_of(data)
            check_pages(name, job, want, scratch, *fit(want))
        else:
            to_pdf(job, scratch, "any")  # a page description that can be read
    check_huge(pages, spooler, scratch)


def check_huge(pages, spooler, scratch):
    """500 MB, most of it a hole: one page by itself."""
    huge = scratch / "HUGE.TXT"
    with open(huge, "wb") as file:
        file.write(SIX)
        file.truncate(500_000_000)
    started = time.monotonic()
    pages.call(DONE, "HUGE.TXT", "/print", "PDF", "/pages", "3")
    ((_, job),) = spooler.jobs("PDF", 1)
    if b"of page 3" not in subprocess.run(["pdftotext", to_pdf(job, scratch, "huge"), "-"], capture_output=True).stdout:
        fail("page 3 of a huge report is another")
    print(f"a page of 500 MB: {time.monotonic() - started:.1f} seconds")
    huge.unlink()


# ---- Printers that go away ------------------------------------------------------------------------------------------------

def check_printers_that_go(pages, spooler, scratch):
    spooler.queue("GONE")
    spooler.run("cupsreject", "GONE")
    pages.call(PRINTER_FAILED, "TWO.TXT", "/print", "GONE")
    pages.call(PRINTER_FAILED, "TWO.TXT", "/raw", "GONE")
    spooler.run("cupsaccept", "GONE")
    pages.call(DONE, "TWO.TXT", "/print", "GONE")
    spooler.jobs("GONE", 1)
    # In the middle of a long job.
    (scratch / "LONG.TXT").write_bytes(SIX * 10)
    process = pages.start("LONG.TXT", "/print", "GONE")
    time.sleep(1)
    if process.poll() is not None:
        fail("the long job is too short to take its printer away")
    spooler.run("lpadmin", "-x", "GONE")
    process.communicate(timeout=SECONDS)
    if process.returncode != PRINTER_FAILED:
        fail(f"a queue was deleted in the middle of a job: status {process.returncode}")
    pages.call(NO_PRINTER, "TWO.TXT", "/print", "GONE")
    # The whole spooler, in the middle and from the beginning.
    process = pages.start("LONG.TXT", "/print", "PDF")
    time.sleep(1)
    spooler.stop()
    process.communicate(timeout=SECONDS)
    if process.returncode != PRINTER_FAILED:
        fail(f"the spooler ended in the middle of a job: status {process.returncode}")
    process = pages.start("TWO.TXT", "/print", "PDF")
    process.communicate(timeout=SECONDS)
    if process.returncode not in (NO_PRINTER, PRINTER_FAILED):
        fail(f"no spooler is there: status {process.returncode}")
    spooler.start()
    pages.call(DONE, "TWO.TXT", "/print", "PDF")
    spooler.jobs("PDF", 1)


def main():
    steps = []

    def step(name, action, *arguments):
        started = time.monotonic()
        result = action(*arguments)
        steps.append(f"{name} {time.monotonic() - started:.1f} s")
        return result

    with cups_queues.Spooler() as spooler, wine_desktop.Desktop(BUILD, prefix=wine_desktop.SECOND_PREFIX) as desktop, \
            tempfile.TemporaryDirectory(prefix="qp-") as folder:
        desktop.environment["CUPS_SERVER"] = spooler.environment["CUPS_SERVER"]
        scratch = pathlib.Path(os.path.realpath(folder))
        pages = Pages(scratch, desktop.environment)
        spooler.queue("PDF", default=True)
        spooler.queue("RAW", described=False)
        step("lists", check_lists, pages, spooler)
        reports = step("forms", print_all_forms, pages, spooler, scratch)
        step("choices", check_choices, pages, spooler, scratch)
        step("statuses", check_statuses, pages, spooler, scratch)
        step("pdf", check_pdf, pages, scratch)
        step("files", check_files, pages, spooler, scratch)
        step("printers that go", check_printers_that_go, pages, spooler, scratch)
    print(", ".join(steps))
    print(f"{len(failures)} failures" if failures else f"{reports} reports of all forms printed as they are")
    sys.exit(1 if failures or reports < 32 else 0)


if __name__ == "__main__":
    main()
