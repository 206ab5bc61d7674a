from workfiles import *

write("DELY0000.001")
write("DELY0061.001", auctionHeader()[:61])
write("DELY0062.001", auctionHeader())
write("DELY0317.001", auctionHeader(), dely(side="B")[:255])
write("DELY0106.215", auctionHeader(), dely(side="B"))
