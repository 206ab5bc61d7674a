from workfiles import *

write("export/EMPTY.B01")
write("export/SHORT.B01", header(fileKind="C")[:23])
write("export/LETTER.B01", header(fileKind="N"), kestoTrade())
write("export/HEADER.B01", header(fileKind="B"))
write("export/PART.B01", header(fileKind="C"), kestoTrade()[:-1])
