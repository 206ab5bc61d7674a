from workfiles import *

write("MONY0001.001", auctionHeader()[:1])
write("MONY0061.001", auctionHeader()[:61])
write("MONY0062.001", auctionHeader())
write("MONY0163.001", auctionHeader(), mony("B")[:101])
write("OFFS0062.001", auctionHeader(), offs()[:63])
write("MONY0301.001", auctionHeader(), mony("B"))
write("MONY01.001", auctionHeader(), mony("B"))
write("OFFS01.001", auctionHeader(), offs())
write("MONY0302.001", auctionHeader(), mony("B"))
write("OFFS0302.001", auctionHeader()[:61])
