from workfiles import *

write("MONY0101.001", auctionHeader(), mony("B", debitRupees=10))
write("OFFS0101.001", auctionHeader(), offs())
write("OFFS0102.001")
