from workfiles import *

write("export/CT040509.B01", header(fileKind="C", date="04/05/2009"),
    kestoTrade(clientId="C1", scripId="AXLE", scripCode=1, days=7, side="S", qty=5, rate=12500),
    kestoTrade(clientId="C2", scripId="AXLE", scripCode=1, days=30, side="V", qty=2, rate=25000))
write("export/CT050509.B01", header(fileKind="C", date="05/05/2009"),
    kestoTrade(clientId="C9", scripId="ZINC", scripCode=9, days=1, side="M", qty=9, rate=90000))
