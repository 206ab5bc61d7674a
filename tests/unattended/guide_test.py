#!/usr/bin/env python3
"""What the guide shows of reports and calls is what the programs do: each sample report of docs/ is made of its sample file and
compared line by line, the first steps give what they promise, and every call of the page on quillon-print is one that it takes.

Usage: guide_test.py QUILLON_PRINT QUILLON_SCRIPT SOURCE_FOLDER
"""

import os
import pathlib
import re
import shlex
import shutil
import subprocess
import sys
import tempfile
import unittest

ROOT = pathlib.Path(sys.argv.pop()).resolve()
SCRIPT = os.path.abspath(sys.argv.pop())
PRINT = os.path.abspath(sys.argv.pop())
DAY = ["TR010109.B01", "TO010109.B01", "KB010109.DAT"]  # a day's folder that is soon printed
CLOCK = "2009-05-22 10:11:12"


def page(name):
    return (ROOT / "docs" / (name + ".md")).read_text(encoding="utf-8")


def block_behind(text, words, indent):
    """The lines of the block of code that follows the paragraph which ends in these words."""
    lines = text[text.index(words + "\n\n") + len(words) + 2:].split("\n")
    end = next(i for i, line in enumerate(lines) if line and not line.startswith(" " * indent))
    return "\n".join(line[indent:] for line in lines[:end]).rstrip("\n").split("\n")


def forms_of_pages():
    """{page: the form that quillon-print knows for it}, from the table of unattended.md."""
    forms = {}
    for names, links in re.findall(r"(?m)^\| ((?:`[\w-]+`(?:, )?)+) \| (\[.*) \|$", page("unattended")):
        targets = re.findall(r"\]\(([\w-]+)\.md\)", links)
        for i, name in enumerate(re.findall(r"`([^`]+)`", names)):
            forms.setdefault(targets[min(i, len(targets) - 1)], name)
    return forms


class Guide(unittest.TestCase):
    def setUp(self):
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="quillon-guide-"))
        self.addCleanup(shutil.rmtree, self.folder)
        (self.folder / "export").mkdir()

    def sample(self, name):
        for needed in (name, name.replace("MONY", "OFFS")):  # a money statement needs the offers beside it
            shutil.copy(ROOT / "samples" / "export" / needed, self.folder / "export")

    def call(self, arguments):
        return subprocess.run([PRINT, *arguments], cwd=self.folder, capture_output=True, text=True, encoding="utf-8", check=False)

    def report(self, arguments):
        """The lines of the report from the first that is not empty, without the blanks at their ends."""
        run = self.call([*arguments, "--clock", CLOCK, "-o", "REPORT.TXT"])
        self.assertEqual(run.returncode, 0, run.stderr)
        text = (self.folder / "REPORT.TXT").read_bytes().decode("cp1252").replace("\r", "").lstrip("\n")
        return [line.rstrip() for line in text.split("\n")], run.stderr

    def expect_begin(self, report, shown):
        self.assertGreater(len(shown), 2)
        self.assertEqual(report[:len(shown)], shown)

    def test_every_sample_report_is_the_program_s(self):
        seen = 0
        for name, form in forms_of_pages().items():
            with self.subTest(page=name):
                shown = re.search(r"The sample `([^`]+)` begins:", page(name))
                self.assertIsNotNone(shown, "no sample report")
                self.sample(shown[1])
                report, _ = self.report([form, "export/" + shown[1]])
                self.expect_begin(report, block_behind(page(name), shown[0], 4))
                seen += 1
        self.assertEqual(seen, 15)

    def test_first_steps_give_what_they_promise(self):
        text = page("README")
        steps = " ".join(text[text.index("## To begin"):].split())
        name = re.search(r"choose `([^`]+)`", steps)[1]
        sort = re.search(r"Under \*Sort By\* choose \*([^*]+)\*", steps)[1]
        member, date, trades = re.search(r"the member is (\d+), the date ([\d/]+), and there are (\d+) trades", steps).groups()
        self.sample(name)
        report, told = self.report(["trades", "export/" + name, "--sort", sort])
        for line in ("MemberId=" + member, "Date " + date, "Records in the File=" + trades, "Is it Correct?", "PRINTING COMPLETE"):
            self.assertIn(line, told)
        self.expect_begin(report, block_behind(text, "like this:", 8))

    def test_every_call_is_one_that_quillon_print_takes(self):
        for name in DAY:
            self.sample(name)
        for folder in ("reports", "REPORTS"):
            (self.folder / folder).mkdir(exist_ok=True)
        calls = re.findall(r"(?m)^    quillon-print (.*)$", page("unattended"))
        self.assertGreater(len(calls), 3)
        for call in calls:
            with self.subTest(call=call):
                run = self.call(shlex.split(call))
                self.assertEqual(run.returncode, 0, run.stderr)

    def test_example_script_prints(self):
        text = page("scripted-desktop")
        self.sample("TR010109.B01")
        commands = block_behind(text, "`day.txt`:", 4)
        run = subprocess.run([SCRIPT], input="\n".join(commands) + "\n", cwd=self.folder, capture_output=True, text=True,
                             encoding="utf-8", check=False)
        self.assertEqual(run.returncode, 0, run.stderr)
        self.assertIn('"text":"PRINTING COMPLETE"', run.stdout)
        self.assertNotIn('{"refused":', run.stdout)
        self.assertTrue((self.folder / "TRADES.TXT").exists())


if __name__ == "__main__":
    unittest.main()
