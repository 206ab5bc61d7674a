from workfiles import *

write("DELY0106.215", auctionHeader(), dely(side="B"))
write("D1.BIN", auctionHeader(), dely(side="B"))
