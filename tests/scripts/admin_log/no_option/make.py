from workfiles import *

write("AdZürich.adl", adminLog([traderLimit()], [scripLimit()], [groupLimit()], [activity()]))
write("AdEmpty.adl", adminLog())
