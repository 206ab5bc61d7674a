from workfiles import *

write("Ad050409.adl", adminLog([traderLimit(), traderLimit(traderNo=8), traderLimit(traderNo=9)], [scripLimit()],
                               [groupLimit()], [activity()]))
