from workfiles import *

# Each sort has an order of its own.
ORDERS = (
    dely(side="O", brokerNo=207, brokerName="SUNRISE BROKING", orderId=5, quantity=250, scripCode=590023, scripName="NILGRITEA"),
    dely(side="B", brokerNo=311, brokerName="ACME", orderId=4, quantity=75, scripCode=590042, scripName="KAVERIPUMP"),
    dely(side="O", brokerNo=418, brokerName="LAKEVIEW SECURITIES", orderId=3, quantity=40, scripCode=590004, scripName="SAHYACEM"),
    dely(side="O", brokerNo=-2, brokerName="", orderId=2, bankCode=0, quantity=60, scripCode=590011, scripName="DECCANYARN"),
    dely(side="O", brokerNo=-3, brokerName="HOUSE", orderId=1, bankCode=0, bdcNo=450704, quantity=500, scripCode=590042,
         scripName="KAVERIPUMP"),
    dely(side="Z", brokerNo=1, brokerName="NOBODY", orderId=9, quantity=9999, scripCode=1, scripName="NONE"),
)
write("DELY0101.001", auctionHeader(), *ORDERS)
write("DELY0102.001", auctionHeader(auctionNoticeNo="X0451"), *ORDERS)
write("DELY0101.S01", auctionHeader(), *ORDERS)
write("dely0102.S01", auctionHeader(auctionNoticeNo="Y0451"), *ORDERS)
write("SDELY101.001", auctionHeader(), *ORDERS)
