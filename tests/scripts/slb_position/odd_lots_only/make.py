from workfiles import *

write("export/TR040509.B01", header(fileKind="V", date="04/05/2009"),
    trade144(clientId="C1", scripId="AXLE", side="B", qty=1, rate=100, tradeType="O"),
    trade144(clientId="C2", scripId="BOLT", side="S", qty=2, rate=100, tradeType="O"))
