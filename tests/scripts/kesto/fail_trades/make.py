from workfiles import *

write("TWO.B01", header(fileKind="C"), kestoTrade(), kestoTrade(side="M", trdId=1002))
