from workfiles import *

write("MONY0101.001", auctionHeader(), mony("B", debitRupees=10), mony("B", scripName="SECOND", debitRupees=20))
write("OFFS0101.001", auctionHeader(), offs())
