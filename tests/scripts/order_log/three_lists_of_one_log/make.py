from workfiles import *

# Orders, rectified clients and rectified types in turn; the last record comes when the page of orders is full, and is no order.
# A code outside the tables repeats the row above. One message fills its field and runs on into the trade id.
mixed = (header(kind="O", date="22/05/2009"),
         order136("10:15:30", orderId=200905220000001, message="Order accepted by the exchange, in full"),
         clientRectification(time="10:16:00", scripId="CRANK", tradeId=0x2121, message=b"Client changed on the request of No. 999"),
         typeRectification(time="10:17:00", clientId="C0009", scripId="AXLE", message="Type changed\nby the back office"),
         order136("10:18:00", side="S", actionCode=9, retention=4, scripId="BOLTSTEEL", message="Market order accepted"),
         clientRectification(time="09:59:00", scripId="AXLE", side="S", actionCode=20, message="Client is not registered"),
         order136("10:19:00", retention=77, actionCode=77, thirdRate=99, trigRate=500, scripId="AXLE"),
         typeRectification(time="10:20:00", clientId="C0001", side="S", actionCode=22, clientType=20, newClientType=99),
         order136("10:21:00", actionCode=3, clientType=89, clientId="LONGCLIENT1"),
         clientRectification(time="10:22:00"))
write("ORMIXED.LOG", *mixed)
write("ORÜBER.LOG", *mixed)
