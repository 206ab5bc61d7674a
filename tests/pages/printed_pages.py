"""What came out of a printer, held against the report that went in."""

import math
import re
import subprocess

from page_words import MARGIN, difference, evenly_spaced, placed, placed_in_pdf, without_line_numbers

A4, A3, LETTER, LEGAL = (595.28, 841.89), (841.89, 1190.55), (612, 792), (612, 1008)
SECONDS = 120


def fit(pages, sheet=A4, font=0.0, margin=MARGIN, orientation=None):
    """(landscape, font size), as the page that describes printing tells it."""
    columns = max([len(line) for page in pages for line in page] + [1])
    lines = max([len(page) for page in pages] + [1])
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


def printed_wrong(name, job, want, folder, landscape, size, left=MARGIN, sheet=A4):
    """What is wrong with a job, None where each word stands on its page, in its line and column, and the sheets lie as they should."""
    pdf = to_pdf(job, folder, re.sub(r"\W", "_", name))
    boxes = subprocess.run(["pdftotext", "-bbox", pdf, "-"], check=True, capture_output=True, timeout=SECONDS).stdout
    measures = re.findall(r'<page width="([\d.]+)" height="([\d.]+)"', boxes.decode())
    if len(measures) != len(want):
        return (f"{name}: {len(measures)} pages, {len(want)} are wanted")
    wide, high = reversed(sheet) if landscape else sheet
    for width, height in measures:
        if abs(float(width) - wide) > 2 or abs(float(height) - high) > 2:
            return (f"{name}: a sheet of {width} by {height} points, {wide} by {high} is wanted")
    for number, (lines, got) in enumerate(zip(want, placed_in_pdf(boxes, left, size * 0.6)), 1):
        words = placed(lines)
        if without_line_numbers(words) != without_line_numbers(got):
            return (f"{name}, page {number}: {difference(without_line_numbers(words), without_line_numbers(got))}")
        if not evenly_spaced(words, got):
            return (f"{name}, page {number}: a line stands off its row")
    return None
