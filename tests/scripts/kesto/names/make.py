from workfiles import *

write("HERE.B01", header(fileKind="C"), kestoTrade())
write("old.bin/QUERY", header(fileKind="C", kind="B"), kestoBroker())
write("low.tsl", lines(delimited("Scripwise Limits", 418, "01/01/2009", 12), delimited("AXLE", 500010, 100, 200)))
