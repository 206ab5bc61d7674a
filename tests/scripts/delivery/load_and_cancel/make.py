from workfiles import *

write("DELY0106.215", auctionHeader(), dely(side="B"))
write("DELY0206.216", auctionHeader(), dely(side="B"))
