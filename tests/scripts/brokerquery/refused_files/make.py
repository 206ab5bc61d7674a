from workfiles import *

write("CB.BIN", header(fileKind="C", kind="B"), kestoBroker())
write("X.BIN", header(fileKind="X", kind="B"), broker132())
write("TR.BIN", header(fileKind="N", kind="T"), broker132())
write("TRV.BIN", header(fileKind="V", kind="T"), broker160())
write("EMPTY.BIN")
write("SHORT.BIN", header(kind="B")[:23])
