#!/usr/bin/env python3
"""Makes the sample files of samples/export, always the same bytes. Scrips, members and clients are invented.

    make_samples.py [FOLDER]      writes into FOLDER, samples/export where none is given
"""

import os
import sys

HERE = os.path.dirname(os.path.abspath(__file__))
sys.path.insert(0, os.path.join(HERE, "..", "tests", "tools"))

from workfiles import (  # noqa: E402
    activity,
    admin144,
    admin168,
    admin176,
    adminDeletion,
    adminLog,
    auctionHeader,
    broker132,
    broker160,
    clbd,
    clientRectification,
    consolidatedOrder,
    delimited,
    dely,
    entl,
    groupLimit,
    header,
    kestoBroker,
    kestoTrade,
    lines,
    mony,
    offs,
    order112,
    order136,
    quote,
    scripLimit,
    trade132,
    trade144,
    tradeRectification,
    traderLimit,
    typeRectification,
    write,
)

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


AUCTION_BANKS = (3, 12, 47)
AUCTION_MEMBERS = ((77, "HILLSIDE BROKERS"), (207, "SUNRISE BROKING"), (311, "MERIDIAN FINANCE"), (1024, "DELTA STOCKS AND SHARES"),
                   (MEMBER, "LAKEVIEW SECURITIES"))


def auctionMoney(chance, count, offers, entitlements):
    """Securities received and auctioned, now and then with a BDC number; what was taken of the offers; entitlements."""
    found = []
    for i in range(count):
        code, symbol, _, price = chance.of(SCRIPS)
        std, qty = round(price * 100), 25 * (1 + chance.below(12))
        closeOut, auction = std * 110 // 100, std * (98 + chance.below(9)) // 100
        entry = chance.of(("CC", "B", "B", "C", "D", "D"))
        rupees, paise = divmod(qty * (closeOut if entry in ("CC", "C") else std), 100)
        side = dict(debitRupees=rupees, debitPaise=paise)
        if entry in ("CC", "C") or entry == "D" and chance.below(3) == 0:
            side = dict(creditRupees=rupees, creditPaise=paise)
        commission = qty * auction // 200 if entry == "D" else 0
        bdcNo = 450700 + i if chance.below(3) == 0 else 0
        found.append(mony(entry, scripCode=code, scripName=symbol, bdcNo=bdcNo, quantity=qty, stdRate=std, closeOutRate=closeOut,
                          auctionRate=auction, auctionCommission=commission, bankCode=chance.of(AUCTION_BANKS), **side))
    for offer in offers:
        if offer["qtyAccepted"] > 0:
            rupees, paise = divmod(offer["qtyAccepted"] * offer["offerRate"], 100)
            found.append(mony("O", scripCode=offer["scripCode"], scripName=offer["scripName"], quantity=offer["qtyAccepted"],
                              stdRate=offer["stdRate"], closeOutRate=0, auctionRate=offer["offerRate"], creditRupees=rupees,
                              creditPaise=paise, bankCode=chance.of(AUCTION_BANKS)))
    for i, (entry, side) in enumerate(entitlements):
        code, symbol, _, _ = chance.of(SCRIPS)
        found.append(mony(entry, scripCode=code, scripName=symbol, bdcNo=450800 + i, quantity=0, stdRate=0, closeOutRate=0,
                          auctionRate=0, **side))
    return found


def auctionOffers(chance, count):
    """The fields of offers in the order in which they were made; about half are taken."""
    found = []
    for _ in range(count):
        code, symbol, _, price = chance.of(SCRIPS)
        std, qty = round(price * 100), 25 * (1 + chance.below(12))
        offer = std * (96 + chance.below(9)) // 100
        accepted = chance.of((0, qty, qty, 25))
        found.append(dict(scripCode=code, scripName=symbol, offerRate=offer, qtyOffered=qty, qtyAccepted=accepted,
                          highestOfferRateAccepted=std * 104 // 100, creditValue=float(accepted * offer), stdRate=std,
                          closedOutRate=std * 110 // 100 if accepted == 0 else 0, clientId=chance.of(CLIENTS)[0],
                          deliveryType=chance.of("CNPX")))
    return found


def auctionDeliveries(chance, count):
    """Orders to receive and to deliver, some of them closed out (-2) or compulsorily so (-3), with and without a bank code."""
    found = []
    for i in range(count):
        code, symbol, _, price = chance.of(SCRIPS)
        side, (broker, name) = chance.of("OOOBB"), chance.of(AUCTION_MEMBERS)
        bank = chance.of(AUCTION_BANKS + (999,))
        marker = chance.below(5) if side == "O" else 0
        if marker in (2, 3):
            broker, name, bank = -marker, "", chance.of((0, 12))
        found.append(dely(scripCode=code, scripName=symbol, side=side, stdRate=round(price * 100), orderId=100120 + i,
                          brokerNo=broker, bdcNo=450900 + i, brokerName=name, quantity=25 * (1 + chance.below(12)), bankCode=bank,
                          deliveryType="X" if broker < 0 and bank == 0 else chance.of("CNP"), clientId=chance.of(CLIENTS)[0],
                          subBrokerId=chance.below(20)))
    return found


def auctionCloseOuts(chance, count):
    found = []
    for i in range(count):
        code, _, _, price = chance.of(SCRIPS)
        rate, total = round(price * 100), 25 * (2 + chance.below(12))
        closed = chance.of((25, 25, total))
        found.append(clbd(scripCode=code, bdcNo=450700 + i, totalAuctionQty=total, qtyAuctioned=total - closed,
                          qtyClosedOut=closed, closeOutRate=rate * 110 // 100, auctionRate=rate if closed < total else 0,
                          closeOutValue=closed * (rate * 110 // 100)))
    return found


def auctionEntitlements(chance, reasons):
    """As many of each reason as `reasons` says, in its order."""
    found = []
    for reason, count in reasons:
        for _ in range(count):
            code, symbol, _, price = chance.of(SCRIPS)
            member, name = chance.of(AUCTION_MEMBERS[:4])
            found.append(entl(buySellFlag=chance.of("BS"), scripCode=code, scripName=symbol, oppMemberId=member,
                              oppMemberName=name, bdcNo=450800 + len(found), entitlementType=chance.of(("DI", "CB", "RR")),
                              closingRate=round(price * 100), entitlementRate=round(price * 110) if reason == 1 else 0,
                              reason=reason))
    return found


def makeAuctionFiles(folder):
    """A money file and the offer status file of the same auction go together: their names differ in the first four letters."""
    def titleOf(notice, auctionNo):
        return auctionHeader(settlementNo=37, auctionNoticeNo=notice, auctionNo=auctionNo, clearingNo=MEMBER,
                             memberName="LAKEVIEW SECURITIES")

    def make(name, seed, notice, auctionNo, moneyCount, entitlements, offerCount):
        chance = Chance(seed)
        title = titleOf(notice, auctionNo)
        offers = auctionOffers(chance, offerCount)
        write(os.path.join(folder, "MONY" + name), title, *auctionMoney(chance, moneyCount, offers, entitlements))
        write(os.path.join(folder, "OFFS" + name), title, *[offs(**offer) for offer in offers])

    entitlements = (("DI", dict(debitRupees=250, debitPaise=50)), ("CB", dict(creditRupees=1320)),
                    ("RR", dict(debitRupees=75, debitPaise=25)), ("SD", dict(debitRupees=10)))
    make("0101.215", 41, "A215", 215, 50, (), 24)
    make("0201.007", 42, "X007", 7, 24, entitlements, 8)
    make("2505.S12", 43, "S12", 12, 16, (), 6)

    def makeDeliveries(name, seed, notice, auctionNo, count):
        write(os.path.join(folder, "DELY" + name), titleOf(notice, auctionNo), *auctionDeliveries(Chance(seed), count))

    makeDeliveries("0101.215", 44, "A215", 215, 50)
    makeDeliveries("0201.007", 45, "X007", 7, 16)
    makeDeliveries("2505.S12", 46, "S12", 12, 12)
    write(os.path.join(folder, "CLBD0101.215"), titleOf("A215", 215), *auctionCloseOuts(Chance(47), 45))
    write(os.path.join(folder, "ENTL0201.007"), titleOf("X007", 7),
          *auctionEntitlements(Chance(48), ((1, 12), (2, 5), (3, 3), (4, 2))))
REPLIES = ("LIMIT ACCEPTED", "LIMIT ACCEPTED", "LIMIT ACCEPTED", "Trader has no rights in this scrip\r\n",
           "Limit is below what the trader has used already")


def adminTraders(seed, count):
    chance = Chance(seed)
    found = []
    for time in times(chance, count):
        number = 1 + chance.below(len(TRADERS))
        flags = "".join(chance.of("YYYN") for _ in range(17)).encode()
        limits = dict(grBuy=5 * chance.below(400), grSell=5 * chance.below(400), netVal=5 * chance.below(900),
                      netBuyQty=500 * chance.below(4000), netSellQty=500 * chance.below(4000),
                      singleOrdQty=500 * chance.below(200), singleOrdVal=chance.below(80))
        alias = TRADERS[number - 1] + chance.of(("", "", "-WEST", "-NORTH"))
        found.append(traderLimit(time, traderNo=number, alias=alias, flags=flags, opCode=chance.of((9, 10, 12, 16)),
                                 message=chance.of(REPLIES), **limits))
    return found


def adminScrips(seed, count):
    chance = Chance(seed)
    found = []
    for time in times(chance, count):
        code, symbol, _, _ = chance.of(SCRIPS)
        found.append(scripLimit(time, traderId=1 + chance.below(12), scripCode=code, scripId=symbol, opCode=chance.of((9, 10, 11)),
                                buyLimit=500 * chance.below(2000), sellLimit=500 * chance.below(2000),
                                message=chance.of(REPLIES)))
    return found


def adminGroups(seed, count):
    chance = Chance(seed)
    return [groupLimit(time, traderId=1 + chance.below(12), groupName=chance.of(("A", "B1", "B2", "T")), buyLimit=5 * chance.below(900),
                       sellLimit=5 * chance.below(900), opCode=chance.of((9, 10, 11)), message=chance.of(REPLIES[:3]))
            for time in times(chance, count)]


def adminActivities(seed, count):
    chance = Chance(seed)
    found = []
    for time in times(chance, count):
        kind, old, new, reply = chance.of((("PASSWORD CHANGE", "MARIGOLD", "HIBISCUS", "PASSWORD CHANGED"),
                                           ("LOGON", "", "", "Logged on"), ("TRADER SUSPENDED", "", "", "ACCEPTED"),
                                           ("PASSWORD RESET", "", "JASMINE1", "PASSWORD RESET\r\n")))
        found.append(activity(time, traderId=1 + chance.below(12), oprType=kind, oldPwd=old, newPwd=new, message=reply))
    return found


def makeAdminLogFiles(folder):
    def make(name, date, *sections):
        write(os.path.join(folder, name), adminLog(*sections, memberId=MEMBER, date=date))

    make("Ad010109.adl", "01/01/2009", adminTraders(41, 12), adminScrips(42, 30), adminGroups(43, 8), adminActivities(44, 10))
    make("SAd250509.adl", "25/05/2009", adminTraders(45, 6), adminScrips(46, 9), [], adminActivities(47, 4))


def breakups(seed, count):
    """One line a scrip: figures of four client types, their totals, the net position and the gross figures."""
    chance = Chance(seed)
    found = []
    for code, _, _ in scripsOfTheDay(chance, count):
        blocks = [[chance.below(150) if chance.below(3) else 0 for _ in range(6)] for _ in range(4)]
        pd, sd, pc, sc, vb, sb = totals = [sum(column) for column in zip(*blocks)]
        gross = [pd + pc, sd + sc, pd + pc + vb, sd + sc + sb]
        groups = [delimited(code)] + [delimited(kind + 1, *block) for kind, block in enumerate(blocks)]
        last = delimited(*totals, gross[0] - gross[1], *gross)
        found.append(groups[0] + "\t\t     ".join(groups[1:]) + "\t\t" + last[:-1])
    return found


def kestoBreakups(seed, count):
    chance = Chance(seed)
    found = []
    for code, _, _ in scripsOfTheDay(chance, count):
        blocks = [[100 * chance.below(90) if chance.below(3) else 0 for _ in range(4)] for _ in range(2)]
        lm, bm, bf, lf = [sum(column) for column in zip(*blocks)]
        groups = [delimited(kind + 2, *block) for kind, block in enumerate(blocks)]
        last = delimited(lm + lf, lm, bm + bf, bm, lf, bf, lm + lf - bm - bf, 0, lm + lf, bm + bf)
        found.append(delimited(code) + "\t\t\t\t\t\t     ".join(groups + [last]))
    return found


def kestoDayBreakups(seed, count):
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
    def make(name, *found):
        write(os.path.join(folder, name), lines(*found))

    make("BU010109.DAT", *breakups(41, 14))
    make("SU250509.DAT", *breakups(42, 7))
    make("KU010109.DAT", *kestoBreakups(43, 14))
    make("SKU250509.DAT", *kestoBreakups(44, 7))


def entries6a7a(seed, count, date, sides, confirmed, paper):
    """One line an entry; `paper` is what its contract number or memo number begins with."""
    chance = Chance(seed)
    comments = ("PAYOUT TO CLIENT", "EARLY PAY-IN", "AGAINST MARGIN", "PART DELIVERY", "NONE")
    found = []
    for i in range(count):
        code, _, _, price = chance.of(SCRIPS)
        client, _ = chance.of(CLIENTS)
        quantity = (1 + chance.below(400)) * 25
        found.append(delimited(code, 1000 + chance.below(90), chance.of("ND"), 100001 + 3 * i, chance.of(sides), chance.of("CN"),
                               quantity, quantity * round(price * 100), date, client, confirmed(chance), 501 + i,
                               "%s/%04d" % (paper, 40 + i), chance.of(comments), 1 if chance.below(6) == 0 else 0))
    return found


def make6A7AFiles(folder):
    def make(name, date, *found):
        write(os.path.join(folder, name), lines(delimited(date, "16:05:30"), *found))

    def waiting(chance):
        return "N"

    def settled(chance):
        return chance.of("YYR")

    make("6A010109.UPD", "01/01/09", *entries6a7a(51, 60, "01/01/2009", "BS", waiting, "CN/2009/418"))
    make("6A250509.SUPD", "25/05/09", *entries6a7a(52, 12, "25/05/2009", "BL", waiting, "CM/2009/418"))
    make("6A010109.NUP", "01/01/09", *entries6a7a(53, 45, "01/01/2009", "BS", settled, "CN/2009/418"))
    make("6A250509.SNUP", "25/05/09", *entries6a7a(54, 12, "25/05/2009", "BL", settled, "CM/2009/418"))
# The codes of client types that the logs hold, by the clients of the day
TYPE_CODES = {"CLIENT": 30, "CLIENT_SD": 30, "NRI": 87, "MF": 70, "OWN": 20, "INS": 85}
# action code, and the exchange's reply to it
ORDER_ACTIONS = (
    (1, "Order accepted"), (1, "Order accepted"), (1, "Order accepted"), (2, "Order updated"), (3, "Order deleted"),
    (9, "Market order accepted"), (4, "Stop loss order accepted"), (1, "Order rejected, price beyond the band"),
    (17, "Odd lot order accepted\nby the broker's own limits"),
)


def orderEvent(chance, index, trn, sides="BS"):
    code, symbol, _, price = chance.of(SCRIPS)
    client, kind = chance.of(CLIENTS)
    action, message = chance.of(ORDER_ACTIONS)
    rate = round(price * 100) + (chance.below(41) - 20) * 5
    qty = (1 + chance.below(40)) * 25
    return dict(scripCode=code, scripId=symbol, qty=qty, revQty=qty // (1 + chance.below(3)), limitRate=rate,
                trigRate=rate - 50 if action == 4 else 0, orderId=trn + chance.below(90) + 100 * index,
                retention=chance.of((0, 1, 2, 3, 3, 3, 4)), clientType=TYPE_CODES[kind], clientId=client,
                orderType=chance.of("LLLLM"), side=chance.of(sides), actionCode=action, message=message)


def orders112(seed, count):
    chance = Chance(seed)
    return [order112(time, **orderEvent(chance, i, 1121000000)) for i, time in enumerate(times(chance, count))]


def orders136(seed, count, trn, sides="BS"):
    """Every sixth event, from the third on, rectifies a client id; every seventh, from the fourth on, a client type."""
    chance = Chance(seed)
    records = []
    for i, time in enumerate(times(chance, count)):
        fields = orderEvent(chance, i, trn, sides)
        newClient, newKind = chance.of(CLIENTS)
        if i % 6 == 2:
            fields.update(tradeId=100001 + 3 * i, newClientId=newClient, actionCode=19, message="Client id changed")
            if i % 4 == 0:
                fields.update(actionCode=20, message="Client id is not registered")
            records.append(clientRectification(time=time, **fields))
        elif i % 7 == 3:
            fields.update(tradeId=100001 + 3 * i, newClientType=TYPE_CODES[newKind], actionCode=21,
                          message="Client type changed")
            records.append(typeRectification(time=time, **fields))
        else:
            records.append(order136(time, **fields))
    return records


def consolidatedOrders(seed, date, count, trn, sides="BS"):
    """A consolidated log holds the orders of all the member's traders."""
    chance = Chance(seed)
    records = []
    for i, time in enumerate(times(chance, count)):
        fields = orderEvent(chance, i, trn, sides)
        records.append(consolidatedOrder(traderId=1 + chance.below(TRADER), logDate=date, logTime=time, **fields))
    return records


def quotes(seed, count):
    chance = Chance(seed)
    records = []
    for i, time in enumerate(times(chance, count)):
        code, symbol, _, price = chance.of(SCRIPS)
        bidder, bidderKind = chance.of(CLIENTS)
        offerer, offererKind = chance.of(CLIENTS)
        paise = round(price * 100)
        action, message = chance.of(((1, "Quote accepted"), (2, "Quote updated"), (3, "Quote deleted"),
                                     (1, "Quote rejected, spread is too wide")))
        records.append(quote(time, scripCode=code, scripId=symbol, bidQty=(1 + chance.below(40)) * 25, bidRevQty=25,
                             bidRate=paise - 5 * (1 + chance.below(20)), offerQty=(1 + chance.below(40)) * 25, offerRevQty=25,
                             offerRate=paise + 5 * chance.below(20), quoteId=90525000000 + 100 * i, actionCode=action,
                             bidClientType=TYPE_CODES[bidderKind], offerClientType=TYPE_CODES[offererKind],
                             bidClientId=bidder, offerClientId=offerer, message=message))
    return records


def makeOrderAndQuoteLogs(folder):
    def make(name, kind, date, records):
        write(os.path.join(folder, name), start("N", date, kind=kind), *records)

    make("OR211103.LOG", "O", "21/11/2003", orders112(41, 24))
    make("OR210509.LOG", "O", "21/05/2009", orders136(42, 40, 521000000))
    make("OR250509.LOG", "O", "25/05/2009", orders136(43, 60, 200905250000000))
    make("SOR250509.LOG", "O", "25/05/2009", orders136(44, 30, 7000000, sides="BL"))
    make("BO210509.BIN", "L", "21/05/2009", consolidatedOrders(45, "21/05/2009", 40, 521000000))
    make("BO250509.BIN", "L", "25/05/2009", consolidatedOrders(46, "25/05/2009", 60, 200905250000000))
    make("SBO250509.BIN", "L", "25/05/2009", consolidatedOrders(47, "25/05/2009", 30, 7000000, sides="BL"))
    make("QO250509.LOG", "Q", "25/05/2009", quotes(48, 30))


def makeKestoBreakupFiles(folder):
    for name, seed, count in (("KB010109.DAT", 41, 8), ("SKB250509.DAT", 42, 4)):
        write(os.path.join(folder, name), lines(*kestoDayBreakups(seed, count)))


def adminTrades(seed, date, count, record, trn, sides="BS", **last):
    """The trades of all the member's traders as its administrator has them. A record of 144 bytes knows no order time."""
    chance = Chance(seed)
    groups = {symbol: group for _, symbol, group, _ in SCRIPS}
    records = []
    for i, time in enumerate(times(chance, count)):
        fields = brokerQuery(chance, i, time, date, trn)
        fields.update(number=fields.pop("trdId"), orderTimeStamp=fields.pop("trnId"), orderType=fields.pop("tradeType"),
                      side=chance.of(sides), tailText="MUMBAI")
        if record is admin144:
            fields.update(numberAtEnd=4001 + i)
        else:
            fields.update(orderDateTime=date + " " + before(chance, time), scripGroup=groups[fields["scripId"]],
                          settlementPart1=2010, settlementPart2=76)
        if record is admin176:
            fields.update(lastNumber=trn + 100 * i + 7)
        records.append(record(**fields))
    return records


def deletions(seed, count, trn):
    chance = Chance(seed)
    records = []
    for i, time in enumerate(times(chance, count)):
        fields = orderEvent(chance, i, trn)
        del fields["actionCode"]
        fields.update(firstNumber=1 + chance.below(TRADER), lastNumber=trn + 100 * i + 7, message="Order deleted by the administrator")
        records.append(adminDeletion(time, **fields))
    return records


def tradeRectifications(seed, count, trn):
    chance = Chance(seed)
    records = []
    for i, time in enumerate(times(chance, count)):
        code, _, _, price = chance.of(SCRIPS)
        client, kind = chance.of(CLIENTS)
        newClient, newKind = chance.of(CLIENTS)
        records.append(tradeRectification(time, firstNumber=1 + chance.below(TRADER), secondNumber=code, letter=chance.of("BS"),
                                          thirdNumber=(1 + chance.below(40)) * 25, fourthNumber=100001 + 3 * i,
                                          fifthNumber=round(price * 100), number64=trn + 100 * i, firstText=client,
                                          secondText=newClient, firstClientType=TYPE_CODES[kind],
                                          secondClientType=TYPE_CODES[newKind], behindTime="%03d" % chance.below(1000),
                                          message="Client changed" if client != newClient else "Client type changed"))
    return records


def makeConvertFiles(folder):
    """What only Convert reads. The letter V has records of 168 bytes before 24 July 2010 and of 176 since."""
    def make(name, letters, date, records):
        write(os.path.join(folder, name), start(letters[0], date, kind=letters[1]), *records)

    make("AD010109.adm", "NA", "01/01/2009", adminTrades(61, "01/01/2009", 20, admin144, 9010100))
    make("AD230710.adm", "VA", "23/07/2010", adminTrades(62, "23/07/2010", 24, admin168, 201007230000000))
    make("AD260710.adm", "VA", "26/07/2010", adminTrades(63, "26/07/2010", 24, admin176, 201007260000000))
    make("AD260710.SADM", "VA", "26/07/2010", adminTrades(64, "26/07/2010", 12, admin176, 7000000, sides="BL"))
    make("Adel250509.adl", "NJ", "25/05/2009", deletions(65, 16, 200905250000000))
    make("TrdRect250509.dat", "SS", "25/05/2009", tradeRectifications(66, 12, 200905250000000))


if __name__ == "__main__":
    folder = sys.argv[1] if len(sys.argv) > 1 else os.path.join(HERE, "export")
    makeTradeFiles(folder)
    makeBrokerQueryFiles(folder)
    makeTouchlineFiles(folder)
    makeTraderLimitsFiles(folder)
    makeAuctionFiles(folder)
    makeAdminLogFiles(folder)
    makeBreakupFiles(folder)
    make6A7AFiles(folder)
    makeOrderAndQuoteLogs(folder)
    makeKestoBreakupFiles(folder)
    makeConvertFiles(folder)
