"""The pages of a report, and those of a PDF, as words in lines and columns, for who compares the two."""

import html
import re

MARGIN = 10 * 72 / 25.4  # points


def pages_of(report):
    """The report's pages as lists of lines, blanks at their ends and empty lines at the pages' ends left off."""
    text = report.decode("cp1252").replace("\r", "")
    pages = text.split("\f")
    if not pages[-1].strip():
        pages.pop()
    if len(pages) == 1 and "\f" not in text:  # no form feeds: pages of 66 lines
        lines = text.split("\n")
        pages = ["\n".join(lines[i:i + 66]) for i in range(0, len(lines), 66)]
        while not pages[-1].strip():
            pages.pop()
    return [[line.rstrip() for line in page.rstrip().split("\n")] for page in pages]


def placed(lines):
    """Each word of a page with its line and column."""
    return [(number, match.start(), match.group()) for number, line in enumerate(lines) for match in re.finditer(r"\S+", line)]


def placed_in_pdf(boxes, left, pitch):
    """The same for each page of a PDF, from where its words stand on the sheet: what pdftotext -bbox gives. A line is its height."""
    pages = []
    for page in boxes.split("<page ")[1:]:
        found = re.findall(r'xMin="([\d.]+)" yMin="([\d.]+)"[^>]*>(.*?)</word>', page)
        pages.append(sorted((float(y), round((float(x) - left) / pitch), html.unescape(text)) for x, y, text in found))
    return pages


def without_line_numbers(words):
    """Lines as they follow each other: where empty ones stand between is seen in the distances, which is checked apart."""
    order = {line: number for number, line in enumerate(sorted({line for line, _, _ in words}))}
    return [(order[line], column, text) for line, column, text in words]


def evenly_spaced(want, got):
    """All lines of the page stand at whole multiples of one distance from its first."""
    wanted, found = sorted({line for line, _, _ in want}), sorted({line for line, _, _ in got})
    if len(wanted) < 2 or len(wanted) != len(found):
        return len(wanted) == len(found)
    height = (found[-1] - found[0]) / (wanted[-1] - wanted[0])
    return all(abs((y - found[0]) / height - (line - wanted[0])) < 0.05 for line, y in zip(wanted, found))


def difference(want, got):
    for number, (wanted, found) in enumerate(zip(want, got), 1):
        if wanted != found:
            return f"line {number}:\n- {wanted}\n+ {found}"
    return f"{len(want)} lines wanted, {len(got)} found"
