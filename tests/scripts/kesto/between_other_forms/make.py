from workfiles import *

write("FEW.B01", header(fileKind="C"), kestoTrade(), kestoTrade(side="M", trdId=1002))
write("ONE.B01", header(), trade132())
