from workfiles import *

write("OFFS0101.001", auctionHeader(), offs(scripCode=590002, scripName="ZARIMILLS"), offs(), offs(offerRate=18000),
      offs(scripCode=590011, scripName="SAHYACEM"), offs(offerRate=18000, clientId="OWN"))
