from workfiles import *

five = (consolidatedOrder(traderId=3, scripCode=3, scripId="C", clientId="C2", orderId=5, logTime="11:00:00"),
        consolidatedOrder(traderId=12, scripCode=2, scripId="A", clientId="C3", orderId=4, logTime="10:00:00", side="S",
                          message=b"Forty characters, to the end of its cell"),
        consolidatedOrder(traderId=1, scripCode=1, scripId="B", clientId="C1", orderId=3, logTime="9:00:00", side="L"),
        consolidatedOrder(traderId=345, scripCode=1, scripId="A", clientId="C1", orderId=-2, logTime="11:00:00", thirdRate=9),
        consolidatedOrder(traderId=2, scripCode=1, scripId="B", clientId="C3", orderId=1, logTime="11:00:00", trigRate=77))
write("BO250509.BIN", header(fileKind="X", kind="L", date="25/05/2009"), *five)
write("BO050304.BIN", header(kind="L", date="05/03/0304", time="09:05:03"), *five)
write("SBo250509.BIN", header(kind="L", date="25/05/2009"), *five)
