from workfiles import *

ORDERS = (
    dely(side="O", brokerNo=207, orderId=1),
    dely(side="B", brokerNo=311, brokerName="ACME BROKING AND INVESTMENTS", bankCode=999, scripCode=590004,
         scripName="KAVERIPUMP", quantity=75),
    dely(side="O", brokerNo=-2, orderId=3),
    dely(side="B", brokerNo=24, brokerName="DELTA", bankCode=14, scripCode=7, scripName="TWELVELETTER", quantity=1250),
    dely(side="B", brokerNo=1024, brokerName="SUNRISE", bankCode=14, scripCode=590023, scripName="NILGRITEA", quantity=5),
)
write("DELY0106.215", auctionHeader(memberName="LAKEVIEW SECURITIES AND TRUST"), *ORDERS, ORDERS[1][:255])
write("DELY0206.S16", auctionHeader(), ORDERS[0], ORDERS[1], ORDERS[2])
write("DELY0306.217", auctionHeader(), ORDERS[0], ORDERS[2])
