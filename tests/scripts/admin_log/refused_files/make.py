from workfiles import *

write("Ad050409.ADX", adminLog([traderLimit()]))
write("UPPER.ADL", adminLog([traderLimit()]))
write("AdEmpty.adl", adminLog())
write("AdShort.adl", adminLog()[:35])
write("AdNothing.adl")
write("Ad.adl.bak", adminLog([traderLimit()]))
