from workfiles import *

write("export/TR040509.B01", header(date="04/05/2009"),
    trade132(clientId="C1", scripId="AXLE", side="B", qty=1, rate=100))
