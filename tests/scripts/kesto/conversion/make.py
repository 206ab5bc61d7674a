from workfiles import *

write("XY", header(fileKind="B", kind="B"), kestoBroker())
write("TR.001", header(fileKind="C"), kestoTrade())
