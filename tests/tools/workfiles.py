"""Builds the workstation's binary files, for tests and samples.

An independent writing-down of the layouts, field by field with byte offsets: the program under test has its own. Every record
is a function with keyword fields, all of which have a sensible default:

    from workfiles import *
    write("TR010109.B01", header(date="01/01/2009"),
          trade132(scripId="AXLE", side="B", qty=100, rate=12345),
          trade132(scripId="AXLE", side="S", qty=40, rate=12400))

Dates of a header are "dd/mm/yyyy", times "hh:mm:ss". Text fields are cut to leave room for a NUL; a bytes value stands as it is
and may fill the field. Numbers beyond the field wrap, as hostile files need.
"""

import os
import struct


class Layout:
    """Fields by (name, offset, width, kind); kind is "number", "real", "text" or "char"."""

    def __init__(self, size, *fields):
        self.size = size
        self.fields = {name: (offset, width, kind) for name, offset, width, kind in fields}
        end = 0
        for name, offset, width, kind in fields:
            assert offset >= end, name + " overlaps the field before it"
            end = offset + width
        assert end <= size

    def pack(self, values):
        record = bytearray(self.size)
        for name, value in values.items():
            offset, width, kind = self.fields[name]
            record[offset:offset + width] = encode(value, width, kind)
        return bytes(record)


def encode(value, width, kind):
    if kind == "number":
        return (value & ((1 << (8 * width)) - 1)).to_bytes(width, "little")
    if kind == "real":
        return struct.pack("<d", value)
    raw = value if isinstance(value, bytes) else value.encode("cp1252")
    if kind == "char":
        assert len(raw) == 1, "a letter field takes one letter"
        return raw
    if not isinstance(value, bytes):
        raw = raw[:width - 1]
    assert len(raw) <= width
    return raw.ljust(width, b"\0")


HEADER = Layout(
    24,
    ("fileKind", 0, 1, "char"),
    ("kind", 1, 1, "char"),
    ("memberId", 2, 4, "number"),
    ("traderId", 6, 4, "number"),
    ("day", 10, 2, "number"),
    ("month", 12, 2, "number"),
    ("century", 14, 2, "number"),
    ("year", 16, 2, "number"),
    ("hour", 18, 2, "number"),
    ("minute", 20, 2, "number"),
    ("second", 22, 2, "number"),
)

TRADE132 = Layout(
    132,
    ("scripCode", 0, 4, "number"),
    ("scripId", 4, 12, "text"),
    ("trdId", 16, 4, "number"),
    ("rate", 20, 4, "number"),  # hundredths
    ("qty", 24, 4, "number"),
    ("brokerId", 28, 4, "number"),
    ("traderId", 32, 4, "number"),
    ("time", 36, 15, "text"),
    ("date", 51, 15, "text"),
    ("clientId", 66, 12, "text"),
    ("side", 78, 1, "char"),
    ("tradeType", 79, 1, "char"),
    ("trnId", 80, 8, "number"),
    ("cliTyp", 88, 10, "text"),
    ("unread", 98, 34, "text"),
)

TRADE144 = Layout(
    144,
    ("scripCode", 0, 4, "number"),
    ("scripId", 4, 12, "text"),
    ("trdId", 16, 4, "number"),
    ("rate", 20, 4, "number"),  # hundredths
    ("qty", 24, 4, "number"),
    ("brokerId", 28, 4, "number"),
    ("traderId", 32, 4, "number"),
    ("time", 36, 15, "text"),
    ("date", 51, 15, "text"),
    ("orderTimeStamp", 66, 20, "text"),  # "dd/mm/yyyy hh:mm:ss"
    ("clientId", 86, 12, "text"),
    ("side", 98, 1, "char"),
    ("tradeType", 99, 1, "char"),
    ("trnId", 100, 8, "number"),
    ("cliTyp", 108, 10, "text"),
    ("clientText", 118, 13, "text"),
    ("scGr", 131, 5, "text"),
    ("settlementYear", 136, 2, "number"),
    ("settlementNo", 140, 4, "number"),
)

KESTO = Layout(
    142,
    ("scripCode", 0, 4, "number"),
    ("scripId", 4, 12, "text"),
    ("days", 16, 1, "number"),
    ("trdId", 18, 4, "number"),
    ("rate", 22, 4, "number"),  # ten-thousandths
    ("qty", 26, 4, "number"),
    ("brokerId", 30, 4, "number"),
    ("traderId", 34, 4, "number"),
    ("time", 38, 15, "text"),
    ("date", 53, 15, "text"),
    ("clientId", 68, 12, "text"),
    ("side", 80, 1, "char"),
    ("tradeType", 81, 1, "char"),
    ("trnId", 82, 4, "number"),
    ("settFyear", 86, 56, "text"),
)

BROKER132 = Layout(
    132,
    ("leadingNumber", 0, 4, "number"),
    ("traderNo", 4, 4, "number"),
    ("scripCode", 8, 4, "number"),
    ("scripId", 12, 12, "text"),
    ("rate", 24, 4, "number"),  # hundredths
    ("qty", 28, 4, "number"),
    ("counterBroker", 32, 4, "number"),
    ("counterTrader", 36, 4, "number"),
    ("tradeTime", 40, 9, "text"),
    ("tradeDate", 49, 11, "text"),
    ("clientId", 60, 12, "text"),
    ("trnId", 72, 8, "number"),
    ("tradeType", 80, 1, "char"),
    ("side", 81, 1, "char"),
    ("trdId", 82, 4, "number"),
    ("instId", 86, 11, "text"),
    ("tailText", 97, 35, "text"),
)

BROKER160 = Layout(
    160,
    ("leadingNumber", 0, 4, "number"),
    ("traderNo", 4, 4, "number"),
    ("scripCode", 8, 4, "number"),
    ("scripId", 12, 12, "text"),
    ("rate", 24, 4, "number"),  # hundredths
    ("qty", 28, 4, "number"),
    ("counterBroker", 32, 4, "number"),
    ("counterTrader", 36, 4, "number"),
    ("tradeTime", 40, 9, "text"),
    ("tradeDate", 49, 11, "text"),
    ("orderTimeStamp", 60, 20, "text"),  # "dd/mm/yyyy hh:mm:ss"
    ("clientId", 80, 12, "text"),
    ("trnId", 92, 8, "number"),
    ("tradeType", 100, 1, "char"),
    ("side", 101, 1, "char"),
    ("trdId", 102, 4, "number"),
    ("instId", 106, 11, "text"),
    ("tailText", 117, 15, "text"),
    ("scripGroup", 132, 20, "text"),
    ("settlementPart1", 152, 2, "number"),
    ("settlementPart2", 156, 4, "number"),
)

KESTO_BROKER = Layout(
    142,
    ("leadingNumber", 0, 4, "number"),
    ("traderNo", 4, 4, "number"),
    ("scripCode", 8, 4, "number"),
    ("scripId", 12, 12, "text"),
    ("rate", 24, 4, "number"),  # ten-thousandths
    ("qty", 28, 4, "number"),
    ("counterBroker", 32, 4, "number"),
    ("counterTrader", 36, 4, "number"),
    ("tradeTime", 40, 9, "text"),
    ("tradeDate", 49, 11, "text"),
    ("clientId", 60, 12, "text"),
    ("legCode", 72, 1, "char"),
    ("trdId", 74, 4, "number"),
    ("days", 78, 1, "number"),
    ("settFyear", 79, 63, "text"),
)

# The whole record of the order logs before 22 November 2003; the day, month and year are theirs alone.
ORDER112_FIELDS = (
    ("scripCode", 0, 4, "number"),
    ("qty", 4, 4, "number"),
    ("revQty", 8, 4, "number"),
    ("limitRate", 12, 4, "number"),  # hundredths, as are the two that follow
    ("trigRate", 16, 4, "number"),
    ("thirdRate", 20, 4, "number"),
    ("orderId", 24, 8, "number"),
    ("retention", 32, 2, "number"),
    ("clientType", 34, 2, "number"),
    ("orderType", 36, 1, "char"),
    ("side", 37, 1, "char"),
    ("hour", 38, 1, "number"),
    ("minute", 39, 1, "number"),
    ("second", 40, 1, "number"),
    ("recDay", 41, 1, "number"),
    ("recMonth", 42, 1, "number"),
    ("recYear", 43, 1, "number"),
    ("actionCode", 44, 2, "number"),
    ("clientId", 48, 12, "text"),
    ("scripId", 60, 12, "text"),
    ("message", 72, 40, "text"),
)

ORDER112 = Layout(112, *ORDER112_FIELDS)

ORDER136 = Layout(
    136,
    *ORDER112_FIELDS,
    ("tradeId", 112, 4, "number"),
    ("newClientId", 116, 12, "text"),
    ("recordKind", 128, 1, "char"),  # 'N' order, 'Y' client rectification, 'I' client type rectification
    ("newClientType", 132, 2, "number"),
)

CONSOLIDATED_ORDER = Layout(
    142,
    ("traderId", 4, 4, "number"),
    ("scripCode", 8, 4, "number"),
    ("scripId", 12, 12, "text"),
    ("qty", 24, 4, "number"),
    ("revQty", 28, 4, "number"),
    ("limitRate", 32, 4, "number"),  # hundredths, as are the two that follow
    ("trigRate", 36, 4, "number"),
    ("thirdRate", 40, 4, "number"),
    ("orderId", 44, 8, "number"),
    ("retention", 52, 2, "number"),
    ("clientType", 54, 2, "number"),
    ("actionCode", 56, 2, "number"),
    ("clientId", 58, 12, "text"),
    ("orderType", 70, 1, "char"),
    ("side", 71, 1, "char"),
    ("logDate", 72, 15, "text"),
    ("logTime", 87, 15, "text"),
    ("message", 102, 40, "text"),
)

QUOTE = Layout(
    126,
    ("scripCode", 0, 4, "number"),
    ("bidQty", 4, 4, "number"),
    ("bidRevQty", 8, 4, "number"),
    ("bidRate", 12, 4, "number"),  # hundredths
    ("offerQty", 16, 4, "number"),
    ("offerRevQty", 20, 4, "number"),
    ("offerRate", 24, 4, "number"),  # hundredths
    ("quoteId", 28, 8, "number"),
    ("bidClientType", 36, 2, "number"),
    ("offerClientType", 38, 2, "number"),
    ("hour", 40, 1, "number"),
    ("minute", 41, 1, "number"),
    ("second", 42, 1, "number"),
    ("actionCode", 46, 2, "number"),
    ("bidClientId", 50, 12, "text"),
    ("offerClientId", 62, 12, "text"),
    ("scripId", 74, 12, "text"),
    ("message", 86, 40, "text"),
)

# The trades of a member as the administrator's workstation has them. Time and date are closed by force at 53 and 70.
ADMIN144 = Layout(
    144,
    ("leadingNumber", 0, 4, "number"),
    ("traderNo", 4, 4, "number"),
    ("scripCode", 8, 4, "number"),
    ("scripId", 12, 12, "text"),
    ("number", 24, 4, "number"),
    ("rate", 28, 4, "number"),  # hundredths
    ("qty", 32, 4, "number"),
    ("counterBroker", 36, 4, "number"),
    ("counterTrader", 40, 4, "number"),
    ("tradeTime", 44, 15, "text"),
    ("tradeDate", 59, 15, "text"),
    ("clientId", 74, 12, "text"),
    ("side", 86, 1, "char"),
    ("orderType", 87, 1, "char"),
    ("orderTimeStamp", 88, 8, "number"),
    ("instId", 96, 10, "text"),
    ("tailText", 106, 14, "text"),
    ("numberAtEnd", 120, 4, "number"),
)

ADMIN168_FIELDS = (
    ("leadingNumber", 0, 4, "number"),
    ("traderNo", 4, 4, "number"),
    ("scripCode", 8, 4, "number"),
    ("scripId", 12, 12, "text"),
    ("number", 24, 4, "number"),
    ("rate", 28, 4, "number"),  # hundredths
    ("qty", 32, 4, "number"),
    ("counterBroker", 36, 4, "number"),
    ("counterTrader", 40, 4, "number"),
    ("tradeTime", 44, 15, "text"),
    ("tradeDate", 59, 15, "text"),
    ("orderDateTime", 74, 20, "text"),  # "dd/mm/yyyy hh:mm:ss"
    ("clientId", 94, 12, "text"),
    ("side", 106, 1, "char"),
    ("orderType", 107, 1, "char"),
    ("orderTimeStamp", 108, 8, "number"),
    ("instId", 116, 10, "text"),
    ("tailText", 126, 14, "text"),
    ("settlementPart1", 140, 4, "number"),
    ("settlementPart2", 144, 4, "number"),
    ("scripGroup", 148, 20, "text"),
)

ADMIN168 = Layout(168, *ADMIN168_FIELDS)

ADMIN176 = Layout(176, *ADMIN168_FIELDS, ("lastNumber", 168, 8, "number"))

ADMIN_DELETION = Layout(
    142,
    ("scripCode", 0, 4, "number"),
    ("qty", 4, 4, "number"),
    ("revQty", 8, 4, "number"),
    ("limitRate", 12, 4, "number"),  # hundredths
    ("trigRate", 16, 4, "number"),
    ("orderId", 24, 8, "number"),
    ("retention", 32, 2, "number"),
    ("clientType", 34, 2, "number"),
    ("orderType", 36, 1, "char"),
    ("side", 37, 1, "char"),
    ("hour", 38, 1, "number"),
    ("minute", 39, 1, "number"),
    ("second", 40, 1, "number"),
    ("clientId", 46, 12, "text"),
    ("scripId", 58, 12, "text"),
    ("message", 70, 40, "text"),
    ("firstNumber", 110, 4, "number"),
    ("lastNumber", 134, 8, "number"),
)

TRADE_RECTIFICATION = Layout(
    156,
    ("firstNumber", 0, 4, "number"),
    ("secondNumber", 4, 4, "number"),
    ("letter", 8, 1, "char"),
    ("thirdNumber", 10, 4, "number"),
    ("fourthNumber", 14, 4, "number"),
    ("fifthNumber", 18, 4, "number"),
    ("number64", 22, 8, "number"),
    ("firstText", 30, 12, "text"),
    ("secondText", 42, 12, "text"),
    ("firstClientType", 54, 2, "number"),
    ("secondClientType", 56, 2, "number"),
    ("message", 108, 40, "text"),
    ("hour", 148, 1, "number"),
    ("minute", 149, 1, "number"),
    ("second", 150, 1, "number"),
    ("behindTime", 151, 5, "text"),
)


AUCTION_HEADER = Layout(
    62,
    ("settlementNo", 0, 2, "number"),
    ("auctionNoticeNo", 2, 12, "text"),
    ("auctionNo", 14, 2, "number"),
    ("clearingNo", 16, 4, "number"),
    ("memberName", 20, 42, "text"),
)

MONY = Layout(
    102,
    ("scripCode", 0, 4, "number"),
    ("scripName", 4, 13, "text"),
    ("entryType", 17, 3, "text"),
    ("bdcNo", 20, 4, "number"),
    ("quantity", 24, 4, "number"),
    ("stdRate", 28, 4, "number"),  # paise
    ("closeOutRate", 32, 4, "number"),
    ("auctionRate", 36, 4, "number"),
    ("debitRupees", 40, 4, "number"),
    ("debitPaise", 44, 2, "number"),
    ("creditPaise", 46, 2, "number"),
    ("creditRupees", 48, 4, "number"),
    ("auctionCommission", 52, 4, "number"),
    ("bankCode", 56, 4, "number"),
)

DELY = Layout(
    256,
    ("scripCode", 0, 4, "number"),
    ("scripName", 4, 13, "text"),
    ("side", 17, 1, "char"),
    ("stdRate", 18, 4, "number"),
    ("orderId", 22, 4, "number"),
    ("brokerNo", 26, 4, "number"),
    ("bdcNo", 30, 4, "number"),
    ("brokerName", 34, 42, "text"),
    ("quantity", 76, 4, "number"),
    ("bankCode", 80, 4, "number"),
    ("remarks", 84, 41, "text"),
    ("deliveryType", 125, 2, "text"),
    ("clientId", 127, 13, "text"),
    ("subBrokerId", 140, 2, "number"),
)

OFFS = Layout(
    64,
    ("scripCode", 0, 4, "number"),
    ("scripName", 4, 14, "text"),
    ("offerRate", 18, 4, "number"),
    ("qtyOffered", 22, 4, "number"),
    ("highestOfferRateAccepted", 26, 4, "number"),
    ("qtyAccepted", 30, 4, "number"),
    ("creditValue", 34, 8, "real"),  # paise
    ("stdRate", 42, 4, "number"),
    ("closedOutRate", 46, 4, "number"),
    ("clientId", 50, 12, "text"),
    ("deliveryType", 62, 2, "text"),
)

CLBD = Layout(
    46,
    ("scripCode", 0, 4, "number"),
    ("bdcNo", 18, 4, "number"),
    ("totalAuctionQty", 22, 4, "number"),
    ("qtyAuctioned", 26, 4, "number"),
    ("qtyClosedOut", 30, 4, "number"),
    ("closeOutRate", 34, 4, "number"),
    ("auctionRate", 38, 4, "number"),
    ("closeOutValue", 42, 4, "number"),
)

ENTL = Layout(
    84,
    ("buySellFlag", 0, 1, "char"),
    ("scripCode", 2, 4, "number"),
    ("scripName", 6, 14, "text"),
    ("oppMemberId", 20, 4, "number"),
    ("oppMemberName", 24, 42, "text"),
    ("bdcNo", 66, 4, "number"),
    ("entitlementType", 70, 4, "text"),
    ("closingRate", 74, 4, "number"),
    ("entitlementRate", 78, 4, "number"),
    ("reason", 82, 2, "number"),
)


ADMIN_HEADER = Layout(
    36,
    ("memberId", 0, 4, "number"),
    ("traderLimitCount", 4, 4, "number"),
    ("scripLimitCount", 8, 4, "number"),
    ("groupLimitCount", 12, 4, "number"),
    ("activityCount", 16, 4, "number"),
    ("day", 20, 2, "number"),
    ("month", 22, 2, "number"),
    ("century", 24, 2, "number"),
    ("yearOfCentury", 26, 2, "number"),
    ("hour", 28, 2, "number"),
    ("minute", 30, 2, "number"),
    ("second", 32, 2, "number"),
)

TRADER_LIMIT = Layout(
    122,
    ("traderNo", 0, 4, "number"),
    ("alias", 4, 12, "text"),
    ("flags", 16, 17, "text"),  # utr active ol bt resFlag1 sl 6a7a mq resFlag2 auc blockD cd resFlag3 clRec resFlag4 uql ugl
    ("hour", 33, 1, "number"),
    ("minute", 34, 1, "number"),
    ("second", 35, 1, "number"),
    ("opCode", 42, 2, "number"),
    ("grBuy", 46, 4, "number"),
    ("grSell", 50, 4, "number"),
    ("netVal", 54, 4, "number"),
    ("netBuyQty", 58, 4, "number"),
    ("netSellQty", 62, 4, "number"),
    ("singleOrdQty", 66, 4, "number"),
    ("singleOrdVal", 70, 4, "number"),
    ("message", 74, 48, "text"),
)

SCRIP_LIMIT = Layout(
    88,
    ("traderId", 0, 4, "number"),
    ("scripCode", 4, 4, "number"),
    ("buyLimit", 8, 4, "number"),
    ("sellLimit", 12, 4, "number"),
    ("scripId", 16, 12, "text"),
    ("hour", 28, 1, "number"),
    ("minute", 29, 1, "number"),
    ("second", 30, 1, "number"),
    ("opCode", 36, 2, "number"),
    ("message", 40, 48, "text"),
)

GROUP_LIMIT = Layout(
    84,
    ("traderId", 0, 4, "number"),
    ("buyLimit", 4, 8, "real"),
    ("sellLimit", 12, 8, "real"),
    ("hour", 20, 1, "number"),
    ("minute", 21, 1, "number"),
    ("second", 22, 1, "number"),
    ("groupName", 26, 3, "text"),
    ("message", 29, 48, "text"),
    ("opCode", 80, 2, "number"),
)

ACTIVITY = Layout(
    100,
    ("traderId", 0, 4, "number"),
    ("oprType", 4, 20, "text"),
    ("oldPwd", 24, 11, "text"),
    ("newPwd", 35, 11, "text"),
    ("hour", 46, 1, "number"),
    ("minute", 47, 1, "number"),
    ("second", 48, 1, "number"),
    ("message", 52, 48, "text"),
)


def header(fileKind="N", kind="T", memberId=123, traderId=7, date="01/01/2009", time="16:05:09", **fields):
    day, month, year = (int(part) for part in date.split("/"))
    hour, minute, second = (int(part) for part in time.split(":"))
    values = dict(fileKind=fileKind, kind=kind, memberId=memberId, traderId=traderId, day=day, month=month,
                  century=year // 100, year=year % 100, hour=hour, minute=minute, second=second)
    values.update(fields)
    return HEADER.pack(values)


def trade132(**fields):
    values = dict(scripCode=500010, scripId="AXLE", trdId=1001, rate=12345, qty=100, brokerId=12, traderId=3, time="10:15:30",
                  date="01/01/2009", clientId="C0001", side="B", tradeType="L", trnId=20090101000001, cliTyp="CLIENT")
    values.update(fields)
    return TRADE132.pack(values)


def trade144(**fields):
    values = dict(scripCode=500010, scripId="AXLE", trdId=1001, rate=12345, qty=100, brokerId=12, traderId=3, time="10:15:30",
                  date="25/05/2009", orderTimeStamp="25/05/2009 10:15:01", clientId="C0001", side="B", tradeType="L",
                  trnId=20090525000001, cliTyp="CLIENT", clientText="", scGr="A", settlementYear=2009, settlementNo=37)
    values.update(fields)
    return TRADE144.pack(values)


def kestoTrade(**fields):
    values = dict(scripCode=500010, scripId="AXLE", days=7, trdId=1001, rate=1234500, qty=100, brokerId=12, traderId=3,
                  time="10:15:30", date="01/01/2009", clientId="C0001", side="T", tradeType="L", trnId=40001,
                  settFyear="012/2009-2010")
    values.update(fields)
    return KESTO.pack(values)


def broker132(**fields):
    values = dict(leadingNumber=1, traderNo=7, scripCode=500010, scripId="AXLE", rate=12345, qty=100, counterBroker=12,
                  counterTrader=3, tradeTime="10:15:30", tradeDate="01/01/2009", clientId="C0001", trnId=90101000001,
                  tradeType="L", side="B", trdId=1001, instId="CLIENT")
    values.update(fields)
    return BROKER132.pack(values)


def broker160(**fields):
    values = dict(leadingNumber=1, traderNo=7, scripCode=500010, scripId="AXLE", rate=12345, qty=100, counterBroker=12,
                  counterTrader=3, tradeTime="10:15:30", tradeDate="25/05/2009", orderTimeStamp="25/05/2009 10:15:01",
                  clientId="C0001", trnId=90525000001, tradeType="L", side="B", trdId=1001, instId="CLIENT", scripGroup="A",
                  settlementPart1=2009, settlementPart2=37)
    values.update(fields)
    return BROKER160.pack(values)


def kestoBroker(**fields):
    values = dict(leadingNumber=1, traderNo=7, scripCode=500010, scripId="AXLE", rate=1234500, qty=100, counterBroker=12,
                  counterTrader=3, tradeTime="10:15:30", tradeDate="01/01/2009", clientId="C0001", legCode="S", trdId=1001,
                  days=7, settFyear="012/2009-2010")
    values.update(fields)
    return KESTO_BROKER.pack(values)


def auctionHeader(**fields):
    values = dict(settlementNo=37, auctionNoticeNo="A123", auctionNo=215, clearingNo=418, memberName="LAKEVIEW SECURITIES")
    values.update(fields)
    return AUCTION_HEADER.pack(values)


def mony(entryType, **fields):
    values = dict(scripCode=590004, scripName="KAVERIPUMP", entryType=entryType, bdcNo=0, quantity=100, stdRate=18435,
                  closeOutRate=20000, auctionRate=19050, bankCode=12)
    values.update(fields)
    return MONY.pack(values)


def dely(**fields):
    values = dict(scripCode=590004, scripName="KAVERIPUMP", side="O", stdRate=18435, orderId=1001, brokerNo=77, bdcNo=4507,
                  brokerName="HILLSIDE BROKERS", quantity=100, bankCode=12, remarks="", deliveryType="C", clientId="R1042",
                  subBrokerId=3)
    values.update(fields)
    return DELY.pack(values)


def offs(**fields):
    values = dict(scripCode=590004, scripName="KAVERIPUMP", offerRate=19050, qtyOffered=100, highestOfferRateAccepted=19500,
                  qtyAccepted=60, creditValue=1143000.0, stdRate=18435, closedOutRate=0, clientId="R1042", deliveryType="C")
    values.update(fields)
    return OFFS.pack(values)


def clbd(**fields):
    values = dict(scripCode=590004, bdcNo=4507, totalAuctionQty=100, qtyAuctioned=60, qtyClosedOut=40, closeOutRate=20000,
                  auctionRate=19050, closeOutValue=800000)
    values.update(fields)
    return CLBD.pack(values)


def entl(**fields):
    values = dict(buySellFlag="B", scripCode=590004, scripName="KAVERIPUMP", oppMemberId=77, oppMemberName="HILLSIDE BROKERS",
                  bdcNo=4507, entitlementType="DI", closingRate=18435, entitlementRate=500, reason=1)
    values.update(fields)
    return ENTL.pack(values)


def clockFields(time):
    hour, minute, second = (int(part) for part in time.split(":"))
    return dict(hour=hour, minute=minute, second=second)


def traderLimit(time="10:15:30", **fields):
    values = dict(clockFields(time), traderNo=7, alias="ANAND", flags=b"YYNNYNYYNYNYNYNYN", opCode=9, grBuy=25, grSell=30, netVal=50,
                  netBuyQty=1000, netSellQty=2000, singleOrdQty=500, singleOrdVal=5, message="LIMIT ACCEPTED")
    values.update(fields)
    return TRADER_LIMIT.pack(values)


def scripLimit(time="10:15:30", **fields):
    values = dict(clockFields(time), traderId=7, scripCode=500010, buyLimit=1000, sellLimit=2000, scripId="AXLE", opCode=9,
                  message="LIMIT ACCEPTED")
    values.update(fields)
    return SCRIP_LIMIT.pack(values)


def groupLimit(time="10:15:30", **fields):
    values = dict(clockFields(time), traderId=7, buyLimit=25, sellLimit=30, groupName="A", opCode=9, message="LIMIT ACCEPTED")
    values.update(fields)
    return GROUP_LIMIT.pack(values)


def activity(time="10:15:30", **fields):
    values = dict(clockFields(time), traderId=7, oprType="PASSWORD CHANGE", oldPwd="OLD1", newPwd="NEW1", message="ACCEPTED")
    values.update(fields)
    return ACTIVITY.pack(values)


def adminLog(traders=(), scrips=(), groups=(), activities=(), memberId=123, date="01/01/2009", time="16:05:09", **fields):
    """A whole admin log. The counts of its header are those of the records, save where a field says otherwise."""
    day, month, year = (int(part) for part in date.split("/"))
    values = dict(clockFields(time), memberId=memberId, traderLimitCount=len(traders), scripLimitCount=len(scrips),
                  groupLimitCount=len(groups), activityCount=len(activities), day=day, month=month, century=year // 100,
                  yearOfCentury=year % 100)
    values.update(fields)
    return ADMIN_HEADER.pack(values) + b"".join([*traders, *scrips, *groups, *activities])


def orderFields(time, fields):
    hour, minute, second = (int(part) for part in time.split(":"))
    values = dict(scripCode=500010, qty=100, revQty=40, limitRate=12345, trigRate=0, thirdRate=0, orderId=90525000001,
                  retention=3, clientType=30, orderType="L", side="B", hour=hour, minute=minute, second=second, actionCode=1,
                  clientId="C0001", scripId="AXLE", message="Order accepted")
    values.update(fields)
    return values


def order112(time="10:15:30", **fields):
    return ORDER112.pack(orderFields(time, dict(dict(recDay=21, recMonth=11, recYear=3), **fields)))


def order136(time="10:15:30", **fields):
    return ORDER136.pack(orderFields(time, dict(dict(recordKind="N"), **fields)))


def clientRectification(**fields):
    values = dict(recordKind="Y", actionCode=19, tradeId=1001, newClientId="C0002", message="Client changed")
    values.update(fields)
    return order136(**values)


def typeRectification(**fields):
    values = dict(recordKind="I", actionCode=21, tradeId=1001, newClientType=70, message="Type changed")
    values.update(fields)
    return order136(**values)


def consolidatedOrder(**fields):
    values = dict(traderId=7, scripCode=500010, scripId="AXLE", qty=100, revQty=40, limitRate=12345, trigRate=0, thirdRate=0,
                  orderId=90525000001, retention=3, clientType=30, actionCode=1, clientId="C0001", orderType="L", side="B",
                  logDate="25/05/2009", logTime="10:15:30", message="Order accepted")
    values.update(fields)
    return CONSOLIDATED_ORDER.pack(values)


def quote(time="10:15:30", **fields):
    hour, minute, second = (int(part) for part in time.split(":"))
    values = dict(scripCode=500010, bidQty=100, bidRevQty=40, bidRate=12345, offerQty=200, offerRevQty=50, offerRate=12445,
                  quoteId=90525000001, bidClientType=30, offerClientType=20, hour=hour, minute=minute, second=second,
                  actionCode=1, bidClientId="C0001", offerClientId="C0002", scripId="AXLE", message="Quote accepted")
    values.update(fields)
    return QUOTE.pack(values)


ADMIN_VALUES = dict(leadingNumber=1, traderNo=7, scripCode=500010, scripId="AXLE", number=1001, rate=12345, qty=100,
                    counterBroker=12, counterTrader=3, tradeTime="10:15:30", tradeDate="01/01/2009", clientId="C0001", side="B",
                    orderType="L", orderTimeStamp=90101000001, instId="CLIENT", tailText="")


def admin144(**fields):
    return ADMIN144.pack(dict(ADMIN_VALUES, **dict(dict(numberAtEnd=4001), **fields)))


def longAdmin(fields):
    values = dict(ADMIN_VALUES, tradeDate="25/05/2010", orderDateTime="25/05/2010 10:15:01", settlementPart1=2010,
                  settlementPart2=37, scripGroup="A")
    values.update(fields)
    return values


def admin168(**fields):
    return ADMIN168.pack(longAdmin(fields))


def admin176(**fields):
    return ADMIN176.pack(longAdmin(dict(dict(lastNumber=201007260000001), **fields)))


def adminDeletion(time="10:15:30", **fields):
    values = dict(clockFields(time), scripCode=500010, qty=100, revQty=40, limitRate=12345, trigRate=0, orderId=90525000001,
                  retention=3, clientType=30, orderType="L", side="B", clientId="C0001", scripId="AXLE",
                  message="Order deleted", firstNumber=7, lastNumber=200905250000001)
    values.update(fields)
    return ADMIN_DELETION.pack(values)


def tradeRectification(time="10:15:30", **fields):
    values = dict(clockFields(time), firstNumber=7, secondNumber=500010, letter="B", thirdNumber=100, fourthNumber=1001,
                  fifthNumber=12345, number64=200905250000001, firstText="C0001", secondText="C0002", firstClientType=30,
                  secondClientType=20, message="Client changed", behindTime="250")
    values.update(fields)
    return TRADE_RECTIFICATION.pack(values)


def write(name, *pieces):
    """Writes the pieces one behind the other into the file `name`, in the current folder; makes its folder where needed."""
    folder = os.path.dirname(name)
    if folder:
        os.makedirs(folder, exist_ok=True)
    with open(name, "wb") as file:
        for piece in pieces:
            file.write(piece)


def lines(*texts):
    """The bytes of a text file's lines, each ended by CR LF."""
    return b"".join(text.encode("cp1252") + b"\r\n" for text in texts)


def delimited(*fields):
    """A line of the delimited files: each field ended by '|'."""
    return "".join(str(field) + "|" for field in fields)
