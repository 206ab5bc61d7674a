from workfiles import *

write("export/TR040509.B01", header(date="04/05/2009"),
    trade132(clientId="C1", scripId="AXLE", side="B", qty=500, rate=1, tradeType="O"),
    trade132(clientId="C1", scripId="AXLE", side="B", qty=100, rate=12345),
    trade132(clientId="C1", scripId="AXLE", side="S", qty=40, rate=12400),
    trade132(clientId="C2", scripId="AXLE", side="S", qty=7, rate=999),
    trade132(clientId="C2", scripId="BOLT", side="B", qty=3, rate=1000),
    trade132(clientId="C1", scripId="COIL", side="B", qty=8, rate=1225),
    trade132(clientId="C3", scripId="COIL", side="S", qty=3, rate=10001))
write("export/STR040509.B01", header(fileKind="V", date="04/05/2009"),
    trade144(clientId="C1", scripId="AXLE", side="B", qty=100, rate=250),
    trade144(clientId="C1", scripId="AXLE", side="L", qty=40, rate=300),
    trade144(clientId="C2", scripId="AXLE", side="L", qty=8, rate=425),
    trade144(clientId="C2", scripId="BOLT", side="B", qty=3, rate=333))
