#!/usr/bin/env python3
"""Makes the sample files of samples/export, always the same bytes. Scrips, members and clients are invented.

    make_samples.py [FOLDER]      writes into FOLDER, samples/export where none is given
"""

import os
import sys

HERE = os.path.dirname(os.path.abspath(__file__))
sys.path.insert(0, os.path.join(HERE, "..", "tests", "tools"))

from workfiles import (  # noqa: E402
    broker132, broker160, delimited, header, kestoBroker, kestoTrade, lines, trade132, trade144, write)

# code, symbol, group, price in rupees around which it trades
SCRIPS = (
    (590004, "KAVERIPUMP", "A", 184.35),
    (590011, "SAHYACEM", "A", 612.80),
    (590023, "NILGRITEA", "B1", 47.10),
    (590038, "ORBITWIRE", "B1", 1328.55),
    (590042, "TARASTEEL", "A", 93.75),
    (590057, "DECCANYARN", "B2", 21.40),
    (590066, "PALMOILS", "B1", 256.00),
    (590071, "VASTUBANK", "A", 2045.90),
    (590080, "LOTUSGLASS", "T", 8.65),
)
CLIENTS = (
    ("R1042", "CLIENT"), ("R1187", "CLIENT"), ("R2090", "CLIENT_SD"), ("R2315", "CLIENT"), ("K0071", "NRI"),
    ("MFGROWTH", "MF"), ("OWN", "OWN"), ("R3308", "CLIENT_SD"), ("INS04", "INS"),
)
MEMBER, TRADER = 418, 12


class Chance:
    """A plain linear congruence: the same numbers with every version of Python."""

    def __init__(self, seed):
        self.state = seed

    def below(self, limit):
        self.state = (self.state * 6364136223846793005 + 1442695040888963407) % 2**64
        return (self.state >> 33) % limit

    def of(self, choices):
        return choices[self.below(len(choices))]


def times(chance, count):
    """`count` times of a session, 9:55 to 15:30, in ascending order."""
    seconds = sorted(9 * 3600 + 55 * 60 + chance.below(5 * 3600 + 35 * 60) for _ in range(count))
    return [clock(second) for second in seconds]


def clock(second):
    return "%02d:%02d:%02d" % (second // 3600, second // 60 % 60, second % 60)


def before(chance, time):
    """The time at which the order of a trade was given: up to two minutes earlier."""
    hours, minutes, seconds = (int(part) for part in time.split(":"))
    return clock(hours * 3600 + minutes * 60 + seconds - chance.below(120))


def common(chance, index, time, date, trn):
    code, symbol, _, price = chance.of(SCRIPS)
    client, kind = chance.of(CLIENTS)
    paise = round(price * 100)
    return dict(scripCode=code, scripId=symbol, trdId=100001 + 3 * index, rate=paise + (chance.below(41) - 20) * 5,
                qty=(1 + chance.below(40)) * 25, brokerId=100 + chance.below(900), traderId=1 + chance.below(30), time=time,
                date=date, clientId=client, side=chance.of("BS"), tradeType="L", trnId=trn + chance.below(90) + 100 * index,
                cliTyp=kind)


def normal132(seed, date, count, **fixed):
    chance = Chance(seed)
    return [trade132(**dict(common(chance, i, time, date, 9010100), **fixed)) for i, time in enumerate(times(chance, count))]


def normal144(seed, date, count, sides="BS", tradeTypes="L", trn=521000000, settlement=37):
    chance = Chance(seed)
    groups = {symbol: group for _, symbol, group, _ in SCRIPS}
    records = []
    for i, time in enumerate(times(chance, count)):
        fields = common(chance, i, time, date, trn)
        fields.update(side=chance.of(sides), tradeType=chance.of(tradeTypes),
                      orderTimeStamp=date + " " + before(chance, time), scGr=groups[fields["scripId"]],
                      settlementYear=2009, settlementNo=settlement)
        records.append(trade144(**fields))
    return records


def kesto(seed, date, count):
    chance = Chance(seed)
    records = []
    for i, time in enumerate(times(chance, count)):
        fields = common(chance, i, time, date, 70000)
        del fields["cliTyp"]
        fields.update(side=chance.of("TSMV"), tradeType=chance.of("LLLLLLO"), trnId=70001 + 2 * i, trdId=4001 + i,
                      rate=fields["rate"] * 100 // 50, days=chance.of((7, 14, 30)), settFyear="001/2008-2009")
        records.append(kestoTrade(**fields))
    return records


def kestoOddLots(seed, date, count):
    """Trades of the Kesto form: odd lots have transaction numbers of their own, from 10000000 on."""
    chance = Chance(seed)
    records = []
    for i, time in enumerate(times(chance, count)):
        fields = common(chance, i, time, date, 70000)
        del fields["cliTyp"]
        oddLot = chance.below(6) == 0
        fields.update(side=chance.of("TSMV"), tradeType="O" if oddLot else "L", trnId=(10000000 if oddLot else 0) + 70001 + 2 * i,
                      trdId=4001 + i, rate=fields["rate"] * 100 // 50, days=chance.of((7, 14, 30)),
                      settFyear="012/2009-2010")
        records.append(kestoTrade(**fields))
    return records


def brokerQuery(chance, index, time, date, trn):
    """A broker query file holds the trades of all the member's traders."""
    fields = common(chance, index, time, date, trn)
    fields.update(leadingNumber=index + 1, traderNo=1 + chance.below(TRADER), counterBroker=fields.pop("brokerId"),
                  counterTrader=fields.pop("traderId"), tradeTime=fields.pop("time"), tradeDate=fields.pop("date"),
                  instId=fields.pop("cliTyp").replace("CLIENT_SD", "CL_SD"))
    return fields


def broker132s(seed, date, count):
    chance = Chance(seed)
    return [broker132(**brokerQuery(chance, i, time, date, 9010100)) for i, time in enumerate(times(chance, count))]


def broker160s(seed, date, count, tradeTypes, trn, settlement):
    chance = Chance(seed)
    groups = {symbol: group for _, symbol, group, _ in SCRIPS}
    records = []
    for i, time in enumerate(times(chance, count)):
        fields = brokerQuery(chance, i, time, date, trn)
        fields.update(tradeType=chance.of(tradeTypes), orderTimeStamp=date + " " + before(chance, time),
                      scripGroup=groups[fields["scripId"]], settlementPart1=2009, settlementPart2=settlement)
        records.append(broker160(**fields))
    return records


def kestoBrokers(seed, date, count):
    chance = Chance(seed)
    records = []
    for i, time in enumerate(times(chance, count)):
        fields = brokerQuery(chance, i, time, date, 70000)
        for name in ("side", "tradeType", "trnId", "instId"):
            del fields[name]
        fields.update(legCode=chance.of("TSMV"), trdId=4001 + i, rate=fields["rate"] * 100 // 50, days=chance.of((7, 14, 30)),
                      settFyear="001/2008-2009")
        records.append(kestoBroker(**fields))
    return records


def start(fileKind, date, kind="T"):
    return header(fileKind=fileKind, kind=kind, memberId=MEMBER, traderId=TRADER, date=date, time="15:47:20")


def makeTradeFiles(folder):
    def make(name, fileKind, date, records):
        write(os.path.join(folder, name), start(fileKind, date), *records)

    make("TR010109.B01", "N", "01/01/2009", normal132(1, "01/01/2009", 120))
    make("TO010109.B01", "N", "01/01/2009", normal132(2, "01/01/2009", 12, tradeType="O", qty=7))
    make("TR210509.B01", "V", "21/05/2009", normal144(3, "21/05/2009", 24))
    make("TR250509.B01", "V", "25/05/2009", normal144(4, "25/05/2009", 24, tradeTypes="LLLO", trn=200905250000000, settlement=39))
    make("STR250509.B01", "V", "25/05/2009", normal144(5, "25/05/2009", 16, sides="BL", trn=7000000, settlement=12))
    make("CT010109.B01", "B", "01/01/2009", kesto(6, "01/01/2009", 20))
    make("CT250509.B01", "C", "25/05/2009", kestoOddLots(7, "25/05/2009", 24))
    make("SCT250509.B01", "B", "25/05/2009", kestoOddLots(8, "25/05/2009", 12))


def makeBrokerQueryFiles(folder):
    def make(name, fileKind, date, records):
        write(os.path.join(folder, name), start(fileKind, date, kind="B"), *records)

    make("BR010109.BIN", "N", "01/01/2009", broker132s(11, "01/01/2009", 60))
    make("BR210509.BIN", "V", "21/05/2009", broker160s(12, "21/05/2009", 24, "LLLTO", 521000000, 37))
    make("BR250509.BIN", "V", "25/05/2009", broker160s(13, "25/05/2009", 24, "LLLTO", 200905250000000, 39))
    make("BR250509.SBIN", "V", "25/05/2009", broker160s(14, "25/05/2009", 16, "L", 7000000, 12))
    make("BB010109.BIN", "B", "01/01/2009", kestoBrokers(15, "01/01/2009", 20))
    make("CB250509.BIN", "C", "25/05/2009", kestoBrokers(16, "25/05/2009", 24))
    make("SBB250509.BIN", "B", "25/05/2009", kestoBrokers(17, "25/05/2009", 12))


def scripsOfTheDay(chance, count):
    """Invented scrips beyond the few that are traded above: (code, symbol, price in paise), in no order."""
    heads = ("AMBAR", "BELA", "CHAKRA", "DHANU", "EKTA", "GAGAN", "HIMA", "INDRA")
    tails = ("TEX", "AGRO", "CHEM", "WIRE", "PORT", "MICA", "SALT", "FOIL")
    scrips = []
    for i in range(count):
        symbol = heads[i % len(heads)] + tails[(i // len(heads) + i) % len(tails)]
        scrips.append((591000 + 7 * (i * 37 % 101), symbol, 500 + chance.below(200000)))
    return scrips


def touchlines(seed, count):
    """One line a scrip; a few were not traded, and some have no order on one side."""
    chance = Chance(seed)
    found = []
    for code, symbol, price in scripsOfTheDay(chance, count):
        traded = chance.below(8) > 0
        day = [price, price + 5 * chance.below(40), price - 5 * chance.below(20), price + 5] if traded else [0, 0, 0, 0]
        buy, offer = (0 if chance.below(9) == 0 else price, 0 if chance.below(9) == 0 else price + 5)
        found.append(delimited(symbol, code, buy, offer, *day, 25 * chance.below(4000) if traded else 0))
    return found


def kestoTouchlines(seed, count):
    chance = Chance(seed)
    found = []
    for code, symbol, price in scripsOfTheDay(chance, count):
        rate = 10 + price // 100
        lends, borrows = chance.below(5) > 0, chance.below(5) > 0
        lend = [rate, 100 * (1 + chance.below(90)), 400 + chance.below(300)] if lends else [0, 0, 0]
        borrow = [rate + 5, 100 * (1 + chance.below(90)), 450 + chance.below(300)] if borrows else [0, 0, 0]
        found.append(delimited(symbol, code, *lend, *borrow, rate + 2, rate + 1, 100 * chance.below(50), "OP"))
    return found


def kestoDayTouchlines(seed, count):
    """The quotes of the Kesto form's own touchlines: each scrip for one number of days, some before the market opened ("BC")."""
    chance = Chance(seed)
    found = []
    for code, symbol, price in scripsOfTheDay(chance, count):
        rate = 5000 + 10 * (price // 100)
        lends, borrows = chance.below(5) > 0, chance.below(5) > 0
        lend = [rate, 100 * (1 + chance.below(90)), 40000 + chance.below(30000)] if lends else [0, 0, 0]
        borrow = [rate + 50, 100 * (1 + chance.below(90)), 45000 + chance.below(30000)] if borrows else [0, 0, 0]
        traded = chance.below(6) > 0
        found.append(delimited(symbol, code, *lend, *borrow, rate + 20, rate + 10 if traded else 0,
                               100 * chance.below(50) if traded else 0, chance.of(("OP", "OP", "OP", "BC")),
                               chance.of((7, 14, 30))))
    return found


def makeTouchlineFiles(folder):
    def make(name, title, *found):
        write(os.path.join(folder, name), lines(title, *found))

    make("TL010109.SAV", "As on : 01/01/09|10:30:00|EQUITY|", *touchlines(21, 60))
    make("TL250509.SSAV", "As on : 25/05/09|10:30:00|SLB|", *touchlines(22, 16))
    make("KT010109.SAV", "01/01/2009|10:30:00|KESTO|", *kestoTouchlines(23, 60))
    make("KT250509.SSAV", "25/05/2009|10:30:00|KESTO|", *kestoTouchlines(24, 16))
    make("VQ010109.VQT", "01/01/2009|10:30:00|KESTO|", *kestoDayTouchlines(25, 60))
    make("SVQ250509.VQT", "25/05/2009|10:30:00|KESTO|", *kestoDayTouchlines(26, 16))


TRADERS = ("ANAND", "BHARATI", "CHARU", "DINESH", "ESHA", "FAROKH", "GITA", "HARISH", "ILA", "JAYANT", "KIRAN", "LATA")


def traderLimits(seed, count, flags, widths):
    """Normal trader-wise lines: `flags` letters, among them the one-letter MQ, then limits of at most so many digits."""
    chance = Chance(seed)
    found = []
    for i in range(count):
        letters = [chance.of("YYYN") for _ in range(flags)]
        limits = [chance.below(10 ** width) for width in widths]
        found.append(delimited(i + 1, TRADERS[i % len(TRADERS)], *letters, *limits))
    return found


def scripLimits(seed, count):
    chance = Chance(seed)
    return [delimited(i + 1, 1 + i % 12, code, 100 * chance.below(500), 100 * chance.below(500))
            for i, (code, _, _) in enumerate(scripsOfTheDay(chance, count))]


def kestoTraderLimits(seed, count):
    chance = Chance(seed)
    rights = (0x1FFFFFFF, 0x1FFF7FFF, 0, 0x600080C0, 0x20000040, 0x40000080, 0x00008000)
    return [delimited(i + 1, TRADERS[i % len(TRADERS)], rights[i % len(rights)], 1000 * chance.below(9000),
                      1000 * chance.below(9000)) for i in range(count)]


def kestoScripLimits(seed, count):
    chance = Chance(seed)
    return [delimited(symbol, code, 100 * chance.below(500), 100 * chance.below(500))
            for code, symbol, _ in scripsOfTheDay(chance, count)]


def makeTraderLimitsFiles(folder):
    def make(name, title, date, *rest):
        write(os.path.join(folder, name), lines(delimited(title, MEMBER, date, TRADER), *rest))

    # Two lines of column names stand between the first line and the traders, one between it and the scrips.
    traderHeads = ("Trader|Alias|Flags|Limits|", "No||Y or N|Rupees or units|")
    scripHead = "No|Trader|Scrip|Buy or borrow|Sell or lend|"
    ordinary, lending = (6, 6, 9, 8, 8, 8, 8), (8, 6, 9, 8, 8, 8, 8)
    make("TD010109.TRD", "TraderWise Limits", "01/01/2009", *traderHeads, *traderLimits(31, 60, 17, ordinary))
    make("TD250509.STRD", "TraderWise Limits", "25/05/2009", *traderHeads, *traderLimits(32, 12, 11, lending))
    make("SC010109.TSL", "Scripwise Limits", "01/01/2009", scripHead, *scripLimits(33, 60))
    make("SC250509.STSL", "Scripwise Limits", "25/05/2009", scripHead, *scripLimits(34, 16))
    make("KL010109.TRD", "Binary Limits", "01/01/2009", *kestoTraderLimits(35, 60))
    make("KL250509.STRD", "Binary Limits", "25/05/2009", *kestoTraderLimits(36, 12))
    make("KS010109.TSL", "Scripwise Limits", "01/01/2009", *kestoScripLimits(37, 60))
    make("KS250509.STSL", "Scripwise Limits", "25/05/2009", *kestoScripLimits(38, 16))


def kestoBreakups(seed, count):
    """One line a scrip: five days with two client types each, then the totals of the scrip."""
    chance = Chance(seed)
    found = []
    for code, _, _ in scripsOfTheDay(chance, count):
        numbers, lend, borrow, lendFirm, borrowFirm = [code], 0, 0, 0, 0
        for day in (1, 7, 14, 30, 90):
            numbers += [day, 0, 0]
            for clientType in (2, 3):
                market = [chance.below(900), chance.below(900)]
                firm = [chance.below(90), chance.below(90)]  # borrowed, lent
                numbers += [clientType, *market, *firm]
                lend, borrow = lend + market[0], borrow + market[1]
                borrowFirm, lendFirm = borrowFirm + firm[0], lendFirm + firm[1]
        grossLend, grossBorrow = lend + lendFirm, borrow + borrowFirm
        numbers += [chance.below(500), lend, chance.below(500), borrow, borrowFirm, lendFirm, grossLend - grossBorrow, 0,
                    grossLend, grossBorrow]
        found.append(delimited(*numbers))
    return found


def makeBreakupFiles(folder):
    for name, seed, count in (("KB010109.DAT", 41, 8), ("SKB250509.DAT", 42, 4)):
        write(os.path.join(folder, name), lines(*kestoBreakups(seed, count)))


if __name__ == "__main__":
    folder = sys.argv[1] if len(sys.argv) > 1 else os.path.join(HERE, "export")
    makeTradeFiles(folder)
    makeBrokerQueryFiles(folder)
    makeTouchlineFiles(folder)
    makeTraderLimitsFiles(folder)
    makeBreakupFiles(folder)
