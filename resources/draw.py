#!/usr/bin/env python3
"""Draws the program's icon and the 16 toolbar pictures: a small picture over two letters, on the button face.

Run in this folder after a change; the results are kept beside it. Each picture is drawn on a grid of 25 by 25, for screens of
three kinds, and the icon on one of 16 by 16. Grey 192 is the button face and black the ink; the program turns both into the
colours of the user's desktop.
"""

import pathlib
import struct
import zlib

FACE, INK, PAPER, BLUE, RED, GREEN, GOLD, SHADE = range(8)
PALETTE = [(192, 192, 192), (0, 0, 0), (255, 255, 255), (0, 64, 160), (192, 0, 0), (0, 112, 48), (208, 144, 0), (112, 112, 112)]

LETTERS = {
    "6": "011 100 111 101 111", "7": "111 001 010 010 010", "A": "010 101 111 101 101", "B": "110 101 110 101 110",
    "C": "011 100 100 100 011", "D": "110 101 101 101 110", "K": "101 101 110 101 101", "L": "100 100 100 100 111",
    "M": "10001 11011 10101 10001 10001", "N": "1001 1101 1011 1001 1001", "O": "010 101 101 101 010",
    "P": "110 101 110 100 100", "Q": "0110 1001 1001 1011 0111", "R": "110 101 110 101 101", "S": "011 100 010 001 110",
    "T": "111 010 010 010 010", "U": "101 101 101 101 111", "V": "101 101 101 101 010",
}


class Canvas:
    """A square grid of `cells`, put onto `size` by `size` pixels. Coordinates are cells, the last one included."""

    def __init__(self, cells, size, ground):
        self.cells, self.size = cells, size
        self.rows = [[ground] * size for _ in range(size)]

    def edge(self, cell):
        """The first pixel of a cell."""
        return (2 * cell * self.size + self.cells) // (2 * self.cells)

    def paint(self, left, top, right, bottom, colour):
        """In pixels, the last one not included."""
        for y in range(top, bottom):
            for x in range(left, right):
                self.rows[y][x] = colour

    def fill(self, left, top, right, bottom, colour):
        self.paint(self.edge(left), self.edge(top), self.edge(right + 1), self.edge(bottom + 1), colour)

    def frame(self, left, top, right, bottom, colour, inside=None):
        self.fill(left, top, right, bottom, colour)
        if inside is not None:
            line = max(1, self.size // 24)  # a frame stays a thin line
            self.paint(self.edge(left) + line, self.edge(top) + line, self.edge(right + 1) - line, self.edge(bottom + 1) - line,
                       inside)

    def dots(self, points, colour):
        for x, y in points:
            self.fill(x, y, x, y, colour)

    def word(self, text, bottom, colour):
        """Letters five rows high, centred; each of their dots is a whole number of pixels. `bottom` is the row below them."""
        step = max(1, self.size // 19)
        pieces = [LETTERS[c].split() for c in text]
        width = sum(len(p[0]) for p in pieces) + len(pieces) - 1
        left, top = (self.size - width * step + 1) // 2, self.edge(bottom) - 5 * step
        for piece in pieces:
            for row, bits in enumerate(piece):
                for column, bit in enumerate(bits):
                    if bit == "1":
                        x, y = left + column * step, top + row * step
                        self.paint(x, y, x + step, y + step, colour)
            left += (len(piece[0]) + 1) * step


def page(c, left, top, right, bottom):
    c.frame(left, top, right, bottom, INK, PAPER)


def lines(c, left, right, rows, colour):
    for y in rows:
        c.fill(left, y, right, y, colour)


def trades(c):  # buys on the left, sells on the right
    page(c, 4, 1, 20, 14)
    lines(c, 6, 11, (4, 7, 10), BLUE)
    lines(c, 13, 18, (4, 7, 10), RED)


def net_position(c):  # plus over minus
    page(c, 6, 1, 18, 14)
    c.fill(9, 5, 15, 5, BLUE)
    c.fill(12, 2, 12, 8, BLUE)
    c.fill(9, 11, 15, 12, RED)


def slb_position(c):  # lent out and given back
    for i in range(4):
        c.dots([(16 + i, 5 - 3 + i), (16 + i, 8 - i)], GREEN)
        c.dots([(8 - i, 10 - 3 + i), (8 - i, 13 - i)], GOLD)
    c.fill(5, 5, 19, 5, GREEN)
    c.fill(5, 10, 19, 10, GOLD)


def auction(c):  # a hammer
    c.frame(5, 2, 14, 6, INK, GOLD)
    for i in range(7):
        c.fill(11 + i, 7 + i if 7 + i < 13 else 12, 12 + i, 8 + i if 8 + i < 13 else 12, INK)
    c.fill(4, 13, 14, 14, SHADE)


def touchlines(c):  # a line of prices that moves
    c.fill(3, 1, 3, 14, INK)
    c.fill(3, 14, 21, 14, INK)
    heights = [11, 9, 10, 7, 8, 5, 6, 3]
    for i, y in enumerate(heights):
        c.fill(5 + 2 * i, y, 6 + 2 * i, y + 1, RED)


def trader_limits(c):  # a mark that bars must not pass
    c.fill(5, 8, 8, 14, BLUE)
    c.fill(10, 5, 13, 14, BLUE)
    c.fill(15, 10, 18, 14, BLUE)
    c.fill(3, 3, 21, 3, RED)


def sixa_sevena(c):  # two pages, one behind the other
    page(c, 9, 1, 20, 11)
    page(c, 4, 4, 15, 14)
    lines(c, 6, 13, (7, 9, 11), GREEN)


def breakup(c):  # one block falls into parts
    c.frame(3, 4, 9, 11, INK, GOLD)
    c.fill(11, 7, 13, 8, INK)
    for top in (1, 6, 11):
        c.frame(15, top, 20, top + 3, INK, GOLD)


def magnifier(c, left):
    c.frame(left, 5, left + 8, 12, INK, PAPER)
    c.dots([(left, 5), (left + 8, 5), (left, 12), (left + 8, 12)], FACE)
    for i in range(3):
        c.fill(left + 8 + i, 12 + (i + 1) // 2, left + 9 + i, 13 + (i + 1) // 2, INK)


def broker_query(c):
    page(c, 3, 1, 14, 14)
    lines(c, 5, 12, (3, 11), BLUE)
    magnifier(c, 10)


def convert(c):  # from one form into another
    c.frame(2, 3, 8, 12, INK, BLUE)
    page(c, 17, 3, 23, 12)
    c.fill(10, 7, 13, 8, RED)
    for i in range(3):
        c.fill(13 + i, 5 + i, 13 + i, 10 - i, RED)


def delivery(c):  # a van
    c.frame(2, 4, 14, 11, INK, GOLD)
    c.frame(14, 6, 20, 11, INK, BLUE)
    for left in (4, 15):
        c.frame(left, 11, left + 3, 14, INK, SHADE)


def kesto(c):
    c.frame(5, 1, 19, 14, INK, GREEN)
    c.fill(8, 3, 9, 12, PAPER)
    for i in range(5):
        c.fill(11 + i, 7 - i, 12 + i, 7 - i, PAPER)
        c.fill(11 + i, 8 + i, 12 + i, 8 + i, PAPER)


def kesto_net_position(c):
    c.frame(5, 1, 19, 14, INK, GREEN)
    c.fill(9, 5, 15, 5, PAPER)
    c.fill(12, 2, 12, 8, PAPER)
    c.fill(9, 11, 15, 12, PAPER)


def book(c, colour):  # with a spine; each log has its own mark on the cover
    c.frame(4, 1, 20, 14, INK, PAPER)
    c.fill(5, 2, 6, 13, colour)


def order_log(c):  # lines, one below the other, each ticked off
    book(c, BLUE)
    for top in (3, 7, 11):
        c.fill(8, top, 10, top + 1, INK)
        c.fill(12, top, 18, top + 1, BLUE)


def quote_log(c):  # what is bid and what is asked, side by side
    book(c, RED)
    c.fill(13, 3, 13, 12, INK)
    for top, length in ((4, 3), (7, 2), (10, 4)):
        c.fill(12 - length, top, 11, top + 1, RED)
        c.fill(15, top, 20 - length, top + 1, RED)


def admin_log(c):  # a person
    book(c, GREEN)
    c.fill(12, 3, 14, 6, GREEN)
    c.fill(11, 4, 15, 5, GREEN)
    c.fill(10, 8, 16, 8, GREEN)
    c.fill(9, 9, 17, 12, GREEN)


# In the order of the buttons.
PICTURES = [
    (trades, "TR"), (net_position, "NP"), (slb_position, "SL"), (auction, "AU"), (touchlines, "TL"), (trader_limits, "LM"),
    (sixa_sevena, "6A"), (breakup, "BU"), (broker_query, "BQ"), (convert, "CV"), (delivery, "DS"), (kesto, "KP"),
    (kesto_net_position, "KN"), (order_log, "OL"), (quote_log, "QL"), (admin_log, "AL"),
]
SIZES = [("", 25), ("_38", 38), ("_50", 50)]  # screens of 96, 144 and 192 dots an inch
ICON_SIZES = (16, 20, 24, 32, 40, 48, 64, 128, 256)


def save_bitmap(path, canvas):
    """Eight bits a pixel with a palette, in which the program can exchange colours."""
    stride = (canvas.size + 3) // 4 * 4
    pixels = b"".join(bytes(row).ljust(stride, b"\0") for row in reversed(canvas.rows))
    palette = b"".join(bytes((b, g, r, 0)) for r, g, b in PALETTE)
    offset = 14 + 40 + len(palette)
    head = struct.pack("<2sIHHI", b"BM", offset + len(pixels), 0, 0, offset)
    info = struct.pack("<IiiHHIIiiII", 40, canvas.size, canvas.size, 1, 8, 0, len(pixels), 0, 0, len(PALETTE), 0)
    path.write_bytes(head + info + palette + pixels)


def icon_picture(size):
    """The Trades page; None is see-through."""
    c = Canvas(16, size, None)
    page(c, 1, 0, 14, 15)
    c.fill(3, 2, 12, 3, GREEN)
    lines(c, 3, 7, (6, 9, 12), BLUE)
    lines(c, 9, 12, (6, 9, 12), RED)
    return c.rows


def plain_image(rows):
    """A picture of an icon as bitmaps have it: colours, then what is see-through."""
    size, pixels, mask = len(rows), b"", b""
    for row in reversed(rows):
        for colour in row:
            r, g, b = PALETTE[colour] if colour is not None else (0, 0, 0)
            pixels += bytes((b, g, r, 255 if colour is not None else 0))
        bits = "".join("1" if colour is None else "0" for colour in row).ljust((size + 31) // 32 * 32, "0")
        mask += int(bits, 2).to_bytes(len(bits) // 8, "big")
    return struct.pack("<IiiHHIIiiII", 40, size, size * 2, 1, 32, 0, len(pixels) + len(mask), 0, 0, 0, 0) + pixels + mask


def packed_image(rows):
    """The same as PNG, which Windows takes for the large ones."""
    def chunk(name, data):
        return struct.pack(">I", len(data)) + name + data + struct.pack(">I", zlib.crc32(name + data))
    lines_of = b"".join(b"\0" + b"".join(bytes((*PALETTE[c], 255)) if c is not None else bytes(4) for c in row) for row in rows)
    head = struct.pack(">IIBBBBB", len(rows), len(rows), 8, 6, 0, 0, 0)
    return b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", head) + chunk(b"IDAT", zlib.compress(lines_of, 9)) + chunk(b"IEND", b"")


def save_icon(path, sizes):
    images = [(plain_image if size < 128 else packed_image)(icon_picture(size)) for size in sizes]
    offset = 6 + 16 * len(images)
    directory = struct.pack("<HHH", 0, 1, len(images))
    for size, image in zip(sizes, images):
        directory += struct.pack("<BBBBHHII", size % 256, size % 256, 0, 0, 1, 32, len(image), offset)
        offset += len(image)
    path.write_bytes(directory + b"".join(images))


def main():
    here = pathlib.Path(__file__).resolve().parent
    (here / "bitmaps").mkdir(exist_ok=True)
    for draw, letters in PICTURES:
        for suffix, size in SIZES:
            c = Canvas(25, size, FACE)
            draw(c)
            c.word(letters, 23, INK)
            save_bitmap(here / "bitmaps" / (draw.__name__ + suffix + ".bmp"), c)
    save_icon(here / "quillon.ico", ICON_SIZES)


if __name__ == "__main__":
    main()
