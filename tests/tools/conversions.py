"""What the Convert tool must write of a binary file, told a second time: straight from the bytes, by offset.

    rows(file, "order log", choice=2, lending=True)

gives for each line its columns as (name, text), in their order. The text of a line is its columns with a '|' behind each, then
endOf(layout). Nothing of the program or of workfiles.py is used: who reads a converted file knows its columns, as this does.
"""

HEADER = 24
RETENTION = {0: b"IOC", 1: b"EOSESS", 2: b"EOTODY", 3: b"EOD", 4: b"EOSTLM"}
ORDER_ACTION = dict([(code, b"A") for code in (1, 4, 7, 8, 9, 12, 15, 17)] + [(code, b"U") for code in (2, 5, 10, 13)]
                    + [(code, b"D") for code in (3, 6, 11, 14, 16, 18)])
QUOTE_ACTION = {1: b"A", 4: b"A", 2: b"U", 5: b"U", 3: b"D", 6: b"D"}
CLIENT_ACTION = {19: b"A", 20: b"R"}
TYPE_ACTION = {21: b"A", 22: b"R"}
CLIENT_TYPES = ((b"BANK", 50, 51), (b"CLIENT", 30, 30), (b"DFI", 60, 61), (b"FII", 80, 81), (b"INS", 85, 86), (b"MF", 70, 71),
                (b"NRI", 87, 88), (b"OWN", 20, 20), (b"FI", 10, 11), (b"SPLCLI", 40, 40), (b"NPS", 75, 76), (b"QFI", 89, 89),
                (b"HNI", 28, 28), (b"BCO", 29, 29), (b"INST", 90, 90))
NO_LIMIT_RATE = range(9, 15)


class Reader:
    """The walk through one file: the record that is read, and what the records before it have left in a column."""

    def __init__(self, header, lending):
        self.header, self.lending, self.record, self.left = header, lending, b"", {}

    def number(self, at, width=4):
        return int.from_bytes(self.record[at:at + width], "little", signed=True)

    def text(self, at, width):
        return self.record[at:at + width].split(b"\0")[0]


def keep(name, table, at):
    """The word of a 16-bit code; what the record before left where the table has none."""
    def column(r):
        r.left[name] = table.get(r.number(at, 2), r.left.get(name, b""))
        return r.left[name]
    return name, column


def whole(name, at, width=4, cell=0):
    return name, lambda r: b"%*d" % (cell, r.number(at, width))


def text(name, at, width, cell=0):
    return name, lambda r: r.text(at, width).rjust(cell)


def letter(name, at):
    return name, lambda r: r.record[at:at + 1]


def side(name, at, short=False):
    """'L' and 'S' of a lending file come out as 'L', in the short lines as 'S'."""
    def column(r):
        stored = r.record[at:at + 1]
        return (b"S" if short else b"L") if r.lending and stored in (b"L", b"S") else stored
    return name, column


def kestoSide(at):
    return keep_letter("side", {b"S": b"B", b"T": b"B", b"M": b"S", b"V": b"S"}, at)


def keep_letter(name, table, at):
    def column(r):
        r.left[name] = table.get(r.record[at:at + 1], r.left.get(name, b""))
        return r.left[name]
    return name, column


def kestoRate(at):
    def column(r):
        rate = r.number(at)
        return b"%d" % (rate // 100 if rate >= 0 else -(-rate // 100))
    return "rate", column


def pair(name, first, firstWidth, second):
    return name, lambda r: b"%d/%d" % (r.number(first, firstWidth), r.number(second))


def stampTime(at):
    """The characters 11 to 18 of a date and time."""
    return "order time", lambda r: r.text(at + 11, 8)


def clientType(name, at):
    def column(r):
        code = r.number(at, 2)
        return next((word for word, first, second in CLIENT_TYPES if code in (first, second)), b"CLIENT")
    return name, column


def limitRate(at, action):
    return "limit rate", lambda r: b"-" if r.number(action, 2) in NO_LIMIT_RATE else b"%d" % r.number(at)


def dashedRate(name, at):
    return name, lambda r: b"%d" % r.number(at) if r.number(at) else b"-"


def clock(at):
    return "time", lambda r: b"%02d:%02d:%02d" % tuple(r.record[at:at + 3])


def fileDate():
    """The date of the header: four 16-bit numbers from byte 10 on."""
    def column(r):
        parts = tuple(int.from_bytes(r.header[at:at + 2], "little", signed=True) for at in (10, 12, 14, 16))
        return b"%02d/%02d/%02d%02d" % parts
    return "date", column


def ownDate(at):
    """Day, month and year of the old records, the year in the place of the century too."""
    return "date", lambda r: b"%02d/%02d/%02d%02d" % (r.record[at], r.record[at + 1], r.record[at + 2], r.record[at + 2])


def message(at, width, cell=0):
    return "message", lambda r: r.text(at, width).split(b"\n")[0].rjust(cell)


def trade(stamp, client, cliTyp, secondText):
    """The columns that all trades have; they differ in where they stand from the client on."""
    return [whole("scrip code", 0), text("scrip id", 4, 12), whole("trade id", 16), whole("rate", 20), whole("quantity", 24),
            whole("broker", 28), whole("trader", 32), text("time", 36, 15), text("date", 51, 15), text("client id", client, 12),
            side("side", client + 12, stamp == "short"), letter("trade type", client + 13), whole("transaction", client + 14, 8),
            text("client type", cliTyp, 10), text("second text", cliTyp + 10, secondText)]


def broker(short, client, trade_id, tail):
    return [whole("leading number", 0), whole("trader", 4), whole("scrip code", 8), text("scrip id", 12, 12), whole("rate", 24),
            whole("quantity", 28), whole("counter broker", 32), whole("counter trader", 36), text("time", 40, 9),
            text("date", 49, 11), text("client id", client, 12), whole("transaction", client + 12, 8),
            letter("trade type", client + 20), side("side", client + 21, short), whole("trade id", trade_id),
            text("inst id", trade_id + 4, 11), text("tail text", trade_id + 15, tail)]


KESTO_TRADE = [whole("scrip code", 0), text("scrip id", 4, 12), whole("trade id", 18), kestoRate(22), whole("quantity", 26),
               whole("broker", 30), whole("trader", 34), text("time", 38, 15), text("date", 53, 15), text("client id", 68, 12),
               kestoSide(80), letter("trade type", 81), whole("transaction", 82)]
KESTO_BROKER = [whole("leading number", 0), whole("trader", 4), whole("scrip code", 8), text("scrip id", 12, 12), kestoRate(24),
                whole("quantity", 28), whole("counter broker", 32), whole("counter trader", 36), text("time", 40, 9),
                text("date", 49, 11), text("client id", 60, 12), kestoSide(72), whole("trade id", 74)]


def adminNormal(client, last):
    """Side before type; the client stands at 74, or at 94 where an order's date and time come before it."""
    return [whole("scrip code", 8), text("scrip id", 12, 12), whole("trader", 4), whole("rate", 28), whole("quantity", 32),
            whole("counter broker", 36), whole("counter trader", 40), text("time", 44, 9, 8), text("date", 59, 11, 10),
            text("client id", client, 12), side("side", client + 12), letter("order type", client + 13),
            whole("order stamp", client + 14, 8), text("inst id", client + 22, 10), text("tail text", client + 32, 14), *last]


def adminBr(client, last):
    """Type before side, both behind the stamp."""
    return [whole("leading number", 0), whole("trader", 4), whole("scrip code", 8), text("scrip id", 12, 12), whole("rate", 28),
            whole("quantity", 32), whole("counter broker", 36), whole("counter trader", 40), text("time", 44, 9),
            text("date", 59, 11), text("client id", client, 12), whole("order stamp", client + 14, 8),
            letter("order type", client + 13), side("side", client + 12), whole("number", 24), text("inst id", client + 22, 10),
            text("tail text", client + 32, 14), *last]


ADMIN_TAIL = [text("scrip group", 148, 20), pair("settlement", 140, 4, 144), stampTime(74)]
ADMIN_LAST = [whole("last number", 168, 8)]

DELETION = [whole("first number", 110), side("side", 37), letter("order type", 36), whole("scrip code", 0),
            text("scrip id", 58, 12), whole("quantity", 4), whole("revealed quantity", 8), whole("limit rate", 12),
            whole("trigger rate", 16), whole("order id", 24, 8),
            ("retention", lambda r: RETENTION.get(r.number(32, 2), b"")),  # nothing stays here
            clientType("client type", 34), text("client id", 46, 12), whole("last number", 134, 8), clock(38), message(70, 40)]

RECTIFICATION = [whole("first number", 0), letter("letter", 8), whole("fourth number", 14), whole("second number", 4),
                 whole("third number", 10), whole("64-bit number", 22, 8), whole("fifth number", 18),
                 clientType("first type", 54), clientType("second type", 56), text("first text", 30, 12),
                 text("second text", 42, 12),
                 ("time and text", lambda r: b"%02d:%02d:%02d:" % tuple(r.record[148:151]) + r.text(151, 5)),
                 text("message", 108, 40)]  # not cut at a line feed


def order(date, messageWidth):
    return [side("side", 37), whole("scrip code", 0), text("scrip id", 60, 12), whole("quantity", 4),
            whole("revealed quantity", 8), limitRate(12, 44), dashedRate("trigger rate", 16), dashedRate("third rate", 20),
            clock(38), date, whole("order id", 24, 8), letter("order type", 36), text("client id", 48, 12),
            clientType("client type", 34), keep("retention", RETENTION, 32), keep("action", ORDER_ACTION, 44),
            message(72, messageWidth)]


# A message of 40 characters has no end of its own: what stands behind it in the record follows it.
OLD_ORDER = order(ownDate(41), 40)
ORDER = order(fileDate(), 64)
RECTIFIED = [side("side", 37), whole("scrip code", 0), text("scrip id", 60, 12), whole("quantity", 4), whole("limit rate", 12),
             clock(38), fileDate(), whole("order id", 24, 8), letter("order type", 36), whole("trade id", 112, 4, 8)]
RECTIFIED_CLIENT = [*RECTIFIED, clientType("client type", 34), text("old client id", 48, 12), text("new client id", 116, 12),
                    keep("action", CLIENT_ACTION, 44), message(72, 64)]
RECTIFIED_TYPE = [*RECTIFIED, clientType("old type", 34), clientType("new type", 132), text("client id", 48, 12),
                  keep("action", TYPE_ACTION, 44), message(72, 64)]

QUOTE = [whole("scrip code", 0), text("scrip id", 74, 12), whole("bid quantity", 4), whole("bid revealed", 8),
         dashedRate("bid rate", 12), text("bid client id", 50, 12), clientType("bid client type", 36),
         whole("offer quantity", 16), whole("offer revealed", 20), dashedRate("offer rate", 24), text("offer client id", 62, 12),
         clientType("offer client type", 38), clock(40), fileDate(), whole("quote id", 28, 8), keep("action", QUOTE_ACTION, 46),
         message(86, 40)]

CONSOLIDATED = [side("side", 71), whole("scrip code", 8), text("scrip id", 12, 12), whole("quantity", 24),
                whole("revealed quantity", 28), limitRate(32, 56), dashedRate("trigger rate", 36), dashedRate("third rate", 40),
                text("time", 87, 15), text("date", 72, 15), whole("order id", 44, 8), letter("order type", 70),
                text("client id", 58, 12), clientType("client type", 54), keep("retention", RETENTION, 52),
                keep("action", ORDER_ACTION, 56), message(102, 40, 40), whole("trader", 4)]

# layout: bytes of a record, columns, end of a line
TWO, THREE = b"\r\n", b"\r\r\n"
LAYOUTS = {
    "trade 132": (132, trade("", 66, 88, 34), THREE),
    "trade 144 short": (144, trade("short", 86, 108, 13) + [stampTime(66)], THREE),
    "trade 144 long": (144, trade("long", 86, 108, 13) + [text("scrip group", 131, 5), pair("settlement", 136, 2, 140), stampTime(66)],
                       THREE),
    "broker 132": (132, broker(False, 60, 82, 35), THREE),
    "broker 160 short": (160, broker(True, 80, 102, 15) + [stampTime(60)], THREE),
    "broker 160 long": (160, broker(False, 80, 102, 15) + [text("scrip group", 132, 20), pair("settlement", 152, 2, 156), stampTime(60)],
                        THREE),
    "kesto trade": (142, KESTO_TRADE, THREE),
    "kesto broker": (142, KESTO_BROKER, THREE),
    "admin 144 normal": (144, adminNormal(74, [whole("number at end", 120)]), THREE),
    "admin 144 br": (144, adminBr(74, []), THREE),
    "admin 168 normal": (168, adminNormal(94, ADMIN_TAIL), THREE),
    "admin 168 br": (168, adminBr(94, ADMIN_TAIL), THREE),
    "admin 176 normal": (176, adminNormal(94, ADMIN_TAIL + ADMIN_LAST), THREE),
    "admin 176 br": (176, adminBr(94, ADMIN_TAIL + ADMIN_LAST), THREE),
    "admin deletion": (142, DELETION, THREE),
    "trade rectification": (156, RECTIFICATION, TWO),
    "order 112": (112, OLD_ORDER, TWO),
    "order": (136, ORDER, TWO),
    "client rectification": (136, RECTIFIED_CLIENT, TWO),
    "type rectification": (136, RECTIFIED_TYPE, TWO),
    "quote": (126, QUOTE, TWO),
    "consolidated": (142, CONSOLIDATED, TWO),
}
# The records of an order log that a choice lists, by the letter at 128
LISTED = {"order": b"N", "client rectification": b"Y", "type rectification": b"I"}


def endOf(layout):
    return LAYOUTS[layout][2]


def recordsOf(file, layout):
    """The records that are converted. Admin files of 168 bytes are counted as if they had 176: the last ones are left out."""
    size = LAYOUTS[layout][0]
    counted = 176 if size == 168 else size
    count = max(0, len(file) - HEADER) // counted
    return [file[HEADER + i * size:HEADER + (i + 1) * size] for i in range(count)]


def rows(file, layout, lending=False):
    reader = Reader(file[:HEADER], lending)
    found = []
    for record in recordsOf(file, layout):
        if layout in LISTED and record[128:129] != LISTED[layout]:
            continue
        reader.record = record
        found.append([(name, column(reader)) for name, column in LAYOUTS[layout][1]])
    return found


def textOf(file, layout, lending=False):
    """The whole output. A line feed within a text leaves as every other does."""
    found = []
    for row in rows(file, layout, lending):
        line = b"".join(column + b"|" for _, column in row)
        found.append(line.replace(b"\n", b"\r\n") + endOf(layout))
    return b"".join(found)
