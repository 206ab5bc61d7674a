#!/usr/bin/env python3
"""The PDF of a report, read by programs of others, holds the report's text, page by page.

Usage: pdf_pages.py REPORT_TO_PDF REPORTS_FOLDER

For every folder of approved reports: all of them joined to one report, and the narrowest and the widest of each kind (the name's
first word) by itself. qpdf finds no fault in the file; pdftotext and Ghostscript give the text of each page.
"""

import json
import pathlib
import re
import subprocess
import sys
import tempfile

from page_words import MARGIN, difference, evenly_spaced, pages_of, placed, placed_in_pdf, without_line_numbers

PROGRAM, REPORTS = sys.argv[1], pathlib.Path(sys.argv[2])
failures = []


def run(*command):
    done = subprocess.run(command, capture_output=True)
    if done.returncode != 0:
        failures.append(f"{' '.join(map(str, command))}: {done.returncode}\n{done.stdout.decode(errors='replace')[-500:]}{done.stderr.decode(errors='replace')[-500:]}")
    return done.stdout


def words(lines):
    return [line.split() for line in lines if line.strip()]


def check(name, report, folder):
    source, pdf = folder / "R.TXT", folder / "R.PDF"
    source.write_bytes(report)
    said = run(PROGRAM, source, pdf).decode()
    want = pages_of(report)
    width = max((len(line) for page in want for line in page), default=0)
    if f"{width} column" not in said or f"\n{len(want)} pages" not in said:
        failures.append(f"{name}: {width} columns and {len(want)} pages are wanted, the program says {said!r}")
    before = len(failures)
    run("qpdf", "--check", pdf)
    seen = json.loads(run("qpdf", "--json", "--json-key=pages", "--json-key=pagelabels", pdf) or "{}")
    if len(seen.get("pages", [])) != len(want):
        failures.append(f"{name}: qpdf sees {len(seen.get('pages', []))} pages of {len(want)}")
    read = run("pdftotext", "-layout", "-enc", "UTF-8", pdf, "-").decode().split("\f")[:-1]
    points = float(re.search(r"([\d.]+) pt", said).group(1))
    by_place = placed_in_pdf(run("pdftotext", "-bbox", pdf, "-").decode(), MARGIN, points * 0.6)
    run("gs", "-q", "-dNOPAUSE", "-dBATCH", "-sDEVICE=txtwrite", "-dTextFormat=3", f"-sOutputFile={folder}/gs-%d.txt", pdf)
    for number, lines in enumerate(want):
        got = read[number].split("\n") if number < len(read) else ["no page"]
        if words(got) != words(lines):
            failures.append(f"{name} page {number + 1} by pdftotext: {difference(words(lines), words(got))}")
        want_placed, got_placed = placed(lines), by_place[number] if number < len(by_place) else []
        if without_line_numbers(want_placed) != without_line_numbers(got_placed):
            failures.append(f"{name} page {number + 1}, columns: {difference(without_line_numbers(want_placed), without_line_numbers(got_placed))}")
        elif not evenly_spaced(want_placed, got_placed):
            failures.append(f"{name} page {number + 1}: a line stands off its row")
        page = folder / f"gs-{number + 1}.txt"
        got = page.read_text(encoding="utf-8").split("\n") if page.exists() else ["no page"]
        if words(got) != words(lines):
            failures.append(f"{name} page {number + 1} by Ghostscript: {difference(words(lines), words(got))}")
        if page.exists():
            page.unlink()
        if len(failures) > before + 3:
            break


def with_returns(text):
    return text.replace(b"\n", b"\r\n")


def main():
    checked = 0
    with tempfile.TemporaryDirectory() as scratch:
        folder = pathlib.Path(scratch)
        for subsystem in sorted(path for path in REPORTS.iterdir() if path.is_dir()):
            kinds, joined = {}, []
            for path in sorted(subsystem.glob("*.txt")):
                report = with_returns(path.read_bytes())
                if not report.strip():
                    continue  # nothing to print
                width = max(len(line.rstrip()) for line in report.split(b"\n"))
                kinds.setdefault(path.stem.split("_")[0], []).append((width, path.name, report))
                joined.append(report if report.endswith(b"\f") else report + b"\f")
            check(f"{subsystem.name}, joined", b"".join(joined), folder)
            checked += 1
            for reports in kinds.values():
                for width, name, report in sorted({min(reports), max(reports)}):
                    check(f"{subsystem.name}/{name}", report, folder)
                    checked += 1
        # Line ends of other tools, letters with marks, brackets, what a page description takes for its own.
        check("doubled returns", b"one\r\r\n  two\r\r\n\fthree\r\r\n", folder)
        check("line feeds alone", b"one\n  two\n\fthree\n", folder)
        check("letters", "caf\u00e9 \u20ac 5 \u0160koda (1) ((2 \\n \\( %\r\n".encode("cp1252"), folder)
        check("wide", (b"x" * 511 + b"\r\n") * 60, folder)
        checked += 4
        pdf = folder / "part.pdf"
        source = folder / "part.txt"
        source.write_bytes(b"a\fb\fc\fd\f")
        run(PROGRAM, source, pdf, "2", "3")
        labels = json.loads(run("qpdf", "--json", "--json-key=pagelabels", pdf))["pagelabels"]
        if labels != [{"index": 0, "label": {"/S": "/D", "/St": 2}}]:
            failures.append(f"page labels of a part: {labels}")
        if run("pdftotext", pdf, "-").split(b"\f")[:2] != [b"b\n\n", b"c\n\n"]:
            failures.append("pages 2 and 3 of a report hold other text")
        if b"part.txt" not in run("pdfinfo", pdf).split(b"\n")[0]:
            failures.append("the title is not the report's name")
    print("\n".join(failures[:20]) if failures else f"{checked} reports: their PDFs hold their pages")
    sys.exit(1 if failures or checked < 30 else 0)


main()
