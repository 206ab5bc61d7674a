from workfiles import *

message = "Stop loss accepted\nby the exchange"
orders = (order136("10:15:30", actionCode=9, trigRate=12300, message=message), order136("10:16:00", side="S", thirdRate=12400))
clients = (clientRectification(time="10:17:00"), clientRectification(time="10:18:00", actionCode=20, side="S"))
types = (typeRectification(time="10:19:00"), typeRectification(time="10:20:00", actionCode=22), typeRectification(time="10:21:00"))
other = (order136("10:22:00", recordKind="X"),)
write("OR250509.LOG", header(kind="O", date="25/05/2009"), *orders, *clients, *types, *other, order136()[:135])
write("OR260509.LOG", header(kind="O", date="26/05/2009"), *orders)
write("OR270509.LOG", header(kind="O", date="27/05/2009"), *clients)
write("OR280509.LOG", header(kind="O", date="28/05/2009"), *types)
write("ONECLI.LOG", header(kind="O", date="27/05/2009"), clients[0])
write("SOR250509.LOG", header(kind="O", date="25/05/2009"), order136(side="S"), order136(side="L"), order136(),
      clientRectification(side="L"))
