from workfiles import *

write("export/EXCLUDED.B01", header(fileKind="C", date="04/05/2009"),
    kestoTrade(clientId="C1", scripId="AXLE", scripCode=1, days=7, side="S", qty=1, rate=10000, tradeType="O"),
    kestoTrade(clientId="C2", scripId="AXLE", scripCode=1, days=7, side="S", qty=2, rate=10000, tradeType="D"),
    kestoTrade(clientId="C3", scripId="BOLT", scripCode=2, days=7, side="M", qty=4, rate=10000, tradeType="X"))
write("export/CASE.B01", header(fileKind="C", date="04/05/2009"),
    kestoTrade(clientId="abc", scripId="AXLE", scripCode=1, days=7, side="S", qty=1, rate=10000),
    kestoTrade(clientId="ABC", scripId="BOLT", scripCode=2, days=7, side="M", qty=2, rate=10000))
write("export/FIRST.B01", header(fileKind="C", date="04/05/2009"),
    kestoTrade(clientId="ODD", scripId="ODD", scripCode=9, days=7, side="S", qty=1, rate=10000, tradeType="O"),
    kestoTrade(clientId="Abc", scripId="COIL", scripCode=3, days=7, side="S", qty=1, rate=10000))
write("export/QUERY.BIN", header(fileKind="C", kind="B", date="04/05/2009"), kestoBroker(), kestoBroker())
