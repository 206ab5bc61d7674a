from workfiles import *

write("FEW.B01", header(fileKind="C"), kestoTrade(), kestoTrade(side="M", trdId=1002))
write("NONE.DAT")
