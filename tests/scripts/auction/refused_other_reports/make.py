from workfiles import *

write("CLBD0101.001", auctionHeader(), clbd())
write("ENTL0101.001", auctionHeader(), entl())
write("DELY0000.001")
write("DELY0317.001", auctionHeader(), dely()[:255])
write("CLBD0061.001", auctionHeader()[:61])
write("CLBD0107.001", auctionHeader(), clbd()[:45])
write("ENTL0062.001", auctionHeader())
write("ENTL0145.001", auctionHeader(), entl()[:83])
