from workfiles import *

write("export/TR040509.B01", header(date="04/05/2009"),
    trade132(clientId="C1", scripId="AXLE", side="B", qty=500, rate=1, tradeType="O"),
    trade132(clientId="C1", scripId="AXLE", side="B", qty=100, rate=12345),
    trade132(clientId="C1", scripId="AXLE", side="S", qty=40, rate=12400),
    trade132(clientId="C2", scripId="AXLE", side="S", qty=7, rate=999),
    trade132(clientId="C2", scripId="BOLT", side="B", qty=3, rate=1000),
    trade132(clientId="C1", scripId="COIL", side="B", qty=8, rate=1225),
    trade132(clientId="C3", scripId="COIL", side="S", qty=3, rate=10001))
write("export/EMPTY.B01")
write("export/SHORT.B01", header(date="04/05/2009")[:23])
write("export/LETTER.B01", header(fileKind="X"), trade132())
write("export/KIND.B01", header(kind="B"), trade132())
write("export/BOTH.B01", header(fileKind="X", kind="B"), trade132())
write("export/HEADER.B01", header(date="04/05/2009"))
write("export/PART.B01", header(date="04/05/2009"), trade132()[:-1])
