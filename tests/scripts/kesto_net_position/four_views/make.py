from workfiles import *

write("export/ct040509.b01", header(fileKind="C", date="04/05/2009"),
    kestoTrade(clientId="C2", scripId="COIL", scripCode=3, days=30, side="V", qty=3, rate=100001),
    kestoTrade(clientId="C1", scripId="AXLE", scripCode=1, days=7, side="S", qty=1000000, rate=52501),
    kestoTrade(clientId="C1", scripId="AXLE", scripCode=1, days=7, side="M", qty=400, rate=53333),
    kestoTrade(clientId="C1", scripId="AXLE", scripCode=1, days=14, side="T", qty=8, rate=12250),
    kestoTrade(clientId="C2", scripId="AXLE", scripCode=1, days=7, side="S", qty=500, rate=1, tradeType="O"),
    kestoTrade(clientId="C2", scripId="BOLT", scripCode=2, days=7, side="M", qty=7, rate=9990),
    kestoTrade(clientId="C3", scripId="COIL", scripCode=3, days=14, side="T", qty=5, rate=20000))
