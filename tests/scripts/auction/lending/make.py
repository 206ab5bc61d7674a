from workfiles import *

ENTRIES = (mony("B", debitRupees=18435), mony("D", scripCode=590057, scripName="DECCANYARN", creditRupees=210))
OFFERS = (offs(scripCode=590011, scripName="SAHYACEM"), offs(), offs(offerRate=18000))
write("MONY0101.S01", auctionHeader(), *ENTRIES)
write("OFFS0101.S01", auctionHeader(), *OFFERS)
write("mony0102.S01", auctionHeader(), *ENTRIES)
write("offs0102.S01", auctionHeader(), *OFFERS)
write("SOFFS101.001", auctionHeader(), *OFFERS)
