from workfiles import *

write("Ad050409.adl", adminLog([traderLimit()], [scripLimit()], [groupLimit()], [activity(traderId=9), activity(traderId=3)]))
