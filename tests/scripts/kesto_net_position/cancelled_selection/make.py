from workfiles import *

write("export/CT040509.B01", header(fileKind="C", date="04/05/2009"),
    kestoTrade(clientId="C1", scripId="AXLE", scripCode=1, days=7, side="S", qty=5, rate=12500))
write("export/EMPTY.B01", header(fileKind="C", date="04/05/2009"))
