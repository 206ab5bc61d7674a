from workfiles import *

write("export/SCT010109.B01", header("B"), kestoTrade(trdId=1), kestoTrade(trdId=2, side="V"))
