from workfiles import *

write("NORMAL.BIN", header(fileKind="N"), trade132())
write("LETTER.BIN", header(fileKind="C", kind="O"), kestoTrade())
write("TRADES.BIN", header(fileKind="B"), kestoTrade())
write("SHORT.BIN", header(fileKind="C")[:23])
write("EMPTY.BIN")
write("NONE.BIN", header(fileKind="C", kind="B"))
write("NONE.B01", header(fileKind="C"))
write("TAIL.B01", header(fileKind="C"), kestoTrade(), kestoTrade()[:141])
