from workfiles import *

write("export/DELY0106.215", auctionHeader(), dely(side="B"))
write("export/DELY0206.216", auctionHeader(), dely(side="B"))
