from workfiles import *

write("DELY0106.215", auctionHeader(), dely(side="B"), dely(side="B", scripName="SECOND"))
