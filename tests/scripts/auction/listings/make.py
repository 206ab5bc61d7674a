from workfiles import *

CLOSE_OUTS = (
    clbd(scripCode=590011, bdcNo=450702, totalAuctionQty=500, qtyAuctioned=440, qtyClosedOut=60, closeOutRate=65000,
         auctionRate=61280, closeOutValue=3900000),
    clbd(scripCode=590004, bdcNo=450703, totalAuctionQty=100, qtyAuctioned=0, qtyClosedOut=100, closeOutRate=20000,
         auctionRate=0, closeOutValue=2000005),
    clbd(scripCode=590042, bdcNo=450704, totalAuctionQty=75, qtyAuctioned=70, qtyClosedOut=5, closeOutRate=9999,
         auctionRate=9375, closeOutValue=49995),
)
ENTITLEMENTS = (
    entl(reason=1, buySellFlag="B", scripCode=590011, scripName="SAHYACEM", bdcNo=450702, entitlementType="DI",
         closingRate=61280, entitlementRate=65000),
    entl(reason=1, buySellFlag="S", scripCode=590004, scripName="KAVERIPUMP", bdcNo=450703, entitlementType="CB",
         closingRate=18435, entitlementRate=-105),
    entl(reason=2, scripCode=590023, scripName="NILGRITEA", bdcNo=450704, entitlementType="RR"),
    entl(reason=3, scripCode=590042, scripName="TARASTEEL", bdcNo=450705, entitlementType="CM"),
    entl(reason=7, scripCode=590057, scripName="DECCANYARN", bdcNo=450706, entitlementType="OT"),
    entl(reason=4, scripCode=590066, scripName="PALMOILS", bdcNo=450707, entitlementType="SD"),
)
write("CLBD0101.001", auctionHeader(), *CLOSE_OUTS, CLOSE_OUTS[0][:45])
write("CLBD0101.S01", auctionHeader(), *CLOSE_OUTS)
write("SCLBD101.001", auctionHeader(), *CLOSE_OUTS)
write("ENTL0101.001", auctionHeader(), *ENTITLEMENTS)
write("SENTL101.001", auctionHeader(), *ENTITLEMENTS)
