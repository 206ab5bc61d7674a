from workfiles import *

write("OFFS0101.001", auctionHeader(), offs())
