from workfiles import *

write("export/DELY0106.215", auctionHeader(), dely(side="B"))
write("export/DELY0206.S16", auctionHeader(), dely(side="O"), dely(side="B", bankCode=999))
