from workfiles import *

write("DELY0101.001", auctionHeader(), dely(), dely(orderId=2))
write("CLBD0101.001", auctionHeader(), clbd(), clbd())
write("ENTL0101.001", auctionHeader(), entl(), entl())
