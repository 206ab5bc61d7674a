from workfiles import *

write("MONYÉ101.001", auctionHeader(), mony("B", debitRupees=18435), mony("D", creditRupees=210))
write("OFFSÉ101.001", auctionHeader(), offs(), offs(scripCode=590011, scripName="SAHYACEM"))
