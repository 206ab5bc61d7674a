#!/usr/bin/env python3
"""quillon-print writes what a form writes for the same choices, tells every refusal, and never spoils what stands in its place.

Usage: print_test.py QUILLON_PRINT QUILLON_SCRIPT SOURCE_FOLDER
"""

import os
import pathlib
import re
import resource
import shutil
import subprocess
import sys
import tempfile
import time
import unittest

ROOT = pathlib.Path(sys.argv.pop()).resolve()
SCRIPT = os.path.abspath(sys.argv.pop())
PRINT = os.path.abspath(sys.argv.pop())
EXPORT = ROOT / "samples" / "export"
IDS = dict(re.findall(r"#define\s+(ID\w+)\s+(\d+)", (ROOT / "resources" / "resource.h").read_text()))
CLOCK = "2009-05-22 10:11:12"

# form, dialog, prefix of its ids, file, what quillon-print is told, what a user does on the form: before Load and behind it
CASES = [
    ("trades", "PRNTRPT", "TRADES", "TR010109.B01", ["--sort", "Scrip Code", "--check", "Print Net Position"], [],
     ["press SORT_SCRIP_CODE", "press NETPOS"]),
    ("trades", "PRNTRPT", "TRADES", "TO010109.B01", ["--select", "Oddlot File", "--lines-per-page", "7"], ["press ODDLOT"], ["type LINES 7"]),
    ("trades", "PRNTRPT", "TRADES", "TR250509.B01", ["--answer", "yes"], [], ["answer yes"]),
    ("net-position", "PRNTNP", "NETPOS", "TR010109.B01", ["--select", "Scrip-Client Wise NetPosition"], [], ["press SCRIP_CLIENT"]),
    ("slb-position", "PRNTNPRET", "SLB", "STR250509.B01", ["--select", "Client-ScripWise Position"], [], ["press CLIENT_SCRIP"]),
    ("auction", "AUCRPT", "AUC", "MONY0101.215", [], [], []),
    ("auction", "AUCRPT", "AUC", "DELY0101.215", ["--select", "Delivery Statement", "--lines-per-page", "12"], ["press DELIVERY"], ["type LINES 12"]),
    ("auction", "AUCRPT", "AUC", "OFFS0101.215", ["--select", "Offer Status Statement", "--sort", "Scrip Code"], ["press OFFERS"],
     ["press SORT_SCRIP_CODE"]),
    ("auction", "AUCRPT", "AUC", "CLBD0101.215", ["--select", "BDA Details"], ["press BDA"], []),
    ("auction", "AUCRPT", "AUC", "ENTL0201.007", ["--select", "Rejected Entitlements"], ["press ENTITLEMENTS"], []),
    ("touchlines", "PRNTTLINE", "TLINE", "TL010109.SAV", ["--sort", "Scrip ID"], [], ["press SORT_SCRIP_ID"]),
    ("touchlines", "PRNTTLINE", "TLINE", "KT010109.SAV", ["--select", "Kesto"], ["press KESTO"], []),
    ("trader-limits", "PRNTTRDLM", "TRDLIM", "TD010109.TRD", ["--lines-per-page", "10"], [], ["type LINES 10"]),
    ("trader-limits", "PRNTTRDLM", "TRDLIM", "KS010109.TSL", ["--select", "Kesto"], ["press KESTO"], []),
    ("6a7a", "PRNTSIXASEVENA", "6A7A", "6A010109.NUP", ["--select", "Non-Updatable", "--brk-id", "418"], ["press NON_UPDATABLE"],
     ["type BROKER_ID 418"]),
    ("breakup", "PRNTBRKUP", "BRKUP", "BU010109.DAT", ["--check", "Sort On ScripCode", "--broker-no", "418"], [],
     ["press SORT", "type BROKER_NO 418"]),
    ("broker-query", "PRNTBRKREP", "BRKQRY", "BR010109.BIN", ["--sort", "Trader", "--check", "print net position"], [],
     ["press SORT_TRADER", "press NETPOS"]),
    ("delivery-slips", "DELV", "DELV", "DELY0101.215", [], [], []),
    ("kesto", "PRNTVQLS", "KESTO", "CT010109.B01", ["--sort", "No. Of Days"], [], ["press SORT_DAYS"]),
    ("kesto", "PRNTVQLS", "KESTO", "CB250509.BIN", ["--select-type-of-file-to-print", "Broker Query Printing", "--sort", "Trader"],
     ["pick KIND Broker Query Printing"], ["press SORT_TRADER"]),
    ("kesto", "PRNTVQLS", "KESTO", "KB010109.DAT", ["--select-type-of-file-to-print", "BreakUp Data Printing", "--broker-no", "7"],
     ["pick KIND BreakUp Data Printing"], ["type BROKER 7"]),
    ("kesto", "PRNTVQLS", "KESTO", "CT010109.B01", ["--select-type-of-file-to-print", "Convert"], ["pick KIND Convert"], []),
    ("kesto-net-position", "PRNTNETPOS", "KNETPOS", "CT010109.B01", ["--select", "Scrip Wise NetPosion"], [], ["press SCRIP"]),
    ("convert", "CONVERT", "CONVERT", "TR010109.B01", [], [], []),
    ("convert", "CONVERT", "CONVERT", "OR250509.LOG", ["--select", "InstID Rectification"], [], ["press TYPE_RECTIFICATION"]),
    ("order-log", "PRNTORDLOG", "ORDLOG", "OR250509.LOG", ["--sort", "Client ID"], [], ["press SORT_CLIENT_ID"]),
    ("order-log", "PRNTORDLOG", "ORDLOG", "OR250509.LOG", ["--select", "Client Rectification"], [], ["press CLIENT_RECTIFICATION"]),
    ("quote-log", "PRNTQUOTELOG", "QUOTELOG", "QO250509.LOG", ["--sort", "Offer Client ID"], [], ["press SORT_OFFER_CLIENT_ID"]),
    ("admin-log", "PRNTADMINLOG", "ADMLOG", "Ad010109.adl", ["--uncheck", "Trader Limits", "--records-per-page", "9"], [],
     ["press TRADERS", "type LINES 9"]),
]

HELP = """\
Prints a form's report without a screen.

quillon-print FORM FILE [options] -o REPORT    one report
quillon-print FORM --help                      what can be set on the form
quillon-print --all FOLDER -o FOLDER           a report of every file that a form's masks know
quillon-print --help, quillon-print --version

Forms:
  trades net-position slb-position auction touchlines trader-limits 6a7a breakup
  broker-query convert delivery-slips kesto kesto-net-position order-log quote-log admin-log

Options of a report:
  -o REPORT          where it goes; what stands there is replaced when the report is complete
  --sort, --select, --check, --uncheck "LABEL", and an option for each field: see the form's --help
  --answer yes|no    the answer to the form's next question; otherwise it gets its default
  --pdf              as PDF, fitted to A4
  --clock "2009-05-22 10:11:12"   the date and time that the report takes for now
  --messages FILE    the form's boxes go there instead of to standard error
Options of --all:
  -o FOLDER          where the reports go: the file's name with .txt, or .pdf, behind it
  --pdf, --clock     as above
  -j N               so many at a time
  --as MASK=FORM:LABEL   files that fit the mask go to this form, set to this label, as in
                     --as "KB*.DAT=kesto:BreakUp Data Printing"; the label may be left out; FORM may be none

The status is 0 when the report, or every report, is complete; 1 when a form refused or failed; 2 for a wrong
call.
"""
HELP_ON_TRADES = """\
quillon-print trades FILE [options] -o REPORT

Do you want to print
  --select "Oddlot File"
  --select "MarketLot File"   (as the form begins)
Sort By
  --sort "Time"   (as the form begins)
  --sort "Scrip Code"
  --sort "Scrip ID"
  --sort "Client ID"
  --check "Print Net Position"
Lines per page
  --lines-per-page TEXT   (begins with "50")

--check LABEL checks a box, --uncheck LABEL clears it. Some choices are there for some files only.
quillon-print --help tells of the options that all forms have.
"""
HELP_ON_KESTO = """\
quillon-print kesto FILE [options] -o REPORT

Select Type of File  To Print :
  --select-type-of-file-to-print TEXT   (begins with "Trades Printing")
    "Trades Printing"
    "TouchLines Printing"
    "Convert"
    "Broker Query Printing"
    "BreakUp Data Printing"
    "Traders Limit Printing"
Sort By
  --sort "Time"   (as the form begins)
  --sort "Scrip Code"
  --sort "Scrip ID"
  --sort "Client ID"
  --sort "No. Of Days"
  --sort "Trader"
  --check "Print Net Position"
Lines Per Page :
  --lines-per-page TEXT   (begins with "50")
Broker No. :
  --broker-no TEXT

--check LABEL checks a box, --uncheck LABEL clears it. Some choices are there for some files only.
quillon-print --help tells of the options that all forms have.
"""


class Folder(unittest.TestCase):
    def setUp(self):
        scratch = tempfile.TemporaryDirectory()
        self.addCleanup(scratch.cleanup)
        self.folder = pathlib.Path(scratch.name)

    def call(self, *arguments, status=None, **more):
        run = subprocess.run([PRINT, *map(str, arguments)], cwd=self.folder, capture_output=True, timeout=120, **more)
        if status is not None:
            self.assertEqual(run.returncode, status, (arguments, run.stdout, run.stderr))
        return run

    def nothing_left_behind(self):
        self.assertEqual([p.name for p in self.folder.rglob(".quillon*")], [])


def by_script(folder, dialog, prefix, file, before, behind):
    """The report as the form writes it for a user at the screen: to a file, or to the printer where there is no other way."""
    def commands(lines):
        for line in lines:
            word, *rest = line.split(" ", 1)
            if word in ("press", "type", "pick"):
                control, *text = rest[0].split(" ", 1)
                yield " ".join([word, IDS[f"IDC_{prefix}_{control}"], *text])
            else:
                yield line

    for companion in EXPORT.glob("*" + file[4:] if dialog == "AUCRPT" else file):  # a money statement reads the offers beside it
        shutil.copy(companion, folder / companion.name)
    script = [f"clock {CLOCK}", f"tool {dialog}", *commands(before), f"choose {file}", *commands(["press LOAD"]), *commands(behind)]
    if dialog == "DELV":
        script += ["printer OUT.TXT", *commands(["press PRINT"])]
    elif dialog == "CONVERT" or "pick KIND Convert" in before:
        script += commands(["type OUTFILE OUT.TXT", "press CONVERT"])
    else:
        script += commands(["press FILE", "type OUTFILE OUT.TXT", "press PRINT"])
    run = subprocess.run([SCRIPT], input="\n".join(script).encode(), cwd=folder, capture_output=True, timeout=120)
    if b'"refused"' in run.stdout:
        raise AssertionError(run.stdout)
    return (folder / "OUT.TXT").read_bytes()


class Reports(Folder):
    def test_every_form_writes_what_it_writes_at_the_screen(self):
        self.assertEqual({case[0] for case in CASES}, set(forms()))
        for number, (form, dialog, prefix, file, told, before, behind) in enumerate(CASES):
            with self.subTest(form=form, file=file, told=told):
                folder = self.folder / str(number)
                folder.mkdir()
                expected = by_script(folder, dialog, prefix, file, before, behind)
                self.assertGreater(len(expected), 200)
                run = self.call(form, EXPORT / file, *told, "--clock", CLOCK, "-o", folder / "got.txt", status=0)
                self.assertEqual((folder / "got.txt").read_bytes(), expected)
                self.assertEqual(run.stdout, b"")
                self.assertIn(b"COMPLETE", run.stderr.upper())
        self.nothing_left_behind()

    def test_choices_make_a_difference(self):
        reports = []
        for told in ([], ["--sort", "Client ID"], ["--check", "Print Net Position"], ["--lines-per-page", "3"]):
            self.call("trades", EXPORT / "TR010109.B01", *told, "-o", "r.txt", status=0)
            reports.append((self.folder / "r.txt").read_bytes())
        self.assertEqual(len(set(reports)), 4)

    def test_client_of_a_list_that_the_file_fills(self):
        for client in ("INS04", "OWN"):
            self.call("net-position", EXPORT / "TR010109.B01", "--select", "Client-ScripWise NetPosition", "--select-client", client,
                      "-o", client + ".txt", status=0)
            clients = re.findall(rb"of Client : (\S+)", (self.folder / (client + ".txt")).read_bytes())
            self.assertEqual(set(clients), {client.encode()})
        run = self.call("net-position", EXPORT / "TR010109.B01", "--select", "Client-ScripWise NetPosition", "--select-client", "NOBODY",
                        "-o", "none.txt", status=1)
        self.assertIn(b'The form does not take --select-client "NOBODY" for this file.', run.stderr)

    def test_boxes_go_to_standard_error_with_their_titles(self):
        run = self.call("trades", EXPORT / "TR010109.B01", "-o", "r.txt", status=0)
        lines = run.stderr.decode().splitlines()
        self.assertEqual(lines[0], "Information: File Type: Normal")
        self.assertEqual(lines[-2], "  Is it Correct? [yes]")
        self.assertEqual(lines[-1], "TRADES PRINTING: PRINTING COMPLETE")

    def test_messages_take_the_place_of_no_file_of_the_call(self):
        shutil.copy(EXPORT / "TR010109.B01", self.folder / "TR.B01")
        (self.folder / "r.txt").write_bytes(b"older")
        os.link(self.folder / "r.txt", self.folder / "other.txt")
        for messages, place in (("TR.B01", "TR.B01"), ("./tr.b01", "TR.B01"), ("r.txt", "r.txt"), ("other.txt", "r.txt")):
            run = self.call("trades", "TR.B01", "-o", "r.txt", "--messages", messages, status=1)
            self.assertEqual(run.stderr.decode(), f'quillon-print: The messages cannot take the place of "{place}".\n')
        run = self.call("trades", "TR.B01", "-o", "new.txt", "--messages", "new.txt", status=1)
        self.assertFalse((self.folder / "new.txt").exists())
        self.assertEqual((self.folder / "TR.B01").read_bytes(), (EXPORT / "TR010109.B01").read_bytes())
        self.assertEqual((self.folder / "r.txt").read_bytes(), b"older")
        self.call("trades", "TR.B01", "-o", "/dev/null", "--messages", "/dev/null", status=0)

    def test_closed_streams_cost_the_report_nothing(self):
        self.call("trades", EXPORT / "TR010109.B01", "-o", "expected.txt", status=0)
        for closed in ("<&- >&- 2>&-", ">&- 2>&-", "2>&-", ">&-"):
            run = subprocess.run(["sh", "-c", f'"$0" trades "$1" -o r.txt {closed}', PRINT, str(EXPORT / "TR010109.B01")], cwd=self.folder,
                                 capture_output=True, timeout=120)
            self.assertEqual(run.returncode, 0, closed)
            self.assertEqual((self.folder / "r.txt").read_bytes(), (self.folder / "expected.txt").read_bytes(), closed)

    def test_messages_go_to_a_file_where_told(self):
        run = self.call("trades", EXPORT / "TR010109.B01", "-o", "r.txt", "--messages", "log.txt", status=0)
        self.assertEqual(run.stderr, b"")
        self.assertIn(b"PRINTING COMPLETE", (self.folder / "log.txt").read_bytes())
        run = self.call("trades", EXPORT / "TR010109.B01", "-o", "r.txt", "--messages", "no/log.txt", status=1)
        self.assertIn(b'"no/log.txt" cannot be written', run.stderr)

    def test_lines_per_page_out_of_range_is_told_and_the_report_made(self):
        run = self.call("trades", EXPORT / "TR010109.B01", "--lines-per-page", "99", "-o", "r.txt", status=0)
        self.call("trades", EXPORT / "TR010109.B01", "--lines-per-page", "50", "-o", "s.txt", status=0)
        self.assertEqual((self.folder / "r.txt").read_bytes(), (self.folder / "s.txt").read_bytes())
        self.assertIn(b"50", run.stderr.split(b"Information")[0])

    def test_a_blank_report_is_a_blank_sheet(self):
        (self.folder / "NONE.215").write_bytes(b"no order\r\n" * 300)
        self.call("delivery-slips", "NONE.215", "--pdf", "-o", "r.pdf", status=0)
        subprocess.run(["qpdf", "--check", "r.pdf"], cwd=self.folder, check=True, capture_output=True)
        self.assertEqual(subprocess.run(["pdftotext", "r.pdf", "-"], cwd=self.folder, capture_output=True).stdout, b"\f")

    def test_file_names_are_found_as_windows_finds_them(self):
        shutil.copy(EXPORT / "TR010109.B01", self.folder / "TR010109.B01")
        self.call("trades", "tr010109.b01", "-o", "r.txt", status=0)

    def test_pdf_of_one_report(self):
        self.call("trades", EXPORT / "TR010109.B01", "-o", "r.txt", status=0)
        self.call("trades", EXPORT / "TR010109.B01", "--pdf", "-o", "r.pdf", status=0)
        subprocess.run(["qpdf", "--check", "r.pdf"], cwd=self.folder, check=True, capture_output=True)
        text = subprocess.run(["pdftotext", "-layout", "r.pdf", "-"], cwd=self.folder, capture_output=True).stdout
        self.assertEqual(text.split(), (self.folder / "r.txt").read_bytes().split())
        self.assertEqual(text.count(b"\f"), (self.folder / "r.txt").read_bytes().count(b"\f") + 1)
        told = subprocess.run(["pdfinfo", "r.pdf"], cwd=self.folder, capture_output=True).stdout.decode()
        self.assertRegex(told, r"(?m)^Title: +TR010109\.B01$")  # without the folder


def forms():
    text = subprocess.run([PRINT, "--help"], capture_output=True).stdout.decode()
    return text.split("Forms:")[1].split("\n\n")[0].split()


class Refusals(Folder):
    def refused(self, *arguments):
        (self.folder / "r.txt").write_bytes(b"older")
        run = self.call(*arguments, "-o", "r.txt", status=1)
        self.assertEqual((self.folder / "r.txt").read_bytes(), b"older")
        self.nothing_left_behind()
        return run.stderr.decode()

    def test_every_form_refuses_what_is_no_file_of_its_own(self):
        for name, data in (("JUNK.BIN", b"this is no file of any form\r\n" * 30), ("EMPTY.DAT", b"")):
            (self.folder / name).write_bytes(data)
            for form in forms():
                with self.subTest(form=form, name=name):
                    if (form, name) == ("delivery-slips", "JUNK.BIN"):
                        # This form asks a file for nothing but records: what is none of its orders is delivered to nobody.
                        run = self.call(form, name, "-o", "slips.txt", status=0)
                        self.assertIn(b"No deliveries to be made for this auction\n", run.stderr)
                        self.assertEqual((self.folder / "slips.txt").read_bytes().strip(), b"")
                        continue
                    told = self.refused(form, name)
                    self.assertRegex(told, r"(?m)^(?!quillon-print: ).+\n")  # the form's own words
                    self.assertRegex(told, f'quillon-print: "{name}": no report was made\\.( \\(.+\\))?\n$')

    def test_a_form_whose_print_button_stays_grey(self):
        (self.folder / "JUNK.BIN").write_bytes(b"this is no file of any form\r\n" * 30)
        self.assertEqual(self.refused("kesto-net-position", "JUNK.BIN"),
                         "The form does not print this file.\n"
                         "Reply: Error in input file\n"
                         'quillon-print: "JUNK.BIN": no report was made.\n')

    def test_form_and_file_of_different_kinds(self):
        told = self.refused("trades", EXPORT / "BR010109.BIN")
        self.assertIn("The Input file is not a valid trade file", told)

    def test_oddlot_file_under_market_lot(self):
        self.assertIn("You had selected", self.refused("trades", EXPORT / "TO010109.B01"))

    def test_answer_no_ends_the_run(self):
        told = self.refused("trades", EXPORT / "TR010109.B01", "--answer", "no")
        self.assertIn("Is it Correct? [no]", told)

    def test_a_report_with_an_error_on_the_way_is_not_complete(self):
        told = self.refused("admin-log", EXPORT / "Adel250509.adl")
        self.assertIn("Success: Printing Complete", told)
        self.assertRegex(told, r"no report was made\. \(.+\)\n$")

    def test_what_stands_beside_the_file_is_missing(self):
        shutil.copy(EXPORT / "MONY0101.215", self.folder / "MONY0101.215")
        self.assertIn("No Offer status file available\n  Can't proceed", self.refused("auction", "MONY0101.215"))

    def test_choice_that_an_older_file_does_not_have(self):
        told = self.refused("order-log", EXPORT / "OR211103.LOG", "--select", "Client Rectification")
        self.assertIn("Please load New Order Log file.", told)

    def test_choice_that_the_form_does_not_take(self):
        told = self.refused("trades", EXPORT / "STR250509.B01", "--check", "Print Net Position")
        self.assertIn('The form does not take --check "Print Net Position" for this file.', told)
        told = self.refused("kesto", EXPORT / "CT010109.B01", "--sort", "Trader")
        self.assertIn('The form does not take --sort "Trader" for this file.', told)
        told = self.refused("auction", EXPORT / "MONY0101.215", "--lines-per-page", "ten")
        self.assertIn('The form does not take --lines-per-page "ten" for this file.', told)
        told = self.refused("trades", EXPORT / "TR010109.B01", "--sort", "Time", "--sort", "Scrip ID")
        self.assertIn('The form does not take --sort "Time" for this file.', told)

    def test_devices_and_pipes_are_no_files_to_print(self):
        os.mkfifo(self.folder / "PIPE.B01")
        for name in ("PIPE.B01", "/dev/zero", "/dev/null"):
            self.assertIn(f'"{name}" is a device or a pipe, not a file.', self.refused("trades", name))

    def test_file_that_is_not_there(self):
        self.assertIn('There is no file "NONE.B01".', self.refused("trades", "NONE.B01"))
        self.assertIn("There is no file", self.refused("trades", "."))
        far = f"{'./' * 150}{os.path.relpath(EXPORT / 'TR010109.B01', self.folder)}"
        self.assertEqual(self.refused("trades", far), f'quillon-print: The path of "{far}" is too long.\n')


class Outputs(Folder):
    def setUp(self):
        super().setUp()
        self.report = ["trades", EXPORT / "TR010109.B01"]
        self.call(*self.report, "-o", "expected", status=0)
        self.expected = (self.folder / "expected").read_bytes()

    def test_any_path(self):
        folder = self.folder / "a folder of a very long name with blanks, 100% \u00e9 \\ & so on"
        folder.mkdir()
        place = folder / "report of the day - with a long name.text.out"
        self.call(*self.report, "-o", place, status=0)
        self.assertEqual(place.read_bytes(), self.expected)
        self.assertEqual(sorted(p.name for p in folder.iterdir()), [place.name])

    def test_an_older_report_is_replaced_and_keeps_its_permissions(self):
        place = self.folder / "r.txt"
        place.write_bytes(b"older and longer" * 100000)
        place.chmod(0o640)
        self.call(*self.report, "-o", place, status=0)
        self.assertEqual(place.read_bytes(), self.expected)
        self.assertEqual(place.stat().st_mode & 0o777, 0o640)

    def test_a_link_stays_a_link(self):
        (self.folder / "real.txt").write_bytes(b"older")
        (self.folder / "link.txt").symlink_to("real.txt")
        self.call(*self.report, "-o", "link.txt", status=0)
        self.assertTrue((self.folder / "link.txt").is_symlink())
        self.assertEqual((self.folder / "real.txt").read_bytes(), self.expected)

    def test_places_that_take_no_report(self):
        (self.folder / "folder").mkdir()
        locked = self.folder / "locked.txt"
        locked.write_bytes(b"older")
        locked.chmod(0o444)
        for place, problem in (("folder", '"folder" is a folder.'), ("none/r.txt", '"none/r.txt" cannot be written.'),
                               ("locked.txt", '"locked.txt" is read-only.')):
            run = self.call(*self.report, "-o", place, status=1)
            self.assertIn(problem, run.stderr.decode())
        self.assertEqual(locked.read_bytes(), b"older")
        self.nothing_left_behind()

    def test_device(self):
        run = self.call(*self.report, "-o", "/dev/stdout", status=0)
        self.assertEqual(run.stdout, self.expected)
        run = self.call(*self.report, "-o", "/dev/full", status=1)
        self.assertIn(b'"/dev/full" cannot be written.', run.stderr)
        self.assertTrue(pathlib.Path("/dev/full").is_char_device())

    def test_standard_output_keeps_what_a_file_holds_ahead_of_it(self):
        with open(self.folder / "both.txt", "wb") as both:
            both.write(b"ahead\n")
            both.flush()
            run = subprocess.run([PRINT, *map(str, self.report), "-o", "/dev/stdout"], stdout=both, stderr=subprocess.DEVNULL, timeout=120)
        self.assertEqual(run.returncode, 0)
        self.assertEqual((self.folder / "both.txt").read_bytes(), b"ahead\n" + self.expected)

    def test_a_reader_that_went_away_is_told(self):
        before = set(pathlib.Path(tempfile.gettempdir()).glob(".quillon-print-*"))
        read, write = os.pipe()
        os.close(read)
        run = subprocess.run([PRINT, *map(str, self.report), "-o", "/dev/stdout"], stdout=write, stderr=subprocess.PIPE, timeout=120)
        os.close(write)
        self.assertEqual(run.returncode, 1)
        self.assertIn(b'"/dev/stdout" cannot be written.', run.stderr)
        self.assertEqual(set(pathlib.Path(tempfile.gettempdir()).glob(".quillon-print-*")) - before, set())

    def test_names_of_other_alphabets(self):
        shutil.copy(EXPORT / "TR010109.B01", self.folder / "TR \u0434\u0435\u043d\u044c \u65e5.B01")
        self.call("trades", "TR \u0434\u0435\u043d\u044c \u65e5.B01", "-o", "\u043e\u0442\u0447\u0451\u0442 \u20ac.txt", status=0)
        self.assertEqual((self.folder / "\u043e\u0442\u0447\u0451\u0442 \u20ac.txt").read_bytes(), self.expected)

    def test_a_disk_that_is_full_leaves_the_older_report(self):
        (self.folder / "r.txt").write_bytes(b"older")
        limit = len(self.expected) // 2
        run = self.call(*self.report, "-o", "r.txt", status=1, preexec_fn=lambda: limit_files(limit), restore_signals=False)
        self.assertEqual((self.folder / "r.txt").read_bytes(), b"older")
        self.assertRegex(run.stderr.decode(), r"no report was made\. \(.+\)\n$")
        self.nothing_left_behind()

    def test_the_file_itself_is_not_written_over(self):
        shutil.copy(EXPORT / "TR010109.B01", self.folder / "TR.B01")
        os.link(self.folder / "TR.B01", self.folder / "OTHER.TXT")
        for place in ("TR.B01", "./TR.B01", "OTHER.TXT"):
            run = self.call("trades", "TR.B01", "-o", place, status=1)
            self.assertIn(b"cannot take the place of the file that is printed", run.stderr)
        self.assertEqual((self.folder / "TR.B01").read_bytes(), (EXPORT / "TR010109.B01").read_bytes())


class WrongCalls(Folder):
    def test_wrong_calls(self):
        file = str(EXPORT / "TR010109.B01")
        for arguments, problem in (
                ([], "What to print is missing."),
                (["trade"], 'There is no form "trade".'),
                (["trades"], "The file to print is missing."),
                (["trades", file], "Where to? -o is missing."),
                (["trades", file, "-o"], '"-o" needs a value behind it.'),
                (["trades", file, file, "-o", "x"], f'"{file}" is one file too many.'),
                (["trades", file, "-o", "x", "--sort", "Colour"],
                 'The form trades has no "Colour" for --sort. It has "Time", "Scrip Code", "Scrip ID", "Client ID".'),
                (["trades", file, "-o", "x", "--select", "Time"],
                 'The form trades has no "Time" for --select. It has "Oddlot File", "MarketLot File".'),
                (["trades", file, "-o", "x", "--sort"], '"--sort" needs a value behind it.'),
                (["touchlines", file, "-o", "x", "--check", "A"], 'The form touchlines has no "A" for --check. It has none.'),
                (["trades", file, "-o", "x", "--broker-no", "1"],
                 'The form trades has no option "--broker-no"; quillon-print trades --help lists them.'),
                (["trades", file, "-o", "x", "--out-file-name", "1"],
                 'The form trades has no option "--out-file-name"; quillon-print trades --help lists them.'),
                (["trades", file, "-o", "x", "--answer", "maybe"], '"--answer maybe" cannot be done.'),
                (["trades", file, "-o", "x", "--clock", "noon"], '"--clock noon" cannot be done.'),
                (["trades", file, "-o", "x", "-j", "2"], 'The form trades has no option "-j"; quillon-print trades --help lists them.'),
                (["--all"], "The folder is missing."),
                (["--all", "x"], "Where to? -o is missing."),
                (["--all", "x", "-o", "y", "-j", "0"], '"-j 0" cannot be done.'),
                (["--all", "x", "-o", "y", "-j", "65"], '"-j 65" cannot be done.'),
                (["--all", "x", "-o", "y", "-j", "two"], '"-j two" cannot be done.'),
                (["--all", "x", "-o", "y", "--sort", "Time"], 'There is no option "--sort".'),
                (["--all", "x", "-o", "y", "--as", "KB*=nothing"], '"--as KB*=nothing" cannot be done.'),
                (["--all", "x", "-o", "y", "--as", "KB*"], '"--as KB*" cannot be done.'),
                (["--all", "x", "-o", "y", "--as", "KB*=delivery-slips:Kesto"], '"--as KB*=delivery-slips:Kesto" cannot be done.'),
                (["--all", "x", "-o", "y", "--as", "CT*=kesto:"], '"--as CT*=kesto:" cannot be done.'),
                (["--all", "x", "-o", "y", "--as", "=trades"], '"--as =trades" cannot be done.'),
                (["--all", "x", "-o", "y", "--as", "CT*=none:Kesto"], '"--as CT*=none:Kesto" cannot be done.'),
                (["--all", "x", "-o", "y", "--answer", "yes"], 'There is no option "--answer".'),
                (["trades", file, "-o", ""], '"-o " cannot be done.'),
                (["--all", str(EXPORT), "-o", str(EXPORT)], "The reports cannot go to the folder that is printed.")):
            with self.subTest(arguments=arguments):
                run = self.call(*arguments, status=2)
                self.assertEqual(run.stdout, b"")
                self.assertIn(f"quillon-print: {problem}\n", run.stderr.decode())
        self.assertEqual(list(self.folder.iterdir()), [])

    def test_help_lists_every_label_of_every_form(self):
        listed = 0
        for source in sorted((ROOT / "resources" / "forms").glob("*.rc")):
            dialog = source.read_text()
            resource = re.search(r"(?m)^(\w+) DIALOGEX", dialog).group(1)
            form = next(name for name in forms() if resource in {case[1] for case in CASES if case[0] == name})
            text = self.call(form, "--help", status=0).stdout.decode()
            for label, kind in re.findall(r'CONTROL "([^"]*)", \w+, "BUTTON", BS_AUTO(RADIOBUTTON|CHECKBOX)', dialog):
                if label in ("Printer", "File"):
                    self.assertNotIn(f'"{label}"', text)
                    continue
                option = "--check" if kind == "CHECKBOX" else "(--sort|--select)"
                self.assertRegex(text, f'{option} "{re.escape(label.strip())}"')
                listed += 1
        self.assertEqual(listed, 75)
        self.assertIn('--lines-per-page TEXT   (begins with "50")', text)
        self.assertRegex(self.call("trades", "--help").stdout.decode(), r'--sort "Time"   \(as the form begins\)')

    def test_help_word_for_word(self):
        self.assertEqual(self.call("--help", status=0).stdout.decode(), HELP)
        self.assertEqual(self.call("trades", "--help", status=0).stdout.decode(), HELP_ON_TRADES)
        self.assertEqual(self.call("kesto", "--help", status=0).stdout.decode(), HELP_ON_KESTO)

    def test_help_and_version(self):
        self.assertIn(b"quillon-print FORM FILE", self.call("--help", status=0).stdout)
        self.assertIn(b"quillon-print FORM FILE", self.call("--all", "--help", status=0).stdout)
        self.assertRegex(self.call("--version", status=0).stdout, rb"^quillon-print \d+\.\d+\n$")


def children_of(process):
    for folder in pathlib.Path("/proc").glob("[0-9]*"):
        try:
            parent = int((folder / "stat").read_text().rpartition(")")[2].split()[1])
        except (OSError, ValueError):
            continue  # it has ended since
        if parent == process:
            yield int(folder.name)


def command_line(process):
    """As `ps` shows it; empty for one that has ended and was not waited for."""
    return pathlib.Path(f"/proc/{process}/cmdline").read_text().split("\0")[:-1]


def limit_files(size):
    """No file may become longer: whoever tries is ended by a signal, or refused where that is passed over (as Python itself does)."""
    resource.setrlimit(resource.RLIMIT_FSIZE, (size, size))


class All(Folder):
    def setUp(self):
        super().setUp()
        self.day = self.folder / "day"
        self.day.mkdir()
        for name in ("TR010109.B01", "TO010109.B01", "KT010109.SAV", "DELY0101.215", "Ad010109.adl"):
            shutil.copy(EXPORT / name, self.day / name)

    def test_a_broken_file_stops_none_of_the_others(self):
        (self.day / "BR010109.BIN").write_bytes(b"broken")
        (self.day / "notes.md").write_bytes(b"read me")
        (self.day / "TRfolder.B1").mkdir()
        for jobs in ("1", "3"):
            run = self.call("--all", "day", "-o", f"out{jobs}/of the day".replace("/", "-"), "-j", jobs, status=1)
            out = self.folder / f"out{jobs}-of the day"
            lines = run.stdout.decode().splitlines()
            self.assertEqual(lines, [
                f"Ad010109.adl: admin-log, complete: {out.name}/Ad010109.adl.txt",
                "BR010109.BIN: broker-query, FAILED: " + lines[1].split("FAILED: ")[1],
                f"DELY0101.215: auction (Delivery Statement), complete: {out.name}/DELY0101.215.txt",
                f"KT010109.SAV: touchlines (Kesto), complete: {out.name}/KT010109.SAV.txt",
                f"TO010109.B01: trades (Oddlot File), complete: {out.name}/TO010109.B01.txt",
                f"TR010109.B01: trades, complete: {out.name}/TR010109.B01.txt",
                "notes.md: no form knows it",
                "5 complete, 1 failed"])
            self.assertIn("BR010109.BIN: " + lines[1].split("FAILED: ")[1], run.stderr.decode())
            self.assertIn("TR010109.B01: TRADES PRINTING: PRINTING COMPLETE", run.stderr.decode())
            self.assertEqual(sorted(p.name for p in out.iterdir()),
                             [f"{n}.txt" for n in ("Ad010109.adl", "DELY0101.215", "KT010109.SAV", "TO010109.B01", "TR010109.B01")])
        self.call("trades", "day/TR010109.B01", "-o", "one.txt", status=0)
        self.assertEqual((out / "TR010109.B01.txt").read_bytes(), (self.folder / "one.txt").read_bytes())

    def test_pdf(self):
        self.call("--all", "day", "-o", "out", "--pdf", "-j", "2", status=0)
        self.call("--all", "day", "-o", "text", status=0)
        for report in sorted((self.folder / "text").iterdir()):
            pdf = self.folder / "out" / report.name.replace(".txt", ".pdf")
            subprocess.run(["qpdf", "--check", pdf], check=True, capture_output=True)
            text = subprocess.run(["pdftotext", "-layout", pdf, "-"], capture_output=True).stdout
            self.assertEqual(text.split(), report.read_bytes().split())

    def test_other_forms_for_some_files(self):
        run = self.call("--all", "day", "-o", "out", "--as", "DELY*.*=delivery-slips", "--as", "tr*.b01=net-position:Scrip Wise NetPosion",
                        "--as", "K?01*.SAV=none", "--clock", CLOCK, status=0)
        told = run.stdout.decode()
        self.assertIn("DELY0101.215: delivery-slips, complete", told)
        self.assertIn("TR010109.B01: net-position (Scrip Wise NetPosion), complete", told)
        self.assertIn("KT010109.SAV: no form knows it", told)
        self.assertIn(b"4 complete, 0 failed", run.stdout)

    def test_every_sample(self):
        run = self.call("--all", EXPORT, "-o", "out", "-j", "2", status=0)
        outcomes = run.stdout.decode().splitlines()
        self.assertEqual(len(outcomes) - 1, len(list(EXPORT.iterdir())))
        self.assertEqual(outcomes[-1], f"{len(list((self.folder / 'out').iterdir()))} complete, 0 failed")
        self.assertEqual({line.split(":")[0] for line in outcomes if "no form" in line}, {"SCT250509.B01"})
        self.assertIn("SBB250509.BIN: convert, complete: out/SBB250509.BIN.txt", outcomes)

    def test_folders_that_cannot_be_used(self):
        self.assertIn(b'The folder "none" cannot be read.', self.call("--all", "none", "-o", "out", status=1).stderr)
        (self.folder / "file").write_bytes(b"")
        self.assertIn(b'The folder "file" cannot be made.', self.call("--all", "day", "-o", "file", status=1).stderr)
        (self.folder / "empty").mkdir()
        run = self.call("--all", "empty", "-o", "out", status=1)
        self.assertEqual(run.stdout, b"0 complete, 0 failed\n")

    def test_a_run_that_is_broken_off_stops_none_of_the_others(self):
        self.call("--all", "day", "-o", "whole", status=0)
        sizes = {p.name: p.stat().st_size for p in (self.folder / "whole").iterdir()}
        largest = max(sizes, key=sizes.get)
        limit = sizes[largest] - 1
        self.assertLess(max(size for name, size in sizes.items() if name != largest), limit)
        for jobs in ("1", "2"):
            out = self.folder / f"out{jobs}"
            run = self.call("--all", "day", "-o", out.name, "-j", jobs, status=1, preexec_fn=lambda: limit_files(limit))
            lines = run.stdout.decode().splitlines()
            self.assertEqual(lines[-1], "4 complete, 1 failed")
            failed = [line for line in lines if "FAILED" in line]
            self.assertEqual(len(failed), 1)
            self.assertTrue(failed[0].startswith(largest.removesuffix(".txt") + ": "), failed)
            self.assertTrue(failed[0].endswith(", FAILED: it came to no end of its own"), failed)
            self.assertEqual({p.name for p in out.iterdir() if not p.name.startswith(".")}, set(sizes) - {largest})
            for report in set(sizes) - {largest}:
                self.assertEqual((out / report).read_bytes(), (self.folder / "whole" / report).read_bytes())
            for piece in out.glob(".*"):
                self.assertRegex(piece.name, r"^\.quillon-print-\d+\.tmp$")  # as the manual has it

    def test_why_a_file_failed(self):
        # The first line of its last box; the run's own words where that box calls the report complete though an error was told.
        bad = self.folder / "bad"
        bad.mkdir()
        for name in ("MONY0101.215", "Adel250509.adl"):
            shutil.copy(EXPORT / name, bad / name)
        scratch = self.folder / "scratch"
        scratch.mkdir()
        run = self.call("--all", "bad", "-o", "out", "--as", "Adel*=admin-log", status=1, env={**os.environ, "TMPDIR": str(scratch)})
        self.assertEqual(run.stdout.decode().splitlines(), [
            'Adel250509.adl: admin-log, FAILED: quillon-print: "bad/Adel250509.adl": no report was made. '
            "(Admin Log Printing: Error in Reading File)",
            "MONY0101.215: auction, FAILED: AUCTION REPORT PRINTING: No Offer status file available",
            "0 complete, 2 failed"])
        self.assertIn(b"\nMONY0101.215:   Can't proceed with Money statement printing\n", run.stderr)
        self.assertEqual(list(scratch.iterdir()), [])  # what held the messages on their way

    def test_no_more_at_a_time_than_told(self):
        # The first run stands still where it opens its messages, which nobody reads yet: the second one may run beside it, the
        # third one must not be there.
        scratch = self.folder / "scratch"
        scratch.mkdir()
        run = subprocess.Popen([PRINT, "--all", "day", "-o", "out", "-j", "2"], cwd=self.folder, env={**os.environ, "TMPDIR": str(scratch)},
                               stdout=subprocess.PIPE, stderr=subprocess.DEVNULL,
                               preexec_fn=lambda: os.mkfifo(f"{scratch}/quillon-print-{os.getpid()}-1.log"))
        fifo = scratch / f"quillon-print-{run.pid}-1.log"
        until = time.monotonic() + 60
        while not (self.folder / "out" / "DELY0101.215.txt").exists() and time.monotonic() < until:
            time.sleep(0.05)
        time.sleep(0.5)
        calls = [call for call in map(command_line, children_of(run.pid)) if call]  # the second one has ended
        made = sorted(p.name for p in (self.folder / "out").iterdir())
        for mode in ("rb", "wb"):  # lets the first one go on, then tells that it has said all
            with open(fifo, mode) as pipe:
                if mode == "rb":
                    self.assertIn(b"Printing Complete", pipe.read())
        told = run.communicate(timeout=60)[0].decode()
        self.assertEqual([call[:3] for call in calls], [["quillon-print", "admin-log", "day/Ad010109.adl"]])
        self.assertEqual(made, ["DELY0101.215.txt"])
        self.assertTrue(told.endswith("\n5 complete, 0 failed\n"), told)
        self.assertEqual(list(scratch.iterdir()), [])

    def test_names_of_every_kind(self):
        for name in ("TR a b  c.B01", "TR\u0434\u0435\u043d\u044c.B01", "TR%s$(x)';&.B01"):
            shutil.copy(EXPORT / "TR010109.B01", self.day / name)
        shutil.copy(EXPORT / "TR250509.B01", self.day / "tr010109.b01")  # differs in case alone from another one
        (self.day / "TRlink.B01").symlink_to("TR010109.B01")
        (self.day / "TRnowhere.B01").symlink_to("nowhere")
        os.mkfifo(self.day / "TRpipe.B01")
        run = self.call("--all", "day", "-o", "a b/\u00e9", "--clock", CLOCK, "-j", "2", status=0)
        self.assertIn("TR\u0434\u0435\u043d\u044c.B01: trades, complete: a b/\u00e9/TR\u0434\u0435\u043d\u044c.B01.txt\n", run.stdout.decode())
        out = self.folder / "a b" / "\u00e9"
        self.assertEqual({p.name.removesuffix(".txt") for p in out.iterdir()},
                         {p.name for p in self.day.iterdir()} - {"TRnowhere.B01", "TRpipe.B01"})
        report = (out / "TR010109.B01.txt").read_bytes()
        for name in ("TR a b  c.B01", "TR%s$(x)';&.B01", "TRlink.B01"):
            self.assertEqual((out / f"{name}.txt").read_bytes(), report)
        self.call("trades", EXPORT / "TR250509.B01", "--clock", CLOCK, "-o", "other.txt", status=0)
        self.assertEqual((out / "tr010109.b01.txt").read_bytes(), (self.folder / "other.txt").read_bytes())

    def test_a_folder_that_takes_no_file(self):
        run = self.call("--all", "day", "-o", "/proc", status=1)  # not even an administrator's
        self.assertIn('TR010109.B01: trades, FAILED: quillon-print: "/proc/TR010109.B01.txt" cannot be written.\n', run.stdout.decode())
        self.assertTrue(run.stdout.endswith(b"\n0 complete, 5 failed\n"), run.stdout)

    def test_messages_that_cannot_be_kept(self):
        run = self.call("--all", "day", "-o", "out", "--as", "*=trades", status=1, env={**os.environ, "TMPDIR": "/proc"})
        self.assertIn(b"TR010109.B01: trades, FAILED: its messages could not be kept\n", run.stdout)

    def test_nobody_hears_what_is_told(self):
        for closed in (">&- 2>&-", "2>&-"):
            run = subprocess.run(["sh", "-c", f'exec "$0" --all day -o "out{closed}" {closed}', PRINT], cwd=self.folder, stdout=subprocess.PIPE,
                                 timeout=120)
            self.assertEqual(run.returncode, 0, closed)
            self.assertEqual(len(list((self.folder / f"out{closed}").iterdir())), 5)
        read, write = os.pipe()
        os.close(read)
        run = subprocess.run([PRINT, "--all", "day", "-o", "out"], cwd=self.folder, stdout=write, stderr=write, timeout=120)
        os.close(write)
        self.assertEqual(run.returncode, 0)
        self.assertEqual(len(list((self.folder / "out").iterdir())), 5)

    def test_reports_that_cannot_be_written_fail_alone(self):
        (self.folder / "out" / "TR010109.B01.txt").mkdir(parents=True)
        run = self.call("--all", "day", "-o", "out", status=1)
        self.assertIn(b"TR010109.B01: trades, FAILED: ", run.stdout)
        self.assertIn(b"4 complete, 1 failed", run.stdout)


if __name__ == "__main__":
    unittest.main()
