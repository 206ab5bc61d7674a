from workfiles import *

write("TWO.B01", header(fileKind="C"), kestoTrade(), kestoTrade(side="M", trdId=1002))
write("TWO.BIN", header(fileKind="C", kind="B"), kestoBroker(), kestoBroker(legCode="M", trdId=1002))
