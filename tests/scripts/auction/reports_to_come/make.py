from workfiles import *

write("DELY0101.001", auctionHeader(), dely())
