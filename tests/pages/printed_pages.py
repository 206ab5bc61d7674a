"""What came out of a printer, held against the report that went in."""

import math
import re
import subprocess

from page_words import MARGIN, difference, evenly_spaced, placed, placed_in_pdf, without_line_numbers

A4, A3, LETTER, LEGAL = (595.28, 841.89), (841.89, 1190.55), (612, 792), (612, 1008)
SECONDS = 120


def fit(pages, sheet=A4, font=0.0, margin=MARGIN, orientation=None, flows=False):
    """(landscape, font size), as the page that describes printing tells it. A report that flows has full pages before its last."""
    columns = max([len(line) for page in pages for line in page] + [1])
    lines = 66 if flows and len(pages) > 1 else max([len(page) for page in pages] + [1])
    fits = []
    for landscape in ([False, True] if orientation is None else [orientation]):
        width, height = reversed(sheet) if landscape else sheet
        width, height = width - 2 * margin, height - 2 * margin
        largest = min(width / (columns * 0.6), height / lines, 12)
        fits.append((math.floor(largest * 10 + 1e-6) / 10, not landscape, landscape))
    size, _, landscape = max(fits)
    return landscape, font or size


def to_pdf(job, folder, name):
    source, pdf = folder / f"{name}.ps", folder / f"{name}.pdf"
    source.write_bytes(job)
    subprocess.run(["gs", "-q", "-dNOPAUSE", "-dBATCH", "-dSAFER", "-dAutoRotatePages=/PageByPage", "-sDEVICE=pdfwrite", f"-sOutputFile={pdf}",
                    source], check=True, capture_output=True, timeout=SECONDS)
    return pdf


def read(*command):
    return subprocess.run(command, check=True, capture_output=True, timeout=SECONDS).stdout.decode()


def sheets_of(pdf, most):
    """Width and height of each sheet as its reader holds it."""
    told = read("pdfinfo", "-l", str(most), pdf)
    sizes = re.findall(r"Page +\d+ size: +([\d.]+) x ([\d.]+) pts.*\nPage +\d+ rot: +(\d+)", told)
    return [(float(high), float(wide)) if turn in ("90", "270") else (float(wide), float(high)) for wide, high, turn in sizes]


def printed_wrong(name, job, want, folder, landscape, size, left=MARGIN, sheet=A4):
    """What is wrong with a job, None where each word stands on its page, in its line and column, and the sheets lie as they should."""
    pdf = to_pdf(job, folder, re.sub(r"\W", "_", name))
    boxes = read("pdftotext", "-bbox", pdf, "-").replace("\u00ad", "-")  # of two names of one letter in a font, readers take the later
    lying = sheets_of(pdf, len(want) + 1)
    if len(lying) != len(want):
        return f"{name}: {len(lying)} pages, {len(want)} are wanted"
    wide, high = reversed(sheet) if landscape else sheet
    for width, height in lying:
        if abs(width - wide) > 2 or abs(height - high) > 2:
            return f"{name}: a sheet of {width} by {height} points, {wide} by {high} is wanted"
    for number, (lines, got) in enumerate(zip(want, placed_in_pdf(boxes, left, size * 0.6)), 1):
        words = placed(lines)
        if without_line_numbers(words) != without_line_numbers(got):
            return f"{name}, page {number}: {difference(without_line_numbers(words), without_line_numbers(got))}"
        if not evenly_spaced(words, got):
            return f"{name}, page {number}: a line stands off its row"
    return None
