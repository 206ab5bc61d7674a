from workfiles import *

write("export/STR040509.B01", header(fileKind="V", date="04/05/2009"),
    trade144(clientId="C1", scripId="AXLE", side="B", qty=100, rate=250),
    trade144(clientId="C1", scripId="AXLE", side="L", qty=40, rate=300),
    trade144(clientId="C2", scripId="AXLE", side="L", qty=8, rate=425),
    trade144(clientId="C2", scripId="BOLT", side="B", qty=3, rate=333))
