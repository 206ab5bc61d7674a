#!/usr/bin/env python3
"""Makes the sample files of samples/export, always the same bytes. Scrips, members and clients are invented.

    make_samples.py [FOLDER]      writes into FOLDER, samples/export where none is given
"""

import os
import sys

HERE = os.path.dirname(os.path.abspath(__file__))
sys.path.insert(0, os.path.join(HERE, "..", "tests", "tools"))

from workfiles import broker132, broker160, header, kestoBroker, kestoTrade, trade132, trade144, write  # noqa: E402

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


def makeBrokerQueryFiles(folder):
    def make(name, fileKind, date, records):
        write(os.path.join(folder, name), start(fileKind, date, kind="B"), *records)

    make("BR010109.BIN", "N", "01/01/2009", broker132s(11, "01/01/2009", 60))
    make("BR210509.BIN", "V", "21/05/2009", broker160s(12, "21/05/2009", 24, "LLLTO", 521000000, 37))
    make("BR250509.BIN", "V", "25/05/2009", broker160s(13, "25/05/2009", 24, "LLLTO", 200905250000000, 39))
    make("BR250509.SBIN", "V", "25/05/2009", broker160s(14, "25/05/2009", 16, "L", 7000000, 12))
    make("BB010109.BIN", "B", "01/01/2009", kestoBrokers(15, "01/01/2009", 20))


if __name__ == "__main__":
    folder = sys.argv[1] if len(sys.argv) > 1 else os.path.join(HERE, "export")
    makeTradeFiles(folder)
    makeBrokerQueryFiles(folder)
