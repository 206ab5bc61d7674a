from workfiles import *

write("export/TR040509.B01", header(date="04/05/2009"),
    trade132(clientId="Ab", scripId="AXLE", side="B", qty=1, rate=100),
    trade132(clientId="AB", scripId="AXLE", side="B", qty=2, rate=100),
    trade132(clientId="ab", scripId="AXLE", side="B", qty=4, rate=100),
    trade132(clientId="b", scripId="AXLE", side="S", qty=9, rate=100),
    trade132(clientId="C", scripId="AXLE", side="B", qty=16, rate=100),
    trade132(clientId="C", scripId="AXLE", side="B", qty=16, rate=100, tradeType="X"),
    trade132(clientId="D", scripId="AXLE", side="S", qty=5, rate=100))
