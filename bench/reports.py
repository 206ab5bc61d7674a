"""Every report of the tree for bench/compare: how its form is worked, and a large input made out of its sample.

A sample's records are written again and again until there are enough. In every record a client's name and a scrip code stand
where the layout has them, so that groups, lists and sorts have what a large day gives them. The orders of a file:

    mixed     names and codes drawn in a fixed order that no sort likes
    equal     one record, over and over: equal on every key that there is
    sorted    names and codes ascending
    reversed  names and codes descending
"""

import array
import pathlib
import re
import struct

ROOT = pathlib.Path(__file__).resolve().parent.parent
SAMPLES = ROOT / "samples" / "export"
CLIENTS = 50_000
SCRIPS = 3_000
ORDERS = ("mixed", "equal", "sorted", "reversed")

IDS = dict(re.findall(r"#define IDC_(\w+) (\d+)", (ROOT / "resources" / "resource.h").read_text()))


def drawn(order, count, values):
    """For each of `count` records one of 0 to values - 1."""
    if order == "mixed":
        return [i * 7919 % values for i in range(count)]
    if order == "equal":
        return [0] * count
    ascending = [i * values // count for i in range(count)]
    return ascending if order == "sorted" else ascending[::-1]


class Binary:
    """A header of `header` bytes, then records of `size`. `clients` and `codes` are offsets of fields in a record."""

    def __init__(self, header, size, clients=(), codes=(), counts=None):
        self.header, self.size, self.clients, self.codes, self.counts = header, size, clients, codes, counts

    def make(self, sample, count, order):
        head, body = bytearray(sample[:self.header]), sample[self.header:]
        if self.counts:  # a header that tells how many records there are: only the first section is kept
            body = body[:self.size * struct.unpack_from("<i", head, self.counts[0])[0]]
            for at in self.counts:
                struct.pack_into("<i", head, at, 0)
            struct.pack_into("<i", head, self.counts[0], count)
        found = 1 if order == "equal" else len(body) // self.size
        records = bytearray(body[:found * self.size] * (count // found + 1))[:count * self.size]
        names = b"".join(b"C%05d" % n for n in drawn(order, count, CLIENTS)) if self.clients else b""
        for at in self.clients:
            for i in range(12):
                records[at + i::self.size] = names[i::6] if i < 6 else bytes(count)
        codes = array.array("i", (500_000 + n for n in drawn(order, count, SCRIPS))).tobytes() if self.codes else b""
        for at in self.codes:
            for i in range(4):
                records[at + i::self.size] = codes[i::4]
        return bytes(head + records)


class Repeated:
    """The records of the sample again and again, as they stand: for what neither sorts nor groups them."""

    def __init__(self, header, size):
        self.header, self.size = header, size

    def make(self, sample, count, _order):
        head, body = sample[:self.header], sample[self.header:]
        found = len(body) // self.size
        return head + body[:found * self.size] * (count // found) + body[:count % found * self.size]


class Lines:
    """A text file: `head` lines that stand once, then lines that are repeated, each with another first number."""

    def __init__(self, head):
        self.head = head

    def make(self, sample, count, order):
        lines = sample.decode("latin-1").split("\r\n" if b"\r\n" in sample else "\n")
        head, body = lines[:self.head], [line for line in lines[self.head:] if line]
        if order == "equal":
            body = body[:1]
        # What stands before and behind the first number; a line that does not begin with one stays as it is.
        split = [re.match(r"(\s*)\d+(.*)", line, re.S) for line in body]
        made = list(head)
        for i, number in enumerate(drawn(order, count, SCRIPS)):
            at = i % len(body)
            made.append(f"{split[at][1]}{500_000 + number}{split[at][2]}" if split[at] else body[at])
        return ("\r\n".join(made) + "\r\n").encode("latin-1")


class Report:
    """`words` are pressed between the load and the print, by the names of resource.h; `goal` is in times the limit."""

    times = 1  # how many times the records of the others
    keeps_memory = False  # its memory does not grow with the file

    def __init__(self, what, form, prefix, sample, layout, words=(), goal=4, before=(), beside=None, answers=("answer yes",)):
        self.what, self.form, self.prefix, self.sample, self.layout = what, form, prefix, sample, layout
        self.words, self.goal, self.before, self.beside, self.answers = words, goal, before, beside, answers

    def steps(self, name, output):
        def press(word):
            return f"press {IDS[self.prefix + '_' + word]}"

        return [f"tool {self.form}", *self.before,
                f"choose export/{name}", press("LOAD"), *(press(w) for w in self.words), press("FILE"),
                f"type {IDS[self.prefix + '_OUTFILE']} {output}", *self.answers, press("PRINT")]

    def files(self, count, order="mixed"):
        """{name under export: bytes}; the first is the one that is loaded."""
        made = {self.sample: self.layout.make((SAMPLES / self.sample).read_bytes(), count, order)}
        if self.beside:
            made[self.beside] = (SAMPLES / self.beside).read_bytes()
        return made


class Conversion(Report):
    """A file as '|' delimited text: there is no destination to choose, and Convert prints it. A record is in memory at a time, so
    that files of any size convert."""

    keeps_memory = True

    def __init__(self, what, sample, layout, words=(), answers=(), times=1):
        super().__init__(f"Convert, {what}", "CONVERT", "CONVERT", sample, layout, words, answers=answers)
        self.times = times

    def steps(self, name, output):
        words = [f"press {IDS['CONVERT_' + word]}" for word in self.words]
        return [f"tool {self.form}", f"choose export/{name}", f"press {IDS['CONVERT_LOAD']}", *words,
                f"type {IDS['CONVERT_OUTFILE']} {output}", *self.answers, f"press {IDS['CONVERT_CONVERT']}"]


TRADE132, TRADE144 = Binary(24, 132, (66,), (0,)), Binary(24, 144, (86,), (0,))
KESTO_TRADE = Binary(24, 142, (68,), (0,))
KESTO_BROKER = Binary(24, 142, (60,), (8,))
ADMIN = Binary(36, 122, counts=(4, 8, 12, 16))


def kesto(what, item, sample, layout, words=(), goal=4):
    return Report(what, "PRNTVQLS", "KESTO", sample, layout, words, goal, before=(f"pick {IDS['KESTO_KIND']} {item}",))


REPORTS = (
    Report("Trades, 132 bytes, by scrip code", "PRNTRPT", "TRADES", "TR010109.B01", TRADE132, ("SORT_SCRIP_CODE",)),
    Report("Trades, 144 bytes, by client", "PRNTRPT", "TRADES", "TR250509.B01", TRADE144, ("SORT_CLIENT_ID",),
           answers=("answer no", "answer yes")),
    Report("Trades with net position", "PRNTRPT", "TRADES", "TR010109.B01", TRADE132, ("NETPOS",), 10),
    Report("Trades, Kesto", "PRNTRPT", "TRADES", "CT010109.B01", KESTO_TRADE, ("SORT_CLIENT_ID",)),
    Report("Net Position by client", "PRNTNP", "NETPOS", "TR010109.B01", TRADE132, ("CLIENT",), 10),
    Report("SLB Position by client", "PRNTNPRET", "SLB", "STR250509.B01", TRADE144, ("CLIENT",), 10),
    Report("Broker Query, 132 bytes, by scrip code", "PRNTBRKREP", "BRKQRY", "BR010109.BIN", Binary(24, 132, (60,), (8,)),
           ("SORT_SCRIP_CODE",)),
    Report("Broker Query, 160 bytes, by client", "PRNTBRKREP", "BRKQRY", "BR250509.BIN", Binary(24, 160, (80,), (8,)),
           ("SORT_CLIENT_ID",), answers=("answer no", "answer yes")),
    Report("Touchlines by scrip code", "PRNTTLINE", "TLINE", "TL010109.SAV", Lines(1), ("SORT_SCRIP_CODE",)),
    Report("Trader Limits by trader", "PRNTTRDLM", "TRDLIM", "TD010109.TRD", Lines(3)),
    Report("Trader Limits by scrip", "PRNTTRDLM", "TRDLIM", "SC010109.TSL", Lines(2)),
    Report("Breakup data, sorted", "PRNTBRKUP", "BRKUP", "BU010109.DAT", Lines(0), ("SORT",)),
    Report("Breakup data, Kesto, sorted", "PRNTBRKUP", "BRKUP", "KU010109.DAT", Lines(0), ("KESTO", "SORT")),
    Report("6A7A, updatable", "PRNTSIXASEVENA", "6A7A", "6A010109.UPD", Lines(1)),
    Report("Order log by scrip code", "PRNTORDLOG", "ORDLOG", "OR250509.LOG", Binary(24, 136, (48,), (0,)), ("SORT_SCRIP_CODE",)),
    Report("Order log by client", "PRNTORDLOG", "ORDLOG", "OR250509.LOG", Binary(24, 136, (48,), (0,)), ("SORT_CLIENT_ID",)),
    Report("Consolidated order log by time", "PRNTORDLOG", "ORDLOG", "BO250509.BIN", Binary(24, 142, (58,), (8,)), ("SORT_TIME",)),
    Report("Quote log by bidding client", "PRNTQUOTELOG", "QUOTELOG", "QO250509.LOG", Binary(24, 126, (50,), (0,)),
           ("SORT_BID_CLIENT_ID",)),
    Report("Admin log, trader limits by trader", "PRNTADMINLOG", "ADMLOG", "Ad010109.adl", ADMIN, ("SORT_TRADER",)),
    Report("Money statement by scrip code", "AUCRPT", "AUC", "MONY0101.215", Binary(62, 102, codes=(0,)), ("SORT_SCRIP_CODE",), 10,
           beside="OFFS0101.215"),
    kesto("Kesto trades with net position", "Trades Printing", "CT010109.B01", KESTO_TRADE, ("SORT_CLIENT_ID", "NETPOS"), 10),
    kesto("Kesto broker query by trader", "Broker Query Printing", "CB250509.BIN", KESTO_BROKER, ("SORT_TRADER",), 10),
    kesto("Kesto touchlines", "TouchLines Printing", "VQ010109.VQT", Lines(1)),
    kesto("Kesto breakup", "BreakUp Data Printing", "KB010109.DAT", Lines(0)),
    Report("Kesto net position by client", "PRNTNETPOS", "KNETPOS", "CT010109.B01", KESTO_TRADE, ("CLIENT",), 10),
    Report("Kesto net position by scrip and client", "PRNTNETPOS", "KNETPOS", "CT010109.B01", KESTO_TRADE, ("SCRIP_CLIENT",), 10),
    Conversion("trades of 132 bytes", "TR010109.B01", Repeated(24, 132), times=10),
    Conversion("trades of 144 bytes", "TR250509.B01", Repeated(24, 144), answers=("answer yes",)),
    Conversion("admin trades of 176 bytes", "AD260710.adm", Repeated(24, 176), ("BR",)),
    Conversion("orders", "OR250509.LOG", Repeated(24, 136), times=10),
    Conversion("quotes", "QO250509.LOG", Repeated(24, 126)),
    Conversion("consolidated orders", "BO250509.BIN", Repeated(24, 142)),
    Conversion("Kesto trades", "CT010109.B01", Repeated(24, 142)),
)
