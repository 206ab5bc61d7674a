from workfiles import *

ENTRIES = (
    mony("B", bdcNo=450704, debitRupees=18435),
    mony("CX", scripCode=590023, scripName="NILGRITEA", creditRupees=12000, creditPaise=10),
    mony("CC", scripCode=590011, scripName="SAHYACEM", bdcNo=450702, quantity=40, creditRupees=26000),
    mony("O", scripCode=590038, scripName="ORBITWIRE", quantity=60, creditRupees=79200, creditPaise=25),
    mony("B", scripCode=590002, scripName="ZARIMILLS", quantity=15, debitRupees=19928, debitPaise=25),
    mony("D", scripCode=590057, scripName="DECCANYARN", bankCode=14, debitRupees=4450, auctionCommission=445),
    mony("D", scripCode=590042, scripName="TARASTEEL", bankCode=14, creditRupees=210, auctionCommission=2100),
    mony("DI", bdcNo=450701, debitRupees=250, debitPaise=5),
    mony("XX", debitRupees=999999),
)
write("MONY0101.001", auctionHeader(), *ENTRIES)
write("offs0101.001", auctionHeader(), offs(), offs(scripCode=590011, scripName="SAHYACEM"), offs(offerRate=18000))
write("MONY0102.001", auctionHeader(auctionNoticeNo="Y0451"), *ENTRIES)
write("OFFS0102.001", auctionHeader(auctionNoticeNo="Y0451"), offs())
write("testimony/PLAIN.BIN", auctionHeader(), *ENTRIES)
write("MONY0103.001", auctionHeader(), *[mony("B", scripName="S%02d" % number) for number in range(41)], mony("B")[:50])
write("OFFS0103.001", auctionHeader())
