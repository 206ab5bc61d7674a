from workfiles import *

write("Ad050409.adl", adminLog([traderLimit()], [scripLimit()], [groupLimit()], [activity()]))
write("AdEmpty.adl", adminLog())
