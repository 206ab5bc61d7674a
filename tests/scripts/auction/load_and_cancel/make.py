from workfiles import *

write("MONY0101.001", auctionHeader(), mony("B", debitRupees=10))
