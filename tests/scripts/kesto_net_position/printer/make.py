from workfiles import *

write("export/SCT040509.B01", header(fileKind="B", date="04/05/2009"),
    kestoTrade(clientId="C1", scripId="AXLE", scripCode=1, days=7, side="S", qty=100, rate=52500))
