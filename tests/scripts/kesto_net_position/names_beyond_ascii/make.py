from workfiles import *

# The last record's names fill their fields: there is no room for a NUL behind them.
write("export/CT040509.B01", header(fileKind="C", date="04/05/2009"),
    kestoTrade(clientId="É1", scripId="AXLE", scripCode=1, days=7, side="S", qty=1, rate=10000),
    kestoTrade(clientId="é1", scripId="Ünit", scripCode=2, days=7, side="M", qty=4, rate=10000),
    kestoTrade(clientId=b"ABCDEFGHIJKL", scripId=b"MNOPQRSTUVWX", scripCode=3, days=7, side="V", qty=16, rate=10000))
