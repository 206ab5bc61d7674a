#!/usr/bin/env python3
"""Draws the program's icon and the 16 toolbar pictures: a small picture over two letters, on the button face.

Run in this folder after a change; the results are kept beside it. Grey 192 is the button face, which the program turns into
the colour of the user's desktop.
"""

import pathlib
import struct

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
    def __init__(self, width, height, ground):
        self.width, self.height = width, height
        self.rows = [[ground] * width for _ in range(height)]

    def fill(self, left, top, right, bottom, colour):
        for y in range(top, bottom + 1):
            for x in range(left, right + 1):
                self.rows[y][x] = colour

    def frame(self, left, top, right, bottom, colour, inside=None):
        self.fill(left, top, right, bottom, colour)
        if inside is not None:
            self.fill(left + 1, top + 1, right - 1, bottom - 1, inside)

    def dots(self, points, colour):
        for x, y in points:
            self.rows[y][x] = colour

    def word(self, text, top, colour):
        """Letters five rows high, centred."""
        pieces = [LETTERS[c].split() for c in text]
        width = sum(len(p[0]) for p in pieces) + len(pieces) - 1
        x = (self.width - width + 1) // 2
        for piece in pieces:
            for row, bits in enumerate(piece):
                for column, bit in enumerate(bits):
                    if bit == "1":
                        self.rows[top + row][x + column] = colour
            x += len(piece[0]) + 1


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


def log(c, colour):  # a book with a spine
    c.frame(5, 1, 19, 14, INK, PAPER)
    c.fill(6, 2, 8, 13, colour)
    lines(c, 10, 17, (4, 7, 10), colour)


# In the order of the buttons.
PICTURES = [
    (trades, "TR"), (net_position, "NP"), (slb_position, "SL"), (auction, "AU"), (touchlines, "TL"), (trader_limits, "LM"),
    (sixa_sevena, "6A"), (breakup, "BU"), (broker_query, "BQ"), (convert, "CV"), (delivery, "DS"), (kesto, "KP"),
    (kesto_net_position, "KN"), ("order_log", BLUE, "OL"), ("quote_log", RED, "QL"), ("admin_log", GREEN, "AL"),
]


def save_bitmap(path, canvas):
    """Eight bits a pixel with a palette: the kind of picture whose greys follow the user's desktop."""
    stride = (canvas.width + 3) // 4 * 4
    pixels = b"".join(bytes(row).ljust(stride, b"\0") for row in reversed(canvas.rows))
    palette = b"".join(bytes((b, g, r, 0)) for r, g, b in PALETTE)
    offset = 14 + 40 + len(palette)
    head = struct.pack("<2sIHHI", b"BM", offset + len(pixels), 0, 0, offset)
    info = struct.pack("<IiiHHIIiiII", 40, canvas.width, canvas.height, 1, 8, 0, len(pixels), 0, 0, len(PALETTE), 0)
    path.write_bytes(head + info + palette + pixels)


def icon_picture(size):
    """The Trades page, in whole steps of the 16 by 16 drawing; None is see-through."""
    c = Canvas(16, 16, None)
    page(c, 1, 0, 14, 15)
    c.fill(3, 2, 12, 3, GREEN)
    lines(c, 3, 7, (6, 9, 12), BLUE)
    lines(c, 9, 12, (6, 9, 12), RED)
    step = size // 16
    return [[c.rows[y // step][x // step] for x in range(size)] for y in range(size)]


def save_icon(path, sizes):
    images = []
    for size in sizes:
        pixels, mask = b"", b""
        for row in reversed(icon_picture(size)):
            for colour in row:
                r, g, b = PALETTE[colour] if colour is not None else (0, 0, 0)
                pixels += bytes((b, g, r, 255 if colour is not None else 0))
            bits = "".join("1" if colour is None else "0" for colour in row).ljust((size + 31) // 32 * 32, "0")
            mask += int(bits, 2).to_bytes(len(bits) // 8, "big")
        images.append(struct.pack("<IiiHHIIiiII", 40, size, size * 2, 1, 32, 0, len(pixels) + len(mask), 0, 0, 0, 0) + pixels + mask)
    offset = 6 + 16 * len(images)
    directory = struct.pack("<HHH", 0, 1, len(images))
    for size, image in zip(sizes, images):
        directory += struct.pack("<BBBBHHII", size, size, 0, 0, 1, 32, len(image), offset)
        offset += len(image)
    path.write_bytes(directory + b"".join(images))


def main():
    here = pathlib.Path(__file__).resolve().parent
    (here / "bitmaps").mkdir(exist_ok=True)
    for picture in PICTURES:
        c = Canvas(25, 25, FACE)
        if callable(picture[0]):
            name, letters = picture[0].__name__, picture[1]
            picture[0](c)
        else:
            name, letters = picture[0], picture[2]
            log(c, picture[1])
        c.word(letters, 18, INK)
        save_bitmap(here / "bitmaps" / (name + ".bmp"), c)
    save_icon(here / "quillon.ico", (16, 32, 48))


if __name__ == "__main__":
    main()
