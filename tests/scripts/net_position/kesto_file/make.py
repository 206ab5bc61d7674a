from workfiles import *

write("export/CT040509.B01", header(fileKind="B", date="04/05/2009"),
    kestoTrade(clientId="C1", scripId="AXLE", side="T", qty=100, rate=123456),
    kestoTrade(clientId="C1", scripId="AXLE", side="M", qty=30, rate=125000),
    kestoTrade(clientId="C2", scripId="BOLT", side="V", qty=8, rate=100001),
    kestoTrade(clientId="C2", scripId="AXLE", side="S", qty=8, rate=99999))
