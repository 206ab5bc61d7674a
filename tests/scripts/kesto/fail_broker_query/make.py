from workfiles import *

write("TWO.BIN", header(fileKind="C", kind="B"), kestoBroker(), kestoBroker(legCode="M", trdId=1002))
